#include "Audio/Rendering.h"

#include "Audio/SongStream.h"
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

} // namespace

std::string renderSound(PCMDecoder& decoder, const RenderOptions& options)
{
    const std::uint64_t limit =
        limitOf(options, decoder.samplesPerSecond, std::max(decoder.blockAlign(), 1U));
    std::string samples;
    std::vector<std::byte> half(decoder.halfSecond());
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
    constexpr std::uint32_t kFrame = Synth::kChannels * sizeof(std::int16_t);
    const std::uint64_t limit = limitOf(options, Synth::kSamplesPerSecond, kFrame);
    SongStream stream(song, *synth);
    stream.getSequencer().loop = options.loop;
    stream.getSequencer().volume = options.volume;
    std::string samples;
    while (samples.size() < limit) {
        std::int16_t block[2048];
        const std::size_t wanted =
            std::min<std::uint64_t>(sizeof block, limit - samples.size()) / sizeof *block;
        const std::size_t count = stream.read(std::span(block).first(wanted));
        samples.append(asChars(std::as_bytes(std::span(block).first(count))));
        if (count < wanted)
            break;
    }
    return waveFile(Synth::kChannels, Synth::kSamplesPerSecond, 16, std::move(samples));
}

} // namespace varn
