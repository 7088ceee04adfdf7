#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace varn::test {

inline std::string bigEndian(std::uint32_t value, int bytes)
{
    std::string text;
    for (int i = bytes - 1; i >= 0; --i)
        text += static_cast<char>(value >> (8 * i));
    return text;
}

inline std::string track(const std::string& events)
{
    return "MTrk" + bigEndian(7, 4) + events +
           std::string("\0\xFF\x2F\0", 4); // the length is not looked at
}

/// A Standard MIDI File.
inline std::string song(int format, const std::vector<std::string>& tracks, int division = 480)
{
    std::string file = "MThd" + bigEndian(6, 4) + bigEndian(static_cast<std::uint32_t>(format), 2) +
                       bigEndian(static_cast<std::uint32_t>(tracks.size()), 2) +
                       bigEndian(static_cast<std::uint32_t>(division), 2);
    for (const std::string& one : tracks)
        file += one;
    return file;
}

} // namespace varn::test
