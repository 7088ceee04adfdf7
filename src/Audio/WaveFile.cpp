#include "Audio/WaveFile.h"

namespace varn {

std::string waveHead(std::uint32_t channels, std::uint32_t samplesPerSecond,
                     std::uint32_t bitsPerSample, std::uint32_t size)
{
    constexpr std::uint32_t kFormatSize = 16, kPcm = 1;
    const std::uint32_t blockAlign = channels * bitsPerSample / 8;
    ByteWriter out;
    out.bytes("RIFF");
    out.u32(4 + 8 + kFormatSize + 8 + size);
    out.bytes("WAVEfmt ");
    out.u32(kFormatSize);
    out.u16(kPcm);
    out.u16(channels);
    out.u32(samplesPerSecond);
    out.u32(samplesPerSecond * blockAlign);
    out.u16(blockAlign);
    out.u16(bitsPerSample);
    out.bytes("data");
    out.u32(size);
    return out.take();
}

} // namespace varn
