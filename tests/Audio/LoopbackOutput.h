#pragma once

#include "Audio/SoundOutput.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace varn::test {

/// A sound output that the test reads instead of somebody hearing it, sample for sample. It waits
/// for the player before it goes on, so that a slow machine makes no gaps. For one player.
class LoopbackOutput
{
  public:
    explicit LoopbackOutput(std::uint32_t samplesPerSecond = 44100)
        : output([this, samplesPerSecond] {
              auto made = std::make_unique<Device>(openLoopbackDevice(samplesPerSecond), *this);
              device = made->inner.get();
              return made;
          })
    {}

    SoundOutput& get() { return output; }

    /// The next frames, which the player is to write: a test fails for a player that does not.
    std::vector<std::int16_t> listen(std::size_t frames)
    {
        constexpr std::size_t kBlock = 441;
        std::vector<std::int16_t> all;
        for (std::size_t done = 0; done < frames; done += kBlock) {
            const std::size_t count = std::min(kBlock, frames - done);
            if (!waitUntil([&] { return available >= static_cast<std::int64_t>(count); })) {
                ADD_FAILURE() << "the player wrote nothing behind frame " << done;
                break;
            }
            render(count, all);
        }
        return all;
    }
    /// The next frames, whatever is written.
    std::vector<std::int16_t> listenAsItIs(std::size_t frames)
    {
        std::vector<std::int16_t> all;
        render(frames, all);
        return all;
    }

    /// How often a voice dropped what was queued: once at the start of a player, at each seek.
    unsigned resetCount() const { return resets; }
    void waitForReset(unsigned count)
    {
        waitUntil([&] { return resets >= count; });
    }

    /// False: it did not come true in ten seconds.
    static bool waitUntil(const std::function<bool()>& isTrue)
    {
        for (int i = 0; i < 100000 && !isTrue(); ++i)
            std::this_thread::sleep_for(std::chrono::microseconds(100));
        return isTrue();
    }

  private:
    struct Voice final : SoundVoice
    {
        Voice(std::unique_ptr<SoundVoice> inner, LoopbackOutput& owner)
            : inner(std::move(inner)), owner(owner)
        {}
        ~Voice() override { owner.available = 0; }
        bool write(std::span<const std::int16_t> samples) override
        {
            const bool done = inner->write(samples);
            owner.available += static_cast<std::int64_t>(samples.size() / 2);
            return done;
        }
        std::optional<std::uint64_t> heard() override { return inner->heard(); }
        void pause() override { inner->pause(); }
        void resume() override { inner->resume(); }
        void reset() override
        {
            inner->reset();
            owner.available = 0;
            ++owner.resets;
        }

        std::unique_ptr<SoundVoice> inner;
        LoopbackOutput& owner;
    };

    struct Device final : SoundDevice
    {
        Device(std::unique_ptr<LoopbackDevice> inner, LoopbackOutput& owner)
            : inner(std::move(inner)), owner(owner)
        {}
        std::uint32_t samplesPerSecond() const override { return inner->samplesPerSecond(); }
        std::unique_ptr<SoundVoice> openVoice() override
        {
            return std::make_unique<Voice>(inner->openVoice(), owner);
        }
        std::chrono::nanoseconds timeOf(std::uint64_t frames) const override
        {
            return inner->timeOf(frames);
        }

        std::unique_ptr<LoopbackDevice> inner;
        LoopbackOutput& owner;
    };

    void render(std::size_t frames, std::vector<std::int16_t>& to)
    {
        std::vector<float> block(frames * 2);
        if (LoopbackDevice* const inner = device)
            inner->render(block);
        available -= static_cast<std::int64_t>(frames);
        for (const float value : block)
            to.push_back(static_cast<std::int16_t>(std::lrint(value * 32768.0F)));
    }

    std::atomic<std::int64_t> available = 0; // frames written and not rendered
    std::atomic<unsigned> resets = 0;
    std::atomic<LoopbackDevice*> device = nullptr;
    SoundOutput output;
};

} // namespace varn::test
