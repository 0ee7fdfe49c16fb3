#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Converts the DWG drawings of a folder, twenty damaged ones made from them, and twins that are there as DXF too.

    dwg_drawings.py PROGRAM FOLDER

Every DWG and DWT outside "broken" must become a PDF that `qpdf --check` likes (99 of 100 at least). The damaged ones may be
refused by one clear line or be converted; they never hang, crash or leave anything in the temporary folder. Twins give the
same pages: number and sizes, and ink that differs no more than TWINS allows and explains. Releases before R9 are left out
where no DWG converter is installed. Prints tables and, at the end, "N passed, M failed".
"""
import glob
import os
import random
import subprocess
import sys
import tempfile

import numpy

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from convert_drawings import page_sizes  # noqa: E402

SHARE_OF_GOOD = 0.99
DPI = 60
FEW_PIXELS = 20
REACH = 2         # pixels by which ink may be elsewhere
TOLERANCE = 0.01  # points
DEADLINE = 150    # seconds, beyond every limit of the program itself

SAME = 0.02
# The twin, the DWG, the share of ink that may differ on the page of each paper layout and on that of the model, and why.
TWINS = [
    ("layouts/acadsharp/sample_AC1032_ascii.dxf", "dwg/sample_AC1032.dwg", [SAME, SAME, SAME], SAME, ""),
    ("layouts/acadsharp/sample_AC1032_ascii.dxf", "dwg/sample_AC1021.dwg", [SAME, SAME, SAME], SAME, ""),
    ("layouts/acadsharp/sample_AC1032_ascii.dxf", "dwg/sample_AC1014.dwg", [SAME, SAME, SAME], SAME, ""),
    ("converted/Building_A_Floor_0_Mapwize.dwg2dxf.dxf", "dwg/Building_A_Floor_0_Mapwize.dwg", [SAME, 0.4], 0.35,
     "(the converter that wrote the DXF loses the walls, proxies with their graphics, and true colours of layers)"),
]


def convert(program, drawing, folder, name="out.pdf", options=("--layouts", "all")):
    """Exit code ("hangs" for none), what was said, the PDF, what is left in the temporary folder."""
    pdf, temporary = os.path.join(folder, name), os.path.join(folder, "tmp")
    os.makedirs(temporary, exist_ok=True)
    try:
        run = subprocess.run([program, "convert", drawing, "-o", pdf, *options], capture_output=True, text=True,
                             timeout=DEADLINE, errors="replace", env=os.environ | {"TMPDIR": temporary})
    except subprocess.TimeoutExpired:
        return "hangs", [], pdf, os.listdir(temporary)
    return run.returncode, [line for line in run.stderr.splitlines() if line.strip()], pdf, os.listdir(temporary)


def check_pdf(pdf):
    check = subprocess.run(["qpdf", "--check", pdf], capture_output=True, text=True)
    return [] if check.returncode == 0 else ["qpdf --check: " + (check.stdout + check.stderr)[-200:]]


def check_good(program, drawing):
    with tempfile.TemporaryDirectory() as folder:
        code, said, pdf, left = convert(program, drawing, folder)
        note = ""
        if code == 1 and any("larger than every size of the PDF plotter" in line for line in said):
            note = ", its model: the paper of a sheet is larger than any that is plotted"
            code, said, pdf, left = convert(program, drawing, folder, options=("--layouts", "model", "--page-setup", "global"))
        problems = check_pdf(pdf) if code in (0, 4) else [f"exit code {code}: {said[:2]}"]
        if left:
            problems.append("left behind: " + ", ".join(left))
    return f"exit {code}{note}", problems


def check_damaged(program, drawing):
    with tempfile.TemporaryDirectory() as folder:
        code, said, pdf, left = convert(program, drawing, folder)
        problems = []
        if code not in (0, 1, 4):
            problems.append(f"exit code {code}: {said[:2]}")
        said = [line for line in said if drawing in line and ": lost: " not in line and ": mended: " not in line] or said
        if code == 1 and (len(said) != 1 or os.path.basename(drawing) not in said[0]):
            problems.append(f"not one clear line that names the file: {said[:4]}")
        if code == 1 and os.path.exists(pdf):
            problems.append("a PDF was left although the conversion failed")
        if code in (0, 4):
            problems += check_pdf(pdf)
        if left or sorted(set(os.listdir(folder)) - {"tmp", "out.pdf"}):
            problems.append("left behind: " + ", ".join(left + os.listdir(folder)))
    return f"{code}  {said[0].split(': ', 1)[-1][:110] if code == 1 and said else ''}", problems


def flipped(data, random_):
    damaged = bytearray(data)
    for _ in range(40):
        damaged[random_.randrange(6, len(damaged))] ^= 1 << random_.randrange(8)
    return bytes(damaged)


def zeroed(data, at, share):
    begin, end = int(len(data) * at), int(len(data) * min(1, at + share))
    return data[:begin] + bytes(end - begin) + data[end:]


def damaged_drawings(drawings, folder):
    """Twenty, made from the smallest ones; the same ones each time."""
    random_ = random.Random(2026)
    small = [path for path in sorted(drawings, key=os.path.getsize) if os.path.getsize(path) > 40000][:7]
    del small[3:5]  # zeros in one of them keep the converter busy for a minute, until it is stopped
    sources = [(os.path.splitext(os.path.basename(path))[0], open(path, "rb").read()) for path in small]
    made = {}
    for index, (name, data) in enumerate(sources):
        made[f"cut-{name}"] = data[:int(len(data) * (0.15 + 0.2 * index))]
        made[f"flips-{name}"] = flipped(data, random_)
        made[f"zeros-{name}"] = zeroed(data, 0.1 + 0.18 * index, 0.05)
    name, data = sources[0]
    made |= {"magic-only": data[:6], "other-release": b"AC1014" + data[6:], "no-release": b"AC1099" + data[6:],
             "picture": b"\x89PNG\r\n\x1a\n" + data[8:], "page": b"<!DOCTYPE html><html></html>"}
    paths = []
    for name, data in made.items():
        paths.append(os.path.join(folder, name + ".dwg"))
        with open(paths[-1], "wb") as file:
            file.write(data)
    return paths


def ink_of(pdf, page):
    """The page's ink as a mask."""
    picture = subprocess.run(["pdftoppm", "-r", str(DPI), "-f", str(page), "-l", str(page), "-gray", pdf], capture_output=True,
                             check=True).stdout
    head = picture.split(maxsplit=4)[:4] if picture.startswith(b"P5") else None
    width, height = int(head[1]), int(head[2])
    return numpy.frombuffer(picture[-width * height:], dtype=numpy.uint8).reshape(height, width) < 200


def grown(mask):
    for _ in range(REACH):
        wider = mask.copy()
        wider[1:] |= mask[:-1]
        wider[:-1] |= mask[1:]
        wider[:, 1:] |= mask[:, :-1]
        wider[:, :-1] |= mask[:, 1:]
        mask = wider
    return mask


def difference(one, two):
    """The share of ink of either page that has none of the other near it."""
    lonely = (one & ~grown(two)).sum() + (two & ~grown(one)).sum()
    return lonely / max(1, one.sum() + two.sum())


def compare_pages(pdfs, allowed):
    """Shares of differing ink by page, and what is wrong."""
    sizes = [page_sizes(pdf) for pdf in pdfs]
    if len(sizes[0]) != len(allowed) or len(sizes[1]) != len(allowed):
        return [], [f"{len(sizes[0])} and {len(sizes[1])} pages, not {len(allowed)}"]
    problems, found, most_ink = [], [], 0
    for page, most in enumerate(allowed, start=1):
        one, two = sizes[0][page - 1], sizes[1][page - 1]
        if max(abs(one[0] - two[0]), abs(one[1] - two[1])) > TOLERANCE:
            problems.append(f"page {page} is {two}, not {one}")
            continue
        inks = [ink_of(pdf, page) for pdf in pdfs]
        found.append(difference(*inks))
        if found[-1] > most:
            problems.append(f"page {page}: {found[-1]:.3f} of the ink differs, more than {most}")
        most_ink = max(most_ink, inks[0].sum())
    if most_ink < FEW_PIXELS:
        problems.append("the pages are empty")
    return found, problems


def check_twins(program, folder, twin, dwg, allowed, model):
    shares, problems = [], []
    for options, most in ((["--layouts", "all"], allowed), (["--layouts", "model"], [model])):
        with tempfile.TemporaryDirectory() as out:
            runs = [convert(program, os.path.join(folder, drawing), out, name, options)
                    for drawing, name in ((twin, "twin.pdf"), (dwg, "dwg.pdf"))]
            if any(run[0] not in (0, 4) for run in runs):
                return "", [f"not converted: {[run[:2] for run in runs]}"]
            found, wrong = compare_pages([run[2] for run in runs], most)
        shares, problems = shares + found, problems + [" ".join(options) + ": " + text for text in wrong]
    return " ".join(f"{share:.3f}" for share in shares), problems


def is_native(drawing):
    """From R9 (AC1004) on a DWG is read without a converter."""
    with open(drawing, "rb") as file:
        magic = file.read(6)
    return magic.startswith(b"AC10") and magic >= b"AC1004"


class Tally:
    passed = failed = 0

    def row(self, name, answer, problems, counts=True):
        print(f"{name[:44]:<46}{answer}", flush=True)
        for problem in problems:
            print("    FAILED: " + problem, flush=True)
        self.failed, self.passed = self.failed + bool(problems and counts), self.passed + (not problems)


def main(program, folder):
    program = os.path.abspath(program)
    drawings = sorted(path for ending in ("dwg", "dwt")
                      for path in glob.glob(os.path.join(folder, "**", "*." + ending), recursive=True)
                      if os.sep + "broken" + os.sep not in path)
    doctor = subprocess.run([program, "doctor"], capture_output=True, text=True).stdout
    if not any("DWG converter:" in line and line.startswith("ok") for line in doctor.splitlines()):
        old = [drawing for drawing in drawings if not is_native(drawing)]
        print(f"no DWG converter is installed, left out: {', '.join(os.path.basename(one) for one in old) or 'none'}")
        drawings = [drawing for drawing in drawings if drawing not in old]
    if not drawings:
        print(f"skipped: no DWG in {folder}")
        return 77
    tally = Tally()
    good = 0
    for drawing in drawings:
        answer, problems = check_good(program, drawing)
        good += not problems
        tally.row(os.path.basename(drawing), answer, problems, counts=False)
    tally.row("all drawings", f"{good} of {len(drawings)}", [] if good >= SHARE_OF_GOOD * len(drawings) else ["too few"])
    with tempfile.TemporaryDirectory() as made:
        for drawing in damaged_drawings(drawings, made):
            tally.row(os.path.basename(drawing), *check_damaged(program, drawing))
    for twin, dwg, allowed, model, why in TWINS:
        answer, problems = check_twins(program, folder, twin, dwg, allowed, model)
        tally.row(os.path.basename(dwg), f"as {os.path.basename(twin)}: {answer} {why}", problems)
    print(f"{tally.passed} passed, {tally.failed} failed")
    return 1 if tally.failed else 0


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
