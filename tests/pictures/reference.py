# SPDX-License-Identifier: GPL-3.0-or-later
"""Pictures that ezdxf makes of the layouts of a drawing, as a program of its own, so that it can be stopped.

    reference.py DRAWING.dxf FOLDER '["Layout1", ""]'

Writes FOLDER/0.png, 1.png, ... in the order of the names; an empty name stands for the model.
"""
import json
import os
import sys

import ezdxf.path
import numpy
from ezdxf.math import Vec3

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import compare_pictures as pictures  # noqa: E402
import lenient  # noqa: E402

SIDE, DPI = 14, 150  # inches, dots an inch
CLOSER = 12  # times that a picture is brought closer at most


class ClippingBackend(pictures.MatplotlibBackend):
    """Cuts what a viewport shows at its border: matplotlib takes a clip for each piece that is drawn, not for what follows."""

    def __init__(self, axes):
        super().__init__(axes)
        self._before, self._clip = set(), None

    def set_clipping_path(self, path=None, scale=1.0):
        if path is not None and len(path):
            self._before, self._clip = set(map(id, self.ax.get_children())), ezdxf.path.to_matplotlib_path([path])
        elif self._clip is not None:
            for piece in self.ax.get_children():
                if id(piece) not in self._before:
                    piece.set_clip_path(self._clip, self.ax.transData)
            self._clip = None
        return True


def save_closer(figure, axes, path):
    """Saves the figure; what is drawn small, since something unseen lies far away, is brought closer until it fills it."""
    figure.set_size_inches(SIDE, SIDE)
    for _ in range(CLOSER):
        figure.savefig(path, dpi=DPI, facecolor="white")
        ink = numpy.asarray(pictures.Image.open(path).convert("L")) < 250
        rows, columns = numpy.where(ink.any(axis=1))[0], numpy.where(ink.any(axis=0))[0]
        if not len(rows) or max(rows[-1] - rows[0], columns[-1] - columns[0]) > 0.6 * max(ink.shape):
            return
        size = max(rows[-1] - rows[0], columns[-1] - columns[0]) * 0.55 + 3
        middle = (columns[0] + columns[-1]) / 2, ink.shape[0] - (rows[0] + rows[-1]) / 2
        corners = axes.transData.inverted().transform([(middle[0] - size, middle[1] - size),
                                                       (middle[0] + size, middle[1] + size)])
        axes.set_xlim(corners[0][0], corners[1][0])
        axes.set_ylim(corners[0][1], corners[1][1])


def read(path):
    with open(path, "rb") as file:
        is_binary = file.read(18) == b"AutoCAD Binary DXF"
    return pictures.ezdxf.readfile(path) if is_binary else pictures.recover.readfile(path)[0]


def prepare(document):
    """White that is given as a true colour would be white on white, where we draw it as colour 7, in black."""
    for part in [*document.layers, *document.entitydb.values()]:
        if part.dxf.is_supported("true_color") and part.dxf.get("true_color") == 0xFFFFFF:
            part.dxf.discard("true_color")


def wake_views(layout):
    """Layouts that were not open when the drawing was saved have viewports without ids and states, which ezdxf leaves out."""
    for index, viewport in enumerate(layout.query("VIEWPORT")):
        if viewport.dxf.get("id", 0) != 1:
            if Vec3(viewport.dxf.view_direction_vector).normalize().isclose((0, 0, 1), abs_tol=1e-6):
                viewport.dxf.view_direction_vector = (0, 0, 1)  # views nearly from above and view targets pass it by, too
                viewport.dxf.view_center_point = Vec3(viewport.dxf.view_center_point) + Vec3(viewport.dxf.view_target_point)
            viewport.dxf.id = index + 1  # the first one is the sheet itself
            viewport.dxf.status = 0 if viewport.dxf.flags & 0x20000 else index + 1


def draw_layout(document, name, path):
    layout = document.modelspace() if name == "" else document.layouts.get(name)
    wake_views(layout)
    figure = pictures.pyplot.figure(figsize=(SIDE, SIDE), dpi=DPI)
    axes = figure.add_axes([0, 0, 1, 1])
    paper = pictures.LayoutProperties.from_layout(layout)
    paper.set_colors("#ffffff")
    pictures.Frontend(pictures.RenderContext(document), ClippingBackend(axes)).draw_layout(layout, finalize=True,
                                                                                          layout_properties=paper)
    save_closer(figure, axes, path)
    pictures.pyplot.close(figure)


def draw(dxf, folder, names):
    """Draws what can be drawn; gives what is wrong with the rest."""
    lenient.apply()
    document, faults = read(dxf), []
    prepare(document)
    for index, name in enumerate(names):
        try:
            draw_layout(document, name, os.path.join(folder, f"{index}.png"))
        except Exception as error:  # whatever ezdxf or matplotlib stumble over
            faults.append(f"{name or 'Model'}: {type(error).__name__}: {error}")
    return faults


if __name__ == "__main__":
    sys.exit("; ".join(draw(sys.argv[1], sys.argv[2], json.loads(sys.argv[3]))) or 0)
