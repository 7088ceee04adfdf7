#include "Audio/WavDecoder.h"

#include <algorithm>

namespace varn {

namespace {

constexpr std::size_t kLeastFile = 64;
constexpr std::size_t kFormat = 20;
constexpr std::uint32_t kLeastFormat = 16;
constexpr std::uint16_t kPcm = 1;

WaveInfo readFormat(ByteReader& reader)
{
    WaveInfo info;
    info.channels = reader.u16();
    info.samplesPerSecond = reader.u32();
    reader.skip(4 + 2); // bytes per second, block align: follow from the rest
    info.bitsPerSample = reader.u16();
    return info;
}

} // namespace

std::optional<WaveInfo> readWaveInfo(ByteSpan bytes)
{
    const std::string_view text = asChars(bytes);
    if (text.size() < kLeastFile || text.substr(0, 4) != "RIFF" || text.substr(8, 4) != "WAVE")
        return std::nullopt;
    ByteReader reader(bytes);
    reader.seek(16);
    const std::uint32_t formatLength = reader.u32();
    if (formatLength < kLeastFormat || formatLength > bytes.size() - kFormat)
        return std::nullopt;
    if (reader.u16() != kPcm)
        return std::nullopt;
    WaveInfo info = readFormat(reader);
    if (info.channels == 0 || info.samplesPerSecond == 0 || info.bitsPerSample < 8)
        return std::nullopt;

    constexpr std::size_t kHead = 8; // name and size of a chunk
    reader.seek(kFormat + formatLength);
    if (reader.remaining() < kHead)
        return std::nullopt;
    const std::string_view name = asChars(reader.take(4));
    if (name == "fact") {
        const std::uint32_t factSize = reader.u32();
        if (factSize > reader.remaining() || reader.remaining() - factSize < kHead)
            return std::nullopt;
        reader.skip(factSize + 4); // the next chunk's name is taken to be "data"
    } else if (name != "data") {
        return std::nullopt;
    }
    const std::uint32_t size = reader.u32();
    info.offset = reader.position();
    info.size = std::min<std::size_t>(size, reader.remaining());
    return info;
}

bool WavDecoder::openBytes(std::string bytes)
{
    close();
    const auto info = readWaveInfo(asBytes(bytes));
    if (!info)
        return false;
    channels = info->channels;
    samplesPerSecond = info->samplesPerSecond;
    bitsPerSample = info->bitsPerSample;
    bytes.resize(info->offset + info->size);
    bytes.erase(0, info->offset);
    setSamples(std::move(bytes));
    return true;
}

} // namespace varn
