#include "Audio/PlayedTimes.h"

#include <algorithm>

namespace varn {

void PlayedTimes::restart(std::uint32_t milliseconds)
{
    const std::lock_guard lock(timesLock);
    start = milliseconds;
    written = 0;
    buffers.clear();
}

void PlayedTimes::add(std::uint64_t frames, std::uint32_t samplesPerSecond, std::uint32_t from,
                      std::uint32_t to, std::uint32_t loopStart)
{
    const std::lock_guard lock(timesLock);
    buffers.push_back({written, written + frames, samplesPerSecond, from, to, loopStart});
    written += frames;
}

std::uint32_t PlayedTimes::at(std::uint64_t heard)
{
    const std::lock_guard lock(timesLock);
    while (buffers.size() > 1 && buffers.front().end <= heard)
        buffers.pop_front();
    if (buffers.empty())
        return start;
    const Buffer& buffer = buffers.front();
    const auto milliseconds = [&](std::uint64_t frames) {
        return static_cast<std::int64_t>(frames * 1000 / buffer.samplesPerSecond);
    };
    const std::uint64_t frame = std::clamp(heard, buffer.begin, buffer.end);
    const std::int64_t fromFront = buffer.from + milliseconds(frame - buffer.begin);
    const std::int64_t fromBack = buffer.to - milliseconds(buffer.end - frame);
    // A buffer whose time runs straight gives the same both ways, but for what is rounded.
    const bool isBehindSeam = fromBack + 5 < fromFront && fromBack >= buffer.loopStart;
    return static_cast<std::uint32_t>(isBehindSeam ? fromBack : fromFront);
}

} // namespace varn
