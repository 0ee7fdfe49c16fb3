#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs clang-tidy with the checks of .clang-tidy over the project's sources; every finding fails.

    check_tidy.py BUILD_FOLDER [--all | --share N] [FILE...]

BUILD_FOLDER holds compile_commands.json of a build that compiles each source alone, as the preset debug's does; without one
the check is skipped. Reading all sources takes the better part of an hour: without `--all` and without files, one in N is
taken (twelve unless told), chosen by its name, so that every room has its share and a run says the same as the one before.
Precompiled headers are those of another compiler and are left out of the commands.
"""
import argparse
import concurrent.futures
import json
import os
import re
import shlex
import subprocess
import sys
import tempfile
import zlib

SKIPPED = 77


def commands(build, source):
    """Path below the project -> its compile command, without precompiled headers and what clang doesn't know."""
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        entries = json.load(file)
    found = {}
    for entry in entries:
        name = os.path.relpath(entry["file"], source)
        if name.startswith(("src/", "adapters/", "apps/")):
            words = shlex.split(entry["command"])
            while words[0].endswith(("ccache", "cmake")) or words[0] in ("-E", "env") or re.match(r"\w+=", words[0]):
                words.pop(0)
            if "-include" in words:
                at = words.index("-include")
                del words[at:at + 2]
            words = [word for word in words if word not in ("-fpch-preprocess", "-Winvalid-pch", "-Wno-restrict",
                                                            "-Wno-stringop-overflow")]
            found[name] = {"directory": entry["directory"], "file": entry["file"], "command": shlex.join(words)}
    return found


def tidy(folder, source, name):
    run = subprocess.run(["clang-tidy", "--quiet", "-p", folder, name], cwd=source, capture_output=True, text=True)
    lines = [line for line in run.stdout.splitlines() if re.search(r": (warning|error): ", line)]
    if run.returncode != 0 and not lines:
        lines = [f"{name}: clang-tidy ended with {run.returncode}: {run.stderr.strip()[:300]}"]
    return [line.replace(source + os.sep, "") for line in lines]


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build")
    parser.add_argument("--all", action="store_true")
    parser.add_argument("--share", type=int, default=12)
    parser.add_argument("files", nargs="*")
    arguments = parser.parse_args()
    source = os.path.abspath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))
    if not os.path.exists(os.path.join(arguments.build, "compile_commands.json")):
        print(f"{arguments.build} holds no compile_commands.json: skipped")
        return SKIPPED
    known = commands(arguments.build, source)
    names = arguments.files or [name for name in sorted(known)
                                if arguments.all or zlib.crc32(name.encode()) % arguments.share == 0]
    findings = set()
    with tempfile.TemporaryDirectory() as folder:
        with open(os.path.join(folder, "compile_commands.json"), "w", encoding="utf-8") as file:
            json.dump(list(known.values()), file)
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            for lines in pool.map(lambda name: tidy(folder, source, name), names):
                findings.update(lines)
    for finding in sorted(findings):
        print(finding)
    print(f"{len(names)} of {len(known)} sources read, {len(findings)} finding(s)")
    return 1 if findings or not names else 0


if __name__ == "__main__":
    sys.exit(main())
