"""Enemies that were kindled, made or planted: wisps, chests, statues, hedges and mushrooms."""

import math
from random import Random

from beasts import BLACK, MAW, TOOTH, glow, wing_outline
from solid import Figure, Material, box, capsule, cylinder, ellipsoid, flat, sphere, torus
from undead import GOLD, IRON, hand, skull


def wisp(outer, inner, face=True, within=None, rings=None, sparks=9):
    """A flame with something of a face."""
    f = Figure(31)
    shell, core = glow(outer, 0.92), glow(inner, 1.0)
    f.add(sphere((0, -0.30, 0), 0.40), shell)
    f.add(ellipsoid((-0.03, -0.02, 0), (0.34, 0.42, 0.32)), shell, 0.16)
    for points, thick in (([(-0.06, 0.20, 0), (0.06, 0.48, 0.02), (-0.04, 0.78, 0.0)], [0.22, 0.13, 0.012]),
                          ([(-0.26, -0.12, 0.0), (-0.42, 0.14, 0.0), (-0.32, 0.42, 0.0)], [0.16, 0.10, 0.01]),
                          ([(0.26, -0.10, 0.0), (0.40, 0.12, 0.0), (0.38, 0.52, 0.0)], [0.17, 0.10, 0.01]),
                          ([(0.10, -0.62, 0.0), (0.0, -0.78, 0.0), (0.06, -0.94, 0.0)], [0.15, 0.08, 0.01])):
        f.curve(points, thick, shell, 0.12)
    f.add(ellipsoid((0, -0.28, 0.24), (0.24, 0.27, 0.20)), core, 0.05)
    f.curve([(-0.01, -0.08, 0.24), (0.02, 0.14, 0.20), (-0.03, 0.36, 0.14)], [0.15, 0.08, 0.012], core, 0.08)
    if face:
        dark = Material(tuple(c * 0.20 for c in outer), tuple(c * 0.34 for c in outer), 6)
        for side in (-1, 1):
            f.carve(ellipsoid((side * 0.105, -0.20, 0.42), (0.052, 0.085, 0.10), (0, 0, side * -16)), dark)
        f.carve(ellipsoid((0, -0.40, 0.42), (0.085, 0.042, 0.10)), dark)
    if within:
        skull(f, (0, -0.24, 0.24), 0.23, within, outer)
    random = Random(8)
    for k in range(sparks):
        angle, r = k * 2.4, 0.52 + 0.04 * k
        size = random.uniform(0.018, 0.042)
        f.add(sphere((math.cos(angle) * r, -0.10 + math.sin(angle) * r * 0.95, random.uniform(-0.1, 0.2)),
                     size), core if k % 2 else shell)
    if rings:
        for radius, turn in ((0.62, (70, 18, 0)), (0.74, (76, -26, 0))):
            f.add(torus((0, -0.16, 0), radius, 0.012, turn), rings)
    return f, {}


def mimic(wood, bands, tongue=True, relic=False):
    f = Figure(32)
    tilt = (14, -22, 0)
    plank = Material(*wood, 8, 0.8, 0.12, 18, stretch=(0.7, 4, 4))
    c, s = math.cos(math.radians(-22)), math.sin(math.radians(-22))
    p, q = math.cos(math.radians(14)), math.sin(math.radians(14))

    def at(x, y, z):  # the chest's own axes: turned about x, then about y
        y, z = y * p - z * q, y * q + z * p
        return (x * c + z * s, y - 0.30, -x * s + z * c)

    f.add(box(at(0, -0.16, 0), (0.58, 0.34, 0.40), 0.03, tilt), plank)
    f.carve(box(at(0, 0.16, 0), (0.50, 0.24, 0.32), 0.02, tilt), MAW)
    lid = (-28, -22, 0)
    f.add(box(at(0, 0.50, -0.30), (0.58, 0.13, 0.40), 0.03, lid), plank)
    f.add(cylinder(at(0, 0.56, -0.33), 0.37, 0.57, 0.02, (-28, -22, 90)), plank)
    f.carve(box(at(0, 0.36, -0.06), (0.51, 0.20, 0.34), 0.02, lid), MAW)
    for x in (-0.44, 0.0, 0.44):
        f.add(box(at(x, -0.16, 0.012), (0.055, 0.36, 0.405), 0.02, tilt), bands)
        f.add(torus(at(x, 0.565, -0.33), 0.372, 0.045, (0, 68, 0)), bands)
        for y in (-0.36, -0.10):
            f.add(sphere(at(x, y, 0.425), 0.026), bands)
    f.add(box(at(0, 0.135, 0.02), (0.60, 0.045, 0.42), 0.02, tilt), bands)
    f.carve(box(at(0, 0.18, 0), (0.51, 0.16, 0.33), 0.02, tilt), MAW)
    f.add(box(at(0, -0.06, 0.43), (0.105, 0.125, 0.03), 0.02, tilt), bands)
    f.carve(sphere(at(0, -0.04, 0.475), 0.034), BLACK)
    for k in range(9):  # teeth below, and above
        x = -0.46 + 0.115 * k
        tall = 0.13 + 0.05 * (k % 2)
        f.add(capsule(at(x, 0.17, 0.37), at(x, 0.17 + tall, 0.40), 0.040, 0.004), TOOTH)
        if k < 8:
            x += 0.057
            f.add(capsule(at(x, 0.52, 0.16), at(x, 0.39 - 0.03 * (k % 2), 0.24), 0.036, 0.004), TOOTH)
    for side in (-1, 1):
        f.add(sphere(at(side * 0.20, 0.36, -0.06), 0.105), Material((0.75, 0.70, 0.55), (0.96, 0.93, 0.82), 9, 0.1,
                                                                 0.8, 40))
        f.add(ellipsoid(at(side * 0.20, 0.355, 0.035), (0.052, 0.058, 0.025)), glow((1.0, 0.55, 0.12), 0.9))
        f.add(sphere(at(side * 0.20, 0.355, 0.058), 0.022), BLACK)
    if tongue:
        flesh = Material((0.42, 0.10, 0.12), (0.70, 0.26, 0.26), 9, 0.7, 0.7, 30)
        f.curve([at(0.05, 0.10, -0.06), at(0.08, 0.22, 0.28), at(0.12, 0.06, 0.56), at(0.10, -0.26, 0.62),
                 at(0.20, -0.40, 0.72)], [0.13, 0.12, 0.10, 0.085, 0.02], flesh, 0.05)
    if relic:  # gables, a cross, and lights behind the glass
        for x in (-0.44, 0.0, 0.44):
            f.add(flat([(-0.13, 0.0), (0.13, 0.0), (0.0, 0.24)], 0.03, at(x, -0.30, 0.43), tilt), GOLD)
            f.add(sphere(at(x, -0.22, 0.465), 0.036), glow((0.85, 0.20, 0.25), 0.7))
        f.add(capsule(at(0, 0.92, -0.42), at(0, 1.16, -0.48), 0.030), GOLD)
        f.add(capsule(at(-0.09, 1.06, -0.45), at(0.09, 1.06, -0.45), 0.028), GOLD)
        for x in (-0.30, 0.30):
            f.add(sphere(at(x, 0.94, -0.40), 0.052), GOLD)
    return f, {"shadow": (-0.82, 0.90)}


def saint(wax, lights=(1.0, 0.75, 0.3)):
    """A saint in wax, run a little."""
    f = Figure(33)
    body = Material(*wax, 4, 0.35, 0.55, 22, rim=1.3)
    f.add(cylinder((0, -0.52, 0), 0.37, 0.38, 0.05, None, 0.24), body)
    f.add(ellipsoid((0, 0.10, 0), (0.26, 0.34, 0.20)), body, 0.12)
    for k in range(10):
        angle = -1.8 + 3.6 * k / 9
        f.add(capsule((math.sin(angle) * 0.20, 0.0, math.cos(angle) * 0.19),
                      (math.sin(angle) * 0.37, -0.86, math.cos(angle) * 0.37), 0.03, 0.055), body, 0.05)
    f.add(ellipsoid((0, 0.52, 0.03), (0.155, 0.20, 0.16)), body, 0.05)
    f.add(ellipsoid((0, 0.54, -0.05), (0.215, 0.245, 0.19)), body, 0.05)
    f.carve(ellipsoid((0, 0.50, 0.20), (0.135, 0.185, 0.12)), body)
    f.add(ellipsoid((0, 0.50, 0.075), (0.125, 0.165, 0.115)), body, 0.01)
    f.add(ellipsoid((0, 0.49, 0.185), (0.02, 0.045, 0.03)), body, 0.02)
    for side in (-1, 1):
        f.carve(ellipsoid((side * 0.05, 0.525, 0.185), (0.032, 0.022, 0.05)), BLACK)
        f.add(sphere((side * 0.05, 0.522, 0.155), 0.018), glow(lights, 1.0))
        f.curve([(side * 0.05, 0.505, 0.185), (side * 0.058, 0.43, 0.19), (side * 0.05, 0.34, 0.185)],
                [0.010, 0.014, 0.018], body, 0.012)
        f.curve([(side * 0.25, 0.28, 0.0), (side * 0.36, 0.02, 0.14), (side * 0.05, 0.10, 0.34)],
                [0.115, 0.105, 0.085], body, 0.05)
        f.curve([(side * 0.03, 0.08, 0.36), (side * 0.025, 0.24, 0.40), (side * 0.010, 0.36, 0.41)],
                [0.055, 0.045, 0.018], body, 0.02)
    f.carve(ellipsoid((0, 0.425, 0.19), (0.032, 0.010, 0.04)), BLACK)
    f.add(torus((0, 0.58, -0.16), 0.33, 0.024), GOLD)
    for k in range(16):
        angle = k * math.pi / 8
        f.add(capsule((math.cos(angle) * 0.35, 0.58 + math.sin(angle) * 0.35, -0.16),
                      (math.cos(angle) * 0.42, 0.58 + math.sin(angle) * 0.42, -0.16), 0.012, 0.004), GOLD)
    for x, top in ((-0.10, 0.80), (0.0, 0.84), (0.10, 0.79)):  # candles on its crown
        f.add(cylinder((x, top - 0.03, 0.0), 0.026, 0.07, 0.01), body, 0.02)
        f.add(ellipsoid((x, top + 0.085, 0.0), (0.022, 0.052, 0.022)), glow(lights, 1.0))
    random = Random(10)
    for _ in range(26):  # what has run down
        angle = random.uniform(-1.6, 1.6)
        top = random.uniform(-0.7, 0.1)
        r = 0.24 + (0.1 - top) * 0.13
        x, z = math.sin(angle) * r, math.cos(angle) * r
        f.curve([(x, top, z), (x * 1.06, top - random.uniform(0.08, 0.2), z * 1.06)], [0.014, 0.026], body, 0.012)
    f.add(ellipsoid((0, -0.90, 0.04), (0.54, 0.055, 0.44)), body, 0.06)
    return f, {"shadow": (-0.93, 0.62)}


def gargoyle(stone, moss=None):
    f = Figure(34)
    rock = Material(*stone, 6, 1.1, 0.05, 14)
    f.add(box((0, -0.86, 0), (0.52, 0.10, 0.40), 0.03, (0, 12, 0)), rock)
    f.add(ellipsoid((0, -0.22, -0.02), (0.30, 0.42, 0.28), (16, 0, 0)), rock)
    f.add(ellipsoid((0, 0.02, 0.10), (0.33, 0.27, 0.24)), rock, 0.10)
    f.add(ellipsoid((0, 0.36, 0.24), (0.20, 0.20, 0.21)), rock, 0.06)
    f.add(capsule((0, 0.30, 0.36), (0, 0.25, 0.52), 0.14, 0.105), rock, 0.05)
    f.carve(ellipsoid((0, 0.205, 0.54), (0.105, 0.045, 0.14)), BLACK)
    for side in (-1, 1):
        for k in range(2):
            f.add(capsule((side * (0.04 + 0.05 * k), 0.245, 0.60 - 0.02 * k), (side * (0.04 + 0.05 * k), 0.185,
                                                                           0.61 - 0.02 * k), 0.020, 0.004), rock)
        f.add(capsule((side * 0.07, 0.15, 0.585), (side * 0.075, 0.225, 0.60), 0.020, 0.004), rock)
        f.carve(ellipsoid((side * 0.085, 0.40, 0.435), (0.045, 0.030, 0.06), (0, 0, side * 18)), BLACK)
        f.add(sphere((side * 0.085, 0.395, 0.405), 0.024), glow((1.0, 0.45, 0.12), 1.0))
        f.add(capsule((side * 0.03, 0.43, 0.42), (side * 0.15, 0.47, 0.38), 0.040, 0.026), rock, 0.03)
        f.curve([(side * 0.13, 0.50, 0.20), (side * 0.26, 0.66, 0.14), (side * 0.24, 0.86, 0.20),
                 (side * 0.15, 0.94, 0.28)], [0.075, 0.062, 0.042, 0.010], rock, 0.03)
        f.add(flat([(0, -0.05), (side * 0.24, 0.10), (side * 0.02, 0.07)], 0.03, (side * 0.17, 0.38, 0.18),
                   (0, side * 24, 0)), rock, 0.03)
        # arms to the plinth, legs folded
        f.curve([(side * 0.30, 0.06, 0.12), (side * 0.42, -0.30, 0.30), (side * 0.26, -0.66, 0.40)],
                [0.125, 0.095, 0.085], rock, 0.05)
        f.curve([(side * 0.20, -0.46, 0.02), (side * 0.48, -0.36, 0.26), (side * 0.42, -0.72, 0.18)],
                [0.18, 0.15, 0.10], rock, 0.06)
        for k in range(3):
            f.add(capsule((side * 0.25 + (k - 1) * 0.075, -0.70, 0.42), (side * 0.25 + (k - 1) * 0.09, -0.78, 0.56),
                          0.045, 0.012), rock, 0.02)
            f.add(capsule((side * 0.43 + (k - 1) * 0.07, -0.74, 0.22), (side * 0.44 + (k - 1) * 0.08, -0.78, 0.40),
                          0.042, 0.012), rock, 0.02)
        wing = wing_outline(side, [(0.06, -0.30), (0.16, 0.30), (0.34, 0.66), (0.52, 0.56), (0.80, 0.50),
                                   (0.76, 0.20), (0.82, -0.10), (0.60, -0.12), (0.52, -0.38), (0.34, -0.24)])
        turn = (0, side * 26, 0)
        f.add(flat(wing, 0.028, (side * 0.06, 0.06, -0.24), turn), rock, 0.03)
        wrist = (side * 0.40, 0.74, -0.40)
        f.curve([(side * 0.16, 0.06, -0.18), (side * 0.26, 0.46, -0.28), wrist], [0.085, 0.065, 0.045], rock, 0.03)
        for tip in ((0.78, 0.50, -0.60), (0.78, -0.04, -0.58), (0.54, -0.32, -0.46)):
            f.add(capsule(wrist, (side * tip[0], tip[1], tip[2]), 0.040, 0.016), rock, 0.02)
    f.curve([(0.10, -0.66, -0.20), (0.46, -0.70, 0.02), (0.56, -0.60, 0.34), (0.44, -0.50, 0.48)],
            [0.09, 0.07, 0.05, 0.012], rock, 0.03)
    if moss:
        random = Random(12)
        for _ in range(60):
            x, y = random.uniform(-0.62, 0.62), random.uniform(-0.78, 0.62)
            z = 0.30 - abs(x) * 0.75 - max(0.0, y - 0.1) * 0.25 + random.uniform(-0.05, 0.03)
            f.add(ellipsoid((x, y, z), (random.uniform(0.03, 0.085), 0.028, random.uniform(0.03, 0.07))), moss, 0.03)
        for x in (-0.40, 0.38, 0.1):
            f.curve([(x, -0.76, 0.40), (x + 0.03, -0.90, 0.43), (x, -0.99, 0.42)], [0.03, 0.022, 0.006], moss, 0.01)
    return f, {"shadow": (-0.95, 0.62)}


def hedge_man(king=False):
    """Clipped to the shape of a man, and filled in."""
    f = Figure(35)
    leaf = Material((0.04, 0.10, 0.04), (0.24, 0.42, 0.14), 9, 0.8, 0.25, 22)
    bright = Material((0.12, 0.24, 0.08), (0.44, 0.58, 0.22), 9, 0.8, 0.25, 22)
    bark = Material((0.12, 0.085, 0.06), (0.36, 0.27, 0.19), 7, 1.2, 0.05, stretch=(3, 0.7, 3))
    random = Random(14)

    def clump(centre, radii, count, size):
        cx, cy, cz = centre
        f.add(ellipsoid(centre, tuple(r * 0.90 for r in radii)), leaf)
        for k in range(count):
            up = 1 - 2 * (k + 0.5) / count
            angle = k * 2.39996
            flat_ = math.sqrt(max(0.0, 1 - up * up))
            z = math.cos(angle) * flat_
            if z < -0.25:
                continue
            x, y, z = math.sin(angle) * flat_ * radii[0], up * radii[1], z * radii[2]
            turn = (random.uniform(-60, 60), random.uniform(-60, 60), random.uniform(0, 180))
            f.add(ellipsoid((cx + x, cy + y, cz + z), (size * 1.5, size * 0.62, size * 0.30), turn),
                  bright if random.random() < 0.42 else leaf)

    wide = 1.16 if king else 1.0
    for side in (-1, 1):
        f.curve([(side * 0.14, -0.34, 0), (side * 0.21 * wide, -0.62, 0.06), (side * 0.20 * wide, -0.88, 0.02)],
                [0.12, 0.10, 0.09], bark, 0.05)
        for k in range(3):
            f.curve([(side * 0.20 * wide, -0.84, 0.04), (side * (0.24 + 0.12 * (k - 1)) * wide, -0.92, 0.20),
                     (side * (0.26 + 0.2 * (k - 1)) * wide, -0.94, 0.34)], [0.06, 0.04, 0.01], bark, 0.03)
    clump((0, -0.14, 0), (0.32 * wide, 0.36, 0.26), 62, 0.066)
    clump((0, 0.22, 0.02), (0.38 * wide, 0.25, 0.26), 56, 0.066)
    clump((0, 0.58, 0.08), (0.20, 0.21, 0.19), 44, 0.052)
    for side in (-1, 1):
        f.curve([(side * 0.30 * wide, 0.28, 0.0), (side * 0.56 * wide, 0.06, 0.16), (side * 0.54 * wide, -0.22, 0.40)],
                [0.085, 0.07, 0.055], bark, 0.03)
        clump((side * 0.46 * wide, 0.20, 0.06), (0.17, 0.19, 0.16), 26, 0.056)
        clump((side * 0.57 * wide, -0.06, 0.26), (0.13, 0.17, 0.13), 22, 0.052)
        hand(f, (side * 0.54 * wide, -0.24, 0.42), (side * 0.54 * wide, -0.50, 0.62), bark, 0.070)
        f.carve(ellipsoid((side * 0.075, 0.60, 0.27), (0.048, 0.036, 0.11)), BLACK)
        f.add(sphere((side * 0.075, 0.598, 0.215), 0.030), glow((0.95, 0.90, 0.35), 1.0))
    f.carve(ellipsoid((0, 0.485, 0.26), (0.085, 0.030, 0.11)), BLACK)
    if king:
        apple = Material((0.40, 0.07, 0.05), (0.78, 0.28, 0.12), 5, 0.15, 0.8, 34)
        for side in (-1, 1):  # antlers of apple wood
            f.curve([(side * 0.12, 0.74, 0.02), (side * 0.30, 0.88, -0.02), (side * 0.46, 1.04, 0.0),
                     (side * 0.48, 1.22, 0.02)], [0.060, 0.048, 0.036, 0.008], bark, 0.02)
            f.curve([(side * 0.30, 0.88, -0.02), (side * 0.24, 1.04, 0.04), (side * 0.26, 1.18, 0.06)],
                    [0.042, 0.032, 0.008], bark, 0.02)
            f.curve([(side * 0.44, 1.00, 0.0), (side * 0.64, 1.06, 0.04), (side * 0.72, 1.18, 0.06)],
                    [0.036, 0.028, 0.008], bark, 0.02)
        for x, y, z, r in ((-0.66, 0.98, 0.06, 0.085), (0.40, 0.90, 0.08, 0.08), (-0.20, 0.95, 0.10, 0.075),
                           (-0.34, 0.10, 0.28, 0.09), (0.26, -0.04, 0.30, 0.10), (0.05, 0.24, 0.32, 0.085),
                           (0.62, 0.20, 0.24, 0.085), (-0.16, -0.26, 0.28, 0.085)):
            f.add(sphere((x, y, z), r), apple)
            f.carve(ellipsoid((x, y + r * 0.9, z), (r * 0.3, r * 0.3, r * 0.3)), BLACK)
            f.add(capsule((x, y + r * 0.7, z), (x + 0.02, y + r * 1.5, z), 0.010, 0.006), bark)
            for side in (-1, 1):
                f.carve(sphere((x + side * r * 0.32, y + r * 0.12, z + r * 0.92), r * 0.17), BLACK)
            f.carve(ellipsoid((x, y - r * 0.34, z + r * 0.90), (r * 0.34, r * 0.13, r * 0.25)), BLACK)
    else:
        f.curve([(0.56, -0.50, 0.62), (0.52, -0.20, 0.72), (0.34, 0.10, 0.72)], [0.022, 0.022, 0.010], IRON, 0.01)
        f.curve([(0.60, -0.50, 0.62), (0.66, -0.18, 0.72), (0.62, 0.16, 0.72)], [0.022, 0.022, 0.010], IRON, 0.01)
    return f, {"shadow": (-0.94, 0.72), "extent": 1.26 if king else 1.0}


def mushroom(cap, gill):
    f = Figure(36)
    flesh = Material(tuple(c * 0.66 for c in gill), gill, 6, 0.6, 0.15)
    top = Material(*cap, 4, 0.5, 0.7, 30)
    spot = Material((0.66, 0.62, 0.50), (0.92, 0.88, 0.76), 9, 0.7, 0.2)
    f.add(cylinder((0.0, -0.46, 0), 0.30, 0.42, 0.08, None, 0.21), flesh)
    f.add(ellipsoid((0, -0.80, 0.02), (0.38, 0.16, 0.34)), flesh, 0.12)
    f.add(torus((0, -0.10, 0.0), 0.24, 0.05, (90, 0, 0)), flesh, 0.05)
    f.add(ellipsoid((0, 0.30, 0.0), (0.80, 0.48, 0.66), (10, 0, 4)), top)
    f.carve(ellipsoid((0, -0.16, -0.06), (0.74, 0.33, 0.64), (10, 0, 4)), flesh)
    for k in range(22):
        angle = k * 2 * math.pi / 22
        f.add(capsule((math.cos(angle) * 0.20, 0.02, math.sin(angle) * 0.18),
                      (math.cos(angle) * 0.68, 0.10, math.sin(angle) * 0.56), 0.014, 0.020), flesh, 0.01)
    f.add(cylinder((0, -0.24, 0), 0.25, 0.40, 0.03, None, 0.20), flesh, 0.05)
    for x, y, z, r in ((-0.30, 0.54, 0.46, 0.12), (0.12, 0.44, 0.62, 0.11), (0.42, 0.56, 0.34, 0.13),
                       (-0.56, 0.30, 0.36, 0.09), (0.64, 0.30, 0.30, 0.08), (-0.08, 0.74, 0.22, 0.10),
                       (-0.22, 0.30, 0.62, 0.06), (0.36, 0.28, 0.56, 0.06)):
        f.add(ellipsoid((x, y, z), (r, r * 0.62, r * 0.42), (-28, 0, 0)), spot, 0.02)
    for side in (-1, 1):
        f.carve(ellipsoid((side * 0.105, -0.28, 0.26), (0.050, 0.062, 0.09)), BLACK)
        f.add(sphere((side * 0.105, -0.285, 0.225), 0.026), glow((0.75, 0.95, 0.50), 1.0))
        f.curve([(side * 0.24, -0.34, 0.08), (side * 0.44, -0.46, 0.22), (side * 0.46, -0.66, 0.30)],
                [0.075, 0.065, 0.075], flesh, 0.05)
        for k in (-1, 0, 1):
            f.add(capsule((side * 0.46 + k * 0.05, -0.68, 0.31), (side * 0.46 + k * 0.07, -0.78, 0.34), 0.034, 0.024),
                  flesh, 0.02)
        f.add(ellipsoid((side * 0.17, -0.91, 0.16), (0.15, 0.07, 0.20)), flesh, 0.05)
    f.carve(ellipsoid((0.0, -0.43, 0.27), (0.075, 0.030, 0.07)), BLACK)
    random = Random(16)
    for _ in range(16):  # spores on their way down
        x, y = random.uniform(-0.75, 0.75), random.uniform(-0.55, 0.02)
        f.add(sphere((x, y, 0.40), random.uniform(0.010, 0.020)), glow((0.80, 0.90, 0.55), 0.8))
    return f, {"shadow": (-0.93, 0.66)}
