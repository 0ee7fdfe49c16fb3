# SPDX-License-Identifier: GPL-3.0-or-later
"""What a page shows, shape by shape, as `mutool trace` reads it. Lengths in points, y upwards from the page's lower edge."""
import collections
import re
import subprocess
import xml.etree.ElementTree as ElementTree

import pdf_tools

Shape = collections.namedtuple("Shape", "kind color width paths clips")
# kind: "stroke" or "fill"; color: "#rrggbb"; width: points; paths: lists of points; clips: boxes that were in force


def _color(element):
    values = [float(part) for part in element.get("color", "0").split()]
    values = values * 3 if len(values) == 1 else values
    return "#" + "".join(f"{round(255 * value):02x}" for value in values[:3])


def _numbers(element, *names):
    return [float(element.get(name)) for name in names]


class _Reader:
    def __init__(self, height):
        self.height, self.clips, self.shapes = height, [], []

    def paths(self, element):
        a, b, c, d, e, f = (float(part) for part in element.get("transform").split())

        def place(x, y):
            return a * x + c * y + e, self.height - (b * x + d * y + f)
        found = []
        for step in element:
            if step.tag == "moveto":
                found.append([place(*_numbers(step, "x", "y"))])
            elif step.tag == "lineto":
                found[-1].append(place(*_numbers(step, "x", "y")))
            elif step.tag == "curveto":
                found[-1].extend(place(*_numbers(step, f"x{i}", f"y{i}")) for i in (1, 2, 3))
            elif step.tag == "closepath" and found:
                found[-1].append(found[-1][0])
        return found

    def read(self, element):
        if element.tag in ("clip_path", "clip_stroke_path"):
            self.clips.append(box([point for path in self.paths(element) for point in path]))
        elif element.tag in ("clip_text", "clip_image_mask", "begin_mask"):
            self.clips.append(None)
        elif element.tag == "pop_clip":
            self.clips.pop()
        elif element.tag in ("stroke_path", "fill_path"):
            scale = abs(float(element.get("transform").split()[0])) or abs(float(element.get("transform").split()[1]))
            width = float(element.get("linewidth", 0)) * scale
            self.shapes.append(Shape(element.tag[:element.tag.index("_")], _color(element), width, self.paths(element),
                                     [clip for clip in self.clips if clip]))
        for child in element if element.tag in ("document", "page", "begin_layer") else ():
            self.read(child)


def box(points):
    xs, ys = [x for x, _ in points], [y for _, y in points]
    return min(xs), min(ys), max(xs), max(ys)


def size_of(pdf, page=1):
    """Width and height of the MediaBox as the file has them."""
    objects = pdf_tools.Objects(pdf)
    left, bottom, right, top = (float(part) for part in objects.at(objects.pages[page - 1])["/MediaBox"])
    return right - left, top - bottom


def shapes(pdf, page=1):
    """The strokes and fills of a page in their order; text and images aside."""
    text = subprocess.run(["mutool", "trace", pdf, str(page)], capture_output=True, text=True, check=True).stdout
    reader = _Reader(size_of(pdf, page)[1])
    reader.read(ElementTree.fromstring(re.sub(r"[\x00-\x08\x0b-\x1f]|&#x?[0-9a-fA-F]+;", "", text)))
    return reader.shapes


def segments(found, color=None):
    """(start, end, width) of every straight piece of the strokes of one colour."""
    return [(a, b, shape.width) for shape in found if shape.kind == "stroke" and color in (None, shape.color)
            for path in shape.paths for a, b in zip(path, path[1:]) if a != b]
