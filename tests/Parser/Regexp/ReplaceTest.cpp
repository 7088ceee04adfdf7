#include "Parser/Regexp/CRegexpT.h"

#include <gtest/gtest.h>

namespace varn::test {

namespace {

struct ReplaceCase
{
    WStringView pattern;
    WStringView text;
    WStringView replacement;
    WStringView result;
    int flags = 0;
    int start = -1;
    int times = -1;
};

constexpr ReplaceCase kReplaceCases[] = {
    {u"x", u"axbx", u"$$", u"a$b$"},
    {u"b", u"abc", u"[$&|$`|$'|$_]", u"a[b|a|c|abc]c"},
    {u"(a)|(b)|c", u"abc", u"<$+>", u"<a><b><c>"},
    {u"(a)(b)?", u"ab a", u"$1-$2;", u"a-b; a-;"},
    {u"(a)", u"a", u"$12$2$", u"a2$2$"},
    {u"(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)", u"abcdefghij", u"$10 $11 $010 $1000", u"j a1 j j00"},
    {u"(a)", u"a", u"$0$01$001$0001", u"aaaa1"},
    {u"(?<w>\\w+) (?<v>\\w+)", u"red dragon", u"${v} ${w} ${1} ${x} ${ ${2}",
     u"dragon red red ${x} ${ dragon"},
    {u"(?<w>a)", u"a", u"${}${w", u"${}${w"},
    {u"", u"ab", u"-", u"-a-b-"},
    {u"a*", u"baac", u"x", u"xbxxcx"},
    {u"^", u"a\r\nb", u"> ", u"> a\r\n> b", CRegexpT::kMultiLine},
    {u"$", u"a\r\nb", u";", u"a;\r\nb;", CRegexpT::kMultiLine},
    {u"a", u"aaaa", u"b", u"abba", 0, 1, 2},
    {u"a", u"aaaa", u"b", u"aaaa", 0, 0, 0},
    {u"a", u"aaaa", u"b", u"aaaa", 0, 9},
    {u"(?<=a)a", u"aaaa", u"b", u"abbb", 0, 1},
    {u"(\\d+)", u"1 22 333", u"<$1>", u"<1> <22> <333>", CRegexpT::kRightToLeft},
    {u"\\d", u"1234", u"-", u"12--", CRegexpT::kRightToLeft, -1, 2},
    {u"\\d", u"1234", u"-", u"1--4", CRegexpT::kRightToLeft, 3, 2},
    {u"", u"ab", u"-", u"-a-b-", CRegexpT::kRightToLeft},
    {u"y", u"axbx", u"z", u"axbx"},
    {u"(", u"axbx", u"z", u""},
};

} // namespace

TEST(RegexpReplace, putsInWhatItsFormsName)
{
    for (const ReplaceCase& row : kReplaceCases)
        EXPECT_EQ(toUtf8(CRegexpT(row.pattern, row.flags)
                             .replace(row.text, row.replacement, row.start, row.times)),
                  toUtf8(row.result))
            << toUtf8(row.pattern) << " by " << toUtf8(row.replacement);
}

TEST(RegexpReplace, endsWhereTheResultGrowsBeyondAllMeasure)
{
    const WString text(40000, u'a');
    const WString result = CRegexpT(u"a").replace(text, u"$_$_");
    EXPECT_LE(result.size(), (std::size_t{1} << 26) + text.size());
    EXPECT_TRUE(result.ends_with(u"aaaa"));
}

TEST(RegexpReplace, leavesTheRestWhereTheBudgetEnds)
{
    const CRegexpT regexp(u"a(?:(?:b?){50}){50}(c)\\1|x");
    const WString text = u"x" + WString(u"a") + WString(500, u'b');
    CContext context = regexp.prepareMatch(text);
    context.setStepBudget(10000);
    EXPECT_EQ(regexp.replace(context, u"-"), u"-" + text.substr(1));
    EXPECT_TRUE(context.isExhausted());
}

} // namespace varn::test
