"""Pictures that ezdxf makes of the layouts of a drawing, as a program of its own, so that it can be stopped.

    reference.py DRAWING.dxf FOLDER '["Layout1", ""]'

Writes FOLDER/0.png, 1.png, ... in the order of the names; an empty name stands for the model.
"""
import json
import os
import sys

import ezdxf.path

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import compare_pictures as pictures  # noqa: E402


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


def draw(dxf, folder, names):
    document, _ = pictures.recover.readfile(dxf)
    for index, name in enumerate(names):
        layout = document.modelspace() if name == "" else document.layouts.get(name)
        figure = pictures.pyplot.figure(figsize=(14, 14))
        axes = figure.add_axes([0, 0, 1, 1])
        paper = pictures.LayoutProperties.from_layout(layout)
        paper.set_colors("#ffffff")
        pictures.Frontend(pictures.RenderContext(document), ClippingBackend(axes)).draw_layout(layout, finalize=True,
                                                                                              layout_properties=paper)
        figure.savefig(os.path.join(folder, f"{index}.png"), dpi=150, facecolor="white")
        pictures.pyplot.close(figure)


if __name__ == "__main__":
    draw(sys.argv[1], sys.argv[2], json.loads(sys.argv[3]))
