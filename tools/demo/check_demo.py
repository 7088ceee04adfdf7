#!/usr/bin/env python3
"""Follows every reference of the demo project and tells which lead nowhere.

    check_demo.py [PROJECT]        PROJECT is demo/ of this tree unless another folder is named

Rows that point at rows, scripts and texts that name rows, events outside their floor, floors behind
stairs, files of the catalogue and of the floors, names too long for their field. Silent and with
status 0 when all is well.
"""

import re
import struct
import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path

# Which attribute of which table names rows of which other table.
ROWS = [
    ("Classes", "skillIDs", "Skills"), ("Classes", "attackCountFormula", "Formulas"),
    ("Classes", "acFormula", "Formulas"), ("Skills", "type", "SpellTypes"),
    ("Skills", "resistanceFormula", "Formulas"), ("Skills", "flagId", "FlagList"),
    ("States", "nextStateID", "States"), ("Actions", "commandSkillIDs", "Skills"),
    ("Items", "skillOnUse", "Skills"), ("Items", "subtype", "WeaponTypes"),
    ("Enemies", "itemTableID", "ItemTables"), ("Enemies", "followingEnemyID", "Enemies"),
    ("Enemies", "actionID", "Actions"), ("EnemyTables", "enemyIDs", "Enemies"),
    ("ItemTables", "itemIDs", "Items"), ("TrapList", "skillID", "Skills"),
    ("TrapList", "scriptID", "Scripts"), ("TreasureBoxList", "traps", "TrapList"),
    ("TreasureBoxList", "rangeTable0", "Items"), ("TreasureBoxList", "rangeTable1", "Items"),
    ("TreasureBoxList", "rangeTable2", "Items"), ("WeaponTypes", "equippableClasses", "Classes"),
]
BITS = [("Skills", "stateFlags", "States"), ("Skills", "attributeFlags", "Attributes"),
        ("Items", "equipmentFlags", "Classes")]
TRAIT_TABLES = ("Attributes", "States", "Attributes", "States", "Races", "Races")
# What a name may take in its fixed field, in bytes of the code page, the terminator not counted.
NAMES = {"States": 10, "Races": 19, "Classes": 19, "Skills": 19, "Actions": 18, "Items": 23,
         "Enemies": 18, "Attributes": 19}
# A first argument that is a number of that table's rows, or a name of them.
CALLS = [(r"\b(?:getFlag|setFlag|once)\((\d+)", "FlagList"), (r"\b(?:add|has|remove)Item\((\d+)", "Items"),
         (r"\bfind\((\d+)", "Items"), (r"\bmeet\((\d+)", "NPCs"),
         (r"\b(?:battle|encounter)\((\d+)", "EnemyTables")]
NAMED = [(r'\btell\("([^"]+)"', "MessageTable"), (r'\btrap\("([^"]+)"', "MessageTable"),
         (r'\bnovel\("([^"]+)"', "NovelScripts"), (r'"@message/([^"]+)"', "MessageTable"),
         (r'"@formula/([^"]+)"', "Formulas"), (r'<script src="([^"]+)"', "Scripts")]


class Project:
    def __init__(self, folder):
        self.folder = folder
        self.faults = []
        self.tables = {}
        for path in sorted((folder / "Data").glob("*.xml")):
            root = ElementTree.parse(path).getroot()
            if root.tag == "Types":
                for child in root:
                    self.tables[child.tag] = list(child)
            else:
                self.tables[path.stem if root.tag == "StringTable" else root.tag] = list(root)
        self.names = {tag: {row.get("name") for row in rows if row.get("name")}
                      for tag, rows in self.tables.items()}

    def fault(self, place, text):
        self.faults.append(f"{place}: {text}")

    def is_row(self, tag, number):
        """A row that is there and is in use."""
        rows = self.tables[tag]
        return 0 <= number < len(rows) and bool(rows[number].get("name"))

    def expect_row(self, tag, number, place):
        if not self.is_row(tag, number):
            self.fault(place, f"{tag} has no row {number}")

    def used(self, tag):
        return [(f"{tag} {i} {row.get('name')!r}", row) for i, row in enumerate(self.tables[tag])
                if row.get("name")]

    def check_tables(self):
        for tag, key, other in ROWS:
            for place, row in self.used(tag):
                for number in (int(n) for n in row.get(key, "").split(",") if n):
                    if number != -1 and (number or other != "Formulas"):
                        self.expect_row(other, number, f"{place} {key}")
        for tag, key, other in BITS:
            for place, row in self.used(tag):
                for bit in range(32):
                    if int(row.get(key)) >> bit & 1:
                        self.expect_row(other, bit, f"{place} {key}")
        for tag in ("Items", "Enemies"):
            for place, row in self.used(tag):
                for trait in row.iter("trait"):
                    for target in (int(n) for n in trait.get("targets").split(",") if n):
                        self.expect_row(TRAIT_TABLES[int(trait.get("type"))], target, f"{place} trait")
        for tag, limit in NAMES.items():
            for place, row in self.used(tag):
                if len(row.get("name").encode("cp932")) > limit:
                    self.fault(place, f"the name is longer than {limit} bytes")
        images = {int(item.get("id")) for item in self.list_of("EnemyImageList")}
        for place, row in self.used("Enemies"):
            if int(row.get("imageID")) not in images:
                self.fault(place, "no such picture in the catalogue")
        if {row.get("name") for row in self.tables["StringTable"]} != {
                row.get("name") for row in self.tables["StringTable2"]}:
            self.fault("StringTable", "the two languages have different keys")

    def check_persons(self):
        for place, person in self.used("NPCs"):
            for item in person.iter("item"):
                self.expect_row("Items", int(item.get("id")), f"{place} sells")
            for message in person.iter("message"):
                where = f"{place} {message.get('name')!r}"
                if int(message.get("novel")) >= 0:
                    self.expect_row("NovelScripts", int(message.get("novel")), where)
                if "enemyId" in message.attrib:
                    self.expect_row("Enemies", int(message.get("enemyId")), where)
                for condition in message.iter("Condition"):
                    for key, tag in (("flagId", "FlagList"), ("giveItemId", "Items"),
                                     ("takeItemId", "Items")):
                        number = int(condition.get(key, -1))
                        if number >= 0:
                            self.expect_row(tag, number, f"{where} {key}")

    def check_text(self, place, text):
        for pattern, tag in CALLS:
            for number in re.findall(pattern, text):
                self.expect_row(tag, int(number), place)
        for pattern, tag in NAMED:
            for name in re.findall(pattern, text):
                if name not in self.names[tag]:
                    self.fault(place, f"{tag} has no row named {name!r}")
        for sound in re.findall(r'\bplaySound\("([^"]+)"|<playse src="([^"]+)"', text):
            self.expect_file("Audio/SE/" + "".join(sound), place)
        for song in re.findall(r'<playbgm src="([^"]+)"|playBGM\("([^"]+)"', text):
            self.expect_file("Audio/BGM/" + "".join(song), place)
        for name in re.findall(r'#include "([^"]+)"', text):
            self.expect_file("Scripts/" + name, place)
        for target in re.findall(r'target="(\w+)"', text):
            if f'<label id="{target}"' not in text:
                self.fault(place, f"there is no label {target!r}")
        for floor, x, y in re.findall(r'\b(?:de|a)scend\("(\w+)", (\d+), (\d+)', text):
            cols, rows = self.size_of(floor)
            if not (int(x) < cols and int(y) < rows):
                self.fault(place, f"the stairs lead off {floor}")

    def check_texts(self):
        for tag in ("Scripts", "NovelScripts", "Formulas", "MessageTable"):
            for place, row in self.used(tag):
                self.check_text(place, "".join(row.itertext()))
        for path in sorted((self.folder / "Scripts").rglob("*.txt")):
            self.check_text(path.name, path.read_text(encoding="utf-8"))

    def expect_file(self, name, place):
        if not (self.folder / name).is_file():
            self.fault(place, f"there is no file {name}")

    def list_of(self, tag):
        for element in self.tables["ResourceManager"]:
            if element.tag == tag:
                return list(element)
        return []

    def check_catalogue(self):
        listed = {item.get("path") for element in self.tables["ResourceManager"] for item in element}
        for path in sorted(listed):
            self.expect_file(path, "ResourceManager")
        for folder in ("Audio", "Graphics/Enemies", "Graphics/Backgrounds", "Graphics/Dungeon"):
            for path in sorted((self.folder / folder).rglob("*")):
                name = path.relative_to(self.folder).as_posix()
                if path.is_file() and name not in listed and path.name != "wall2D.png":
                    self.fault("ResourceManager", f"{name} is not listed")
        for place, tile in self.used("EventFloor"):
            if tile.get("texture"):
                self.expect_file(tile.get("texture"), place)

    def size_of(self, floor):
        return struct.unpack("<HH", (self.folder / "Dungeon" / f"{floor}.map").read_bytes()[:4])

    def check_floors(self):
        lines = (self.folder / "Dungeon/MapHierarchy.ini").read_text().splitlines()
        for _, number, name in (line.split(" ", 2) for line in lines):
            if int(number) < 8192:
                self.check_floor(name)

    def check_floor(self, floor):
        cols, rows = self.size_of(floor)
        root = ElementTree.parse(self.folder / "Dungeon" / f"{floor}.xml").getroot()
        self.expect_row("EnemyTables", int(root.get("enemyTable")), floor)
        for key in ("floor2D", "wall2D", "background", "floor", "ceiling", "wall", "door"):
            if root.get(key):
                self.expect_file(root.get(key), floor)
        for key, folder in (("bgm", "BGM"), ("bgs", "BGS"), ("footstep", "SE"), ("doorSe", "SE")):
            self.expect_file(f"Audio/{folder}/{root.get(key)}", floor)
        for event in root.iter("Event"):
            place = f"{floor} {event.get('name')!r}"
            if not (0 <= int(event.get("x")) < cols and 0 <= int(event.get("y")) < rows):
                self.fault(place, "stands outside the floor")
            self.expect_row("EventFloor", int(event.get("type")), place)
            if "treasureboxID" in event.attrib:
                self.expect_row("TreasureBoxList", int(event.get("treasureboxID")), place)
            self.check_text(place, event.text or "")
        for area in root.iter("Area"):
            self.expect_row("EnemyTables", int(area.get("enemyTableID")), f"{floor} {area.get('name')!r}")


def main(arguments):
    project = Project(Path(arguments[0]) if arguments
                      else Path(__file__).resolve().parent.parent.parent / "demo")
    project.check_tables()
    project.check_persons()
    project.check_texts()
    project.check_catalogue()
    project.check_floors()
    print("\n".join(project.faults), end="\n" if project.faults else "")
    return 1 if project.faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
