#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Walks through the windows with mouse and keyboard on a display of their own, and lets other tools say what came of it.

    dialog_walks.py PROGRAM SAMPLES [OUTPUT]

Checked are: "Create PDF" after a change on each tab with points picked in the drawing; "Cancel" and closing after the same
changes; the page setup dialog, global and of a drawing; signature fields that the drawing has already; files that can't be
opened; that a form at rest uses no processor. Pictures of the screen go to OUTPUT. Prints a line a check and "N passed,
M failed" at the end; exit code 77 without a virtual display.
"""
import os
import shutil
import subprocess
import sys
import tempfile
import time
import traceback

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import screen as screens  # noqa: E402
import dialog_drops  # noqa: E402
import dialog_keys  # noqa: E402
import dialog_sheets  # noqa: E402
from dialog_sheets import close_end  # noqa: E402
from dialog_user import (LAYOUT, TITLE, add_attachment, change_everything, combo, drawing_window, end_of,  # noqa: E402
                         set_block_attributes, set_stamp, tab)
from pdf_tools import Objects, output_of, unsigned_fields, words  # noqa: E402
from screen import wait  # noqa: E402

A4_LANDSCAPE = (842, 595)  # points


def read(path):
    with open(path, "rb") as file:
        return file.read()


class Desk:
    """A drawing in a folder of its own, and what the checks found."""

    def __init__(self, program, sample, screen, output):
        self.program, self.screen, self.output = program, screen, output
        self.folder = screen.folder
        self.sample = sample
        self.drawing = os.path.join(self.folder, os.path.basename(sample))
        shutil.copy(sample, self.drawing)
        self.before = read(self.drawing)
        self.notes = os.path.join(self.folder, "notes.txt")
        with open(self.notes, "w", encoding="utf-8") as file:
            file.write("Loads as agreed.\n")
        self.said = None
        self.passed, self.failed = 0, 0

    def check(self, what, found, wanted):
        good = found == wanted
        self.passed, self.failed = self.passed + good, self.failed + (not good)
        print(("ok   " if good else "FAIL ") + what + ("" if good else f": {found!r}, not {wanted!r}"), flush=True)

    def shell(self, *words_):
        run = subprocess.run([self.program, *words_], capture_output=True, text=True, env=self.screen.variables,
                             cwd=self.folder, timeout=120)
        return run.stdout + run.stderr

    def start(self, *words_, errors=None):
        self.said = open(os.path.join(self.folder, "said.txt"), "w+", encoding="utf-8")
        return self.screen.run([self.program, *words_], cwd=self.folder, stdout=self.said, stderr=errors or self.said)

    def has_said(self):
        if self.said is None:
            return ""
        self.said.seek(0)
        return self.said.read()

    def picture(self, name):
        if self.output:
            self.screen.picture(os.path.join(self.output, name + ".png"))

    def path(self, ending):
        return self.drawing[:-4] + ending


def create_pdf(desk):
    screen = desk.screen
    process = desk.start("settings", desk.drawing, "--layout", LAYOUT)
    dialog = screen.window(TITLE, "dialog")
    set_block_attributes(screen, dialog, True)
    dialog = change_everything(screen, desk.notes)
    desk.picture("walk-before-create-pdf")
    dialog.find("push button", "Create PDF").click()
    close_end(screen)
    desk.check("Create PDF: exit code", end_of(process), 0)
    check_pdf(desk, desk.path(".pdf"))
    desk.check("Create PDF: the former drawing is kept", read(desk.drawing + ".bak") == desk.before, True)
    desk.check("Create PDF: settings are stored", [desk.shell("get", name).strip() for name in
                                                   ("Optimization", "PromptForFileName", "JobOptionsFile", "TransferTextHlinks",
                                                    "TransferAttributes")], ["1", "0", "Graphics with layers [600 dpi]", "1", "1"])
    desk.check("Create PDF: the drawing keeps the stamp", "FOR REVIEW" in desk.shell("stamp", desk.drawing, "list"), True)
    desk.check("Create PDF: the drawing keeps the attachment", "notes.txt" in desk.shell("attach", desk.drawing, "list"), True)
    desk.check("Create PDF: the drawing keeps the field", "Approval" in desk.shell("sign", desk.drawing, "list"), True)


def check_pdf(desk, pdf):
    size = [line.split(":")[1].split()[:3:2] for line in output_of("pdfinfo", pdf).splitlines() if line.startswith("Page size")]
    desk.check("the PDF has the paper chosen", [tuple(round(float(side)) for side in one) for one in size], [A4_LANDSCAPE])
    text = [word.text for word in words(pdf)]
    desk.check("the PDF shows the stamp", [word for word in text if word in ("FOR", "REVIEW")], ["FOR", "REVIEW"])
    desk.check("the PDF shows what lies in the window, and nothing else", ("Kitchen" in text, "A-101" in text), (True, False))
    desk.check("the PDF carries the file", "notes.txt" in output_of("pdfdetach", "-list", pdf) +
               "".join(str(note) for note in Objects(pdf).annotations(1, "/FileAttachment")), True)
    desk.check("the PDF has layers, as the job options chosen ask for", "/OCProperties" in output_of("qpdf", "--json=1", pdf), True)
    desk.check("the PDF has the field", unsigned_fields(pdf), ["Approval"])
    desk.check("qpdf finds no fault", "No syntax or stream encoding errors" in output_of("qpdf", "--check", pdf), True)


def cancel(desk):
    screen = desk.screen
    desk.shell("set", "Stamp3", "AS BUILT")
    before = desk.shell("list")
    for what in ("Cancel", "Escape", "closing"):
        process = desk.start("settings", desk.drawing, "--layout", LAYOUT)
        screen.window(TITLE, "dialog")
        dialog = change_everything(screen, desk.notes) if what == "Cancel" else set_stamp(screen, screen.window(TITLE, "dialog"))
        if what == "Cancel":
            dialog.find("push button", "Cancel").click()
        elif what == "Escape":
            screen.keys("Escape")
        else:
            process.terminate()  # counts as the close box
        desk.check(f"{what}: exit code", end_of(process), 0)
        desk.check(f"{what}: the drawing is as it was", read(desk.drawing) == desk.before, True)
        desk.check(f"{what}: the settings are as they were", desk.shell("list"), before)
        desk.check(f"{what}: no other file came up", [name for name in os.listdir(desk.folder) if name.startswith("house.")],
                   ["house.dxf"])


def answer_is_kept(desk):
    """The one answer that is stored at once, whatever becomes of the dialog."""
    process = desk.start("settings", desk.drawing)
    dialog = desk.screen.window(TITLE, "dialog")
    set_block_attributes(desk.screen, dialog, False)
    dialog.find("push button", "Cancel").click()
    desk.check("reminder: exit code", end_of(process), 0)
    desk.check("reminder: No is kept at once", desk.shell("get", "BlockAttribRemindAgain"), "0\n")
    desk.check("reminder: the box is not", desk.shell("get", "TransferAttributes"), "0\n")
    desk.check("reminder: the drawing is as it was", read(desk.drawing) == desk.before, True)


def given_up_picks(desk):
    screen = desk.screen
    process = desk.start("settings", desk.drawing, "--layout", LAYOUT)
    dialog = screen.window(TITLE, "dialog")
    tab(dialog, "Text Stamp")
    combo(dialog, "Step 1: Text Stamp").choose("DRAFT PRINT")
    before = dialog.find("text", "X").text()
    dialog.find("push button", "Get Point >").click()
    drawing_window(screen)
    screen.keys("Escape")
    dialog = screen.window(TITLE, "dialog")
    desk.check("a pick given up: the dialog is as it was", (dialog.find("text", "X").text(), combo(
        dialog, "Step 1: Text Stamp").name), (before, "DRAFT PRINT"))
    dialog.find("push button", "Cancel").click()
    desk.check("a pick given up: exit code", end_of(process), 0)


def page_setup(desk):
    screen = desk.screen
    process = desk.start("page-setup")
    dialog = screen.window("Global Page Setup", "dialog")
    combo(dialog, "Paper Size and Orientation").choose("ISO A3 (420.00 x 297.00 MM)")
    desk.picture("page-setup-global")
    dialog.find("push button", "OK").click()
    desk.check("global page setup: exit code", end_of(process), 0)
    desk.check("global page setup: stored", desk.shell("get", "CanonicalMediaName"), "ISO_A3_(420.00_x_297.00_MM)\n")
    process = desk.start("page-setup", desk.drawing)
    dialog = screen.window("Drawing Page Setup", "dialog")
    combo(dialog, "Paper Size and Orientation").choose("ISO A4 (210.00 x 297.00 MM)")
    combo(dialog, "Plot Style Table (Pen Assignments)").choose("monochrome.ctb")
    dialog_sheets.page_is(screen, "A page of 210 x 297 mm with 0 marks")
    desk.picture("page-setup-drawing")
    dialog.find("push button", "OK").click()
    desk.check("drawing's page setup: exit code", end_of(process), 0)
    desk.check("drawing's page setup: the former drawing is kept", read(desk.drawing + ".bak") == desk.before, True)
    desk.check("drawing's page setup: in the drawing", [name in read(desk.drawing) for name in (
        b"TWSI_Plots", b"ISO_A4_(210.00_x_297.00_MM)", b"monochrome.ctb")], [True] * 3)
    process = desk.start("page-setup", desk.drawing)
    screen.window("Drawing Page Setup", "dialog").find("push button", "Cancel").click()
    desk.check("drawing's page setup: Cancel", end_of(process), 0)


def opened(desk):
    """What was handed to the desktop to be opened; the programs for it are started in the background."""
    path = os.path.join(desk.folder, "opened.txt")
    wait(lambda: os.path.exists(path), "something to be opened")
    with open(path, encoding="utf-8") as file:
        lines = file.read().split()
    os.remove(path)
    return lines


def viewer_and_help(desk):
    screen = desk.screen
    programs = os.path.join(desk.folder, "bin")
    os.makedirs(programs)
    with open(os.path.join(programs, "xdg-open"), "w", encoding="utf-8") as file:
        file.write(f"#!/bin/sh\necho \"$1\" >>'{desk.folder}/opened.new'\nmv '{desk.folder}/opened.new' '{desk.folder}/opened.txt'\n")
    os.chmod(file.name, 0o755)
    screen.variables["PATH"] = programs + ":" + screen.variables["PATH"]
    process = desk.start("settings", desk.drawing, "--layout", LAYOUT)
    dialog = screen.window(TITLE, "dialog")
    dialog.find("push button", "Help").click()
    page = opened(desk)[0]
    desk.check("Help: the first page", page.startswith("file:///") and os.path.basename(page), "index.html")
    tab(dialog, "File Attachments")
    dialog.find("push button", "Add").click()
    screen.window("File Attachment", "dialog").find("push button", "Help").click()
    page = opened(desk)[0]
    desk.check("Help: the page of the dialog", (os.path.basename(page), os.path.exists(page[7:])), ("c420.html", True))
    screen.keys("Escape")
    screen.gone("File Attachment")
    screen.window(TITLE, "dialog").find("push button", "Create PDF").click()
    screen.window("Save PDF File")
    desk.picture("save-pdf")
    chosen = os.path.join(desk.folder, "chosen.pdf")
    screen.keys("ctrl+a")
    screen.type(chosen)
    screen.keys("Return")
    close_end(screen)
    desk.check("a name asked for: exit code", end_of(process), 0)
    desk.check("a name asked for: the PDF has it", (os.path.exists(chosen), os.path.exists(desk.path(".pdf"))), (True, False))
    desk.check("the PDF is opened", opened(desk), [chosen])
    desk.check("the outcome is said", desk.has_said().splitlines()[-1], f"{desk.drawing} -> {chosen}, 1 page")


def signature_fields(desk):
    screen = desk.screen
    desk.shell("sign", desk.drawing, "add", "Checked", "--rect", "10,10,60,30", "--layout", LAYOUT)
    before = read(desk.drawing)
    process = desk.start("settings", desk.drawing)
    warning = screen.window(TITLE, "alert")
    desk.picture("signature-fields-warning")
    desk.check("stored fields: named", any("Checked (A-101 Ground Floor)" in one.name for one in warning.every()), True)
    warning.find("push button", "Cancel").click()
    desk.check("stored fields: Cancel", (end_of(process), read(desk.drawing) == before), (0, True))
    process = desk.start("settings", desk.drawing)
    screen.window(TITLE, "alert").find("push button", "OK").click()
    screen.window(TITLE, "dialog").find("push button", "OK").click()
    desk.check("stored fields: OK", end_of(process), 0)
    desk.check("stored fields: the drawing has none any more", "Checked" in desk.shell("sign", desk.drawing, "list"), False)
    desk.check("stored fields: the former drawing has them", read(desk.drawing + ".bak") == before, True)


def bad_files(desk):
    screen = desk.screen
    empty = os.path.join(desk.folder, "empty.dxf")
    open(empty, "w", encoding="utf-8").close()
    for name, code, part in (("nothing.dxf", 1, "nothing.dxf"), ("empty.dxf", 1, "empty")):
        process = desk.start("settings", os.path.join(desk.folder, name), errors=subprocess.DEVNULL)
        message = screen.window(TITLE, "alert")
        desk.check(f"{name}: the message names it", any(part in one.name for one in message.every()), True)
        message.find("push button", "OK").click()
        desk.check(f"{name}: exit code", end_of(process), code)
        process = desk.start("settings", os.path.join(desk.folder, name))
        desk.check(f"{name}: no message where stderr is a file", end_of(process), code)
        desk.check(f"{name}: the file has the line", desk.has_said().startswith("sheetmaker settings: "), True)


def choose_drawing(desk):
    screen = desk.screen
    process = desk.start("settings")
    screen.window("Open Drawing")
    desk.picture("open-drawing")
    time.sleep(0.3)
    screen.type(desk.drawing)
    screen.keys("Return")
    screen.window(TITLE, "dialog").find("push button", "Cancel").click()
    desk.check("a drawing chosen in a dialog: exit code", end_of(process), 0)
    process = desk.start("settings")
    screen.window("Recent Drawings").find("list item", f"house.dxf, {desk.folder}")
    desk.picture("recent-drawings")
    screen.keys("ctrl+o")
    screen.window("Open Drawing")
    screen.keys("Escape")
    screen.gone("Open Drawing")
    screen.window("Recent Drawings")
    screen.keys("Return")
    dialog = screen.window(TITLE, "dialog")
    other = os.path.join(desk.folder, "site.dxf")
    shutil.copy(os.path.join(os.path.dirname(desk.sample), "site.dxf"), other)
    screen.keys("ctrl+o")
    screen.window("Open Drawing")
    time.sleep(0.3)
    screen.type(other)
    screen.keys("Return")
    screen.gone("Open Drawing")
    wait(lambda: any("Site" in one.name for one in dialog_sheets.sheets_of(screen).every()), "the other drawing's sheets")
    desk.picture("another-drawing")
    screen.window(TITLE, "dialog")
    screen.keys("Escape")
    desk.check("another drawing: exit code", end_of(process), 0)
    process = desk.start("settings")
    screen.window("Recent Drawings")
    screen.keys("Escape")
    desk.check("no drawing chosen: exit code", end_of(process), 0)


def processor_time(pid):
    with open(f"/proc/{pid}/stat", encoding="ascii") as file:
        fields = file.read().rsplit(")", 1)[1].split()
    switches = 0
    for task in os.listdir(f"/proc/{pid}/task"):
        with open(f"/proc/{pid}/task/{task}/status", encoding="ascii") as file:
            switches += sum(int(line.split()[1]) for line in file if line.startswith("voluntary_ctxt"))
    return int(fields[11]) + int(fields[12]), switches


def used_in_3_seconds(screen, process):
    """The pointer lies still outside the window, and what follows a change has settled."""
    screen.move(1690, 1290)
    time.sleep(2)
    before = processor_time(process.pid)
    time.sleep(3)
    return [now - then for now, then in zip(processor_time(process.pid), before)]


def at_rest(desk):
    """The screen reader's bus is left alone meanwhile, so that nobody asks the program for anything."""
    screen = desk.screen
    process = desk.start("settings", desk.drawing, "--layout", LAYOUT)
    dialog = screen.window(TITLE, "dialog")
    tab(dialog, "Text Stamp")
    combo(dialog, "Step 1: Text Stamp").choose("DRAFT PRINT")
    desk.check("a form at rest: processor time and wakings in 3 s", used_in_3_seconds(screen, process), [0, 0])
    dialog.find("push button", "Get Point >").click()
    drawing_window(screen)
    desk.check("the drawing window at rest", used_in_3_seconds(screen, process), [0, 0])
    screen.keys("Escape")
    screen.window(TITLE, "dialog").find("push button", "Cancel").click()
    desk.check("at rest: exit code", end_of(process), 0)


WALKS = {"create": create_pdf, "cancel": cancel, "answer": answer_is_kept, "picks": given_up_picks, "page_setup": page_setup,
         "viewer": viewer_and_help, "fields": signature_fields, "bad_files": bad_files, "choose": choose_drawing, "rest": at_rest,
         **dialog_drops.WALKS, **dialog_keys.WALKS, **dialog_sheets.WALKS}


def run_walk(name, program, samples, output):
    with tempfile.TemporaryDirectory() as folder, screens.Screen(folder) as screen:
        desk = Desk(program, os.path.join(samples, "house.dxf"), screen, output)
        try:
            WALKS[name](desk)
        except (AssertionError, OSError, subprocess.SubprocessError):
            traceback.print_exc()
            desk.picture("failed-" + name)
            desk.check(f"the walk {name} came to its end; said was {desk.has_said()!r}", False, True)
        return desk.failed == 0


def main():
    program, samples = map(os.path.abspath, sys.argv[1:3])
    output = os.path.abspath(sys.argv[3]) if len(sys.argv) > 3 else ""
    only = sys.argv[4:]
    if screens.missing():
        print("skipped: not installed: " + ", ".join(screens.missing()))
        return 77
    if output:
        os.makedirs(output, exist_ok=True)
    if len(only) == 1:
        return 0 if run_walk(only[0], program, samples, output) else 1
    # The screen reader's library knows one session bus a process.
    failed = [name for name in only or WALKS
              if subprocess.run([sys.executable, __file__, program, samples, output, name], check=False).returncode]
    print(f"{len(only or WALKS) - len(failed)} walks passed, {len(failed)} failed {' '.join(failed)}")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
