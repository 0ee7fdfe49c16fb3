#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes a synthetic drawing: 60 % lines, 25 % polylines of eight points, 15 % text, on twenty layers.

    make_drawing.py COUNT PATH      COUNT entities, the same for the same COUNT
"""
import random
import sys

HEADER = """  0
SECTION
  2
HEADER
  9
$ACADVER
  1
AC1015
  9
$DWGCODEPAGE
  3
ANSI_1252
  9
$INSUNITS
 70
4
  9
$MEASUREMENT
 70
1
  9
$EXTMIN
 10
0.0
 20
0.0
 30
0.0
  9
$EXTMAX
 10
{side}.0
 20
{side}.0
 30
0.0
  0
ENDSEC
  0
SECTION
  2
TABLES
  0
TABLE
  2
LAYER
 70
21
"""
LAYER = """  0
LAYER
100
AcDbSymbolTableRecord
100
AcDbLayerTableRecord
  2
{name}
 70
0
 62
{color}
  6
Continuous
"""
BODY = """  0
ENDTAB
  0
ENDSEC
  0
SECTION
  2
ENTITIES
"""


def head(kind, handle, layer, subclass):
    return f"  0\n{kind}\n  5\n{handle:X}\n100\nAcDbEntity\n  8\nL{layer}\n100\n{subclass}\n"


def line(rnd, handle, side):
    x, y = rnd.uniform(0, side), rnd.uniform(0, side)
    return head("LINE", handle, handle % 20, "AcDbLine") + (
        f" 10\n{x:.4f}\n 20\n{y:.4f}\n 30\n0.0\n 11\n{x + rnd.uniform(-9, 9):.4f}\n 21\n{y + rnd.uniform(-9, 9):.4f}\n"
        " 31\n0.0\n")


def polyline(rnd, handle, side):
    x, y = rnd.uniform(0, side), rnd.uniform(0, side)
    points = "".join(f" 10\n{x + rnd.uniform(-9, 9):.4f}\n 20\n{y + rnd.uniform(-9, 9):.4f}\n" for _ in range(8))
    return head("LWPOLYLINE", handle, handle % 20, "AcDbPolyline") + f" 90\n8\n 70\n{handle % 2}\n{points}"


def text(rnd, handle, side):
    x, y = rnd.uniform(0, side), rnd.uniform(0, side)
    return head("TEXT", handle, handle % 20, "AcDbText") + (
        f" 10\n{x:.4f}\n 20\n{y:.4f}\n 30\n0.0\n 40\n2.5\n  1\nitem {handle}\n100\nAcDbText\n")


def main(count, path):
    rnd = random.Random(count)
    side = max(100, int((count * 60) ** 0.5))
    with open(path, "w", encoding="ascii") as file:
        file.write(HEADER.format(side=side))
        file.write(LAYER.format(name="0", color=7))
        for number in range(20):
            file.write(LAYER.format(name=f"L{number}", color=number % 7 + 1))
        file.write(BODY)
        for index in range(count):
            make = line if index % 20 < 12 else polyline if index % 20 < 17 else text
            file.write(make(rnd, index + 256, side))
        file.write("  0\nENDSEC\n  0\nEOF\n")


if __name__ == "__main__":
    if len(sys.argv) != 3 or not sys.argv[1].isdigit():
        sys.exit(__doc__)
    main(int(sys.argv[1]), sys.argv[2])
