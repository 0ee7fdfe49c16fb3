# SPDX-License-Identifier: GPL-3.0-or-later
"""Walks round the settings dialog's own neighbours: layouts in the drawing window and beside the form, and the end of a run."""
import os
import subprocess

from dialog_user import TITLE, combo, drawing_window, end_of, tab, view_of
from pdf_tools import output_of, unsigned_fields, words
from screen import wait


def close_end(screen, button="Close"):
    """The window at the end, after it was looked at; gives its lines."""
    end = screen.window("Create PDF", "dialog")
    lines = [one.name for one in end.every() if one.role in ("label", "list item")]
    end.find("push button", button).click()
    screen.gone("Create PDF")
    return lines


def sheets_of(screen):
    return screen.window("Sheets")


def headline(screen, wanted):
    wait(lambda: any(one.name == wanted for one in sheets_of(screen).every()), wanted,
         lambda: [one.name for one in sheets_of(screen).every()])


def turn_tab(desk):
    """A tab that is turned while a point is picked is the current tab of the form, and of the PDF."""
    screen = desk.screen
    desk.shell("set", "PromptForFileName", "no")
    desk.shell("set", "OpenInViewer", "no")
    process = desk.start("settings", desk.drawing)
    headline(screen, "\"Current Tab\" is \"Model\".")
    dialog = screen.window(TITLE, "dialog")
    tab(dialog, "Text Stamp")
    combo(dialog, "Step 1: Text Stamp").choose("FOR REVIEW")
    dialog.find("push button", "Get Point >").click()
    window = drawing_window(screen)
    window.find("page tab", "A-102 Upper Floor").click()
    wait(lambda: "A-102 Upper Floor" in drawing_window(screen).name, "the layout's name in the title")
    x, y, width, height = view_of(drawing_window(screen)).box()
    screen.move(x + width * 0.4, y + height * 0.5)
    desk.picture("layout-tabs-walk")
    screen.press(x + width * 0.4, y + height * 0.5)
    dialog = screen.window(TITLE, "dialog")
    desk.check("a turned tab: the form has its layout", combo(dialog, "Step 3: Stamp Position").name, "A-102 Upper Floor")
    headline(screen, "\"Current Tab\" is \"A-102 Upper Floor\".")
    page_is(screen, "A page of 420 x 297 mm with 1 mark")
    desk.picture("sheets-beside")
    dialog.find("push button", "Create PDF").click()
    lines = close_end(screen)
    desk.check("a turned tab: exit code", end_of(process), 0)
    desk.check("a turned tab: the end is told", "house.pdf was made: 1 page." in lines, True)
    text = [word.text for word in words(desk.path(".pdf"))]
    desk.check("a turned tab: its sheet is plotted, with the stamp", ("A-102" in text, "REVIEW" in text), (True, True))


def choose_sheets(desk):
    """Some sheets of all, by box and by pattern."""
    screen = desk.screen
    desk.shell("set", "PromptForFileName", "no")
    desk.shell("set", "OpenInViewer", "no")
    process = desk.start("settings", desk.drawing)
    dialog = screen.window(TITLE, "dialog")
    dialog.find("radio button", "All Layout Tabs").click()
    headline(screen, "\"All Layout Tabs\": all 3 sheets become pages.")
    field = sheets_of(screen).find("text", "Tick sheets by name")
    field.click()
    screen.type("B*")
    screen.keys("Return")
    headline(screen, "The drawing has no layout \"B*\"; it has \"A-101 Ground Floor\", \"A-102 Upper Floor\", \"A-201 Section\".")
    screen.keys("ctrl+a")
    screen.type("A-1*")
    screen.keys("Return")
    headline(screen, "\"All Layout Tabs\": 2 of 3 sheets become pages.")
    desk.picture("sheets-some")
    dialog.find("push button", "Create PDF").click()
    lines = close_end(screen)
    desk.check("some sheets: exit code", end_of(process), 0)
    desk.check("some sheets: told", "house.pdf was made: 2 pages." in lines, True)
    text = output_of("pdftotext", desk.path(".pdf"), "-")
    desk.check("some sheets: those", [name in text for name in ("A-101", "A-102", "A-201")], [True, True, False])


def end_of_run(desk):
    """Cancel in the save box is no error, and what was stored before survives the next showing."""
    screen = desk.screen
    desk.shell("set", "OpenInViewer", "no")
    desk.shell("sign", desk.drawing, "add", "Checked", "--rect", "10,10,60,30", "--layout", "A-101 Ground Floor")
    desk.shell("set", "PromptForFileName", "yes")
    process = desk.start("settings", desk.drawing, "--layout", "A-101 Ground Floor")
    screen.window(TITLE, "alert").find("push button", "Cancel").click()
    desk.check("the end: nothing is shown after no word", end_of(process), 0)
    desk.shell("sign", desk.drawing, "remove", "Checked")
    process = desk.start("settings", desk.drawing, "--layout", "A-101 Ground Floor")
    add_field(screen, screen.window(TITLE, "dialog"), "Checked", "10", "60")
    screen.window(TITLE, "dialog").find("push button", "Create PDF").click()
    screen.window("Save PDF File")
    screen.keys("Escape")
    end = screen.window("Create PDF", "dialog")
    end.find("label", "No PDF was made: the choice of a file name was cancelled.")
    desk.picture("end-cancelled")
    end.find("push button", "Settings...").click()
    add_field(screen, screen.window(TITLE, "dialog"), "Approved", "70", "120")
    screen.window(TITLE, "dialog").find("push button", "Create PDF").click()
    screen.window("Save PDF File")
    screen.keys("Escape")
    screen.window("Create PDF", "dialog").find("push button", "Save PDF...").click()
    chosen = os.path.join(desk.folder, "chosen.pdf")
    screen.window("Save PDF File")
    screen.keys("ctrl+a")
    screen.type(chosen)
    screen.keys("Return")
    end = screen.window("Create PDF", "dialog")
    end.find("label", "chosen.pdf was made: 1 page.")
    desk.picture("end-made")
    end.find("push button", "View Log").click()
    log = screen.window("Conversion Log", "dialog")
    desk.check("the end: the log is shown", "PDF FILE SAVED" in log.find("text", "Conversion Log").text(), True)
    desk.picture("end-log")
    screen.keys("Escape")
    screen.gone("Conversion Log")
    screen.keys("Escape")
    desk.check("the end: exit code", end_of(process), 0)
    desk.check("the end: both fields are in the PDF", sorted(unsigned_fields(chosen)), ["Approved", "Checked"])
    desk.check("the end: both are stored", [name in desk.shell("sign", desk.drawing, "list") for name in ("Approved", "Checked")],
               [True, True])


def old_drawing(desk):
    """A drawing that can't hold entries: said before any is made, and they come into the PDF."""
    screen = desk.screen
    desk.shell("set", "PromptForFileName", "no")
    desk.shell("set", "OpenInViewer", "no")
    old = os.path.join(desk.folder, "old.dxf")
    with open(old, "w", encoding="ascii") as file:
        file.write("0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10\n0.0\n"
                   "20\n0.0\n11\n200.0\n21\n150.0\n0\nENDSEC\n0\nEOF\n")
    process = desk.start("settings", old)
    note = screen.window(TITLE, "alert")
    desk.picture("old-drawing")
    desk.check("an old drawing: said first", any("old.dxf.sheetmaker" in one.name for one in note.every()), True)
    note.find("push button", "OK").click()
    dialog = screen.window(TITLE, "dialog")
    tab(dialog, "Text Stamp")
    combo(dialog, "Step 1: Text Stamp").choose("FOR REVIEW")
    dialog.find("text", "X").write("20")
    dialog.find("text", "Y").write("20")
    dialog.find("push button", "Create PDF").click()
    close_end(screen)
    desk.check("an old drawing: exit code", end_of(process), 0)
    desk.check("an old drawing: the stamp is in the PDF", "REVIEW" in output_of("pdftotext", old[:-4] + ".pdf", "-"), True)
    desk.check("an old drawing: its files", sorted(name for name in os.listdir(desk.folder) if name.startswith("old")),
               ["old.dxf", "old.dxf.sheetmaker", "old.pdf"])


def page_is(screen, text):
    """Waits until the preview says so of itself."""
    def told():
        return [one.accessible.get_description() for one in sheets_of(screen).every() if one.name == "Preview"]
    wait(lambda: told() == [text], text, told)


def preview(desk):
    """The page beside the form follows what is changed in it, before anything is kept."""
    screen = desk.screen
    process = desk.start("settings", desk.drawing, "--layout", "A-101 Ground Floor")
    dialog = screen.window(TITLE, "dialog")

    page_is(screen, "A page of 420 x 297 mm with 0 marks")
    desk.picture("preview-native")
    tab(dialog, "PDF Page Setup")
    dialog.find("check box", "Use Custom PDF Page Setup").tick()
    combo(dialog, "Paper Size and Orientation").choose("ISO A4 (210.00 x 297.00 MM)")
    page_is(screen, "A page of 210 x 297 mm with 0 marks")
    dialog.find("radio button", "Extents").click()
    combo(dialog, "Plot Scale").choose("Scale to Fit")
    tab(dialog, "Text Stamp")
    combo(dialog, "Step 1: Text Stamp").choose("FOR REVIEW")
    page_is(screen, "A page of 210 x 297 mm with 1 mark")
    desk.picture("preview-custom")
    dialog.find("push button", "Cancel").click()
    desk.check("preview: exit code", end_of(process), 0)
    with open(desk.drawing, "rb") as file:
        desk.check("preview: the drawing is as it was", file.read() == desk.before, True)
    desk.check("preview: no other file came up", [name for name in os.listdir(desk.folder) if name.startswith("house.")], ["house.dxf"])
    desk.check("preview: the log has none of it", "A-101" in desk.shell("log"), False)


def slow_spline():
    """Of degree 20 with 60 control points: little to read, much to draw."""
    degree, count = 20, 60
    knots = [0] * degree + list(range(count - degree + 1)) + [count - degree] * degree
    return (f"0\nSPLINE\n8\n0\n70\n8\n71\n{degree}\n72\n{len(knots)}\n73\n{count}\n74\n0\n" + "".join(f"40\n{knot}\n" for knot in knots) +
            "".join(f"10\n{i * 37 % 997}\n20\n{i * 61 % 991}\n30\n0\n" for i in range(count)))


def cancel_sheet(desk):
    """Cancel while one large sheet is made: it ends at once, and the former PDF stays."""
    screen = desk.screen
    desk.shell("set", "PromptForFileName", "no")
    desk.shell("set", "OpenInViewer", "no")
    crowd = os.path.join(desk.folder, "crowd.dxf")
    with open(crowd, "w", encoding="ascii") as file:
        file.write("0\nSECTION\n2\nENTITIES\n")
        file.write(slow_spline() * 40000)  # some twenty seconds
        file.write("0\nENDSEC\n0\nEOF\n")
    with open(crowd[:-4] + ".pdf", "w", encoding="ascii") as file:
        file.write("the former one")
    process = desk.start("settings", crowd, "--layout", "Model")
    screen.window(TITLE, "alert").find("push button", "OK").click()
    screen.window(TITLE, "dialog").find("push button", "Create PDF").click()
    window = wait(lambda: numbers(screen, "Making PDF"), "the progress")[0]
    left, top, width, height = place_of(screen, window)
    screen.press(left + width - 40, top + height - 22)
    end = screen.window("Create PDF", "dialog")
    desk.check("cancel within a sheet: told", [one.name for one in end.every() if "cancelled" in one.name],
               ["No PDF was made: the conversion was cancelled."])
    screen.keys("Escape")
    desk.check("cancel within a sheet: exit code", end_of(process), 0)
    with open(crowd[:-4] + ".pdf", encoding="ascii", errors="replace") as file:
        desk.check("cancel within a sheet: the former PDF stays", file.read(), "the former one")


def numbers(screen, title):
    """Of windows on display: a program that is busy doesn't answer the screen reader."""
    return subprocess.run(["xdotool", "search", "--onlyvisible", "--name", title], env=screen.variables, capture_output=True,
                          text=True, check=False).stdout.split()


def place_of(screen, window):
    text = subprocess.run(["xdotool", "getwindowgeometry", "--shell", window], env=screen.variables, capture_output=True,
                          text=True, check=True).stdout
    values = dict(line.split("=") for line in text.split())
    return tuple(int(values[name]) for name in ("X", "Y", "WIDTH", "HEIGHT"))


def add_field(screen, dialog, name, left, right):
    tab(dialog, "Digital Signature Fields")
    dialog.find("push button", "Add").click()
    row = screen.window("Digital Signature Field", "dialog")
    row.find("text", "Title").write(name)
    for label, value in (("X1", left), ("Y1", "10"), ("X2", right), ("Y2", "30")):
        row.find("text", label).write(value)
    row.find("push button", "OK").click()
    screen.gone("Digital Signature Field")


WALKS = {"tabs": turn_tab, "sheets": choose_sheets, "end": end_of_run, "old": old_drawing, "preview": preview,
         "cancel_sheet": cancel_sheet}
