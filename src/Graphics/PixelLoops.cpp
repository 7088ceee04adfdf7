#include "Graphics/PixelLoops.h"

#include <algorithm>
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

void fogRowAcrossPlain(std::uint32_t colour, const std::uint8_t* strengths, std::uint32_t* pixels,
                       std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        std::uint32_t out = pixels[i] & 0xFF000000;
        for (int shift = 0; shift < 24; shift += 8) {
            const int c = approach(static_cast<int>(pixels[i] >> shift & 0xFF),
                                   static_cast<int>(colour >> shift & 0xFF), strengths[i]);
            out |= static_cast<std::uint32_t>(c) << shift;
        }
        pixels[i] = out;
    }
}

void copyUnlessKeyPlain(std::uint32_t key, const std::uint32_t* source, const std::uint32_t* pixels,
                        std::uint8_t* target, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        if ((source[i] & 0xFFFFFF) == key)
            continue;
        const std::uint32_t opaque = pixels[i] | 0xFF000000;
        std::memcpy(target + i * 4, &opaque, sizeof opaque);
    }
}

void fogRowPlain(std::uint32_t colour, std::uint8_t strength, std::uint32_t* pixels,
                 std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        fogRowAcrossPlain(colour, &strength, pixels + i, 1);
}

std::uint32_t gatherPixels(const std::uint8_t* pixels, const std::int32_t* places,
                           std::uint32_t* out, std::size_t count)
{
    // Plain loads: many processors run a vector gather at half their speed.
    std::uint32_t common = 0xFFFFFFFF;
    for (std::size_t i = 0; i < count; ++i) {
        out[i] = loadPixel(pixels + static_cast<std::size_t>(places[i]) * 4);
        common &= out[i];
    }
    return common;
}

#if defined(__x86_64__)

namespace pixelloops {

void blendRowAvx2(const RowStyle& style, const std::uint8_t* source, std::uint8_t* target,
                  std::size_t count);
void blendColourAvx2(std::uint32_t colour, std::uint8_t opacity, std::uint8_t* target,
                     std::size_t count);

std::size_t fogEvenAvx2(std::uint32_t colour, std::uint8_t strength, std::uint32_t* pixels,
                        std::size_t count);
std::size_t fogAvx2(std::uint32_t colour, const std::uint8_t* strengths, std::uint32_t* pixels,
                    std::size_t count);
std::size_t copyUnlessKeyAvx2(std::uint32_t key, const std::uint32_t* source,
                              const std::uint32_t* pixels, std::uint8_t* target, std::size_t count);

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
    static Reg subSaturated8(Reg a, Reg b) { return _mm_subs_epu8(a, b); }
    static Reg add8(Reg a, Reg b) { return _mm_add_epi8(a, b); }
    static Reg sub8(Reg a, Reg b) { return _mm_sub_epi8(a, b); }
    static Reg isZero8(Reg r) { return _mm_cmpeq_epi8(r, _mm_setzero_si128()); }
    static Reg bitAnd(Reg a, Reg b) { return _mm_and_si128(a, b); }
    static Reg bitOr(Reg a, Reg b) { return _mm_or_si128(a, b); }
    static Reg equal32(Reg a, Reg b) { return _mm_cmpeq_epi32(a, b); }
    static Reg select(Reg mask, Reg a, Reg b)
    {
        return _mm_or_si128(_mm_and_si128(mask, a), _mm_andnot_si128(mask, b));
    }
    static bool isZero(Reg r) { return equal(r, _mm_setzero_si128()); }
    static bool equal(Reg a, Reg b) { return _mm_movemask_epi8(_mm_cmpeq_epi8(a, b)) == 0xFFFF; }
    /// Four bytes, each in all four channels of its pixel.
    static Reg spreadBytes(const std::uint8_t* bytes)
    {
        std::int32_t four;
        std::memcpy(&four, bytes, sizeof four);
        Reg r = _mm_cvtsi32_si128(four);
        r = _mm_unpacklo_epi8(r, r);
        return _mm_unpacklo_epi16(r, r);
    }
    static Reg spreadAlpha(Reg channels)
    {
        return _mm_shufflehi_epi16(_mm_shufflelo_epi16(channels, 0xFF), 0xFF);
    }
};

const bool kHasAvx2 = __builtin_cpu_supports("avx2");
constexpr std::size_t kMostPixels = 8; ///< of a register of any set

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

void fogRow(std::uint32_t colour, std::uint8_t strength, std::uint32_t* pixels, std::size_t count)
{
    using namespace pixelloops;
    const auto fog = [=](std::uint32_t* run, std::size_t length) {
        return kHasAvx2 ? fogEvenAvx2(colour, strength, run, length)
                        : fogEvenVectors<Sse2>(colour, strength, run, length);
    };
    const std::size_t done = fog(pixels, count);
    // The rest goes through a register's worth of room.
    std::uint32_t rest[kMostPixels] = {};
    std::copy(pixels + done, pixels + count, rest);
    fog(rest, kMostPixels);
    std::copy_n(rest, count - done, pixels + done);
}

void fogRowAcross(std::uint32_t colour, const std::uint8_t* strengths, std::uint32_t* pixels,
                  std::size_t count)
{
    using namespace pixelloops;
    const auto fog = [=](const std::uint8_t* weights, std::uint32_t* run, std::size_t length) {
        return kHasAvx2 ? fogAvx2(colour, weights, run, length)
                        : fogVectors<Sse2>(colour, weights, run, length);
    };
    const std::size_t done = fog(strengths, pixels, count);
    std::uint32_t rest[kMostPixels] = {};
    std::uint8_t weights[kMostPixels] = {};
    std::copy(pixels + done, pixels + count, rest);
    std::copy(strengths + done, strengths + count, weights);
    fog(weights, rest, kMostPixels);
    std::copy_n(rest, count - done, pixels + done);
}

void copyUnlessKey(std::uint32_t key, const std::uint32_t* source, const std::uint32_t* pixels,
                   std::uint8_t* target, std::size_t count)
{
    using namespace pixelloops;
    const std::size_t done = kHasAvx2 ? copyUnlessKeyAvx2(key, source, pixels, target, count)
                                      : copyVectors<Sse2>(key, source, pixels, target, count);
    copyUnlessKeyPlain(key, source + done, pixels + done, target + done * 4, count - done);
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

void fogRow(std::uint32_t colour, std::uint8_t strength, std::uint32_t* pixels, std::size_t count)
{
    fogRowPlain(colour, strength, pixels, count);
}

void fogRowAcross(std::uint32_t colour, const std::uint8_t* strengths, std::uint32_t* pixels,
                  std::size_t count)
{
    fogRowAcrossPlain(colour, strengths, pixels, count);
}

void copyUnlessKey(std::uint32_t key, const std::uint32_t* source, const std::uint32_t* pixels,
                   std::uint8_t* target, std::size_t count)
{
    copyUnlessKeyPlain(key, source, pixels, target, count);
}

#endif

} // namespace varn
