#pragma once

#include "Graphics/Bitmap.h"

namespace varn {

/// Fills an empty bitmap with a JPEG picture; the key is the colour of its first pixel.
/// @throws Exception  the decoder refuses the bytes; the bitmap is empty
void readJpeg(ByteSpan bytes, WStringView path, Bitmap& into);

} // namespace varn
