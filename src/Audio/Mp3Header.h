#pragma once

#include "Util/Bytes.h"

#include <cstdint>
#include <optional>

namespace varn {

/// The head of an MPEG audio layer III frame (ISO/IEC 11172-3 and 13818-3).
struct Mp3Frame
{
    int version = 1;           ///< 1 or 2
    std::uint32_t bitRate = 0; ///< in 1000 bits a second
    std::uint32_t samplesPerSecond = 0;
    std::uint32_t channels = 0;
    std::uint32_t size = 0; ///< bytes to the next frame
};

/// What an ".mp3" tells of itself before anything is decoded.
struct Mp3Info
{
    Mp3Frame first;
    std::size_t offset = 0; ///< of the first frame, behind a leading ID3 tag
    std::size_t size = 0;   ///< bytes from there, without a trailing tag
    std::uint32_t frames = 0;

    std::uint32_t milliseconds() const;
};

/// Reads the 4 bytes of a frame's head. Nothing: they are none of layer III.
std::optional<Mp3Frame> readMp3Frame(ByteSpan bytes);

/// Finds the tags around the frames and counts these: by the Xing block of the first one, else by
/// walking them. Nothing: no frame stands at the beginning.
std::optional<Mp3Info> readMp3Info(ByteSpan bytes);

} // namespace varn
