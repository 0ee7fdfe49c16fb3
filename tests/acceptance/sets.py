#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Sets of sheets: contents pages, what stands there, where its lines lead, in which fonts; drawings that end their process.

    sets.py PROGRAM

Each row is a function that runs commands in a folder of its own and says what is wrong. Ends with "N passed, M failed".
"""
import hashlib
import json
import os
import re
import shutil
import signal
import subprocess
import sys
import time

import ezdxf

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


def sheets_of_a_list(stand):
    stand.drawings("a.dxf", "b.dxf", "c.dxf")
    stand.write("set.txt", "b.dxf\r\n\nc.dxf:A-201 Section\n")
    run = stand.run("publish", "-o", "set.pdf", "a.dxf:A-101 Ground Floor", "--list", "set.txt", "--contents")
    stand.same((run.returncode, lines_of(stand, "set.pdf", 1, 1)),
               (0, ["Contents", "a", f"{SHEETS[0]} . 2", "b", *(f"{sheet} . {at}" for at, sheet in enumerate(SHEETS, 3)), "c", f"{SHEETS[2]} . 6"]))
    run = stand.run("publish", "-o", "again.pdf", "--list", "-", stdin="c.dxf\n")
    stand.same((run.returncode, stand.pages("again.pdf")), (0, "3"))
    for words, error in ((("--list", "none.txt"), "the list none.txt can't be read"), (("--list", "-"), "the list - names no drawing"),
                         ((), "DRAWING or --list is required")):
        run = stand.run("publish", "-o", "third.pdf", *words, stdin="\n")
        stand.same((run.returncode, run.stderr, stand.files().count("third.pdf")), (2, f"sheetmaker publish: {error}\n", 0))


def what_is_done_is_left(stand):
    """--update makes a set again that is older than one of its drawings or broken, --no-clobber never."""
    stand.drawings("a.dxf", "b.dxf")
    words = ("publish", "-o", "set.pdf", "a.dxf", "b.dxf:A-201 Section")
    made, newer, kept = f"set.pdf -> {stand.path('set.pdf')}, 4 pages\n", "set.pdf: left as it is, it is newer\n", "set.pdf: left as it is, it exists\n"
    for drawing in ("a.dxf", "b.dxf"):
        os.utime(stand.path(drawing), (1e9, 1e9))
    for change, option, wanted in ((None, "--no-clobber", made), (None, "--no-clobber", kept), (None, "--update", newer),
                                   ("b.dxf", "--update", made), ("set.pdf", "--update", made), ("set.pdf", "--no-clobber", kept)):
        if change == "set.pdf":
            os.truncate(stand.path("set.pdf"), 2000)
        elif change:
            later = os.stat(stand.path("set.pdf")).st_mtime + 1
            os.utime(stand.path(change), (later, later))
        run = stand.run(*words, option)
        said = "".join(line + "\n" for line in stand.said(run))
        stand.same((run.returncode, run.stdout + said), (0, wanted), f"{change} {option}")
        if change == "b.dxf":
            os.utime(stand.path(change), (1e9, 1e9))


def logs(stand):
    """In another file, in none, and beside what they would replace."""
    stand.drawings("a.dxf")
    words = ("publish", "-o", "set.pdf", "a.dxf")
    run = stand.run(*words, "--log", "set.log")
    with open(stand.path("set.log"), encoding="utf-8") as file:
        lines = file.read().splitlines()
    stand.same((run.returncode, stand.said(run), [line[14:] for line in lines if line.startswith("  Layout Tab: ")], lines[-1]),
               (0, [], list(SHEETS), "PDF FILE SAVED"))
    stand.same((stand.files(), stand.run("log", "--list").stdout.split()[-1]), (["a.dxf", "set.log", "set.pdf"], stand.path("set.log")))
    for log, error in (("a.dxf", "the log would replace a.dxf; choose another name"), ("set.pdf", "the log would replace set.pdf; choose another name")):
        run = stand.run(*words, "--log", log)
        stand.same((run.returncode, run.stderr), (2, f"sheetmaker publish: {error}\n"))
    state = os.path.join(stand.environment["XDG_STATE_HOME"], "sheetmaker-pdf")
    shutil.rmtree(state)
    with open(state, "w", encoding="utf-8"):
        pass  # a file where the folder of logs should be
    for option, code in ((), 0), (("--strict",), 1):
        run = stand.run(*words, *option, "--report", "json")
        stand.same((run.returncode, [line for line in stand.said(run) if "log" in line], json.loads(run.stdout)["drawings"][0]["logLost"]),
                   (code, [f"warning: no log is kept: {state} can't be written: Not a directory"], True))


def as_many_in_hand_as_asked(stand):
    """Read ahead or one after the other: the same sheets, the same errors, the same log."""
    names = [f"{number}.dxf" for number in range(9)]
    stand.drawings(*names)
    stand.write("4.dxf", "no drawing")
    stand.environment["SOURCE_DATE_EPOCH"] = "1700000000"
    seen = []
    for jobs in ("1", "2", "5", "256"):
        run = stand.run("publish", "-o", "set.pdf", "--keep-going", "--jobs", jobs, *names, "2.dxf")
        with open(stand.path("set.pdf"), "rb") as file:
            pdf = hashlib.sha256(file.read()).hexdigest()
        log = re.sub(r"\d\d:\d\d:\d\d", "", stand.run("log").stdout)
        seen.append((run.returncode, run.stdout, run.stderr, pdf, log))
        os.remove(stand.path("set.pdf"))
    stand.same([one == seen[0] for one in seen], [True] * 4)
    stand.same((seen[0][0], seen[0][1]), (1, f"set.pdf -> {stand.path('set.pdf')}, 27 pages\n"), seen[0][2])


def same_bytes(stand):
    stand.environment["SOURCE_DATE_EPOCH"] = "1700000000"
    sums = set()
    for folder in ("one", "two"):
        stand.drawings(folder + "/plan.dxf")
        stand.run("publish", "-o", folder + "/set.pdf", "--contents", folder + "/plan.dxf")
        with open(stand.path(folder + "/set.pdf"), "rb") as file:
            sums.add(hashlib.sha256(file.read()).hexdigest())
    stand.same(len(sums), 1)


def endless(stand, name):
    """A drawing that takes far more than seconds."""
    drawing = ezdxf.new("R2000")
    drawing.blocks.new("B0").add_circle((0, 0), 1)
    for level in range(1, 6):
        drawing.blocks.new(f"B{level}").add_blockref(f"B{level - 1}", (0, 0), {"row_count": 16, "column_count": 16, "row_spacing": 3,
                                                                           "column_spacing": 3})
    for number in range(40):
        drawing.layouts.new(f"Sheet {number}").add_blockref("B5", (0, 0))
    drawing.saveas(stand.path(name))


def late_ones_are_left_out(stand):
    stand.drawings("a.dxf", "c.dxf")
    endless(stand, "b.dxf")
    words = ("publish", "-o", "set.pdf", "--contents", "a.dxf", "b.dxf", "c.dxf", "--timeout", "3")
    run = stand.run(*words)
    reason = "the conversion took longer than 3 s and was ended; --timeout allows it more"
    stand.same((run.returncode, run.stdout, stand.said(run)[-1], stand.files()),
               (1, "", "sheetmaker publish: " + reason, ["a.dxf", "b.dxf", "c.dxf"]), "without --keep-going")
    run = stand.run(*words, "--keep-going", "--report", "json")
    report = json.loads(run.stdout)["drawings"][0]
    stand.same((run.returncode, report["converted"], report["exitCode"], report["pages"], report["notes"][0]),
               (1, True, 1, 7, "b.dxf: failed: " + reason))
    stand.same([line for line in run.stderr.splitlines() if "failed" in line], ["b.dxf: failed: " + reason])
    stand.same(lines_of(stand, "set.pdf", 1, 1)[0::4], ["Contents", "A-201 Section . 4", "A-201 Section . 7"])
    stand.same((os.listdir(stand.environment["TMPDIR"]), stand.files()), ([], ["a.dxf", "b.dxf", "c.dxf", "set.pdf"]), "left behind")


def worker_of(process):
    """The one child of a process; 0: it has none."""
    with open(f"/proc/{process}/task/{process}/children", encoding="ascii") as file:
        children = file.read().split()
    return int(children[0]) if children else 0


def crashes_are_left_out(stand):
    stand.drawings("a.dxf", "c.dxf")
    endless(stand, "b.dxf")
    with subprocess.Popen([stand.program, "publish", "-o", "set.pdf", "a.dxf", "b.dxf", "c.dxf", "--keep-going", "--jobs", "2"],
                          cwd=stand.work, env=stand.environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True) as run:
        for _ in range(2):  # after the first one no other drawing is read beside b.dxf
            time.sleep(1.5)  # a.dxf takes 20 ms, b.dxf minutes
            os.kill(worker_of(run.pid), signal.SIGSEGV)
        out, err = run.communicate(timeout=60)
    stand.same((run.returncode, out, stand.pages("set.pdf")), (1, f"set.pdf -> {stand.path('set.pdf')}, 6 pages\n", "6"))
    stand.same([line for line in err.splitlines() if "failed" in line], ["b.dxf: failed: the conversion was ended by signal 11"])


def nothing_is_left(stand):
    endless(stand, "b.dxf")
    run = stand.run("publish", "-o", "set.pdf", "b.dxf", "--timeout", "1", "--keep-going")
    stand.same((run.returncode, stand.said(run), stand.files()),
               (1, ["b.dxf: failed: the conversion took longer than 1 s and was ended; --timeout allows it more",
                    "sheetmaker publish: no sheet could be converted; set.pdf was not written"], ["b.dxf"]))
    state = os.path.join(stand.environment["XDG_STATE_HOME"], "sheetmaker-pdf")
    stand.same([name for name in os.listdir(state) if name.startswith("SmPdfAcad-")], [], "logs left behind")


ROWS = (one_page, fonts, many_pages, long_names, what_failed_is_not_listed, sheets_of_a_list, what_is_done_is_left, logs, as_many_in_hand_as_asked, same_bytes,
        late_ones_are_left_out, crashes_are_left_out, nothing_is_left)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(stands.main(os.path.abspath(sys.argv[1]), ROWS))
