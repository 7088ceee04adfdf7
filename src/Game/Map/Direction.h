#pragma once

#include "Util/Text.h"

namespace varn {

/// A side of a cell, or a facing. One integer: None 0, North 1, East 2, South 4, West 8. Values
/// outside these five are legal contents: files may hold them, and they are kept as they stand.
class Direction
{
  public:
    enum Side : int
    {
        None = 0,
        North = 1,
        East = 2,
        South = 4,
        West = 8
    };

    constexpr Direction() = default;
    constexpr Direction(Side side) : value(side) {}
    constexpr explicit Direction(int value) : value(value) {}

    constexpr int getValue() const { return value; }

    /// Doubled; what passes West becomes North. None stays None.
    constexpr Direction turnedRight() const
    {
        const auto doubled = static_cast<int>(static_cast<unsigned>(value) << 1);
        return Direction(doubled >= 9 ? int{North} : doubled);
    }
    /// Halved; what falls below North becomes West, None too.
    constexpr Direction turnedLeft() const
    {
        const int half = value >> 1;
        return Direction(half == 0 ? int{West} : half);
    }
    /// Two left turns.
    constexpr Direction opposite() const { return turnedLeft().turnedLeft(); }

    /// The step to the neighbour on that side, in cells: north is y - 1. 0 for what is no side.
    constexpr int dx() const { return value == East ? 1 : value == West ? -1 : 0; }
    constexpr int dy() const { return value == South ? 1 : value == North ? -1 : 0; }

    /// "None", "North", "East", "South", "West"; any other value "Direction::Undefined".
    WStringView toText() const;

    constexpr bool operator==(const Direction&) const = default;

  private:
    int value = None;
};

/// The four sides, in the order of a cell's bytes.
inline constexpr Direction kSides[] = {Direction::North, Direction::East, Direction::South,
                                       Direction::West};

} // namespace varn
