#include "Parser/XMLParser.h"
#include "Util/Exception.h"

#include <gtest/gtest.h>

namespace varn {

TEST(Element, AttributesKeepTheirFirstPlace)
{
    NodeArena arena;
    Element& element = *arena.makeElement(u"a");
    for (const WStringView name : {u"x", u"y", u"z", u"u", u"v", u"w"})
        element.setString(name, u"old");
    element.setInt(u"y", -12);
    element.setNarrowString(u"z", "\x83\x5C"); // katakana so, whose second byte is a backslash
    element.removeAttribute(u"v");
    EXPECT_EQ(element.getStartTagString(),
              u"<a x=\"old\" y=\"-12\" z=\"\u30BD\" u=\"old\" w=\"old\">");
    EXPECT_EQ(element.getInt(u"y"), -12);
    EXPECT_EQ(element.getInt(u"x", 7), 0);
    EXPECT_EQ(element.getInt(u"v", 7), 7);
    EXPECT_EQ(element.getNarrowString(u"z"), "\x83\x5C");
    EXPECT_FALSE(element.hasAttribute(u"X"));
    element.setCaseSensitive(false);
    EXPECT_EQ(element.getString(u"X"), u"old");
}

TEST(Element, TextsAndSectionsAreSetWhereTheyStand)
{
    NodeArena arena;
    Element& element = *arena.makeElement(u"a");
    element.addText(u"");
    EXPECT_EQ(element.getFirstChild(), nullptr);
    element.addElement(u"b");
    element.setText(u"one");
    element.setText(u"two");
    element.addCData(u"]]>]]>");
    element.addCData(u"");
    const auto children = element.getChildren();
    ASSERT_EQ(children.size(), 4u);
    EXPECT_EQ(children[1]->getText(), u"two");
    EXPECT_TRUE(children[2]->isCData());
    EXPECT_EQ(children[2]->getText(), u"]]&gt;]]&gt;");
    EXPECT_EQ(children[3]->toString(), u"\t<![CDATA[]]>");
    EXPECT_EQ(element.collectText(), u"two]]&gt;]]&gt;");
    children[1]->setTagName(u"c");
    EXPECT_EQ(children[1]->toString(), u"\t<c>two</c>");
}

TEST(Element, CopiesAreDeepAndStandAlone)
{
    auto source = std::make_unique<NodeArena>();
    Element& original = *source->makeElement(u"a");
    original.setString(u"k", u"v");
    original.addElement(u"b")->addElement(u"c")->addText(u"deep");
    original.addElement(u"d")->setSelfClosing(true);
    const WString written = original.toString();

    NodeArena arena;
    Element& holder = *arena.makeElement(u"holder");
    Element& target = *holder.addElement(u"old");
    target.addElement(u"child");
    target.assign(original);
    Element* const copy = arena.clone(original);
    source.reset();
    EXPECT_EQ(target.toString(), written);
    EXPECT_EQ(copy->toString(), written);
    EXPECT_EQ(holder.getFirstChild(), nullptr);

    target.assign(*target.findElement(u"b")); // a node of its own tree
    EXPECT_EQ(target.toString(), u"<b>\r\n\t<c>deep</c>\r\n</b>");
}

TEST(Element, SearchesGoDepthFirst)
{
    XMLParser parser;
    ASSERT_TRUE(parser.parse(u"<r><a n='1'><b n='2'/><a n='3'/></a><b n='4'/></r>"));
    Element& root = *parser.getRootElement();
    EXPECT_EQ(root.findElement(u"b")->getInt(u"n"), 2);
    EXPECT_EQ(root.findChild(u"b")->getInt(u"n"), 4);
    EXPECT_EQ(root.findElement(u"r"), &root);
    EXPECT_EQ(root.findElement(u""), nullptr);
    std::vector<Element*> found;
    root.findElement(u"a")->findAll(u"a", found);
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0]->getInt(u"n"), 3);
    found.clear();
    root.findAll(u"b", found);
    EXPECT_EQ(found.size(), 2u);
}

TEST(Element, WritesTwoLayouts)
{
    const struct
    {
        WStringView source, written;
    } kCases[] = {
        {u"<a b='1' c=\"2\"/>", u"<a b=\"1\" c=\"2\" />"},
        {u"<a></a>", u"<a></a>"},
        {u"<a>text</a>", u"<a>text</a>"},
        {u"<a><b/><c>t</c></a>", u"<a>\r\n\t<b />\r\n\t<c>t</c>\r\n</a>"},
        {u"<a><![CDATA[<&]]><b><c/></b></a>",
         u"<a>\r\n\t<![CDATA[<&]]>\r\n\t<b>\r\n\t\t<c />\r\n\t</b>\r\n</a>"},
        {u"<a>t<b/>u</a>", u"<a>t\t<b />\r\nu</a>"},
        {u"<a><b/>u</a>", u"<a>\r\n\t<b />\r\nu</a>"},
        {u"<a t='&lt;&gt;&amp;&quot;'>&lt;&gt;&amp;&quot;'</a>",
         u"<a t=\"&lt;&gt;&amp;&quot;\">&lt;&gt;&amp;&quot;&apos;</a>"},
        {u"<a t='1\r\n2\r\n\n3\r\n'>1\r\n2\n</a>", u"<a t=\"1\\n2\\n\\n3\">1\r\n2\n</a>"},
    };
    for (const auto& c : kCases) {
        XMLParser parser;
        ASSERT_TRUE(parser.parse(WString(c.source)));
        EXPECT_EQ(toUtf8(parser.getRootElement()->toString()), toUtf8(c.written));
    }
    XMLParser parser;
    ASSERT_TRUE(parser.parse(u"<a><b><c/></b></a>"));
    WString out = u"\t";
    parser.findElement(u"b")->write(out, 0);
    EXPECT_EQ(out, u"\t<b>\r\n\t<c />\r\n</b>");
    EXPECT_EQ(parser.findElement(u"c")->toString(), u"\t\t<c />");
}

TEST(Element, EscapesAtEveryPlaceOfALongText)
{
    for (std::size_t length = 1; length < 40; ++length) {
        for (std::size_t place = 0; place < length; ++place) {
            WString text(length, u'\u3042'), expected;
            text[place] = u'&';
            expected = replaceAll(text, u"&", u"&amp;");
            WString out = u"x";
            appendEscaped(out, text, EscapeIn::Attribute);
            ASSERT_EQ(out, u"x" + expected);
        }
    }
    WString out;
    appendEscaped(out, WString(10000, u'"'), EscapeIn::Text);
    EXPECT_EQ(out.size(), 60000u);
}

TEST(NodeArena, KeepsWhatIsLargeAndWhatIsSmall)
{
    NodeArena arena;
    std::vector<WStringView> kept;
    for (std::size_t size = 1; size < 200'000; size = size * 3 + 1) {
        kept.push_back(arena.keep(WString(size, u'a')));
        kept.push_back(arena.keep(u"small"));
    }
    NodeArena moved = std::move(arena);
    for (std::size_t i = 0; i < kept.size(); i += 2) {
        EXPECT_EQ(kept[i].find_first_not_of(u'a'), WStringView::npos);
        EXPECT_EQ(kept[i + 1], u"small");
    }
    Element* const element = moved.makeElement(u"a");
    EXPECT_EQ(&element->getArena(), &moved);
    moved.reset();
    EXPECT_EQ(moved.makeElement(u"b")->toString(), u"<b></b>");
}

TEST(Element, DepthTakesNoStack)
{
    constexpr std::size_t kDepth = 1'000'000;
    WString text;
    for (std::size_t i = 0; i < kDepth; ++i)
        text += u"<a>";
    XMLParser parser;
    ASSERT_TRUE(parser.parse(text));
    EXPECT_EQ(parser.elementsByTag(u"a").size(), kDepth);
    EXPECT_EQ(parser.findElement(u"b"), nullptr);
    NodeArena arena;
    std::vector<Element*> found;
    arena.clone(*parser.getRootElement())->findAll(u"a", found);
    EXPECT_EQ(found.size(), kDepth - 1);
    EXPECT_EQ(parser.elementsByTag(u"a")[kDepth - 2]->getChildren().size(), 1u);
    EXPECT_THROW(parser.compose(), Exception); // a tab a level, on two lines a level
}

} // namespace varn
