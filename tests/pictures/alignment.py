# SPDX-License-Identifier: GPL-3.0-or-later
"""Finds the size and the place at which one picture's ink lies best on another's.

Cutting both to their ink brings them over each other only where the outermost ink is the same. Where one program leaves out
what lies outermost, the other picture must be made larger or smaller and moved: sizes from half to twice are tried, the
places by Fourier transforms, first on small pictures and then closer and closer round the best.
"""
import numpy
from PIL import Image

STAGES = ((160, 0.5, 2.0, 1.04), (400, 0.97, 1.03, 1.006), (1000, 0.996, 1.004, 1.0012))  # side, least, most, step


def _resized(picture, factor):
    size = max(1, round(picture.width * factor)), max(1, round(picture.height * factor))
    return picture.resize(size, Image.LANCZOS)


def _ink(picture, reach):
    """Ink spread a little, so that lines that lie beside each other meet."""
    mask = (255 - numpy.asarray(picture, dtype=numpy.float32)) / 255
    for axis in (0, 1):
        mask = sum(numpy.roll(padded, shift, axis) for padded in [mask] for shift in range(-reach, reach + 1))
    return mask


def _best_place(one, two):
    """How well they meet at best (0 to 1), and by how much `two` must be moved right and down for that."""
    shape = [one.shape[axis] + two.shape[axis] for axis in (0, 1)]
    product = numpy.fft.irfft2(numpy.fft.rfft2(one, shape) * numpy.conj(numpy.fft.rfft2(two, shape)), shape)
    row, column = numpy.unravel_index(numpy.argmax(product), product.shape)
    score = product[row, column] / max(1e-9, numpy.sqrt((one ** 2).sum() * (two ** 2).sum()))
    return score, column - shape[1] * (column >= one.shape[1]), row - shape[0] * (row >= one.shape[0])


def aligned(one, two):
    """Both pictures on pages of one size, `two` made as large and moved so that the ink meets best."""
    size, right, down = 1.0, 0, 0
    for side, least, most, step in STAGES:
        factor = side / max(one.size)
        ours, found = _ink(_resized(one, factor), 1), []
        scale = least
        while scale <= most * 1.0001:
            found.append((*_best_place(ours, _ink(_resized(two, factor * size * scale), 1)), size * scale))
            scale *= step
        _, right, down, size = max(found)
        right, down = right / factor, down / factor
    theirs = _resized(two, size)
    left, top = max(0, -round(right)), max(0, -round(down))
    right, down = max(0, round(right)), max(0, round(down))
    page = (max(left + one.width, right + theirs.width), max(top + one.height, down + theirs.height))
    pages = [Image.new("L", page, 255), Image.new("L", page, 255)]
    pages[0].paste(one, (left, top))
    pages[1].paste(theirs, (right, down))
    return pages
