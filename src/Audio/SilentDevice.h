#pragma once

#include "Audio/SoundDevice.h"

namespace varn {

/// A voice that nobody hears: it takes the time that its frames would take.
class SilentVoice final : public SoundVoice
{
  public:
    /// @param framesPerSecond  of the clock's time
    explicit SilentVoice(double framesPerSecond) : framesPerSecond(framesPerSecond) {}

    /// As `write`, for frames whose samples are not at hand.
    void queue(std::uint64_t frames);

    bool write(std::span<const std::int16_t> samples) override;
    std::optional<std::uint64_t> heard() override { return position(); }
    void pause() override;
    void resume() override;
    void reset() override;

  private:
    using Clock = std::chrono::steady_clock;

    std::uint64_t position() const;

    double framesPerSecond;
    std::uint64_t written = 0;
    std::uint64_t before = 0; // what was heard when the clock was started
    Clock::time_point started = Clock::now();
    bool paused = false;
};

/// What plays where no device opens: a clock.
class SilentDevice final : public SoundDevice
{
  public:
    static constexpr std::uint32_t kSamplesPerSecond = 44100;

    /// @param speed  of its clock; tests let hours pass in seconds
    explicit SilentDevice(double speed = 1) : speed(speed) {}

    std::uint32_t samplesPerSecond() const override { return kSamplesPerSecond; }
    std::unique_ptr<SoundVoice> openVoice() override;
    std::chrono::nanoseconds timeOf(std::uint64_t frames) const override;

  private:
    double speed;
};

} // namespace varn
