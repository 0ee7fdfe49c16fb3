#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Proves the rules of the house: which folder may include what, headers that compile alone, no bare try in the plug-in,
the operating system in its own rooms, file and function lengths, words that don't belong in the tree.

    check_house.py RULE [--source DIR]      RULE: arrows headers policies lengths folders words platform settings
format licence
"""
import argparse
import collections
import concurrent.futures
import functools
import glob
import os
import re
import shutil
import subprocess
import sys

from arrows import check_arrows, resolve, room_of
from settings import check_settings
from sources import INCLUDE, files, read
from systems import check_platform

WORDS = re.compile(r"\bspecification\b|\bthe spec\b|\bparts? [1-6]\.[1-9]\b", re.I)
FILES_IN_A_FOLDER = 25
PATHS = re.compile(r"(^|[\s\"'=(])/(root|work)/|/tmp/[a-z]")  # of one machine
WORDS_ALLOWED = re.compile(r"specific|format specification|XMP specification|PDF specification", re.I)


WINDOWS_COMPILER = "x86_64-w64-mingw32-g++-posix"


@functools.cache
def qt_folders():
    run = subprocess.run(["pkg-config", "--cflags", "Qt6Widgets"], capture_output=True, text=True)
    return [*run.stdout.split(), "-fPIC"]


def is_windows(name):
    return name.startswith(("adapters/windows/", "adapters/win32/")) or "/windows/" in name


def compile_alone(source, name):
    folders = ["-Isrc", "-Itests", *sorted("-I" + folder for folder in glob.glob("adapters/*/include", root_dir=source)),
               "-I" + room_of(name), *(["-Iadapters"] if name.startswith(("adapters/windows/", "adapters/win32/")) else [])]
    if is_windows(name):
        command = [WINDOWS_COMPILER, "-DUNICODE", "-DNOMINMAX", *folders]
    else:
        command = ["g++", *folders, "-I/usr/include/freetype2", "-I/usr/include/harfbuzz", *qt_folders()]
    command += ["-std=c++20", "-fsyntax-only", "-x", "c++", "-include", name, "/dev/null"]
    run = subprocess.run(command, cwd=source, capture_output=True, text=True)
    return None if run.returncode == 0 else f"{name}: doesn't compile alone: {run.stderr.strip().splitlines()[0]}"


def leading_headers(source):
    """What some source includes before all else: the build has compiled these headers alone already."""
    names = set(files(source, ["src", "adapters", "apps"], (".h", ".cpp")))
    for name in names:
        first = INCLUDE.search(read(source, name))
        if name.endswith(".cpp") and first and first.group(1) == '"':
            yield resolve(names, name, first.group(2))


def check_headers(source):
    names = list(files(source, ["src", "adapters", "apps"], (".h",)))
    left = [name for name in names if name not in set(leading_headers(source))]
    if shutil.which(WINDOWS_COMPILER) is None:
        print(f"without {WINDOWS_COMPILER}: the headers of Windows are left out")
        left = [name for name in left if not is_windows(name)]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for finding in pool.map(lambda name: compile_alone(source, name), left):
            if finding:
                yield finding
    for name in names:
        if "#pragma once" not in read(source, name):
            yield f"{name}: has no #pragma once"


def check_policies(source):
    for name in files(source, ["src"], (".h", ".cpp")):
        if name != "src/plugin/Attempt.h":
            for number, line in enumerate(read(source, name).splitlines(), 1):
                if re.search(r"\btry\b\s*\{?$|\bcatch\s*\(", line.split("//")[0].rstrip()):
                    yield f"{name}:{number}: a bare try; use the policies of plugin/Attempt.h"


def check_lengths(source):
    for name in files(source, ["src", "adapters", "apps", "tests", "bench"], (".h", ".cpp", ".py")):
        lines = read(source, name).splitlines()
        if len(lines) > 400:
            yield f"{name}: {len(lines)} lines; 400 is the ceiling"
        if name.startswith("tests/") or not name.endswith(".cpp"):
            continue
        start = None
        for number, line in enumerate(lines, 1):
            if line == "{" or (re.match(r"^\S.*\)(\s*(const|noexcept|override))*\s*\{$", line)):
                start = number
            elif line.startswith("}") and start:
                if number - start > 61:
                    yield f"{name}:{start}: a function of {number - start} lines; 60 is the ceiling"
                start = None


def check_format(source):
    names = list(files(source, ["src", "adapters", "apps", "tests", "bench"], (".h", ".cpp")))
    run = subprocess.run(["clang-format", "--dry-run", *names], cwd=source, capture_output=True, text=True)
    for line in run.stderr.splitlines():
        if "code should be clang-formatted" in line:
            yield line.split(" warning:")[0].split(" error:")[0] + " is not laid out as .clang-format says"


def check_words(source):
    listed = subprocess.run(["git", "ls-files"], cwd=source, capture_output=True, text=True).stdout.split("\n")
    for name in listed:
        if not name or name.endswith((".dxf", ".png", ".lock")) or name in ("LICENSE", "tests/house/check_house.py"):
            continue
        try:
            text = read(source, name)
        except (UnicodeDecodeError, FileNotFoundError, IsADirectoryError):
            continue
        for number, line in enumerate(text.splitlines(), 1):
            if WORDS.search(WORDS_ALLOWED.sub("", line)) or PATHS.search(line):
                yield f"{name}:{number}: {line.strip()[:100]}"


def check_licence(source):
    """Every source says under which licence it is, in its first lines."""
    for name in files(source, ["src", "adapters", "apps", "tests", "bench", "packaging", "fuzz", "cmake"], (".h", ".cpp", ".c", ".py", ".cmake")):
        if not any("SPDX-License-Identifier: " in line for line in read(source, name).split("\n", 2)[:2]):
            yield f"{name}: has no SPDX-License-Identifier"


def check_folders(source):
    """A folder that nobody can take in at a glance gets walls."""
    counts = collections.Counter(os.path.dirname(name) for name in files(source, ["src", "adapters", "apps"], ("",)))
    for folder, count in sorted(counts.items()):
        if count > FILES_IN_A_FOLDER:
            yield f"{folder}: {count} files, of at most {FILES_IN_A_FOLDER}"


def main():
    rules = {"arrows": check_arrows, "headers": check_headers, "policies": check_policies, "lengths": check_lengths,
             "folders": check_folders, "words": check_words, "platform": check_platform, "settings": check_settings,
             "format": check_format, "licence": check_licence}
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("rule", choices=rules)
    parser.add_argument("--source", default=os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))
    arguments = parser.parse_args()
    findings = list(rules[arguments.rule](os.path.abspath(arguments.source)))
    for finding in findings:
        print(finding)
    print(f"{arguments.rule}: {len(findings)} finding(s)")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
