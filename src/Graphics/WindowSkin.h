#pragma once

#include "Graphics/Image.h"

#include <functional>

namespace varn {

/// The grid of a window skin: 4 by 4 cells, of which the border ones are used.
inline constexpr int kSkinCell = 16;

/// A skin for when no picture is there: two white lines on the transparent colour, black.
Image makePlainSkin();

/// Calls back for every cell of a frame in drawing order: where it goes, and which part of the
/// skin. Cells are never stretched or cut; the last one of an edge may run under the corner.
void walkFrame(int x, int y, int width, int height,
               const std::function<void(const Rect& target, const Rect& source)>& draw);

} // namespace varn
