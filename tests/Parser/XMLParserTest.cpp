// Documents as files: detection, repair, reports, saving.
#include "Parser/XMLParser.h"
#include "Support/ChildProcess.h"
#include "Support/RecordingHost.h"
#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn {

using test::RecordingHost;
using test::TemporaryProject;

const std::string kAiueoSjis = "\x82\xA0\x82\xA2";
const std::string kAiueoUtf8 = "\xE3\x81\x82\xE3\x81\x84";
const std::string kAiueoEuc = "\xA4\xA2\xA4\xA4\xB0\xA1";

std::string declare(std::string_view encoding, std::string_view body)
{
    return "<?xml version=\"1.0\" encoding=\"" + std::string(encoding) + "\"?>\r\n" +
           std::string(body);
}

std::string toUtf16(WStringView text)
{
    return "\xFF\xFE" + encodeText(text, Encoding::Unicode).value();
}

TEST(XMLParser, TellsOfADocumentThatItMayNotOpen)
{
    const TemporaryProject project;
    RecordingHost person;
    project.write("closed.xml", "<a/>");
    std::filesystem::permissions("closed.xml", std::filesystem::perms::none);
    std::filesystem::permissions(".", std::filesystem::perms(0755));
    EXPECT_TRUE(test::holdsForOrdinaryUser([&] {
        XMLParser parser;
        return !parser.load(u"closed.xml") && !parser.load(u"missing.xml") &&
               person.messages == std::vector<WString>{u"Couldn't open closed.xml"};
    }));
}

TEST(XMLParser, LoadsEveryEncodingAndSavesItBack)
{
    const WString utf16 = u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n<a>あい</a>";
    const struct
    {
        std::string_view name;
        std::string bytes;
        XmlEncoding encoding;
        std::string saved; ///< empty: the same
    } kCases[] = {
        {"utf-16", toUtf16(utf16), XmlEncoding::Utf16, ""},
        {"utf-16be", "\xFE\xFF" + encodeText(utf16, Encoding::Utf16Be).value(), XmlEncoding::Utf16,
         toUtf16(utf16)},
        {"utf-16 and a zero unit", toUtf16(utf16 + WString(1, u'\0') + u"<"), XmlEncoding::Utf16,
         toUtf16(utf16)},
        {"utf-16 and half a unit", toUtf16(utf16) + "\r", XmlEncoding::Utf16, toUtf16(utf16)},
        {"utf-8 with mark", "\xEF\xBB\xBF" + declare("UTF-8", "<a>" + kAiueoUtf8 + "</a>"),
         XmlEncoding::Utf8, ""},
        {"utf-8 that looks like Shift_JIS", declare("utf-8", "<a>plain</a>"), XmlEncoding::Utf8,
         "\xEF\xBB\xBF" + declare("utf-8", "<a>plain</a>")},
        {"Shift_JIS", declare("Shift_JIS", "<a>" + kAiueoSjis + "</a>"), XmlEncoding::ShiftJis, ""},
        {"EUC-JP", declare("EUC-JP", "<a>" + kAiueoEuc + "</a>"), XmlEncoding::EucJp, ""},
        {"no declaration", "<a>" + kAiueoSjis + "</a>", XmlEncoding::None, toUtf16(utf16)},
    };
    const TemporaryProject project;
    RecordingHost person;
    for (const auto& c : kCases) {
        project.write("in.xml", c.bytes);
        XMLParser parser, fromMemory;
        ASSERT_TRUE(parser.load(u"in.xml")) << c.name;
        ASSERT_TRUE(fromMemory.loadBytes(asBytes(c.bytes), u"in.xml")) << c.name;
        EXPECT_EQ(fromMemory.compose(), parser.compose()) << c.name;
        EXPECT_EQ(parser.getEncoding(), c.encoding) << c.name;
        EXPECT_TRUE(parser.saveAs(u"OUT.xml"));
        EXPECT_EQ(project.read("OUT.xml"), c.saved.empty() ? c.bytes : c.saved) << c.name;
    }
    EXPECT_TRUE(person.messages.empty() && person.questions.empty());
}

TEST(XMLParser, TellsWhatIsWrongOnceAndKeepsTheOldTree)
{
    const TemporaryProject project;
    RecordingHost person;
    XMLParser parser;
    ASSERT_TRUE(parser.parse(u"<old><x/></old>"));
    EXPECT_FALSE(parser.load(u"missing.xml"));
    project.write("empty.xml", "");
    project.write("mark.xml", "\xFF\xFE");
    EXPECT_FALSE(parser.load(u"empty.xml"));
    EXPECT_FALSE(parser.load(u"mark.xml"));
    EXPECT_TRUE(person.messages.empty());

    project.write("noroot.xml", "only text");
    EXPECT_FALSE(parser.load(u"noroot.xml"));
    ASSERT_EQ(person.messages.size(), 1u);
    EXPECT_EQ(person.messages[0], u"Couldn't retrieve the root element.");
    EXPECT_FALSE(parser.parse(u"only text"));
    EXPECT_EQ(person.messages.size(), 1u);

    const WString dashes(41, u'-');
    const WString report = u"Exception at Data/bad.xml: Row:2. Col:7.\r\n" + dashes +
                           u"\r\n <b></c>\r\n1234567  <--- Please fix here.\r\n" + dashes +
                           u"\r\nタグの対応が間違っています。終了タグが必要です:\r\nc -> b";
    const std::string bad = "<a>\n <b></c>\r\n1234567890</a>";
    EXPECT_FALSE(parser.loadBytes(asBytes(bad), u"Data/bad.xml"));
    EXPECT_EQ(person.messages.back(), report);
    EXPECT_TRUE(person.questions.empty());

    project.write("Data/bad.xml", bad);
    person.answers = {Answer::No, Answer::Yes};
    EXPECT_FALSE(parser.load(u"Data/bad.xml"));
    EXPECT_TRUE(person.opened.empty());
    EXPECT_FALSE(parser.load(u"Data/bad.xml"));
    ASSERT_EQ(person.questions.size(), 2u);
    EXPECT_EQ(person.questions[1].text,
              report + u"\r\n" + dashes + u"\r\nDo you want to open the xml file?");
    EXPECT_EQ(person.opened, std::vector<WString>{u"Data/bad.xml"});
    EXPECT_EQ(person.messages.size(), 2u);

    EXPECT_EQ(parser.getRootElement()->getTagName(), u"old");
    EXPECT_EQ(parser.elementsByTag(u"x").size(), 1u);
    EXPECT_EQ(parser.getFileName(), u"Data/bad.xml");
}

TEST(XMLParser, ComparesTheDeclarationWithTheBytes)
{
    const TemporaryProject project;
    RecordingHost person;
    XMLParser parser;
    // A mark wins over the declaration, so there is no way to repair this.
    project.writeUtf16("marked.xml", u"<?xml version='1.0' a='b' encoding='utf8'?><a/>");
    EXPECT_FALSE(parser.load(u"marked.xml"));
    ASSERT_EQ(person.questions.size(), 1u);
    const WString expected = u"<?xml version=\"1.0\" encoding=\"utf8\" a=\"b\"\r\n" +
                             WString(50, u'-') +
                             u"\r\nSomething is wrong with the xml encoding.\r\n"
                             u"Please edit the encoding in the xml file.\r\n\r\n"
                             u"utf8 (xml)   !=   Unicode (detected)";
    EXPECT_NE(person.questions[0].text.find(u"-\r\n" + expected + u"\r\n-"), WString::npos)
        << toUtf8(person.questions[0].text);

    // The first report is the one that is shown, also when the second reading fails elsewhere.
    project.write("both.xml", declare("UTF-8", "<a></b>"));
    EXPECT_FALSE(parser.load(u"both.xml"));
    EXPECT_NE(person.questions[1].text.find(u"Row:1. Col:37."), WString::npos);
    EXPECT_NE(person.questions[1].text.find(u"Shift_JIS (detected)"), WString::npos);
    EXPECT_EQ(person.questions.size(), 2u);
}

TEST(XMLParser, MakesNewDocuments)
{
    const TemporaryProject project;
    RecordingHost person;
    XMLParser parser;
    EXPECT_FALSE(parser.saveAs(u"new.xml"));
    ASSERT_EQ(person.messages.size(), 1u);
    EXPECT_TRUE(person.messages[0].ends_with(u"couldn't save xml file.\nIt may be a kind of bag."));

    ASSERT_TRUE(parser.parse(u"<?xml version='1.0' encoding='Shift_JIS'?><old/>"));
    parser.makeRoot(u"new")->addElement(u"row")->setInt(u"id", 1);
    const WString text =
        u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n<new>\r\n\t<row id=\"1\"></row>\r\n</new>";
    EXPECT_EQ(parser.compose(), text);
    EXPECT_EQ(parser.composeBytes(), toUtf16(text));
    EXPECT_TRUE(parser.elementsByTag(u"old").empty());
    EXPECT_FALSE(parser.saveAs(u"no such folder/new.xml"));
}

} // namespace varn
