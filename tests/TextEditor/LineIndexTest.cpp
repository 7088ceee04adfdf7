#include "TextEditor/LineIndex.h"

#include <gtest/gtest.h>
#include <random>

namespace varn {
namespace {

std::vector<std::uint32_t> offsetsOf(const LineIndex& index)
{
    std::vector<std::uint32_t> offsets;
    for (const WrapInfo& record : index.getRecords())
        offsets.push_back(record.textOffset);
    return offsets;
}

TEST(LineIndex, FindsLinesAndEndings)
{
    const WString longLine(1000, u'x');
    const struct
    {
        WString text;
        std::vector<std::uint32_t> offsets;
        std::uint32_t mask, dominant;
        WStringView status;
    } cases[] = {
        {u"", {0, 0}, 0, kCrLf, u"CRLF"},
        {u"a", {0, 1}, 0, kCrLf, u"CRLF"},
        {u"a\r", {0, 2, 2}, kCr, kCr, u"CR"},
        {u"a\n", {0, 2, 2}, kLf, kLf, u"LF"},
        {u"a\r\n", {0, 3, 3}, kCrLf, kCrLf, u"CRLF"},
        {u"\n\r", {0, 1, 2, 2}, kCr | kLf, kCrLf, u"CR_LF"},
        {u"a\rb\nc\r\nd", {0, 2, 4, 7, 8}, 7, kCrLf, u"CR_LF_CRLF"},
        {u"\n\n\r", {0, 1, 2, 3, 3}, 3, kLf, u"CR_LF"},
        {u"\r\r\n\n\r\n", {0, 1, 3, 4, 6, 6}, 7, kCrLf, u"CR_LF_CRLF"},
        {u"\r\n\n\n", {0, 2, 3, 4, 4}, 6, kLf, u"LF_CRLF"},
        {longLine + u"\r\n\t" + longLine, {0, 1002, 2003}, kCrLf, kCrLf, u"CRLF"},
    };
    for (const auto& c : cases) {
        LineIndex index;
        index.rebuild(c.text);
        EXPECT_EQ(offsetsOf(index), c.offsets) << toUtf8(c.text);
        EXPECT_EQ(index.getLineEndingMask(), c.mask) << toUtf8(c.text);
        EXPECT_EQ(index.getLineEnding(), c.dominant) << toUtf8(c.text);
        EXPECT_EQ(index.getLineEndingText(), c.status) << toUtf8(c.text);
    }
}

TEST(LineIndex, FollowsEditsWhereEndingsMeet)
{
    const struct
    {
        const char* name;
        WString before;
        std::size_t offset, removed;
        WString inserted;
    } cases[] = {
        {"an LF behind a CR", u"a\rb", 2, 0, u"\n"},
        {"a CR before an LF", u"a\nb", 1, 0, u"\r"},
        {"CR and LF parted", u"a\r\nb", 2, 0, u"x"},
        {"CR and LF joined", u"a\rxx\nb", 2, 2, u""},
        {"the LF of a CRLF gone", u"a\r\nb", 2, 1, u""},
        {"the CR of a CRLF gone", u"a\r\nb", 1, 1, u""},
        {"all gone", u"a\r\nb\n", 0, 5, u""},
        {"at the very end", u"a\r", 2, 0, u"\n"},
        {"lines for lines", u"a\nb\nc\nd", 2, 4, u"\r\n\r\n"},
    };
    for (const auto& c : cases) {
        LineIndex index, fresh;
        index.rebuild(c.before);
        WString after = c.before;
        after.replace(c.offset, c.removed, c.inserted);
        index.adjust(after, c.offset, c.removed, c.inserted.size());
        fresh.rebuild(after);
        EXPECT_EQ(offsetsOf(index), offsetsOf(fresh)) << c.name;
    }
}

TEST(LineIndex, EqualsARebuildAfterRandomEdits)
{
    std::mt19937 random(1);
    const WStringView alphabet = u"\r\nab";
    LineIndex index;
    WString text;
    for (int i = 0; i < 20000; ++i) {
        const std::size_t offset = random() % (text.size() + 1);
        const std::size_t removed = std::min<std::size_t>(random() % 6, text.size() - offset);
        WString inserted;
        for (unsigned count = random() % 6; count-- > 0;)
            inserted += alphabet[random() % alphabet.size()];
        text.replace(offset, removed, inserted);
        index.adjust(text, offset, removed, inserted.size());
        LineIndex fresh;
        fresh.rebuild(text);
        ASSERT_EQ(offsetsOf(index), offsetsOf(fresh)) << "edit " << i;
    }
}

TEST(LineIndex, KeepsWhatAViewLaidOut)
{
    LineIndex index;
    index.rebuild(u"a\nb\nc");
    for (std::size_t line = 0; line < 3; ++line)
        index.getRecord(line).rowCount = static_cast<std::uint32_t>(10 + line);
    index.adjust(u"a\nx\nyb\nc", 2, 0, 3); // "x\ny" before "b"
    std::vector<std::uint32_t> rows;
    for (const WrapInfo& record : index.getRecords())
        rows.push_back(record.rowCount);
    EXPECT_EQ(rows, (std::vector<std::uint32_t>{10, 0, 0, 12, 0}));
}

TEST(LineIndex, FindsByOffsetAndByRow)
{
    LineIndex index;
    index.rebuild(u"ab\nc\n"); // lines at 0, 3 and 5, the last one empty
    const std::size_t lineAt[] = {0, 0, 0, 1, 1, 2, 2};
    for (std::uint32_t offset = 0; offset < std::size(lineAt); ++offset)
        EXPECT_EQ(index.findLine(offset), lineAt[offset]) << offset;
    const std::uint32_t firstRows[] = {0, 2, 3, 5};
    for (std::size_t line = 0; line < 4; ++line)
        index.getRecord(line).firstViewRow = firstRows[line];
    const std::size_t lineOfRow[] = {0, 0, 1, 2, 2, 3, 3};
    for (std::uint32_t row = 0; row < std::size(lineOfRow); ++row)
        EXPECT_EQ(index.findLine(row, true), lineOfRow[row]) << row;
}

} // namespace
} // namespace varn
