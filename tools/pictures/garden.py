"""Textures of the drowned orchard: hedge, gate, grass and canopy, leaf by leaf and blade by blade."""

import math
from random import Random

from field import bytesOf, clouds, mix, mix3, smooth
from masonry import SIDE

LEAF_DARK, LEAF_MID, LEAF_LIGHT = (0.035, 0.09, 0.05), (0.14, 0.30, 0.12), (0.46, 0.60, 0.24)
BARK_DARK, BARK_LIGHT = (0.10, 0.075, 0.055), (0.36, 0.28, 0.20)


class Sheet:
    """Pixels with cover, painted over one another; wraps left to right, and down if asked to."""

    def __init__(self, wrapDown=False):
        self.colour = [(0.0, 0.0, 0.0)] * (SIDE * SIDE)
        self.cover = [0.0] * (SIDE * SIDE)
        self.wrapDown = wrapDown

    def put(self, x, y, colour, cover=1.0):
        if not 0 <= y < SIDE:
            if not self.wrapDown:
                return
            y %= SIDE
        i = y * SIDE + x % SIDE
        if cover >= 1.0:
            self.colour[i] = colour
            self.cover[i] = 1.0
        elif cover > 0.0:
            self.colour[i] = mix3(self.colour[i], colour, cover if self.cover[i] > 0 else 1.0)
            self.cover[i] = max(self.cover[i], cover)

    def leaf(self, x, y, length, width, turn, tone, glow=0.0):
        """A pointed leaf from its stalk at (x, y): a lit half and a shaded half along the rib."""
        c, s = math.cos(turn), math.sin(turn)
        lightSide = 1.0 if s * -0.5 + c * -0.8 < 0 else -1.0
        body = mix3(LEAF_DARK, LEAF_MID, min(1.0, tone * 1.6))
        body = mix3(body, LEAF_LIGHT, max(0.0, tone - 0.45) * 1.5)
        body = mix3(body, (0.62, 0.72, 0.24), glow)
        reach = int(length) + 2
        for py in range(int(y) - reach, int(y) + reach + 1):
            for px in range(int(x) - reach, int(x) + reach + 1):
                u = ((px - x) * c + (py - y) * s) / length
                if not 0.0 <= u <= 1.0:
                    continue
                v = ((py - y) * c - (px - x) * s) / width
                edge = math.sin(math.pi * u ** 0.8) - abs(v)
                if edge <= 0.0:
                    continue
                shade = 1.0 + 0.24 * lightSide * (1 if v > 0 else -1) + 0.25 * (u - 0.5)
                if abs(v) < 0.14:
                    shade += 0.22
                elif abs(((u * 5 - abs(v) * 1.4) % 1.0) - 0.5) > 0.40:
                    shade -= 0.10
                shade *= mix(0.62, 1.0, smooth(0.0, 0.35, edge))
                self.put(px, py, tuple(ch * shade for ch in body), smooth(0.0, 0.12, edge))

    def limb(self, x0, y0, x1, y1, thick0, thick1, bark, bend=0.0, shade=1.0):
        """A branch with bark along it and light from the upper left."""
        steps = int(math.hypot(x1 - x0, y1 - y0) * 1.5) + 1
        for step in range(steps + 1):
            t = step / steps
            x = mix(x0, x1, t) + bend * math.sin(math.pi * t)
            y = mix(y0, y1, t)
            thick = mix(thick0, thick1, t)
            for off in range(-int(thick) - 1, int(thick) + 2):
                a = off / thick if thick else 0
                if abs(a) > 1:
                    continue
                steep = abs(y1 - y0) > abs(x1 - x0)
                px, py = (int(x + off), int(y)) if steep else (int(x), int(y + off))
                grain = bark[(py % SIDE) * SIDE + px % SIDE]
                light = (0.42 + 0.58 * math.sqrt(1 - a * a)) * (1.0 - 0.38 * a) * shade
                colour = mix3(BARK_DARK, BARK_LIGHT, grain * 1.3 - 0.15)
                self.put(px, py, tuple(ch * light for ch in colour))

    def pixels(self, alpha):
        if alpha:
            return [bytesOf(c, a) for c, a in zip(self.colour, self.cover)]
        return [bytesOf(c) for c in self.colour]


def hedge():
    """A clipped hedge with old stems in it, dense enough to be a wall."""
    random = Random(101)
    bulge = clouds(SIDE, SIDE, 5, 5, 3, 102)
    bark = clouds(SIDE, SIDE, 40, 6, 4, 103, 0.6)
    sheet = Sheet()
    for i in range(SIDE * SIDE):
        sheet.put(i % SIDE, i // SIDE, tuple(c * (0.5 + 0.6 * bulge[i]) for c in LEAF_DARK))
    for x, lean, thick in ((34, 12, 8), (92, -9, 6), (150, 7, 9), (214, -13, 7)):
        sheet.limb(x, 262, x + lean, 118, thick * 1.25, thick * 0.7, bark, random.uniform(-9, 9), 0.9)
        for _ in range(4):
            y = random.uniform(120, 215)
            out = random.choice((-1, 1)) * random.uniform(22, 46)
            sheet.limb(x + lean * 0.5, y, x + lean * 0.5 + out, y - random.uniform(20, 52),
                       thick * 0.45, 1.2, bark, 0, 0.75)
    for layer in range(3):
        for _ in range((620, 760, 820)[layer]):
            x, y = random.uniform(0, SIDE), random.uniform(-14, 262)
            lump = bulge[int(min(255, max(0, y))) * SIDE + int(x) % SIDE]
            bare = smooth(150, 250, y)
            if random.random() < bare * (0.45 + 0.35 * layer) + (0.55 - lump) * 0.9:
                continue
            tone = 0.10 + 0.16 * layer + (lump - 0.35) * 1.15 - 0.22 * bare
            tone += 0.14 * smooth(120, 0, y) + random.uniform(-0.10, 0.10)
            sheet.leaf(x, y, random.uniform(10, 17), random.uniform(3.0, 4.8),
                       random.gauss(math.pi / 2, 1.1), max(0.02, min(1.0, tone)))
    for _ in range(260):  # grass at its foot
        x = random.uniform(0, SIDE)
        height, lean = random.uniform(8, 24), random.uniform(-5, 5)
        for step in range(int(height)):
            t = step / height
            colour = mix3((0.05, 0.10, 0.04), (0.26, 0.42, 0.15), t)
            sheet.put(int(x + lean * t * t), SIDE - 1 - step, colour)
    for x, y in ((60, 74), (178, 50), (226, 128), (120, 148), (18, 150)):  # dog roses
        flower(sheet, x, y, 7.5, random.random(), (0.86, 0.70, 0.70), (0.88, 0.74, 0.30))
    return sheet.pixels(False)


def flower(sheet, x, y, size, turn, petal, heart):
    for py in range(int(y - size), int(y + size) + 1):
        for px in range(int(x - size), int(x + size) + 1):
            u, v = (px - x) / size, (py - y) / size
            d = math.hypot(u, v)
            lobes = 0.74 + 0.26 * abs(math.cos(2.5 * (math.atan2(v, u) + turn)))
            if d < lobes:
                if d < 0.26:
                    colour = tuple(c * (1.1 - d) for c in heart)
                else:
                    colour = tuple(c * (0.70 + 0.40 * d - 0.22 * v) for c in petal)
                sheet.put(px, py, colour, smooth(lobes, lobes - 0.15, d))


def gate():
    """An iron gate in an arch of leaves, with the ride beyond it in the mist."""
    random = Random(111)
    sheet = Sheet()
    mist = clouds(SIDE, SIDE, 4, 4, 4, 112)
    half, spring, foot = 70.0, 96.0, 256
    for y in range(SIDE):
        for x in range(SIDE):
            u = abs(x - SIDE / 2 + 0.5)
            inside = half - u if y >= spring else half - math.hypot(u, (spring - y))
            if inside <= -4:
                continue
            far = smooth(10, 78, math.hypot(x - SIDE / 2, (y - 150) * 0.8))
            colour = mix3((0.52, 0.70, 0.58), (0.03, 0.08, 0.06), far)
            colour = mix3(colour, (0.20, 0.34, 0.26), mist[y * SIDE + x] * 0.5)
            if y > 176:  # the ride, running away from the gate
                lane = abs(x - SIDE / 2) / (6 + (y - 176) * 0.75)
                ground = mix3((0.26, 0.30, 0.16), (0.08, 0.13, 0.06), smooth(0.7, 1.2, lane))
                colour = mix3(colour, ground, smooth(174, 190, y) * 0.9)
            sheet.put(x, y, tuple(c * 0.92 for c in colour))

    def iron(x, y, a):
        """A pixel of round bar: `a` runs from -1 to 1 across it."""
        light = 0.20 + 0.75 * math.sqrt(max(0.0, 1 - a * a)) * (0.62 - 0.5 * a)
        rust = mist[(y % SIDE) * SIDE + (x * 3) % SIDE]
        colour = mix3((0.23, 0.25, 0.26), (0.33, 0.25, 0.18), smooth(0.5, 0.66, rust))
        sheet.put(x, y, tuple(c * light * 1.5 for c in colour))

    def bar(x, top, bottom, thick):
        for y in range(int(top), bottom):
            for off in range(-int(thick), int(thick) + 1):
                if abs(off) <= thick:
                    iron(int(x + off), y, off / (thick + 0.3))

    def rail(y, x0, x1, thick):
        for x in range(int(x0), int(x1)):
            for off in range(-int(thick), int(thick) + 1):
                iron(x, int(y + off), off / (thick + 0.3))

    def scroll(cx, cy, size, way):
        for step in range(260):
            t = step / 259
            angle = t * 2.3 * 2 * math.pi
            r = size * (1 - t * 0.86)
            x, y = cx + way * math.cos(angle) * r, cy + math.sin(angle) * r
            for a in (-1.4, -0.7, 0, 0.7, 1.4):
                iron(int(x + math.cos(angle) * a), int(y + math.sin(angle) * a), a / 2)

    for k in range(-5, 6):
        x = SIDE / 2 + k * 12.4
        top = spring - math.sqrt(max(0.0, (half - 12) ** 2 - (k * 12.4) ** 2)) + 4
        bar(x, top, 252, 2 if k else 4)
        for step in range(13):  # a spear head on each bar
            width = 4.2 * math.sin(math.pi * (1 - step / 13) ** 0.8) + 0.4
            for off in range(-int(width), int(width) + 1):
                iron(int(x + off), int(top - 12 + step), off / (width + 0.3))
    for y in (104, 178, 240):
        rail(y, SIDE / 2 - half, SIDE / 2 + half, 3)
    for side in (-1, 1):
        for k in (0, 1):
            scroll(SIDE / 2 + side * (19 + 30 * k), 141, 15, side)
            scroll(SIDE / 2 + side * (19 + 30 * k), 210, 13, -side)
    for side in (-1, 1):  # posts
        for y in range(70, foot):
            for off in range(-9, 10):
                a = off / 9.5
                x = int(SIDE / 2 + side * (half + 4) + off)
                grain = mist[(y % SIDE) * SIDE + (x * 7) % SIDE]
                light = (0.35 + 0.65 * math.sqrt(max(0, 1 - a * a))) * (1 - 0.4 * a)
                sheet.put(x, y, tuple(c * light for c in mix3((0.22, 0.22, 0.19), (0.52, 0.50, 0.42),
                                                             grain)))
    for _ in range(640):  # the arch
        angle = random.uniform(math.pi, 2 * math.pi)
        r = half + 15 + random.gauss(0, 9)
        x, y = SIDE / 2 + math.cos(angle) * r, spring + math.sin(angle) * r * 1.02
        if random.random() < 0.34:
            side = random.choice((-1, 1))
            x, y = SIDE / 2 + side * (half + 16 + random.gauss(0, 6)), random.uniform(spring, 262)
            angle = math.pi if side < 0 else 0.0
        tone = 0.28 + random.uniform(-0.18, 0.24) - 0.3 * math.cos(angle - 0.9) * 0.5
        sheet.leaf(x, y, random.uniform(9, 15), random.uniform(2.8, 4.4), random.gauss(1.6, 1.2),
                   max(0.04, min(0.95, tone)))
    for _ in range(9):
        angle = random.uniform(math.pi * 1.05, math.pi * 1.95)
        r = half + 14 + random.uniform(-5, 6)
        flower(sheet, SIDE / 2 + math.cos(angle) * r, spring + math.sin(angle) * r,
               random.uniform(5, 7.5), random.random(), (0.88, 0.72, 0.70), (0.88, 0.74, 0.30))
    return sheet.pixels(True)


def grass():
    """Orchard grass with clover, windfalls and the ghost of a path."""
    random = Random(121)
    patch = clouds(SIDE, SIDE, 4, 4, 4, 122)
    soil = clouds(SIDE, SIDE, 16, 16, 4, 123)
    sheet = Sheet(True)
    for i in range(SIDE * SIDE):
        ground = mix3((0.08, 0.075, 0.04), (0.22, 0.19, 0.11), soil[i])
        sheet.put(i % SIDE, i // SIDE, mix3(ground, (0.07, 0.14, 0.05), smooth(0.3, 0.5, patch[i])))
    blades = sorted((random.uniform(0, SIDE), random.uniform(0, SIDE)) for _ in range(9500))
    blades.sort(key=lambda blade: blade[1])
    for x, y in blades:
        lush = patch[int(y) % SIDE * SIDE + int(x) % SIDE]
        if random.random() > smooth(0.28, 0.52, lush) + 0.12:
            continue
        height, lean = random.uniform(5, 12) * (0.5 + lush), random.uniform(-5, 5)
        tip = mix3((0.20, 0.38, 0.13), (0.50, 0.60, 0.24), random.random() * 0.7 + (lush - 0.5))
        for step in range(int(height)):
            t = step / height
            sheet.put(int(x + lean * t * t), int(y - step), mix3((0.05, 0.11, 0.04), tip, t))
    for _ in range(46):
        x, y = random.uniform(0, SIDE), random.uniform(0, SIDE)
        flower(sheet, x, y, random.uniform(2.2, 3.4), random.random(), (0.86, 0.86, 0.78),
               (0.86, 0.76, 0.24))
    for x, y in ((70, 190), (170, 66), (206, 214)):  # windfalls
        for py in range(-6, 7):
            for px in range(-6, 7):
                d = math.hypot(px, py) / 6.0
                if d < 1:
                    light = 0.45 + 0.65 * max(0.0, (-px * 0.4 - py * 0.6) / 6 + math.sqrt(1 - d * d) * 0.7)
                    colour = mix3((0.52, 0.14, 0.10), (0.62, 0.52, 0.16), smooth(-2, 4, px + py * 0.4))
                    sheet.put(x + px, y + py, tuple(c * light for c in colour), smooth(1.0, 0.82, d))
    return sheet.pixels(False)


def canopy():
    """Branches and leaves overhead, with holes where the green water shows."""
    random = Random(131)
    bulge = clouds(SIDE, SIDE, 4, 4, 3, 132)
    bark = clouds(SIDE, SIDE, 12, 12, 4, 133, 0.6)
    sheet = Sheet(True)
    for x0, y0, x1, y1, thick in ((-10, 40, 150, 120, 6), (150, 120, 266, 70, 4.5),
                                  (110, 266, 140, 110, 5.5), (40, -6, 70, 84, 4), (210, 260, 190, 150, 4),
                                  (70, 84, 20, 180, 3), (190, 150, 250, 196, 2.6)):
        sheet.limb(x0, y0, x1, y1, thick, thick * 0.6, bark, random.uniform(-10, 10), 0.7)
    for layer in range(2):
        for _ in range(1150):
            x, y = random.uniform(0, SIDE), random.uniform(0, SIDE)
            lump = bulge[int(y) % SIDE * SIDE + int(x) % SIDE]
            if lump < 0.41 + random.uniform(-0.05, 0.05):
                continue
            rim = smooth(0.56, 0.42, lump)  # leaves at a hole are lit through
            tone = 0.10 + 0.12 * layer + random.uniform(-0.07, 0.12) + 0.38 * rim
            sheet.leaf(x, y, random.uniform(12, 19), random.uniform(3.8, 5.8),
                       random.uniform(0, 2 * math.pi), min(0.9, tone), 0.28 * rim * random.random())
    return sheet.pixels(True)
