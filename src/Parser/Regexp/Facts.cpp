#include "Parser/Regexp/Facts.h"

#include <algorithm>

namespace varn::regexp {

namespace {

constexpr std::size_t kMostRanges = 256;
constexpr std::uint32_t kLengthCap = 1u << 30;

constexpr Direction kDirections[] = {Direction::Forward, Direction::Backward};

std::uint32_t capped(std::uint64_t length)
{
    return static_cast<std::uint32_t>(std::min<std::uint64_t>(length, kLengthCap));
}

class Gatherer
{
  public:
    explicit Gatherer(const Pattern& pattern) : pattern(pattern), facts(pattern.nodes.size()) {}

    std::vector<NodeFacts> gather()
    {
        for (NodeId id = 0; id < pattern.nodes.size(); ++id)
            facts[id] = factsOf(pattern.nodes[id]);
        return std::move(facts);
    }

  private:
    NodeFacts factsOf(const Node& node) const;
    NodeFacts ofSequence(const Node& node) const;
    NodeFacts ofBranches(const Node& node, std::size_t first) const;
    NodeFacts ofRepeat(const Node& node) const;
    NodeFacts ofLook(const Node& node) const;
    static NodeFacts ofBoundary(const Node& node);
    /// Facts of something that takes nothing and succeeds anywhere.
    static NodeFacts ofNothing();
    static NodeFacts ofUnknown();
    void inherit(NodeFacts& to, const Node& node) const;

    const Pattern& pattern;
    std::vector<NodeFacts> facts;
};

NodeFacts Gatherer::ofNothing()
{
    NodeFacts result;
    for (UnitSet& set : result.through)
        set = UnitSet::all();
    return result;
}

NodeFacts Gatherer::ofUnknown()
{
    NodeFacts result = ofNothing();
    for (UnitSet& set : result.own)
        set = UnitSet::all();
    return result;
}

NodeFacts Gatherer::factsOf(const Node& node) const
{
    NodeFacts result;
    switch (node.kind) {
    case NodeKind::Empty:
        return ofNothing();
    case NodeKind::Literal:
        result.own[sideOf(Direction::Forward)] = UnitSet::of(node.text.front());
        result.own[sideOf(Direction::Backward)] = UnitSet::of(node.text.back());
        result.minLength = capped(node.text.size());
        return result;
    case NodeKind::Set:
        for (UnitSet& set : result.own)
            set = widened(node.set);
        result.minLength = 1;
        return result;
    case NodeKind::Sequence:
        return ofSequence(node);
    case NodeKind::Alternation:
        return ofBranches(node, 0);
    case NodeKind::Repeat:
        return ofRepeat(node);
    case NodeKind::Group:
    case NodeKind::Atomic:
        return facts[node.children[0]];
    case NodeKind::Look:
        return ofLook(node);
    case NodeKind::Backreference:
        result = ofUnknown();
        result.readsGroups = true;
        return result;
    case NodeKind::Call:
        result = ofUnknown();
        result.calls = true;
        return result;
    case NodeKind::Condition:
        result = ofBranches(node, node.number == 0 ? 1 : 0);
        result.readsGroups = result.readsGroups || node.number != 0;
        return result;
    case NodeKind::Boundary:
        return ofBoundary(node);
    }
    return ofUnknown();
}

void Gatherer::inherit(NodeFacts& to, const Node& node) const
{
    for (const NodeId child : node.children) {
        to.readsGroups = to.readsGroups || facts[child].readsGroups;
        to.calls = to.calls || facts[child].calls;
    }
}

NodeFacts Gatherer::ofSequence(const Node& node) const
{
    NodeFacts result = ofNothing();
    inherit(result, node);
    std::uint64_t length = 0;
    for (const NodeId child : node.children)
        length += facts[child].minLength;
    result.minLength = capped(length);
    for (const Direction direction : kDirections) {
        const std::size_t side = sideOf(direction);
        const std::size_t count = node.children.size();
        for (std::size_t i = 0; i < count && !result.through[side].isEmpty(); ++i) {
            const std::size_t place = direction == Direction::Forward ? i : count - 1 - i;
            const NodeFacts& child = facts[node.children[place]];
            result.own[side] = widened(result.own[side] | (result.through[side] & child.own[side]));
            result.through[side] = result.through[side] & child.through[side];
        }
    }
    return result;
}

NodeFacts Gatherer::ofBranches(const Node& node, std::size_t first) const
{
    NodeFacts result;
    inherit(result, node);
    result.minLength = kLengthCap;
    for (std::size_t i = first; i < node.children.size(); ++i)
        result.minLength = std::min(result.minLength, facts[node.children[i]].minLength);
    for (const Direction direction : kDirections) {
        const std::size_t side = sideOf(direction);
        std::vector<UnitRange> own;
        std::vector<UnitRange> through;
        for (std::size_t i = first; i < node.children.size(); ++i) {
            const NodeFacts& child = facts[node.children[i]];
            const auto& ownRanges = child.own[side].getRanges();
            const auto& throughRanges = child.through[side].getRanges();
            own.insert(own.end(), ownRanges.begin(), ownRanges.end());
            through.insert(through.end(), throughRanges.begin(), throughRanges.end());
        }
        result.own[side] = widened(UnitSet(std::move(own)));
        result.through[side] = widened(UnitSet(std::move(through)));
    }
    return result;
}

NodeFacts Gatherer::ofRepeat(const Node& node) const
{
    const NodeFacts& child = facts[node.children[0]];
    NodeFacts result = node.max == 0 ? NodeFacts() : child;
    result.minLength =
        capped(std::uint64_t{child.minLength} * static_cast<std::uint64_t>(node.min));
    if (node.min == 0)
        for (UnitSet& set : result.through)
            set = UnitSet::all();
    return result;
}

/// A look at what comes next narrows it; a look back or a negated one tells nothing.
NodeFacts Gatherer::ofLook(const Node& node) const
{
    const NodeFacts& child = facts[node.children[0]];
    NodeFacts result = ofNothing();
    inherit(result, node);
    const std::size_t side = sideOf(node.behind ? Direction::Backward : Direction::Forward);
    if (!node.negated)
        result.through[side] = widened(child.own[side] | child.through[side]);
    return result;
}

NodeFacts Gatherer::ofBoundary(const Node& node)
{
    NodeFacts result = ofNothing();
    UnitSet& ahead = result.through[sideOf(Direction::Forward)];
    UnitSet& behind = result.through[sideOf(Direction::Backward)];
    switch (node.boundary) {
    case BoundaryKind::TextBegin:
        behind = {};
        break;
    case BoundaryKind::LineBegin:
        behind = lineEndUnits();
        break;
    case BoundaryKind::TextEnd:
        ahead = {};
        break;
    case BoundaryKind::LastLineEnd:
    case BoundaryKind::LineEnd:
        ahead = lineEndUnits();
        break;
    case BoundaryKind::WordBoundary:
    case BoundaryKind::NoWordBoundary:
    case BoundaryKind::SearchStart:
        break;
    }
    return result;
}

} // namespace

std::vector<NodeFacts> gatherFacts(const Pattern& pattern)
{
    return Gatherer(pattern).gather();
}

UnitSet firstUnits(const NodeFacts& facts, Direction direction, const UnitSet& follow)
{
    const std::size_t side = sideOf(direction);
    return widened(facts.own[side] | (facts.through[side] & follow));
}

UnitSet widened(UnitSet set)
{
    return set.getRanges().size() > kMostRanges ? UnitSet::all() : set;
}

} // namespace varn::regexp
