#include "Parser/Regexp/NodeFactory.h"

#include "Parser/Regexp/CaseFolding.h"
#include "Parser/Regexp/PatternParser.h"

#include <algorithm>

namespace varn::regexp {

namespace {

char16_t leadOf(char32_t character)
{
    return static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
}

char16_t trailOf(char32_t character)
{
    return static_cast<char16_t>(0xDC00 + (character & 0x3FF));
}

} // namespace

NodeId NodeFactory::add(Node node, std::size_t position)
{
    for (const NodeId child : node.children)
        node.height = std::max(node.height, pattern.nodes[child].height + 1);
    // A group is up to three levels: itself, its alternatives, their sequences.
    if (node.height > 4 * kDeepestNesting)
        throw PatternException(u"The pattern is nested too deeply", position);
    pattern.nodes.push_back(std::move(node));
    return static_cast<NodeId>(pattern.nodes.size() - 1);
}

NodeId NodeFactory::addSet(UnitSet set)
{
    if (set.count() == 1)
        return addCharacter(set.getRanges()[0].first, false);
    return add({.kind = NodeKind::Set, .set = std::move(set)}, 0);
}

NodeId NodeFactory::addBoundary(BoundaryKind kind)
{
    return add({.kind = NodeKind::Boundary, .boundary = kind}, 0);
}

NodeId NodeFactory::addCharacter(char32_t character, bool ignoreCase)
{
    if (character > 0xFFFF)
        return add({.kind = NodeKind::Literal, .text = {leadOf(character), trailOf(character)}}, 0);
    const auto unit = static_cast<char16_t>(character);
    if (ignoreCase) {
        UnitSet variants = UnitSet::of(unit).withCaseVariants();
        if (variants.count() > 1)
            return add({.kind = NodeKind::Set, .set = std::move(variants)}, 0);
    }
    return add({.kind = NodeKind::Literal, .text = WString(1, unit)}, 0);
}

/// A class with characters beyond the basic plane is an alternation of pairs and the plane's set; a
/// negated one looks that none of the pairs stands here.
NodeId NodeFactory::addClass(const ClassContents& contents)
{
    if (contents.beyond.empty())
        return addSet(contents.units);
    std::vector<NodeId> pairs;
    for (const CodePointRange& range : contents.beyond)
        pairs.push_back(addPairs(range));
    if (!contents.negated) {
        pairs.push_back(addSet(contents.units));
        return addAlternation(std::move(pairs), 0);
    }
    const NodeId any = addAlternation(std::move(pairs), 0);
    const NodeId none = add({.kind = NodeKind::Look, .negated = true, .children = {any}}, 0);
    return addSequence({none, addSet(contents.units)}, 0);
}

NodeId NodeFactory::addPairs(const CodePointRange& range)
{
    const UnitRange leads{leadOf(range.first), leadOf(range.last)};
    const char16_t first = trailOf(range.first);
    const char16_t last = trailOf(range.last);
    if (leads.first == leads.last)
        return addPairRow(leads, {first, last});
    std::vector<NodeId> rows;
    rows.push_back(addPairRow({leads.first, leads.first}, {first, 0xDFFF}));
    if (leads.first + 1 < leads.last)
        rows.push_back(addPairRow(
            {static_cast<char16_t>(leads.first + 1), static_cast<char16_t>(leads.last - 1)},
            {0xDC00, 0xDFFF}));
    rows.push_back(addPairRow({leads.last, leads.last}, {0xDC00, last}));
    return addAlternation(std::move(rows), 0);
}

NodeId NodeFactory::addPairRow(UnitRange leads, UnitRange trails)
{
    const NodeId lead = addSet({leads});
    const NodeId trail = addSet({trails});
    return addSequence({lead, trail}, 0);
}

NodeId NodeFactory::addSequence(std::vector<NodeId> items, std::size_t position)
{
    std::vector<NodeId> joined;
    bool growing = false; // the last of `joined` is a literal of this sequence's own making
    for (const NodeId item : items) {
        const Node& node = pattern.nodes[item];
        if (node.kind == NodeKind::Empty)
            continue;
        const bool literal = node.kind == NodeKind::Literal;
        if (literal && !joined.empty() && pattern.nodes[joined.back()].kind == NodeKind::Literal) {
            if (!growing)
                joined.back() =
                    add({.kind = NodeKind::Literal, .text = pattern.nodes[joined.back()].text},
                        position);
            pattern.nodes[joined.back()].text += pattern.nodes[item].text;
            growing = true;
            continue;
        }
        joined.push_back(item);
        growing = false;
    }
    if (joined.empty())
        return addEmpty();
    if (joined.size() == 1)
        return joined[0];
    return add({.kind = NodeKind::Sequence, .children = std::move(joined)}, position);
}

NodeId NodeFactory::addAlternation(std::vector<NodeId> branches, std::size_t position)
{
    if (branches.size() == 1)
        return branches[0];
    std::vector<UnitRange> ranges;
    for (const NodeId branch : branches) {
        const std::optional<UnitSet> set = asSet(branch);
        if (!set)
            return add({.kind = NodeKind::Alternation, .children = std::move(branches)}, position);
        ranges.insert(ranges.end(), set->getRanges().begin(), set->getRanges().end());
    }
    return addSet(UnitSet(std::move(ranges)));
}

/// The units of a node that takes just one and does nothing else.
std::optional<UnitSet> NodeFactory::asSet(NodeId id) const
{
    const Node& node = pattern.nodes[id];
    if (node.kind == NodeKind::Set)
        return node.set;
    if (node.kind == NodeKind::Literal && node.text.size() == 1)
        return UnitSet::of(node.text[0]);
    return std::nullopt;
}

} // namespace varn::regexp
