#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A night's work: many drawings in one command, killed and started again, broken ones and one that never ends among them.

    night.py PROGRAM SAMPLES [--count 5000] [--kills 6] [--seed 1]

One drawing in a hundred is broken; one would draw for hours. `convert --list --update --report jsonl --log-dir --jobs 2 --timeout` is
killed at random moments (kill -9, TERM, INT) and started again until it ends by itself. Then every good drawing must have its PDF, the
last run must have named every bad one, and nothing else may lie about; the memory of the process that hands the work out must have
stayed the same. Prints the throughput beside one process a drawing; ends with "N passed, M failed".
"""
import argparse
import io
import json
import os
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import time

import ezdxf

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
SECONDS = 4  # a drawing may take
MEMORY = 2048  # KiB that the parent may grow by
SHEETS = 40


def endless():
    """Arrays of arrays of circles, some 10^12 of them, on many sheets: what can be drawn of one takes seconds."""
    drawing = ezdxf.new("R2000")
    drawing.blocks.new("B0").add_circle((0, 0), 1)
    for level in range(1, 6):
        drawing.blocks.new(f"B{level}").add_blockref(f"B{level - 1}", (0, 0), {"row_count": 16, "column_count": 16, "row_spacing": 3,
                                                                           "column_spacing": 3})
    for number in range(SHEETS):
        drawing.layouts.new(f"Sheet {number}").add_blockref("B5", (0, 0))
    text = io.StringIO()
    drawing.write(text)
    return text.getvalue()


class Night:
    def __init__(self, program, samples, count, seed, folder):
        self.program, self.folder, self.random = program, folder, random.Random(seed)
        self.environment = {"PATH": "/usr/bin:/bin", "LANG": "C.UTF-8", "SHEETMAKER_PDF_SHARE": os.path.join(ROOT, "share", "sheetmaker-pdf")}
        for variable, part in (("HOME", "home"), ("TMPDIR", "tmp"), ("XDG_CONFIG_HOME", "config"), ("XDG_STATE_HOME", "state")):
            self.environment[variable] = os.path.join(folder, part)
            os.mkdir(self.environment[variable])
        self.good, self.bad = [], []
        self.make(samples, count)

    def make(self, samples, count):
        sources = [os.path.join(samples, name) for name in ("flange.dxf", "house.dxf", "site.dxf")]
        endless_one = count // 2
        for number in range(count):
            name = os.path.join("plans", f"{number // 500:02}", f"plan-{number:05}.dxf")
            path = os.path.join(self.folder, name)
            os.makedirs(os.path.dirname(path), exist_ok=True)
            if number == endless_one:
                with open(path, "w", encoding="utf-8") as file:
                    file.write(endless())
            elif number % 100 == 7:
                with open(path, "w", encoding="ascii") as file:
                    file.write("this is no drawing\n")
            else:
                shutil.copy(sources[number % len(sources)], path)
                self.good.append(name)
                continue
            self.bad.append(name)
        with open(os.path.join(self.folder, "night.txt"), "w", encoding="utf-8") as file:
            file.writelines(sorted(name + "\n" for name in self.good + self.bad))

    def start(self, report):
        words = ["convert", "--list", "night.txt", "--update", "--report", "jsonl", "--log-dir", "logs", "--jobs", "2", "--timeout",
                 str(SECONDS), "--quiet"]
        return subprocess.Popen([self.program, *words], cwd=self.folder, env=self.environment, stdout=report, stderr=subprocess.DEVNULL)

    def run(self, kill_after=None):
        """Exit code, the lines of the report, the parent's memory on the way (KiB), seconds."""
        begin, memory = time.monotonic(), []
        with tempfile.TemporaryFile("w+") as report:
            process = self.start(report)
            how = self.random.choice((signal.SIGKILL, signal.SIGTERM, signal.SIGINT))
            while process.poll() is None:
                memory.append(resident(process.pid))
                if kill_after is not None and time.monotonic() - begin > kill_after:
                    process.send_signal(how)
                    process.wait()
                time.sleep(0.05)
            report.seek(0)
            lines = [json.loads(line) for line in report if line.endswith("\n")]
        return process.returncode, lines, [size for size in memory if size], time.monotonic() - begin

    def left_over(self):
        known = {"home", "tmp", "config", "state", "plans", "logs", "night.txt"}
        found = [name for name in os.listdir(self.folder) if name not in known]
        for folder, _, names in os.walk(os.path.join(self.folder, "plans")):
            found += [name for name in names if not name.endswith((".dxf", ".pdf"))]
        return found + os.listdir(self.environment["TMPDIR"])


def resident(pid):
    try:
        with open(f"/proc/{pid}/status", encoding="ascii") as status:
            return next((int(line.split()[1]) for line in status if line.startswith("VmRSS:")), 0)
    except OSError:
        return 0


def whole(path):
    try:
        with open(path, "rb") as file:
            file.seek(max(0, os.path.getsize(path) - 1024))
            return b"%%EOF" in file.read()
    except OSError:
        return False


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("samples")
    parser.add_argument("--count", type=int, default=5000)
    parser.add_argument("--kills", type=int, default=6)
    parser.add_argument("--seed", type=int, default=1)
    wanted = parser.parse_args()
    results = []

    def check(name, good, told=""):
        results.append(good)
        print(f"{'ok' if good else 'FAILED':<8}{name}" + (f": {told}" if told else ""))

    with tempfile.TemporaryDirectory() as folder:
        night = Night(os.path.abspath(wanted.program), os.path.abspath(wanted.samples), wanted.count, wanted.seed, folder)
        hit = 0
        for _ in range(wanted.kills):
            code, lines, _, _ = night.run(kill_after=night.random.uniform(0.1, 0.3 + wanted.count / 600))
            hit += code in (-signal.SIGKILL, -signal.SIGTERM, -signal.SIGINT, 130)  # or before it listens to signals
            print(f"        ended with {code} after {len(lines)} drawings")
        check("it was killed while it ran", hit == wanted.kills, f"{hit} of {wanted.kills}")
        code, lines, memory, seconds = night.run()
        named = {line["drawing"] for line in lines if not line["converted"]}
        check("the last run ends with 1", code == 1, str(code))
        check("every bad one is named, no other", named == set(night.bad), f"{len(named)} of {len(night.bad)}")
        check("every good one has its PDF", all(whole(os.path.join(folder, name[:-4] + ".pdf")) for name in night.good))
        logs = set(os.listdir(os.path.join(folder, "logs")))
        check("a log of each good one", all(os.path.basename(name)[:-4] + ".log" in logs for name in night.good))
        check("nothing else lies about", night.left_over() == [], ", ".join(night.left_over()[:5]))
        shutil.rmtree(os.path.join(folder, "logs"))
        for name in night.good:
            os.remove(os.path.join(folder, name[:-4] + ".pdf"))
        code, lines, memory, seconds = night.run()
        half = len(memory) // 2
        growth = max(memory[half:]) - max(memory[:half]) if half > 2 else MEMORY
        check("the parent's memory stays", growth < MEMORY, f"{growth} KiB, {len(memory)} times looked at")
        check("all at once, from nothing", code == 1 and len(lines) == wanted.count, f"{code}, {len(lines)}")
        print(f"        {wanted.count} drawings in {seconds:.1f} s, {wanted.count / seconds * 60:.0f} a minute; parent {max(memory)} KiB")
        sample = night.good[: min(60, len(night.good))]
        begin = time.monotonic()
        for name in sample:
            subprocess.run([night.program, "convert", name, "--quiet"], cwd=folder, env=night.environment, check=True)
        print(f"        one process a drawing: {len(sample) / (time.monotonic() - begin) * 60:.0f} a minute")
    print(f"{sum(results)} passed, {len(results) - sum(results)} failed")
    return 0 if all(results) else 1


if __name__ == "__main__":
    sys.exit(main())
