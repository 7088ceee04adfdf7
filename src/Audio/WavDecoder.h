#pragma once

#include "Audio/MemoryDecoder.h"

#include <optional>

namespace varn {

/// Where the samples of a wave file stand and what they are.
struct WaveInfo
{
    std::uint32_t channels = 0;
    std::uint32_t samplesPerSecond = 0;
    std::uint32_t bitsPerSample = 0;
    std::size_t offset = 0; ///< of the first sample
    std::size_t size = 0;   ///< bytes; not beyond the file
};

/// Reads a RIFF wave file's heads. The format chunk stands at byte 12, "data" behind it, or behind
/// the "fact" that follows it. Nothing: less than 64 bytes, not such a file, or not plain PCM.
std::optional<WaveInfo> readWaveInfo(ByteSpan bytes);

/// Wave files (".wav"), plain PCM only.
class WavDecoder final : public MemoryDecoder
{
  public:
    bool openBytes(std::string bytes) override;
};

} // namespace varn
