#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Tries the faults that plotting programs are known for, each on a drawing of its own, and looks at the PDF.

    plot_faults.py PROGRAM [ROW...]

Drawings are made by ezdxf in a temporary folder; pages are read back with qpdf, mutool, pdftotext and pdftoppm. Prints a line
for each row and, at the end, "N passed, M failed".
"""
import os
import subprocess
import sys
import tempfile
import traceback
import unittest

import ezdxf

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import clip_rows  # noqa: E402
import content_rows  # noqa: E402
import note_rows  # noqa: E402
import page_rows  # noqa: E402
import plot_rows  # noqa: E402
import script_rows  # noqa: E402
import space_rows  # noqa: E402


class Stand:
    """A private place to draw and to convert in."""

    def __init__(self, program, folder):
        self.program, self.folder, self.number = program, folder, 0
        for part in ("tmp", "config", "state"):
            os.mkdir(self.path(part))
        self.environment = {**os.environ, "TMPDIR": self.path("tmp"), "XDG_CONFIG_HOME": self.path("config"),
                            "XDG_STATE_HOME": self.path("state")}

    def path(self, part):
        return os.path.join(self.folder, part)

    @staticmethod
    def new(version="R2010"):
        return ezdxf.new(version, setup=["linetypes", "styles", "dimstyles"])

    def save(self, document, encoding=None):
        self.number += 1
        path = self.path(f"drawing{self.number}.dxf")
        document.saveas(path, encoding=encoding) if encoding else document.saveas(path)
        return path

    def run(self, *arguments):
        return subprocess.run([self.program, *arguments], capture_output=True, text=True, errors="replace", timeout=120,
                              env=self.environment, cwd=self.folder, check=False)

    def convert(self, document, *options, encoding=None, code=0):
        """Converts a document and gives the PDF's path."""
        return self.convert_file(self.save(document, encoding), *options, code=code)

    def convert_file(self, path, *options, code=0):
        pdf = path[:-4] + ".pdf"
        result = self.run("convert", path, "-o", pdf, *options)
        assert result.returncode == code, f"exit {result.returncode}: {result.stderr.strip()}"
        return pdf


def tell(name, run):
    try:
        run()
    except unittest.SkipTest as reason:
        print(f"skipped {name}: {reason}")
        return True
    except AssertionError as error:
        print(f"FAILED {name}: {error}")
        return False
    except Exception:  # pylint: disable=broad-except
        print(f"FAILED {name}: {traceback.format_exc()}")
        return False
    print(f"passed {name}")
    return True


def main():
    program = os.path.abspath(sys.argv[1])
    results = []
    wanted = set(sys.argv[2:])
    rows = (plot_rows.ROWS + page_rows.ROWS + content_rows.ROWS + note_rows.ROWS + clip_rows.ROWS + script_rows.ROWS +
            space_rows.ROWS)
    for row in [row for row in rows if not wanted or row.__name__ in wanted]:
        with tempfile.TemporaryDirectory() as folder:
            results.append(tell(f"{row.__name__}: {row.__doc__}", lambda: row(Stand(program, folder))))
            assert not os.path.isdir(os.path.join(folder, "tmp")) or not os.listdir(os.path.join(folder, "tmp"))
    print(f"{sum(results)} passed, {len(results) - sum(results)} failed")
    sys.exit(0 if all(results) else 1)


if __name__ == "__main__":
    main()
