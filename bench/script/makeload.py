#!/usr/bin/env python3
"""One long script and its Lua twin, functions as games have them: makeload.py LINES STEM writes STEM.txt and STEM.lua"""
import sys

FUNCTIONS = 400  # a script holds no more than 512 names at once
OURS = """\
    var total%(k)d: int = 0;
    var name%(k)d = "quest %(n)d";
    if (gold > %(k)d && hero != 0) {
      for (i = 0; i < items.length(); i++) {
        total%(k)d += items[i] * %(m)d + gold %% 7;
        if (total%(k)d > 1000 || i == 50) break;
      }
      hero.gold = total%(k)d - gold;
    } else {
      name%(k)d += " of " + hero;
      while (total%(k)d < 10) total%(k)d += (gold ^ 3) & 5 | 1;
    }
    // what the party sees
    hero.text = name%(k)d + total%(k)d;
"""
LUA = """\
    local total%(k)d = 0
    local name%(k)d = "quest %(n)d"
    if gold > %(k)d and hero ~= 0 then
      for i = 0, #items - 1 do
        total%(k)d = total%(k)d + items[i] * %(m)d + gold %% 7
        if total%(k)d > 1000 or i == 50 then break end
      end
      hero.gold = total%(k)d - gold
    else
      name%(k)d = name%(k)d .. " of " .. hero
      while total%(k)d < 10 do total%(k)d = total%(k)d + ((gold ~ 3) & 5 | 1) end
    end
    -- what the party sees
    hero.text = name%(k)d .. total%(k)d
"""


def body(part, pieces, function):
    return "".join(part % {"k": k, "n": function * 100 + k, "m": k % 13 + 1} for k in range(pieces))


def main():
    pieces = int(sys.argv[1]) // FUNCTIONS // OURS.count("\n")
    with open(sys.argv[2] + ".txt", "w") as ours, open(sys.argv[2] + ".lua", "w") as lua:
        for f in range(FUNCTIONS):
            ours.write("function quest%d(hero, gold, items) {\n  var i: int = 0;\n%s  return i;\n}\n" % (f, body(OURS, pieces, f)))
            lua.write("function quest%d(hero, gold, items)\n  local i = 0\n%s  return i\nend\n" % (f, body(LUA, pieces, f)))


main()
