#pragma once

#include "Parser/Regexp/ClassParser.h"

namespace varn::regexp {

/// Adds nodes to a pattern in their simplest form: literals in a row are one, alternatives of one
/// unit each are a set, a sequence of one is that one.
class NodeFactory
{
  public:
    explicit NodeFactory(Pattern& pattern) : pattern(pattern) {}

    /// @throws PatternException  more levels than kDeepestNesting allows; `position` goes into it
    NodeId add(Node node, std::size_t position);

    NodeId addEmpty() { return add({}, 0); }
    NodeId addSet(UnitSet set);
    NodeId addBoundary(BoundaryKind kind);
    /// One character: a unit, a set of its case variants, or a surrogate pair as one literal.
    NodeId addCharacter(char32_t character, bool ignoreCase);
    NodeId addClass(const ClassContents& contents);
    NodeId addSequence(std::vector<NodeId> items, std::size_t position);
    NodeId addAlternation(std::vector<NodeId> branches, std::size_t position);

  private:
    NodeId addPairs(const CodePointRange& range);
    NodeId addPairRow(UnitRange leads, UnitRange trails);
    std::optional<UnitSet> asSet(NodeId id) const;

    Pattern& pattern;
};

} // namespace varn::regexp
