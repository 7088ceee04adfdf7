#pragma once

#include "Parser/Regexp/Pattern.h"

namespace varn::regexp {

enum class Direction : std::uint8_t
{
    Forward,
    Backward
};

inline std::size_t sideOf(Direction direction)
{
    return static_cast<std::size_t>(direction);
}

/// What can be told of a node without matching it. Every set may be wider than the truth, never
/// narrower, and speaks of a next unit that exists: at the end of the text it tells nothing.
struct NodeFacts
{
    /// Units that the node may take first, by direction.
    UnitSet own[2];
    /// Units that may come next where the node succeeds without taking any, by direction.
    UnitSet through[2];
    /// Least units that the node takes; capped.
    std::uint32_t minLength = 0;
    /// Back-reference or group condition within, so the outcome depends on what groups hold.
    bool readsGroups = false;
    /// Group call within.
    bool calls = false;
};

/// The facts of all nodes, by node.
std::vector<NodeFacts> gatherFacts(const Pattern& pattern);

/// Units that may come first where the node is followed by what starts with `follow`.
UnitSet firstUnits(const NodeFacts& facts, Direction direction, const UnitSet& follow);

/// A set of many ranges counts as all units, so that working with sets stays cheap whatever the
/// pattern.
UnitSet widened(UnitSet set);

} // namespace varn::regexp
