#pragma once

#include "Util/Bytes.h"

#include <cstdint>
#include <string_view>

namespace varn::archive {

// The 24-byte head of a game archive and the heads of its entries. docs/formats.md has the tables.
inline constexpr std::string_view kMagic = "GRES";
inline constexpr std::uint32_t kHeaderSize =
    16; ///< the value of the second field: bytes from offset 8
inline constexpr std::size_t kBodyOffset = 24;
inline constexpr std::uint8_t kPlain = 0; ///< scramble kinds
inline constexpr std::uint8_t kScrambled = 1;

inline constexpr std::string_view kFileEntry = "FILE";
inline constexpr std::string_view kTextEntry = "TEXT";
inline constexpr std::size_t kEntryHeadSize = 12;   ///< kind, size, reserved
inline constexpr std::size_t kEntryDetailSize = 20; ///< encoding to name size; counted in the size
inline constexpr std::uint8_t kUtf8 = 3;            ///< the encoding byte
inline constexpr std::size_t kNameSizeLimit = 260;  ///< a name with its terminator stays below this

/// Scrambles bytes of the body, or unscrambles them: each is XORed with the key's byte for its
/// place.
/// @param place  of the first byte, counted from the body's first
void scramble(std::span<std::byte> bytes, std::uint64_t place);

} // namespace varn::archive
