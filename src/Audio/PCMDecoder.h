#pragma once

#include "Util/Bytes.h"

#include <cstdint>
#include <memory>
#include <span>

namespace varn {

/// A sound file as a stream of PCM: 8 bits unsigned, or 16 bits signed and little-endian; channels
/// interleaved.
///
/// Positions and `size` are in the decoder's own unit: bytes where the samples lie in memory,
/// frames (a sample of every channel) where they are decoded on the way. `loopStart` and
/// `loopLength` are in that unit too; a length of 0 is to the end.
class PCMDecoder
{
  public:
    std::uint32_t channels = 0;
    std::uint32_t samplesPerSecond = 0;
    std::uint32_t bitsPerSample = 0;
    std::uint32_t loopStart = 0;
    std::uint32_t loopLength = 0;
    std::uint32_t size = 0;

    virtual ~PCMDecoder() = default;

    /// How much `fill` asks `read` for at once, in bytes.
    virtual std::uint32_t getChunkSize() const { return 4096; }
    /// Takes a file's bytes. False: it is no sound of this kind, and nothing is open.
    virtual bool openBytes(std::string bytes) = 0;
    /// Opens a file; false also where it cannot be read.
    bool open(WStringView path);
    virtual void close() = 0;
    virtual bool isOpen() const = 0;

    virtual std::uint32_t tell() const = 0;
    virtual void seek(std::uint32_t position) = 0;
    /// Reads on; gives the bytes put into `buffer`, 0 at the end.
    virtual std::size_t read(std::span<std::byte> buffer) = 0;

    std::uint32_t getPositionMilliseconds() const { return toMilliseconds(tell()); }
    std::uint32_t getDurationMilliseconds() const { return toMilliseconds(size); }
    /// Of a position.
    std::uint32_t toMilliseconds(std::uint32_t position) const;
    /// To the frame that begins there or before.
    void seekMilliseconds(std::uint32_t value);

    struct Filled
    {
        bool ok = false;   ///< false: nothing is open
        bool ended = true; ///< the stream was at its end before the first byte
        std::size_t bytes = 0;
    };
    /// Fills a buffer, going back to `loopStart` where the loop or the stream ends. The loop's end
    /// is looked for behind each read, so up to a chunk less a byte of what lies behind it is
    /// heard. A stream that stands at its end before the first read has ended, with a loop too.
    Filled fill(std::span<std::byte> buffer, bool loop);

    /// Bytes of a sample of every channel.
    std::uint32_t blockAlign() const { return channels * bitsPerSample / 8; }
    std::uint32_t bytesPerSecond() const { return samplesPerSecond * blockAlign(); }
    /// Bytes of half a second in whole frames, what players and rendering fill at once; 1 or more,
    /// and bounded where a file lies.
    std::uint32_t halfSecond() const;

  protected:
    /// Units of position in a second.
    virtual std::uint32_t unitsPerSecond() const = 0;
};

/// The decoder for a file, by its extension: "wav", "mp3", any other as "ogg".
std::unique_ptr<PCMDecoder> makeDecoder(WStringView path);

} // namespace varn
