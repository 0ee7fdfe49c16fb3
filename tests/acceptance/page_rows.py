# SPDX-License-Identifier: GPL-3.0-or-later
"""Faults of plotting programs on what part of a drawing is plotted and where: each row draws and looks at the pages."""
import json
import math
import subprocess

import media
import page_ink
import pdf_tools
from plot_rows import A3, POINTS, expect, length, sheet, viewport


def report_of(stand, path, *options, code=0):
    """What the program tells of one converted file: its PDF and its JSON report."""
    pdf = path[:-4] + ".pdf"
    result = stand.run("convert", path, "-o", pdf, "--report", "json", *options)
    assert result.returncode == code, f"exit {result.returncode}: {result.stderr.strip()}"
    return pdf, json.loads(result.stdout)["drawings"][0]


def expect_remark(stand, path, words, *options, code=0):
    """A remark that holds `words` stands in the JSON report and on the terminal; gives the PDF."""
    pdf, report = report_of(stand, path, *options, code=code)
    assert any(words in remark for remark in report["remarks"]), f"{words!r} is not in {report['remarks']}"
    told = stand.run("convert", path, "-o", pdf, *options).stderr
    assert words in told, f"{words!r} is not on the terminal: {told!r}"
    return pdf


def _change_tags(path, kind, change):
    """Rewrites the file: `change` takes (code, value) of every tag of the entities of one kind, and gives a tag or None."""
    with open(path, encoding="utf-8") as file:
        lines = file.read().split("\n")
    out, inside, changed = [], False, 0
    for code, value in zip(lines[::2], lines[1::2]):
        if code.strip() == "0":
            inside = value == kind
        tag = change(int(code), value) if inside else (code, value)
        changed += tag != (int(code), value) and inside
        out.extend(map(str, tag or ()))
    with open(path, "w", encoding="utf-8") as file:
        file.write("\n".join(out) + "\n")
    return changed


def viewports_without_ids(stand):
    """Viewports whose ids are -1 or missing: the sheet is no view of the model."""
    for instead in ((69, "-1"), None):
        document = stand.new()
        document.modelspace().add_circle((0, 0), 50, dxfattribs={"color": 1})
        layout = sheet(document)
        viewport(layout, (110, 150), (100, 100), (0, 0), 200)
        viewport(layout, (310, 150), (100, 100), (0, 0), 400)
        path = stand.save(document)
        changed = _change_tags(path, "VIEWPORT", lambda code, value: instead if code == 69 else (code, value))
        assert changed >= 3, f"{changed} ids changed"
        found = [shape for shape in page_ink.shapes(stand.convert_file(path, "--layout", "Sheet")) if shape.color == "#ff0000"]
        boxes = [page_ink.box([point for run in shape.paths for point in run]) for shape in found]
        widths = sorted(round((right - left) / POINTS, 1) for left, _, right, _ in boxes)
        assert widths == [25.0, 50.0], f"circles {widths} mm wide with ids {instead}"


def _lines_of(stand, path, words, *options, code=0):
    """The straight pieces on the page of a file whose conversion must tell `words`."""
    return page_ink.segments(page_ink.shapes(expect_remark(stand, path, words, *options, code=code)))


def missing_view(stand):
    """A layout that plots a view without a name shows the one that fits; a page setup that names a missing one fails."""
    document = stand.new()
    layout = sheet(document)
    layout.add_line((20, 20), (60, 20))
    layout.add_line((300, 200), (400, 200))
    view = document.views.new("Left")
    view.dxf.update({"center": (50, 50), "width": 100, "height": 100, "flags": 1, "direction": (0, 0, 1)})
    layout.dxf.plot_type, layout.dxf.plot_view_name = 3, ""
    path = stand.save(document)
    found = _lines_of(stand, path, 'names no view to plot; its view "Left" is plotted', "--layout", "Sheet")
    assert len(found) == 1 and abs(length(found[0]) - 40 * POINTS) < 0.1, f"lines {found}"
    layout.dxf.plot_view_name = "Attic"
    view.dxf.width = 5000
    found = _lines_of(stand, stand.save(document), "which is not in the drawing; its extents are plotted", "--layout", "Sheet")
    assert len(found) == 2, f"{len(found)} lines"
    for name, value in (("PlotType", "3"), ("ViewToPlot", "Attic")):
        assert stand.run("set", name, value).returncode == 0
    result = stand.run("convert", path, "--layout", "Sheet", "--page-setup", "global")
    assert result.returncode == 1 and "its view to plot is missing" in result.stderr, result.stderr


def model_windows(stand):
    """A plot window of the model in world coordinates, and one that is relative to the view's target."""
    for window, words in (((995, 995, 1025, 1025), None), ((-5, -5, 25, 25), "taken relative to the view's target")):
        document = stand.new()
        document.modelspace().add_line((1000, 1000), (1020, 1010))
        document.viewports.get("*Active")[0].dxf.target = (1000, 1000, 0)
        model = document.layouts.get("Model")
        model.dxf.update({"plot_type": 4, "paper_width": A3[0], "paper_height": A3[1], "plot_paper_units": 1,
                          "standard_scale_type": 16, "plot_layout_flags": 688 | 16, "left_margin": 0, "bottom_margin": 0,
                          "right_margin": 0, "top_margin": 0, "plot_window_x1": window[0], "plot_window_y1": window[1],
                          "plot_window_x2": window[2], "plot_window_y2": window[3]})
        path = stand.save(document)
        pdf, report = report_of(stand, path, "--layout", "Model")
        assert words is not None or not report["remarks"], report["remarks"]
        if words is not None:
            pdf = expect_remark(stand, path, words, "--layout", "Model")
        ends = [end for line in page_ink.segments(page_ink.shapes(pdf)) for end in line[:2]]
        assert ends, "no line on the page"
        expect("start", min(ends)[0] - 5 * POINTS, 0, 0.2)
        expect("end", max(ends)[0] - 25 * POINTS, 0, 0.2)


def _crossed_sheet(stand, plot_type, scale, at, origin=(0, 0), centred=False, model=False):
    """A frame of 300 x 200 mm on paper and a cross at `at` (drawing units), on A3 with margins, plotted as told."""
    document = stand.new()
    layout = document.layouts.get("Model") if model else sheet(document)
    unit = 1 / scale
    layout.dxf.update({"plot_type": plot_type, "paper_width": A3[0], "paper_height": A3[1], "plot_paper_units": 1,
                       "left_margin": 5, "bottom_margin": 10, "right_margin": 15, "top_margin": 20,
                       "plot_layout_flags": 32 | 128 | (4 if centred else 0), "scale_numerator": scale, "scale_denominator": 1,
                       "plot_origin_x_offset": origin[0], "plot_origin_y_offset": origin[1], "plot_rotation": 0})
    space = document.modelspace() if model else layout
    space.add_lwpolyline([(10 * unit, 10 * unit), (310 * unit, 10 * unit), (310 * unit, 210 * unit),
                          (10 * unit, 210 * unit)], close=True, dxfattribs={"lineweight": 0})
    (x, y), arm = at, 8 * unit
    space.add_line((x - arm, y), (x + arm, y), dxfattribs={"color": 1, "lineweight": 0})
    space.add_line((x, y - arm), (x, y + arm), dxfattribs={"color": 1, "lineweight": 0})
    return stand.save(document), "Model" if model else "Sheet"


def _cross_on(pdf):
    lines = page_ink.segments(page_ink.shapes(pdf), "#ff0000")
    assert len(lines) == 2, f"{len(lines)} lines of the cross"
    left, bottom, right, top = page_ink.box([end for line in lines for end in line[:2]])
    return (left + right) / 2, (bottom + top) / 2


def _expect_marks_at_cross(stand, path, layout, at):
    """A stamp, a field and a link that stand at the drawing's cross are at the cross of the page."""
    x, y = at
    for arguments in (("stamp", path, "--text", "QUOTED", "--at", f"{x},{y}", "--layout", layout),
                      ("sign", path, "add", "Approval", "--rect", f"{x},{y},{x + 20},{y + 10}", "--layout", layout)):
        result = stand.run(*arguments)
        assert result.returncode == 0, result.stderr
    pdf = stand.convert_file(path, "--layout", layout)
    cross = _cross_on(pdf)
    found = pdf_tools.first_character(pdf, "Q")
    field = pdf_tools.Objects(pdf).annotations(1, "/Widget")[0]["/Rect"]
    for what, got in (("stamp", found), ("field", field[:2])):
        assert got and all(abs(a - b) <= 1 for a, b in zip(got, cross)), f"{what} at {got}, the cross at {cross}"


def layout_at_a_scale(stand):
    """Plot type Layout at 1:2 and 2:1 shows the whole sheet, and a stamp stands where it was picked."""
    for scale in (0.5, 2):
        at = 300 / scale, 190 / scale
        path, name = _crossed_sheet(stand, 5, scale, at)
        _expect_marks_at_cross(stand, path, name, at)


def centred_plots(stand):
    """Marks of centred sheets and of a centred model tab stand where they were picked; the stored origin stays."""
    for model, scale in ((False, 1), (False, 0.5), (True, 1), (True, 0.25)):
        at = 100 / scale, 150 / scale
        path, name = _crossed_sheet(stand, 1, scale, at, origin=(3, 4), centred=True, model=model)
        _expect_marks_at_cross(stand, path, name, at)


def link_of_centred_plot(stand):
    """A link of a centred sheet lies round its line."""
    document = stand.new()
    layout = sheet(document)
    layout.dxf.update({"plot_type": 1, "plot_layout_flags": 32 | 128 | 4 | 16})
    line = layout.add_line((20, 20), (120, 60), dxfattribs={"color": 1, "lineweight": 0})
    line.set_hyperlink("https://example.com/line")
    assert stand.run("set", "TransferDrawingHlinks", "1").returncode == 0
    pdf = stand.convert(document, "--layout", "Sheet")
    (start, end, _), = page_ink.segments(page_ink.shapes(pdf), "#ff0000")
    (_, found), = pdf_tools.Objects(pdf).links(1)
    for got, wanted in zip(found, page_ink.box([start, end])):
        expect("side of the link", got, wanted, 1)


def blank_pages(stand):
    """Pages without ink are told, with the reason."""
    document = stand.new()
    sheet(document)
    document.modelspace().add_line((0, 0), (10, 10))
    expect_remark(stand, stand.save(document), 'layout "Sheet" is blank: it holds nothing; the model holds 1 entity',
                  "--layout", "Sheet")
    document = stand.new()
    sheet(document).add_line((1000, 1000), (2000, 1000))
    expect_remark(stand, stand.save(document), 'layout "Sheet" is blank: all that it holds lies outside of the plotted area')
    document = stand.new()
    document.layers.add("OFF").off()
    sheet(document).add_line((10, 10), (20, 20), dxfattribs={"layer": "OFF"})
    expect_remark(stand, stand.save(document), 'layout "Sheet" is blank: nothing that it holds leaves ink')
    document = stand.new()
    sheet(document).add_line((10, 10), (20, 20))
    _, report = report_of(stand, stand.save(document))
    assert not report["remarks"], report["remarks"]


def empty_model_with_marks(stand):
    """An empty model has its paper, a stamp at the sheet's corner, and a PDF that qpdf accepts."""
    path = stand.save(stand.new())
    for at, text in (("10,20", "NEAR"), ("1e15,1e15", "FAR")):
        result = stand.run("stamp", path, "--text", text, "--at", at, "--layout", "Model")
        assert result.returncode == 0, result.stderr
        pdf, report = report_of(stand, path, "--layouts", "model")
        subprocess.run(["qpdf", "--check", pdf], check=True, capture_output=True)
        width, height = page_ink.size_of(pdf)
        assert media.in_table(width / POINTS, height / POINTS, 0.01), f"{width} x {height}"
        near = pdf_tools.first_character(pdf, "N")
        if text == "NEAR":
            assert near and 0 <= near[0] < 800 and 0 <= near[1] < 1500, f"the stamp stands at {near}"
        else:
            assert report["notes"] == ["Page 1: a mark far off the page is left out"], report["notes"]


def line_ends(stand):
    """Ends of lines within 0.005 point of where they must be, at both line qualities."""
    document = stand.new()
    layout = sheet(document)
    wanted = []
    for number in range(60):
        start = 3.017 + 6.1234 * number % 410, 5.0071 + 4.4321 * number % 280
        end = 4.013 + 11.7321 * number % 410, 2.0313 + 17.1379 * number % 280
        layout.add_line(start, end)
        wanted.append(tuple((x * POINTS, y * POINTS) for x, y in (start, end)))
    for quality in ("print", "draft"):
        found = page_ink.segments(page_ink.shapes(stand.convert(document, "--layout", "Sheet", "--line-quality", quality)))
        for line in wanted:
            off = min(max(math.dist(line[0], a), math.dist(line[1], b)) for a, b, _ in found)
            assert off <= 0.005, f"a line's end is {off:.4f} point off ({quality})"


def pens_at_the_edge(stand):
    """Lines at the edges of an extents plot keep their whole pen; what lies beyond a window stays away."""
    document = stand.new()
    layout = sheet(document)
    layout.dxf.update({"plot_type": 1, "plot_layout_flags": 32 | 128 | 16, "standard_scale_type": 0, "left_margin": 20,
                       "bottom_margin": 20, "right_margin": 20, "top_margin": 20})
    layout.add_lwpolyline([(0, 0), (380, 0), (380, 257), (0, 257)], close=True, dxfattribs={"lineweight": 200})
    picture = pdf_tools.Picture(stand.convert(document, "--layout", "Sheet"), dpi=144)
    left, bottom, right, top = (side / POINTS for side in picture.ink_box(0, 0, *(side * POINTS for side in A3)))
    for what, got, wanted in (("left", left, 19), ("bottom", bottom, 19), ("right", right, 401), ("top", top, 278)):
        expect(what + " end of the ink", got, wanted, 0.25)
    layout.dxf.update({"plot_type": 4, "plot_window_x1": 0, "plot_window_y1": 0, "plot_window_x2": 380, "plot_window_y2": 257})
    picture = pdf_tools.Picture(stand.convert(document, "--layout", "Sheet"), dpi=144)
    left, bottom, right, top = (side / POINTS for side in picture.ink_box(0, 0, *(side * POINTS for side in A3)))
    for what, got, wanted in (("left", left, 20), ("bottom", bottom, 20), ("right", right, 400), ("top", top, 277)):
        expect(what + " end of the ink in a window", got, wanted, 0.25)


def paper_by_name(stand):
    """The global page setup's paper set by its name alone comes with its size; a name that no plotter has is refused."""
    result = stand.run("set", "CanonicalMediaName", "ISO_A3_(420.00_x_297.00_MM)")
    assert result.returncode == 0 and "PaperWidth is 420 and PaperHeight 297" in result.stderr, result.stderr
    document = stand.new()
    document.modelspace().add_line((0, 0), (100, 50))
    width, height = page_ink.size_of(stand.convert(document, "--layouts", "model", "--page-setup", "global"))
    expect("width", width, A3[0] * POINTS, 0.01)
    expect("height", height, A3[1] * POINTS, 0.01)
    result = stand.run("set", "CanonicalMediaName", "ISO_A9")
    assert result.returncode == 2 and "takes the name of a paper of the PDF plotter" in result.stderr, result.stderr
    assert stand.run("get", "CanonicalMediaName").stdout == "ISO_A3_(420.00_x_297.00_MM)\n"


def larger_than_every_paper(stand):
    """A sheet of 1600 x 1280 mm, drawn at 1:1, comes whole on the largest paper of like proportion, told as not to scale."""
    for size in ((1600, 1280), (1280, 1600)):
        document = stand.new()
        layout = sheet(document, size=size)
        layout.add_lwpolyline([(10, 10), (size[0] - 10, 10), (size[0] - 10, size[1] - 10), (10, size[1] - 10)], close=True,
                              dxfattribs={"color": 1, "lineweight": 0})
        path = stand.save(document)
        pdf = expect_remark(stand, path, "not to scale")
        width, height = (side / POINTS for side in page_ink.size_of(pdf))
        assert media.in_table(width, height, 0.01) and (width > height) == (size[0] > size[1]), f"{width} x {height} mm"
        left, bottom, right, top = (side / POINTS for side in page_ink.box(
            [end for line in page_ink.segments(page_ink.shapes(pdf), "#ff0000") for end in line[:2]]))
        assert left >= 0 and bottom >= 0 and right <= width and top <= height, "the frame is cut"
        expect("proportion", (right - left) / (top - bottom), (size[0] - 20) / (size[1] - 20), 0.002)
        assert max((right - left) / width, (top - bottom) / height) > 0.9, "the frame doesn't fill the paper"
        report_of(stand, path, "--strict", code=1)


ROWS = [viewports_without_ids, missing_view, model_windows, blank_pages, empty_model_with_marks, layout_at_a_scale,
        centred_plots, link_of_centred_plot, line_ends, pens_at_the_edge,
        paper_by_name, larger_than_every_paper]
