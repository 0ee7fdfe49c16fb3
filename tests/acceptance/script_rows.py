# SPDX-License-Identifier: GPL-3.0-or-later
"""Scripts that run from right to left or that are shaped: each row draws and looks."""
import os
import struct
import subprocess
import unicodedata
import unittest

import pdf_tools
from content_rows import texts
from plot_rows import POINTS, sheet

MARKS = {code: None for code in (0x200e, 0x200f, 0x202a, 0x202b, 0x202c)}
HEBREW, ARABIC = "\u05d3\u05dc\u05ea 12", "\u0645\u0631\u062d\u0628\u0627 34"


def right_to_left_dimensions(stand):
    """Dimensions in Hebrew and Arabic are found as they were written."""
    document = stand.new("R2010")
    layout = sheet(document)
    for y, text in ((100, HEBREW), (160, ARABIC)):
        dimension = layout.add_linear_dim(base=(100, y + 30), p1=(100, y), p2=(250, y), text=text,
                                          override={"dimtxt": 5, "dimtad": 1, "dimtxsty": "OpenSans"})
        dimension.commit()
    found = texts(stand.convert(document, "--layout", "Sheet")).translate(MARKS)
    for text in (HEBREW, ARABIC):
        assert text in found, f"{text!r} is not in {found!r}"


def need_fonts_for(*languages):
    """Skips the row where fontconfig knows no font for one of them."""
    for language in languages:
        known = subprocess.run(["fc-list", f":lang={language}", "file"], capture_output=True, text=True, check=True, env=os.environ)
        if not known.stdout.strip():
            raise unittest.SkipTest(f"no font for the language {language}: run packaging/install-packages packaging/packages-test.txt")


def shaped_scripts(stand):
    """Thai and Devanagari: letters join, marks stand on them, no box is drawn, and searches find them as written."""
    need_fonts_for("hi", "th")
    document = stand.new("R2010")
    layout = sheet(document)
    devanagari, thai = "\u0928\u093f\u0930\u094d\u092e\u093e\u0923", "\u0e01\u0e48\u0e2d\u0e2a\u0e23\u0e49\u0e32\u0e07"
    parts = ["\u0915", "\u0937", "\u0915\u094d\u0937", "\u0e01", "\u0e01\u0e48"]
    layout.add_text(devanagari, dxfattribs={"insert": (50, 250), "height": 8, "style": "OpenSans"})
    layout.add_mtext(thai, {"insert": (50, 230), "char_height": 8, "style": "OpenSans"})
    for number, part in enumerate(parts):
        layout.add_text(part, dxfattribs={"insert": (50, 200 - 20 * number), "height": 8, "style": "OpenSans"})
    path = stand.save(document)
    result = stand.run("convert", path, "-o", stand.path("out.pdf"), "--layout", "Sheet")
    assert result.returncode == 0 and "no font has" not in result.stderr, result.stderr
    pdf = stand.path("out.pdf")
    found = unicodedata.normalize("NFC", texts(pdf))
    for text in [devanagari, thai, *parts]:
        assert text in found, f"{text!r} is not in {found!r}"
    widths = {word.text: word.right - word.left for word in pdf_tools.words(pdf)}
    first, second, joined, letter, marked = (widths[part] for part in parts)
    assert joined < 0.85 * (first + second), f"the letters don't join: {joined:.1f} of {first:.1f} and {second:.1f}"
    assert abs(marked - letter) < 0.5, f"the mark doesn't stand on its letter: {marked:.1f}, {letter:.1f}"


STAMPS = [(HEBREW, "left"), (ARABIC, "center"), ("\u0e01\u0e48\u0e2d\u0e2a\u0e23\u0e49\u0e32\u0e07", "right"),
          ("\u0928\u093f\u0930\u094d\u092e\u093e\u0923", "left"), ("\u0427\u0435\u0440\u0442\u0451\u0436", "center"),
          ("\u03ba\u03ac\u03c4\u03bf\u03c8\u03b7", "right"), ("\u65bd\u5de5\u56fe", "left")]


def stamped(stand, text, justify="left"):
    """The PDF of a sheet with a small cross at (200, 150), stamped there in blue, and what was told."""
    document = stand.new("R2010")
    layout = sheet(document)
    layout.add_line((195, 150), (205, 150))
    layout.add_line((200, 145), (200, 155))
    path = stand.save(document)
    assert stand.run("set", "Stamp11", text).returncode == 0
    told = stand.run("stamp", path, "add", "--text", "11", "--at", "200,150", "--size", "30", "--justify", justify,
                     "--color", "blue", "--layout", "Sheet")
    assert told.returncode == 0, told.stderr
    pdf = path[:-4] + ".pdf"
    result = stand.run("convert", path, "-o", pdf, "--layout", "Sheet")
    assert result.returncode == 0, result.stderr
    return pdf, result.stderr, path


def stamps(stand):
    """Stamps in Hebrew, Arabic, Thai, Devanagari, Cyrillic, Greek and Chinese stand at their point, in their colour, and are found."""
    need_fonts_for("he", "ar", "th", "hi", "ru", "el", "zh")
    for text, justify in STAMPS:
        pdf, told, _ = stamped(stand, text, justify)
        assert "stand-ins" not in told and "no font has" not in told, told
        found = unicodedata.normalize("NFC", texts(pdf)).translate(MARKS)
        assert text in found, f"{text!r} is not in {found!r}"
        boxes = pdf_tools.words(pdf)
        left, right = min(word.left for word in boxes), max(word.right for word in boxes)
        place = {"left": left, "center": (left + right) / 2, "right": right}[justify]
        assert abs(place - 200 * POINTS) < 0.2, f"{text!r} stands {place - 200 * POINTS:.2f} points off its point"
        assert right - left > 30, f"{text!r} is {right - left:.1f} points wide"
        trace = pdf_tools.output_of("mutool", "draw", "-q", "-F", "trace", pdf, "1")
        assert trace.count("<fill_text") == trace.count('<fill_text colorspace="DeviceRGB" color="0 0 1"') > 0, trace


def stamps_without_a_font(stand):
    """A stamp's characters that no font has are boxes, told and counted; --strict fails."""
    pdf, told, path = stamped(stand, "A \U0001fbff\U0001fbff")
    remark = "note: no font has these characters, drawn as boxes: other characters, in text stamps (2 times)"
    assert remark in told, told
    assert "A \U0001fbff\U0001fbff" in texts(pdf), texts(pdf)
    assert stand.run("convert", path, "-o", pdf, "--layout", "Sheet", "--strict").returncode == 1
    of_set = stand.run("publish", "-o", stand.path("set.pdf"), path + ":Sheet")
    assert of_set.returncode == 0 and remark in of_set.stderr, of_set.stderr


def big_font(*characters):
    """A big font of code page 936, 8 units high; each character is its pair of bytes and its pen codes."""
    shapes = [(0, b"Own\0\x08\0\0\x08\0"), *((int.from_bytes(pair, "big"), b"\0" + codes) for pair, codes in characters)]
    head = b"AutoCAD-86 bigfont 1.0\r\n\x1a" + struct.pack("<5H", 8, len(shapes), 1, 0xB0, 0xF7)
    place, index = len(head) + 8 * len(shapes), b""
    for number, body in shapes:
        index += struct.pack("<HHI", number, len(body), place)
        place += len(body)
    return head + index + b"".join(body for _, body in shapes)


def big_fonts(stand):
    """A style's big font beside the drawing is drawn by its own strokes and found; a missing one is told."""
    bar = b"\x02\x20\x01\x84\x02\x8c\x80\0"  # from (2, 0) to (2, 8), then 10 on
    with open(stand.path("gbown.shx"), "wb") as file:
        file.write(big_font(("\u65bd".encode("gbk"), bar)))
    for name, told in (("gbown.shx", False), ("gbother.shx", True)):
        document = stand.new("R2000")
        document.encoding = "gbk"
        document.styles.add("TWO", font="txt.shx").dxf.bigfont = name
        layout = sheet(document)
        layout.add_text("\u65bd", dxfattribs={"insert": (100, 100), "height": 40, "style": "TWO"})
        path = stand.save(document)
        result = stand.run("convert", path, "-o", stand.path("out.pdf"), "--layout", "Sheet")
        assert result.returncode == 0, result.stderr
        assert (f"big font {name} drawn with outline fonts" in result.stderr) == told, result.stderr
        assert "\u65bd" in texts(stand.path("out.pdf"))
        picture = pdf_tools.Picture(stand.path("out.pdf"), dpi=72)
        left, bottom, right, top = (side / POINTS for side in picture.ink_box(0, 0, 400 * POINTS, 290 * POINTS))
        bar_alone = abs(left - 110) < 1 and abs(right - 110) < 1 and abs(bottom - 100) < 1 and abs(top - 140) < 1
        assert bar_alone != told, f"{left:.1f} to {right:.1f}, {bottom:.1f} to {top:.1f}"


ROWS = [right_to_left_dimensions, shaped_scripts, stamps, stamps_without_a_font, big_fonts]
