#pragma once

#include "Audio/Resampler.h"
#include "Audio/SoundOutput.h"

#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>

namespace varn {

/// What a player's buffers hold: PCM of 8 bits unsigned or 16 bits signed, little-endian.
struct WaveFormat
{
    std::uint32_t channels = 2;
    std::uint32_t samplesPerSecond = 44100;
    std::uint32_t bitsPerSample = 16;

    /// Of other formats nothing can be made that is heard.
    bool isPlayable() const;
    std::uint32_t blockAlign() const { return channels * bitsPerSample / 8; }
};

/// A player's wave device: takes buffers, tells which are done, and knows what is heard. It makes
/// of every format what the device sounds sample for sample: mono goes to both sides, of more than
/// two channels the first two are heard, other rates are resampled.
///
/// The player's thread opens and writes; any thread pauses, resumes, resets, closes and asks. When
/// the device vanishes, what is queued goes on silently, in its time.
class WaveOutput
{
  public:
    explicit WaveOutput(SoundOutput& output) : output(output) {}

    /// Before the player's thread starts: from here to `close` the wave may be opened.
    void allow();
    /// Opens a voice, which may take its time; nothing, when the wave was closed meanwhile.
    void open(const WaveFormat& format);
    /// Queues a buffer of whole frames; one of none is done with the one before it.
    void write(std::span<const std::byte> samples);
    /// What was written is all: queues what a filter still holds of it.
    void finish();

    /// How many buffers are done that were not told before.
    unsigned takeDone();
    /// How long until the next one is done, or until somebody should look whether the device is
    /// still there: a tenth of a second at most.
    std::chrono::nanoseconds untilDone();

    void pause();
    void resume();
    bool isPaused() const;
    /// Silent at once; drops what is queued, tells no more of it.
    void reset();
    /// Silent at once; later writes go nowhere.
    void close();

    /// Frames heard, in the format's rate, since the opening or the last reset.
    std::uint64_t heard();
    /// Frames written that were not heard yet, in the device's rate.
    std::uint64_t pending();
    /// The loudest sample of the last 30 ms that were heard, 0 to 1; 0 while paused or closed.
    float level();

  private:
    std::uint64_t heardLocked();
    void queueLocked();
    void notePeaksLocked();
    void goSilentLocked();
    void forgetLocked();

    SoundOutput& output;

    mutable std::mutex voiceLock; // guards all below; held for as long as a buffer is converted
    bool allowed = false;
    bool paused = false;
    WaveFormat format;
    SoundDevice* device = nullptr;
    std::unique_ptr<SoundVoice> voice;
    std::optional<Resampler> resampler;
    std::vector<std::int16_t> stereo;  // a buffer in the format's rate
    std::vector<std::int16_t> samples; // and in the device's
    std::deque<std::uint64_t> ends;    // of the buffers that are not done, in device frames
    std::uint64_t written = 0;         // device frames since the opening or the last reset
    std::uint64_t lastHeard = 0;
    std::uint64_t silentFrom = 0;    // what was heard when the device vanished
    std::deque<std::uint16_t> peaks; // of each hundredth of a second, up to what is written
    std::uint64_t peaksFrom = 0;     // the hundredth of the first
    std::uint64_t peakFrames = 0;    // device frames in `peaks`, and before them
};

} // namespace varn
