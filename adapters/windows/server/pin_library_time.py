#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Gives a type library the date of SOURCE_DATE_EPOCH, so that the same description makes the same bytes.

    pin_library_time.py LIBRARY

The compiler writes the time twice: as text, and as a number in the value that stands behind that text. Without
SOURCE_DATE_EPOCH the library stays as it is.
"""
import os
import re
import struct
import sys
import time

# The text with its line end, what fills it up to four bytes, and a value of type VT_UI4.
STAMP = re.compile(rb"( at )([A-Z][a-z]{2} [A-Z][a-z]{2} [ \d]\d \d\d:\d\d:\d\d \d{4})(\n\0?W{0,3}\x13\0)(.{4})", re.DOTALL)


def main(path):
    epoch = os.environ.get("SOURCE_DATE_EPOCH")
    if not epoch:
        return
    text = time.asctime(time.gmtime(int(epoch))).encode()
    number = struct.pack("<I", int(epoch) & 0xFFFFFFFF)
    with open(path, "rb") as file:
        library = file.read()
    pinned, found = STAMP.subn(lambda match: match[1] + text + match[3] + number, library)
    if found != 1:
        sys.exit(f"{path}: the time of its making stands there {found} times, not once")
    with open(path, "wb") as file:
        file.write(pinned)


if __name__ == "__main__":
    main(*sys.argv[1:])
