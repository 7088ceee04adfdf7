"""The strips of the plan view, drawn pixel by pixel: wall kinds, floor tiles, event tiles. And the
skin of the game's windows."""

from random import Random

CELL = 16
CLEAR = (0, 0, 0, 0)

INK = (44, 42, 38, 255)
PAPER = (252, 251, 247, 255)
DOOR = (150, 92, 40, 255)
SECRET = (176, 42, 48, 255)
HALF = (122, 74, 160, 255)
UNSEEN = (24, 128, 132, 255)
SHUTTER = (40, 92, 176, 255)


class Tile:
    """A square of pixels. Drawn as a level edge, whose south is down; `turned` makes of it the
    upright edge of the same kind, whose west is left: so that the side that is south-west, and the
    side that is north-east, stay what they are."""

    def __init__(self):
        self.pixels = [[CLEAR] * CELL for _ in range(CELL)]

    def box(self, x0, y0, x1, y1, colour):
        for y in range(y0, y1 + 1):
            for x in range(x0, x1 + 1):
                self.pixels[y][x] = colour
        return self

    def rows(self, x0, y0, lines, colours):
        """Small pictures in letters; a blank leaves what is there."""
        for y, line in enumerate(lines):
            for x, letter in enumerate(line):
                if letter != " ":
                    self.pixels[y0 + y][x0 + x] = colours[letter]
        return self

    def mirrored(self):
        out = Tile()
        out.pixels = self.pixels[::-1]
        return out

    def turned(self):
        """The quarter turn that takes south to west."""
        out = Tile()
        out.pixels = [[self.pixels[CELL - 1 - x][y] for x in range(CELL)] for y in range(CELL)]
        return out


def wall():
    return Tile().box(0, 7, 15, 8, INK)


def whole_leaf(colour):
    """A door seen from above, both leaves in the line of the wall."""
    return wall().box(4, 4, 11, 11, INK).box(5, 5, 10, 10, PAPER).box(5, 7, 10, 8, colour).box(
        7, 5, 8, 10, colour)


def south_leaf(colour):
    """A door that opens to the south only: its box stands below an unbroken wall, with a point."""
    tile = wall().box(4, 7, 11, 12, INK).box(5, 9, 10, 11, PAPER)
    return tile.rows(5, 9, ["cccccc", " cccc ", "  cc  "], {"c": colour}).box(0, 7, 15, 8, INK)


def dotted(tile, colour):
    """Every other pixel of the box gives way to paper: a door that may not be there."""
    for y in range(CELL):
        for x in range(CELL):
            if tile.pixels[y][x] == colour and (x + y) % 2:
                tile.pixels[y][x] = PAPER
    return tile


def gapped(tile):
    """The outline of a door box in dashes."""
    for y in (4, 5, 9, 10, 11, 12):
        for x in range(3, 13):
            if tile.pixels[y][x] == INK and (x // 2 + y // 2) % 2:
                tile.pixels[y][x] = PAPER
    return tile


LETTER = [" ssss ", "ss  ss", "ss    ", " ssss ", "    ss", "ss  ss", " ssss "]


def secret():
    """A wall broken by a plate; the S on it is put there last, so it stands upright."""
    return Tile().box(0, 7, 2, 8, INK).box(3, 3, 12, 12, PAPER).box(13, 7, 15, 8, INK)


def south_secret():
    """The same with a point: it opens to the south only."""
    tile = Tile().box(0, 7, 3, 8, INK).box(4, 1, 11, 9, PAPER).box(12, 7, 15, 8, INK)
    return tile.rows(4, 10, ["ssssssss", " ssssss ", "  ssss  ", "   ss   "], {"s": SECRET})


def lettered(tile, x, y):
    return tile.rows(x, y, LETTER, {"s": SECRET})


def invisible():
    tile = Tile()
    for x in (1, 5, 9, 13):
        tile.box(x, 7, x + 1, 8, UNSEEN)
    return tile


def shutter():
    """A wall from the south, open from the north: teeth that point the way."""
    tile = Tile().box(0, 6, 15, 6, INK)
    for x in (0, 5, 10):
        tile.rows(x, 7, ["sssss", " sss ", "  s  "], {"s": SHUTTER})
    return tile.box(15, 7, 15, 7, SHUTTER)


def grid_line():
    """No wall: the line of the squared paper."""
    tile = Tile()
    for x in range(0, 16, 2):
        tile.box(x, 8, x, 8, (150, 144, 130, 110))
    return tile


def wall_kinds():
    """The fourteen kinds in the order of their numbers, each as a level and as an upright edge."""
    southDoor, southHalf = south_leaf(DOOR), gapped(dotted(south_leaf(HALF), HALF))
    level = [grid_line(), wall(), whole_leaf(DOOR), southDoor, southDoor.mirrored(), secret(),
             south_secret(), south_secret().mirrored(), gapped(dotted(whole_leaf(HALF), HALF)),
             southHalf, southHalf.mirrored(), invisible(), shutter(), shutter().mirrored()]
    upright = [tile.turned() for tile in level]
    for tiles, places in ((level, ((5, 4), (5, 2), (5, 7))), (upright, ((5, 4), (7, 4), (3, 4)))):
        for number, (x, y) in zip((5, 6, 7), places):
            lettered(tiles[number], x, y)
    return level, upright


def sheet(tiles, perRow):
    lines = []
    for start in range(0, len(tiles), perRow):
        for y in range(CELL):
            for tile in tiles[start:start + perRow]:
                lines += tile.pixels[y]
    return lines


def wall2D():
    """Upper row: level edges. Lower row: upright ones."""
    level, upright = wall_kinds()
    return sheet(level + upright, len(level))


# Floor tiles: base colour, and how a pixel departs from it.
FLOORS = (
    ("paper", (250, 248, 242)), ("flags", (205, 200, 186)), ("worn flags", (216, 206, 182)),
    ("silt", (190, 186, 158)), ("water", (150, 190, 204)), ("boards", (206, 172, 128)),
    ("carpet", (196, 128, 116)), ("tiles", (222, 214, 204)), ("bones", (214, 204, 178)),
    ("earth", (188, 158, 124)), ("grass", (174, 202, 142)), ("path", (222, 206, 168)),
    ("flowers", (182, 206, 150)), ("deep water", (104, 152, 178)), ("rubble", (198, 192, 182)),
    ("dark stone", (160, 156, 152)),
)


def shade(colour, by):
    return tuple(min(255, max(0, c + by)) for c in colour[:3]) + (255,)


def floor_tile(number):
    name, base = FLOORS[number]
    random = Random(500 + number)
    tile = Tile().box(0, 0, 15, 15, base + (255,))
    if number == 0:
        return tile
    for y in range(CELL):
        for x in range(CELL):
            tile.pixels[y][x] = shade(base, random.choice((-3, -1, 0, 0, 1, 3)))

    def line(points, by):
        for x, y in points:
            tile.pixels[y % CELL][x % CELL] = shade(base, by)

    def scatter(count, lines, colours):
        for _ in range(count):
            tile.rows(random.randrange(1, 13), random.randrange(1, 13), lines, colours)

    if name in ("flags", "dark stone"):
        line([(x, 7) for x in range(16)] + [(5, y) for y in range(8)] + [(11, y) for y in
                                                                        range(8, 16)], -22)
    elif name == "worn flags":
        line([(x, 7) for x in range(16)] + [(7, y) for y in range(16)], -18)
        line([(x, 6) for x in range(16)] + [(6, y) for y in range(16)], 10)
    elif name == "silt":
        line([(x, 4 + (x // 3) % 2) for x in range(2, 12)] + [(x, 11 - (x // 3) % 2) for x in
                                                              range(5, 15)], -20)
    elif name in ("water", "deep water"):
        for top, left in ((3, 1), (8, 7), (12, 2)):
            line([(left + x, top - (1 if x in (2, 3) else 0)) for x in range(6)], 38)
            line([(left + x, top + 1 - (1 if x in (2, 3) else 0)) for x in range(6)], -18)
    elif name == "boards":
        for y in (3, 7, 11, 15):
            line([(x, y) for x in range(16)], -26)
        line([(4, 1), (12, 5), (2, 9), (9, 13), (9, 12)], -34)
    elif name == "carpet":
        line([(x, y) for x in range(16) for y in (1, 14)] + [(x, y) for y in range(16)
                                                            for x in (1, 14)], 36)
        tile.rows(6, 6, [" cc ", "cccc", "cccc", " cc "], {"c": (232, 196, 120, 255)})
    elif name == "tiles":
        for y in range(CELL):
            for x in range(CELL):
                if (x // 4 + y // 4) % 2:
                    tile.pixels[y][x] = shade(base, -34)
    elif name == "bones":
        bone, dark = (246, 240, 222, 255), (150, 134, 100, 255)
        tile.rows(1, 2, ["b   b ", "bbbbbb", "bd  db"], {"b": bone, "d": dark})
        tile.rows(9, 9, [" bbb ", "bdbdb", "bbbbb", " bdb "], {"b": bone, "d": dark})
        tile.rows(2, 11, ["b  b", "bbbb", "d  d"], {"b": bone, "d": dark})
    elif name == "earth":
        scatter(9, ["d"], {"d": shade(base, -34)})
        scatter(4, ["dl"], {"d": shade(base, -26), "l": shade(base, 20)})
    elif name == "grass":
        scatter(8, ["d d", " d "], {"d": shade(base, -40)})
    elif name == "path":
        scatter(6, ["ll", "dd"], {"l": shade(base, 16), "d": shade(base, -30)})
    elif name == "flowers":
        scatter(5, ["d d", " d "], {"d": shade(base, -40)})
        for x, y, c in ((2, 3, (224, 120, 140)), (10, 2, (240, 214, 96)), (6, 10, (238, 236, 240)),
                        (12, 11, (224, 120, 140))):
            tile.rows(x, y, [" c ", "cyc", " c "], {"c": c + (255,), "y": (250, 226, 120, 255)})
    elif name == "rubble":
        for x, y in ((2, 2), (9, 4), (4, 9), (11, 11)):
            tile.rows(x, y, [" ll ", "llld", "ldd "], {"l": shade(base, 22), "d": shade(base, -48)})
    if name == "dark stone":
        line([(x, y) for x in range(0, 16, 4) for y in range(0, 16, 4)], -30)
    # a trace of the squared paper, so that cells can be counted on any floor
    line([(x, 15) for x in range(16)] + [(15, y) for y in range(16)], -12)
    return tile


def floor2D():
    return sheet([floor_tile(number) for number in range(len(FLOORS))], len(FLOORS))


COLOURS = {"k": (40, 36, 32, 255), "w": (250, 246, 234, 255), "l": (206, 200, 188, 255),
           "g": (150, 144, 134, 255), "b": (146, 92, 42, 255), "d": (94, 58, 26, 255),
           "y": (232, 186, 64, 255), "o": (206, 140, 40, 255), "r": (184, 52, 44, 255),
           "u": (48, 104, 178, 255), "t": (40, 148, 140, 255), "a": (150, 214, 206, 255),
           "p": (124, 76, 162, 255), "n": (72, 132, 60, 255), "s": (226, 186, 148, 255)}

# One picture a row of the event tile table, in its order.
EVENTS = (
    """
................
................
..kkkkkkkkkkkk..
.kwwwwwwwwwwwwk.
.kwwwwwwwwwwwwk.
.kwwkkkkkkkkwwk.
.kwwwwwwwwwwwwk.
.kwwkkkkkkwwwwk.
.kwwwwwwwwwwwwk.
.kwwwwwwwwwwwwk.
..kkkkkwwkkkkk..
......kwwk......
.....kwwk.......
.....kwk........
.....kk.........
................""",
    """
................
................
..kkkkkkkkkkkk..
.kbbbbbbbbbbbbk.
.kbooooooooobbk.
.kbbbbbbbbbbbbk.
.kddddddddddddk.
.kkkkkkyykkkkkk.
.kbbbbkyykbbbbk.
.kbbbbbkkbbbbbk.
.kbobbbbbbbbobk.
.kbobbbbbbbbobk.
.kddddddddddddk.
..kkkkkkkkkkkk..
................
................""",
    """
................
.....tttttt.....
...ttaaaaaatt...
..taattttttaat..
..tatt....ttat..
.tat...tt...tat.
.tat.ttaatt.tat.
.tat.tat.at.tat.
.tat.tat..t.tat.
.tat.taatt..tat.
.tat..ttaattaat.
..tat...ttttat..
..taatt....t....
...ttaatttt.....
.....ttaaat.....
.......ttt......""",
    """
................
..........rrr...
..........rrr...
..........rrr...
........rrrrrrr.
.kkkk....rrrrr..
.kllk.....rrr...
.kllkkkkk..r....
.kllllllk.......
.kllllllk.......
.kggggggkkkkk...
.kggggggllllk...
.kggggggllllk...
.kggggggggggkkk.
.kggggggggggllk.
.kkkkkkkkkkkkkk.""",
    """
................
...........u....
..........uuu...
.........uuuuu..
...........u....
...........ukkk.
...........ulkk.
.......kkkkkllk.
.......kllllllk.
.......kllllllk.
...kkkkkggggggk.
...kllllggggggk.
...kllllggggggk.
.kkkggggggggggk.
.kllggggggggggk.
.kkkkkkkkkkkkkk.""",
    """
................
................
.......kk.......
......krrk......
......krrk......
.....krrrrk.....
.....krwwrk.....
....krrwwrrk....
....krrwwrrk....
...krrrwwrrrk...
...krrrwwrrrk...
..krrrrrrrrrrk..
..krrrrwwrrrrk..
.krrrrrwwrrrrrk.
.kkkkkkkkkkkkkk.
................""",
    """
................
................
....kkkkkkkk....
..kkllllllllkk..
.kllkkkkkkkkllk.
.klkkkkkkkkkklk.
klkkkkkkkkkkkklk
klkkkkkkkkkkkklk
klkkkkkkkkkkkklk
klkkkkkkkkkkkklk
.klkkkkkkkkkklk.
.kllkkkkkkkkllk.
..kkllllllllkk..
....kkkkkkkk....
................
................""",
    """
k.k.k.k.k.k.k.k.
.kkkkkkkkkkkkkkk
kkkkkkkkkkkkkkk.
.kkkkkkkkkkkkkkk
kkkkkkkppkkkkkk.
.kkkkppkkkkkkkkk
kkkkppkkkkkkkkk.
.kkkppkkkkkkkkkk
kkkkppkkkkkkkkk.
.kkkkppkkkkpkkkk
kkkkkkppppppkkk.
.kkkkkkkkkkkkkkk
kkkkkkkkkkkkkkk.
.kkkkkkkkkkkkkkk
kkkkkkkkkkkkkkk.
.k.k.k.k.k.k.k.k""",
    """
................
.....kkkkkk.....
....kddddddk....
....kdssssdk....
....kskssksk....
....kssssssk....
.....kssssk.....
....kkkkkkkk....
...kuuuuuuuuk...
..kuuuuwwuuuuk..
..kuuuuwwuuuuk..
..kskuuwwuuksk..
...kkuuuuuukk...
....kuuuuuuk....
....kkkkkkkk....
................""",
    """
................
..kkkkkkkkkkkk..
.krrrrrrrrrrrrk.
krrrrrrrrrrrrrrk
kkkkkkkkkkkkkkkk
...kb......bk...
...kb..kk..bk...
...kb.kbbk.bk...
...kb.kbbk.bk...
..kkkkkkkkkkkk..
.klglglglglglgk.
.kggggggggggggk.
.klglglglglglgk.
.kggggggggggggk.
..kkkkkkkkkkkk..
................""",
    """
................
.kkkkkkkkkkkkkk.
.kyyyyyyyyyyyyk.
.kyooooooooooyk.
.kyokkkkokkooyk.
.kyooooooooooyk.
.kyokkokkkkkoyk.
.kyooooooooooyk.
.kyokkkkkokooyk.
.kyooooooooooyk.
.kyyyyyyyyyyyyk.
.kkkkkkkkkkkkkk.
......kggk......
......kggk......
......kggk......
......kkkk......""",
    """
................
...........kkk..
..........krrrk.
..........krrrk.
.........kkrrrk.
........kgkkkk..
.......kgk......
......kgk.......
.....kgk........
....kgk.........
..kkkkkkkkkkkk..
.kllllllllllllk.
.klggkkkkkkgglk.
.klggggggggggllk
.kkkkkkkkkkkkkk.
................""",
    """
................
...y........y...
...y........y...
..kwk.kyyk.kwk..
..kwk.kyyk.kwk..
..kwkkkyykkkwk..
.kkkkkkyykkkkkk.
.kwwwwwwwwwwwwk.
.kwwrwwwwwwrwwk.
.kkkkkkkkkkkkkk.
..kggggggggggk..
..kglggglggglk..
..kggggggggggk..
..kglggglggglk..
.kkkkkkkkkkkkkk.
................""",
    """
................
....kkkkkkkk....
...kwwwwwwwwk...
..kwwwwwwwwwwk..
..kwwwwwwwwwwk..
..kwkkkwwkkkwk..
..kwkrkwwkrkwk..
..kwkkkwwkkkwk..
..kwwwwkkwwwwk..
...kwwwkkwwwk...
....kwwwwwwk....
....kwkwkwkk....
....kwkwkwkk....
.....kkkkkk.....
................
................""",
    """
.......kk.......
......kyyk......
......kkkk......
.....kyyyyk.....
....kywyyook....
....kywyyook....
....kywyyook....
...kyywyyoook...
...kyywyyoook...
...kyywyyoook...
..kyyywyyooook..
.kyyyyyyyyooook.
.kkkkkkkkkkkkkk.
......kggk......
......kggk......
.......kk.......""",
    """
......uuuu...u..
....uuuuuuuuuu..
...uuu....uuuu..
..uuu....uuuuu..
..uu............
.uuu............
.uu.............
.uu..........uu.
.uu..........uu.
.............uu.
............uuu.
............uu..
..uuuuu....uuu..
..uuuu....uuu...
..uuuuuuuuuu....
..u...uuuu......""",
)


def event_tile(lines):
    tile = Tile()
    rows = lines.strip("\n").split("\n")
    assert len(rows) == CELL and all(len(row) == CELL for row in rows)
    return tile.rows(0, 0, [row.replace(".", " ") for row in rows], COLOURS)


def eventFloor():
    return sheet([event_tile(lines) for lines in EVENTS], 8)


def system_skin():
    """The frame of the game's windows: 64 by 64 pixels, a four by four grid of cells of which the
    rim is drawn. A bronze rail between two dark lines, and a rivet in each corner; the colour key is
    the black of the middle, and the picture has no alpha."""
    side = 64
    rails = ((12, 10, 8), (96, 74, 40), (206, 172, 104), (168, 130, 70), (112, 84, 44), (12, 10, 8))
    pixels = []
    for y in range(side):
        for x in range(side):
            rim = min(x, y, side - 1 - x, side - 1 - y)
            nearX, nearY = min(x, side - 1 - x), min(y, side - 1 - y)
            colour = (0, 0, 0)
            if 1 <= rim < 1 + len(rails):
                colour = rails[rim - 1]
                lower = (y if nearY <= nearX else x) > side // 2
                if lower and 1 < rim < 6:
                    colour = rails[len(rails) - rim]
                if rim in (3, 4) and (x + y) % 8 == 0 and max(nearX, nearY) > 14:
                    colour = tuple(c // 2 for c in colour)
            if nearX < 2 and nearY < 2:
                colour = (0, 0, 0)
            away = ((nearX - 6.5) ** 2 + (nearY - 6.5) ** 2) ** 0.5
            if away < 5.6:
                light = 0.55 + 0.07 * ((6.5 - (x if x < 32 else x - 50)) + (6.5 - (
                    y if y < 32 else y - 50)))
                light = max(0.30, min(1.15, light)) if away < 4.6 else 0.12
                colour = tuple(min(255, int(c * light)) for c in (222, 186, 116))
            pixels.append(colour)
    return pixels
