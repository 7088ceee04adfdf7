#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varn {

/// Text in memory: UTF-16 units in the machine's order. Lone surrogates are legal contents.
using WString = std::u16string;
using WStringView = std::u16string_view;

/// Narrow text (bytes in the process code page, 932) to wide text and back. What has no counterpart
/// becomes U+30FB on the way in and `?` on the way out; neither direction fails.
WString widen(std::string_view narrow);
std::string narrow(WStringView wide);

/// UTF-8 to wide text and back, for the operating system, the driver and the archive. A malformed
/// sequence becomes U+FFFD, a lone surrogate its replacement EF BF BD.
WString fromUtf8(std::string_view utf8);
std::string toUtf8(WStringView wide);

/// `text` cut to at most `limit - 1` bytes, never through a double-byte character of the process
/// code page; what a fixed field of `limit` bytes can hold beside its terminator. `limit` is 1 or
/// more.
std::string cutToField(std::string_view text, std::size_t limit);

/// Decimal text of a number, without leading zeros or plus sign.
WString toDecimal(std::int64_t value);

/// The runtime's decimal conversion: leading white space, a sign, digits; stops at the first other
/// unit. No digits give 0; a value outside 32 bits is clamped to the nearest end.
std::int32_t parseDecimal(WStringView text);

/// Pieces between separators; an empty text gives one empty piece.
std::vector<WStringView> split(WStringView text, char16_t separator);

WString replaceAll(WStringView text, WStringView from, WStringView to);

/// Equality with the letters A to Z folded, the rest to the unit.
bool equalsIgnoringAsciiCase(WStringView a, WStringView b);

/// Equality under simple case folding of all scripts; no one-to-many folding, so "ß" is not "ss".
bool equalsIgnoringCase(WStringView a, WStringView b);
/// The simple case folding of one code point; itself where it has none.
char32_t foldCase(char32_t code);
/// The small letter and the capital of a unit of the basic plane, where that is one unit too; else
/// the unit itself ("ß" has no capital).
char16_t toSmallLetter(char16_t unit);
char16_t toCapitalLetter(char16_t unit);

/// True for a letter of any script (categories L*), of the basic plane; surrogates are none.
bool isLetter(char16_t unit);

} // namespace varn
