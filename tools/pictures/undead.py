"""Enemies that died: the drowned, the bones, the empty robes, and the Prior."""

import math
from random import Random

from beasts import BLACK, MAW, TOOTH, glow
from solid import Figure, Material, box, capsule, cylinder, ellipsoid, flat, sphere, torus

IRON = Material((0.20, 0.21, 0.23), (0.40, 0.40, 0.42), 8, 0.4, 0.7, 34)
RUST = Material((0.24, 0.14, 0.09), (0.48, 0.29, 0.17), 9, 0.9, 0.2, 20)
GOLD = Material((0.58, 0.38, 0.10), (0.94, 0.74, 0.30), 7, 0.2, 0.9, 40)
WOOD = Material((0.20, 0.12, 0.06), (0.42, 0.28, 0.15), 9, 0.7, 0.1, 16, stretch=(4, 0.7, 4))
BONE = Material((0.46, 0.38, 0.27), (0.86, 0.79, 0.64), 8, 0.5, 0.15, 20)
WEED = Material((0.05, 0.13, 0.07), (0.22, 0.36, 0.15), 8, 0.5, 0.45, 30)
WAX = Material((0.62, 0.54, 0.38), (0.92, 0.86, 0.70), 5, 0.2, 0.5, 24)


def cloth(dark, light):
    return Material(dark, light, 5, 1.1, 0.06, 12, stretch=(3.0, 0.8, 3.0))


def skull(f, centre, size, bone=BONE, eye=(1.0, 0.55, 0.2), turn=0.0, jaw=0.0):
    """A skull looking out of the picture, with lights in it."""
    cx, cy, cz = centre
    s = size

    def at(x, y, z):
        c, w = math.cos(turn), math.sin(turn)
        return (cx + (x * c + z * w) * s, cy + y * s, cz + (z * c - x * w) * s)

    f.add(ellipsoid(at(0, 0.16, -0.06), (0.82 * s, 0.80 * s, 0.86 * s)), bone)
    f.add(ellipsoid(at(0, -0.42, 0.34), (0.50 * s, 0.46 * s, 0.44 * s)), bone, 0.16 * s)
    f.add(ellipsoid(at(0, -0.84 - jaw, 0.36), (0.42 * s, 0.20 * s, 0.38 * s)), bone, 0.06 * s)
    for side in (-1, 1):
        f.add(ellipsoid(at(side * 0.50, -0.20, 0.50), (0.26 * s, 0.17 * s, 0.22 * s)), bone, 0.12 * s)
    for side in (-1, 1):
        f.carve(ellipsoid(at(side * 0.32, -0.02, 0.76), (0.235 * s, 0.22 * s, 0.34 * s)), BLACK)
        f.add(sphere(at(side * 0.31, -0.03, 0.62), 0.075 * s), glow(eye, 1.0))
    f.carve(ellipsoid(at(0, -0.36, 0.86), (0.10 * s, 0.15 * s, 0.16 * s)), BLACK)
    for k in range(-3, 4):
        x = k * 0.105
        z = 0.74 - abs(k) * 0.035
        f.add(box(at(x, -0.64, z), (0.044 * s, 0.085 * s, 0.05 * s), 0.02 * s), TOOTH)
        f.add(box(at(x, -0.76 - jaw, z - 0.02), (0.042 * s, 0.07 * s, 0.05 * s), 0.02 * s), TOOTH)


def hand(f, wrist, tip, material, size=0.05, claws=None):
    """Four fingers and a thumb from the wrist towards the tip."""
    wx, wy, wz = wrist
    dx, dy, dz = tip[0] - wx, tip[1] - wy, tip[2] - wz
    f.add(sphere((wx + dx * 0.3, wy + dy * 0.3, wz + dz * 0.3), size * 1.15), material, 0.03)
    for k in range(5):
        spread = (k - 1.8) * size * 0.78
        reach = (0.72, 0.95, 1.0, 0.92, 0.55)[k]
        start = (wx + dx * 0.35 + spread * 0.6, wy + dy * 0.35, wz + dz * 0.35)
        bend = (wx + dx * 0.72 * reach + spread, wy + dy * 0.72 * reach + 0.012, wz + dz * 0.72 * reach
                + 0.03)
        end = (wx + dx * reach + spread * 1.15, wy + dy * reach - 0.02, wz + dz * reach + 0.02)
        f.curve([start, bend, end], [size * 0.42, size * 0.36, size * (0.10 if claws else 0.26)],
                material, 0.012)
        if claws:
            f.add(capsule(bend, end, size * 0.34, 0.004), claws, 0.008)


def robe(f, fabric, waist=-0.10, hem=-0.90, wide=0.46, shoulders=0.27, folds=9, ragged=0):
    """A habit from the shoulders to the ground, with folds; `ragged` tears the hem."""
    f.add(cylinder((0, (waist + hem) / 2, 0), wide, (waist - hem) / 2, 0.04, None, shoulders * 0.92),
          fabric)
    f.add(ellipsoid((0, waist + 0.16, 0), (shoulders * 1.06, 0.34, shoulders * 0.80)), fabric, 0.10)
    f.add(ellipsoid((0, waist + 0.38, 0), (shoulders * 1.20, 0.15, shoulders * 0.72)), fabric, 0.10)
    for k in range(folds):
        angle = -1.9 + 3.8 * k / (folds - 1)
        top, low = shoulders * 0.74, wide * 1.01
        f.add(capsule((math.sin(angle) * top, waist - 0.06, math.cos(angle) * top),
                      (math.sin(angle) * low, hem + 0.05, math.cos(angle) * low), 0.034, 0.062), fabric,
              0.05)
    for k in range(ragged):
        angle = -1.7 + 3.4 * k / max(1, ragged - 1)
        x, z = math.sin(angle) * wide * 1.05, math.cos(angle) * wide * 1.05
        f.carve(ellipsoid((x, hem - 0.01, z), (0.045, 0.13 + 0.05 * (k % 3), 0.14)), fabric)


def sleeve(f, fabric, side, elbow, wrist, thick=0.085, mouth=0.125):
    shoulder = (side * 0.27, 0.26, 0.02)
    f.curve([shoulder, elbow, wrist], [thick * 1.15, thick, mouth], fabric, 0.05)
    f.carve(sphere(wrist, mouth * 0.80), BLACK)


def belt(f, y=-0.12, radius=0.265, material=None):
    cord = material or Material((0.40, 0.33, 0.20), (0.66, 0.56, 0.36), 20, 1.0, 0.05)
    f.add(torus((0, y, 0), radius, 0.030, (90, 0, 0)), cord)
    f.curve([(-0.10, y, radius - 0.02), (-0.13, y - 0.30, radius + 0.10), (-0.12, y - 0.46, radius + 0.12)],
            [0.026, 0.024, 0.028], cord, 0.01)


def hood(f, fabric, centre, size, dark=True):
    """A cowl, open to the front."""
    cx, cy, cz = centre
    f.add(ellipsoid((cx, cy, cz - 0.03), (size, size * 1.14, size)), fabric, 0.06)
    f.add(ellipsoid((cx, cy + size * 0.72, cz - size * 0.42), (size * 0.5, size * 0.55, size * 0.6),
                    (40, 0, 0)), fabric, 0.10)
    f.add(ellipsoid((cx, cy - size * 0.92, cz), (size * 1.42, size * 0.46, size * 1.12)), fabric, 0.10)
    if dark:
        f.carve(ellipsoid((cx, cy - size * 0.06, cz + size * 0.78), (size * 0.66, size * 0.86, size * 0.92)),
                BLACK)


def drowned(skin, fabric, bucket=False, cowl=False, eye=(0.70, 0.95, 0.80)):
    """A brother who did not get out."""
    f = Figure(21)
    flesh = Material(*skin, 6, 0.7, 0.6, 30)
    wool = cloth(*fabric)
    robe(f, wool, ragged=6)
    belt(f)
    head = (0.02, 0.60, 0.06)
    f.add(capsule((0, 0.38, 0.02), head, 0.10, 0.10), flesh, 0.05)
    f.add(ellipsoid(head, (0.165, 0.20, 0.175)), flesh, 0.04)
    f.add(ellipsoid((0.02, 0.49, 0.12), (0.105, 0.10, 0.11)), flesh, 0.05)
    f.carve(ellipsoid((0.02, 0.475, 0.23), (0.062, 0.075, 0.09)), MAW)
    for k in range(-2, 3):
        f.add(box((0.02 + k * 0.024, 0.535, 0.205 - abs(k) * 0.012), (0.010, 0.018, 0.014), 0.005), TOOTH)
    for side in (-1, 1):
        f.carve(ellipsoid((0.02 + side * 0.068, 0.635, 0.205), (0.045, 0.037, 0.06)), BLACK)
        f.add(sphere((0.02 + side * 0.068, 0.632, 0.175), 0.026), glow(eye, 1.0))
        f.add(capsule((0.02 + side * 0.03, 0.685, 0.215), (0.02 + side * 0.11, 0.67, 0.185), 0.024, 0.020),
              flesh, 0.03)
        f.add(ellipsoid((0.02 + side * 0.165, 0.60, 0.03), (0.025, 0.05, 0.035)), flesh, 0.02)
    f.add(ellipsoid((0.02, 0.595, 0.235), (0.024, 0.045, 0.035)), flesh, 0.03)
    if cowl:
        hood(f, wool, (0.02, 0.60, -0.02), 0.235, False)
        f.carve(ellipsoid((0.02, 0.585, 0.20), (0.155, 0.205, 0.18)), BLACK)
        f.add(ellipsoid((0.02, 0.60, 0.06), (0.150, 0.19, 0.165)), flesh)
        for side in (-1, 1):
            f.add(sphere((0.02 + side * 0.06, 0.635, 0.205), 0.026), glow(eye, 1.0))
        f.carve(ellipsoid((0.02, 0.50, 0.235), (0.050, 0.06, 0.07)), MAW)
    else:
        random = Random(4)
        for _ in range(24):  # wet hair, about the tonsure
            angle = random.uniform(-2.9, 2.9)
            if abs(angle) < 0.55:
                continue
            x, z = math.sin(angle) * 0.158, math.cos(angle) * 0.158
            f.curve([(0.02 + x, 0.69, 0.05 + z), (0.02 + x * 1.22, 0.56, 0.06 + z * 1.2),
                     (0.02 + x * 1.28, random.uniform(0.34, 0.46), 0.07 + z * 1.2)],
                    [0.026, 0.022, 0.006], WEED, 0.012)
    sleeve(f, wool, -1, (-0.46, 0.04, 0.22), (-0.34, 0.06, 0.52))
    hand(f, (-0.34, 0.06, 0.54), (-0.32, 0.12, 0.82), flesh)
    sleeve(f, wool, 1, (0.44, -0.02, 0.16), (0.44, -0.04, 0.46))
    hand(f, (0.44, -0.04, 0.48), (0.48, -0.10, 0.74), flesh)
    if bucket:
        f.add(cylinder((-0.32, -0.36, 0.62), 0.15, 0.16, 0.02, None, 0.185), WOOD)
        f.carve(cylinder((-0.32, -0.24, 0.62), 0.135, 0.10, 0.02, None, 0.155),
                Material((0.06, 0.16, 0.17), (0.16, 0.32, 0.33), 5, 0.3, 1.0, 40))
        for y in (-0.45, -0.28):
            f.add(torus((-0.32, y, 0.62), 0.172 + 0.015 * (y > -0.4), 0.013, (90, 0, 0)), IRON)
        f.add(torus((-0.32, -0.14, 0.62), 0.17, 0.012, (0, 20, 0)), IRON)
    f.curve([(-0.20, 0.34, 0.22), (-0.06, 0.10, 0.33), (0.10, -0.06, 0.32), (0.24, -0.20, 0.26)],
            [0.030, 0.028, 0.026, 0.010], WEED, 0.01)
    return f, {"shadow": (-0.90, 0.60)}


def skeleton(fabric=None, weapon=None, bone=BONE, eye=(1.0, 0.55, 0.2), candle=None, cowl=False):
    f = Figure(22)
    f.curve([(0, -0.40, -0.04), (0.01, -0.14, -0.06), (0, 0.14, -0.05), (0, 0.42, -0.02)],
            [0.055, 0.050, 0.048, 0.045], bone, 0.02)
    for k in range(8):
        f.add(sphere((0.005, -0.34 + 0.09 * k, -0.02), 0.052), bone, 0.02)
    for k in range(6):
        y = 0.30 - 0.085 * k
        wide = 0.235 - 0.012 * abs(k - 2) * (1 + (k > 2))
        f.add(torus((0, y, 0.0), wide, 0.024, (78, 0, 0)), bone, 0.008)
    f.add(capsule((0, 0.30, 0.215), (0, -0.02, 0.225), 0.036, 0.026), bone, 0.02)
    for side in (-1, 1):
        f.add(capsule((side * 0.03, 0.38, 0.14), (side * 0.30, 0.40, 0.02), 0.026, 0.032), bone, 0.02)
        f.add(flat([(0, 0), (side * 0.16, 0.05), (side * 0.13, -0.20)], 0.016, (side * 0.15, 0.34, -0.16)),
              bone, 0.02)
    f.add(ellipsoid((0, -0.40, 0.02), (0.20, 0.10, 0.11)), bone, 0.03)
    f.carve(ellipsoid((0, -0.43, 0.10), (0.08, 0.06, 0.10)), BLACK)
    skull(f, (0, 0.66, 0.06), 0.215, bone, eye)
    right = ((0.32, 0.38, 0.02), (0.50, 0.08, 0.16), (0.44, 0.10, 0.48))
    left = ((-0.32, 0.38, 0.02), (-0.48, 0.06, 0.10), (-0.46, -0.16, 0.36))
    for shoulder, elbow, wrist in (right, left):
        f.add(sphere(shoulder, 0.060), bone, 0.02)
        f.add(capsule(shoulder, elbow, 0.036, 0.032), bone, 0.02)
        f.add(sphere(elbow, 0.048), bone, 0.02)
        f.add(capsule(elbow, wrist, 0.028, 0.026), bone, 0.015)
    hand(f, right[2], (0.44, 0.16, 0.66), bone, 0.045)
    hand(f, left[2], (-0.46, -0.28, 0.58), bone, 0.045)
    if fabric:
        wool = cloth(*fabric)
        f.add(cylinder((0, -0.66, 0), 0.36, 0.25, 0.03, None, 0.22), wool)
        for k in range(8):
            angle = -1.8 + 3.6 * k / 7
            f.add(capsule((math.sin(angle) * 0.20, -0.44, math.cos(angle) * 0.20),
                          (math.sin(angle) * 0.36, -0.88, math.cos(angle) * 0.36), 0.03, 0.055), wool, 0.04)
            f.carve(ellipsoid((math.sin(angle + 0.2) * 0.38, -0.90, math.cos(angle + 0.2) * 0.38),
                              (0.05, 0.10 + 0.04 * (k % 2), 0.12)), wool)
        belt(f, -0.43, 0.225)
        f.add(ellipsoid((0, 0.42, -0.06), (0.33, 0.10, 0.19)), wool, 0.03)
        if cowl:
            f.add(ellipsoid((0, 0.66, -0.10), (0.255, 0.285, 0.235)), wool, 0.05)
            f.carve(ellipsoid((0, 0.64, 0.16), (0.20, 0.245, 0.22)), wool)
            skull(f, (0, 0.66, 0.04), 0.195, bone, eye)
    else:
        for side in (-1, 1):
            f.curve([(side * 0.14, -0.44, 0.02), (side * 0.20, -0.66, 0.14), (side * 0.19, -0.88, 0.06)],
                    [0.046, 0.036, 0.030], bone, 0.02)
            f.add(sphere((side * 0.20, -0.66, 0.15), 0.05), bone, 0.02)
            f.add(capsule((side * 0.19, -0.90, 0.04), (side * 0.21, -0.92, 0.22), 0.034, 0.024), bone, 0.02)
    if candle:
        f.add(cylinder((0.44, 0.14, 0.60), 0.020, 0.30, 0.01), IRON)
        f.add(cylinder((0.44, 0.45, 0.60), 0.07, 0.018, 0.01), IRON)
        f.add(cylinder((0.44, 0.55, 0.60), 0.042, 0.10, 0.01), WAX)
        f.add(ellipsoid((0.44, 0.71, 0.60), (0.032, 0.07, 0.032)), candle)
        f.add(ellipsoid((0.44, 0.69, 0.63), (0.016, 0.032, 0.02)), glow((1.0, 1.0, 0.9)))
    if weapon == "flail":
        f.add(capsule((0.45, -0.26, 0.62), (0.44, 0.50, 0.62), 0.030), WOOD)
        for k in range(6):
            f.add(torus((0.46 + 0.045 * k, 0.56 - 0.022 * k * k * 0.6, 0.62), 0.030, 0.010,
                        (0, 90 * (k % 2), 30)), IRON)
        f.add(sphere((0.76, 0.18, 0.62), 0.105), IRON)
        for k in range(10):
            angle, up = k * 2.4, -0.9 + 0.2 * k
            flat_ = math.sqrt(max(0, 1 - up * up))
            x, y, z = math.cos(angle) * flat_, up, math.sin(angle) * flat_
            f.add(capsule((0.76 + x * 0.09, 0.18 + y * 0.09, 0.62 + z * 0.09),
                          (0.76 + x * 0.165, 0.18 + y * 0.165, 0.62 + z * 0.165), 0.026, 0.004), IRON)
    return f, {"shadow": (-0.92, 0.55)}


def habit(fabric, light, trim=None, baton=False, halo=None, candles=0):
    """A robe with no one in it."""
    f = Figure(23)
    wool = cloth(*fabric)
    robe(f, wool, ragged=7, wide=0.48, folds=11)
    belt(f)
    hood(f, wool, (0, 0.58, 0.02), 0.245)
    eyes_at = glow(light, 1.0)
    for side in (-1, 1):
        f.add(ellipsoid((side * 0.07, 0.59, 0.08), (0.034, 0.016, 0.02), (0, 0, side * 14)), eyes_at)
    f.add(ellipsoid((0, 0.36, 0.10), (0.13, 0.05, 0.10)), BLACK)
    if baton:
        sleeve(f, wool, 1, (0.52, 0.36, 0.10), (0.58, 0.62, 0.30), 0.10, 0.15)
        f.add(capsule((0.58, 0.66, 0.34), (0.34, 0.98, 0.46), 0.016, 0.008), BONE)
        f.add(sphere((0.34, 0.98, 0.46), 0.030), eyes_at)
    else:
        sleeve(f, wool, 1, (0.40, -0.02, 0.20), (0.15, 0.04, 0.42), 0.10, 0.14)
    sleeve(f, wool, -1, (-0.42, -0.02, 0.20), (-0.15, 0.02, 0.42), 0.10, 0.14)
    if trim:
        for k in range(9):
            angle = -1.75 + 3.5 * k / 8
            f.add(sphere((math.sin(angle) * 0.50, -0.78, math.cos(angle) * 0.50), 0.030), trim)
        f.add(box((0, 0.06, 0.245), (0.035, 0.18, 0.02), 0.01), trim)
        f.add(box((0, 0.12, 0.248), (0.10, 0.032, 0.02), 0.01), trim)
    if halo:
        f.add(torus((0, 0.66, -0.22), 0.38, 0.022), halo)
        for k in range(12):
            angle = k * math.pi / 6
            f.add(capsule((math.cos(angle) * 0.40, 0.66 + math.sin(angle) * 0.40, -0.22),
                          (math.cos(angle) * 0.50, 0.66 + math.sin(angle) * 0.50, -0.22), 0.014, 0.004), halo)
    for k in range(candles):
        angle = math.pi * (k + 0.5) / candles
        x, y = math.cos(angle) * 0.72, 0.10 + math.sin(angle) * 0.55
        f.add(cylinder((x, y, -0.1), 0.030, 0.08, 0.01), WAX)
        f.add(ellipsoid((x, y + 0.13, -0.1), (0.024, 0.055, 0.024)), glow((1.0, 0.72, 0.25)))
    return f, {"shadow": (-0.90, 0.58)}


def ghoul(skin, rag, spade=False):
    """Thin, bent and long in the arm."""
    f = Figure(24)
    flesh = Material(*skin, 7, 1.0, 0.45, 26)
    nail = Material((0.22, 0.20, 0.16), (0.42, 0.38, 0.30), 10, 0.2, 0.4)
    wool = cloth(*rag)
    f.curve([(0.02, -0.36, -0.10), (0.04, -0.04, -0.16), (0.0, 0.26, -0.02), (-0.04, 0.42, 0.14)],
            [0.19, 0.17, 0.22, 0.13], flesh, 0.10)
    for k in range(5):
        y = 0.22 - 0.085 * k
        for side in (-1, 1):
            f.curve([(side * 0.04, y - 0.03, 0.17 - 0.03 * k), (side * 0.17, y + 0.02, 0.10 - 0.03 * k),
                     (side * 0.21, y + 0.06, -0.04 - 0.02 * k)], [0.018, 0.024, 0.02], flesh, 0.03)
    hx, hy, hz = -0.06, 0.54, 0.30
    f.add(ellipsoid((hx, hy + 0.03, hz - 0.03), (0.165, 0.17, 0.20)), flesh, 0.06)
    f.add(ellipsoid((hx, hy - 0.10, hz + 0.12), (0.12, 0.11, 0.13)), flesh, 0.06)
    f.carve(ellipsoid((hx, hy - 0.125, hz + 0.22), (0.095, 0.085, 0.12)), MAW)
    for k in range(-3, 4):
        x = hx + k * 0.027
        z = hz + 0.225 - abs(k) * 0.016
        f.add(capsule((x, hy - 0.055, z), (x, hy - 0.105, z + 0.01), 0.014, 0.003), TOOTH)
        f.add(capsule((x, hy - 0.200, z - 0.01), (x, hy - 0.150, z), 0.013, 0.003), TOOTH)
    for side in (-1, 1):
        f.add(flat([(0, -0.04), (side * 0.22, 0.14), (side * 0.03, 0.08)], 0.022,
                   (hx + side * 0.14, hy + 0.02, hz - 0.06), (0, side * 30, 0)), flesh, 0.03)
        f.carve(ellipsoid((hx + side * 0.068, hy + 0.03, hz + 0.16), (0.044, 0.034, 0.07)), BLACK)
        f.add(sphere((hx + side * 0.068, hy + 0.028, hz + 0.135), 0.024), glow((1.0, 0.82, 0.30), 1.0))
    f.carve(ellipsoid((hx, hy - 0.03, hz + 0.235), (0.022, 0.028, 0.05)), BLACK)
    for side, elbow, wrist, tip in ((-1, (-0.52, 0.04, 0.10), (-0.50, -0.32, 0.46), (-0.50, -0.62, 0.66)),
                                    (1, (0.52, 0.10, 0.06), (0.56, -0.20, 0.40), (0.54, -0.48, 0.66))):
        f.curve([(side * 0.22, 0.32, 0.0), elbow, wrist], [0.105, 0.062, 0.055], flesh, 0.05)
        f.add(sphere(elbow, 0.072), flesh, 0.03)
        hand(f, wrist, tip, flesh, 0.064, nail)
        f.curve([(side * 0.13, -0.38, -0.04), (side * 0.30, -0.58, 0.24), (side * 0.24, -0.86, 0.06)],
                [0.13, 0.085, 0.06], flesh, 0.06)
        f.add(ellipsoid((side * 0.25, -0.90, 0.14), (0.085, 0.05, 0.16)), flesh, 0.04)
        for toe in (-1, 0, 1):
            f.add(capsule((side * 0.25 + toe * 0.05, -0.91, 0.24), (side * 0.25 + toe * 0.06, -0.93, 0.34),
                          0.022, 0.004), nail, 0.01)
    f.add(cylinder((0.01, -0.44, -0.04), 0.27, 0.13, 0.03, (8, 0, 0), 0.20), wool)
    for k in range(6):
        angle = -1.5 + 0.6 * k
        f.add(flat([(-0.07, 0), (0.07, 0), (0.02, -0.22 - 0.06 * (k % 2))], 0.016,
                   (math.sin(angle) * 0.26, -0.50, math.cos(angle) * 0.26 - 0.04),
                   (-8, math.degrees(angle), 0)), wool, 0.03)
    if spade:
        f.add(capsule((0.66, -0.72, 0.52), (0.50, 0.62, 0.42), 0.028), WOOD)
        f.add(capsule((0.44, 0.64, 0.42), (0.56, 0.62, 0.42), 0.030), WOOD, 0.02)
        f.add(flat([(-0.12, 0.10), (0.12, 0.10), (0.12, -0.10), (0.0, -0.24), (-0.12, -0.10)], 0.02,
                   (0.675, -0.78, 0.53), (0, -14, 7)), IRON)
        hat = cloth((0.06, 0.05, 0.05), (0.20, 0.17, 0.15))
        f.add(cylinder((hx, hy + 0.20, hz - 0.05), 0.31, 0.018, 0.012, (14, 0, 6)), hat)
        f.add(cylinder((hx + 0.015, hy + 0.33, hz - 0.08), 0.155, 0.13, 0.02, (14, 0, 6), 0.175), hat)
        f.curve([(0.12, 0.36, 0.20), (0.0, 0.20, 0.26), (-0.16, 0.30, 0.24)], [0.014, 0.014, 0.014], IRON)
        for k in range(3):
            f.add(torus((-0.04 + 0.05 * k, 0.13 - 0.03 * (k == 1), 0.27), 0.034, 0.010, (0, 20 * k, 0)), GOLD)
    return f, {"shadow": (-0.93, 0.72)}


def swarm(bone=BONE, eye=(0.55, 0.9, 1.0), trail=(0.25, 0.55, 0.75)):
    """Skulls that came down from their shelves."""
    f = Figure(25)
    flame = glow(trail, 0.85)
    for x, y, z, size, turn, jaw in ((-0.02, 0.04, 0.34, 0.30, 0.0, 0.10), (-0.58, 0.40, 0.0, 0.21, 0.5, 0.2),
                                     (0.56, 0.46, -0.05, 0.22, -0.5, 0.05), (-0.56, -0.34, 0.10, 0.20, 0.4, 0.0),
                                     (0.56, -0.36, 0.06, 0.23, -0.35, 0.25), (0.02, 0.72, -0.2, 0.18, 0.1, 0.1),
                                     (0.0, -0.66, -0.08, 0.17, -0.1, 0.15)):
        skull(f, (x, y, z), size, bone, eye, turn, jaw)
        for k in range(5):
            t = k / 4
            lean = 0.10 * math.sin(k * 2.1 + x * 5)
            f.add(sphere((x + lean * t + x * 0.10 * t, y + size * (0.75 + 0.95 * t), z - size * 0.5),
                         size * (0.52 - 0.46 * t)), flame, 0.06)
    return f, {}


def knight(steel, tabard, eye, extras=()):
    f = Figure(26)
    plate = Material(*steel, 6, 0.4, 0.9, 36)
    dark = Material(tuple(c * 0.4 for c in steel[0]), tuple(c * 0.5 for c in steel[1]), 10, 0.5, 0.3)
    wool = cloth(*tabard)
    f.add(ellipsoid((0, 0.18, 0), (0.30, 0.32, 0.23)), plate)
    f.add(ellipsoid((0, -0.12, 0), (0.23, 0.20, 0.18)), dark, 0.03)
    f.add(capsule((0, 0.44, 0.14), (0, 0.0, 0.235), 0.02, 0.03), plate, 0.05)
    f.add(torus((0, 0.42, 0.02), 0.16, 0.05, (90, 0, 0)), plate, 0.02)
    f.add(cylinder((0, 0.66, 0.03), 0.165, 0.19, 0.03, None, 0.15), plate)  # a great helm
    f.add(ellipsoid((0, 0.84, 0.03), (0.15, 0.06, 0.15)), plate, 0.03)
    f.add(flat([(-0.16, 0.0), (0.16, 0.0), (0.05, -0.22), (-0.05, -0.22)], 0.05, (0, 0.70, 0.15)), plate, 0.04)
    f.carve(box((0, 0.70, 0.22), (0.125, 0.017, 0.12), 0.01), BLACK)
    for side in (-1, 1):
        f.add(ellipsoid((side * 0.062, 0.70, 0.12), (0.032, 0.014, 0.02)), glow(eye, 1.0))
        for k in range(3):
            f.carve(sphere((side * 0.05, 0.60 - 0.05 * k, 0.21), 0.013), BLACK)
    f.add(box((0, 0.68, 0.207), (0.015, 0.20, 0.012), 0.006), GOLD)
    f.add(cylinder((0, -0.42, 0), 0.30, 0.26, 0.03, None, 0.20), wool)
    for k in range(7):
        angle = -1.6 + 3.2 * k / 6
        f.add(capsule((math.sin(angle) * 0.20, -0.20, math.cos(angle) * 0.18),
                      (math.sin(angle) * 0.31, -0.66, math.cos(angle) * 0.31), 0.03, 0.05), wool, 0.04)
    f.add(torus((0, -0.19, 0), 0.215, 0.032, (90, 0, 0)), RUST)
    for side in (-1, 1):
        for k, (r, y) in enumerate(((0.155, 0.36), (0.14, 0.29), (0.125, 0.23))):
            f.add(ellipsoid((side * (0.35 + 0.02 * k), y, 0.0), (r, r * 0.62, r * 1.1), (0, 0, side * -20)),
                  plate, 0.012)
        f.curve([(side * 0.13, -0.60, 0.0), (side * 0.16, -0.72, 0.06), (side * 0.17, -0.86, 0.0)],
                [0.10, 0.085, 0.075], plate, 0.03)
        f.add(ellipsoid((side * 0.155, -0.70, 0.09), (0.085, 0.07, 0.06)), plate, 0.02)
        f.add(ellipsoid((side * 0.18, -0.90, 0.10), (0.085, 0.06, 0.17)), plate, 0.03)
    # sword arm
    f.curve([(0.38, 0.26, 0.02), (0.54, 0.0, 0.14), (0.46, -0.06, 0.42)], [0.085, 0.075, 0.07], plate, 0.02)
    f.add(ellipsoid((0.54, 0.0, 0.14), (0.095, 0.095, 0.095)), plate, 0.02)
    f.add(sphere((0.45, -0.05, 0.48), 0.085), plate, 0.02)
    f.add(flat([(-0.045, 0.0), (0.045, 0.0), (0.038, 0.82), (0.0, 0.94), (-0.038, 0.82)], 0.014,
               (0.44, 0.06, 0.52), (0, 12, -12)), plate)
    f.add(box((0.435, 0.055, 0.52), (0.15, 0.022, 0.03), 0.015, (0, 0, -12)), GOLD)
    f.add(capsule((0.43, 0.03, 0.52), (0.40, -0.16, 0.50), 0.026), RUST)
    f.add(sphere((0.395, -0.19, 0.50), 0.042), GOLD)
    # shield arm
    f.curve([(-0.38, 0.26, 0.02), (-0.52, 0.0, 0.12), (-0.44, -0.04, 0.34)], [0.085, 0.075, 0.07], plate, 0.02)
    shield = [(-0.25, 0.36), (0.25, 0.36), (0.24, 0.02), (0.13, -0.26), (0.0, -0.40), (-0.13, -0.26),
              (-0.24, 0.02)]
    f.add(flat(shield, 0.035, (-0.42, -0.04, 0.44), (-4, 16, 3), 0.03), plate)
    f.add(flat([(x * 0.82, y * 0.84) for x, y in shield], 0.035, (-0.418, -0.04, 0.455), (-4, 16, 3), 0.02),
          wool)
    f.add(box((-0.415, -0.04, 0.49), (0.026, 0.28, 0.02), 0.01, (-4, 16, 3)), GOLD)
    f.add(box((-0.415, 0.08, 0.49), (0.16, 0.026, 0.02), 0.01, (-4, 16, 3)), GOLD)
    for shape, material in extras:
        f.add(shape, material, 0.012)
    return f, {"shadow": (-0.94, 0.62)}


def prior():
    """Prior Aldous, with forty years of lake in his skirts."""
    f = Figure(27)
    vestment = cloth((0.10, 0.05, 0.12), (0.30, 0.16, 0.32))
    alb = cloth((0.36, 0.37, 0.34), (0.66, 0.66, 0.60))
    flesh = Material((0.30, 0.36, 0.33), (0.60, 0.66, 0.58), 7, 0.7, 0.5, 28)
    robe(f, alb, waist=-0.04, wide=0.50, shoulders=0.27, folds=11, ragged=5)
    for side in (-1, 1):  # the cope, open in front
        f.curve([(side * 0.24, 0.38, 0.02), (side * 0.38, 0.0, 0.10), (side * 0.50, -0.44, 0.12),
                 (side * 0.62, -0.90, 0.10)], [0.13, 0.15, 0.16, 0.17], vestment, 0.10)
        f.curve([(side * 0.13, 0.34, 0.20), (side * 0.20, -0.02, 0.30), (side * 0.30, -0.46, 0.38),
                 (side * 0.38, -0.88, 0.42)], [0.040, 0.045, 0.05, 0.055], GOLD, 0.02)
        f.add(ellipsoid((side * 0.22, 0.32, -0.02), (0.20, 0.16, 0.22)), vestment, 0.08)
    f.add(sphere((0, 0.30, 0.26), 0.062), GOLD)
    f.add(sphere((0, 0.30, 0.305), 0.034), glow((0.35, 0.95, 0.80), 0.7))
    f.add(box((0, -0.34, 0.40), (0.075, 0.34, 0.025), 0.015, (-10, 0, 0)), vestment)
    for k in range(4):
        f.add(torus((0, -0.12 - 0.14 * k, 0.385 + 0.028 * k), 0.042, 0.013, (-10, 0, 0)), GOLD)
    head = (0, 0.56, 0.08)
    f.add(capsule((0, 0.38, 0.02), head, 0.10, 0.12), flesh, 0.05)
    f.add(ellipsoid(head, (0.150, 0.185, 0.165)), flesh, 0.04)
    f.add(ellipsoid((0, 0.555, 0.245), (0.026, 0.055, 0.045)), flesh, 0.03)
    for side in (-1, 1):
        f.carve(ellipsoid((side * 0.062, 0.600, 0.225), (0.042, 0.032, 0.06)), BLACK)
        f.add(sphere((side * 0.062, 0.598, 0.195), 0.024), glow((0.40, 1.0, 0.85), 1.0))
        f.add(capsule((side * 0.022, 0.642, 0.230), (side * 0.105, 0.655, 0.195), 0.026, 0.018), BONE, 0.02)
        f.add(ellipsoid((side * 0.09, 0.525, 0.19), (0.045, 0.03, 0.03)), flesh, 0.04)
    f.carve(ellipsoid((0, 0.468, 0.235), (0.052, 0.022, 0.06)), MAW)
    random = Random(6)
    for k in range(26):  # a beard of weed
        x = random.uniform(-0.13, 0.13)
        length = 0.46 - abs(x) * 1.6 + random.uniform(-0.06, 0.06)
        sway = random.uniform(-0.05, 0.05)
        f.curve([(x * 0.8, 0.46 - abs(x) * 0.2, 0.20), (x * 1.2 + sway * 0.4, 0.46 - length * 0.5, 0.29),
                 (x * 0.9 + sway, 0.46 - length, 0.30)], [0.028, 0.024, 0.006], WEED, 0.012)
    # the mitre: two plates and what hangs from them
    mitre = [(-0.175, -0.02), (0.175, -0.02), (0.205, 0.16), (0.0, 0.42), (-0.205, 0.16)]
    f.add(flat(mitre, 0.03, (0, 0.70, -0.04), (-10, 0, 0), 0.02), alb)
    f.add(flat(mitre, 0.03, (0, 0.69, 0.15), (6, 0, 0), 0.02), vestment)
    f.add(box((0, 0.86, 0.18), (0.022, 0.15, 0.03), 0.01, (6, 0, 0)), GOLD)
    f.add(box((0, 0.715, 0.185), (0.165, 0.026, 0.03), 0.012, (6, 0, 0)), GOLD)
    for side in (-1, 1):
        f.add(sphere((side * 0.085, 0.84, 0.195), 0.024), glow((0.35, 0.95, 0.80), 0.5))
    # right arm and crozier
    sleeve(f, vestment, 1, (0.50, 0.06, 0.20), (0.50, 0.16, 0.46), 0.11, 0.15)
    hand(f, (0.50, 0.16, 0.48), (0.50, 0.22, 0.64), flesh, 0.055)
    f.add(capsule((0.53, -0.92, 0.56), (0.50, 0.62, 0.60), 0.024, 0.022), WOOD)
    crook = [(0.50 + 0.15 + 0.15 * math.cos(math.pi - k * 0.42) * (1 - k * 0.055),
              0.64 + 0.17 * math.sin(k * 0.42) * (1 - k * 0.055), 0.60) for k in range(13)]
    f.curve([(0.50, 0.56, 0.60)] + crook, [0.036] * 2 + [0.036 - 0.0016 * k for k in range(12)], GOLD, 0.02)
    f.add(sphere((0.635, 0.66, 0.60), 0.055), glow((0.40, 1.0, 0.85), 0.9))
    for y in (0.46, 0.52):
        f.add(torus((0.505, y, 0.595), 0.032, 0.014, (90, 0, 0)), GOLD)
    # left arm, raised
    sleeve(f, vestment, -1, (-0.52, 0.10, 0.20), (-0.54, 0.36, 0.38), 0.11, 0.15)
    hand(f, (-0.54, 0.38, 0.40), (-0.55, 0.66, 0.46), flesh, 0.06)
    f.add(torus((-0.545, 0.52, 0.45), 0.028, 0.012, (90, 0, 0)), GOLD)
    # what the water left: arms of the lake from under the hem
    deep = Material((0.05, 0.12, 0.13), (0.20, 0.36, 0.34), 6, 0.6, 0.9, 36)
    sucker = Material((0.42, 0.40, 0.34), (0.70, 0.66, 0.56), 8, 0.2, 0.5)
    for side, lift, out in ((-1, -0.30, 0.92), (1, -0.36, 0.90), (-1, -0.70, 0.74), (1, -0.74, 0.78)):
        points = [(side * 0.34, -0.86, 0.20), (side * 0.60, -0.90, 0.44), (side * out * 0.94, -0.70 + lift * 0.1,
                                                                         0.46),
                  (side * out, lift - 0.06, 0.40), (side * (out - 0.12), lift + 0.08, 0.44),
                  (side * (out - 0.16), lift - 0.04, 0.50)]
        f.curve(points, [0.11, 0.10, 0.082, 0.060, 0.040, 0.012], deep, 0.04)
        for t in range(1, 5):
            (ax, ay, az), (bx, by, bz) = points[t - 1], points[t]
            for s in (0.3, 0.75):
                f.add(sphere((ax + (bx - ax) * s - side * 0.02, ay + (by - ay) * s + 0.01,
                              az + (bz - az) * s + 0.085 - 0.014 * t), 0.024 - 0.003 * t), sucker, 0.008)
    return f, {"shadow": (-0.93, 0.80)}
