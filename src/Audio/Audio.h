#pragma once

#include "Util/Text.h"

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <mutex>

namespace varn {

class AudioPlayer;
class IAudioPlayer;
class MP3;
class Midi;
class SoundOutput;
class SoundPlayer;

/// One channel of sound, bound to a folder of the project: one piece of music (or background sound)
/// at a time, or effects that overlap. It finds a file by the name that a game gives, and plays it
/// through the player for its kind. What cannot be played leaves the channel silent and a line in
/// the log.
///
/// Any thread may call; the calls of a channel follow one another.
class Audio
{
  public:
    /// How a piece goes on when it ends. The numbers are those of scripts; other numbers loop too.
    enum LoopMode : int
    {
        Once = 0,
        Loop = 1,
        LoopSong = 2 ///< for a song the loop is switched on behind the opening; it sounds the same
    };

    /// @param folder  where names are looked for ("Audio/BGM"), and below it
    /// @param output  borrowed; outlives the channel
    Audio(WString folder, SoundOutput& output);
    ~Audio();
    Audio(const Audio&) = delete;
    Audio& operator=(const Audio&) = delete;

    /// Plays a piece instead of what plays. The same piece goes on where it is. An empty name stops
    /// the channel. While music is disabled, the name is kept for later.
    /// @param name  a path of the project, or a name in the folder or below it; without an
    ///              extension ".mid", ".mp3" and ".ogg" are tried in this order
    /// @return the path before the call, so that a script can put it back; empty: there was none
    WString playMusic(WStringView name, int loopMode = Loop);
    void stopMusic();

    /// Plays an effect over those that sound. Does nothing while sound is disabled.
    /// @param name         as above; without an extension ".wav" and ".mp3" are tried in this order
    /// @param wait         false: the call returns when the effect is over, at the latest after
    ///                     three seconds; true: at once
    /// @param keepWaiting  asked about every millisecond of such a wait; false ends wait and effect
    void playSound(WStringView name, bool wait, const std::function<bool()>& keepWaiting = {});
    void stopSound();

    /// The file that plays, or would if music were enabled; as it was found, or else as it was
    /// named. It stays when the piece ends by itself.
    WString getMusicPath() const;
    /// The file before that.
    WString getLastPath() const;
    /// True also while it is paused.
    bool isMusicPlaying() const;
    void pauseMusic();
    void resumeMusic();
    /// In milliseconds; 0 when nothing plays.
    std::uint32_t getMusicCurrentPosition() const;
    void setMusicCurrentPosition(std::uint32_t milliseconds);

    /// Disabling stops the music; enabling plays again what the channel was last asked for.
    void setMusicEnabled(bool enabled);
    /// Disabling stops the effects.
    void setSoundEnabled(bool enabled);
    bool isMusicEnabled() const;
    bool isSoundEnabled() const;

    /// In percent, 0 to 100. Music follows within the second that is decoded ahead.
    void setVolume(int percent);
    int getVolume() const;

    WString getFolder() const;
    /// Forgets where names were found.
    void setFolder(WString folder);

  private:
    WString findMusic(WStringView name);
    WString findSound(WStringView name) const;
    void startMusic();
    bool playOn(IAudioPlayer& player);
    bool playMp3();
    void stopPlayer();

    SoundOutput& output;

    mutable std::mutex channelLock; // guards all below; held by each call, not while it waits
    std::unique_ptr<Midi> midiPlayer;
    std::unique_ptr<MP3> mp3Player;
    std::unique_ptr<AudioPlayer> mp3FallbackPlayer; // made where the other one refuses a file
    std::unique_ptr<AudioPlayer> oggPlayer;
    std::unique_ptr<AudioPlayer> wavPlayer;
    std::unique_ptr<SoundPlayer> soundPlayer;
    IAudioPlayer* musicPlayer = nullptr; // the one of them that has the music
    int volume = 100;
    bool musicEnabled = true;
    bool soundEnabled = true;
    WString currentPath;
    WString lastPath;
    int loopMode = Once; // of currentPath
    WString folder;
    std::map<WString, WString> pathCache; // the name asked for, the file found

    std::atomic<unsigned> soundStops = 0; // ends those who wait for an effect
};

} // namespace varn
