#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Saves over files that a drawing uses, and over each other's changes: nothing may be lost, and the message names the file.

    targets.py PROGRAM

Each row makes a drawing in a folder of its own, runs one command, and looks at every file that stood there before. Ends with
"N passed, M failed".
"""
import fcntl
import hashlib
import os
import subprocess
import sys
import tempfile
import time

LINE = "0 LINE 8 0 10 0 20 0 11 100 21 100 "
UNDERLAY = "0 PDFUNDERLAY 5 A1 8 {layer} 100 AcDbUnderlayReference 340 B1 10 0 20 0 30 0 41 1 42 1 43 1 280 2 "
FROZEN = "0 TABLE 2 LAYER 0 LAYER 2 F 70 1 62 7 6 CONTINUOUS 0 ENDTAB "


def drawing(entities="", objects="", blocks="", tables=""):
    """DXF text from groups on one line; no value holds a blank."""
    objects = "0 DICTIONARY 5 C 330 0 " + objects
    words = ("0 SECTION 2 HEADER 9 $ACADVER 1 AC1015 0 ENDSEC 0 SECTION 2 TABLES " + tables + "0 ENDSEC 0 SECTION 2 BLOCKS " + blocks +
             "0 ENDSEC 0 SECTION 2 ENTITIES " + LINE + entities + "0 ENDSEC 0 SECTION 2 OBJECTS " + objects + "0 ENDSEC 0 EOF").split()
    return "\n".join(words) + "\n"


def underlay(name, layer="0", tables=""):
    return drawing(UNDERLAY.format(layer=layer), f"0 PDFDEFINITION 5 B1 100 AcDbUnderlayDefinition 1 {name} 2 1 ", tables=tables)


def picture(name):
    return drawing("0 IMAGE 5 A1 8 0 10 0 20 0 30 0 11 1 21 0 31 0 12 0 22 1 32 0 13 10 23 10 340 B1 70 7 ",
                   f"0 IMAGEDEF 5 B1 1 {name} 10 10 20 10 280 1 ")


def xref(name):
    return drawing("0 INSERT 8 0 2 SITE 10 0 20 0 ", blocks=f"0 BLOCK 8 0 2 SITE 70 4 10 0 20 0 1 {name} 0 ENDBLK 8 0 ")


# Name; files made before (a text, or ("link" or "hard link", other)); the command; its exit code; what the message says.
ROWS = [
    ("an underlay", {"plan.dxf": underlay("plan.pdf"), "plan.pdf": "survey"}, ["convert", "plan.dxf"], 2,
     'the PDF would replace the underlay "plan.pdf"; choose another name with -o'),
    ("an underlay on a frozen layer", {"plan.dxf": underlay("survey.pdf", "F", FROZEN), "survey.pdf": "survey"},
     ["convert", "plan.dxf", "-o", "survey.pdf"], 2, 'the PDF would replace the underlay "survey.pdf"'),
    ("a link to an underlay", {"plan.dxf": underlay("survey.pdf"), "survey.pdf": "survey", "out.pdf": ("link", "survey.pdf")},
     ["convert", "plan.dxf", "-o", "out.pdf"], 2, 'the PDF would replace the underlay "survey.pdf"'),
    ("a hard link to an underlay", {"plan.dxf": underlay("survey.pdf"), "survey.pdf": "survey", "out.pdf": ("hard link", "survey.pdf")},
     ["convert", "plan.dxf", "-o", "out.pdf"], 2, 'the PDF would replace the underlay "survey.pdf"'),
    ("a hard link to the drawing", {"plan.dxf": drawing(), "out.pdf": ("hard link", "plan.dxf")},
     ["convert", "plan.dxf", "-o", "out.pdf"], 2, "the PDF would replace the drawing"),
    ("a picture", {"plan.dxf": picture("map.png"), "map.png": "pixels", "plan.pdf": ("link", "map.png")}, ["convert", "plan.dxf"], 2,
     'the PDF would replace the picture "map.png"'),
    ("an external reference", {"plan.dxf": xref("site.dxf"), "site.dxf": drawing(), "plan.pdf": ("link", "site.dxf")},
     ["convert", "plan.dxf"], 2, 'the PDF would replace the external reference "site.dxf"'),
    ("the underlay of an external reference",
     {"plan.dxf": xref("site.dxf"), "site.dxf": underlay("plan.pdf"), "plan.pdf": "survey"}, ["convert", "plan.dxf"], 1,
     'plan.pdf can\'t be saved: it is the underlay "plan.pdf". Choose another name.'),
    ("an attachment", {"plan.dxf": drawing(), "plan.pdf": "report"}, ["convert", "plan.dxf"], 1,
     "plan.pdf. Choose another name."),
    ("an underlay of one drawing of a set", {"a.dxf": drawing(), "plan.dxf": underlay("set.pdf"), "set.pdf": "survey"},
     ["publish", "a.dxf", "plan.dxf", "-o", "set.pdf", "--keep-going"], 2, 'the PDF would replace the underlay "set.pdf"'),
]


def make(folder, files):
    for name, content in files.items():
        path = os.path.join(folder, name)
        if isinstance(content, str):
            with open(path, "w", encoding="utf-8") as file:
                file.write(content)
        elif content[0] == "link":
            os.symlink(content[1], path)
        else:
            os.link(os.path.join(folder, content[1]), path)


def state(folder, names):
    """What each file holds and whether it is a link."""
    found = {}
    for name in names:
        with open(os.path.join(folder, name), "rb") as file:
            found[name] = (hashlib.sha256(file.read()).hexdigest(), os.path.islink(os.path.join(folder, name)))
    return found


class Stand:
    def __init__(self, program, folder):
        self.program, self.folder = program, os.path.join(folder, "work")
        self.environment = {"PATH": "/usr/bin:/bin", "LANG": "C.UTF-8"}
        for variable, part in (("HOME", "home"), ("TMPDIR", "tmp"), ("XDG_CONFIG_HOME", "config"), ("XDG_STATE_HOME", "state")):
            self.environment[variable] = os.path.join(folder, part)
            os.mkdir(self.environment[variable])
        os.mkdir(self.folder)

    def start(self, *arguments):
        return subprocess.Popen([self.program, *arguments], cwd=self.folder, env=self.environment, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, text=True)

    def run(self, *arguments):
        process = self.start(*arguments)
        out, err = process.communicate(timeout=120)
        return process.returncode, out, err


def refused(stand, row):
    name, files, command, code, message = row
    make(stand.folder, files)
    if name == "an attachment":
        assert stand.run("attach", "plan.dxf", "add", "plan.pdf", "--at", "1,1")[0] == 0
    before = state(stand.folder, files)
    ended, _, told = stand.run(*command)
    assert message in told, f"{message!r} is not in {told!r}"
    assert ended == code, f"exit {ended}: {told}"
    assert state(stand.folder, files) == before, "a file was replaced"
    assert not [left for left in os.listdir(stand.folder) if left.endswith(".part")], "something half-made is left"


def ten_editors_at_once(stand):
    """Every change that was told as done is there."""
    make(stand.folder, {"plan.dxf": drawing().replace("AC1015", "AC1018"), "a.txt": "a"})
    editors = [stand.start("attach", "plan.dxf", "add", "a.txt", "--at", f"{i},1") for i in range(10)]
    told = [editor.communicate(timeout=120) for editor in editors]
    assert all(editor.returncode == 0 for editor in editors), [err for _, err in told]
    _, listed, _ = stand.run("attach", "plan.dxf", "list")
    assert len(listed.splitlines()) == 10, listed
    left = [name for name in os.listdir(stand.folder) if name not in ("plan.dxf", "plan.dxf.bak", "a.txt")]
    assert not left, left


def an_editor_that_never_ends(stand):
    """Whoever changes the drawing is named, and what waited for it changed nothing."""
    make(stand.folder, {"plan.dxf": drawing(), "a.txt": "a"})
    with open(os.path.join(stand.folder, ".plan.dxf.sheetmaker-lock"), "w", encoding="utf-8") as lock:
        lock.write("process 77 on drafter7")
        lock.flush()
        fcntl.lockf(lock, fcntl.LOCK_EX)
        before = state(stand.folder, ["plan.dxf"])
        ended, _, told = stand.run("attach", "plan.dxf", "add", "a.txt", "--at", "1,1")
    expected = "sheetmaker attach: plan.dxf: process 77 on drafter7 is changing it; try again when that has ended\n"
    assert (ended, told) == (1, expected), (ended, told)
    assert state(stand.folder, ["plan.dxf"]) == before


def a_file_cut_while_it_is_read(stand):
    """Nothing is made of a drawing that somebody writes to at the same time, and the process doesn't end by a signal."""
    lines = "".join(f"0 LINE 8 0 10 {i} 20 0 11 {i} 21 100 " for i in range(200_000))
    make(stand.folder, {"plan.dxf": drawing(lines), "plan.pdf": "old"})
    path = os.path.join(stand.folder, "plan.dxf")
    process = stand.start("convert", "plan.dxf", "--layouts", "model")
    while process.poll() is None and not is_mapped(process.pid, path):
        time.sleep(0.001)
    os.truncate(path, 5000)
    _, told = process.communicate(timeout=120)
    assert process.returncode == 1, f"exit {process.returncode}: {told}"
    assert "plan.dxf: failed: the file changed while it was read; try again when nobody writes to it" in told, told
    with open(os.path.join(stand.folder, "plan.pdf"), encoding="utf-8") as file:
        assert file.read() == "old", "the PDF was replaced"


def is_mapped(process, path):
    """By the process or a worker of it."""
    for number in [process, *children(process)]:
        try:
            with open(f"/proc/{number}/maps", encoding="utf-8", errors="replace") as file:
                if path in file.read():
                    return True
        except OSError:
            pass
    return False


def children(process):
    try:
        with open(f"/proc/{process}/task/{process}/children", encoding="utf-8") as file:
            return file.read().split()
    except OSError:
        return []


def rows():
    for row in ROWS:
        yield row[0], lambda stand, row=row: refused(stand, row)
    yield "ten editors at once", ten_editors_at_once
    yield "an editor that never ends", an_editor_that_never_ends
    yield "a file cut while it is read", a_file_cut_while_it_is_read


def main():
    program = os.path.abspath(sys.argv[1])
    passed = failed = 0
    for name, check in rows():
        with tempfile.TemporaryDirectory() as folder:
            try:
                check(Stand(program, folder))
                passed += 1
            except (AssertionError, subprocess.TimeoutExpired) as fault:
                failed += 1
                print(f"{name}: {fault}")
    print(f"{passed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
