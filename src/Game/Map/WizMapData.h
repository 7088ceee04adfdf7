#pragma once

#include "Game/Map/Direction.h"

#include <array>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace varn {

/// What stands on an edge of a cell. "SW" and "NE" kinds are one-way: the same value stands on both
/// sides of the edge, and which side opens is read from whether it is seen as a south or west edge,
/// or as a north or east edge.
struct WallKind
{
    enum Value : std::uint8_t
    {
        None = 0,
        Wall = 1,
        Door = 2,
        SwDoor = 3,
        NeDoor = 4,
        SecretDoor = 5,
        SwSecretDoor = 6,
        NeSecretDoor = 7,
        HalfDoor = 8,
        HalfSwDoor = 9,
        HalfNeDoor = 10,
        InvisibleWall = 11,
        SwShutter = 12,
        NeShutter = 13,
    };
};

/// How many kinds there are; a byte at or above this is kept, and reads as an undefined door.
inline constexpr int kWallKinds = 14;

/// The name of a wall kind: "1/2 SW Door"; "Undefined Door" for a value that is none.
WStringView wallKindText(int kind);

/// One cell of a floor: the wall kinds on its four edges and its floor tile. An edge between two
/// cells is stored in both, with equal bytes.
struct WizMapData
{
    std::uint8_t north = 0;
    std::uint8_t east = 0;
    std::uint8_t south = 0;
    std::uint8_t west = 0;
    std::uint8_t floor = 0; ///< tile index; 0: no tile

    /// The wall byte on one of the four sides.
    constexpr std::uint8_t& wall(Direction side)
    {
        switch (side.getValue()) {
        case Direction::North:
            return north;
        case Direction::East:
            return east;
        case Direction::South:
            return south;
        default:
            assert(side == Direction::West);
            return west;
        }
    }
    constexpr std::uint8_t wall(Direction side) const
    {
        return const_cast<WizMapData*>(this)->wall(side);
    }

    bool operator==(const WizMapData&) const = default;
};
static_assert(sizeof(WizMapData) == 5 && std::is_trivially_copyable_v<WizMapData>);

/// A floor holds at most this many cells each way, and its array has this row stride whatever its
/// size.
inline constexpr int kMapStride = 100;

/// The cells of a floor, `cells[y * kMapStride + x]`: one value of 50,000 bytes, copied and
/// compared whole by previews and undo.
using WizMapCells = std::array<WizMapData, std::size_t{kMapStride} * kMapStride>;
static_assert(sizeof(WizMapCells) == 50000 && std::is_trivially_copyable_v<WizMapCells>);

} // namespace varn
