"""Standard MIDI files, format 1, written from lines of notes."""

import re
import struct

DIVISION = 480
LOOP_CONTROLLER = 111  # where the sequencer goes back to

STEPS = {"C": 0, "D": 2, "E": 4, "F": 5, "G": 7, "A": 9, "B": 11}


def pitch(name):
    """"D4", "F#3", "Bb2" as a MIDI note; middle C is C4."""
    letter, sign, octave = re.fullmatch(r"([A-G])([#b]?)(-?\d)", name).groups()
    return 12 * (int(octave) + 1) + STEPS[letter] + {"": 0, "#": 1, "b": -1}[sign]


def notes(line):
    """Tokens of a line: "D4*2" a note of two beats, "D3,A3" a chord of one beat, "r*4" a rest;
    "|" only helps the eye. Gives (pitches, beats)."""
    for token in line.replace("|", " ").split():
        what, _, beats = token.partition("*")
        yield [] if what == "r" else [pitch(name) for name in what.split(",")], float(beats or 1)


class Track:
    def __init__(self, channel, program=None, volume=100, pan=64, reverb=50):
        self.channel = channel
        self.events = []  # (tick, order, bytes)
        self.lastOff = {}  # of each pitch, where its latest note-off stands in `events`
        self.at = 0.0
        if program is not None:
            self.put(0, 0, bytes((0xC0 | channel, program)))
            for controller, value in ((7, volume), (10, pan), (91, reverb)):
                self.put(0, 0, bytes((0xB0 | channel, controller, value)))

    def put(self, beat, order, data):
        self.events.append((int(round(beat * DIVISION)), order, data))

    def play(self, line, velocity=80, held=0.94, times=1):
        """Adds a line of notes behind what is there; the first of a beat is a little louder."""
        for _ in range(times):
            for pitches, beats in notes(line):
                stress = 6 if self.at % 1 == 0 else 0
                for note in pitches:
                    self.strike(note, min(127, velocity + stress), beats * held)
                self.at += beats
        return self

    def strike(self, note, velocity, beats):
        """A note from here on; the same pitch, where it still rings, is let go first."""
        self.put(self.at, 2, bytes((0x90 | self.channel, note, velocity)))
        if note in self.lastOff:
            tick, order, data = self.events[self.lastOff[note]]
            self.events[self.lastOff[note]] = (min(tick, self.events[-1][0]), order, data)
        self.put(self.at + beats, 1, bytes((0x80 | self.channel, note, 0)))
        self.lastOff[note] = len(self.events) - 1

    def rest(self, beats):
        self.at += beats
        return self

    def loop_here(self, beat):
        self.put(beat, 0, bytes((0xB0 | self.channel, LOOP_CONTROLLER, 0)))

    def end_at(self, beat):
        """Keeps the song open to its last beat: a song ends with its last event."""
        self.put(beat, 3, bytes((0xB0 | self.channel, 11, 127)))

    def compose(self, endBeat):
        """The track's bytes. What rings on past the end is let go there, or the loop would limp."""
        out, last = bytearray(), 0
        end = int(round(endBeat * DIVISION))
        events = [(min(tick, end), order, data) for tick, order, data in self.events]
        for tick, _, data in sorted(events, key=lambda event: event[:2]):
            out += _variable(tick - last) + data
            last = tick
        out += b"\x00\xff\x2f\x00"
        return b"MTrk" + struct.pack(">I", len(out)) + bytes(out)


def _variable(value):
    out = [value & 0x7F]
    while value > 0x7F:
        value >>= 7
        out.append(0x80 | value & 0x7F)
    return bytes(reversed(out))


class Song:
    def __init__(self, title, tempo, beats=4):
        self.conductor = Track(0)
        text = title.encode("ascii")
        self.conductor.put(0, 0, b"\xff\x03" + _variable(len(text)) + text)
        micro = int(round(60_000_000 / tempo))
        self.conductor.put(0, 0, b"\xff\x51\x03" + micro.to_bytes(3, "big"))
        self.conductor.put(0, 0, b"\xff\x58\x04" + bytes((beats, 2, 24, 8)))
        self.tracks = [self.conductor]

    def track(self, *arguments, **options):
        self.tracks.append(Track(len(self.tracks) - 1, *arguments, **options))
        return self.tracks[-1]

    def write(self, path, loopBeat, endBeat):
        self.tracks[1].loop_here(loopBeat)
        self.tracks[1].end_at(endBeat)
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(b"MThd" + struct.pack(">IHHH", 6, 1, len(self.tracks), DIVISION)
                         + b"".join(track.compose(endBeat) for track in self.tracks))


def arpeggio(chord, pattern, beats):
    """A broken chord: "D3 A3 D4 F4" with the pattern "0 1 2 3 2 1", each so many beats."""
    names = chord.split()
    return " ".join(f"{names[int(step)]}*{beats}" for step in pattern.split())
