#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Converts every DXF drawing of a folder (its "broken" part aside) and checks the PDFs with tools that aren't ours.

    convert_drawings.py PROGRAM FOLDER [PATTERN]

Each drawing is converted with `--layouts all` and with `--layouts model`: one page for each paper layout (or one), each page
the size of the matched medium within 0.01 pt, `qpdf --check` without a word of complaint, and the report's entity counts
summing up to those read. The matched medium is worked out by another reader (ezdxf) where that can open the drawing; else
the page must be one of the table's. Prints a table and, at the end, "N passed, M failed".
"""
import glob
import json
import os
import re
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import media  # noqa: E402

POINTS = 72 / 25.4
TOLERANCE = 0.01  # points
GLOBAL_SHEET = (11 * media.INCH, 8.5 * media.INCH)


def page_sizes(pdf):
    plain = subprocess.run(["qpdf", "--qdf", "--object-streams=disable", pdf, "-"], capture_output=True, check=True)
    boxes = re.findall(rb"/MediaBox \[\s*([-0-9.]+)\s+([-0-9.]+)\s+([-0-9.]+)\s+([-0-9.]+)\s*\]", plain.stdout)
    return [(float(box[2]) - float(box[0]), float(box[3]) - float(box[1])) for box in boxes]


def expected_sheets(drawing, layouts):
    """Sizes in millimetres in page order, None where only the table is sure; or None when the reader can't open it."""
    sheets = media.sheets_of(drawing)
    if sheets is None:
        return None
    model, paper = sheets
    if layouts == "model":
        return [GLOBAL_SHEET if model.display or min(model.paper) <= 0 else model.size]
    return [sheet.size for sheet in paper]


def check_pages(pdf, expected, wanted, problems):
    sizes = page_sizes(pdf)
    if len(sizes) != wanted:
        problems.append(f"{len(sizes)} page(s) for {wanted} layout(s)")
        return len(sizes)
    for number, (width, height) in enumerate(sizes, start=1):
        size = expected[number - 1] if expected else None
        if size and max(abs(width - size[0] * POINTS), abs(height - size[1] * POINTS)) > TOLERANCE:
            problems.append(f"page {number} is {width} x {height} pt, not {size[0] * POINTS:.3f} x {size[1] * POINTS:.3f}")
        elif not media.in_table(width / POINTS, height / POINTS, TOLERANCE / POINTS):
            problems.append(f"page {number} is {width} x {height} pt, no size of the table")
    return len(sizes)


def check_counts(entities, problems):
    parts = ["drawn", "hidden", "offPage", "notReached", "notDrawn"]
    if sum(entities[part] for part in parts) != entities["read"]:
        problems.append(f"the entity counts don't sum up: {entities}")


def convert(program, drawing, layouts, folder):
    """One row of the table and what is wrong with it."""
    pdf = os.path.join(folder, "out.pdf")
    begin = time.monotonic()
    run = subprocess.run([program, "convert", drawing, "-o", pdf, "--layouts", layouts, "--report", "json"],
                         capture_output=True, text=True, timeout=600)
    seconds = time.monotonic() - begin
    problems = []
    pages, entities = 0, {}
    if run.returncode not in (0, 4):
        problems.append(f"exit code {run.returncode}: {run.stderr.strip() or run.stdout.strip()}"[:300])
    else:
        entities = json.loads(run.stdout)["drawings"][0]["entities"]
        wanted = 1 if layouts == "model" else media.paper_layouts(drawing)
        pages = check_pages(pdf, expected_sheets(drawing, layouts), wanted, problems)
        check = subprocess.run(["qpdf", "--check", pdf], capture_output=True, text=True)
        if check.returncode != 0 or "WARNING" in check.stdout + check.stderr:
            problems.append("qpdf --check: " + (check.stdout + check.stderr).strip()[-200:])
        check_counts(entities, problems)
    if os.path.exists(pdf):
        os.remove(pdf)
    left = os.listdir(folder)
    if left:
        problems.append("left behind: " + ", ".join(left))
    return pages, entities, seconds, problems


def row(drawing, layouts, pages, entities, seconds):
    skipped = ", ".join(f"{kind} {count}" for kind, count in sorted(entities.get("notDrawnByKind", {}).items()))
    numbers = [entities.get(part, 0) for part in ("read", "drawn", "hidden", "offPage", "notReached", "notDrawn")]
    return f"{os.path.basename(drawing)[:44]:<45}{layouts:<6}{pages:>5}" + "".join(f"{n:>8}" for n in numbers) + \
        f"{seconds:>8.2f}  {skipped}"


def main(program, folder, pattern="*"):
    drawings = [path for path in sorted(glob.glob(os.path.join(folder, "**", pattern + ".dxf"), recursive=True))
                if os.sep + "broken" + os.sep not in path]
    if not drawings:
        print(f"no drawings in {folder}: skipped")
        return 77
    print(f"{'drawing':<45}{'':<6}{'pages':>5}{'read':>8}{'drawn':>8}{'hidden':>8}{'off':>8}{'unseen':>8}{'skipped':>8}"
          f"{'seconds':>8}  skipped by kind")
    failed = passed = 0
    for drawing in drawings:
        for layouts in ("all", "model"):
            with tempfile.TemporaryDirectory() as out:
                pages, entities, seconds, problems = convert(os.path.abspath(program), drawing, layouts, out)
            print(row(drawing, layouts, pages, entities, seconds), flush=True)
            for problem in problems:
                print("    FAILED: " + problem, flush=True)
            failed, passed = failed + bool(problems), passed + (not problems)
    print(f"{passed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:4]))
