# SPDX-License-Identifier: GPL-3.0-or-later
"""A walk without a mouse, a stamped PDF with a signature field and every control with a name; and one that drags marks."""
import os
import subprocess
import time

from dialog_user import TITLE, combo, drawing_window, end_of, view_of
from pdf_tools import output_of, unsigned_fields, words
from screen import wait

MOST_STOPS = 80  # of the Tab key in one window
CONTROLS = {"push button", "toggle button", "check box", "radio button", "combo box", "text", "list", "list item", "table", "tree",
            "tree table", "page tab", "menu item", "link", "spin button", "slider", "tool bar", "canvas", "button"}


class Keyboard:
    def __init__(self, desk):
        self.desk, self.screen = desk, desk.screen
        self.nameless = {}

    def focus(self):
        """What has the keyboard. Tabs, rows and cells tell so at all times; what they stand in
        tells the truth."""
        def look():
            for window in [one for one in self.screen.windows() if one.has("ACTIVE")]:
                window.accessible.clear_cache()
                for one in window.every():
                    if one.has("FOCUSED") and one.role not in ("page tab", "table cell", "list item", "filler"):
                        return one
            return None
        return wait(look, "a control with the keyboard", lambda: [str(one) for one in self.screen.windows()])

    def go_to(self, role, name):
        """Tab until the keyboard is there."""
        seen = []
        for _ in range(MOST_STOPS):
            at = self.focus()
            if at.role == role and name in (at.name, None):
                return at
            seen.append(str(at))
            self.screen.keys("Tab")
        raise AssertionError(f"Tab never comes to {role} \"{name}\"; it came to {seen[:30]}")

    def go_into(self, box):
        for _ in range(MOST_STOPS):
            box.accessible.clear_cache()
            if box.has("FOCUSED"):
                return box
            self.screen.keys("Tab")
        raise AssertionError(f"Tab never comes to {box}")

    def press(self, role, name):
        self.go_to(role, name)
        self.screen.keys("space")

    def turn_to(self, dialog, name):
        tabs = [one.name for one in dialog.every() if one.role == "page tab"]
        for _ in range(MOST_STOPS):
            if self.focus().role == "page tab list":
                break
            self.screen.keys("Tab")
        self.screen.keys(*["Left"] * len(tabs), *["Right"] * tabs.index(name))
        wait(lambda: dialog.find("page tab", name).has("FOCUSED"), f"the tab {name}",
             lambda: str(self.focus()))
        self.look_at(dialog, name)

    def look_at(self, window, where):
        """Notes the controls that a screen reader would know by no name."""
        window.accessible.clear_cache()
        for one in window.every():
            if (one.role in CONTROLS or one.has("FOCUSABLE")) and not one.name and one.role not in ("filler", "frame"):
                self.nameless.setdefault(where, []).append(str(one))


def stamp(keyboard, dialog):
    screen = keyboard.screen
    keyboard.turn_to(dialog, "Text Stamp")
    keyboard.go_into(combo(dialog, "Step 1: Text Stamp"))
    screen.keys("Home")
    for _ in range(MOST_STOPS):
        if combo(dialog, "Step 1: Text Stamp").name == "FOR REVIEW":
            break
        screen.keys("Down")
    keyboard.press("push button", "Get Point >")
    window = drawing_window(screen)
    keyboard.look_at(window, "drawing window")
    screen.type("120,60")
    screen.keys("Return")
    return screen.window(TITLE, "dialog")


def sign(keyboard, dialog):
    screen = keyboard.screen
    keyboard.turn_to(dialog, "Digital Signature Fields")
    keyboard.press("push button", "Add")
    row = screen.window("Digital Signature Field", "dialog")
    keyboard.look_at(row, "field")
    keyboard.go_to("text", "Title")
    screen.type("Approval")
    keyboard.press("push button", "Get Rect >")
    drawing_window(screen).find("label", "Enter First Corner: ")
    screen.type("20,20")
    screen.keys("Return")
    drawing_window(screen).find("label", "Enter Other Corner: ")
    screen.type("@60,25")
    screen.keys("Return")
    screen.window("Digital Signature Field", "dialog")
    keyboard.press("push button", "OK")
    screen.gone("Digital Signature Field")
    return screen.window(TITLE, "dialog")


def others(keyboard, dialog):
    """Names on what the walk doesn't need."""
    screen = keyboard.screen
    for name in ("General Settings", "PDF Page Setup"):
        keyboard.turn_to(dialog, name)
    keyboard.look_at(screen.window("Sheets"), "sheets")
    screen.keys("F1")
    page = screen.window("Sheetmaker PDF – Help")
    keyboard.look_at(page, "help")
    keyboard.desk.picture("own-help")
    keyboard.desk.check("by keyboard: help without a browser", "settings dialog" in page.find("label", "Help").text(), True)
    screen.keys("Escape")
    screen.gone("Sheetmaker PDF – Help")
    keyboard.turn_to(dialog, "File Attachments")
    keyboard.press("push button", "Add")
    keyboard.look_at(screen.window("File Attachment", "dialog"), "attachment")
    screen.keys("Escape")
    screen.gone("File Attachment")


def without_browser(desk):
    """The desktop's program is there and finds nothing to show a page with."""
    programs = os.path.join(desk.folder, "bin")
    os.makedirs(programs)
    with open(os.path.join(programs, "xdg-open"), "w", encoding="utf-8") as file:
        file.write("#!/bin/sh\nexit 3\n")
    os.chmod(file.name, 0o755)
    desk.screen.variables["PATH"] = programs + ":" + desk.screen.variables["PATH"]


def by_keyboard(desk):
    screen, keyboard = desk.screen, Keyboard(desk)
    desk.shell("set", "PromptForFileName", "no")
    desk.shell("set", "OpenInViewer", "no")
    without_browser(desk)
    process = desk.start("settings", desk.drawing, "--layout", "A-101 Ground Floor")
    dialog = screen.window(TITLE, "dialog")
    others(keyboard, dialog)
    dialog = stamp(keyboard, screen.window(TITLE, "dialog"))
    dialog = sign(keyboard, dialog)
    desk.picture("by-keyboard")
    keyboard.press("push button", "Create PDF")
    end = screen.window("Create PDF", "dialog")
    keyboard.look_at(end, "end")
    screen.keys("Escape")
    desk.check("by keyboard: exit code", end_of(process), 0)
    text = [word.text for word in words(desk.path(".pdf"))]
    desk.check("by keyboard: the stamp", [word for word in text if word in ("FOR", "REVIEW")], ["FOR", "REVIEW"])
    desk.check("by keyboard: the field", unsigned_fields(desk.path(".pdf")), ["Approval"])
    desk.check("by keyboard: qpdf finds no fault", "No syntax" in output_of("qpdf", "--check", desk.path(".pdf")), True)
    desk.check("controls without a name", keyboard.nameless, {})


def drag(screen, start, end):
    """The left button is held on the way."""
    words_ = ["mousemove", *map(str, map(int, start)), "mousedown", "1", "sleep", "0.1"]
    for part in (0.3, 0.7, 1):
        at = [int(a + (b - a) * part) for a, b in zip(start, end)]
        words_ += ["mousemove", *map(str, at), "sleep", "0.05"]
    subprocess.run(["xdotool", *words_, "mouseup", "1"], env=screen.variables, check=True)
    time.sleep(0.1)


def edit_marks(desk):
    """Stored marks are dragged and edited in the drawing, between two showings of the dialog."""
    screen = desk.screen
    desk.shell("sign", desk.drawing, "add", "Checked", "--rect", "10,10,210,140", "--layout", "A-101 Ground Floor")
    process = desk.start("settings", desk.drawing, "--layout", "A-101 Ground Floor")
    screen.window(TITLE, "alert").find("push button", "OK").click()
    screen.window(TITLE, "dialog")
    screen.window("Sheets").find("push button", "Edit Marks...").click()
    window = drawing_window(screen)
    window.find("combo box", "Marks")
    time.sleep(1)
    x, y, width, height = view_of(window).box()
    middle = x + width * 0.3, y + height * 0.75
    drag(screen, middle, (middle[0] + 100, middle[1] - 60))
    desk.picture("marks-dragged")
    screen.press(middle[0] + 100, middle[1] - 60, times=2)
    mark = screen.window("Edit Mark", "dialog")
    mark.find("text", "Title").write("Released")
    mark.find("push button", "OK").click()
    screen.gone("Edit Mark")
    screen.keys("Escape")
    screen.window(TITLE, "alert").find("push button", "Yes").click()
    screen.window(TITLE, "alert").find("push button", "OK").click()
    screen.window(TITLE, "dialog").find("push button", "Cancel").click()
    desk.check("marks: exit code", end_of(process), 0)
    kept = desk.shell("sign", desk.drawing, "list")
    desk.check("marks: the field has its new title", "\"Released\"" in kept and "Checked" not in kept, True)
    desk.check("marks: and its new place", "10,10,210,140" in kept, False)
    desk.check("marks: the former drawing is kept", os.path.exists(desk.drawing + ".bak"), True)


WALKS = {"keyboard": by_keyboard, "marks": edit_marks}
