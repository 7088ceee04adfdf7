"""The sound effects and the two backgrounds of the demo project."""

import math
from random import Random

from synth import (RATE, decaying, hall, highpass, looped, lowpass, mixed, noise, resonant, shaped,
                   silence, sweep, times)


def footstep():
    """A boot on wet stone: heel, sole, and the water between."""
    heel = times(lowpass(noise(0.10, 1), 420), decaying(0.10, 0.016))
    thump = times(sweep(0.12, lambda t: 110 - 320 * t), decaying(0.12, 0.022))
    sole = times(lowpass(highpass(noise(0.14, 2), 700), 3200), decaying(0.14, 0.020, 0.010))
    wet = times(resonant(noise(0.16, 3), 1900, 0.004), decaying(0.16, 0.030, 0.020))
    return hall(mixed((heel, 1.6, 0), (thump, 0.9, 0), (sole, 0.35, 0.045), (wet, 0.8, 0.030)), 0.5, 0.14, 0.12)


def footstep_grass():
    random = Random(4)
    layers = [(times(lowpass(noise(0.10, 5), 260), decaying(0.10, 0.022)), 1.3, 0.0)]
    for k in range(9):
        blade = times(highpass(lowpass(noise(0.05, 10 + k), 7000), 2200), decaying(0.05, 0.008, 0.006))
        layers.append((blade, random.uniform(0.15, 0.4), random.uniform(0.0, 0.15)))
    return mixed(*layers)


def creak(seconds, low, high, seed, rough):
    """Wood or iron that sticks and slips: a train of knocks into resonances."""
    random = Random(seed)
    train = silence(seconds)
    t = 0.0
    while t < seconds - 0.01:
        rate = low + (high - low) * math.sin(math.pi * t / seconds) ** 2
        train[int(t * RATE)] = random.uniform(0.6, 1.0)
        t += random.uniform(1.0 - rough, 1.0 + rough) / rate
    return train


def door():
    """An oak door: latch, hinge, and home."""
    latch = times(resonant(noise(0.05, 21), 2600, 0.006), decaying(0.05, 0.010))
    train = creak(0.62, 38, 130, 22, 0.22)
    hinge = mixed((resonant(train, 420, 0.010), 1.0, 0), (resonant(train, 760, 0.008), 0.8, 0),
                  (resonant(train, 1330, 0.005), 0.5, 0))
    hinge = shaped(hinge, [(0, 0.1), (0.10, 1.0), (0.45, 0.8), (0.62, 0)])
    thud = times(lowpass(noise(0.30, 23), 180), decaying(0.30, 0.055))
    boom = times(sweep(0.30, lambda t: 74 - 60 * t), decaying(0.30, 0.080))
    return hall(mixed((latch, 0.5, 0), (hinge, 9.0, 0.06), (thud, 1.9, 0.66), (boom, 1.0, 0.66)), 1.1, 0.22, 0.25)


def gate():
    """Iron on iron, out of doors."""
    train = creak(0.70, 60, 210, 31, 0.10)
    squeal = mixed((resonant(train, 1180, 0.030), 1.0, 0), (resonant(train, 1790, 0.024), 0.7, 0),
                   (resonant(train, 2960, 0.014), 0.4, 0))
    squeal = shaped(squeal, [(0, 0), (0.15, 1.0), (0.5, 0.7), (0.70, 0)])
    clank = mixed(*[(times(sweep(0.5, lambda t, f=f: f), decaying(0.5, tau, 0.001)), gain, 0)
                    for f, tau, gain in ((523, 0.16, 0.5), (811, 0.10, 0.4), (1377, 0.07, 0.35), (2214, 0.04, 0.2))])
    knock = times(lowpass(noise(0.08, 32), 900), decaying(0.08, 0.012))
    return mixed((squeal, 14.0, 0), (clank, 0.6, 0.66), (knock, 0.8, 0.66))


def hit():
    """A blow that lands."""
    swing = shaped(lowpass(highpass(noise(0.12, 41), 500), lambda t: 900 + 16000 * t), [(0, 0), (0.09, 0.5), (0.12, 0)])
    smack = times(lowpass(noise(0.12, 42), 2600), decaying(0.12, 0.018, 0.001))
    body = times(sweep(0.22, lambda t: 60 + 150 * math.exp(-t * 26)), decaying(0.22, 0.060, 0.001))
    return mixed((swing, 0.8, 0), (smack, 1.3, 0.10), (body, 1.0, 0.10))


def chest():
    """Latch, hinge, and something that shines."""
    click = times(resonant(noise(0.06, 51), 3100, 0.004), decaying(0.06, 0.008, 0.001))
    train = creak(0.36, 50, 150, 52, 0.2)
    hinge = shaped(mixed((resonant(train, 640, 0.008), 1.0, 0), (resonant(train, 1120, 0.006), 0.7, 0)),
                   [(0, 0), (0.08, 1), (0.36, 0)])
    layers = [(click, 2.4, 0), (click, 1.6, 0.05), (hinge, 9.0, 0.10)]
    for k, f in enumerate((1174.7, 1568.0, 1975.5, 2349.3)):
        tone = mixed((times(sweep(0.7, lambda t, f=f: f), decaying(0.7, 0.17, 0.003)), 1.0, 0),
                     (times(sweep(0.7, lambda t, f=f: f * 2.01), decaying(0.7, 0.08, 0.003)), 0.35, 0))
        layers.append((tone, 0.34, 0.42 + 0.065 * k))
    return hall(mixed(*layers), 0.8, 0.18, 0.1)


def bell():
    """Old Patience: hum, prime, minor third, fifth and nominal of a cast bell, and what beats
    between its halves, heard through water."""
    prime = 196.0
    layers = []
    for ratio, tau, gain in ((0.5, 1.60, 0.55), (1.0, 1.05, 0.60), (1.183, 0.85, 0.50), (1.506, 0.60, 0.30),
                             (2.0, 0.70, 0.55), (2.514, 0.34, 0.25), (2.662, 0.30, 0.20), (3.011, 0.26, 0.22),
                             (4.166, 0.15, 0.16), (5.43, 0.09, 0.12)):
        for beat, share in ((-0.30, 0.72), (0.45, 0.28)):
            f = prime * ratio + beat
            layers.append((times(sweep(2.6, lambda t, f=f: f), decaying(2.6, tau, 0.002)), gain * share, 0))
    strike = times(lowpass(noise(0.05, 61), 2400), decaying(0.05, 0.010, 0.001))
    out = hall(mixed(*layers, (strike, 0.5, 0)), 1.6, 0.16)
    return shaped(out, [(0, 1), (2.1, 1), (2.6, 0)])


def splash():
    burst = shaped(lowpass(noise(0.8, 71), lambda t: 5200 * math.exp(-t * 3.2) + 500),
                   [(0, 0), (0.012, 1.0), (0.12, 0.42), (0.8, 0)])
    layers = [(burst, 1.0, 0.04),
              (times(sweep(0.10, lambda t: 240 + 900 * t), decaying(0.10, 0.03)), 0.9, 0)]
    random = Random(72)
    for _ in range(22):
        f = random.uniform(500, 1900)
        drop = times(sweep(0.05, lambda t, f=f: f * (1 + 9 * t)), decaying(0.05, 0.010, 0.002))
        layers.append((drop, random.uniform(0.08, 0.26), random.uniform(0.10, 0.70)))
    return mixed(*layers)


def stone():
    """A slab that moves over."""
    train = creak(0.75, 90, 150, 81, 0.6)
    grind = mixed((resonant(train, 170, 0.012), 1.0, 0), (resonant(train, 340, 0.007), 0.6, 0),
                  (lowpass(highpass(noise(0.75, 82), 300), 1500), 0.035, 0))
    grind = shaped(grind, [(0, 0), (0.12, 1.0), (0.60, 0.9), (0.75, 0)])
    end = times(lowpass(noise(0.25, 83), 150), decaying(0.25, 0.05))
    return hall(mixed((grind, 6.0, 0), (end, 1.2, 0.70)), 1.2, 0.20, 0.2)


def drip():
    """Water finding its way down, in a large room; five seconds without a seam."""
    random = Random(91)
    layers = [(lowpass(noise(6.4, 92), 220), 0.030, 0)]
    t = 0.15
    while t < 6.0:
        f = random.uniform(900, 2100)
        drop = times(sweep(0.09, lambda t, f=f: f * (0.82 + 3.4 * t)), decaying(0.09, 0.016, 0.002))
        layers.append((drop, random.uniform(0.25, 0.8), t))
        if random.random() < 0.35:
            layers.append((drop, 0.18, t + random.uniform(0.05, 0.09)))
        t += random.uniform(0.35, 0.95)
    return looped(hall(mixed(*layers), 2.2, 0.55), 5.0)


def wind():
    """A draught with a little singing in it; four seconds without a seam."""
    air = noise(5.2, 101)
    breath = lowpass(highpass(air, 120), lambda t: 520 + 260 * math.sin(2 * math.pi * t / 2.6))
    voice = mixed((resonant(air, 392, 0.060), 1.0, 0), (resonant(air, 466, 0.050), 0.6, 0),
                  (resonant(air, 587, 0.040), 0.4, 0))
    swell = [0.55 + 0.45 * math.sin(2 * math.pi * i / RATE / 4.0 + 0.8) for i in range(len(voice))]
    return looped(mixed((breath, 1.0, 0), (times(voice, swell), 2.6, 0)), 4.0)


def shore():
    """A lake that breathes against its shore, in stereo. The bell below is heard once, at the
    beginning; behind it the water goes on for ever. Gives (channels, seconds before the loop)."""
    intro, loop, swell = 4.0, 8.0, 4.0

    def water(seed, late):
        air = noise(loop + 1.5, seed)
        wave = [(0.5 - 0.5 * math.cos(2 * math.pi * (i / RATE - late) / swell)) ** 2 for i in range(len(air))]
        wash = lowpass(highpass(air, 160), lambda t: 380 + 1500 * (0.5 - 0.5 * math.cos(2 * math.pi * (t - late) / swell)) ** 3)
        hiss = times(highpass(lowpass(air, 5200), 1800), [level ** 3 for level in wave])
        return looped(mixed((lowpass(air, 140), 0.8, 0), (times(wash, [0.25 + level for level in wave]), 1.0, 0),
                            (hiss, 0.5, 0)), loop)

    toll = [0.0] * int(intro * RATE)
    for ratio, tau, gain in ((0.5, 1.1, 0.30), (1.0, 0.75, 0.35), (1.183, 0.6, 0.25), (1.506, 0.45, 0.12)):
        f = 147.0 * ratio
        part = times(sweep(2.6, lambda t, f=f: f), decaying(2.6, tau, 0.030))
        toll = mixed((toll, 1, 0), (shaped(part, [(0, 1), (2.0, 1), (2.6, 0)]), gain * 0.5, 1.2))
    channels = []
    for seed, late in ((111, 0.0), (112, 0.45)):
        body = water(seed, late)
        before = shaped(body[-int(intro * RATE):], [(0, 0), (1.5, 0.7), (intro, 1)])
        channels.append(mixed((before, 1, 0), (toll[:len(before)], 1, 0)) + body)
    return channels, intro


# By path: what makes it, and how loud its loudest sample is. What plays once ends in silence.
EFFECTS = {
    "SE/footstep.wav": (footstep, 0.70), "SE/footstep-grass.wav": (footstep_grass, 0.60),
    "SE/door.wav": (door, 0.85), "SE/gate.wav": (gate, 0.75), "SE/hit.wav": (hit, 0.90),
    "SE/chest.wav": (chest, 0.75), "SE/bell.wav": (bell, 0.90), "SE/splash.wav": (splash, 0.80),
    "SE/stone.wav": (stone, 0.85),
}
LOOPS = {"BGS/drip.wav": (drip, 0.45), "BGS/wind.wav": (wind, 0.35)}
# With a beginning that is heard once.
STREAMS = {"BGS/shore.ogg": (shore, 0.40)}
