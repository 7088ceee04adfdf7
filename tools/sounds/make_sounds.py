#!/usr/bin/env python3
"""Makes every sound and every piece of music of the demo project. Running it again gives the same
bytes.

    make_sounds.py [PROJECT]        PROJECT is demo/ of this tree unless another folder is named
"""

import sys
from pathlib import Path

import synth
from effects import EFFECTS, LOOPS, STREAMS
from music import PIECES


def main(arguments):
    project = Path(arguments[0]) if arguments else Path(__file__).resolve().parent.parent.parent / "demo"
    audio = project / "Audio"
    for name, (make, peak) in EFFECTS.items():
        synth.write(audio / name, synth.settled(make()), peak)
        print(name, flush=True)
    for name, (make, peak) in LOOPS.items():
        synth.write(audio / name, make(), peak)
        print(name, flush=True)
    for name, (make, peak) in STREAMS.items():
        channels, loopSeconds = make()
        synth.write_ogg(audio / name, channels, peak, loopSeconds)
        print(name, flush=True)
    for name, compose in PIECES.items():
        song, loopBeat, endBeat = compose()
        for track in song.tracks[1:]:
            if track.at > endBeat + 0.001:
                sys.exit(f"{name}: a part of {track.at} beats runs past the end at {endBeat}")
        song.write(audio / name, loopBeat, endBeat)
        print(name, flush=True)


if __name__ == "__main__":
    main(sys.argv[1:])
