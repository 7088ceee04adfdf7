"""What stands in the dungeon: the pictures of the event tiles, seen in the first-person view."""

import math
from random import Random

from beasts import BLACK, glow
from field import bytesOf, clouds, mix3, smooth
from solid import Figure, Material, box, capsule, cylinder, ellipsoid, flat, sphere, torus
from undead import BONE, GOLD, IRON, WAX, WOOD, belt, cloth, hood, robe, skull, sleeve

SIDE = 128

STONE = Material((0.32, 0.32, 0.30), (0.58, 0.56, 0.50), 7, 0.9, 0.06)
DARK_STONE = Material((0.20, 0.20, 0.19), (0.40, 0.39, 0.36), 7, 0.9, 0.06)
BRONZE = Material((0.34, 0.24, 0.10), (0.72, 0.55, 0.26), 6, 0.3, 0.8, 34)
PATINA = Material((0.16, 0.34, 0.30), (0.40, 0.58, 0.48), 6, 0.6, 0.3, 24)
WATER = Material((0.08, 0.22, 0.26), (0.26, 0.52, 0.56), 5, 0.3, 1.0, 50)


def chest():
    f = Figure(51)
    tilt = (16, -24, 0)
    f.add(box((0, -0.56, 0), (0.56, 0.24, 0.36), 0.03, tilt), WOOD)
    c, s = math.cos(math.radians(-24)), math.sin(math.radians(-24))
    p, q = math.cos(math.radians(16)), math.sin(math.radians(16))

    def at(x, y, z):
        y, z = y * p - z * q, y * q + z * p
        return (x * c + z * s, y - 0.56, -x * s + z * c)

    f.add(cylinder(at(0, 0.22, 0.0), 0.345, 0.555, 0.02, (0, -24, 90)), WOOD)
    for x in (-0.43, 0.43):
        f.add(box(at(x, 0, 0.012), (0.055, 0.26, 0.365), 0.02, tilt), IRON)
        f.add(cylinder(at(x, 0.22, 0.0), 0.362, 0.050, 0.02, (0, -24, 90)), IRON)
        for y in (-0.16, 0.04):
            f.add(sphere(at(x, y, 0.385), 0.026), IRON)
    f.add(box(at(0, 0.215, 0.01), (0.575, 0.032, 0.372), 0.015, tilt), IRON)
    f.add(box(at(0, 0.13, 0.385), (0.085, 0.115, 0.03), 0.02, tilt), GOLD)
    f.carve(sphere(at(0, 0.145, 0.425), 0.026), BLACK)
    return f, {"shadow": (-0.88, 0.82)}


def well():
    f = Figure(52)
    f.add(cylinder((0, -0.62, 0), 0.52, 0.24, 0.03), STONE)
    for row in range(3):
        for k in range(9):
            angle = -1.9 + k * 0.46 + (row % 2) * 0.23
            f.add(box((math.sin(angle) * 0.53, -0.78 + 0.16 * row, math.cos(angle) * 0.53), (0.115, 0.068, 0.05),
                      0.03, (0, math.degrees(angle), 0)), STONE if (k + row) % 3 else DARK_STONE)
    f.carve(cylinder((0, -0.40, 0), 0.42, 0.16, 0.02), BLACK)
    f.add(torus((0, -0.385, 0), 0.50, 0.075, (90, 0, 0)), STONE, 0.02)
    f.add(cylinder((0, -0.50, 0), 0.43, 0.02, 0.01), WATER)
    for side in (-1, 1):
        f.add(capsule((side * 0.52, -0.52, 0), (side * 0.52, 0.44, 0), 0.052), WOOD)
        f.add(flat([(-0.46, 0.0), (0.46, 0.0), (0.40, 0.42), (-0.40, 0.42)], 0.028,
                   (0, 0.50, side * 0.24), (side * 46 - 4, 0, 0)), WOOD)
        for k in range(5):
            f.add(capsule((-0.36 + 0.18 * k, 0.46, side * 0.30 + 0.06), (-0.33 + 0.165 * k, 0.80, 0.02), 0.020), WOOD)
    f.add(capsule((-0.62, 0.10, 0), (0.62, 0.10, 0), 0.062), WOOD)
    f.add(capsule((-0.72, 0.80, 0), (0.72, 0.80, 0), 0.045), WOOD)
    f.add(capsule((0.06, 0.08, 0.05), (0.06, -0.20, 0.08), 0.016), cloth((0.40, 0.33, 0.2), (0.66, 0.56, 0.36)))
    f.add(cylinder((0.06, -0.30, 0.08), 0.105, 0.10, 0.02, None, 0.125), WOOD)
    f.add(torus((0.06, -0.24, 0.08), 0.118, 0.016, (90, 0, 0)), IRON)
    return f, {"shadow": (-0.88, 0.72)}


def plaque():
    """Bronze, let into the wall."""
    f = Figure(53)
    f.add(box((0, 0.12, -0.04), (0.50, 0.38, 0.05), 0.03), STONE)
    f.add(box((0, 0.12, 0.0), (0.43, 0.31, 0.05), 0.02), BRONZE)
    f.carve(box((0, 0.12, 0.075), (0.385, 0.265, 0.05), 0.02), PATINA)
    random = Random(3)
    for row in range(5):
        x = -0.32
        while x < 0.28:
            wide = random.uniform(0.02, 0.075)
            if row != 4 or abs(x) < 0.16:
                f.add(box((x + wide, 0.29 - 0.085 * row, 0.035), (wide, 0.020, 0.02), 0.008), BRONZE)
            x += wide * 2 + 0.035
    for x in (-0.40, 0.40):
        for y in (-0.16, 0.40):
            f.add(sphere((x, y, 0.05), 0.034), BRONZE)
    return f, {}


def lever():
    f = Figure(54)
    f.add(box((0, -0.02, -0.05), (0.24, 0.34, 0.06), 0.03), DARK_STONE)
    f.add(box((0, -0.02, 0.0), (0.075, 0.25, 0.06), 0.02), IRON)
    f.carve(box((0, -0.02, 0.06), (0.045, 0.21, 0.06), 0.02), BLACK)
    f.curve([(0, -0.12, 0.0), (0.05, 0.08, 0.26), (0.08, 0.28, 0.42)], [0.036, 0.040, 0.046], BONE, 0.02)
    for side in (-1, 1):
        f.add(sphere((0.08 + side * 0.040, 0.33, 0.44), 0.058), BONE, 0.03)
    for x in (-0.17, 0.17):
        for y in (-0.27, 0.23):
            f.add(sphere((x, y, 0.02), 0.030), IRON)
    return f, {}


def altar():
    f = Figure(55)
    linen = cloth((0.50, 0.48, 0.42), (0.88, 0.85, 0.76))
    f.add(box((0, -0.56, 0), (0.62, 0.26, 0.28), 0.02, (12, 0, 0)), STONE)
    f.add(box((0, -0.26, 0.02), (0.72, 0.055, 0.35), 0.02, (12, 0, 0)), STONE)
    f.add(box((0, -0.22, 0.04), (0.60, 0.025, 0.345), 0.015, (12, 0, 0)), linen)
    f.add(box((0, -0.34, 0.345), (0.60, 0.12, 0.02), 0.012, (4, 0, 0)), linen)
    for k in range(7):
        f.add(sphere((-0.54 + 0.18 * k, -0.47, 0.35), 0.034), GOLD)
    f.add(flat([(-0.05, -0.12), (0.05, -0.12), (0.05, -0.03), (0.13, -0.03), (0.13, 0.05), (0.05, 0.05), (0.05, 0.14),
                (-0.05, 0.14), (-0.05, 0.05), (-0.13, 0.05), (-0.13, -0.03), (-0.05, -0.03)], 0.03,
               (0, -0.60, 0.32), (12, 0, 0)), DARK_STONE)
    for side in (-1, 1):
        for x, tall in ((0.50, 0.22), (0.34, 0.15)):
            f.add(cylinder((side * x, -0.16, 0.02), 0.075, 0.016, 0.01), GOLD)
            f.add(cylinder((side * x, -0.14 + tall * 0.5, 0.02), 0.034, tall * 0.5, 0.01), WAX)
            f.add(ellipsoid((side * x, -0.06 + tall, 0.02), (0.028, 0.065, 0.028)), glow((1.0, 0.74, 0.28)))
    f.add(cylinder((0, -0.10, 0.05), 0.06, 0.10, 0.01, None, 0.02), GOLD)
    f.add(ellipsoid((0, 0.05, 0.05), (0.115, 0.10, 0.115)), GOLD, 0.02)
    f.carve(ellipsoid((0, 0.13, 0.05), (0.10, 0.06, 0.10)), WATER)
    return f, {"shadow": (-0.86, 0.78)}


def figure():
    """Somebody, seen from a little way off: cloak, staff, lantern."""
    f = Figure(56)
    wool = cloth((0.13, 0.17, 0.20), (0.36, 0.42, 0.44))
    robe(f, wool, wide=0.40, ragged=0)
    hood(f, wool, (0, 0.58, 0.02), 0.225, False)
    f.carve(ellipsoid((0, 0.56, 0.18), (0.145, 0.19, 0.18)), BLACK)
    face = Material((0.46, 0.34, 0.26), (0.74, 0.58, 0.46), 8, 0.4, 0.15)
    f.add(ellipsoid((0, 0.57, 0.075), (0.125, 0.160, 0.120)), face)
    f.add(ellipsoid((0, 0.555, 0.195), (0.022, 0.040, 0.03)), face, 0.02)
    f.add(ellipsoid((0, 0.46, 0.165), (0.075, 0.055, 0.05)), cloth((0.42, 0.38, 0.32), (0.72, 0.68, 0.60)), 0.02)
    for side in (-1, 1):
        f.add(sphere((side * 0.048, 0.592, 0.178), 0.018), BLACK)
    belt(f)
    sleeve(f, wool, 1, (0.42, 0.04, 0.16), (0.44, 0.08, 0.42))
    sleeve(f, wool, -1, (-0.42, 0.02, 0.16), (-0.42, 0.12, 0.42))
    for x, y in ((0.45, 0.09), (-0.43, 0.13)):
        f.add(sphere((x, y, 0.47), 0.062), face)
    f.add(capsule((-0.45, -0.92, 0.50), (-0.42, 0.86, 0.50), 0.026), WOOD)
    f.add(torus((0.45, 0.02, 0.48), 0.045, 0.012, (0, 40, 0)), IRON)
    f.add(cylinder((0.45, -0.05, 0.48), 0.085, 0.018, 0.01, None, 0.04), IRON)
    f.add(cylinder((0.45, -0.17, 0.48), 0.072, 0.10, 0.01), glow((1.0, 0.78, 0.36), 0.95))
    for k in range(4):
        angle = k * math.pi / 2 + 0.4
        f.add(capsule((0.45 + math.cos(angle) * 0.078, -0.07, 0.48 + math.sin(angle) * 0.078),
                      (0.45 + math.cos(angle) * 0.078, -0.27, 0.48 + math.sin(angle) * 0.078), 0.012), IRON)
    f.add(cylinder((0.45, -0.28, 0.48), 0.088, 0.018, 0.01), IRON)
    return f, {"shadow": (-0.91, 0.55)}


def guardian():
    """A guard of stone with a drawn sword, or so it looks from here."""
    f = Figure(57)
    f.add(box((0, -0.88, 0), (0.44, 0.09, 0.34), 0.02), DARK_STONE)
    robe(f, STONE, hem=-0.80, wide=0.36, shoulders=0.27, folds=9)
    hood(f, STONE, (0, 0.58, 0.02), 0.225, False)
    f.carve(ellipsoid((0, 0.55, 0.20), (0.15, 0.20, 0.18)), BLACK)
    skull(f, (0, 0.60, 0.05), 0.150, STONE, (0.85, 0.20, 0.14))
    for side in (-1, 1):
        f.curve([(side * 0.28, 0.26, 0.02), (side * 0.40, 0.02, 0.20), (side * 0.06, 0.06, 0.40)],
                [0.115, 0.105, 0.08], STONE, 0.05)
    f.add(flat([(-0.055, 0.0), (0.055, 0.0), (0.045, -0.80), (0.0, -0.90), (-0.045, -0.80)], 0.022, (0, 0.02, 0.44)),
          IRON)
    f.add(box((0, 0.05, 0.44), (0.17, 0.030, 0.04), 0.015), IRON)
    f.add(capsule((0, 0.06, 0.44), (0, 0.26, 0.44), 0.034), DARK_STONE)
    f.add(sphere((0, 0.29, 0.44), 0.052), IRON)
    return f, {"shadow": (-0.94, 0.52)}


def bell():
    """Old Patience, where she fell."""
    f = Figure(58)
    lean = (10, 0, 24)
    profile = ((0.16, 0.60), (0.26, 0.56), (0.31, 0.40), (0.34, 0.10), (0.40, -0.20), (0.50, -0.44), (0.60, -0.56))
    c, s = math.cos(math.radians(24)), math.sin(math.radians(24))

    def at(x, y):
        return (x * c - y * s, x * s + y * c - 0.14, 0.0)

    for (ra, ya), (rb, yb) in zip(profile, profile[1:]):
        mid, half = (ya + yb) / 2, (ya - yb) / 2
        f.add(cylinder(at(0, mid), rb, half + 0.02, 0.02, lean, ra), BRONZE, 0.04)
    f.add(ellipsoid(at(0, 0.58), (0.20, 0.09, 0.20), lean), BRONZE, 0.04)
    for y, r in ((0.36, 0.325), (0.31, 0.330), (-0.30, 0.455), (-0.52, 0.595)):
        f.add(torus(at(0, y), r, 0.022, (100, 0, 24)), PATINA if y > 0 else BRONZE)
    f.add(torus(at(0, 0.74), 0.095, 0.036, (0, 20, 24)), BRONZE)
    for k in range(9):
        angle = -1.1 + 0.275 * k
        x, y, _ = at(math.sin(angle) * 0.37, 0.02)
        f.add(box((x, y, math.cos(angle) * 0.37), (0.026, 0.058, 0.02), 0.01, (0, math.degrees(angle), 24)), PATINA)
    crack = [(0.10, -0.10), (0.16, -0.24), (0.12, -0.36), (0.20, -0.52)]
    for (ax, ay), (bx, by) in zip(crack, crack[1:]):
        (px, py, _), (qx, qy, _) = at(ax, ay), at(bx, by)
        f.carve(capsule((px, py, 0.44), (qx, qy, 0.54), 0.020), BLACK)
    rubble = Random(7)
    for _ in range(16):
        x = rubble.uniform(-0.72, 0.72)
        f.add(box((x, -0.80, rubble.uniform(0.0, 0.34)), tuple(rubble.uniform(0.05, 0.13) for _ in range(3)), 0.02,
                  tuple(rubble.uniform(-40, 40) for _ in range(3))), STONE)
    return f, {"shadow": (-0.88, 0.85)}


SOLID = {"chest": chest, "well": well, "plaque": plaque, "lever": lever, "altar": altar, "figure": figure,
         "guardian": guardian, "bell": bell}


def solid(name):
    built, options = SOLID[name]()
    return built.render(SIDE, SIDE, 1.0, options.get("shadow"))


def stairs_down():
    """A hole in the floor with steps going down it; it lies flat."""
    grain = clouds(SIDE, SIDE, 16, 16, 4, 151)
    pixels = []
    for y in range(SIDE):
        for x in range(SIDE):
            u, v = abs(x - 63.5) / 64, y / SIDE
            rim = max(u, abs(y - 63.5) / 64)
            stone = mix3((0.34, 0.33, 0.30), (0.58, 0.56, 0.50), grain[y * SIDE + x])
            if rim > 0.97:
                pixels.append((0, 0, 0, 0))
            elif rim > 0.80:
                bevel = 1.12 if (y < 20 or x < 20) else 0.78
                joint = 0.62 if (x + 9) % 32 < 2 or (y + 9) % 32 < 2 else 1.0
                pixels.append(bytesOf([c * bevel * joint for c in stone], 1.0))
            else:
                step = int((1.0 - (v - 0.10) / 0.80) * 7)
                inStep = ((1.0 - (v - 0.10) / 0.80) * 7) % 1.0
                light = max(0.05, 0.92 - step * 0.135)
                tread = 1.0 if inStep < 0.62 else 0.42
                edge = 1.25 if inStep < 0.10 else 1.0
                pixels.append(bytesOf([c * light * tread * edge for c in stone], 1.0))
    return pixels


def stairs_up():
    """The foot of a stair let down through the ceiling."""
    grain = clouds(SIDE, SIDE, 16, 16, 4, 152)
    pixels = []
    for y in range(SIDE):
        for x in range(SIDE):
            rim = max(abs(x - 63.5), abs(y - 63.5)) / 64
            stone = mix3((0.34, 0.33, 0.30), (0.60, 0.57, 0.50), grain[y * SIDE + x])
            if rim > 0.97:
                pixels.append((0, 0, 0, 0))
            elif rim > 0.80:
                bevel = 0.70 if (y < 20 or x < 20) else 1.05
                pixels.append(bytesOf([c * bevel for c in stone], 1.0))
            else:
                at = (y - 12) / 104 * 7
                step, inStep = int(at), at % 1.0
                glowing = 0.22 + 0.12 * step
                tread = 1.0 if inStep < 0.6 else 0.55
                warm = mix3(stone, (1.0, 0.90, 0.66), 0.06 * step)
                pixels.append(bytesOf([c * glowing * tread * 1.1 for c in warm], 1.0))
    return pixels


def pit():
    """A hole with a broken edge; it lies flat."""
    rough = clouds(SIDE, SIDE, 6, 6, 4, 153)
    grain = clouds(SIDE, SIDE, 20, 20, 3, 154)
    pixels = []
    for y in range(SIDE):
        for x in range(SIDE):
            i = y * SIDE + x
            r = math.hypot(x - 63.5, y - 63.5) / 64 + (rough[i] - 0.5) * 0.55
            if r > 0.96:
                pixels.append((0, 0, 0, 0))
            elif r > 0.78:
                light = 0.55 + 0.6 * grain[i]
                stone = mix3((0.24, 0.22, 0.19), (0.44, 0.41, 0.36), grain[i])
                pixels.append(bytesOf([c * light for c in stone], smooth(0.96, 0.90, r)))
            else:
                wall = smooth(0.30, 0.78, r) * (0.35 if y > 64 else 0.12) * (0.5 + grain[i])
                pixels.append(bytesOf((0.35 * wall, 0.30 * wall, 0.25 * wall), 1.0))
    return pixels


def warp():
    """A ring of toadstools, or of light: a step that is not a step. It lies flat."""
    haze = clouds(SIDE, SIDE, 5, 5, 4, 155)
    pixels = []
    for y in range(SIDE):
        for x in range(SIDE):
            u, v = (x - 63.5) / 64, (y - 63.5) / 64
            r = math.hypot(u, v)
            angle = math.atan2(v, u)
            spiral = 0.5 + 0.5 * math.cos(3 * angle + 13 * r + 3.0 * (haze[y * SIDE + x] - 0.5))
            ring = smooth(0.10, 0.0, abs(r - 0.80)) + 0.5 * smooth(0.05, 0.0, abs(r - 0.92))
            inner = smooth(0.86, 0.10, r) * (0.25 + 0.75 * spiral ** 3)
            strength = min(1.0, ring + inner) * smooth(1.0, 0.95, r)
            runes = smooth(0.25, 0.05, abs((angle * 12 / math.pi) % 1.0 - 0.5)) * smooth(0.06, 0.0, abs(r - 0.865))
            strength = min(1.0, strength + runes * 0.8)
            colour = mix3((0.10, 0.52, 0.50), (0.86, 1.0, 0.92), min(1.0, strength * 0.9 + inner * 0.3))
            pixels.append(bytesOf(colour, strength * 0.92))
    return pixels


FLAT = {"stairs-down": stairs_down, "stairs-up": stairs_up, "pit": pit, "warp": warp}
