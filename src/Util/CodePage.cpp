#include "Util/CodePage.h"

#include "Util/CodePageTables.h"
#include "Util/Exception.h"
#include "Util/SliceConversion.h"

#include <algorithm>
#include <bit>
#include <iconv.h>

namespace varn {

namespace {

/// The system's converter from one code page to UTF-16, used only to fill tables: it stops at what
/// it does not know instead of replacing it, and a table is several times as fast.
class SystemConverter
{
  public:
    explicit SystemConverter(const char* name)
        : handle(iconv_open(std::endian::native == std::endian::little ? "UTF-16LE" : "UTF-16BE",
                            name))
    {
        if (handle == reinterpret_cast<iconv_t>(-1))
            throw Exception(u"The system has no converter for the encoding " + fromUtf8(name));
    }
    ~SystemConverter() { iconv_close(handle); }
    SystemConverter(const SystemConverter&) = delete;
    SystemConverter& operator=(const SystemConverter&) = delete;

    /// The units that characters of `width` bytes each name, in their order; 0 for those that name
    /// none.
    std::vector<char16_t> convert(std::string_view characters, std::size_t width)
    {
        std::vector<char16_t> units(characters.size() / width);
        char* in =
            const_cast<char*>(characters.data()); // iconv's parameter is historical, it only reads
        std::size_t inLeft = characters.size();
        while (inLeft > 0) {
            const std::size_t first = (characters.size() - inLeft) / width;
            char* out = reinterpret_cast<char*>(units.data() + first);
            std::size_t outLeft = (units.size() - first) * sizeof(char16_t);
            iconv(handle, nullptr, nullptr, nullptr, nullptr);
            if (iconv(handle, &in, &inLeft, &out, &outLeft) != static_cast<std::size_t>(-1))
                break;
            // It stopped before a character that it does not know.
            const std::size_t known = (characters.size() - inLeft) / width;
            units[known] = 0;
            in = const_cast<char*>(characters.data()) + (known + 1) * width;
            inLeft = characters.size() - (known + 1) * width;
        }
        return units;
    }

  private:
    iconv_t handle;
};

/// Enters every pair of the system's converter with a lead byte in a range.
void enterPairs(DoubleByteTable& table, SystemConverter& system, unsigned first, unsigned last)
{
    for (unsigned lead = first; lead <= last; ++lead) {
        std::string row;
        for (unsigned trail = table.firstTrail; trail < 0xFF; ++trail)
            row.append({static_cast<char>(lead), static_cast<char>(trail)});
        unsigned trail = table.firstTrail;
        for (const char16_t unit : system.convert(row, 2)) {
            if (unit != 0)
                table.enter(lead, trail, unit);
            ++trail;
        }
    }
}

void enterAscii(DoubleByteTable& table)
{
    for (unsigned char byte = 0; byte < 0x80; ++byte)
        table.enterSingle(byte, byte);
}

DoubleByteTable makeShiftJisTable()
{
    DoubleByteTable table;
    SystemConverter system("CP932");
    table.substitute = u'・';
    enterAscii(table);
    for (unsigned byte = 0xA1; byte <= 0xDF; ++byte)
        table.enterSingle(static_cast<unsigned char>(byte),
                          static_cast<char16_t>(0xFF61 + byte - 0xA1));
    table.markLeads(0x81, 0x9F);
    table.markLeads(0xE0, 0xFC);
    // The first pair that is entered for a unit encodes it. Where the vendors' rows repeat a
    // character, the standard's row comes first, then NEC's row 13, then IBM's rows; NEC's copies
    // of those last.
    enterPairs(table, system, 0x81, 0x9F);
    enterPairs(table, system, 0xE0, 0xEC);
    enterPairs(table, system, 0xEF, 0xFC);
    enterPairs(table, system, 0xED, 0xEE);
    // Units that other tables use for characters which this one has under another unit.
    struct Alias
    {
        char16_t unit;
        std::uint16_t code;
    };
    for (const auto& [unit, code] :
         {Alias{0x00A2, 0x8191}, Alias{0x00A3, 0x8192}, Alias{0x00AC, 0x81CA},
          Alias{0x2014, 0x815C}, Alias{0x2016, 0x8161}, Alias{0x2212, 0x817C},
          Alias{0x301C, 0x8160}})
        table.codes[unit] = code;
    for (const char16_t unit : {u'\u00A5', u'\u203E'})
        table.codes[unit] = static_cast<unsigned char>(romanByte(unit));
    // Bytes without a meaning in the standard, the system's converter refuses them. They pass
    // through, so that a file which holds one is written back as it was.
    table.enterSingle(0x80, 0x0080);
    table.enterSingle(0xA0, 0x00A0);
    table.enterSingle(0xFD, 0xF8F1);
    table.enterSingle(0xFE, 0xF8F2);
    table.enterSingle(0xFF, 0xF8F3);
    return table;
}

/// The user's area of code page 950: the private use area in order, through four blocks of pairs.
void enterBig5UserArea(DoubleByteTable& table)
{
    struct Block
    {
        unsigned first, last;
    };
    char16_t unit = 0xE000;
    for (const auto& [first, last] : {Block{0xFA, 0xFE}, Block{0x8E, 0xA0}, Block{0x81, 0x8D}}) {
        for (unsigned lead = first; lead <= last; ++lead) {
            for (unsigned trail = 0x40; trail <= 0xFE; ++trail) {
                if (trail <= 0x7E || trail >= 0xA1)
                    table.enter(lead, trail, unit++);
            }
        }
    }
    // The fourth block, C6A1 to C8FE, continues at U+F6B1 and comes from the system's converter.
}

DoubleByteTable makeBig5Table()
{
    DoubleByteTable table;
    SystemConverter system("CP950");
    enterAscii(table);
    table.enterSingle(0x80, 0x0080);
    table.enterSingle(0xFF, 0xF8F8);
    table.markLeads(0x81, 0xFE);
    // Two ideographs stand twice; A451 and A4CA encode them.
    table.codes[u'十'] = 0xA451;
    table.codes[u'卅'] = 0xA4CA;
    enterPairs(table, system, 0xA1, 0xF9);
    enterBig5UserArea(table);
    return table;
}

const DoubleByteTable& big5Table()
{
    static const DoubleByteTable table = makeBig5Table();
    return table;
}

JisTables makeJisTables()
{
    JisTables tables;
    const DoubleByteTable& table932 = shiftJisTable();
    SystemConverter system("EUC-JP");
    for (unsigned row = 0x21; row <= 0x7E; ++row) {
        std::string characters212;
        for (unsigned cell = 0x21; cell <= 0x7E; ++cell)
            characters212.append(
                {'\x8F', static_cast<char>(row | 0x80), static_cast<char>(cell | 0x80)});
        auto jis = static_cast<std::uint16_t>(row << 8 | 0x21);
        for (const char16_t unit212 : system.convert(characters212, 3)) {
            const std::uint16_t pair = shiftJisFromJis(jis);
            const char16_t unit208 = table932.pair(pair >> 8, pair & 0xFF);
            if (unit208 != 0 && tables.codes208[unit208] == 0)
                tables.codes208[unit208] = jis;
            tables.units212[jis] = unit212;
            if (unit212 != 0)
                tables.codes212[unit212] = jis;
            ++jis;
        }
    }
    for (unsigned unit = 0; unit < 0x10000; ++unit) { // the aliases, U+301C and its like
        const std::uint16_t pair = table932.codes[unit];
        if (pair > 0xFF && pair < 0xF000 && tables.codes208[unit] == 0)
            tables.codes208[unit] = jisFromShiftJis(pair);
    }
    return tables;
}

WString decodeWith(const DoubleByteTable& table, std::string_view bytes)
{
    return convertBySlices<char16_t, 1>(bytes.size(), [&](std::size_t& at, std::size_t sliceEnd,
                                                          char16_t* out) {
        while (at < sliceEnd) {
            const std::size_t run = copyAscii(bytes.data() + at, sliceEnd - at, out);
            out += run;
            at += run;
            while (at < sliceEnd && static_cast<unsigned char>(bytes[at]) >= 0x80) {
                const auto byte = static_cast<unsigned char>(bytes[at++]);
                char16_t unit = table.single[byte];
                if (unit == DoubleByteTable::kLead) {
                    const bool paired =
                        at < bytes.size() && table.isTrail(static_cast<unsigned char>(bytes[at]));
                    unit =
                        paired ? table.pair(byte, static_cast<unsigned char>(bytes[at++])) : u'\0';
                }
                *out++ = unit != 0 ? unit : table.substitute;
            }
        }
        return out;
    });
}

/// Encodes with a function that writes one unit that is no ASCII and gives the end of what it
/// wrote, or null where the code page lacks it.
template <std::size_t most, typename Put>
std::string encodeWith(WStringView text, Put put)
{
    return convertBySlices<char, most>(text.size(), [&](std::size_t& at, std::size_t sliceEnd,
                                                        char* out) {
        while (at < sliceEnd) {
            const std::size_t run = copyAscii(text.data() + at, sliceEnd - at, out);
            out += run;
            at += run;
            while (at < sliceEnd && text[at] >= 0x80) {
                const char16_t unit = text[at++];
                if (char* end = put(unit, out)) {
                    out = end;
                    continue;
                }
                *out++ = '?';
                const bool highSurrogate = unit >= 0xD800 && unit < 0xDC00;
                if (highSurrogate && at < text.size() && text[at] >= 0xDC00 && text[at] < 0xE000)
                    ++at; // one character of two units, one mark
            }
        }
        return out;
    });
}

char* put8(char* out, unsigned byte)
{
    *out = static_cast<char>(byte);
    return out + 1;
}

char* put16(char* out, unsigned pair)
{
    return put8(put8(out, pair >> 8), pair);
}

std::string encodeDoubleByte(const DoubleByteTable& table, WStringView text)
{
    return encodeWith<2>(text, [&](char16_t unit, char* out) -> char* {
        const unsigned code = table.codes[unit];
        if (code == 0)
            return nullptr;
        return code > 0xFF ? put16(out, code) : put8(out, code);
    });
}

std::string encodeEucJp(WStringView text)
{
    return encodeWith<3>(text, [&jis = jisTables()](char16_t unit, char* out) -> char* {
        if (const unsigned code = jis.codes208[unit])
            return put16(out, code | 0x8080);
        if (unit >= 0xFF61 && unit <= 0xFF9F)
            return put16(out, 0x8EA1u + (unit - 0xFF61));
        if (const unsigned code = jis.codes212[unit])
            return put16(put8(out, 0x8F), code | 0x8080);
        const char roman = romanByte(unit);
        return roman != 0 ? put8(out, static_cast<unsigned char>(roman)) : nullptr;
    });
}

bool isEucByte(char byte)
{
    const auto b = static_cast<unsigned char>(byte);
    return b >= 0xA1 && b <= 0xFE;
}

/// Rewrites the pairs of A1 to FE as Shift_JIS. The sequences of half-width katakana and JIS X
/// 0212, behind 8E and 8F, have no pair there and are passed over whole.
std::string shiftJisFromEuc(std::string_view bytes)
{
    std::string result(bytes);
    for (std::size_t at = 0; at + 1 < result.size();) {
        if (static_cast<unsigned char>(result[at]) < 0x80) {
            at += asciiRun(result.data() + at, result.size() - at);
        } else if (result[at] == '\x8E' || result[at] == '\x8F') {
            at += result[at] == '\x8E' ? 2 : 3;
        } else if (isEucByte(result[at]) && isEucByte(result[at + 1])) {
            const std::uint16_t pair = shiftJisFromJis(
                static_cast<std::uint16_t>((result[at] & 0x7F) << 8 | (result[at + 1] & 0x7F)));
            result[at++] = static_cast<char>(pair >> 8);
            result[at++] = static_cast<char>(pair);
        } else {
            ++at;
        }
    }
    return result;
}

} // namespace

void DoubleByteTable::markLeads(unsigned first, unsigned last)
{
    std::fill(single + first, single + last + 1, kLead);
}

void DoubleByteTable::enter(unsigned lead, unsigned trail, char16_t unit)
{
    pairs[(lead - 0x80) * 256 + trail] = unit;
    if (codes[unit] == 0)
        codes[unit] = static_cast<std::uint16_t>(lead << 8 | trail);
}

void DoubleByteTable::enterSingle(unsigned char byte, char16_t unit)
{
    single[byte] = unit;
    codes[unit] = byte;
}

const DoubleByteTable& shiftJisTable()
{
    static const DoubleByteTable table = makeShiftJisTable();
    return table;
}

const JisTables& jisTables()
{
    static const JisTables tables = makeJisTables();
    return tables;
}

std::uint16_t shiftJisFromJis(std::uint16_t jis)
{
    const unsigned row = jis >> 8, cell = jis & 0xFF;
    const unsigned lead = (row + 1) / 2 + (row < 0x5F ? 0x70 : 0xB0);
    const unsigned trail = row % 2 == 0 ? cell + 0x7E : cell + (cell < 0x60 ? 0x1F : 0x20);
    return static_cast<std::uint16_t>(lead << 8 | trail);
}

std::uint16_t jisFromShiftJis(std::uint16_t pair)
{
    const unsigned lead = pair >> 8, trail = pair & 0xFF;
    const unsigned evenRow = (lead - (lead < 0xA0 ? 0x70 : 0xB0)) * 2;
    if (trail >= 0x9F)
        return static_cast<std::uint16_t>(evenRow << 8 | (trail - 0x7E));
    return static_cast<std::uint16_t>((evenRow - 1) << 8 | (trail - (trail < 0x7F ? 0x1F : 0x20)));
}

WString decode(ByteSpan bytes, CodePage codePage)
{
    const std::string_view chars = asChars(bytes);
    const bool plain = asciiRun(chars.data(), chars.size()) == chars.size();
    if (plain && codePage != CodePage::Iso2022Jp)
        return WString(chars.begin(), chars.end());
    switch (codePage) {
    case CodePage::ShiftJis:
        return decodeWith(shiftJisTable(), chars);
    case CodePage::Big5:
        return decodeWith(big5Table(), chars);
    case CodePage::EucJp:
        return decodeWith(shiftJisTable(), shiftJisFromEuc(chars));
    case CodePage::Iso2022Jp:
        return decodeIso2022Jp(chars);
    }
    return {};
}

std::string encode(WStringView text, CodePage codePage)
{
    if (asciiRun(text.data(), text.size()) == text.size())
        return std::string(text.begin(), text.end());
    switch (codePage) {
    case CodePage::ShiftJis:
        return encodeDoubleByte(shiftJisTable(), text);
    case CodePage::Big5:
        return encodeDoubleByte(big5Table(), text);
    case CodePage::EucJp:
        return encodeEucJp(text);
    case CodePage::Iso2022Jp:
        return encodeIso2022Jp(text);
    }
    return {};
}

} // namespace varn
