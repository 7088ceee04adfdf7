#include "Audio/SilentDevice.h"

#include <algorithm>

namespace varn {

std::uint64_t SilentVoice::position() const
{
    if (paused)
        return before;
    const std::chrono::duration<double> passed = Clock::now() - started;
    return std::min(written, before + static_cast<std::uint64_t>(passed.count() * framesPerSecond));
}

void SilentVoice::queue(std::uint64_t frames)
{
    before = position(); // a clock that ran out of frames starts again here
    started = Clock::now();
    written += frames;
}

bool SilentVoice::write(std::span<const std::int16_t> samples)
{
    queue(samples.size() / 2);
    return true;
}

void SilentVoice::pause()
{
    before = position();
    paused = true;
}

void SilentVoice::resume()
{
    if (!paused)
        return;
    started = Clock::now();
    paused = false;
}

void SilentVoice::reset()
{
    written = 0;
    before = 0;
    started = Clock::now();
}

std::unique_ptr<SoundVoice> SilentDevice::openVoice()
{
    return std::make_unique<SilentVoice>(kSamplesPerSecond * speed);
}

std::chrono::nanoseconds SilentDevice::timeOf(std::uint64_t frames) const
{
    const double seconds = static_cast<double>(frames) / (kSamplesPerSecond * speed);
    return std::chrono::nanoseconds(static_cast<std::int64_t>(seconds * 1e9));
}

} // namespace varn
