#pragma once

#include "Audio/MemoryDecoder.h"

namespace varn {

/// MPEG layer III files (".mp3"), decoded whole when they are opened.
class MP3Decoder final : public MemoryDecoder
{
  public:
    bool openBytes(std::string bytes) override;
    /// As the frames' heads tell it.
    std::uint32_t getLengthMilliseconds() const { return lengthMilliseconds; }

  private:
    std::uint32_t lengthMilliseconds = 0;
};

} // namespace varn
