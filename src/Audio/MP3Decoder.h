#pragma once

#include "Audio/MemoryDecoder.h"

namespace varn {

/// MPEG layer III files (".mp3"), decoded whole when they are opened.
class MP3Decoder final : public MemoryDecoder
{
  public:
    bool openBytes(std::string bytes) override;
};

} // namespace varn
