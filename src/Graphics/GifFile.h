#pragma once

#include "Graphics/Bitmap.h"

#include <optional>

namespace varn {

/// What the head of a GIF file tells of its transparent colour
/// (https://www.w3.org/Graphics/GIF/spec-gif89a.txt).
struct GifHeader
{
    /// The palette's bytes as first << 16 | second << 8 | third, so red and blue stand exchanged
    /// against a colour reference. The same value is painted and keyed out, which makes them meet.
    std::optional<std::uint32_t> transparentColour;
};

/// Reads up to the first image. Nothing: no GIF, or cut short.
std::optional<GifHeader> readGifHeader(ByteSpan bytes);

/// Fills an empty bitmap with the first frame, on the transparent colour where there is one.
/// @throws Exception  no GIF, or the decoder refuses it; the bitmap is empty
void readGif(ByteSpan bytes, WStringView path, Bitmap& into);

} // namespace varn
