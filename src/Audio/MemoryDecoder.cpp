#include "Audio/MemoryDecoder.h"

#include <algorithm>
#include <cstring>

namespace varn {

void MemoryDecoder::close()
{
    samples.clear();
    samples.shrink_to_fit();
    channels = samplesPerSecond = bitsPerSample = loopStart = loopLength = size = 0;
    position = 0;
    opened = false;
}

void MemoryDecoder::seek(std::uint32_t to)
{
    position = std::min(to, size);
    if (const std::uint32_t block = blockAlign(); block > 1)
        position -= position % block; // a step into a frame would swap the channels
}

std::size_t MemoryDecoder::read(std::span<std::byte> buffer)
{
    const std::size_t count = std::min<std::size_t>(buffer.size(), size - position);
    std::memcpy(buffer.data(), samples.data() + position, count);
    position += static_cast<std::uint32_t>(count);
    return count;
}

void MemoryDecoder::setSamples(std::string bytes)
{
    samples = std::move(bytes);
    size = static_cast<std::uint32_t>(samples.size());
    position = 0;
    opened = true;
}

} // namespace varn
