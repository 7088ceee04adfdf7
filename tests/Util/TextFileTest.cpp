#include "Util/TextFile.h"

#include "Support/TemporaryProject.h"
#include "Util/CodePage.h"

#include <gtest/gtest.h>
#include <random>

namespace varn {
namespace {

using namespace std::string_view_literals;

TEST(DetectEncoding, CountsWhatFits)
{
    const struct
    {
        std::string_view name, bytes;
        DetectionScores scores;
        Encoding encoding;
    } cases[] = {
        {"ASCII", "plain"sv, {5, 5, 5, 5}, Encoding::ShiftJis},
        {"UTF-8", "\xE6\x97\xA5\xE6\x9C\xAC\xE8\xAA\x9E"sv, {8, 9, 0, 4}, Encoding::Utf8},
        {"UTF-8 in a tie", "\xE3\x81\x82\xE3\x81\x82"sv, {6, 6, 0, 0}, Encoding::ShiftJis},
        {"UTF-8 cut by the end", "\xE6\x97\xA5\xE6\x97"sv, {5, 3, 0, 2}, Encoding::ShiftJis},
        {"loose UTF-8", "\xF7\xBF\xFF\xFF\xE0\x80\xFF"sv, {4, 7, 0, 2}, Encoding::Utf8},
        {"Shift_JIS", "\x93\xFA\x96{\x8C\xEA"sv, {6, 1, 0, 1}, Encoding::ShiftJis},
        {"EUC", "\xC6\xFC\xCB\xDC\xB8\xEC"sv, {5, 2, 6, 6}, Encoding::EucJp},
        {"EUC of three bytes", "\x8F\xB0\xFE\xFE\xA1"sv, {3, 0, 5, 2}, Encoding::EucJp},
        {"EUC with FF", "\x8E\xFF\xFF"sv, {0, 0, 2, 0}, Encoding::ShiftJis},
        {"EUC cut by the end", "\xA4\xA4\x8F\xA4"sv, {4, 0, 0, 2}, Encoding::ShiftJis},
        {"BIG5",
         "\xA4\xFD"
         "a\xF9~"sv,
         {4, 2, 0, 5},
         Encoding::Big5},
        {"BIG5 in a tie",
         "\xF9"
         "A\xA4\xA4"sv,
         {4, 1, 0, 4},
         Encoding::ShiftJis},
        {"fits nothing", "\xA4\xFD\xFE\xFD\xB4~"sv, {3, 1, 0, 4}, Encoding::ShiftJis},
        {"a lead byte last", "ab\xC6"sv, {3, 2, 2, 2}, Encoding::ShiftJis},
        {"FF last", "ab\xFF"sv, {2, 2, 2, 2}, Encoding::ShiftJis},
        {"a zero in the middle", "a\0b"sv, {-1, 3, 3, -1}, Encoding::Binary},
        {"a zero at the end", "ab\0"sv, {3, 3, 3, -1}, Encoding::ShiftJis},
        {"a zero behind EUC", "\xC6\xFC\xFD\xFE\0"sv, {2, 1, 5, -1}, Encoding::EucJp},
    };
    for (const auto& c : cases) {
        const DetectionScores scores = scoreEncodings(asBytes(c.bytes));
        EXPECT_EQ(scores.shiftJis, c.scores.shiftJis) << c.name;
        EXPECT_EQ(scores.utf8, c.scores.utf8) << c.name;
        EXPECT_EQ(scores.eucJp, c.scores.eucJp) << c.name;
        EXPECT_EQ(scores.big5, c.scores.big5) << c.name;
        EXPECT_EQ(detectEncoding(asBytes(c.bytes)), c.encoding) << c.name;
    }
}

/// The decision as it is told, from the scores.
Encoding decide(const DetectionScores& scores, std::int64_t size)
{
    if (scores.shiftJis < 0)
        return Encoding::Binary;
    Encoding winner = Encoding::ShiftJis;
    std::int64_t best = scores.shiftJis;
    const auto challenge = [&](std::int64_t score, Encoding encoding) {
        if (score > best) {
            best = score;
            winner = encoding;
        }
    };
    challenge(scores.utf8, Encoding::Utf8);
    challenge(scores.eucJp, Encoding::EucJp);
    challenge(scores.big5, Encoding::Big5);
    const bool tie = scores.big5 == scores.shiftJis && scores.shiftJis == size;
    return best < size || tie ? Encoding::ShiftJis : winner;
}

TEST(DetectEncoding, DecidesByTheScores)
{
    std::mt19937 random(1);
    const std::string_view pieces[] = {"a",
                                       "\n",
                                       "long stretch of ASCII letters",
                                       "\xE3\x81\x82",
                                       "\x82\xA0",
                                       "\xA4\xA2",
                                       "\xF9~",
                                       "\xC2\xA9",
                                       "\x8F\xB0\xA1",
                                       "\xF0\x9F\x98\x80",
                                       "\xA4\xFD",
                                       "\x80",
                                       "\xFE"};
    int wins[10] = {};
    for (int i = 0; i < 20000; ++i) {
        std::string bytes(i % 97 == 0 ? 1 : 0, '\0');
        for (unsigned count = random() % 6; count-- > 0;)
            bytes += pieces[random() % std::size(pieces)];
        if (bytes.empty())
            continue;
        const Encoding detected = detectEncoding(asBytes(bytes));
        ASSERT_EQ(detected,
                  decide(scoreEncodings(asBytes(bytes)), static_cast<std::int64_t>(bytes.size())))
            << bytes;
        ++wins[static_cast<int>(detected)];
    }
    for (const Encoding each :
         {Encoding::ShiftJis, Encoding::Utf8, Encoding::EucJp, Encoding::Big5, Encoding::Binary})
        EXPECT_GT(wins[static_cast<int>(each)], 0) << toUtf8(encodingName(each));
}

TEST(DecodeBytes, LetsMarksWinOverForcingOverDetection)
{
    const struct
    {
        std::string_view name, bytes;
        Encoding forced;
        WStringView text;
        Encoding encoding;
    } cases[] = {
        {"mark",
         "\xFF\xFE"
         "a\0B0"sv,
         Encoding::Undefine, u"aあ", Encoding::Unicode},
        {"mark over forced", "\xFE\xFF\0a0B"sv, Encoding::Utf8, u"aあ", Encoding::Utf16Be},
        {"UTF-8 mark", "\xEF\xBB\xBF\xE3\x81\x82"sv, Encoding::ShiftJis, u"あ", Encoding::Utf8Bom},
        {"forced over detection", "\xE3\x81\x82"sv, Encoding::Utf8, u"あ", Encoding::Utf8},
        {"forced wide without a mark", "a\0B0"sv, Encoding::Unicode, u"aあ", Encoding::Unicode},
        {"first zero unit ends",
         "\xFF\xFE"
         "a\0\0\0b\0"sv,
         Encoding::Undefine, u"a", Encoding::Unicode},
        {"odd last byte",
         "\xFF\xFE"
         "a\0b"sv,
         Encoding::Undefine, u"ab", Encoding::Unicode},
        {"odd last byte, swapped", "\xFE\xFF\0a0"sv, Encoding::Undefine, u"a\u3000",
         Encoding::Utf16Be},
        {"a mark alone", "\xFF\xFE"sv, Encoding::Undefine, u"", Encoding::Unicode},
        {"half a mark", "\xFF"sv, Encoding::Undefine, u"\uF8F3", Encoding::ShiftJis},
        {"nothing", ""sv, Encoding::Undefine, u"", Encoding::Unicode},
        {"nothing, forced", ""sv, Encoding::EucJp, u"", Encoding::EucJp},
        {"binary keeps its zeros", "a\0b"sv, Encoding::Undefine, u"a\0b"sv, Encoding::Binary},
    };
    for (const auto& c : cases) {
        const DecodedText decoded = decodeBytes(asBytes(c.bytes), c.forced);
        EXPECT_EQ(decoded.text, c.text) << c.name << ": " << toUtf8(decoded.text);
        EXPECT_EQ(decoded.encoding, c.encoding) << c.name;
    }
}

/// Texts longer than the blocks in which conversion goes.
TEST(DecodeBytes, ConvertsLongTexts)
{
    WString text;
    for (int i = 0; i < 10000; ++i)
        text += i % 100 == 0 ? u'中' : static_cast<char16_t>(u'a' + i % 26);
    for (int number = 1; number <= 9; ++number) {
        const auto encoding = *encodingFromNumber(number);
        if (encoding == Encoding::Binary)
            continue;
        for (const std::size_t length : {2047u, 2048u, 2049u, 10000u}) {
            const WStringView part = WStringView(text).substr(0, length);
            EXPECT_EQ(decodeBytes(asBytes(*encodeText(part, encoding)), encoding).text, part)
                << number;
        }
    }
}

TEST(WriteTextFile, PutsTheMarkBeforeTheText)
{
    const struct
    {
        int encoding;
        std::string_view name, bytes, empty;
        WStringView text = u"あ";
    } cases[] = {
        {-1, "Undefine",
         "\xFF\xFE"
         "B0"sv,
         "\xFF\xFE"sv},
        {0, "ANSI", "\x82\xA0"sv, ""sv},
        {1, "Unicode",
         "\xFF\xFE"
         "B0"sv,
         "\xFF\xFE"sv},
        {2, "UTF-16BE",
         "\xFE\xFF"
         "0B"sv,
         "\xFE\xFF"sv},
        {3, "UTF-8", "\xE3\x81\x82"sv, ""sv},
        {4, "UTF-8(BOM)", "\xEF\xBB\xBF\xE3\x81\x82"sv, "\xEF\xBB\xBF"sv},
        {5, "Shift_JIS", "\x82\xA0"sv, ""sv},
        {6, "BIG5", "\xA4\xA4"sv, ""sv, u"中"},
        {7, "EUC_JP", "\xA4\xA2"sv, ""sv},
        {9, "ISO-2022-JP", "\x1B$B$\"\x1B(B"sv, ""sv},
    };
    test::TemporaryProject project;
    for (const auto& c : cases) {
        const auto encoding = encodingFromNumber(c.encoding);
        ASSERT_TRUE(encoding);
        EXPECT_EQ(toUtf8(encodingName(*encoding)), c.name);
        EXPECT_TRUE(writeTextFile("a.txt", c.text, *encoding));
        EXPECT_EQ(project.read("a.txt"), c.bytes) << c.name;
        EXPECT_TRUE(writeTextFile("a.txt", u"", *encoding));
        EXPECT_EQ(project.read("a.txt"), c.empty) << c.name;
    }
    EXPECT_FALSE(encodingFromNumber(10));
    EXPECT_FALSE(encodingFromNumber(-2));
    project.write("a.txt", "kept");
    EXPECT_FALSE(writeTextFile("a.txt", u"x", Encoding::Binary));
    EXPECT_EQ(project.read("a.txt"), "kept");
    EXPECT_FALSE(readTextFile("missing.txt"));
}

} // namespace
} // namespace varn
