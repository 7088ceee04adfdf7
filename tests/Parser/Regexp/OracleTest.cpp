#include "NaiveMatcher.h"
#include "RandomPattern.h"

#include "Parser/Regexp/CBuilderT.h"
#include "Parser/Regexp/CRegexpT.h"
#include "Parser/Regexp/Matcher.h"
#include "Parser/Regexp/PatternParser.h"

#include <gtest/gtest.h>

namespace varn::test {

namespace {

using Groups = NaiveMatcher::Groups;

/// All matches as the engine finds them. @param patience  steps until it remembers failures
std::vector<Groups> matchAll(const regexp::Program& program, WStringView text, int patience)
{
    regexp::MatchState state;
    state.patience = patience;
    state.patiencePerUnit = 0;
    state.setText(text, -1);
    state.prepareFor(program);
    std::vector<Groups> matches;
    MatchResultT result;
    while (searchNext(program, state, result)) {
        Groups& groups = matches.emplace_back();
        for (int group = 0; group <= result.getGroupCount(); ++group)
            groups.emplace_back(result.getGroupStart(group), result.getGroupEnd(group));
    }
    return matches;
}

/// What the oracle finds, or nothing where that would take it too long.
std::optional<std::vector<Groups>> expectedMatches(const regexp::Pattern& pattern, WStringView text,
                                                   regexp::Direction direction)
{
    try {
        return NaiveMatcher(pattern, text, direction).matchAll();
    } catch (const NaiveMatcher::TooMuch&) {
        return std::nullopt;
    }
}

} // namespace

TEST(RegexpOracle, engineAgreesOnRandomPatterns)
{
    RandomPattern source(20240607);
    int compared = 0;
    int matched = 0;
    for (int round = 0; round < 30000; ++round) {
        const WString text = source.pattern();
        const int flags = source.upTo(0x1F);
        regexp::Pattern pattern;
        try {
            pattern = regexp::parsePattern(text, flags);
        } catch (const regexp::PatternException&) {
            continue;
        }
        const auto direction = (flags & CRegexpT::kRightToLeft) != 0 ? regexp::Direction::Backward
                                                                     : regexp::Direction::Forward;
        const regexp::Program program = regexp::CBuilderT(pattern, direction).build();
        for (int subject = 0; subject < 4; ++subject) {
            const WString units = source.text(12);
            const auto expected = expectedMatches(pattern, units, direction);
            if (!expected)
                continue;
            ++compared;
            matched += expected->empty() ? 0 : 1;
            for (const int patience : {1 << 20, 0})
                ASSERT_EQ(matchAll(program, units, patience), *expected)
                    << toUtf8(text) << " on \"" << toUtf8(units) << "\", flags " << flags
                    << ", patience " << patience;
        }
    }
    EXPECT_GT(compared, 50000);
    EXPECT_GT(matched, compared / 2);
}

} // namespace varn::test
