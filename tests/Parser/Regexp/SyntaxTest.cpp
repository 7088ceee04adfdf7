#include "Parser/Regexp/CRegexpT.h"

#include <gtest/gtest.h>

namespace varn::test {

namespace {

constexpr int kS = CRegexpT::kSingleLine;
constexpr int kM = CRegexpT::kMultiLine;
constexpr int kG = CRegexpT::kGlobal;
constexpr int kI = CRegexpT::kIgnoreCase;
constexpr int kR = CRegexpT::kRightToLeft;
constexpr int kX = CRegexpT::kExtended;

/// All matches, `start-end`, then the groups behind commas: "0-3,1-2,-". A dash stands for a group
/// that took no part.
std::string findAll(WStringView pattern, int flags, WStringView text)
{
    const CRegexpT regexp(pattern, flags);
    if (regexp.isEmpty())
        return toUtf8(regexp.getFault());
    std::string found;
    CContext context = regexp.prepareMatch(text);
    for (MatchResultT match; regexp.match(context, match);) {
        found += found.empty() ? "" : " ";
        for (int group = 0; group <= match.getGroupCount(); ++group) {
            found += group == 0 ? "" : ",";
            if (match.getGroupStart(group) < 0)
                found += "-";
            else
                found += std::to_string(match.getGroupStart(group)) + "-" +
                         std::to_string(match.getGroupEnd(group));
        }
    }
    return context.isExhausted() ? "exhausted" : found;
}

struct MatchCase
{
    WStringView pattern;
    int flags;
    WStringView text;
    const char* matches;
};

constexpr MatchCase kMatchCases[] = {
    // literals and escapes
    {u"ab", 0, u"xabab", "1-3 3-5"},
    {u"", 0, u"ab", "0-0 1-1 2-2"},
    {u"a*", 0, u"aab", "0-2 2-2 3-3"},
    {u"\\.\\*\\q", 0, u".*q", "0-3"},
    {u"\\a\\e\\f\\n\\r\\t\\v", 0, u"\a\x1B\f\n\r\t\v", "0-7"},
    {u"\\x41\\xA\\u3042\\x{42}\\u{43}\\0\\052", 0, WStringView(u"A\nあBC\0*", 7), "0-7"},
    {u"\\u{1F600}+", 0, u"😀😀😁", "0-4"},
    {u"😀{2}", 0, u"😀😀", "0-4"},
    {u"\\Qa.b*\\E+", 0, u"a.b** a.b", "0-5"},
    {u"\\Q\\n", 0, u"\\n", "0-2"},
    {u"x\\Q\\Ey", 0, u"xy", "0-2"},
    {u"\\LABC\\E\\Udé\\E!", 0, u"abcDÉ!", "0-6"},
    {u"\\U[a-c]\\w\\E", 0, u"Aa aA", "0-2"},
    {u"a{,2}b{x}{", 0, u"aab{x}{", "0-7"},
    {u"]}-", 0, u"]}-", "0-3"},
    // classes
    {u"[abc]+", 0, u"xcabx", "1-4"},
    {u"[^a-c]", 0, u"abcd\n", "3-4 4-5"},
    {u"[a-c-]+", 0, u"b-d", "0-2"},
    {u"[]a]+[^]a]", 0, u"a]b", "0-3"},
    {u"[a-c[x-z]]+", 0, u"byd", "0-2"},
    {u"[a[^b]]", 0, u"ab", "0-1"},
    {u"[[:alpha:][:digit:]_]+", 0, u"-a1_", "1-4"},
    {u"[[:^space:]]+", 0, u" ab ", "1-3"},
    {u"[:al]+", 0, u"b:la", "1-4"},
    {u"[[]x", 0, u"[x", "0-2"},
    {u"[\\]\\\\\\-a]+", 0, u"a-]\\", "0-4"},
    {u"[\\d\\s]+|[\\W_]+", 0, u"1 2_-", "0-3 3-5"},
    {u"[\\b\\x41-\\u0043]+", 0, u"\bABCD", "0-4"},
    {u"[a-\\d]+", 0, u"a-1b", "0-3"},
    {u"[\\Q^]\\E]+", 0, u"]^", "0-2"},
    {u"[ぁ-ん]+", 0, u"カなまえ。", "1-4"},
    {u"[😀-😂x]+", 0, u"😀x😃", "0-3"},
    {u"[^😀]", 0, u"😀a", "1-2 2-3"},
    {u"\\d+\\D\\w+\\W\\s+\\S", 0, u"12-ab? \tx", "0-9"},
    {u"\\w", 0, u"éあＡ", ""},
    {u"\\s+", 0, u"\t\n\v\f\r \x3000", "0-6"},
    {u".+", 0, u"ab\r\ncd", "0-2 4-6"},
    {u".+", kS, u"ab\r\ncd", "0-6"},
    // alternation, groups, quantifiers
    {u"a|ab|", 0, u"abc", "0-1 1-1 2-2 3-3"},
    {u"(a)|(b)", 0, u"ab", "0-1,0-1,- 1-2,-,1-2"},
    {u"(?:a(b))+", 0, u"abab", "0-4,3-4"},
    {u"(?<name>a)(b)(?'other'c)", 0, u"abc", "0-3,0-1,1-2,2-3"},
    {u"a{2}", 0, u"aaaaa", "0-2 2-4"},
    {u"a{2,3}", 0, u"aaaaa", "0-3 3-5"},
    {u"a{2,3}?", 0, u"aaaaa", "0-2 2-4"},
    {u"a{2,}", 0, u"a aaaa", "2-6"},
    {u"(ab){2}{2}", 0, u"abababab", "0-8,6-8"},
    {u"a+?b?\?", 0, u"aab", "0-1 1-2"},
    {u"<.+?>", 0, u"<a><b>", "0-3 3-6"},
    {u"a++a", 0, u"aaa", ""},
    {u"a?+a|a*+b", 0, u"aab", "0-2 2-3"},
    {u"(?:ab)*+ab", 0, u"abab", ""},
    {u"(?>a|ab)c", 0, u"abc", ""},
    {u"(?:a*)*b", 0, u"aab", "0-3"},
    {u"(a|b)*?c", 0, u"abac", "0-4,2-3"},
    {u"(?:(a)|b)*", 0, u"ab", "0-2,0-1 2-2,-"},
    {u"x{0}(?:y){0}z", 0, u"z", "0-1"},
    {u"(a?\?){2}b", 0, u"ab", "0-2,0-1"},
    // boundaries
    {u"^.", 0, u"ab\ncd", "0-1"},
    {u"^.", kM, u"ab\ncd\r\nef\rgh", "0-1 3-4 7-8 10-11"},
    {u"^", kM, u"\r\n", "0-0 2-2"},
    {u"$", 0, u"ab\n", "2-2 3-3"},
    {u"$", 0, u"ab\r\n", "2-2 4-4"},
    {u"$", kM, u"ab\ncd\r\n", "2-2 5-5 7-7"},
    {u"\\Ab|b\\Z|b\\z", kM, u"b\nb\nb\n", "0-1 4-5"},
    {u"b\\z", 0, u"b\nb", "2-3"},
    {u"\\b\\w", 0, u"ab cd", "0-1 3-4"},
    {u"\\Bb", 0, u"ab b", "1-2"},
    {u"\\Ga", kG, u"aaba", "0-1 1-2"},
    {u"\\Ga", 0, u"aaba", "0-1 1-2 3-4"},
    // references, calls, conditions
    {u"(\\w)\\1", 0, u"aabbc", "0-2,0-1 2-4,2-3"},
    {u"(a)\\10", 0, u"aa0", "0-3,0-1"},
    {u"(?<x>a|b)-\\k<x>\\k'x'\\k{x}\\k<1>", 0, u"b-bbbb", "0-6,0-1"},
    {u"(é)\\1", kI, u"éÉ", "0-2,0-1"},
    {u"(a)?\\1b", 0, u"b aab", "2-5,2-3"},
    {u"\\2(a)(b)|(c)", 0, u"ab", ""},
    {u"(?:\\2b|(a)(b))+", 0, u"abbb", "0-4,0-1,1-2"},
    {u"(?<p>\\((?:[^()]|\\g<p>)*\\))", 0, u"x(a(b)c)(", "1-8,1-8"},
    {u"\\((?:[^()]++|\\g<0>)*\\)", 0, u"((a)b)", "0-6"},
    {u"(?<n>\\d)\\g<n>\\g<1>", 0, u"1234", "0-3,2-3"},
    {u"\\g<d>+(?<d>\\d){0}", 0, u"a12", "1-3,2-3"},
    {u"(?<a>\\g<a>)|b", 0, u"b", "0-1,-"},
    {u"(\\()?\\w(?(1)\\)|!)", 0, u"(a) b! c", "0-3,0-1 4-6,-"},
    {u"(?<q>')?a(?(<q>)')(?(q)|;)", 0, u"'a' a;", "0-3,0-1 4-6,-"},
    {u"(?(?=a)ab|c)", 0, u"abc", "0-2 2-3"},
    {u"(?(?<!x)a|b)", 0, u"xaxb", "3-4"},
    {u"(?(a.)ab|a)", 0, u"ab", "0-2"},
    // looking around
    {u"a(?=b)", 0, u"aab", "1-2"},
    {u"a(?!b)", 0, u"aab", "0-1"},
    {u"(?<=a+)b", 0, u"aab b", "2-3"},
    {u"(?<!a|x)b", 0, u"ab xb b", "6-7"},
    {u"(?=(\\w+))\\1:", 0, u"abc:", "0-4,0-3"},
    {u"(?<=(\\d+)(\\d+))$", 0, u"1053", "4-4,0-1,1-4"},
    {u"(?<=^|,)[^,]*", 0, u"a,,b", "0-1 2-2 3-4"},
    {u"(?!(a)b)\\w(?<=\\1?)", 0, u"ab", "1-2,-"},
    // comments, modes
    {u"a(?#b(c)d", 0, u"ad", "0-2"},
    {u"a (?#x) b # c\n c", kX, u"abc", "0-3"},
    {u"a\\ [ ]b +", kX, u"a  bb", "0-5"},
    {u"AbÉΣ", kI, u"aBéς", "0-4"},
    {u"[a-c]|[^x]", kI, u"BXk", "0-1 2-3"},
    {u"k", kI, u"Kk\u212A", "0-1 1-2"},
    {u"a(?i)b(?-i)c|(?i:d)e(?s-m).", 0, u"aBc De\n", "0-3 4-7"},
    {u"(?:(?i)a)b", 0, u"Ab aB", "0-2"},
    // from right to left
    {u"\\d", kR, u"a12", "2-3 1-2"},
    {u"\\d+", kR, u"12 345", "3-6 0-2"},
    {u"(\\d+)(\\d+)", kR, u"12345", "0-5,0-1,1-5"},
    {u"a*?b", kR, u"aab", "2-3"},
    {u"\\1(a)", kR, u"aa", "0-2,1-2"},
    {u"x(?=b)", kR, u"xbxa", "0-1"},
    {u"", kR, u"ab", "2-2 1-1 0-0"},
    {u"^a|b\\G", kR | kG, u"ab", "1-2 0-1"},
};

struct FaultCase
{
    WStringView pattern;
    int position;
};

constexpr FaultCase kFaultCases[] = {
    {u"(", 1},           {u"a)", 1},        {u"[a", 2},
    {u"[", 1},           {u"a\\", 2},       {u"*a", 0},
    {u"a|+", 2},         {u"a{2,1}", 6},    {u"[b-a]", 4},
    {u"(?<a", 4},        {u"(?<1a>b)", 6},  {u"(?<>a)", 3},
    {u"(?y)", 2},        {u"(?#a", 0},      {u"\\1", 2},
    {u"\\k<a>", 5},      {u"\\k<0>", 5},    {u"\\g<1>", 5},
    {u"\\gx", 2},        {u"(?(1)a)", 5},   {u"(?(?=a)b|c|d)", 12},
    {u"[[:foo:]]", 8},   {u"\\xg", 2},      {u"\\u12", 4},
    {u"\\u{110000}", 9}, {u"\\x{41", 5},    {u"(?<a>b)(?<a>c)", 12},
    {u"(?<=a", 5},       {u"[\\", 2},       {u"(?(<a>)b", 8},
    {u"(?(0)a)", 5},     {u"(?(<0>)a)", 7},
};

} // namespace

TEST(RegexpSyntax, matches)
{
    for (const MatchCase& row : kMatchCases)
        EXPECT_EQ(findAll(row.pattern, row.flags, row.text), row.matches)
            << toUtf8(row.pattern) << " on " << toUtf8(row.text) << ", flags " << row.flags;
}

TEST(RegexpSyntax, faultsTellWhere)
{
    for (const FaultCase& row : kFaultCases) {
        const CRegexpT regexp(row.pattern);
        EXPECT_TRUE(regexp.isEmpty()) << toUtf8(row.pattern);
        const std::string fault = toUtf8(regexp.getFault());
        const std::string place = "(at " + std::to_string(row.position) + ")";
        EXPECT_NE(fault.find(place), std::string::npos) << toUtf8(row.pattern) << ": " << fault;
    }
}

TEST(RegexpSyntax, namesGroups)
{
    const CRegexpT regexp(u"(a)(?<鍵>b)(?<k2>c)");
    EXPECT_EQ(regexp.getGroupCount(), 3);
    EXPECT_EQ(regexp.namedGroupNumber(u"鍵"), 2);
    EXPECT_EQ(regexp.namedGroupNumber(u"k2"), 3);
    EXPECT_EQ(regexp.namedGroupNumber(u"k3"), -1);
    EXPECT_EQ(CRegexpT(u"(").namedGroupNumber(u"k2"), -1);
}

} // namespace varn::test
