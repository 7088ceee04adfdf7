#pragma once

#include "Audio/PCMDecoder.h"

namespace varn {

/// A sound whose samples lie in memory; the position is in bytes.
class MemoryDecoder : public PCMDecoder
{
  public:
    void close() override;
    bool isOpen() const override { return opened; }
    std::uint32_t tell() const override { return position; }
    void seek(std::uint32_t to) override;
    std::size_t read(std::span<std::byte> buffer) override;

  protected:
    /// Keeps the samples; what stands in the public fields is theirs.
    void setSamples(std::string bytes);
    std::uint32_t unitsPerSecond() const override { return bytesPerSecond(); }

  private:
    std::string samples;
    std::uint32_t position = 0;
    bool opened = false;
};

} // namespace varn
