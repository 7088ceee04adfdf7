// Compiled for AVX2; reached only through the choice in PixelLoops.cpp.

#if defined(__AVX2__)

#include "Graphics/PixelLoopsVector.h"

#include <immintrin.h>

namespace varn::pixelloops {

namespace {

struct Avx2
{
    using Reg = __m256i;
    static constexpr std::size_t kPixels = 8;

    static Reg load(const std::uint8_t* at)
    {
        return _mm256_loadu_si256(reinterpret_cast<const Reg*>(at));
    }
    static void store(std::uint8_t* at, Reg r)
    {
        _mm256_storeu_si256(reinterpret_cast<Reg*>(at), r);
    }
    static Reg all32(int value) { return _mm256_set1_epi32(value); }
    static Reg all16(short value) { return _mm256_set1_epi16(value); }
    static Reg unpackLo(Reg r) { return _mm256_unpacklo_epi8(r, _mm256_setzero_si256()); }
    static Reg unpackHi(Reg r) { return _mm256_unpackhi_epi8(r, _mm256_setzero_si256()); }
    static Reg pack(Reg lo, Reg hi) { return _mm256_packus_epi16(lo, hi); }
    static Reg mulLow(Reg a, Reg b) { return _mm256_mullo_epi16(a, b); }
    static Reg mulHigh(Reg a, Reg b) { return _mm256_mulhi_epu16(a, b); }
    template <int kBits>
    static Reg shiftRight16(Reg r)
    {
        return _mm256_srli_epi16(r, kBits);
    }
    static Reg add16(Reg a, Reg b) { return _mm256_add_epi16(a, b); }
    static Reg sub16(Reg a, Reg b) { return _mm256_sub_epi16(a, b); }
    static Reg subSaturated(Reg a, Reg b) { return _mm256_subs_epu16(a, b); }
    static Reg subSaturated8(Reg a, Reg b) { return _mm256_subs_epu8(a, b); }
    static Reg add8(Reg a, Reg b) { return _mm256_add_epi8(a, b); }
    static Reg sub8(Reg a, Reg b) { return _mm256_sub_epi8(a, b); }
    static Reg isZero8(Reg r) { return _mm256_cmpeq_epi8(r, _mm256_setzero_si256()); }
    static Reg bitAnd(Reg a, Reg b) { return _mm256_and_si256(a, b); }
    static Reg bitOr(Reg a, Reg b) { return _mm256_or_si256(a, b); }
    static Reg equal32(Reg a, Reg b) { return _mm256_cmpeq_epi32(a, b); }
    /// Masks are whole bytes.
    static Reg select(Reg mask, Reg a, Reg b) { return _mm256_blendv_epi8(b, a, mask); }
    static bool isZero(Reg r) { return _mm256_testz_si256(r, r); }
    static bool equal(Reg a, Reg b) { return isZero(_mm256_xor_si256(a, b)); }
    /// Eight bytes, each in all four channels of its pixel.
    static Reg spreadBytes(const std::uint8_t* bytes)
    {
        const __m128i eight = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(bytes));
        return _mm256_mullo_epi32(_mm256_cvtepu8_epi32(eight), all32(0x01010101));
    }
    static Reg spreadAlpha(Reg channels)
    {
        return _mm256_shufflehi_epi16(_mm256_shufflelo_epi16(channels, 0xFF), 0xFF);
    }
};

} // namespace

void blendRowAvx2(const RowStyle& style, const std::uint8_t* source, std::uint8_t* target,
                  std::size_t count)
{
    blendRow<Avx2>(style, source, target, count);
}

void blendColourAvx2(std::uint32_t colour, std::uint8_t opacity, std::uint8_t* target,
                     std::size_t count)
{
    blendColour<Avx2>(colour, opacity, target, count);
}

std::size_t fogEvenAvx2(std::uint32_t colour, std::uint8_t strength, std::uint32_t* pixels,
                        std::size_t count)
{
    return fogEvenVectors<Avx2>(colour, strength, pixels, count);
}

std::size_t fogAvx2(std::uint32_t colour, const std::uint8_t* strengths, std::uint32_t* pixels,
                    std::size_t count)
{
    return fogVectors<Avx2>(colour, strengths, pixels, count);
}

std::size_t copyUnlessKeyAvx2(std::uint32_t key, const std::uint32_t* source,
                              const std::uint32_t* pixels, std::uint8_t* target, std::size_t count)
{
    return copyVectors<Avx2>(key, source, pixels, target, count);
}

} // namespace varn::pixelloops

#endif
