#pragma once

#include "Game/Map/View/ViewWalk.h"
#include "Game/Map/WizMap.h"
#include "MapEditor3D/UndoManager.h"

#include <optional>

namespace varn {

/// A place in a map, and the rubber band being drawn in it.
class MapCursor
{
  public:
    /// From corner to corner: cells on the floor and of areas, corners of cells on the walls.
    struct Band
    {
        MapCell from, to;
    };

    MapCell cell;
    std::optional<Band> band;
};

/// True when who stands in a cell can leave it on that side: through nothing, doors, secret doors
/// and half doors, and through one-way doors and shutters from the side where they open. An
/// invisible wall stops, and so does what is no kind.
bool isPassable(int kind, Direction side);

/// The walker of the walk-through preview: a cell, a facing, steps on the map's torus that walls
/// stop.
class DungeonCursor : public MapCursor
{
  public:
    enum class Step
    {
        Forward,
        Back,
        Left,
        Right
    };
    enum class Walls
    {
        Stop,
        Ignore
    };

    Direction facing = Direction::North;

    /// False: a wall stands in the way, and the walker stays.
    bool step(const WizMap& map, Step step, Walls walls = Walls::Stop);
    void turnLeft() { facing = facing.turnedLeft(); }
    void turnRight() { facing = facing.turnedRight(); }
    void turnAround() { facing = facing.opposite(); }
    /// To the target of the first warp in the walker's cell; false: there is none.
    bool followWarp(const WizMap& map);
    /// Back into the map, where it has become smaller.
    void keepInside(const WizMap& map);

    Viewpoint getViewpoint() const { return {cell.x, cell.y, facing}; }
    /// True when the view from here shows a cell of the rectangle, through warps too.
    bool sees(const WizMap& map, const CellRect& cells) const;
};

} // namespace varn
