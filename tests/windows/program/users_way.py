#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The way of a user who has nothing but the installer: installs, finds the Start menu, converts a DWG with many sheets,
confirms the settings dialog with a stamp's place picked in the drawing, upgrades, and removes it all but their own.

    users_way.py RUN-WINE FOLDER SETUP DRIVER SAMPLES [DRAWINGS]

FOLDER gets a Wine prefix of its own. The drawing is a DWG of DRAWINGS; without them what asks for it is left out.
"""
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
from convert_by_script import Desk  # noqa: E402

SHEETS = "dynblock_r2018.dwg"  # 14 of them
CONVERTED = (0, 4)             # 4: fonts, underlays or objects of other programs that aren't there
PICKED = ("400", "300")        # pixels of the drawing's view
STAMP_PAGE = ("101", "2")      # the dialog's tabs, the page "Text Stamp"
CLOSE = "8"
LINKS = ["Global Page Setup.lnk", "Sheetmaker PDF Command Prompt.lnk", "Sheetmaker PDF Help.lnk", "Sheetmaker PDF.lnk"]
MISSING = "sheetmaker settings: C:\\Jobs\\missing.dxf: there is no such file; check the name"
SHIPPED, OTHER = "Graphics [600 dpi].joboptions", "Print [1200 dpi].joboptions"


class Way(Desk):
    def __init__(self, run_wine, folder, setup, driver):
        super().__init__(run_wine, folder)
        self.setup, self.driver = setup, driver

    def at(self, *parts):
        return os.path.join(self.drive, *parts)

    def program(self, *words):
        return self.run("C:\\SM\\sheetmaker.exe", *words, LC_ALL="C.UTF-8")

    def install(self, what):
        self.check(what, self.run(self.setup, "/S", "/CurrentUser", "/D=C:\\SM"), (0, ""))

    def menu(self):
        found = [os.path.join(root, name) for root, _, names in os.walk(self.at("users")) for name in names
                 if name.endswith(".lnk") and os.path.basename(root) == "Sheetmaker PDF"]
        return sorted(map(os.path.basename, found))

    def pdf(self, name, path, pages):
        checked = subprocess.run(["qpdf", "--check", path], capture_output=True, text=True, check=False)
        self.check(name + ": qpdf --check", (checked.returncode, checked.stderr), (0, ""))
        info = subprocess.run(["pdfinfo", path], capture_output=True, text=True, check=False).stdout
        self.check(name + ": pages", re.findall(r"^Pages: +(\d+)$", info, re.M), [str(pages)])

    def dwg(self, drawing):
        """As many pages as the drawing has sheets."""
        shutil.copy(drawing, self.at("Jobs", "sheets.dwg"))
        code, told = self.program("layouts", "C:\\Jobs\\sheets.dwg", "--json")
        layouts = json.loads(told[told.index("["):] if told.startswith("[") else told)
        layouts = layouts if isinstance(layouts, list) else layouts["layouts"]
        sheets = [one["name"] for one in layouts if one["name"] != "Model"]
        self.check("a DWG with many sheets", (code, len(sheets)), (0, 14))
        code, told = self.program("convert", "C:\\Jobs\\sheets.dwg", "--layouts", "all")
        self.check("its conversion", (code in CONVERTED, f"C:/Jobs/sheets.pdf, {len(sheets)} pages" in told), (True, True))
        self.pdf("its PDF", self.at("Jobs", "sheets.pdf"), len(sheets))

    def dialog(self, samples):
        """A stamp's place is picked in the drawing, and "Create PDF" pressed; the window at the end is closed."""
        shutil.copy(os.path.join(samples, "house.dxf"), self.at("Jobs", "house.dxf"))
        self.check("no question for a name", self.program("set", "PromptForFileName", "0")[0], 0)
        self.check("no viewer", self.program("set", "OpenInViewer", "0")[0], 0)
        self.check("a stamp", self.program("stamp", "C:\\Jobs\\house.dxf", "--text", "1", "--at", "5,5", "--layout",
                                           "A-101 Ground Floor")[0], 0)
        before = self.program("stamp", "C:\\Jobs\\house.dxf", "list")
        shown = subprocess.Popen([*self.runner, "C:\\SM\\sheetmaker-windows.exe", "settings", "C:\\Jobs\\house.dxf",
                                  "--layout", "A-101 Ground Floor"],
                                 stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        title = "Tarnwick Sheetmaker PDF"
        played = self.run(self.driver, "window", title, "page", *STAMP_PAGE, "press", "Get Point >", "pick", *PICKED,
                          "window", title, "press", "Create PDF", "answer", "Create PDF", CLOSE)
        self.check("the dialog's user", played, (0, ""))
        try:
            self.check("the dialog's end", shown.wait(60), 0)
        except subprocess.TimeoutExpired:
            shown.kill()
            self.check("the dialog's end", "it is up still", 0)
        self.pdf("the dialog's PDF", self.at("Jobs", "house.pdf"), 1)
        self.check("the stamp before", before[1].endswith("at 5,5, on A-101 Ground Floor"), True)
        after = self.program("stamp", "C:\\Jobs\\house.dxf", "list")[1]
        place = re.search(r"at (-?[\d.]+),(-?[\d.]+), on A-101 Ground Floor$", after)
        self.check("the stamp has gone to its place on the sheet",
                   place is not None and all(20 < float(number) < 400 for number in place.groups()), True)

    def missing(self):
        """A drawing that isn't there is told in a box, unless the error stream goes where it is read."""
        words = [*self.runner, "C:\\SM\\sheetmaker-windows.exe", "settings", "C:\\Jobs\\missing.dxf"]
        for name, stream in (("a file", tempfile.TemporaryFile()), ("a pipe", subprocess.PIPE)):
            try:
                run = subprocess.run(words, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=stream, timeout=60,
                                     check=False)
                code = run.returncode
                if run.stderr is None:
                    stream.seek(0)
                told = (run.stderr or stream.read()).decode().strip()
            except subprocess.TimeoutExpired:
                code, told = "a box waits", ""
            self.check("a missing drawing, errors into " + name, (code, told), (1, MISSING))
        shown = subprocess.Popen(words, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        played = self.run(self.driver, "window", "Tarnwick Sheetmaker PDF", "press", "OK")
        self.check("a missing drawing, errors nowhere: the box's user", played, (0, ""))
        try:
            self.check("a missing drawing: the end", shown.wait(60), 1)
        except subprocess.TimeoutExpired:
            shown.kill()
            self.check("a missing drawing: the end", "it is up still", 1)

    def upgrade(self):
        settings = self.at("SM", "Settings")
        for name, text in ((SHIPPED, "changed"), ("Own.joboptions", "own")):
            with open(os.path.join(settings, name), "w", encoding="ascii") as file:
                file.write(text)
        os.remove(os.path.join(settings, OTHER))
        self.install("upgrade")
        texts = {}
        for name in (SHIPPED, "Own.joboptions"):
            with open(os.path.join(settings, name), encoding="ascii") as file:
                texts[name] = file.read()
        self.check("what the user changed and made", texts, {SHIPPED: "changed", "Own.joboptions": "own"})
        self.check("what was lacking", os.path.exists(os.path.join(settings, OTHER)), True)
        self.check("the program goes on", self.program("--version")[0], 0)

    def uninstall(self):
        self.check("uninstaller", self.run("C:\\SM\\Uninstall.exe", "/S", "_?=C:\\SM")[0], 0)
        left = sorted(os.path.relpath(os.path.join(root, name), self.at("SM")) for root, _, names in
                      os.walk(self.at("SM")) for name in names)
        self.check("what is left", left, sorted(["Settings/" + SHIPPED, "Settings/Own.joboptions", "Uninstall.exe"]))
        self.check("the Start menu", self.menu(), [])
        self.check("the drawings", os.path.exists(self.at("Jobs", "house.pdf")), True)


def main(run_wine, folder, setup, driver, samples, drawings=""):
    way = Way(run_wine, folder, setup, driver)
    way.end()
    way.run("cmd", "/c", "exit")
    os.makedirs(way.at("Jobs"))
    way.install("silent install")
    way.check("the Start menu", way.menu(), LINKS)
    drawing = os.path.join(drawings, "dwg", SHEETS)
    if drawings and os.path.exists(drawing):
        way.dwg(drawing)
    way.dialog(samples)
    way.missing()
    way.upgrade()
    way.uninstall()
    way.end()
    print(f"{way.failures} failed")
    return 1 if way.failures else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
