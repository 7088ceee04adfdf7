#include "Util/Text.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

TEST(Utf8, ConvertsBothWays)
{
    const struct
    {
        std::string_view utf8;
        WStringView wide;
    } cases[] = {
        {"", u""},
        {"plain text longer than one block of sixteen",
         u"plain text longer than one block of sixteen"},
        {"sixteen bytes ..\xE3\x81\x82 and more", u"sixteen bytes ..あ and more"},
        {"\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF", u"\u0080\u07FF\u0800\uFFFF"},
        {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", u"\U00010000\U0010FFFF"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(fromUtf8(c.utf8), c.wide);
        EXPECT_EQ(toUtf8(c.wide), c.utf8);
    }
}

TEST(Utf8, ReplacesWhatIsMalformed)
{
    const struct
    {
        std::string_view name, utf8;
        WStringView wide;
    } cases[] = {
        {"lone continuation", "a\x80z", u"a\uFFFDz"},
        {"over-long slash", "\xC0\xAF", u"\uFFFD\uFFFD"},
        {"over-long of three", "\xE0\x80\xAF", u"\uFFFD\uFFFD\uFFFD"},
        {"surrogate", "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
        {"behind the last code point", "\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"cut by the end", "\xE3\x81", u"\uFFFD"},
        {"cut by a letter", "\xF0\x9F\x98z", u"\uFFFDz"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(fromUtf8(c.utf8), c.wide) << c.name;
    const char16_t lone[] = {u'a', 0xD800, u'b', 0xDC00, 0};
    EXPECT_EQ(toUtf8(lone), "a\xEF\xBF\xBD"
                            "b\xEF\xBF\xBD");
}

TEST(CutToField, KeepsCharactersWhole)
{
    const struct
    {
        std::string_view text;
        std::size_t limit;
        std::string_view cut;
    } cases[] = {
        {"hero", 20, "hero"},
        {"12345678901234567890", 20, "1234567890123456789"},
        {"a\x82\xA0\x82\xA2", 5, "a\x82\xA0"},
        {"a\x82\xA0\x82\xA2", 4, "a\x82\xA0"},
        {"a\x82\xA0", 3, "a"},
        {"\xB1\xB2\xB3", 3, "\xB1\xB2"},
        {"a", 1, ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(cutToField(c.text, c.limit), c.cut) << c.text << ' ' << c.limit;
}

TEST(ParseDecimal, FollowsTheRuntime)
{
    const struct
    {
        WStringView text;
        std::int32_t value;
    } cases[] = {
        {u"", 0},
        {u"12", 12},
        {u" \t\r\n-7x9", -7},
        {u"+5", 5},
        {u"- 5", 0},
        {u"x1", 0},
        {u"--1", 0},
        {u"0012", 12},
        {u"2147483647", INT32_MAX},
        {u"2147483648", INT32_MAX},
        {u"-2147483648", INT32_MIN},
        {u"-99999999999999999999999", INT32_MIN},
        {u"１", 0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(parseDecimal(c.text), c.value) << toUtf8(c.text);
    EXPECT_EQ(toDecimal(INT64_MIN), u"-9223372036854775808");
}

TEST(Split, GivesAPieceMoreThanSeparators)
{
    EXPECT_EQ(split(u"", u','), (std::vector<WStringView>{u""}));
    EXPECT_EQ(split(u",a,,b", u','), (std::vector<WStringView>{u"", u"a", u"", u"b"}));
    EXPECT_EQ(replaceAll(u"aaa", u"aa", u"b"), u"ba");
    EXPECT_EQ(replaceAll(u"a]]>b]]>", u"]]>", u"]]&gt;"), u"a]]&gt;b]]&gt;");
    EXPECT_EQ(replaceAll(u"a", u"", u"b"), u"a");
}

TEST(Case, FoldsByScript)
{
    const struct
    {
        WStringView a, b;
        bool ascii, full;
    } cases[] = {
        {u"Map[1]", u"mAP[1]", true, true},
        {u"Ａ", u"ａ", false, true},
        {u"ДОМ", u"дом", false, true},
        {u"ÿ", u"Ÿ", false, true},
        {u"Σ", u"ς", false, true},
        {u"ß", u"ẞ", false, true},
        {u"\U00010400", u"\U00010428", false, true},
        {u"[", u"{", false, false},
        {u"ß", u"ss", false, false},
        {u"a", u"ab", false, false},
        {u"あ", u"ア", false, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(equalsIgnoringAsciiCase(c.a, c.b), c.ascii) << toUtf8(c.a);
        EXPECT_EQ(equalsIgnoringCase(c.a, c.b), c.full) << toUtf8(c.a);
    }
}

TEST(IsLetter, KnowsEveryScript)
{
    for (const char16_t unit : WStringView(u"azAZªéЖאあアｱ漢龥가Ａー々"))
        EXPECT_TRUE(isLetter(unit)) << std::hex << int{unit};
    for (const char16_t unit : WStringView(u"@[`{09_ \u00D7\u00F7、。・①０\u0301\uE000\uFFFF"))
        EXPECT_FALSE(isLetter(unit)) << std::hex << int{unit};
    EXPECT_FALSE(isLetter(0xD840)) << "half of an ideograph";
}

TEST(Text, ChangesCase)
{
    const struct
    {
        char16_t unit, small, capital;
    } cases[] = {
        {u'a', u'a', u'A'},       {u'Z', u'z', u'Z'}, {u'1', u'1', u'1'},    {u'[', u'[', u'['},
        {u'É', u'é', u'É'},       {u'ÿ', u'ÿ', u'Ÿ'}, {u'ß', u'ß', u'ß'},    {u'ж', u'ж', u'Ж'},
        {u'Σ', u'σ', u'Σ'},       {u'ς', u'ς', u'Σ'}, {u'Ａ', u'ａ', u'Ａ'}, {u'あ', u'あ', u'あ'},
        {0xD83D, 0xD83D, 0xD83D},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(toSmallLetter(c.unit), c.small) << static_cast<int>(c.unit);
        EXPECT_EQ(toCapitalLetter(c.unit), c.capital) << static_cast<int>(c.unit);
    }
}

} // namespace
} // namespace varn
