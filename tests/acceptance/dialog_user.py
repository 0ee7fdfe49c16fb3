# SPDX-License-Identifier: GPL-3.0-or-later
"""What a user does in the settings dialog, step by step, with mouse and keyboard on a screen of its own."""
import os
import time

from screen import wait

TITLE = "Tarnwick Sheetmaker PDF"
LAYOUT = "A-101 Ground Floor"


def tab(dialog, name):
    dialog.find("page tab", name).click()
    wait(lambda: dialog.find("page tab", name).has("FOCUSED"), f"the tab {name}")


def combo(dialog, panel, index=0):
    """The drop-down lists have their entry for a name: found by the frame they stand in."""
    frame = dialog.find("panel", panel)
    return [one for one in frame.every() if one.role == "combo box" and one.showing()][index]


def pick(screen, prompt, places):
    """Clicks in the drawing window, at parts of the view's width and height; the prompts come one after the other."""
    window = drawing_window(screen)
    for text, place in zip(prompt, places):
        window.find("label", text)
        x, y, width, height = view_of(window).box()
        at = x + width * place[0], y + height * place[1]
        screen.move(at[0] - 9, at[1] - 7)
        screen.move(*at)
        screen.press(*at)


def drawing_window(screen):
    def look():
        found = [one for one in screen.windows() if any(child.name == "Drawing" for child in one.every())]
        return found[-1] if found else None
    return wait(look, "the drawing window", lambda: [str(one) for one in screen.windows()])


def view_of(window):
    return next(one for one in window.every() if one.name == "Drawing")


def set_general(dialog):
    dialog.find("radio button", "Draft").click()
    dialog.find("check box", "Prompt For File Name").tick(False)
    dialog.find("check box", "View Results in PDF Reader").tick(False)
    dialog.find("check box", "Text").tick()
    combo(dialog, "Raster Image Quality").choose("Graphics with layers [600 dpi]")


def set_block_attributes(screen, dialog, again):
    dialog.find("check box", "Transfer Block Attribute Data").click()
    reminder = screen.window(TITLE, "alert")
    reminder.find("push button", "Yes" if again else "No").click()
    wait(lambda: not [one for one in screen.windows() if one.role == "alert"], "the reminder to go away")


def set_page_setup(screen, dialog):
    tab(dialog, "PDF Page Setup")
    dialog.find("check box", "Use Custom PDF Page Setup").tick()
    combo(dialog, "Paper Size and Orientation").choose("ISO A4 (297.00 x 210.00 MM)")
    dialog.find("push button", "Window >").click()
    pick(screen, ["Enter First Corner: ", "Enter Other Corner: "], [(0.3, 0.7), (0.7, 0.3)])
    dialog = screen.window(TITLE, "dialog")
    wait(lambda: dialog.find("radio button", "Window").has("CHECKED"), "the plot area to be the window")
    return dialog


def set_stamp(screen, dialog):
    tab(dialog, "Text Stamp")
    combo(dialog, "Step 1: Text Stamp").choose("FOR REVIEW")
    combo(dialog, "Step 2: Font Settings", 1).choose("36")
    dialog.find("push button", "Get Point >").click()
    pick(screen, ["Enter a point: "], [(0.4, 0.5)])
    dialog = screen.window(TITLE, "dialog")
    assert float(dialog.find("text", "X").text()) > 0 and float(dialog.find("text", "Y").text()) > 0
    return dialog


def add_attachment(screen, dialog, path):
    tab(dialog, "File Attachments")
    dialog.find("push button", "Add").click()
    row = screen.window("File Attachment", "dialog")
    row.find("text", "File Name").write(path)
    row.find("push button", "Get Point >").click()
    pick(screen, ["Enter a point: "], [(0.6, 0.5)])
    row = screen.window("File Attachment", "dialog")
    row.find("push button", "OK").click()
    screen.gone("File Attachment")
    dialog = screen.window(TITLE, "dialog")
    dialog.find("table cell", os.path.basename(path))
    return dialog


def add_signature(screen, dialog, name):
    tab(dialog, "Digital Signature Fields")
    dialog.find("push button", "Add").click()
    row = screen.window("Digital Signature Field", "dialog")
    row.find("text", "Title").write(name)
    row.find("text", "Description").write("Signed by the engineer")
    row.find("push button", "Get Rect >").click()
    pick(screen, ["Enter First Corner: ", "Enter Other Corner: "], [(0.35, 0.62), (0.45, 0.55)])
    row = screen.window("Digital Signature Field", "dialog")
    row.find("push button", "OK").click()
    screen.gone("Digital Signature Field")
    dialog = screen.window(TITLE, "dialog")
    dialog.find("table cell", name)
    return dialog


def change_everything(screen, attachment):
    """Something on each tab; gives the dialog as it stands then."""
    dialog = screen.window(TITLE, "dialog")
    set_general(dialog)
    dialog = set_page_setup(screen, dialog)
    dialog = set_stamp(screen, dialog)
    dialog = add_attachment(screen, dialog, attachment)
    return add_signature(screen, dialog, "Approval")


def end_of(process, seconds=60):
    deadline = time.monotonic() + seconds
    while process.poll() is None and time.monotonic() < deadline:
        time.sleep(0.1)
    assert process.poll() is not None, "the program is still running"
    return process.returncode
