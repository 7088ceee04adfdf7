#pragma once

#include "Audio/IAudioPlayer.h"
#include "Audio/MidiFile.h"
#include "Audio/PlayedTimes.h"
#include "Audio/PlayerThread.h"
#include "Audio/Synth.h"
#include "Audio/WaveOutput.h"

namespace varn {

class SongStream;

/// Plays songs: a sequencer of its own walks the events into a synthesizer, whose samples are
/// rendered a tenth of a second ahead.
class Midi final : public IAudioPlayer
{
  public:
    explicit Midi(SoundOutput& output) : wave(output) {}
    ~Midi() override { clearSong(); }

    /// @throws MidiFileException  it is no song; what is wrong inside a track was shown
    bool open(WStringView path) override;
    bool start() override;
    void stop() override;
    /// A song does not pause.
    void pause() override {}
    void resume() override {}
    bool isPlaying() const override { return thread.isRunning(); }
    bool isPaused() const override { return false; }
    void seek(std::uint32_t milliseconds) override;
    std::uint32_t getPosition() override;
    float getLevel() override { return wave.level(); }

    /// What is open. For those who ask what it is, while it is idle.
    const MidiSong& getSong() const { return song; }

  private:
    void clearSong();
    void run(const std::stop_token& stop);
    void playSong(SongStream& stream, const std::stop_token& stop);
    bool fillBuffer(SongStream& stream);

    MidiSong song;
    bool opened = false;
    WaveOutput wave;
    PlayedTimes times;
    std::unique_ptr<Synth> synth;              // made by the first song, on the thread
    std::atomic<std::int64_t> seekTarget = -1; // milliseconds; taken back when it is answered
    PlayerThread thread;                       // last: it works on all above
};

} // namespace varn
