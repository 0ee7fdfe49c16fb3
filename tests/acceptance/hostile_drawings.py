# SPDX-License-Identifier: GPL-3.0-or-later
"""Drawings that name one file each, by every way in which a drawing names files, and the places that names lead to."""
import os
import socket

LINE = [(0, "LINE"), (8, "0"), (10, 0), (20, 0), (11, 100), (21, 100)]
DRAWN = {"image": "1 IMAGE", "underlay": "1 PDFUNDERLAY", "reference": "1 INSERT", "shape": "1 SHAPE"}


def table(name, entry):
    return [(0, "TABLE"), (2, name), (0, name), *entry, (0, "ENDTAB")]


def dxf(entities=(), objects=(), blocks=(), tables=(), table_name=""):
    """Text of a drawing of pairs of group code and value, whose model's page setup names a plot style table."""
    model = [(0, "BLOCK"), (5, "20"), (330, "1F"), (8, "0"), (2, "*Model_Space"), (70, 0), (10, 0), (20, 0), (0, "ENDBLK"), (8, "0")]
    layouts = [(3, "ACAD_LAYOUT"), (350, "1A"), *objects, (0, "DICTIONARY"), (5, "1A"), (330, "C"), (3, "Model"), (350, "1B"),
               (0, "LAYOUT"), (5, "1B"), (330, "1A"), (100, "AcDbPlotSettings"), (44, 420), (45, 297), (7, table_name), (70, 1056),
               (72, 1), (73, 0), (74, 1), (100, "AcDbLayout"), (1, "Model"), (70, 1), (71, 0), (330, "1F")]
    records = table("BLOCK_RECORD", [(5, "1F"), (2, "*Model_Space"), (340, "1B")])
    sections = (("HEADER", [(9, "$ACADVER"), (1, "AC1018")]), ("TABLES", [*records, *tables]), ("BLOCKS", [*model, *blocks]),
                ("ENTITIES", [*LINE, *entities]), ("OBJECTS", [(0, "DICTIONARY"), (5, "C"), (330, "0"), *layouts]))
    pairs = []
    for name, content in sections:
        pairs += [(0, "SECTION"), (2, name), *content, (0, "ENDSEC")]
    return "".join(f"{code}\n{value}\n" for code, value in [*pairs, (0, "EOF")])


def image(name):
    return dxf([(0, "IMAGE"), (5, "A1"), (8, "0"), (10, 0), (20, 0), (30, 0), (11, 1), (21, 0), (31, 0), (12, 0), (22, 1), (32, 0), (13, 10),
                (23, 10), (340, "B1"), (70, 7)], [(0, "IMAGEDEF"), (5, "B1"), (1, name), (10, 10), (20, 10), (280, 1)])


def underlay(name):
    return dxf([(0, "PDFUNDERLAY"), (5, "A1"), (8, "0"), (100, "AcDbUnderlayReference"), (340, "B1"), (10, 0), (20, 0), (30, 0), (41, 1),
                (42, 1), (43, 1), (280, 2)], [(0, "PDFDEFINITION"), (5, "B1"), (100, "AcDbUnderlayDefinition"), (1, name), (2, 1)])


def reference(name):
    return dxf([(0, "INSERT"), (8, "0"), (2, "SITE"), (10, 0), (20, 0)],
               blocks=[(0, "BLOCK"), (8, "0"), (2, "SITE"), (70, 4), (10, 0), (20, 0), (1, name), (0, "ENDBLK"), (8, "0")])


def font(name):
    return dxf([(0, "TEXT"), (8, "0"), (10, 0), (20, 0), (40, 5), (1, "Plan"), (7, "NOTES")],
               tables=table("STYLE", [(2, "NOTES"), (70, 0), (40, 0), (41, 1), (3, name)]))


def shape(name):
    return dxf([(0, "SHAPE"), (8, "0"), (10, 0), (20, 0), (40, 5), (2, "PUMP")],
               tables=table("STYLE", [(2, ""), (70, 1), (40, 0), (41, 1), (3, name)]))


def style(name):
    return dxf(table_name=name)


def attachment(name):
    """The record of "attach": label, path, place, layout."""
    return dxf(objects=[(1001, "TWSI_Attachs"), *[(1000, text) for text in ("label", name, "1", "1", "Model")]],
               tables=table("APPID", [(5, "F"), (2, "TWSI_Attachs"), (70, 0)]))


def link(name):
    return dxf([(0, "LINE"), (8, "0"), (10, 0), (20, 50), (11, 100), (21, 50), (1001, "PE_URL"), (1000, name)],
               tables=table("APPID", [(5, "F"), (2, "PE_URL"), (70, 0)]))


KINDS = {"image": image, "underlay": underlay, "reference": reference, "font": font, "shape": shape, "style": style,
         "attachment": attachment, "link": link}


def make(root):
    """What stands in the drawing's folder besides the drawing, and outside of it."""
    def path(name):
        return os.path.join(root, name)

    def write(name, text):
        with open(path(name), "w", encoding="latin-1") as file:
            file.write(text)

    for folder in ("job", "job/folder", "outside", "tmp", "home", "config/sheetmaker-pdf/fonts", "state", "cache", "logs"):
        os.makedirs(path(folder))
    os.mkfifo(path("config/sheetmaker-pdf/fonts/none.shx"))
    for ending in ("png", "pdf", "dxf", "shx", "ttf", "ctb", "txt"):
        write("outside/secret." + ending, "secret")
        os.mkdir(path("job/folder." + ending))
        os.mkfifo(path("job/pipe." + ending))
        for name, target in (("zero", "/dev/zero"), ("memory", "/proc/self/mem"), ("words", "/proc/self/environ"), ("loop", "loop." + ending),
                             ("dangling", "nowhere"), ("link", path("outside/secret." + ending)), ("piped", "pipe." + ending)):
            os.symlink(target, path(f"job/{name}.{ending}"))
        os.link(path("outside/secret." + ending), path("job/hard." + ending))
        with socket.socket(socket.AF_UNIX) as server:
            server.bind(path("job/socket." + ending))


def pdf(action):
    """A page of one line, whose document does something when it is opened."""
    objects = ["<< /Type /Catalog /Pages 2 0 R /OpenAction 5 0 R >>", "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
               "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 72 72] /Contents 4 0 R /AA << /O 5 0 R >> >>",
               "<< /Length 18 >>\nstream\n0 0 m 72 72 l S  \nendstream", action]
    text, places = "%PDF-1.7\n", []
    for number, content in enumerate(objects, 1):
        places.append(len(text))
        text += f"{number} 0 obj\n{content}\nendobj\n"
    table = "".join(f"{place:010} 00000 n \n" for place in places)
    return text + f"xref\n0 6\n0000000000 65535 f \n{table}trailer\n<< /Size 6 /Root 1 0 R >>\nstartxref\n{len(text)}\n%%EOF\n"


NO_PAGE = ['plan.dxf: lost: the page 1 of "page.pdf" can\'t be drawn: the file has no such page, or can\'t be read',
           "plan.dxf: not drawn: 1 PDFUNDERLAY", "plan.dxf: fonts: txt drawn with standard.lff (style Standard)"]
FAILED = ['plan.dxf: lost: the page 1 of "page.pdf" can\'t be drawn: the PostScript interpreter failed on it', *NO_PAGE[1:]]
# PostScript that tries each way out, whatever the ones before came to.
PROGRAM = "%!PS\n" + "".join(f"{{ {attempt} }} stopped clear\n" for attempt in (
    "(touched) (w) file (x) writestring", "(%pipe%touch touched) (w) file closefile", "(%pipe%cat /etc/shadow) (r) file 9 string readstring",
    "(../outside/secret.txt) (r) file 9 string readstring", "(/etc/hostname) run", "(page.pdf) (renamed.pdf) renamefile",
    "(page.pdf) deletefile", "<< /OutputFile (touched) >> setpagedevice showpage", "(%stdin) (r) file 9 string readstring"))
PAGES = [
    ("PostScript in a PDF's name", PROGRAM + "showpage\n", 4, NO_PAGE),
    ("a PDF that launches a program", pdf("<< /S /Launch /F (touch) /Unix << /F (touch) >> >>"), 0, []),
    ("a PDF that runs JavaScript", pdf("<< /S /JavaScript /JS (app.launchURL\\(\"file:///etc/passwd\"\\);) >>"), 0, []),
    ("a PDF that opens another file", pdf("<< /S /GoToR /F (/etc/hostname) /D [0 /Fit] >>"), 0, []),
    ("no PDF", "touch touched\n", 4, FAILED),
]
