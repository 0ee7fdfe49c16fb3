#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A day's work in one command: very many conversions of mixed drawings by one process, which must stay as it was.

    batch.py PROGRAM [--count 20000] [--jobs 2]

The drawings are small: lines, circles, texts, splines, a font that is missing, a picture that is missing, a link; one in fifty is
damaged, one in a hundred is none at all. While `convert --list` runs, the process that hands the work out is looked at in /proc: after
the first 1,000 drawings (a tenth, if that is less) its own memory must not grow by more than 2 MiB (it falls, as what is done
is forgotten); it must not have more descriptors in the second half than in the first (but for the two pipes of each worker, which
a look meets or misses), and no child of it may be a zombie for two seconds. Afterwards every drawing has been told of once, every
good one has its PDF, and nothing else lies about. Ends with "N passed, M failed".
"""
import argparse
import json
import os
import subprocess
import sys
import tempfile
import time

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.path.insert(0, os.path.join(ROOT, "tests", "acceptance"))
from hostile_drawings import dxf, font, image, link  # noqa: E402

WARM, BAND, PAUSE, PATIENCE = 1000, 2048, 0.25, 8  # drawings, KiB, seconds, looks
SPLINE = [(0, "SPLINE"), (8, "0"), (70, 8), (71, 3), (72, 8), (73, 4), *[(40, knot) for knot in (0, 0, 0, 0, 1, 1, 1, 1)],
          *[pair for x, y in ((0, 0), (10, 40), (60, -20), (90, 50)) for pair in ((10, x), (20, y))]]


def kinds():
    circles = [pair for i in range(30) for pair in ((0, "CIRCLE"), (8, "0"), (10, i), (20, i * 2), (40, 5 + i))]
    texts = [pair for i in range(12) for pair in ((0, "TEXT"), (8, "0"), (10, 0), (20, i * 9), (40, 5), (1, f"Room {i}"))]
    return [dxf(), dxf(circles), dxf(texts), dxf(SPLINE), dxf(circles + texts + SPLINE), font("none.shx"), link("https://example.org/"),
            image("none.png")]


def make(folder, count):
    """Names of the drawings; those that can't be converted."""
    good, names, bad = kinds(), [], set()
    for number in range(count):
        name = os.path.join("plans", f"{number // 500:02}", f"plan-{number:05}.dxf")
        text = good[number % len(good)]
        if number % 50 == 7:
            text = text[:len(text) * 2 // 3]
        if number % 100 == 31:
            text = "this is no drawing\n"
            bad.add(name)
        os.makedirs(os.path.dirname(os.path.join(folder, name)), exist_ok=True)
        with open(os.path.join(folder, name), "w", encoding="ascii") as file:
            file.write(text)
        names.append(name)
    with open(os.path.join(folder, "list.txt"), "w", encoding="ascii") as file:
        file.writelines(name + "\n" for name in names)
    return names, bad


def own_memory(pid):
    """KiB that the process alone has, in memory or swapped out; the pages of files come and go with the machine's needs."""
    with open(f"/proc/{pid}/status", encoding="ascii") as status:
        sizes = [int(line.split()[1]) for line in status if line.startswith(("RssAnon:", "VmSwap:"))]
    return sum(sizes) if len(sizes) == 2 else None


def zombies(pid):
    found = set()
    with open(f"/proc/{pid}/task/{pid}/children", encoding="ascii") as children:
        for child in children.read().split():
            try:
                with open(f"/proc/{child}/stat", encoding="ascii") as stat:
                    if stat.read().rpartition(") ")[2].startswith("Z"):
                        found.add(child)
            except OSError:
                pass
    return found


class Watch:
    """What the parent is like as the report grows: (drawings done, KiB, descriptors), and zombies that stay."""

    def __init__(self, pid, report):
        self.pid, self.report, self.done = pid, report, 0
        self.looks, self.seen, self.lasting = [], {}, set()

    def look(self):
        self.done += self.report.read().count(b"\n")
        try:
            memory, descriptors, now = own_memory(self.pid), len(os.listdir(f"/proc/{self.pid}/fd")), zombies(self.pid)
        except OSError:
            return  # it has ended
        if memory is not None:
            self.looks.append((self.done, memory, descriptors))
        self.seen = {child: self.seen.get(child, 0) + 1 for child in now}
        self.lasting |= {child for child, times in self.seen.items() if times >= PATIENCE}


def run(program, folder, jobs):
    """The exit code, the lines of the report, the watch, seconds."""
    environment = {"PATH": "/usr/bin:/bin", "LANG": "C.UTF-8", "SHEETMAKER_PDF_SHARE": os.path.join(ROOT, "share", "sheetmaker-pdf")}
    for variable, part in (("HOME", "home"), ("TMPDIR", "tmp"), ("XDG_CONFIG_HOME", "config"), ("XDG_STATE_HOME", "state"),
                           ("XDG_CACHE_HOME", "cache")):
        environment[variable] = os.path.join(folder, part)
        os.mkdir(environment[variable])
    begin, path = time.monotonic(), os.path.join(folder, "report.jsonl")
    with open(path, "wb") as written, open(path, "rb") as read:
        process = subprocess.Popen([program, "convert", "--list", "list.txt", "--layouts", "model", "--report", "jsonl", "--jobs", str(jobs),
                                    "--quiet"], cwd=folder, env=environment, stdout=written, stderr=subprocess.DEVNULL)
        watch = Watch(process.pid, read)
        while process.poll() is None:
            watch.look()
            time.sleep(PAUSE)
    with open(path, encoding="utf-8") as file:
        return process.returncode, [json.loads(line) for line in file], watch, time.monotonic() - begin


def is_whole(path):
    try:
        with open(path, "rb") as file:
            file.seek(max(0, os.path.getsize(path) - 1024))
            return b"%%EOF" in file.read()
    except OSError:
        return False


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--count", type=int, default=20000)
    parser.add_argument("--jobs", type=int, default=2)
    wanted = parser.parse_args()
    results = []

    def check(name, good, told=""):
        results.append(good)
        print(f"{'ok' if good else 'FAILED':<8}{name}" + (f": {told}" if told else ""), flush=True)

    with tempfile.TemporaryDirectory() as folder:
        names, bad = make(folder, wanted.count)
        code, lines, watch, seconds = run(os.path.abspath(wanted.program), folder, wanted.jobs)
        warm = min(WARM, wanted.count // 10)
        before = [look for look in watch.looks if look[0] < warm]
        halves = [[look[2] for look in watch.looks if (2 * look[0] < wanted.count) == first] for first in (True, False)]
        after = [look for look in watch.looks if look[0] >= warm]
        check("exit code 1, since some are bad", code == 1, str(code))
        check("each was told of once", sorted(line["drawing"] for line in lines) == sorted(names), f"{len(lines)} of {len(names)}")
        check("the bad ones failed, no other", {line["drawing"] for line in lines if not line["converted"]} == bad, f"{len(bad)}")
        check("every good one has its PDF", all(is_whole(os.path.join(folder, name[:-4] + ".pdf")) for name in names if name not in bad))
        sizes = [look[1] for look in after]
        check("it was looked at before and after", len(before) >= 3 and len(after) >= 10, f"{len(before)} and {len(after)} times")
        check("memory doesn't grow", bool(sizes) and max(sizes) - sizes[0] <= BAND,
              f"{min(sizes)} to {max(sizes)} KiB after {warm} drawings, {sizes[0]} then")
        check("descriptors stay", all(halves) and max(halves[1]) <= max(halves[0]) + 2 * wanted.jobs,
              f"at most {max(halves[1])}, {max(halves[0])} in the first half")
        check("no zombie stays", not watch.lasting, " ".join(sorted(watch.lasting)))
        left = [name for _, _, files in os.walk(os.path.join(folder, "plans")) for name in files if not name.endswith((".dxf", ".pdf"))]
        check("nothing else lies about", left + os.listdir(os.path.join(folder, "tmp")) == [], ", ".join(left[:5]))
        print(f"        {wanted.count} drawings in {seconds:.0f} s")
    print(f"{sum(results)} passed, {len(results) - sum(results)} failed")
    return 0 if all(results) else 1


if __name__ == "__main__":
    sys.exit(main())
