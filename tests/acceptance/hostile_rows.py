# SPDX-License-Identifier: GPL-3.0-or-later
"""The rows of hostile_references.py: what is named, how the run ends, what it says, and which files it may read."""
import collections

import hostile_drawings as drawings

Row = collections.namedtuple("Row", "title files command code said read before", defaults=((), ()))
CONVERT = ["convert", "plan.dxf", "--layouts", "model", "--page-setup", "native"]
ENDS = {"image": "png", "underlay": "pdf", "reference": "dxf", "font": "shx", "shape": "shx", "style": "ctb", "attachment": "txt"}
LABEL = "plan.dxf: fonts: txt drawn with standard.lff (style Standard)"
NONE, NO_FILE, FOLDER = "there is no such file", "it is not an ordinary file", "it is a folder"

# Of what can't be used, by kind: exit code and lines.
MISSING = {
    "image": (4, ['plan.dxf: lost: the picture "{name}" is not found; put it beside the drawing', "plan.dxf: not drawn: 1 IMAGE", LABEL]),
    "underlay": (4, ['plan.dxf: lost: the underlay "{name}" is not found; put it beside the drawing',
                     "plan.dxf: not drawn: 1 PDFUNDERLAY", LABEL]),
    "reference": (4, ['plan.dxf: lost: the drawing "{name}" is not found; put it beside the drawing', "plan.dxf: not drawn: 1 INSERT"]),
    "font": (0, ["plan.dxf: fonts: {file} drawn with standard.lff (style NOTES)"]),
    "shape": (0, ["plan.dxf: not drawn: 1 SHAPE", "plan.dxf: note: a shape whose file is missing left out"]),
    "style": (0, ['plan.dxf: note: plot style table "{name}" not found, plotted without it']),
    "attachment": (0, ["warning: A file attachment could not be added because it was missing or locked by another application.",
                       "plan.dxf: Page 1: the file {name} could not be attached: {reason}"]),
}
# Of a file that is read and is no picture, drawing, font and so on.
USELESS = {
    "image": (4, ['plan.dxf: lost: the picture "{name}" is in a format that can\'t be read; save it as PNG, JPEG, TIFF or BMP',
                  *MISSING["image"][1][1:]]),
    "underlay": (4, ['plan.dxf: lost: the page 1 of "{name}" can\'t be drawn: the PostScript interpreter failed on it',
                     *MISSING["underlay"][1][1:]]),
    "reference": (4, ['plan.dxf: lost: the drawing "{name}" can\'t be read: {name}: line 1 is no DXF group code: this is some other '
                      "text, not a drawing; name a DXF or DWG file", *MISSING["reference"][1][1:]]),
    "font": MISSING["font"],
    "shape": MISSING["shape"],
    "style": (0, ["plan.dxf: note: plotted without plot styles: {root}/job/{file}, line 1: this is no line of a plot style table. Save the "
                  "plot style table again or choose another one."]),
    "attachment": (0, ["plan.dxf: attached from outside the folder of plan.dxf: {name} (6 bytes)"]),
}

# What must never be opened: title, name, its part that fonts go by, why it can't be attached.
NAMES = [
    ("nothing", "none.{end}", "none.{end}", NONE),
    ("up and out, nothing", "../../none", "none", NONE),
    ("an absolute path, nothing", "{root}/outside/none", "none", NONE),
    ("a device without end", "/dev/zero", "zero", NO_FILE),
    ("a device of chance", "/dev/random", "random", NO_FILE),
    ("the terminal", "/dev/tty", "tty", NO_FILE),
    ("a device by a detour", "/usr/../dev/./zero", "zero", NO_FILE),
    ("the process's memory", "/proc/self/mem", "mem", NO_FILE),
    ("standard input", "/proc/self/fd/0", "0", NO_FILE),
    ("the environment", "/proc/self/environ", "environ", NO_FILE),
    ("a machine that comes up by itself", "/net/host/x", "x", NO_FILE),
    ("an address", "http://host.example/x", "x", NONE),
    ("a file's address", "file:///etc/passwd", "passwd", NONE),
    ("a share", "\\\\host\\share\\x", "x", NONE),
    ("a command for the interpreter", "%pipe%touch touched", "%pipe%touch touched", NONE),
    ("a command after a bar", "|touch touched", "|touch touched", NONE),
    ("a command for the shell", "$(touch touched)", "$(touch touched)", NONE),
    ("a command in backticks", "`touch touched`", "`touch touched`", NONE),
    ("a command after a semicolon", "x;touch touched", "x;touch touched", NONE),
    ("an option", "-sOutputFile=touched", "-sOutputFile=touched", NONE),
    ("quotes", "\"x' y", "\"x' y", NONE),
    ("an end of line", "a\\U+000Ab", "a?b", NONE),
    ("a colour of the terminal", "a\\U+001B[31mb", "a?[31mb", NONE),
    ("what stands for an end of text", "a%00b", "a%00b", NONE),
    ("an overlong name", 5000 * "n", 5000 * "n", "it can't be read: File name too long"),
    ("a folder", "folder.{end}", "folder.{end}", FOLDER),
    ("a pipe", "pipe.{end}", "pipe.{end}", NO_FILE),
    ("a socket", "socket.{end}", "socket.{end}", NO_FILE),
    ("a link to a pipe", "piped.{end}", "piped.{end}", NO_FILE),
    ("a link to a device", "zero.{end}", "zero.{end}", NO_FILE),
    ("a link to the process's memory", "memory.{end}", "memory.{end}", NO_FILE),
    ("a link to the environment", "words.{end}", "words.{end}", NO_FILE),
    ("a link to itself", "loop.{end}", "loop.{end}", "it can't be read: Too many levels of symbolic links"),
    ("a link to nothing", "dangling.{end}", "dangling.{end}", NONE),
]
# What is read as it is named: title, name, the file.
READ = [
    ("a symbolic link", "link.{end}", "outside/secret.{end}"),
    ("a hard link", "hard.{end}", "job/hard.{end}"),
    ("up and out", "../outside/secret.{end}", "outside/secret.{end}"),
    ("an absolute path", "{root}/outside/secret.{end}", "outside/secret.{end}"),
]
BY_NAME_ALONE = ("font", "shape", "style")  # looked for beside the drawing, wherever the name leads
LINKS = ["file:///etc/passwd", "../outside/secret.txt", "/dev/zero", "\\\\host\\share\\x", "$(touch touched)", "%pipe%touch touched"]
OPTIONS = ('sheetmaker convert: there are no job options "{name}"; there are "Archive [PDF-A]", "Check Print [300 dpi]", "Graphics [600 '
           'dpi]", "Graphics with layers [600 dpi]", "Greyscale [600 dpi]", "Lossless Archive [600 dpi]", "Print [1200 dpi]", '
           '"Screen and E-mail [150 dpi]"')


def shown(name):
    """As a message shows it: what could move the cursor is a question mark."""
    return name.replace("\\U+000A", "?").replace("\\U+001B", "?")


def row_of(kind, title, name, result, read=(), **words):
    name = name.replace("{end}", ENDS[kind])
    file = words.pop("file", name).replace("{end}", ENDS[kind])
    code, lines = result[kind]
    return Row(f"{kind}: {title}", {"plan.dxf": drawings.KINDS[kind](name)}, CONVERT, code,
               [line.replace("{name}", shown(name)).replace("{file}", file).replace("{reason}", words.get("reason", "")) for line in lines],
               [path.replace("{end}", ENDS[kind]) for path in read])


def named_rows():
    for kind in ENDS:
        for title, name, file, reason in NAMES:
            yield row_of(kind, title, name, MISSING, file=file, reason=reason)
        for title, name, path in READ:
            unread = kind in BY_NAME_ALONE and "/" in name
            row = row_of(kind, title, name, MISSING if unread else USELESS, [] if unread else [path], file=name.split("/")[-1])
            yield row._replace(said=[]) if row.title == "attachment: a hard link" else row


def other_rows():
    for name in LINKS:
        yield Row(f"link: {name}", {"plan.dxf": drawings.link(name)}, CONVERT, 0, [], before=[["set", "TransferDrawingHlinks", "1"]])
    for name in ("../../x", "/dev/zero", "%pipe%touch touched", "|touch touched", "$(touch touched)", "../outside/secret.txt"):
        yield Row(f"job options: {name}", {"plan.dxf": drawings.dxf()}, [*CONVERT, "--job-options", name], 2,
                  [OPTIONS.replace("{name}", name)])
    for title, name in (("a pipe", "pipe.txt"), ("a device", "/dev/zero"), ("a socket", "socket.txt"), ("a link to a device", "zero.txt")):
        yield Row(f"log: {title}", {"plan.dxf": drawings.dxf()}, [*CONVERT, "--log", name], 2,
                  [f"sheetmaker convert: the log can't be {name}: it is no plain file"])
    yield Row("log folder: a pipe", {"plan.dxf": drawings.dxf()}, [*CONVERT, "--log-dir", "pipe.txt"], 0,
              ["warning: no log is kept: {root}/job/pipe.txt can't be written: Not a directory"])
    for title, name, said in (("a pipe", "pipe.txt", "this is no ordinary file; name a drawing"),
                              ("a folder", "folder.txt", "this is a folder; name a drawing in it")):
        yield Row(f"drawing: {title}", {}, ["convert", name, "-o", "out.pdf"], 1, [f"{name}: failed: {said}"], ["job/" + name])
    for title, text, code, said in drawings.PAGES:
        yield Row(f"underlay: {title}", {"plan.dxf": drawings.underlay("page.pdf"), "page.pdf": text}, CONVERT, code, said, ["job/page.pdf"])


def rows():
    yield from named_rows()
    yield from other_rows()
