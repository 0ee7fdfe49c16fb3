#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs the program as those do who gather what many runs told: merged reports, logs of many places.

    reports.py PROGRAM

Each row is a function that runs commands in a folder of its own and says what is wrong. Ends with "N passed, M failed".
"""
import json
import os
import sys

import jsonschema

import stands


def is_report(stand, text):
    with open(stands.SCHEMA, encoding="utf-8") as file:
        validator = jsonschema.Draft202012Validator(json.load(file))
    report = json.loads(text)
    stand.same([error.message for error in validator.iter_errors(report)], [], "the schema")
    return report


def runs(stand):
    """One run of a.dxf and bad.dxf, then one of b.dxf and a bad.dxf that was mended, killed in its last line."""
    stand.drawings("a.dxf", "b.dxf")
    stand.write("bad.dxf", "no drawing")
    first = stand.run("convert", "a.dxf", "bad.dxf", "--report", "json")
    stand.write("first.json", first.stdout)
    stand.drawings("bad.dxf")
    second = stand.run("convert", "b.dxf", "bad.dxf", "--report", "jsonl", "--jobs", "1")
    stand.write("second.jsonl", second.stdout + '{"schema":1,"drawing":"c.d')
    stand.same((first.returncode, second.returncode), (1, 0))


def merged(stand):
    runs(stand)
    run = stand.run("report", "merge", "first.json", "second.jsonl", "-o", "all.json")
    stand.same((run.returncode, run.stdout, run.stderr),
               (0, "", "sheetmaker report: second.jsonl:3: a report that breaks off is left out\n"))
    with open(stand.path("all.json"), encoding="utf-8") as file:
        report = is_report(stand, file.read())
    stand.same([(drawing["drawing"], drawing["converted"], drawing["pages"]) for drawing in report["drawings"]],
               [("a.dxf", True, 3), ("bad.dxf", True, 3), ("b.dxf", True, 3)])
    stand.same(report["program"].split()[0], "sheetmaker")


def merged_by_line(stand):
    runs(stand)
    run = stand.run("report", "merge", "second.jsonl", "first.json", "--report", "jsonl")
    lines = [is_report(stand, json.dumps({"schema": 1, "program": "", "drawings": [json.loads(line)]}))["drawings"][0]
             for line in run.stdout.splitlines()]
    stand.same((run.returncode, [(line["schema"], line["drawing"], line["converted"]) for line in lines]),
               (1, [(1, "b.dxf", True), (1, "bad.dxf", False), (1, "a.dxf", True)]), "the later report says that it failed")
    stand.write("again.jsonl", run.stdout)
    again = stand.run("report", "merge", "again.jsonl", "--report", "jsonl")
    stand.same((again.returncode, again.stdout), (1, run.stdout), "merged again")
    run = stand.run("report", "merge", "again.jsonl", "-o", "again.jsonl")
    stand.same((run.returncode, stand.files()),
               (1, ["a.dxf", "a.pdf", "again.jsonl", "b.dxf", "b.pdf", "bad.dxf", "bad.pdf", "first.json", "second.jsonl"]),
               "over one of its own files")


def merge_misses(stand):
    runs(stand)
    stand.write("list.txt", "b.dxf\nbad.dxf\n./a.dxf\nc.dxf\n")
    run = stand.run("report", "merge", "second.jsonl", "--list", "list.txt", "-o", "all.json", "--missing", "missing.txt")
    stand.same((run.returncode, run.stderr.splitlines()[1:]),
               (1, ["./a.dxf: no report tells of it", "c.dxf: no report tells of it"]))
    stand.same(os.path.exists(stand.path("all.json")), True)
    with open(stand.path("missing.txt"), encoding="utf-8") as file:
        stand.same(file.read(), "./a.dxf\nc.dxf\n")
    run = stand.run("report", "merge", "first.json", "second.jsonl", "--list", "second.jsonl", "--missing", ".")
    stand.same((run.returncode, run.stderr), (2, "sheetmaker report: . is no plain file\n"))


def merge_refuses(stand):
    runs(stand)
    stand.write("text", '\n{"schema":2}\n')
    for words, line in ((["first.json", "text"], "text:2: a report of schema 2; this program knows 1"),
                        (["a.dxf"], "a.dxf:1: no report"),
                        (["secnd.jsonl"], 'secnd.jsonl can\'t be read; did you mean "second.jsonl"?'),
                        (["."], ". can't be read"),
                        (["first.json", "--list", "none"], "the list none can't be read"),
                        (["first.json", "-o", "."], ". is no plain file")):
        run = stand.run("report", "merge", *words, *([] if "-o" in words else ["-o", "all.json"]))
        stand.same((run.returncode, run.stderr), (2, f"sheetmaker report: {line}\n"), " ".join(words))
    stand.same(os.path.exists(stand.path("all.json")), False, "nothing is written")
    with open("/dev/full", "w", encoding="utf-8") as full:
        run = stand.run("report", "merge", "first.json", stdout=full)
    stand.same((run.returncode, run.stderr), (1, "sheetmaker report: the report could not be written to standard output\n"))


def names_not_of_utf8(stand):
    for name in (b"pl\xffn.dxf", b"pl\xfen.dxf"):
        with open(stands.SAMPLE, "rb") as source, open(os.path.join(stand.work.encode(), name), "wb") as target:
            target.write(source.read())
    run = stand.run("convert", b"pl\xffn.dxf", b"pl\xfen.dxf", "--report", "jsonl", "--jobs", "1", text=False)
    stand.write("r.jsonl", run.stdout.decode())
    told = stand.run("report", "merge", "r.jsonl", "--report", "jsonl")
    stand.same((told.returncode, told.stdout), (0, run.stdout.decode()), "two drawings that look the same stay two")


def logs_listed(stand):
    stand.drawings("a.dxf", "b.dxf", "sub/c.dxf")
    stand.run("convert", "a.dxf")
    stand.run("convert", "a.dxf", "b.dxf", "--log-dir", "logs")
    stand.run("convert", "sub/c.dxf", "--log", "night.txt")
    for number, name in enumerate(("logs/a.log", "logs/b.log", "night.txt")):
        os.utime(stand.path(name), (1000000000 + number, 1000000000 + number))
    stand.environment["TZ"] = "UTC"
    own = os.path.join(stand.environment["XDG_STATE_HOME"], "sheetmaker-pdf", "SmPdfAcad.log")
    run = stand.run("log", "--list")
    lines = [line.split() for line in run.stdout.splitlines()]
    stand.same((run.returncode, [line[0] + " " + line[3] for line in lines]),
               (0, ["1 " + own] + [f"{number} {stand.path(name)}" for number, name in
                                   ((2, "night.txt"), (3, "logs/b.log"), (4, "logs/a.log"))]))
    stand.same([line[1:3] for line in lines[1:]], [["2001-09-09", "01:46:42"], ["2001-09-09", "01:46:41"], ["2001-09-09", "01:46:40"]])
    for word, name in (("2", "night.txt"), ("a", "logs/a.log"), ("b.dxf", "logs/b.log"), ("night.txt", "night.txt")):
        with open(stand.path(name), encoding="utf-8") as file:
            stand.same(stand.run("log", word).stdout, file.read(), word)
    os.remove(stand.path("night.txt"))
    stand.same(len(stand.run("log", "--list").stdout.splitlines()), 3, "what is gone is not listed")


ROWS = (merged, merged_by_line, merge_misses, merge_refuses, names_not_of_utf8, logs_listed)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(stands.main(os.path.abspath(sys.argv[1]), ROWS))
