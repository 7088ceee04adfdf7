#pragma once

#include "MapEditor3D/canvas/EdgeTiles.h"

namespace varn {

/// What the canvas shows beside the floor.
struct CanvasOptions
{
    WallLook walls = WallLook::Strip;
    bool grid = true;
    bool events = true;
    bool areas = true;
    bool walker = true;
    bool rowsFromBottom = true; ///< row numbers of the ruler as the game counts

    bool operator==(const CanvasOptions&) const = default;
};

} // namespace varn
