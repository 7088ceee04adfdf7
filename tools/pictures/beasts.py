"""Enemies that were born: rats, bats, crabs, spiders, eels and their kin. Each function builds a
figure from the colours and traits it is given."""

import math
from random import Random

from solid import Figure, Material, box, capsule, cylinder, ellipsoid, flat, sphere, torus

BLACK = Material((0.02, 0.02, 0.02), (0.06, 0.05, 0.05), shine=0.5, polish=30)
MAW = Material((0.16, 0.03, 0.03), (0.34, 0.08, 0.07), 10, 0.3, 0.3)
TOOTH = Material((0.70, 0.64, 0.48), (0.94, 0.90, 0.76), 14, 0.1, 0.3)
PINK = Material((0.50, 0.28, 0.26), (0.74, 0.46, 0.42), 12, 0.3, 0.2)


def glow(colour, strength=1.0):
    return Material(tuple(c * 0.8 for c in colour), colour, 3, 0.0, 0.0, 20, strength)


def fur(dark, light):
    return Material(dark, light, 10, 1.5, 0.04, 12, stretch=(2.2, 0.8, 1.6))


def eyes(figure, x, y, z, size, colour, gap=None):
    """A pair of lit eyes about the middle, or about `gap`."""
    middle = 0.0 if gap is None else gap
    for side in (-1, 1):
        figure.add(sphere((middle + side * x, y, z), size), BLACK)
        figure.add(sphere((middle + side * x, y, z + size * 0.55), size * 0.66), glow(colour, 0.9))


def rat(dark, light, eye=(1.0, 0.25, 0.15), patch=None):
    f = Figure(11)
    coat = fur(dark, light)
    f.add(ellipsoid((0.08, -0.30, -0.20), (0.52, 0.44, 0.56)), coat)
    f.add(ellipsoid((0.02, -0.46, 0.16), (0.40, 0.33, 0.40)), coat, 0.16)
    f.add(ellipsoid((-0.10, -0.16, 0.46), (0.27, 0.25, 0.32), (10, 0, 0)), coat, 0.12)
    f.add(capsule((-0.12, -0.22, 0.62), (-0.15, -0.31, 0.92), 0.16, 0.075), coat, 0.08)
    f.add(sphere((-0.155, -0.29, 1.00), 0.055), PINK)
    for side in (-1, 1):
        x = -0.10 + side * 0.25
        f.add(ellipsoid((x, 0.10, 0.32), (0.17, 0.19, 0.05), (0, side * 24, 0)), coat, 0.02)
        f.add(ellipsoid((x, 0.10, 0.365), (0.125, 0.14, 0.03), (0, side * 24, 0)), PINK)
        f.add(sphere((-0.11 + side * 0.135, -0.12, 0.70), 0.058), BLACK)
        f.add(sphere((-0.12 + side * 0.135, -0.11, 0.742), 0.030), glow(eye, 0.9))
        f.add(box((-0.152 + side * 0.026, -0.41, 0.90), (0.022, 0.062, 0.02), 0.008), TOOTH)
        f.curve([(-0.04 + side * 0.30, -0.52, 0.34), (-0.06 + side * 0.34, -0.72, 0.52),
                 (-0.08 + side * 0.33, -0.82, 0.66)], [0.13, 0.085, 0.06], coat, 0.06)
        for toe in (-1, 0, 1):
            x = -0.08 + side * 0.33 + toe * 0.05
            f.add(capsule((x, -0.83, 0.68), (x + toe * 0.02, -0.87, 0.80), 0.028, 0.014), PINK, 0.01)
        f.add(ellipsoid((0.06 + side * 0.50, -0.62, -0.10), (0.20, 0.26, 0.28)), coat, 0.06)
        f.add(ellipsoid((0.08 + side * 0.54, -0.84, 0.10), (0.11, 0.05, 0.20)), PINK, 0.03)
        for k in range(3):
            f.add(capsule((-0.14 + side * 0.07, -0.28 - 0.02 * k, 0.92),
                          (-0.14 + side * 0.46, -0.16 - 0.13 * k, 0.80), 0.006, 0.003), TOOTH)
    f.carve(ellipsoid((-0.145, -0.385, 0.86), (0.07, 0.04, 0.09)), MAW)
    f.curve([(0.42, -0.52, -0.42), (0.76, -0.66, -0.30), (0.93, -0.46, -0.22), (0.86, -0.18, -0.20),
             (0.92, 0.10, -0.24)], [0.10, 0.075, 0.058, 0.042, 0.015], PINK, 0.04)
    if patch:
        for x, y, z, turn in ((0.34, 0.02, 0.16, 20), (0.44, -0.32, 0.24, -15)):
            f.add(box((x, y, z), (0.12, 0.10, 0.03), 0.02, (-40, 35, turn)), patch, 0.01)
    return f, {"shadow": (-0.86, 0.85)}


def toad(dark, light, belly):
    f = Figure(12)
    skin = Material(dark, light, 7, 1.0, 0.55, 26)
    pale = Material(tuple(c * 0.7 for c in belly), belly, 9, 0.6, 0.4, 24)
    stone = Material((0.34, 0.34, 0.31), (0.58, 0.56, 0.50), 7, 0.8, 0.06)
    water = Material((0.10, 0.22, 0.24), (0.24, 0.42, 0.44), 5, 0.3, 1.0, 50)
    f.add(cylinder((0, -0.62, 0), 0.62, 0.20, 0.05, None, 0.86), stone)          # the font
    f.carve(ellipsoid((0, -0.36, 0), (0.76, 0.22, 0.76)), water)
    f.add(cylinder((0, -0.88, 0), 0.30, 0.12, 0.03, None, 0.34), stone)
    f.add(torus((0, -0.44, 0), 0.82, 0.055, (90, 0, 0)), stone)
    for k in range(8):
        angle = k * math.pi / 4 + 0.4
        f.add(box((math.sin(angle) * 0.72, -0.62, math.cos(angle) * 0.72), (0.05, 0.14, 0.04), 0.02,
                  (0, math.degrees(angle), 0)), stone)
    f.add(ellipsoid((0, -0.12, -0.04), (0.58, 0.44, 0.48)), skin)
    f.add(ellipsoid((0, 0.12, 0.20), (0.44, 0.30, 0.36)), skin, 0.14)
    f.add(ellipsoid((0, -0.16, 0.34), (0.40, 0.28, 0.20)), pale, 0.10)
    f.carve(ellipsoid((0, 0.045, 0.58), (0.36, 0.030, 0.20), (6, 0, 0)), MAW)
    for side in (-1, 1):
        f.add(sphere((side * 0.27, 0.38, 0.22), 0.145), skin, 0.05)
        f.add(sphere((side * 0.28, 0.40, 0.30), 0.105), glow((0.92, 0.66, 0.14), 0.45))
        f.add(ellipsoid((side * 0.285, 0.40, 0.395), (0.062, 0.026, 0.03)), BLACK)
        f.add(ellipsoid((side * 0.58, -0.26, 0.02), (0.22, 0.30, 0.30)), skin, 0.06)
        f.curve([(side * 0.44, -0.16, 0.34), (side * 0.54, -0.36, 0.58), (side * 0.40, -0.42, 0.74)],
                [0.12, 0.09, 0.06], skin, 0.05)
        for toe in (-1, 0, 1):
            f.add(capsule((side * 0.40, -0.41, 0.76), (side * 0.40 + toe * 0.10, -0.44, 0.90), 0.035,
                          0.022), skin, 0.03)
    random = Random(5)
    for _ in range(40):  # warts, on the skin of the back and of the brow
        angle, up = random.uniform(-1.5, 1.5), random.uniform(-0.1, 1.0)
        flat_ = math.cos(up)
        wart = random.uniform(0.02, 0.045)
        f.add(sphere((math.sin(angle) * flat_ * 0.58, math.sin(up) * 0.44 - 0.12,
                      math.cos(angle) * flat_ * 0.48 - 0.04), wart), skin, 0.03)
        f.add(sphere((math.sin(angle) * flat_ * 0.43, math.sin(up) * 0.30 + 0.12,
                      math.cos(angle) * flat_ * 0.36 + 0.20), wart * 0.7), skin, 0.03)
    return f, {"shadow": (-0.95, 0.7)}


def wing_outline(side, points):
    return [(side * x, y) for x, y in points]


def bat(dark, light, membrane):
    f = Figure(13)
    coat = fur(dark, light)
    skin = Material(tuple(c * 0.5 for c in membrane), membrane, 8, 0.5, 0.15, stretch=(1, 2, 1))
    for side in (-1, 1):
        outline = wing_outline(side, [(0.08, 0.16), (0.34, 0.44), (0.62, 0.50), (0.96, 0.28),
                                      (0.86, 0.02), (0.78, -0.30), (0.64, -0.08), (0.52, -0.40),
                                      (0.38, -0.12), (0.24, -0.34), (0.10, -0.10)])
        turn = (0, side * 24, 0)
        f.add(flat(outline, 0.014, (0, 0.06, -0.10), turn), skin)
        shoulder, wrist = (side * 0.12, 0.20, 0.0), (side * 0.58, 0.56, -0.36)
        f.curve([shoulder, (side * 0.34, 0.46, -0.20), wrist], [0.055, 0.042, 0.032], coat, 0.03)
        for tip in ((0.90, 0.34, -0.46), (0.76, -0.24, -0.40), (0.50, -0.34, -0.26)):
            f.add(capsule(wrist, (side * tip[0], tip[1], tip[2]), 0.026, 0.010), coat, 0.02)
        f.add(capsule((wrist[0], wrist[1], wrist[2]), (wrist[0] + side * 0.02, wrist[1] + 0.12,
                                                       wrist[2] + 0.06), 0.022, 0.006), TOOTH, 0.01)
        f.add(flat(wing_outline(side, [(0.02, 0.0), (0.16, 0.34), (0.24, 0.02)]), 0.03,
                   (side * 0.03, 0.30, 0.18), (-8, side * 16, -side * 6)), coat, 0.03)
        f.add(flat(wing_outline(side, [(0.06, 0.04), (0.155, 0.26), (0.20, 0.04)]), 0.02,
                   (side * 0.03, 0.30, 0.212), (-8, side * 16, -side * 6)), PINK)
        f.add(capsule((side * 0.10, -0.30, 0.10), (side * 0.13, -0.48, 0.16), 0.045, 0.03), coat, 0.04)
        for toe in (-1, 0, 1):
            f.add(capsule((side * 0.13, -0.48, 0.16), (side * 0.13 + toe * 0.045, -0.57, 0.22), 0.016,
                          0.006), TOOTH)
    f.add(ellipsoid((0, -0.08, 0.02), (0.24, 0.33, 0.24)), coat)
    f.add(ellipsoid((0, 0.22, 0.16), (0.21, 0.19, 0.21)), coat, 0.08)
    f.add(ellipsoid((0, 0.14, 0.36), (0.10, 0.08, 0.09)), PINK, 0.05)
    f.add(ellipsoid((0, 0.19, 0.42), (0.055, 0.07, 0.03), (-20, 0, 0)), PINK, 0.02)
    f.carve(ellipsoid((0, 0.065, 0.36), (0.10, 0.06, 0.10)), MAW)
    for side in (-1, 1):
        f.add(capsule((side * 0.055, 0.105, 0.40), (side * 0.05, 0.02, 0.42), 0.020, 0.004), TOOTH)
    eyes(f, 0.10, 0.26, 0.33, 0.042, (1.0, 0.72, 0.16))
    return f, {}


def slime(dark, light, inside=None, bubbles=(), crest=None):
    """A heap of something wet. `inside` is a list of shapes with materials that stick out of it."""
    f = Figure(14)
    wet = Material(dark, light, 3.2, 0.35, 1.0, 36, rim=1.8)
    f.add(ellipsoid((0, -0.66, 0), (0.88, 0.22, 0.62)), wet)
    f.add(ellipsoid((-0.06, -0.34, 0), (0.60, 0.44, 0.52)), wet, 0.24)
    f.add(ellipsoid((0.04, 0.02, 0.02), (0.42, 0.40, 0.40)), wet, 0.22)
    f.add(sphere((-0.02, 0.34, 0.0), 0.25), wet, 0.20)
    for side, reach, lift in ((-1, 0.86, -0.10), (1, 0.80, 0.08)):
        f.curve([(side * 0.34, -0.18, 0.10), (side * 0.66, -0.06 + lift, 0.16),
                 (side * reach, -0.34 + lift, 0.26)], [0.20, 0.13, 0.10], wet, 0.14)
        for finger in (-1, 0, 1):
            x = side * reach + finger * 0.07
            f.add(capsule((x, -0.38 + lift, 0.28), (x + finger * 0.03, -0.56 + lift * 0.8, 0.32), 0.05,
                          0.032), wet, 0.06)
    for x, y, z, r in ((0.70, -0.70, 0.36, 0.16), (-0.74, -0.72, 0.30, 0.13), (0.26, -0.74, 0.58, 0.14),
                       (-0.34, -0.70, 0.54, 0.17)):
        f.add(ellipsoid((x, y, z), (r * 1.3, r * 0.7, r)), wet, 0.10)
    f.carve(ellipsoid((0.0, 0.02, 0.50), (0.24, 0.10, 0.24)), BLACK)
    for side in (-1, 1):
        f.carve(ellipsoid((side * 0.15, 0.36, 0.24), (0.075, 0.10, 0.14), (0, 0, side * 14)), BLACK)
    for x, y, z, r in bubbles:
        f.add(sphere((x, y, z), r), wet, 0.02)
    for shape, material in inside or ():
        f.add(shape, material, 0.02)
    for shape, material in crest or ():
        f.add(shape, material)
    return f, {"shadow": (-0.82, 0.92)}


def crab(dark, light, board=None, ribs=None):
    f = Figure(15)
    shell = Material(dark, light, 6, 1.0, 0.35, 24)
    joint = Material(tuple(c * 0.7 for c in dark), tuple(c * 0.8 for c in light), 8, 0.6, 0.25)
    f.add(ellipsoid((0, -0.18, -0.06), (0.62, 0.34, 0.46)), shell)
    f.add(ellipsoid((0, -0.28, 0.20), (0.50, 0.20, 0.34)), shell, 0.08)
    for k in range(7):
        angle = math.pi * (0.12 + 0.76 * k / 6)
        f.add(sphere((math.cos(angle) * 0.56, 0.0 + math.sin(angle) * 0.14, -0.02), 0.055), shell, 0.04)
    f.carve(ellipsoid((0, -0.34, 0.56), (0.20, 0.05, 0.12)), MAW)
    for side in (-1, 1):
        f.add(capsule((side * 0.14, -0.16, 0.42), (side * 0.19, 0.10, 0.52), 0.035, 0.028), joint, 0.03)
        f.add(sphere((side * 0.195, 0.14, 0.53), 0.062), BLACK)
        f.add(sphere((side * 0.20, 0.16, 0.58), 0.028), glow((0.9, 0.85, 0.6), 0.8))
        for k in range(3):  # legs
            y, z = -0.30 - 0.02 * k, 0.12 - 0.24 * k
            f.curve([(side * 0.46, y, z), (side * (0.80 - 0.03 * k), y + 0.14 - 0.02 * k, z + 0.10),
                     (side * (0.96 - 0.02 * k), -0.58, z + 0.16), (side * (0.90 - 0.06 * k), -0.86,
                                                                  z + 0.22)],
                    [0.085, 0.070, 0.050, 0.014], joint, 0.025)
        big = 1.15 if side > 0 else 0.92  # claws
        f.curve([(side * 0.40, -0.26, 0.30), (side * 0.66, -0.42, 0.52), (side * 0.56, -0.28, 0.76)],
                [0.10, 0.085, 0.09], joint, 0.03)
        cx, cy, cz = side * 0.52, -0.08, 0.80
        f.add(ellipsoid((cx, cy, cz), (0.17 * big, 0.21 * big, 0.14 * big), (0, 0, side * 16)), shell,
              0.05)
        for jaw, spread in ((-1, 0.13), (1, 0.12)):
            x0 = cx + jaw * 0.08 * big
            f.curve([(x0, cy + 0.12 * big, cz), (x0 + jaw * spread * big, cy + 0.30 * big, cz + 0.02),
                     (x0 + jaw * 0.02, cy + 0.48 * big, cz + 0.05)],
                    [0.085 * big, 0.065 * big, 0.012], shell, 0.04)
            for k in range(3):
                f.add(sphere((x0 + jaw * (0.02 + 0.02 * k), cy + (0.22 + 0.08 * k) * big, cz + 0.04),
                             0.022), TOOTH)
    if board:  # a hymn board, with the numbers still in it
        wood, paper = board
        f.add(box((0.02, 0.34, -0.12), (0.42, 0.34, 0.05), 0.02, (-14, 0, -5)), wood)
        f.add(box((0.02, 0.72, -0.20), (0.46, 0.05, 0.07), 0.02, (-14, 0, -5)), wood)
        for row in range(3):
            for column in range(3):
                f.add(box((-0.24 + 0.26 * column + 0.02 * row, 0.56 - 0.22 * row, -0.09 + 0.05 * row),
                          (0.10, 0.085, 0.03), 0.01, (-14, 0, -5)), paper)
    if ribs:  # somebody's chest, worn as a shell
        for k in range(5):
            out, z = 0.36 + 0.085 * k, 0.30 - 0.15 * k
            for side in (-1, 1):
                f.curve([(0, 0.24 + 0.065 * k, z), (side * out * 0.55, 0.28 + 0.060 * k, z + 0.06),
                         (side * out * 0.95, 0.08 + 0.045 * k, z + 0.14),
                         (side * out, -0.16 + 0.02 * k, z + 0.22)], [0.050, 0.044, 0.038, 0.014], ribs, 0.012)
        f.curve([(0, 0.20, 0.36), (0, 0.38, 0.0), (0, 0.54, -0.34)], [0.05, 0.065, 0.06], ribs, 0.03)
        for k in range(6):
            f.add(sphere((0, 0.25 + 0.06 * k, 0.30 - 0.13 * k), 0.068), ribs, 0.02)
    return f, {"shadow": (-0.88, 0.98)}


def spider(dark, light, mark, thorns=None, web=False):
    f = Figure(16)
    coat = fur(dark, light)
    spot = Material(tuple(c * 0.7 for c in mark), mark, 8, 0.8, 0.1)
    f.add(ellipsoid((0, 0.16, -0.42), (0.48, 0.46, 0.46)), coat)
    f.add(ellipsoid((0, -0.14, 0.14), (0.31, 0.25, 0.30)), coat, 0.05)
    for y, size in ((0.50, 0.13), (0.30, 0.17), (0.06, 0.12)):
        f.add(ellipsoid((0, y, -0.05 - 0.12 * (y > 0.4)), (size, size * 0.62, 0.06), (-26, 0, 0)), spot)
    for side in (-1, 1):
        for k, (kneeX, kneeY, footX, z) in enumerate(((0.52, 0.40, 0.48, 0.62), (0.74, 0.44, 0.86, 0.26),
                                                     (0.76, 0.52, 0.96, -0.12),
                                                     (0.60, 0.60, 0.80, -0.46))):
            f.curve([(side * 0.20, -0.12, 0.20 - 0.13 * k), (side * kneeX * 0.62, kneeY * 0.8, z * 0.6),
                     (side * kneeX, kneeY, z), (side * footX, -0.30, z + 0.16),
                     (side * (footX + 0.02), -0.82, z + 0.22)], [0.07, 0.062, 0.058, 0.040, 0.012],
                    coat, 0.02)
            if thorns:
                for t in (0.3, 0.6):
                    f.add(capsule((side * (kneeX + (footX - kneeX) * t), kneeY - t * (kneeY + 0.3), z),
                                  (side * (kneeX + 0.10 + (footX - kneeX) * t), kneeY + 0.08 - t * (
                                      kneeY + 0.3), z + 0.05), 0.026, 0.004), thorns)
        f.curve([(side * 0.08, -0.26, 0.40), (side * 0.11, -0.42, 0.50), (side * 0.04, -0.56, 0.50)],
                [0.062, 0.050, 0.008], BLACK, 0.02)
        f.curve([(side * 0.15, -0.20, 0.36), (side * 0.24, -0.30, 0.60), (side * 0.20, -0.50, 0.68)],
                [0.050, 0.044, 0.032], coat, 0.02)
    for x, y, size in ((0.062, -0.06, 0.050), (0.15, -0.02, 0.036), (0.05, 0.04, 0.028),
                       (0.13, 0.08, 0.022)):
        for side in (-1, 1):
            f.add(sphere((side * x, y, 0.42 - x * 0.55), size), BLACK)
            f.add(sphere((side * x - 0.008, y + 0.010, 0.42 - x * 0.55 + size * 0.72), size * 0.42),
                  glow((1.0, 0.34, 0.20), 0.9))
    if web:
        silk = Material((0.66, 0.68, 0.70), (0.90, 0.92, 0.94), 10, 0, 0.3)
        f.add(capsule((0, 0.55, -0.5), (0, 1.2, -0.5), 0.010), silk)
    if thorns:
        for k in range(14):
            angle = k * 2.4
            r = 0.16 + 0.022 * k
            x, y = math.cos(angle) * r, 0.20 + math.sin(angle) * r * 0.9
            f.add(capsule((x, y, -0.16), (x * 1.25, y * 1.15 + 0.02, 0.02), 0.038, 0.004), thorns)
    return f, {"shadow": (-0.86, 0.95)}


def moth(body, upper, lower, spot, crown=None):
    f = Figure(17)
    coat = fur(*body)
    top = Material(*upper, 7, 0.5, 0.05, stretch=(1, 3, 1))
    under = Material(*lower, 7, 0.5, 0.05, stretch=(1, 3, 1))
    ring, heart = spot
    for side in (-1, 1):
        turn = (0, side * 20, 0)
        f.add(flat(wing_outline(side, [(0.06, -0.06), (0.34, 0.02), (0.62, -0.10), (0.70, -0.40),
                                       (0.52, -0.74), (0.40, -0.64), (0.30, -0.80), (0.20, -0.56),
                                       (0.08, -0.30)]), 0.014, (0, 0.02, -0.10), turn), under)
        f.add(flat(wing_outline(side, [(0.05, 0.18), (0.30, 0.62), (0.72, 0.86), (0.98, 0.78),
                                       (0.92, 0.46), (0.78, 0.16), (0.52, 0.0), (0.20, -0.08),
                                       (0.06, -0.04)]), 0.016, (0, 0.02, -0.04), turn), top)
        for cx, cy, size in ((0.62, 0.46, 0.17), (0.44, -0.36, 0.11)):
            # the wing's plane, turned about y
            angle = math.radians(side * 20)
            for k, (scale, material) in enumerate(((1.0, ring), (0.66, BLACK), (0.36, heart))):
                x = side * cx * math.cos(angle) + 0.02 * k * math.sin(angle)
                z = -side * cx * math.sin(angle) - (0.04 if cy > 0 else 0.10) + 0.010 * (k + 1)
                f.add(ellipsoid((x, cy + 0.02, z), (size * scale, size * scale, 0.018), turn), material)
        for k in range(4):
            angle = math.radians(28 + 17 * k)
            f.add(capsule((side * 0.08, 0.12, -0.02), (side * (0.08 + 0.80 * math.sin(angle) * 0.9),
                                                      0.12 + 0.80 * math.cos(angle) * 0.9, -0.26),
                          0.014, 0.006), coat, 0.01)
        points = [(side * 0.06, 0.46, 0.16), (side * 0.20, 0.72, 0.20), (side * 0.40, 0.86, 0.20)]
        f.curve(points, [0.018, 0.014, 0.006], coat, 0.01)
        for k in range(7):
            t = 0.2 + k * 0.11
            x, y = side * (0.08 + 0.30 * t), 0.50 + 0.40 * t
            f.add(capsule((x, y, 0.18), (x + side * 0.09, y - 0.05 + 0.02 * k, 0.20), 0.008, 0.003), coat)
        f.curve([(side * 0.12, 0.08, 0.16), (side * 0.28, -0.06, 0.34), (side * 0.24, -0.24, 0.40)],
                [0.036, 0.028, 0.012], coat, 0.02)
        f.add(sphere((side * 0.095, 0.40, 0.24), 0.075), BLACK)
        f.add(sphere((side * 0.085, 0.43, 0.295), 0.030), glow((0.95, 0.75, 0.4), 0.8))
    f.add(ellipsoid((0, 0.20, 0.06), (0.19, 0.24, 0.19)), coat)
    f.add(ellipsoid((0, -0.28, 0.0), (0.14, 0.40, 0.15)), coat, 0.08)
    f.add(sphere((0, 0.40, 0.14), 0.14), coat, 0.05)
    for k in range(4):
        f.add(torus((0, -0.12 - 0.13 * k, 0.0), 0.135 - 0.012 * k, 0.022, (90, 0, 0)), ring, 0.02)
    for shape, material in crown or ():
        f.add(shape, material)
    return f, {}


def eel(dark, light, belly, lure=None, earth=None):
    f = Figure(18)
    skin = Material(dark, light, 5, 0.6, 0.9, 34, rim=1.4)
    pale = Material(tuple(c * 0.7 for c in belly), belly, 7, 0.3, 0.6, 30)
    fin = Material(tuple(c * 0.6 for c in dark), tuple(c * 0.9 for c in light), 12, 0.6, 0.3,
                   stretch=(3, 0.6, 1))
    path = []
    for k in range(25):
        t = k / 24
        path.append((0.46 * math.sin(t * 5.4 + 0.5) * (1 - 0.55 * t), -0.86 + 1.36 * t,
                     -0.34 + 0.30 * math.cos(t * 5.4) * (1 - t) + 0.52 * t))
    thick = [0.10 + 0.17 * math.sin(math.pi * (0.16 + 0.62 * k / 24)) for k in range(25)]
    for a, b, ra, rb in zip(path, path[1:], thick, thick[1:]):
        f.add(capsule(a, b, ra, rb), skin, 0.05)
    for k in range(3, 22):
        (x, y, z), r = path[k], thick[k]
        f.add(ellipsoid((x, y + 0.02, z + r * 0.62), (r * 0.58, 0.05, r * 0.46)), pale, 0.05)
        if k % 2:
            f.add(flat([(-0.05, 0.0), (0.0, 0.15), (0.07, 0.0)], 0.016, (x, y + 0.02, z - r), (-20, 0, 0)),
                  fin, 0.02)
    hx, hy, hz = path[-1][0], 0.56, 0.30
    f.add(ellipsoid((hx, hy, hz), (0.25, 0.20, 0.36), (12, 0, 0)), skin, 0.10)
    f.add(ellipsoid((hx, hy - 0.14, hz + 0.20), (0.19, 0.10, 0.30), (26, 0, 0)), pale, 0.05)
    f.carve(ellipsoid((hx, hy - 0.07, hz + 0.42), (0.20, 0.075, 0.26), (16, 0, 0)), MAW)
    for k in range(7):
        angle = (k - 3) * 0.36
        x, z = hx + math.sin(angle) * 0.17, hz + 0.24 + math.cos(angle) * 0.17
        f.add(capsule((x, hy + 0.015, z), (x, hy - 0.085, z + 0.01), 0.020, 0.003), TOOTH)
        f.add(capsule((x * 0.96 + hx * 0.04, hy - 0.17, z - 0.03),
                      (x * 0.96 + hx * 0.04, hy - 0.075, z), 0.018, 0.003), TOOTH)
    for side in (-1, 1):
        f.add(sphere((hx + side * 0.17, hy + 0.10, hz + 0.20), 0.062), BLACK)
        f.add(sphere((hx + side * 0.18, hy + 0.12, hz + 0.245), 0.034), glow((0.80, 0.95, 0.55), 0.9))
        f.add(flat([(0, -0.10), (side * 0.32, 0.02), (side * 0.38, 0.20), (side * 0.10, 0.10)], 0.014,
                   (hx + side * 0.18, hy - 0.16, hz - 0.06), (0, side * 20, 0)), fin, 0.02)
    if lure:
        f.curve([(hx, hy + 0.18, hz + 0.06), (hx + 0.02, hy + 0.42, hz + 0.20),
                 (hx + 0.06, hy + 0.36, hz + 0.46)], [0.030, 0.018, 0.012], skin, 0.02)
        f.add(sphere((hx + 0.07, hy + 0.30, hz + 0.52), 0.085), lure)
    for shape, material in earth or ():
        f.add(shape, material, 0.05)
    return f, {"shadow": (-0.90, 0.75)}


def hound(dark, light, weed, eye=(0.75, 1.0, 0.6)):
    f = Figure(19)
    coat = fur(dark, light)
    f.add(ellipsoid((0.10, -0.16, -0.34), (0.36, 0.36, 0.56)), coat)
    f.add(ellipsoid((0.0, -0.06, 0.10), (0.37, 0.42, 0.34)), coat, 0.14)
    f.add(ellipsoid((-0.04, 0.34, 0.34), (0.25, 0.24, 0.27)), coat, 0.12)
    f.add(capsule((-0.05, 0.28, 0.50), (-0.07, 0.17, 0.84), 0.15, 0.10), coat, 0.07)
    f.add(capsule((-0.05, 0.14, 0.46), (-0.07, 0.00, 0.76), 0.10, 0.070), coat, 0.05)
    f.carve(ellipsoid((-0.065, 0.085, 0.76), (0.085, 0.035, 0.22), (14, 0, 0)), MAW)
    f.add(ellipsoid((-0.075, 0.20, 0.935), (0.058, 0.045, 0.04)), BLACK)
    for k in range(5):
        for side in (-1, 1):
            z = 0.62 + 0.065 * k
            x = -0.065 + side * (0.085 - 0.006 * k)
            f.add(capsule((x, 0.125 - 0.012 * k, z), (x, 0.055 - 0.012 * k, z + 0.01), 0.017, 0.003),
                  TOOTH)
            f.add(capsule((x, 0.035 - 0.014 * k, z), (x, 0.09 - 0.014 * k, z + 0.01), 0.014, 0.003),
                  TOOTH)
    for side in (-1, 1):
        f.add(flat([(-0.09, 0.0), (side * 0.05, 0.32), (0.10, 0.0)], 0.05, (-0.04 + side * 0.19, 0.48, 0.26),
                   (-6, side * 20, -side * 10)), coat, 0.05)
        f.add(sphere((-0.045 + side * 0.115, 0.40, 0.545), 0.046), BLACK)
        f.add(sphere((-0.05 + side * 0.115, 0.405, 0.58), 0.030), glow(eye, 1.0))
        f.curve([(side * 0.25, -0.22, 0.22), (side * 0.31, -0.52, 0.34), (side * 0.30, -0.82, 0.40)],
                [0.17, 0.105, 0.075], coat, 0.07)
        f.add(ellipsoid((side * 0.30, -0.87, 0.48), (0.105, 0.065, 0.15)), coat, 0.05)
        for toe in (-1, 0, 1):
            f.add(capsule((side * 0.30 + toe * 0.06, -0.89, 0.58), (side * 0.30 + toe * 0.065, -0.91, 0.68),
                          0.024, 0.006), BLACK, 0.01)
        f.curve([(0.12 + side * 0.26, -0.20, -0.62), (0.14 + side * 0.36, -0.52, -0.66),
                 (0.14 + side * 0.34, -0.84, -0.58)], [0.20, 0.11, 0.08], coat, 0.06)
    f.curve([(0.22, 0.02, -0.80), (0.60, 0.24, -0.80), (0.84, 0.56, -0.72)], [0.10, 0.085, 0.02], coat,
            0.05)
    random = Random(9)
    for k in range(46):  # weed for a mane
        angle = random.uniform(-2.2, 2.2)
        y = 0.36 - abs(angle) * 0.10
        x, z = math.sin(angle) * 0.27 - 0.02, 0.16 + math.cos(angle) * 0.12
        drop = random.uniform(0.18, 0.46)
        f.curve([(x * 0.8, y + 0.08, z), (x * 1.18, y - drop * 0.45, z + 0.09),
                 (x * 1.15 + random.uniform(-0.05, 0.05), y - drop, z + 0.07)],
                [0.040, 0.030, 0.008], weed, 0.012)
    return f, {"shadow": (-0.90, 0.72)}
