#pragma once

#include "Audio/Audio.h"

#include <array>

namespace varn {

/// The three channels of a game: background sounds, music, effects. Scripts and the preview play
/// through `instance()`.
class AudioManager
{
  public:
    enum class Channel
    {
        BGS,
        BGM,
        SE
    };

    /// The channels' folders, in the channels' order.
    using Folders = std::array<WString, 3>;
    static Folders projectFolders() { return {u"Audio/BGS", u"Audio/BGM", u"Audio/SE"}; }

    /// @param output  borrowed; outlives the manager
    explicit AudioManager(SoundOutput& output, Folders folders = projectFolders());

    /// The process-wide one, on the machine's sound output; made at first use.
    static AudioManager& instance();

    Audio& getChannel(Channel channel) { return channels[static_cast<std::size_t>(channel)]; }
    const Audio& getChannel(Channel channel) const
    {
        return channels[static_cast<std::size_t>(channel)];
    }

    /// See Audio.
    WString playMusic(WStringView name, int loopMode = Audio::Loop);
    WString playBGS(WStringView name, int loopMode = Audio::Loop);
    void playSound(WStringView name, bool wait, const std::function<bool()>& keepWaiting = {});
    void stopMusic();
    void stopBGM() { stopMusic(); }
    void stopBGS();
    void stopSound();
    /// All three, as when a game ends.
    void stopAll();

    /// Of the music.
    WString getMusicPath() const;
    bool isMusicPlaying() const;
    std::uint32_t getMusicCurrentPosition() const;
    void setMusicCurrentPosition(std::uint32_t milliseconds);

    /// Of music and background sounds; of effects.
    void setMusicEnabled(bool enabled);
    void setSoundEnabled(bool enabled);

    /// Of all three, in percent.
    void setVolume(int percent);

  private:
    std::array<Audio, 3> channels;
};

} // namespace varn
