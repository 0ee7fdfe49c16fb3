#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Attaches files of many sizes and places, converts, and reads them back with a tool that isn't ours.

    attachments.py PROGRAM

Each row works in a folder of its own. Ends with "N passed, M failed".
"""
import hashlib
import json
import os
import random
import subprocess
import sys
import tempfile

MEBIBYTE = 1 << 20
DRAWING = ("0 SECTION 2 HEADER 9 $ACADVER 1 AC1018 0 ENDSEC 0 SECTION 2 TABLES 0 ENDSEC 0 SECTION 2 BLOCKS 0 ENDSEC "
           "0 SECTION 2 ENTITIES 0 LINE 8 0 10 0 20 0 11 100 21 100 0 ENDSEC "
           "0 SECTION 2 OBJECTS 0 DICTIONARY 5 C 330 0 0 ENDSEC 0 EOF ").replace(" ", "\n")


def packed(size):
    """Bytes that nothing makes smaller."""
    return random.Random(size).randbytes(size)


def repeating(size):
    return (bytes(range(251)) * (size // 251 + 1))[:size]


class Stand:
    def __init__(self, program, folder):
        self.program, self.root, self.folder = program, folder, os.path.join(folder, "work")
        self.environment = {"PATH": "/usr/bin:/bin", "LANG": "C.UTF-8"}
        for variable, part in (("HOME", "home"), ("TMPDIR", "tmp"), ("XDG_CONFIG_HOME", "config"), ("XDG_STATE_HOME", "state")):
            self.environment[variable] = os.path.join(folder, part)
            os.mkdir(self.environment[variable])
        os.mkdir(self.folder)
        self.write("work/plan.dxf", DRAWING.encode())

    def path(self, name):
        return os.path.join(self.root, name)

    def write(self, name, content):
        os.makedirs(os.path.dirname(self.path(name)), exist_ok=True)
        with open(self.path(name), "wb") as file:
            file.write(content)

    def run(self, *arguments, code=0):
        """Stdout and stderr, without what is said of every drawing as small as this one."""
        run = subprocess.run([self.program, *arguments], cwd=self.folder, env=self.environment, capture_output=True, text=True,
                             timeout=120)
        assert run.returncode == code, f"exit {run.returncode} of {arguments}: {run.stderr}"
        return run.stdout, "".join(line for line in run.stderr.splitlines(True) if "mended: layouts are missing" not in line)

    def attach(self, *paths):
        for path in paths:
            self.run("attach", "plan.dxf", "add", path, "--at", "1,1")

    def names(self, pdf="plan.pdf"):
        """Of the embedded files, as pdfdetach lists them: those of the document's own list, then the same by their icons."""
        run = subprocess.run(["pdfdetach", "-list", os.path.join(self.folder, pdf)], check=True, capture_output=True, text=True)
        names = [line.partition(": ")[2] for line in run.stdout.splitlines()[1:]]
        half = len(names) // 2
        same(sorted(names[:half]), sorted(names[half:]))
        return names[half:]

    def embedded(self, pdf="plan.pdf"):
        """Name and checksum of each embedded file, as pdfdetach saves it."""
        names, pdf = self.names(pdf), os.path.join(self.folder, pdf)
        before = len(names)  # those of the document's own list
        subprocess.run(["qpdf", "--check", pdf], check=True, capture_output=True)
        found = []
        for number, name in enumerate(names, before + 1):
            subprocess.run(["pdfdetach", "-save", str(number), "-o", self.path("back"), pdf], check=True, capture_output=True)
            with open(self.path("back"), "rb") as file:
                found.append((name, hashlib.sha256(file.read()).hexdigest()))
        return found


def same(seen, expected):
    assert seen == expected, f"{seen!r} instead of {expected!r}"


def checksum(content):
    return hashlib.sha256(content).hexdigest()


def sizes_come_back(stand):
    files = {"empty.bin": b"", "one.bin": b"x", "small.bin": packed(300_000), "text.bin": repeating(9 * MEBIBYTE),
             "archive.bin": packed(9 * MEBIBYTE + 7)}
    for name, content in files.items():
        stand.write("work/" + name, content)
    stand.attach(*files)
    out, told = stand.run("convert", "plan.dxf", "--report", "json", "--strict")
    same(told, "")
    same(sorted(stand.embedded()), sorted((name, checksum(content)) for name, content in files.items()))
    report = json.loads(out)["drawings"][0]
    same(report["attachments"], [{"name": name, "path": os.path.join(stand.folder, name), "bytes": len(content)}
                                 for name, content in files.items()])
    same((report["attachmentsLost"], report["notes"]), ([], []))
    size = os.path.getsize(os.path.join(stand.folder, "plan.pdf"))
    assert size < 10 * MEBIBYTE, f"{size} bytes: a file is there twice or was not compressed"


def memory_is_less_than_the_file(stand):
    """It passes through in blocks."""
    content = packed(MEBIBYTE) * 64
    stand.write("work/archive.bin", content)
    stand.attach("archive.bin")
    stand.run("convert", "plan.dxf", "--memory", "48", "--strict")
    same(stand.embedded(), [("archive.bin", checksum(content))])


def the_limit(stand):
    """A file that is too large is refused by name, the others are there; the setting says how large."""
    stand.write("work/small.txt", b"small")
    for name, mebibytes in (("most.bin", 3), ("large.bin", 250)):
        with open(stand.path("work/" + name), "wb") as file:
            file.truncate(mebibytes * MEBIBYTE + (name == "large.bin"))
    stand.attach("large.bin", "small.txt", "most.bin")
    path = os.path.join(stand.folder, "large.bin")
    line = (f"plan.dxf: Page 1: the file {path} could not be attached: it has 262144001 bytes, more than the 250 MiB that may be "
            'attached; "sheetmaker set AttachmentLimit 251" raises that\n')
    out, told = stand.run("convert", "plan.dxf", "--report", "json")
    assert line in told, told
    same(stand.names(), ["small.txt", "most.bin"])
    same(json.loads(out)["drawings"][0]["attachmentsLost"], [path])
    stand.run("convert", "plan.dxf", "--strict", code=1)
    stand.run("set", "AttachmentLimit", "2")
    _, told = stand.run("convert", "plan.dxf")
    assert "more than the 2 MiB that may be attached" in told, told
    same(stand.names(), ["small.txt"])
    stand.run("set", "AttachmentLimit", "251")
    stand.run("convert", "plan.dxf", "--strict")
    same(stand.names(), ["large.bin", "small.txt", "most.bin"])


def a_name_that_no_drawing_keeps(stand):
    """Bytes that aren't UTF-8 would come back as another name."""
    name = os.path.join(os.fsencode(stand.folder), b"gr\xfcn.txt")
    with open(name, "wb") as file:
        file.write(b"green")
    run = subprocess.run([stand.program, "attach", "plan.dxf", "add", name, "--at", "1,1"], cwd=stand.folder, env=stand.environment,
                         capture_output=True, check=False)
    same((run.returncode, run.stderr), (2, b"sheetmaker attach: the path " + name + b" holds bytes that aren't UTF-8; rename the file or "
                                        b"its folder\n"))
    out, _ = stand.run("attach", "plan.dxf", "list")
    same(out, "plan.dxf has no attachments\n")


def a_missing_one(stand):
    stand.write("work/gone.txt", b"gone")
    stand.attach("gone.txt")
    os.remove(stand.path("work/gone.txt"))
    path = os.path.join(stand.folder, "gone.txt")
    line = f"Page 1: the file {path} could not be attached: there is no such file"
    out, told = stand.run("convert", "plan.dxf", "--report", "json")
    assert f"plan.dxf: {line}\n" in told, told
    report = json.loads(out)["drawings"][0]
    same((report["attachments"], report["attachmentsLost"], report["notes"]), ([], [path], [line]))
    stand.run("convert", "plan.dxf", "--strict", code=1)


def outside_is_named_or_refused(stand):
    stand.write("elsewhere/report.txt", b"report")
    stand.write("work/below/inside.txt", b"inside")
    os.symlink(stand.path("elsewhere/report.txt"), stand.path("work/link.txt"))
    stand.attach("below/inside.txt")
    stand.run("convert", "plan.dxf", "--attachments", "refuse-outside", "--strict")
    same(stand.embedded(), [("inside.txt", checksum(b"inside"))])
    for attached in (stand.path("elsewhere/report.txt"), stand.path("work/link.txt")):
        stand.attach(attached)
        out, told = stand.run("convert", "plan.dxf", "--report", "json", "--strict")
        line = f"attached from outside the folder of plan.dxf: {attached} (6 bytes)"
        same(told, f"plan.dxf: {line}\n")
        same(json.loads(out)["drawings"][0]["notes"], [line])
        same(stand.embedded()[1][1], checksum(b"report"))
        os.remove(stand.path("work/plan.pdf"))
        _, told = stand.run("convert", "plan.dxf", "--attachments", "refuse-outside", code=1)
        same(told, f"plan.dxf: failed: the attached file {attached} lies outside the drawing's folder, which --attachments refuses\n")
        assert not os.path.exists(stand.path("work/plan.pdf")), "a PDF was written"
        stand.run("attach", "plan.dxf", "remove", "2")


def a_set_names_them(stand):
    stand.write("other/site.dxf", DRAWING.encode())
    stand.write("elsewhere/report.txt", b"report")
    stand.attach(stand.path("elsewhere/report.txt"))
    _, told = stand.run("publish", "-o", "set.pdf", stand.path("other/site.dxf"), "plan.dxf")
    assert f"attached from outside the folder of plan.dxf: {stand.path('elsewhere/report.txt')} (6 bytes)\n" in told, told
    same(stand.embedded("set.pdf"), [("report.txt", checksum(b"report"))])


def a_set_refuses_them(stand):
    stand.write("other/site.dxf", DRAWING.encode())
    stand.write("elsewhere/report.txt", b"report")
    outside = stand.path("elsewhere/report.txt")
    stand.attach(outside)
    options = ["publish", "-o", "set.pdf", "--attachments", "refuse-outside", stand.path("other/site.dxf"), "plan.dxf"]
    line = f"the attached file {outside} lies outside the drawing's folder, which --attachments refuses\n"
    _, told = stand.run(*options, code=1)
    assert line in told, told
    assert not os.path.exists(stand.path("work/set.pdf")), "a PDF was written"
    _, told = stand.run(*options, "--keep-going", code=1)
    assert "plan.dxf: failed: " + line in told, told
    same(stand.embedded("set.pdf"), [])


def a_set_keeps_its_postscript(stand):
    stand.run("publish", "-o", "set.pdf", "plan.dxf", "--keep-ps")
    kept = sorted(name for name in os.listdir(stand.path("work")) if not name.startswith("plan."))
    same(sorted(name.rsplit(".", 1)[1] for name in kept), ["pdf", "ps"])


ROWS = [sizes_come_back, memory_is_less_than_the_file, the_limit, a_name_that_no_drawing_keeps, a_missing_one,
        outside_is_named_or_refused, a_set_names_them,
        a_set_refuses_them, a_set_keeps_its_postscript]


def main():
    program = os.path.abspath(sys.argv[1])
    failed = 0
    for check in ROWS:
        with tempfile.TemporaryDirectory() as folder:
            try:
                check(Stand(program, os.path.realpath(folder)))
            except (AssertionError, subprocess.SubprocessError) as fault:
                failed += 1
                print(f"{check.__name__}: {fault}")
    print(f"{len(ROWS) - failed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
