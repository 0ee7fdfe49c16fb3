#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Lays the pages of two builds side by side: equal byte for byte once uncompressed, but for the rows with a reason.

    same_pages.py BEFORE AFTER FOLDER [PATTERN]

BEFORE and AFTER are two builds of the program. Every DXF drawing of FOLDER ("broken" aside) is converted by both with
`--layouts all` and with `--layouts model`; compared are the exit codes, the number of pages, and each page's box, content
and resources as qpdf writes them uncompressed. What may differ is in DIFFERENT, with the reason. A page that differs
without a reason fails, and so does a reason that nothing needs any more. Prints a line for each difference and, at the
end, "N the same, M different for a reason, K different".
"""
import concurrent.futures
import glob
import os
import re
import subprocess
import sys
import tempfile

# (drawing's file name, layouts) -> why its pages are no longer those of before.
DIFFERENT = {}
# What names the file or the moment, not what is on the page.
VOLATILE = re.compile(rb"/(ID \[.*?\]|(CreationDate|ModDate|Producer) \(.*?\))|"
                      rb"<(xmp:\w+Date|pdf:Producer|xmpMM:\w+)>[^<]*</", re.S)
OFFSETS = re.compile(rb"\nxref\n.*?\ntrailer", re.S)


def pages_of(pdf):
    """The document uncompressed, in parts that can be compared: one an object, what changes with the moment left out."""
    run = subprocess.run(["qpdf", "--qdf", "--object-streams=disable", pdf, "-"], capture_output=True)
    if run.returncode not in (0, 3):
        return None
    text = OFFSETS.sub(b"\ntrailer", VOLATILE.sub(b"", run.stdout))
    return re.split(rb"\nendobj\n", text)


def convert(program, drawing, layouts, folder):
    pdf = os.path.join(folder, "page.pdf")
    environment = {**os.environ, "XDG_CONFIG_HOME": folder, "XDG_STATE_HOME": folder, "TZ": "UTC"}
    run = subprocess.run([program, "convert", drawing, "-o", pdf, "--layouts", layouts], capture_output=True,
                         env=environment)
    return run.returncode, pages_of(pdf) if os.path.exists(pdf) else None


def difference(before, after, drawing, layouts):
    """What differs in words, or None."""
    with tempfile.TemporaryDirectory() as one, tempfile.TemporaryDirectory() as two:
        code, pages = convert(before, drawing, layouts, one)
        other_code, other_pages = convert(after, drawing, layouts, two)
    if code != other_code:
        return f"exit code {code} became {other_code}"
    if (pages is None) != (other_pages is None):
        return "a PDF on one side alone"
    if pages is None or pages == other_pages:
        return None
    if len(pages) != len(other_pages):
        return f"{len(pages)} objects became {len(other_pages)}"
    changed = [number for number, (a, b) in enumerate(zip(pages, other_pages), start=1) if a != b]
    return f"{len(changed)} of {len(pages)} objects differ, the first is {changed[0]}"


def main():
    before, after, folder = sys.argv[1:4]
    pattern = sys.argv[4] if len(sys.argv) > 4 else "*"
    drawings = sorted(path for path in glob.glob(os.path.join(folder, "**", pattern + ".dxf"), recursive=True)
                      if os.sep + "broken" + os.sep not in path)
    rows = [(drawing, layouts) for drawing in drawings for layouts in ("all", "model")]
    same = explained = unexplained = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = pool.map(lambda row: difference(before, after, *row), rows)
        for (drawing, layouts), found in zip(rows, results):
            reason = DIFFERENT.get((os.path.basename(drawing), layouts))
            if found is None and reason is None:
                same += 1
            elif found is not None and reason is not None:
                explained += 1
                print(f"{drawing} ({layouts}): {found}: {reason}")
            else:
                unexplained += 1
                print(f"{drawing} ({layouts}): {found or 'the same, though a difference was expected: ' + reason}")
    print(f"{same} the same, {explained} different for a reason, {unexplained} different")
    return 1 if unexplained or not rows else 0


if __name__ == "__main__":
    sys.exit(main())
