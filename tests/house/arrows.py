# SPDX-License-Identifier: GPL-3.0-or-later
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
    "base": ((), {
        "text": (),
        "text/posix": (),
        "text/windows": (),
        "files": (),
        "files/posix": ("files",),
        "files/windows": ("files",),
        "process": ("files",),
        "process/posix": ("process", "files/posix"),
        "process/windows": ("process",),
    }),
    "ondemand": ((), {"": ()}),
    "prologue": ((), {}),
    "drawing": (("ports",), {
        "tags": (),
        "entities": ("tags",),
        "graphics": ("tags", "entities", "dwg/bits"),
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
        "shapes": (),
        "fonts": ("shapes",),
        "fonts/posix": ("fonts",),
        "fonts/windows": ("fonts",),
        "text": ("fonts",),
        "text/posix": ("text",),
        "text/windows": ("text",),
        "images": (),
        "images/posix": ("images",),
        "images/windows": ("images",),
        "ole": ("images",),
        "hidden": ("geometry",),
        "ink": ("geometry", "hidden"),
        "plotstyle": ("ink",),
        "notes": ("geometry",),
        "context": ("fonts", "geometry", "hidden", "ink", "plotstyle"),
        "polylines": ("context", "geometry", "ink"),
        "families": ("context", "fonts", "geometry", "ink", "notes", "ole", "polylines", "text"),
        "paint": ("*",),
    }),
    "plotter": (("prologue", "render", "drawing", "ports"), {"fonts": (), "postscript": ("fonts",), "page": ("postscript", "fonts")}),
    "cadhost": (("plotter", "render", "drawing", "ports"), {
        "answers": (),
        "devices": ("answers",),
        "session": ("answers", "devices"),
        "objects": ("*",),
    }),
    "beside": (("render", "ports"), {}),
    "ghostscript": ((), {"": (), "posix": (), "windows": ()}),
    "publisher": (("prologue", "ghostscript", "ports"), {
        "pdf": (),
        "joboptions": ("pdf",),
        "marks": ("pdf",),
        "fonts": (),
        "fonts/posix": ("fonts",),
        "fonts/windows": ("fonts",),
        "archive": ("pdf",),
        "pages": ("pdf",),
        "dialect": ("pdf", "fonts", "marks", "pages"),
        "document": ("*",),
    }),
    "stamptexts": (("plotter", "publisher", "render"), {"": ()}),
    "store": (("ports",), {"database": (), "sqlite": ("database",)}),
    "system": (("ports",), {"": (), "posix": ("",), "windows": ("",)}),
    "terminal": (("ports",), {"": ()}),
    "scene": (("beside", "cadhost", "render", "drawing", "ports"), {
        "picture": (),
        "snap": (),
        "layout": (),
        "paint": ("picture",),
        "pick": (),
        "form": (),
    }),
    "qt": (("scene", "beside", "cadhost", "render", "drawing", "ports"), {
        "picture": (),
        "screen": (),
        "marks": (),
        "view": ("picture", "screen", "marks"),
        "beside": ("screen", "picture", "marks", "view"),
        "forms": ("picture", "screen", "beside"),
    }),
    "win32": (("scene", "beside", "cadhost", "render", "drawing", "windows", "ports"), {
        "window": (),
        "view": ("window",),
        "beside": ("window", "view"),
    }),
    # Included by its whole names, "windows/<sub-room>/Name.h". "" wires one object's surroundings.
    "windows": (("publisher", "stamptexts", "ports", "settings", "hostobjects", "ui", "plugin"), {
        "automation": (),
        "system": ("automation",),
        "publishing": ("automation",),
        "host": ("automation",),
        "controls": ("automation", "system"),
        "forms": ("automation", "controls"),
        "": ("forms", "publishing", "system"),
        "objects": ("automation", "system", "publishing", "host", ""),
        "server": ("automation", "system", "objects"),
        "server/own": ("publishing",),
        "server/none": ("publishing",),
    }),
}
"""Rooms of programs: they may include every room's public headers and the plug-in."""
PROGRAMS = {
    "apps/sheetmaker": {
        "commandline": (),
        "preferences": ("commandline",),
        "report": ("commandline",),
        "machine": (),
        "layouts": ("commandline",),
        "run": ("commandline", "preferences", "report", "machine", "layouts"),
        "machine/posix": ("machine",),
        "machine/windows": ("machine",),
        "workers": ("commandline", "machine", "report", "run"),
        "workers/posix": ("workers", "commandline", "run"),
        "workers/windows": ("workers", "commandline", "run"),
        "screen": ("commandline", "preferences", "report", "machine", "layouts", "run"),
        "records": ("commandline", "preferences", "machine", "run", "screen", "layouts"),
        "commands": ("*",),
        "doctor": ("commandline", "machine", "workers"),
        "doctor/posix": ("doctor", "workers"),
        "doctor/windows": ("doctor", "workers"),
        "qt": ("*",),
        "win32": ("*",),
        "pages": ("commandline", "preferences"),
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


# What the programs and their windows take of the component's room, which has no folder of public headers.
WIRED = {"adapters/windows/system/WindowsSystem.h", "adapters/windows/forms/Win32Toolkit.h",
         "adapters/windows/automation/WideText.h", "adapters/windows/controls/VisualStyles.h",
         "adapters/windows/system/OwnModule.h", "adapters/windows/forms/FormWatcher.h",
         "adapters/windows/publishing/LibraryPresence.h"}


def sub_room_of(name):
    """"*" for public headers, "" for the room's own folder."""
    if name in WIRED:
        return "*"
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


# Circles that stand until their rooms are rebuilt. A new one is a finding, and so is one that grows.
KNOWN_CIRCLES = (
    # The maps of a DWG's objects, and the container that holds them.
    {"adapters/drawing/dwg/file/Container", "adapters/drawing/dwg/file/ContainerBuilder",
     "adapters/drawing/dwg/file/ObjectMap"},
)


def node_of(name):
    """A source and its own inside header are one file in two parts. A public header is a contract that a source may
    stand behind, and a node of its own; so is a source whose header is public."""
    parts = name.split("/")
    if parts[0] != "src" and len(parts) > 2 and parts[2] == "include":
        return name
    return os.path.splitext(name)[0]


def merged(graph):
    """The graph of nodes, without what a node has of itself."""
    nodes = {}
    for name, others in graph.items():
        node = node_of(name)
        nodes.setdefault(node, set()).update(node_of(other) for other in others)
    for node, others in nodes.items():
        others.discard(node)
    return nodes


def components(graph):
    """Sets of nodes that reach each other (Tarjan), without recursion."""
    index, low, on_stack, stack, found = {}, {}, set(), [], []
    for root in sorted(graph):
        if root in index:
            continue
        work = [(root, iter(sorted(graph.get(root, ()))))]
        index[root] = low[root] = len(index)
        stack.append(root)
        on_stack.add(root)
        while work:
            node, others = work[-1]
            other = next(others, None)
            if other is None:
                work.pop()
                if work:
                    low[work[-1][0]] = min(low[work[-1][0]], low[node])
                if low[node] == index[node]:
                    at = stack.index(node)
                    found.append(stack[at:])
                    on_stack.difference_update(stack[at:])
                    del stack[at:]
            elif other not in index:
                index[other] = low[other] = len(index)
                stack.append(other)
                on_stack.add(other)
                work.append((other, iter(sorted(graph.get(other, ())))))
            elif other in on_stack:
                low[node] = min(low[node], index[other])
    return found


def circles(graph):
    """No file may reach itself, a source and its own header counted as one."""
    for component in components(merged(graph)):
        if len(component) > 1 and not any(known.issuperset(component) for known in KNOWN_CIRCLES):
            yield "circle of includes: " + ", ".join(sorted(component))
