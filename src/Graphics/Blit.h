#pragma once

#include "Graphics/Image.h"

namespace varn {

/// The image blit of Graphics::drawImage on bare pixels, both roads.
/// @param target  where on the surface; a negative width mirrors, x is then the right-hand column
/// @param source  what part of the picture; places outside the picture draw nothing
void blitImage(Bitmap& surface, const Image& picture, const Rect& target, const Rect& source);

/// A plain copy of a whole bitmap, alpha bytes included.
void copyBitmap(Bitmap& surface, const Bitmap& picture, int x, int y);

} // namespace varn
