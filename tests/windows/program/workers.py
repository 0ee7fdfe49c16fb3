#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Workers of the Windows program that don't come to their end: what they were at is told, and the others' pages stay.

    workers.py WINDOWS-PROGRAM FOLDER      FOLDER gets a Wine prefix
"""
import os
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time

from programs import ENVIRONMENT, windows_program

SAMPLES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "..", "samples")
WORKER_WORD = b"@worker"
CRASH_UNDER_WINE = "C000001D"  # what a segmentation fault that comes as a signal is there
PROGRAM = range(0x140000000, 0x142000000)  # where a program of 64 bits is loaded
FAULTS = []


def same(what, found, expected):
    if found != expected:
        FAULTS.append(f"{what}:\n  found    {found!r}\n  expected {expected!r}")


def large_drawing(path, lines):
    with open(path, "w", encoding="ascii") as file:
        file.write("0\nSECTION\n2\nENTITIES\n")
        for number in range(lines):
            file.write(f"0\nLINE\n8\n0\n10\n{number % 97}.25\n20\n{number % 89}.5\n11\n{number % 83}.75\n21\n50.0\n")
        file.write("0\nENDSEC\n0\nEOF\n")


def worker_at_work(folder):
    """The process of this machine that is a worker and has left a.dxf behind; 0: there is none yet."""
    found = []
    for name in filter(str.isdigit, os.listdir("/proc")):
        try:
            with open(f"/proc/{name}/cmdline", "rb") as file:
                words = file.read().split(b"\0")
            if os.readlink(f"/proc/{name}/cwd") == folder and WORKER_WORD in words and b"publish" in words:
                with open(f"/proc/{name}/stat", "rb") as file:
                    ticks = int(file.read().rsplit(b")", 1)[1].split()[11])
                found.append((ticks, int(name)))
        except (OSError, IndexError):  # it has gone meanwhile
            continue
    enough = int(0.4 * os.sysconf("SC_CLK_TCK"))  # to start and read a.dxf takes 0.1, b.dxf 1 and more
    return max((process for ticks, process in found if ticks >= enough), default=0)


def is_at_its_own(process):
    """Whether a stopped process stands in code of the program. A signal that strikes Wine's side is no crash of the
    program: Wine takes it for a bad pointer in a call of the system, which then fails. True where it can't be seen."""
    with open(f"/proc/{process}/stat", "rb") as file:
        if file.read().rsplit(b")", 1)[1].split()[0] != b"T":
            return False
    try:
        with open(f"/proc/{process}/syscall", encoding="ascii") as file:
            words = file.read().split()
    except PermissionError:
        return True
    return words[0] == "-1" and int(words[2], 16) in PROGRAM


def crash(process):
    deadline = time.monotonic() + 60
    struck = False
    while not struck and time.monotonic() < deadline:
        os.kill(process, signal.SIGSTOP)
        time.sleep(0.01)
        struck = is_at_its_own(process)
        if struck:
            os.kill(process, signal.SIGSEGV)
        os.kill(process, signal.SIGCONT)
        time.sleep(0.003)


def a_crash_is_left_out(windows, folder):
    for name in ("a.dxf", "c.dxf"):
        shutil.copy(os.path.join(SAMPLES, "house.dxf"), os.path.join(folder, name))
    large_drawing(os.path.join(folder, "b.dxf"), 1600000)
    words = ["publish", "-o", "set.pdf", "a.dxf", "b.dxf", "c.dxf", "--keep-going", "--jobs", "1"]
    with subprocess.Popen([*windows.command, *words], cwd=folder, env={**os.environ, **ENVIRONMENT}, text=True,
                          stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE) as run:
        deadline = time.monotonic() + 60
        worker = 0
        while not worker and time.monotonic() < deadline and run.poll() is None:
            time.sleep(0.02)
            worker = worker_at_work(folder)
        if worker:
            crash(worker)
        out, err = run.communicate(timeout=60)
    same("publish --keep-going", (run.returncode, out), (1, f"set.pdf -> Z:{folder}/set.pdf, 6 pages\n"))
    same("what is told", [line for line in err.splitlines() if "failed" in line],
         [f"b.dxf: failed: the conversion was ended by fault {CRASH_UNDER_WINE}"])
    checked = subprocess.run(["qpdf", "--check", os.path.join(folder, "set.pdf")], capture_output=True, text=True)
    same("the set: qpdf --check", (checked.returncode, checked.stderr), (0, ""))


def a_want_of_memory_is_told(windows, folder):
    """Wine's job objects limit no memory. This machine's own limit stands in for them: the system gives no more."""
    large_drawing(os.path.join(folder, "large.dxf"), 800000)
    shutil.copy(os.path.join(SAMPLES, "house.dxf"), os.path.join(folder, "small.dxf"))
    most = 64 << 20
    run = windows.run("convert", "large.dxf", "small.dxf", "-o", "made", "--jobs", "1", folder=folder,
                      preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_DATA, (most, most)))
    same("a want of memory", (run.returncode, run.stdout, [line for line in run.stderr.splitlines() if "failed" in line]),
         (1, f"small.dxf -> Z:{folder}/made/small.pdf, 3 pages\n", ["large.dxf: failed: there is not enough memory"]))
    same("what is made", os.listdir(os.path.join(folder, "made")), ["small.pdf"])


def main():
    windows, prefix = sys.argv[1:]
    folder = os.path.realpath(tempfile.mkdtemp())
    try:
        program = windows_program(windows, prefix)
        for row in (a_crash_is_left_out, a_want_of_memory_is_told):
            row(program, folder)
    finally:
        shutil.rmtree(folder)
    print("\n".join(FAULTS) or "what ended early was told")
    return 1 if FAULTS else 0


if __name__ == "__main__":
    sys.exit(main())
