#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs the tests of the plug-in that stand on scripted hosts twice, as they are on this machine and over COM under
Wine, and compares every log line, every publishing call and every host call they make, in order.

    parity.py ROOMS NATIVE-FOLDER WINDOWS-FOLDER RUNNER [RUNNER-ARGUMENT...]

ROOMS are the rooms' names with commas between them. Prints one row per scenario; fails when a program fails, or a scenario differs or is missing on one side.
"""
import os
import subprocess
import sys
import tempfile

LOG_LINE = "Log.WriteLogLine"
LIBRARY = ("PubDoc.", "Log.", "Library.")


def run(command, journal, environment):
    """The scenarios of a program with their calls, in order."""
    result = subprocess.run([*command, "--gtest_brief=1"], capture_output=True, text=True, errors="replace",
                            env={**os.environ, **environment})
    if result.returncode != 0:
        sys.exit(f"{command[-1]} fails:\n{result.stdout[-3000:]}{result.stderr[-2000:]}")
    scenarios = {}
    calls = None
    with open(journal, encoding="utf-8", errors="surrogateescape") as file:
        for line in file:
            if line.startswith("## "):
                calls = scenarios.setdefault(line[3:].strip(), [])
            else:
                calls.append(line.rstrip("\n"))
    return scenarios


def counts(calls):
    log = sum(call.startswith(LOG_LINE) for call in calls)
    library = sum(call.startswith(LIBRARY) for call in calls) - log
    return log, library, len(calls) - log - library


def first_difference(ours, theirs):
    for number, (one, other) in enumerate(zip(ours, theirs), 1):
        if one != other:
            return f"call {number}: here {one!r}, under Wine {other!r}"
    return f"{len(ours)} calls here, {len(theirs)} under Wine"


def compare(room, native, windows, runner, folder):
    here, there = os.path.join(folder, room), os.path.join(folder, room + ".wine")
    ours = run([os.path.join(native, "test_" + room)], here, {"SM_JOURNAL": here})
    theirs = run([*runner, os.path.join(windows, f"test_crossed_{room}.exe")], there, {"SM_JOURNAL": "Z:" + there})
    same = 0
    for name in {**ours, **theirs}:
        left, right = ours.get(name), theirs.get(name)
        log, library, host = counts(left or [])
        equal = left == right
        same += equal
        print(f"{room + '.' + name:<90} {log:>8} {library:>8} {host:>9}  {'equal' if equal else 'DIFFERENT'}")
        if not equal:
            print("    " + first_difference(left or [], right or []))
    return same, len({**ours, **theirs}), sum(map(len, ours.values()))


def main():
    rooms, native, windows, *runner = sys.argv[1:]
    print(f"{'scenario':<90} {'log':>8} {'library':>8} {'host':>9}")
    same = scenarios = calls = 0
    with tempfile.TemporaryDirectory() as folder:
        for room in rooms.split(","):
            equal, total, made = compare(room, native, windows, runner, folder)
            same, scenarios, calls = same + equal, scenarios + total, calls + made
    print(f"{same} of {scenarios} scenarios equal, {calls} calls compared")
    return 0 if scenarios > 0 and same == scenarios else 1


if __name__ == "__main__":
    sys.exit(main())
