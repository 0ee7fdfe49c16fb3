#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Lets one step of the surrounding system fail at a time and checks how the program answers.

    faults.py PROGRAM

Drawings are converted, stamped and published. Every row of the table is one fault: a folder that can't be written, a tool
that is missing or ends badly, a damaged file of the install. For each: the exit code; what stands on stderr (nothing, or what
failed in one line, behind the message that the plug-in shows); whether there is a PDF that `qpdf --check` likes; that a
drawing is as it was; and that nothing is left behind in the temporary folder, beside the PDF or in the working folder.
Ends with "N passed, M failed".
"""
import filecmp
import os
import re
import resource
import shutil
import subprocess
import sys
import tempfile

ROOT = os.path.abspath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))
SAMPLE = os.path.join(ROOT, "samples", "flange.dxf")
SHARE = os.path.join(ROOT, "share", "sheetmaker-pdf")
CLOSED = "/proc"  # a folder in which nobody, root included, can make anything


class Stand:
    """The places of one run; a fault changes them before the program starts."""

    def __init__(self, folder):
        self.folder = folder
        for part in ("tmp", "config", "state", "out", "home", "cwd", "bin"):
            os.mkdir(self.path(part))
        self.drawing = SAMPLE
        self.pdf = self.path("out/plan.pdf")
        self.kept = []  # files that must be there afterwards as they were
        self.arguments = lambda: ["convert", self.drawing, "-o", self.pdf]
        self.limits = []
        self.environment = {"PATH": "/usr/bin:/bin", "HOME": self.path("home"), "TMPDIR": self.path("tmp"),
                            "XDG_CONFIG_HOME": self.path("config"), "XDG_STATE_HOME": self.path("state"), "LANG": "C.UTF-8"}

        self.greyscale = False  # colours turned to grey: pages that only the interpreter makes

    def path(self, part):
        return os.path.join(self.folder, part)

    def write(self, part, text, mode=0o644):
        os.makedirs(os.path.dirname(self.path(part)), exist_ok=True)
        with open(self.path(part), "w", encoding="utf-8") as file:
            file.write(text)
        os.chmod(self.path(part), mode)
        return self.path(part)

    def tool(self, script):
        """An interpreter of pages that does what the shell script says."""
        self.write("bin/gs", "#!/bin/sh\n" + script, 0o755)
        self.environment["PATH"] = self.path("bin") + ":/usr/bin:/bin"
        self.greyscale = True

    def share(self, without):
        shutil.copytree(SHARE, self.path("share"))
        gone = self.path("share/" + without)
        shutil.rmtree(gone) if os.path.isdir(gone) else os.remove(gone)
        self.environment["SHEETMAKER_PDF_SHARE"] = self.path("share")

    def run(self, program):
        if self.greyscale:
            subprocess.run([program, "set", "JobOptionsFile", "Greyscale [600 dpi]"], env=self.environment, check=True,
                           capture_output=True)

        def limit():
            for what, value in self.limits:
                resource.setrlimit(what, (value, value))
        # With the signal for too long files held off, as this interpreter has it, a limit is like a full disk.
        return subprocess.run([program, *self.arguments()], capture_output=True, text=True,
                              errors="replace", timeout=120, env=self.environment, cwd=self.path("cwd"), preexec_fn=limit,
                              restore_signals=False)

    def left(self):
        """Files and folders that a run should have taken away again; those on the way to the PDF are meant to be."""
        found = [os.path.join(here, name) for part in ("tmp", "out", "cwd")
                 for here, folders, files in os.walk(self.path(part)) for name in folders + files]
        return sorted(os.path.relpath(path, self.folder) for path in found
                      if not self.pdf.startswith(path) and path not in self.kept)


def stamping(fault):
    """The fault, while a copy of the drawing in a folder of its own gets a stamp."""
    def both(stand):
        stand.drawing = stand.path("out/flange.dxf")
        shutil.copy(SAMPLE, stand.drawing)
        stand.kept.append(stand.drawing)
        stand.arguments = lambda: ["stamp", stand.drawing, "--text", "1", "--at", "10,10"]
        fault(stand)
    return both


def publishing(*more, fault=lambda stand: None):
    """The fault, while the drawing and more ones become one set."""
    def both(stand):
        stand.arguments = lambda: ["publish", "-o", stand.pdf, stand.drawing, *more]
        fault(stand)
    return both


def backup_is_a_folder(stand):
    stand.kept += [stand.write("out/flange.dxf.bak/note.txt", ""), stand.path("out/flange.dxf.bak")]


def environment(name, value):
    return lambda stand: stand.environment.update({name: value})


def limits(*pairs):
    return lambda stand: stand.limits.extend(pairs)


def tool(script):
    return lambda stand: stand.tool(script)


def share(without):
    return lambda stand: stand.share(without)


def damaged_job_options(stand):
    stand.share("Settings")
    os.makedirs(stand.path("share/Settings"))
    stand.write("share/Settings/Graphics [600 dpi].joboptions", "<<\n/OPM 7\n>> setdistillerparams\n")


def output(path):
    return lambda stand: setattr(stand, "pdf", path)


def file_at(part, text="damaged", mode=0o644):
    return lambda stand: stand.write(part, text, mode)


def folder_at(part):
    return lambda stand: os.makedirs(stand.path(part))


def no_tool(stand):
    stand.environment["PATH"] = stand.path("bin")


def tool_without_right(stand):
    stand.write("bin/gs", "#!/bin/sh\n")
    no_tool(stand)


def in_grey(fault):
    """With job options that turn colours, which the interpreter does."""
    def both(stand):
        fault(stand)
        stand.greyscale = True
    return both


def unloadable_tool(stand):
    stand.write("bin/gs", "#!/no/such/shell\n", 0o755)
    no_tool(stand)
    stand.greyscale = True


def missing_output_folder(stand):
    stand.pdf = stand.path("out/none/plan.pdf")


def missing_drawing(stand):
    stand.drawing = stand.path("none.dxf")


def temporary_file(stand):
    stand.environment["TMPDIR"] = stand.write("tmp-file", "")


def lines(*patterns):
    return list(patterns)


def failed(reason, *before):
    return [*before, ".*/flange.dxf: failed: " + reason]


def no_plot(reason):
    return failed(r'sheet "Flange": it was cancelled or could not be plotted \(' + reason + r"\)")


LOG_QUESTION = (r"error: An unknown error occurred during Sheetmaker PDF execution\. .* Would you like to view the log file "
                r'now\? \[answered: Cancel; "sheetmaker log" shows it\]')
NO_TOOL = (r'Ghostscript \("gs"\) is not installed: PostScript of other programs, and job options that turn colours or downsample '
           r"pictures, need it\. Install it: sudo apt-get install ghostscript")
STOPPED = r"Page 1: its PostScript stopped the interpreter before its end \(.*/page-1\.ps\)\."
NO_DRIVER = r"warning: The Postscript HDI driver \(ps6\.hdi, ps7\.hdi or ps8\.hdi\) is required to make PDF files\. .*"
NO_PLOTTER = (r"error: There was an error setting the printer for the PDF conversion\. The Sheetmaker PDF install folder could "
              r"not be located\. .*")
NOT_SAVED = r"sheetmaker stamp: .*/flange\.dxf: the drawing was not saved and is as it was: it can't be written "
NO_OPTIONS = r"The job options can't be used\. Those installed are: none\."
ONE_OPTIONS = r"The job options can't be used\. Those installed are: Graphics \[600 dpi\]\."
OPTIONS_FILE = r".*/flange\.dxf: .*/share/Settings/Graphics \[600 dpi\]\.joboptions"

# Name, fault, exit code, and the lines on stderr as patterns (what is said of fonts aside).
FAULTS = [
    ("nothing fails", lambda stand: None, 0, []),
    ("temporary folder closed", environment("TMPDIR", CLOSED), 1,
     lines(r"sheetmaker convert: A temporary folder could not be made in /proc: No such file or directory\. Free the folder's "
           r"space or set TMPDIR to a folder that can be written\.")),
    ("temporary folder is a file", temporary_file, 0, []),
    ("interpreter missing, not needed", no_tool, 0, []),
    ("interpreter missing", in_grey(no_tool), 3, failed(NO_TOOL, LOG_QUESTION)),
    ("interpreter without the right to run", in_grey(tool_without_right), 3, failed(NO_TOOL, LOG_QUESTION)),
    ("interpreter fails", tool("echo 'boom' >&2; exit 3\n"), 1, failed(STOPPED, LOG_QUESTION)),
    ("interpreter is killed", tool("kill -9 $$\n"), 1,
     failed(r"Page 1: the PostScript interpreter was ended by signal 9 \(Killed\)\.", LOG_QUESTION)),
    ("interpreter makes nothing", tool("exit 0\n"), 1, failed(STOPPED, LOG_QUESTION)),
    ("interpreter makes rubbish", tool("echo rubbish > out.pdf; exit 0\n"), 1, failed(STOPPED, LOG_QUESTION)),
    ("interpreter can't be loaded", unloadable_tool, 1,
     failed(r"Ghostscript could not be started: No such file or directory\.", LOG_QUESTION)),
    ("state folder closed", environment("XDG_STATE_HOME", CLOSED), 0,
     lines(r"warning: no log is kept: /proc/.* can't be written: .*")),
    ("log is a folder", folder_at("state/sheetmaker-pdf/SmPdfAcad.log"), 0,
     lines(r"warning: no log is kept: .*/SmPdfAcad\.log is a folder")),
    ("settings closed", environment("XDG_CONFIG_HOME", CLOSED), 0, []),
    ("settings damaged", file_at("config/sheetmaker-pdf/settings.sqlite"), 0,
     lines(r"warning: The settings file .*/settings\.sqlite can't be used: it is damaged\. It was kept as "
           r".*/settings-damaged-1\.sqlite and the settings start anew\.")),
    ("settings are a folder", folder_at("config/sheetmaker-pdf/settings.sqlite"), 1,
     lines(r"sheetmaker convert: The settings file .*/settings\.sqlite can't be used: unable to open database file\. "
           r"Mend or remove it, or name another folder by XDG_CONFIG_HOME\.")),
    ("install missing", environment("SHEETMAKER_PDF_SHARE", "/no/such/folder"), 3,
     lines("sheetmaker convert: the install's share folder can't be found; \"sheetmaker doctor\" says more")),
    ("driver missing", share("Drivers"), 1,
     failed('sheet "Flange": the PostScript driver could not be found', NO_DRIVER)),
    ("plotter configurations missing", share("PC3"), 1,
     failed('sheet "Flange": the folder of plotter configurations could not be used', NO_PLOTTER)),
    ("job options missing", share("Settings"), 1,
     ["error: " + NO_OPTIONS, OPTIONS_FILE.replace(": ", ": The job options file ", 1) +
      r" does not exist\. Choose other job options or put the file in place\.", *no_plot(NO_OPTIONS)]),
    ("job options damaged", damaged_job_options, 1,
     ["error: " + ONE_OPTIONS, OPTIONS_FILE + r", line 2: /OPM must be a whole number from 0 to 1\. Correct the value or "
      r"choose other job options\.", *no_plot(ONE_OPTIONS)]),
    ("font list missing", share("fonts.map"), 0, []),
    ("output folder missing", missing_output_folder, 0, []),
    ("output folder closed", output(CLOSED + "/plan.pdf"), 1,
     failed(r"/proc/plan\.pdf can't be written: .*; choose another name or folder with -o")),
    ("drawing missing", missing_drawing, 1, lines(r".*/none\.dxf: failed: there is no such file; check the name")),
    ("no room for the plot", limits((resource.RLIMIT_FSIZE, 8192)), 1,
     no_plot(r"The plot file .*/page-1\.ps can't be written: File too large\.")),
    ("stamp: no room for the drawing", stamping(limits((resource.RLIMIT_FSIZE, 8192))), 1,
     lines(NOT_SAVED + r"\(File too large\); save it under another name")),
    ("stamp: the backup's name is taken", stamping(backup_is_a_folder), 1,
     lines(NOT_SAVED + r"\(.*\); save it under another name")),
    ("publish: interpreter missing", publishing(fault=in_grey(no_tool)), 3, lines("sheetmaker publish: " + NO_TOOL)),
    ("publish: interpreter fails", publishing(fault=tool("exit 3\n")), 1, lines("sheetmaker publish: " + STOPPED)),
    ("publish: a drawing missing", publishing("none.dxf"), 1,
     lines(r"none\.dxf: failed: there is no such file; check the name",
           r"sheetmaker publish: .*/plan\.pdf was not written; --keep-going saves the sheets that succeed")),
    ("publish: output folder closed", publishing(fault=output(CLOSED + "/plan.pdf")), 1,
     lines(r"sheetmaker publish: /proc/plan\.pdf could not be written: No such file or directory\. Choose another name or folder, "
           r"or change its permissions\.")),
]


def problems_of(stand, run, code, patterns):
    problems = []
    said = [line for line in run.stderr.splitlines() if line.strip() and ": fonts: " not in line]
    if run.returncode != code:
        problems.append(f"exit code {run.returncode} instead of {code}")
    if len(said) != len(patterns) or not all(map(re.fullmatch, patterns, said)):
        problems.append("stderr should be: " + " | ".join(patterns))
    made = os.path.isfile(stand.pdf)
    if made != (code == 0):
        problems.append("a PDF is there" if made else "there is no PDF")
    if made and subprocess.run(["qpdf", "--check", stand.pdf], capture_output=True).returncode != 0:
        problems.append("qpdf --check complains")
    for path in stand.kept:
        if not os.path.exists(path) or path == stand.drawing and not filecmp.cmp(path, SAMPLE, shallow=False):
            problems.append("changed: " + os.path.relpath(path, stand.folder))
    if stand.left():
        problems.append("left behind: " + ", ".join(stand.left()))
    return problems


def main(program):
    passed = failed = 0
    for name, fault, code, patterns in FAULTS:
        with tempfile.TemporaryDirectory() as folder:
            stand = Stand(folder)
            fault(stand)
            try:
                run = stand.run(os.path.abspath(program))
                problems = problems_of(stand, run, code, patterns)
                answer = f"{run.returncode}  " + " | ".join(run.stderr.replace(folder, "FOLDER").splitlines())
            except subprocess.TimeoutExpired:
                answer, problems = "-", ["hangs"]
        print(f"{name:<38}{answer[:600]}", flush=True)
        for problem in problems:
            print("    FAILED: " + problem, flush=True)
        failed, passed = failed + bool(problems), passed + (not problems)
    print(f"{passed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1]))
