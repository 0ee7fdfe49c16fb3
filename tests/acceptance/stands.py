# SPDX-License-Identifier: GPL-3.0-or-later
"""Private places for rows that run the program, and their count."""
import os
import shutil
import subprocess
import tempfile

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
SAMPLE = os.path.join(ROOT, "samples", "house.dxf")
SCHEMA = os.path.join(ROOT, "share", "sheetmaker-pdf", "report.schema.json")


class Stand:
    def __init__(self, program, folder):
        self.program, self.folder, self.problems = program, folder, []
        self.environment = {"PATH": "/usr/bin:/bin", "LANG": "C.UTF-8"}
        if not os.path.exists(os.path.join(os.path.dirname(program), "..", "share", "sheetmaker-pdf")):  # it isn't installed
            self.environment["SHEETMAKER_PDF_SHARE"] = os.path.join(ROOT, "share", "sheetmaker-pdf")
        for variable, part in (("HOME", "home"), ("TMPDIR", "tmp"), ("XDG_CONFIG_HOME", "config"), ("XDG_STATE_HOME", "state")):
            self.environment[variable] = os.path.join(folder, part)
            os.mkdir(self.environment[variable])
        self.work = os.path.join(folder, "desk")
        os.mkdir(self.work)

    def path(self, name):
        return os.path.join(self.work, name)

    def drawings(self, *names):
        for name in names:
            os.makedirs(os.path.dirname(self.path(name)), exist_ok=True)
            shutil.copy(SAMPLE, self.path(name))

    def write(self, name, text):
        with open(self.path(name), "w", encoding="utf-8") as file:
            file.write(text)

    def run(self, *words, stdin=None, stdout=subprocess.PIPE, text=True):
        return subprocess.run([self.program, *words], cwd=self.work, env=self.environment, input=stdin, stdout=stdout,
                              stderr=subprocess.PIPE, text=text, timeout=120)

    def same(self, got, wanted, what=""):
        if got != wanted:
            self.problems.append(f"{what}: {got!r} instead of {wanted!r}")

    def said(self, run):
        """Lines on the error stream, what is said of fonts aside."""
        return [line for line in run.stderr.splitlines() if ": fonts: " not in line]

    def pages(self, name):
        return subprocess.run(["qpdf", "--show-npages", self.path(name)], capture_output=True, text=True).stdout.strip()

    def files(self, folder="."):
        return sorted(os.listdir(self.path(folder)))


def main(program, rows, drawings=()):
    passed = failed = 0
    for row in rows:
        with tempfile.TemporaryDirectory() as folder:
            stand = Stand(program, folder)
            stand.drawings(*drawings)
            row(stand)
        print(f"{'FAILED' if stand.problems else 'ok':<8}{row.__name__.replace('_', ' ')}")
        for problem in stand.problems:
            print("    " + problem)
        failed, passed = failed + bool(stand.problems), passed + (not stand.problems)
    print(f"{passed} passed, {failed} failed")
    return 1 if failed else 0
