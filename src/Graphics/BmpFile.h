#pragma once

#include "Graphics/Bitmap.h"

namespace varn {

/// Fills an empty bitmap with a Windows bitmap of 8, 16, 24 or 32 bits. Pixels are taken from
/// straight behind the 40-byte header (and the palette, with 8 bits), 16 bits as 5-6-5, rows always
/// from the bottom: games rely on how such files have always come out. Another signature, bit count
/// or size leaves the bitmap empty; rows that the file does not hold stay zero.
void readBmp(ByteSpan bytes, Bitmap& into);

/// A 54-byte head and the pixels as they stand, the top row first.
std::string writeBmp(const Bitmap& bitmap);

} // namespace varn
