#include "Audio/AudioPlayer.h"
#include "Audio/MP3.h"
#include "Audio/OggDecoder.h"
#include "Audio/SilentDevice.h"
#include "Audio/SoundPlayer.h"
#include "LoopbackOutput.h"
#include "Support/TemporaryProject.h"
#include "TestSound.h"
#include "Util/FileLogger.h"
#include "Util/ProjectPath.h"

#include <gtest/gtest.h>

namespace varn::test {

namespace {

using Samples = std::vector<std::int16_t>;

/// The samples from a frame on.
Samples part(const Samples& samples, std::size_t from, std::size_t frames)
{
    const auto begin = samples.begin() + static_cast<std::ptrdiff_t>(from * 2);
    return {begin, begin + static_cast<std::ptrdiff_t>(frames * 2)};
}

bool isSilent(const Samples& samples)
{
    return std::all_of(samples.begin(), samples.end(), [](auto sample) { return sample == 0; });
}

/// Plays samples that lie in memory.
AudioPlayer samplePlayer(const Samples& samples, SoundOutput& output)
{
    return {std::make_unique<SampleDecoder>(samples), output};
}

class NoticeCounter : public AudioPlayerListener
{
  public:
    void playerChanged(IAudioPlayer&, AudioNotice notice) override
    {
        ++(notice == AudioNotice::Opened ? opened : ended);
    }
    std::atomic<int> opened = 0, ended = 0;
};

/// A silent device that somebody unplugs.
class UnpluggableDevice final : public SoundDevice
{
  public:
    explicit UnpluggableDevice(const std::atomic<bool>& isPlugged) : isPlugged(isPlugged) {}
    std::uint32_t samplesPerSecond() const override { return 48000; }
    std::unique_ptr<SoundVoice> openVoice() override
    {
        return isPlugged ? std::make_unique<Voice>(isPlugged) : nullptr;
    }

  private:
    struct Voice final : SoundVoice
    {
        explicit Voice(const std::atomic<bool>& isPlugged) : isPlugged(isPlugged) {}
        bool write(std::span<const std::int16_t> samples) override
        {
            return isPlugged && inner.write(samples);
        }
        std::optional<std::uint64_t> heard() override
        {
            return isPlugged ? inner.heard() : std::nullopt;
        }
        void pause() override { inner.pause(); }
        void resume() override { inner.resume(); }
        void reset() override { inner.reset(); }

        const std::atomic<bool>& isPlugged;
        SilentVoice inner{48000};
    };

    const std::atomic<bool>& isPlugged;
};

std::size_t countLines(const std::string& log, std::string_view word)
{
    const WString text(reinterpret_cast<const char16_t*>(log.data()), log.size() / 2);
    const WString wanted = fromUtf8(word);
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(wanted, at)) != WString::npos; ++at)
        ++count;
    return count;
}

} // namespace

TEST(AudioPlayer, whatIsDecodedIsHeardToTheBit)
{
    TemporaryProject project;
    const Samples samples = distinctSamples(72777); // three buffers and a part of one
    project.write("sound.wav", waveFile(samples));
    LoopbackOutput loopback;
    NoticeCounter notices;
    AudioPlayer player(nullptr, loopback.get());
    player.setNotify(&notices);
    ASSERT_TRUE(player.play(u"sound.wav"));
    std::filesystem::remove("sound.wav"); // it plays on
    EXPECT_EQ(loopback.listen(72777), samples);
    EXPECT_TRUE(isSilent(loopback.listenAsItIs(2000)));
    EXPECT_TRUE(LoopbackOutput::waitUntil([&] { return notices.ended == 1; }));
    EXPECT_FALSE(player.isPlaying());
    EXPECT_EQ(notices.opened, 1);
}

TEST(AudioPlayer, loopsWithoutASampleTooManyOrTooFew)
{
    const struct
    {
        const char* what;
        std::size_t frames;
        std::uint32_t loopStart, loopLength; ///< in frames
        std::size_t seam;                    ///< the frame behind which it goes back
    } cases[] = {
        {"to the beginning", 60000, 0, 0, 60000},
        {"an end with the end of a buffer", 44100, 0, 0, 44100},
        {"to a mark, from the end", 60000, 1234, 0, 60000},
        // The end of a loop is looked for behind each read of 1024 frames; the third buffer's reads
        // begin at frame 44100.
        {"to a mark, from a mark", 90000, 20000, 30000, 44100 + 6 * 1024},
    };
    for (const auto& test : cases) {
        const Samples samples = distinctSamples(test.frames);
        auto decoder = std::make_unique<SampleDecoder>(samples);
        decoder->loopStart = test.loopStart * 4;
        decoder->loopLength = test.loopLength * 4;
        LoopbackOutput loopback;
        AudioPlayer player(std::move(decoder), loopback.get());
        player.setLoop(true);
        ASSERT_TRUE(player.start());
        const Samples heard = loopback.listen(test.seam + 10000);
        EXPECT_EQ(part(heard, 0, test.seam), part(samples, 0, test.seam)) << test.what;
        EXPECT_EQ(part(heard, test.seam, 10000), part(samples, test.loopStart, 10000)) << test.what;
        EXPECT_NEAR(player.getPosition(), (test.loopStart + 10000) * 1000 / 44100, 3) << test.what;
    }
}

TEST(AudioPlayer, aStreamLoopsWhereItsTagsSay)
{
    const std::filesystem::path file =
        std::filesystem::path(VARN_SOURCE_DIR) / "demo/Audio/BGS/shore.ogg";
    OggDecoder decoder;
    ASSERT_TRUE(decoder.open(toWide(file)));
    ASSERT_EQ(decoder.loopStart, 4U * 44100);
    ASSERT_EQ(decoder.loopLength, 8U * 44100);
    ASSERT_EQ(decoder.size, 12U * 44100) << "nothing lies behind the loop that would be overshot";
    const auto decoded = [&](std::uint32_t from, std::size_t frames) {
        decoder.seek(from);
        Samples samples(frames * 2);
        for (std::size_t at = 0; at < samples.size();) {
            const auto rest = std::as_writable_bytes(std::span(samples).subspan(at));
            at += decoder.read(rest.first(std::min<std::size_t>(rest.size(), 4096))) / 2;
        }
        return samples;
    };

    LoopbackOutput loopback;
    AudioPlayer player(nullptr, loopback.get());
    player.setLoop(true);
    ASSERT_TRUE(player.open(toWide(file)));
    player.seek(10000);
    ASSERT_TRUE(player.start());
    EXPECT_EQ(loopback.listen(88200), decoded(441000, 88200));
    EXPECT_EQ(loopback.listen(44100), decoded(176400, 44100));
    EXPECT_NEAR(player.getPosition(), 5000, 3);
}

TEST(AudioPlayer, pausesAndSeeksToTheSample)
{
    const Samples samples = distinctSamples(200000);
    LoopbackOutput loopback;
    AudioPlayer player = samplePlayer(samples, loopback.get());
    ASSERT_TRUE(player.start());
    EXPECT_EQ(loopback.listen(30000), part(samples, 0, 30000));
    EXPECT_NEAR(player.getPosition(), 680, 2);
    player.pause();
    EXPECT_TRUE(player.isPaused() && player.isPlaying());
    EXPECT_TRUE(isSilent(loopback.listenAsItIs(5000)));
    EXPECT_NEAR(player.getPosition(), 680, 2);
    player.resume();
    const unsigned resets = loopback.resetCount();
    EXPECT_EQ(loopback.listen(1000), part(samples, 30000, 1000));

    player.seek(3000);
    loopback.waitForReset(resets + 1);
    EXPECT_EQ(loopback.listen(1000), part(samples, 132300, 1000));
    player.pause();
    player.seek(2000);
    loopback.waitForReset(resets + 2);
    EXPECT_TRUE(isSilent(loopback.listenAsItIs(1000)));
    player.resume();
    EXPECT_EQ(loopback.listen(1000), part(samples, 88200, 1000));

    player.seek(60000); // behind the end: it is over
    EXPECT_TRUE(LoopbackOutput::waitUntil([&] { return !player.isPlaying(); }));
    player.seek(1000); // and starts from there
    ASSERT_TRUE(player.start());
    EXPECT_EQ(loopback.listen(1000), part(samples, 44100, 1000));
}

TEST(AudioPlayer, aStopIsSilentAtOnce)
{
    LoopbackOutput loopback;
    AudioPlayer player = samplePlayer(distinctSamples(200000), loopback.get());
    std::vector<std::chrono::steady_clock::duration> times;
    for (int round = 0; round < 21; ++round) {
        ASSERT_TRUE(player.start());
        loopback.listen(441);
        const auto begin = std::chrono::steady_clock::now();
        player.stop();
        times.push_back(std::chrono::steady_clock::now() - begin);
        EXPECT_FALSE(player.isPlaying());
        EXPECT_TRUE(isSilent(loopback.listenAsItIs(441)));
    }
    std::sort(times.begin(), times.end());
    EXPECT_LT(times[times.size() / 2], std::chrono::milliseconds(20)); // a busy machine delays some
}

TEST(AudioPlayer, otherFormatsSoundAsTheyAre)
{
    const Samples mono = sine(997, 44100, 0.8);
    std::string low; // 8 bits
    for (const std::int16_t sample : mono)
        low += static_cast<char>((sample >> 8) + 128);
    const struct
    {
        const char* what;
        std::string file;
        std::uint32_t deviceRate;
        double most; ///< how far a sample may be off
    } cases[] = {
        {"mono", waveFile(mono, 1), 44100, 0},
        {"8 bits", waveHead(1, 44100, 8, static_cast<std::uint32_t>(low.size())) + low, 44100, 256},
        {"22050 Hz", waveFile(sine(997, 22050, 0.8), 1, 22050), 44100, 4},
        {"48000 Hz", waveFile(sine(997, 48000, 0.8), 1, 48000), 44100, 4},
        {"a device of 48000 Hz", waveFile(mono, 1), 48000, 4},
    };
    for (const auto& test : cases) {
        TemporaryProject project;
        project.write("sine.wav", test.file);
        LoopbackOutput loopback(test.deviceRate);
        AudioPlayer player(nullptr, loopback.get());
        ASSERT_TRUE(player.play(u"sine.wav")) << test.what;
        const Samples wanted = sine(997, test.deviceRate, 0.8);
        const Samples heard = loopback.listen(wanted.size());
        double most = 0;
        for (std::size_t i = 200; i + 200 < wanted.size(); ++i) {
            most = std::max<double>(most, std::abs(wanted[i] - heard[i * 2]));
            most = std::max<double>(most, std::abs(wanted[i] - heard[i * 2 + 1]));
        }
        EXPECT_LE(most, test.most) << test.what;
        EXPECT_TRUE(isSilent(loopback.listenAsItIs(1000))) << test.what;
    }
}

TEST(AudioPlayer, refusesWhatIsNoSound)
{
    TemporaryProject project;
    const std::string good = waveFile(distinctSamples(1000));
    std::string fast = good, none = good;
    fast.replace(24, 4, "\xFF\xFF\xFF\x7F");   // samples a second
    none.replace(22, 2, std::string(2, '\0')); // channels
    project.write("fast.wav", fast);
    project.write("none.wav", none);
    project.write("short.wav", good.substr(0, 10));
    project.write("wave.ogg", good);
    project.write("wave.mp3", good);
    SoundOutput output([] { return std::make_unique<SilentDevice>(1000); });
    AudioPlayer player(nullptr, output);
    for (const WStringView name :
         {u"fast.wav", u"none.wav", u"short.wav", u"wave.ogg", u"wave.mp3", u"missing.wav"}) {
        EXPECT_FALSE(player.open(name)) << toUtf8(name);
        EXPECT_FALSE(player.start()) << toUtf8(name);
    }
    MP3 mp3(output);
    EXPECT_FALSE(mp3.open(u"wave.mp3"));
    EXPECT_EQ(mp3.getLastError(), u"wave.mp3 Couldn't play this file");
    // The head of a frame, and nothing of a song behind it.
    project.write("head.mp3", "\xFF\xFB\x90\x64" + std::string(500, 'x'));
    NoticeCounter notices;
    mp3.setNotify(&notices);
    ASSERT_TRUE(mp3.play(u"head.mp3"));
    EXPECT_TRUE(LoopbackOutput::waitUntil([&] { return notices.ended == 1; }));
    EXPECT_FALSE(mp3.isPlaying());
}

TEST(SoundPlayer, effectsOverlapAndAreCollected)
{
    TemporaryProject project;
    project.write("long.wav", waveFile(sine(440, 8000, 100), 1, 8000));
    project.write("short.wav", waveFile(distinctSamples(4410)));
    SoundOutput output([] { return std::make_unique<SilentDevice>(10); });
    SoundPlayer player(output);
    for (int i = 0; i < 3; ++i)
        ASSERT_TRUE(player.play(u"long.wav"));
    ASSERT_TRUE(player.play(u"short.wav"));
    EXPECT_EQ(player.count(), 4U);
    std::this_thread::sleep_for(std::chrono::milliseconds(300)); // three seconds of theirs
    EXPECT_EQ(player.count(), 4U) << "nothing was played that collects";
    EXPECT_FALSE(player.play(u"missing.wav"));
    ASSERT_TRUE(player.play(u"short.wav"));
    EXPECT_EQ(player.count(), 4U) << "three long ones and the new one";
    EXPECT_TRUE(player.isPlaying());
    player.stop();
    EXPECT_FALSE(player.isPlaying());
}

TEST(SoundOutput, aDeviceThatVanishesIsReplacedByAClock)
{
    TemporaryProject project;
    FileLogger::instance().open("log.log");
    std::atomic<bool> isPlugged = true;
    SoundOutput output([&]() -> std::unique_ptr<SoundDevice> {
        if (!isPlugged)
            throw Exception(u"There is none.");
        return std::make_unique<UnpluggableDevice>(isPlugged);
    });
    AudioPlayer music = samplePlayer(distinctSamples(44100), output);
    AudioPlayer effect = samplePlayer(distinctSamples(30000), output);
    ASSERT_TRUE(music.start() && effect.start());
    std::this_thread::sleep_for(std::chrono::milliseconds(150));
    isPlugged = false;
    EXPECT_TRUE(LoopbackOutput::waitUntil([&] { return music.getPosition() > 500; }))
        << "time goes on";
    ASSERT_TRUE(LoopbackOutput::waitUntil([&] { return !music.isPlaying(); }));
    EXPECT_TRUE(music.start());
    music.stop();
    FileLogger::instance().close();
    EXPECT_EQ(countLines(project.read("log.log"), "The sound device is gone."), 1U);
    EXPECT_EQ(countLines(project.read("log.log"), "silently"), 1U);
}

// The sound library's own null device, where the environment names it; any card; or our clock.
TEST(SoundOutput, theMachinesDeviceKeepsTime)
{
    TemporaryProject project;
    AudioPlayer player = samplePlayer(distinctSamples(44100), soundOutput());
    const auto begin = std::chrono::steady_clock::now();
    ASSERT_TRUE(player.start());
    ASSERT_TRUE(LoopbackOutput::waitUntil([&] { return player.getPosition() > 200; }));
    EXPECT_GT(player.getLevel(), 0.5F);
    player.pause();
    const std::uint32_t position = player.getPosition();
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_EQ(player.getPosition(), position);
    player.resume();
    ASSERT_TRUE(LoopbackOutput::waitUntil([&] { return !player.isPlaying(); }));
    EXPECT_GT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(1200));
}

TEST(SoundOutput, withoutADeviceTheClockPlays)
{
    TemporaryProject project;
    FileLogger::instance().open("log.log");
    SoundOutput output([]() -> std::unique_ptr<SoundDevice> { throw Exception(u"None opens."); });
    for (int round = 0; round < 2; ++round) {
        AudioPlayer player = samplePlayer(distinctSamples(4410), output);
        ASSERT_TRUE(player.start());
        EXPECT_TRUE(LoopbackOutput::waitUntil([&] { return !player.isPlaying(); }));
    }
    FileLogger::instance().close();
    EXPECT_EQ(countLines(project.read("log.log"), "None opens."), 1U);
}

} // namespace varn::test
