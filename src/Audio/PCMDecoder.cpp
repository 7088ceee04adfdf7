#include "Audio/PCMDecoder.h"

#include "Audio/MP3Decoder.h"
#include "Audio/OggDecoder.h"
#include "Audio/WavDecoder.h"
#include "Util/File.h"

#include <algorithm>

namespace varn {

bool PCMDecoder::open(WStringView path)
{
    close();
    auto bytes = readFile(resolveProjectPath(path));
    return bytes && openBytes(std::move(*bytes));
}

std::uint32_t PCMDecoder::toMilliseconds(std::uint32_t position) const
{
    const std::uint64_t units = unitsPerSecond();
    return units == 0 ? 0 : static_cast<std::uint32_t>(position * std::uint64_t{1000} / units);
}

void PCMDecoder::seekMilliseconds(std::uint32_t value)
{
    if (samplesPerSecond == 0)
        return;
    const std::uint64_t frame = std::uint64_t{value} * samplesPerSecond / 1000;
    const std::uint64_t position = frame * (unitsPerSecond() / samplesPerSecond);
    seek(static_cast<std::uint32_t>(std::min<std::uint64_t>(position, size)));
}

std::uint32_t PCMDecoder::halfSecond() const
{
    constexpr std::uint32_t kMost = 1 << 24; // only a file that lies claims more
    const std::uint32_t frame = std::max(blockAlign(), 1U);
    const std::uint32_t bytes = std::min(bytesPerSecond() / 2, kMost);
    return std::max(bytes - bytes % frame, frame);
}

PCMDecoder::Filled PCMDecoder::fill(std::span<std::byte> buffer, bool loop)
{
    if (!isOpen() || buffer.empty())
        return {};
    if (tell() >= size)
        return {.ok = true};
    std::size_t done = 0;
    bool wentBack = false; // and has read nothing since: the loop holds no sound
    while (done < buffer.size()) {
        const std::size_t chunk = std::min<std::size_t>(getChunkSize(), buffer.size() - done);
        const std::size_t count = read(buffer.subspan(done, chunk));
        if (count == 0) {
            if (!loop || wentBack)
                return {.ok = true, .ended = done == 0, .bytes = done};
            seek(loopStart);
            wentBack = true;
            continue;
        }
        wentBack = false;
        if (loop && loopLength != 0 && tell() >= std::uint64_t{loopStart} + loopLength)
            seek(loopStart);
        done += count;
    }
    return {.ok = true, .ended = false, .bytes = done};
}

std::unique_ptr<PCMDecoder> makeDecoder(WStringView path)
{
    const WStringView extension = path.substr(withoutExtension(path).size());
    if (equalsIgnoringCase(extension, u".wav"))
        return std::make_unique<WavDecoder>();
    if (equalsIgnoringCase(extension, u".mp3"))
        return std::make_unique<MP3Decoder>();
    return std::make_unique<OggDecoder>();
}

} // namespace varn
