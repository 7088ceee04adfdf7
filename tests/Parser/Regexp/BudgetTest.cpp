#include "Parser/Regexp/CRegexpT.h"

#include <gtest/gtest.h>

namespace varn::test {

namespace {

WString repeated(WStringView text, int times)
{
    WString result;
    for (; times > 0; --times)
        result += text;
    return result;
}

bool matches(const CRegexpT& regexp, WStringView text, std::uint64_t steps, CContext& context)
{
    context.setText(text);
    context.setStepBudget(steps);
    MatchResultT result;
    return regexp.match(context, result);
}

} // namespace

/// Patterns that take time exponential in the text with a plain matcher; the budget is some steps a
/// unit.
TEST(RegexpBudget, failuresAreRemembered)
{
    constexpr WStringView kPatterns[] = {
        u"(x+x+)+y",      u"(?:x|x)*y",           u"(?:x*)*y",  u"(?:x?x?x?x?x?x?x?x?)+y",
        u"(?:x+?x+?)+?y", u"(x*)*(x*)*(x*)*[yz]", u"(?:.*x)*y", u"(?:a|x|xx|xxx)+y",
    };
    const WString text = repeated(u"x", 20000);
    for (const WStringView pattern : kPatterns) {
        CContext context;
        EXPECT_FALSE(matches(CRegexpT(pattern), text, 100 * text.size(), context));
        EXPECT_FALSE(context.isExhausted()) << toUtf8(pattern);
        EXPECT_TRUE(matches(CRegexpT(pattern), text + u"y", 100 * text.size(), context))
            << toUtf8(pattern);
    }
}

TEST(RegexpBudget, aRunawayMatchEndsAsNoMatch)
{
    struct
    {
        WStringView pattern;
        int flags;
    } static constexpr kRows[] = {
        {u"(x+x+)+\\1y", 0},
        {u"(?:(?:x?){1,100}){1,100}y", 0},
        {u"(?=(?:x|x)*y)z|(?:x+x+)+(?<=(x))\\1y", 0},
        {u"(?<a>(?:x|\\g<a>|\\g<a>\\g<a>)*y)", 0},
        {u"y\\1(x+x+)+", CRegexpT::kRightToLeft},
        {u"(?:){1000000000}x", 0},
    };
    const WString text = repeated(u"x", 300);
    for (const auto& row : kRows) {
        const CRegexpT regexp(row.pattern, row.flags);
        ASSERT_FALSE(regexp.isEmpty()) << toUtf8(row.pattern);
        CContext context;
        EXPECT_FALSE(matches(regexp, text, 100000, context));
        EXPECT_TRUE(context.isExhausted()) << toUtf8(row.pattern);
        MatchResultT result;
        EXPECT_FALSE(regexp.match(context, result));
        EXPECT_FALSE(result.isMatched());

        EXPECT_TRUE(matches(CRegexpT(u"x+"), text, 100000, context)) << "a used context is as good";
    }
}

TEST(RegexpBudget, memoryIsBounded)
{
    const CRegexpT regexp(u"(?:(a)|(b))*c");
    const WString text = repeated(u"ab", 100000);
    CContext context = regexp.prepareMatch(text);
    context.setStackBudget(1 << 20);
    MatchResultT result;
    EXPECT_FALSE(regexp.match(context, result));
    EXPECT_TRUE(context.isExhausted());

    context.setText(text);
    context.setStackBudget(64 << 20);
    EXPECT_FALSE(regexp.match(context, result));
    EXPECT_FALSE(context.isExhausted());
}

TEST(RegexpBudget, patternsAreBounded)
{
    EXPECT_TRUE(CRegexpT(WString(65536, u'a')).isEmpty());
    EXPECT_TRUE(CRegexpT(repeated(u"(", 20000) + repeated(u")", 20000)).isEmpty());
    EXPECT_TRUE(CRegexpT(repeated(u"[", 20000) + repeated(u"]", 20000)).isEmpty());
    EXPECT_TRUE(CRegexpT(u"a" + repeated(u"{2}", 20000)).isEmpty());
    EXPECT_TRUE(CRegexpT(repeated(u"(?(?=", 9000)).isEmpty());
    // Subroutines within one another are compiled once each, not once for each way to reach them.
    WString calls = u"(x)";
    for (int group = 1; group < 100; ++group)
        calls = u"(" + calls + u"\\g<" + toDecimal(group) + u">)";
    EXPECT_FALSE(CRegexpT(calls).isEmpty());
}

/// Counts as written cost nothing; a nest of them neither.
TEST(RegexpBudget, countsAreNotSpelledOut)
{
    const CRegexpT nested(u"(?:(?:(?:ab{1,100000}){1,100000}){1,100000}c){2147483647}");
    ASSERT_FALSE(nested.isEmpty());
    CContext context;
    EXPECT_FALSE(matches(nested, repeated(u"abbc", 1000), 0, context));
    EXPECT_FALSE(context.isExhausted());
    EXPECT_TRUE(matches(CRegexpT(u"(?:ab){3,99999999999}"), u"ababab", 0, context));
}

} // namespace varn::test
