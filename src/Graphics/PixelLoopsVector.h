#pragma once

// The vector forms of the pixel loops, over a type V that wraps one instruction set
// (PixelLoops.cpp, PixelLoopsAvx2.cpp). Unpacking and packing stay inside 128-bit lanes in every
// set, and each is undone by its twin, so one text serves all widths.

#include "Graphics/PixelLoops.h"

namespace varn::pixelloops {

/// One pixel register split into two of 16-bit channels.
template <class V>
struct Channels
{
    typename V::Reg lo, hi;

    static Channels of(typename V::Reg pixels)
    {
        return {V::unpackLo(pixels), V::unpackHi(pixels)};
    }
    typename V::Reg pack() const { return V::pack(lo, hi); }
};

/// x / 255 of 16-bit unsigned lanes, exactly: the high half of x * 0x8081, shifted by 7.
template <class V>
typename V::Reg divide255(typename V::Reg x)
{
    return V::template shiftRight16<7>(V::mulHigh(x, V::all16(static_cast<short>(0x8081))));
}

/// (c - d) * weight / 255 + d in 16-bit lanes, truncated toward zero: the distance is scaled
/// unsigned and goes to the side where c lies.
template <class V>
typename V::Reg approach(typename V::Reg c, typename V::Reg d, typename V::Reg weight)
{
    const auto up = divide255<V>(V::mulLow(V::subSaturated(c, d), weight));
    const auto down = divide255<V>(V::mulLow(V::subSaturated(d, c), weight));
    return V::sub16(V::add16(d, up), down);
}

/// opacity * c / 255 + d - opacity * d / 255
template <class V>
typename V::Reg fade(typename V::Reg c, typename V::Reg d, typename V::Reg opacity)
{
    const auto mixed = divide255<V>(V::mulLow(c, opacity));
    const auto kept = V::sub16(d, divide255<V>(V::mulLow(d, opacity)));
    return V::add16(mixed, kept);
}

template <class V>
struct RowConstants
{
    typename V::Reg colourMask = V::all32(0x00FFFFFF);
    typename V::Reg alphaMask = V::all32(static_cast<int>(0xFF000000));
    typename V::Reg key, tone, toneKept, opacity;

    explicit RowConstants(const RowStyle& style)
        : key(V::all32(static_cast<int>(style.key))),
          tone(V::unpackLo(V::all32(static_cast<int>(style.tone)))),
          toneKept(V::all16(static_cast<short>(255 - style.toneStrength))),
          opacity(V::all16(style.opacity))
    {}
};

/// The general row: everything that the style asks for, known at compile time.
template <class V, bool kAlpha, bool kTone, bool kFade>
std::size_t blendVectors(const RowStyle& style, const std::uint8_t* source, std::uint8_t* target,
                         std::size_t count)
{
    const RowConstants<V> k(style);
    const bool keyed = style.keyed; // stores of bytes may alias what is behind the reference
    std::size_t i = 0;
    for (; i + V::kPixels <= count; i += V::kPixels) {
        const auto s = V::load(source + i * 4);
        const auto d = V::load(target + i * 4);
        auto keep = k.alphaMask; // bits of the target that stay
        bool opaque = true;
        if constexpr (kAlpha) {
            const auto alphas = V::bitAnd(s, k.alphaMask);
            if (V::isZero(alphas))
                continue;
            opaque = V::equal(alphas, k.alphaMask);
            if constexpr (!kTone && !kFade) {
                if (opaque) {
                    V::store(target + i * 4, V::select(keep, d, s));
                    continue;
                }
            }
        } else if (keyed) {
            keep = V::bitOr(keep, V::equal32(V::bitAnd(s, k.colourMask), k.key));
        }
        if constexpr (!kAlpha && !kTone && !kFade) {
            V::store(target + i * 4, V::select(keep, d, s));
            continue;
        }
        auto c = Channels<V>::of(s);
        const auto under = Channels<V>::of(d);
        const Channels<V> alpha{V::spreadAlpha(c.lo), V::spreadAlpha(c.hi)};
        if constexpr (kTone)
            c = {approach<V>(c.lo, k.tone, k.toneKept), approach<V>(c.hi, k.tone, k.toneKept)};
        if (kAlpha && !opaque)
            c = {approach<V>(c.lo, under.lo, alpha.lo), approach<V>(c.hi, under.hi, alpha.hi)};
        if constexpr (kFade)
            c = {fade<V>(c.lo, under.lo, k.opacity), fade<V>(c.hi, under.hi, k.opacity)};
        V::store(target + i * 4, V::select(keep, d, c.pack()));
    }
    return i;
}

template <class V>
void blendRow(const RowStyle& style, const std::uint8_t* source, std::uint8_t* target,
              std::size_t count)
{
    using Loop = std::size_t (*)(const RowStyle&, const std::uint8_t*, std::uint8_t*, std::size_t);
    static constexpr Loop kLoops[2][2][2] = {
        {{blendVectors<V, false, false, false>, blendVectors<V, false, false, true>},
         {blendVectors<V, false, true, false>, blendVectors<V, false, true, true>}},
        {{blendVectors<V, true, false, false>, blendVectors<V, true, false, true>},
         {blendVectors<V, true, true, false>, blendVectors<V, true, true, true>}}};
    const std::size_t done = kLoops[style.hasAlpha][style.toneStrength != 0][style.opacity != 255](
        style, source, target, count);
    blendRowPlain(style, source + done * 4, target + done * 4, count - done);
}

template <class V>
void blendColour(std::uint32_t colour, std::uint8_t opacity, std::uint8_t* target,
                 std::size_t count)
{
    const auto alphaMask = V::all32(static_cast<int>(0xFF000000));
    const auto weight = V::all16(opacity);
    const auto mixed =
        divide255<V>(V::mulLow(V::unpackLo(V::all32(static_cast<int>(colour))), weight));
    std::size_t i = 0;
    for (; i + V::kPixels <= count; i += V::kPixels) {
        const auto d = V::load(target + i * 4);
        auto c = Channels<V>::of(d);
        c.lo = V::add16(mixed, V::sub16(c.lo, divide255<V>(V::mulLow(c.lo, weight))));
        c.hi = V::add16(mixed, V::sub16(c.hi, divide255<V>(V::mulLow(c.hi, weight))));
        V::store(target + i * 4, V::select(alphaMask, d, c.pack()));
    }
    blendColourPlain(colour, opacity, target + i * 4, count - i);
}

/// Fog over one register of pixels: `approach` on bytes, where the distance to the colour is
/// scaled once and goes to the side where the pixel lies.
/// @param colour   in every pixel, its alpha 0
/// @param weights  by 16-bit channels
template <class V>
typename V::Reg fogged(typename V::Reg pixels, typename V::Reg colour, const Channels<V>& weights)
{
    const auto above = V::subSaturated8(pixels, colour), below = V::subSaturated8(colour, pixels);
    const auto distance = Channels<V>::of(V::bitOr(above, below));
    const Channels<V> scaled{divide255<V>(V::mulLow(distance.lo, weights.lo)),
                             divide255<V>(V::mulLow(distance.hi, weights.hi))};
    const auto step = scaled.pack();
    const auto mixed = V::select(V::isZero8(above), V::sub8(colour, step), V::add8(colour, step));
    return V::select(V::all32(static_cast<int>(0xFF000000)), pixels, mixed);
}

template <class V>
std::size_t fogEvenVectors(std::uint32_t colour, std::uint8_t strength, std::uint32_t* pixels,
                           std::size_t count)
{
    const auto wide = V::all32(static_cast<int>(colour & 0xFFFFFF));
    const Channels<V> weights{V::all16(strength), V::all16(strength)};
    std::size_t i = 0;
    for (; i + V::kPixels <= count; i += V::kPixels) {
        auto* const at = reinterpret_cast<std::uint8_t*>(pixels + i);
        V::store(at, fogged<V>(V::load(at), wide, weights));
    }
    return i;
}

template <class V>
std::size_t fogVectors(std::uint32_t colour, const std::uint8_t* strengths, std::uint32_t* pixels,
                       std::size_t count)
{
    const auto wide = V::all32(static_cast<int>(colour & 0xFFFFFF));
    std::size_t i = 0;
    for (; i + V::kPixels <= count; i += V::kPixels) {
        auto* const at = reinterpret_cast<std::uint8_t*>(pixels + i);
        const auto weights = Channels<V>::of(V::spreadBytes(strengths + i));
        V::store(at, fogged<V>(V::load(at), wide, weights));
    }
    return i;
}

template <class V>
std::size_t copyVectors(std::uint32_t key, const std::uint32_t* source, const std::uint32_t* pixels,
                        std::uint8_t* target, std::size_t count)
{
    const auto colourMask = V::all32(0x00FFFFFF),
               alphaMask = V::all32(static_cast<int>(0xFF000000));
    const auto keys = V::all32(static_cast<int>(key));
    std::size_t i = 0;
    for (; i + V::kPixels <= count; i += V::kPixels) {
        const auto s = V::load(reinterpret_cast<const std::uint8_t*>(source + i));
        const auto p = V::load(reinterpret_cast<const std::uint8_t*>(pixels + i));
        const auto hidden = V::equal32(V::bitAnd(s, colourMask), keys);
        std::uint8_t* const at = target + i * 4;
        V::store(at, V::select(hidden, V::load(at), V::bitOr(p, alphaMask)));
    }
    return i;
}

} // namespace varn::pixelloops
