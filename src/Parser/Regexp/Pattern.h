#pragma once

#include "Parser/Regexp/UnitSet.h"
#include "Util/Exception.h"
#include "Util/Text.h"

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace varn::regexp {

/// Place of a node among the pattern's nodes. Children stand before their parents.
using NodeId = std::uint32_t;

inline constexpr int kUnlimited = INT32_MAX;

enum class NodeKind : std::uint8_t
{
    Empty,         ///< matches without taking anything
    Literal,       ///< `text`, one unit or more
    Set,           ///< one unit of `set`
    Sequence,      ///< all children in order
    Alternation,   ///< the first child that leads to a match
    Repeat,        ///< the child from `min` to `max` times, by `greed`
    Group,         ///< the child, remembered as group `number`
    Atomic,        ///< the child; what it took is never given back
    Look,          ///< the child matches here, or does not where `negated`; nothing is taken
    Backreference, ///< the text of group `number` again; fails when it took no part
    Call,          ///< the pattern of group `number` again; 0: the whole pattern
    Condition,     ///< by group `number`: [yes, no]; with number 0 by a Look: [look, yes, no]
    Boundary,      ///< `boundary` holds here
};

enum class Greed : std::uint8_t
{
    Greedy,
    Reluctant,
    Possessive
};

enum class BoundaryKind : std::uint8_t
{
    TextBegin,    ///< `\A`, and `^` without multi-line
    TextEnd,      ///< `\z`
    LastLineEnd,  ///< `\Z`, and `$` without multi-line: the end, or before a line end that ends the
                  ///< text
    LineBegin,    ///< `^` with multi-line
    LineEnd,      ///< `$` with multi-line
    WordBoundary, ///< `\b`
    NoWordBoundary, ///< `\B`
    SearchStart,    ///< `\G`
};

struct Node
{
    NodeKind kind = NodeKind::Empty;
    Greed greed = Greed::Greedy;
    BoundaryKind boundary = BoundaryKind::TextBegin;
    bool behind = false;     ///< Look: toward the text's beginning
    bool negated = false;    ///< Look
    bool ignoreCase = false; ///< Backreference
    int number = 0;          ///< Group, Backreference, Call, Condition
    int min = 0;             ///< Repeat
    int max = 0;             ///< Repeat; kUnlimited: no bound
    int height = 0;          ///< 0 for a leaf
    WString text = {};
    UnitSet set = {};
    std::vector<NodeId> children = {};
};

/// A pattern as a tree that no longer knows flags: what they ask for is spelled out in its nodes.
/// The direction of matching is not part of it.
struct Pattern
{
    std::vector<Node> nodes;
    NodeId root = 0;
    std::vector<NodeId> groups;          ///< the Group node by number; groups[0] is the root
    std::map<WString, int> groupNumbers; ///< by name

    int getGroupCount() const { return static_cast<int>(groups.size()) - 1; }
};

/// A pattern that is not well formed; tells where.
class PatternException : public Exception
{
  public:
    PatternException(WString message, std::size_t position)
        : Exception(std::move(message)), position(position)
    {}
    /// Units from the pattern's start.
    std::size_t getPosition() const { return position; }

  private:
    std::size_t position;
};

} // namespace varn::regexp
