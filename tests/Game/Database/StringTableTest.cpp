#include "Game/Database/StringTable.h"
#include "Game/Database/LanguageManager.h"
#include "Support/RecordingHost.h"
#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn::test {
namespace {

TEST(StringTable, EntersAKeyThatItIsAskedFor)
{
    StringTable table;
    EXPECT_EQ(table.get(u"Tavern"), u"Tavern");
    EXPECT_EQ(table.getStrings().size(), 1u);
    table.set(u"Inn", u"\u5BBF\u5C4B");
    EXPECT_EQ(table.getText(73), "\x8F\x68\x89\xAE");
    EXPECT_EQ(table.getText(72), "Tavern");
    EXPECT_EQ(table.getStrings().size(), 2u);
}

TEST(StringTable, DefaultTexts)
{
    const std::pair<int, std::string_view> cases[] = {
        {0, "Add Character"},
        {63, "Use Item"},
        {64, "???"},
        {65, "DivvyGold"},
        {87, "* Cannot use it here! *"},
        {100, "???"},
        {106, "Leave"},
        {107, "???"},
        {-1, "???"},
    };
    for (const auto& [id, text] : cases)
        EXPECT_EQ(getDefaultText(id), text) << id;
}

TEST(StringTable, ReadsBothFormsAndWritesTheNew)
{
    XMLParser parser;
    ASSERT_TRUE(
        parser.parse(u"<StringTable>"
                     u"<string name='Inn' id='x' text='y'>a &amp;lt;\nb\\nc<b>d</b></string>"
                     u"<string name='' id='Shop' text='&amp;amp;'>no</string>"
                     u"<string>without a key</string>"
                     u"<other name='No'>no</other>"
                     u"<string name='Shop 2'>first</string><string name='Shop 2'>last</string>"
                     u"</StringTable>"));
    StringTable table;
    table.set(u"Inn", u"before");
    table.loadFromElement(nullptr);
    table.loadFromElement(parser.getRootElement());
    EXPECT_EQ(table.toXml(), u"<StringTable>\r\n"
                             u"\t<string name=\"Inn\">a &lt;b\r\ncd</string>\r\n"
                             u"\t<string name=\"Shop\">&amp;</string>\r\n"
                             u"\t<string name=\"Shop 2\">last</string>\r\n"
                             u"</StringTable>");
}

TEST(StringTable, KeepsWhatItHasWhenADocumentIsRefused)
{
    TemporaryProject project;
    RecordingHost host;
    StringTable table;
    EXPECT_FALSE(table.load(u"Data/StringTable.xml"));
    EXPECT_TRUE(host.messages.empty() && host.questions.empty());
    table.set(u"Inn", u"kept");
    project.write("Data/StringTable.xml", "<StringTable><string name='Inn'>lost</string>");
    project.write("Data/StringTable.xml", "<StringTable><string name='Inn'>lost</oops>");
    EXPECT_FALSE(table.load(u"Data/StringTable.xml"));
    EXPECT_EQ(host.messages.size() + host.questions.size(), 1u);
    EXPECT_EQ(table.get(u"Inn"), u"kept");
    EXPECT_TRUE(table.save(u"Data/StringTable.xml"));
    StringTable again;
    EXPECT_TRUE(again.load(u"Data/StringTable.xml"));
    EXPECT_EQ(again.getStrings(), table.getStrings());
}

TEST(StringTable, ComposesTheTextsInForce)
{
    TemporaryProject project;
    RecordingHost host;
    const auto entry = [](const char* key, const char* text) {
        return std::string("<string name='") + key + "'>" + text + "</string>";
    };
    project.write("Resources/StringTable.xml", "<StringTable>" + entry("a", "tool") +
                                                   entry("b", "tool") + entry("c", "tool") +
                                                   "</StringTable>");
    project.write("Languages/Other.xml", "<Language><StringTable>" + entry("b", "language") +
                                             entry("c", "language") + "</StringTable></Language>");
    project.write("Data/StringTable.xml",
                  "<StringTable>" + entry("c", "project") + "</StringTable>");
    project.write("Languages/English.xml", "<Language/>");
    project.write("Resources/StringTable2.xml",
                  "<StringTable>" + entry("a", "tool 2") + entry("c", "tool 2") + "</StringTable>");
    project.write("Data/StringTable2.xml",
                  "<StringTable>" + entry("c", "project 2") + "</StringTable>");
    StringTable& table = StringTable::instance();
    table.set(u"left over", u"gone");

    ASSERT_TRUE(LanguageManager::instance().load(u"Languages/Other.xml"));
    loadStringTables();
    EXPECT_EQ(table.getStrings().size(), 3u);
    EXPECT_EQ(table.get(u"a") + table.get(u"b") + table.get(u"c"), u"toollanguageproject");

    ASSERT_TRUE(LanguageManager::instance().load(u"Languages/English.xml"));
    loadStringTables();
    EXPECT_EQ(table.get(u"a") + table.get(u"b") + table.get(u"c"), u"tool 2toolproject 2");
    EXPECT_TRUE(host.messages.empty());
    table.clear();
}

} // namespace
} // namespace varn::test
