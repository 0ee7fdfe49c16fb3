# SPDX-License-Identifier: GPL-3.0-or-later
"""A screen of its own for programs with windows: a virtual display, a session bus, and a user with a mouse and a keyboard
who finds the controls by what a screen reader says of them. Every click and every key goes through the display server.
"""
import os
import shutil
import signal
import struct
import subprocess
import time

NEEDED = ["Xvfb", "xdotool", "dbus-daemon"]
WAIT = 20  # seconds until something that was asked for must have come up


def missing():
    return [tool for tool in NEEDED if not shutil.which(tool)]


class Screen:
    """with Screen(folder, dpi=96) as screen: ..."""

    def __init__(self, folder, dpi=96, size="1700x1300", manager=None):
        """`manager`: the words that start a window manager; none: windows have no frames."""
        self.folder, self.size, self.manager = folder, size, manager
        self.processes, self.variables = [], {}
        self.use(dpi)

    def use(self, dpi):
        """Programs that are started from now on have fonts of that size."""
        self.dpi = dpi
        self.scale = dpi / 96  # the toolkit tells places in units of its own
        self.variables["QT_FONT_DPI"] = str(dpi)

    def __enter__(self):
        home = os.path.join(self.folder, "home")
        os.makedirs(home, exist_ok=True)
        frame = os.path.join(self.folder, "frame")
        os.makedirs(frame, exist_ok=True)
        reading, writing = os.pipe()
        self._start(["Xvfb", "-displayfd", str(writing), "-screen", "0", self.size + "x24", "-nolisten", "tcp", "-noreset",
                     "-fbdir", frame], pass_fds=[writing])
        os.close(writing)
        self.variables = self._places(home, os.fdopen(reading).readline().strip())
        bus = self._start(["dbus-daemon", "--session", "--nofork", "--print-address=1"], stdout=subprocess.PIPE,
                          env=self.variables)
        self.variables["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().decode().strip()
        self.frame = os.path.join(frame, "Xvfb_screen0")
        if self.manager:
            self._start(self.manager, env=self.variables)
            wait(lambda: "window id" in self.property("-root", "_NET_SUPPORTING_WM_CHECK"), "the window manager")
        self._listen()
        return self

    def _places(self, home, display):
        """Nothing is shared with another screen, the sockets of the screen readers' bus included."""
        runtime = os.path.join(self.folder, "run")
        os.makedirs(runtime, mode=0o700, exist_ok=True)
        variables = {
            **os.environ, "DISPLAY": ":" + display, "HOME": home, "XDG_CONFIG_HOME": home + "/config",
            "XDG_STATE_HOME": home + "/state", "XDG_CACHE_HOME": home + "/cache", "XDG_DATA_HOME": home + "/data",
            "XDG_RUNTIME_DIR": runtime, "TMPDIR": self.folder, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
            "QT_FONT_DPI": str(self.dpi), "LC_ALL": "C.UTF-8"}
        for name in ("WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_SCALE_FACTOR", "DBUS_SESSION_BUS_ADDRESS"):
            variables.pop(name, None)
        return variables

    def __exit__(self, *_):
        for process in reversed(self.processes):
            if process.poll() is None:
                process.send_signal(signal.SIGTERM)
                try:
                    process.wait(5)
                except subprocess.TimeoutExpired:
                    process.kill()

    def _start(self, words, **options):
        process = subprocess.Popen(words, stderr=subprocess.DEVNULL, **options)
        self.processes.append(process)
        return process

    def _listen(self):
        for name in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR", "XDG_CACHE_HOME"):
            os.environ[name] = self.variables[name]
        import gi
        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi
        self.atspi = Atspi
        Atspi.init()
        Atspi.get_desktop(0).get_child_count()  # starts the bus of the screen readers

    def run(self, words, **options):
        """Starts a program on this screen."""
        process = subprocess.Popen(words, env=self.variables, **options)
        self.processes.append(process)
        return process

    def picture(self, path, box=None):
        """What the whole screen shows, or a box of it (left, top, width, height), as a PNG."""
        from PIL import Image
        with open(self.frame, "rb") as file:
            data = file.read()
        head = struct.unpack(">25I", data[:100])
        size, width, height, stride, colors = head[0], head[4], head[5], head[12], head[19]
        start = size + 12 * colors
        image = Image.frombuffer("RGB", (width, height), data[start:], "raw", "BGRX", stride, 1)
        if box:
            image = image.crop((box[0], box[1], box[0] + box[2], box[1] + box[3]))
        image.save(path)

    def property(self, *words):
        """Of a window, as the window manager is told it."""
        return subprocess.run(["xprop", *words], env=self.variables, capture_output=True, text=True, check=False).stdout

    def keys(self, *names):
        subprocess.run(["xdotool", "key", "--clearmodifiers", "--delay", "20", *names], env=self.variables, check=True)
        time.sleep(0.05)

    def type(self, text):
        subprocess.run(["xdotool", "type", "--delay", "8", "--", text], env=self.variables, check=True)
        time.sleep(0.05)

    def press(self, x, y, times=1, button=1):
        subprocess.run(["xdotool", "mousemove", str(int(x)), str(int(y)), "sleep", "0.05", "click", "--repeat", str(times),
                        "--delay", "60", str(button)], env=self.variables, check=True)
        time.sleep(0.1)

    def move(self, x, y):
        subprocess.run(["xdotool", "mousemove", str(int(x)), str(int(y))], env=self.variables, check=True)
        time.sleep(0.1)

    def windows(self):
        """The windows that are up, the last one in front, as Nodes."""
        desktop = self.atspi.get_desktop(0)
        desktop.clear_cache()
        found = []
        for application in children(desktop):
            found += [Node(self, one) for one in children(application)]
        return [one for one in found if one.showing()]

    def window(self, title, role=None):
        """Waits for a window."""
        def look():
            fitting = [one for one in self.windows() if title in one.name and role in (None, one.role)]
            return fitting[-1] if fitting else None
        return wait(look, f"the window \"{title}\"", lambda: [str(one) for one in self.windows()])

    def gone(self, title):
        wait(lambda: not [one for one in self.windows() if title in one.name], f"the end of the window \"{title}\"")


def wait(look, what, state=lambda: ""):
    deadline = time.monotonic() + WAIT
    while True:
        found = quietly(look)
        if found:
            return found
        if time.monotonic() > deadline:
            raise AssertionError(f"waited {WAIT} s for {what}; there is {state()}")
        time.sleep(0.05)


def quietly(look):
    """What goes away while it is looked at counts as not there."""
    import gi.repository.GLib
    try:
        return look()
    except gi.repository.GLib.Error:
        return None


def children(accessible):
    return [one for one in (accessible.get_child_at_index(i) for i in range(accessible.get_child_count())) if one]


class Node:
    """A control, or a window, as a screen reader knows it."""

    def __init__(self, screen, accessible):
        self.screen, self.accessible = screen, accessible
        self.role, self.name = accessible.get_role_name(), accessible.get_name()

    def __str__(self):
        return f"{self.role} \"{self.name}\""

    def has(self, state):
        return self.accessible.get_state_set().contains(getattr(self.screen.atspi.StateType, state))

    def showing(self):
        return self.has("SHOWING")

    def box(self):
        extents = self.accessible.get_extents(self.screen.atspi.CoordType.SCREEN)
        return tuple(side * self.screen.scale for side in (extents.x, extents.y, extents.width, extents.height))

    def every(self):
        """All that is on display in it, in the order of the window."""
        for child in children(self.accessible):
            node = Node(self.screen, child)
            if node.showing():
                yield node
                yield from node.every()

    def find(self, role, name, index=0):
        """Waits for a control on display; `index` counts those of the same name from the top."""
        def look():
            self.accessible.clear_cache()
            fitting = [one for one in self.every() if one.role == role and one.name == name]
            return fitting[index] if len(fitting) > index else None
        return wait(look, f"{role} \"{name}\" in {self}",
                    lambda: sorted({str(one) for one in self.every()}))

    def click(self, times=1):
        x, y, width, height = self.box()
        assert width > 0 and height > 0, f"{self} has no place on the screen"
        assert self.has("ENABLED"), f"{self} can't be reached"
        self.screen.press(x + width / 2, y + height / 2, times)

    def tick(self, wanted=True):
        if self.has("CHECKED") != wanted:
            box = self.box()
            self.screen.press(box[0] + 8 * self.screen.scale, box[1] + box[3] / 2)
            wait(lambda: (self.accessible.clear_cache() or self.has("CHECKED") == wanted), f"{self} to change")

    def write(self, text):
        """Puts a text in place of what the field holds, and leaves the field."""
        self.click(times=3)
        self.screen.keys("ctrl+a")
        self.screen.type(text)
        self.screen.keys("Tab")

    def text(self):
        self.accessible.clear_cache()
        return self.accessible.get_text_iface().get_text(0, -1) if self.accessible.get_text_iface() else self.name

    def choose(self, item):
        """An entry of a drop-down list, with the keyboard."""
        self.click()
        time.sleep(0.2)
        self.screen.keys("Home")
        for child in children(children(self.accessible)[0]):
            if child.get_name() == item:
                break
            self.screen.keys("Down")
        else:
            raise AssertionError(f"{self} has no entry \"{item}\"")
        self.screen.keys("Return")
