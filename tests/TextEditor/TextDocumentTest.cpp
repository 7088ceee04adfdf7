#include "TextEditor/TextDocument.h"

#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

TEST(TextDocument, StartsEmptyAndUntitled)
{
    TextDocument document;
    EXPECT_EQ(document.getPath(), u"Untitled.txt");
    EXPECT_EQ(document.getEncoding(), Encoding::Ansi);
    EXPECT_EQ(document.getLines().getRecords().size(), 2u);
    EXPECT_EQ(document.getRangeText({0, 5}), u"");
    EXPECT_EQ(document.getChar(0), u'\0');
}

TEST(TextDocument, LoadsAndSavesInTheEncodingFound)
{
    test::TemporaryProject project;
    project.write("Scripts/Global.txt", "\xEF\xBB\xBFvar \xE3\x81\x82;\n");
    TextDocument document;
    ASSERT_TRUE(document.load(u"scripts\\global.txt"));
    EXPECT_EQ(document.getText(), u"var あ;\n");
    EXPECT_EQ(document.getEncoding(), Encoding::Utf8Bom);
    EXPECT_EQ(document.getPath(), u"scripts\\global.txt");
    EXPECT_EQ(document.getLines().getLineEndingText(), u"LF");

    EXPECT_FALSE(document.load(u"missing.txt"));
    EXPECT_EQ(document.getText(), u"var あ;\n") << "a failed load changes nothing";

    document.setEncoding(Encoding::ShiftJis);
    EXPECT_TRUE(document.save(u"copy.txt"));
    EXPECT_EQ(project.read("copy.txt"), "var \x82\xA0;\n");
    EXPECT_EQ(document.getPath(), u"copy.txt");
    EXPECT_FALSE(document.save(u"missing/copy.txt"));
    EXPECT_EQ(document.getPath(), u"copy.txt");

    project.write("binary", std::string_view("a\0b", 3));
    ASSERT_TRUE(document.load(u"binary"));
    EXPECT_FALSE(document.save(u"binary"));
    EXPECT_EQ(project.read("binary"), std::string_view("a\0b", 3));
    document.clear();
    EXPECT_TRUE(document.save(u"binary"));
    EXPECT_EQ(project.read("binary"), "");
    ASSERT_TRUE(document.load(u"binary", Encoding::EucJp));
    EXPECT_EQ(document.getEncoding(), Encoding::EucJp);
}

TEST(TextDocument, CutsRangesToItself)
{
    const struct
    {
        TextRange range;
        WStringView text, after;
    } cases[] = {
        {{1, 3}, u"XY\n", u"aXY\nd"}, {{-5, 1}, u"X", u"Xbcd"}, {{3, 99}, u"X", u"abcX"},
        {{9, 12}, u"X", u"abcdX"},    {{3, 1}, u"X", u"abcXd"}, {{0, 4}, u"", u""},
    };
    for (const auto& c : cases) {
        TextDocument document, fresh;
        document.setText(u"abcd");
        document.replaceRange(c.range, c.text);
        EXPECT_EQ(document.getText(), c.after);
        fresh.setText(WString(c.after));
        EXPECT_EQ(document.getLines().getLineCount(), fresh.getLines().getLineCount());
        EXPECT_EQ(document.getLines().getRecords().back().textOffset, document.getLength());
    }
}

TEST(TextDocument, GivesLines)
{
    TextDocument document;
    document.setText(u"一行\r\n二\nlast");
    EXPECT_EQ(document.getLineText(0), u"一行\r\n");
    EXPECT_EQ(document.getLineText(2), u"last");
    EXPECT_EQ(document.getLineText(3), u"");
    EXPECT_EQ(document.findLine(4), 1u);
    char buffer[4] = "xxx";
    EXPECT_EQ(document.getLineText(0, buffer), 2u) << "the second character does not fit whole";
    EXPECT_STREQ(buffer, "\x88\xEA");
    EXPECT_EQ(document.getLineText(9, buffer), 0u);
    EXPECT_STREQ(buffer, "");
}

TEST(CanSaveLossless, CountsQuestionMarks)
{
    const struct
    {
        WStringView text;
        int encoding;
        bool passes;
    } cases[] = {
        {u"", 5, true},      {u"é?", 4, true},     {u"é", -1, true},
        {u"日本?", 5, true}, {u"日本é", 5, false}, {u"日本?", 7, true},
        {u"😀", 7, false},    {u"①", 8, true}, // Binary is tested with the process code page
        {u"é", 8, false},    {u"中", 6, true},     {u"あ", 6, false},
        {u"日本", 9, true},  {u"人", 9, false}, // 3F 4D in JIS: a question mark to this test
    };
    for (const auto& c : cases)
        EXPECT_EQ(canSaveLossless(c.text, *encodingFromNumber(c.encoding)), c.passes)
            << toUtf8(c.text) << " in " << c.encoding;
    EXPECT_TRUE(lossWarning(false).ends_with(u"Plese save the file in Unicode format."));
    EXPECT_NE(lossWarning(true), lossWarning(false));
}

} // namespace
} // namespace varn
