#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace varn {

/// Whether all of the next 16 bytes, as bytes or as UTF-16 units, are below 128.
inline bool isAsciiBlock(const char* bytes)
{
    std::uint64_t words[2];
    std::memcpy(words, bytes, 16);
    return ((words[0] | words[1]) & 0x8080808080808080u) == 0;
}
inline bool isAsciiBlock(const char16_t* units)
{
    std::uint64_t words[2];
    std::memcpy(words, units, 16);
    return ((words[0] | words[1]) & 0xFF80FF80FF80FF80u) == 0;
}

/// How many bytes or units at the front are below 128. Sixteen bytes at a time: text of this system
/// is ASCII for long stretches, and every scan and conversion skips those with this.
template <typename Char>
std::size_t asciiRun(const Char* text, std::size_t count)
{
    constexpr std::size_t kBlock = 16 / sizeof(Char);
    std::size_t i = 0;
    while (i + kBlock <= count && isAsciiBlock(text + i))
        i += kBlock;
    while (i < count && static_cast<std::make_unsigned_t<Char>>(text[i]) < 0x80)
        ++i;
    return i;
}

} // namespace varn
