#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The component as its installer leaves it publishes by itself where the publishing library isn't registered, and asks the
library where it is; the setting PublishWith has its way. The PDF is looked at by tools that aren't ours.

    publishing.py RUN-WINE FOLDER SETUP TEST-HOST SCRIPTS INTERPRETER SAMPLES BITS

FOLDER gets a Wine prefix of its own. The test host's plots are copies of a page that the program of the command line has
plotted, and then of one that is in nobody's dialect, which INTERPRETER stands ready for. Scripts and test host are of BITS
bits; both components are installed, whatever these are.
"""
import os
import re
import shutil
import subprocess
import sys
import threading

from convert_by_script import CALLS, LOG, LOG_LINE, SCENARIO, SCRIPT_REACHED_ITS_END, TITLE, Desk

SETTINGS = "HKCU\\Software\\Tarnwick Software\\Sheetmaker PDF\\AutoCAD"
INTERPRETERS = "HKLM\\Software\\GPL Ghostscript\\10.00.0"
LIBRARY = ("HKCR\\TwSmPubLib.PubDoc", "HKCR\\TwSmPubLib.ConversionLog")
AUTOMATIC, OWN, LIBRARY_ALONE = "0", "1", "2"
FOREIGN = "%!PS-Adobe-3.0\n%%Creator: somebody else's driver\n72 72 moveto 500 500 lineto stroke showpage\n%%EOF\n"
NO_INTERPRETER = ('Ghostscript ("gs") is not installed: PostScript of other programs, and job options that turn colours or '
                  "downsample pictures, need it. Install it: run Ghostscript's own installer; it is found by the registry or "
                  "on PATH")
NO_LIBRARY = "The publishing library TwSmPubLib isn't installed or can't be started (TwSmPubLib.PubDoc: Automation error 0x800401f3)."
BROKEN_LIBRARY = "The publishing library TwSmPubLib isn't installed or can't be started (TwSmPubLib.PubDoc: Call failed.)"
NO_LIBRARY_REMEDY = "The setting PublishWith asks for it: with 0 in place of 2, Sheetmaker PDF publishes by itself."
UP_TO_THE_PLOT = LOG[:LOG.index("TEXT STAMP")]
REFUSED = (UP_TO_THE_PLOT + "  Note: " + NO_INTERPRETER + "\nERROR: FAILED TO ADD PS TO PUB DOC = -7\n"
           "  Reset PrinterConfigPath To: C:\\Host\\Plotters\nERROR: PlotLayoutToPubDoc -12")
OK_BUTTON, MESSAGE_TEXT = "1", "65535"
OURSELVES, LIBRARY_ITSELF = "Sheetmaker PDF itself", "TwSmPubLib"
NOBODY = "nobody, TwSmPubLib is not registered"
COMPONENTS = {"64": "C:\\SM\\TwAcadPdf.dll", "32": "C:\\SM\\TwAcadPdf32.dll"}
COMPONENT_KEY = "HKLM\\Software\\Classes\\CLSID\\{A80EB25C-3937-4062-836A-11C388058516}\\InprocServer32"


class PublishingDesk(Desk):
    def __init__(self, run_wine, folder, drive_forms, bits):
        super().__init__(run_wine, folder)
        self.drive_forms = drive_forms
        self.bits = bits

    @property
    def log_file(self):
        users = os.path.join(self.drive, "users")
        user = next(name for name in sorted(os.listdir(users)) if name != "Public")
        return os.path.join(users, user, "AppData", "Local", "sheetmaker-pdf", "SmPdfAcad.log")

    @property
    def pdf(self):
        return os.path.join(self.drive, "Jobs", "Plan.pdf")

    def choose(self, who):
        ended = self.run("reg", "add", SETTINGS, "/v", "PublishWith", "/t", "REG_SZ", "/d", who, "/f")[0]
        self.check(f"PublishWith {who}: reg", ended, 0)

    def plot(self, page, more=""):
        with open(os.path.join(self.drive, "Host", "scenario.txt"), "w", encoding="ascii") as file:
            file.write(SCENARIO + f"plots {page}\n{more}")

    def forget_library(self):
        for key in LIBRARY:
            self.run("reg", "delete", key, "/f")

    def own_log(self):
        if not os.path.exists(self.log_file):
            return None
        with open(self.log_file, encoding="utf-8") as file:
            first, rest = file.read().split("\n", 1)
        self.check("the log's first line", re.sub(r"\d{4}-\d\d-\d\d \d\d:\d\d:\d\d", "NOW", first), TITLE + " NOW")
        return rest.rstrip("\n")

    def convert_once(self, name, script, box=None):
        """The script's calls of the library. `box` is the text of the one message that is to be confirmed meanwhile."""
        for left in (self.pdf, self.log_file):
            if os.path.exists(left):
                os.remove(left)
        driven = []
        user = threading.Thread(target=lambda: driven.append(self.run(
            self.drive_forms, "window", TITLE, "expect", MESSAGE_TEXT, box, "click", OK_BUTTON)[0]))
        if box:
            user.start()
        result, calls = self.play(script, "SmTestHost.Application")
        if box:
            user.join()
            self.check(name + ": its message", driven, [0])
        self.check(name + ": the script's end", result, (SCRIPT_REACHED_ITS_END, "converted Plan.dwg"))
        return [line for line in calls if line.startswith(("Library.", "Log.", "PubDoc."))]

    def look_at(self, name, text):
        self.check(name + ": a PDF", os.path.exists(self.pdf), True)
        if not os.path.exists(self.pdf):
            return
        checked = subprocess.run(["qpdf", "--check", self.pdf], capture_output=True, text=True, check=False)
        self.check(name + ": qpdf --check", (checked.returncode, checked.stderr), (0, ""))
        info = subprocess.run(["pdfinfo", self.pdf], capture_output=True, text=True, check=False).stdout
        facts = dict(re.findall(r"^(Title|Author|Creator|Producer|Pages|Page size): +(.*)$", info, re.M))
        self.check(name + ": pdfinfo", facts, {
            "Title": "Plan", "Author": "R. Draughtsman", "Creator": "Tarnwick Sheetmaker PDF 0.1.0",
            "Producer": "Sheetmaker PDF 0.1.0", "Pages": "1", "Page size": "1190.55 x 841.89 pts (A3)"})
        shown = subprocess.run(["pdftotext", self.pdf, "-"], capture_output=True, text=True, check=False).stdout
        self.check(name + ": its text", text in shown, True)

    def doctor(self, name, state, setting, publisher, other=None, remedy=""):
        """Who publishes in programs of our kind, and of the other one when that is somebody else."""
        told = self.run("C:\\SM\\sheetmaker.exe", "doctor")[1]
        wide, narrow = (publisher, other or publisher)[::1 if self.bits == "64" else -1]
        wanted = f"{state:<9} publishing: in 64-bit CAD programs: {wide}; in 32-bit ones: {narrow} (PublishWith {setting}){remedy}"
        self.check(name + ": doctor", re.findall(r"^(\w+ +publishing: .*(?:\n +-> .*)?)", told, re.M), [wanted])

    def expect_component(self):
        """Programs of our kind get the component that is made for them."""
        told = self.run("reg", "query", COMPONENT_KEY, "/ve", f"/reg:{self.bits}")[1]
        self.check("the component", told.split("REG_SZ")[-1].strip(), COMPONENTS[self.bits])

    def enter_interpreter(self, program):
        os.makedirs(os.path.join(self.drive, "Interpreter", "bin"), exist_ok=True)
        shutil.copy(program, os.path.join(self.drive, "Interpreter", "bin", "gswin64c.exe"))
        self.run("reg", "add", INTERPRETERS, "/v", "GS_DLL", "/d", "C:\\Interpreter\\bin\\gsdll64.dll", "/f", "/reg:64")

    def install_interpreter(self, program):
        """As our own installer leaves it, in the folder of program and component."""
        os.makedirs(os.path.join(self.drive, "SM", "ghostscript"))
        shutil.copy(program, os.path.join(self.drive, "SM", "ghostscript", "gs.exe"))

    def expect_interpreter(self, name, path):
        told = self.run("C:\\SM\\sheetmaker.exe", "doctor")[1]
        self.check(name + ": the interpreter", re.findall(r"^(\w+ +Ghostscript: .*)", told, re.M),
                   [f"{'ok':<9} Ghostscript: 10.00.0, {path}"])

    def temporary_folders(self):
        users = os.path.join(self.drive, "users")
        return [name for _, folders, _ in os.walk(users) for name in folders if name.startswith("sheetmaker-") and
                name != "sheetmaker-pdf"]


def own_pages(desk, script, samples):
    """A page that our own plotter wrote: nothing but the component is needed."""
    shutil.copy(os.path.join(samples, "house.dxf"), os.path.join(desk.drive, "Host", "house.dxf"))
    desk.check("a page is plotted", desk.run("C:\\SM\\sheetmaker.exe", "convert", "C:\\Host\\house.dxf", "--layout",
                                             "A-101 Ground Floor", "--keep-ps")[0], 0)
    desk.plot("C:\\Host\\house-1.ps")
    for name, who in (("no library", AUTOMATIC), ("no library, own wanted", OWN)):
        desk.choose(who)
        calls = desk.convert_once(name, script)
        desk.check(name + ": calls of the library", calls, [])
        desk.look_at(name, "Living room")
        desk.check(name + ": log", desk.own_log(), LOG)
    desk.check("no temporary folder is left", desk.temporary_folders(), [])


def foreign_pages(desk, script, interpreter):
    with open(os.path.join(desk.drive, "Host", "foreign.ps"), "w", encoding="ascii") as file:
        file.write(FOREIGN)
    desk.plot("C:\\Host\\foreign.ps")
    desk.choose(AUTOMATIC)
    desk.convert_once("no interpreter", script, NO_INTERPRETER)
    desk.check("no interpreter: no PDF", os.path.exists(desk.pdf), False)
    desk.check("no interpreter: log", desk.own_log(), REFUSED)
    desk.enter_interpreter(interpreter)
    desk.convert_once("an interpreter", script)
    desk.look_at("an interpreter", "interpreted")
    desk.check("an interpreter: log", desk.own_log(), LOG)
    desk.expect_interpreter("a registered one", "C:/Interpreter/bin/gswin64c.exe")
    desk.install_interpreter(interpreter)
    desk.expect_interpreter("a registered one and our own", "C:/SM/ghostscript/gs.exe")
    desk.run("reg", "delete", INTERPRETERS, "/f", "/reg:64")
    desk.convert_once("our own interpreter", script)
    desk.look_at("our own interpreter", "interpreted")
    desk.check("our own interpreter: log", desk.own_log(), LOG)
    shutil.rmtree(os.path.join(desk.drive, "SM", "ghostscript"))


def library_wanted(desk, script):
    """There is none, and it is asked for all the same."""
    desk.choose(LIBRARY_ALONE)
    desk.doctor("no library, library wanted", "optional", LIBRARY_ALONE, NOBODY,
                remedy="\n          -> sheetmaker set PublishWith 0")
    desk.convert_once("no library, library wanted", script, NO_LIBRARY + "\r\n" + NO_LIBRARY_REMEDY)
    desk.check("no library, library wanted: no PDF", os.path.exists(desk.pdf), False)
    desk.check("no library, library wanted: log", desk.own_log(), "ERROR: " + NO_LIBRARY)


def with_library(desk, script, test_host):
    desk.run("regsvr32", "/s", "Z:" + test_host + ".dll")
    desk.choose(AUTOMATIC)
    desk.doctor("a library", "ok", AUTOMATIC, LIBRARY_ITSELF, OURSELVES)
    for who in (AUTOMATIC, LIBRARY_ALONE):
        desk.choose(who)
        calls = desk.convert_once("a library, " + who, script)
        wanted = [line for line in CALLS.splitlines() if not line.startswith("Plot.")]
        other = [re.sub(r"\d{4}-\d\d-\d\d \d\d:\d\d:\d\d", "NOW", line) for line in calls
                 if not line.startswith("Log.WriteLogLine ")]
        desk.check(f"a library, {who}: its calls", other, wanted)
        desk.check(f"a library, {who}: no log of ours", desk.own_log(), None)
    desk.plot("C:\\Host\\house-1.ps")
    desk.choose(OWN)
    desk.doctor("a library, own wanted", "ok", OWN, OURSELVES)
    desk.check("a library, own wanted: its calls", desk.convert_once("a library, own wanted", script), [])
    desk.look_at("a library, own wanted", "Living room")


def library_fails(desk, script):
    """It is registered and starts, keeps the log, and makes no document: our own publisher does, and the log says why."""
    desk.plot("C:\\Host\\house-1.ps", "fail-library Library.CreatePubDoc out of order\n")
    desk.choose(AUTOMATIC)
    desk.doctor("a library that fails", "ok", AUTOMATIC, LIBRARY_ITSELF, OURSELVES)
    calls = desk.convert_once("a library that fails", script)
    desk.look_at("a library that fails", "Living room")
    desk.check("a library that fails: no log of ours", desk.own_log(), None)
    kept = "\n".join(line[len(LOG_LINE):] for line in calls if line.startswith(LOG_LINE))
    desk.check("a library that fails: its log", kept, f"  Note: {BROKEN_LIBRARY}\n{LOG}")
    desk.check("a library that fails: its other calls", [line for line in calls if not line.startswith(LOG_LINE)], [
        "Library.CreateConversionLog", "Log.OpenLog SmPdfAcad.log | Tarnwick Sheetmaker PDF", "Library.CreatePubDoc",
        "Log.CloseLog"])
    desk.choose(LIBRARY_ALONE)
    calls = desk.convert_once("a library that fails, library wanted", script, BROKEN_LIBRARY + ".\r\n" + NO_LIBRARY_REMEDY)
    desk.check("a library that fails, library wanted: no PDF", os.path.exists(desk.pdf), False)
    desk.check("a library that fails, library wanted: its log", [line for line in calls if line.startswith(LOG_LINE)],
               [f"{LOG_LINE}ERROR: {BROKEN_LIBRARY}."])


def main(run_wine, folder, setup, test_host, scripts, interpreter, samples, bits):
    desk = PublishingDesk(run_wine, folder, os.path.join(os.path.dirname(test_host), "drive_forms.exe"), bits)
    script = os.path.join(scripts, "Convert.vbs")
    desk.install(setup, test_host)
    shutil.rmtree(os.path.join(desk.drive, "SM", "ghostscript"), ignore_errors=True)  # an installer may bring it
    desk.expect_component()
    desk.forget_library()
    desk.choose(AUTOMATIC)
    desk.doctor("no library", "ok", AUTOMATIC, OURSELVES)
    own_pages(desk, script, samples)
    foreign_pages(desk, script, interpreter)
    library_wanted(desk, script)
    with_library(desk, script, test_host)
    library_fails(desk, script)
    desk.end()
    print(f"{desk.failures} failed")
    return 1 if desk.failures else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
