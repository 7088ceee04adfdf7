#pragma once

namespace varn {

/// "Rectangle" of scripts, the Rect of the drawing classes.
void registerRectangle();

} // namespace varn
