#pragma once

#include "Util/Bytes.h"
#include "Util/Exception.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace varn {

/// Why a file is no song.
enum class MidiFault
{
    NoMemory = 1,
    NotOpened = 2,
    NotMidi = 3,
    InvalidTrack = 4
};

class MidiFileException : public Exception
{
  public:
    explicit MidiFileException(MidiFault code);

    MidiFault getCode() const { return code; }

  private:
    MidiFault code;
};

/// One event of a Standard MIDI File. Running status is resolved.
struct MidiEvent
{
    static constexpr std::uint8_t kSystemExclusive = 0xF0;
    static constexpr std::uint8_t kMeta = 0xFF;

    std::uint8_t status = 0;
    std::uint8_t data1 = 0;
    std::uint8_t data2 = 0; ///< 0 for program change and channel pressure
    std::uint8_t metaType = 0;
    std::uint32_t delta = 0; ///< ticks since the event before
    std::string data;        ///< of a meta event; of a system exclusive one, with its leading 0xF0

    std::uint8_t kind() const { return status & 0xF0; }
    bool isMeta() const { return status == kMeta; }
    bool isSystemExclusive() const { return status == kSystemExclusive; }
    /// Controller 111: a loop begins behind it.
    bool isLoopMark() const { return kind() == 0xB0 && data1 == 111; }
    bool isTempo() const { return isMeta() && metaType == 0x51; }
    /// Of a tempo event: microseconds a quarter note.
    std::uint32_t tempo() const;
};

/// Microseconds a quarter note until a song says otherwise.
inline constexpr std::uint32_t kMidiTempo = 500000;

/// A song: the events of all tracks in one list, and what a player must know beforehand.
struct MidiSong
{
    std::uint32_t division = 1; ///< ticks of a quarter note
    std::vector<MidiEvent> events;
    std::uint32_t length = 0;    ///< milliseconds to the last note's end
    std::uint32_t firstNote = 0; ///< milliseconds of silence before the first note
    std::uint32_t end = 0;       ///< milliseconds to the last event, where a loop goes round
    std::optional<std::uint32_t> loopStart; ///< milliseconds to the last mark of a loop

    double milliseconds(std::uint32_t ticks, std::uint32_t tempo) const
    {
        return static_cast<double>(ticks) * tempo * 0.001 / division;
    }
};

/// Reads a Standard MIDI File (1.0), format 0 or 1; format 2 is merged like 1. Tracks are merged by
/// time, at equal times the lower track first. The end of a track is its end-of-track event,
/// whatever length its head tells.
/// @param trackFault  gets what is wrong inside an invalid track; empty where it just ends early
/// @throws MidiFileException
MidiSong readMidiSong(ByteSpan bytes, WString& trackFault);

/// Reads a file; what is wrong inside a track is shown first.
/// @throws MidiFileException
MidiSong loadMidiSong(WStringView path);

} // namespace varn
