#pragma once

#include "Util/Bytes.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace varn::test {

// Pictures byte by byte, with every lie that a file can tell.

struct PngParts
{
    std::uint32_t width = 2, height = 1;
    int depth = 8, colourType = 2;
    std::string_view palette = {};      ///< PLTE; empty: none
    std::string_view transparency = {}; ///< tRNS; empty: none
    std::string rows;                   ///< each with its filter byte
};

/// A PNG file whose data is stored, not compressed.
std::string makePng(const PngParts& parts);

struct BmpParts
{
    std::int32_t width = 1, height = 1;
    std::uint16_t bits = 24;
    std::uint32_t coloursUsed = 0;
    std::string behindHeader;
    std::string_view signature = "BM";
};

std::string makeBmp(const BmpParts& parts);

/// Screen and image of a GIF file of two colours, the second one transparent by its graphic
/// control.
struct GifParts
{
    std::uint16_t screenWidth = 2, screenHeight = 1;
    std::uint16_t left = 0, top = 0, width = 2, height = 1;
    std::uint8_t transparentIndex = 1;
    std::string_view version = "89a";
    std::string_view data = "\2\2\x44\x0A"; ///< code size 2, then sub-blocks: pixels 0 and 1
};

std::string makeGif(const GifParts& parts);

} // namespace varn::test
