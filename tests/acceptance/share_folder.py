#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Copies the program out of its tree and checks that everything it does takes the same share folder.

    share_folder.py PROGRAM

`doctor` says which share folder is in force; a conversion must draw with the font that this folder's fonts.map names. Rows:
a share folder beside the copy or none, and the variable that overrules it set or not. Ends with "N passed, M failed".
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile

ROOT = os.path.abspath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))
SHARE = os.path.join(ROOT, "share", "sheetmaker-pdf")
# What stands for the drawing's font: by the list that is shipped, and by those that the rows make of it.
FONTS = {"beside": "DejaVuSansMono", "told": "DejaVuSerif"}
DRAWING = "\n".join("""0 SECTION 2 HEADER 9 $ACADVER 1 AC1015 0 ENDSEC 0 SECTION 2 TABLES 0 TABLE 2 STYLE 70 1 0 STYLE 2 ODD 70 0
40 0 41 1 50 0 71 0 42 2.5 3 arialn.ttf 4  0 ENDTAB 0 ENDSEC 0 SECTION 2 ENTITIES 0 TEXT 8 0 10 0 20 0 40 5 1 Text 7 ODD 0
ENDSEC 0 EOF""".replace("4  0", "4 - 0").split()).replace("\n-\n", "\n\n") + "\n"

NOT_FOUND = "not found"
REFUSED = ("exit code 3: sheetmaker convert: the install's share folder can't be found; "
           "\"sheetmaker doctor\" says more")
# Name, whether a share folder lies beside the copy, whether the variable names another; which folder is in force.
ROWS = [
    ("beside the copy", True, False, "beside"),
    ("beside the copy, and another told", True, True, "told"),
    ("nowhere near", False, False, None),
    ("nowhere near, and one told", False, True, "told"),
]


def make_share(folder, font):
    """The shipped data with a font list that lets no other font stand for the drawing's."""
    shutil.copytree(SHARE, folder)
    path = os.path.join(folder, "fonts.map")
    with open(path, encoding="utf-8") as file:
        shipped = file.read()
    with open(path, "w", encoding="utf-8") as file:
        file.write(re.sub(r"^file arialn\.ttf .*$", f"file arialn.ttf {font}.ttf", shipped, flags=re.M))


class Copy:
    """The program in a folder of its own, with places of its own."""

    def __init__(self, program, folder, beside, told):
        self.folder = folder
        os.makedirs(os.path.join(folder, "usr", "bin"))
        self.program = shutil.copy(program, os.path.join(folder, "usr", "bin"))
        self.environment = {"PATH": "/usr/bin:/bin", "LANG": "C.UTF-8"}
        for variable, part in (("HOME", "home"), ("TMPDIR", "tmp"), ("XDG_CONFIG_HOME", "config"), ("XDG_STATE_HOME", "state")):
            self.environment[variable] = os.path.join(folder, part)
            os.mkdir(self.environment[variable])
        self.folders = {"beside": os.path.join(folder, "usr", "share", "sheetmaker-pdf"), "told": os.path.join(folder, "told")}
        if beside:
            make_share(self.folders["beside"], FONTS["beside"])
        if told:
            make_share(self.folders["told"], FONTS["told"])
            self.environment["SHEETMAKER_PDF_SHARE"] = self.folders["told"]
        self.drawing = os.path.join(folder, "plan.dxf")
        with open(self.drawing, "w", encoding="utf-8") as file:
            file.write(DRAWING)

    def run(self, *words):
        return subprocess.run([self.program, *words], env=self.environment, capture_output=True, text=True, timeout=120)

    def named_folder(self):
        return re.search(r"^(?:ok|MISSING) +share folder: (.*)$", self.run("doctor").stdout, re.M).group(1)

    def told_font(self):
        """The line that says what stands for the drawing's font."""
        run = self.run("convert", self.drawing, "-o", os.path.join(self.folder, "plan.pdf"))
        found = re.search(r"arialn\.ttf.*", run.stderr)
        return found.group(0) if found and run.returncode == 0 else f"exit code {run.returncode}: {run.stderr.strip()}"


def main(program):
    passed = failed = 0
    for name, beside, told, in_force in ROWS:
        with tempfile.TemporaryDirectory() as folder:
            copy = Copy(program, folder, beside, told)
            named, line = copy.named_folder(), copy.told_font()
            problems = []
            expected = copy.folders.get(in_force, NOT_FOUND)
            if named != expected:
                problems.append(f"doctor names {named} instead of {expected}")
            if not line.startswith(f"arialn.ttf drawn with {FONTS[in_force]} " if in_force else REFUSED):
                problems.append("it is drawn with another font than that folder's list says, or not refused")
        print(f"{name:<36}{line}")
        for problem in problems:
            print("    FAILED: " + problem)
        failed, passed = failed + bool(problems), passed + (not problems)
    print(f"{passed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(main(os.path.abspath(sys.argv[1])))
