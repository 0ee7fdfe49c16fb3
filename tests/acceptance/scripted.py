#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
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
import time

import stands


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
    with open(stands.SAMPLE, "rb") as file:
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
    shutil.copy(stands.SAMPLE, os.path.join(stand.work.encode(), name))
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
                found[name] = re.search(r"^PLUGIN STARTING PDF FILE: .*/desk/(.*)\.pdf", file.read(), re.M).group(1) + ".dxf"
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


ROWS = (marks_nowhere, list_of_drawings, lists_that_fail, between_programs, update, report_by_line, report_not_written,
        names_not_of_utf8, logs_elsewhere, logs_that_fail, logs_replace_nothing, logs_of_the_same_name, passwords_refused,
        idle_options, fonts_once, quiet, verbose, misspelt)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(stands.main(os.path.abspath(sys.argv[1]), ROWS))
