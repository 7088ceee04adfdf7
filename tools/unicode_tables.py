#!/usr/bin/env python3
"""Writes src/Util/UnicodeTables.inc from Python's own Unicode data.

Run it from the top of the tree:  python3 tools/unicode_tables.py > src/Util/UnicodeTables.inc
Letters are the categories L* of the basic plane, as ranges. Folds are the simple case foldings of all
planes, as runs of code points that go to the same distance: a stride of 2 is the common layout in
which capital and small letter alternate. Small letters and capitals are runs too, of the basic plane.
"""
import sys
import unicodedata


def letter_ranges():
    ranges = []
    for code in range(0x10000):
        if 0xD800 <= code < 0xE000 or not unicodedata.category(chr(code)).startswith("L"):
            continue
        if ranges and ranges[-1][1] == code - 1:
            ranges[-1][1] = code
        else:
            ranges.append([code, code])
    return ranges


def fold(code):
    """The simple folding: the full one where it is one character, else the small letter likewise."""
    for folded in (chr(code).casefold(), chr(code).lower()):
        if len(folded) == 1:
            return ord(folded)
    return code


def one_unit(convert):
    """A case mapping where it leads from one character to one; others stay as they are."""

    def mapping(code):
        mapped = convert(chr(code))
        return ord(mapped) if len(mapped) == 1 and ord(mapped) < 0x10000 else code

    return mapping


def runs_of(mapping, end):
    runs = []  # first, last, stride, distance
    for code in range(0x80, end):
        if 0xD800 <= code < 0xE000 or mapping(code) == code:
            continue
        distance = mapping(code) - code
        if runs:
            first, last, stride, known = runs[-1]
            step = code - last
            if known == distance and step in (1, 2) and (first == last or step == stride):
                runs[-1] = (first, code, step, known)
                continue
        runs.append((code, code, 1, distance))
    return runs


def rows(items, per_line):
    for at in range(0, len(items), per_line):
        print("    " + " ".join(items[at : at + per_line]))


print(f"// Unicode {unicodedata.unidata_version}. Made by tools/unicode_tables.py; do not edit.")
print("// clang-format off")
print("constexpr LetterRange kLetterRanges[] = {")
rows([f"{{0x{a:04X}, 0x{b:04X}}}," for a, b in letter_ranges()], 6)
print("};")
for name, mapping, end in (
    ("kFoldRuns", fold, 0x110000),
    ("kSmallRuns", one_unit(str.lower), 0x10000),
    ("kCapitalRuns", one_unit(str.upper), 0x10000),
):
    print(f"constexpr CaseRun {name}[] = {{")
    rows([f"{{0x{a:04X}, 0x{b:04X}, {s}, {d}}}," for a, b, s, d in runs_of(mapping, end)], 4)
    print("};")
print("// clang-format on")
