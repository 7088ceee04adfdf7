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
    static Reg bitAnd(Reg a, Reg b) { return _mm256_and_si256(a, b); }
    static Reg bitOr(Reg a, Reg b) { return _mm256_or_si256(a, b); }
    static Reg equal32(Reg a, Reg b) { return _mm256_cmpeq_epi32(a, b); }
    static Reg select(Reg mask, Reg a, Reg b)
    {
        return _mm256_or_si256(_mm256_and_si256(mask, a), _mm256_andnot_si256(mask, b));
    }
    static bool isZero(Reg r) { return _mm256_testz_si256(r, r); }
    static bool equal(Reg a, Reg b) { return isZero(_mm256_xor_si256(a, b)); }
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

} // namespace varn::pixelloops

#endif
