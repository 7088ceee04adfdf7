#pragma once

#include "Game/Map/Direction.h"
#include "Game/Map/GameEvent.h"

#include <cstdlib>

namespace varn {

/// A place on the 2D canvas in pixels, from the corner of its first visible cell.
struct CanvasPoint
{
    int x = 0, y = 0;
};

/// A cell of the visible part of the canvas, and the nearest of its edges.
struct CanvasCell
{
    MapCell cell;
    Direction edge;

    bool operator==(const CanvasCell&) const = default;
};

/// How many cells the canvas shows at most, across and down.
inline constexpr int kVisibleCells = 50;

/// The cell under a point that is not negative, and its edge nearest to the point; on a diagonal
/// the one to the side.
inline CanvasCell cellUnder(CanvasPoint point, int tileSize)
{
    const int dx = point.x % tileSize - tileSize / 2;
    const int dy = point.y % tileSize - tileSize / 2;
    const Direction upright = dy < 0 ? Direction::North : Direction::South;
    const Direction sideways = dx < 0 ? Direction::West : Direction::East;
    return {{point.x / tileSize, point.y / tileSize},
            std::abs(dx) < std::abs(dy) ? upright : sideways};
}

/// The corner of cells nearest to a point, counted like the cell to its lower right.
inline MapCell cornerUnder(CanvasPoint point, int tileSize)
{
    return {(point.x + tileSize / 2) / tileSize, (point.y + tileSize / 2) / tileSize};
}

} // namespace varn
