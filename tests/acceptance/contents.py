#!/usr/bin/python3
"""Sets of sheets that begin with a contents page: what stands there, where its lines lead, and in which fonts.

    contents.py PROGRAM

Each row is a function that runs commands in a folder of its own and says what is wrong. Ends with "N passed, M failed".
"""
import hashlib
import json
import os
import re
import shutil
import subprocess
import sys

import stands

SHEETS = ("A-101 Ground Floor", "A-102 Upper Floor", "A-201 Section")


def lines_of(stand, name, first, last):
    """Lines of the contents, the dots taken for one."""
    text = subprocess.run(["pdftotext", "-layout", "-f", str(first), "-l", str(last), stand.path(name), "-"], capture_output=True, text=True,
                          check=True).stdout
    return [re.sub(r" ?\.{3,} *", " . ", " ".join(line.split())) for line in text.replace("\f", "\n").split("\n") if line.strip()]


def document(stand, name):
    run = subprocess.run(["qpdf", "--json=1", stand.path(name)], capture_output=True, text=True, check=True)
    return json.loads(run.stdout)


def targets(stand, name, page):
    """The pages that the links of a page lead to, from its top to its foot, each once where two stand side by side."""
    whole = document(stand, name)
    pages = [one["object"] for one in whole["pages"]]
    found = []
    for reference in whole["objects"][pages[page - 1]].get("/Annots", []):
        link = whole["objects"][reference]
        if link["/Subtype"] == "/Link":
            found.append((-link["/Rect"][3], pages.index(link["/Dest"][0]) + 1))
    return [target for _, target in sorted(found)]


def one_page(stand):
    stand.drawings("plan.dxf")
    shutil.copy(os.path.join(stands.ROOT, "samples", "site.dxf"), stand.path("site.dxf"))
    run = stand.run("publish", "-o", "set.pdf", "--contents", "plan.dxf", "site.dxf", "--report", "json")
    stand.same((run.returncode, json.loads(run.stdout)["drawings"][0]["pages"], stand.pages("set.pdf")), (0, 5, "5"))
    stand.same(lines_of(stand, "set.pdf", 1, 1),
               ["Contents", "plan", *(f"{sheet} . {number}" for number, sheet in enumerate(SHEETS, 2)), "site", "Site . 5"])
    stand.same(targets(stand, "set.pdf", 1), [2, 2, 3, 4, 5, 5])
    whole = document(stand, "set.pdf")
    stand.same([(entry["title"], [below["title"] for below in entry["kids"]]) for entry in whole["outlines"]],
               [("Contents", []), ("plan", list(SHEETS)), ("site", ["Site"])])
    stand.same([label["label"]["/P"] for label in whole["pagelabels"]], ["Contents", *SHEETS, "Site"])
    stand.same(stand.run("publish", "-o", "plain.pdf", "plan.dxf", "site.dxf").returncode, 0)
    stand.same(stand.pages("plain.pdf"), "4", "without --contents")


def fonts(stand):
    stand.drawings("plan.dxf")
    stand.drawings("Grundriss Ж 東.dxf")
    stand.run("publish", "-o", "set.pdf", "--contents", "plan.dxf", "Grundriss Ж 東.dxf")
    stand.same([line for line in lines_of(stand, "set.pdf", 1, 1) if "Grundriss" in line], ["Grundriss Ж 東"])
    listed = subprocess.run(["pdffonts", "-l", "1", stand.path("set.pdf")], capture_output=True, text=True, check=True).stdout.splitlines()[2:]
    stand.same([line for line in listed if line.split()[-5] != "yes"], [], "fonts that the PDF does not hold")
    names = {line.split()[0].split("+")[-1] for line in listed}
    stand.same({"LiberationSans", "LiberationSans-Bold"} <= names, True, str(names))


def many_pages(stand):
    drawings = [f"plan-{number:02}.dxf" for number in range(30)]
    stand.drawings(*drawings)
    stand.run("publish", "-o", "set.pdf", "--contents", *drawings)
    count = 3  # 120 lines, 43 on the first page and 45 on the others
    stand.same(stand.pages("set.pdf"), str(90 + count))
    wanted = ["Contents"]
    for number, name in enumerate(drawings):
        wanted += [name[:-4], *(f"{sheet} . {1 + count + 3 * number + at}" for at, sheet in enumerate(SHEETS))]
    stand.same(lines_of(stand, "set.pdf", 1, count), wanted)
    headings = {name[:-4] for name in drawings}
    for page in range(1, count + 1):
        lines = lines_of(stand, "set.pdf", page, page)
        stand.same(lines[-1] in headings, False, f"page {page} ends with a heading")
        stand.same(len(targets(stand, "set.pdf", page)), len([line for line in lines if line != "Contents"]), f"links of page {page}")
    stand.same([label["label"]["/P"] for label in document(stand, "set.pdf")["pagelabels"]][:4],
               ["Contents", "Contents 2", "Contents 3", "A-101 Ground Floor"])


def long_names(stand):
    name = " ".join(["a very long name of a drawing"] * 7)
    stand.drawings(name + ".dxf")
    stand.run("publish", "-o", "set.pdf", "--contents", name + ".dxf")
    lines = lines_of(stand, "set.pdf", 1, 1)
    stand.same((len(lines), " ".join(lines[1:-3]), lines[-3]), (7, name, "A-101 Ground Floor . 2"))


def what_failed_is_not_listed(stand):
    stand.drawings("a.dxf", "c.dxf")
    stand.write("b.dxf", "no drawing")
    run = stand.run("publish", "-o", "set.pdf", "--contents", "--keep-going", "a.dxf", "b.dxf", "c.dxf")
    stand.same((run.returncode, [line for line in lines_of(stand, "set.pdf", 1, 1) if "." not in line]), (1, ["Contents", "a", "c"]))
    stand.same(targets(stand, "set.pdf", 1), [2, 2, 3, 4, 5, 5, 6, 7])


def same_bytes(stand):
    stand.environment["SOURCE_DATE_EPOCH"] = "1700000000"
    sums = set()
    for folder in ("one", "two"):
        stand.drawings(folder + "/plan.dxf")
        stand.run("publish", "-o", folder + "/set.pdf", "--contents", folder + "/plan.dxf")
        with open(stand.path(folder + "/set.pdf"), "rb") as file:
            sums.add(hashlib.sha256(file.read()).hexdigest())
    stand.same(len(sums), 1)


ROWS = (one_page, fonts, many_pages, long_names, what_failed_is_not_listed, same_bytes)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(stands.main(os.path.abspath(sys.argv[1]), ROWS))
