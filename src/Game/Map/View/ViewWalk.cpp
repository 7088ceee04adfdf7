#include "Game/Map/View/ViewWalk.h"

#include "Util/Random.h"

#include <algorithm>

namespace varn {

namespace {

bool isHalfOpen(const LightSource& light)
{
    const std::uint32_t word = programRandom().word();
    if (!light.active)
        return word & 1;
    return light.percentage() > static_cast<std::int32_t>(word % 100);
}

} // namespace

std::vector<SeenCell> walkView(const WizMap& map, const CellEvents& events, const Viewpoint& viewer,
                               int visibleDistance)
{
    const Direction right = viewer.facing.turnedRight();
    std::vector<SeenCell> seen;
    MapCell ahead = wrapped(map, viewer.x, viewer.y);
    for (int distance = 0; distance <= std::min(visibleDistance, kMaxDistance); ++distance) {
        const auto look = [&](int lateral) {
            const MapCell cell =
                wrapped(map, ahead.x + right.dx() * lateral, ahead.y + right.dy() * lateral);
            seen.push_back({{lateral, distance}, cell, events.isDark(cell)});
        };
        look(0);
        const bool darkAhead = seen.back().dark;
        for (int lateral = 1; lateral <= kMaxLateral[static_cast<std::size_t>(distance)];
             ++lateral) {
            look(lateral);
            look(-lateral);
        }
        const auto warp = distance > 0 && !darkAhead ? events.warpAt(ahead) : std::nullopt;
        ahead =
            warp.value_or(wrapped(map, ahead.x + viewer.facing.dx(), ahead.y + viewer.facing.dy()));
    }
    return seen;
}

Direction sideOf(Direction facing, ViewSide side)
{
    switch (side) {
    case ViewSide::Left:
        return facing.turnedLeft();
    case ViewSide::Right:
        return facing.turnedRight();
    case ViewSide::Front:
        break;
    }
    return facing;
}

int wallOf(const WizMapData& cell, Direction side)
{
    switch (side.getValue()) {
    case Direction::North:
        return cell.north;
    case Direction::East:
        return cell.east;
    case Direction::South:
        return cell.south;
    default:
        return cell.west;
    }
}

SeenWall seeWall(int kind, Direction side, const LightSource& light)
{
    const bool northEast = side == Direction::North || side == Direction::East;
    const auto doorIf = [](bool open) { return open ? SeenWall::Door : SeenWall::Wall; };
    switch (kind) {
    case 0:  // None
    case 11: // Invisible Wall
        return SeenWall::Nothing;
    case 2:
        return SeenWall::Door;
    case 3: // SW Door
        return doorIf(!northEast);
    case 4: // NE Door
        return doorIf(northEast);
    case 8: // 1/2 Door
        return doorIf(isHalfOpen(light));
    case 9: // 1/2 SW Door
        return doorIf(!northEast && isHalfOpen(light));
    case 10: // 1/2 NE Door
        return doorIf(northEast && isHalfOpen(light));
    case 12: // SW Shutter
        return northEast ? SeenWall::Wall : SeenWall::Nothing;
    case 13: // NE Shutter
        return northEast ? SeenWall::Nothing : SeenWall::Wall;
    default: // walls, secret doors, and what the table does not know
        return SeenWall::Wall;
    }
}

} // namespace varn
