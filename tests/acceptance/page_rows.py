"""Faults of plotting programs on what part of a drawing is plotted and where: each row draws and looks at the pages."""
import json

import page_ink
from plot_rows import A3, POINTS, expect, length, sheet, viewport


def report_of(stand, path, *options, code=0):
    """What the program tells of one converted file: its PDF and its JSON report."""
    pdf = path[:-4] + ".pdf"
    result = stand.run("convert", path, "-o", pdf, "--report", "json", *options)
    assert result.returncode == code, f"exit {result.returncode}: {result.stderr.strip()}"
    return pdf, json.loads(result.stdout)[0]


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


ROWS = [viewports_without_ids, missing_view, model_windows]
