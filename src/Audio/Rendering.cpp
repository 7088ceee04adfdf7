#include "Audio/Rendering.h"

#include "Audio/Synth.h"
#include "Audio/Volume.h"
#include "Audio/WaveFile.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <utility>
#include <vector>

namespace varn {

namespace {

/// A wave file holds no more samples.
constexpr std::uint64_t kMostBytes = UINT32_MAX - 64;
/// Bytes of half a second; only a file that lies claims more.
constexpr std::uint32_t kMostHalf = 1 << 24;

/// How many bytes may be rendered, whole frames.
std::uint64_t limitOf(const RenderOptions& options, std::uint32_t samplesPerSecond,
                      std::uint32_t blockAlign)
{
    assert(options.seconds || !options.loop);
    if (!options.seconds)
        return kMostBytes;
    const double frames = std::floor(*options.seconds * samplesPerSecond);
    const double most = static_cast<double>(kMostBytes) / blockAlign;
    return static_cast<std::uint64_t>(std::clamp(frames, 0.0, most)) * blockAlign;
}

/// Puts the head in front, now that the size is known.
std::string waveFile(std::uint32_t channels, std::uint32_t samplesPerSecond,
                     std::uint32_t bitsPerSample, std::string samples)
{
    samples.insert(0, waveHead(channels, samplesPerSecond, bitsPerSample,
                               static_cast<std::uint32_t>(samples.size())));
    return samples;
}

/// Turns waits into samples.
class SongRenderer
{
  public:
    SongRenderer(Synth& synth, std::uint64_t limit) : synth(synth), limit(limit) {}

    /// False: the limit is reached.
    bool render(std::uint32_t milliseconds)
    {
        elapsed += milliseconds;
        const std::uint64_t due =
            std::min(elapsed * Synth::kSamplesPerSecond / 1000 * kFrame, limit);
        while (samples.size() < due) {
            std::int16_t block[2048];
            const std::size_t count = std::min<std::uint64_t>(sizeof block, due - samples.size());
            const std::span part = std::span(block).first(count / sizeof(std::int16_t));
            synth.render(part);
            samples.append(asChars(std::as_bytes(part)));
        }
        return samples.size() < limit;
    }
    std::string result() && { return std::move(samples); }

  private:
    static constexpr std::uint64_t kFrame = Synth::kChannels * sizeof(std::int16_t);

    Synth& synth;
    std::uint64_t limit;
    std::uint64_t elapsed = 0; // milliseconds
    std::string samples;
};

} // namespace

std::string renderSound(PCMDecoder& decoder, const RenderOptions& options)
{
    const std::uint64_t limit =
        limitOf(options, decoder.samplesPerSecond, std::max(decoder.blockAlign(), 1U));
    std::string samples;
    std::vector<std::byte> half(std::clamp(decoder.bytesPerSecond() / 2, 1U, kMostHalf));
    while (samples.size() < limit) {
        const PCMDecoder::Filled filled = decoder.fill(half, options.loop);
        const std::span part = std::span(half).first(filled.bytes);
        applyVolume(part, decoder.bitsPerSample, options.volume);
        samples.append(
            asChars(part.first(std::min<std::uint64_t>(part.size(), limit - samples.size()))));
        if (!filled.ok || filled.ended || filled.bytes == 0)
            break;
    }
    return waveFile(decoder.channels, decoder.samplesPerSecond, decoder.bitsPerSample,
                    std::move(samples));
}

std::string renderSong(const MidiSong& song, const RenderOptions& options)
{
    const auto synth = makeSynth();
    const std::uint32_t frame = Synth::kChannels * sizeof(std::int16_t);
    SongRenderer renderer(*synth, limitOf(options, Synth::kSamplesPerSecond, frame));
    MidiSequencer sequencer(song, *synth);
    sequencer.loop = options.loop;
    sequencer.volume = options.volume;
    while (const auto wait = sequencer.nextWait()) {
        if (!renderer.render(*wait))
            break;
        sequencer.act();
    }
    return waveFile(Synth::kChannels, Synth::kSamplesPerSecond, 16, std::move(renderer).result());
}

} // namespace varn
