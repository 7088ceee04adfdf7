#include "Audio/SongStream.h"

#include <algorithm>

namespace varn {

namespace {

std::uint64_t framesOf(std::uint64_t milliseconds)
{
    return milliseconds * Synth::kSamplesPerSecond / 1000;
}

} // namespace

std::size_t SongStream::read(std::span<std::int16_t> samples)
{
    soughtPlace.reset();
    std::size_t done = 0;
    while (done < samples.size()) {
        const std::uint64_t left = framesOf(elapsed) - rendered;
        if (left == 0) {
            if (!nextEvent())
                break;
            continue;
        }
        const auto frames = static_cast<std::size_t>(
            std::min<std::uint64_t>(left, (samples.size() - done) / Synth::kChannels));
        synth.render(samples.subspan(done, frames * Synth::kChannels));
        rendered += frames;
        done += frames * Synth::kChannels;
    }
    return done;
}

bool SongStream::nextEvent()
{
    if (isEventDue)
        sequencer.act();
    const auto next = sequencer.nextWait();
    isEventDue = next.has_value();
    wait = next.value_or(0);
    elapsed += wait;
    return isEventDue;
}

void SongStream::seek(std::uint32_t milliseconds)
{
    sequencer.seek(milliseconds);
    soughtPlace = milliseconds;
    isEventDue = false;
    wait = 0;
    elapsed = 0;
    rendered = 0;
}

std::uint32_t SongStream::getPosition() const
{
    if (soughtPlace)
        return *soughtPlace;
    const auto left = static_cast<std::uint32_t>((framesOf(elapsed) - rendered) * 1000 /
                                                 Synth::kSamplesPerSecond);
    return sequencer.getPosition() + wait - std::min(left, wait);
}

} // namespace varn
