#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Lines of the model, seen through the viewports of sheets: where their ends are on the page, and how long they are.

    scale.py PROGRAM DRAWING_OR_FOLDER...

For each viewport of each DXF (but "broken" ones) whose scale is known, ten straight lines that it shows whole are taken from
the drawing as ezdxf reads it; where each must lie on the page follows from the viewport and from the layout's plot settings,
without a look at our code. The PDF is read by mutool. An end must be within 0.005 point of its place, and a length within
0.002 % or 0.01 point, whichever is larger. A layout that plots its extents leaves the place of the sheet on the page open:
it is taken from the lines themselves, as one shift for all lines of the sheet. Prints a line for each viewport and at the end
"N lines of M viewports right, K wrong"; a viewport without lines of its own to measure is named.
"""
import collections
import glob
import math
import os
import subprocess
import sys
import tempfile

import ezdxf
from ezdxf import recover
from ezdxf.math import OCS, Vec2, Vec3

import page_ink

LINES = 10                # of each viewport
PLACE = 0.005             # points by which an end may be elsewhere
LENGTH = (2e-5, 0.01)     # share, points
SHORTEST = 2.0            # points: what is shorter is no line to measure
POINTS = 72 / 25.4
LAYOUT, FIT, CENTERED = 5, 0, 4
OFF, PERSPECTIVE = 0x20000, 0x1
Measured = collections.namedtuple("Measured", "viewport wanted")  # wanted: pairs of points of the sheet, in points


class Sheet:
    """A layout's plot settings: from paper units to points of the page."""

    def __init__(self, layout):
        dxf = layout.dxf
        self.layout, self.unit = layout, (1.0 if dxf.plot_paper_units == 1 else 25.4) * POINTS
        self.is_scale_known = dxf.plot_paper_units in (0, 1) and dxf.standard_scale_type != FIT and dxf.scale_denominator > 0
        self.unit *= dxf.scale_numerator / dxf.scale_denominator if self.is_scale_known else 1
        self.is_placed = dxf.plot_type == LAYOUT and not dxf.plot_layout_flags & CENTERED and dxf.paper_width > 0
        # The edges of the unturned paper that lie left and below: the lower limits of turned layouts (10, 20) show them.
        left, bottom = (("left", "bottom"), ("top", "left"), ("right", "top"), ("bottom", "right"))[dxf.plot_rotation % 4]
        self.corner = Vec2(getattr(dxf, left + "_margin"), getattr(dxf, bottom + "_margin")) * POINTS
        if dxf.plot_origin_x_offset or dxf.plot_origin_y_offset:
            self.is_placed = False

    def place(self, paper):
        return self.corner + Vec2(paper) * self.unit


class View:
    """A viewport: from the model to the paper."""

    def __init__(self, viewport):
        dxf = self.dxf = viewport.dxf
        normal = Vec3(dxf.view_direction_vector).normalize()
        self.ocs, self.scale = OCS(normal), dxf.height / dxf.view_height
        self.target, self.frozen = Vec3(dxf.view_target_point), {name.lower() for name in viewport.frozen_layers}
        self.is_flat = normal.isclose((0, 0, 1), abs_tol=1e-9)

    def place(self, point):
        seen = Vec2(self.ocs.from_wcs(Vec3(point) - self.target)).rotate_deg(self.dxf.view_twist_angle)
        return Vec2(self.dxf.center) + (seen - Vec2(self.dxf.view_center_point)) * self.scale

    def shows(self, paper):
        offset = paper - Vec2(self.dxf.center)
        return abs(offset.x) < self.dxf.width / 2 - 1e-9 and abs(offset.y) < self.dxf.height / 2 - 1e-9


def is_sheet(viewport, index):
    """The first one shows the sheet itself: its id is 1, or it looks at its own place on the paper at 1:1."""
    dxf = viewport.dxf
    same = Vec2(dxf.center).isclose(Vec2(dxf.view_center_point), abs_tol=1e-6) and math.isclose(dxf.height, dxf.view_height)
    return dxf.get("id", 0) == 1 or (index == 0 and same)


def has_scale(viewport):
    dxf = viewport.dxf
    is_shown = dxf.flags & OFF == 0 and dxf.height > 0 and dxf.width > 0 and dxf.view_height > 0
    return is_shown and not dxf.flags & PERSPECTIVE and not dxf.get("clipping_boundary_handle")


def is_solid(entity, layer, document):
    name = entity.dxf.linetype.lower()
    name = layer.dxf.linetype.lower() if name == "bylayer" else name
    return name == "continuous"


def straight_pieces(entity):
    if entity.dxftype() == "LINE" and entity.dxf.thickness == 0:
        yield entity.dxf.start, entity.dxf.end
    elif entity.dxftype() == "LWPOLYLINE" and entity.dxf.thickness == 0:
        points, ocs = list(entity.get_points("xyseb")), OCS(entity.dxf.extrusion)
        for (x1, y1, wide, end, bulge), (x2, y2, *_) in zip(points, points[1:]):
            if not bulge and not wide and not end and not entity.dxf.const_width:
                yield ocs.to_wcs((x1, y1, entity.dxf.elevation)), ocs.to_wcs((x2, y2, entity.dxf.elevation))


def lines_of(document):
    """(layers, start, end) of the solid straight lines of the model and of blocks that stand in it once, by their layers."""
    def walk(entities, layers, depth):
        for entity in entities:
            if entity.dxftype() not in ("INSERT", "LINE", "LWPOLYLINE") or entity.dxf.invisible:
                continue
            layer = document.layers.get(entity.dxf.layer) if document.layers.has_entry(entity.dxf.layer) else None
            if layer is None or layer.is_off() or layer.is_frozen() or not layer.dxf.plot:
                continue
            within = layers | {entity.dxf.layer.lower()}
            if entity.dxftype() == "INSERT" and depth < 3 and entity.mcount == 1 and not entity.has_extension_dict:
                yield from walk(entity.virtual_entities(), within, depth + 1)
            elif is_solid(entity, layer, document):
                yield from ((within, start, end) for start, end in straight_pieces(entity))
    return list(walk(document.modelspace(), frozenset(), 0))


def wanted_lines(lines, view, sheet):
    """Ten lines that the viewport shows whole, spread over all that it shows, as pairs of points from the sheet's corner."""
    found = {}
    for layers, start, end in lines:
        ends = [view.place(start), view.place(end)]
        if layers & view.frozen or not all(map(view.shows, ends)):
            continue
        ends = sorted((sheet.place(point) for point in ends), key=lambda point: (round(point.x, 4), round(point.y, 4)))
        if ends[0].distance(ends[1]) >= SHORTEST:
            found[tuple(round(value, 3) for point in ends for value in (point.x, point.y))] = ends
    chosen = [found[key] for key in sorted(found)]
    step = max(1, len(chosen) // LINES)
    return chosen[::step][:LINES]


def fault(wanted, drawn, shift):
    """What is wrong with the drawn line that comes closest; None when it is right."""
    a, b = wanted[0] + shift, wanted[1] + shift
    best = min(drawn, key=lambda ends: min(max(a.distance(ends[0]), b.distance(ends[1])),
                                           max(a.distance(ends[1]), b.distance(ends[0]))), default=None)
    if best is None:
        return "the page has no lines"
    if a.distance(best[0]) + b.distance(best[1]) > a.distance(best[1]) + b.distance(best[0]):
        best = best[::-1]
    off = max(a.distance(best[0]), b.distance(best[1]))
    length, want = best[0].distance(best[1]), a.distance(b)
    if off > PLACE:
        return f"({a.x:.3f}, {a.y:.3f}) to ({b.x:.3f}, {b.y:.3f}): the nearest line is {off:.4f} point off"
    if abs(length - want) > max(LENGTH[0] * want, LENGTH[1]):
        return f"({a.x:.3f}, {a.y:.3f}): {length:.4f} points long, not {want:.4f}"
    return None


def shift_of(measured, drawn):
    """The one shift with which most lines of the sheet are drawn."""
    votes = collections.Counter()
    for a, b in (ends for one in measured for ends in one.wanted):
        for line in drawn:
            for start, end in (line, line[::-1]):
                if (end - start).isclose(b - a, abs_tol=2 * PLACE):
                    votes[round(start.x - a.x, 1), round(start.y - a.y, 1)] += 1
    if not votes:
        return Vec2()
    around = Vec2(max(votes, key=votes.get))
    exact = [(start - a) for one in measured for a, b in one.wanted for line in drawn for start, end in (line, line[::-1])
             if (start - a).isclose(around, abs_tol=0.06) and (end - b).isclose(around, abs_tol=0.06)]
    xs, ys = sorted(offset.x for offset in exact), sorted(offset.y for offset in exact)
    return Vec2((xs[0] + xs[-1]) / 2, (ys[0] + ys[-1]) / 2)


class Run:
    def __init__(self, program):
        self.program, self.right, self.wrong, self.viewports, self.without = program, 0, 0, 0, []

    def measure(self, path, layout, lines, folder):
        name, sheet = f"{os.path.basename(path)} [{layout.name}]", Sheet(layout)
        views = [viewport for index, viewport in enumerate(layout.query("VIEWPORT"))
                 if not is_sheet(viewport, index) and has_scale(viewport)]
        if not views or not sheet.is_scale_known:
            return
        measured = [Measured(viewport, wanted_lines(lines, View(viewport), sheet)) for viewport in views]
        self.without += [f"{name} #{one.viewport.dxf.handle}" for one in measured if not one.wanted]
        measured = [one for one in measured if one.wanted]
        if not measured:
            return
        pdf = os.path.join(folder, "page.pdf")
        run = subprocess.run([self.program, "convert", path, "-o", pdf, "--layout", layout.name], capture_output=True, text=True)
        if run.returncode not in (0, 4) or not os.path.exists(pdf):
            self.wrong += 1
            print(f"{name}: exit {run.returncode}, {run.stderr.strip()}")
            return
        drawn = [(Vec2(a), Vec2(b)) for a, b, _ in page_ink.segments(page_ink.shapes(pdf))]
        shift = Vec2() if sheet.is_placed else shift_of(measured, drawn)
        for one in measured:
            faults = [text for text in (fault(ends, drawn, shift) for ends in one.wanted) if text]
            self.viewports, self.right, self.wrong = (self.viewports + 1, self.right + len(one.wanted) - len(faults),
                                                      self.wrong + len(faults))
            print(f"{name} #{one.viewport.dxf.handle}: {len(one.wanted) - len(faults)} of {len(one.wanted)} lines right",
                  *faults, sep="\n    ", flush=True)


def read(path):
    with open(path, "rb") as file:
        is_binary = file.read(18) == b"AutoCAD Binary DXF"
    return ezdxf.readfile(path) if is_binary else recover.readfile(path)[0]


def drawings_in(places):
    for place in filter(os.path.exists, places):
        for path in sorted(glob.glob(os.path.join(place, "**", "*.dxf"), recursive=True)) if os.path.isdir(place) else [place]:
            if os.sep + "broken" + os.sep not in path:
                yield path


def main(program, *places):
    run = Run(os.path.abspath(program))
    for path in drawings_in(places):
        try:
            document = read(path)
        except (ezdxf.DXFError, ValueError, OSError) as error:
            print(f"{os.path.basename(path)}: not read by ezdxf: {error}")
            continue
        layouts = [layout for layout in document.layouts if layout.name != "Model" and len(layout.query("VIEWPORT"))]
        lines = lines_of(document) if layouts else []
        with tempfile.TemporaryDirectory() as folder:
            for layout in layouts:
                run.measure(path, layout, lines, folder)
    for name in run.without:
        print(f"{name}: shows no solid straight line whole")
    print(f"{run.right} lines of {run.viewports} viewports right, {run.wrong} wrong")
    return 1 if run.wrong or not run.right else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
