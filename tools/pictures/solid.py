"""Solid figures: shapes told by their signed distance, melted together, lit, and seen from the front.

A figure stands in a box from -1 to 1 in x (right), y (up) and z (towards the viewer); the camera
looks along -z and keeps parallels parallel. Each pixel's ray is marched through the shapes that can
meet it (sphere tracing: J. C. Hart, "Sphere Tracing", 1996; smooth unions: I. Quilez, "Smooth
Minimum", 2013). Light comes from the upper left, warm, with soft shadows; from the sky, cool; and
along the right edge from behind.
"""

import math
from random import Random

from field import mix3, smooth

KEY = (-0.52, 0.62, 0.585)
KEY_COLOUR = (1.16, 1.06, 0.90)
SKY_COLOUR, GROUND_COLOUR = (0.40, 0.46, 0.54), (0.20, 0.17, 0.14)
RIM_COLOUR = (0.50, 0.66, 0.74)
FAR = 1e9


def rotation(ax=0.0, ay=0.0, az=0.0):
    """The rows of a rotation: about x, then y, then z, in degrees."""
    a, b, c = (math.radians(angle) for angle in (ax, ay, az))
    ca, sa, cb, sb, cc, sc = (math.cos(a), math.sin(a), math.cos(b), math.sin(b), math.cos(c),
                              math.sin(c))
    return ((cc * cb, cc * sb * sa - sc * ca, cc * sb * ca + sc * sa),
            (sc * cb, sc * sb * sa + cc * ca, sc * sb * ca - cc * sa),
            (-sb, cb * sa, cb * ca))


class Shape:
    """A signed distance with the sphere that holds it."""

    def __init__(self, distance, centre, radius):
        self.distance = distance
        self.centre = centre
        self.radius = radius


def sphere(centre, radius):
    cx, cy, cz = centre
    sqrt = math.sqrt

    def distance(x, y, z):
        x -= cx
        y -= cy
        z -= cz
        return sqrt(x * x + y * y + z * z) - radius

    return Shape(distance, centre, radius)


def local(centre, turn):
    """The map from the figure into the axes of a turned shape; None where it is not turned."""
    if turn is None:
        return None
    (m00, m01, m02), (m10, m11, m12), (m20, m21, m22) = rotation(*turn)
    cx, cy, cz = centre

    def into(x, y, z):  # the transpose undoes the turn
        x -= cx
        y -= cy
        z -= cz
        return (m00 * x + m10 * y + m20 * z, m01 * x + m11 * y + m21 * z,
                m02 * x + m12 * y + m22 * z)

    return into


def turned(shape, centre, turn):
    """`shape`, made about the origin, put at `centre` and turned."""
    inner = shape.distance
    cx, cy, cz = centre
    into = local(centre, turn)
    if into is None:
        return Shape(lambda x, y, z: inner(x - cx, y - cy, z - cz), centre, shape.radius)
    return Shape(lambda x, y, z: inner(*into(x, y, z)), centre, shape.radius)


def ellipsoid(centre, radii, turn=None):
    rx, ry, rz = radii
    sqrt = math.sqrt

    def distance(x, y, z):
        x /= rx
        y /= ry
        z /= rz
        near = sqrt(x * x + y * y + z * z)
        x /= rx
        y /= ry
        z /= rz
        slope = sqrt(x * x + y * y + z * z)
        return near * (near - 1.0) / slope if slope > 1e-9 else -min(radii)

    return turned(Shape(distance, (0, 0, 0), max(radii)), centre, turn)


def box(centre, halves, edge=0.02, turn=None):
    hx, hy, hz = (half - edge for half in halves)
    sqrt = math.sqrt

    def distance(x, y, z):
        x = abs(x) - hx
        y = abs(y) - hy
        z = abs(z) - hz
        inside = x if x > y else y
        if z > inside:
            inside = z
        if inside <= 0.0:
            return inside - edge
        x = x if x > 0.0 else 0.0
        y = y if y > 0.0 else 0.0
        z = z if z > 0.0 else 0.0
        return sqrt(x * x + y * y + z * z) - edge

    return turned(Shape(distance, (0, 0, 0), math.dist((0, 0, 0), halves)), centre, turn)


def cylinder(centre, radius, half, edge=0.01, turn=None, top=None):
    """Upright, tapering to radius `top` where one is given."""
    narrow = radius if top is None else top
    sqrt = math.sqrt

    def distance(x, y, z):
        t = (y + half) / (2 * half)
        t = 0.0 if t < 0.0 else 1.0 if t > 1.0 else t
        out = sqrt(x * x + z * z) - (radius + (narrow - radius) * t) + edge
        up = abs(y) - half + edge
        if out <= 0.0 and up <= 0.0:
            return (out if out > up else up) - edge
        out = out if out > 0.0 else 0.0
        up = up if up > 0.0 else 0.0
        return sqrt(out * out + up * up) - edge

    return turned(Shape(distance, (0, 0, 0), math.hypot(max(radius, narrow), half)), centre, turn)


def torus(centre, radius, thick, turn=None):
    """A ring lying in x and y."""
    sqrt = math.sqrt

    def distance(x, y, z):
        ring = sqrt(x * x + y * y) - radius
        return sqrt(ring * ring + z * z) - thick

    return turned(Shape(distance, (0, 0, 0), radius + thick), centre, turn)


def capsule(a, b, thickA, thickB=None):
    """A rod from `a` to `b` with round ends, tapering."""
    thickB = thickA if thickB is None else thickB
    ax, ay, az = a
    bx, by, bz = b[0] - ax, b[1] - ay, b[2] - az
    length2 = bx * bx + by * by + bz * bz or 1e-9
    sqrt = math.sqrt

    def distance(x, y, z):
        x -= ax
        y -= ay
        z -= az
        t = (x * bx + y * by + z * bz) / length2
        t = 0.0 if t < 0.0 else 1.0 if t > 1.0 else t
        x -= bx * t
        y -= by * t
        z -= bz * t
        return sqrt(x * x + y * y + z * z) - thickA - (thickB - thickA) * t

    centre = tuple((p + q) / 2 for p, q in zip(a, b))
    return Shape(distance, centre, math.dist(a, b) / 2 + max(thickA, thickB))


def flat(outline, depth, centre=(0, 0, 0), turn=None, edge=0.01):
    """A plate cut along a closed outline of (x, y) points, `depth` thick to each side."""
    sides = list(zip(outline, outline[1:] + outline[:1]))
    sqrt = math.sqrt
    left, right = min(x for x, _ in outline), max(x for x, _ in outline)
    low, high = min(y for _, y in outline), max(y for _, y in outline)

    def distance(x, y, z):
        # well outside its box a plate is as near as the box, which is soon told
        up = abs(z) - depth
        out = max(left - x, x - right, low - y, y - high, up)
        if out > 0.06:
            return out
        best, inside = FAR, False
        for (ax, ay), (bx, by) in sides:
            ex, ey, wx, wy = bx - ax, by - ay, x - ax, y - ay
            t = (wx * ex + wy * ey) / (ex * ex + ey * ey)
            t = 0.0 if t < 0.0 else 1.0 if t > 1.0 else t
            dx, dy = wx - ex * t, wy - ey * t
            d = dx * dx + dy * dy
            if d < best:
                best = d
            if (ay > y) != (by > y) and wx < ex * wy / ey:
                inside = not inside
        out = (-sqrt(best) if inside else sqrt(best)) + edge
        up = abs(z) - depth + edge
        if out <= 0.0 and up <= 0.0:
            return (out if out > up else up) - edge
        out = out if out > 0.0 else 0.0
        up = up if up > 0.0 else 0.0
        return sqrt(out * out + up * up) - edge

    reach = max(math.hypot(x, y) for x, y in outline)
    return turned(Shape(distance, (0, 0, 0), math.hypot(reach, depth)), centre, turn)


class Noise3:
    """Value noise in space, 0 to 1."""

    def __init__(self, seed):
        random = Random(seed)
        self.values = [random.random() for _ in range(4096)]

    def __call__(self, x, y, z):
        ix, iy, iz = math.floor(x), math.floor(y), math.floor(z)
        fx, fy, fz = x - ix, y - iy, z - iz
        fx, fy, fz = fx * fx * (3 - 2 * fx), fy * fy * (3 - 2 * fy), fz * fz * (3 - 2 * fz)
        v = self.values
        x0, x1, y0, y1 = ix * 73, ix * 73 + 73, iy * 1619, iy * 1619 + 1619
        z0, z1 = iz * 311, iz * 311 + 311
        a, b = v[(x0 ^ y0 ^ z0) & 4095], v[(x0 ^ y1 ^ z0) & 4095]
        c, d = v[(x0 ^ y0 ^ z1) & 4095], v[(x0 ^ y1 ^ z1) & 4095]
        a += (v[(x1 ^ y0 ^ z0) & 4095] - a) * fx
        b += (v[(x1 ^ y1 ^ z0) & 4095] - b) * fx
        c += (v[(x1 ^ y0 ^ z1) & 4095] - c) * fx
        d += (v[(x1 ^ y1 ^ z1) & 4095] - d) * fx
        a += (b - a) * fy
        c += (d - c) * fy
        return a + (c - a) * fz


class Material:
    """What a surface is made of: two colours that noise mingles, and how it takes the light."""

    def __init__(self, dark, light, grain=6.0, bump=0.0, shine=0.0, polish=20.0, glow=0.0,
                 stretch=(1.0, 1.0, 1.0), rim=1.0):
        self.dark, self.light = dark, light
        self.grain, self.bump = grain, bump
        self.shine, self.polish, self.glow = shine, polish, glow
        self.stretch = stretch
        self.rim = rim


class Figure:
    """Shapes with their materials, in the order in which they melt together."""

    CARVE = -1.0  # in the place of the blend: the shape is taken away

    def __init__(self, seed=1):
        self.parts = []  # (shape, blend or CARVE, material), each working on what stands before it
        self.noise = Noise3(seed)

    def add(self, shape, material, blend=0.0):
        self.parts.append((shape, blend, material))
        return self

    def carve(self, shape, material):
        """Takes the shape out of all that is there so far; the hollow shows the material."""
        self.parts.append((shape, self.CARVE, material))
        return self

    def curve(self, points, thick, material, blend=0.03):
        """A limb through the points; `thick` is one radius a point."""
        for (a, ra), (b, rb) in zip(zip(points, thick), zip(points[1:], thick[1:])):
            self.add(capsule(a, b, ra, rb), material, blend)
        return self

    def render(self, width, height, extent=1.0, shadow=None):
        """Pixels with cover: one ray through the middle of each, and where it differs from its
        neighbours four more. `shadow`, (y, half width), lays a soft shadow on the ground there."""
        tracer = _Tracer(self)
        scale = 2.0 * extent / width

        def ray(column, row, line):
            return tracer.colour((column - width / 2) * scale, (height / 2 - row) * scale, line)

        def line_at(row):
            return tracer.line((height / 2 - row) * scale)

        middle = []
        for row in range(height):
            line = line_at(row + 0.5)
            middle.append([ray(column + 0.5, row + 0.5, line) for column in range(width)])
        pixels = []
        for row in range(height):
            quarters = [(part, line_at(row + part)) for part in (0.25, 0.75)]
            for column in range(width):
                hits = [middle[row][column]]
                if _differs(middle, column, row):
                    hits += [ray(column + part, row + down, line) for down, line in quarters
                             for part in (0.25, 0.75)]
                pixels.append(_blend(hits, shadow, (column + 0.5 - width / 2) * scale,
                                     (height / 2 - row - 0.5) * scale))
        return pixels


def _differs(rays, column, row):
    """A pixel of an edge: some neighbour is empty where it is not, or of quite another colour, or
    lies well before it or behind it."""
    here = rays[row][column]
    for x, y in ((column - 1, row), (column + 1, row), (column, row - 1), (column, row + 1)):
        if not (0 <= y < len(rays) and 0 <= x < len(rays[0])):
            continue
        there = rays[y][x]
        if (here is None) != (there is None):
            return True
        if here and there and (abs(here[3] - there[3]) > 0.05
                               or sum(abs(here[i] - there[i]) for i in range(3)) > 0.7):
            return True
    return False


def _blend(hits, shadow, x, y):
    found = [colour for colour in hits if colour]
    cover = len(found) / len(hits)
    dark = 0.0
    if shadow:
        away = math.hypot(x / shadow[1], (y - shadow[0]) / (shadow[1] * 0.16))
        dark = 0.62 * smooth(1.0, 0.15, away) * (1.0 - cover)
    if cover + dark <= 0.004:
        return (0, 0, 0, 0)
    weight = 255.0 / len(hits) / (cover + dark)
    return tuple(min(255, max(0, int(sum(colour[i] for colour in found) * weight + 0.5)))
                 for i in range(3)) + (int((cover + dark) * 255 + 0.5),)


class _Tracer:
    NEAR = 0.0022
    MARGIN = 0.10

    def __init__(self, figure):
        self.noise = figure.noise
        self.parts = figure.parts
        solid = [shape for shape, blend, _ in figure.parts if blend >= 0.0]
        self.zEnd = min(shape.centre[2] - shape.radius for shape in solid) - 0.01

    def line(self, y):
        """The parts that a line of pixels can meet."""
        return [part for part in self.parts
                if abs(part[0].centre[1] - y) < part[0].radius + max(0.0, part[1]) + self.MARGIN]

    @staticmethod
    def distance(parts, x, y, z):
        d = FAR
        for shape, blend, *_ in parts:
            e = shape(x, y, z)
            if blend < 0.0:
                if -e > d:
                    d = -e
            elif blend and e < d + blend:
                h = 0.5 + 0.5 * (d - e) / blend
                h = 0.0 if h < 0.0 else 1.0 if h > 1.0 else h
                d = d + (e - d) * h - blend * h * (1.0 - h) if d < FAR else e
            elif e < d:
                d = e
        return d

    @staticmethod
    def surface(parts, x, y, z):
        """The materials at a point, as (material, weight)."""
        d, found = FAR, []
        for shape, blend, material, *_ in parts:
            e = shape(x, y, z)
            if blend < 0.0:
                if -e > d - 0.004:
                    d, found = max(d, -e), [(material, 1.0)]
            elif blend and d < FAR and e < d + blend:
                h = 0.5 + 0.5 * (d - e) / blend
                h = 0.0 if h < 0.0 else 1.0 if h > 1.0 else h
                d = d + (e - d) * h - blend * h * (1.0 - h)
                found = [(m, w * (1.0 - h)) for m, w in found] + [(material, h)]
            elif e < d:
                d, found = e, [(material, 1.0)]
        return [(m, w) for m, w in found if w > 0.02]

    def colour(self, x, y, line):
        """What the ray through (x, y) meets, as (red, green, blue, z); None for nothing."""
        margin = self.MARGIN
        parts, top = [], -FAR
        for shape, blend, material in line:
            centre, radius = shape.centre, shape.radius
            reach = radius + margin + (blend if blend > 0.0 else 0.0)
            dx, dy = x - centre[0], y - centre[1]
            if dx * dx + dy * dy < reach * reach:
                parts.append((shape.distance, blend, material, centre, reach * reach))
                if blend >= 0.0 and centre[2] + radius + blend > top:
                    top = centre[2] + radius + blend
        if top == -FAR:
            return None
        distance = self.distance
        z = top + 0.02
        for _ in range(90):
            d = distance(parts, x, y, z)
            if d < self.NEAR:
                close = [part for part in parts
                         if (part[3][0] - x) ** 2 + (part[3][1] - y) ** 2 + (part[3][2] - z) ** 2
                         < part[4]]
                return self.shade(close, x, y, z)
            z -= d * 0.82 + 0.0006
            if z < self.zEnd:
                return None
        return None

    def shade(self, parts, x, y, z):
        distance = self.distance
        e = 0.006
        a = distance(parts, x + e, y - e, z - e)
        b = distance(parts, x - e, y - e, z + e)
        c = distance(parts, x - e, y + e, z - e)
        d = distance(parts, x + e, y + e, z + e)
        nx, ny, nz = a - b - c + d, -a - b + c + d, -a + b - c + d
        length = math.sqrt(nx * nx + ny * ny + nz * nz) or 1.0
        nx, ny, nz = nx / length, ny / length, nz / length
        found = self.surface(parts, x, y, z)
        base, shine, polish, glow, bump, rim = (0.0, 0.0, 0.0), 0.0, 20.0, 0.0, 0.0, 0.0
        noise = self.noise
        best = -1.0
        for material, weight in found:
            sx, sy, sz = (s * material.grain for s in material.stretch)
            t = noise(x * sx, y * sy, z * sz) * 0.65 + noise(x * sx * 2.3, y * sy * 2.3,
                                                            z * sz * 2.3) * 0.35
            tone = mix3(material.dark, material.light, smooth(0.2, 0.8, t))
            base = tuple(p + q * weight for p, q in zip(base, tone))
            shine += material.shine * weight
            glow += material.glow * weight
            rim += material.rim * weight
            if weight > best:
                best, polish, bump, main = weight, material.polish, material.bump, material
        if bump:
            sx, sy, sz = (s * main.grain * 1.7 for s in main.stretch)
            h = 0.35
            at = noise(x * sx, y * sy, z * sz)
            gx = noise(x * sx + h, y * sy, z * sz) - at
            gy = noise(x * sx, y * sy + h, z * sz) - at
            gz = noise(x * sx, y * sy, z * sz + h) - at
            nx, ny, nz = nx - gx * bump, ny - gy * bump, nz - gz * bump
            length = math.sqrt(nx * nx + ny * ny + nz * nz) or 1.0
            nx, ny, nz = nx / length, ny / length, nz / length
        hidden = 0.0
        for step in (0.02, 0.05, 0.09):
            near = distance(parts, x + nx * step, y + ny * step, z + nz * step)
            hidden += max(0.0, step - near) * (0.55 / step)
        open_ = max(0.22, 1.0 - hidden * 0.55)
        kx, ky, kz = KEY
        facing = nx * kx + ny * ky + nz * kz
        key = 0.0
        if facing > 0.0:
            key = facing * self.lit(x + nx * 0.012, y + ny * 0.012, z + nz * 0.012)
        hx, hy, hz = kx, ky, kz + 1.0
        half = max(0.0, (nx * hx + ny * hy + nz * hz) / math.sqrt(hx * hx + hy * hy + hz * hz))
        gleam = shine * half ** polish * (0.25 + 0.75 * (key > 0.0)) * open_
        sky = 0.5 + 0.5 * ny
        edge = (1.0 - max(0.0, nz)) ** 3 * smooth(-0.2, 0.7, nx * 0.8 + ny * 0.35) * 0.55 * rim
        out = []
        for i in range(3):
            ambient = (GROUND_COLOUR[i] + (SKY_COLOUR[i] - GROUND_COLOUR[i]) * sky) * open_
            light = ambient + KEY_COLOUR[i] * key + RIM_COLOUR[i] * edge
            out.append(base[i] * (light * (1.0 - glow) + glow * 1.25)
                       + gleam * KEY_COLOUR[i] + RIM_COLOUR[i] * edge * 0.16)
        out.append(z)
        return out

    def lit(self, x, y, z):
        """How much of the key light reaches a point, 0 to 1."""
        kx, ky, kz = KEY
        parts = []
        for shape, blend, material in self.parts:
            cx, cy, cz = shape.centre
            cx, cy, cz = cx - x, cy - y, cz - z
            along = cx * kx + cy * ky + cz * kz
            reach = shape.radius + 0.03
            if along > -reach and cx * cx + cy * cy + cz * cz - along * along < reach * reach:
                parts.append((shape.distance, min(blend, 0.0), material))
        if not parts:
            return 1.0
        t, light = 0.02, 1.0
        for _ in range(14):
            d = self.distance(parts, x + kx * t, y + ky * t, z + kz * t)
            if d < 0.001:
                return 0.0
            light = min(light, 9.0 * d / t)
            t += max(0.014, d)
            if t > 1.2:
                break
        return light
