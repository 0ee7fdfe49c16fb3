# SPDX-License-Identifier: GPL-3.0-or-later
"""An object of another program as drawings hold it: a compound file with a metafile as its presentation."""
import struct

END, TABLE, FREE, SECTOR, SMALLEST = 0xFFFFFFFE, 0xFFFFFFFD, 0xFFFFFFFF, 512, 4096


def record(function, *words, more=b""):
    arguments = struct.pack(f"<{len(words)}h", *words) + more
    return struct.pack("<IH", 3 + len(arguments) // 2, function) + arguments


def metafile(width, height, *records):
    """A Windows metafile of so many units; records as `record` makes them."""
    body = record(0x20B, 0, 0) + record(0x20C, height, width) + b"".join(records) + struct.pack("<IH", 3, 0)
    return struct.pack("<HHHIHIH", 1, 9, 0x300, 9 + len(body) // 2, 8, 1000, 0) + body


def compound(name, content):
    """A compound file with one stream."""
    content = content.ljust(max(SMALLEST, -(-len(content) // SECTOR) * SECTOR), b"\0")
    count = len(content) // SECTOR
    table = [TABLE, END] + [i + 3 for i in range(count - 1)] + [END]
    table += [FREE] * (SECTOR // 4 - len(table))

    def entry(text, kind, start, size):
        field = text.encode("utf-16le").ljust(64, b"\0")
        return field + struct.pack("<HB", 2 * len(text) + 2, kind) + bytes(49) + struct.pack("<IQ", start, size)
    directory = (entry("Root Entry", 5, END, 0) + entry(name, 2, 2, len(content))).ljust(SECTOR, b"\0")
    head = b"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1" + bytes(16) + struct.pack("<HHHHH", 0x3E, 3, 0xFFFE, 9, 6) + bytes(10)
    head += struct.pack("<9I", 1, 1, 0, 4096, END, 0, END, 0, 0) + struct.pack("<108I", *[FREE] * 108)
    return head + struct.pack(f"<{len(table)}I", *table) + directory + content


def ole_frame(left, bottom, right, top, picture):
    """The groups of an OLE2FRAME in paper space as text; `picture` is a metafile, or nothing."""
    shown = struct.pack("<10I", FREE, 3, 4, 1, FREE, 2, 0, 1000, 500, len(picture)) + picture
    data = compound("\2OlePres000", shown) if picture else b""
    corners = struct.pack("<12d", left, top, 0, right, top, 0, right, bottom, 0, left, bottom, 0)
    data = (b"\x01\x55" + corners).ljust(124, b"\0") + struct.pack("<I", len(data)) + data
    groups = ["0", "OLE2FRAME", "5", "FFA1", "100", "AcDbEntity", "67", "1", "8", "0", "100", "AcDbOle2Frame", "70", "2", "90", str(len(data))]
    for at in range(0, len(data), 127):
        groups += ["310", data[at:at + 127].hex().upper()]
    return "\n".join(groups + ["1", "OLE"]) + "\n"
