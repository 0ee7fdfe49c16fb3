#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Shows every window of the program on a display of its own, at the font size given, and keeps pictures of them.

    dialog_pictures.py PROGRAM SAMPLES OUTPUT DPI

On the way it is checked that each window lies within the screen, that the three pickers come up in a conversion and that
what is chosen there counts, and that the progress window can't be closed while it scans. Prints a line a check and
"N passed, M failed" at the end; exit code 77 without a virtual display.
"""
import contextlib
import glob
import os
import shutil
import signal
import sqlite3
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import screen as screens  # noqa: E402
from dialog_sheets import close_end, numbers, place_of  # noqa: E402
from dialog_user import (LAYOUT, TITLE, add_attachment, add_signature, combo, drawing_window, end_of, set_general,  # noqa: E402
                         set_page_setup, set_stamp, tab, view_of)
from dialog_walks import Desk  # noqa: E402
from pdf_tools import output_of  # noqa: E402
from screen import quietly, wait  # noqa: E402

LINES_TO_SCAN = 300000


class Gallery:
    def __init__(self, desk, dpi):
        self.desk, self.screen, self.dpi = desk, desk.screen, dpi
        self.width, self.height = (int(side) for side in self.screen.size.split("x"))

    def keep(self, name, window):
        time.sleep(0.3)
        left, top, width, height = window.box()
        within = left >= 0 and top >= 0 and left + width <= self.width and top + height <= self.height
        self.desk.check(f"{name} lies within the screen", within or (left, top, width, height), True)
        self.screen.picture(os.path.join(self.desk.output, f"{name}-{self.dpi}dpi.png"), (left, top, width, height))


def show_tabs(gallery):
    desk, screen = gallery.desk, gallery.screen
    process = desk.start("settings", desk.drawing, "--layout", LAYOUT)
    dialog = screen.window(TITLE, "dialog")
    set_general(dialog)
    gallery.keep("tab-general", dialog)
    dialog = set_page_setup(screen, dialog)
    gallery.keep("tab-page-setup", dialog)
    dialog = set_stamp(screen, dialog)
    gallery.keep("tab-stamp", dialog)
    dialog.find("push button", "Customize...").click()
    gallery.keep("custom-stamp", screen.window("Customize Text Stamps", "dialog"))
    screen.keys("Escape")
    screen.gone("Customize Text Stamps")
    dialog = add_attachment(screen, dialog, desk.notes)
    gallery.keep("tab-attachments", dialog)
    show_row(gallery, dialog, "File Attachment", "attachment")
    dialog = add_signature(screen, screen.window(TITLE, "dialog"), "Approval")
    gallery.keep("tab-signatures", dialog)
    show_row(gallery, dialog, "Digital Signature Field", "signature")
    show_color(gallery, screen.window(TITLE, "dialog"))
    show_reminder(gallery, screen.window(TITLE, "dialog"))
    show_drawing(gallery, screen.window(TITLE, "dialog"))
    screen.window(TITLE, "dialog").find("push button", "OK").click()
    desk.check("the tabs: exit code", end_of(process), 0)


def show_row(gallery, dialog, title, name):
    dialog.find("push button", "Add").click()
    gallery.keep(name, gallery.screen.window(title, "dialog"))
    gallery.screen.keys("Escape")
    gallery.screen.gone(title)


def show_color(gallery, dialog):
    tab(dialog, "Text Stamp")
    dialog.find("push button", "Color").click()
    gallery.keep("color", gallery.screen.windows()[-1])
    gallery.screen.keys("Escape")
    wait(lambda: len([one for one in gallery.screen.windows() if one.name != "Sheets"]) == 1, "the colours to go away")


def show_reminder(gallery, dialog):
    tab(dialog, "General Settings")
    dialog.find("check box", "Transfer Block Attribute Data").click()
    reminder = gallery.screen.window(TITLE, "alert")
    gallery.keep("reminder", reminder)
    reminder.find("push button", "Yes").click()
    wait(lambda: len([one for one in gallery.screen.windows() if one.name != "Sheets"]) == 1, "the reminder to go away")


def show_drawing(gallery, dialog):
    screen = gallery.screen
    tab(dialog, "Digital Signature Fields")
    dialog.find("push button", "Add").click()
    row = screen.window("Digital Signature Field", "dialog")
    row.find("push button", "Get Rect >").click()
    window = drawing_window(screen)
    x, y, width, height = view_of(window).box()
    time.sleep(1)
    screen.move(x + width * 0.3, y + height * 0.6)
    screen.press(x + width * 0.3, y + height * 0.6)
    window.find("label", "Enter Other Corner: ")
    screen.move(x + width * 0.55, y + height * 0.4)
    gallery.keep("drawing-window", window)
    screen.keys("Escape")
    screen.window("Digital Signature Field", "dialog")
    screen.keys("Escape")
    screen.gone("Digital Signature Field")


def use_global_page_setup(desk):
    """What no command writes: the drawing's record that asks for the global page setup."""
    with open(desk.drawing, "rb") as file:
        data = file.read()
    for end in (b"\r\n", b"\n"):
        data = data.replace(b"TWSI_PltSel" + end + b"1000" + end + b"1" + end, b"TWSI_PltSel" + end + b"1000" + end + b"2" + end)
    with open(desk.drawing, "wb") as file:
        file.write(data)


def create_with_picker(gallery, name, question, wanted):
    """Presses "Create PDF", answers the picker, and gives the text of the log."""
    desk, screen = gallery.desk, gallery.screen
    process = desk.start("settings", desk.drawing, "--layout", LAYOUT)
    if "Approval" in desk.shell("sign", desk.drawing, "list"):
        screen.window(TITLE, "alert").find("push button", "OK").click()
    screen.window(TITLE, "dialog").find("push button", "Create PDF").click()
    picker = wait(lambda: [one for one in screen.windows() if any(question in part.name for part in one.every())],
                  f"the picker {name}", lambda: [str(one) for one in screen.windows()])[0]
    gallery.keep(name, picker)
    [one for one in picker.every() if one.role == "combo box"][0].choose(wanted)
    picker.find("push button", "OK").click()
    close_end(screen)
    desk.check(f"{name}: exit code", end_of(process), 0)
    desk.check(f"{name}: there is a PDF", "Pages:           1" in output_of("pdfinfo", desk.path(".pdf")), True)
    return desk.shell("log")


def rename_stored_paper(desk, old, new):
    """Stores a paper name that "set" refuses, as an older version or another program may have left it."""
    path, = glob.glob(os.path.join(desk.screen.variables["XDG_CONFIG_HOME"], "sheetmaker-pdf", "*.sqlite"))
    with contextlib.closing(sqlite3.connect(path)) as store:
        data, = store.execute("SELECT data FROM reg_value WHERE name = 'CanonicalMediaName'").fetchone()
        store.execute("UPDATE reg_value SET data = ? WHERE name = 'CanonicalMediaName'", (bytes(data).replace(old, new),))
        store.commit()


def show_pickers(gallery):
    desk = gallery.desk
    use_global_page_setup(desk)
    desk.shell("set", "StyleSheet", "misplaced.ctb")
    log = create_with_picker(gallery, "pick-plot-style", "plot style could not be found", "monochrome.ctb")
    desk.check("pick-plot-style: the choice counts", "monochrome.ctb" in log, True)
    desk.shell("set", "StyleSheet", "")
    desk.shell("set", "CanonicalMediaName", "ISO_A3_(420.00_x_297.00_MM)")
    rename_stored_paper(desk, b"ISO_A3_", b"Unheard_of_")
    for name, value in (("PaperWidth", "333"), ("PaperHeight", "111")):
        desk.shell("set", name, value)
    create_with_picker(gallery, "pick-page-size", "paper size was not available", "ISO A3 (420.00 x 297.00 MM)")
    size = [line.split()[2:5:2] for line in output_of("pdfinfo", desk.path(".pdf")).splitlines() if line.startswith("Page size")]
    desk.check("pick-page-size: the choice counts", [[round(float(side)) for side in one] for one in size], [[1191, 842]])
    for name in ("CanonicalMediaName", "PaperWidth", "PaperHeight"):
        desk.shell("set", name, "")
    settings = os.path.join(desk.screen.variables["SHEETMAKER_PDF_SHARE"], "Settings")
    os.remove(os.path.join(settings, "Graphics [600 dpi].joboptions"))
    desk.shell("set", "JobOptionsFile", "")
    create_with_picker(gallery, "pick-job-options", "Raster Image Quality Settings could not be located", "Print [1200 dpi]")
    desk.check("pick-job-options: the choice becomes the setting", desk.shell("get", "JobOptionsFile"), "Print [1200 dpi]\n")


def show_page_setup(gallery):
    desk = gallery.desk
    process = desk.start("page-setup")
    gallery.keep("page-setup", desk.screen.window("Global Page Setup", "dialog"))
    desk.screen.keys("Escape")
    desk.check("page-setup: exit code", end_of(process), 0)


def make_crowded(path):
    import ezdxf
    drawing = ezdxf.new("R2010")
    sheet = drawing.layout("Layout1")
    sheet.page_setup(size=(420, 297), margins=(5, 5, 5, 5), units="mm")
    for i in range(LINES_TO_SCAN):
        sheet.add_line((i % 400, 5), (i % 397, 280)).set_hyperlink(f"https://www.example/{i}")
    drawing.saveas(path)


def windows_on(screen):
    return numbers(screen, TITLE)


def show_progress(gallery):
    """The window asks to stay while it scans, whatever the user or the window system wants."""
    desk, screen = gallery.desk, gallery.screen
    crowded = os.path.join(desk.folder, "crowded.dxf")
    make_crowded(crowded)
    for name, value in (("TransferDrawingHlinks", "1"), ("PromptForFileName", "0"), ("OpenInViewer", "0")):
        desk.shell("set", name, value)
    process = desk.start("settings", crowded, "--layout", "Layout1")
    create = screen.window(TITLE, "dialog").find("push button", "Create PDF")
    dialog = windows_on(screen)
    create.click()
    window = wait(lambda: [one for one in windows_on(screen) if one not in dialog], "the progress window")[0]
    time.sleep(0.05)
    os.kill(process.pid, signal.SIGSTOP)  # the scan is too fast to be looked at
    screen.picture(os.path.join(desk.output, f"progress-{gallery.dpi}dpi.png"), place_of(screen, window))
    subprocess.run(["xdotool", "windowquit", window], env=screen.variables, capture_output=True, check=False)
    process.terminate()
    os.kill(process.pid, signal.SIGCONT)
    time.sleep(0.1)
    os.kill(process.pid, signal.SIGSTOP)  # nor is there time to count windows
    desk.check("progress: it stays", (windows_on(screen), process.poll()), ([window], None))
    os.kill(process.pid, signal.SIGCONT)
    deadline = time.monotonic() + 120
    while process.poll() is None and time.monotonic() < deadline:  # the window at the end may have taken the signal
        if any(one.name == "Create PDF" for one in quietly(screen.windows) or []):
            screen.keys("Escape")
        time.sleep(0.2)
    desk.check("progress: exit code after attempts to close it", end_of(process, 120), 0)
    desk.check("progress: the PDF was made", os.path.exists(crowded[:-4] + ".pdf"), True)


def size_for(dpi):
    """A screen as large, counted in letters, as one of 1700 by 1300 points."""
    return f"{1700 * dpi // 96}x{1300 * dpi // 96}"


def main():
    program, samples, output = map(os.path.abspath, sys.argv[1:4])
    if screens.missing():
        print("skipped: not installed: " + ", ".join(screens.missing()))
        return 77
    os.makedirs(output, exist_ok=True)
    with tempfile.TemporaryDirectory() as folder, screens.Screen(folder, int(sys.argv[4]), size_for(int(sys.argv[4]))) as screen:
        share = os.path.join(folder, "share")
        shutil.copytree(os.path.join(os.path.dirname(samples), "share", "sheetmaker-pdf"), share,
                        ignore=shutil.ignore_patterns("node_modules"))
        screen.variables["SHEETMAKER_PDF_SHARE"] = share
        desk = Desk(program, os.path.join(samples, "house.dxf"), screen, output)
        gallery = Gallery(desk, int(sys.argv[4]))
        for part in (show_tabs, show_page_setup, show_pickers, show_progress):
            try:
                part(gallery)
            except (AssertionError, OSError, subprocess.SubprocessError) as error:
                desk.picture(f"failed-{part.__name__}")
                desk.check(f"{part.__name__} came to its end ({error}); said was {desk.has_said()!r}", False, True)
                break
        print(f"{desk.passed} passed, {desk.failed} failed")
        return 1 if desk.failed else 0


if __name__ == "__main__":
    sys.exit(main())
