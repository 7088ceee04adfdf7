// What the parser takes and what it makes of it: single documents by hand, and many against the
// state machine that defines the dialect.
#include "Parser/XmlReference.h"

#include <gtest/gtest.h>
#include <random>

namespace varn {

using test::dump;
using test::parseBothWays;

struct DialectCase
{
    WStringView source;
    WStringView tree; ///< in the notation of `dump`; empty: there is no root
};

// clang-format off
constexpr DialectCase kDialect[] = {
    // Entities: known ones, also ended by a blank, which stays; unknown ones and open ones as written.
    {u"<a>&lt;&#65;&#x41;&apos;</a>", u"(a{<AA'})"},
    {u"<a>&unknown;&#;&#9;&;</a>", u"(a{&unknown;&#;&#9;&;})"},
    {u"<a>&amp x&lt\ny</a>", u"(a{& x<\ny})"},
    {u"<a>&lt</a>", u"(a{&lt})"},
    {u"<a>&a&lt;&lt;</a>", u"(a{&a&lt;<})"},
    {u"<a b=\"&lt\" c='&quot;\"'/>", u"(a b=<&lt> c=<\"\">/)"},
    {u"<a>&nbsp;</a>", u"(a)"},
    {u"<a>&nbsp;x</a>", u"(a{ x})"},
    {u"<a>&amp;lt;</a>", u"(a{&lt;})"},
    // Text: white space alone vanishes, other text stands as written; none outside the root.
    {u"x<a> \r\n\t<b/> y <b/>\u3000</a>z", u"(a(b/){ y }(b/){\u3000})"},
    {u"<a>x<!-- y -->z</a>", u"(a{x}{z})"},
    {u"<a>1 > 2 ]]></a>", u"(a{1 > 2 ]]>})"},
    // Sections, comments and the rest behind `<!`.
    {u"<![CDATA[x]]><a><![CDATA[]]><![CDATA[ ]]]]><![CDATA[<b>&lt;]]></a>", u"(a[][ ]]][<b>&lt;])"},
    {u"<!DOCTYPE a [<b>]><a/>", u"(a/)"},
    {u"<!DOCTYPE><a/><!-->x<b>--><!---->", u"(a/)"},
    {u"<a><!-- - -- --- <b> ---><c/></a>", u"(a(c/))"},
    {u"<a><b/><!ELEMENT x><c/></a>", u"(a(b/))"},
    {u"<a><b/><!-x--><c/></a>", u"(a(b/))"},
    // Tags.
    {u"<a b='1'c=\"2\" b='3' ></a x='1'>", u"(a b=<3> c=<2>)"},
    {u"<_:\u8868-1.x :='<>'/>", u"(_:\u8868-1.x :=<<>>/)"},
    {u"<a\u0001b=''\u001F/>", u"(a b=<>/)"},
    {u"<?php ?><?php x='1'?><a/>", u"(a/)"},
    {u"<?><a/>", u"(a/)"},
    {u"<a/><b><c/></b>", u"(b(c/))"},
    // The text may end anywhere.
    {u"<a><b x='1'>text", u"(a(b x=<1>))"},
    {u"<a><b", u"(a)"},
    {u"<a><b c='", u"(a)"},
    {u"<a", u""},
    {u"", u""},
};
// clang-format on

TEST(XmlDialect, TakesWhatItTakes)
{
    for (const auto& c : kDialect) {
        XMLParser parser;
        const auto fault = parser.tryParse(WString(c.source));
        EXPECT_EQ(parser.getRootElement() == nullptr, c.tree.empty()) << toUtf8(c.source);
        if (parser.getRootElement() != nullptr)
            EXPECT_EQ(toUtf8(dump(*parser.getRootElement())), toUtf8(c.tree)) << toUtf8(c.source);
        else
            EXPECT_EQ(fault->kind, ParserException::NoRoot);
    }
}

struct FaultCase
{
    WStringView source;
    int row, column;
    WStringView message;
};

// clang-format off
constexpr WStringView kWrongEnd = u"タグの対応が間違っています。終了タグが必要です:\r\n";
const FaultCase kFaults[] = {
    {u"<a/ >", 1, 3, u""},
    {u"<a>\r\n < b/>", 2, 2, u""},
    {u"<1/>", 1, 1, u""},
    {u"<a%>", 1, 2, u""},
    {u"</a/>", 1, 3, u""},
    {u"<a b =\"\">", 1, 4, u""},
    {u"<a b= \"\">", 1, 5, u""},
    {u"<a b>", 1, 4, u""},
    {u"<a 1=''>", 1, 3, u"1 is an invalid character."},
    {u"<a ?>", 1, 3, u"? is an invalid character."},
    {u"<a></a />", 1, 7, u"/ is an invalid character."},
    {u"<a <", 1, 3, u"< is an invalid character."},
    {u"\n\n<a></b>", 3, 6, u"MISMATCH"},
    {u"<a><b/></>", 1, 9, u"MISMATCH"},
    {u"<a/></a>", 1, 7, u"要素"},
    {u"<?php?>", 1, 5, u""},
    {u"<?xml?>", 1, 6, u"version attribute is empty"},
    {u"<?xml ?>", 1, 7, u"version attribute is empty"},
    {u"<?xml version='1'?>", 1, 18, u"encoding attribute is empty"},
    {u"<?xml encoding='UTF-8' version=''?>", 1, 34, u"version attribute is empty"},
    {u"<?xml version='1' encoding='ebcdic'?>", 1, 36, u"ebcdic: This encoding is not supported"},
};
// clang-format on

TEST(XmlDialect, RefusesWithThePlace)
{
    for (const auto& c : kFaults) {
        XMLParser parser;
        const auto fault = parser.tryParse(WString(c.source));
        ASSERT_TRUE(fault) << toUtf8(c.source);
        const WString place =
            u"Exception at : Row:" + toDecimal(c.row) + u". Col:" + toDecimal(c.column) + u".\r\n";
        EXPECT_EQ(toUtf8(fault->message.substr(0, place.size())), toUtf8(place))
            << toUtf8(c.source);
        if (c.message != u"MISMATCH")
            EXPECT_TRUE(fault->message.ends_with(u"-\r\n" + WString(c.message)))
                << toUtf8(fault->message);
        else
            EXPECT_NE(fault->message.find(kWrongEnd), WString::npos) << toUtf8(fault->message);
    }
}

TEST(XmlDialect, IsThatOfTheStateMachine)
{
    std::vector<WString> documents;
    for (const auto& c : kDialect)
        documents.emplace_back(c.source);
    for (const auto& c : kFaults)
        documents.emplace_back(c.source);
    documents.emplace_back(
        u"<?xml version=\"1.0\" encoding=\"Shift_JIS\" note='a\"b'?>\r\n<States>\r\n"
        u"\t<data id=\"1\" name=\"剣 &amp; 魔法\" />\r\n\t<data id=\"2\">\r\n"
        u"\t\t<![CDATA[if (a[b[0]] > 1) ]]>\r\n\t</data>\r\n</States>\r\n");
    for (const WString& document : documents) {
        const auto both = parseBothWays(document);
        ASSERT_EQ(toUtf8(both.expected), toUtf8(both.actual)) << toUtf8(document);
    }

    constexpr WStringView kPieces[] = {
        u"<",   u">",     u"/",    u"\"",        u"'",
        u"=",   u"&",     u";",    u"]",         u"-",
        u"]]>", u"?",     u"!",    u" ",         u"\n",
        u"a",   u"あ",    u"-->",  u"<![CDATA[", u"<b",
        u"/>",  u"&amp;", u"<!--", u"</",        WStringView(u"\0", 1)};
    std::mt19937 random(20);
    for (int round = 0; round < 30'000; ++round) {
        WString mutant = documents[random() % documents.size()];
        for (auto edits = 1 + random() % 4; edits > 0; --edits) {
            const std::size_t at = random() % (mutant.size() + 1);
            if (random() % 3 == 0)
                mutant.erase(at, random() % 4);
            else
                mutant.insert(at, kPieces[random() % std::size(kPieces)]);
        }
        const auto both = parseBothWays(mutant);
        ASSERT_EQ(toUtf8(both.expected), toUtf8(both.actual)) << toUtf8(mutant);
    }
}

TEST(XmlDialect, WritingIsStable)
{
    for (const auto& c : kDialect) {
        XMLParser first, second;
        if (first.tryParse(WString(c.source)) || test::isMixed(*first.getRootElement()))
            continue;
        ASSERT_FALSE(second.tryParse(first.compose())) << toUtf8(c.source);
        EXPECT_EQ(toUtf8(second.compose()), toUtf8(first.compose()));
    }
}

TEST(XmlDialect, ManyAttributesAndNamesTakeLinearTime)
{
    WString text = u"<a";
    for (int i = 0; i < 100'000; ++i)
        text += u" n" + toDecimal(i % 60'000) + u"=\"" + toDecimal(i) + u"\"";
    text += u">";
    for (int i = 0; i < 100'000; ++i)
        text += u"<e" + toDecimal(i % 50'000) + u"/>";
    XMLParser parser;
    ASSERT_TRUE(parser.parse(text + u"</a>"));
    EXPECT_EQ(parser.getRootElement()->attributeCount(), 60'000u);
    EXPECT_EQ(parser.getRootElement()->attributeAt(3).value, u"60003");
    EXPECT_EQ(parser.getRootElement()->attributeAt(50'000).value, u"50000");
    EXPECT_EQ(parser.elementsByTag(u"e49999").size(), 2u);
    EXPECT_TRUE(parser.elementsByTag(u"e50000").empty());
}

} // namespace varn
