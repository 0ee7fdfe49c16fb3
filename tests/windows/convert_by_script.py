#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Installs the component as a user does, has scripts convert the active drawing of the test host, and takes it away again.

    convert_by_script.py RUN-WINE FOLDER SETUP TEST-HOST SCRIPTS

TEST-HOST is the path of the test host's DLL and program, without ending: it serves in the script's process and in one of
its own. FOLDER gets a Wine prefix of its own. Of each script the log lines and the publishing calls are compared, whole. Scripts end
with exit code 7, since the script host gives 0 for a script that failed, too.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
import threading

HERE = os.path.dirname(os.path.abspath(__file__))
DRIVERS = os.path.join(HERE, "..", "..", "share", "sheetmaker-pdf", "Drivers")
SCRIPT_REACHED_ITS_END = 7
SCENARIO = "drawing C:\\Jobs\\Plan.dwg\ndrivers C:\\Host\\Drivers\nplotters C:\\Host\\Plotters\npc3 C:\\SM\\PC3\n"
LOG = r"""PLUGIN STARTING PDF FILE: C:\Jobs\Plan.pdf
USE NATIVE PAGE SETUP FOR GROUND
  Original Profile Name: Unnamed Profile
  Original PrinterConfigPath: C:\Host\Plotters
  Set PrinterConfigPath To: C:\SM\PC3
  Layout Tab: Ground
  PlotWithPlotStyles: 1
  ShowPlotStyles: 0
  PlotHidden: 0
  PlotViewportBorders: 0
  PlotWithLineWeights: 1
  ScaleLineWeights: 0
  PlotViewportsFirst: 1
  StyleSheet Requested: Florida.ctb
  StyleSheet Used: Florida.ctb
  PrinterConfigPath: C:\SM\PC3
  DriversPath: C:\Host\Drivers
  ConfigName: Tarnwick PS8 HighRes.pc3
  CanonicalMediaName: ISO_A3_(420.00_x_297.00_MM)
  PaperWidth: 420
  PaperHeigth: 297
  PlotRotation: 0
  Window LowerLeft: 0 0
  Window UpperRight: 0 0
  PlotType: Layout
           [Use PlotType Window in place of Layout]
           [Window LowerLeft: 0 0]
           [Window UpperRight: 409 262]
           [PlotType: Window]
  PlotOrigin: 0 0
  CenterPlot: Not Set
  PaperUnits: Millimeters
  UseStandardScale: 1
  StandardScale: 16
TEXT STAMP
  [None]
FILE ATTACHMENTS
  [None]
DIGITAL SIGNATURE FIELDS
  [None]
HYPERLINKS
BLOCK ATTRIBUTES
  [None]
RESET PAGE SETUP
  Reset PrinterConfigPath To: C:\Host\Plotters
PDF FILE SAVED"""
CALLS = r"""Library.CreateConversionLog
Log.OpenLog SmPdfAcad.log | Tarnwick Sheetmaker PDF
Library.CreatePubDoc
PubDoc.NewPsFileName
Plot.SetQuietErrorMode 1
Plot.PlotToFile C:\Temp\sheet1.ps
PubDoc.AddPsFile C:\Temp\sheet1.ps | 1190.5511811023623 | 841.8897637795276 | 1200 | 1 | C:\SM\Settings\Graphics [600 dpi].joboptions
PubDoc.PendingMarkCount
PubDoc.SetDocSummary Plan | R. Draughtsman | NOW | NOW
PubDoc.SetDocInfo Creator | Tarnwick Sheetmaker PDF 0.1.0
PubDoc.SaveToPdf C:\Jobs\Plan.pdf | 0 | 0 | 1 | 0
Log.CloseLog"""
# The script, and where the host is.
CONVERSIONS = [("Convert.vbs", "SmTestHost.Application"), ("Convert.js", "SmTestHost.Application"),
               ("Convert.vbs", "SmTestHost.RemoteApplication"), ("Convert.js", "SmTestHost.RemoteApplication")]
SHEETS = "true|false|2|Plan.dwg|C:\\Jobs\\Plan.dwg|true|3|Model|0|Ground|0|Upper|0|1|0 released 2"
SHEET_CALLS = r"""PubDoc.NewPsFileName
PubDoc.AddPsFile C:\Temp\sheet1.ps | 841.8897637795276 | 595.2755905511812 | 1200 | 1 | C:\SM\Settings\Graphics [600 dpi].joboptions
PubDoc.PendingMarkCount
PubDoc.NewPsFileName
PubDoc.AddPsFile C:\Temp\sheet2.ps | 1190.5511811023623 | 841.8897637795276 | 1200 | 1 | C:\SM\Settings\Graphics [600 dpi].joboptions
PubDoc.PendingMarkCount
PubDoc.NewPsFileName
PubDoc.AddPsFile C:\Temp\sheet3.ps | 1190.5511811023623 | 841.8897637795276 | 1200 | 1 | C:\SM\Settings\Graphics [600 dpi].joboptions
PubDoc.PendingMarkCount"""
BEYOND = """Log.WriteLogLine   Original PrinterConfigPath: C:\\Users\\\u56fd\\Plotters
Log.WriteLogLine   Set PrinterConfigPath To: C:\\SM\\PC3
PubDoc.AddPsFile C:\\Temp\\sheet1.ps | 1190.5511811023623 | 841.8897637795276 | 1200 | 1 | C:\\\u0141ukasz\\\u0141\u00f3d\u017a.joboptions
Log.WriteLogLine   Reset PrinterConfigPath To: C:\\Users\\\u56fd\\Plotters"""
LOST = r"""Log.WriteLogLine HYPERLINKS
Log.WriteLogLine ADDPDFMARK RUNTIME ERROR: RPC call failed.
Log.WriteLogLine RESET PAGE SETUP
Log.WriteLogLine RUNTIME ERROR: RPC server unavailable.
Log.WriteLogLine PDF FILE SAVED
Log.CloseLog"""
TITLE = "Tarnwick Sheetmaker PDF"
LOG_LINE = "Log.WriteLogLine "


class Desk:
    def __init__(self, run_wine, folder):
        self.runner = [run_wine, folder]
        self.folder = folder
        self.drive = os.path.join(folder, "prefix", "drive_c")
        self.failures = 0

    def run(self, *command, **environment):
        # To a file: a server that the command started would hold a pipe open.
        with tempfile.TemporaryFile() as said:
            done = subprocess.run([*self.runner, *command], stdout=said, stderr=said, stdin=subprocess.DEVNULL, timeout=120,
                                  env={**os.environ, **environment})
            said.seek(0)
            return done.returncode, said.read().decode(errors="replace").replace("\r", "").strip()

    def check(self, name, got, wanted):
        self.failures += got != wanted
        print("ok  " if got == wanted else "FAIL", name, "" if got == wanted else f": {got!r} instead of {wanted!r}")

    def end(self):
        """A server waits a while for its next client; one that was killed can't be started again in its prefix."""
        server = shutil.which("wineserver") or "/usr/lib/wine/wineserver"
        subprocess.run([server, "-k"], env={**os.environ, "WINEPREFIX": os.path.join(self.folder, "prefix")}, check=False)
        shutil.rmtree(self.folder, ignore_errors=True)

    def prepare(self):
        """A CAD host's folders, with its PostScript drivers."""
        self.end()
        self.run("cmd", "/c", "exit")
        for name in ("Host/Plotters", "Jobs", "Temp"):
            os.makedirs(os.path.join(self.drive, name), exist_ok=True)
        shutil.copytree(DRIVERS, os.path.join(self.drive, "Host", "Drivers"))
        with open(os.path.join(self.drive, "Host", "scenario.txt"), "w", encoding="ascii") as file:
            file.write(SCENARIO)

    def install(self, setup, test_host):
        self.prepare()
        self.check("setup", self.run(setup, "/S", "/AllUsers", "/D=C:\\SM")[0], 0)
        self.check("test host registered", self.run("regsvr32", "/s", "Z:" + test_host + ".dll")[0], 0)
        self.check("test host's program registered", self.run(test_host + ".exe", "/RegServer")[0], 0)

    def play(self, script, host):
        """The script's exit code and output, and the calls that the component made."""
        calls = os.path.join(self.drive, "Host", "calls.txt")
        if os.path.exists(calls):
            os.remove(calls)
        result = self.run("cscript", "//nologo", "Z:" + script.replace("/", "\\"), host, SM_JOURNAL="C:\\Host\\calls.txt",
                          SM_TEST_SCENARIO="C:\\Host\\scenario.txt")
        if not os.path.exists(calls):
            return result, []
        with open(calls, encoding="utf-8", errors="replace") as file:
            return result, file.read().splitlines()

    def convert(self, script, host):
        name = os.path.basename(script) + " with " + host
        result, lines = self.play(script, host)
        self.check(name + ": its end", result, (SCRIPT_REACHED_ITS_END, "converted Plan.dwg"))
        log = [line[len(LOG_LINE):] for line in lines if line.startswith(LOG_LINE)]
        other = [re.sub(r"\d{4}-\d\d-\d\d \d\d:\d\d:\d\d", "NOW", line) for line in lines
                 if line.startswith(("Library.", "Log.", "PubDoc.", "Plot.")) and not line.startswith(LOG_LINE)]
        self.check(name + ": log", "\n".join(log), LOG)
        # A host in a process of its own keeps its calls for itself.
        wanted = [line for line in CALLS.splitlines() if "Remote" not in host or not line.startswith("Plot.")]
        self.check(name + ": publishing calls", other, wanted)

    def convert_sheets(self, script, host):
        result, lines = self.play(script, host)
        self.check("sheet by sheet with " + host, result, (SCRIPT_REACHED_ITS_END, SHEETS))
        calls = [line for line in lines if line.startswith("PubDoc.")]
        self.check("sheet by sheet with " + host + ": publishing calls", "\n".join(calls), SHEET_CALLS)

    def convert_beyond_code_page(self, script, host):
        """The user's folder comes back whole, and the job options are found by their own name."""
        result, lines = self.play(script, host)
        self.check("beyond the code page with " + host, result,
                   (SCRIPT_REACHED_ITS_END, "plotters true, job options %u0141%F3d%u017A"))
        told = [line for line in lines if "PrinterConfigPath" in line or line.startswith("PubDoc.AddPsFile")]
        told = [line for line in told if "Log.WriteLogLine   PrinterConfigPath:" not in line and line[:3] in ("Log", "Pub")]
        self.check("beyond the code page with " + host + ": what was said", "\n".join(told), BEYOND)

    def lose_the_host(self, script, driver):
        """The host's process ends while the sheet's annotations are collected, and the user is told so."""
        with open(os.path.join(self.drive, "Host", "scenario.txt"), "a", encoding="ascii") as file:
            file.write("die-at 120\n")
        user = threading.Thread(target=self.run, args=(driver, "window", TITLE, "click", "1"))
        user.start()
        _, lines = self.play(script, "SmTestHost.RemoteApplication")
        user.join()
        log = [line for line in lines if line.startswith("Log.")]
        self.check("a host that dies: the operation ends", "\n".join(log[log.index(LOG_LINE + "HYPERLINKS"):]
                                                               if LOG_LINE + "HYPERLINKS" in log else log), LOST)


def convert_everywhere(desk, setup, test_host, scripts):
    desk.install(setup, test_host)
    for script, host in CONVERSIONS:
        desk.convert(os.path.join(scripts, script), host)
    hosts = ("SmTestHost.Application", "SmTestHost.RemoteApplication")
    for host in hosts:
        desk.convert_sheets(os.path.join(scripts, "Sheets.js"), host)
    for host in hosts: # last: the settings that it changes stay
        desk.convert_beyond_code_page(os.path.join(scripts, "BeyondCodePage.js"), host)
    desk.check("test host's program unregistered", desk.run(test_host + ".exe", "/UnregServer")[0], 0)
    desk.check("test host unregistered", desk.run("regsvr32", "/s", "/u", "Z:" + test_host + ".dll")[0], 0)
    desk.check("uninstaller", desk.run("C:\\SM\\Uninstall.exe", "/S", "_?=C:\\SM")[0], 0)
    desk.check("no class is left", desk.run("reg", "query", "HKCR\\TarnwickSmPubAcad.cPlugin")[0], 1)
    desk.end()


def main(run_wine, folder, setup, test_host, scripts):
    desk = Desk(run_wine, folder)
    convert_everywhere(desk, setup, test_host, scripts)
    desk.install(setup, test_host)
    desk.lose_the_host(os.path.join(scripts, "Convert.vbs"), os.path.join(os.path.dirname(test_host), "drive_forms.exe"))
    desk.end()
    print(f"{desk.failures} failed")
    return 1 if desk.failures else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
