#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""What a PDF is beside its pages: fonts, identifier, passwords, language, attachments, title.

    pdf_form.py PROGRAM

Each row is a function that converts in a folder of its own and says what is wrong. Ends with "N passed, M failed".
"""
import io
import json
import os
import re
import subprocess
import sys

from fontTools import cffLib, ttLib
from fontTools.pens import recordingPen

import pdfa_rules
import stands

FACES = (("SANS", "arial.ttf"), ("SERIF", "times.ttf"), ("MONO", "cour.ttf"))


CUBIC = "/usr/share/fonts/opentype/urw-base35/URWGothic-Book.otf"
"""An OpenType font of cubic curves that fonts.map puts in for one of Windows."""
QUADRATIC = "/usr/share/fonts/truetype/liberation/LiberationSans-Regular.ttf"


def texts(faces, number):
    """A drawing of a line in each font, whose letters go round the alphabet with its number."""
    letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"
    turned = letters[number % 62:] + letters[:number % 62]
    styles = "".join(f"0\nSTYLE\n2\n{name}\n70\n0\n40\n0\n41\n1\n3\n{file}\n" for name, file in faces)
    lines = "".join(f"0\nTEXT\n8\n0\n7\n{name}\n10\n0\n20\n{20 * row}\n40\n5\n1\n{turned}\n"
                    for row, (name, file) in enumerate(faces))
    return ("0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n0\nENDSEC\n0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nSTYLE\n" + styles
            + "0\nENDTAB\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n" + lines + "0\nENDSEC\n0\nEOF\n")


def font_bytes(stand, name):
    """Of all font files in the PDF, uncompressed, and the names of the fonts."""
    plain = subprocess.run(["qpdf", "--qdf", "--object-streams=disable", stand.path(name), "-"], capture_output=True).stdout
    names = {line.split()[0] for line in subprocess.run(["pdffonts", stand.path(name)], capture_output=True, text=True)
             .stdout.splitlines()[2:]}
    return sum(int(length) for length in re.findall(rb"/Length1 (\d+)", plain)), names


def fonts_of_a_set(stand):
    """A hundred sheets with three fonts hold hardly more of them than one sheet."""
    names = [f"{number}.dxf" for number in range(100)]
    for number, name in enumerate(names):
        stand.write(name, texts(FACES, number))
    for words in (("convert", "0.dxf", "-o", "one.pdf"), ("publish", *names, "-o", "set.pdf")):
        run = stand.run(*words)
        stand.same(run.returncode, 0, run.stderr)
    one, named = font_bytes(stand, "one.pdf")
    many, all_named = font_bytes(stand, "set.pdf")
    stand.same((stand.pages("set.pdf"), one > 10000, many <= 1.2 * one), ("100", True, True), f"{many} bytes for one sheet's {one}")
    for fonts in (named, all_named):
        stand.same(sorted(name[7:] for name in fonts), ["LiberationMono", "LiberationSans", "LiberationSerif"])
    text = subprocess.run(["pdftotext", "-f", "62", "-l", "62", stand.path("set.pdf"), "-"], capture_output=True, text=True).stdout
    stand.same(text.split()[0], "9ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz012345678")


def drawn(glyph):
    """The steps of a glyph's outline."""
    pen = recordingPen.RecordingPen()
    glyph.draw(pen)
    return pen.value


def flat(glyphs, name):
    """The same, of a glyph that may be made of others."""
    pen = recordingPen.DecomposingRecordingPen(glyphs)
    glyphs[name].draw(pen)
    return pen.value


def cubic_curves(stand):
    """They stay what they are in their font's file, which a set of sheets holds one part of."""
    names = [f"{number}.dxf" for number in (0, 20, 40)]
    for name in names:
        stand.write(name, texts((("GOTHIC", "GOTHIC.TTF"),), int(name[:-4])))
    run = stand.run("publish", *names, "-o", "set.pdf")
    stand.same(run.returncode, 0, run.stderr)
    kinds = {line.split()[0][7:24]: line[37:48] for line in subprocess.run(
        ["pdffonts", stand.path("set.pdf")], capture_output=True, text=True).stdout.splitlines()[2:]}
    stand.same(kinds, {"URWGothic-Book-Gl": "CID Type 0C"})
    pdf = pdfa_rules.Pdf(stand.path("set.pdf"))
    parts = {pdf.data(pdf.at(font["/FontDescriptor"])["/FontFile3"]) for font in pdf.fonts() if "/FontDescriptor" in font}
    stand.same(len(parts), 1)
    part, whole = cffLib.CFFFontSet(), ttLib.TTFont(CUBIC)
    part.decompile(io.BytesIO(parts.pop()), None)
    shapes, glyphs = part[0].CharStrings, whole.getGlyphSet()
    stand.same(len(shapes.keys()), 63, "the letters and the glyph for what is missing")
    for name in shapes.keys():
        stand.same(drawn(shapes[name]), drawn(glyphs[name]), name)
    stand.same(any(step == "curveTo" for step, _ in drawn(shapes["S"])), True)
    text = subprocess.run(["pdftotext", "-f", "3", "-l", "3", stand.path("set.pdf"), "-"], capture_output=True, text=True).stdout
    stand.same(text.split()[0], "opqrstuvwxyz0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmn")


def letters_of(pdf, font):
    """The number of each letter's glyph in the embedded file."""
    numbers = dict(re.findall(rb"<(..)> (\d+)\n", pdf.data(font["/Encoding"])))
    characters = dict(re.findall(rb"<(..)> <(....)>\n", pdf.data(font["/ToUnicode"])))
    return {chr(int(text, 16)): int(numbers[code]) for code, text in characters.items()}


def quadratic_curves(stand):
    """They are those of their font's file, without its hints; letters made of others, too."""
    for number, name in enumerate(("one.dxf", "two.dxf")):
        stand.write(name, texts((("SANS", "arial.ttf"),), 31 * number).replace("Z", "Z\\U+00C4\\U+017D"))
    run = stand.run("publish", "one.dxf", "two.dxf", "-o", "set.pdf")
    stand.same(run.returncode, 0, run.stderr)
    pdf, whole = pdfa_rules.Pdf(stand.path("set.pdf")), ttLib.TTFont(QUADRATIC)
    glyphs, names = whole.getGlyphSet(), whole.getBestCmap()
    for font in (font for font in pdf.fonts() if font["/Subtype"] == "/Type0"):
        below = pdf.at(pdf.at(font["/DescendantFonts"])[0])
        part = ttLib.TTFont(io.BytesIO(pdf.data(pdf.at(below["/FontDescriptor"])["/FontFile2"])))
        stand.same(sorted(set(part.keys()) - {"GlyphOrder"}), ["glyf", "head", "hhea", "hmtx", "loca", "maxp"])
        letters, shapes = letters_of(pdf, font), part.getGlyphSet()
        stand.same(len(letters), 64)
        for letter, number in letters.items():
            stand.same(flat(shapes, part.getGlyphName(number)), flat(glyphs, names[ord(letter)]), letter)


def same_bytes(stand):
    """Twice, in other folders, time zones and years, with a stamp of the date and attached files, a large one too."""
    stand.environment["SOURCE_DATE_EPOCH"] = "1700000000"
    made = []
    for folder, zone in (("one", "Asia/Tokyo"), ("two/deep", "America/New_York")):
        stand.drawings(folder + "/house.dxf")
        with open(stand.path(folder + "/large.bin"), "wb") as file:
            file.write(bytes(range(256)) * 40000)
        for words in (("stamp", "add", "--text", "EMAILED ON &[Date]", "--at", "1,1"),
                      ("attach", "add", stand.path(folder + "/large.bin"), "--at", "5,5", "--layout", "A-101 Ground Floor")):
            run = stand.run(words[0], folder + "/house.dxf", *words[1:])
            stand.same(run.returncode, 0, run.stderr)
        stand.environment["TZ"] = zone
        stand.run("convert", folder + "/house.dxf")
        with open(stand.path(folder + "/house.pdf"), "rb") as file:
            made.append(file.read())
    stand.same(made[0] == made[1], True, "the same bytes")
    dates = subprocess.run(["pdfinfo", "-rawdates", stand.path("one/house.pdf")], capture_output=True, text=True).stdout
    stand.same([line.split()[1] for line in dates.splitlines() if "Date:" in line], ["D:20231114221320+00'00'"] * 2)
    del stand.environment["SOURCE_DATE_EPOCH"]
    stand.run("convert", "one/house.dxf")
    with open(stand.path("one/house.pdf"), "rb") as file:
        stand.same(file.read() == made[0], False, "without it the clock goes on")


def encrypted(stand):
    stand.drawings("a.dxf")
    stand.write("word.txt", "geheim\r\nsecond line\n")
    stand.write("note.txt", "attached")
    stand.run("attach", "a.dxf", "add", stand.path("note.txt"), "--at", "5,5", "--layout", "A-201 Section")
    run = stand.run("convert", "a.dxf", "--user-password", "offen", "--owner-password", "@word.txt")
    stand.same(run.returncode, 0, run.stderr)
    for word, code in (("offen", 0), ("geheim", 0), ("falsch", 2)):
        shown = subprocess.run(["qpdf", "--password=" + word, "--show-encryption", stand.path("a.pdf")], capture_output=True, text=True)
        opened = subprocess.run(["qpdf", "--password=" + word, "--show-npages", stand.path("a.pdf")], capture_output=True)
        stand.same(opened.returncode, code, word)
        if code == 0:
            stand.same([line for line in shown.stdout.splitlines() if line.startswith(("R =", "stream encryption", "file encryption"))],
                       ["R = 6", "stream encryption method: AESv3", "file encryption method: AESv3"])
    text = subprocess.run(["pdftotext", "-upw", "offen", stand.path("a.pdf"), "-"], capture_output=True, text=True).stdout
    stand.same("GROUND FLOOR" in text.upper(), True, "its text is read with the password")


def linearised(stand):
    stand.drawings("a.dxf")
    stand.run("convert", "a.dxf", "--optimize")
    told = subprocess.run(["qpdf", "--check", stand.path("a.pdf")], capture_output=True, text=True)
    stand.same((told.returncode, "File is linearized" in told.stdout), (0, True), told.stdout)


def language(stand):
    stand.drawings("a.dxf")
    for name, wanted in (("de_DE.UTF-8", "de-DE"), ("en_GB", "en-GB"), ("C.UTF-8", None), ("fr", "fr")):
        stand.environment["LC_ALL"] = name
        stand.run("convert", "a.dxf")
        catalogue = json.loads(subprocess.run(["qpdf", "--json=1", "--json-key=objects", stand.path("a.pdf")], capture_output=True,
                                              text=True).stdout)["objects"]
        told = [value.get("/Lang") for value in catalogue.values() if isinstance(value, dict) and value.get("/Type") == "/Catalog"]
        stand.same(told, [wanted], name)


def attachments_pane(stand):
    stand.drawings("a.dxf", "sub/b.dxf")
    for folder in ("", "sub/"):
        stand.write(folder + "note.txt", "of " + folder)
        stand.run("attach", "a.dxf", "add", stand.path(folder + "note.txt"), "--at", "5,5", "--layout", "A-201 Section")
    stand.run("convert", "a.dxf")
    shown = subprocess.run(["qpdf", "--list-attachments", stand.path("a.pdf")], capture_output=True, text=True).stdout
    stand.same(sorted(line.split(" -> ")[0] for line in shown.splitlines()), ["note (2).txt", "note.txt"])


def title(stand):
    stand.drawings("a.dxf")
    stand.run("convert", "a.dxf", "--title", "Haus & Größe")
    info = subprocess.run(["pdfinfo", stand.path("a.pdf")], capture_output=True, text=True).stdout.splitlines()
    stand.same([line for line in info if line.startswith("Title:")], ["Title:           Haus & Größe"])


ROWS = (fonts_of_a_set, cubic_curves, quadratic_curves, same_bytes, encrypted, linearised, language, attachments_pane, title)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(stands.main(os.path.abspath(sys.argv[1]), ROWS))
