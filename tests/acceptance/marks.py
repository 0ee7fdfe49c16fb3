#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Marks drawings from the shell, converts them, and lets other tools say what the PDFs hold.

    marks.py PROGRAM SAMPLES

Checked are: stamp, attachment, signature field, links, properties and log of a sample; links against the ink of the plotted
entities; the point of a stamp against a plotted cross for every plot type; sets of ten drawings. Prints a line a check and
"N passed, M failed" at the end.
"""
import itertools
import os
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import mark_drawings as drawings  # noqa: E402
from pdf_tools import Objects, Picture, first_character, links_by_page, output_of, properties, unsigned_fields, words  # noqa: E402

NEAR = 1.0  # points

SAMPLE_LOG = """TEXT STAMP
  'QUOTED', Helvetica, 24, [575 434]
FILE ATTACHMENTS
  '{folder}/report.bin', [1114 575]
DIGITAL SIGNATURE FIELDS
  'Approval', 'Site engineer', [1128 122 802 184]
HYPERLINKS
  'https://example.com/planning', [{link}]
BLOCK ATTRIBUTES
  TITLE_1/TITLE = 'Site plan'
  TITLE_1/PROJECT = 'Sheetmaker samples'
  TITLE_1/DWG-NO = 'S-001'
  TITLE_1/SCALE = '1:1000'
  TITLE_1/DRAWN_BY = 'JS'
RESET PAGE SETUP
"""
SAMPLE_PROPERTIES = {"TITLE_1/TITLE": "Site plan", "TITLE_1/PROJECT": "Sheetmaker samples", "TITLE_1/DWG-NO": "S-001",
                     "TITLE_1/SCALE": "1:1000", "TITLE_1/DRAWN_BY": "JS", "Title": "site"}


class Desk:
    """A user of its own in a folder of its own."""

    def __init__(self, program, folder):
        self.program, self.folder = program, folder
        self.environment = dict(os.environ, XDG_CONFIG_HOME=self.path("config"), XDG_STATE_HOME=self.path("state"),
                                TMPDIR=self.path("tmp"), LC_ALL="C.UTF-8")
        os.makedirs(self.path("tmp"))
        self.passed, self.failed = 0, 0

    def path(self, name):
        return os.path.join(self.folder, name)

    def run(self, *words_, code=0):
        """Stdout; a wrong exit code is a failed check."""
        run = subprocess.run([self.program, *words_], capture_output=True, text=True, env=self.environment,
                             cwd=self.folder, timeout=300)
        if run.returncode != code:
            self.check(f"exit code of {' '.join(words_)}", f"{run.returncode}: {run.stderr.strip()[-300:]}", code)
        return run.stdout

    def check(self, name, seen, expected):
        self.expect(name, seen == expected, f"{seen!r} instead of {expected!r}")

    def expect(self, name, good, seen):
        self.passed, self.failed = self.passed + bool(good), self.failed + (not good)
        print(f"{'ok  ' if good else 'FAIL'} {name}" + ("" if good else f": {seen}"))

    def switches(self, value):
        for name in ("Text", "Drawing", "Block", "VPort"):
            self.run("set", f"Transfer{name}Hlinks", value)
        self.run("set", "TransferAttributes", value)


def near(one, other, reach=NEAR):
    return one is not None and all(abs(a - b) <= reach for a, b in zip(one, other))


def check_stamps(desk):
    """One stamp at one point, in the three justifications."""
    edges = {"left": lambda word: word.left, "center": lambda word: (word.left + word.right) / 2,
             "right": lambda word: word.right}
    for justify, edge in edges.items():
        desk.run("stamp", "site.dxf", "--text", "QUOTED", "--at", "200,150", "--justify", justify)
        desk.run("convert", "site.dxf")
        stamped = [word for word in words(desk.path("site.pdf")) if word.text == "QUOTED"]
        desk.check(f"{justify}: one stamp", len(stamped), 1)
        for word in stamped:
            desk.expect(f"{justify}: x of the stamp", abs(edge(word) - 575) <= NEAR, (edge(word), 575))
            desk.expect(f"{justify}: y of the stamp", word.bottom - NEAR <= 434 <= word.top, word)
        begin = first_character(desk.path("site.pdf"), "Q")
        desk.expect(f"{justify}: baseline", stamped and near(begin, (stamped[0].left, 434)), begin)


def check_sample(desk, samples):
    shutil.copy(os.path.join(samples, "site.dxf"), desk.path("site.dxf"))
    content = bytes(range(256)) * 300
    with open(desk.path("report.bin"), "wb") as file:
        file.write(content)
    desk.run("attach", "site.dxf", "add", "report.bin", "--at", "390,200", "--layout", "Site")
    desk.run("sign", "site.dxf", "add", "Approval", "--label", "Site engineer", "--rect", "395,40,280,62", "--layout", "Site")
    desk.switches("1")
    check_stamps(desk)
    pdf = desk.path("site.pdf")
    output_of("pdfdetach", "-save", "1", "-o", desk.path("detached"), pdf)
    with open(desk.path("detached"), "rb") as file:
        desk.expect("the attachment comes back byte for byte", file.read() == content, "other bytes")
    desk.check("unsigned field", unsigned_fields(pdf), ["Approval"])
    fields = Objects(pdf).annotations(1, "/Widget")
    desk.check("rectangle and label of the field", [(note["/Rect"], note.get("/TU")) for note in fields],
               [([802, 122, 1128, 184], "Site engineer")])
    desk.check("links", links_by_page(pdf), [(1, "https://example.com/planning")])
    desk.check("properties", {name: properties(pdf).get(name) for name in SAMPLE_PROPERTIES}, SAMPLE_PROPERTIES)
    log = desk.run("log")
    link = log.split("/planning', [")[1].split("]")[0]
    desk.check("log", log[log.index("TEXT STAMP"):log.index("  Reset Printer")], SAMPLE_LOG.format(folder=desk.folder, link=link))
    desk.check("rectangle of the link and of its log line", [round(float(part), 3) for part in link.split()],
               [round(part, 3) for part in Objects(pdf).links(1)[0][1]])


def check_links(desk):
    """Each link's rectangle holds the ink of its entity, and isn't much larger."""
    sheets = drawings.linked_drawing(desk.path("links.dxf"))
    desk.run("convert", "links.dxf", "--layouts", "all")
    pdf = desk.path("links.pdf")
    desk.check("links on their pages", links_by_page(pdf),
               [(page, url) for page, urls in enumerate(sheets, start=1) for url in urls])
    for page in range(1, len(sheets) + 1):
        picture = Picture(pdf, page, 144)
        for url, (left, bottom, right, top) in Objects(pdf).links(page):
            ink = picture.ink_box(left - 20, bottom - 20, right + 20, top + 20)
            covered = ink and left - NEAR <= ink[0] and bottom - NEAR <= ink[1] and ink[2] <= right + NEAR and ink[3] <= top + NEAR
            filled = ink and ink[2] - ink[0] >= 0.6 * (right - left) and ink[3] - ink[1] >= 0.5 * (top - bottom)
            desk.expect(f"ink under {url}", covered and filled, ((left, bottom, right, top), ink))


def check_mapping(desk, mapping):
    drawings.mapping_drawing(mapping, desk.path("cross.dxf"))
    layout = "Layout1" if mapping.plot_type == drawings.LAYOUT else "Model"
    if mapping.source == "global":
        for name, value in drawings.custom_values(mapping):
            desk.run("set", name, str(value))
    x, y = drawings.cross_of(mapping)
    desk.run("stamp", "cross.dxf", "--text", "Q", "--size", "3", f"--at={x!r},{y!r}")
    desk.run("convert", "cross.dxf", "--layout", layout, "--page-setup", mapping.source)
    stamp = first_character(desk.path("cross.pdf"), "Q")
    cross = Picture(desk.path("cross.pdf")).cross_near(*stamp, reach=25) if stamp else None
    desk.expect(f"stamp on the cross: {mapping.name}", stamp and near(cross, stamp), (stamp, cross))


def check_pages(desk, expected):
    """The pages of the set: their texts, sizes and outline entries, in order."""
    pdf = desk.path("out/set.pdf")
    texts = [[word.text for word in words(pdf, page) if word.text.startswith("DRAWING-")]
             for page in range(1, len(Objects(pdf).pages) + 1)]
    desk.check("pages", texts, [[f"DRAWING-{number}-{name}"] for number, name in expected])
    objects = Objects(pdf)
    boxes = [[round(side) for side in objects.at(page)["/MediaBox"][2:]] for page in objects.pages]
    desk.check("page sizes", boxes, [[842, 595] if number % 2 else [1191, 842] for number, _ in expected])
    outline = output_of("mutool", "show", pdf, "outline").splitlines()
    entries = [(line.index('"') > outline[0].index('"'), line.split('"')[1]) for line in outline]
    desk.check("sheet names in the outline", [name for below, name in entries if below], [name for _, name in expected])
    desk.check("drawings in the outline", [name for below, name in entries if not below],
               [f"d{number}" for number, _ in itertools.groupby(number for number, _ in expected)])
    names = unsigned_fields(pdf)
    desk.check("fields", (len(names), len(set(names)), names[0]), (len({number for number, _ in expected}),) * 2 + ("Approval",))
    values = [value for name, value in properties(pdf).items() if name.startswith("TITLE_1/DWG-NO")]
    desk.check("title blocks", sorted(set(values)), sorted({f"D-{number}" for number, _ in expected}))


def check_leftovers(desk):
    desk.check("nothing but the set beside it", os.listdir(desk.path("out")), ["set.pdf"])
    desk.check("no temporary files", os.listdir(desk.path("tmp")), [])
    desk.check("one log", os.listdir(desk.path("state/sheetmaker-pdf")), ["SmPdfAcad.log"])


def check_publish(desk):
    sheets = []
    for number in range(1, 11):
        sheets.append(drawings.set_drawing(number, desk.path(f"d{number}.dxf")))
        desk.run("sign", f"d{number}.dxf", "add", "Approval", "--rect", "10,10,60,25", "--layout", "Layout1")
    files = [f"d{number}.dxf" for number in range(1, 11)]
    desk.run("publish", "-o", "out/set.pdf", *files)
    check_pages(desk, [sheet for one in sheets for sheet in one])
    check_leftovers(desk)
    desk.run("publish", "-o", "out/set.pdf", "d9.dxf:Layout2", "d1.dxf", "d3.dxf:layout1", "d2.dxf")
    pages = [[word.text for word in words(desk.path("out/set.pdf"), page) if word.text.startswith("DRAWING-")]
             for page in range(1, 5)]
    desk.check("pages in the order given", pages,
               [["DRAWING-9-Layout2"], ["DRAWING-1-Layout1"], ["DRAWING-3-Layout1"], ["DRAWING-2-Layout1"]])
    os.remove(desk.path("out/set.pdf"))
    with open(desk.path("d5.dxf"), "w", encoding="ascii") as file:
        file.write("not a drawing\n")
    desk.run("publish", "-o", "out/set.pdf", *files, code=1)
    desk.check("a bad drawing ends the run without a PDF", os.listdir(desk.path("out")), [])
    desk.run("publish", "-o", "out/set.pdf", *files, "--keep-going", code=1)
    check_pages(desk, [sheet for number, one in enumerate(sheets, start=1) if number != 5 for sheet in one])
    check_leftovers(desk)


def main():
    program, samples = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2])
    with tempfile.TemporaryDirectory(prefix="marks-") as folder:
        desk = Desk(program, folder)
        check_sample(desk, samples)
        check_links(desk)
        for mapping in drawings.MAPPINGS:
            check_mapping(desk, mapping)
        check_publish(desk)
        print(f"{desk.passed} passed, {desk.failed} failed")
        return 1 if desk.failed else 0


if __name__ == "__main__":
    sys.exit(main())
