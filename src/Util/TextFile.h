#pragma once

#include "Util/Bytes.h"
#include "Util/Text.h"

#include <filesystem>
#include <optional>

namespace varn {

/// The encodings of text files, by the numbers the system uses everywhere.
enum class Encoding : int {
    Undefine = -1,
    Ansi = 0, ///< the process code page
    Unicode = 1, ///< little-endian UTF-16
    Utf16Be = 2,
    Utf8 = 3,
    Utf8Bom = 4,
    ShiftJis = 5,
    Big5 = 6,
    EucJp = 7,
    Binary = 8,
    Iso2022Jp = 9,
};

/// "Undefine", "ANSI", "Unicode", "UTF-16BE", "UTF-8", "UTF-8(BOM)", "Shift_JIS", "BIG5", "EUC_JP",
/// "Binary", "ISO-2022-JP"; nothing for a number outside -1 to 9.
WStringView encodingName(Encoding encoding);
std::optional<Encoding> encodingFromNumber(int number);

/// FF FE, FE FF, EF BB BF, or nothing.
std::string_view byteOrderMark(Encoding encoding);

/// The bytes that fit each candidate of the detection; negative: the bytes hold a zero.
struct DetectionScores
{
    std::int64_t shiftJis, utf8, eucJp, big5;
};
DetectionScores scoreEncodings(ByteSpan bytes);

/// The encoding of bytes without regard to marks: the scores' decision.
Encoding detectEncoding(ByteSpan bytes);

struct DecodedText
{
    WString text;
    Encoding encoding;
};

/// Decodes a whole file. A byte-order mark wins over `forced`, `forced` over detection. Never fails:
/// what is malformed is replaced. UTF-16 ends at its first zero unit.
DecodedText decodeBytes(ByteSpan bytes, Encoding forced = Encoding::Undefine);

/// The bytes of a text in an encoding, without its mark. Characters it lacks become `?`; Binary and
/// numbers outside the table give nothing.
std::optional<std::string> encodeText(WStringView text, Encoding encoding);

/// Reads a text file; nothing when it cannot be read. An empty file gives an empty text in the forced
/// encoding, or Unicode if none is forced.
std::optional<DecodedText> readTextFile(const std::filesystem::path& path, Encoding forced = Encoding::Undefine);

/// Writes mark and text, replacing the file as a whole (File.h). False: not writable, or the encoding
/// is Binary. An empty text writes only the mark.
bool writeTextFile(const std::filesystem::path& path, WStringView text, Encoding encoding);

} // namespace varn
