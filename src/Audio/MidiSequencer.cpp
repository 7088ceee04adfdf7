#include "Audio/MidiSequencer.h"

#include <algorithm>
#include <cmath>

namespace varn {

namespace {

constexpr std::uint8_t kNoteOff = 0x80, kNoteOn = 0x90, kController = 0xB0;
constexpr std::uint8_t kAllSoundOff = 120;

} // namespace

std::uint8_t velocityAt(std::uint8_t velocity, int volume)
{
    if (volume == 100)
        return velocity;
    if (volume < 1 || velocity == 0)
        return 0;
    const double scaled = std::trunc(velocity * std::log10(1 + 9 * volume * 0.01));
    return static_cast<std::uint8_t>(std::clamp(scaled, 8.0, 125.0));
}

std::optional<std::uint32_t> MidiSequencer::nextWait()
{
    wait = 0;
    if (!seeking && seekTarget != -1)
        beginSeek();
    wentRound = current == song.events.size();
    if (wentRound) {
        position = loopTime;
        seeking = false;
        seekTarget = -1; // it lay behind the end
        if (!loop)
            return std::nullopt;
        current = loopEvent;
        owed = 0;
        return 1;
    }
    const MidiEvent& event = song.events[current];
    if (event.delta == 0)
        return 0;
    const double due = song.milliseconds(event.delta, tempo);
    const double whole = std::min(std::floor(due + owed), 4294967295.0);
    owed = std::clamp(due + owed - whole, 0.0, 1.0);
    wait = static_cast<std::uint32_t>(whole);
    return seeking || position < song.firstNote ? 0 : wait;
}

void MidiSequencer::act()
{
    if (wentRound)
        return;
    position += wait;
    send(song.events[current]);
    endSeekWhereDue();
    ++current;
}

void MidiSequencer::beginSeek()
{
    seeking = true;
    allSoundOff();
    heldNotes = {};
    current = 0;
    position = 0;
    owed = 0;
}

void MidiSequencer::endSeekWhereDue()
{
    const std::int32_t target = seekTarget;
    if (!seeking || std::int64_t{position} <= target)
        return;
    for (std::size_t channel = 0; channel < heldNotes.size(); ++channel)
        for (std::size_t note = 0; note < heldNotes[channel].size(); ++note)
            if (heldNotes[channel][note] != 0)
                output.shortMessage(static_cast<std::uint8_t>(kNoteOn | channel),
                                    static_cast<std::uint8_t>(note), heldNotes[channel][note]);
    std::int32_t answered = target;
    seekTarget.compare_exchange_strong(answered, -1); // unless another one was asked for meanwhile
    seeking = false;
}

void MidiSequencer::send(const MidiEvent& event)
{
    if (event.isMeta()) {
        if (event.isTempo())
            tempo = event.tempo();
    } else if (event.isSystemExclusive()) {
        const bool isOfOtherMaker =
            event.data.size() >= 2 && (event.data[1] == '\x41' || event.data[1] == '\x43');
        if (event.data.size() >= 3 && !isOfOtherMaker)
            output.longMessage(asBytes(event.data));
    } else if (event.isLoopMark()) {
        loopEvent = current + 1;
        loopTime = position;
    } else {
        sendChannelMessage(event);
    }
}

void MidiSequencer::sendChannelMessage(const MidiEvent& event)
{
    std::uint8_t data2 = event.data2;
    if (event.kind() == kNoteOn)
        data2 = velocityAt(data2, volume);
    if (seeking && (event.kind() == kNoteOn || event.kind() == kNoteOff)) {
        auto& notes = heldNotes[event.status & 0x0F];
        notes[event.data1 & 0x7F] = event.kind() == kNoteOn ? data2 : 0;
        return;
    }
    output.shortMessage(event.status, event.data1, data2);
}

void MidiSequencer::allSoundOff()
{
    for (std::uint8_t channel = 0; channel < 16; ++channel)
        output.shortMessage(kController | channel, kAllSoundOff, 0);
}

} // namespace varn
