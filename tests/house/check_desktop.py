#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Proves that the desktop learns of the program and forgets it again: the menu entry, the MIME package and the icon are
valid for the tools of other makers, "Open with" finds the entry for DXF and DWG files, and --remove leaves none of our
files behind. Everything happens in a folder of its own.

    check_desktop.py [--source DIR]
"""
import argparse
import os
import shutil
import subprocess
import sys
import tempfile

TOOLS = ["desktop-file-validate", "update-desktop-database", "update-mime-database", "xmllint"]
TYPES = ["image/vnd.dxf", "image/vnd.dwg"]


def run(words, data):
    outcome = subprocess.run(words, capture_output=True, text=True, env={**os.environ, "XDG_DATA_HOME": data})
    return [f"{os.path.basename(words[0])}: {outcome.stdout}{outcome.stderr}".strip()] if outcome.returncode else []


def warned(words, data):
    """The tools that check print what they find, whatever their exit code."""
    outcome = subprocess.run(words, capture_output=True, text=True, env={**os.environ, "XDG_DATA_HOME": data})
    text = (outcome.stdout + outcome.stderr).strip()
    return [text] if text or outcome.returncode else []


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def check_installed(data, program):
    entry = os.path.join(data, "applications", "sheetmaker-pdf.desktop")
    mime = os.path.join(data, "mime", "packages", "sheetmaker-pdf.xml")
    icon = os.path.join(data, "icons", "hicolor", "scalable", "apps", "sheetmaker-pdf.svg")
    yield from warned(["desktop-file-validate", entry], data)
    yield from warned(["xmllint", "--noout", mime, icon], data)
    escaped = program.replace("$", "\\\\$").replace("%", "%%")
    for wanted in (f'Exec="{escaped}" settings %f\n', f'Exec="{escaped}" page-setup\n', "Icon=sheetmaker-pdf\n"):
        if wanted not in read(entry):
            yield f"the entry has no line {wanted}"
    cache = read(os.path.join(data, "applications", "mimeinfo.cache"))
    for kind in TYPES:
        if f"{kind}=sheetmaker-pdf.desktop;" not in cache:
            yield f"the entry is not offered for {kind}"
    globs = read(os.path.join(data, "mime", "globs"))
    for pattern in ("image/vnd.dxf:*.dxf", "image/vnd.dwg:*.dwg", "application/x-sheetmaker-records:*.dwg.sheetmaker"):
        if pattern not in globs:
            yield f"the MIME database lacks {pattern}"


def left_behind(data):
    for folder, _, names in os.walk(data):
        for name in names:
            if name.startswith("sheetmaker-pdf"):
                yield f"left behind: {os.path.join(folder, name)}"


def check(source, folder):
    data = os.path.join(folder, "data")
    os.makedirs(data)
    program = os.path.join(folder, "a $tree 100%", "sheetmaker")
    os.makedirs(os.path.dirname(program))
    shutil.copy("/bin/true", program)
    install = os.path.join(source, "packaging", "install-desktop")
    yield from run([install, program], data)
    yield from check_installed(data, program)
    yield from run([install, program], data)  # a second time does no harm
    yield from check_installed(data, program)
    yield from run([install, "--remove"], data)
    yield from left_behind(data)
    if not run([install, os.path.join(folder, "nothing")], data):
        yield "a program that isn't there was installed"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--source", default=os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))
    source = os.path.abspath(parser.parse_args().source)
    missing = [tool for tool in TOOLS if not shutil.which(tool)]
    if missing:
        print("skipped: not installed: " + ", ".join(missing))
        return 77
    with tempfile.TemporaryDirectory() as folder:
        findings = list(check(source, folder))
    print(*findings, sep="\n")
    print(f"desktop: {len(findings)} finding(s)")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
