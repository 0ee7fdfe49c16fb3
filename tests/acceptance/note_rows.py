# SPDX-License-Identifier: GPL-3.0-or-later
"""Faults of plotting programs on dimensions, attributes, texts and fonts that few drawings hold: each row draws and looks."""
import ole_object
import pdf_tools
from content_rows import expect_texts, texts
from plot_rows import POINTS, sheet


def moved_dimension(stand):
    """A copied dimension shows its block where the copy stands."""
    document = stand.new()
    layout = sheet(document)
    dimension = layout.add_linear_dim(base=(100, 130), p1=(100, 100), p2=(250, 100),
                                      override={"dimtxt": 5, "dimdec": 0, "dimlfac": 1})
    dimension.render()
    dimension.dimension.dxf.insert = (40, 60)
    word, = [word for word in pdf_tools.words(stand.convert(document, "--layout", "Sheet")) if word.text == "150"]
    middle = ((word.left + word.right) / 2 / POINTS, word.bottom / POINTS)
    assert abs(middle[0] - 215) < 2 and abs(middle[1] - 190) < 4, f"its text stands at {middle}"


def loose_definition(stand):
    """An attribute definition that no block holds shows its tag, not its value."""
    document = stand.new()
    sheet(document).add_attdef("ROOM_NO", (50, 50), text="PRESET", dxfattribs={"height": 5})
    expect_texts(stand.convert(document, "--layout", "Sheet"), ["ROOM_NO"], ["PRESET"])


def hatch_round_text(stand):
    """The box of a text stays free of its hatch, wherever it lies."""
    document = stand.new()
    hatch = sheet(document).add_hatch(color=7, dxfattribs={"hatch_style": 2})
    hatch.paths.add_polyline_path([(50, 50), (150, 50), (150, 150), (50, 150)], is_closed=True)
    for left in (80, 140):  # the second one reaches over the edge
        box = [(left, 80), (left + 30, 80), (left + 30, 100), (left, 100)]
        hatch.paths.add_polyline_path(box, is_closed=True, flags=8)
    picture = pdf_tools.Picture(stand.convert(document, "--layout", "Sheet"), dpi=72)

    def ink(left, bottom, right, top):
        return next(picture.dark_in(*(part * POINTS for part in (left, bottom, right, top))), None)
    assert ink(55, 55, 75, 145), "no hatch"
    for left, right in ((82, 108), (142, 168)):
        assert not ink(left, 82, right, 98), f"ink in the box from {left} to {right}"


def unknown_release(stand):
    """A file of a release that nobody knows has its UTF-8 read as such."""
    document = stand.new("R2010")
    text = "Gr\u00f6\u00dfe \u041f\u043b\u0430\u043d"
    sheet(document).add_text(text, dxfattribs={"insert": (50, 50), "height": 8, "style": "OpenSans"})
    path = stand.save(document)
    with open(path, encoding="utf-8") as file:
        lines = file.read().replace("AC1024", "AC1099")
    with open(path, "w", encoding="utf-8") as file:
        file.write(lines)
    expect_texts(stand.convert_file(path, "--layout", "Sheet"), [text], ["\u00c3", "?"])


def report_names(stand):
    """The report names styles as the drawing does, in every code page."""
    for page, encoding, name in (("ANSI_1251", "cp1251", "\u0421\u0442\u0435\u043d\u044b"), ("ANSI_932", "cp932", "\u56f3\u9762")):
        document = stand.new("R2000")
        document.header["$DWGCODEPAGE"] = page
        document.encoding = encoding
        document.styles.add(name, font="nosuch.ttf")
        sheet(document).add_text("A", dxfattribs={"insert": (50, 50), "height": 8, "style": name})
        result = stand.run("convert", stand.save(document), "-o", stand.path("out.pdf"), "--layout", "Sheet")
        assert f"(style {name})" in result.stderr, result.stderr


def missing_characters(stand):
    """Characters that no font has are told once a block and counted; --strict doesn't let them pass."""
    document = stand.new("R2010")
    layout = sheet(document)
    for y in (50, 80):
        text = layout.add_text("A\U000f0000\U000f0001", dxfattribs={"insert": (50, y), "height": 8, "style": "OpenSans"})
        text.dxf.layer = "0"
    path = stand.save(document)
    for options, code in (([], 0), (["--strict"], 1)):
        result = stand.run("convert", path, "-o", stand.path("out.pdf"), "--layout", "Sheet", *options)
        assert result.returncode == code, f"exit {result.returncode} with {options}"
        line = "note: no font has these characters, drawn as boxes: Private Use Area (4 times)"
        assert result.stderr.count(line) == 1, result.stderr


def hanging_indent(stand):
    """The indent of a paragraph's later lines is a tab stop; indents are drawing units, with "x" text heights."""
    document = stand.new()
    layout = sheet(document)
    for y, text, wanted in ((250, r"\pi-20,l20,t90;1.^Ifirst", 20), (200, r"\pxi-3,l3;2.^Isecond", 15), (150, r"\pi31.5;third", 31.5)):
        layout.add_mtext(text, {"insert": (50, y), "char_height": 5, "width": 300, "style": "OpenSans"})
        last = text[-5:].split("I")[-1]
        words = pdf_tools.words(stand.convert(document, "--layout", "Sheet"))
        at, = [word.left / POINTS - 50 for word in words if word.text.endswith(last)]
        assert abs(at - wanted) < 0.6, f"{last} stands at {at:.2f}, not {wanted}"


def right_to_left(stand):
    """Hebrew and Arabic stand from right to left beside numbers and Latin, and are found as they were written."""
    document = stand.new("R2010")
    layout = sheet(document)
    tag = "\u05d3\u05dc\u05ea"
    hebrew, arabic = "\u05d7\u05d3\u05e8 12 \u05d0\u05d1", "\u0645\u0631\u062d\u0628\u0627 34"
    layout.add_text(hebrew, dxfattribs={"insert": (50, 250), "height": 8, "style": "OpenSans"})
    layout.add_mtext(arabic, {"insert": (50, 200), "char_height": 8, "style": "OpenSans"})
    layout.add_attdef(tag, (50, 150), dxfattribs={"height": 8, "style": "OpenSans"})
    pdf = stand.convert(document, "--layout", "Sheet")
    found = texts(pdf).translate({code: None for code in (0x200e, 0x200f, 0x202a, 0x202b, 0x202c)})
    for text in (hebrew, arabic, tag):
        assert text in found, f"{text!r} is not in {found!r}"
    places = {"".join(sorted(word.text)): word for word in pdf_tools.words(pdf)}  # these words come as they are seen
    for line in (["\u05d0\u05d1", "12", "\u05d7\u05d3\u05e8"], ["34", "\u0645\u0631\u062d\u0628\u0627"]):
        left = [places["".join(sorted(word))].left for word in line]
        assert left == sorted(left), f"{line} begin at {left}"


def column_places(pdf):
    """Where the words of a text begin: left edge and foot, millimetres, rounded."""
    return {word.text: (round(word.left / POINTS), round(word.bottom / POINTS)) for word in pdf_tools.words(pdf)}


def text_columns(stand):
    """The columns of a text: static and by hand, in the embedded object, in extended data, and as texts of their own."""
    words = ["one", "two", "three", "four"]
    expected = {"one": (50, 195), "two": (50, 187), "three": (110, 195), "four": (110, 187)}
    look = {"insert": (50, 200), "char_height": 5, "style": "OpenSans"}
    data = [(1000, "ACAD_MTEXT_COLUMN_INFO_BEGIN"), (1070, 75), (1070, 2), (1070, 79), (1070, 0), (1070, 76), (1070, 2), (1070, 78),
            (1070, 0), (1070, 48), (1040, 50.0), (1070, 49), (1040, 10.0), (1070, 50), (1070, 2), (1040, 16.0), (1040, 0.0),
            (1000, "ACAD_MTEXT_COLUMN_INFO_END")]

    def one_text(layout):
        layout.add_mtext("\\P".join(words), {**look, "width": 110}).set_xdata("ACAD", data)

    def static(layout):
        layout.add_mtext_static_columns(["\\P".join(words[:2]), "\\P".join(words[2:])], width=50, gutter_width=10, height=16,
                                        dxfattribs=look)

    def by_hand(layout):
        layout.add_mtext_dynamic_manual_height_columns("\\P".join(words), width=50, gutter_width=10, heights=[16, 0], dxfattribs=look)
    for name, version, draw in (("extended data", "R2010", one_text), ("embedded, by hand", "R2018", by_hand),
                                ("embedded, static", "R2018", static), ("texts of their own", "R2010", static)):
        document = stand.new(version)
        draw(sheet(document))
        found = column_places(stand.convert(document, "--layout", "Sheet"))
        assert set(found) == set(words), f"{name}: {found}"
        far = {word: found[word] for word in words if max(abs(a - b) for a, b in zip(found[word], expected[word])) > 2}
        assert not far, f"{name}: {far}"


def dimension_units(stand):
    """A dimension without a picture shows its length in a second unit, its tolerance or its limits."""
    for change, expected in (({"dimalt": 1, "dimaltf": 0.04, "dimaltd": 2}, ["150.0", "[6.00]"]),
                             ({"dimtol": 1, "dimtp": 0.5, "dimtm": 0.5, "dimtdec": 1}, ["150.0\u00b10.5"]),
                             ({"dimlim": 1, "dimtp": 0.5, "dimtm": 0.2}, ["150.5", "149.8"]),
                             ({"dimtol": 1, "dimtp": 0.5, "dimtm": 0.2, "dimtdec": 1, "dimtfac": 0.6}, ["150.0", "+0.5", "-0.2"])):
        document = stand.new()
        look = {"dimtxt": 5, "dimdec": 1, "dimlfac": 1, "dimpost": "<>", "dimrnd": 0, "dimzin": 0, "dimtad": 1, "dimtxsty": "OpenSans"}
        dimension = sheet(document).add_linear_dim(base=(100, 130), p1=(100, 100), p2=(250, 100), override={**look, **change})
        dimension.commit()
        words = pdf_tools.words(stand.convert(document, "--layout", "Sheet"))
        assert sorted(word.text for word in words) == sorted(expected), f"{change}: {[word.text for word in words]}"
        if "dimlim" in change:
            upper, lower = sorted(words, key=lambda word: -word.bottom)
            assert upper.text == "150.5" and lower.text == "149.8", "the limits stand the wrong way round"
            assert abs(upper.left - lower.left) < 5 * POINTS, "the limits don't stand above each other"


SCALES = """  0
SCALE
  5
FFE{n}
330
0
100
AcDbScale
 70
0
300
1:{n}
140
1.0
141
{n}.0
290
0
"""
CONTEXT = """  0
ACDB_TEXTOBJECTCONTEXTDATA_CLASS
  5
FFF1
330
0
100
AcDbObjectContextData
 70
4
290
1
100
AcDbAnnotScaleObjectContextData
340
FFE2
 70
0
 50
0.0
 10
20.0
 20
20.0
 11
0.0
 21
0.0
"""


def annotative_drawing(stand, everything):
    """A text for 1:2 alone, seen by viewports of 1:2 and 1:5; the path of the file."""
    document = stand.new()
    layout = sheet(document)
    document.modelspace().add_text("plain", dxfattribs={"insert": (20, 40), "height": 8, "style": "OpenSans"})
    text = document.modelspace().add_text("scaled", dxfattribs={"insert": (20, 20), "height": 8, "style": "OpenSans"})
    manager = text.new_extension_dict().dictionary.add_new_dict("AcDbContextDataManager")
    manager.add_new_dict("ACDB_ANNOTATIONSCALES")["*A1"] = "FFF1"
    for left, scale in ((60, "FFE2"), (160, "FFE5")):
        viewport = layout.add_viewport(center=(left, 150), size=(90, 60), view_center_point=(50, 30), view_height=100)
        record = viewport.new_extension_dict().dictionary.add_xrecord("ASDK_XREC_ANNOTATION_SCALE_INFO")
        record.reset([(90, 1), (340, scale)])
    if everything is not None:
        variables = document.rootdict.get_required_dict("AcDbVariableDictionary")
        variables.set_or_add_dict_var("ANNOALLVISIBLE", everything)
    path = stand.save(document)
    with open(path, encoding="utf-8") as file:
        head, objects = file.read().split("OBJECTS\n", 1)
    added = "".join(SCALES.format(n=n) for n in (2, 5)) + CONTEXT
    with open(path, "w", encoding="utf-8") as file:
        file.write(head + "OBJECTS\n" + objects.replace("  0\nENDSEC\n", added + "  0\nENDSEC\n", 1))
    return path


def annotative_texts(stand):
    """An annotative text shows in viewports of its scales alone, and that is told, unless the drawing shows all."""
    told = "note: an annotative object left out of a viewport whose scale it doesn't have"
    for everything, count, tells in ((None, 1, True), ("0", 1, False), ("1", 2, False)):
        path = annotative_drawing(stand, everything)
        result = stand.run("convert", path, "-o", stand.path("out.pdf"), "--layout", "Sheet")
        assert result.returncode == 0 and (told in result.stderr) == tells, result.stderr
        words = pdf_tools.words(stand.path("out.pdf"))
        found = {name: sorted(round(word.left / POINTS) for word in words if word.text == name) for name in ("plain", "scaled")}
        assert len(found["plain"]) == 2 and len(found["scaled"]) == count, f"{everything}: {found}"
        assert found["scaled"][0] < 110, f"{everything}: it stands in the wrong viewport: {found}"


def ole_objects(stand):
    """An object of another program shows the picture that it holds in its frame, else the frame, which is told."""
    arial = b"Arial".ljust(32, b"\0")
    picture = ole_object.metafile(
        200, 100, ole_object.record(0x2FC, 0, more=bytes(6)), ole_object.record(0x12D, 0),
        ole_object.record(0x41B, 90, 90, 10, 10), ole_object.record(0x2FB, -20, 0, 0, 0, 400, 0, 0, 0, 0, more=arial),
        ole_object.record(0x12D, 1), ole_object.record(0x12E, 24), ole_object.record(0x521, 6, more=b"Budget" + b"\x32\0\x64\0"))
    for held, code in ((picture, 0), (b"", 1)):
        document = stand.new()
        sheet(document)
        document.layouts.set_active_layout("Sheet")
        path = stand.save(document)
        with open(path, encoding="utf-8") as file:
            head, entities = file.read().split("ENTITIES\n", 1)
        with open(path, "w", encoding="utf-8") as file:
            file.write(head + "ENTITIES\n" + ole_object.ole_frame(100, 100, 300, 200, held) + entities)
        result = stand.run("convert", path, "-o", stand.path("out.pdf"), "--layout", "Sheet", "--strict")
        assert result.returncode == code, f"exit {result.returncode}: {result.stderr}"
        told = "note: an object of another program without a picture that can be read drawn as its frame"
        assert (told in result.stderr) == (not held) and ("1 OLE2FRAME" in result.stderr) == (not held), result.stderr
        image = pdf_tools.Picture(stand.path("out.pdf"), dpi=72)
        inside = [next(image.dark_in(*(part * POINTS for part in box)), None) for box in ((120, 120, 180, 180), (98, 140, 102, 160))]
        assert [bool(ink) for ink in inside] == ([True, False] if held else [False, True]), f"ink: {inside}"
        words = [(word.text, round(word.left / POINTS)) for word in pdf_tools.words(stand.path("out.pdf"))]
        assert words == ([("Budget", 200)] if held else []), words


ROWS = [moved_dimension, loose_definition, hatch_round_text, unknown_release, report_names, missing_characters,
        hanging_indent, right_to_left, text_columns, dimension_units,
        annotative_texts, ole_objects]
