#pragma once

#include "Audio/AudioPlayer.h"

#include <functional>

namespace varn {

/// Plays effects, each on a player of its own, so that they overlap. Players that are done are
/// collected by the next effect. It passes on what becomes of each.
class SoundPlayer final : public IAudioPlayer, public AudioPlayerListener
{
  public:
    explicit SoundPlayer(SoundOutput& output) : output(output) {}

    /// Makes ready an effect, which `start` adds to those that sound.
    bool open(WStringView path) override;
    bool start() override;
    /// As `play`, for one who waits for it: it is not among the effects that `stop` stops.
    /// Nothing: it cannot be played.
    std::unique_ptr<AudioPlayer> startAlone(WStringView path);

    /// All effects.
    void stop() override;
    void pause() override;
    void resume() override;
    bool isPlaying() const override;
    bool isPaused() const override;
    /// An effect is over too soon for that.
    void seek(std::uint32_t) override {}
    /// Of the latest effect.
    std::uint32_t getPosition() override;
    /// Of the loudest effect.
    float getLevel() override;

    void playerChanged(IAudioPlayer& player, AudioNotice notice) override;

    /// Those that sound or wait to be collected.
    std::size_t count() const { return players.size(); }

  private:
    /// More at once are a fault of a game; the oldest one then ends.
    static constexpr std::size_t kMostPlayers = 64;

    void collect();

    SoundOutput& output;
    std::unique_ptr<AudioPlayer> next; // open, not started
    std::vector<std::unique_ptr<AudioPlayer>> players;
};

} // namespace varn
