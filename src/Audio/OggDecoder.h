#pragma once

#include "Audio/PCMDecoder.h"

#include <memory>

namespace varn {

/// Where a song goes round, in frames, as its comments tell; 0 where they do not.
struct LoopPoints
{
    std::uint32_t start = 0;
    std::uint32_t length = 0;
};

/// Takes over what a comment of the form "LOOPSTART=44100" or "LOOPLENGTH=88200" says.
void readLoopComment(std::string_view comment, LoopPoints& points);

/// Ogg Vorbis files (".ogg"), decoded on the way; the position is in frames.
class OggDecoder final : public PCMDecoder
{
  public:
    OggDecoder();
    ~OggDecoder() override;

    bool openBytes(std::string bytes) override;
    void close() override;
    bool isOpen() const override { return stream != nullptr; }
    std::uint32_t tell() const override;
    void seek(std::uint32_t position) override;
    std::size_t read(std::span<std::byte> buffer) override;

  protected:
    std::uint32_t unitsPerSecond() const override { return samplesPerSecond; }

  private:
    struct Stream;
    std::unique_ptr<Stream> stream;
};

} // namespace varn
