#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Every visible text of a drawing is found in its PDF, word for word and in reading order.

    find_texts.py PROGRAM FOLDER [PATTERN]

The drawings of FOLDER and small ones of our own are converted with `--layouts model --page-setup global`: the extents of
the model, so that nothing is cut away. Another reader (ezdxf) says which texts are visible (TEXT, MTEXT, ATTRIB, texts in
blocks, layers that are on, thawed and plotted); pdftotext -raw must give each of them in reading order and as often as the
drawing has it, blanks and line ends counted alike. A text with spread letters, with a stack or at half its width is compared
without its blanks. Left out: empty texts, attribute definitions, and bytes that the code page leaves undefined.
Prints a table drawing / texts / found / missing; fails when one is missing.
"""
import collections
import glob
import html
import os
import re
import subprocess
import sys
import tempfile
import unicodedata

import ezdxf
from ezdxf import recover

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import pdf_tools  # noqa: E402
import text_drawings  # noqa: E402

DEEPEST = 8
NARROWEST = 0.6  # raw lines have no blank between words whose letters are narrower
UNEVEN = re.compile("track|upper|narrow")
SPREAD = re.compile(r"\\[TS]")


def normalised(text):
    """NFKC, one blank for many; bytes that the drawing's code page leaves undefined don't count."""
    text = unicodedata.normalize("NFKC", re.sub("[\x80-\x9f\ud800-\udfff]", "", text))
    return re.sub(r"\s+", " ", text).strip()


def packed(text):
    return re.sub(r"\s+", "", normalised(text))


class Texts:
    """The visible texts of a drawing as another reader finds them: (text, spread)."""

    def __init__(self, path):
        try:
            self.drawing = ezdxf.readfile(path)
        except (ezdxf.DXFError, IOError, UnicodeDecodeError):
            self.drawing, _ = recover.readfile(path)
        self.found = []
        self.walk(self.drawing.modelspace(), 0)

    def visible(self, entity):
        layer = self.drawing.layers.get(entity.dxf.layer) if self.drawing.layers.has_entry(entity.dxf.layer) else None
        hidden = layer is not None and (layer.is_off() or layer.is_frozen() or not layer.dxf.get("plot", 1))
        return not hidden and not entity.dxf.get("invisible", 0)

    def walk(self, entities, depth):
        for entity in entities:
            if not self.visible(entity):
                continue
            kind = entity.dxftype()
            if kind == "TEXT":
                self.found.append((entity.plain_text(), entity.dxf.width <= NARROWEST))
            elif kind == "MTEXT":
                self.add_mtext(entity)
            elif kind == "INSERT":
                self.add_insert(entity, depth)
            elif kind == "DIMENSION" and entity.dxf.get("geometry", "") in self.drawing.blocks:
                self.walk(self.drawing.blocks.get(entity.dxf.geometry), depth + 1)

    def add_mtext(self, entity):
        raw = entity.text
        stacked = re.sub(r"\\S([^;]*?)[\^/#] ?([^;]*);", r"\1\2", raw)
        entity.text = stacked
        self.found.append((entity.plain_text(), bool(SPREAD.search(raw))))
        entity.text = raw

    def add_insert(self, entity, depth):
        for attribute in entity.attribs:
            if self.visible(attribute) and not attribute.is_invisible:
                self.found.append((attribute.plain_text(), False))
        block = self.drawing.blocks.get(entity.dxf.name)
        if block is not None and depth < DEEPEST:
            self.walk((part for part in block if part.dxftype() != "ATTDEF"), depth + 1)


def text_of(program, drawing, folder):
    pdf = os.path.join(folder, "texts.pdf")
    run = subprocess.run([program, "convert", drawing, "--layouts", "model", "--page-setup", "global", "-o", pdf],
                         capture_output=True, text=True)
    if run.returncode not in (0, 4):
        raise RuntimeError(f"{drawing}: {run.stderr.strip()}")
    return pdf_tools.output_of("pdftotext", "-raw", "-enc", "UTF-8", pdf, "-")


def check(program, drawing, texts, folder):
    """(wanted, missing) of a drawing."""
    got = text_of(program, drawing, folder)
    line, letters = normalised(got), packed(got)
    wanted = [(text, spread) for text, spread in texts if packed(text)]
    missing = []
    for (text, spread), count in collections.Counter(wanted).items():
        times = letters.count(packed(text)) if spread else line.count(normalised(text))
        missing += [text] * max(0, count - times)
    return wanted, missing


def main():
    program, shared = sys.argv[1], sys.argv[2]
    pattern = sys.argv[3] if len(sys.argv) > 3 else "*.dxf"
    failed = 0
    with tempfile.TemporaryDirectory() as folder:
        os.environ["XDG_CONFIG_HOME"] = os.environ["XDG_STATE_HOME"] = folder
        own = text_drawings.all_drawings(folder)
        rows = [(path, [(text, bool(UNEVEN.search(text))) for text in texts]) for path, texts in own]
        rows += [(path, Texts(path).found) for path in sorted(glob.glob(os.path.join(shared, pattern)))]
        print(f"{'drawing':44} {'texts':>6} {'found':>6} {'missing':>8}")
        for path, texts in rows:
            wanted, missing = check(program, path, texts, folder)
            failed += len(missing)
            print(f"{os.path.basename(path):44} {len(wanted):6} {len(wanted) - len(missing):6} {len(missing):8}")
            for text in missing[:10]:
                print(f"    missing: {normalised(text)[:100]!r}")
    print(f"{failed} text(s) missing")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
