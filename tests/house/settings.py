# SPDX-License-Identifier: GPL-3.0-or-later
"""A setting is declared once: its name and its default text stand in the table of settings alone.

Whoever needs one asks the table for it: SettingNamed("…") doesn't compile for a name that isn't there.
"""
import re

from sources import files, read

TABLE = "src/settings/SettingTable.h"
ROW = re.compile(r'^    (?:\w+Setting\(|\{)"(\w+)",.*$', re.M)
TEXT = re.compile(r'"([^"]*)"')
ASKS = re.compile(r'(?:SettingNamed|DefaultSwitch|DefaultNumber|DefaultName|DefaultWhole)\("\w+"\)')
# Automation names that settings share, and the table of papers.
OTHERS = ("adapters/", "src/plotting/PaperTableRows.cpp")
# Words of error texts and tables that aren't settings.
SHORT = {"Text", "Viewports"}
# The help's examples name settings and give them values.
HELP = "apps/sheetmaker/commandline/CommandHelp.h"


def declared(table):
    """Names and default texts of the rows."""
    for row in ROW.finditer(table):
        yield from TEXT.findall(row.group(0).split("SettingUse::")[0])
        yield from TEXT.findall(row.group(0).partition("SettingUse::")[2])


def check_settings(source):
    texts = {text for text in declared(read(source, TABLE)) if text} - SHORT
    if len(texts) < 60:
        yield f"{TABLE}: only {len(texts)} names and texts were found; this check would prove nothing"
    for name in files(source, ["src", "apps"], (".h", ".cpp")):
        if name in (TABLE, HELP) or name.startswith(OTHERS):
            continue
        for number, line in enumerate(read(source, name).splitlines(), 1):
            for text in TEXT.findall(ASKS.sub("", line.split("//")[0])):
                if text in texts:
                    yield f'{name}:{number}: "{text}" stands in the table of settings; ask it'
