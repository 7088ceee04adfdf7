#include "Util/CodePage.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

constexpr CodePage kAll[] = {CodePage::ShiftJis, CodePage::Big5, CodePage::EucJp,
                             CodePage::Iso2022Jp};

TEST(CodePage, ConvertsBothWays)
{
    const struct
    {
        CodePage page;
        std::string_view bytes;
        WStringView text;
    } cases[] = {
        {CodePage::ShiftJis, "\x93\xFA\x96{\x8C\xEA abc\r\n", u"日本語 abc\r\n"},
        {CodePage::ShiftJis, "\x83\\\x95\\\\~", u"ソ表\\~"},
        {CodePage::ShiftJis, "\x81`\x81\x61\x81|", u"～∥－"},
        {CodePage::ShiftJis, "\xB1\xB6\xDE", u"ｱｶﾞ"},
        {CodePage::ShiftJis, "\x87@\x87T\xFA@\xFB\xFC\xF0@", u"①Ⅰⅰ髙\uE000"},
        {CodePage::ShiftJis, "\x80\xA0\xFD\xFE\xFF", u"\u0080\u00A0\uF8F1\uF8F2\uF8F3"},
        {CodePage::Big5, "\xA4\xA4\xA4\xE5\xA4Q\xA4\xCA", u"中文十卅"},
        {CodePage::Big5, "\xFA@\xFE\xFE\x8E@\xC8\xFE", u"\uE000\uE310\uE311\uF848"},
        {CodePage::EucJp, "\xC6\xFC\xCB\xDC\xA1\xC1\xAD\xA1", u"日本～①"},
        {CodePage::Iso2022Jp, "a\x1B$BF|K\\\x1B(B\r\n\x1B$B8l-!y!\x1B(B", u"a日本\r\n語①纊"},
        {CodePage::Iso2022Jp, "\x1B$(D0!\x1B(B", u"丂"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(toUtf8(decode(asBytes(c.bytes), c.page)), toUtf8(c.text)) << c.bytes;
        EXPECT_EQ(encode(c.text, c.page), c.bytes) << toUtf8(c.text);
    }
}

TEST(CodePage, ReplacesWhatHasNoCounterpart)
{
    const struct
    {
        std::string_view name;
        CodePage page;
        std::string_view bytes;
        WStringView text;
    } decoded[] = {
        {"a cut character leaves the quote", CodePage::ShiftJis, "\x82\"a", u"・\"a"},
        {"a cut character leaves the line end", CodePage::ShiftJis, "\x82\r\n", u"・\r\n"},
        {"cut by the end", CodePage::ShiftJis, "a\x82", u"a・"},
        {"a pair without a character", CodePage::ShiftJis, "\x85@z", u"・z"},
        {"the usual mark of Big5", CodePage::Big5, "\xA4 \xC7", u"? ?"},
        {"EUC is read as Shift_JIS", CodePage::EucJp, "\x8E\xB1\x8F\xB0\xA1", u"竺床｡"},
        {"odd EUC byte", CodePage::EucJp, "\xC6\xFC\xCB", u"日ﾋ"},
        {"half of a JIS pair", CodePage::Iso2022Jp, "\x1B$BF\x1B(Ba", u"・a"},
        {"unknown escape", CodePage::Iso2022Jp, "\x1B$Zab", u"\x1B$Zab"},
        {"eight-bit and escaped katakana", CodePage::Iso2022Jp, "\xB1\x1B(I1", u"ｱｱ"},
    };
    for (const auto& c : decoded)
        EXPECT_EQ(toUtf8(decode(asBytes(c.bytes), c.page)), toUtf8(c.text)) << c.name;

    const struct
    {
        CodePage page;
        WStringView text;
        std::string_view bytes;
    } encoded[] = {
        {CodePage::ShiftJis, u"é€😀z", "???z"},
        {CodePage::ShiftJis, u"〜―—−¢", "\x81`\x81\\\x81\\\x81|\x81\x91"},
        {CodePage::EucJp, u"〜ｱ丂", "\xA1\xC1\x8E\xB1\x8F\xB0\xA1"},
        {CodePage::Iso2022Jp, u"ｶﾞﾊﾟｳﾞｱﾞ｡", "\x1B$B%,%Q%t%\"!+!#\x1B(B"},
        {CodePage::Iso2022Jp, u"日😀", "\x1B$BF|\x1B(B?"},
    };
    for (const auto& c : encoded)
        EXPECT_EQ(encode(c.text, c.page), c.bytes) << toUtf8(c.text);
}

/// Units that the Japanese pages write as the character that they have in the unit's place.
bool isWrittenAsTwin(char16_t unit)
{
    return WStringView(u"¢£¥¬—‖‾−〜").find(unit) != WStringView::npos;
}

bool isHalfKana(char16_t unit)
{
    return unit >= 0xFF61 && unit <= 0xFF9F;
}

TEST(CodePage, KeepsEveryCharacterItHas)
{
    const struct
    {
        CodePage page;
        int count; ///< units but zero that come back; counted with another implementation's tables
    } cases[] = {
        {CodePage::ShiftJis, 9401},
        {CodePage::Big5, 19839},
        {CodePage::EucJp, 7453},
        {CodePage::Iso2022Jp, 13239},
    };
    for (const auto& [page, count] : cases) {
        int kept = 0;
        for (unsigned code = 1; code < 0x10000; ++code) {
            const auto unit = static_cast<char16_t>(code);
            const WStringView text(&unit, 1);
            const std::string bytes = encode(text, page);
            if (decode(asBytes(bytes), page) == text)
                ++kept;
            else
                EXPECT_TRUE(bytes == "?" || isWrittenAsTwin(unit) || isHalfKana(unit) ||
                            bytes.starts_with('\x8F'))
                    << std::hex << code;
        }
        EXPECT_EQ(kept, count) << static_cast<int>(page);
    }
}

} // namespace
} // namespace varn
