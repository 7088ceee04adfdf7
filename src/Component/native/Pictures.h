#pragma once

#include "Graphics/Bitmap.h"

#include <QPixmap>

namespace varn::native {

/// A copy of a bitmap for the toolkit; its alpha counts where it has some.
/// @param scale  device pixels of one pixel of the window
QPixmap pixmapOf(const Bitmap& bitmap, double scale);

} // namespace varn::native
