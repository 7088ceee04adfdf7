"""Sound out of arithmetic: lists of samples from -1 to 1 at 44,100 a second, mono."""

import math
import struct
import subprocess
import tempfile
import wave
from pathlib import Path
from random import Random

RATE = 44100


def silence(seconds):
    return [0.0] * int(seconds * RATE)


def noise(seconds, seed):
    random = Random(seed)
    return [random.uniform(-1.0, 1.0) for _ in range(int(seconds * RATE))]


def lowpass(samples, hertz):
    """One pole; `hertz` is a number or a function of the time in seconds."""
    out, state = [], 0.0
    for i, sample in enumerate(samples):
        at = hertz(i / RATE) if callable(hertz) else hertz
        state += (1.0 - math.exp(-2.0 * math.pi * at / RATE)) * (sample - state)
        out.append(state)
    return out


def highpass(samples, hertz):
    return [a - b for a, b in zip(samples, lowpass(samples, hertz))]


def resonant(samples, hertz, ring):
    """A two-pole resonance; `ring` is the time in seconds in which it falls to a third."""
    radius = math.exp(-1.0 / (ring * RATE))
    a, b = 2.0 * radius * math.cos(2.0 * math.pi * hertz / RATE), -radius * radius
    gain = 1.0 - radius
    out, y1, y2 = [], 0.0, 0.0
    for sample in samples:
        y = gain * sample + a * y1 + b * y2
        out.append(y)
        y1, y2 = y, y1
    return out


def shaped(samples, points):
    """Under an envelope of (seconds, level) points, straight between them."""
    out, k = [], 0
    for i, sample in enumerate(samples):
        t = i / RATE
        while k + 1 < len(points) and points[k + 1][0] <= t:
            k += 1
        if k + 1 == len(points):
            level = points[-1][1]
        else:
            (t0, a), (t1, b) = points[k], points[k + 1]
            level = a + (b - a) * (t - t0) / (t1 - t0)
        out.append(sample * level)
    return out


def decaying(seconds, tau, start=0.004):
    """An envelope that jumps up in `start` and falls to a third in `tau`."""
    return [min(1.0, i / RATE / start) * math.exp(-i / RATE / tau) for i in range(int(seconds * RATE))]


def sweep(seconds, hertz, phase=0.0):
    """A sine whose frequency is a function of the time."""
    out = []
    for i in range(int(seconds * RATE)):
        out.append(math.sin(phase))
        phase += 2.0 * math.pi * hertz(i / RATE) / RATE
    return out


def times(a, b):
    return [x * y for x, y in zip(a, b)]


def mixed(*layers):
    """Sum of (samples, gain, start in seconds)."""
    length = max(int(start * RATE) + len(samples) for samples, _, start in layers)
    out = [0.0] * length
    for samples, gain, start in layers:
        first = int(start * RATE)
        for i, sample in enumerate(samples):
            out[first + i] += sample * gain
    return out


def hall(samples, seconds, wet, tail=0.0):
    """A stone room: four combs and two all-passes in a row (M. R. Schroeder, "Natural Sounding
    Artificial Reverberation", 1962)."""
    dry = samples + silence(tail)
    room = [0.0] * len(dry)
    for delay in (0.0297, 0.0371, 0.0411, 0.0437):
        size = int(delay * RATE)
        feedback = 10.0 ** (-3.0 * delay / seconds)
        line, at, dull = [0.0] * size, 0, 0.0
        for i, sample in enumerate(dry):
            out = line[at]
            dull += 0.55 * (out - dull)
            line[at] = sample + dull * feedback
            room[i] += out * 0.25
            at = (at + 1) % size
    for delay in (0.0050, 0.0017):
        size = int(delay * RATE)
        line, at = [0.0] * size, 0
        for i, sample in enumerate(room):
            out = line[at] - 0.7 * sample
            line[at] = sample + 0.7 * out
            room[i] = out
            at = (at + 1) % size
    return [a * (1.0 - wet) + b * wet for a, b in zip(dry, room)]


def looped(samples, seconds):
    """Cut to so many seconds with what is behind them folded over the beginning: no seam."""
    length = int(seconds * RATE)
    over = len(samples) - length
    out = samples[:length]
    for i in range(over):
        t = i / over
        out[i] = samples[i] * math.sqrt(t) + samples[length + i] * math.sqrt(1.0 - t)
    return out


def settled(samples):
    """Without what the ear does not hear, and ending in silence."""
    out = highpass(samples, 25.0)
    tail = int(0.012 * RATE)
    for i in range(tail):
        out[len(out) - 1 - i] *= i / tail
    return out


def write(path, samples, peak=0.85):
    """Saves as 16-bit PCM, the loudest sample at `peak`."""
    _write_wave(path, [samples], peak)


def write_ogg(path, channels, peak, loopSeconds):
    """Saves as Ogg Vorbis with a loop from there to the end, by `oggenc` (package vorbis-tools)."""
    loopStart = int(loopSeconds * RATE)
    path.parent.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory() as folder:
        plain = Path(folder) / "plain.wav"
        _write_wave(plain, channels, peak)
        subprocess.run(["oggenc", "-Q", "-q", "0", "--serial", "1", "-c", f"LOOPSTART={loopStart}",
                        "-c", f"LOOPLENGTH={len(channels[0]) - loopStart}", "-o", str(path), str(plain)],
                       check=True)


def _write_wave(path, channels, peak):
    top = max(abs(sample) for samples in channels for sample in samples) or 1.0
    values = [int(round(sample / top * peak * 32767)) for frame in zip(*channels) for sample in frame]
    path.parent.mkdir(parents=True, exist_ok=True)
    with wave.open(str(path), "wb") as file:
        file.setnchannels(len(channels))
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(struct.pack(f"<{len(values)}h", *values))
