#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""PDF/A as the program makes it, held against the rules of pdfa_rules.py, and each rule against a file that breaks it.

    pdfa.py PROGRAM
"""
import copy
import json
import os
import re
import subprocess
import sys

import pdf_form
import pdfa_rules
import stands

SECTION = "A-201 Section"


def marked(stand, *names):
    """Drawings with a stamp, a signature field and a link's block."""
    stand.drawings(*names)
    for name in names:
        for words in (("stamp", name, "add", "--text", "ISSUED Größe", "--at", "50,50"),
                      ("sign", name, "add", "Approved", "--rect", "5,5,60,25", "--layout", SECTION)):
            run = stand.run(*words)
            stand.same(run.returncode, 0, run.stderr)


def made(stand, part, *words):
    run = stand.run(*words)
    stand.same(run.returncode, 0, run.stderr)
    name = words[words.index("-o") + 1] if "-o" in words else words[1].replace(".dxf", ".pdf")
    stand.same(pdfa_rules.check(stand.path(name), part), [], " ".join(words))
    return stand.path(name)


def samples(stand):
    for name in sorted(os.listdir(os.path.dirname(stands.SAMPLE))):
        if name.endswith(".dxf"):
            with open(os.path.join(os.path.dirname(stands.SAMPLE), name), encoding="utf-8") as file:
                stand.write(name, file.read())
            made(stand, 2, "convert", name, "--pdfa", "2b", "--layouts", "all")


def marks_and_layers(stand):
    marked(stand, "a.dxf")
    path = made(stand, 2, "convert", "a.dxf", "--pdfa", "2b", "--pdf-layers", "--title", "Haus & <Garten>")
    stand.same("Helvetica" in subprocess.run(["pdffonts", path], capture_output=True, text=True).stdout, False)
    text = subprocess.run(["pdftotext", path, "-"], capture_output=True, text=True).stdout
    stand.same("ISSUED Größe" in text, True, "the stamp is found")


def a_set(stand):
    marked(stand, "a.dxf", "b.dxf")
    made(stand, 2, "publish", "a.dxf", "b.dxf", "-o", "set.pdf", "--pdfa", "2b")


def linearised(stand):
    stand.drawings("a.dxf")
    made(stand, 2, "convert", "a.dxf", "--pdfa", "2b", "--optimize")


def attached_files(stand):
    marked(stand, "a.dxf")
    stand.write("note.txt", "hello")
    with open(stand.path("large.bin"), "wb") as file:
        file.write(bytes(range(256)) * 40000)
    for name in ("note.txt", "large.bin"):
        stand.run("attach", "a.dxf", "add", stand.path(name), "--at", "30,30", "--layout", SECTION)
    path = made(stand, 3, "convert", "a.dxf", "--pdfa", "3b")
    shown = subprocess.run(["qpdf", "--list-attachments", path], capture_output=True, text=True).stdout
    stand.same([line.split(" -> ")[0] for line in shown.splitlines()], ["large.bin", "note.txt"])
    dated = [pdf.at(file["/Params"]) for pdf in [pdfa_rules.Pdf(path)] for file in pdf.of_type("/EmbeddedFile")]
    stand.same([re.fullmatch(r"u:D:20\d{12}Z", one.get("/ModDate", "")) is not None for one in dated], [True] * 2, repr(dated))
    os.remove(path)
    run = stand.run("convert", "a.dxf", "--pdfa", "2b")
    stand.same((run.returncode, run.stderr.splitlines()[-1], os.path.exists(path)),
               (1, 'a.dxf: failed: The file "large.bin" is attached, which PDF/A-2b forbids. PDF/A-3b may hold it.', False))


def job_options(stand):
    """The job options that ask for it do the same, and those that need the interpreter are refused."""
    stand.drawings("a.dxf")
    made(stand, 2, "convert", "a.dxf", "--job-options", "Archive [PDF-A]")
    os.remove(stand.path("a.pdf"))
    run = stand.run("convert", "a.dxf", "--pdfa", "2b", "--job-options", "Greyscale [600 dpi]")
    stand.same((run.returncode, run.stderr.splitlines()[-1], os.path.exists(stand.path("a.pdf"))),
               (1, "a.dxf: failed: Page 1 was made by the PostScript interpreter, whose pages are not kept to PDF/A. "
                   "Choose job options that leave colours and pictures as they are.", False))
    run = stand.run("convert", "a.dxf", "--job-options", "Archive [PDF-A]", "--owner-password", "x")
    stand.same((run.returncode, run.stderr.splitlines()[-1]),
               (1, "a.dxf: failed: A document that is encrypted can't keep to PDF/A. Leave out the passwords or PDF/A."))
    run = stand.run("convert", "a.dxf", "--pdfa", "2b", "--owner-password", "x")
    stand.same((run.returncode, run.stderr.splitlines()[0]), (2, "sheetmaker convert: --pdfa excludes --owner-password"))


def same_bytes(stand):
    stand.environment["SOURCE_DATE_EPOCH"] = "1700000000"
    found = []
    for name in ("one/a.dxf", "two/a.dxf"):
        stand.drawings(name)
        stand.run("convert", name, "--pdfa", "3b")
        with open(stand.path(name.replace("dxf", "pdf")), "rb") as file:
            found.append(file.read())
    stand.same(found[0] == found[1], True)


def first(pdf, wanted):
    """The first dictionary for which `wanted` holds, in a copy of a file's objects that may be changed."""
    return next(found for found in pdf.dictionaries() if wanted(found))


def typed(name, subtype=None):
    return lambda found: found.get("/Type") == name and subtype in (None, found.get("/Subtype"))


def put(wanted, key, value):
    return lambda pdf: first(pdf, wanted).__setitem__(key, value)


def drop(wanted, key):
    return lambda pdf: first(pdf, wanted).pop(key)


def root(key, value):
    return lambda pdf: pdf.root.__setitem__(key, value)


def stream_of(pdf, wanted):
    return next(entry["stream"] for entry in pdf.objects.values() if "stream" in entry and wanted(entry["stream"]["dict"]))


def data(wanted, old, new):
    def change(pdf):
        stream = stream_of(pdf, wanted)
        text = pdfa_rules.base64.b64decode(stream["data"])
        assert old in text, old
        stream["data"] = pdfa_rules.base64.b64encode(text.replace(old, new, 1)).decode()
    return change


def page_content(text):
    def change(pdf):
        stream = pdf.entry(pdf.pages()[0]["/Contents"][0])["stream"]
        stream["data"] = pdfa_rules.base64.b64encode(text + pdfa_rules.base64.b64decode(stream["data"])).decode()
    return change


LINK = {"/Type": "/Annot", "/Subtype": "/Link", "/F": 4, "/Rect": [0, 0, 9, 9]}


def annotation(**more):
    def change(pdf):
        page = next(page for page in pdf.pages() if "/Annots" in page)
        page["/Annots"] = pdf.at(page["/Annots"]) + [dict(LINK, **{"/" + key: value for key, value in more.items()})]
    return change


FORM, METADATA, INTENT = typed("/XObject", "/Form"), typed("/Metadata"), typed("/OutputIntent")
IMAGE = {"/Type": "/XObject", "/Subtype": "/Image"}
WIDGET = typed("/Annot", "/Widget")
BREAKS = (
    ("6.1.7", put(FORM, "/F", "u:other.bin")),
    ("6.1.13", page_content(b"q " * 29 + b"Q " * 29)),
    ("6.1.13", put(typed("/Page"), "/MediaBox", [0, 0, 2, 800])),
    ("6.1.13", put(typed("/Pages"), "/" + "n" * 128, 1)),
    ("6.2.3", lambda pdf: pdf.root.pop("/OutputIntents")),
    ("6.2.3", data(lambda found: found.get("/N") == 3, b"RGB ", b"CMYK")),
    ("6.2.4.3", page_content(b"0 0 0 1 k\n")),
    ("6.2.8", put(typed("/Font", "/Type3"), "/Extra", dict(IMAGE, **{"/Interpolate": True}))),
    ("6.2.9", put(FORM, "/Ref", {})),
    ("6.2.10", put(typed("/Page"), "/Extra", {"/Type": "/ExtGState", "/BM": "/Own"})),
    ("6.2.11.3", drop(typed("/Font", "/CIDFontType2"), "/CIDToGIDMap")),
    ("6.2.11.4", drop(typed("/FontDescriptor"), "/FontFile2")),
    ("6.2.11.5", lambda pdf: first(pdf, typed("/Font", "/CIDFontType2"))["/W"][1].__setitem__(1, 990)),
    ("6.2.11.8", data(typed("/CMap"), b"> 1\n", b"> 0\n")),
    ("6.3.1", annotation(Subtype="/Movie", AP={"/N": "2 0 R"})),
    ("6.3.2", annotation(F=6)),
    ("6.3.3", drop(WIDGET, "/AP")),
    ("6.4.1", put(WIDGET, "/AA", {})),
    ("6.4.2", root("/NeedsRendering", True)),
    ("6.5.1", annotation(A={"/S": "/JavaScript", "/JS": "u:1"})),
    ("6.5.2", root("/OpenAction", ["3 0 R", "/Fit"])),
    ("6.6.2", lambda pdf: pdf.root.pop("/Metadata")),
    ("6.6.2.3", data(METADATA, b"<dc:format>", b"<own:note>1</own:note><dc:format>")),
    ("6.6.3", lambda pdf: pdf.at(pdf.trailer["/Info"]).__setitem__("/Author", "u:somebody else")),
    ("6.6.4", data(METADATA, b"<pdfaid:part>2", b"<pdfaid:part>7")),
    ("6.8", lambda pdf: pdf.root.setdefault("/Names", {}).__setitem__("/EmbeddedFiles", {"/Names": []})),
    ("6.9", lambda pdf: pdf.at(pdf.root["/OCProperties"])["/D"].__setitem__("/AS", [])),
)
BYTES = (
    ("6.1.2", b"%\xbf\xf7\xa2\xfe\n", b"%plain\n"),
    ("6.1.3", b"/ID [", b"/IX ["),
)
"""What the tool that writes changed objects always makes."""


def written(stand, objects, name):
    """A PDF of changed objects."""
    with open(stand.path("objects.json"), "w", encoding="utf-8") as file:
        json.dump({"qpdf": [{"jsonversion": 2, "pdfversion": "1.7", "pushedinheritedpageresources": False,
                             "calledgetallpages": False, "maxobjectid": 9999}, objects]}, file)
    subprocess.run(["qpdf", "--json-input", "--compress-streams=n", stand.path("objects.json"), stand.path(name)],
                   capture_output=True, check=False)
    return stand.path(name)


def cubic_fonts(stand):
    stand.write("a.dxf", pdf_form.texts((("GOTHIC", "GOTHIC.TTF"), ("SANS", "arial.ttf")), 0))
    path = made(stand, 2, "convert", "a.dxf", "--pdfa", "2b")
    pdf = pdfa_rules.Pdf(path)
    stand.same(sorted(font["/Subtype"] for font in pdf.fonts() if "/FontDescriptor" in font), ["/CIDFontType0", "/CIDFontType2"])
    font = next(font for font in pdf.fonts() if font.get("/Subtype") == "/CIDFontType0")
    pdf.at(font["/W"])[1][1] += 2
    stand.same([clause for clause, _ in pdfa_rules.check(written(stand, pdf.objects, "broken.pdf"), 2)], ["6.2.11.5"], "a width")


def every_rule_is_broken_by_a_file(stand):
    marked(stand, "a.dxf")
    path = made(stand, 2, "convert", "a.dxf", "--pdfa", "2b", "--pdf-layers")
    whole = pdfa_rules.Pdf(path)
    stand.same(pdfa_rules.check(written(stand, whole.objects, "again.pdf"), 2), [], "nothing changed")
    for clause, change in BREAKS:
        pdf = copy.copy(whole)
        pdf.objects = copy.deepcopy(whole.objects)
        pdf.trailer = pdf.objects["trailer"]["value"]
        pdf.root = pdf.at(pdf.trailer["/Root"])
        change(pdf)
        broken = written(stand, pdf.objects, "broken.pdf")
        stand.same(clause in [found for found, _ in pdfa_rules.check(broken, 2)], True, clause)
    for clause, old, new in BYTES:
        stand.same(whole.bytes.count(old), 1, clause)
        with open(stand.path("bare.pdf"), "wb") as file:
            file.write(whole.bytes.replace(old, new))
        stand.same([found for found, _ in pdfa_rules.check(stand.path("bare.pdf"), 2)], [clause], clause)
    subprocess.run(["qpdf", "--encrypt", "", "x", "256", "--", path, stand.path("locked.pdf")], check=True)
    stand.same("6.1.3" in [found for found, _ in pdfa_rules.check(stand.path("locked.pdf"), 2)], True, "6.1.3, encrypted")
    stand.same({clause for clause, _, _ in pdfa_rules.RULES} - {row[0] for row in BREAKS + BYTES}, set(), "rules without a file")


def files_without_a_relation(stand):
    stand.drawings("a.dxf")
    stand.write("note.txt", "hello")
    stand.run("attach", "a.dxf", "add", stand.path("note.txt"), "--at", "30,30", "--layout", SECTION)
    stand.run("convert", "a.dxf")
    stand.same("6.8" in [found for found, _ in pdfa_rules.check(stand.path("a.pdf"), 3)], True)


ROWS = (samples, marks_and_layers, a_set, linearised, attached_files, job_options, same_bytes, cubic_fonts, every_rule_is_broken_by_a_file,
        files_without_a_relation)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(stands.main(os.path.abspath(sys.argv[1]), ROWS))
