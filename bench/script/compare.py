#!/usr/bin/env python3
"""Our interpreter beside Lua 5.4 and the LuaJIT interpreter, in turns, in one run; every result is checked.

    compare.py VARN [RUNS]                    the programs of programs/, whole processes
    compare.py --load LOADBENCH [LINES]       compiling one long script beside Lua's loader

Needs the packages lua5.4 and luajit. Times are medians; a ratio below 1 is ours."""
import math
import os
import statistics
import subprocess
import sys
import tempfile
import time

HERE = os.path.dirname(os.path.abspath(__file__))
PROGRAMS = os.path.join(HERE, "programs")
LOAD = """local f = io.open(arg[1]); local text = f:read("a"); local best = 1e9
for i = 1, 20 do local t = os.clock(); assert(load(text)); best = math.min(best, os.clock() - t) end
print(best * 1000)"""


def timed(words):
    begin = time.perf_counter()
    done = subprocess.run(words, cwd=PROGRAMS, capture_output=True, text=True, check=True)
    return time.perf_counter() - begin, done.stdout.strip()


def geometric_mean(ratios):
    return math.exp(sum(map(math.log, ratios)) / len(ratios))


def compare_programs(varn, runs):
    names = sorted(f[:-4] for f in os.listdir(PROGRAMS) if f.endswith(".txt"))
    print("| program | varn | lua5.4 | luajit -joff | varn/lua5.4 | varn/best |\n|" + "---|" * 6)
    to_lua, to_best = [], []
    for name in names:
        calls = [[varn, "script", "run", name + ".txt"], ["lua5.4", name + ".lua"], ["luajit", "-joff", name + ".lua"]]
        times, results = [[], [], []], set()
        for _ in range(runs):
            for kept, words in zip(times, calls):
                seconds, result = timed(words)
                kept.append(seconds)
                results.add(result)
        if len(results) != 1:
            sys.exit("%s: results differ: %s" % (name, results))
        ours, lua, jit = map(statistics.median, times)
        to_lua.append(ours / lua)
        to_best.append(ours / min(lua, jit))
        print("| %s | %.3f | %.3f | %.3f | %.2f | %.2f |" % (name, ours, lua, jit, to_lua[-1], to_best[-1]), flush=True)
    print("| geometric mean | | | | %.2f | %.2f |" % (geometric_mean(to_lua), geometric_mean(to_best)))


def compare_loading(bench, lines):
    with tempfile.TemporaryDirectory() as folder:
        stem = os.path.join(folder, "load")
        subprocess.run([sys.executable, os.path.join(HERE, "makeload.py"), lines, stem], check=True)
        with open(stem + ".time.lua", "w") as script:
            script.write(LOAD)
        ours = float(timed([bench, stem + ".txt"])[1])
        lua = float(timed(["lua5.4", stem + ".time.lua", stem + ".lua"])[1])
    print("compiling %s lines: varn %.2f ms, lua5.4 %.2f ms, ratio %.2f" % (lines, ours, lua, ours / lua))


if len(sys.argv) > 2 and sys.argv[1] == "--load":
    compare_loading(os.path.abspath(sys.argv[2]), sys.argv[3] if len(sys.argv) > 3 else "37000")
elif len(sys.argv) > 1:
    compare_programs(os.path.abspath(sys.argv[1]), int(sys.argv[2]) if len(sys.argv) > 2 else 3)
else:
    sys.exit(__doc__)
