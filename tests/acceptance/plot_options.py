#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Plots with the options that change a page setup for one run, and edits a drawing's own page setup without a screen.

    plot_options.py PROGRAM

Pages are read by pdfinfo and, as pictures, by mutool. Each row is a function. Ends with "N passed, M failed".
"""
import os
import re
import subprocess
import sys

import numpy
from PIL import Image

import stands

Image.MAX_IMAGE_PIXELS = None
SHEET = "A-101 Ground Floor"


def convert(stand, *words, pdf="o.pdf"):
    run = stand.run("convert", "house.dxf", *words, "-o", pdf)
    stand.same((run.returncode, stand.said(run)), (0, []), " ".join(words))
    return pdf


def size(stand, pdf):
    """Width and height of the first page, whole millimetres."""
    shown = subprocess.run(["pdfinfo", stand.path(pdf)], capture_output=True, text=True).stdout
    return tuple(round(float(side) / 72 * 25.4) for side in re.search(r"Page size: +([\d.]+) x ([\d.]+)", shown).groups())


def picture(stand, pdf):
    subprocess.run(["mutool", "draw", "-q", "-r", "60", "-o", stand.path("page.png"), stand.path(pdf), "1"], check=True)
    return numpy.asarray(Image.open(stand.path("page.png")).convert("RGB")).astype(int)


def ink(page):
    return page.min(axis=2) < 200


def ink_width(page):
    columns = numpy.flatnonzero(ink(page).any(axis=0))
    return int(columns[-1] - columns[0])


def is_grey(page):
    return int((page.max(axis=2) - page.min(axis=2)).max()) < 8


def papers(stand):
    for words, wanted in ((["--paper", "A4", "--fit"], (297, 210)), (["--paper", "iso a2"], (594, 420)),
                          (["--paper", "ISO A3 (297.00 x 420.00 MM)", "--fit"], (297, 420)),
                          (["--paper", "211x296mm", "--fit"], (210, 297)), (["--paper", "ARCH D"], (914, 610)),
                          (["--orientation", "portrait", "--fit"], (297, 420)),
                          (["--paper", "A4", "--orientation", "portrait", "--fit"], (210, 297)),
                          (["--paper", "A4", "--fit", "--page-setup", "global"], (297, 210)),
                          (["--paper", "A4", "--orientation", "portrait", "--fit", "--page-setup", "global"], (210, 297))):
        stand.same(size(stand, convert(stand, "--layout", SHEET, *words)), wanted, " ".join(words))


def papers_refused(stand):
    rows = (("A9", '"; there are "ANSI A", "ANSI B"'), ("ISO A9", '"; did you mean "ISO A'),
            ("420x297mm junk", '"; there are "ANSI A"'), ("100x100mm", '"; the nearest are "ANSI A (8.50 x 11.00 Inches)"'))
    for name, line in rows:
        run = stand.run("convert", "house.dxf", "--paper", name, "-o", "o.pdf")
        stand.same((run.returncode, run.stderr.startswith(f'sheetmaker convert: there is no paper "{name}{line}')), (2, True), run.stderr)


def scales(stand):
    whole = ["--page-setup", "global", "--layouts", "model", "--paper", "A1", "--center"]
    at = {scale: ink_width(picture(stand, convert(stand, *whole, "--scale", scale))) for scale in ("1:200", "1:100", "2:200")}
    stand.same((abs(at["1:100"] - 2 * at["1:200"]) <= 4, at["2:200"]), (True, at["1:100"]), str(at))
    custom = ink_width(picture(stand, convert(stand, *whole[2:], "--page-setup", "custom", "--scale", "1:200")))
    stand.same(custom, at["1:200"], "the drawing's own page setup, at 1:200")
    for text in ("50", "1:0", "1:-5", "a:b", "1:50x"):
        run = stand.run("convert", "house.dxf", "--scale", text)
        stand.same((run.returncode, run.stderr.splitlines()[0]),
                   (2, f'sheetmaker convert: --scale: "{text}" is no scale; write it as 1:50'))


def fits(stand):
    whole = ink_width(picture(stand, convert(stand, "--layout", SHEET)))
    small = ink_width(picture(stand, convert(stand, "--layout", SHEET, "--paper", "A4", "--fit")))
    stand.same(abs(small / whole - 297 / 420) < 0.03, True, f"{small} of {whole}")


def sheets_too_large(stand):
    """A sheet that is plotted as it is on another paper keeps what that has room for, and that is told."""
    cut = f'house.dxf: note: layout "{SHEET}": its sheet of 420 x 297 mm is cut off at the paper of {{}}; --fit shows all of it'
    for words, paper in ((("--paper", "A4"), "297 x 210 mm"), (("--paper", "A4", "--page-setup", "global"), "297 x 210 mm"),
                         (("--orientation", "portrait"), "297 x 420 mm"), (("--paper", "A4", "--scale", "1:1"), "297 x 210 mm"),
                         (("--paper", "A4", "--scale", "1:2"), None),
                         (("--paper", "A4", "--fit"), None), (("--paper", "A2"), None), (("--paper", "420x296mm"), None)):
        for strict in ((), ("--strict",)):
            run = stand.run("convert", "house.dxf", "--layout", SHEET, *words, *strict, "-o", "o.pdf")
            stand.same((run.returncode, [line for line in stand.said(run) if "cut off" in line]),
                       (1 if paper and strict else 0, [cut.format(paper)] if paper else []), " ".join((*words, *strict)))


def tones(stand):
    stand.same(is_grey(picture(stand, convert(stand, "--layout", SHEET))), False, "as drawn")
    for words in (["--mono"], ["--grey"], ["--plot-style", "monochrome.ctb"], ["--plot-style", "GRAYSCALE"],
                  ["--mono", "--page-setup", "global", "--layouts", "model"]):
        which = [] if "--layouts" in words else ["--layout", SHEET]
        stand.same(is_grey(picture(stand, convert(stand, *which, *words))), True, " ".join(words))
    run = stand.run("convert", "house.dxf", "--plot-style", "monocrome.ctb")
    stand.same((run.returncode, run.stderr), (2, 'house.dxf: failed: there is no plot style table "monocrome.ctb"; did you mean '
                                                 '"monochrome.ctb"?\n'))


def pens(stand):
    thin = ink(picture(stand, convert(stand, "--layout", SHEET))).sum()
    wide = ink(picture(stand, convert(stand, "--layout", SHEET, "--lineweight-scale", "4"))).sum()
    stand.same(wide > 1.5 * thin, True, f"{wide} of {thin}")
    run = stand.run("convert", "house.dxf", "--lineweight-scale", "0")
    stand.same(run.stderr.splitlines()[0], 'sheetmaker convert: --lineweight-scale: "0" is no factor from 0.01 to 100')


def nothing_is_stored(stand):
    before = stand.run("list").stdout
    with open(stand.path("house.dxf"), "rb") as file:
        drawing = file.read()
    convert(stand, "--paper", "A4", "--fit", "--mono", "--page-setup", "global")
    convert(stand, "--paper", "A4", "--fit", "--mono")
    with open(stand.path("house.dxf"), "rb") as file:
        stand.same((stand.run("list").stdout, file.read() == drawing), (before, True))


def page_setup(stand):
    shown = stand.run("page-setup", "house.dxf", "--show")
    stand.same((len(shown.stdout.splitlines()), shown.stderr), (26, "house.dxf has no page setup of its own; these are the defaults\n"))
    run = stand.run("page-setup", "house.dxf", "--set", "canonicalmedianame=A2", "--set", "PlotType=1", "--set", "StyleSheet=monochrome.ctb")
    stand.same((run.returncode, run.stdout), (0, 'house.dxf: the page setup was kept; "sheetmaker convert DRAWING --page-setup custom" '
                                                 "plots with it\n"), run.stderr)
    run = stand.run("page-setup", "house.dxf", "--set", "PlotRotation=1", "--set", "CanonicalMediaName=A2", "--set", "PlotRotation=2")
    values = dict(line.split(" = ") for line in stand.run("page-setup", "house.dxf", "--show").stdout.splitlines())
    stand.same(values["PlotRotation"], "2", "the paper leaves the rotation")
    stand.run("page-setup", "house.dxf", "--set", "PlotRotation=0")
    values = dict(line.split(" = ") for line in stand.run("page-setup", "house.dxf", "--show").stdout.splitlines())
    stand.same([values[name] for name in ("CanonicalMediaName", "PaperWidth", "PaperHeight", "PlotType", "StyleSheet")],
               ["ISO_A2_(594.00_x_420.00_MM)", "594", "420", "1", "monochrome.ctb"])
    pdf = convert(stand, "--page-setup", "custom", "--layouts", "model")
    stand.same((size(stand, pdf), is_grey(picture(stand, pdf))), ((594, 420), True))
    run = stand.run("page-setup", "house.dxf", "--remove")
    stand.same((run.returncode, run.stdout), (0, "house.dxf: its page setup was removed\n"))
    stand.same(stand.run("page-setup", "house.dxf", "--remove").stdout, "house.dxf has no page setup of its own\n")


def page_setup_refused(stand):
    rows = (("PaprWidth=3", 'a page setup has no "PaprWidth"; did you mean "PaperWidth"?'), ("PaperWidth", '"PaperWidth" is no NAME=VALUE'),
            ("PlotType=9", "PlotType takes 0 to 5"), ("PaperWidth=a", 'PaperWidth takes a number, with "." for the decimals'))
    with open(stand.path("house.dxf"), "rb") as file:
        drawing = file.read()
    for word, line in rows:
        run = stand.run("page-setup", "house.dxf", "--set", word)
        stand.same((run.returncode, run.stderr), (2, f"sheetmaker page-setup: {line}\n"))
    run = stand.run("page-setup", "--show")
    stand.same((run.returncode, run.stderr), (2, "sheetmaker page-setup: --show, --set and --remove need a drawing; \"sheetmaker list\" and "
                                                 "\"set\" have the global page setup\n"))
    run = stand.run("page-setup", "house.dxf", "--show", "--remove")
    stand.same((run.returncode, run.stderr), (2, "sheetmaker page-setup: --show, --set and --remove exclude each other\n"))
    with open(stand.path("house.dxf"), "rb") as file:
        stand.same(file.read() == drawing, True, "the drawing is as it was")


ROWS = (papers, papers_refused, scales, fits, sheets_too_large, tones, pens, nothing_is_stored, page_setup, page_setup_refused)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(stands.main(os.path.abspath(sys.argv[1]), ROWS, ("house.dxf",)))
