#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Converts damaged and foreign files and checks how the program answers.

    broken_drawings.py PROGRAM [FOLDER]

FOLDER holds drawings that are broken in one way or another; a few more are made here: missing, empty, a folder, cut off,
not a drawing at all. For each the exit code must be 0, 1 or 4; with 1 there must be one clear line that names the file; with
0 and 4 a PDF that `qpdf --check` likes. No signal, no hang, no sanitizer report, nothing left behind. Prints a table and
"N passed, M failed". Give it a program built with the sanitizers.
"""
import glob
import os
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
# The font library keeps its caches to the end of the process.
ENVIRONMENT = os.environ | {"LSAN_OPTIONS": "print_suppressions=0:suppressions=" + os.path.join(HERE, "lsan.supp")}
SAMPLES = os.path.join(HERE, "..", "..", "samples")


def made_files(folder):
    """A handful of files that are no good drawing."""
    with open(os.path.join(SAMPLES, "house.dxf"), "rb") as file:
        house = file.read()
    contents = {"empty.dxf": b"", "cut-header.dxf": house[:300], "cut-tables.dxf": house[:20000],
                "cut-half.dxf": house[:len(house) // 2], "text.dxf": b"Dear sirs,\nplease find enclosed\n" * 50,
                "zeros.dxf": b"\0" * 5000, "picture.dxf": b"\x89PNG\r\n\x1a\n" + bytes(range(256)) * 20,
                "binary-head-only.dxf": b"AutoCAD Binary DXF\r\n\x1a\0", "eof.dxf": b"  0\nEOF\n",
                "nul-in-text.dxf": house.replace(b"Living room", b"Living\0room")}
    for name, content in contents.items():
        with open(os.path.join(folder, name), "wb") as file:
            file.write(content)
    os.mkdir(os.path.join(folder, "folder.dxf"))
    return [os.path.join(folder, name) for name in [*contents, "folder.dxf", "missing.dxf"]]


def problems_of(program, drawing, folder):
    pdf = os.path.join(folder, "out.pdf")
    try:
        run = subprocess.run([program, "convert", drawing, "-o", pdf, "--layouts", "all"], capture_output=True, text=True,
                             timeout=300, errors="replace", env=ENVIRONMENT | {"TMPDIR": folder})
    except subprocess.TimeoutExpired:
        return "-", ["hangs"]
    problems = []
    said = [line for line in run.stderr.splitlines() if line.strip()]
    if run.returncode not in (0, 1, 4):
        problems.append(f"exit code {run.returncode}: {run.stderr[-300:]}")
    if "Sanitizer" in run.stderr or "runtime error:" in run.stderr:
        problems.append("the sanitizer complains: " + run.stderr[:600])
    if run.returncode == 1:
        if len(said) != 1 or os.path.basename(drawing) not in said[0]:
            problems.append(f"not one clear line that names the file: {said[:4]}")
        if os.path.exists(pdf):
            problems.append("a PDF was left although the conversion failed")
    elif run.returncode in (0, 4):
        check = subprocess.run(["qpdf", "--check", pdf], capture_output=True, text=True)
        if check.returncode != 0:
            problems.append("qpdf --check: " + (check.stdout + check.stderr)[-200:])
        os.remove(pdf)
    left = os.listdir(folder)
    if left:
        problems.append("left behind: " + ", ".join(left))
    return f"{run.returncode}  {said[0] if said else ''}", problems


def main(program, folder=None):
    drawings = sorted(glob.glob(os.path.join(folder, "*"))) if folder and os.path.isdir(folder) else []
    passed = failed = 0
    with tempfile.TemporaryDirectory() as made:
        for drawing in drawings + made_files(made):
            with tempfile.TemporaryDirectory() as out:
                answer, problems = problems_of(os.path.abspath(program), drawing, out)
            print(f"{os.path.basename(drawing)[:40]:<42}{answer[:150]}", flush=True)
            for problem in problems:
                print("    FAILED: " + problem, flush=True)
            failed, passed = failed + bool(problems), passed + (not problems)
    print(f"{passed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:3]))
