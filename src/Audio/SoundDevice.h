#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>

namespace varn {

/// A run of sound on a device: interleaved stereo, 16 bits, at the device's rate. Used by one
/// thread at a time.
class SoundVoice
{
  public:
    virtual ~SoundVoice() = default; ///< silent at once

    /// Queues frames (not none) behind what is queued. What was heard to its end starts again with
    /// them. False: the device is gone.
    virtual bool write(std::span<const std::int16_t> samples) = 0;
    /// Frames heard since the opening or the last reset. Nothing: the device is gone.
    virtual std::optional<std::uint64_t> heard() = 0;
    virtual void pause() = 0;
    virtual void resume() = 0;
    /// Silent at once: drops what is queued. A pause stays one.
    virtual void reset() = 0;
};

/// What voices sound on. Voices may live on several threads; they go before their device.
class SoundDevice
{
  public:
    virtual ~SoundDevice() = default;

    virtual std::uint32_t samplesPerSecond() const = 0;
    /// Nothing: the device is gone, or has no more voices.
    virtual std::unique_ptr<SoundVoice> openVoice() = 0;
    /// How long the device takes for so many frames, for those who wait.
    virtual std::chrono::nanoseconds timeOf(std::uint64_t frames) const
    {
        return std::chrono::nanoseconds(frames * 1'000'000'000 / samplesPerSecond());
    }
};

/// A device that is read instead of heard: sample for sample what the machine's would sound.
class LoopbackDevice : public SoundDevice
{
  public:
    /// Goes on by as many frames as `samples` holds; interleaved stereo, a full scale of 1.
    virtual void render(std::span<float> samples) = 0;
};

/// The machine's sound device.
/// @throws Exception  none opens
std::unique_ptr<SoundDevice> openSoundDevice();

/// @throws Exception  the sound library is missing
std::unique_ptr<LoopbackDevice> openLoopbackDevice(std::uint32_t samplesPerSecond);

} // namespace varn
