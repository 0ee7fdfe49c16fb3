#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Plot style tables, from the drawing to the PDF's content stream.

    plot_styles.py PROGRAM SHARE [FOLDER]     FOLDER: more tables (ctbtest.ctb, stbtest.stb)

A chart of 255 colours (one line each) is converted with each table by colour, and a chart of styles with each table by
name. The tables are read a second time, by ezdxf; colours, widths, ends, joins and dashes of all lines must be what they
say. What "the object's colour" is comes from the chart converted without a table.
"""
import collections
import os
import re
import subprocess
import sys
import tempfile

import ezdxf
from ezdxf.addons import acadctb

WIDTH = 0.4  # mm, of every line of the charts
CAPS = {0: 0, 1: 2, 2: 1, 3: 1, 4: 1}  # end style of the table to J; diamonds are drawn round, as are the objects' ends
JOINS = {0: 0, 1: 2, 2: 1, 3: 1, 5: 1}
OBJECT_LINETYPE = 31
Line = collections.namedtuple("Line", "color width cap join dashes")
failures = []


def check(condition, text):
    if not condition:
        failures.append(text)


def place(number):
    """Lower-left end of a chart's line, mm; it runs 15 mm to the right."""
    return 10 + number % 16 * 20, 10 + number // 16 * 12


def chart(path, table, lines, names=()):
    """`lines`: number -> attributes. `names`: the drawing's named plot styles."""
    doc = ezdxf.new("R2010")
    doc.header["$PSTYLEMODE"] = 0 if names else 1
    for name in names:
        styles = doc.rootdict["ACAD_PLOTSTYLENAME"]
        if name not in styles:
            styles[name] = doc.objects.add_placeholder(styles.dxf.handle)
    layout = doc.layout("Layout1")
    layout.page_setup(size=(420, 297), margins=(0, 0, 0, 0), units="mm")
    layout.dxf_layout.dxf.current_style_sheet = table
    layout.dxf_layout.dxf.plot_layout_flags = 32 + 128 + 512
    for number, attributes in lines.items():
        x, y = place(number)
        if "style" in attributes:
            handle = doc.rootdict["ACAD_PLOTSTYLENAME"][attributes.pop("style")].dxf.handle
            attributes.update(plotstyle_enum=3, plotstyle_handle=handle)
        layout.add_line((x, y), (x + 15, y), dxfattribs=dict(attributes, lineweight=round(WIDTH * 100)))
    doc.saveas(path)


def convert(program, share, drawing):
    pdf = drawing[:-4] + ".pdf"
    done = subprocess.run([program, "convert", drawing, "--layout", "Layout1", "-o", pdf], capture_output=True, text=True,
                          env=dict(os.environ, SHEETMAKER_PDF_SHARE=share))
    check(done.returncode == 0, f"{drawing}: {done.stderr}")
    return pdf, done.stderr


def read_lines(pdf):
    """Number of the chart's line -> what it is drawn with, from the content stream."""
    text = subprocess.run(["qpdf", "--qdf", "--object-streams=disable", pdf, "-"], capture_output=True,
                          check=True).stdout.decode("latin-1")
    body = max(re.findall(r"stream\n(.*?)endstream", text, re.S), key=lambda part: part.count(" l\n"))
    operands, state, scale, at, segments, found = [], {}, 1, None, [], {}
    for token in body.split():
        if re.fullmatch(r"[-+.\d]+", token):
            operands.append(float(token))
            continue
        if token == "cm" and scale == 1:
            scale = operands[0] * 25.4 / 72
        elif token in ("G", "RG"):
            state["color"] = operands * 3 if token == "G" else operands
        elif token in ("w", "J", "j"):
            state[token] = operands[0]
        elif token == "m":
            at = operands
        elif token == "l":
            segments.append(at)
            at = operands
        elif token == "n":
            segments = []
        elif token == "S":
            color = tuple(round(part * 255) for part in state["color"])
            for x, y in segments:
                number = int((x * scale - 9) // 20 + round((y * scale - 10) / 12) * 16)
                dashes = found[number].dashes + 1 if number in found else 1
                found[number] = Line(color, round(state["w"] * scale, 2), state["J"], state["j"], dashes)
            segments = []
        operands = []
    return found


def expected(style, table, plain):
    """The line that `style` makes of the object's own."""
    color = plain.color if style.color is None else tuple(style.color)
    if style.grayscale:
        color = (round(0.299 * color[0] + 0.587 * color[1] + 0.114 * color[2]),) * 3
    color = tuple(255 - (255 - part) * style.screen / 100 for part in color)
    width = table.lineweights[style.lineweight] or WIDTH
    return Line(color, max(round(width, 2), 0.06), CAPS[style.end_style], JOINS[style.join_style],
                style.linetype not in (0, OBJECT_LINETYPE))


def compare(where, line, wanted):
    if line is None:
        check(False, f"{where}: nothing is drawn")
        return
    near = all(abs(a - b) <= 1 for a, b in zip(line.color, wanted.color))
    check(near, f"{where}: colour {line.color}, expected {wanted.color}")
    check(abs(line.width - wanted.width) < 0.011, f"{where}: width {line.width}, expected {wanted.width}")
    check((line.cap, line.join) == (wanted.cap, wanted.join), f"{where}: ends {line.cap}, joins {line.join}")
    check((line.dashes > 1) == wanted.dashes, f"{where}: {line.dashes} dashes")


def same_file(source, folder):
    """The table lies beside the drawing under a name of its own."""
    name = "beside " + os.path.basename(source)
    with open(source, "rb") as data, open(os.path.join(folder, name), "wb") as target:
        target.write(data.read())
    return name


def check_by_color(program, share, folder, source, plain):
    table = acadctb.load(source)
    drawing = os.path.join(folder, os.path.basename(source)[:-4] + " chart.dxf")
    chart(drawing, same_file(source, folder), {aci: {"color": aci} for aci in range(1, 256)})
    lines = read_lines(convert(program, share, drawing)[0])
    for aci in range(1, 256):
        compare(f"{os.path.basename(source)}, colour {aci}", lines.get(aci), expected(table[aci], table, plain[aci]))
    print(f"{os.path.basename(source)}: {len(lines)} colours compared")


def check_by_name(program, share, folder, source, plain):
    table = acadctb.load(source)
    styles = [table[name] for name in table]
    names = [style.name for style in styles]
    drawing = os.path.join(folder, os.path.basename(source)[:-4] + " names.dxf")
    lines = {number: {"color": 1 + number, "style": name} for number, name in enumerate(names)}
    lines[100] = {"color": 101}  # its layer's: Normal
    chart(drawing, same_file(source, folder), lines, names)
    found = read_lines(convert(program, share, drawing)[0])
    for number, style in enumerate(styles):
        compare(f"{os.path.basename(source)}, style {style.name}", found.get(number),
                expected(style, table, plain[1 + number]))
    normal = table["Normal"]
    compare(f"{os.path.basename(source)}, by layer", found.get(100), expected(normal, table, plain[101]))
    print(f"{os.path.basename(source)}: {len(styles)} styles compared")


def main():
    program, share = sys.argv[1:3]
    folders = [os.path.join(share, "PlotStyles")] + [path for path in sys.argv[3:] if os.path.isdir(path)]
    with tempfile.TemporaryDirectory() as folder:
        drawing = os.path.join(folder, "plain.dxf")
        chart(drawing, "", {aci: {"color": aci} for aci in range(1, 256)})
        plain = read_lines(convert(program, share, drawing)[0])
        check(len(plain) == 255, f"{len(plain)} of 255 lines are drawn without a table")
        check(plain[7].color == (0, 0, 0) and plain[1].color == (255, 0, 0), "colours 1 and 7 are wrong without a table")
        for source in sorted(os.path.join(path, name) for path in folders for name in os.listdir(path)):
            if source.endswith(".ctb"):
                check_by_color(program, share, folder, source, plain)
            elif source.endswith(".stb"):
                check_by_name(program, share, folder, source, plain)
        drawing = os.path.join(folder, "missing.dxf")
        chart(drawing, "Nowhere.ctb", {1: {"color": 1}})
        told = convert(program, share, drawing)[1]
        check('plot style table "Nowhere.ctb" not found, plotted without it' in told, f"not told: {told}")
    for text in failures:
        print("FAILED " + text)
    print(f"{len(failures)} failures")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
