#pragma once

#include "Audio/IAudioPlayer.h"
#include "Audio/PCMDecoder.h"
#include "Audio/PlayedTimes.h"
#include "Audio/PlayerThread.h"
#include "Audio/WaveOutput.h"

namespace varn {

/// Plays what a decoder gives, through two buffers of half a second: while one is heard, the other
/// is filled. Once it plays, only the player's thread touches the decoder; stop, pause and resume
/// work on the wave device, at once.
class BaseAudioPlayer : public IAudioPlayer
{
  public:
    bool start() override;
    void stop() override;
    void pause() override;
    void resume() override;
    bool isPlaying() const override { return thread.isRunning(); }
    bool isPaused() const override { return isPlaying() && wave.isPaused(); }
    void seek(std::uint32_t milliseconds) override;
    std::uint32_t getPosition() override;
    float getLevel() override { return wave.level(); }

  protected:
    BaseAudioPlayer(std::unique_ptr<PCMDecoder> decoder, SoundOutput& output)
        : decoder(std::move(decoder)), wave(output)
    {}

    /// Waits for the end of the thread. A destructor's first work, since the thread calls what
    /// follows here.
    void endThread();
    /// For `open`: the thread has ended, and nothing is asked any more.
    void forgetCommands();

    /// What is open can be played.
    virtual bool isReady() const = 0;
    /// On the thread, before the decoder is asked for its format. False: nothing is played.
    virtual bool prepare() { return true; }

    WaveFormat waveFormat() const
    {
        return {decoder->channels, decoder->samplesPerSecond, decoder->bitsPerSample};
    }

    std::unique_ptr<PCMDecoder> decoder;

  private:
    void run(const std::stop_token& stop);
    bool begin();
    bool keepPlaying();
    bool fillFromAskedPlace();
    bool fillBuffer();

    WaveOutput wave;
    PlayedTimes times;
    std::vector<std::byte> buffer; // half a second
    unsigned buffersQueued = 0;
    bool ended = false;                        // the decoder has no more
    std::atomic<std::int64_t> seekTarget = -1; // milliseconds; taken back when it is answered
    PlayerThread thread;                       // last: it works on all above
};

} // namespace varn
