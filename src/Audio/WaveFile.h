#pragma once

#include "Util/Bytes.h"

namespace varn {

/// The head of a RIFF wave file of plain PCM: 44 bytes, to be followed by `size` bytes of samples.
std::string waveHead(std::uint32_t channels, std::uint32_t samplesPerSecond,
                     std::uint32_t bitsPerSample, std::uint32_t size);

} // namespace varn
