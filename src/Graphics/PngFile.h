#pragma once

#include "Graphics/Bitmap.h"

namespace varn {

/// Fills an empty bitmap with a PNG picture (https://www.w3.org/TR/png/). Colour types 2, 3, 4 and
/// 6 of 8 bits are read right; grey without alpha comes out black, and 16-bit channels are not
/// reduced: the games made with this tool show such files so.
/// @throws Exception  libpng refuses the bytes; the bitmap is empty
void readPng(ByteSpan bytes, WStringView path, Bitmap& into);

/// The bytes of an RGBA file of 8 bits a channel; empty when libpng refuses.
std::string writePng(const Bitmap& bitmap);

} // namespace varn
