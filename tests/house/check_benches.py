#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Starts measurements of bench/ once, as small as they get: each ends and prints all its lines. What the figures are
isn't looked at: a "#" stands for each.

    check_benches.py FOLDER [NAME...]      FOLDER holds the programs that bench/ builds. Without a
                                       name: all that need neither a screen nor Wine
"""
import os
import re
import subprocess
import sys
import tempfile

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
HOUSE = os.path.join(ROOT, "samples", "house.dxf")
PROGRAM = os.path.join(ROOT, "build", "release", "apps", "sheetmaker", "sheetmaker")
DRAWINGS = os.environ.get("SM_SHARED_DRAWINGS") or os.path.join(ROOT, "..", "shared", "drawings")
LEADER = os.path.join(DRAWINGS, "twins", "leader", "2013_Leader.dwg")
OTHER_TOOLS = re.compile(r".* (librecad|ogr2ogr) .*\n")  # may be installed or not, as the converter of bench/dwg
VERDICTS = re.compile(r"  (ABOVE|MISSED|missed on this load)$|\*\*\*WARNING\*\*\* .*\n|^-+$\n", re.M)
FIGURE = re.compile(r"-?\d+(\.\d+)?([kMG]?/s)?")  # "synthetic-100" becomes "synthetic#"
TIMES = "# ms, processor # (at most #)"
ROWS = [
    ("compare", ["--runs", "1", "--sizes", "100"], """\
drawing tool wall s cpu s MiB max MiB sum PDF KiB x wall x cpu x max x sum x PDF
house.dxf ours # # # # #
synthetic#.dxf ours # # # # #"""),
    ("slope", ["--runs", "1", "--sizes", "50,100"], """\
entities wall s cpu s MiB sum PDF KiB cpu us each
# # # # # #
# # # # # #
slope of wall #
slope of cpu #
slope of memory #
slope of PDF #"""),
    ("thousand", ["--runs", "1", "--count", "4"], """\
# in one command # s # s CPU # ms CPU each # drawings/min
one command each # s # s CPU # ms CPU each # drawings/min"""),
    ("marks", ["--runs", "1", "--most", "1000"], """\
what off s on s us a mark
# x TransferDrawingHlinks # # #
# x TransferAttributes # # #
# sheets published # # #
# sheets published # # #
# sheets published # # #"""),
    ("settings_dialog", ["--runs", "1", "--entities", "100"], """\
# entities: dialog # ms; layouts # ms, toolkit # ms
ratio # (# is the limit)"""),
    ("dwg", ["--runs", "1", LEADER], """\
drawing KiB DWG ms DXF ms ratio MiB may our ms conv. ms times
#_Leader.dwg # # # # # # CONVERTER"""),
    ("window/memory.py", [HOUSE, PROGRAM], f"{PROGRAM}: # MiB with the dialog, # with the drawing window"),
    ("under_wine", ["200"], """\
start under Wine: # s
# entities: Linux # s, Wine # s, ratio #, without the start #"""),
    ("reading", [HOUSE], f"{HOUSE}: # entities, # attributes, # layers, # blocks, # s"),
    ("opening", ["--runs", "1", HOUSE], f"# # # {HOUSE}"),
    ("panning", [HOUSE], f"{HOUSE} # entities, # items: recorded # ms, first picture # ms; pan # ms seen, # ms whole; "
     "zoom # ms seen, # ms whole; snap # us; # + # MB"),
    ("micro", [HOUSE, "--benchmark_min_time=0.001"], """\
Benchmark Time CPU Iterations UserCounters...
read/house.dxf # ms # ms # bytes_per_second=# items_per_second=#
render/house.dxf # ms # ms # items_per_second=#
plot/house.dxf # ms # ms # items_per_second=#"""),
    ("bench_window", ["200"], f"""\
# entities, made and read in # ms, on "offscreen"
first picture of the model {TIMES}
pan, all of it, a frame, mean {TIMES}
pan, all of it, a frame, longest {TIMES}
pan, all of it, sharp {TIMES}
zoom in, a frame, mean {TIMES}
zoom in, a frame, longest {TIMES}
zoom in, sharp {TIMES}
pan, a part, a frame, mean {TIMES}
pan, a part, a frame, longest {TIMES}
pan, a part, sharp {TIMES}
cursor, a frame, mean {TIMES}
cursor, a frame, longest {TIMES}
zoom out, a frame, mean {TIMES}
zoom out, a frame, longest {TIMES}
zoom out, sharp {TIMES}
a notch in, a frame, mean {TIMES}
a notch in, a frame, longest {TIMES}
a notch in, sharp {TIMES}
first picture of the sheet {TIMES}
zoom in the sheet, a frame, mean {TIMES}
zoom in the sheet, a frame, longest {TIMES}
zoom in the sheet, sharp {TIMES}
back to the model {TIMES}
the sheet again {TIMES}
memory: # MB before the window, # with it, # at most
preview of #, first {TIMES}
preview of #, after a change, mean {TIMES}"""),
]
MISSES_TARGETS = ("settings_dialog", "bench_window")  # may end with 1: figures on a busy machine
BY_NAME = ("settings_dialog", "window/memory.py", "under_wine")
TIMEOUT = 240


def command_of(name, folder):
    """Scripts stand in bench/; what isn't there was built."""
    script = os.path.join(ROOT, "bench", name)
    return script if os.path.isfile(script) else os.path.join(folder, name)


def shape(text):
    """The lines with a "#" for every figure that isn't part of a path, and single spaces."""
    text = VERDICTS.sub("", OTHER_TOOLS.sub("", text))
    for path, sign in ((HOUSE, "\0"), (PROGRAM, "\1")):
        text = text.replace(path, sign)
    text = re.sub(r" +", " ", FIGURE.sub("#", text))
    text = re.sub(r"(_Leader\.dwg(?: #){6})(?: # # #| -)$", r"\1 CONVERTER", text, flags=re.M)
    return "\n".join(line.strip() for line in text.splitlines()).strip().replace("\0", HOUSE).replace("\1", PROGRAM)


def fault(name, words, expected, folder):
    if LEADER in words and not os.path.isfile(LEADER):
        print(f"{name}: not started, there are no shared drawings")
        return None
    with tempfile.TemporaryDirectory() as home:
        places = {key: os.path.join(home, key.lower()) for key in ("HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME")}
        variables = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "SM_SHARED_DRAWINGS": DRAWINGS, **places}
        run = subprocess.run([command_of(name, folder), *words], capture_output=True, text=True, env=variables,
                             timeout=TIMEOUT)
    ends = (0, 1) if name in MISSES_TARGETS else (0,)
    found = shape(run.stdout)
    if run.returncode in ends and found == expected:
        return None
    return f"bench/{name}: exit code {run.returncode}, prints\n{found}\n{run.stderr}expected\n{expected}"


def main():
    folder, names = sys.argv[1], sys.argv[2:]
    rows = [row for row in ROWS if (row[0] in names if names else row[0] not in BY_NAME)]
    faults = [found for found in (fault(*row, folder) for row in rows) if found]
    print("\n".join(faults) or f"{len(rows)} measurements print all their lines")
    return 1 if faults or not rows else 0


if __name__ == "__main__":
    sys.exit(main())
