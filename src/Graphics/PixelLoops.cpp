#include "Graphics/PixelLoops.h"

#include <cstring>

#if defined(__x86_64__)
#include "Graphics/PixelLoopsVector.h"

#include <emmintrin.h>
#endif

namespace varn {

namespace {

std::uint32_t loadPixel(const std::uint8_t* at)
{
    std::uint32_t value;
    std::memcpy(&value, at, sizeof value);
    return value;
}

int approach(int c, int d, int weight)
{
    return (c - d) * weight / 255 + d;
}

int fade(int c, int d, int opacity)
{
    return opacity * c / 255 + d - opacity * d / 255;
}

} // namespace

void blendRowPlain(const RowStyle& style, const std::uint8_t* source, std::uint8_t* target,
                   std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i, source += 4, target += 4) {
        const int alpha = style.hasAlpha ? source[3] : 255;
        const bool hidden =
            style.keyed && !style.hasAlpha && (loadPixel(source) & 0xFFFFFF) == style.key;
        if (alpha == 0 || hidden)
            continue;
        for (int channel = 0; channel < 3; ++channel) {
            const int under = target[channel];
            int c = source[channel];
            if (style.toneStrength != 0)
                c = approach(c, static_cast<int>(style.tone >> (channel * 8) & 0xFF),
                             255 - style.toneStrength);
            if (alpha != 255)
                c = approach(c, under, alpha);
            if (style.opacity != 255)
                c = fade(c, under, style.opacity);
            target[channel] = static_cast<std::uint8_t>(c);
        }
    }
}

void blendColourPlain(std::uint32_t colour, std::uint8_t opacity, std::uint8_t* target,
                      std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i, target += 4)
        for (int channel = 0; channel < 3; ++channel)
            target[channel] = static_cast<std::uint8_t>(
                fade(static_cast<int>(colour >> (channel * 8) & 0xFF), target[channel], opacity));
}

#if defined(__x86_64__)

namespace pixelloops {

void blendRowAvx2(const RowStyle& style, const std::uint8_t* source, std::uint8_t* target,
                  std::size_t count);
void blendColourAvx2(std::uint32_t colour, std::uint8_t opacity, std::uint8_t* target,
                     std::size_t count);

namespace {

struct Sse2
{
    using Reg = __m128i;
    static constexpr std::size_t kPixels = 4;

    static Reg load(const std::uint8_t* at)
    {
        return _mm_loadu_si128(reinterpret_cast<const Reg*>(at));
    }
    static void store(std::uint8_t* at, Reg r) { _mm_storeu_si128(reinterpret_cast<Reg*>(at), r); }
    static Reg all32(int value) { return _mm_set1_epi32(value); }
    static Reg all16(short value) { return _mm_set1_epi16(value); }
    static Reg unpackLo(Reg r) { return _mm_unpacklo_epi8(r, _mm_setzero_si128()); }
    static Reg unpackHi(Reg r) { return _mm_unpackhi_epi8(r, _mm_setzero_si128()); }
    static Reg pack(Reg lo, Reg hi) { return _mm_packus_epi16(lo, hi); }
    static Reg mulLow(Reg a, Reg b) { return _mm_mullo_epi16(a, b); }
    static Reg mulHigh(Reg a, Reg b) { return _mm_mulhi_epu16(a, b); }
    template <int kBits>
    static Reg shiftRight16(Reg r)
    {
        return _mm_srli_epi16(r, kBits);
    }
    static Reg add16(Reg a, Reg b) { return _mm_add_epi16(a, b); }
    static Reg sub16(Reg a, Reg b) { return _mm_sub_epi16(a, b); }
    static Reg subSaturated(Reg a, Reg b) { return _mm_subs_epu16(a, b); }
    static Reg bitAnd(Reg a, Reg b) { return _mm_and_si128(a, b); }
    static Reg bitOr(Reg a, Reg b) { return _mm_or_si128(a, b); }
    static Reg equal32(Reg a, Reg b) { return _mm_cmpeq_epi32(a, b); }
    static Reg select(Reg mask, Reg a, Reg b)
    {
        return _mm_or_si128(_mm_and_si128(mask, a), _mm_andnot_si128(mask, b));
    }
    static bool isZero(Reg r) { return equal(r, _mm_setzero_si128()); }
    static bool equal(Reg a, Reg b) { return _mm_movemask_epi8(_mm_cmpeq_epi8(a, b)) == 0xFFFF; }
    static Reg spreadAlpha(Reg channels)
    {
        return _mm_shufflehi_epi16(_mm_shufflelo_epi16(channels, 0xFF), 0xFF);
    }
};

const bool kHasAvx2 = __builtin_cpu_supports("avx2");

} // namespace
} // namespace pixelloops

void blendRow(const RowStyle& style, const std::uint8_t* source, std::uint8_t* target,
              std::size_t count)
{
    if (pixelloops::kHasAvx2)
        pixelloops::blendRowAvx2(style, source, target, count);
    else
        pixelloops::blendRow<pixelloops::Sse2>(style, source, target, count);
}

void blendColour(std::uint32_t colour, std::uint8_t opacity, std::uint8_t* target,
                 std::size_t count)
{
    if (pixelloops::kHasAvx2)
        pixelloops::blendColourAvx2(colour, opacity, target, count);
    else
        pixelloops::blendColour<pixelloops::Sse2>(colour, opacity, target, count);
}

#else

void blendRow(const RowStyle& style, const std::uint8_t* source, std::uint8_t* target,
              std::size_t count)
{
    blendRowPlain(style, source, target, count);
}

void blendColour(std::uint32_t colour, std::uint8_t opacity, std::uint8_t* target,
                 std::size_t count)
{
    blendColourPlain(colour, opacity, target, count);
}

#endif

} // namespace varn
