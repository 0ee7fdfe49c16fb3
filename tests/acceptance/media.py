# SPDX-License-Identifier: GPL-3.0-or-later
"""Which sheet a layout should come out on, worked out from the drawing file by another reader (ezdxf)."""
from ezdxf import DXFError, recover

INCH = 25.4
SIZES = [  # the 28 sizes of the plotter's paper table, in its order: name, width, height in millimetres
    ("ANSI_A_(8.50_x_11.00_Inches)", 8.5 * INCH, 11 * INCH), ("ANSI_A_(11.00_x_8.50_Inches)", 11 * INCH, 8.5 * INCH),
    ("ANSI_B_(11.00_x_17.00_Inches)", 11 * INCH, 17 * INCH), ("ANSI_B_(17.00_x_11.00_Inches)", 17 * INCH, 11 * INCH),
    ("ANSI_C_(17.00_x_22.00_Inches)", 17 * INCH, 22 * INCH), ("ANSI_C_(22.00_x_17.00_Inches)", 22 * INCH, 17 * INCH),
    ("ANSI_D_(22.00_x_34.00_Inches)", 22 * INCH, 34 * INCH), ("ANSI_D_(34.00_x_22.00_Inches)", 34 * INCH, 22 * INCH),
    ("ANSI_E_(34.00_x_44.00_Inches)", 34 * INCH, 44 * INCH), ("ANSI_E_(44.00_x_34.00_Inches)", 44 * INCH, 34 * INCH),
    ("ARCH_C_(18.00_x_24.00_Inches)", 18 * INCH, 24 * INCH), ("ARCH_C_(24.00_x_18.00_Inches)", 24 * INCH, 18 * INCH),
    ("ARCH_D_(24.00_x_36.00_Inches)", 24 * INCH, 36 * INCH), ("ARCH_D_(36.00_x_24.00_Inches)", 36 * INCH, 24 * INCH),
    ("ARCH_E_(36.00_x_48.00_Inches)", 36 * INCH, 48 * INCH), ("ARCH_E_(48.00_x_36.00_Inches)", 48 * INCH, 36 * INCH),
    ("ARCH_E1_(30.00_x_42.00_Inches)", 30 * INCH, 42 * INCH), ("ARCH_E1_(42.00_x_30.00_Inches)", 42 * INCH, 30 * INCH),
    ("ISO_A0_(1189.00_x_841.00_MM)", 1189, 841), ("ISO_A0_(841.00_x_1189.00_MM)", 841, 1189),
    ("ISO_A1_(594.00_x_841.00_MM)", 594, 841), ("ISO_A1_(841.00_x_594.00_MM)", 841, 594),
    ("ISO_A2_(420.00_x_594.00_MM)", 420, 594), ("ISO_A2_(594.00_x_420.00_MM)", 594, 420),
    ("ISO_A3_(297.00_x_420.00_MM)", 297, 420), ("ISO_A3_(420.00_x_297.00_MM)", 420, 297),
    ("ISO_A4_(210.00_x_297.00_MM)", 210, 297), ("ISO_A4_(297.00_x_210.00_MM)", 297, 210),
]


def matched(name, width, height, rotation):
    """Size of the matched row, or None when the user (here: the program's own answer) has to pick one."""
    if rotation % 2:
        name, width, height = "", height, width
    found = None
    for row, row_width, row_height in SIZES:
        if abs(round(row_width) - round(width)) <= 3 and abs(round(row_height) - round(height)) <= 3:
            name, found = row, (row_width, row_height)
        elif row == name:
            found = (row_width, row_height)
    return found


class Sheet:
    """A layout as the other reader sees it; `size` in millimetres, or None when it isn't fixed by the table alone."""

    def __init__(self, layout):
        get = layout.dxf_layout.dxf.get if hasattr(layout, "dxf_layout") else layout.dxf.get
        self.name = layout.name
        self.paper = get("paper_width", 0) or 0, get("paper_height", 0) or 0
        self.display = get("plot_type", 0) == 0
        self.size = None
        if min(self.paper) > 0:
            self.size = matched(get("paper_size", ""), *self.paper, get("plot_rotation", 0) or 0)


def paper_layouts(path):
    """How many paper layouts an ASCII file's own LAYOUT objects make, by their tags; at least one."""
    with open(path, "rb") as file:
        lines = [line.strip() for line in file.read().splitlines()]
    count, inside, layout_part = 0, False, False
    for code, value in zip(lines[::2], lines[1::2]):
        if code == b"0":
            inside, layout_part = value == b"LAYOUT", False
        elif inside and code == b"100":
            layout_part = value == b"AcDbLayout"
        elif layout_part and code == b"1":
            count += value != b"Model"
    return max(1, count)


def sheets_of(path):
    """Model and paper sheets in tab order, or None when the other reader can't open the file or drops a layout of it."""
    try:
        document, _ = recover.readfile(path)
    except (DXFError, OSError, ValueError, KeyError):
        return None
    layouts = [layout for layout in document.layouts if layout.name != "Model"]
    layouts.sort(key=lambda layout: layout.dxf.get("taborder", 0))
    if len(layouts) != paper_layouts(path):
        return None
    return Sheet(document.modelspace()), [Sheet(layout) for layout in layouts]


def in_table(width, height, tolerance):
    return any(abs(width - row[1]) <= tolerance and abs(height - row[2]) <= tolerance for row in SIZES)
