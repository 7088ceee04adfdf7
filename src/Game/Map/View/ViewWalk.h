#pragma once

#include "Game/Map/View/CellEvents.h"
#include "Game/Map/View/ViewGeometry.h"
#include "Game/Map/WizMap.h"

#include <vector>

namespace varn {

/// What a wall kind looks like from one side.
enum class SeenWall
{
    Nothing,
    Wall,
    Door
};

/// Where a viewer stands.
struct Viewpoint
{
    int x = 0, y = 0;
    Direction facing = Direction::North;
};

/// A cell that the view shows.
struct SeenCell
{
    ViewPlace place;
    MapCell cell;
    bool dark = false;
};

/// The cells in view, near to far, each row from the viewer's column outward; paint them from the
/// last to the first. Positions wrap on the map's torus. A warp in the viewer's own column, from
/// one step ahead on and not in the dark, redirects the rows behind it to its target; warps may
/// chain.
std::vector<SeenCell> walkView(const WizMap& map, const CellEvents& events, const Viewpoint& viewer,
                               int visibleDistance);

/// The side of a cell that lies to the left, in front or to the right of one who faces `facing`.
Direction sideOf(Direction facing, ViewSide side);

/// The kind of a cell's wall on a side.
int wallOf(const WizMapData& cell, Direction side);

/// Reduces a wall kind to what shows. One-way kinds open from the side where they are met as a
/// south or west edge ("SW"), or as a north or east one ("NE"). Half doors draw one word of the
/// program's random source each time: without light its lowest bit decides, with light the light's
/// percentage.
SeenWall seeWall(int kind, Direction side, const LightSource& light);

} // namespace varn
