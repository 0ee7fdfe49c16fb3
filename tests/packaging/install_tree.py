#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Installs the built tree by its components below a folder of its own and runs the program from there.

    install_tree.py BUILD SAMPLES

Rows: where each component's files go; no path of the source tree in the program; the manual pages read without a warning; the
completions of each shell that is here offer commands, options, choices and the layouts of the drawing on the line. Ends with
"N passed, M failed".
"""
import glob
import json
import os
import shutil
import subprocess
import sys
import tempfile

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
COMPONENTS = {
    "program": ["bin/sheetmaker"],
    "windows-program": ["libexec/sheetmaker-pdf/sheetmaker-windows"],
    "share": ["share/sheetmaker-pdf/Drivers/ps8.hdi", "share/sheetmaker-pdf/fonts.map", "share/sheetmaker-pdf/report.schema.json",
              "share/sheetmaker-pdf/Settings/Graphics [600 dpi].joboptions", "share/sheetmaker-pdf/help/index.html"],
    "desktop": ["share/applications/sheetmaker-pdf.desktop", "share/icons/hicolor/scalable/apps/sheetmaker-pdf.svg",
                "share/mime/packages/sheetmaker-pdf.xml", "share/metainfo/org.sheetmaker_pdf.SheetmakerPdf.metainfo.xml"],
    "docs": ["share/doc/sheetmaker-pdf/README.md", "share/doc/sheetmaker-pdf/CHANGELOG.md",
             "share/doc/sheetmaker-pdf/examples/slurm/convert-list.sbatch"],
    "man": ["share/man/man1/sheetmaker.1", "share/man/man1/sheetmaker-convert.1", "share/man/man5/sheetmaker-report.5"],
    "completions": ["share/bash-completion/completions/sheetmaker", "share/zsh/site-functions/_sheetmaker",
                    "share/fish/vendor_completions.d/sheetmaker.fish"],
}
# What is typed, and what of that must be offered.
OFFERED = [
    (["sheetmaker", "conv"], ["convert"]),
    (["sheetmaker", "convert", "--lay"], ["--layout", "--layouts"]),
    (["sheetmaker", "convert", "--layouts", "a"], ["active", "all", "auto"]),
    (["sheetmaker", "convert", "house.dxf", "--layout", "M"], ["Model"]),
    (["sheetmaker", "convert", "ho"], ["house.dxf"]),
    (["sheetmaker", "get", "PaperW"], ["PaperWidth"]),
    (["sheetmaker", "help", "conv"], ["convert"]),
    (["sheetmaker", "help", "PaperW"], ["PaperWidth"]),
    (["sheetmaker", "report", "m"], ["merge"]),
    (["sheetmaker", "report", "merge", "ho"], ["house.dxf"]),
]
BASH = """source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _sheetmaker 2>/dev/null; printf '%s\\n' "${COMPREPLY[@]}" """


class Tree:
    def __init__(self, build, folder):
        self.build, self.folder, self.prefix = build, folder, os.path.join(folder, "usr")
        self.passed = self.failed = 0
        self.environment = {"PATH": f"{self.prefix}/bin:/usr/bin:/bin", "HOME": folder, "LANG": "C.UTF-8"}

    def check(self, name, got, wanted):
        good = got == wanted
        print(f"{'ok' if good else 'FAILED':<8}{name}" + ("" if good else f"\n    got    {got!r}\n    wanted {wanted!r}"))
        self.passed, self.failed = self.passed + good, self.failed + (not good)

    def run(self, *words):
        return subprocess.run(words, env=self.environment, cwd=self.folder, capture_output=True, text=True, timeout=120)

    def install(self):
        for component, files in COMPONENTS.items():
            subprocess.run(["cmake", "--install", self.build, "--prefix", self.prefix, "--component", component, "--strip"],
                           check=True, capture_output=True)
            self.check("component " + component, [name for name in files if not os.path.exists(os.path.join(self.prefix, name))], [])

    def program(self, samples):
        with open(os.path.join(self.prefix, "bin", "sheetmaker"), "rb") as file:
            self.check("no path of the source tree", ROOT.encode() in file.read(), False)
        shutil.copy(os.path.join(samples, "house.dxf"), self.folder)
        run = self.run("sheetmaker", "convert", "house.dxf")
        self.check("it converts", (run.returncode, run.stdout), (0, f"house.dxf -> {self.folder}/house.pdf, 3 pages\n"))
        entry = os.path.join(self.prefix, "share", "applications", "sheetmaker-pdf.desktop")
        with open(entry, encoding="utf-8") as file:
            starts = [line.split("=")[1].split()[0] for line in file if line.startswith("Exec=")]
        self.check("the desktop starts it", starts, ["sheetmaker", "sheetmaker"])
        metainfo, = glob.glob(os.path.join(self.prefix, "share", "metainfo", "*.xml"))
        if shutil.which("appstreamcli"):
            self.check("the metainfo is valid", self.run("appstreamcli", "validate", "--no-net", metainfo).returncode, 0)

    def pages(self):
        for page in sorted(glob.glob(os.path.join(self.prefix, "share", "man", "man*", "*"))):
            run = self.run("groff", "-man", "-Tutf8", "-wall", "-z", page)
            self.check("manual page " + os.path.basename(page), (run.returncode, run.stderr), (0, ""))

    def completions(self):
        scripts = {name: os.path.join(self.prefix, COMPONENTS["completions"][i]) for i, name in enumerate(("bash", "zsh", "fish"))}
        self.run("bash", "-c", BASH, "bash", scripts["bash"], "sheetmaker", "convert", "$(touch run)x.dxf", "--layout", "M")
        self.check("bash runs nothing that stands on the line", os.path.exists(os.path.join(self.folder, "run")), False)
        for typed, wanted in OFFERED:
            offered = self.run("bash", "-c", BASH, "bash", scripts["bash"], *typed).stdout.split("\n")
            self.check("bash: " + " ".join(typed[1:]), [name for name in wanted if name not in offered], [])
        if shutil.which("zsh"):
            self.check("zsh reads it", self.run("zsh", "-n", scripts["zsh"]).stderr, "")
        if shutil.which("fish"):
            for typed, wanted in OFFERED:
                line = " ".join(typed)
                run = self.run("fish", "--no-config", "-c", f"source '{scripts['fish']}'; complete -C '{line}'")
                offered = [row.split("\t")[0] for row in run.stdout.split("\n")]
                self.check("fish: " + " ".join(typed[1:]), [name for name in wanted if name not in offered], [])

    def report(self):
        run = self.run("sheetmaker", "convert", "house.dxf", "--report", "json")
        try:
            import jsonschema
        except ImportError:
            return self.check("jsonschema is installed", False, True)
        with open(os.path.join(self.prefix, "share", "sheetmaker-pdf", "report.schema.json"), encoding="utf-8") as file:
            schema = json.load(file)
        errors = [error.message for error in jsonschema.Draft202012Validator(schema).iter_errors(json.loads(run.stdout))]
        self.check("the report is as its schema says", errors, [])


def main(build, samples):
    with tempfile.TemporaryDirectory() as folder:
        tree = Tree(build, folder)
        tree.install()
        tree.program(samples)
        tree.pages()
        tree.completions()
        tree.report()
    print(f"{tree.passed} passed, {tree.failed} failed")
    return 1 if tree.failed else 0


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(*map(os.path.abspath, sys.argv[1:])))
