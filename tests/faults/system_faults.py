#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the system calls of each verb fail in turn, and looks at what is left.

    system_faults.py PROGRAM LIBRARY [--share N]

LIBRARY is failing_calls.c, built. A verb is run once to count its calls; then each call fails once with each error that it can
have. After each run: the program ended by itself with a documented exit code; when it says that all went well, what it made is
what it makes without the fault, to the byte, or it said something more; when not, it said why, and the files are the old ones;
no file of its own is left. With --share N every Nth failure is tried. Ends with "N passed, M failed".
"""
import argparse
import contextlib
import errno
import os
import shutil
import sqlite3
import struct
import subprocess
import sys
import tempfile

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
SAMPLE = os.path.join(ROOT, "samples", "flange.dxf")
SETTINGS = "the settings"
NOT_OURS = ("/fontconfig/", "/etc/fonts/")  # a library reads these by itself
LACKING = b"there was not enough memory; the PDF may lack something"
CODES = (0, 1, 2, 3, 4)
SHORT = 0  # one byte rather than a failure
FAULTS = (
    ("open", (errno.EMFILE, errno.EACCES, errno.EIO)),
    ("make", (errno.ENOSPC, errno.EACCES, errno.EMFILE)),
    ("read", (errno.EIO, errno.EINTR, SHORT)),
    ("write", (errno.ENOSPC, errno.EIO, errno.EINTR, SHORT)),
    ("sync", (errno.EIO, errno.ENOSPC)),
    ("rename", (errno.EACCES, errno.ENOSPC)),
    ("map", (errno.ENOMEM,)),
    ("fork", (errno.ENOMEM, errno.EMFILE)),
    ("remove", (errno.EACCES,)),
)
HARMLESS = (errno.EINTR, SHORT)  # a program that goes on after these does all that it was asked

VERBS = (
    ("convert", ["convert", "a.dxf"]),
    ("publish", ["publish", "a.dxf", "b.dxf", "-o", "set.pdf"]),
    ("workers", ["convert", "a.dxf", "b.dxf", "--jobs", "2"]),
    ("stamp", ["stamp", "a.dxf", "add", "--text", "ISSUED", "--at", "5,5"]),
    ("attach", ["attach", "a.dxf", "add", "note.txt", "--at", "5,5"]),
    ("sign", ["sign", "a.dxf", "add", "Field", "--rect", "5,5,30,20"]),
    ("set", ["set", "JobOptionsFile", "Print [1200 dpi]"]),
    ("page-setup", ["page-setup", "a.dxf", "--set", "CenterPlot=true"]),
    ("layouts", ["layouts", "a.dxf"]),
)


class Place:
    """A private folder with two drawings, PDFs of an earlier run, and settings."""

    def __init__(self, folder):
        self.folder = folder
        self.environment = {"PATH": "/usr/bin:/bin", "LANG": "C.UTF-8", "SOURCE_DATE_EPOCH": "1700000000",
                            "SHEETMAKER_PDF_SHARE": os.path.join(ROOT, "share", "sheetmaker-pdf")}
        for variable, part in (("HOME", "home"), ("TMPDIR", "tmp"), ("XDG_CONFIG_HOME", "config"), ("XDG_STATE_HOME", "state"),
                               ("XDG_CACHE_HOME", "cache")):
            self.environment[variable] = os.path.join(folder, part)

    def fill(self, program):
        for part in ("home", "tmp", "config", "state", "cache", "desk"):
            os.mkdir(os.path.join(self.folder, part))
        for name in ("a.dxf", "b.dxf"):
            shutil.copy(SAMPLE, self.path(name))
        for name in ("a.pdf", "b.pdf", "set.pdf", "note.txt"):
            with open(self.path(name), "w", encoding="utf-8") as file:
                file.write("old " + name)
        subprocess.run([program, "set", "JobOptionsFile", "Graphics [600 dpi]"], env=self.environment, check=True, capture_output=True)

    def path(self, name):
        return os.path.join(self.folder, "desk", name)

    def run(self, words, **more):
        return subprocess.run(words, cwd=self.path("."), env={**self.environment, **more}, capture_output=True, timeout=60)

    def files(self):
        found = {}
        for folder, _, names in os.walk(self.folder):
            for name in names:
                path = os.path.join(folder, name)
                if not path.startswith((os.path.join(self.folder, "state"), os.path.join(self.folder, "cache"))):
                    with open(path, "rb") as file:
                        found[os.path.relpath(path, self.folder)] = file.read()
        return found


def is_settings(name):
    """The settings' files are the same to their readers, not to the byte."""
    return ".sqlite" in name


def settings_in(folder):
    """All rows of the settings, as the database's own library reads them after whatever happened."""
    with tempfile.TemporaryDirectory() as copies:
        config = os.path.join(folder, "config", "sheetmaker-pdf")
        for name in os.listdir(config):
            if is_settings(name) and not name.endswith("-shm"):
                shutil.copy(os.path.join(config, name), copies)
        with contextlib.closing(sqlite3.connect(os.path.join(copies, "settings.sqlite"))) as database:
            return rows_of(database)


def rows_of(database):
    assert database.execute("PRAGMA integrity_check").fetchone() == ("ok",)
    tables = [name for name, in database.execute("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name")]
    return {table: sorted(map(repr, database.execute(f"SELECT * FROM {table}"))) for table in tables}


class Sweep:
    def __init__(self, program, library, template, folder):
        self.program, self.library, self.template, self.folder = program, library, template, folder
        self.count, self.log = os.path.join(folder, "count"), os.path.join(folder, "log")
        self.before = Place(template).files()
        self.settings = settings_in(template)

    def once(self, words, kind, at, error):
        """The run, the files after it, and how many calls there were."""
        where = os.path.join(self.folder, "place")  # always the same, as paths stand in what is made
        shutil.rmtree(where, ignore_errors=True)
        shutil.copytree(self.template, where)
        place = Place(where)
        for path, content in ((self.count, bytes(8)), (self.log, b"")):
            with open(path, "wb") as file:
                file.write(content)
        run = place.run([self.program, *words], LD_PRELOAD=self.library, SM_FAULT_COUNT=self.count, SM_FAULT_KINDS=kind,
                        SM_FAULT_AT=str(at), SM_FAULT_ERRNO=str(error), SM_FAULT_LOG=self.log)
        with open(self.count, "rb") as file:
            return run, {**place.files(), SETTINGS: settings_in(where)}, struct.unpack("Q", file.read())[0]

    def call(self):
        with open(self.log, encoding="utf-8", errors="replace") as file:
            return file.read().strip()

    def fault(self, run, files, whole, wanted, kind, error):
        """What is wrong after a run with a fault; None when nothing is."""
        if run.returncode not in CODES:
            return f"exit code {run.returncode}: {run.stderr.decode(errors='replace')[-200:]}"
        strays = [name for name in files if name not in self.before and name not in wanted and not is_settings(name)
                  and not (kind == "remove" and self.call().endswith(os.path.basename(name)))]  # what can't be removed stays
        if strays:
            return f"left {strays}"
        if run.returncode != 0:
            before = {**self.before, SETTINGS: self.settings}
            torn = [name for name in before if not is_settings(name) and files.get(name) not in (before[name], wanted.get(name))]
            if torn == ["desk/a.pdf"] and LACKING in run.stderr:
                torn = [] if files[torn[0]].endswith(b"%%EOF\n") else torn
            return f"exit {run.returncode}, but {torn} are neither old nor new" if torn else None if run.stderr else "no word of why"
        other = [name for name in wanted if not is_settings(name) and files.get(name) != wanted[name]]
        if error in HARMLESS and other and not any(part in self.call() for part in NOT_OURS):
            return f"{other} differ"
        return None if not other or run.stderr != whole.stderr else f"{other} differ, and not a word of it"


def sweep(program, library, share):
    passed, failed, turn = 0, 0, 0
    with tempfile.TemporaryDirectory() as folder:
        template = os.path.join(folder, "template")
        os.mkdir(template)
        Place(template).fill(program)
        for name, words in VERBS:
            of_verb = [0, 0]
            for kind, errors in FAULTS:
                sweeper = Sweep(program, library, template, folder)
                whole, wanted, calls = sweeper.once(words, kind, 0, 0)
                if whole.returncode != 0:
                    sys.exit(f"{name} fails without a fault: {whole.stderr.decode()}")
                for at in range(1, calls + 1):
                    for error in errors:
                        turn += 1
                        if turn % share:
                            continue
                        run, files, _ = sweeper.once(words, kind, at, error)
                        fault = sweeper.fault(run, files, whole, wanted, kind, error)
                        of_verb[fault is not None] += 1
                        if fault:
                            print(f"    {name}: {kind} {at} of {calls}, {errno.errorcode.get(error, 'short')}, {sweeper.call()}: {fault}")
            print(f"{'FAILED' if of_verb[1] else 'ok':<8}{name}: {sum(of_verb)} faults", flush=True)
            passed, failed = passed + of_verb[0], failed + of_verb[1]
    print(f"{passed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("library")
    parser.add_argument("--share", type=int, default=1)
    chosen = parser.parse_args()
    sys.exit(sweep(os.path.abspath(chosen.program), os.path.abspath(chosen.library), chosen.share))
