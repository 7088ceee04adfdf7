#include "Audio/MidiFile.h"

#include "Util/File.h"
#include "Util/Host.h"

#include <algorithm>
#include <optional>

namespace varn {

namespace {

WString textOf(MidiFault code)
{
    switch (code) {
    case MidiFault::NoMemory:
        return u"Failed to allocate heep.";
    case MidiFault::NotOpened:
        return u"Failed to open your file";
    case MidiFault::NotMidi:
        return u"The file you have tried to open is not a midi file.";
    case MidiFault::InvalidTrack:
        break;
    }
    return u"Found an invalid track in the midi file";
}

/// A track that is none; the text tells why, where there is something to tell.
struct TrackFault
{
    WStringView text;
};

/// The bytes of the file, big-endian; the end of the file ends the track.
class MidiBytes
{
  public:
    explicit MidiBytes(ByteSpan bytes) : bytes(bytes) {}

    std::uint8_t u8() { return static_cast<std::uint8_t>(take(1)[0]); }
    std::uint32_t u16()
    {
        const std::uint32_t high = u8();
        return high << 8 | u8();
    }
    std::uint32_t u32()
    {
        const std::uint32_t high = u16();
        return high << 16 | u16();
    }
    /// Seven bits a byte, at most four bytes.
    std::uint32_t variableLength()
    {
        std::uint32_t value = 0;
        for (int count = 0; count < 4; ++count) {
            const std::uint8_t byte = u8();
            value = value << 7 | (byte & 0x7FU);
            if (byte < 0x80)
                break;
        }
        return value;
    }
    std::string_view take(std::size_t count)
    {
        if (count > bytes.size() - at)
            throw TrackFault{};
        at += count;
        return asChars(bytes.subspan(at - count, count));
    }
    void back() { --at; }

  private:
    ByteSpan bytes;
    std::size_t at = 0;
};

constexpr std::uint8_t kEndOfTrack = 0x2F;

/// The length that a meta event of this type must have; -1: any.
int lengthOfMeta(std::uint8_t type)
{
    switch (type) {
    case kEndOfTrack:
        return 0;
    case 0x20:
    case 0x21:
        return 1;
    case 0x00:
    case 0x59:
        return 2;
    case 0x51:
        return 3;
    case 0x58:
        return 4;
    case 0x54:
        return 5;
    case 0x7F:
        return -1;
    default:
        break;
    }
    if (type > 0x07)
        throw TrackFault{u"It is a meta event that doesn't exist. "};
    return -1;
}

void readMeta(MidiBytes& bytes, MidiEvent& event)
{
    event.metaType = bytes.u8();
    const int fixed = lengthOfMeta(event.metaType);
    const std::uint32_t length = bytes.variableLength();
    if (fixed >= 0 && length != static_cast<std::uint32_t>(fixed))
        throw TrackFault{u"The data length of the fixed length meta event is illegal."};
    event.data = bytes.take(length);
}

/// @param running  the status byte of the event before, whatever that was
MidiEvent readEvent(MidiBytes& bytes, std::uint8_t running)
{
    MidiEvent event;
    event.delta = bytes.variableLength();
    event.status = bytes.u8();
    if (event.status < 0x80) {
        event.status = running;
        bytes.back();
    }
    switch (event.kind()) {
    case 0x80:
    case 0x90:
    case 0xA0:
    case 0xB0:
    case 0xE0:
        event.data1 = bytes.u8();
        event.data2 = bytes.u8();
        break;
    case 0xC0:
    case 0xD0:
        event.data1 = bytes.u8();
        break;
    case 0xF0:
        if (event.isMeta()) {
            readMeta(bytes, event);
        } else if (event.isSystemExclusive()) {
            const std::uint8_t length = bytes.u8();
            event.data = '\xF0';
            event.data += bytes.take(length);
        }
        break;
    default:
        throw TrackFault{u"Illegal status byte"};
    }
    return event;
}

using Track = std::vector<MidiEvent>;

Track readTrack(MidiBytes& bytes)
{
    if (bytes.take(4) != "MTrk")
        throw TrackFault{};
    bytes.u32(); // the length; the track ends at its last event
    Track track;
    for (std::uint8_t running = 0;;) {
        MidiEvent event = readEvent(bytes, running);
        if (event.isMeta() && event.metaType == kEndOfTrack)
            return track;
        running = event.status;
        track.push_back(std::move(event));
    }
}

/// A track on the way through the merge.
struct TrackWalk
{
    Track* track;
    std::size_t next = 0;
    std::uint64_t time = 0; ///< ticks, of the event before

    bool isDone() const { return next == track->size(); }
    std::uint64_t dueTime() const { return time + (*track)[next].delta; }
};

std::vector<MidiEvent> mergeTracks(std::vector<Track>& tracks)
{
    std::vector<TrackWalk> walks;
    std::size_t count = 0;
    for (Track& track : tracks) {
        walks.push_back({&track});
        count += track.size();
    }
    std::vector<MidiEvent> merged;
    merged.reserve(count);
    // The earliest event on top; at equal times that of the lower track.
    const auto later = [&](std::size_t a, std::size_t b) {
        const std::uint64_t timeOfA = walks[a].dueTime(), timeOfB = walks[b].dueTime();
        return timeOfA != timeOfB ? timeOfA > timeOfB : a > b;
    };
    std::vector<std::size_t> heap;
    for (std::size_t i = 0; i < walks.size(); ++i)
        if (!walks[i].isDone())
            heap.push_back(i);
    std::ranges::make_heap(heap, later);
    for (std::uint64_t now = 0; !heap.empty();) {
        std::ranges::pop_heap(heap, later);
        TrackWalk& walk = walks[heap.back()];
        walk.time = walk.dueTime();
        MidiEvent& event = merged.emplace_back(std::move((*walk.track)[walk.next++]));
        event.delta = static_cast<std::uint32_t>(walk.time - now);
        now = walk.time;
        if (walk.isDone())
            heap.pop_back();
        else
            std::ranges::push_heap(heap, later);
    }
    return merged;
}

void scanLength(MidiSong& song)
{
    std::uint32_t tempo = kMidiTempo;
    double time = 0;
    double lastNote = 0;
    std::optional<double> firstNote;
    std::uint8_t data1Before = 0;
    const auto whole = [](double value) {
        return static_cast<std::uint32_t>(std::min(value, 4294967295.0));
    };
    for (const MidiEvent& event : song.events) {
        const double wait = song.milliseconds(event.delta, tempo);
        time += wait;
        if (event.kind() == 0x80 || event.kind() == 0x90)
            lastNote = time;
        if (event.kind() == 0x90 && data1Before != 6 && !firstNote)
            firstNote = time - wait;
        if (event.isLoopMark())
            song.loopStart = whole(time);
        if (event.isTempo())
            tempo = event.tempo();
        data1Before = event.data1;
    }
    song.end = whole(time);
    song.length = whole(lastNote);
    song.firstNote = whole(firstNote.value_or(0));
}

} // namespace

MidiFileException::MidiFileException(MidiFault code) : Exception(textOf(code)), code(code) {}

std::uint32_t MidiEvent::tempo() const
{
    std::uint32_t value = 0;
    for (const char byte : data)
        value = value << 8 | static_cast<std::uint8_t>(byte);
    return value;
}

MidiSong readMidiSong(ByteSpan bytes, WString& trackFault)
{
    MidiSong song;
    MidiBytes source(bytes);
    std::uint32_t format = 0, count = 0;
    try {
        if (source.take(4) != "MThd")
            throw MidiFileException(MidiFault::NotMidi);
        source.u32(); // the head's length
        format = source.u16();
        count = source.u16();
        song.division = std::max(source.u16(), std::uint32_t{1});
    } catch (const TrackFault&) {
        throw MidiFileException(MidiFault::NotMidi);
    }
    std::vector<Track> tracks;
    try {
        for (std::uint32_t i = 0; i < count; ++i)
            tracks.push_back(readTrack(source));
    } catch (const TrackFault& fault) {
        trackFault = fault.text;
        throw MidiFileException(MidiFault::InvalidTrack);
    }
    if (format != 0)
        song.events = mergeTracks(tracks);
    else if (!tracks.empty())
        song.events = std::move(tracks.front());
    scanLength(song);
    return song;
}

MidiSong loadMidiSong(WStringView path)
{
    const auto bytes = readFile(resolveProjectPath(path));
    if (!bytes)
        throw MidiFileException(MidiFault::NotOpened);
    WString trackFault;
    try {
        return readMidiSong(asBytes(*bytes), trackFault);
    } catch (const MidiFileException&) {
        if (!trackFault.empty())
            host().showMessage(trackFault);
        throw;
    }
}

} // namespace varn
