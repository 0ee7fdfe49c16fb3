#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Damages DWG files and checks how the program answers: built with the sanitizers, or what memory it takes.

    dwg_damage.py PROGRAM FOLDER [--share N] [--jobs N] [--memory] [--only TEXT] [--keep FOLDER]

Every DWG below FOLDER is cut at 20 places and changed 300 times: single bytes, and blocks that are zeroed, repeated,
filled with ones or with noise. All is seeded by the file's name: the same every time. The program lists the layouts of
each (the whole file is opened and its model built) and converts one in twenty. It must exit 0, 1 or 4 within ten seconds,
without a word from the sanitizers; with 1 it says one line that names the file. --share 20 takes one in twenty. --memory is
for a program without sanitizers, which lists layouts alone: its peak memory must stay below what it takes without a drawing
and 64 MiB and 40 times the file. Files older than R9 aren't opened without a converter: they are left out, and exit code 3
is right where damage made one. Prints a line a drawing and "N passed, M failed".
"""
import argparse
import concurrent.futures
import itertools
import os
import random
import resource
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
ENVIRONMENT = os.environ | {
    "LSAN_OPTIONS": "print_suppressions=0:suppressions=" + os.path.join(HERE, "..", "acceptance", "lsan.supp")}
# The search for leaks takes half as long as the rest: it goes with converting.
NO_LEAKS = ENVIRONMENT | {"ASAN_OPTIONS": "detect_leaks=0"}
CUTS, CHANGES, SECONDS, CONVERTED = 20, 300, 10, 20
MIB = 1024 * 1024


def dwgs_in(folder):
    return [os.path.join(path, name) for path, _, names in sorted(os.walk(folder)) for name in sorted(names)
            if name.lower().endswith((".dwg", ".dwt"))]


def changed(content, dice):
    """A few bytes or one block of the content changed; half of it all in the first 1024 bytes or the last 4096, where
    heads and tables of containers stand."""
    at = dice.choice([dice.randrange(len(content)), dice.randrange(min(1024, len(content))),
                      len(content) - 1 - dice.randrange(min(4096, len(content))), dice.randrange(len(content))])
    size = min(dice.choice([1, 1, 1, 1, 2, 4, 16, 64, 512, 4096]), len(content) - at)
    kind = dice.randrange(5) if size > 1 else 4
    if kind == 0:
        block = bytes(size)
    elif kind == 1:
        block = b"\xff" * size
    elif kind == 2:
        other = dice.randrange(len(content) - size + 1)
        block = content[other:other + size]
    elif kind == 3:
        block = content[at:at + size][::-1]
    else:
        block = bytes(dice.randrange(256) for _ in range(size))
    return content[:at] + block + content[at + size:], f"{size} bytes at {at}, kind {kind}"


def cases_of(content, name):
    """(what was done, content) for all damage of one file."""
    dice = random.Random(name)
    for part in range(CUTS):
        at = 6 + (len(content) - 6) * part // CUTS + dice.randrange(max(1, (len(content) - 6) // CUTS))
        yield f"cut at {at}", content[:at]
    for _ in range(CHANGES):
        new, what = changed(content, dice)
        yield what, new


def run(command, folder):
    """Exit code, what it said, and what it took."""
    with tempfile.TemporaryFile() as said:
        process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=said, cwd=folder, stdin=subprocess.DEVNULL,
                                   env=(ENVIRONMENT if "convert" in command else NO_LEAKS) | {"TMPDIR": folder})
        resource.prlimit(process.pid, resource.RLIMIT_CPU, (SECONDS, SECONDS))
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        said.seek(0)
        return process.returncode, said.read().decode(errors="replace"), usage


def is_native(content):
    return content[:4] == b"AC10" and content[4:6] >= b"04"


def answer_problem(code, said, usage, content, name):
    if code in (-9, -24) and usage.ru_utime + usage.ru_stime >= SECONDS - 1:
        return f"takes {SECONDS} s"
    if "Sanitizer" in said or "runtime error:" in said:
        return "the sanitizers complain: " + said[:1500]
    if code not in (0, 1, 4) and (code != 3 or is_native(content)):
        return f"exit code {code}: {said[-400:]}"
    # A file that opens may still have a sheet that can't be plotted: then what was mended is told besides.
    lines = [line for line in said.splitlines() if "failed" in line or len(said.splitlines()) == 1]
    if code == 1 and (len(lines) != 1 or name not in lines[0]):
        return f"not one line that names the file: {said.splitlines()[:3]}"
    return None


def problems_of(options, path, what, content, number, base):
    name = "damaged.dwg"
    with tempfile.TemporaryDirectory() as folder:
        with open(os.path.join(folder, name), "wb") as file:
            file.write(content)
        convert = number % CONVERTED == 0 and not options.memory
        words = ["convert", name, "-o", "out.pdf", "--layouts", "all"] if convert else ["layouts", name]
        code, said, usage = run([options.program, *words], folder)
        problem = answer_problem(code, said, usage, content, name)
        problems = [problem] if problem else []
        most = base + 64 * MIB + 40 * len(content)
        if options.memory and usage.ru_maxrss * 1024 > most:
            problems.append(f"{usage.ru_maxrss // 1024} MiB, more than {most // MIB}")
        if problems and options.keep:
            with open(os.path.join(options.keep, f"{os.path.basename(path)}-{number}.dwg"), "wb") as file:
                file.write(content)
        return [f"{what}: {problem}" for problem in problems]


def base_memory(program):
    """What a program takes that opens next to nothing."""
    return run([program, "layouts", "missing.dwg"], HERE)[2].ru_maxrss * 1024


def runs_of(options, pool, index, path, content, base):
    """The problems of each run of one file. Another share of each file, so that cuts and changes are all met. A batch at a
    time: a process counts the memory of the one that starts it as its own."""
    cases = ((number, what, new) for number, (what, new) in enumerate(cases_of(content, os.path.basename(path)))
             if (number + 3 * index) % options.share == 0)
    runs = []
    while batch := list(itertools.islice(cases, 2 * options.jobs)):
        started = [pool.submit(problems_of, options, path, what, new, number // options.share, base)
                   for number, what, new in batch]
        runs += [one.result() for one in started]
    return runs


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program", type=os.path.abspath)
    parser.add_argument("folder")
    parser.add_argument("--share", type=int, default=1)
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("--memory", action="store_true")
    parser.add_argument("--only", default="")
    parser.add_argument("--keep", help="folder for the files that fail")
    options = parser.parse_args()
    files = [path for path in dwgs_in(options.folder) if options.only in path]
    if not files or not os.path.exists(options.program):
        print("no drawings, or no program")
        return 77
    base, passed, failed = base_memory(options.program), 0, 0
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        for index, path in enumerate(files):
            with open(path, "rb") as file:
                content = file.read()
            if not is_native(content):
                continue
            runs = runs_of(options, pool, index, path, content, base)
            problems = [problem for one in runs for problem in one]
            failures = sum(1 for one in runs if one)
            passed, failed = passed + len(runs) - failures, failed + failures
            print(f"{os.path.relpath(path, options.folder):50}{len(runs):5} runs", flush=True)
            for problem in problems:
                print("    FAILED: " + problem, flush=True)
    print(f"{passed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
