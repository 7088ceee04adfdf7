#pragma once

#include "Util/Bytes.h"
#include "Util/Text.h"

#include <string>

namespace varn {

/// The code pages of text that is no Unicode, by their usual numbers.
///
/// What has no counterpart is replaced, never refused. Decoding replaces a byte that starts
/// nothing, or a pair that names nothing, by U+30FB (by `?` in Big5, as is usual for each); a lead
/// byte whose next byte cannot be a trail is replaced alone, so a broken character never swallows a
/// line end or a quote. Encoding writes one `?` for a character that the code page lacks.
///
/// A table is built when its code page is first used; text of ASCII alone never needs one.
enum class CodePage : int
{
    /// The process code page. With the NEC and IBM rows and the user area. The bytes 80, A0 and FD
    /// to
    /// FF, which the standard leaves open, are U+0080, U+00A0 and U+F8F1 to U+F8F3, and back.
    ShiftJis = 932,
    Big5 = 950,
    /// Encoding knows JIS X 0201, 0208 and 0212. Decoding rewrites pairs of A1 to FE as Shift_JIS
    /// and
    /// reads the whole as that; sequences behind 8E and 8F stay as they are.
    EucJp = 20932,
    /// Seven bits with escape sequences. Half-width katakana become full-width ones on encoding, a
    /// sound mark joined to its letter.
    Iso2022Jp = 50220,
};

/// @throws Exception  the system lacks the converter that a table is built with
WString decode(ByteSpan bytes, CodePage codePage);
/// @throws Exception  as above
std::string encode(WStringView text, CodePage codePage);

/// True for the first byte of a pair of code page 932.
constexpr bool isLeadByte932(unsigned char byte)
{
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

} // namespace varn
