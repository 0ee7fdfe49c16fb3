# SPDX-License-Identifier: GPL-3.0-or-later
"""Views in space: lines behind faces, and views from one point. What a page has to show is worked out here, by the cube's corners."""
import itertools
import math
import time

from ezdxf.render import forms

import page_ink
from plot_rows import POINTS, sheet

HIDES, FROM_A_POINT, CENTER, SIZE, HEIGHT = 0x800, 1, (210, 148.5), (400, 280), 60
SCALE = SIZE[1] / HEIGHT
CUBE = [tuple(20 * part for part in corner) for corner in itertools.product((0, 1), repeat=3)]
TARGET = (10, 10, 10)


def edges():
    pairs = itertools.combinations(range(8), 2)
    return [(a, b) for a, b in pairs if sum(p != q for p, q in zip(CUBE[a], CUBE[b])) == 1]


def dot(a, b):
    return sum(p * q for p, q in zip(a, b))


def unit(a):
    return tuple(p / math.sqrt(dot(a, a)) for p in a)


def seen(point, direction, from_a_point):
    """Where a point lands on the page, in points."""
    toward = unit(direction)
    right = unit((-toward[1], toward[0], 0))
    up = (toward[1] * right[2] - toward[2] * right[1], toward[2] * right[0] - toward[0] * right[2],
          toward[0] * right[1] - toward[1] * right[0])
    offset = tuple(p - t for p, t in zip(point, TARGET))
    distance = math.sqrt(dot(direction, direction))
    growth = distance / (distance - dot(offset, toward)) if from_a_point else 1
    return tuple((middle + dot(offset, axis) * growth * SCALE) * POINTS for middle, axis in zip(CENTER, (right, up)))


def cube_sheet(stand, direction, flags):
    document = stand.new()
    forms.cube(center=False).scale_uniform(20).render_mesh(document.modelspace(), dxfattribs={"color": 1})
    layout = sheet(document)
    port = layout.add_viewport(center=CENTER, size=SIZE, view_center_point=(0, 0), view_height=HEIGHT)
    port.dxf.view_direction_vector, port.dxf.view_target_point, port.dxf.flags = direction, TARGET, flags
    return document


def red_lines(pdf):
    return [(path[0], path[-1]) for shape in page_ink.shapes(pdf) if shape.kind == "stroke" and shape.color == "#ff0000"
            for path in straight(shape.paths)]


def straight(paths):
    return [pair for path in paths for pair in zip(path, path[1:])]


def compare(lines, wanted):
    """Each wanted line is there, either way round, and no other."""
    left = list(lines)
    for a, b in wanted:
        near = [line for line in left for c, d in (line, line[::-1]) if math.dist(a, c) < 0.05 and math.dist(b, d) < 0.05]
        assert near, f"no line from {a} to {b}, but {left}"
        left.remove(near[0])
    assert not left, f"lines too many: {left}"


def corner_of(direction, nearest):
    return (max if nearest else min)(range(8), key=lambda corner: dot(CUBE[corner], direction))


def expected(direction, flags):
    """The edges at the corner that lies furthest away are hidden."""
    away = corner_of(direction, False)
    return [(seen(CUBE[a], direction, flags & FROM_A_POINT), seen(CUBE[b], direction, flags & FROM_A_POINT))
            for a, b in edges() if not flags & HIDES or away not in (a, b)]


def cube_in_space(stand):
    """A cube from a corner: all twelve edges, nine where lines are hidden, and both in perspective."""
    for flags, count in ((0, 12), (HIDES, 9), (FROM_A_POINT, 12), (HIDES | FROM_A_POINT, 9)):
        direction = (50, -60, 40)
        wanted = expected(direction, flags)
        assert len(wanted) == count
        compare(red_lines(stand.convert(cube_sheet(stand, direction, flags), "--layout", "Sheet", "--strict")), wanted)


def cube_in_the_model(stand):
    """The model tab hides lines where its page setup asks for it, and looks from a point where its view does."""
    direction = (50, -60, 40)
    for flags, count in ((0, 12), (HIDES, 9), (HIDES | FROM_A_POINT, 9)):
        document = cube_sheet(stand, direction, 0)
        view = document.viewports.get("*Active")[0]
        view.dxf.direction, view.dxf.target, view.dxf.height, view.dxf.center = direction, TARGET, HEIGHT, (0, 0)
        view.dxf.view_mode, view.dxf.aspect_ratio = flags & FROM_A_POINT, SIZE[0] / SIZE[1]
        setup = document.modelspace().dxf_layout.dxf
        setup.plot_type, setup.paper_width, setup.paper_height, setup.plot_paper_units = 0, 420, 297, 1
        setup.left_margin = setup.bottom_margin = setup.right_margin = setup.top_margin = 0
        setup.plot_layout_flags = 4 | (8 if flags & HIDES else 0)
        lines = red_lines(stand.convert(document, "--layout", "Model"))
        assert len(lines) == count, f"{len(lines)} lines, not {count}"


def faces_before_others(stand):
    """What stands behind a face ends at its outline: lines, circles, areas and texts, of each kind of face."""
    document = stand.new()
    model = document.modelspace()
    model.add_3dface([(0, 0, 9), (20, 0, 9), (20, 20, 9), (0, 20, 9)], dxfattribs={"invisible": 15})
    model.add_line((-10, 10), (30, 10), dxfattribs={"color": 1})
    model.add_circle((20, 10), 5, dxfattribs={"color": 3})
    model.add_text("BEHIND", height=2, dxfattribs={"insert": (3, 3)})
    model.add_text("BESIDE", height=2, dxfattribs={"insert": (22, 18)})
    layout = sheet(document)
    port = layout.add_viewport(center=CENTER, size=SIZE, view_center_point=(10, 10), view_height=HEIGHT)
    port.dxf.flags = HIDES
    pdf = stand.convert(document, "--layout", "Sheet", "--strict")

    def at(x):
        return (CENTER[0] + (x - 10) * SCALE) * POINTS
    level = CENTER[1] * POINTS
    compare(red_lines(pdf), [((at(-10), level), (at(0), level)), ((at(20), level), (at(30), level))])
    arcs = [point for shape in page_ink.shapes(pdf) if shape.color == "#00ff00" for path in shape.paths for point in path]
    assert arcs and min(x for x, _ in arcs) > at(20) - 0.05, "the circle goes on behind the face"
    words = [word.text for word in page_ink.pdf_tools.words(pdf)]
    assert words == ["BESIDE"], f"texts {words}"


def many_faces(stand):
    """20,000 faces before each other are hidden within a few seconds."""
    document = stand.new()
    size = 141
    mesh = document.modelspace().add_polymesh((size, size), dxfattribs={"color": 1})
    corners = mesh.get_mesh_vertex_cache()
    for i, j in itertools.product(range(size), repeat=2):
        corners[i, j] = (i / 4, j / 4, 4 * math.sin(i / 5) * math.cos(j / 7))
    layout = sheet(document)
    port = layout.add_viewport(center=CENTER, size=SIZE, view_center_point=(0, 0), view_height=HEIGHT)
    port.dxf.view_direction_vector, port.dxf.view_target_point, port.dxf.flags = (1, -1.5, 0.4), (17, 17, 0), HIDES
    path = stand.save(document)
    begun = time.monotonic()
    pdf = stand.convert_file(path, "--layout", "Sheet", "--strict")
    took = time.monotonic() - begun
    port.dxf.flags = 0
    whole = sum(math.dist(*line) for line in red_lines(stand.convert(document, "--layout", "Sheet")))
    shown = sum(math.dist(*line) for line in red_lines(pdf))
    assert 0.2 < shown / whole < 0.9, f"{shown / whole:.2f} of all lines are left"
    assert took < 20, f"{took:.1f} s"


ROWS = [cube_in_space, cube_in_the_model, faces_before_others, many_faces]
