#include "Audio/MidiSequencer.h"
#include "MidiBytes.h"
#include "Support/RecordingHost.h"
#include "Support/TemporaryProject.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace varn::test {

namespace {

using namespace std::string_literals;

MidiSong read(const std::string& file)
{
    WString fault;
    return readMidiSong(asBytes(file), fault);
}

/// Messages as text, with the time of the walk in front.
class RecordingOutput : public MidiOutput
{
  public:
    void shortMessage(std::uint8_t status, std::uint8_t data1, std::uint8_t data2) override
    {
        if ((status & 0xF0) == 0xB0 && data1 == 120) {
            if (status == 0xB0)
                messages.push_back(std::to_string(now) + ": silence");
            return;
        }
        char text[32];
        std::snprintf(text, sizeof text, "%d: %02x %d %d", now, status, data1, data2);
        messages.emplace_back(text);
    }
    void longMessage(ByteSpan message) override
    {
        messages.push_back(std::to_string(now) + ": long " + std::to_string(message.size()));
    }

    int now = 0;
    std::vector<std::string> messages;
};

/// Plays up to `steps` events by a clock of its own.
std::vector<std::string> play(MidiSequencer& sequencer, RecordingOutput& output, int steps = 100)
{
    output.messages.clear();
    for (; steps > 0; --steps) {
        const auto wait = sequencer.nextWait();
        if (!wait)
            break;
        output.now += static_cast<int>(*wait);
        sequencer.act();
    }
    return output.messages;
}

} // namespace

TEST(MidiFile, mergesTracksByTimeTheLowerFirst)
{
    const MidiSong merged = read(song(1, {track("\x10\xFF\x51\3\x0F\x42\x40"s), // one second
                                          track("\x08\x90\x3C\x40\x08\x3C\0"s)}));
    ASSERT_EQ(merged.events.size(), 3U);
    EXPECT_EQ(merged.events[0].status, 0x90);
    EXPECT_TRUE(merged.events[1].isTempo());
    EXPECT_EQ(merged.events[1].tempo(), 1000000U);
    EXPECT_EQ(merged.events[2].status, 0x90) << "running status";
    EXPECT_EQ(merged.events[2].delta, 0U);
    EXPECT_EQ(merged.length, 16U); // 16 ticks of 500 ms / 480
    EXPECT_EQ(merged.firstNote, 0U);
    EXPECT_EQ(read(song(0, {track("\0\xC0\5"s), track("\0\xC0\6"s)})).events.size(), 1U);
    EXPECT_TRUE(read(song(1, {})).events.empty());
}

TEST(MidiFile, theSilenceBeforeTheFirstNoteIsMeasured)
{
    // The note behind a data byte 6 does not count: it is part of a parameter.
    const MidiSong measured = read(song(0, {track("\x83\x60\xB0\6\x7F"s // 480 ticks: half a second
                                                  "\x81\x70\x90\x3C\x40"s // 240
                                                  "\x81\x70\x90\x3E\x40"s)}));
    EXPECT_EQ(measured.firstNote, 750U);
    EXPECT_EQ(measured.length, 1000U);
}

TEST(MidiFile, whatIsNoSongIsTold)
{
    const struct
    {
        const char* what;
        std::string file;
        MidiFault code;
        WStringView trackFault;
    } cases[] = {
        {"empty", "", MidiFault::NotMidi, {}},
        {"other", "RIFF and so on, long enough", MidiFault::NotMidi, {}},
        {"missing track", song(1, {track("")}).substr(0, 16), MidiFault::InvalidTrack, {}},
        {"ends inside", song(0, {track("\0\x90\x3C"s)}).substr(0, 24), MidiFault::InvalidTrack, {}},
        {"no status", song(0, {track("\0\x3C\x40"s)}), MidiFault::InvalidTrack,
         u"Illegal status byte"},
        {"unknown meta event", song(0, {track("\0\xFF\x60\0"s)}), MidiFault::InvalidTrack,
         u"It is a meta event that doesn't exist. "},
        {"tempo of two bytes", song(0, {track("\0\xFF\x51\2\1\1"s)}), MidiFault::InvalidTrack,
         u"The data length of the fixed length meta event is illegal."},
    };
    for (const auto& test : cases) {
        WString fault;
        try {
            readMidiSong(asBytes(test.file), fault);
            ADD_FAILURE() << test.what;
        } catch (const MidiFileException& refusal) {
            EXPECT_EQ(refusal.getCode(), test.code) << test.what;
            EXPECT_EQ(fault, test.trackFault) << test.what;
        }
    }
    TemporaryProject project;
    RecordingHost host;
    EXPECT_THROW(loadMidiSong(u"missing.mid"), MidiFileException);
    EXPECT_TRUE(host.messages.empty());
    project.write("bad.mid", song(0, {track("\0\x3C\x40"s)}));
    EXPECT_THROW(loadMidiSong(u"bad.mid"), MidiFileException);
    EXPECT_EQ(host.messages.at(0), u"Illegal status byte");
}

TEST(MidiSequencer, skipsTheSilenceAndGoesRoundFromTheMark)
{
    const MidiSong walked = read(song(0, {track("\x83\x60\xB0\x07\x64"s // 480 ticks: half a second
                                                "\0\x90\x3C\x40"s
                                                "\x83\x60\xB0\x6F\0"s
                                                "\x83\x60\x90\x3E\x40"s)}));
    RecordingOutput output;
    MidiSequencer sequencer(walked, output);
    sequencer.loop = true;
    const std::vector<std::string> expected = {"0: b0 7 100", "0: 90 60 64", "1000: 90 62 64",
                                               "1501: 90 62 64"};
    EXPECT_EQ(play(sequencer, output, 6), expected);
    EXPECT_EQ(sequencer.getPosition(), 1500U);
    sequencer.loop = false;
    EXPECT_TRUE(play(sequencer, output).empty());
    EXPECT_EQ(sequencer.getPosition(), 1000U) << "the place of the mark";
}

TEST(MidiSequencer, aSeekSilencesAndPicksUpHeldNotes)
{
    const MidiSong walked = read(song(0, {track("\0\x90\x3C\x40\0\x3D\x41\0\xC0\5"s
                                                "\x83\x60\x80\x3C\0"s
                                                "\x83\x60\x90\x3F\x42"s
                                                "\x83\x60\x90\x40\x43"s)}));
    RecordingOutput output;
    MidiSequencer sequencer(walked, output);
    play(sequencer, output, 5);
    sequencer.seek(600);
    const std::vector<std::string> expected = {"1000: silence", "1000: c0 5 0", "1000: 90 61 65",
                                               "1000: 90 63 66", "1500: 90 64 67"};
    EXPECT_EQ(play(sequencer, output), expected);

    sequencer.loop = true;
    play(sequencer, output, 2);
    sequencer.seek(99999); // behind the end: it goes round in silence, once
    const auto messages = play(sequencer, output, 20);
    EXPECT_EQ(std::ranges::count_if(
                  messages, [](const std::string& text) { return text.ends_with("silence"); }),
              1);
    EXPECT_GT(messages.size(), 10U);
}

TEST(MidiSequencer, volumeShapesVelocitiesAndOtherMakersAreLeftOut)
{
    const struct
    {
        int velocity, volume, expected;
    } cases[] = {{100, 50, 74}, {100, 100, 100}, {127, 99, 125},
                 {0, 50, 0},    {1, 50, 8},      {90, 0, 0}};
    for (const auto& test : cases)
        EXPECT_EQ(velocityAt(static_cast<std::uint8_t>(test.velocity), test.volume), test.expected)
            << test.velocity << " at " << test.volume;

    const MidiSong walked = read(song(0, {track("\0\xF0\3\x41\x10\xF7\0\xF0\3\x7E\x7F\xF7"s
                                                "\0\xF0\1\x7E\0\xFF\1\4text\0\x91\x3C\x64"s)}));
    RecordingOutput output;
    MidiSequencer sequencer(walked, output);
    sequencer.volume = 50;
    const std::vector<std::string> expected = {"0: long 4", "0: 91 60 74"};
    EXPECT_EQ(play(sequencer, output), expected);
}

} // namespace varn::test
