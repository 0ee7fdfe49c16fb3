"""Faults of plotting programs on what part of a drawing is plotted and where: each row draws and looks at the pages."""
import json

import page_ink
from plot_rows import POINTS, sheet, viewport


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


ROWS = [viewports_without_ids]
