# SPDX-License-Identifier: GPL-3.0-or-later
"""What other people's tools say of a PDF: texts, annotations, fields, ink."""
import collections
import html
import json
import re
import subprocess

Word = collections.namedtuple("Word", "left top right bottom text")


def output_of(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


def words(pdf, page=1):
    """Words with their boxes in points, y counted upwards from the page's lower edge."""
    text = output_of("pdftotext", "-bbox", "-f", str(page), "-l", str(page), pdf, "-")
    height = float(re.search(r'<page width="[\d.]+" height="([\d.]+)"', text).group(1))
    form = r'<word xMin="([-\d.]+)" yMin="([-\d.]+)" xMax="([-\d.]+)" yMax="([-\d.]+)">(.*?)</word>'
    return [Word(float(box[0]), height - float(box[1]), float(box[2]), height - float(box[3]), html.unescape(box[4]))
            for box in re.findall(form, text)]


def first_character(pdf, letter, page=1):
    """Where the baseline of the first character `letter` begins, in points from the lower left."""
    text = output_of("mutool", "draw", "-q", "-F", "stext", "-o", "-", pdf, str(page))
    height = float(re.search(r'<page id="[^"]*" width="[\d.]+" height="([\d.]+)"', text).group(1))
    found = re.search(r'<char [^>]*?x="([-\d.]+)" y="([-\d.]+)"[^>]*? c="%s"' % re.escape(html.escape(letter)), text)
    return (float(found.group(1)), height - float(found.group(2))) if found else None


class Objects:
    """The objects of a PDF by qpdf's own reading."""

    def __init__(self, pdf):
        self.all = json.loads(output_of("qpdf", "--json=1", pdf))["objects"]
        self.pages = [page["object"] for page in json.loads(output_of("qpdf", "--json=1", "--json-key=pages", pdf))["pages"]]

    def at(self, value):
        return self.all[value] if isinstance(value, str) and value in self.all else value

    def annotations(self, page, subtype):
        entries = self.at(self.at(self.pages[page - 1]).get("/Annots", []))
        return [note for note in map(self.at, entries) if note["/Subtype"] == subtype]

    def links(self, page):
        """(URL, rectangle), in the order of the page."""
        return [(self.at(note["/A"])["/URI"], note["/Rect"]) for note in self.annotations(page, "/Link")]


def links_by_page(pdf):
    """(page, URL) as pdfinfo lists them."""
    lines = output_of("pdfinfo", "-url", pdf).splitlines()[1:]
    return [(int(line.split()[0]), line.split()[2]) for line in lines]


def properties(pdf):
    pairs = [line.split(":", 1) for line in output_of("pdfinfo", "-custom", pdf).splitlines() if ":" in line]
    return {pair[0].strip(): pair[1].strip() for pair in pairs}


def unsigned_fields(pdf):
    text = subprocess.run(["pdfsig", pdf], capture_output=True, text=True).stdout
    names = re.findall(r"Signature Field Name: (.*)", text)
    return names if text.count("The signature form field is not signed.") == len(names) else ["not all unsigned"]


class Picture:
    """A page as its red, green and blue bytes."""

    def __init__(self, pdf, page=1, dpi=288):
        bytes_ = subprocess.run(["pdftoppm", "-r", str(dpi), "-f", str(page), "-l", str(page), pdf], capture_output=True,
                                check=True).stdout
        self.width, self.height, start = self._header(bytes_)
        self.pixels, self.scale = memoryview(bytes_)[start:], dpi / 72

    @staticmethod
    def _header(bytes_):
        head = re.match(rb"P6\s+(\d+)\s+(\d+)\s+255\s", bytes_)
        return int(head.group(1)), int(head.group(2)), head.end()

    def dark_in(self, left, bottom, right, top, is_ink=lambda r, g, b: max(r, g, b) < 128):
        """Positions of ink, in points, inside a box of points."""
        rows = range(max(0, int(self.height - top * self.scale)), min(self.height, int(self.height - bottom * self.scale)))
        columns = range(max(0, int(left * self.scale)), min(self.width, int(right * self.scale)))
        for row in rows:
            for column in columns:
                at = 3 * (row * self.width + column)
                if is_ink(*self.pixels[at:at + 3]):
                    yield (column + 0.5) / self.scale, (self.height - row - 0.5) / self.scale

    def ink_box(self, left, bottom, right, top):
        points = list(self.dark_in(left, bottom, right, top))
        if not points:
            return None
        xs, ys = [x for x, _ in points], [y for _, y in points]
        return min(xs), min(ys), max(xs), max(ys)

    def cross_near(self, x, y, reach):
        """Where a vertical and a horizontal stroke meet: the columns and rows that hold most ink."""
        columns, rows = collections.Counter(), collections.Counter()
        for px, py in self.dark_in(x - reach, y - reach, x + reach, y + reach):
            columns[px] += 1
            rows[py] += 1
        if not columns:
            return None
        def middle(counts):
            most = [place for place, count in counts.items() if count >= 0.8 * max(counts.values())]
            return sum(most) / len(most)
        return middle(columns), middle(rows)
