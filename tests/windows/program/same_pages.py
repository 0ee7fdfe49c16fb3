#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Converts the same drawings by the program of this machine and by that of Windows, with the same fonts, and compares
the PDFs: pages, fonts, marks and properties, byte for byte.

    same_pages.py LINUX-PROGRAM WINDOWS-PROGRAM FOLDER DRAWINGS...

DRAWINGS are files, or folders that are looked through; one that isn't there is passed over. FOLDER gets a Wine prefix.
"""
import argparse
import concurrent.futures
import os
import re
import shutil
import subprocess
import sys
import tempfile

from programs import linux_program, windows_program

ENDINGS = (".dxf", ".dwg")
# Neither program finds the interpreter here; each says how it is installed on its system.
REMEDIES = {"linux": "sudo apt-get install ghostscript",
            "windows": "run Ghostscript's own installer; it is found by the registry or on PATH"}


def drawings_in(places):
    for place in places:
        if os.path.isfile(place):
            yield place
        for folder, folders, names in os.walk(place):
            folders.sort()
            yield from (os.path.join(folder, name) for name in sorted(names) if name.lower().endswith(ENDINGS))


def unpacked(pdf):
    """The file's objects, uncompressed and renumbered in the order in which they are reached."""
    run = subprocess.run(["qpdf", "--qdf", "--object-streams=disable", "--no-original-object-ids", "--warning-exit-0",
                          pdf, "-"], capture_output=True)
    if run.returncode != 0:
        raise SystemExit(f"{pdf}: qpdf: {run.stderr.decode(errors='replace')}")
    return re.sub(rb"/ID \[.*?\]", b"", run.stdout)


def first_difference(one, other):
    """The line before the first one that differs, and both of that."""
    lines, others = one.split(b"\n"), other.split(b"\n")
    for number, (line, counterpart) in enumerate(zip(lines, others)):
        if line != counterpart:
            return f"line {number + 1}: {line[:160]!r} against {counterpart[:160]!r}"
    return f"{len(lines)} lines against {len(others)}"


class Comparison:
    def __init__(self, linux, windows, folder):
        self.programs = {"linux": linux, "windows": windows}
        self.folder = folder

    def convert(self, which, number, drawing):
        pdf = os.path.join(self.folder, which, f"{number}.pdf")
        run = self.programs[which].run("convert", os.path.abspath(drawing), "-o", pdf, "--jobs", "1",
                                       "--log-dir", os.path.join(self.folder, which, "log", str(number)))
        return run.returncode, pdf, run.stderr.replace("Z:/", "/").replace(REMEDIES[which], "REMEDY")

    def compare(self, number, drawing):
        """What differs; empty when nothing does."""
        code, pdf, told = self.convert("linux", number, drawing)
        other_code, other_pdf, other_told = self.convert("windows", number, drawing)
        if code != other_code:
            return f"exit code {code} against {other_code}: {told.strip()!r} against {other_told.strip()!r}"
        if os.path.exists(pdf) != os.path.exists(other_pdf):
            return "only one of the programs made a PDF"
        if os.path.exists(pdf):
            one, other = unpacked(pdf), unpacked(other_pdf)
            os.remove(pdf)
            os.remove(other_pdf)
            if one != other:
                return first_difference(one, other)
        return "" if told == other_told else f"told {told!r} against {other_told!r}"


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("linux")
    parser.add_argument("windows")
    parser.add_argument("folder")
    parser.add_argument("drawings", nargs="+")
    arguments = parser.parse_args()
    drawings = list(drawings_in(arguments.drawings))
    scratch = tempfile.mkdtemp()
    try:
        comparison = Comparison(linux_program(arguments.linux, scratch),
                                windows_program(arguments.windows, arguments.folder), scratch)
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            findings = list(pool.map(comparison.compare, range(len(drawings)), drawings))
    finally:
        shutil.rmtree(scratch)
    different = [(drawing, finding) for drawing, finding in zip(drawings, findings) if finding]
    for drawing, finding in different:
        print(f"{drawing}: {finding}")
    print(f"{len(drawings)} drawings, {len(different)} different")
    return 1 if different or not drawings else 0


if __name__ == "__main__":
    sys.exit(main())
