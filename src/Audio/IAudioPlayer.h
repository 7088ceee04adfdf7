#pragma once

#include "Util/Text.h"

#include <algorithm>
#include <atomic>

namespace varn {

class IAudioPlayer;

enum class AudioNotice
{
    Opened, ///< the first samples are on their way
    Ended   ///< nothing more is heard: the sound was over, or it was stopped
};

/// Who is told what becomes of a player. On the player's thread: it must not open, start or destroy
/// a player there.
class AudioPlayerListener
{
  public:
    virtual ~AudioPlayerListener() = default;

    virtual void playerChanged(IAudioPlayer& player, AudioNotice notice) = 0;
};

/// Plays a file on a thread of its own. One thread at a time gives the commands; they return at
/// once. A player is idle, plays, or is paused, which counts as playing.
class IAudioPlayer
{
  public:
    virtual ~IAudioPlayer() = default;

    /// Takes a file; what played before stops. False: it cannot be played, `getLastError` tells
    /// why.
    virtual bool open(WStringView path) = 0;
    /// Plays what is open, from where `seek` was while it was idle, else from the beginning. False:
    /// nothing is open.
    virtual bool start() = 0;
    bool play(WStringView path) { return open(path) && start(); }
    /// Silent at once.
    virtual void stop() = 0;
    virtual void pause() = 0;
    virtual void resume() = 0;
    virtual bool isPlaying() const = 0;
    virtual bool isPaused() const = 0;

    /// In percent, 0 to 100; heard in what is decoded from here on.
    virtual void setVolume(int percent) { volume = std::clamp(percent, 0, 100); }
    virtual void seek(std::uint32_t milliseconds) = 0;
    /// Of what is heard, in milliseconds; 0 while idle.
    virtual std::uint32_t getPosition() = 0;
    /// The loudest sample of the last moment, 0 to 1.
    virtual float getLevel() = 0;

    /// Whether it goes round at its end, or at its loop's.
    void setLoop(bool on) { loop = on; }
    /// Borrowed; outlives the player, or is taken away while it is idle.
    void setNotify(AudioPlayerListener* listener) { notify = listener; }
    AudioPlayerListener* getNotify() const { return notify; }
    const WString& getLastError() const { return lastError; }

  protected:
    void tell(AudioNotice notice)
    {
        if (AudioPlayerListener* const listener = notify)
            listener->playerChanged(*this, notice);
    }
    /// @return false, for the operation that fails
    bool failOpening(WStringView path)
    {
        lastError = WString(path) + u" Couldn't play this file";
        return false;
    }

    std::atomic<bool> loop = false;
    std::atomic<int> volume = 100;
    std::atomic<AudioPlayerListener*> notify = nullptr;
    WString lastError;
};

} // namespace varn
