#include "Audio/WaveOutput.h"

#include "Audio/SilentDevice.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace varn {

namespace {

/// What a file may claim and still be sound.
constexpr std::uint32_t kLowestRate = 1000, kHighestRate = 384000, kMostChannels = 32;

std::int16_t sampleAt(const std::byte* at, std::uint32_t bits)
{
    if (bits == 8)
        return static_cast<std::int16_t>((static_cast<int>(*at) - 128) * 256);
    std::int16_t sample;
    std::memcpy(&sample, at, sizeof sample);
    return sample;
}

void appendStereo(std::span<const std::byte> from, const WaveFormat& format,
                  std::vector<std::int16_t>& to)
{
    const std::size_t align = format.blockAlign(), width = format.bitsPerSample / 8;
    const std::size_t right = format.channels > 1 ? width : 0;
    const std::size_t frames = from.size() / align;
    to.resize(frames * 2);
    for (std::size_t i = 0; i < frames; ++i) {
        to[i * 2] = sampleAt(&from[i * align], format.bitsPerSample);
        to[i * 2 + 1] = sampleAt(&from[i * align + right], format.bitsPerSample);
    }
}

} // namespace

bool WaveFormat::isPlayable() const
{
    return channels >= 1 && channels <= kMostChannels && samplesPerSecond >= kLowestRate &&
           samplesPerSecond <= kHighestRate && (bitsPerSample == 8 || bitsPerSample == 16);
}

void WaveOutput::allow()
{
    const std::lock_guard lock(voiceLock);
    allowed = true;
    paused = false;
}

void WaveOutput::open(const WaveFormat& wanted)
{
    SoundOutput::Opened opened = output.openVoice(); // unlocked: a stop must not wait for it
    const std::lock_guard lock(voiceLock);
    if (!allowed)
        return;
    format = wanted;
    device = opened.device;
    voice = std::move(opened.voice);
    if (paused)
        voice->pause();
    resampler.emplace(format.samplesPerSecond, device->samplesPerSecond());
    forgetLocked();
}

void WaveOutput::write(std::span<const std::byte> bytes)
{
    const std::lock_guard lock(voiceLock);
    if (!voice)
        return;
    appendStereo(bytes, format, stereo);
    resampler->process(stereo, samples);
    queueLocked();
    ends.push_back(written);
}

void WaveOutput::finish()
{
    const std::lock_guard lock(voiceLock);
    if (!voice)
        return;
    resampler->finish(samples);
    queueLocked();
}

void WaveOutput::queueLocked()
{
    if (samples.empty())
        return;
    heardLocked(); // finds out whether there is a device to write to
    if (!voice->write(samples)) {
        goSilentLocked();
        voice->write(samples);
    }
    written += samples.size() / 2;
    notePeaksLocked();
    samples.clear();
}

std::uint64_t WaveOutput::heardLocked()
{
    if (!voice)
        return 0;
    std::optional<std::uint64_t> now = voice->heard();
    if (!now) {
        goSilentLocked();
        now = voice->heard();
    }
    lastHeard = std::max(lastHeard, silentFrom + now.value_or(0));
    return lastHeard;
}

void WaveOutput::goSilentLocked()
{
    auto silent = std::make_unique<SilentVoice>(device->samplesPerSecond());
    if (paused)
        silent->pause();
    silentFrom = lastHeard;
    silent->queue(written - lastHeard);
    voice = std::move(silent);
    output.deviceVanished(*device);
}

unsigned WaveOutput::takeDone()
{
    const std::lock_guard lock(voiceLock);
    const std::uint64_t now = heardLocked();
    unsigned done = 0;
    for (; !ends.empty() && ends.front() <= now; ++done)
        ends.pop_front();
    return done;
}

std::chrono::nanoseconds WaveOutput::untilDone()
{
    constexpr std::chrono::nanoseconds kIdle = std::chrono::milliseconds(100);
    const std::lock_guard lock(voiceLock);
    if (!voice || paused || ends.empty())
        return kIdle;
    const std::uint64_t left = ends.front() - std::min(ends.front(), heardLocked());
    // A device goes on in steps; half a millisecond more saves the second look.
    return std::min(device->timeOf(left + device->samplesPerSecond() / 2000), kIdle);
}

void WaveOutput::pause()
{
    const std::lock_guard lock(voiceLock);
    paused = true;
    if (voice)
        voice->pause();
}

void WaveOutput::resume()
{
    const std::lock_guard lock(voiceLock);
    paused = false;
    if (voice)
        voice->resume();
}

bool WaveOutput::isPaused() const
{
    const std::lock_guard lock(voiceLock);
    return paused;
}

void WaveOutput::reset()
{
    const std::lock_guard lock(voiceLock);
    if (!voice)
        return;
    voice->reset();
    resampler->reset();
    forgetLocked();
}

void WaveOutput::close()
{
    const std::lock_guard lock(voiceLock);
    allowed = false;
    paused = false;
    voice.reset();
    forgetLocked();
}

void WaveOutput::forgetLocked()
{
    ends.clear();
    peaks.clear();
    samples.clear();
    written = lastHeard = silentFrom = peaksFrom = peakFrames = 0;
}

std::uint64_t WaveOutput::heard()
{
    const std::lock_guard lock(voiceLock);
    return voice ? heardLocked() * format.samplesPerSecond / device->samplesPerSecond() : 0;
}

std::uint64_t WaveOutput::pending()
{
    const std::lock_guard lock(voiceLock);
    return written - heardLocked();
}

void WaveOutput::notePeaksLocked()
{
    const std::uint64_t hundredth = device->samplesPerSecond() / 100;
    for (std::size_t at = 0; at < samples.size();) {
        if (peakFrames / hundredth >= peaksFrom + peaks.size())
            peaks.push_back(0);
        const std::uint64_t left = hundredth - peakFrames % hundredth;
        const std::size_t count = std::min<std::uint64_t>(left * 2, samples.size() - at);
        int loudest = peaks.back();
        for (const std::int16_t sample : std::span(samples).subspan(at, count))
            loudest = std::max(loudest, std::abs(int{sample}));
        peaks.back() = static_cast<std::uint16_t>(loudest);
        peakFrames += count / 2;
        at += count;
    }
    const std::uint64_t heardHundredths = lastHeard / hundredth;
    for (; peaks.size() > 3 && peaksFrom + 3 < heardHundredths; ++peaksFrom)
        peaks.pop_front();
}

float WaveOutput::level()
{
    const std::lock_guard lock(voiceLock);
    if (!voice || paused)
        return 0;
    const std::uint64_t now = heardLocked() / (device->samplesPerSecond() / 100);
    int loudest = 0;
    for (std::uint64_t each = now > 2 ? now - 2 : 0; each <= now; ++each)
        if (each >= peaksFrom && each - peaksFrom < peaks.size())
            loudest = std::max<int>(loudest, peaks[each - peaksFrom]);
    return static_cast<float>(loudest) / 32768.0F;
}

} // namespace varn
