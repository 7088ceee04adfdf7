#include "Util/Text.h"

#include "Util/CodePage.h"
#include "Util/SliceConversion.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <span>

namespace varn {

namespace {

struct LetterRange
{
    char16_t first, last;
};

/// Code points first, first + stride, ... last are mapped by adding `distance`.
struct CaseRun
{
    char32_t first, last;
    std::uint8_t stride;
    std::int32_t distance;
};

#include "Util/UnicodeTables.inc"

char32_t mapByRuns(std::span<const CaseRun> runs, char32_t code)
{
    const auto run =
        std::lower_bound(runs.begin(), runs.end(), code,
                         [](const CaseRun& run, char32_t code) { return run.last < code; });
    if (run == runs.end() || code < run->first || (code - run->first) % run->stride != 0)
        return code;
    return static_cast<char32_t>(static_cast<std::int32_t>(code) + run->distance);
}

constexpr char32_t kReplacement = 0xFFFD;

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// What a lead byte promises: the sequence's length and the range of its second byte, which keeps
/// out over-long forms, surrogates and code points past the last (Unicode Standard, table 3-7).
struct LeadByte
{
    int length;
    unsigned char low, high;
};

LeadByte describeLead(unsigned char lead)
{
    if (lead < 0xC2 || lead > 0xF4)
        return {0, 0, 0};
    if (lead < 0xE0)
        return {2, 0x80, 0xBF};
    switch (lead) {
    case 0xE0:
        return {3, 0xA0, 0xBF};
    case 0xED:
        return {3, 0x80, 0x9F};
    case 0xF0:
        return {4, 0x90, 0xBF};
    case 0xF4:
        return {4, 0x80, 0x8F};
    default:
        return {lead < 0xF0 ? 3 : 4, 0x80, 0xBF};
    }
}

/// Reads the sequence at the front, which is no ASCII. A malformed one gives U+FFFD for the longest
/// part that could still have become something; `used` is that part's length, at least 1.
char32_t readSequence(std::string_view utf8, std::size_t& used)
{
    const auto lead = static_cast<unsigned char>(utf8[0]);
    const bool usual = lead > 0xE0 && lead < 0xF0 && lead != 0xED; // kana, kanji and most others
    if (usual && utf8.size() >= 3 && isContinuation(utf8[1]) && isContinuation(utf8[2])) {
        used = 3;
        return static_cast<char32_t>((lead & 0xF) << 12 | (utf8[1] & 0x3F) << 6 | (utf8[2] & 0x3F));
    }
    const auto [length, low, high] = describeLead(lead);
    used = 1;
    if (length == 0 || utf8.size() < 2)
        return kReplacement;
    const auto second = static_cast<unsigned char>(utf8[1]);
    if (second < low || second > high)
        return kReplacement;
    char32_t code = lead & (0x7F >> length);
    for (; used < static_cast<std::size_t>(length); ++used) {
        if (used == utf8.size() || !isContinuation(utf8[used]))
            return kReplacement;
        code = code << 6 | (utf8[used] & 0x3F);
    }
    return code;
}

bool isHighSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}
bool isLowSurrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

/// The code point at `at`, stepping over it; a lone surrogate comes as itself.
char32_t nextCodePoint(WStringView text, std::size_t& at)
{
    const char32_t unit = text[at++];
    if (!isHighSurrogate(unit) || at == text.size() || !isLowSurrogate(text[at]))
        return unit;
    return 0x10000 + ((unit - 0xD800) << 10) + (text[at++] - 0xDC00);
}

char16_t* putUtf16(char32_t code, char16_t* out)
{
    if (code >= 0x10000) {
        *out++ = static_cast<char16_t>(0xD7C0 + (code >> 10));
        code = 0xDC00 + (code & 0x3FF);
    }
    *out++ = static_cast<char16_t>(code);
    return out;
}

/// Writes a code point of 0x80 or more; a lone surrogate becomes U+FFFD.
char* putUtf8(char32_t code, char* out)
{
    if (isHighSurrogate(code) || isLowSurrogate(code))
        code = kReplacement;
    if (code >= 0x10000) {
        *out++ = static_cast<char>(0xF0 | code >> 18);
        *out++ = static_cast<char>(0x80 | (code >> 12 & 0x3F));
    } else if (code >= 0x800) {
        *out++ = static_cast<char>(0xE0 | code >> 12);
    }
    *out++ = static_cast<char>(code >= 0x800 ? 0x80 | (code >> 6 & 0x3F) : 0xC0 | code >> 6);
    *out++ = static_cast<char>(0x80 | (code & 0x3F));
    return out;
}

char16_t foldAscii(char16_t unit)
{
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
}

bool isBlank(char16_t unit)
{
    return unit == u' ' || (unit >= 9 && unit <= 13);
}

} // namespace

WString widen(std::string_view narrow)
{
    return decode(asBytes(narrow), CodePage::ShiftJis);
}

std::string narrow(WStringView wide)
{
    return encode(wide, CodePage::ShiftJis);
}

WString fromUtf8(std::string_view utf8)
{
    return convertBySlices<char16_t, 1>(
        utf8.size(), [utf8](std::size_t& at, std::size_t sliceEnd, char16_t* out) {
            while (at < sliceEnd) {
                const std::size_t run = copyAscii(utf8.data() + at, sliceEnd - at, out);
                out += run;
                at += run;
                while (at < sliceEnd && static_cast<unsigned char>(utf8[at]) >= 0x80) {
                    std::size_t used = 1;
                    out = putUtf16(readSequence(utf8.substr(at), used), out);
                    at += used;
                }
            }
            return out;
        });
}

std::string toUtf8(WStringView wide)
{
    return convertBySlices<char, 3>(
        wide.size(), [wide](std::size_t& at, std::size_t sliceEnd, char* out) {
            while (at < sliceEnd) {
                const std::size_t run = copyAscii(wide.data() + at, sliceEnd - at, out);
                out += run;
                at += run;
                while (at < sliceEnd && wide[at] >= 0x80)
                    out = putUtf8(nextCodePoint(wide, at), out);
            }
            return out;
        });
}

std::string cutToField(std::string_view text, std::size_t limit)
{
    if (text.size() < limit)
        return std::string(text);
    std::size_t end = 0;
    while (end < limit - 1) {
        const std::size_t width = isLeadByte932(static_cast<unsigned char>(text[end])) ? 2 : 1;
        if (end + width > limit - 1)
            break;
        end += width;
    }
    return std::string(text.substr(0, end));
}

WString toDecimal(std::int64_t value)
{
    char digits[24];
    const char* end = std::to_chars(std::begin(digits), std::end(digits), value).ptr;
    return WString(static_cast<const char*>(digits), end);
}

std::int32_t parseDecimal(WStringView text)
{
    constexpr std::int64_t kLowest = INT32_MIN, kHighest = INT32_MAX;
    std::size_t at = 0;
    while (at < text.size() && isBlank(text[at]))
        ++at;
    const bool negative = at < text.size() && text[at] == u'-';
    if (negative || (at < text.size() && text[at] == u'+'))
        ++at;
    std::int64_t value = 0;
    for (; at < text.size() && text[at] >= u'0' && text[at] <= u'9' && value <= -kLowest; ++at)
        value = value * 10 + (text[at] - u'0');
    return static_cast<std::int32_t>(std::clamp(negative ? -value : value, kLowest, kHighest));
}

std::vector<WStringView> split(WStringView text, char16_t separator)
{
    std::vector<WStringView> pieces;
    std::size_t start = 0;
    for (std::size_t end; (end = text.find(separator, start)) != WStringView::npos; start = end + 1)
        pieces.push_back(text.substr(start, end - start));
    pieces.push_back(text.substr(start));
    return pieces;
}

WString replaceAll(WStringView text, WStringView from, WStringView to)
{
    if (from.empty())
        return WString(text);
    WString result;
    std::size_t start = 0;
    for (std::size_t found; (found = text.find(from, start)) != WStringView::npos;
         start = found + from.size())
        result.append(text.substr(start, found - start)).append(to);
    return result.append(text.substr(start));
}

bool equalsIgnoringAsciiCase(WStringView a, WStringView b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char16_t x, char16_t y) { return foldAscii(x) == foldAscii(y); });
}

bool equalsIgnoringCase(WStringView a, WStringView b)
{
    std::size_t i = 0, j = 0;
    while (i < a.size() && j < b.size()) {
        if (foldCase(nextCodePoint(a, i)) != foldCase(nextCodePoint(b, j)))
            return false;
    }
    return i == a.size() && j == b.size();
}

char32_t foldCase(char32_t code)
{
    if (code < 0x80)
        return foldAscii(static_cast<char16_t>(code));
    return mapByRuns(kFoldRuns, code);
}

char16_t toSmallLetter(char16_t unit)
{
    return unit < 0x80 ? foldAscii(unit) : static_cast<char16_t>(mapByRuns(kSmallRuns, unit));
}

char16_t toCapitalLetter(char16_t unit)
{
    if (unit < 0x80)
        return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 0x20) : unit;
    return static_cast<char16_t>(mapByRuns(kCapitalRuns, unit));
}

bool isLetter(char16_t unit)
{
    if (unit < 0x80)
        return foldAscii(unit) >= u'a' && foldAscii(unit) <= u'z';
    const auto* range =
        std::lower_bound(std::begin(kLetterRanges), std::end(kLetterRanges), unit,
                         [](const LetterRange& r, char16_t u) { return r.last < u; });
    return range != std::end(kLetterRanges) && unit >= range->first;
}

} // namespace varn
