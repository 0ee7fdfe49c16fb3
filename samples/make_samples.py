#!/usr/bin/python3
"""Draws the sample drawings beside this script: house.dxf, flange.dxf and site.dxf.

Needs Debian's python3-ezdxf. Run it again after a change and commit what it wrote.
"""
import os
import sys

import ezdxf
from ezdxf.enums import TextEntityAlignment as Align

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from sheets import add_sheet, add_title_block, new_drawing, save  # noqa: E402

FOLDER = os.path.dirname(os.path.abspath(__file__))


def wall(space, x1, y1, x2, y2, thickness=240):
    """A wall along an axis-parallel line, as a closed polyline with a hatch."""
    half = thickness / 2
    if y1 == y2:
        box = [(x1 - half, y1 - half), (x2 + half, y1 - half), (x2 + half, y1 + half), (x1 - half, y1 + half)]
    else:
        box = [(x1 - half, y1 - half), (x1 + half, y1 - half), (x1 + half, y2 + half), (x1 - half, y2 + half)]
    space.add_lwpolyline(box, close=True, dxfattribs={"layer": "WALLS"})
    hatch = space.add_hatch(color=8, dxfattribs={"layer": "HATCH"})
    hatch.set_pattern_fill("ANSI31", scale=30)
    hatch.paths.add_polyline_path(box, is_closed=True)


def door(doc, name="DOOR-90"):
    block = doc.blocks.new(name)
    block.add_line((0, 0), (0, 900), dxfattribs={"layer": "DOORS"})
    block.add_arc((0, 0), 900, 0, 90, dxfattribs={"layer": "DOORS"})
    block.add_line((0, 0), (900, 0), dxfattribs={"layer": "DOORS", "linetype": "DASHED"})


def room(space, x, y, name, area):
    space.add_text(name, height=250, dxfattribs={"layer": "TEXT", "style": "SANS"}).set_placement(
        (x, y), align=Align.MIDDLE_CENTER)
    space.add_text(f"{area:.1f} m²", height=180, dxfattribs={"layer": "TEXT", "style": "SIMPLEX"}).set_placement(
        (x, y - 400), align=Align.MIDDLE_CENTER)


def floor(space, ox, oy, rooms):
    """A storey of 10 by 8 metres with its lower-left corner at (ox, oy)."""
    for x1, y1, x2, y2 in [(0, 0, 10000, 0), (0, 8000, 10000, 8000), (0, 0, 0, 8000), (10000, 0, 10000, 8000)]:
        wall(space, ox + x1, oy + y1, ox + x2, oy + y2)
    wall(space, ox + 5000, oy + 0, ox + 5000, oy + 8000, 115)
    wall(space, ox + 5000, oy + 4000, ox + 10000, oy + 4000, 115)
    for dx, dy, rotation, flip in [(5000, 1200, 0, 1), (7000, 4000, 90, 1), (5000, 6900, 180, -1)]:
        space.add_blockref("DOOR-90", (ox + dx, oy + dy), dxfattribs={
            "layer": "DOORS", "rotation": rotation, "xscale": flip})
    for (x, y), name, area in rooms:
        room(space, ox + x, oy + y, name, area)
    dim = space.add_linear_dim(base=(ox, oy - 1200), p1=(ox, oy), p2=(ox + 10000, oy), dimstyle="PLAN",
                               dxfattribs={"layer": "DIMENSIONS"})
    dim.render()
    space.add_linear_dim(base=(ox - 1200, oy), p1=(ox, oy), p2=(ox, oy + 8000), angle=90, dimstyle="PLAN",
                         dxfattribs={"layer": "DIMENSIONS"}).render()


def section(space, ox, oy):
    """A cut through the house, drawn with the roof's slope."""
    outline = [(0, 0), (10000, 0), (10000, 5600), (5000, 8600), (0, 5600)]
    space.add_lwpolyline([(ox + x, oy + y) for x, y in outline], close=True,
                         dxfattribs={"layer": "WALLS", "lineweight": 50})
    space.add_line((ox, oy + 2800), (ox + 10000, oy + 2800), dxfattribs={"layer": "WALLS"})
    space.add_line((ox - 2000, oy), (ox + 12000, oy), dxfattribs={"layer": "AXES"})
    for level, text in [(0, "±0.00"), (2800, "+2.80"), (5600, "+5.60"), (8600, "+8.60")]:
        space.add_line((ox + 10200, oy + level), (ox + 11800, oy + level), dxfattribs={"layer": "DIMENSIONS"})
        space.add_text(text, height=200, dxfattribs={"layer": "TEXT", "style": "SIMPLEX"}).set_placement(
            (ox + 11900, oy + level), align=Align.MIDDLE_LEFT)


def house():
    doc = new_drawing(units_mm=True)
    plan = doc.dimstyles.duplicate_entry("EZDXF", "PLAN")
    plan.dxf.dimtxt, plan.dxf.dimasz, plan.dxf.dimexe, plan.dxf.dimexo = 250, 150, 150, 200
    plan.dxf.dimgap, plan.dxf.dimtxsty, plan.dxf.dimlfac = 80, "SIMPLEX", 1
    door(doc)
    model = doc.modelspace()
    floor(model, 0, 0, [((2500, 4000), "Living room", 38.6), ((7500, 2000), "Kitchen", 18.9),
                        ((7500, 6000), "Hall", 18.9)])
    floor(model, 20000, 0, [((2500, 4000), "Bedroom", 38.6), ((7500, 2000), "Bath", 18.9),
                            ((7500, 6000), "Study – Büro", 18.9)])
    section(model, 40000, 0)
    sheets = [("A-101 Ground Floor", "Ground floor plan", (5000, 3500), (7500, 2000)),
              ("A-102 Upper Floor", "Upper floor plan", (25000, 3500), (27500, 2000)),
              ("A-201 Section", "Section A–A", (45500, 4000), (45000, 7600))]
    for number, (name, title, whole, detail) in enumerate(sheets, start=1):
        sheet = add_sheet(doc, name, number)
        add_title_block(doc, sheet, title, name.split()[0], "1:100 / 1:50")
        sheet.add_viewport(center=(125, 170), size=(220, 210), view_center_point=whole, view_height=21000)
        sheet.add_viewport(center=(320, 190), size=(150, 120), view_center_point=detail, view_height=6000)
        for x, y, text in [(20, 56, "Overview 1:100"), (245, 120, "Detail 1:50")]:
            sheet.add_text(text, height=4, dxfattribs={"layer": "TEXT", "style": "SANS"}).set_placement((x, y))
    save(doc, os.path.join(FOLDER, "house.dxf"))


def flange():
    doc = new_drawing(units_mm=True)
    model = doc.modelspace()
    for radius, layer in [(60, "WALLS"), (42, "AXES"), (25, "WALLS"), (20, "WALLS")]:
        model.add_circle((0, 0), radius, dxfattribs={"layer": layer})
    for k in range(6):
        center = ezdxf.math.Vec3.from_deg_angle(k * 60 + 30, 42)
        model.add_circle(center, 5.5, dxfattribs={"layer": "WALLS"})
        model.add_line(center * (33 / 42), center * (51 / 42), dxfattribs={"layer": "AXES"})
    model.add_line((-70, 0), (70, 0), dxfattribs={"layer": "AXES"})
    model.add_line((0, -70), (0, 70), dxfattribs={"layer": "AXES"})
    profile = [(100, -60), (112, -60), (112, -25), (140, -25), (140, -20), (100, -20)]
    for sign in (1, -1):
        points = [(x, sign * y) for x, y in profile]
        model.add_lwpolyline(points, close=True, dxfattribs={"layer": "WALLS"})
        hatch = model.add_hatch(color=3, dxfattribs={"layer": "HATCH"})
        hatch.set_pattern_fill("ANSI31", scale=1)
        hatch.paths.add_polyline_path(points, is_closed=True)
    model.add_line((95, 0), (145, 0), dxfattribs={"layer": "AXES"})
    model.add_radius_dim(center=(0, 0), radius=60, angle=50, dimstyle="EZ_RADIUS",
                         override={"dimtxt": 4, "dimasz": 3, "dimlfac": 1, "dimgap": 1},
                         dxfattribs={"layer": "DIMENSIONS"}).render()
    model.add_linear_dim(base=(100, -72), p1=(100, -60), p2=(140, -60), dimstyle="EZDXF",
                         override={"dimtxt": 4, "dimasz": 3, "dimlfac": 1, "dimexe": 1.5, "dimexo": 1, "dimgap": 1},
                         dxfattribs={"layer": "DIMENSIONS"}).render()
    model.add_mtext("{\\LNotes}\\P1. All edges broken 0.5 × 45°.\\P2. 6 holes %%c11 on %%c84.\\P3. Material EN-GJL-250.",
                    dxfattribs={"layer": "TEXT", "style": "SANS", "char_height": 4, "insert": (-60, -80), "width": 120})
    sheet = add_sheet(doc, "Flange", 1)
    add_title_block(doc, sheet, "Flange DN 40", "M-001", "1:1")
    sheet.add_viewport(center=(207, 165), size=(380, 240), view_center_point=(45, -15), view_height=240)
    save(doc, os.path.join(FOLDER, "flange.dxf"))


def linked(entity, url, text):
    entity.set_hyperlink(url, text)
    return entity


def site():
    doc = new_drawing(units_mm=False)
    model = doc.modelspace()
    model.add_spline([(0, 0), (60, 25), (130, 10), (220, 60), (300, 40)], dxfattribs={"layer": "AXES"})
    model.add_lwpolyline([(20, 60, 0.2), (140, 60, 0), (150, 160, 0.3), (30, 170, 0)], format="xyb", close=True,
                         dxfattribs={"layer": "PLOTS", "linetype": "DASHED"})
    for k in range(4):
        x, y = 35 + 28 * k, 85 + 6 * k
        house_outline = model.add_lwpolyline([(x, y), (x + 18, y), (x + 18, y + 14), (x, y + 14)], close=True,
                                             dxfattribs={"layer": "WALLS"})
        linked(house_outline, f"https://example.com/plots/{k + 1}", f"Plot {k + 1}")
        text = model.add_text(f"Plot {k + 1}", height=4, dxfattribs={"layer": "TEXT", "style": "SANS"})
        text.set_placement((x + 9, y + 7), align=Align.MIDDLE_CENTER)
        linked(text, f"https://example.com/plots/{k + 1}#owner", f"Owner of plot {k + 1}")
    for k in range(12):
        model.add_ellipse((180 + 9 * (k % 6), 90 + 25 * (k // 6)), major_axis=(3.5, 1), ratio=0.8,
                          dxfattribs={"layer": "TREES"})
    model.add_text("Улица Садовая", height=6, rotation=8, dxfattribs={"layer": "TEXT", "style": "SANS"}).set_placement(
        (60, 36))
    sheet = add_sheet(doc, "Site", 1)
    add_title_block(doc, sheet, "Site plan", "S-001", "1:1000")
    sheet.add_viewport(center=(207, 160), size=(380, 235), view_center_point=(150, 90), view_height=235)
    linked(sheet.add_text("Planning portal", height=5, dxfattribs={"layer": "TEXT", "style": "SANS"}),
           "https://example.com/planning", "Planning portal").set_placement((20, 30))
    save(doc, os.path.join(FOLDER, "site.dxf"))


if __name__ == "__main__":
    house()
    flange()
    site()
