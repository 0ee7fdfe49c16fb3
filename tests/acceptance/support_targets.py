#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Saves over files that plots are made with: fonts, plot style tables, job options and so on are refused as targets, by name.

    support_targets.py PROGRAM

Each row works in a folder of its own with a copy of the install's share folder: the target is a link to the file (a PDF's name
ends in ".pdf").
Ends with "N passed, M failed".
"""
import os
import shutil
import subprocess
import sys
import tempfile

from targets import Stand, drawing, make, state

SHARE = os.path.join(os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__)))), "share", "sheetmaker-pdf")

# Name; where the file lies below the row's folder; what the message calls it.
FILES = [
    ("a shape font beside the drawing", "work/txt.shx", 'the font "txt.shx"'),
    ("an outline font beside the drawing", "work/Arial.TTF", 'the font "Arial.TTF"'),
    ("a font of the user's", "home/.local/share/fonts/office.otf", 'the font "office.otf"'),
    ("a font of the program's user folder", "config/sheetmaker-pdf/fonts/notes.lff", 'the font "notes.lff"'),
    ("a table of fonts", "share/fonts.map", 'the table of fonts "fonts.map"'),
    ("a table by colour beside the drawing", "work/office.ctb", 'the plot style table "office.ctb"'),
    ("a table by name beside the drawing", "work/office.stb", 'the plot style table "office.stb"'),
    ("a table of the user's", "config/sheetmaker-pdf/PlotStyles/mine.ctb", 'the plot style table "mine.ctb"'),
    ("a table of the install", "share/PlotStyles/monochrome.ctb", 'the plot style table "monochrome.ctb"'),
    ("job options", "share/Settings/Graphics [600 dpi].joboptions", 'the job options "Graphics [600 dpi].joboptions"'),
    ("a plotter configuration", "share/PC3/Tarnwick PS8 HighRes.pc3", 'the plotter configuration "Tarnwick PS8 HighRes.pc3"'),
]
COMMANDS = {"convert": ["convert", "plan.dxf", "--layouts", "model", "-o"], "publish": ["publish", "plan.dxf", "-o"]}


def links(root, path):
    """Name of the target by the way that leads to the file."""
    os.symlink(path, os.path.join(root, "work", "link.pdf"))
    os.symlink("link.pdf", os.path.join(root, "work", "second.pdf"))
    os.link(path, os.path.join(root, "work", "hard.pdf"))
    return {"a symbolic link": "link.pdf", "a link to a link": "second.pdf", "a hard link": "hard.pdf"}


def refused(program, folder, file, use, verb, way):
    stand = Stand(program, folder)
    stand.environment["SHEETMAKER_PDF_SHARE"] = os.path.join(folder, "share")
    shutil.copytree(SHARE, os.path.join(folder, "share"), ignore=shutil.ignore_patterns("node_modules"))
    make(stand.folder, {"plan.dxf": drawing()})
    path = os.path.join(folder, file)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    if not os.path.exists(path):
        with open(path, "w", encoding="ascii") as made:
            made.write("old")
    target = links(folder, path)[way]
    names = [path, "plan.dxf", "link.pdf", "second.pdf", "hard.pdf"]
    before = state(stand.folder, names)
    code, _, told = stand.run(*COMMANDS[verb], target)
    expected = f"the PDF would replace {use}; choose another name with -o"
    assert expected in told, f"{expected!r} is not in {told!r}"
    assert code == 2, f"exit {code}: {told}"
    assert state(stand.folder, names) == before, "a file was replaced"


def other_names_are_taken(program, folder):
    """A PDF under two names is written as ever."""
    stand = Stand(program, folder)
    make(stand.folder, {"plan.dxf": drawing(), "old.pdf": "old", "plan.pdf": ("hard link", "old.pdf"), "txt.shx": "font"})
    code, _, told = stand.run("convert", "plan.dxf", "--layouts", "model")
    assert code == 0, told
    with open(os.path.join(stand.folder, "plan.pdf"), "rb") as file:
        assert file.read(4) == b"%PDF"


def rows(program):
    for name, file, use in FILES:
        for way in ("a symbolic link", "a link to a link", "a hard link"):
            for verb in COMMANDS:
                yield f"{verb}: {name}, {way}", lambda folder, row=(file, use, verb, way): refused(program, folder, *row)
    yield "a PDF under two names", lambda folder: other_names_are_taken(program, folder)


def main():
    passed = failed = 0
    for name, check in rows(os.path.abspath(sys.argv[1])):
        with tempfile.TemporaryDirectory() as folder:
            try:
                check(os.path.realpath(folder))
                passed += 1
            except (AssertionError, subprocess.TimeoutExpired) as fault:
                failed += 1
                print(f"{name}: {fault}")
    print(f"{passed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
