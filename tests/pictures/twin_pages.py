#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Lays the pages of drawings side by side that a CAD program saved as DWG and as DXF: the same but for rows with a reason.

    twin_pages.py PROGRAM FOLDER [PATTERN]

Every DWG of FOLDER whose DXF lies beside it (the same name, or with "_ascii" behind it) is converted in both forms with
`--layouts all` and with `--layouts model`. Compared are the exit codes, the number of pages, and all objects of the PDF as
qpdf writes them uncompressed, line by line; coordinates may differ by one step of the pages' grid. What else may differ is
in DIFFERENT: how many lines at most, and why. A difference without a reason fails, and so does a reason that nothing needs any
more. Prints a line for each difference and, at the end, "N the same, M different for a reason, K different".
"""
import concurrent.futures
import difflib
import glob
import os
import re
import subprocess
import sys
import tempfile

DIGITS = "a DXF has 16 digits: a dot of a dense hatch and the widths of two ticks are rounded to the other side"
SHORT = "the last piece of a curve, 0.1 point long, bends otherwise by 0.06 point: all fields that were read agree to 1e-9"
OLD_COLORS = "an R2000 DWG holds the nearest index of a multileader's true colour; also: " + DIGITS
OLD_PROXIES = "an R14 DXF has newer objects as proxies and no page setups, a DWG has all of them"
SCREEN = "nothing but endless lines: the page is what the screen showed, which is that of the moment of saving"
ANY = 1_000_000
# (DWG's file name, layouts) -> lines that may differ, and why.
DIFFERENT = {
    ("sample_AC1015.dwg", "model"): (10, OLD_COLORS),
    ("sample_AC1018.dwg", "model"): (4, DIGITS),
    ("sample_AC1021.dwg", "model"): (4, DIGITS),
    ("sample_AC1024.dwg", "model"): (4, DIGITS),
    ("sample_AC1027.dwg", "model"): (4, DIGITS),
    ("sample_AC1032.dwg", "model"): (4, DIGITS),
    ("example_2000.dwg", "model"): (4, SHORT),
    ("example_2004.dwg", "model"): (4, SHORT),
    ("example_2007.dwg", "model"): (4, SHORT),
    ("example_2010.dwg", "model"): (4, SHORT),
    ("example_2013.dwg", "model"): (4, SHORT),
    ("example_2018.dwg", "model"): (4, SHORT),
    ("2007_ConstructionLine.dwg", "model"): (6, SCREEN),
    ("2007_RAY.dwg", "model"): (6, SCREEN),
    ("example_r14.dwg", "all"): (ANY, OLD_PROXIES),
    ("example_r14.dwg", "model"): (ANY, OLD_PROXIES),
    ("r14_Leader.dwg", "all"): (ANY, OLD_PROXIES),
    ("r14_Leader.dwg", "model"): (ANY, OLD_PROXIES),
}
WHOLE = re.compile(rb"-?\d+")
# What names the file or the moment, and sizes of streams.
VOLATILE = re.compile(rb"/Title|<dc:title>|/(CreationDate|ModDate|Producer)|<(xmp:\w+Date|pdf:Producer)>|^\d+$")


def twin_of(dwg):
    plain, ascii_form = dwg[:-4] + ".dxf", dwg[:-4] + "_ascii.dxf"
    return plain if os.path.exists(plain) else ascii_form if os.path.exists(ascii_form) else None


def objects_of(pdf):
    """The document's objects, uncompressed."""
    run = subprocess.run(["qpdf", "--qdf", "--object-streams=disable", "--no-original-object-ids", pdf, "-"],
                         capture_output=True)
    if run.returncode not in (0, 3):
        return None
    objects = re.findall(rb"\n\d+ 0 obj\n(.*?)\nendobj", run.stdout, re.S)
    return [part for part in objects if not VOLATILE.search(part)]


def convert(program, drawing, layouts):
    """Exit code and objects; None for no PDF."""
    with tempfile.TemporaryDirectory() as folder:
        pdf = os.path.join(folder, "page.pdf")
        environment = {**os.environ, "XDG_CONFIG_HOME": folder, "XDG_STATE_HOME": folder, "TZ": "UTC"}
        run = subprocess.run([program, "convert", drawing, "-o", pdf, "--layouts", layouts], capture_output=True,
                             env=environment)
        return run.returncode, objects_of(pdf) if os.path.exists(pdf) else None


def is_near(one, other):
    """The same line but for coordinates, which are whole numbers, that fell to the next place of the grid."""
    a, b = one.split(), other.split()
    return len(a) == len(b) and all(
        x == y or (WHOLE.fullmatch(x) and WHOLE.fullmatch(y) and abs(int(x) - int(y)) <= 1) for x, y in zip(a, b))


def count_different(one, other):
    """How many lines of two objects have no partner, and the first such place."""
    a, b = one.split(b"\n"), other.split(b"\n")
    count, first = 0, None
    for tag, i, j, k, l in difflib.SequenceMatcher(None, a, b, autojunk=False).get_opcodes():
        if tag == "equal" or (j - i == l - k and all(map(is_near, a[i:j], b[k:l]))):
            continue
        count += max(j - i, l - k)
        first = first or f"{a[i:j][:2]} / {b[k:l][:2]}"
    return count, first


def difference(program, dwg, layouts):
    """Lines that differ, and what differs in words; 0 and None when nothing does."""
    code, objects = convert(program, dwg, layouts)
    other_code, others = convert(program, twin_of(dwg), layouts)
    if code != other_code:
        return ANY, f"exit code {code} from the DWG, {other_code} from the DXF"
    if objects is None or others is None:
        return ANY, "no PDF, or none that qpdf reads"
    if len(objects) != len(others):
        return ANY, f"{len(objects)} objects from the DWG, {len(others)} from the DXF"
    count, first = 0, None
    for one, other in zip(objects, others):
        if one != other:
            lines, place = count_different(one, other)
            count, first = count + lines, first or place
    return count, f"{count} lines differ, at first {first}" if count else None


def main():
    program, folder = sys.argv[1:3]
    pattern = sys.argv[3] if len(sys.argv) > 3 else "*"
    drawings = sorted(path for path in glob.glob(os.path.join(folder, "**", pattern + ".dwg"), recursive=True)
                      if twin_of(path))
    rows = [(drawing, layouts) for drawing in drawings for layouts in ("all", "model")]
    same = explained = unexplained = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for (dwg, layouts), (count, found) in zip(rows, pool.map(lambda row: difference(program, *row), rows)):
            most, why = DIFFERENT.get((os.path.basename(dwg), layouts), (0, None))
            name = f"{os.path.basename(dwg)} ({layouts})"
            if found is None and why is None:
                same += 1
            elif found is not None and count <= most:
                explained += 1
                print(f"{name}: {found}: {why}")
            else:
                unexplained += 1
                print(f"{name}: {found or 'the same, though a difference was expected: ' + why}")
    print(f"{same} the same, {explained} different for a reason, {unexplained} different")
    if not rows:
        print("no twins there: skipped")
        return 77
    return 1 if unexplained else 0


if __name__ == "__main__":
    sys.exit(main())
