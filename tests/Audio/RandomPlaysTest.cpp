#include "Audio/AudioManager.h"
#include "Audio/SilentDevice.h"
#include "Audio/SoundOutput.h"
#include "MidiBytes.h"
#include "Support/TemporaryProject.h"
#include "TestSound.h"
#include "Util/FileLogger.h"
#include "Util/Random.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <thread>

namespace varn::test {

namespace {

using namespace std::string_literals;

std::size_t countThreads()
{
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& each : std::filesystem::directory_iterator("/proc/self/task"))
        ++count;
    return count;
}

/// The files of a game: long and short, whole and broken.
void writeSounds(const TemporaryProject& project)
{
    const std::string good = waveFile(distinctSamples(44100));
    project.write("Audio/BGM/music.wav", waveFile(distinctSamples(44100 * 7)));
    project.write("Audio/BGM/odd.wav", waveFile(distinctSamples(11025), 1, 11025));
    project.write("Audio/BGM/broken.ogg", good);
    project.write("Audio/BGM/broken.mp3", "\xFF\xFB\x90\x64" + good);
    std::string events;
    for (char key = 40; key < 80; ++key)
        events += "\0\x90"s + key + "\x64\x60\x80"s + key + "\0"s;
    project.write("Audio/BGM/song.mid", song(0, {track(events)}, 96));
    project.write("Audio/BGS/wind.wav", good);
    project.write("Audio/SE/step.wav", waveFile(distinctSamples(9000)));
    project.write("Audio/SE/bell.wav", waveFile(distinctSamples(44100 * 3), 2, 22050));
    project.write("Audio/SE/cut.wav", good.substr(0, 70));
}

class Player
{
  public:
    Player(AudioManager& audio, std::uint32_t seed) : audio(audio) { random.seed(seed); }

    void doAnything()
    {
        static constexpr WStringView kMusic[] = {u"music.wav",  u"odd.wav", u"broken.ogg",
                                                 u"broken.mp3", u"song",    u"missing"};
        static constexpr WStringView kEffects[] = {u"step", u"bell", u"cut", u"missing"};
        Audio& music = audio.getChannel(AudioManager::Channel::BGM);
        switch (below(16)) {
        case 0:
        case 1:
            audio.playMusic(kMusic[below(6)], below(3));
            break;
        case 2:
            audio.playBGS(u"wind.wav", below(2));
            break;
        case 3:
            audio.stopMusic();
            break;
        case 4:
            audio.stopBGS();
            break;
        case 5:
            audio.stopSound();
            break;
        case 6:
            audio.setMusicCurrentPosition(static_cast<std::uint32_t>(below(9001)));
            break;
        case 7:
            music.pauseMusic();
            break;
        case 8:
            music.resumeMusic();
            break;
        case 9:
            audio.setVolume(below(101));
            break;
        case 10:
            audio.setMusicEnabled(below(4) != 0);
            break;
        case 11:
            EXPECT_LE(audio.getMusicCurrentPosition(), 30000U);
            break;
        default:
            audio.playSound(kEffects[below(4)], true);
        }
    }

  private:
    int below(std::uint32_t end) { return static_cast<int>(random.word() % end); }

    AudioManager& audio;
    Random random;
};

} // namespace

// A minute of a game in fast time. VARN_SOUND_SECONDS tells another length of sound: an hour is
// 3600.
TEST(RandomPlays, leaveNoThreadAndNothingHanging)
{
    static constexpr double kSpeed = 100;
    const char* const wanted = std::getenv("VARN_SOUND_SECONDS");
    const std::chrono::duration<double> length((wanted ? std::atof(wanted) : 60) / kSpeed);
    TemporaryProject project;
    writeSounds(project);
    FileLogger::instance().open("log.log");
    const std::size_t before = countThreads();
    {
        SoundOutput output([] { return std::make_unique<SilentDevice>(kSpeed); });
        AudioManager audio(output);
        const auto end = std::chrono::steady_clock::now() + length;
        const auto playOn = [&](std::uint32_t seed) {
            Player player(audio, seed);
            while (std::chrono::steady_clock::now() < end) {
                player.doAnything();
                std::this_thread::sleep_for(std::chrono::microseconds(500));
            }
        };
        std::thread script(playOn, 2); // scripts have threads of their own
        playOn(1);
        script.join();
    }
    EXPECT_EQ(countThreads(), before);
    FileLogger::instance().close();
}

} // namespace varn::test
