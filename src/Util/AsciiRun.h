#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace varn {

/// How many bytes at the front are below 128. Sixteen at a time: text of this system is ASCII for
/// long stretches, and every scan and conversion skips those with this.
inline std::size_t asciiRun(const char* bytes, std::size_t count)
{
    std::size_t i = 0;
    for (; i + 16 <= count; i += 16) {
        std::uint64_t words[2];
        std::memcpy(words, bytes + i, 16);
        if ((words[0] | words[1]) & 0x8080808080808080u)
            break;
    }
    while (i < count && static_cast<unsigned char>(bytes[i]) < 0x80)
        ++i;
    return i;
}

/// The same for UTF-16 units.
inline std::size_t asciiRun(const char16_t* units, std::size_t count)
{
    std::size_t i = 0;
    for (; i + 8 <= count; i += 8) {
        std::uint64_t words[2];
        std::memcpy(words, units + i, 16);
        if ((words[0] | words[1]) & 0xFF80FF80FF80FF80u)
            break;
    }
    while (i < count && units[i] < 0x80)
        ++i;
    return i;
}

} // namespace varn
