#pragma once

#include "Audio/MidiFile.h"

#include <array>
#include <atomic>
#include <optional>

namespace varn {

/// Where a song's messages go.
class MidiOutput
{
  public:
    virtual ~MidiOutput() = default;

    virtual void shortMessage(std::uint8_t status, std::uint8_t data1, std::uint8_t data2) = 0;
    /// A system exclusive message, with its leading 0xF0.
    virtual void longMessage(ByteSpan message) = 0;
};

/// The velocity of a note-on at a volume in percent.
std::uint8_t velocityAt(std::uint8_t velocity, int volume);

/// Walks a song, event by event. It does not wait itself: who plays waits what `nextWait` tells, by
/// a clock or by rendering that much sound, and calls `act`.
///
/// Controller 111 marks where a loop begins; without it a loop begins at the front. Silence before
/// the first note is not waited out. System exclusive messages of two makers (0x41, 0x43) are left
/// out: they address instruments that are not there.
class MidiSequencer
{
  public:
    /// Both are borrowed.
    MidiSequencer(const MidiSong& song, MidiOutput& output) : song(song), output(output) {}

    std::atomic<bool> loop = false;
    std::atomic<int> volume = 100; ///< percent; shapes velocities

    /// Milliseconds until the next event is due; nothing: the song is over.
    std::optional<std::uint32_t> nextWait();
    /// The wait is over.
    void act();
    /// Silences every channel.
    void allSoundOff();

    /// Asks for a place in the song, from any thread; the walk goes there at its next event.
    void seek(std::uint32_t milliseconds) { seekTarget = static_cast<std::int32_t>(milliseconds); }
    std::uint32_t getPosition() const { return position; }

  private:
    void beginSeek();
    void endSeekWhereDue();
    void send(const MidiEvent& event);
    void sendChannelMessage(const MidiEvent& event);

    const MidiSong& song;
    MidiOutput& output;

    std::size_t current = 0;
    std::size_t loopEvent = 0;
    std::uint32_t loopTime = 0;
    std::uint32_t tempo = kMidiTempo;
    std::uint32_t wait = 0; // of the event that is due
    double owed = 0;        // the part of a millisecond that earlier waits left out
    bool wentRound = false; // there is no event due, the loop begins behind this wait
    std::atomic<std::uint32_t> position = 0;
    std::atomic<std::int32_t> seekTarget = -1;
    bool seeking = false;
    std::array<std::array<std::uint8_t, 128>, 16> heldNotes{}; // velocities, while seeking
};

} // namespace varn
