#pragma once

#include <cstdint>
#include <deque>
#include <mutex>

namespace varn {

/// Which place of a file is heard: the buffers that were written, each with the file's time at its
/// beginning and at its end. In a buffer in which the loop went round, the time goes from the
/// beginning up to the seam and then towards the end. A player's thread writes, any thread asks.
class PlayedTimes
{
  public:
    /// Nothing is written; until something is, the time is this one.
    void restart(std::uint32_t milliseconds);
    /// @param frames  of the buffer, at `samplesPerSecond`
    /// @param loopStart  milliseconds; nothing behind the seam lies before it
    void add(std::uint64_t frames, std::uint32_t samplesPerSecond, std::uint32_t from,
             std::uint32_t to, std::uint32_t loopStart);
    /// @param heard  frames since the restart
    std::uint32_t at(std::uint64_t heard);

  private:
    struct Buffer
    {
        std::uint64_t begin, end; // frames since the restart
        std::uint32_t samplesPerSecond;
        std::uint32_t from, to, loopStart; // milliseconds
    };

    std::mutex timesLock; // guards all below
    std::uint32_t start = 0;
    std::uint64_t written = 0;
    std::deque<Buffer> buffers; // those that are not heard to their end, and one before
};

} // namespace varn
