// What sound costs while a game plays, how fast it renders, and how soon it stops. The demo project
// is what plays. The peer is the sum of the libraries' own work: decoding and mixing without a
// player.
#include "Audio/AudioPlayer.h"
#include "Audio/Midi.h"
#include "Audio/OggDecoder.h"
#include "Audio/Rendering.h"
#include "Audio/SoundOutput.h"
#include "Util/ProjectPath.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <sys/resource.h>
#include <thread>

namespace varn {

namespace {

WString demoFile(const char* name)
{
    return toWide(std::filesystem::path(VARN_SOURCE_DIR) / "demo/Audio" / name);
}

double cpuSeconds()
{
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// The mixer read in the time of a sound card, a hundredth of a second at once.
class CardLikeDevice final : public SoundDevice
{
  public:
    CardLikeDevice() : inner(openLoopbackDevice(44100)) {}
    std::uint32_t samplesPerSecond() const override { return 44100; }
    std::unique_ptr<SoundVoice> openVoice() override { return inner->openVoice(); }
    void step()
    {
        float block[882];
        inner->render(block);
        benchmark::DoNotOptimize(block);
    }

  private:
    std::unique_ptr<LoopbackDevice> inner;
};

/// Lets so many steps pass in real time; gives the share of a core in percent.
double shareOfCore(CardLikeDevice& device, int steps)
{
    const double cpu = cpuSeconds();
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 1; i <= steps; ++i) {
        device.step();
        std::this_thread::sleep_until(begin + std::chrono::milliseconds(10) * i);
    }
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - begin;
    return (cpuSeconds() - cpu) / passed.count() * 100;
}

/// Music and six effects, which go round; three of them at another rate than the device's.
void playMusicAndEffects(benchmark::State& state, const char* music)
{
    CardLikeDevice* device = nullptr;
    SoundOutput output([&] {
        auto made = std::make_unique<CardLikeDevice>();
        device = made.get();
        return made;
    });
    std::vector<std::unique_ptr<IAudioPlayer>> players;
    if (std::string_view(music).ends_with(".mid"))
        players.push_back(std::make_unique<Midi>(output));
    else
        players.push_back(std::make_unique<AudioPlayer>(nullptr, output));
    players.back()->open(demoFile(music));
    for (const char* effect : {"SE/bell.wav", "SE/door.wav", "SE/gate.wav", "SE/stone.wav",
                               "SE/splash.wav", "BGS/drip.wav"}) {
        players.push_back(std::make_unique<AudioPlayer>(nullptr, output));
        players.back()->open(demoFile(effect));
    }
    for (const auto& player : players) {
        player->setLoop(true);
        player->start();
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(300)); // they are filled
    for (auto _ : state)
        state.counters["percent_of_core"] = shareOfCore(*device, 1000);
}

// Nineteen voices at once.
void playSongAndEffects(benchmark::State& state)
{
    playMusicAndEffects(state, "BGM/prior.mid");
}
BENCHMARK(playSongAndEffects)->Iterations(1)->Unit(benchmark::kSecond);

// All the voices that the synthesizer has.
void playDensestSongAndEffects(benchmark::State& state)
{
    playMusicAndEffects(state, "BGM/battle.mid");
}
BENCHMARK(playDensestSongAndEffects)->Iterations(1)->Unit(benchmark::kSecond);

void playStreamAndEffects(benchmark::State& state)
{
    playMusicAndEffects(state, "BGS/shore.ogg");
}
BENCHMARK(playStreamAndEffects)->Iterations(1)->Unit(benchmark::kSecond);

// Seconds of sound in a second, through the player's fill loop.
void renderStream(benchmark::State& state)
{
    double seconds = 0;
    for (auto _ : state) {
        OggDecoder decoder;
        decoder.open(demoFile("BGS/shore.ogg"));
        benchmark::DoNotOptimize(renderSound(decoder, {.seconds = 60, .loop = true}));
        seconds += 60;
    }
    state.counters["times_real_time"] = {seconds, benchmark::Counter::kIsRate};
}
BENCHMARK(renderStream)->Unit(benchmark::kMillisecond);

// The same decoding without it.
void decodeStream(benchmark::State& state)
{
    double seconds = 0;
    for (auto _ : state) {
        OggDecoder decoder;
        decoder.open(demoFile("BGS/shore.ogg"));
        std::vector<std::byte> all(60 * decoder.bytesPerSecond());
        for (std::size_t at = 0; at < all.size();) {
            const std::size_t count = decoder.read(std::span(all).subspan(at));
            at += count;
            if (count == 0)
                decoder.seek(decoder.loopStart);
        }
        benchmark::DoNotOptimize(all);
        seconds += 60;
    }
    state.counters["times_real_time"] = {seconds, benchmark::Counter::kIsRate};
}
BENCHMARK(decodeStream)->Unit(benchmark::kMillisecond);

void renderSongs(benchmark::State& state)
{
    const MidiSong song = loadMidiSong(demoFile("BGM/battle.mid"));
    double seconds = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(renderSong(song, {.seconds = 60, .loop = true}));
        seconds += 60;
    }
    state.counters["times_real_time"] = {seconds, benchmark::Counter::kIsRate};
}
BENCHMARK(renderSongs)->Unit(benchmark::kMillisecond);

// From the call until the mixer's next step is silent; a card's own buffer comes on top.
void stopPlayer(benchmark::State& state)
{
    CardLikeDevice* device = nullptr;
    SoundOutput output([&] {
        auto made = std::make_unique<CardLikeDevice>();
        device = made.get();
        return made;
    });
    AudioPlayer player(nullptr, output);
    player.open(demoFile("BGS/drip.wav"));
    double longest = 0;
    for (auto _ : state) {
        state.PauseTiming();
        player.start();
        while (!device || player.getLevel() == 0) {
            if (device)
                device->step();
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        state.ResumeTiming();
        const auto begin = std::chrono::steady_clock::now();
        player.stop();
        const std::chrono::duration<double, std::milli> passed =
            std::chrono::steady_clock::now() - begin;
        longest = std::max(longest, passed.count());
    }
    state.counters["longest_ms"] = longest;
}
BENCHMARK(stopPlayer)->Iterations(100)->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace varn
