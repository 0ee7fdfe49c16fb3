#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes the help of Windows: that of Linux with some sections exchanged, and others added.

    make_help.py INDEX PAGES          writes the help to standard output

A section of PAGES stands in place of the one of INDEX that has its id; one with data-after is added behind the section
that it names, and the list of contents gets a line for it. The lines of both have the section's heading. Ends with an error where no section has
such an id.
"""
import re
import sys

SECTION = re.compile(r'<section id="([^"]+)"(?: data-after="([^"]+)")?>\n.*?</section>\n', re.DOTALL)
HEADING = re.compile(r"<h[23]>(.*?)</h[23]>")


def place_of(page, section):
    found = re.search(rf'<section id="{re.escape(section)}">\n.*?</section>\n', page, re.DOTALL)
    if found is None:
        sys.exit(f'the help has no section "{section}"')
    return found


def contents_entry(section):
    return re.compile(rf'<li><a href="#{re.escape(section)}">.*?</li>\n')


def line_for(section, text):
    return f'<li><a href="#{section}">{HEADING.search(text)[1]}</a></li>\n'


def added(page, section, after, text):
    end = place_of(page, after).end()
    page = page[:end] + "\n" + text + page[end:]
    at = contents_entry(after).search(page).end()
    return page[:at] + line_for(section, text) + page[at:]


def exchanged(page, section, text):
    found = place_of(page, section)
    page = page[:found.start()] + text + page[found.end():]
    return contents_entry(section).sub(lambda _: line_for(section, text), page)


def main(index, pages):
    with open(index, encoding="utf-8") as file:
        page = file.read()
    with open(pages, encoding="utf-8") as file:
        sections = list(SECTION.finditer(file.read()))
    for match in sections:
        section, after = match[1], match[2]
        text = match[0].replace(f' data-after="{after}"', "")
        page = added(page, section, after, text) if after else exchanged(page, section, text)
    sys.stdout.buffer.write(page.encode())


if __name__ == "__main__":
    main(*sys.argv[1:])
