#pragma once

#include "Audio/MemoryDecoder.h"
#include "Audio/WaveFile.h"

#include <cmath>
#include <functional>
#include <numbers>
#include <vector>

namespace varn::test {

/// Samples in which no two places look alike: left and right of a random walk with a fixed seed.
inline std::vector<std::int16_t> distinctSamples(std::size_t frames)
{
    std::vector<std::int16_t> samples;
    std::uint32_t state = 12345;
    for (std::size_t i = 0; i < frames * 2; ++i) {
        state = state * 1664525 + 1013904223;
        samples.push_back(static_cast<std::int16_t>(state >> 16 | 1)); // never silent
    }
    return samples;
}

inline std::string bytesOf(const std::vector<std::int16_t>& samples)
{
    return std::string(asChars(std::as_bytes(std::span(samples))));
}

/// A wave file of 16 bits.
inline std::string waveFile(const std::vector<std::int16_t>& samples, std::uint32_t channels = 2,
                            std::uint32_t samplesPerSecond = 44100)
{
    const std::string bytes = bytesOf(samples);
    return waveHead(channels, samplesPerSecond, 16, static_cast<std::uint32_t>(bytes.size())) +
           bytes;
}

inline std::vector<std::int16_t> sine(double hertz, std::uint32_t samplesPerSecond, double seconds,
                                      double peak = 20000)
{
    std::vector<std::int16_t> samples;
    for (std::size_t i = 0; i < static_cast<std::size_t>(std::lrint(seconds * samplesPerSecond));
         ++i)
        samples.push_back(static_cast<std::int16_t>(
            std::lrint(peak * std::sin(2 * std::numbers::pi * hertz * static_cast<double>(i) /
                                       samplesPerSecond))));
    return samples;
}

/// Stereo samples in memory, 16 bits, that count as open.
class SampleDecoder final : public MemoryDecoder
{
  public:
    explicit SampleDecoder(const std::vector<std::int16_t>& samples)
    {
        channels = 2;
        samplesPerSecond = 44100;
        bitsPerSample = 16;
        setSamples(bytesOf(samples));
    }
    bool openBytes(std::string) override { return false; }
};

} // namespace varn::test
