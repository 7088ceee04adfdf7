#include "Audio/AudioManager.h"
#include "Audio/SilentDevice.h"
#include "Audio/SoundOutput.h"
#include "LoopbackOutput.h"
#include "MidiBytes.h"
#include "Support/RecordingHost.h"
#include "Support/TemporaryProject.h"
#include "TestSound.h"
#include "Util/FileLogger.h"

#include <gtest/gtest.h>
#include <thread>

namespace varn::test {

namespace {

/// A project with sounds, and a manager whose clock is ten times as fast.
class AudioManagerTest : public ::testing::Test
{
  protected:
    AudioManagerTest() { FileLogger::instance().open("log.log"); }
    ~AudioManagerTest() override { FileLogger::instance().close(); }

    /// Long enough to play on while a test looks at it.
    void writeWave(const std::filesystem::path& path, double seconds = 60)
    {
        project.write(path, waveFile(sine(440, 8000, seconds), 1, 8000));
    }
    bool isLogged(WStringView text)
    {
        const std::string log = project.read("log.log");
        return WStringView(reinterpret_cast<const char16_t*>(log.data()), log.size() / 2)
                   .find(text) != WStringView::npos;
    }

    RecordingHost host;
    TemporaryProject project;
    SoundOutput output{[] { return std::make_unique<SilentDevice>(10); }};
    AudioManager audio{output};
};

} // namespace

TEST_F(AudioManagerTest, findsMusicByItsName)
{
    // What each name finds; the files are no songs, so nothing sounds, but the path is told.
    for (const char* file : {"Audio/BGM/both.ogg", "Audio/BGM/both.mp3", "Audio/BGM/b/deep.ogg",
                             "Audio/BGM/a/x/deep.ogg", "Audio/BGM/b/late.mid", "Audio/BGM/late.ogg",
                             "Audio/BGS/wind.ogg", "elsewhere/song.mid"})
        project.write(file, "no sound");
    const struct
    {
        WStringView name, path;
    } cases[] = {
        {u"both", u"Audio/BGM/both.mp3"},
        {u"both.ogg", u"Audio/BGM/both.ogg"},
        {u"BOTH.OGG", u"Audio/BGM/BOTH.OGG"}, // found ignoring case, named as it was asked for
        {u"deep", u"Audio/BGM/a/x/deep.ogg"},
        {u"late", u"Audio/BGM/b/late.mid"}, // an extension is looked for everywhere first
        {u"b/deep.ogg", u"Audio/BGM/b/deep.ogg"},
        {u"elsewhere\\song.mid", u"elsewhere\\song.mid"},
        {u"Audio/BGS/wind.ogg", u"Audio/BGS/wind.ogg"},
        {u"wind", u"wind"}, // not in this channel's folder
        {u"nothing.mid", u"nothing.mid"},
    };
    for (const auto& test : cases) {
        audio.playMusic(test.name);
        EXPECT_EQ(audio.getMusicPath(), test.path) << toUtf8(test.name);
        EXPECT_FALSE(audio.isMusicPlaying());
    }
    std::filesystem::remove("Audio/BGM/both.mp3");
    audio.playMusic(u"both");
    EXPECT_EQ(audio.getMusicPath(), u"Audio/BGM/both.ogg") << "the file found before is gone";
}

TEST_F(AudioManagerTest, whatPlaysGoesOnAndWhatPlayedIsTold)
{
    writeWave("Audio/BGM/one.wav");
    writeWave("Audio/BGM/two.wav");
    EXPECT_EQ(audio.playMusic(u"one.wav"), u"");
    EXPECT_TRUE(LoopbackOutput::waitUntil([&] { return audio.getMusicCurrentPosition() > 300; }));
    audio.playMusic(u"Audio/BGM/one.wav");
    EXPECT_GT(audio.getMusicCurrentPosition(), 300U) << "the same file";
    audio.setMusicCurrentPosition(30000);
    EXPECT_GE(audio.getMusicCurrentPosition(), 30000U);

    EXPECT_EQ(audio.playMusic(u"two.wav"), u"Audio/BGM/one.wav");
    EXPECT_LT(audio.getMusicCurrentPosition(), 10000U);
    EXPECT_TRUE(audio.isMusicPlaying());
    EXPECT_EQ(audio.playMusic(u""), u"Audio/BGM/two.wav");
    EXPECT_FALSE(audio.isMusicPlaying());
    EXPECT_EQ(audio.getMusicPath(), u"");
    EXPECT_EQ(audio.getMusicCurrentPosition(), 0U);
    EXPECT_EQ(audio.getChannel(AudioManager::Channel::BGM).getLastPath(), u"Audio/BGM/two.wav");
}

TEST_F(AudioManagerTest, loopsUnlessItIsToldNotTo)
{
    writeWave("Audio/BGS/wind.wav", 1);
    const Audio& channel = audio.getChannel(AudioManager::Channel::BGS);
    audio.playBGS(u"wind.wav", Audio::Once);
    EXPECT_TRUE(channel.isMusicPlaying());
    EXPECT_TRUE(LoopbackOutput::waitUntil([&] { return !channel.isMusicPlaying(); }));
    audio.playBGS(u"wind.wav");
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_TRUE(channel.isMusicPlaying());
    audio.stopBGS();
    EXPECT_FALSE(channel.isMusicPlaying());
}

TEST_F(AudioManagerTest, switchesSilenceAndBringBack)
{
    writeWave("Audio/BGM/one.wav");
    writeWave("Audio/BGM/two.wav");
    audio.playMusic(u"one.wav");
    audio.setMusicEnabled(false);
    EXPECT_FALSE(audio.isMusicPlaying());
    audio.playMusic(u"two.wav");
    EXPECT_FALSE(audio.isMusicPlaying());
    audio.setMusicEnabled(true);
    EXPECT_TRUE(audio.isMusicPlaying());
    EXPECT_EQ(audio.getMusicPath(), u"Audio/BGM/two.wav");

    writeWave("Audio/SE/knock.wav");
    audio.setSoundEnabled(false);
    const auto begin = std::chrono::steady_clock::now();
    audio.playSound(u"knock", false);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1));
}

TEST_F(AudioManagerTest, anEffectIsWaitedForOrNot)
{
    writeWave("Audio/SE/doors/oak.wav", 1); // a tenth of a second by this clock
    writeWave("Audio/SE/long.wav");
    const auto timeOf = [](const auto& work) {
        const auto begin = std::chrono::steady_clock::now();
        work();
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    };
    EXPECT_GT(timeOf([&] { audio.playSound(u"oak", false); }), 0.09);
    EXPECT_LT(timeOf([&] { audio.playSound(u"long.wav", true); }), 2.9);
    int asked = 0;
    EXPECT_LT(timeOf([&] { audio.playSound(u"long", false, [&] { return ++asked < 20; }); }), 2.9);
    EXPECT_EQ(asked, 20);
    // Somebody else stops it.
    std::thread stopper([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        audio.stopSound();
    });
    EXPECT_LT(timeOf([&] { audio.playSound(u"long", false); }), 2.9);
    stopper.join();
    audio.playSound(u"missing", false);
    EXPECT_TRUE(isLogged(u"missing Couldn't play this file\r\n"));
}

TEST_F(AudioManagerTest, whatCannotBePlayedIsSilent)
{
    writeWave("Audio/BGM/good.wav");
    project.write("Audio/BGM/wave.ogg", waveFile(distinctSamples(100)));
    project.write("Audio/BGM/wave.mp3", waveFile(distinctSamples(100)));
    project.write("Audio/BGM/text.mid", "This is a text.");
    project.write("Audio/BGM/track.mid", song(0, {track(std::string("\0\x40", 2))}));
    project.write("Audio/BGM/cut.mid",
                  song(0, {track(std::string("\0\x90\x40", 3))}).substr(0, 25));
    project.write("Audio/BGM/empty.wav", "");
    project.write("Audio/BGM/picture.png", "PNG");
    for (const WStringView name : {u"wave.ogg", u"wave.mp3", u"text.mid", u"track.mid", u"cut.mid",
                                   u"empty.wav", u"picture.png", u"missing.ogg"}) {
        ASSERT_TRUE((audio.playMusic(u"good.wav"), audio.isMusicPlaying()));
        audio.playMusic(name);
        EXPECT_FALSE(audio.isMusicPlaying()) << toUtf8(name);
        EXPECT_TRUE(isLogged(WString(name) + u" Couldn't play this file\r\n")) << toUtf8(name);
    }
    EXPECT_EQ(host.messages, std::vector<WString>{u"Illegal status byte"});
}

} // namespace varn::test
