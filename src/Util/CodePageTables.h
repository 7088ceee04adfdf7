#pragma once

#include "Util/Text.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace varn {

/// A code page whose characters take one byte or two. Only CodePage.cpp and Iso2022Jp.cpp look
/// inside.
struct DoubleByteTable
{
    static constexpr char16_t kLead = 0xFFFF; ///< in `single`: the byte begins a pair

    char16_t single[256] = {};
    /// By (lead - 0x80) * 256 + trail; 0 where the pair names nothing.
    std::vector<char16_t> pairs = std::vector<char16_t>(0x8000);
    /// By UTF-16 unit: the byte or the pair that encodes it; 0 where nothing does (and for unit 0).
    std::vector<std::uint16_t> codes = std::vector<std::uint16_t>(0x10000);
    unsigned char firstTrail = 0x40;
    char16_t substitute = u'?'; ///< what replaces malformed bytes

    bool isTrail(unsigned char byte) const
    {
        return byte >= firstTrail && byte != 0x7F && byte != 0xFF;
    }
    char16_t pair(unsigned lead, unsigned trail) const
    {
        return pairs[(lead - 0x80) * 256 + trail];
    }
    /// Makes bytes begin a pair, also where none of their pairs names anything.
    void markLeads(unsigned first, unsigned last);
    /// Makes the pair stand for the unit; the unit keeps the code it has.
    void enter(unsigned lead, unsigned trail, char16_t unit);
    void enterSingle(unsigned char byte, char16_t unit);
};

const DoubleByteTable& shiftJisTable();

/// The two Japanese sets of 94 rows by 94 cells that EUC-JP and ISO-2022-JP share. A code is row
/// and cell as two bytes of 21 to 7E. JIS X 0208 carries the NEC rows (13, and 89 to 92 for the IBM
/// characters), as code page 932 does.
struct JisTables
{
    std::vector<std::uint16_t> codes208 = std::vector<std::uint16_t>(0x10000); ///< by unit; 0: none
    std::vector<std::uint16_t> codes212 = std::vector<std::uint16_t>(0x10000);
    std::vector<char16_t> units212 = std::vector<char16_t>(0x8000); ///< by code; 0: none
};

const JisTables& jisTables();

/// The ASCII byte at which JIS X 0201 has the yen sign and the overline, the only two that all
/// three Japanese encodings write as a byte; 0 for any other unit.
inline char romanByte(char16_t unit)
{
    return unit == 0x00A5 ? '\\' : unit == 0x203E ? '~' : '\0';
}

/// The pair of code page 932 at a JIS X 0208 code, high byte first, and back.
std::uint16_t shiftJisFromJis(std::uint16_t jis);
std::uint16_t jisFromShiftJis(std::uint16_t pair);

WString decodeIso2022Jp(std::string_view bytes);
std::string encodeIso2022Jp(WStringView text);

} // namespace varn
