"""Which room may include what, and that no files include each other in a circle anywhere.

A room's public headers lie in adapters/<room>/include/<room>/ and are included as "<room>/Name.h" by everybody who may.
Its insides are included by their sub-room, "<sub-room>/Name.h", from the room itself alone.
"""
import os

from sources import INCLUDE, STANDARD, files, read

PLUGIN = {"ports", "settings", "plotting", "annotations", "hostobjects", "ui", "plugin"}

# Each room with the rooms whose public headers it may include ("src": any folder of the plug-in), and its sub-rooms
# from the lowest up, each with the sub-rooms that it may include besides itself and the room's public headers.
# "" is the room's own folder, "*" any sub-room. Every room may include base, the lowest.
ROOMS = {
    "base": ((), {"text": (), "files": (), "process": ("files",)}),
    "ondemand": ((), {"": ()}),
    "prologue": ((), {}),
    "drawing": ((), {
        "tags": (),
        "entities": ("tags",),
        "acis": ("tags", "entities"),
        "model": ("tags", "entities"),
        "tables": ("tags", "model"),
        "notes": ("tags", "entities", "model"),
        "converter": ("tags",),
        "write": ("tags", "model"),
        "dwg/bits": (),
        "dwg": ("tags",),
        "dwg/file": ("tags", "dwg/bits"),
        "dwg/recovery": ("tags", "dwg/bits", "dwg/file"),
        "dwg/old": ("tags", "dwg", "dwg/file"),
        "dwg/objects": ("tags", "dwg", "dwg/bits", "dwg/file"),
        "dwg/tables": ("tags", "dwg", "dwg/bits", "dwg/objects"),
        "dwg/records": ("tags", "dwg", "dwg/bits", "dwg/objects"),
        "dwg/entities": ("tags", "dwg", "dwg/bits", "dwg/objects"),
        "dwg/read": ("*",),
        "dxf": ("*",),
    }),
    "render": (("process", "drawing"), {
        "geometry": (),
        "shapes": ("text",),
        "fonts": ("shapes", "text"),
        "text": ("fonts",),
        "images": (),
        "ink": ("geometry",),
        "plotstyle": ("ink",),
        "notes": ("geometry",),
        "context": ("geometry", "ink", "plotstyle", "shapes"),
        "families": ("context", "geometry", "ink", "notes"),
        "paint": ("*",),
    }),
    "plotter": (("prologue", "render", "drawing"), {"fonts": (), "postscript": ("fonts",), "page": ("postscript",)}),
    "cadhost": (("plotter", "render", "drawing", "ports"), {
        "answers": (),
        "devices": ("answers",),
        "session": ("answers", "devices"),
        "objects": ("*",),
    }),
    "publisher": (("prologue", "ports"), {
        "pdf": (),
        "joboptions": ("pdf",),
        "marks": ("pdf",),
        "pages": ("pdf",),
        "dialect": ("pdf", "marks", "pages"),
        "document": ("*",),
    }),
    "store": (("ports",), {"database": ()}),
    "system": (("ports",), {"": ()}),
    "terminal": (("ports",), {"": ()}),
    "qt": (("cadhost", "render", "drawing", "ports"), {
        "picture": (),
        "snap": ("picture",),
        "screen": (),
        "view": ("picture", "snap", "screen"),
        "forms": ("picture", "screen"),
    }),
}
"""Rooms of programs: they may include every room's public headers and the plug-in."""
PROGRAMS = {
    "apps/sheetmaker": {
        "commandline": (),
        "preferences": ("commandline",),
        "report": ("commandline",),
        "run": ("commandline", "preferences", "report"),
        "workers": ("commandline", "run"),
        "records": ("commandline", "preferences", "run"),
        "commands": ("*",),
        "windows": ("*",),
        "": ("*",),
    },
}


def table_of(name):
    """The sub-rooms and the neighbours of the room that a file lies in, or None for the plug-in."""
    parts = name.split("/")
    if parts[0] == "adapters":
        return ROOMS.get(parts[1])
    if name.startswith("apps/sheetmaker/"):
        return None, PROGRAMS["apps/sheetmaker"]
    return None


def room_of(name):
    parts = name.split("/")
    return "src" if parts[0] == "src" else "/".join(parts[:2])


def sub_room_of(name):
    """"*" for public headers, "" for the room's own folder."""
    parts = name.split("/")
    return "*" if parts[2] == "include" else "/".join(parts[2:-1])


def resolve(names, includer, header):
    """The file that an include means: an inside of the same room, a public header, or a file of the plug-in."""
    room = header.split("/")[0]
    inside = [f"{room_of(includer)}/{header}"] if not includer.startswith("src/") else []
    for name in (*inside, f"adapters/{room}/include/{header}", f"src/{header}", f"adapters/{header}"):
        if name in names:
            return name
    return None


def check_plugin(source, names):
    for name in names:
        if name.startswith("src/"):
            for quote, header in INCLUDE.findall(read(source, name)):
                if quote == "<" and header not in STANDARD:
                    yield f"{name}: includes <{header}>; the plug-in stands on the standard library alone"
                if quote == '"' and header.split("/")[0] not in PLUGIN:
                    yield f'{name}: includes "{header}", which is no part of the plug-in'


def fault_of_arrow(includer, included):
    """Why a file may not include another one, or None."""
    neighbours, sub_rooms = table_of(includer)
    if room_of(includer) != room_of(included):
        other = included.split("/")[1]
        if included.startswith("adapters/") and sub_room_of(included) != "*":
            return "an inside of another room"
        if neighbours is not None and other not in (*neighbours, "base"):
            return f"allowed are {', '.join(neighbours) or 'none'}"
        return None
    own, other = sub_room_of(includer), sub_room_of(included)
    if own == other or other == "*":
        return None
    if own == "*":
        return "an inside of the room, from a public header"
    if own not in sub_rooms:
        return f'the sub-room "{own}" is not in the table'
    allowed = sub_rooms[own]
    return None if "*" in allowed or other in allowed else f"{own} may include {', '.join(allowed) or 'no other sub-room'}"


def check_arrows(source):
    names = set(files(source, ["src", "adapters", "apps"], (".h", ".cpp")))
    yield from check_plugin(source, sorted(names))
    graph = {}
    for name in sorted(names):
        graph[name] = []
        for quote, header in INCLUDE.findall(read(source, name)):
            included = resolve(names, name, header) if quote == '"' else None
            if quote == '"' and included is None and not name.startswith("src/"):
                if header in GENERATED:
                    continue
                yield f'{name}: includes "{header}", which is nowhere it may look'
            if included is None:
                continue
            graph[name].append(included)
            if table_of(name) is not None:
                fault = fault_of_arrow(name, included)
                if fault:
                    yield f'{name}: includes "{header}": {fault}'
    yield from circles(graph)


GENERATED = {"TarnwickSmPubAcad.h"}


def circles(graph):
    """No file may reach itself."""
    done = set()

    def visit(node, path):
        if node in path:
            yield "circle of includes: " + " -> ".join(path[path.index(node):] + [node])
            return
        if node in done:
            return
        for other in graph.get(node, []):
            yield from visit(other, path + [node])
        done.add(node)

    for node in graph:
        yield from visit(node, [])
