#include "Audio/Mp3Header.h"

#include <algorithm>

namespace varn {

namespace {

constexpr std::size_t kFrameHead = 4;
constexpr std::uint32_t kSamplesOfFrame = 1152;

// In 1000 bits a second, by version and index; 0: free or forbidden.
constexpr std::uint16_t kBitRates[2][16] = {
    {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 0},
    {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160, 0},
};
constexpr std::uint32_t kSampleRates[2][4] = {
    {44100, 48000, 32000, 0},
    {22050, 24000, 16000, 0},
};

unsigned byteAt(ByteSpan bytes, std::size_t at)
{
    return static_cast<unsigned>(bytes[at]);
}

std::uint32_t bigEndian(ByteSpan bytes)
{
    return byteAt(bytes, 0) << 24 | byteAt(bytes, 1) << 16 | byteAt(bytes, 2) << 8 |
           byteAt(bytes, 3);
}

/// The bytes of a leading ID3v2 tag (id3.org): its size has seven bits a byte.
std::size_t leadingTag(ByteSpan bytes)
{
    constexpr std::size_t kHead = 10;
    if (bytes.size() < kHead || !asChars(bytes).starts_with("ID3"))
        return 0;
    std::size_t size = 0;
    for (std::size_t i = 6; i < kHead; ++i)
        size = size << 7 | (byteAt(bytes, i) & 0x7F);
    return std::min(kHead + size, bytes.size());
}

/// The bytes of a trailing ID3v1 tag.
std::size_t trailingTag(ByteSpan bytes)
{
    constexpr std::size_t kTag = 128;
    return bytes.size() >= kTag && asChars(bytes.last(kTag)).starts_with("TAG") ? kTag : 0;
}

/// The frames that the Xing block of the first frame tells. Nothing: it has none. One letter of its
/// name is enough; files whose name is damaged have always been taken.
std::optional<std::uint32_t> countOfXing(ByteSpan frames, const Mp3Frame& first)
{
    constexpr std::string_view kName = "Xing";
    const std::size_t at = kFrameHead + (first.channels == 1 ? 17 : 32);
    if (frames.size() < at + 12)
        return std::nullopt;
    const std::string_view name = asChars(frames.subspan(at, 4));
    bool isNamed = false;
    for (std::size_t i = 0; i < kName.size(); ++i)
        isNamed |= name[i] == kName[i];
    const bool hasCount = (bigEndian(frames.subspan(at + 4)) & 1) != 0;
    if (!isNamed || !hasCount)
        return std::nullopt;
    return bigEndian(frames.subspan(at + 8));
}

std::uint32_t countByWalking(ByteSpan frames)
{
    std::uint32_t count = 0;
    while (const auto frame = readMp3Frame(frames)) {
        ++count;
        if (frame->size >= frames.size())
            break;
        frames = frames.subspan(frame->size);
    }
    return count;
}

} // namespace

std::uint32_t Mp3Info::milliseconds() const
{
    return static_cast<std::uint32_t>(std::uint64_t{frames} * kSamplesOfFrame * 1000 /
                                      first.samplesPerSecond);
}

std::optional<Mp3Frame> readMp3Frame(ByteSpan bytes)
{
    if (bytes.size() < kFrameHead || byteAt(bytes, 0) != 0xFF || (byteAt(bytes, 1) & 0xE0) != 0xE0)
        return std::nullopt;
    const unsigned versionBits = byteAt(bytes, 1) >> 3 & 3;
    const unsigned layerBits = byteAt(bytes, 1) >> 1 & 3;
    if (versionBits < 2 || layerBits != 1)
        return std::nullopt;
    Mp3Frame frame;
    frame.version = versionBits == 3 ? 1 : 2;
    const auto table = static_cast<std::size_t>(frame.version - 1);
    frame.bitRate = kBitRates[table][byteAt(bytes, 2) >> 4];
    frame.samplesPerSecond = kSampleRates[table][byteAt(bytes, 2) >> 2 & 3];
    if (frame.bitRate == 0 || frame.samplesPerSecond == 0)
        return std::nullopt;
    frame.channels = byteAt(bytes, 3) >> 6 == 3 ? 1 : 2;
    const unsigned padding = byteAt(bytes, 2) >> 1 & 1;
    frame.size = frame.bitRate * kSamplesOfFrame * 1000 / frame.samplesPerSecond / 8 + padding;
    return frame;
}

std::optional<Mp3Info> readMp3Info(ByteSpan bytes)
{
    Mp3Info info;
    info.offset = leadingTag(bytes);
    const ByteSpan rest = bytes.subspan(info.offset);
    info.size = rest.size() - trailingTag(rest);
    const ByteSpan frames = rest.first(info.size);
    const auto first = readMp3Frame(frames);
    if (!first)
        return std::nullopt;
    info.first = *first;
    info.frames = countOfXing(frames, *first).value_or(0);
    if (info.frames == 0)
        info.frames = countByWalking(frames);
    return info;
}

} // namespace varn
