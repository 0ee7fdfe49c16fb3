#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""What the windows take of memory with a drawing: the settings dialog with all that stands beside it, then a pick.

    memory.py DRAWING PROGRAM...     of each program in turn: MiB at most with the dialog, and with the drawing window

Needs Xvfb, xdotool and a session bus. Another program may be an earlier one: what it doesn't have is not waited for.
"""
import os
import shutil
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "tests", "acceptance"))
import screen as screens  # noqa: E402
from dialog_user import TITLE, combo, drawing_window, tab  # noqa: E402

REST = 0.5  # seconds without work, after which the program has done what it was to do


def figures(pid):
    """MiB at most, and the processor's ticks so far."""
    with open(f"/proc/{pid}/status", encoding="ascii", errors="replace") as file:
        most = next(int(line.split()[1]) for line in file if line.startswith("VmHWM"))
    with open(f"/proc/{pid}/stat", encoding="ascii", errors="replace") as file:
        fields = file.read().rsplit(")", 1)[1].split()
    return most / 1024, int(fields[11]) + int(fields[12])


def at_rest(pid):
    since, last = time.monotonic(), -1
    while time.monotonic() - since < REST:
        most, ticks = figures(pid)
        if ticks != last:
            since, last = time.monotonic(), ticks
        time.sleep(0.05)
    return most


def measure(program, drawing):
    with tempfile.TemporaryDirectory() as folder, screens.Screen(folder) as screen:
        path = os.path.join(folder, "crowd.dxf")
        shutil.copy(drawing, path)
        process = screen.run([program, "settings", path])
        for _ in range(2):  # a drawing that can't hold entries is told of first
            window = screens.wait(lambda: next((one for one in screen.windows() if one.name == TITLE), None), "a window")
            if window.role != "alert":
                break
            window.find("push button", "OK").click()
            screens.wait(lambda: not [one for one in screen.windows() if one.role == "alert"], "the note to go away")
        dialog = screen.window(TITLE, "dialog")
        with_dialog = at_rest(process.pid)
        tab(dialog, "Text Stamp")
        combo(dialog, "Step 1: Text Stamp").choose("FOR REVIEW")
        dialog.find("push button", "Get Point >").click()
        drawing_window(screen)
        with_pick = at_rest(process.pid)
        print(f"{program}: {with_dialog:.0f} MiB with the dialog, {with_pick:.0f} with the drawing window", flush=True)


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    if len(sys.argv) == 3:
        return measure(os.path.abspath(sys.argv[2]), sys.argv[1])
    for program in sys.argv[2:]:  # the screen reader's library knows one bus a process
        subprocess.run([sys.executable, __file__, sys.argv[1], program], check=True)


if __name__ == "__main__":
    main()
