# SPDX-License-Identifier: GPL-3.0-or-later
"""Files dragged with the mouse out of another program's window, and dropped on ours."""
import os
import shutil

from dialog_keys import drag
from dialog_sheets import sheets_of
from dialog_user import LAYOUT, TITLE, end_of, tab
from screen import wait

SOURCE = "SM_DRAG_SOURCE"  # the environment's name for the program that has the files
PLACE = (1400, 1150)


def drag_out(desk, files, target):
    """Ends at the middle of a control or window."""
    screen = desk.screen
    assert SOURCE in os.environ, f"{SOURCE} must name the program that files are dragged out of"
    source = screen.run([os.environ[SOURCE], ",".join(map(str, PLACE)), *files])
    screen.window("Files")
    x, y, width, height = target.box()
    drag(screen, (PLACE[0] + 60, PLACE[1] + 30), (x + width / 2, y + height / 2))
    return source


def drop_files(desk):
    screen = desk.screen
    process = desk.start("settings", desk.drawing, "--layout", LAYOUT)
    dialog = screen.window(TITLE, "dialog")
    tab(dialog, "File Attachments")
    other = os.path.join(desk.folder, "second.txt")
    shutil.copy(desk.notes, other)
    table = wait(lambda: next((one for one in dialog.every() if one.role in ("table", "tree", "tree table", "list")), None),
                 "the list of attachments", lambda: [str(one) for one in dialog.every()])
    source = drag_out(desk, [desk.notes, other], table)
    for name in (desk.notes, other):
        row = screen.window("File Attachment", "dialog")
        wait(lambda: row.find("text", "File Name").text() == name, f"the row of {name}",
             lambda: row.find("text", "File Name").text())
        row.find("push button", "OK").click()
    screen.gone("File Attachment")
    dialog = screen.window(TITLE, "dialog")
    desk.check("dropped files are rows", [one.name for one in dialog.every() if one.name in ("notes.txt", "second.txt")],
               ["notes.txt", "second.txt"])
    desk.picture("dropped-files")
    source.terminate()
    source.wait()
    drop_drawing(desk, dialog)
    desk.check("dropped: exit code", end_of(process), 0)


def drop_drawing(desk, dialog):
    """A drawing is opened once the user has said that what was entered may go."""
    screen = desk.screen
    site = os.path.join(desk.folder, "site.dxf")
    shutil.copy(os.path.join(os.path.dirname(desk.sample), "site.dxf"), site)
    source = drag_out(desk, [site], dialog.find("push button", "Help"))
    screen.window(TITLE, "alert").find("push button", "OK").click()
    wait(lambda: any("Site" in one.name for one in sheets_of(screen).every()), "the other drawing's sheets")
    desk.picture("dropped-drawing")
    source.terminate()
    screen.window(TITLE, "dialog").find("push button", "Cancel").click()


WALKS = {"drops": drop_files}
