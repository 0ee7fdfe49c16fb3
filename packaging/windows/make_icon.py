#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the icon of Windows from that of the desktop: sheetmaker-pdf.ico, which is kept beside this script.

    make_icon.py SVG ICO

Small pictures are bitmaps, which every reader of icons knows, and the large one is a PNG. Needs librsvg and cairo.
"""
import ctypes
import io
import struct
import sys

from PIL import Image

SIZES = [16, 20, 24, 32, 40, 48, 64, 256]
ARGB = 0  # cairo's format, blue first in memory, colours multiplied by alpha


class Rectangle(ctypes.Structure):
    _fields_ = [(name, ctypes.c_double) for name in ("x", "y", "width", "height")]


def render(svg, size):
    rsvg, cairo = ctypes.CDLL("librsvg-2.so.2"), ctypes.CDLL("libcairo.so.2")
    for library, names in ((rsvg, ["rsvg_handle_new_from_file"]),
                           (cairo, ["cairo_image_surface_create", "cairo_create", "cairo_image_surface_get_data"])):
        for name in names:
            getattr(library, name).restype = ctypes.c_void_p
    handle = ctypes.c_void_p(rsvg.rsvg_handle_new_from_file(svg.encode(), None))
    surface = ctypes.c_void_p(cairo.cairo_image_surface_create(ARGB, size, size))
    context = ctypes.c_void_p(cairo.cairo_create(surface))
    if not rsvg.rsvg_handle_render_document(handle, context, ctypes.byref(Rectangle(0, 0, size, size)), None):
        sys.exit(f"{svg} can't be drawn")
    cairo.cairo_surface_flush(surface)
    data = ctypes.string_at(cairo.cairo_image_surface_get_data(surface), size * size * 4)
    return Image.frombuffer("RGBa", (size, size), data, "raw", "BGRa", 0, 1).convert("RGBA")


def bitmap(picture):
    size = picture.width
    upwards = picture.transpose(Image.FLIP_TOP_BOTTOM).tobytes("raw", "BGRA")
    mask = bytes((size + 31) // 32 * 4 * size)  # alpha says it all
    return struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, len(upwards) + len(mask), 0, 0, 0, 0) + upwards + mask


def png(picture):
    stream = io.BytesIO()
    picture.save(stream, "PNG", optimize=True)
    return stream.getvalue()


def main(svg, ico):
    pictures = [(size, (png if size >= 256 else bitmap)(render(svg, size))) for size in SIZES]
    offset = 6 + 16 * len(pictures)
    directory = struct.pack("<HHH", 0, 1, len(pictures))
    for size, data in pictures:
        directory += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(data), offset)
        offset += len(data)
    with open(ico, "wb") as file:
        file.write(directory + b"".join(data for _, data in pictures))


if __name__ == "__main__":
    main(*sys.argv[1:])
