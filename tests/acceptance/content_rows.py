# SPDX-License-Identifier: GPL-3.0-or-later
"""Faults of plotting programs on text, hatches, pictures, colours and files: each row draws and looks at the pages."""
import filecmp
import math
import os
import shutil

from PIL import Image

import page_ink
import pdf_tools
from plot_rows import POINTS, sheet


def texts(pdf):
    return " ".join(pdf_tools.output_of("pdftotext", "-raw", pdf, "-").split())


def expect_texts(pdf, present, absent=()):
    found = texts(pdf)
    for text in present:
        assert text in found, f"{text!r} is not in {found!r}"
    for text in absent:
        assert text not in found, f"{text!r} is in {found!r}"


def attributes(stand):
    """The text of an attribute shows and is found; its definition is not."""
    document = stand.new()
    block = document.blocks.new("DOOR")
    block.add_attdef("NO", (0, 0), text="PRESET", dxfattribs={"height": 5})
    reference = sheet(document).add_blockref("DOOR", (100, 100))
    reference.add_attrib("NO", "D-017", (100, 100), dxfattribs={"height": 5})
    expect_texts(stand.convert(document, "--layout", "Sheet"), ["D-017"], ["PRESET"])


def dimensions(stand):
    """A dimension has its text, its lines and two filled arrow heads."""
    document = stand.new()
    layout = sheet(document)
    dimension = layout.add_linear_dim(base=(100, 130), p1=(100, 100), p2=(250, 100),
                                      override={"dimtxt": 5, "dimasz": 5, "dimdec": 0, "dimblk": ""})
    dimension.render()
    pdf = stand.convert(document, "--layout", "Sheet")
    expect_texts(pdf, ["150"])
    found = page_ink.shapes(pdf)
    heads = [shape for shape in found if shape.kind == "fill"]
    assert len(heads) == 2, f"{len(heads)} arrow heads"
    longest = max(math.dist(a, b) for a, b, _ in page_ink.segments(found))
    assert abs(longest - 150 * POINTS) < 12 * POINTS, f"the dimension line is {longest / POINTS:.1f} mm long"


def leader_arrow(stand):
    """A leader has its arrow head."""
    document = stand.new()
    sheet(document).add_leader([(50, 50), (100, 100), (130, 100)], override={"dimasz": 5})
    found = page_ink.shapes(stand.convert(document, "--layout", "Sheet"))
    assert any(shape.kind == "fill" for shape in found), "no arrow head"


def mtext_codes(stand):
    """Formatting of MTEXT is formatting: lines, colours, stacks and characters, no code is printed."""
    document = stand.new("R2007")
    text = r"First\PSecond {\C1;red} \H2x;tall\H0.5x; \S1/2; \U+041F\U+043B %%c50 45%%d"
    sheet(document).add_mtext(text, {"insert": (50, 250), "char_height": 5, "width": 300, "style": "OpenSans"})
    pdf = stand.convert(document, "--layout", "Sheet")
    expect_texts(pdf, ["First", "Second", "red", "tall", "\u041f\u043b", "\u00d850", "45\u00b0"], ["\\", "%%", ";"])
    words = {word.text: word for word in pdf_tools.words(pdf)}
    assert words["First"].bottom > words["Second"].bottom + 5, "one line instead of two"
    assert words["1"].bottom > words["2"].bottom + 1, "the stack stands in one line"
    red = pdf_tools.Picture(pdf, dpi=144).dark_in(words["red"].left, words["red"].bottom, words["red"].right, words["red"].top,
                                                 lambda r, g, b: r > 150 and g < 100 and b < 100)
    assert next(red, None), "the red word is not red"


def mtext_wraps(stand):
    """A long MTEXT is wrapped at its width."""
    document = stand.new()
    sheet(document).add_mtext("wall " * 40, {"insert": (50, 250), "char_height": 5, "width": 100, "style": "OpenSans"})
    words = [word for word in pdf_tools.words(stand.convert(document, "--layout", "Sheet")) if word.text == "wall"]
    assert len(words) == 40, f"{len(words)} words"
    assert max(word.right for word in words) <= 150.5 * POINTS, "a line is wider than the text"
    assert len({round(word.bottom) for word in words}) > 5, "the text stands in one line"


def code_pages(stand):
    """Umlauts of cp1252 and Cyrillic of cp1251 in old files come out as letters."""
    for page, encoding, text in (("ANSI_1252", "cp1252", "Gr\u00f6\u00dfe \u00c4\u00f6\u00fc \u20ac"),
                                 ("ANSI_1251", "cp1251", "\u041f\u043b\u0430\u043d \u044d\u0442\u0430\u0436\u0430")):
        document = stand.new("R2000")
        document.header["$DWGCODEPAGE"] = page
        document.encoding = encoding
        sheet(document).add_text(text, dxfattribs={"insert": (50, 50), "height": 8, "style": "OpenSans"})
        expect_texts(stand.convert(document, "--layout", "Sheet"), [text], ["?", "\u25a1"])


def stroke_text(stand):
    """Text of stroke fonts shows, is found and stands where it shows."""
    document = stand.new()
    document.styles.add("STROKES", font="txt.shx")
    sheet(document).add_text("SECTION", dxfattribs={"insert": (50, 50), "height": 10, "style": "STROKES"})
    pdf = stand.convert(document, "--layout", "Sheet")
    word, = [word for word in pdf_tools.words(pdf) if word.text == "SECTION"]
    ink = pdf_tools.Picture(pdf, dpi=144).ink_box(word.left - 20, word.bottom - 20, word.right + 20, word.top + 20)
    assert ink, "no ink where the text is found"
    assert abs(ink[0] - 50 * POINTS) < 4 and abs(ink[1] - 50 * POINTS) < 4, f"ink begins at {ink[:2]}"
    assert abs(ink[3] - ink[1] - 10 * POINTS) < 3, f"capitals are {(ink[3] - ink[1]) / POINTS:.1f} mm high"
    assert abs(word.left - ink[0]) < 6 and abs(word.right - ink[2]) < 12, "the found word lies beside its ink"


def pattern_hatches(stand):
    """A pattern hatch is lines, not a black patch; a solid one is filled."""
    document = stand.new()
    layout = sheet(document)
    for x, pattern in ((50, "ANSI31"), (150, None)):
        hatch = layout.add_hatch(color=7)
        if pattern:
            hatch.set_pattern_fill(pattern, scale=1)
        hatch.paths.add_polyline_path([(x, 50), (x + 80, 50), (x + 80, 130), (x, 130)], is_closed=True)
    picture = pdf_tools.Picture(stand.convert(document, "--layout", "Sheet"), dpi=300)

    def share(left):
        count = sum(1 for _ in picture.dark_in((left + 5) * POINTS, 60 * POINTS, (left + 35) * POINTS, 90 * POINTS))
        return count / (30 * POINTS * picture.scale) ** 2
    assert 0.02 < share(50) < 0.4, f"{share(50):.2f} of the pattern is black"
    assert share(150) > 0.99, f"{share(150):.2f} of the solid hatch is black"


def images(stand):
    """A picture beside the drawing is on the page; a missing one is named once."""
    Image.new("RGB", (40, 20), (200, 30, 30)).save(stand.path("red.png"))
    document = stand.new()
    layout = sheet(document)
    there = document.add_image_def(filename="red.png", size_in_pixel=(40, 20))
    gone = document.add_image_def(filename="C:\\photos\\gone.png", size_in_pixel=(40, 20))
    layout.add_image(there, insert=(50, 50), size_in_units=(80, 40))
    for x in (200, 300):
        layout.add_image(gone, insert=(x, 50), size_in_units=(80, 40))
    path = stand.save(document)
    result = stand.run("convert", path, "-o", stand.path("out.pdf"), "--layout", "Sheet")
    assert result.stderr.count("gone.png") == 1, f"stderr: {result.stderr}"
    assert result.returncode == 4, f"exit {result.returncode}"
    red = list(pdf_tools.Picture(stand.path("out.pdf"), dpi=72).dark_in(
        0, 0, 420 * POINTS, 297 * POINTS, lambda r, g, b: abs(r - 200) < 8 and abs(g - 30) < 8 and abs(b - 30) < 8))
    assert len(red) > 0.95 * 80 * 40 * POINTS ** 2, f"{len(red)} red points"
    left, bottom, right, top = page_ink.box(red)
    for what, got, wanted in (("left", left, 50), ("bottom", bottom, 50), ("right", right, 130), ("top", top, 90)):
        assert abs(got / POINTS - wanted) < 0.5, f"{what} edge at {got / POINTS:.2f} mm, not {wanted}"


def pen_colour(stand):
    """Colour 7 is black on white paper, also through a layer and a block."""
    document = stand.new()
    layout = sheet(document)
    document.layers.add("SEVEN", color=7)
    document.blocks.new("TICK").add_line((0, 0), (10, 10), dxfattribs={"color": 0})
    layout.add_line((10, 10), (100, 10), dxfattribs={"color": 7})
    layout.add_line((10, 20), (100, 20), dxfattribs={"layer": "SEVEN"})
    layout.add_blockref("TICK", (50, 50), {"layer": "SEVEN"})
    found = page_ink.segments(page_ink.shapes(stand.convert(document, "--layout", "Sheet")))
    black = page_ink.segments(page_ink.shapes(stand.path("drawing1.pdf")), "#000000")
    assert len(found) == 3 and len(black) == 3, f"{len(black)} of {len(found)} lines are black"


def empty_layout(stand):
    """A layout without contents gives a blank page of its size."""
    document = stand.new()
    sheet(document)
    pdf = stand.convert(document, "--layout", "Sheet")
    width, height = page_ink.size_of(pdf)
    assert abs(width - 420 * POINTS) < 0.01 and abs(height - 297 * POINTS) < 0.01, f"{width} x {height} pt"
    assert not page_ink.shapes(pdf), "something is on the page"


def unusable_files(stand):
    """What is no drawing ends with exit 1 and one line that names it; nothing is left."""
    with open(stand.save(stand.new()), "rb") as file:
        whole = file.read()
    rows = {"empty.dxf": b"", "cut.dxf": whole[:400], "text.dxf": b"Dear Sir,\n" * 50, "page.dwg": b"<html>" * 40,
            "noise.dxf": bytes(range(256)) * 20, "missing.dxf": None}
    for name, content in rows.items():
        if content is not None:
            with open(stand.path(name), "wb") as file:
                file.write(content)
        before = sorted(os.listdir(stand.folder))
        result = stand.run("convert", stand.path(name), "-o", stand.path("out.pdf"))
        assert result.returncode == 1, f"{name}: exit {result.returncode}"
        lines = result.stderr.strip().splitlines()
        assert len(lines) == 1 and name in lines[0], f"{name}: {result.stderr}"
        assert sorted(os.listdir(stand.folder)) == before, f"{name}: something is left"


def outputs_of_one_name(stand):
    """Two drawings whose PDFs would have one name are refused before anything is written."""
    path = stand.save(stand.new())
    for part in ("a", "b", "out"):
        os.mkdir(stand.path(part))
    copies = [shutil.copy(path, stand.path(part + "/plan.dxf")) for part in ("a", "b")]
    result = stand.run("convert", *copies, "-o", stand.path("out"))
    assert result.returncode == 2, f"exit {result.returncode}"
    assert not os.listdir(stand.path("out")), "something was written"


def output_over_input(stand):
    """The output stands where -o says, and never over the drawing."""
    document = stand.new()
    sheet(document).add_line((0, 0), (10, 10))
    path = stand.save(document)
    copy = shutil.copy(path, stand.path("kept.dxf"))
    result = stand.run("convert", path, "-o", path)
    assert result.returncode == 2, f"exit {result.returncode}"
    assert filecmp.cmp(path, copy, shallow=False), "the drawing is another one"
    os.mkdir(stand.path("deep"))
    stand.run("convert", path, "-o", stand.path("deep/other.pdf"))
    assert os.listdir(stand.path("deep")) == ["other.pdf"], os.listdir(stand.path("deep"))
    assert not os.path.exists(path[:-4] + ".pdf"), "a PDF stands beside the drawing"


def mirrored_paragraph(stand):
    """A paragraph seen from behind, without a direction or an angle, runs to the right and stands on its head."""
    document = stand.new()
    mtext = document.modelspace().add_mtext("HHHH", dxfattribs={"insert": (100, 50), "char_height": 10, "style": "OpenSans",
                                                                "extrusion": (0, 0, -1)})
    assert not mtext.dxf.hasattr("text_direction") and not mtext.dxf.hasattr("rotation")
    for start, end in (((0, 0), (200, 0)), ((200, 0), (200, 100)), ((200, 100), (0, 100)), ((0, 100), (0, 0))):
        document.modelspace().add_line(start, end, dxfattribs={"color": 1})
    pdf = stand.convert(document, "--layouts", "model")
    frame = page_ink.box([point for line in page_ink.segments(page_ink.shapes(pdf), "#ff0000") for point in line[:2]])
    unit = (frame[2] - frame[0]) / 200
    picture = pdf_tools.Picture(pdf)
    ink = picture.ink_box(frame[0] + 2 * unit, frame[1] + 2 * unit, frame[2] - 2 * unit, frame[3] - 2 * unit)
    left, bottom, _, top = ((value - start) / unit for value, start in zip(ink, (frame[0], frame[1]) * 2))
    assert 99 < left < 103 and 49 < bottom < 51 and 59 < top < 61, f"from {left:.1f}, {bottom:.1f} up to {top:.1f}"


ROWS = [mirrored_paragraph, attributes, dimensions, leader_arrow, mtext_codes, mtext_wraps, code_pages, stroke_text, pattern_hatches, images,
        pen_colour, empty_layout, unusable_files, outputs_of_one_name, output_over_input]
