#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Kills the program at random moments: every file is then the old one or the whole new one, and the next run is clean.

    kills.py PROGRAM [--count N] [--first I] [--seed S] [--jobs N]

Each kill takes one job of the table in turn (a conversion with a PDF underlay, a batch, a set of sheets, stamp, attach, sign, set,
and the settings dialog where there are Xvfb and xdotool) and ends it by KILL, TERM or INT, alone or with its whole process group, at a
moment of its usual duration that the seed and the kill's number tell. Afterwards the PDFs are old or whole (qpdf), the drawing and its
backup are old or new to the byte, the settings can be read, nothing of the run is left running, the same command then succeeds, and
nothing but its results is left: no temporary folder, half-made file, lock or worker's log. Ends with "N kills, M failed"; --first I
--count 1 makes one kill again.
"""
import argparse
import collections
import concurrent.futures
import glob
import os
import random
import shutil
import signal
import statistics
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from patient_user import PatientUser, is_at_hand  # noqa: E402
from targets import Stand, drawing, make, underlay  # noqa: E402

SIGNALS = (signal.SIGKILL, signal.SIGTERM, signal.SIGINT)
PATIENCE = 60  # seconds
LINES = "".join(f"0 LINE 8 0 10 {i} 20 0 11 {i} 21 100 " for i in range(300))
PLAN = drawing(LINES).replace("AC1015", "AC1018")
BATCH = {f"{name}.dxf": PLAN for name in "abcd"}
PDFS, DRAWING, SETTING = "pdfs", "drawing", "setting"

# Name; files made before; the command; what it changes: PDFs by name, the drawing, or a setting.
JOBS = [
    ("convert", {"plan.dxf": underlay("survey.pdf")}, ["convert", "plan.dxf", "--layouts", "model", "-o", "out.pdf"], (PDFS, ["out.pdf"])),
    ("batch", BATCH, ["convert", *BATCH, "--jobs", "2", "-o", "out/"], (PDFS, [f"out/{name}.pdf" for name in "abcd"])),
    ("publish", BATCH, ["publish", "-o", "out.pdf", *BATCH], (PDFS, ["out.pdf"])),
    ("stamp", {"plan.dxf": PLAN}, ["stamp", "plan.dxf", "--text", "checked", "--at", "10,10"], (DRAWING, ["stamp", "plan.dxf", "list"])),
    ("attach", {"plan.dxf": PLAN, "a.txt": "a"}, ["attach", "plan.dxf", "add", "a.txt", "--at", "1,1"],
     (DRAWING, ["attach", "plan.dxf", "list"])),
    ("sign", {"plan.dxf": PLAN}, ["sign", "plan.dxf", "add", "Approval", "--rect", "10,10,60,25"], (DRAWING, ["sign", "plan.dxf", "list"])),
    ("set", {}, ["set", "JobOptionsFile", "Greyscale [600 dpi]"], (SETTING, ["get", "JobOptionsFile"])),
]
DIALOG = ("settings", {"plan.dxf": PLAN}, ["settings", "plan.dxf"], (DRAWING, ["attach", "plan.dxf", "list"]))
if is_at_hand():
    JOBS.append(DIALOG)


def contents(path):
    try:
        with open(path, "rb") as file:
            return file.read()
    except FileNotFoundError:
        return None


def is_whole(path):
    return subprocess.run(["qpdf", "--check", path], capture_output=True, timeout=PATIENCE).returncode == 0


def run(stand, *command):
    """Its output; it must succeed."""
    code, out, err = stand.run(*command)
    assert code == 0, f"{command[0]} ended with {code}: {err.strip()[-300:]}"
    return out


class Bench:
    """One job in one folder: what it begins with, what it makes, and how long it takes."""

    def __init__(self, program, job, folder):
        self.name, self.files, self.command, (self.kind, self.detail) = job
        self.stand = Stand(program, folder)
        self.work, self.folder = self.stand.folder, folder
        self.user = PatientUser(os.path.join(folder, "run")) if job is DIALOG else None
        if self.user:
            self.stand.environment.update(self.user.variables)
        make(self.work, {"base.dxf": drawing(LINES)})
        run(self.stand, "convert", "base.dxf", "--layouts", "model", "-o", "survey.pdf")
        self.survey = contents(self.path("survey.pdf"))
        self.fresh()
        self.old = self.result()
        times = []
        for _ in range(3):
            self.fresh()
            process = self.start()
            begin = time.monotonic()
            _, told = process.communicate(timeout=PATIENCE)
            times.append(time.monotonic() - begin)
            assert process.returncode == 0, told
        self.new, self.duration = self.result(), statistics.median(times)
        assert self.new != self.old, f"{self.name} changes nothing"
        self.expected = set(self.names()) | {"work/plan.dxf.bak"}

    def path(self, name):
        return os.path.join(self.work, name)

    def fresh(self):
        """The folder as it was before the first run; the PDFs of an earlier run stand there."""
        for part in ("work", "tmp", "config", "state", "home"):
            shutil.rmtree(os.path.join(self.folder, part))
            os.mkdir(os.path.join(self.folder, part))
        make(self.work, self.files)
        for name in ["survey.pdf", *(self.detail if self.kind == PDFS else [])]:
            os.makedirs(os.path.dirname(self.path(name)), exist_ok=True)
            with open(self.path(name), "wb") as file:
                file.write(self.survey)
        run(self.stand, "set", "JobOptionsFile", "Graphics [600 dpi]")

    def result(self):
        if self.kind == PDFS:
            return [contents(self.path(name)) for name in self.detail]
        return contents(self.path("plan.dxf")) if self.kind == DRAWING else run(self.stand, *self.detail)

    def names(self):
        return sorted(os.path.relpath(os.path.join(here, name), self.folder)
                      for here, folders, files in os.walk(self.folder) for name in folders + files)

    def running(self):
        """Processes that stand in the job's folder or have its temporary folder."""
        found = []
        for process in glob.glob("/proc/[0-9]*"):
            try:
                with open(f"{process}/environ", "rb") as file:
                    if self.folder in os.readlink(f"{process}/cwd") or os.fsencode(self.folder) in file.read():
                        found.append(process)
            except OSError:
                pass
        return found

    def start(self):
        return subprocess.Popen([self.stand.program, *self.command], cwd=self.work, env=self.stand.environment,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, start_new_session=True)

    def kill(self, chance):
        """Ends the job at a moment and tells how: (words, exit code)."""
        moment, how, whole = chance.uniform(0, 1.1) * self.duration, chance.choice(SIGNALS), chance.random() < 0.5
        process = self.start()
        time.sleep(moment)
        try:
            os.killpg(process.pid, how) if whole else process.send_signal(how)
        except ProcessLookupError:
            pass
        _, told = process.communicate(timeout=PATIENCE)
        words = f"{self.name}, {how.name} to {'the group' if whole else 'it'} after {moment:.4f} s of {self.duration:.4f}"
        return f"{words}, ended with {process.returncode}: {told.decode(errors='replace').strip()[-200:]}", process.returncode

    def check_results(self, ended):
        """"old", "new" or "some new" (of a batch)."""
        now = self.result()
        if self.kind != PDFS:
            assert now in (self.old, self.new), f"the {self.kind} is neither the old nor the new one"
            found = "new" if now == self.new else "old"
            backup = contents(self.path("plan.dxf.bak"))
            assert backup in (None, self.old), "the backup isn't the old drawing"
            assert found == "old" or self.kind == SETTING or backup is not None, "there is no backup"
        else:
            changed = [name for name, old, new in zip(self.detail, self.old, now) if new != old]
            for name in changed:
                assert is_whole(self.path(name)), f"{name} is torn"
            found = "new" if len(changed) == len(self.detail) else "some new" if changed else "old"
        closed = self.user and ended == 0  # a signal closes a window as its close box does: nothing is changed, and that is no failure
        assert ended != 0 or found == "new" or closed, f"it ended with 0, and the result is {found}"
        return found

    def check_next_run(self):
        run(self.stand, "list")
        run(self.stand, *[word.replace("Approval", "Second") for word in self.command])
        if self.kind == PDFS:
            for name, old in zip(self.detail, self.old):
                assert contents(self.path(name)) != old and is_whole(self.path(name)), f"{name} is torn after the next run"
        else:
            run(self.stand, *self.detail)
        # The workers of a batch that end at one time may leave the settings' log to whoever opens them next.
        run(self.stand, "list")
        left = sorted(set(self.names()) - self.expected)
        assert not left, f"left after the next run: {left}"

    def try_kill(self, seed, number):
        """What was found ("old", "new", ...), or what is wrong."""
        self.fresh()
        how, ended = self.kill(random.Random(f"{seed}-{number}"))
        try:
            end = time.monotonic() + 5
            while self.running() and time.monotonic() < end:
                time.sleep(0.01)
            assert not self.running(), f"still running: {self.running()}"
            found = self.check_results(ended)
            left = set(self.names()) - self.expected
            self.check_next_run()
            return found + (", leftovers removed" if left else ""), None
        except AssertionError as fault:
            return "failed", f"kill {number} ({how}): {fault}"


def kills_of_job(program, index, numbers, seed):
    signal.signal(signal.SIGINT, signal.default_int_handler)  # a shell's background jobs ignore it, and so would the program
    with tempfile.TemporaryDirectory(prefix="kills-") as folder:
        bench = Bench(program, JOBS[index], folder)
        try:
            return [(bench.name, *bench.try_kill(seed, number)) for number in numbers]
        finally:
            if bench.user:
                bench.user.leave()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--count", type=int, default=60)
    parser.add_argument("--first", type=int, default=0)
    parser.add_argument("--seed", default="kills")
    parser.add_argument("--jobs", type=int, default=2)
    given = parser.parse_args()
    numbers = range(given.first, given.first + given.count)
    counts, failed = collections.Counter(), 0
    with concurrent.futures.ProcessPoolExecutor(given.jobs) as pool:
        parts = [pool.submit(kills_of_job, os.path.abspath(given.program), index, part, given.seed)
                 for index in range(len(JOBS)) if (part := [n for n in numbers if n % len(JOBS) == index])]
        for part in concurrent.futures.as_completed(parts):
            for name, found, fault in part.result():
                counts[f"{name}: {found}"] += 1
                failed += fault is not None
                if fault:
                    print(fault, flush=True)
    for what, count in sorted(counts.items()):
        print(f"{what}: {count}")
    print(f"{sum(counts.values())} kills, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
