# SPDX-License-Identifier: GPL-3.0-or-later
"""The program of this machine and that of Windows, run alike: the same fonts, the same date, settings of their own."""
import os
import subprocess

HERE = os.path.dirname(os.path.abspath(__file__))
RUN_WINE = os.path.join(HERE, "..", "run-wine")
FONTS = {"system": "/usr/share/fonts", "strokes": "/usr/share/librecad/fonts"}
ENVIRONMENT = {"LC_ALL": "C.UTF-8", "SOURCE_DATE_EPOCH": "1700000000", "TZ": "UTC"}


class Program:
    def __init__(self, command, environment):
        self.command = command
        self.environment = {**os.environ, **ENVIRONMENT, **environment}

    def run(self, *words, folder=None, timeout=600, **more):
        """The finished run, its output as text."""
        more = {"text": True, "encoding": "utf-8", "errors": "replace", "stdin": subprocess.DEVNULL, **more}
        return subprocess.run([*self.command, *words], cwd=folder, env=self.environment, capture_output=True,
                              timeout=timeout, **more)


def linux_program(program, folder):
    """Its settings and logs lie in `folder`. It finds no other program (Ghostscript, node), as Windows has none."""
    places = {"PATH": os.path.join(folder, "bin")}
    places |= {name: os.path.join(folder, name.lower()) for name in ("HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME")}
    return Program([os.path.abspath(program)], places)


def windows_program(program, folder):
    """Under Wine in a prefix of its own, made in `folder`; its font folder holds this machine's fonts."""
    run = Program([RUN_WINE, folder, os.path.abspath(program)], {})
    made = run.run("--version")
    if made.returncode != 0:
        raise SystemExit(f"the program doesn't start: {made.stdout}{made.stderr}")
    forget = Program([RUN_WINE, folder, "reg", "delete", "HKCU\\Software\\Tarnwick Software", "/f"], {})
    forget.run()  # what an earlier run of the tests has stored
    fonts = os.path.join(folder, "prefix", "drive_c", "windows", "Fonts")
    for name, target in FONTS.items():
        link = os.path.join(fonts, name)
        if os.path.isdir(target) and not os.path.islink(link):
            os.symlink(target, link)
    return run


def user_folder(folder, *parts):
    """A place in the Windows user's profile, as this machine sees it."""
    users = os.path.join(folder, "prefix", "drive_c", "users")
    user = next(name for name in sorted(os.listdir(users)) if name != "Public")
    return os.path.join(users, user, *parts)
