#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Proves that the help has a place for each help context that the program uses, and none for any other: an anchor
"c<number>" in index.html and a page in topics/ that leads there; that links inside the page lead somewhere; and that
the page names each caption of the forms.

    check_help.py [--source DIR]
"""
import argparse
import glob
import html
import os
import re
import sys

USES = [re.compile(r"constexpr std::int32_t kHelp\w+ = (\d+);"), re.compile(r"MessageIcon::\w+,\s*(\d+)\b")]
# Captions that nobody needs to look up, or that stand in the page in other words.
PLAIN = {"", "Font:", "Size:", "Justify:", "Color:", "X:", "Y:", "Inches", "Drawing Units", "Name:", "Custom:", "Step 1: Text Stamp",
         "Status: Scanning for Hyperlinks and File Attributes", "Layout/ Limits", "Step 2: Font Settings", "Insert:",
         "Limits", "Millimeters", "Pixels", "Native"}
CAPTION = re.compile(r'(?:ControlRow|Governed|Stamped)\((?:ControlKind::)?(?:CheckBox|OptionButton|CommandButton),\s*'
                     r'"\w+",\s*(?:onItsOwn \? "[^"]*" : )?"([^"]*)"')
SETTING = re.compile(r'SwitchSetting\("\w+",\s*SettingUse::\w+,\s*(?:true|false),\s*"([^"]+)"\)')
NAMED = re.compile(r'\{k\w+, "([^"]+)"\}')
PAGES = re.compile(r'ControlRow\((?:ControlKind::)?TabPage,\s*"\w+",\s*"([^"]*)"')


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def sources(root):
    for folder in ("src", "adapters", "apps"):
        for ending in ("cpp", "h"):
            yield from glob.glob(os.path.join(root, folder, "**", "*." + ending), recursive=True)


def contexts_used(root):
    used = set()
    for path in sources(root):
        for pattern in USES:
            used.update(pattern.findall(read(path)))
    return used


def check_contexts(used, page, topics):
    anchors = set(re.findall(r'id="c(\d+)"', page))
    pages = {os.path.basename(path)[1:-5]: read(path) for path in glob.glob(os.path.join(topics, "c*.html"))}
    for number in sorted(used - anchors, key=int):
        yield f"index.html: no anchor c{number}, which the program uses"
    for number in sorted(anchors - used, key=int):
        yield f"index.html: anchor c{number} is never used"
    for number in sorted(used ^ set(pages), key=int):
        yield f"topics: c{number}.html is missing or never used"
    for number, text in pages.items():
        if f"url=../index.html#c{number}\"" not in text:
            yield f"topics/c{number}.html: leads elsewhere"


def check_links(page):
    anchors = re.findall(r'id="([^"]+)"', page)
    for name in {one for one in anchors if anchors.count(one) > 1}:
        yield f"index.html: two anchors {name}"
    for target in re.findall(r'href="([^"]+)"', page):
        if not target.startswith("#") or target[1:] not in anchors:
            yield f"index.html: the link {target} leads nowhere inside the page"


def captions(root):
    found = set()
    for path in glob.glob(os.path.join(root, "src", "ui", "**", "*.cpp"), recursive=True):
        text = read(path)
        found.update(CAPTION.findall(text))
        found.update(PAGES.findall(text))
    found.update(SETTING.findall(read(os.path.join(root, "src", "settings", "SettingTable.h"))))
    found.update(NAMED.findall(read(os.path.join(root, "src", "ports", "PlotNumbers.h"))))
    return {one.replace("&", "") for one in found} - PLAIN


def check_captions(root, page):
    shown = html.unescape(re.sub(r"<[^>]+>", " ", page)).replace("…", "...")
    shown = re.sub(r"\s+", " ", shown)
    for caption in sorted(captions(root)):
        if caption not in shown:
            yield f'index.html: nothing is said of "{caption}"'


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--source", default=os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))
    root = os.path.abspath(parser.parse_args().source)
    folder = os.path.join(root, "share", "sheetmaker-pdf", "help")
    page = read(os.path.join(folder, "index.html"))
    used = contexts_used(root)
    if len(used) < 20 or len(captions(root)) < 40:
        sys.exit("check_help: the code no longer looks as expected; this check would prove nothing")
    findings = [*check_contexts(used, page, os.path.join(folder, "topics")), *check_links(page),
                *check_captions(root, page)]
    print(*findings, sep="\n")
    print(f"help: {len(used)} contexts, {len(captions(root))} captions, {len(findings)} finding(s)")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
