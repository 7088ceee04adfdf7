"""Backgrounds: what stands behind a fight, and the sky of the orchard."""

import math
from random import Random

from field import bytesOf, clouds, mix, mix3, smooth
from masonry import SIDE

WIDTH, HEIGHT = 320, 240


class Texture:
    """A square texture to be looked up at any point, smoothly; it repeats."""

    def __init__(self, pixels):
        self.pixels = pixels

    def at(self, u, v):
        x, y = (u % 1.0) * SIDE, (v % 1.0) * SIDE
        ix, iy = int(x), int(y)
        fx, fy = x - ix, y - iy
        p = self.pixels

        def texel(px, py):
            return p[(py % SIDE) * SIDE + px % SIDE]

        a, b = texel(ix, iy), texel(ix + 1, iy)
        c, d = texel(ix, iy + 1), texel(ix + 1, iy + 1)
        return tuple(mix(mix(a[i], b[i], fx), mix(c[i], d[i], fx), fy) / 255.0 for i in range(3))


def hall(wall, floor, ceiling, mist, lamp, openAir=None):
    """Down a hall two cells wide that ends in the mist; `lamp` is the colour of the light in the
    middle. `openAir(x, y)` gives the sky where there is no ceiling."""
    wall, floor = Texture(wall), Texture(floor)
    ceiling = Texture(ceiling) if ceiling else None
    half, eye, top, back = 1.35, 0.55, 0.80, 7.5
    pixels = []
    for row in range(HEIGHT):
        for column in range(WIDTH):
            sum_ = [0.0, 0.0, 0.0]
            for dx, dy in ((0.25, 0.3), (0.75, 0.7)):
                x = (column + dx - WIDTH / 2) / (WIDTH * 0.42)
                y = (HEIGHT * 0.46 - row - dy) / (WIDTH * 0.42)
                toFloor = eye / -y if y < 0 else 1e9
                toTop = top / y if y > 0 and ceiling else 1e9
                toWall = half / abs(x) if x else 1e9
                z = min(toFloor, toTop, toWall, back)
                px, py = x * z, y * z
                if z == toFloor:
                    colour = floor.at(px * 0.75 + 0.5, -z * 0.75)
                elif z == toTop:
                    colour = ceiling.at(px * 0.75 + 0.5, -z * 0.75)
                elif z == toWall:
                    if openAir and py > top:
                        colour = openAir(column, row)
                        z = 0.0
                    else:
                        colour = wall.at(z * 0.74, 1.0 - (py + eye) / (eye + top))
                elif openAir and py > -0.16:
                    colour = openAir(column, row)
                    z = 0.0
                else:
                    colour = mist
                far = smooth(0.8, back, z) if z else 0.0
                shine = 0.46 + 0.62 * smooth(5.5, 0.5, abs(z - 2.1)) if z else 1.0
                lit = tuple(c * shine * (1.0 - far * 0.55) + l * 0.10 * smooth(2.6, 0.2, abs(z - 2.3))
                            for c, l in zip(colour, lamp)) if z else colour
                mixed = mix3(lit, mist, far * 0.85)
                for i in range(3):
                    sum_[i] += mixed[i] * 0.5
            edge = 1.0 - 0.30 * smooth(0.55, 1.05, math.hypot((column - 160) / 190, (row - 120) / 150))
            pixels.append(bytesOf([c * edge for c in sum_]))
    return pixels


def cloister():
    import masonry
    return hall(masonry.crypt_wall(), masonry.crypt_floor(), masonry.crypt_ceiling(), (0.05, 0.08, 0.085),
                (0.55, 0.75, 0.75))


def ossuary():
    import bones
    import masonry
    return hall(bones.ossuary_wall(), bones.ossuary_floor(), masonry.ossuary_ceiling(), (0.07, 0.045, 0.03),
                (1.0, 0.65, 0.35))


def orchard():
    import garden
    sky = mere()
    return hall(garden.hedge(), garden.grass(), None, (0.24, 0.44, 0.40), (0.6, 0.9, 0.8),
                lambda x, y: tuple(c / 255.0 for c in sky[y * WIDTH + x]))


def mere():
    """The green underside of the lake: light in shafts, the hull of a boat, and trees at the rim."""
    random = Random(161)
    net = clouds(512, 512, 10, 14, 4, 162)
    haze = clouds(512, 512, 5, 5, 4, 163)
    leaves = clouds(512, 512, 40, 40, 3, 164)
    shafts = [(random.uniform(-0.35, 1.35), random.uniform(0.02, 0.07), random.uniform(0.35, 1.0)) for _ in range(15)]
    trees = []
    x = -10.0
    while x < WIDTH + 10:
        trees.append((x, random.uniform(24, 62), random.uniform(14, 30)))
        x += random.uniform(9, 22)
    pixels = []
    for row in range(HEIGHT):
        v = row / HEIGHT
        for column in range(WIDTH):
            u = column / WIDTH
            deep = mix3((0.46, 0.72, 0.62), (0.05, 0.20, 0.19), smooth(-0.1, 0.78, v))
            # the surface far above: ripples that shrink toward the horizon
            scale = 1.0 / (0.10 + v * 1.3)
            i = int((u - 0.5) * 330 * scale * 0.55 + 256) % 512 + int(170 * scale) % 512 * 512
            ripple = smooth(0.075, 0.0, abs(net[i] - 0.5)) * smooth(0.62, 0.0, v)
            colour = mix3(deep, (0.86, 0.98, 0.84), ripple * 0.62)
            glow = 0.0
            for at, wide, strength in shafts:
                away = abs(u - (0.5 + (at - 0.5) * (0.45 + v * 0.95)))
                glow += strength * smooth(wide * (0.5 + v), 0.0, away)
            colour = mix3(colour, (0.74, 0.94, 0.78), min(0.5, glow * 0.20 * smooth(0.95, 0.1, v)))
            colour = tuple(c * (0.86 + 0.28 * haze[(row * 2 % 512) * 512 + column]) for c in colour)
            # a boat, from below
            hull = math.hypot((u - 0.66) / 0.115, (v - 0.145) / 0.030)
            if hull < 1.12:
                side = 0.16 + 0.10 * (1 - hull) + 0.10 * smooth(0.03, 0.0, abs(v - 0.150))
                colour = mix3(colour, (side * 0.8, side, side * 0.85), smooth(1.12, 0.95, hull) * 0.85)
            if 0.0 < u - 0.60 < 0.13 and abs(v - 0.145 - (u - 0.60) * 0.55) < 0.004:
                colour = mix3(colour, (0.10, 0.16, 0.14), 0.7)
            # trees at the rim, two ranks
            for rank, (tint, base, grow) in enumerate((((0.10, 0.30, 0.26), 168, 0.8),
                                                       ((0.035, 0.13, 0.10), 196, 1.15))):
                rim = base
                for centre, tall, wide in trees:
                    centre = centre + rank * 7
                    d = abs(column - centre) / (wide * grow)
                    if d < 1:
                        leaf = leaves[row % 512 * 512 + (column + rank * 91) % 512]
                        rim = min(rim, base - tall * grow * math.sqrt(1 - d * d) - (leaf - 0.5) * 34)
                if row > rim:
                    colour = mix3(colour, tint, smooth(0, 3, row - rim) * (0.72 if rank == 0 else 0.95))
            pixels.append(bytesOf(colour))
    return pixels
