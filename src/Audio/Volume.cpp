#include "Audio/Volume.h"

#include <algorithm>
#include <cstring>

namespace varn {

namespace {

std::byte quieter(std::byte sample, float factor)
{
    const int value = static_cast<int>(sample);
    const float scaled = value < 128 ? 128.0F - static_cast<float>(128 - value) * factor
                                     : static_cast<float>(value - 128) * factor + 128.0F;
    return static_cast<std::byte>(static_cast<int>(std::clamp(scaled, 0.0F, 255.0F)));
}

std::int16_t quieter(std::int16_t sample, float factor)
{
    const float scaled = static_cast<float>(sample) * factor;
    return static_cast<std::int16_t>(std::clamp(scaled, -32767.0F, 32767.0F));
}

template <class Sample>
void scale(std::span<std::byte> samples, float factor)
{
    for (std::size_t at = 0; at + sizeof(Sample) <= samples.size(); at += sizeof(Sample)) {
        Sample sample;
        std::memcpy(&sample, &samples[at], sizeof sample);
        sample = quieter(sample, factor);
        std::memcpy(&samples[at], &sample, sizeof sample);
    }
}

} // namespace

void applyVolume(std::span<std::byte> samples, std::uint32_t bitsPerSample, int volume)
{
    if (volume == 100)
        return;
    const float factor = static_cast<float>(volume) * 0.01F;
    if (bitsPerSample == 8)
        scale<std::byte>(samples, factor);
    else if (bitsPerSample == 16)
        scale<std::int16_t>(samples, factor);
}

} // namespace varn
