#include "Audio/Audition.h"
#include "Audio/Midi.h"
#include "Audio/SilentDevice.h"
#include "Audio/SongStream.h"
#include "LoopbackOutput.h"
#include "MidiBytes.h"
#include "Support/TemporaryProject.h"
#include "TestSound.h"

#include <gtest/gtest.h>

namespace varn::test {

namespace {

using namespace std::string_literals;

/// Notes when each note begins, in frames.
class NotingSynth final : public Synth
{
  public:
    void shortMessage(std::uint8_t status, std::uint8_t data1, std::uint8_t data2) override
    {
        if ((status & 0xF0) == 0x90 && data2 != 0)
            notes.push_back({data1, frame});
    }
    void longMessage(ByteSpan) override {}
    void reset() override {}
    void render(std::span<std::int16_t> samples) override { frame += samples.size() / kChannels; }

    struct Note
    {
        std::uint8_t key;
        std::uint64_t frame;
    };
    std::vector<Note> notes;
    std::uint64_t frame = 0;
};

constexpr std::uint8_t kLowestKey = 40;

/// Fifty notes, each a key higher, ten a second; behind the tenth begins the loop.
std::string markedSong()
{
    std::string events;
    for (int i = 0; i < 50; ++i) {
        const char key = static_cast<char>(kLowestKey + i);
        if (i == 10)
            events += "\0\xB0\x6F\0"s;
        events += "\0\x90"s + key + "\x64\x0A\x80"s + key + "\0\x0A\xB0\x0B\x7F"s;
    }
    return song(0, {track(events)}, 100);
}

} // namespace

TEST(SongStream, keepsTheTimeOfEventsOverTenMinutes)
{
    // Triplets at 133 beats a minute: no wait is a whole number of milliseconds.
    constexpr std::uint32_t kTempo = 451128, kDivision = 480, kTicks = 160;
    std::string events = "\0\xFF\x51\x03"s + bigEndian(kTempo, 3);
    constexpr int kNotes = 4000;
    for (int i = 0; i < kNotes; ++i)
        events += "\0\x90\x40\x64\x81\x20\x80\x40\0"s; // 160 ticks
    MidiSong read;
    WString fault;
    const std::string file = song(0, {track(events)}, kDivision);
    read = readMidiSong(asBytes(file), fault);
    NotingSynth synth;
    SongStream stream(read, synth);
    std::vector<std::int16_t> block(2048);
    while (stream.read(block) == block.size())
        ;
    ASSERT_EQ(synth.notes.size(), kNotes);
    const double noteSeconds = kTempo * 1e-6 * kTicks / kDivision;
    ASSERT_GT(noteSeconds * kNotes, 600);
    double most = 0;
    for (int i = 0; i < kNotes; ++i) {
        const double off = static_cast<double>(synth.notes[i].frame) / 44100 - i * noteSeconds;
        most = std::max(most, std::abs(off));
    }
    EXPECT_LT(most, 0.0011); // the synthesizer's own step is less than one and a half more
}

TEST(SongStream, seeksWithoutWaitingForTheNextEvent)
{
    const std::string file = markedSong();
    WString fault;
    const MidiSong marked = readMidiSong(asBytes(file), fault);
    EXPECT_EQ(marked.end, 5000U);
    EXPECT_EQ(marked.loopStart, 1000U);
    NotingSynth synth;
    SongStream stream(marked, synth);
    stream.getSequencer().loop = true;
    std::vector<std::int16_t> tenth(8820);
    for (int i = 0; i < 2; ++i)
        stream.read(tenth);
    EXPECT_NEAR(stream.getPosition(), 200, 1);
    stream.seek(2900);
    synth.notes.clear();
    synth.frame = 0;
    for (int i = 0; i < 60; ++i)
        stream.read(tenth);
    // From there on, over the end at five seconds, from the mark at one.
    ASSERT_GE(synth.notes.size(), 50U);
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(synth.notes[i].key - kLowestKey, i < 20 ? 30 + i : i - 10) << i;
    EXPECT_NEAR(static_cast<double>(synth.notes[40].frame) / 44100, 4.05, 0.01);
}

TEST(Midi, isHeardAndStops)
{
    TemporaryProject project;
    project.write("song.mid", markedSong());
    LoopbackOutput loopback;
    Midi player(loopback.get());
    player.setLoop(true);
    ASSERT_TRUE(player.play(u"song.mid"));
    const auto peakOf = [&](std::size_t frames) {
        int peak = 0;
        for (const std::int16_t sample : loopback.listen(frames))
            peak = std::max(peak, std::abs(int{sample}));
        return peak;
    };
    EXPECT_GT(peakOf(22050), 500);
    for (int second = 1; second < 12; ++second)
        EXPECT_GT(peakOf(44100), 500) << "twice over the seam";
    EXPECT_GE(player.getPosition(), 1000U);
    EXPECT_LE(player.getPosition(), 5000U);
    player.stop();
    EXPECT_FALSE(player.isPlaying());
    for (const std::int16_t sample : loopback.listenAsItIs(4410))
        ASSERT_EQ(sample, 0);

    player.setLoop(false);
    player.seek(4000);
    ASSERT_TRUE(player.start());
    EXPECT_NEAR(player.getPosition(), 4000, 200);
    loopback.listen(40000);
    EXPECT_TRUE(LoopbackOutput::waitUntil([&] {
        loopback.listenAsItIs(441);
        return !player.isPlaying();
    })) << "a second to its end";
}

TEST(Audition, goesThroughAFileOfEachKind)
{
    TemporaryProject project;
    project.write("song.mid", markedSong());
    project.write("sound.wav", waveFile(sine(440, 22050, 5), 1, 22050));
    project.write("bad.wav", "RIFF");
    SoundOutput output([] { return std::make_unique<SilentDevice>(1); });
    Audition audition(output);
    EXPECT_FALSE(audition.open(u"bad.wav"));
    EXPECT_EQ(audition.getError(), u"bad.wav Couldn't play this file");
    EXPECT_FALSE(audition.open(u"missing.mid"));
    EXPECT_EQ(audition.getError(), u"Failed to open your file");
    audition.play();
    EXPECT_FALSE(audition.isPlaying());

    const auto goesOnFrom = [&](std::uint32_t from) {
        const bool isThere = audition.position() >= from && audition.position() < from + 1500;
        return isThere &&
               LoopbackOutput::waitUntil([&] { return audition.position() > from + 100; });
    };
    for (const WStringView file : {u"sound.wav", u"song.mid"}) {
        const std::string name = toUtf8(file);
        ASSERT_TRUE(audition.open(file)) << name;
        EXPECT_EQ(audition.duration(), 5000U) << name;
        EXPECT_EQ(audition.hasLoop(), file == u"song.mid") << name;
        EXPECT_EQ(audition.loopStart(), file == u"song.mid" ? 1000U : 0U) << name;
        EXPECT_EQ(audition.level(), 0) << name;
        audition.seek(2000);
        EXPECT_EQ(audition.position(), 2000U) << name;
        audition.play();
        ASSERT_TRUE(LoopbackOutput::waitUntil([&] { return audition.level() > 0.01F; })) << name;
        EXPECT_LT(audition.level(), 1) << name;
        EXPECT_TRUE(goesOnFrom(2000)) << name;
        audition.pause();
        const std::uint32_t paused = audition.position();
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        EXPECT_TRUE(audition.isPaused() && audition.isPlaying()) << name;
        EXPECT_EQ(audition.position(), paused) << name;
        EXPECT_EQ(audition.level(), 0) << name;
        audition.seek(3100);
        EXPECT_EQ(audition.position(), 3100U) << name;
        audition.resume();
        EXPECT_TRUE(goesOnFrom(3100)) << name;
        audition.playSeam();
        EXPECT_TRUE(goesOnFrom(3000)) << name;
        audition.stop();
        EXPECT_FALSE(audition.isPlaying() || audition.isPaused()) << name;
        EXPECT_EQ(audition.position(), 0U) << name;
    }
}

} // namespace varn::test
