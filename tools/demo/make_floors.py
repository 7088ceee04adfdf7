#!/usr/bin/env python3
"""Makes the floors of the demo project from their plans.

A plan, `plans/NAME.toml`, is the source of a floor; this writes `Dungeon/NAME.map` and its side
document `Dungeon/NAME.xml` as the editor would save them. Rows of tables are named in the plans by
their names and looked up in the project's `Data/`, so a plan cannot point at a row that is not
there. Running it again gives the same bytes.

    make_floors.py [PROJECT]        PROJECT is demo/ of this tree unless another folder is named
"""

import struct
import sys
import tomllib
import xml.etree.ElementTree as ElementTree
from pathlib import Path

HERE = Path(__file__).resolve().parent
PLANS = HERE / "plans"

# The walls of a plan: every cell is two characters wide with its edges around it, corners are `+`.
# A horizontal edge is its letter twice. A kind that opens one way says which: towards the
# south-west (sw) or towards the north-east (ne).
WALL_KINDS = {
    " ": 0,
    "-": 1, "|": 1,
    "D": 2,   # door
    "v": 3,   # door, sw
    "^": 4,   # door, ne
    "S": 5,   # secret door
    "s": 6,   # secret door, sw
    "z": 7,   # secret door, ne
    "H": 8,   # a door half the time
    "h": 9,   # half, sw
    "y": 10,  # half, ne
    "i": 11,  # invisible wall
    "(": 12,  # shutter, sw
    ")": 13,  # shutter, ne
}
FACINGS = {"": 0, "North": 1, "East": 2, "South": 4, "West": 8}
TRIGGERS = {"collision": 0, "search": 1, "action": 2}
FLOOR_TILES = ".123456789abcdefghijklmnopqrstuvwxyz"

TEXT_KEYS = ("name", "name2", "bgm", "bgs", "footstep", "doorSe", "background2D", "floor2D", "wall2D",
             "background", "floor", "ceiling", "wall", "door")
MAP_LIMIT = 100


class PlanError(Exception):
    """A fault in a plan; the text names the place."""


class Tables:
    """What a plan may name: rows of the project's tables, by name."""

    def __init__(self, project):
        data = project / "Data"
        self.tiles = self._rows(data / "EventFloor.xml")
        self.encounters = self._rows(data / "EnemyTables.xml")
        self.treasures = self._rows(data / "TreasureBoxList.xml")
        self.flags = self._rows(data / "FlagList.xml")
        self.boxTiles = {row for row, element in enumerate(self._elements(data / "EventFloor.xml"))
                         if element.get("treasurebox") == "1"}

    @staticmethod
    def _elements(path):
        return list(ElementTree.parse(path).getroot())

    def _rows(self, path):
        rows = {}
        for row, element in enumerate(self._elements(path)):
            rows.setdefault(element.get("name"), row)
        return rows


def row_of(table, name, what):
    if name not in table:
        raise PlanError(f"there is no {what} named {name!r}")
    return table[name]


def parse_walls(lines):
    """Edges of a wall plan: `horizontal[y][x]` is the north edge of (x, y), with one row more for
    the southern rim; `vertical[y][x]` the west edge, with one column more for the eastern rim."""
    cols = (len(lines[0]) - 1) // 3
    rows = (len(lines) - 1) // 2
    width = 3 * cols + 1
    if len(lines) != 2 * rows + 1 or max(map(len, lines)) > width:
        raise PlanError("the wall plan is not a grid")
    lines = [line.ljust(width) for line in lines]

    def kind(text, x, y):
        if len(set(text)) != 1 or text[0] not in WALL_KINDS:
            raise PlanError(f"no wall is drawn like {text!r}, at cell {x}, {y}")
        return WALL_KINDS[text[0]]

    horizontal = [[kind(lines[2 * y][3 * x + 1:3 * x + 3], x, y) for x in range(cols)]
                  for y in range(rows + 1)]
    vertical = [[kind(lines[2 * y + 1][3 * x], x, y) for x in range(cols + 1)]
                for y in range(rows)]
    # A map is a torus: its northern rim is its southern rim, its western its eastern.
    if horizontal[0] != horizontal[rows] or any(row[0] != row[cols] for row in vertical):
        raise PlanError("opposite rims differ")
    return horizontal, vertical


def grid(text, cols, rows, what):
    lines = text.splitlines()
    if len(lines) != rows or any(len(line) != cols for line in lines):
        raise PlanError(f"{what} is not {cols} by {rows}")
    return lines


def compose_map(plan):
    """The grid: columns and rows as 16-bit words, then five bytes a cell (north, east, south, west,
    floor) row by row."""
    horizontal, vertical = parse_walls(plan["walls"].splitlines())
    rows, cols = len(vertical), len(vertical[0]) - 1
    if rows > MAP_LIMIT or cols > MAP_LIMIT:
        raise PlanError("the floor is too large")
    floor = grid(plan["floor"], cols, rows, "the floor layer")
    cells = bytearray()
    for y in range(rows):
        for x in range(cols):
            cells += bytes((horizontal[y][x], vertical[y][x + 1], horizontal[y + 1][x],
                            vertical[y][x], FLOOR_TILES.index(floor[y][x])))
    return cols, rows, struct.pack("<HH", cols, rows) + bytes(cells)


def escape(text, attribute):
    for character, entity in (("&", "&amp;"), ("<", "&lt;"), (">", "&gt;"), ('"', "&quot;")):
        text = text.replace(character, entity)
    return text if attribute else text.replace("'", "&apos;").replace("\n", "\r\n")


def element(tag, attributes, text):
    pairs = "".join(f' {key}="{escape(str(value), True)}"' for key, value in attributes)
    return f"<{tag}{pairs}>{escape(text, False)}</{tag}>"


def map_attributes(settings, tables):
    for key in ("name", "name2"):
        settings[key].encode("cp932")  # kept as narrow text
    text = "".join(f'{key}="{escape(settings[key], True)}" ' for key in TEXT_KEYS)
    return text + (
        f"level='{settings['level']}' visibleDistance='{settings['visibleDistance']}' "
        f"enemyTable='{row_of(tables.encounters, settings['encounters'], 'encounter table')}' "
        f"fillDistantView='{int(settings['fillDistantView'])}' "
        f"fogEnabled='{int(settings['fogEnabled'])}' fogColor='{settings['fogColor']}' "
        f"teleportable='{int(settings['teleportable'])}' "
        f"displayable='{int(settings['displayable'])}' "
        f"encounterSteps='{settings['encounterSteps']}'")


def event_element(event, tables, cols, rows):
    x, y = event["at"]
    if not (0 <= x < cols and 0 <= y < rows):
        raise PlanError(f"event {event['name']!r} stands outside the floor")
    tile = row_of(tables.tiles, event["type"], "event tile")
    attributes = [("name", event["name"]), ("name2", event["name2"]), ("x", x), ("y", y),
                  ("direction", FACINGS[event.get("facing", "")]), ("type", tile), ("move", 0),
                  ("trigger", TRIGGERS[event.get("trigger", "collision")]),
                  ("hitbox", int(event.get("blocks", False))), ("priority", -1),
                  ("conditions", row_of(tables.flags, event["flag"], "flag")
                   if "flag" in event else -1)]
    if (tile in tables.boxTiles) != ("treasure" in event):
        raise PlanError(f"event {event['name']!r}: a treasure box, and only that, has a treasure")
    if "treasure" in event:
        attributes.append(("treasureboxID",
                           row_of(tables.treasures, event["treasure"], "treasure box")))
    return element("Event", attributes, event.get("script", "").rstrip("\n"))


def area_element(area, layer, tables):
    cells = [f"{x},{y}" for y, line in enumerate(layer) for x, letter in enumerate(line)
             if letter == area["letter"]]
    if not cells:
        raise PlanError(f"area {area['name']!r} has no cells")
    area["name"].encode("cp932")
    return element("Area", [("name", area["name"]), ("number", area["number"]),
                            ("room", int(area["room"])),
                            ("enemyTableID", row_of(tables.encounters, area["encounters"],
                                                    "encounter table")),
                            ("teleportIntrusionBlock", int(area.get("blocksTeleport", False))),
                            ("coordinates", " ".join(cells))], area["text"])


def compose_side_document(document, tables, cols, rows):
    layer = grid(document["plan"]["areas"], cols, rows, "the area layer")
    areas = sorted(document["area"], key=lambda area: area["number"])
    drawn = set("".join(layer)) - {"."}
    if drawn != {area["letter"] for area in areas}:
        raise PlanError(f"the area layer draws {''.join(sorted(drawn))!r}")
    names = [event["name"] for event in document["event"]]
    if len(set(names)) != len(names):
        raise PlanError("two events have one name")
    lines = ['<?xml version="1.0" encoding="UTF-16"?>',
             f"<Map {map_attributes(document['map'], tables)}>"]
    lines += [event_element(event, tables, cols, rows) for event in document["event"]]
    lines += [area_element(area, layer, tables) for area in areas]
    return "\r\n".join(lines + ["</Map>", ""])


def main(arguments):
    project = Path(arguments[0]) if arguments else HERE.parent.parent / "demo"
    tables = Tables(project)
    dungeon = project / "Dungeon"
    dungeon.mkdir(exist_ok=True)
    for path in sorted(PLANS.glob("*.toml")):
        try:
            document = tomllib.loads(path.read_text(encoding="utf-8"))
            cols, rows, cells = compose_map(document["plan"])
            side = compose_side_document(document, tables, cols, rows)
        except PlanError as fault:
            sys.exit(f"{path.name}: {fault}")
        (dungeon / f"{path.stem}.map").write_bytes(cells)
        (dungeon / f"{path.stem}.xml").write_bytes(b"\xff\xfe" + side.encode("utf-16-le"))
        print(f"{path.stem}: {cols} by {rows}, {len(document['event'])} events, "
              f"{len(document['area'])} areas")


if __name__ == "__main__":
    main(sys.argv[1:])
