#include "Util/TextFile.h"

#include "Util/AsciiRun.h"
#include "Util/CodePage.h"
#include "Util/File.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <iterator>

namespace varn {

namespace {

struct EncodingRow
{
    WStringView name;
    std::string_view mark;
};

/// By number, from -1.
constexpr EncodingRow kEncodings[] = {
    {u"Undefine", "\xFF\xFE"}, {u"ANSI", ""},        {u"Unicode", "\xFF\xFE"},
    {u"UTF-16BE", "\xFE\xFF"}, {u"UTF-8", ""},       {u"UTF-8(BOM)", "\xEF\xBB\xBF"},
    {u"Shift_JIS", ""},        {u"BIG5", ""},        {u"EUC_JP", ""},
    {u"Binary", ""},           {u"ISO-2022-JP", ""},
};
constexpr int kFirstEncoding = -1;
constexpr int kLastEncoding = static_cast<int>(std::size(kEncodings)) + kFirstEncoding - 1;

const EncodingRow* findRow(Encoding encoding)
{
    const int number = static_cast<int>(encoding);
    if (number < kFirstEncoding || number > kLastEncoding)
        return nullptr;
    return &kEncodings[number - kFirstEncoding];
}

bool within(unsigned char byte, unsigned low, unsigned high)
{
    return byte >= low && byte <= high;
}

// The rules by which a candidate takes the byte at the front, which is 128 or more: how many bytes
// fit it, 0 for none. They are looser than the encodings on purpose: files in the field depend on
// them.
constexpr int kEndsWithZeroScore = -1;
using Bytes = std::span<const unsigned char>;

int fitShiftJis(Bytes rest)
{
    if (within(rest[0], 161, 223))
        return 1;
    const bool lead = within(rest[0], 129, 159) || within(rest[0], 224, 252);
    if (!lead || rest.size() < 2)
        return 0;
    return within(rest[1], 64, 126) || within(rest[1], 128, 252) ? 2 : 0;
}

int fitUtf8(Bytes rest)
{
    if (rest.size() < 2 || !within(rest[1], 128, 191))
        return 0;
    if (within(rest[0], 192, 223))
        return 2;
    if (within(rest[0], 224, 239) && rest.size() >= 3)
        return rest[2] >= 128 ? 3 : 0;
    if (within(rest[0], 240, 247) && rest.size() >= 4)
        return rest[2] >= 128 && rest[3] >= 128 ? 4 : 0;
    return 0;
}

int fitEucJp(Bytes rest)
{
    if (rest.size() < 2)
        return 0;
    if ((within(rest[0], 161, 254) || rest[0] == 142) && rest[1] >= 161)
        return 2;
    const bool threeBytes = rest[0] == 143 && rest.size() >= 3;
    if (threeBytes && within(rest[1], 161, 254) && within(rest[2], 161, 254))
        return 3;
    return kEndsWithZeroScore;
}

int fitBig5(Bytes rest)
{
    const bool lead = within(rest[0], 161, 198) || within(rest[0], 201, 249);
    if (!lead || rest.size() < 2)
        return 0;
    return within(rest[1], 64, 126) || within(rest[1], 161, 254) ? 2 : 0;
}

enum class AtMisfit
{
    GoOn,
    Stop
};

/// The bytes that fit, all ASCII among them; with Stop, those before the first that does not.
template <int (*fit)(Bytes)>
std::int64_t score(Bytes bytes, std::size_t asciiFront, AtMisfit atMisfit)
{
    std::size_t at = asciiFront, misfits = 0;
    while (at < bytes.size()) {
        if (bytes[at] < 128) {
            at += asciiRun(reinterpret_cast<const char*>(bytes.data() + at), bytes.size() - at);
            continue;
        }
        const int count = fit(bytes.subspan(at));
        if (count == kEndsWithZeroScore)
            return 0;
        if (count == 0) {
            if (atMisfit == AtMisfit::Stop)
                break;
            ++misfits;
        }
        at += static_cast<std::size_t>(std::max(count, 1));
    }
    return static_cast<std::int64_t>(at - misfits);
}

Bytes asUnsigned(ByteSpan bytes)
{
    return {reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()};
}

bool hasZero(Bytes bytes)
{
    return !bytes.empty() && std::memchr(bytes.data(), 0, bytes.size()) != nullptr;
}

bool hasZeroBeforeLast(Bytes bytes)
{
    return !bytes.empty() && hasZero(bytes.first(bytes.size() - 1));
}

/// Units to or from bytes of the given order.
void copyUnits(void* to, const void* from, std::size_t count, std::endian order)
{
    std::memcpy(to, from, count * 2);
    if (order == std::endian::native)
        return;
    auto* bytes = static_cast<char*>(to);
    for (std::size_t i = 0; i < count; ++i)
        std::swap(bytes[2 * i], bytes[2 * i + 1]);
}

/// True when one of the units is zero; `count` is a multiple of 4. Per unit: the subtraction
/// borrows into the highest bit of a unit that had it clear only below a zero.
bool hasZeroUnit(const char16_t* units, std::size_t count)
{
    std::uint64_t found = 0;
    for (std::size_t i = 0; i < count; i += 4) {
        std::uint64_t four = 0;
        std::memcpy(&four, units + i, sizeof four);
        found |= (four - 0x0001000100010001u) & ~four;
    }
    return (found & 0x8000800080008000u) != 0;
}

/// Text up to the first zero unit; a byte that is left over at the end is the first half of a unit.
/// Goes by blocks that stay in the nearest cache, so the whole costs one pass over memory.
WString decodeUtf16(ByteSpan bytes, std::endian order)
{
    constexpr std::size_t kBlock = 512;
    char16_t block[kBlock];
    WString text;
    text.reserve((bytes.size() + 1) / 2);
    while (bytes.size() >= sizeof block) {
        copyUnits(block, bytes.data(), kBlock, order);
        if (hasZeroUnit(block, kBlock))
            return text.append(block, std::find(block, block + kBlock, u'\0'));
        text.append(block, kBlock);
        bytes = bytes.subspan(sizeof block);
    }
    copyUnits(block, bytes.data(), bytes.size() / 2, order);
    std::size_t count = bytes.size() / 2;
    if (bytes.size() % 2 != 0) {
        const std::byte last[2] = {bytes.back(), std::byte{0}};
        copyUnits(block + count++, last, 1, order);
    }
    return text.append(block, std::find(block, block + count, u'\0'));
}

std::string encodeUtf16(WStringView text, std::endian order)
{
    std::string bytes(text.size() * 2, '\0');
    copyUnits(bytes.data(), text.data(), text.size(), order);
    return bytes;
}

struct Mark
{
    Encoding encoding;
    std::size_t size;
};

Mark findMark(std::string_view bytes)
{
    for (const Encoding encoding : {Encoding::Unicode, Encoding::Utf16Be, Encoding::Utf8Bom}) {
        if (bytes.starts_with(byteOrderMark(encoding)))
            return {encoding, byteOrderMark(encoding).size()};
    }
    return {Encoding::Undefine, 0};
}

WString decodeAs(ByteSpan bytes, Encoding encoding)
{
    switch (encoding) {
    case Encoding::Undefine:
    case Encoding::Unicode:
        return decodeUtf16(bytes, std::endian::little);
    case Encoding::Utf16Be:
        return decodeUtf16(bytes, std::endian::big);
    case Encoding::Utf8:
    case Encoding::Utf8Bom:
        return fromUtf8(asChars(bytes));
    case Encoding::Big5:
        return decode(bytes, CodePage::Big5);
    case Encoding::EucJp:
        return decode(bytes, CodePage::EucJp);
    case Encoding::Iso2022Jp:
        return decode(bytes, CodePage::Iso2022Jp);
    case Encoding::Ansi:
    case Encoding::ShiftJis:
    case Encoding::Binary:
        break;
    }
    return decode(bytes, CodePage::ShiftJis);
}

} // namespace

WStringView encodingName(Encoding encoding)
{
    const EncodingRow* row = findRow(encoding);
    return row != nullptr ? row->name : WStringView();
}

std::optional<Encoding> encodingFromNumber(int number)
{
    const auto encoding = static_cast<Encoding>(number);
    return findRow(encoding) != nullptr ? std::optional(encoding) : std::nullopt;
}

std::string_view byteOrderMark(Encoding encoding)
{
    const EncodingRow* row = findRow(encoding);
    return row != nullptr ? row->mark : std::string_view();
}

DetectionScores scoreEncodings(ByteSpan bytes)
{
    const Bytes all = asUnsigned(bytes);
    const std::size_t front = asciiRun(asChars(bytes).data(), bytes.size());
    DetectionScores scores = {
        .shiftJis = score<fitShiftJis>(all, front, AtMisfit::GoOn),
        .utf8 = score<fitUtf8>(all, front, AtMisfit::GoOn),
        .eucJp = score<fitEucJp>(all, front, AtMisfit::GoOn),
        .big5 = score<fitBig5>(all, front, AtMisfit::GoOn),
    };
    if (hasZeroBeforeLast(all))
        scores.shiftJis = -1;
    if (hasZero(all))
        scores.big5 = -1;
    return scores;
}

/// The rule is: the highest score wins, a tie goes to the first of Shift_JIS, UTF-8, EUC-JP and
/// BIG5, and a winner that does not fit every byte loses to Shift_JIS. So the first candidate that
/// fits every byte wins, and a scan may stop at its first misfit.
Encoding detectEncoding(ByteSpan bytes)
{
    const Bytes all = asUnsigned(bytes);
    if (hasZeroBeforeLast(all))
        return Encoding::Binary;
    const std::size_t front = asciiRun(asChars(bytes).data(), bytes.size());
    const auto size = static_cast<std::int64_t>(bytes.size());
    if (score<fitShiftJis>(all, front, AtMisfit::Stop) == size)
        return Encoding::ShiftJis;
    if (score<fitUtf8>(all, front, AtMisfit::Stop) == size)
        return Encoding::Utf8;
    if (score<fitEucJp>(all, front, AtMisfit::Stop) == size)
        return Encoding::EucJp;
    if (score<fitBig5>(all, front, AtMisfit::Stop) == size && !hasZero(all))
        return Encoding::Big5;
    return Encoding::ShiftJis;
}

DecodedText decodeBytes(ByteSpan bytes, Encoding forced)
{
    if (bytes.empty())
        return {{}, forced != Encoding::Undefine ? forced : Encoding::Unicode};
    const Mark mark = findMark(asChars(bytes));
    Encoding encoding = mark.size != 0 ? mark.encoding : forced;
    if (encoding == Encoding::Undefine)
        encoding = detectEncoding(bytes);
    return {decodeAs(bytes.subspan(mark.size), encoding), encoding};
}

std::optional<std::string> encodeText(WStringView text, Encoding encoding)
{
    switch (encoding) {
    case Encoding::Undefine:
    case Encoding::Unicode:
        return encodeUtf16(text, std::endian::little);
    case Encoding::Utf16Be:
        return encodeUtf16(text, std::endian::big);
    case Encoding::Utf8:
    case Encoding::Utf8Bom:
        return toUtf8(text);
    case Encoding::Ansi:
    case Encoding::ShiftJis:
        return encode(text, CodePage::ShiftJis);
    case Encoding::Big5:
        return encode(text, CodePage::Big5);
    case Encoding::EucJp:
        return encode(text, CodePage::EucJp);
    case Encoding::Iso2022Jp:
        return encode(text, CodePage::Iso2022Jp);
    case Encoding::Binary:
        break;
    }
    return std::nullopt;
}

std::optional<DecodedText> readTextFile(const std::filesystem::path& path, Encoding forced)
{
    const auto bytes = readFile(path);
    if (!bytes)
        return std::nullopt;
    return decodeBytes(asBytes(*bytes), forced);
}

bool writeTextFile(const std::filesystem::path& path, WStringView text, Encoding encoding)
{
    const auto body = text.empty() ? std::string() : encodeText(text, encoding);
    if (!body)
        return false;
    FileReplacement file(path);
    return file.write(asBytes(byteOrderMark(encoding))) && file.write(asBytes(*body)) &&
           file.commit();
}

} // namespace varn
