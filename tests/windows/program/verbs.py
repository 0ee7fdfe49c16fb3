#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The program of Windows as a user runs it: each command, names that no code page holds, long paths, pipes, drawings that
take too long, Ctrl+C. What this machine's program says of the same is the measure where there is one.

    verbs.py LINUX-PROGRAM WINDOWS-PROGRAM FOLDER      FOLDER gets a Wine prefix
"""
import json
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time

from programs import ENVIRONMENT, RUN_WINE, linux_program, user_folder, windows_program

SOURCE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "..")
SAMPLES = os.path.join(SOURCE, "samples")
INTERRUPTED = 130
FAULTS = []


def same(what, found, expected):
    if found != expected:
        FAULTS.append(f"{what}:\n  found    {found!r}\n  expected {expected!r}")


def is_whole(what, pdf):
    run = subprocess.run(["qpdf", "--check", pdf], capture_output=True, text=True)
    same(f"{what}: qpdf --check", (run.returncode, run.stderr), (0, ""))


def long_drawing(path, lines):
    with open(path, "w") as file:
        file.write("0\nSECTION\n2\nENTITIES\n")
        for number in range(lines):
            file.write(f"0\nLINE\n8\n0\n10\n{number % 97}.25\n20\n{number % 89}.5\n11\n{number % 83}.75\n21\n50.0\n")
        file.write("0\nENDSEC\n0\nEOF\n")


class Verbs:
    def __init__(self, linux, windows, folder, prefix):
        self.linux, self.windows, self.folder, self.prefix = linux, windows, folder, prefix

    def on(self, *words, **more):
        return self.windows.run(*words, folder=self.folder, **more)

    def copy(self, sample, name):
        target = os.path.join(self.folder, name)
        os.makedirs(os.path.dirname(target), exist_ok=True)
        shutil.copy(os.path.join(SAMPLES, sample), target)
        return target

    def doctor(self):
        run = self.on("doctor")
        states = {what: state for state, what in re.findall(r"^(\w+) +([^:]+): ", run.stdout, re.M)}
        same("doctor", (run.returncode, states), (0, {
            "Ghostscript": "optional", "PDF library": "ok", "fonts": "ok", "share folder": "ok", "job options": "ok",
            "settings": "ok", "log folder": "ok", "temporary folder": "ok", "PDF viewer": "ok", "windows": "ok",
            "DWG converter": "optional", "publishing": "ok"}))

    def settings(self):
        same("list", self.on("list").stdout, self.linux.run("list").stdout)
        same("set", self.on("set", "StampText1", "Größe Ω").returncode, 2)
        same("set", self.on("set", "Stamp3", "Größe Ω 漢").returncode, 0)
        same("get", self.on("get", "Stamp3").stdout, "Größe Ω 漢\n")

    def names(self):
        drawing = self.copy("flange.dxf", "Чертежи Ω/Größe 漢.dxf")
        run = self.on("convert", "Чертежи Ω/Größe 漢.dxf")
        pdf = drawing[:-4] + ".pdf"
        same("convert: a name outside every code page", (run.returncode, run.stdout),
             (0, f"Чертежи Ω/Größe 漢.dxf -> Z:{pdf}, 1 page\n"))
        is_whole("a name outside every code page", pdf)
        deep = "/".join(["folder-of-twenty-five-chars"] * 12)
        drawing = self.copy("flange.dxf", deep + "/flange.dxf")
        run = self.on("convert", deep + "/flange.dxf")
        same("convert: a path of more than 300 characters", run.returncode, 0)
        is_whole("a path of more than 300 characters", drawing[:-4] + ".pdf")
        back = self.on("convert", "Чертежи Ω\\Größe 漢.dxf", "-o", "made\\")
        same("convert: backslashes", (back.returncode, os.path.exists(os.path.join(self.folder, "made", "Größe 漢.pdf"))),
             (0, True))

    def log(self):
        lines = self.on("log").stdout.splitlines()
        same("log", (lines[1], lines[-1]), (f"PLUGIN STARTING PDF FILE: Z:{self.folder}/made/Größe 漢.pdf",
                                            lines[-1]))
        kept = user_folder(self.prefix, "AppData", "Local", "sheetmaker-pdf")
        same("the log's place", os.listdir(kept), ["SmPdfAcad.log"])

    def pipes(self):
        self.copy("flange.dxf", "piped.dxf")
        to_file = self.on("convert", "piped.dxf", "-o", "piped.pdf")
        piped = self.on("convert", "piped.dxf", "-o", "-", text=False, encoding=None, errors=None)
        with open(os.path.join(self.folder, "piped.pdf"), "rb") as file:
            same("-o -", (to_file.returncode, piped.returncode, piped.stdout == file.read()), (0, 0, True))
        with open(os.path.join(self.folder, "piped.dxf"), "rb") as drawing:
            run = self.on("convert", "-", "-o", "read.pdf", stdin=drawing)
        same("a drawing on standard input", (run.returncode, run.stdout),
             (0, f"- -> Z:{self.folder}/read.pdf, 1 page\n"))

    def layouts(self):
        drawing = self.copy("house.dxf", "house.dxf")
        found, expected = self.on("layouts", "house.dxf", "--json"), self.linux.run("layouts", drawing, "--json")
        same("layouts --json", json.loads(found.stdout), json.loads(expected.stdout) | {"drawing": "house.dxf"}
             if isinstance(json.loads(expected.stdout), dict) else json.loads(expected.stdout))
        same("layouts", self.on("layouts", "house.dxf").stdout, self.linux.run("layouts", drawing).stdout)

    def several(self):
        self.copy("house.dxf", "house.dxf")
        self.copy("site.dxf", "site.dxf")
        run = self.on("convert", "house.dxf", "site.dxf", "none.dxf", "-o", "several", "--jobs", "2")
        same("several drawings", (run.returncode, run.stdout, sorted(os.listdir(os.path.join(self.folder, "several")))),
             (1, f"house.dxf -> Z:{self.folder}/several/house.pdf, 3 pages\n"
                 f"site.dxf -> Z:{self.folder}/several/site.pdf, 1 page\n", ["house.pdf", "site.pdf"]))
        published = self.on("publish", "-o", "set.pdf", "house.dxf:A-101 Ground Floor", "site.dxf")
        same("publish", published.returncode, 0)
        is_whole("publish", os.path.join(self.folder, "set.pdf"))

    def records(self):
        """Both programs write the same bytes into a drawing."""
        drawings = {}
        for name, program in (("linux", self.linux), ("windows", self.windows)):
            drawings[name] = self.copy("house.dxf", f"{name}/house.dxf")
            for words in (("stamp", "house.dxf", "--text", "2", "--at", "10,10", "--layout", "A-101 Ground Floor"),
                          ("sign", "house.dxf", "add", "CHECKED", "--rect", "0,0,50,20"),
                          ("page-setup", "house.dxf", "--set", "PlotType=4", "--set", "CenterPlot=1")):
                run = program.run(*words, folder=os.path.dirname(drawings[name]))
                same(f"{name}: {words[0]}", run.returncode, 0)
        with open(drawings["linux"], "rb") as one, open(drawings["windows"], "rb") as other:
            same("records in a drawing", one.read() == other.read(), True)
        same("the former drawing", os.path.exists(drawings["windows"] + ".bak"), True)
        same("attach", self.on("attach", "windows/house.dxf", "add", "site.dxf", "--at", "5,5", "--layout",
                               "A-101 Ground Floor").returncode, 0)
        same("attach list", self.on("attach", "windows/house.dxf", "list").stdout,
             f"1  Z:{self.folder}/site.dxf at 5,5 on A-101 Ground Floor\n")
        run = self.on("convert", "windows/house.dxf", "--report", "json")
        report = json.loads(run.stdout)["drawings"][0]
        attachments = report["attachments"]
        same("the report's address of the PDF", report["pdfUri"], f"file:///Z:{self.folder}/windows/house.pdf")
        same("attached files", [entry["name"] for entry in attachments], ["site.dxf"])

    def limits(self):
        long_drawing(os.path.join(self.folder, "long.dxf"), 1600000)
        run = self.on("convert", "long.dxf", "--timeout", "1")
        same("a drawing that takes too long", (run.returncode, run.stderr),
             (1, "long.dxf: failed: the conversion took longer than 1 s and was ended; --timeout allows it more\n"))

    def interruption(self):
        before = set(os.listdir(user_folder(self.prefix, "Temp")))
        process = subprocess.Popen([*self.windows.command, "convert", "long.dxf"], cwd=self.folder,
                                   env={**os.environ, **ENVIRONMENT}, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        time.sleep(0.7)
        process.send_signal(signal.SIGINT)
        told = process.communicate(timeout=60)
        same("Ctrl+C", (process.returncode, told), (INTERRUPTED, ("", "sheetmaker: interrupted\n")))
        same("what is left behind", (set(os.listdir(user_folder(self.prefix, "Temp"))) - before,
                                     [name for name in os.listdir(self.folder) if name.startswith(".")]), (set(), []))


def main():
    linux, windows, prefix = sys.argv[1:]
    folder = tempfile.mkdtemp()
    try:
        verbs = Verbs(linux_program(linux, os.path.join(folder, "linux-home")), windows_program(windows, prefix),
                      folder, prefix)
        for verb in (verbs.doctor, verbs.settings, verbs.names, verbs.log, verbs.pipes, verbs.layouts, verbs.several,
                     verbs.records, verbs.limits, verbs.interruption):
            verb()
    finally:
        shutil.rmtree(folder)
    print("\n".join(FAULTS) or "all commands did what they should")
    return 1 if FAULTS else 0


if __name__ == "__main__":
    sys.exit(main())
