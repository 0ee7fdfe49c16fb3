#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Every layout with content of every drawing, beside the picture that ezdxf makes of it; and what we leave out.

    all_drawings.py PROGRAM FOLDER OUT_FOLDER [PATTERN]

FOLDER holds DXF and DWG drawings ("broken" aside). For each layout that holds something, OUT_FOLDER gets a picture: ours on
the left, ezdxf's on the right, both cut to their ink, or moved and sized so that their ink meets best where that comes
closer. ezdxf's own stay in OUT_FOLDER/ezdxf, and later runs take them from there.
`differences.txt` lists the shares of differing ink, the worst first, each above 0.2 with its reason out of reasons.py.
DWGs go to ezdxf through the DXF beside them, or that of our converter. The second list names each kind of entity that isn't
drawn, and says why where that is known (NOT_DRAWN). A page above 0.2 without a reason ends the run with exit code 1, and so
do a kind without one and a page that couldn't be compared without one. Takes many minutes; needs python3-matplotlib besides
what compare_pictures.py needs.
"""
import collections
import concurrent.futures
import glob
import hashlib
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import alignment  # noqa: E402
import compare_pictures as pictures  # noqa: E402
import reasons  # noqa: E402

HERE = os.path.dirname(os.path.abspath(__file__))
DWG = os.path.join(HERE, "..", "..", "share", "sheetmaker-pdf", "dwg")
CACHE = os.path.join(os.environ.get("XDG_CACHE_HOME") or os.path.expanduser("~/.cache"), "sheetmaker-pdf", "dwg")
DEADLINE = 300  # seconds for one drawing in ezdxf
NOT_COMPARED = 9.0  # stands for a share
NO_PICTURE = "holds no picture of itself: "
LOST_BODY = "the DWG converter loses its body: from R2013 on all of it, in R2007 records that others point to"
NOT_DRAWN = {
    "LIGHT": "is seen in rendered views only",
    "SUN": "is seen in rendered views only",
    "CAMERA": "is never plotted",
    "ACDBPOINTCLOUD": NO_PICTURE + "the points stand in another file",
    "SECTIONOBJECT": NO_PICTURE + "a section line of a 3-D model",
    "OLE2FRAME": NO_PICTURE + "the object of another program",
    "OLEFRAME": NO_PICTURE + "the object of another program",
    "DWFUNDERLAY": "needs a reader of DWF files",
    "DGNUNDERLAY": "needs a reader of DGN files",
    "PDFUNDERLAY": "its file isn't there",
    "IMAGE": "its file isn't there",
    "SHAPE": "its shape file isn't there",
    "ACAD_PROXY_ENTITY": NO_PICTURE + "written without graphics",
    "ACAD_TABLE": "lost by the DWG converter: from R2010 on its DXF has neither cells nor block",
    "3DSOLID": LOST_BODY,
    "BODY": LOST_BODY,
    "REGION": LOST_BODY,
    "PLANESURFACE": LOST_BODY,
    "EXTRUDEDSURFACE": LOST_BODY,
    "LOFTEDSURFACE": LOST_BODY,
    "REVOLVEDSURFACE": LOST_BODY,
    "SWEPTSURFACE": LOST_BODY,
    "INSERT": "of a block that isn't there, or an external reference whose file isn't there",
}


def drawings_in(folder, pattern):
    paths = [path for ending in ("dxf", "dwg", "dwt")
             for path in glob.glob(os.path.join(folder, "**", pattern + "." + ending), recursive=True)]
    return sorted(path for path in paths if os.sep + "broken" + os.sep not in path)


def twin_of(drawing):
    """The drawing that ezdxf reads: the DXF beside a DWG, else the drawing itself."""
    twins = [drawing[:-4] + ending for ending in (".dxf", "_ascii.dxf")]
    return next(filter(os.path.exists, [] if drawing.lower().endswith(".dxf") else twins), drawing)


def reference_dxf(drawing, folder):
    """`drawing` itself, or the converter's DXF of it."""
    if drawing.lower().endswith(".dxf"):
        return drawing
    dxf = os.path.join(folder, "converted.dxf")
    package = next((path for path in (os.path.join(root, "node_modules", "@mlightcad", "libredwg-web") for root in (DWG, CACHE))
                    if os.path.exists(path)), "")
    subprocess.run(["node", "--liftoff-only", os.path.join(DWG, "to-dxf.mjs"), package, drawing, dxf], check=True,
                   capture_output=True)
    return dxf


def draw_references(drawing, names, folder):
    """Lets ezdxf draw 0.png, 1.png, ...; what went wrong, or nothing."""
    try:
        run = subprocess.run([sys.executable, os.path.join(HERE, "reference.py"), reference_dxf(drawing, folder), folder,
                              json.dumps(names)], capture_output=True, text=True, timeout=DEADLINE)
    except (subprocess.SubprocessError, OSError) as error:
        return f"ezdxf: {type(error).__name__}"
    return "" if run.returncode == 0 else "ezdxf: " + (run.stderr.strip().splitlines() or [f"exit {run.returncode}"])[-1]


def our_page(program, drawing, layout, folder):
    """The page's picture and the report's kinds that aren't drawn."""
    pdf = os.path.join(folder, "ours.pdf")
    which = ["--layouts", "model"] if layout["model"] else ["--layout", layout["name"]]
    run = subprocess.run([program, "convert", drawing, "-o", pdf, "--report", "json", *which], capture_output=True, text=True)
    if run.returncode not in (0, 4):
        return None, {}, (run.stderr.strip().splitlines() or ["?"])[-1]
    subprocess.run(["pdftoppm", "-r", "200", "-png", "-singlefile", pdf, os.path.join(folder, "ours")], check=True)
    report = json.loads(run.stdout)["drawings"][0]
    return pictures.Image.open(os.path.join(folder, "ours.png")).convert("L"), report["entities"]["notDrawnByKind"], ""


def file_name(drawing, layout):
    return re.sub(r"[^\w.-]+", "_", ".".join([*drawing.split(os.sep)[-2:], layout["name"]])) + ".png"


class Survey:
    def __init__(self, program, out):
        self.program, self.out = program, out
        self.differences, self.not_drawn = [], collections.defaultdict(collections.Counter)

    def take(self, drawing):
        listed = subprocess.run([self.program, "layouts", drawing, "--json"], capture_output=True, text=True)
        if listed.returncode != 0:
            self.differences.append((NOT_COMPARED, drawing, "", listed.stderr.strip()))
            return
        layouts = [layout for layout in json.loads(listed.stdout) if layout["entities"] > 0]
        with tempfile.TemporaryDirectory() as folder:
            theirs, why = self.references(twin_of(drawing), ["" if row["model"] else row["name"] for row in layouts], folder)
            for layout, picture in zip(layouts, theirs):
                self.take_layout(drawing, layout, picture if os.path.exists(picture) else None, why, folder)

    def references(self, drawing, names, folder):
        """The places of ezdxf's pictures, which are kept for later runs, and what went wrong."""
        with open(drawing, "rb") as file:
            content = file.read()
        kept = [os.path.join(self.out, "ezdxf", hashlib.sha1(content + name.encode()).hexdigest() + ".png") for name in names]
        missing = [(name, place) for name, place in zip(names, kept) if not os.path.exists(place)]
        why = draw_references(drawing, [name for name, _ in missing], folder) if missing else ""
        for index, (_, place) in enumerate(missing):
            picture = os.path.join(folder, f"{index}.png")
            if os.path.exists(picture):
                shutil.move(picture, place)
        return kept, why

    def take_layout(self, drawing, layout, theirs, why, folder):
        page, kinds, failure = our_page(self.program, drawing, layout, folder)
        for kind, count in kinds.items():
            self.not_drawn[kind][os.path.basename(drawing)] = max(count, self.not_drawn[kind][os.path.basename(drawing)])
        boxes = [pictures.ink_box(page) if page else None,
                 pictures.ink_box(pictures.Image.open(theirs).convert("L")) if theirs else None]
        name = file_name(drawing, layout)
        if boxes == [None, None] and not failure and not why:
            self.differences.append((0.0, drawing, layout["name"], "both are empty"))
            return
        if None in boxes:
            missing = [text for text, box in (("ours is empty", boxes[0]), ("ezdxf's is empty", boxes[1])) if box is None]
            self.differences.append((NOT_COMPARED, drawing, layout["name"], failure or why or " and ".join(missing)))
            return
        share = pictures.difference(*boxes)
        if share > reasons.MOST:
            pages = alignment.aligned(*boxes)
            share, boxes = min((share, boxes), (pictures.difference(*pages), pages), key=lambda pair: pair[0])
        pictures.pair(*boxes, os.path.join(self.out, name))
        self.differences.append((share, drawing, layout["name"], name))
        print(f"{share:.3f}  {name}", flush=True)

    def tell(self):
        rows, unexplained, used = [], [], set()
        for share, drawing, layout, text in sorted(self.differences, key=lambda row: -row[0]):
            name = f"{os.path.basename(drawing)} [{layout}]"
            row = f"{share:.3f}  {name}" if share < NOT_COMPARED else f"  -    {name}  not compared: {text}"
            if share > reasons.MOST:
                reason = reasons.reason_for(os.path.basename(drawing), layout)
                unexplained += [] if reason else [row]
                used.add(reason)
                row += ": " + (reason or "NO REASON IS WRITTEN DOWN")
            rows.append(row)
        with open(os.path.join(self.out, "differences.txt"), "w", encoding="utf-8") as file:
            file.write("\n".join(rows) + "\n")
        above = [share for share, *_ in self.differences if share > reasons.MOST]
        print(f"\n{len(rows)} pages, {len(above)} above {reasons.MOST} or not compared, {len(used - {None})} reasons, "
              f"{len(unexplained)} without one", *unexplained, sep="\n")
        return self.tell_not_drawn() or bool(unexplained)

    def tell_not_drawn(self):
        print("\nNot drawn:")
        for kind, counts in sorted(self.not_drawn.items()):
            where = ", ".join(f"{count} in {drawing}" for drawing, count in counts.most_common(3))
            print(f"  {kind}: {where}; {NOT_DRAWN.get(kind, 'NO REASON IS KNOWN')}")
        return any(kind not in NOT_DRAWN for kind in self.not_drawn)


def main(program, folder, out, pattern="*"):
    os.makedirs(os.path.join(out, "ezdxf"), exist_ok=True)
    survey = Survey(os.path.abspath(program), out)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        list(pool.map(survey.take, drawings_in(folder, pattern)))
    return int(survey.tell())


if __name__ == "__main__":
    if len(sys.argv) not in (4, 5):
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
