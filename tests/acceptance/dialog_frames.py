#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Shows the windows under a window manager, on a screen of the size given, with small, middle and large fonts.

    dialog_frames.py PROGRAM SAMPLES OUTPUT WIDTHxHEIGHT

Each window must lie on the screen with its frame, and its buttons in view; the window that comes up has the keyboard and
stands in front of the one that it belongs to; the frame's button closes it as Cancel does. Pictures of the whole screen go
to OUTPUT. Prints a line a check and "N passed, M failed" at the end; exit code 77 without a window manager.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import screen as screens  # noqa: E402
from dialog_user import LAYOUT, TITLE, combo, drawing_window, end_of, tab, view_of  # noqa: E402
from dialog_walks import Desk, read  # noqa: E402
from screen import wait  # noqa: E402

MANAGER = ["openbox", "--sm-disable"]
NEEDED = ["openbox", "xprop"]
FONTS = (96, 120, 192)
TABS = ("General Settings", "PDF Page Setup", "Text Stamp", "File Attachments", "Digital Signature Fields")
BUTTONS = {"OK", "Cancel", "Help", "Create PDF"}


class Frames:
    """The windows as the window manager has them: by number, from the rearmost to the one in front."""

    def __init__(self, desk):
        self.desk, self.screen = desk, desk.screen
        self.width, self.height = (int(side) for side in self.screen.size.split("x"))

    def stack(self):
        return re.findall(r"0x[0-9a-f]+", self.screen.property("-root", "_NET_CLIENT_LIST_STACKING"))

    def name(self, window):
        found = re.search(r'_NET_WM_NAME[^=]*= "(.*)"', self.screen.property("-id", window, "_NET_WM_NAME"))
        return found.group(1).encode("latin-1", "ignore").decode("utf-8", "ignore") if found else ""

    def active(self):
        found = re.findall(r"0x[0-9a-f]+", self.screen.property("-root", "_NET_ACTIVE_WINDOW"))
        return found[0] if found else ""

    def find(self, title):
        """The window in front of that title."""
        return wait(lambda: next((one for one in reversed(self.stack()) if title in self.name(one)), None),
                    f"the frame of \"{title}\"", lambda: [self.name(one) for one in self.stack()])

    def box(self, window):
        """Left, top, right and bottom of the frame, and how high its title is."""
        text = subprocess.run(["xwininfo", "-id", window], env=self.screen.variables, capture_output=True, text=True,
                              check=True).stdout
        at = {key: int(value) for key, value in re.findall(r"(Absolute upper-left [XY]|Width|Height): +(-?\d+)", text)}
        x, y = at["Absolute upper-left X"], at["Absolute upper-left Y"]
        edges = re.search(r"= (\d+), (\d+), (\d+), (\d+)", self.screen.property("-id", window, "_NET_FRAME_EXTENTS"))
        left, right, top, bottom = (int(one) for one in edges.groups()) if edges else (0, 0, 0, 0)
        return (x - left, y - top, x + at["Width"] + right, y + at["Height"] + bottom), top

    def close(self, title):
        """Presses the frame's last button."""
        (_, top, right, _), height = self.box(self.find(title))
        self.screen.press(right - height * 0.6, top + height * 0.55)

    def keep(self, title, name, buttons=()):
        """Checks the window's place, its buttons and its rank, and keeps a picture of the screen."""
        window = self.find(title)
        wait(lambda: self.active() == window, f"\"{title}\" to have the keyboard", lambda: self.name(self.active()))
        time.sleep(0.15)
        name = f"{name}-{self.screen.dpi}dpi-{self.screen.size}"
        box, _ = self.box(window)
        within = box[0] >= 0 and box[1] >= 0 and box[2] <= self.width and box[3] <= self.height
        self.desk.check(f"{name}: the window and its frame lie on the screen", within or box, True)
        node = self.screen.window(title)
        missing = {one.name for one in node.every() if one.name in buttons and one.role == "push button" and
                   not lies_in(one.box(), box)}
        missing |= set(buttons) - {one.name for one in node.every()}
        self.desk.check(f"{name}: its buttons are in view", missing, set())
        self.desk.picture("frames-" + name)


def sheets_beside(frames):
    """The list lies beside the form where there is room for both, and stays away elsewhere."""
    time.sleep(0.5)  # it finds its place once the form has its frame
    form, _ = frames.box(frames.find(TITLE))
    for window in frames.stack():
        if frames.name(window) == "Sheets":
            box, _ = frames.box(window)
            beside = form[2] <= box[0] and box[2] <= frames.width and 0 <= box[1] and box[3] <= frames.height
            frames.desk.check(f"{frames.screen.dpi} dpi: the list of sheets lies beside the form", beside or (form, box), True)
            return
    room = frames.width - (form[2] - form[0])
    frames.desk.check(f"{frames.screen.dpi} dpi: the list of sheets has no room", room < 500 * frames.screen.scale, True)


def lies_in(box, frame):
    left, top, width, height = box
    return width > 0 and left >= frame[0] and top >= frame[1] and left + width <= frame[2] and top + height <= frame[3]


def show_form(frames):
    desk, screen = frames.desk, frames.screen
    process = desk.start("settings", desk.drawing, "--layout", LAYOUT)
    dialog = screen.window(TITLE, "dialog")
    sheets_beside(frames)
    for name in TABS:
        turn_to(frames, dialog, name)
        frames.keep(TITLE, name.lower().replace(" ", "-"), BUTTONS)
    for _ in TABS[3:]:
        screen.keys("Left")
    combo(dialog, "Step 1: Text Stamp").choose("FOR REVIEW")
    press_by_key(screen, dialog.find("push button", "Get Point >"))
    drawing_window(screen).find("label", "Enter a point: ")
    frames.keep("house.dxf", "drawing-window", {"Zoom In", "Zoom Out"})
    frames.close("house.dxf")
    screen.window(TITLE, "dialog")
    frames.close(TITLE)
    desk.check(f"{screen.dpi} dpi: the frame's button ends the dialog", end_of(process), 0)


def turn_to(frames, dialog, name):
    """By key where the tab lies beyond the part of the form that the screen has room for."""
    left, _, width, _ = dialog.find("page tab", name).box()
    if left + width / 2 < frames.width - 60:
        return tab(dialog, name)
    frames.screen.keys("Right")
    wait(lambda: dialog.find("page tab", name).has("FOCUSED"), f"the tab {name}")


def press_by_key(screen, button):
    """Tab brings what lies outside of the view into it."""
    for _ in range(30):
        button.accessible.clear_cache()
        if button.has("FOCUSED"):
            break
        screen.keys("Tab")
    left, top, width, height = button.box()
    across, down = (int(side) for side in screen.size.split("x"))
    assert 0 <= left and 0 <= top and left + width <= across and top + height <= down, f"{button} is out of view"
    screen.keys("space")


def show_rows(frames):
    """A form of a row over the form, then Sheets, which a click on the form leaves in front."""
    desk, screen = frames.desk, frames.screen
    process = desk.start("settings", desk.drawing, "--layout", LAYOUT)
    dialog = screen.window(TITLE, "dialog")
    tab(dialog, "Digital Signature Fields")
    dialog.find("push button", "Add").click()
    frames.keep("Digital Signature Field", "row", {"OK", "Cancel"})
    stays_in_front(frames, "Digital Signature Field", TITLE)
    frames.close("Digital Signature Field")
    screen.gone("Digital Signature Field")
    wait(lambda: frames.name(frames.active()) == TITLE, "the form to have the keyboard again")
    screen.window(TITLE, "dialog").find("push button", "Cancel").click()
    desk.check("rows: exit code", end_of(process), 0)


def stays_in_front(frames, upper, lower):
    """A press on the window below changes nothing."""
    (left, top, right, _), height = frames.box(frames.find(lower))
    frames.screen.press((left + right) / 2, top + height / 2)
    order = [frames.name(one) for one in frames.stack()]
    rank = {title: max(place for place, name in enumerate(order) if title in name) for title in (upper, lower)}
    frames.desk.check(f"\"{upper}\" stays in front of \"{lower}\"", rank[upper] > rank[lower] or order, True)


def show_marks(frames):
    """A form over the drawing window, and both closed by their frames."""
    desk, screen = frames.desk, frames.screen
    desk.shell("sign", desk.drawing, "add", "Checked", "--rect", "10,10,210,140", "--layout", LAYOUT)
    before = read(desk.drawing)
    process = desk.start("settings", desk.drawing, "--layout", LAYOUT)
    screen.window(TITLE, "alert").find("push button", "OK").click()
    screen.window(TITLE, "dialog")
    time.sleep(0.5)  # the list finds its place once the form has its frame
    if not [one for one in screen.windows() if one.name == "Sheets"]:
        screen.keys("F6")
    screen.window("Sheets").find("push button", "Edit Marks...").click()
    drawing_window(screen).find("combo box", "Marks")
    time.sleep(0.5)
    x, y, width, height = view_of(drawing_window(screen)).box()
    screen.press(x + width * 0.3, y + height * 0.75, times=2)
    frames.keep("Edit Mark", "edit-mark", {"OK", "Cancel"})
    stays_in_front(frames, "Edit Mark", "house.dxf")
    frames.close("Edit Mark")
    screen.gone("Edit Mark")
    wait(lambda: "house.dxf" in frames.name(frames.active()), "the drawing window to have the keyboard again")
    frames.close("house.dxf")
    screen.window(TITLE, "alert").find("push button", "OK").click()
    screen.window(TITLE, "dialog")
    frames.close(TITLE)
    desk.check("marks: exit code", end_of(process), 0)
    desk.check("marks: the drawing is as it was", read(desk.drawing) == before, True)


def main():
    program, samples, output = map(os.path.abspath, sys.argv[1:4])
    lacking = screens.missing() + [tool for tool in NEEDED if not shutil.which(tool)]
    if lacking:
        print("skipped: not installed: " + ", ".join(lacking))
        return 77
    os.makedirs(output, exist_ok=True)
    with tempfile.TemporaryDirectory() as folder, screens.Screen(folder, size=sys.argv[4], manager=MANAGER) as screen:
        desk = Desk(program, os.path.join(samples, "house.dxf"), screen, output)
        frames = Frames(desk)
        parts = [(show_form, dpi) for dpi in FONTS] + [(show_rows, 96), (show_marks, 96)]
        for part, dpi in parts:
            screen.use(dpi)
            try:
                part(frames)
            except (AssertionError, OSError, subprocess.SubprocessError) as error:
                desk.picture(f"failed-{part.__name__}-{dpi}")
                desk.check(f"{part.__name__} at {dpi} dpi came to its end ({error}); said was {desk.has_said()!r}", False, True)
                break
        print(f"{desk.passed} passed, {desk.failed} failed")
        return 1 if desk.failed else 0


if __name__ == "__main__":
    sys.exit(main())
