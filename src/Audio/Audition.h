#pragma once

#include "Util/Text.h"

#include <memory>

namespace varn {

class IAudioPlayer;
class SoundOutput;

/// One sound that somebody listens to in order to judge it: any file of the project, from any place
/// of it, with its level and the seam of its loop. It has nothing to do with the channels of a game
/// and sounds beside them. Called from one thread, which it never keeps waiting for a device.
class Audition
{
  public:
    /// On the machine's sound output; or on another, borrowed, which outlives this.
    Audition();
    explicit Audition(SoundOutput& output);
    ~Audition();
    Audition(const Audition&) = delete;
    Audition& operator=(const Audition&) = delete;

    /// Takes a file of the project, by its extension; what played before stops. False: it is not
    /// there or no sound of that kind, `getError` says what is wrong, and nothing is open.
    bool open(WStringView path);
    void close();
    bool isOpen() const { return player != nullptr; }
    /// The sentence of the last `open` that failed.
    const WString& getError() const { return error; }

    /// Plays from the position, to the end.
    void play();
    /// The position is the beginning afterwards, as it is when the end was reached.
    void stop();
    void pause();
    void resume();
    bool isPlaying() const; ///< also while it is paused
    bool isPaused() const;

    /// Milliseconds of the file, as they are heard.
    std::uint32_t position() const;
    std::uint32_t duration() const { return length; }
    void seek(std::uint32_t milliseconds);
    /// The loudest sample of the last moment, from 0 to 1; 0 while nothing is heard.
    float level() const;

    /// In percent, 0 to 100; followed at the next `play`, `seek` or second.
    void setVolume(int percent);

    /// The file says itself where its loop is: by tags, or in a song by controller 111. Without
    /// that a loop goes from the end to the beginning.
    bool hasLoop() const { return loopIsMarked; }
    std::uint32_t loopStart() const { return loopFrom; } ///< milliseconds
    std::uint32_t loopEnd() const { return loopTo; }
    /// Plays in a loop from two seconds before the loop's end, or from the beginning of what is
    /// shorter, so that its seam is heard. Goes round until it is stopped.
    void playSeam();

  private:
    bool openSong(WStringView path);
    bool openSound(WStringView path);
    void startAt(std::uint32_t milliseconds, bool loop);

    SoundOutput& output;
    std::unique_ptr<IAudioPlayer> player;
    WString error;
    int volume = 100;
    std::uint32_t length = 0;
    bool loopIsMarked = false;
    std::uint32_t loopFrom = 0;
    std::uint32_t loopTo = 0;
    bool paused = false;            // pause and resume for players that know none
    std::uint32_t restPosition = 0; // where `play` and `resume` go on while nothing plays
};

} // namespace varn
