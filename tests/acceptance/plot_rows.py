# SPDX-License-Identifier: GPL-3.0-or-later
"""Faults of plotting programs on paper, scale, viewports, layers and line types: each row draws and looks at the pages."""
import math

import media
import page_ink
import pdf_tools

POINTS = 72 / 25.4
A3 = (420, 297)


def sheet(document, name="Sheet", size=A3, units="mm", scale=(1, 1)):
    """A paper layout without its own main viewport's contents."""
    layout = document.layouts.new(name)
    layout.page_setup(size=size, margins=(0, 0, 0, 0), units=units, scale=scale)
    return layout


def viewport(layout, center, size, at, height, **more):
    return layout.add_viewport(center=center, size=size, view_center_point=at, view_height=height, dxfattribs=more)


def length(segment):
    (x1, y1), (x2, y2), _ = segment
    return math.hypot(x2 - x1, y2 - y1)


def expect(what, got, wanted, tolerance):
    assert abs(got - wanted) <= tolerance, f"{what} {got:.5f}, not {wanted:.5f}"


def paper_sizes(stand):
    """Every size of the paper table: MediaBox within 0.01 pt."""
    document = stand.new()
    for name, width, height in media.SIZES:
        layout = sheet(document, name.replace("(", "").replace(")", ""), (width, height))
        layout.dxf.paper_size = name
        layout.add_line((5, 5), (20, 20))
    pdf = stand.convert(document, "--layouts", "all")
    objects = pdf_tools.Objects(pdf)
    boxes = [[float(part) for part in objects.at(page)["/MediaBox"]] for page in objects.pages]
    del boxes[0]  # the layout that every new drawing has
    assert len(boxes) == len(media.SIZES), f"{len(boxes)} pages"
    for (name, width, height), (left, bottom, right, top) in zip(media.SIZES, boxes):
        expect(name + " width", right - left, width * POINTS, 0.01)
        expect(name + " height", top - bottom, height * POINTS, 0.01)


def scale_of_viewport(stand):
    """1:50 in a viewport within 0.01 %, along, across and aslant."""
    document = stand.new()
    model, layout = document.modelspace(), sheet(document)
    for color, end in ((1, (20000, 0)), (3, (0, 14000)), (5, (18000, 12000))):
        model.add_line((0, 0), end, dxfattribs={"color": color})
    viewport(layout, (210, 148.5), (420, 297), (10250, 7150), 297 * 50)
    found = page_ink.shapes(stand.convert(document, "--layout", "Sheet"))
    for color, wanted in (("#ff0000", 20000), ("#00ff00", 14000), ("#0000ff", math.hypot(18000, 12000))):
        got = max(map(length, page_ink.segments(found, color)))
        expect("length of " + color, got / (wanted / 50 * POINTS), 1, 1e-4)


def scale_of_plot(stand):
    """A layout plotted 1:50 by its page setup."""
    document = stand.new()
    layout = sheet(document, size=A3)
    layout.dxf.plot_layout_flags &= ~16  # a scale of its own, none of the list
    layout.dxf.scale_numerator, layout.dxf.scale_denominator = 1, 50
    layout.add_line((100, 100), (20100, 100), dxfattribs={"color": 1})
    found = page_ink.shapes(stand.convert(document, "--layout", "Sheet"))
    expect("scale", max(map(length, page_ink.segments(found, "#ff0000"))) / (400 * POINTS), 1, 1e-4)


def inch_drawing(stand):
    """A drawing in inches: its sheet's own size, a line of ten inches ten inches long."""
    document = stand.new()
    document.header["$INSUNITS"], document.header["$MEASUREMENT"] = 1, 0
    layout = sheet(document, size=(17, 11), units="inch")
    layout.add_line((1, 1), (11, 1), dxfattribs={"color": 1})
    pdf = stand.convert(document, "--layout", "Sheet")
    width, height = page_ink.size_of(pdf)
    expect("width", width, 17 * 72, 0.01)
    expect("height", height, 11 * 72, 0.01)
    expect("ten inches", max(map(length, page_ink.segments(page_ink.shapes(pdf), "#ff0000"))) / 720, 1, 1e-4)


def unit_less_model(stand):
    """A model of any unit comes on a sheet of the table, never on one as large as the drawing."""
    for units in (0, 2, 5, 6):
        document = stand.new()
        document.header["$INSUNITS"] = units
        document.modelspace().add_line((0, 0), (297000, 210000))
        width, height = page_ink.size_of(stand.convert(document, "--layouts", "model"))
        assert media.in_table(width / POINTS, height / POINTS, 0.01), f"{width} x {height} pt for unit {units}"


def _ink(pdf, left, bottom, right, top):
    return next(pdf_tools.Picture(pdf, dpi=72).dark_in(*(part * POINTS for part in (left, bottom, right, top))), None)


def _crossed(document):
    for offset in range(-4000, 4001, 100):
        document.modelspace().add_line((-5000, offset), (5000, offset))


def clipped_viewport(stand):
    """What lies outside a viewport's frame is not there."""
    document = stand.new()
    _crossed(document)
    viewport(sheet(document), (210, 150), (100, 100), (0, 0), 1000)
    pdf = stand.convert(document, "--layout", "Sheet")
    assert _ink(pdf, 165, 105, 255, 195), "nothing in the viewport"
    for edges in ((2, 2, 158, 295), (262, 2, 418, 295), (2, 2, 418, 98), (2, 202, 418, 295)):
        assert not _ink(pdf, *edges), f"ink outside the viewport, in {edges}"


def polygon_viewport(stand):
    """A viewport clipped by a triangle shows the triangle alone."""
    document = stand.new()
    _crossed(document)
    layout = sheet(document)
    window = viewport(layout, (210, 150), (200, 200), (0, 0), 1000)
    corner = layout.add_lwpolyline([(110, 50), (310, 50), (110, 250)], close=True)
    window.dxf.clipping_boundary_handle = corner.dxf.handle
    window.dxf.flags |= 0x10000
    pdf = stand.convert(document, "--layout", "Sheet")
    assert _ink(pdf, 115, 60, 180, 150), "nothing in the triangle"
    assert not _ink(pdf, 220, 170, 305, 245), "ink beyond the triangle"


def frozen_in_viewport(stand):
    """A layer frozen in one viewport shows in the other one only."""
    document = stand.new()
    document.layers.add("WATER")
    document.modelspace().add_line((-50, 0), (50, 0), dxfattribs={"layer": "WATER", "color": 1})
    layout = sheet(document)
    for x, frozen in ((110, []), (310, ["WATER"])):
        viewport(layout, (x, 150), (100, 100), (0, 0), 100).frozen_layers = frozen
    found = page_ink.segments(page_ink.shapes(stand.convert(document, "--layout", "Sheet")), "#ff0000")
    assert len(found) == 1 and found[0][0][0] < 200 * POINTS, f"{len(found)} lines"


def hidden_layers(stand):
    """Layers that are off, frozen or not plotted leave no ink; the others do."""
    document = stand.new()
    layout = sheet(document)
    colors = {"SHOWN": 1, "OFF": 2, "FROZEN": 3, "NOPLOT": 4, "Defpoints": 6}
    for index, (name, color) in enumerate(colors.items()):
        layer = document.layers.get(name) if document.layers.has_entry(name) else document.layers.add(name)
        layer.color = color
        layout.add_line((20, 20 + 20 * index), (200, 20 + 20 * index), dxfattribs={"layer": name})
    document.layers.get("OFF").off()
    document.layers.get("FROZEN").freeze()
    document.layers.get("NOPLOT").dxf.plot = 0
    found = {shape.color for shape in page_ink.shapes(stand.convert(document, "--layout", "Sheet"))}
    assert found == {"#ff0000"}, f"colours on the page: {sorted(found)}"


def lineweights(stand):
    """Each lineweight is that wide on paper, within a hundredth of a millimetre."""
    document = stand.new()
    layout = sheet(document)
    weights = (9, 13, 18, 25, 35, 50, 70, 100, 140, 211)
    for index, weight in enumerate(weights):
        layout.add_line((20, 20 + 20 * index), (200, 20 + 20 * index), dxfattribs={"lineweight": weight})
    found = page_ink.segments(page_ink.shapes(stand.convert(document, "--layout", "Sheet")))
    assert len(found) == len(weights), f"{len(found)} lines"
    for weight, (_, _, width) in zip(weights, sorted(found, key=lambda segment: segment[0][1])):
        expect(f"lineweight {weight}", width / POINTS, weight / 100, 0.01)


def _dash_length(stand, scaled):
    document = stand.new()
    document.linetypes.add("EVEN", [20.0, 10.0, -10.0])
    document.modelspace().add_line((0, 0), (10000, 0), dxfattribs={"linetype": "EVEN", "color": 1})
    layout = sheet(document)
    layout.dxf.layout_flags = 1 if scaled else 0
    document.header["$PSLTSCALE"] = int(scaled)
    viewport(layout, (210, 148), (420, 290), (5000, 0), 290 * 25)
    found = page_ink.segments(page_ink.shapes(stand.convert(document, "--layout", "Sheet")), "#ff0000")
    lengths = sorted(map(length, found))
    return len(lengths), lengths[len(lengths) // 2] / POINTS


def linetypes_in_viewports(stand):
    """Dashes in a viewport: paper measures where PSLTSCALE is 1, model measures where it is 0."""
    count, dash = _dash_length(stand, True)
    assert 15 <= count <= 25, f"{count} dashes"
    expect("dash under PSLTSCALE 1", dash, 10, 0.1)
    count, dash = _dash_length(stand, False)
    assert count > 300, f"{count} dashes"
    expect("dash under PSLTSCALE 0", dash, 10 / 25, 0.05)


ROWS = [paper_sizes, scale_of_viewport, scale_of_plot, inch_drawing, unit_less_model, clipped_viewport, polygon_viewport,
        frozen_in_viewport, hidden_layers, lineweights, linetypes_in_viewports]
