#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Has all layouts of drawings painted on this machine and under Wine, with the same fonts, as the drawing's window shows
them, and compares the pictures pixel by pixel.

    same_views.py LINUX-PAINTER WINDOWS-PAINTER FOLDER SHARE DRAWINGS...

FOLDER gets a Wine prefix. The two libraries of mathematics round sines apart in the last place: a pixel may differ by
two levels of 255.
"""
import argparse
import glob
import os
import shutil
import sys
import tempfile

from programs import linux_program, windows_program
from same_pages import drawings_in

LEVELS = 2
INK = 200  # below which a pixel counts as ink


def pixels_of(path):
    with open(path, "rb") as file:
        return file.read().split(b"\n", 3)[3]


def compare(one, other):
    """Bytes that differ by more than is allowed, and bytes of ink."""
    a, b = pixels_of(one), pixels_of(other)
    if len(a) != len(b):
        return len(a), 0
    differing = sum(1 for x, y in zip(a, b) if abs(x - y) > LEVELS) if a != b else 0
    return differing, sum(1 for x in a if x < INK)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    for name in ("linux", "windows", "folder", "share"):
        parser.add_argument(name)
    parser.add_argument("drawings", nargs="+")
    arguments = parser.parse_args()
    scratch = tempfile.mkdtemp()
    layouts = differing = inked = 0
    try:
        painters = {"linux": linux_program(arguments.linux, scratch),
                    "windows": windows_program(arguments.windows, arguments.folder)}
        for number, drawing in enumerate(drawings_in(arguments.drawings)):
            runs = [painter.run(os.path.abspath(arguments.share), os.path.abspath(drawing),
                                os.path.join(scratch, f"{name}-{number}-")) for name, painter in painters.items()]
            if runs[0].returncode != runs[1].returncode:
                raise SystemExit(f"{drawing}: {runs[0].stderr}{runs[1].stderr}")
            for one in sorted(glob.glob(os.path.join(scratch, f"linux-{number}-*.ppm"))):
                wrong, ink = compare(one, one.replace("linux-", "windows-"))
                layouts += 1
                differing += wrong > 0
                inked += ink > 0
                if wrong:
                    print(f"{drawing}, {os.path.basename(one)}: {wrong} of {ink} bytes of ink differ")
    finally:
        shutil.rmtree(scratch)
    print(f"{layouts} layouts, {inked} of them with ink, {differing} different")
    return 1 if differing or not inked else 0


if __name__ == "__main__":
    sys.exit(main())
