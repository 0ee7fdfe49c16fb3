#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Drawings that name what they shouldn't: devices, pipes, commands, files of others. Nothing but what is named is read.

    hostile_references.py PROGRAM [ROW]     ROW: a part of the rows' titles

Each row of hostile_rows.py runs one command in a private folder under strace. It must end within seconds with the exit code and
the very lines of the row (what is said of every drawing as small as these aside). Outside of the job's own folders (the working
folder, temporary files, settings, log) nothing is opened for writing or changed; nothing is read but the drawing, the files that the
row tells, the program's share, fonts and the system's libraries; no program is started but the PostScript interpreter; no other machine
or service is asked. What stood there before stands there as it was. Ends with "N passed, M failed".
"""
import concurrent.futures
import os
import shutil
import stat
import subprocess
import sys
import tempfile

import hostile_drawings
import hostile_rows
import hostile_trace

PATIENCE = 20  # seconds
SHARE = os.path.join(os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__)))), "share", "sheetmaker-pdf")
OWN = {"HOME": "home", "TMPDIR": "tmp", "XDG_CONFIG_HOME": "config", "XDG_STATE_HOME": "state", "XDG_CACHE_HOME": "cache"}
MADE = ("plan.pdf", "out.pdf")


def contents(root):
    """What each thing in the job's folder and outside is: its kind, where a link leads, what a file holds."""
    found = {}
    for part in ("job", "outside"):
        for name in os.listdir(os.path.join(root, part)):
            path = os.path.join(root, part, name)
            kind, held = stat.S_IFMT(os.lstat(path).st_mode), None
            if kind == stat.S_IFLNK:
                held = os.readlink(path)
            elif kind == stat.S_IFREG:
                with open(path, "rb") as file:
                    held = file.read()
            if part == "outside" or name not in MADE:
                found[os.path.join(part, name)] = (kind, held)
    return found


def run(program, interpreter, row, root):
    """What is wrong, as a list."""
    hostile_drawings.make(root)
    job = os.path.join(root, "job")
    for name, text in row.files.items():
        with open(os.path.join(job, name), "w", encoding="utf-8") as file:
            file.write(text.replace("{root}", root))
    environment = {"PATH": "/usr/bin:/bin", "LANG": "C.UTF-8", "SHEETMAKER_PDF_SHARE": SHARE}
    environment.update({variable: os.path.join(root, part) for variable, part in OWN.items()})
    for words in row.before:
        subprocess.run([program, *words], cwd=job, env=environment, check=True, capture_output=True)
    before = contents(root)
    try:
        code, told, trace = hostile_trace.run([program, *row.command], job, environment, os.path.join(root, "logs"), PATIENCE)
    except subprocess.TimeoutExpired:
        return ["goes on for ever"]
    told = [line for line in told.splitlines() if "mended: layouts are missing" not in line]
    expected = [line.replace("{root}", root) for line in row.said]
    found = [] if code == row.code else [f"exit code {code} instead of {row.code}"]
    found += [] if told == expected else [f"said {told} instead of {expected}"]
    read = [os.path.join(root, path) for path in ("job/plan.dxf", *row.read)]
    own = [os.path.join(root, part) for part in OWN.values()]
    # A name is looked for in other letter case, too: in the folders on its way.
    listed = [job, root, os.path.join(root, "outside"), os.path.dirname(root), "/"]
    found += hostile_trace.problems(trace, job, own, read, listed, [program, interpreter], SHARE)
    after = contents(root)
    return found + [f"{name} was changed" for name in sorted({*before, *after}) if before.get(name) != after.get(name)]


def try_row(program, interpreter, row):
    with tempfile.TemporaryDirectory(prefix="hostile-") as root:
        return [problem.replace(root, "FOLDER")[:1000] for problem in run(program, interpreter, row, os.path.realpath(root))]


def main(program, part=""):
    if shutil.which("strace") is None or subprocess.run(["strace", "-o", os.devnull, "true"], capture_output=True).returncode != 0:
        print("strace is not there or may not look at other processes: skipped")
        return 77
    interpreter = os.path.realpath(shutil.which("gs"))
    rows = [row for row in hostile_rows.rows() if part in row.title]
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        for row, problems in zip(rows, pool.map(lambda row: try_row(program, interpreter, row), rows)):
            failed += bool(problems)
            print("".join([f"FAILED  {row.title[:100]}\n", *(f"    {problem}\n" for problem in problems)]) if problems else "", end="", flush=True)
    print(f"{len(rows) - failed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    sys.exit(main(os.path.abspath(sys.argv[1]), *sys.argv[2:]))
