#!/usr/bin/env python3
"""Draws every picture of the demo project. Running it again gives the same bytes.

    make_pictures.py [--project PROJECT] [--jobs N] [PATTERN...]

PROJECT is demo/ of this tree unless another folder is named. With patterns only the pictures whose
path below Graphics/ holds one of them are drawn: `make_pictures.py Enemies/mire` draws one.
"""

import argparse
import importlib
import os
from multiprocessing import Pool
from pathlib import Path

import png

HERE = Path(__file__).resolve().parent

# Path below Graphics/, module, function, its arguments, width in pixels (0: the function tells it).
PICTURES = [
    ("System/floor2D.png", "strips", "floor2D", (), 256),
    ("System/eventFloor.png", "strips", "eventFloor", (), 128),
    ("System/system.png", "strips", "system_skin", (), 64),
    ("Dungeon/wall2D.png", "strips", "wall2D", (), 224),
    ("Dungeon/wall.png", "masonry", "crypt_wall", (), 256),
    ("Dungeon/door.png", "masonry", "crypt_door", (), 256),
    ("Dungeon/Floors/crypt.png", "masonry", "crypt_floor", (), 256),
    ("Dungeon/Ceilings/crypt.png", "masonry", "crypt_ceiling", (), 256),
    ("Dungeon/Walls/ossuary.png", "bones", "ossuary_wall", (), 256),
    ("Dungeon/Doors/ossuary.png", "bones", "ossuary_door", (), 256),
    ("Dungeon/Floors/ossuary.png", "bones", "ossuary_floor", (), 256),
    ("Dungeon/Ceilings/ossuary.png", "masonry", "ossuary_ceiling", (), 256),
    ("Dungeon/Walls/hedge.png", "garden", "hedge", (), 256),
    ("Dungeon/Doors/gate.png", "garden", "gate", (), 256),
    ("Dungeon/Floors/grass.png", "garden", "grass", (), 256),
    ("Dungeon/Ceilings/canopy.png", "garden", "canopy", (), 256),
    ("Backgrounds/mere.png", "scenery", "mere", (), 320),
    ("Backgrounds/cloister.png", "scenery", "cloister", (), 320),
    ("Backgrounds/ossuary.png", "scenery", "ossuary", (), 320),
    ("Backgrounds/orchard.png", "scenery", "orchard", (), 320),
]

KEYED = {"system_skin"}  # pictures that mean their colour key


def all_pictures():
    import bestiary
    import props

    pictures = list(PICTURES)
    pictures += [(f"Tile/{name}.png", "props", "solid", (name,), props.SIDE) for name in props.SOLID]
    pictures += [(f"Tile/{name}.png", "props", draw.__name__, (), props.SIDE)
                 for name, draw in props.FLAT.items()]
    pictures += [(f"Enemies/{name}.png", "bestiary", "enemy", (name,), 0)
                 for name in bestiary.ENEMIES]
    return pictures


def draw(task):
    path, module, function, arguments, width = task
    result = getattr(importlib.import_module(module), function)(*arguments)
    if not width:
        width, result = result
    if len(result[0]) == 3 and function not in KEYED:
        # Without alpha the colour of the first pixel counts as transparent, wherever it stands.
        result = [pixel + (255,) for pixel in result]
    png.write(path, width, len(result) // width, result)
    return path


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", 1)[0])
    parser.add_argument("--project", type=Path, default=HERE.parent.parent / "demo")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("pattern", nargs="*")
    options = parser.parse_args()
    graphics = options.project / "Graphics"
    tasks = [(graphics / path, *rest) for path, *rest in all_pictures()
             if not options.pattern or any(part in path for part in options.pattern)]
    with Pool(options.jobs) as pool:
        for path in pool.imap_unordered(draw, tasks):
            print(path.relative_to(graphics), flush=True)


if __name__ == "__main__":
    main()
