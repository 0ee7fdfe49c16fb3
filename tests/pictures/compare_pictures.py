#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Renders drawings with us and with ezdxf, lays the pictures side by side and says how much ink differs.

    compare_pictures.py PROGRAM OUT_FOLDER DRAWING...

PROGRAM is our command line program. For each drawing the model tab is converted and rendered; both pictures are cut to
their ink and brought to one size. The difference is the share of ink pixels of either picture that have no ink of the other
within three pixels: 0 for the same picture, 1 for two that have nothing in common. Needs python3-ezdxf,
python3-matplotlib, python3-pil and poppler-utils. It compares two programs, so it judges nothing by itself: look at the
pairs.
"""
import os
import subprocess
import sys
import tempfile

import ezdxf
import matplotlib
import numpy
from ezdxf import recover
from ezdxf.addons.drawing import Frontend, RenderContext
from ezdxf.addons.drawing.matplotlib import MatplotlibBackend
from ezdxf.addons.drawing.properties import LayoutProperties
from PIL import Image

matplotlib.use("Agg")
import matplotlib.pyplot as pyplot  # noqa: E402

SIZE = 1000  # longer side of a picture's ink, pixels
REACH = 3    # pixels by which ink may be elsewhere


def draw_ours(program, drawing, folder):
    pdf = os.path.join(folder, "ours.pdf")
    subprocess.run([program, "convert", drawing, "-o", pdf, "--layouts", "model"], check=True, capture_output=True)
    subprocess.run(["pdftoppm", "-r", "200", "-png", "-singlefile", pdf, os.path.join(folder, "ours")], check=True)
    return Image.open(os.path.join(folder, "ours.png")).convert("L")


def draw_ezdxf(drawing, folder):
    document, _ = recover.readfile(drawing)
    figure = pyplot.figure(figsize=(14, 14))
    axes = figure.add_axes([0, 0, 1, 1])
    paper = LayoutProperties.from_layout(document.modelspace())
    paper.set_colors("#ffffff")
    Frontend(RenderContext(document), MatplotlibBackend(axes)).draw_layout(document.modelspace(), finalize=True,
                                                                           layout_properties=paper)
    path = os.path.join(folder, "ezdxf.png")
    figure.savefig(path, dpi=150, facecolor="white")
    pyplot.close(figure)
    return Image.open(path).convert("L")


def ink_box(picture):
    """The picture cut to its ink, its longer side SIZE pixels; None when it is empty."""
    mask = numpy.asarray(picture) < 200
    rows, columns = numpy.where(mask.any(axis=1))[0], numpy.where(mask.any(axis=0))[0]
    if not len(rows) or not len(columns):
        return None
    cut = picture.crop((columns[0], rows[0], columns[-1] + 1, rows[-1] + 1))
    scale = SIZE / max(cut.size)
    return cut.resize((max(1, round(cut.width * scale)), max(1, round(cut.height * scale))), Image.LANCZOS)


def grow(mask, reach):
    result = mask.copy()
    for _ in range(reach):
        wider = result.copy()
        wider[1:] |= result[:-1]
        wider[:-1] |= result[1:]
        wider[:, 1:] |= result[:, :-1]
        wider[:, :-1] |= result[:, 1:]
        result = wider
    return result


def difference(one, two):
    width, height = max(one.width, two.width), max(one.height, two.height)
    masks = []
    for picture in (one, two):
        page = Image.new("L", (width, height), 255)
        page.paste(picture, (0, height - picture.height))
        masks.append(numpy.asarray(page) < 200)
    lonely = (masks[0] & ~grow(masks[1], REACH)).sum() + (masks[1] & ~grow(masks[0], REACH)).sum()
    return lonely / max(1, masks[0].sum() + masks[1].sum())


def pair(one, two, path):
    page = Image.new("L", (one.width + two.width + 30, max(one.height, two.height)), 255)
    page.paste(one, (0, 0))
    page.paste(two, (one.width + 30, 0))
    page.save(path)


def compare(program, drawing, out):
    with tempfile.TemporaryDirectory() as folder:
        pictures = [ink_box(draw_ours(program, drawing, folder)), ink_box(draw_ezdxf(drawing, folder))]
    if None in pictures:
        return "one of the pictures is empty"
    pair(*pictures, os.path.join(out, os.path.splitext(os.path.basename(drawing))[0] + ".png"))
    return f"{difference(*pictures):.3f}"


def main(program, out, drawings):
    os.makedirs(out, exist_ok=True)
    print(f"{'drawing':<48} ink difference   (pairs, ours on the left: {out})")
    for drawing in drawings:
        try:
            result = compare(os.path.abspath(program), drawing, out)
        except (subprocess.CalledProcessError, ezdxf.DXFError, OSError) as error:
            result = f"not compared: {error}"
        print(f"{os.path.basename(drawing)[:47]:<48} {result}", flush=True)


if __name__ == "__main__":
    if len(sys.argv) < 4:
        sys.exit(__doc__)
    main(sys.argv[1], sys.argv[2], sys.argv[3:])
