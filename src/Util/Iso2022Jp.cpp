#include "Util/AsciiRun.h"
#include "Util/CodePageTables.h"

#include <algorithm>
#include <iterator>

// ISO-2022-JP as code page 50220 has it: RFC 1468 with JIS X 0201's katakana and JIS X 0212 on top,
// and with the NEC rows inside JIS X 0208. Written by hand because the system's converter refuses
// those.

namespace varn {

namespace {

enum class Charset
{
    Ascii,
    Roman,
    Katakana,
    Jis208,
    Jis212
};

struct Escape
{
    std::string_view bytes;
    Charset charset;
};

/// Every spelling that is read; the first of a set is the one written.
constexpr Escape kEscapes[] = {
    {"\x1B(B", Charset::Ascii},    {"\x1B(J", Charset::Roman},   {"\x1B(H", Charset::Roman},
    {"\x1B(I", Charset::Katakana}, {"\x1B$B", Charset::Jis208},  {"\x1B$@", Charset::Jis208},
    {"\x1B$(B", Charset::Jis208},  {"\x1B$(D", Charset::Jis212},
};

constexpr char16_t kSubstitute = u'・';
constexpr char16_t kFirstHalfKana = 0xFF61;
constexpr char16_t kVoiced = 0xFF9E, kSemiVoiced = 0xFF9F;

/// Full-width forms of U+FF61 to U+FF9F.
constexpr WStringView kFullKana =
    u"。「」、・ヲァィゥェォャュョッーアイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホ"
    u"マミムメモヤユヨラリルレロワン゛゜";
static_assert(kFullKana.size() == 63);

const Escape* findEscape(std::string_view bytes)
{
    const auto* found = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                     [&](const Escape& e) { return bytes.starts_with(e.bytes); });
    return found != std::end(kEscapes) ? found : nullptr;
}

std::string_view escapeFor(Charset charset)
{
    return std::find_if(std::begin(kEscapes), std::end(kEscapes),
                        [&](const Escape& e) { return e.charset == charset; })
        ->bytes;
}

bool isCell(unsigned char byte)
{
    return byte >= 0x21 && byte <= 0x7E;
}

char16_t unitOf(Charset charset, std::uint16_t jis)
{
    if (charset == Charset::Jis212)
        return jisTables().units212[jis];
    const std::uint16_t pair = shiftJisFromJis(jis);
    return shiftJisTable().pair(pair >> 8, pair & 0xFF);
}

/// The letter of a half-width pair such as KA and the voiced mark, or 0 where the mark stands
/// alone.
char16_t joinSoundMark(char16_t letter, char16_t mark)
{
    const char16_t full = kFullKana[letter - kFirstHalfKana];
    const bool hRow = WStringView(u"ハヒフヘホ").find(full) != WStringView::npos;
    if (mark == kSemiVoiced)
        return hRow ? static_cast<char16_t>(full + 2) : u'\0';
    if (mark != kVoiced)
        return 0;
    if (full == u'ウ')
        return u'ヴ';
    const bool voiceable =
        hRow || WStringView(u"カキクケコサシスセソタチツテト").find(full) != WStringView::npos;
    return voiceable ? static_cast<char16_t>(full + 1) : u'\0';
}

bool isHalfKana(char16_t unit)
{
    return unit >= kFirstHalfKana && unit <= kSemiVoiced;
}

/// Composes the bytes and remembers which set is designated.
class Encoder
{
  public:
    void put(char16_t unit)
    {
        const JisTables& jis = jisTables();
        if (unit < 0x80)
            putByte(static_cast<char>(unit));
        else if (jis.codes208[unit] != 0)
            putPair(Charset::Jis208, jis.codes208[unit]);
        else if (jis.codes212[unit] != 0)
            putPair(Charset::Jis212, jis.codes212[unit]);
        else
            putByte(romanByte(unit) != 0 ? romanByte(unit) : '?');
    }

    std::string finish()
    {
        designate(Charset::Ascii);
        return std::move(bytes);
    }

  private:
    void putByte(char byte)
    {
        designate(Charset::Ascii);
        bytes.push_back(byte);
    }

    void putPair(Charset charset, std::uint16_t jis)
    {
        designate(charset);
        bytes.push_back(static_cast<char>(jis >> 8));
        bytes.push_back(static_cast<char>(jis));
    }

    void designate(Charset charset)
    {
        if (charset != current)
            bytes += escapeFor(charset);
        current = charset;
    }

    std::string bytes;
    Charset current = Charset::Ascii;
};

} // namespace

WString decodeIso2022Jp(std::string_view bytes)
{
    WString text;
    text.reserve(bytes.size());
    Charset charset = Charset::Ascii;
    for (std::size_t at = 0; at < bytes.size();) {
        if (const Escape* escape = bytes[at] == '\x1B' ? findEscape(bytes.substr(at)) : nullptr) {
            charset = escape->charset;
            at += escape->bytes.size();
            continue;
        }
        const auto byte = static_cast<unsigned char>(bytes[at++]);
        if (byte >= 0xA1 && byte <= 0xDF) { // eight-bit katakana, which some writers left in
            text += static_cast<char16_t>(kFirstHalfKana + byte - 0xA1);
        } else if (byte >= 0x80) {
            text += kSubstitute;
        } else if (!isCell(byte) || charset == Charset::Ascii || charset == Charset::Roman) {
            text +=
                static_cast<char16_t>(byte); // a line end ends no set here: the next line goes on
        } else if (charset == Charset::Katakana) {
            text += byte < 0x60 ? static_cast<char16_t>(kFirstHalfKana + byte - 0x21) : kSubstitute;
        } else if (at < bytes.size() && isCell(static_cast<unsigned char>(bytes[at]))) {
            const char16_t unit = unitOf(
                charset,
                static_cast<std::uint16_t>(byte << 8 | static_cast<unsigned char>(bytes[at++])));
            text += unit != 0 ? unit : kSubstitute;
        } else {
            text += kSubstitute;
        }
    }
    return text;
}

std::string encodeIso2022Jp(WStringView text)
{
    Encoder encoder;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at];
        const char16_t next = at + 1 < text.size() ? text[at + 1] : u'\0';
        if (isHalfKana(unit)) {
            const char16_t joined = joinSoundMark(unit, next);
            encoder.put(joined != 0 ? joined : kFullKana[unit - kFirstHalfKana]);
            at += joined != 0;
        } else {
            encoder.put(unit);
            at += unit >= 0xD800 && unit < 0xDC00 && next >= 0xDC00 && next < 0xE000;
        }
    }
    return encoder.finish();
}

} // namespace varn
