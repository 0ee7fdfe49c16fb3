#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the plot style tables that are shipped.

    make_plot_styles.py FOLDER        writes them into FOLDER (share/sheetmaker-pdf/PlotStyles)
"""
import os
import struct
import sys
import zlib

OBJECT_COLOR = 0xC3FFFFFF
TRUE_COLOR = 0xC2000000
GRAY, DITHER = 2, 1
LINEWEIGHTS = [0, .05, .09, .1, .13, .15, .18, .2, .25, .3, .35, .4, .45, .5, .53, .6, .65, .7, .8, .9, 1, 1.06, 1.2,
               1.4, 1.58, 2, 2.11]


def signed(word):
    return word - (1 << 32) if word >= 1 << 31 else word


def style(number, name, rgb=None, gray=False, screen=100):
    color = signed(OBJECT_COLOR if rgb is None else TRUE_COLOR | rgb)
    return f""" {number}{{
  name="{name}
  localized_name="{name}
  description="
  color={color}
  mode_color={color}
  color_policy={DITHER | (GRAY if gray else 0)}
  physical_pen_number=0
  virtual_pen_number=0
  screen={screen}
  linepattern_size=0.5
  linetype=31
  adaptive_linetype=TRUE
  lineweight=0
  fill_style=73
  end_style=4
  join_style=5
 }}
"""


def table(description, styles, by_color):
    text = f"""description="{description}
aci_table_available={"TRUE" if by_color else "FALSE"}
scale_factor=1.0
apply_factor=FALSE
custom_lineweight_display_units=0
"""
    if by_color:
        text += "aci_table{\n" + "".join(f' {i}="Color_{i + 1}\n' for i in range(255)) + "}\n"
    text += "plot_style{\n" + "".join(styles) + "}\n"
    return text + "custom_lineweight_table{\n" + "".join(f" {i}={float(w)}\n" for i, w in enumerate(LINEWEIGHTS)) + "}\n"


def packed(text, kind):
    plain = text.encode("ascii")
    stream = zlib.compress(plain, 9)
    head = f"PIAFILEVERSION_2.0,{kind}VER1,compress\r\npmzlibcodec".encode("ascii")
    return head + struct.pack("<3I", zlib.adler32(stream), len(plain), len(stream)) + stream


def by_color(description, **changes):
    return packed(table(description, [style(i, f"Color_{i + 1}", **changes) for i in range(255)], True), "CTB")


def by_name(description, styles):
    entries = [style(i, name, **changes) for i, (name, changes) in enumerate(styles.items())]
    return packed(table(description, entries, False), "STB")


def main(folder):
    files = {
        "acad.ctb": by_color("Every colour as it is"),
        "monochrome.ctb": by_color("Every colour black", rgb=0),
        "grayscale.ctb": by_color("Every colour as the grey of its lightness", gray=True),
        "acad.stb": by_name("Everything as it is", {"Normal": {}}),
        "monochrome.stb": by_name("Everything as it is, or black",
                                  {"Normal": {}, "Style 1": {"rgb": 0}, "Black": {"rgb": 0}, "Gray": {"gray": True},
                                   "Screening 50%": {"screen": 50}}),
    }
    for percent in (25, 50, 75, 100):
        files[f"Screening {percent}%.ctb"] = by_color(f"Every colour with {percent} % of its ink", screen=percent)
    for name, data in files.items():
        with open(os.path.join(folder, name), "wb") as target:
            target.write(data)


if __name__ == "__main__":
    main(sys.argv[1])
