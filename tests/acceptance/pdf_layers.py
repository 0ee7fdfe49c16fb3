#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Layers of a drawing as layers of the PDF, read back by other tools.

    pdf_layers.py PROGRAM SHARE

A drawing with layers that are on, off, frozen and not plotted is converted with and without --pdf-layers. qpdf lists the
groups, their order and states; pdftoppm and mutool draw the page, as it is and with all groups on.
"""
import json
import os
import subprocess
import sys
import tempfile

import ezdxf

LAYERS = {  # name: (off, frozen, plotted)
    "Walls": (False, False, True),
    "axes": (True, False, True),
    "Notes": (False, True, True),
    "Screen": (False, False, False),
}
passed, failures = 0, []


def check(name, got, expected):
    global passed
    if got == expected:
        passed += 1
    else:
        failures.append(f"{name}: {got!r}, expected {expected!r}")


def make_drawing(path):
    doc = ezdxf.new("R2010")
    for name, (off, frozen, plotted) in LAYERS.items():
        layer = doc.layers.add(name)
        layer.dxf.plot = int(plotted)
        if off:
            layer.off()
        if frozen:
            layer.freeze()
    block = doc.blocks.new("DOOR")
    block.add_line((0, 0), (20, 0), dxfattribs={"lineweight": 200})
    layout = doc.layout("Layout1")
    layout.page_setup(size=(420, 297), margins=(0, 0, 0, 0), units="mm")
    for row, name in enumerate(list(LAYERS) + ["0"]):
        layout.add_line((10, 10 + 15 * row), (100, 10 + 15 * row), dxfattribs={"layer": name, "lineweight": 200})
        layout.add_blockref("DOOR", (120, 10 + 15 * row), dxfattribs={"layer": name})
    doc.saveas(path)


def convert(program, share, drawing, pdf, *options):
    done = subprocess.run([program, "convert", drawing, "--layout", "Layout1", "-o", pdf, *options], capture_output=True,
                          text=True, env=dict(os.environ, SHEETMAKER_PDF_SHARE=share))
    check("exit code of " + " ".join(options), (done.returncode, done.stderr if done.returncode else ""), (0, ""))
    return done.stderr


class Groups:
    """The optional content of a PDF as qpdf reads it."""

    def __init__(self, pdf):
        self.objects = json.loads(subprocess.run(["qpdf", "--json=1", pdf], capture_output=True, check=True).stdout)["objects"]
        root = self.at(self.at("trailer")["/Root"])
        self.properties = self.at(root.get("/OCProperties"))

    def at(self, value):
        return self.objects.get(value, value) if isinstance(value, str) else value

    def names(self, key):
        value = self.at(self.at(self.properties["/D"]).get(key, []))
        return [self.at(one)["/Name"].removeprefix("u:") for one in value]


def rows_with_ink(pdf, *command):
    """For each of the five rows: does its line show, does its block show?"""
    data = subprocess.run([*command], capture_output=True, check=True).stdout if command else subprocess.run(
        ["pdftoppm", "-r", "25.4", "-gray", pdf], capture_output=True, check=True).stdout
    _, size, _, pixels = data.split(b"\n", 3)
    width, height = map(int, size.split())
    dark = lambda x, y: any(pixels[(height - 1 - y + d) * width + x] < 128 for d in (-1, 0))
    return [(dark(50, 10 + 15 * row), dark(130, 10 + 15 * row)) for row in range(5)]


def all_on(pdf, target):
    """The same file with every group switched on."""
    qdf = subprocess.run(["qpdf", "--qdf", "--object-streams=disable", pdf, "-"], capture_output=True, check=True).stdout
    with open(target, "wb") as file:
        file.write(qdf.replace(b"/OFF [", b"/OFO ["))


def main():
    program, share = sys.argv[1:3]
    with tempfile.TemporaryDirectory() as folder:
        drawing, pdf = os.path.join(folder, "a.dxf"), os.path.join(folder, "a.pdf")
        make_drawing(drawing)
        as_plotted = [(True, True), (False, False), (False, False), (False, False), (True, True)]
        convert(program, share, drawing, pdf)
        check("groups without the option", Groups(pdf).properties, None)
        check("page without the option", rows_with_ink(pdf), as_plotted)
        for options in (["--pdf-layers"], ["--job-options", "Graphics with layers [600 dpi]"]):
            convert(program, share, drawing, pdf, *options)
            groups = Groups(pdf)
            if groups.properties is None:
                check(f"groups with {options}", None, "there")
                continue
            check(f"order with {options}", groups.names("/Order"), ["0", "axes", "Notes", "Screen", "Walls"])
            check(f"off with {options}", groups.names("/OFF"), ["axes", "Notes", "Screen"])
            check(f"page with {options}", rows_with_ink(pdf), as_plotted)
            checked = subprocess.run(["qpdf", "--check", pdf], capture_output=True)
            check(f"qpdf --check with {options}", checked.returncode, 0)
            drawn = os.path.join(folder, "mutool.pgm")
            subprocess.run(["mutool", "draw", "-q", "-r", "25.4", "-c", "gray", "-o", drawn, pdf], check=True)
            check(f"page drawn by mutool with {options}", rows_with_ink(pdf, "cat", drawn), as_plotted)
            shown = os.path.join(folder, "on.pdf")
            all_on(pdf, shown)
            check(f"all groups on with {options}", rows_with_ink(shown), [(True, True)] * 5)
        told = convert(program, share, drawing, pdf, "--pdf-layers", "--job-options", "Greyscale [600 dpi]")
        check("the interpreter's loss is told", "the drawing's layers are not kept in it" in told, True)
    for text in failures:
        print("FAILED " + text)
    print(f"{passed} passed, {len(failures)} failed")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
