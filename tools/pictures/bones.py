"""Textures of the ossuary: shelves of skulls and long bones, the gate of ribs, the bone-strewn floor."""

import math
from random import Random

from field import bytesOf, clouds, lit, mix3, noise, sheltered, smooth
from masonry import SIDE

BONE_DARK, BONE_LIGHT = (0.38, 0.29, 0.19), (0.86, 0.78, 0.62)


def dome(u, v):
    """Height of a unit hemisphere, 0 outside."""
    d = 1.0 - u * u - v * v
    return math.sqrt(d) if d > 0.0 else 0.0


def skull(u, v):
    """(height 0 to 1, darkness of its hollows 0 to 1) of a skull facing the viewer, in a square of
    -1 to 1; height 0 is outside."""
    height = dome(u / 0.84, (v + 0.22) / 0.76)
    height = max(height, 0.72 * dome(u / 0.52, (v - 0.52) / 0.46))        # jaw
    height = max(height, 0.80 * dome((abs(u) - 0.50) / 0.28, (v - 0.26) / 0.22))  # cheekbones
    height = max(height, 0.98 * dome((abs(u) - 0.32) / 0.40, (v + 0.16) / 0.16))  # brow
    if height <= 0.0:
        return 0.0, 0.0
    eye = smooth(1.0, 0.62, math.hypot((abs(u) - 0.34) / 0.27, (v - 0.10) / 0.25))
    nose = smooth(1.0, 0.5, math.hypot(u / 0.13, (v - 0.40 - abs(u) * 0.8) / 0.17))
    teeth = 0.0
    if 0.60 < v < 0.86 and abs(u) < 0.40:
        teeth = 0.55 * smooth(0.18, 0.05, abs(((u * 10.0) % 1.0) - 0.5)) + 0.5 * smooth(
            0.05, 0.01, abs(v - 0.73))
    hollow = min(1.0, max(eye, nose, teeth * 0.7))
    suture = 0.10 * smooth(0.03, 0.0, abs(u + 0.05 * math.sin(v * 30))) if v < -0.35 else 0.0
    return max(0.02, height - 0.62 * max(eye, nose) - 0.16 * teeth - suture), hollow


class Pile:
    """Heights and colours of one texture, filled piece by piece; the nearest piece wins."""

    def __init__(self):
        self.height = [0.0] * (SIDE * SIDE)
        self.kind = [(0.0, 0.0)] * (SIDE * SIDE)  # (shade of the bone, hollow); shade < 0: no bone

    def put(self, x, y, height, shade, hollow):
        if not 0 <= y < SIDE:
            return
        i = y * SIDE + x % SIDE
        if height > self.height[i]:
            self.height[i] = height
            self.kind[i] = (shade, hollow)

    def add_skull(self, cx, cy, size, lean, base, shade):
        c, s = math.cos(lean), math.sin(lean)
        for y in range(int(cy - size * 1.1), int(cy + size * 1.1) + 1):
            for x in range(int(cx - size * 1.1), int(cx + size * 1.1) + 1):
                u, v = (x - cx) / size, (y - cy) / size
                height, hollow = skull(u * c + v * s, v * c - u * s)
                if height > 0.0:
                    self.put(x, y, base + height * size * 0.62, shade, hollow)

    def add_knuckle(self, cx, cy, size, turn, base, shade):
        """The end of a long bone, seen along it: two rolls and the notch between."""
        c, s = math.cos(turn), math.sin(turn)
        for y in range(int(cy - size * 1.3), int(cy + size * 1.3) + 1):
            for x in range(int(cx - size * 1.3), int(cx + size * 1.3) + 1):
                u, v = (x - cx) / size, (y - cy) / size
                u, v = u * c + v * s, v * c - u * s
                height = max(dome((abs(u) - 0.42) / 0.55, v / 0.72), 0.55 * dome(u / 0.9, v / 0.6))
                if height > 0.0:
                    self.put(x, y, base + height * size * 0.6, shade, 0.25 * smooth(0.2, 0, abs(u)))

    def add_shaft(self, x0, y0, x1, y1, size, base, shade):
        """A long bone lying across, with its rolls."""
        length = math.hypot(x1 - x0, y1 - y0)
        dx, dy = (x1 - x0) / length, (y1 - y0) / length
        reach = int(size * 2.2)
        for y in range(int(min(y0, y1)) - reach, int(max(y0, y1)) + reach + 1):
            for x in range(int(min(x0, x1)) - reach, int(max(x0, x1)) + reach + 1):
                along = (x - x0) * dx + (y - y0) * dy
                across = abs((y - y0) * dx - (x - x0) * dy)
                if -size * 1.4 < along < length + size * 1.4:
                    end = min(along, length - along)
                    thick = size * (0.62 + 0.30 * smooth(size * 2.5, 0.0, end))
                    height = 0.0
                    if end >= 0 and across < thick:
                        height = math.sqrt(1 - (across / thick) ** 2) * thick
                    roll = size * 0.85
                    away = math.hypot(min(end, 0.0) + (end if 0 < end < 0.5 else 0),
                                      across - size * 0.55)
                    if end < size * 0.7 and away < roll:
                        height = max(height, math.sqrt(roll * roll - away * away))
                    if height > 0.0:
                        self.put(x, y, base + height * 0.8, shade, 0.0)


def bone_colour(shade, hollow, age):
    colour = mix3(BONE_DARK, BONE_LIGHT, min(1.0, max(0.0, 0.25 + shade * 0.6 + age * 0.5 - 0.25)))
    return mix3(colour, (0.07, 0.05, 0.04), hollow * 0.88)


def ossuary_wall():
    """Shelves: skulls, the ends of long bones, skulls."""
    random = Random(61)
    pile = Pile()
    shelves = ((0, 15), (92, 106), (166, 180), (246, 256))
    rough = clouds(SIDE, SIDE, 14, 14, 4, 62, 0.6)
    for row, (centre, count, size) in enumerate(((54, 6, 24.5), (214, 5, 29.5))):
        for i in range(count):
            cx = (i + 0.5 + 0.22 * row) * SIDE / count + random.uniform(-2.5, 2.5)
            pile.add_skull(cx, centre + random.uniform(0, 5), size * random.uniform(0.94, 1.06),
                           random.uniform(-0.22, 0.22), 4.0, random.random())
            if random.random() < 0.6:
                pile.add_skull(cx + SIDE / count / 2, centre - size * 0.62, size * 0.72,
                               random.uniform(-0.4, 0.4), 0.5, random.random() * 0.5)
    for row in range(4):
        for i in range(12):
            pile.add_knuckle((i + 0.5 * (row % 2)) * SIDE / 12 + random.uniform(-2, 2),
                             115 + row * 15.5 + random.uniform(-1.5, 1.5), 10.5,
                             random.uniform(-0.9, 0.9), 2.0, random.random())
    stone = [False] * (SIDE * SIDE)
    for top, bottom in shelves:
        for y in range(top, bottom):
            edge = min(y - top + 1, bottom - y)
            for x in range(SIDE):
                i = y * SIDE + x
                nick = rough[i] * 5.0
                joint = smooth(2.0, 0.5, abs((x + top * 1.7) % 85 - 42))
                pile.height[i] = 15.0 * smooth(-1.0, 5.0, edge) + nick - joint * 5
                stone[i] = True
    light = lit(pile.height, SIDE, SIDE, (-0.35, -0.70, 0.62), 0.75)
    open_ = sheltered(pile.height, SIDE, SIDE, 6, 10.0)
    age = clouds(SIDE, SIDE, 8, 8, 4, 63)
    grain = noise(SIDE, SIDE, 128, 128, 64)
    pixels = []
    for i in range(SIDE * SIDE):
        shade, hollow = pile.kind[i]
        y = i // SIDE
        if stone[i]:
            colour = mix3((0.36, 0.30, 0.23), (0.60, 0.51, 0.38), rough[i] * 0.8 + age[i] * 0.4 - 0.1)
        elif pile.height[i] <= 0.0:
            colour = (0.09, 0.07, 0.05)
        else:
            colour = bone_colour(shade, hollow, age[i])
        colour = tuple(c * (0.9 + 0.2 * grain[i]) for c in colour)
        corridor = 1.0 - 0.25 * smooth(0.82, 1.0, y / SIDE) - 0.2 * smooth(0.14, 0.0, y / SIDE)
        shine = (0.26 + 1.0 * light[i]) * (0.38 + 0.62 * open_[i]) * corridor
        pixels.append(bytesOf([c * shine for c in colour]))
    return pixels


def ossuary_door():
    """A gate of ribs on a dark doorway, a skull for its lock."""
    pile = Pile()
    left, right, top = 40, 216, 22
    spine = SIDE / 2
    for k in range(9):
        y0 = 46 + k * 24
        reach = 80 - 1.1 * abs(k - 4) ** 1.7
        for side in (-1, 1):
            for step in range(0, 70):
                t = step / 69
                x = spine + side * (5 + reach * math.sin(t * 1.62))
                y = y0 + 26 * (1 - math.cos(t * 1.9)) - 8 * t
                size = 7.2 * (1 - 0.35 * t)
                for py in range(int(y - size), int(y + size) + 1):
                    for px in range(int(x - size), int(x + size) + 1):
                        h = dome((px - x) / size, (py - y) / size)
                        if h > 0:
                            pile.put(px, py, 5 + h * size, 0.55 - 0.3 * t, 0.0)
    for k in range(13):
        pile.add_knuckle(spine, 34 + k * 18, 11.5, math.pi / 2, 8.0, 0.7)
    pile.add_skull(spine, 138, 27, 0.0, 16.0, 0.95)
    for y in range(SIDE):
        for x in list(range(left - 26, left)) + list(range(right, right + 26)):
            u = (x - left + 13) / 13 if x < left else (x - right - 13) / 13
            flute = 0.86 + 0.14 * math.cos(y * 2 * math.pi / 64)
            h = dome(u / 1.0, 0.0) * 15 * flute
            if h > 0:
                pile.put(x, y, h + 6, 0.35 + 0.2 * flute, 0.0)
    for x in range(left - 26, right + 26):
        for y in range(top - 22, top + 4):
            h = dome((y - top + 9) / 13, 0.0) * 15
            if h > 0:
                pile.put(x, y, h + 8, 0.4, 0.0)
    for corner in (left - 13, right + 13):
        pile.add_skull(corner, top - 4, 19, 0.0, 14.0, 0.8)
    light = lit(pile.height, SIDE, SIDE, (-0.4, -0.66, 0.64), 0.8)
    open_ = sheltered(pile.height, SIDE, SIDE, 6, 12.0)
    age = clouds(SIDE, SIDE, 8, 8, 4, 71)
    haze = clouds(SIDE, SIDE, 4, 4, 4, 72)
    pixels = []
    for i in range(SIDE * SIDE):
        x, y = i % SIDE, i // SIDE
        if pile.height[i] > 0.0:
            shade, hollow = pile.kind[i]
            shine = (0.26 + 1.02 * light[i]) * (0.45 + 0.55 * open_[i])
            shine *= 1.0 - 0.25 * smooth(0.82, 1.0, y / SIDE)
            pixels.append(bytesOf([c * shine for c in bone_colour(shade, hollow, age[i])], 1.0))
        elif left <= x < right and y > top:
            glow = smooth(150, 20, math.hypot(x - spine, (y - 165) * 0.8)) * (0.5 + 0.7 * haze[i])
            dark = mix3((0.030, 0.025, 0.022), (0.20, 0.115, 0.055), glow * 0.85)
            pixels.append(bytesOf(dark, 1.0))
        else:
            away = max(left - 26 - x, x - right - 25, 0)
            pixels.append(bytesOf((0.02, 0.02, 0.01), 0.5 * smooth(9, 0, away)))
    return pixels


def ossuary_floor():
    """Trodden earth with bones half sunk in it."""
    random = Random(81)
    rough = clouds(SIDE, SIDE, 10, 10, 5, 82, 0.6)
    pile = Pile()
    for i in range(SIDE * SIDE):
        pile.height[i] = rough[i] * 14.0
        pile.kind[i] = (-1.0, 0.0)
    for _ in range(13):
        x, y, turn = random.randrange(SIDE), random.randrange(20, 236), random.uniform(0, math.pi)
        length = random.uniform(24, 46)
        pile.add_shaft(x, y, x + math.cos(turn) * length, y + math.sin(turn) * length * 0.8,
                       random.uniform(3.2, 4.6), 6.5, random.random() * 0.7)
    for x, y, size in ((58, 66, 19), (186, 176, 22), (214, 52, 15)):
        pile.add_skull(x, y, size, random.uniform(-1.2, 1.2), 3.0, random.random() * 0.6)
    for _ in range(110):
        x, y, r = random.randrange(SIDE), random.randrange(6, 250), random.uniform(1.5, 4.0)
        for py in range(int(y - r), int(y + r) + 1):
            for px in range(int(x - r), int(x + r) + 1):
                h = dome((px - x) / r, (py - y) / r)
                if h > 0:
                    pile.put(px, py, 7.5 + h * r, random.random() * 0.4, 0.0)
    light = lit(pile.height, SIDE, SIDE, steepness=0.75)
    open_ = sheltered(pile.height, SIDE, SIDE, 5, 9.0)
    age = clouds(SIDE, SIDE, 8, 8, 4, 83)
    grain = noise(SIDE, SIDE, 128, 128, 84)
    pixels = []
    for i in range(SIDE * SIDE):
        shade, hollow = pile.kind[i]
        if shade < 0.0:
            colour = mix3((0.21, 0.16, 0.11), (0.40, 0.31, 0.21), rough[i] * 0.9 + age[i] * 0.3 - 0.1)
        else:
            colour = tuple(c * 0.82 for c in bone_colour(shade, hollow, age[i]))
            colour = mix3(colour, (0.30, 0.22, 0.14), smooth(0.45, 0.65, rough[i]) * 0.5)
        colour = tuple(c * (0.86 + 0.28 * grain[i]) for c in colour)
        shine = (0.28 + 0.92 * light[i]) * (0.45 + 0.55 * open_[i])
        pixels.append(bytesOf([c * shine for c in colour]))
    return pixels
