#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the allocations of a small conversion fail in turn.

    allocations.py PROGRAM LIBRARY [--first N] [--spread N]

The first N allocations of a run and N spread over the rest (2,000 each) fail once each: the run ends with a whole PDF, the one
that it makes without the fault or one of which it says what it lacks, or with a documented code, a word of why and the old PDF.
"""
import argparse
import errno
import os
import subprocess
import sys
import tempfile

import system_faults

WORDS = ["convert", "a.dxf"]


def numbers(calls, first, spread):
    """Which allocations fail."""
    rest = max(0, calls - first)
    return list(range(1, min(first, calls) + 1)) + [first + 1 + i * rest // spread for i in range(min(spread, rest))]


def main(program, library, first, spread):
    failed = 0
    with tempfile.TemporaryDirectory() as folder:
        template = os.path.join(folder, "template")
        os.mkdir(template)
        system_faults.Place(template).fill(program)
        sweeper = system_faults.Sweep(program, library, template, folder)
        whole, wanted, calls = sweeper.once(WORDS, "alloc", 0, 0)
        chosen = numbers(calls, first, spread)
        ends = {}
        for at in chosen:
            try:
                run, files, _ = sweeper.once(WORDS, "alloc", at, errno.ENOMEM)
            except subprocess.TimeoutExpired:
                failed += 1
                print(f"    allocation {at} of {calls}: goes on for ever")
                continue
            fault = sweeper.fault(run, files, whole, wanted, "alloc", errno.ENOMEM)
            ends[run.returncode] = ends.get(run.returncode, 0) + 1
            if fault:
                failed += 1
                print(f"    allocation {at} of {calls}: {fault}")
    print(f"{calls} allocations in a run; exit codes {ends}")
    print(f"{len(chosen) - failed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("library")
    parser.add_argument("--first", type=int, default=2000)
    parser.add_argument("--spread", type=int, default=2000)
    asked = parser.parse_args()
    sys.exit(main(os.path.abspath(asked.program), os.path.abspath(asked.library), asked.first, asked.spread))
