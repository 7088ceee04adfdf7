#pragma once

#include <cstddef>
#include <cstdint>

namespace varn {

/// How a row of source pixels is laid over a row of target pixels. Colours are pixel values, blue
/// in the low byte. The target's alpha bytes are never written.
struct RowStyle
{
    bool hasAlpha = false;         ///< the source's alpha bytes count; then no key is tested
    bool keyed = false;            ///< source pixels of colour `key` are left out
    std::uint32_t key = 0;         ///< 0x00RRGGBB
    std::uint8_t toneStrength = 0; ///< 0: no tone
    std::uint32_t tone = 0;        ///< 0x00RRGGBB
    std::uint8_t opacity = 255;
};

/// Lays `count` pixels over the target: tone, then alpha or key, then opacity, each step in
/// integers with truncation toward zero:
///   tone     c = (c - t) * (255 - strength) / 255 + t
///   alpha    c = (c - d) * a / 255 + d
///   opacity  c = opacity * c / 255 + d - opacity * d / 255
/// The rows do not overlap.
void blendRow(const RowStyle& style, const std::uint8_t* source, std::uint8_t* target,
              std::size_t count);

/// Lays one colour (0x00RRGGBB) over a row with an opacity, by the opacity step above.
void blendColour(std::uint32_t colour, std::uint8_t opacity, std::uint8_t* target,
                 std::size_t count);

/// Lays a colour (0x00RRGGBB) over pixels: c = (c - t) * strength / 255 + t, truncated toward zero,
/// alpha untouched; 255 leaves them as they are. The second form has a strength for each pixel.
void fogRow(std::uint32_t colour, std::uint8_t strength, std::uint32_t* pixels, std::size_t count);
void fogRowAcross(std::uint32_t colour, const std::uint8_t* strengths, std::uint32_t* pixels,
                  std::size_t count);

/// Writes pixels with alpha 255 where the source's colour is not the key.
/// @param source  what the key (0x00RRGGBB) is tested on
/// @param pixels  what is written, fogged or the source itself
void copyUnlessKey(std::uint32_t key, const std::uint32_t* source, const std::uint32_t* pixels,
                   std::uint8_t* target, std::size_t count);

/// out[i] = pixels[places[i]]; every place is in the picture.
/// @returns all of them ANDed: its alpha is 255 where every pixel's is
std::uint32_t gatherPixels(const std::uint8_t* pixels, const std::int32_t* places,
                           std::uint32_t* out, std::size_t count);

/// The same results one pixel at a time: what the vector forms are held to.
void blendRowPlain(const RowStyle& style, const std::uint8_t* source, std::uint8_t* target,
                   std::size_t count);
void blendColourPlain(std::uint32_t colour, std::uint8_t opacity, std::uint8_t* target,
                      std::size_t count);
void fogRowPlain(std::uint32_t colour, std::uint8_t strength, std::uint32_t* pixels,
                 std::size_t count);
void fogRowAcrossPlain(std::uint32_t colour, const std::uint8_t* strengths, std::uint32_t* pixels,
                       std::size_t count);
void copyUnlessKeyPlain(std::uint32_t key, const std::uint32_t* source, const std::uint32_t* pixels,
                        std::uint8_t* target, std::size_t count);

} // namespace varn
