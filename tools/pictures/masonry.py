"""Textures of the priory: walls, doors, floors and ceilings of stone and of bone."""

import math
from random import Random

from field import bytesOf, clouds, lit, mix, mix3, noise, sheltered, smooth

SIDE = 256


class Courses:
    """A wall of blocks laid in courses, told by how far inside its block a point lies."""

    def __init__(self, heights, widths, seed, wander=3.0):
        random = Random(seed)
        self.rows = []
        top = 0
        for height in heights:
            edges, x = [], random.randrange(SIDE)
            start = x
            while x < start + SIDE - widths[0] * 0.6:
                edges.append(x)
                x += random.randrange(*widths)
            blocks = []
            for i, left in enumerate(edges):
                right = edges[i + 1] if i + 1 < len(edges) else start + SIDE
                blocks.append((left, right, random.random(), random.uniform(-1, 1),
                               random.uniform(-1, 1)))
            self.rows.append((top, top + height, blocks))
            top += height
        self.wanderX = clouds(SIDE, SIDE, 10, 10, 2, seed + 1)
        self.wanderY = clouds(SIDE, SIDE, 10, 10, 2, seed + 2)
        self.wander = wander

    def at(self, x, y):
        """(distance to the block's edge, shade 0 to 1, tilt) of a pixel."""
        i = y * SIDE + x
        px = x + (self.wanderX[i] - 0.5) * 2 * self.wander
        py = (y + (self.wanderY[i] - 0.5) * 2 * self.wander) % SIDE
        for top, bottom, blocks in self.rows:
            if top <= py < bottom:
                break
        for left, right, shade, tiltX, tiltY in blocks:
            at = (px - left) % SIDE
            if at < right - left:
                break
        inside = min(at, right - left - at, py - top, bottom - py)
        corner = max(0.0, 6.0 - at) + max(0.0, 6.0 - (right - left - at))
        if corner > 0 and min(py - top, bottom - py) < 6:  # worn corners
            inside -= corner * (6.0 - min(py - top, bottom - py)) * 0.05
        tilt = tiltX * (at / (right - left) - 0.5) + tiltY * ((py - top) / (bottom - top) - 0.5)
        return inside, shade, tilt


def block_heights(courses, roughness, joint=6.0, bevel=7.0):
    """Height field and shade field of a wall of blocks."""
    height, shade = [], []
    for y in range(SIDE):
        for x in range(SIDE):
            inside, tone, tilt = courses.at(x, y)
            body = smooth(0.5, bevel, inside)
            height.append(body * joint + body * (roughness[y * SIDE + x] * 5.0 + tilt * 2.2))
            shade.append((inside, tone))
    return height, shade


def crypt_wall():
    """Ashlar under an old tide mark: dry above, wet and green below."""
    rough = clouds(SIDE, SIDE, 12, 12, 4, 11, 0.6)
    pits = noise(SIDE, SIDE, 64, 64, 12)
    rough = [r - max(0.0, p - 0.82) * 2.2 for r, p in zip(rough, pits)]
    height, shade = block_heights(Courses((40, 46, 38, 48, 42, 42), (50, 92), 5), rough, 4.0, 4.5)
    light = lit(height, SIDE, SIDE, steepness=0.9)
    open_ = sheltered(height, SIDE, SIDE, 4, 9.0)
    stain = clouds(SIDE, SIDE, 26, 3, 3, 13)
    blotch = clouds(SIDE, SIDE, 4, 4, 4, 14)
    tide = clouds(SIDE, SIDE, 6, 1, 3, 15)
    grain = noise(SIDE, SIDE, 128, 128, 16)
    pixels = []
    for y in range(SIDE):
        corridor = 1.0 - 0.34 * smooth(0.78, 1.0, y / SIDE) - 0.26 * smooth(0.20, 0.0, y / SIDE)
        for x in range(SIDE):
            i = y * SIDE + x
            inside, tone = shade[i]
            stone = mix3((0.45, 0.45, 0.42), (0.70, 0.66, 0.57), tone * 0.6 + blotch[i] * 0.7 - 0.15)
            stone = tuple(c * (0.88 + 0.24 * grain[i]) for c in stone)
            if inside < 2.4:
                stone = mix3((0.34, 0.33, 0.28), stone, smooth(0.4, 2.4, inside))
            stone = mix3(stone, (0.31, 0.31, 0.25), smooth(0.52, 0.74, stain[i]) * 0.6)
            level = y - 150 - (tide[x] - 0.5) * 26
            wet = smooth(-3.0, 5.0, level)
            algae = wet * smooth(0.40, 0.66, blotch[i] * 0.5 + rough[i] * 0.35 + (4 - inside) * 0.02
                                 + level / 900)
            stone = mix3(stone, (0.62, 0.61, 0.54), smooth(-7, -2, level) * (1 - wet) * 0.4)
            stone = mix3(stone, tuple(c * f for c, f in zip(stone, (0.58, 0.68, 0.66))), wet)
            weed = mix3((0.13, 0.22, 0.12), (0.34, 0.42, 0.20), rough[i] * 1.3 - 0.2)
            stone = mix3(stone, weed, algae * 0.72)
            glint = wet * max(0.0, light[i] - 0.80) * 1.6
            shine = (0.34 + 1.0 * light[i]) * (0.5 + 0.5 * open_[i]) * corridor
            pixels.append(bytesOf([c * shine + glint * g
                                   for c, g in zip(stone, (0.5, 0.62, 0.62))]))
    return pixels


def crypt_floor():
    """Flagstones with water standing in the low ones."""
    rough = clouds(SIDE, SIDE, 10, 10, 4, 21, 0.55)
    height, shade = block_heights(Courses((64, 58, 70, 64), (56, 104), 9, 4.0), rough, 5.0, 6.0)
    pool = clouds(SIDE, SIDE, 4, 4, 4, 22)
    ripple = clouds(SIDE, SIDE, 16, 24, 2, 23)
    water = [smooth(0.50, 0.60, p - tone * 0.10 + (0.07 if inside < 4 else 0.0))
             for p, (inside, tone) in zip(pool, shade)]
    surface = [mix(h, 3.0 + r * 1.2, w) for h, r, w in zip(height, ripple, water)]
    light = lit(surface, SIDE, SIDE, steepness=0.8)
    open_ = sheltered(height, SIDE, SIDE, 5, 10.0)
    grain = noise(SIDE, SIDE, 128, 128, 24)
    pixels = []
    for i in range(SIDE * SIDE):
        inside, tone = shade[i]
        stone = mix3((0.33, 0.33, 0.30), (0.47, 0.44, 0.38), tone * 0.8 + rough[i] * 0.3)
        stone = tuple(c * (0.86 + 0.28 * grain[i]) for c in stone)
        if inside < 3.0:
            stone = mix3((0.15, 0.16, 0.12), stone, smooth(0.0, 3.0, inside))
        shine = (0.28 + 0.9 * light[i]) * (0.5 + 0.5 * open_[i])
        dry = [c * shine for c in stone]
        glint = max(0.0, light[i] - 0.66) * 1.3
        wet = [c * 0.42 * f + glint * g
               for c, f, g in zip(stone, (0.75, 0.98, 1.0), (0.55, 0.72, 0.74))]
        pixels.append(bytesOf(mix3(dry, wet, water[i])))
    return pixels


def vault(seed, warm, courses, ribs):
    """A ceiling seen from below: webs of small stones, and ribs from corner to corner."""
    rough = clouds(SIDE, SIDE, 12, 12, 4, seed, 0.55)
    height, shade = block_heights(courses, rough, 3.5, 5.0)
    ribbed = []
    for y in range(SIDE):
        for x in range(SIDE):
            i = y * SIDE + x
            u, v = x - SIDE / 2 + 0.5, y - SIDE / 2 + 0.5
            away = min(abs(u - v), abs(u + v)) / math.sqrt(2.0)
            edge = min(x, y, SIDE - 1 - x, SIDE - 1 - y)
            away = min(away, edge + 3.0)
            boss = math.hypot(u, v)
            rib = math.sqrt(max(0.0, 1.0 - (away / 13.0) ** 2)) * 15.0 if ribs else 0.0
            rib -= 3.0 * smooth(3.0, 1.0, abs(away - 8.0)) * (1 if rib > 0 else 0)
            knob = 24.0 * math.sqrt(max(0.0, 1.0 - (boss / 25.0) ** 2)) if ribs else 0.0
            if knob > 0:  # a rosette of eight leaves
                knob += 2.2 * math.cos(8 * math.atan2(v, u)) * smooth(4, 18, boss)
            dome = -24.0 * (min(1.0, max(abs(u), abs(v)) / 128.0)) ** 2
            ribbed.append((max(height[i], rib, knob) + dome, rib > height[i] or knob > height[i]))
    light = lit([h for h, _ in ribbed], SIDE, SIDE, (-0.3, 0.66, 0.69), 0.8)
    open_ = sheltered([h for h, _ in ribbed], SIDE, SIDE, 7, 12.0)
    blotch = clouds(SIDE, SIDE, 4, 4, 4, seed + 3)
    grain = noise(SIDE, SIDE, 128, 128, seed + 4)
    pixels = []
    for i in range(SIDE * SIDE):
        inside, tone = shade[i]
        stone = mix3(warm[0], warm[1], tone * 0.6 + blotch[i] * 0.5)
        if ribbed[i][1]:
            stone = tuple(c * 1.12 for c in warm[1])
        elif inside < 2.5:
            stone = mix3(warm[2], stone, smooth(0.0, 2.5, inside))
        stone = tuple(c * (0.88 + 0.24 * grain[i]) for c in stone)
        shine = (0.26 + 0.86 * light[i]) * (0.42 + 0.58 * open_[i])
        pixels.append(bytesOf([c * shine for c in stone]))
    return pixels


def crypt_ceiling():
    return vault(31, ((0.31, 0.31, 0.29), (0.46, 0.44, 0.39), (0.14, 0.14, 0.12)),
                 Courses((26, 25, 26, 25, 26, 26, 25, 26, 26, 25), (34, 60), 33, 2.0), True)


def ossuary_ceiling():
    return vault(41, ((0.30, 0.25, 0.19), (0.44, 0.37, 0.27), (0.13, 0.10, 0.07)),
                 Courses((20, 21, 22, 21, 22, 21, 22, 21, 22, 21, 22, 21), (28, 46), 43, 2.0), False)


def arch(x, y, half, spring, centre=SIDE / 2):
    """Signed distance into a pointed arch of that half width, springing at `spring`: above zero
    inside. Its two circles are struck from the opposite feet (an equilateral arch)."""
    u = abs(x - centre + 0.5)
    if y >= spring:
        return half - u
    return 2 * half - math.hypot(u + half, spring - y)


def crypt_door():
    """Oak planks and iron in a moulded arch; all else lets the wall through."""
    half, spring = 78.0, 128.0
    grain = clouds(SIDE, SIDE, 40, 3, 4, 51, 0.6)
    knots = clouds(SIDE, SIDE, 8, 5, 2, 52)
    wear = clouds(SIDE, SIDE, 6, 6, 4, 53)
    heights, kinds = [], []
    planks = 6
    for y in range(SIDE):
        for x in range(SIDE):
            i = y * SIDE + x
            depth = arch(x, y, half, spring)
            ring = arch(x, y, half + 22, spring)
            if depth <= 0:
                moulding = (22 + depth) / 22 if ring > 0 else 0.0
                profile = 10.0 + 5.0 * math.sin(moulding * math.pi * 2.2)
                voussoir = math.atan2(spring - y, abs(x - SIDE / 2)) * 9 if y < spring else y / 30
                joint = abs(voussoir - round(voussoir))
                profile -= 4.0 * smooth(0.07, 0.0, joint)
                heights.append(profile + grain[i] if ring > 0 else 0.0)
                kinds.append("ring" if ring > 0 else "")
                continue
            # iron: two straps, a ring, studs
            iron = 0.0
            for strapY in (112, 196):
                fromHinge = x - (SIDE / 2 - half)
                reach = 128 - abs(y - strapY) * 0.6
                thick = 7.5 - fromHinge * 0.022
                curl = math.hypot(x - (SIDE / 2 + 48), abs(y - strapY) - 9)
                if abs(y - strapY) < thick and 2 < fromHinge < reach:
                    iron = 4.0 * (1 - (abs(y - strapY) / thick) ** 4)
                    if math.hypot((fromHinge % 32) - 16, y - strapY) < 3.4:
                        iron += 2.4
                elif 4.5 < curl < 9.5 and x > SIDE / 2 + 44:
                    iron = 3.2 * (1 - ((curl - 7) / 2.5) ** 2)
            knocker = math.hypot(x - (SIDE / 2 + 46), y - 156)
            if 8.5 < knocker < 14:
                iron = max(iron, 4.5 * (1 - ((knocker - 11.2) / 2.8) ** 2))
            if math.hypot(x - (SIDE / 2 + 46), y - 144) < 5:
                iron = max(iron, 5.0)
            plank = (x - SIDE / 2 + half) * planks / (2 * half)
            groove = min(plank % 1.0, 1.0 - plank % 1.0) * (2 * half / planks)
            wood = 4.0 * smooth(0.0, 4.0, groove) + grain[i] * 3.2 - 3 * smooth(0.1, 0.0, abs(
                grain[i] - 0.5) * 2)
            recess = -10.0 + min(depth, 3.0)
            heights.append(recess + max(wood, wood * 0.2 + 4 + iron if iron > 0 else wood))
            kinds.append("iron" if iron > 0 else f"wood{int(plank)}")
    light = lit(heights, SIDE, SIDE, steepness=0.7)
    open_ = sheltered(heights, SIDE, SIDE, 6, 14.0)
    pixels = []
    for y in range(SIDE):
        corridor = 1.0 - 0.38 * smooth(0.75, 1.0, y / SIDE) - 0.2 * smooth(0.2, 0.0, y / SIDE)
        for x in range(SIDE):
            i = y * SIDE + x
            kind = kinds[i]
            shine = (0.28 + 0.95 * light[i]) * (0.4 + 0.6 * open_[i]) * corridor
            if not kind:
                shadow = smooth(-9.0, 0.0, arch(x, y, half + 22, spring)) * 0.55
                pixels.append(bytesOf((0.03, 0.03, 0.02), shadow))
                continue
            if kind == "ring":
                colour = mix3((0.42, 0.41, 0.36), (0.58, 0.55, 0.47), grain[i] + wear[i] * 0.4 - 0.2)
                colour = mix3(colour, (0.22, 0.30, 0.22), smooth(0.55, 0.75, wear[i] + y / 900) * 0.6)
            elif kind == "iron":
                colour = mix3((0.20, 0.21, 0.22), (0.36, 0.24, 0.15), smooth(0.5, 0.7, wear[i]))
                shine += max(0.0, light[i] - 0.78) * 1.2
            else:
                tone = (int(kind[4:]) * 0.37) % 1.0
                colour = mix3((0.27, 0.17, 0.10), (0.44, 0.29, 0.17),
                              0.45 * tone + grain[i] * 0.7 - 0.1)
                colour = mix3(colour, (0.17, 0.11, 0.07), smooth(0.62, 0.74, knots[i]) * 0.6)
                colour = mix3(colour, (0.19, 0.25, 0.16),
                              smooth(0.70, 1.0, y / SIDE) * smooth(0.4, 0.6, wear[i]) * 0.8)
                depth = arch(x, y, half, spring)
                shine *= mix(0.35, 1.0, smooth(0.0, 10.0, depth))
            pixels.append(bytesOf([c * shine for c in colour], 1.0))
    return pixels
