#pragma once

#include "Audio/MidiSequencer.h"
#include "Audio/Synth.h"

namespace varn {

/// A song as a stream of samples: walks its events and renders the time between them.
class SongStream
{
  public:
    /// Both are borrowed.
    SongStream(const MidiSong& song, Synth& synth) : sequencer(song, synth), synth(synth) {}

    MidiSequencer& getSequencer() { return sequencer; }

    /// Gives the samples put into `samples`, interleaved stereo; fewer than fit: the song is over.
    std::size_t read(std::span<std::int16_t> samples);

    /// Goes to a place of the song at the next `read`, without waiting for the event that is due.
    void seek(std::uint32_t milliseconds);
    /// Milliseconds of the song at the next sample.
    std::uint32_t getPosition() const;

  private:
    bool nextEvent();

    MidiSequencer sequencer;
    Synth& synth;
    std::uint64_t elapsed = 0;  // milliseconds up to the event that is due
    std::uint64_t rendered = 0; // frames
    std::uint32_t wait = 0;     // milliseconds, the share of that event
    bool isEventDue = false;
    std::optional<std::uint32_t> soughtPlace; // until it is gone to
};

} // namespace varn
