#!/usr/bin/python3
"""Runs the program as scripts do: lists, standard streams, updates, reports by line, logs elsewhere, quiet and verbose.

    scripted.py PROGRAM

Each row is a function that runs commands in a folder of its own and says what is wrong. Ends with "N passed, M failed".
"""
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
SAMPLE = os.path.join(ROOT, "samples", "house.dxf")
SCHEMA = os.path.join(ROOT, "share", "sheetmaker-pdf", "report.schema.json")


class Stand:
    def __init__(self, program, folder):
        self.program, self.folder, self.problems = program, folder, []
        self.environment = {"PATH": "/usr/bin:/bin", "LANG": "C.UTF-8", "SHEETMAKER_PDF_SHARE":
                            os.path.join(ROOT, "share", "sheetmaker-pdf")}
        for variable, part in (("HOME", "home"), ("TMPDIR", "tmp"), ("XDG_CONFIG_HOME", "config"), ("XDG_STATE_HOME", "state")):
            self.environment[variable] = os.path.join(folder, part)
            os.mkdir(self.environment[variable])
        self.work = os.path.join(folder, "work")
        os.mkdir(self.work)

    def path(self, name):
        return os.path.join(self.work, name)

    def drawings(self, *names):
        for name in names:
            os.makedirs(os.path.dirname(self.path(name)), exist_ok=True)
            shutil.copy(SAMPLE, self.path(name))

    def write(self, name, text):
        with open(self.path(name), "w", encoding="utf-8") as file:
            file.write(text)

    def run(self, *words, stdin=None, stdout=subprocess.PIPE, text=True):
        return subprocess.run([self.program, *words], cwd=self.work, env=self.environment, input=stdin, stdout=stdout,
                              stderr=subprocess.PIPE, text=text, timeout=120)

    def same(self, got, wanted, what=""):
        if got != wanted:
            self.problems.append(f"{what}: {got!r} instead of {wanted!r}")

    def said(self, run):
        """Lines on the error stream, what is said of fonts aside."""
        return [line for line in run.stderr.splitlines() if ": fonts: " not in line]

    def pages(self, name):
        return subprocess.run(["qpdf", "--show-npages", self.path(name)], capture_output=True, text=True).stdout.strip()

    def files(self, folder="."):
        return sorted(os.listdir(self.path(folder)))


def list_of_drawings(stand):
    stand.drawings("a.dxf", "b c.dxf", "d.dxf")
    stand.write("list.txt", "b c.dxf\r\n\nd.dxf\n")
    run = stand.run("convert", "a.dxf", "--list", "list.txt", "-o", "out/")
    stand.same(run.stdout.splitlines(), [f"{name}.dxf -> {stand.path('out')}/{name}.pdf, 3 pages" for name in ("a", "b c", "d")])
    run = stand.run("convert", "--list", "-", "-o", "two/", stdin="a.dxf\nd.dxf")
    stand.same((run.returncode, stand.files("two")), (0, ["a.pdf", "d.pdf"]))


def lists_that_fail(stand):
    stand.write("empty.txt", "\n")
    stand.write("list.txt", "x.dxf\n")
    for words, line, *given in (
            (["--list", "empty.txt"], "the list empty.txt names no drawing"),
            (["--list", "lst.txt"], 'the list lst.txt can\'t be read; did you mean "list.txt"?'),
            (["--list", "."], "the list . can't be read"),
            ([], "DRAWING or --list is required"),
            ([""], "a drawing's name is empty"),
            (["-", "--list", "-"], "standard input can be read once only", "x.dxf"),
            (["-", "-"], "standard input can be read once only"),
            (["-"], "a drawing from standard input needs -o"),
            (["a.dxf", "b.dxf", "-o", "-"], "-o - takes one drawing"),
            (["a.dxf", "-o", "-", "--report", "json"], "-o - and --report both write to standard output")):
        run = stand.run("convert", *words, stdin="".join(given))
        stand.same((run.returncode, run.stderr), (2, f"sheetmaker convert: {line}\n"), " ".join(words))


def between_programs(stand):
    with open(SAMPLE, "rb") as file:
        drawing = file.read()
    run = stand.run("convert", "-", "-o", "-", stdin=drawing, text=False)
    with open(stand.path("out.pdf"), "wb") as file:
        file.write(run.stdout)
    stand.same((run.returncode, stand.pages("out.pdf")), (0, "3"))
    stand.same(b"- -> -, 3 pages\n" in run.stderr, True, run.stderr.decode())
    run = stand.run("convert", "-", "-o", "named.pdf", "--report", "json", stdin=drawing, text=False)
    report = json.loads(run.stdout)["drawings"][0]
    stand.same((report["drawing"], report["drawingUri"], report["pdf"]), ("-", "", stand.path("named.pdf")))
    run = stand.run("convert", "-", "-o", "-", stdin=b"no drawing", text=False)
    stand.same((run.returncode, run.stdout), (1, b""))
    stand.same(b"/tmp" in run.stderr, False, "the run's own folder is named: " + run.stderr.decode())
    stand.same(os.listdir(stand.environment["TMPDIR"]), [], "left behind")


def update(stand):
    stand.drawings("a.dxf", "b.dxf", "c.dxf", "d.dxf")
    stand.run("convert", "a.dxf", "b.dxf", "c.dxf")
    os.utime(stand.path("b.dxf"), (time.time() + 10, time.time() + 10))
    with open(stand.path("c.pdf"), "r+b") as file:
        file.truncate(2000)
    run = stand.run("convert", "a.dxf", "b.dxf", "c.dxf", "d.dxf", "--update")
    stand.same([line.split(" -> ")[0] for line in run.stdout.splitlines()], ["b.dxf", "c.dxf", "d.dxf"])
    stand.same([line for line in stand.said(run) if "left out" in line], [f"a.dxf: left out, {stand.path('a.pdf')} is newer"])
    stand.write("a.dxf.sheetmaker", "{}")
    os.utime(stand.path("a.dxf.sheetmaker"), (time.time() + 10, time.time() + 10))
    stand.same("a.dxf: left out" in stand.run("convert", "a.dxf", "--update").stderr, False, "the file beside it is newer")


def report_by_line(stand):
    stand.drawings("a.dxf", "b.dxf")
    stand.write("bad.dxf", "no drawing")
    run = stand.run("convert", "a.dxf", "bad.dxf", "b.dxf", "-o", "out/", "--report", "jsonl")
    lines = [json.loads(line) for line in run.stdout.splitlines()]
    stand.same((run.returncode, sorted((line["drawing"], line["schema"], line["converted"]) for line in lines)),
               (1, [("a.dxf", 1, True), ("b.dxf", 1, True), ("bad.dxf", 1, False)]))


def report_not_written(stand):
    stand.drawings("a.dxf")
    for words, line in ((["--report", "json"], "the report could not be written to standard output"),
                        (["--report", "jsonl"], "the report could not be written to standard output"),
                        ([], "the results could not be written to standard output")):
        with open("/dev/full", "w", encoding="utf-8") as full:
            run = stand.run("convert", "a.dxf", *words, stdout=full)
        stand.same((run.returncode, stand.said(run)), (1, [line]), " ".join(words))


def names_not_of_utf8(stand):
    name = b"pl\xffn.dxf"
    shutil.copy(SAMPLE, os.path.join(stand.work.encode(), name))
    run = stand.run("convert", name, "--report", "json", text=False)
    report = json.loads(run.stdout)["drawings"][0]
    stand.same((run.returncode, report["drawing"], report["drawingUri"].rsplit("/", 1)[1], report["pdfUri"].rsplit("/", 1)[1]),
               (0, "pl\ufffdn.dxf", "pl%FFn.dxf", "pl%FFn.pdf"))
    stand.same(os.path.exists(os.path.join(stand.work.encode(), b"pl\xffn.pdf")), True)


def logs_elsewhere(stand):
    stand.drawings("a.dxf", "sub/a.dxf", "b.dxf")
    stand.run("convert", "a.dxf", "sub/a.dxf", "b.dxf", "--log-dir", "logs")
    stand.same(stand.files("logs"), ["a-2.log", "a.log", "b.log"])
    stand.same(os.path.exists(os.path.join(stand.environment["XDG_STATE_HOME"], "sheetmaker-pdf", "SmPdfAcad.log")), False)
    stand.run("convert", "a.dxf", "b.dxf", "--log", "both.log")
    stand.run("convert", "b.dxf", "--log", "one.log")
    for name, pdfs in (("both.log", ["a.pdf", "b.pdf"]), ("one.log", ["b.pdf"]), ("logs/b.log", ["b.pdf"])):
        with open(stand.path(name), encoding="utf-8") as file:
            begun = [line.split("/")[-1].strip() for line in file if line.startswith("PLUGIN STARTING PDF FILE: ")]
        stand.same(begun, pdfs, name)
    stand.same(stand.files(), ["a.dxf", "a.pdf", "b.dxf", "b.pdf", "both.log", "logs", "one.log", "sub"])


def logs_that_fail(stand):
    stand.drawings("a.dxf")
    run = stand.run("convert", "a.dxf", "--log-dir", "/proc/none")
    stand.same((run.returncode, len(stand.said(run)), stand.said(run)[0].startswith("warning: no log is kept: /proc/none can't be")),
               (0, 1, True))
    run = stand.run("convert", "a.dxf", "--log", ".", "--strict", "--report", "json")
    stand.same((run.returncode, json.loads(run.stdout)["drawings"][0]["logLost"]), (1, True))


def logs_replace_nothing(stand):
    """Neither a drawing nor a list, PDF, pipe or link to one of them."""
    stand.drawings("a.dxf", "b.dxf")
    stand.write("list.txt", "a.dxf\n")
    stand.write("a.pdf", "former")
    os.symlink("b.dxf", stand.path("link.log"))
    os.mkfifo(stand.path("pipe"))
    rows = (("a.dxf", "the log would replace a.dxf; choose another name"), ("link.log", "the log would replace b.dxf; choose another name"),
            ("list.txt", "the log would replace list.txt; choose another name"),
            ("a.pdf", f"the log would replace {stand.path('a.pdf')}; choose another name"),
            ("pipe", "the log can't be pipe: it is no plain file"))
    before = {name: os.lstat(stand.path(name)).st_ino for name in stand.files()}
    for name, line in rows:
        run = stand.run("convert", "--list", "list.txt", "b.dxf", "--log", name)
        stand.same((run.returncode, run.stderr), (2, f"sheetmaker convert: {line}\n"), name)
    stand.same({name: os.lstat(stand.path(name)).st_ino for name in stand.files()}, before, "nothing was touched")
    os.symlink("real.log", stand.path("to.log"))
    stand.run("convert", "a.dxf", "--log", "to.log")
    stand.same((os.path.islink(stand.path("to.log")), os.path.getsize(stand.path("real.log")) > 0), (True, True), "a link is followed")


def logs_of_the_same_name(stand):
    """No two drawings share one, and a drawing keeps its own when others are left out."""
    stand.drawings("a/plan.dxf", "b/plan.dxf", "c/plan-2.dxf")
    names = ("a/plan.dxf", "b/plan.dxf", "c/plan-2.dxf")

    def logs():
        found = {}
        for name in stand.files("logs"):
            with open(stand.path("logs/" + name), encoding="utf-8") as file:
                found[name] = re.search(r"^PLUGIN STARTING PDF FILE: .*/work/(.*)\.pdf", file.read(), re.M).group(1) + ".dxf"
        return found

    stand.run("convert", *names, "--log-dir", "logs")
    stand.same(logs(), {"plan.log": "a/plan.dxf", "plan-2.log": "b/plan.dxf", "plan-2-2.log": "c/plan-2.dxf"})
    os.utime(stand.path("b/plan.dxf"), (time.time() + 10, time.time() + 10))
    stand.run("convert", *names, "--log-dir", "logs", "--update")
    stand.same(logs(), {"plan.log": "a/plan.dxf", "plan-2.log": "b/plan.dxf", "plan-2-2.log": "c/plan-2.dxf"}, "after an update")


def passwords_refused(stand):
    stand.drawings("a.dxf")
    stand.write("empty", "\n")
    stand.write("long", "x" * 5000)
    for word, line in (("", "a password is empty"), ("@empty", "a password is empty"), ("x" * 128, "a password has at most 127 bytes"),
                       ("@long", "a password has at most 127 bytes"), ("@/dev/zero", "a password is empty"),
                       ("@gone", "gone can't be read")):
        run = stand.run("convert", "a.dxf", "--owner-password", word)
        stand.same((run.returncode, run.stderr.splitlines()[0]), (2, f"sheetmaker convert: --owner-password: {line}"), word[:9])
    os.mkfifo(stand.path("pipe"))
    writer = subprocess.Popen(["sh", "-c", "echo geheim > pipe"], cwd=stand.work)
    run = stand.run("convert", "a.dxf", "--owner-password", "@pipe")
    writer.wait()
    told = subprocess.run(["qpdf", "--password=geheim", "--show-encryption", stand.path("a.pdf")], capture_output=True, text=True)
    stand.same((run.returncode, "Supplied password is owner password" in told.stdout), (0, True), "from a pipe: " + told.stdout)


def idle_options(stand):
    stand.drawings("a.dxf")
    for word in ("--keep-ps", "--open", "--update", "--no-clobber"):
        run = stand.run("convert", "a.dxf", "-o", "-", word)
        stand.same((run.returncode, run.stderr),
                   (2, "sheetmaker convert: -o - goes with none of --keep-ps, --open, --update and --no-clobber\n"))
    os.mkfifo(stand.path("a.pdf"))
    stand.same("left out" in stand.run("convert", "a.dxf", "--update").stderr, False, "a pipe is no PDF")
    for text in ("abc", "-1", "1e9", " 5", "253402300800"):
        stand.environment["SOURCE_DATE_EPOCH"] = text
        run = stand.run("convert", "a.dxf")
        stand.same((run.returncode, run.stderr), (2, f"sheetmaker convert: SOURCE_DATE_EPOCH is no number of seconds since 1970: {text}\n"))


def fonts_once(stand):
    stand.drawings("a.dxf", "b.dxf", "c.dxf")
    run = stand.run("convert", "a.dxf", "b.dxf", "c.dxf")
    stand.same([line.split(":")[0] for line in run.stderr.splitlines() if ": fonts: " in line], ["a.dxf"])


def quiet(stand):
    stand.drawings("a.dxf")
    stand.write("bad.dxf", "no drawing")
    run = stand.run("convert", "a.dxf", "--quiet")
    stand.same((run.returncode, run.stdout, run.stderr), (0, "", ""))
    run = stand.run("convert", "a.dxf", "bad.dxf", "--quiet")
    stand.same((run.returncode, run.stdout, run.stderr.startswith("bad.dxf: failed: "), len(run.stderr.splitlines())), (1, "", True, 1))


def verbose(stand):
    stand.drawings("a.dxf")
    lines = stand.said(stand.run("convert", "a.dxf", "--verbose"))
    stand.same(lines[:3], [f'a.dxf: sheet "{name}": plotted, marks: 0'
                           for name in ("A-101 Ground Floor", "A-102 Upper Floor", "A-201 Section")])
    stand.same([line.split(": ")[1] for line in lines[3:]], ["entities", "milliseconds"])


def misspelt(stand):
    stand.drawings("plan.dxf")
    run = stand.run("convert", "plan.dfx")
    stand.same((run.returncode, run.stderr),
               (1, 'plan.dfx: failed: there is no such file; check the name; did you mean "plan.dxf"?\n'))
    run = stand.run("convert", "plan.dxf", "--layot", "A")
    stand.same((run.returncode, run.stderr.splitlines()[0]),
               (2, 'sheetmaker convert: there is no option "--layot"; did you mean "--layout"?'))


def title(stand):
    stand.drawings("a.dxf")
    stand.run("convert", "a.dxf", "--title", "Haus & Größe")
    info = subprocess.run(["pdfinfo", stand.path("a.pdf")], capture_output=True, text=True).stdout.splitlines()
    stand.same([line for line in info if line.startswith("Title:")], ["Title:           Haus & Größe"])


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


def marks_nowhere(stand):
    stand.drawings("a.dxf")
    stand.write("note.txt", "attached")
    for words in (("stamp", "a.dxf", "--text", "1", "--at", "900,900"), ("attach", "a.dxf", "add", stand.path("note.txt"), "--at", "-900,5", "--layout", "A-201 Section"),
                  ("attach", "a.dxf", "add", stand.path("note.txt"), "--at", "5,5", "--layout", "Model"),
                  ("sign", "a.dxf", "add", "Field", "--rect", "5,5,9,9", "--layout", "Model")):
        stand.same(stand.run(*words).returncode, 0)
    lost = ['the stamp "DRAFT PRINT"'] * 3 + ["the icon of the attached file " + stand.path("note.txt")]
    unplotted = ["the attached file " + stand.path("note.txt"), 'the signature field "Field"']
    run = stand.run("convert", "a.dxf", "--report", "json", "--strict")
    report = json.loads(run.stdout)["drawings"][0]
    stand.same((run.returncode, sorted(report["marksLost"])), (1, sorted(lost + unplotted)))
    for mark in unplotted:
        stand.same(f'a.dxf: {mark} is on layout "Model", of which this PDF has no page' in run.stderr.splitlines(), True, run.stderr)
    stand.same(f"a.dxf: Page 1: {lost[0]} lies off the page" in run.stderr.splitlines(), True, run.stderr)


ROWS = (same_bytes, encrypted, linearised, language, attachments_pane, marks_nowhere, list_of_drawings, lists_that_fail, between_programs, update, report_by_line, report_not_written, names_not_of_utf8,
        logs_elsewhere, logs_that_fail, logs_replace_nothing, logs_of_the_same_name, passwords_refused, idle_options, fonts_once, quiet, verbose, misspelt, title)


def main(program, rows, drawings=()):
    passed = failed = 0
    for row in rows:
        with tempfile.TemporaryDirectory() as folder:
            stand = Stand(program, folder)
            stand.drawings(*drawings)
            row(stand)
        print(f"{'FAILED' if stand.problems else 'ok':<8}{row.__name__.replace('_', ' ')}")
        for problem in stand.problems:
            print("    " + problem)
        failed, passed = failed + bool(stand.problems), passed + (not stand.problems)
    print(f"{passed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(main(os.path.abspath(sys.argv[1]), ROWS))
