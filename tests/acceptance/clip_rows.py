# SPDX-License-Identifier: GPL-3.0-or-later
"""Boundaries of references inside one another: each row draws and looks."""
import pdf_tools
from plot_rows import POINTS, sheet

SIDE, SCALE, CORNER = 20, 5, 100  # the block is a black square; how large and where it stands on the sheet
RIM = [(0, 0), (SIDE, 0), (SIDE, SIDE), (0, SIDE), (0, 0)]


class Boundary:
    """A rectangle, or all but a rectangle; coordinates of the block."""

    def __init__(self, low, high, inverted):
        self.low, self.high, self.inverted = low, high, inverted

    def holds(self, point):
        return all(self.low < part < self.high for part in point) != self.inverted

    def points(self):
        low, high = self.low, self.high
        hole = [(low, low), (low, high), (high, high), (high, low), (low, low)]
        return RIM + hole if self.inverted else [(low, low), (high, high)]


def groups(*pairs):
    return "".join(f"{code}\n{value}\n" for code, value in pairs)


def filter_of(handle, boundary):
    """The dictionaries and the filter of an insert that has the extension dictionary `handle` + "1"."""
    unit = [(40, int(i % 5 == 0)) for i in range(12)]
    corners = [pair for x, y in boundary.points() for pair in ((10, x), (20, y))]
    return (groups((0, "DICTIONARY"), (5, handle + "1"), (330, 0), (3, "ACAD_FILTER"), (360, handle + "2"),
                   (0, "DICTIONARY"), (5, handle + "2"), (330, handle + "1"), (3, "SPATIAL"), (360, handle + "3"),
                   (0, "SPATIAL_FILTER"), (5, handle + "3"), (100, "AcDbFilter"), (100, "AcDbSpatialFilter"),
                   (70, len(boundary.points())))
            + groups(*corners, (210, 0), (220, 0), (230, 1), (11, 0), (21, 0), (31, 0), (71, 1), (72, 0), (73, 0), *unit, *unit))


def clipped_drawing(stand, outer, inner):
    """A square in a block in a block, each insert with a boundary; the path of the file."""
    document = stand.new()
    square = document.blocks.new("SQUARE")
    square.add_solid([(0, 0), (SIDE, 0), (0, SIDE), (SIDE, SIDE)])
    inside = document.blocks.new("HOLDER").add_blockref("SQUARE", (0, 0))
    place = sheet(document).add_blockref("HOLDER", (CORNER, CORNER), dxfattribs={"xscale": SCALE, "yscale": SCALE})
    path = stand.save(document)
    with open(path, encoding="utf-8") as file:
        text = file.read()
    for insert, prefix in ((place, "FFA"), (inside, "FFB")):
        own = f"INSERT\n  5\n{insert.dxf.handle}\n"
        assert own in text
        text = text.replace(own, own + groups((102, "{ACAD_XDICTIONARY"), (360, prefix + "1"), (102, "}")))
    head, objects = text.split("OBJECTS\n", 1)
    added = filter_of("FFA", outer) + filter_of("FFB", inner)
    with open(path, "w", encoding="utf-8") as file:
        file.write(head + "OBJECTS\n" + objects.replace("  0\nENDSEC\n", added + "  0\nENDSEC\n", 1))
    return path


def nested_clips(stand):
    """A clipped reference in a clipped one shows what both boundaries leave, turned inside out or not."""
    probes = [(x, y) for x in (1.5, 5, 8, 11.5, 14.5, 17) for y in (1.5, 5, 8, 11.5, 14.5, 17)]
    for outer in (Boundary(3, 13, False), Boundary(3, 9.5, True)):
        for inner in (Boundary(6.5, 16, False), Boundary(6.5, 13, True)):
            picture = pdf_tools.Picture(stand.convert_file(clipped_drawing(stand, outer, inner), "--layout", "Sheet"), dpi=72)
            for point in probes:
                left, bottom = ((CORNER + part * SCALE) * POINTS - 2 for part in point)
                ink = next(picture.dark_in(left, bottom, left + 4, bottom + 4), None) is not None
                wanted = outer.holds(point) and inner.holds(point)
                assert ink == wanted, f"{point}, inside out {outer.inverted} and {inner.inverted}: {ink}"


ROWS = [nested_clips]
