#include "MapEditor3D/DungeonCursor.h"

#include "Game/Map/Torus.h"

#include <algorithm>

namespace varn {

bool isPassable(int kind, Direction side)
{
    const bool northEast = side == Direction::North || side == Direction::East;
    switch (kind) {
    case WallKind::None:
    case WallKind::Door:
    case WallKind::SecretDoor:
    case WallKind::HalfDoor:
        return true;
    case WallKind::SwDoor:
    case WallKind::SwSecretDoor:
    case WallKind::HalfSwDoor:
    case WallKind::SwShutter:
        return !northEast;
    case WallKind::NeDoor:
    case WallKind::NeSecretDoor:
    case WallKind::HalfNeDoor:
    case WallKind::NeShutter:
        return northEast;
    default:
        return false;
    }
}

bool DungeonCursor::step(const WizMap& map, Step step, Walls walls)
{
    Direction side = facing;
    if (step == Step::Back)
        side = facing.opposite();
    else if (step != Step::Forward)
        side = step == Step::Left ? facing.turnedLeft() : facing.turnedRight();
    if (walls == Walls::Stop && !isPassable(wallOf(map.cellAt(cell.x, cell.y), side), side))
        return false;
    cell = wrapped(map, cell.x + side.dx(), cell.y + side.dy());
    return true;
}

bool DungeonCursor::followWarp(const WizMap& map)
{
    const auto target = CellEvents(map).warpAt(cell);
    if (target)
        cell = *target;
    return target.has_value();
}

void DungeonCursor::keepInside(const WizMap& map)
{
    cell = {std::clamp(cell.x, 0, map.cols - 1), std::clamp(cell.y, 0, map.rows - 1)};
}

bool DungeonCursor::sees(const WizMap& map, const CellRect& cells) const
{
    const auto seen = walkView(map, CellEvents(map), getViewpoint(), map.getVisibleDistance());
    return std::any_of(seen.begin(), seen.end(), [&](const SeenCell& one) {
        return one.cell.x >= cells.left && one.cell.x < cells.right && one.cell.y >= cells.top &&
               one.cell.y < cells.bottom;
    });
}

} // namespace varn
