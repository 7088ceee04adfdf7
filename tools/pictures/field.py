"""Scalar fields on a torus, the stuff textures are made of.

A field is a flat list of floats, row by row, of a known width and height. All of them wrap, so what
is made of them tiles. Everything is a function of its arguments and a seed.
"""

import math
from random import Random


def smooth(low, high, value):
    """0 below `low`, 1 above `high`, a smooth step between."""
    t = min(1.0, max(0.0, (value - low) / (high - low)))
    return t * t * (3.0 - 2.0 * t)


def mix(a, b, t):
    return a + (b - a) * t


def mix3(a, b, t):
    return (a[0] + (b[0] - a[0]) * t, a[1] + (b[1] - a[1]) * t, a[2] + (b[2] - a[2]) * t)


def noise(width, height, cellsX, cellsY, seed):
    """Value noise of so many lattice cells across and down, 0 to 1."""
    random = Random(seed)
    lattice = [[random.random() for _ in range(cellsX)] for _ in range(cellsY)]
    columns = []
    for x in range(width):
        at = x * cellsX / width
        cell = int(at)
        t = at - cell
        columns.append((cell % cellsX, (cell + 1) % cellsX, t * t * (3.0 - 2.0 * t)))
    field = []
    for y in range(height):
        at = y * cellsY / height
        cell = int(at)
        t = at - cell
        t = t * t * (3.0 - 2.0 * t)
        upper, lower = lattice[cell % cellsY], lattice[(cell + 1) % cellsY]
        blend = [a + (b - a) * t for a, b in zip(upper, lower)]
        field += [blend[a] + (blend[b] - blend[a]) * s for a, b, s in columns]
    return field


def clouds(width, height, cellsX, cellsY, octaves, seed, gain=0.5):
    """Noise summed over octaves, each twice as fine and `gain` times as strong; about 0 to 1."""
    total = [0.0] * (width * height)
    strength, sum_ = 1.0, 0.0
    for octave in range(octaves):
        layer = noise(width, height, cellsX << octave, cellsY << octave, seed * 31 + octave)
        total = [a + b * strength for a, b in zip(total, layer)]
        sum_ += strength
        strength *= gain
    return [value / sum_ for value in total]


def blurred(field, width, height, radius, rounds=2):
    """A box blur, repeated until it is nearly round."""
    span = 2 * radius + 1
    for _ in range(rounds):
        rows = []
        for y in range(height):
            row = field[y * width:(y + 1) * width]
            sum_ = sum(row[x % width] for x in range(-radius, radius + 1))
            out = []
            for x in range(width):
                out.append(sum_ / span)
                sum_ += row[(x + radius + 1) % width] - row[(x - radius) % width]
            rows.append(out)
        sums = [sum(rows[y % height][x] for y in range(-radius, radius + 1)) for x in range(width)]
        field = []
        for y in range(height):
            field += [value / span for value in sums]
            enter, leave = rows[(y + radius + 1) % height], rows[(y - radius) % height]
            sums = [value + a - b for value, a, b in zip(sums, enter, leave)]
    return field


def lit(height, width, rows, light=(-0.45, -0.62, 0.64), steepness=1.0):
    """How brightly each point of a height field is lit by a far light, 0 to 1. Heights are in
    pixels; `steepness` exaggerates them."""
    lx, ly, lz = light
    length = math.sqrt(lx * lx + ly * ly + lz * lz)
    lx, ly, lz = lx / length, ly / length, lz / length
    out = []
    for y in range(rows):
        above = ((y - 1) % rows) * width
        here = y * width
        below = ((y + 1) % rows) * width
        for x in range(width):
            nx = (height[here + (x - 1) % width] - height[here + (x + 1) % width]) * 0.5 * steepness
            ny = (height[above + x] - height[below + x]) * 0.5 * steepness
            dot = (nx * lx + ny * ly + lz) / math.sqrt(nx * nx + ny * ny + 1.0)
            out.append(dot if dot > 0.0 else 0.0)
    return out


def sheltered(height, width, rows, radius, depth):
    """How open each point lies to the sky, 0 to 1: hollows narrower than the radius are dark.
    `depth` is the height below its surroundings at which a point is fully dark."""
    around = blurred(height, width, rows, radius)
    return [min(1.0, max(0.0, 1.0 - (mean - here) / depth)) for here, mean in zip(height, around)]


def bytesOf(colour, alpha=None):
    """A pixel of channels 0 to 1, rounded and limited."""
    pixel = tuple(min(255, max(0, int(value * 255.0 + 0.5))) for value in colour)
    return pixel if alpha is None else pixel + (min(255, max(0, int(alpha * 255.0 + 0.5))),)
