#include "Audio/MemoryDecoder.h"
#include "Audio/Mp3Header.h"
#include "Audio/OggDecoder.h"
#include "Audio/Rendering.h"
#include "Audio/Volume.h"
#include "Audio/WavDecoder.h"
#include "Audio/WaveFile.h"

#include <gtest/gtest.h>

namespace varn::test {

namespace {

/// Samples that count up, with a loop inside them.
class CountingDecoder final : public MemoryDecoder
{
  public:
    explicit CountingDecoder(std::uint32_t bytes)
    {
        channels = 1;
        samplesPerSecond = 8000;
        bitsPerSample = 8;
        std::string samples(bytes, '\0');
        for (std::size_t i = 0; i < samples.size(); ++i)
            samples[i] = static_cast<char>(i % 251);
        setSamples(std::move(samples));
    }
    bool openBytes(std::string) override { return false; }
};

std::string fillOnce(PCMDecoder& decoder, std::size_t size, bool loop, PCMDecoder::Filled& filled)
{
    std::string buffer(size, '\xEE');
    filled = decoder.fill(std::as_writable_bytes(std::span(buffer)), loop);
    buffer.resize(filled.bytes);
    return buffer;
}

std::string littleEndian32(std::uint32_t value)
{
    ByteWriter out;
    out.u32(value);
    return out.take();
}

/// A wave file with four chunks of bytes between head and samples.
std::string wave(std::string format, const std::string& behindFormat, const std::string& samples)
{
    std::string file = "RIFF" + littleEndian32(0) + "WAVE" + "junk" +
                       littleEndian32(static_cast<std::uint32_t>(format.size())) +
                       std::move(format) + behindFormat;
    return file + littleEndian32(static_cast<std::uint32_t>(samples.size())) + samples;
}

const std::string kFormat("\1\0\2\0\x22\x56\0\0\x88\x58\1\0\4\0\x10\0", 16); // 22050 Hz, stereo, 16

} // namespace

TEST(PCMDecoder, fillGoesToTheEndAndTellsItAtTheNextCall)
{
    CountingDecoder decoder(10000);
    PCMDecoder::Filled filled;
    EXPECT_EQ(fillOnce(decoder, 6000, false, filled).size(), 6000U);
    EXPECT_FALSE(filled.ended);
    EXPECT_EQ(fillOnce(decoder, 6000, false, filled).size(), 4000U);
    EXPECT_FALSE(filled.ended) << "there was sound in this one";
    EXPECT_EQ(fillOnce(decoder, 6000, false, filled).size(), 0U);
    EXPECT_TRUE(filled.ok && filled.ended);
    EXPECT_EQ(fillOnce(decoder, 6000, true, filled).size(), 0U)
        << "a loop does not go on from there";
    decoder.close();
    fillOnce(decoder, 6000, false, filled);
    EXPECT_FALSE(filled.ok);
}

TEST(PCMDecoder, aLoopGoesRoundAtTheEndOrBehindItsLength)
{
    PCMDecoder::Filled filled;
    CountingDecoder toEnd(5000);
    toEnd.loopStart = 1000;
    const std::string round = fillOnce(toEnd, 9000, true, filled);
    ASSERT_EQ(round.size(), 9000U);
    EXPECT_EQ(round[4999], static_cast<char>(4999 % 251));
    EXPECT_EQ(round[5000], static_cast<char>(1000 % 251));

    // The end of the loop is looked for behind each read of 4096 bytes.
    CountingDecoder inside(20000);
    inside.loopStart = 100;
    inside.loopLength = 5000;
    const std::string overshot = fillOnce(inside, 10000, true, filled);
    EXPECT_EQ(overshot[8191], static_cast<char>(8191 % 251));
    EXPECT_EQ(overshot[8192], static_cast<char>(100 % 251));

    CountingDecoder empty(5000);
    empty.loopStart = 5000; // nothing lies in the loop
    EXPECT_EQ(fillOnce(empty, 9000, true, filled).size(), 5000U);
}

TEST(WavDecoder, readsPlainPcmOnly)
{
    const std::string samples(40, '\x11');
    const std::string fact = "fact" + littleEndian32(4) + "abcdnext";
    std::string compressed = kFormat;
    compressed[0] = '\2';
    const struct
    {
        const char* what;
        std::string file;
        std::size_t size; ///< of the samples; 0: refused
    } cases[] = {
        {"plain", wave(kFormat, "data", samples), 40},
        {"format with an extra size", wave(kFormat + std::string(2, '\0'), "data", samples), 40},
        {"fact, and a chunk of any name", wave(kFormat, fact, samples), 40},
        {"another chunk", wave(kFormat, "LIST", samples), 0},
        {"compressed", wave(compressed, "data", samples), 0},
        {"shorter than 64 bytes", wave(kFormat, "data", samples).substr(0, 63), 0},
        {"cut samples", wave(kFormat, "data", samples).substr(0, 64), 20},
        {"format length that lies",
         wave(kFormat, "data", samples).replace(16, 4, "\xFF\xFF\xFF\x7F"), 0},
        {"short format", wave(kFormat.substr(0, 14), "data", samples), 0},
        {"fact that runs out of the file",
         wave(kFormat, "fact" + littleEndian32(4000) + "abcddata", samples), 0},
    };
    for (const auto& test : cases) {
        WavDecoder decoder;
        EXPECT_EQ(decoder.openBytes(test.file), test.size != 0) << test.what;
        EXPECT_EQ(decoder.size, test.size) << test.what;
        if (test.size != 0) {
            EXPECT_EQ(decoder.bytesPerSecond(), 88200U) << test.what;
        }
    }
}

TEST(Mp3Header, readsFramesTagsAndTheCount)
{
    const struct
    {
        const char* what;
        std::string_view head;
        std::uint32_t size; ///< of the frame; 0: refused
        std::uint32_t rate, channels;
    } cases[] = {
        {"128 kbit, 44.1 kHz", "\xFF\xFB\x90\x64", 417, 44100, 2},
        {"padded, mono", "\xFF\xFB\x92\xC4", 418, 44100, 1},
        {"MPEG 2, 64 kbit, 22.05 kHz", "\xFF\xF3\x80\x64", 417, 22050, 2},
        {"MPEG 2.5", "\xFF\xE3\x80\x64", 0, 0, 0},
        {"layer II", "\xFF\xFD\x90\x64", 0, 0, 0},
        {"free bit rate", "\xFF\xFB\x04\x64", 0, 0, 0},
        {"forbidden sample rate", "\xFF\xFB\x9C\x64", 0, 0, 0},
        {"no sync", "\xFF\x1B\x90\x64", 0, 0, 0},
    };
    for (const auto& test : cases) {
        const auto frame = readMp3Frame(asBytes(test.head));
        ASSERT_EQ(frame.has_value(), test.size != 0) << test.what;
        if (frame) {
            EXPECT_EQ(frame->size, test.size) << test.what;
            EXPECT_EQ(frame->samplesPerSecond, test.rate) << test.what;
            EXPECT_EQ(frame->channels, test.channels) << test.what;
        }
    }

    std::string frame = "\xFF\xFB\x90\x64" + std::string(413, '\0');
    std::string tagged = "ID3" + std::string("\4\0\0\0\0\1\0", 7) + std::string(128, 'x');
    const std::size_t tag = tagged.size();
    tagged += frame + frame + frame + "TAG" + std::string(125, ' ');
    auto info = readMp3Info(asBytes(tagged));
    ASSERT_TRUE(info);
    EXPECT_EQ(info->offset, tag);
    EXPECT_EQ(info->size, frame.size() * 3);
    EXPECT_EQ(info->frames, 3U);
    frame.replace(36, 12, std::string("X--g\0\0\0\1\0\0\1\0", 12));
    info = readMp3Info(asBytes(frame));
    ASSERT_TRUE(info);
    EXPECT_EQ(info->frames, 256U) << "one letter of the name is enough";
    EXPECT_EQ(info->milliseconds(), 6687U);
}

TEST(OggDecoder, commentsTellTheLoop)
{
    LoopPoints points;
    for (const std::string_view comment :
         {"TITLE=Tides", "LOOPSTART=44100", "LOOPLENGTH=88200", "loopstart=1", "LOOPEND=5"})
        readLoopComment(comment, points);
    EXPECT_EQ(points.start, 44100U);
    EXPECT_EQ(points.length, 88200U);
    readLoopComment("LOOPSTART=-5", points);
    EXPECT_EQ(points.start, 0U);
    EXPECT_FALSE(OggDecoder().openBytes("OggS and nothing else"));
}

TEST(Volume, scalesBothWidths)
{
    const auto scaled8 = [](int sample, int volume) {
        std::byte value{static_cast<unsigned char>(sample)};
        applyVolume({&value, 1}, 8, volume);
        return static_cast<int>(value);
    };
    EXPECT_EQ(scaled8(0, 100), 0);
    EXPECT_EQ(scaled8(0, 0), 128);
    EXPECT_EQ(scaled8(255, 0), 128);
    EXPECT_EQ(scaled8(0, 50), 64);
    EXPECT_EQ(scaled8(255, 50), 191);
    const auto scaled16 = [](std::int16_t sample, int volume) {
        applyVolume(std::as_writable_bytes(std::span(&sample, 1)), 16, volume);
        return int{sample};
    };
    EXPECT_EQ(scaled16(-32768, 100), -32768);
    EXPECT_EQ(scaled16(-32768, 200), -32767);
    EXPECT_EQ(scaled16(-101, 50), -50);
    EXPECT_EQ(scaled16(12345, 0), 0);
}

TEST(Rendering, writesWhatAPlayerWouldHear)
{
    CountingDecoder decoder(9000);
    const std::string whole = renderSound(decoder, {});
    EXPECT_EQ(whole.substr(0, 44), waveHead(1, 8000, 8, 9000));
    EXPECT_EQ(whole.size(), 9044U);
    decoder.seek(0);
    EXPECT_EQ(renderSound(decoder, {.seconds = 0.5, .loop = false}).size(), 4044U);
    decoder.seek(0);
    const std::string looped = renderSound(decoder, {.seconds = 2.5, .loop = true, .volume = 0});
    EXPECT_EQ(looped, waveHead(1, 8000, 8, 20000) + std::string(20000, '\x80'));
}

} // namespace varn::test
