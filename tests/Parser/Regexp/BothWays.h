#pragma once

#include "NaiveMatcher.h"

#include "Parser/Regexp/CBuilderT.h"
#include "Parser/Regexp/CRegexpT.h"
#include "Parser/Regexp/Matcher.h"
#include "Parser/Regexp/PatternParser.h"

namespace varn::test {

/// A pattern for the engine and for the naive matcher.
class BothWays
{
  public:
    using Matches = std::vector<NaiveMatcher::Groups>;

    /// @throws regexp::PatternException
    BothWays(WStringView text, int flags)
        : pattern(regexp::parsePattern(text, flags)),
          direction((flags & CRegexpT::kRightToLeft) != 0 ? regexp::Direction::Backward
                                                          : regexp::Direction::Forward),
          program(regexp::CBuilderT(pattern, direction).build())
    {}

    /// All matches by the naive matcher; nothing where that would take it too long.
    std::optional<Matches> expected(WStringView text) const
    {
        try {
            return NaiveMatcher(pattern, text, direction).matchAll();
        } catch (const NaiveMatcher::TooMuch&) {
            return std::nullopt;
        }
    }

    /// All matches by the engine; nothing where it ran out of steps.
    /// @param patience  steps until it remembers failures
    std::optional<Matches> actual(WStringView text, int patience) const
    {
        regexp::MatchState state;
        state.patience = patience;
        state.patiencePerUnit = 0;
        state.setText(text, -1);
        state.prepareFor(program);
        Matches matches;
        MatchResultT result;
        while (searchNext(program, state, result)) {
            NaiveMatcher::Groups& groups = matches.emplace_back();
            for (int group = 0; group <= result.getGroupCount(); ++group)
                groups.emplace_back(result.getGroupStart(group), result.getGroupEnd(group));
        }
        return state.exhausted ? std::nullopt : std::optional(matches);
    }

  private:
    regexp::Pattern pattern;
    regexp::Direction direction;
    regexp::Program program;
};

} // namespace varn::test
