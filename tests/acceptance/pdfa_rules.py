# SPDX-License-Identifier: GPL-3.0-or-later
"""Rules of PDF/A-2b and 3b, each with its clause, over what qpdf says a file holds.

These are rules of our own reading, not a validator: a file that passes keeps to those listed here. Clauses are those of
ISO 19005-2; 19005-3 differs in 6.8 alone. `check(path, part)` answers the broken ones as (clause, text).
"""
import base64
import html
import io
import json
import re
import subprocess

from fontTools import cffLib
from fontTools.pens import basePen

RULES = []


def rule(clause, part=None):
    def enter(function):
        RULES.append((clause, part, function))
        return function
    return enter


class Pdf:
    def __init__(self, path):
        with open(path, "rb") as file:
            self.bytes = file.read()
        run = subprocess.run(["qpdf", "--json=2", "--json-stream-data=inline", "--decode-level=generalized", path],
                             capture_output=True, text=True)
        if run.returncode not in (0, 3):
            raise ValueError(run.stderr.strip())
        self.objects = json.loads(run.stdout)["qpdf"][1]
        self.trailer = self.objects["trailer"]["value"]
        self.root = self.at(self.trailer["/Root"])

    def entry(self, value):
        return self.objects.get("obj:" + value) if isinstance(value, str) and re.fullmatch(r"\d+ \d+ R", value) else None

    def at(self, value):
        """What a reference leads to: a value, or a stream's dictionary."""
        entry = self.entry(value)
        return value if entry is None else entry["value"] if "value" in entry else entry["stream"]["dict"]

    def data(self, value):
        entry = self.entry(value)
        return base64.b64decode(entry["stream"]["data"]) if entry and "stream" in entry else None

    def dictionaries(self):
        """Every dictionary of the file, nested ones too."""
        stack = [entry["value"] if "value" in entry else entry["stream"]["dict"] for entry in self.objects.values()]
        while stack:
            value = stack.pop()
            if isinstance(value, dict):
                yield value
                stack += value.values()
            elif isinstance(value, list):
                stack += value

    def streams(self):
        return [entry["stream"]["dict"] for entry in self.objects.values() if "stream" in entry]

    def of_type(self, *names):
        return [found for found in self.dictionaries() if found.get("/Type") in names]

    def pages(self):
        return self.of_type("/Page")

    def annotations(self):
        return [self.at(one) for page in self.pages() for one in self.at(page.get("/Annots")) or []]

    def contents(self, page):
        parts = page.get("/Contents")
        parts = parts if isinstance(parts, list) else self.at(parts) if isinstance(self.at(parts), list) else [parts]
        return b"\n".join(self.data(part) or b"" for part in parts)

    def fonts(self):
        return [found for found in self.of_type("/Font")]


@rule("6.1.2")
def header(pdf):
    """The file begins with %PDF-1.n and a comment of four bytes above 127."""
    first, _, rest = pdf.bytes.partition(b"\n")
    return re.fullmatch(rb"%PDF-1\.[0-7]\r?", first) and rest[:1] == b"%" and all(byte > 127 for byte in rest[1:5])


@rule("6.1.3")
def trailer(pdf):
    """The trailer has an identifier and no encryption."""
    return len(pdf.trailer.get("/ID", [])) == 2 and "/Encrypt" not in pdf.trailer


@rule("6.1.7")
def streams(pdf):
    """No stream lies outside the file or is packed by LZW or encrypted."""
    filters = [name for found in pdf.streams() for name in ([found["/Filter"]] if isinstance(found.get("/Filter"), str)
                                                            else found.get("/Filter") or [])]
    return not any("/F" in found for found in pdf.streams()) and not {"/LZWDecode", "/Crypt"} & set(filters)


@rule("6.1.13")
def limits(pdf):
    """Names have at most 127 bytes, pages sides of 3 to 14,400 units, clips at most 28 levels."""
    names = [key for found in pdf.dictionaries() for key in found]
    boxes = [pdf.at(page["/MediaBox"]) for page in pdf.pages()]
    if any(len(name.encode()) > 128 for name in names) or not all(3 <= box[i + 2] - box[i] <= 14400 for box in boxes for i in (0, 1)):
        return False
    for page in pdf.pages():
        depth = 0
        for word in re.findall(rb"(?<![^\s])[qQ](?![^\s])", pdf.contents(page)):
            depth += 1 if word == b"q" else -1
            if depth > 28:
                return False
    return True


@rule("6.2.3")
def output_intent(pdf):
    """One output intent, whose profile is an ICC profile of at most version 4 for as many colours as it says."""
    intents = [pdf.at(one) for one in pdf.at(pdf.root.get("/OutputIntents")) or []]
    if len(intents) != 1 or intents[0].get("/S") != "/GTS_PDFA1" or "/OutputConditionIdentifier" not in intents[0]:
        return False
    reference = intents[0].get("/DestOutputProfile")
    profile, said = pdf.data(reference), pdf.at(reference)
    return (profile is not None and int.from_bytes(profile[:4], "big") == len(profile) and profile[36:40] == b"acsp" and profile[8] <= 4
            and profile[12:16] in (b"mntr", b"prtr") and said.get("/N") == {b"RGB ": 3, b"GRAY": 1, b"CMYK": 4}.get(profile[16:20]))


@rule("6.2.4.3")
def device_colours(pdf):
    """Colours are grey or those of the profile: red, green and blue."""
    spaces = [found.get("/ColorSpace") for found in pdf.dictionaries() if found.get("/Subtype") == "/Image"]
    painted = any(re.search(rb"(?<![^\s])[kK](?![^\s])", pdf.contents(page)) for page in pdf.pages())
    return "/DeviceCMYK" not in json.dumps(spaces) and not painted


@rule("6.2.8")
def images(pdf):
    """No image has alternates, prepress data or is smoothed."""
    return not any("/Alternates" in found or "/OPI" in found or found.get("/Interpolate") is True
                   for found in pdf.dictionaries() if found.get("/Subtype") == "/Image")


@rule("6.2.9")
def forms_of_pages(pdf):
    """No PostScript and no other document stands in a page."""
    return not any(found.get("/Subtype") == "/PS" or "/Ref" in found or "/OPI" in found for found in pdf.streams()
                   if found.get("/Type") == "/XObject")


@rule("6.2.10")
def transparency(pdf):
    """Colours are blended in a known way."""
    return all(found.get("/BM", "/Normal") in ("/Normal", "/Compatible", "/Multiply", "/Screen", "/Overlay", "/Darken", "/Lighten")
               for found in pdf.of_type("/ExtGState"))


@rule("6.2.11.3")
def composite_fonts(pdf):
    """A composite font, its map and its glyphs belong to one collection, and glyphs are found by their numbers."""
    for font in pdf.fonts():
        if font.get("/Subtype") == "/Type0":
            below = pdf.at(pdf.at(font["/DescendantFonts"])[0])
            map_of, data = pdf.at(font["/Encoding"]), pdf.data(font["/Encoding"])
            if data is None or map_of.get("/CIDSystemInfo") != below["/CIDSystemInfo"]:
                return False
            if below["/Subtype"] == "/CIDFontType2" and "/CIDToGIDMap" not in below:
                return False
            if map_of.get("/WMode", 0) != (1 if b"/WMode 1" in data else 0) or b"usecmap" in data:
                return False
    return True


@rule("6.2.11.4")
def embedded_fonts(pdf):
    """Every font that isn't drawn glyph by glyph is in the file."""
    for font in pdf.fonts():
        if font.get("/Subtype") not in ("/Type3", "/Type0"):
            descriptor = pdf.at(font.get("/FontDescriptor")) or {}
            if not any(pdf.data(descriptor.get(key)) for key in ("/FontFile", "/FontFile2", "/FontFile3")):
                return False
    return True


def word(data, at, size=2):
    return int.from_bytes(data[at:at + size], "big")


def cubic_widths(pdf, font):
    """The advance of each glyph as its charstring says it."""
    program = cffLib.CFFFontSet()
    program.decompile(io.BytesIO(pdf.data(pdf.at(font["/FontDescriptor"])["/FontFile3"])), None)
    first, said = pdf.at(font["/W"])
    for i, width in list(enumerate(pdf.at(said)))[1:]:
        glyph = program[0].CharStrings[program[0].getGlyphOrder()[first + i]]
        glyph.draw(basePen.NullPen())
        if abs(width - glyph.width) > 1:
            return False
    return True


@rule("6.2.11.5")
def widths(pdf):
    """The widths that the file says are those of the font."""
    for font in pdf.fonts():
        if font.get("/Subtype") == "/CIDFontType0" and not cubic_widths(pdf, font):
            return False
        if font.get("/Subtype") != "/CIDFontType2":
            continue
        data = pdf.data(pdf.at(font["/FontDescriptor"])["/FontFile2"])
        tables = {data[12 + 16 * i:16 + 16 * i]: word(data, 20 + 16 * i, 4) for i in range(word(data, 4))}
        unit, advances = word(data, tables[b"head"] + 18), word(data, tables[b"hhea"] + 34)
        first, said = pdf.at(font["/W"])
        for i, width in enumerate(pdf.at(said)):
            if abs(width - 1000 * word(data, tables[b"hmtx"] + 4 * min(first + i, advances - 1)) / unit) > 1:
                return False
    return True


@rule("6.2.11.8")
def missing_glyphs(pdf):
    """No code of a composite font leads to the glyph for what is missing."""
    return not any(re.search(rb"<[0-9A-F]{2}> 0$", pdf.data(font["/Encoding"]) or b"", re.M) for font in pdf.fonts()
                   if font.get("/Subtype") == "/Type0")


@rule("6.3.1")
def kinds_of_annotations(pdf):
    """Links, fields, texts and files alone: nothing that moves or sounds."""
    return all(one.get("/Subtype") in ("/Link", "/Widget", "/FileAttachment", "/Stamp", "/FreeText") for one in pdf.annotations())


@rule("6.3.2")
def flags(pdf):
    """Annotations are printed and none is hidden."""
    return all(one.get("/F", 0) & 0b100111 == 4 for one in pdf.annotations())


@rule("6.3.3")
def appearances(pdf):
    """What an annotation looks like is in the file, and nothing else than its normal look."""
    return all(one.get("/Subtype") == "/Link" or list(pdf.at(one.get("/AP")) or {}) == ["/N"] for one in pdf.annotations())


@rule("6.4.1")
def fields(pdf):
    """Fields have no actions, and readers make no appearances of their own."""
    form = pdf.at(pdf.root.get("/AcroForm")) or {}
    return not form.get("/NeedAppearances") and not any({"/A", "/AA"} & set(one) for one in pdf.annotations() if one.get("/Subtype") == "/Widget")


@rule("6.4.2")
def other_forms(pdf):
    """There is no form of another kind."""
    return "/XFA" not in (pdf.at(pdf.root.get("/AcroForm")) or {}) and "/NeedsRendering" not in pdf.root


@rule("6.5.1")
def actions(pdf):
    """Actions lead to places and addresses."""
    return all(found["/S"] in ("/URI", "/GoTo", "/GTS_PDFA1") for found in pdf.dictionaries() if isinstance(found.get("/S"), str)
               and "/Type" not in found)


@rule("6.5.2")
def triggers(pdf):
    """Neither document nor pages do anything by themselves."""
    return "/AA" not in pdf.root and "/OpenAction" not in pdf.root and not any("/AA" in page for page in pdf.pages())


@rule("6.6.2")
def metadata(pdf):
    """Metadata that anybody can read."""
    said = pdf.at(pdf.root.get("/Metadata")) or {}
    data = pdf.data(pdf.root.get("/Metadata")) or b""
    return said.get("/Subtype") == "/XML" and "/Filter" not in said and data in pdf.bytes and b"<x:xmpmeta" in data and b"bytes=" not in data[:80]


@rule("6.6.2.3")
def schemas(pdf):
    """Metadata of known schemas alone."""
    data = (pdf.data(pdf.root.get("/Metadata")) or b"").decode()
    return set(re.findall(r"<(\w+):\w+[ >]", data)) <= {"x", "rdf", "dc", "xmp", "pdf", "pdfaid"}


@rule("6.6.3")
def information(pdf):
    """The document's information says what its metadata say."""
    data = (pdf.data(pdf.root.get("/Metadata")) or b"").decode()
    said = pdf.at(pdf.trailer.get("/Info")) or {}
    places = {"/Title": "dc:title", "/Author": "dc:creator", "/Subject": "dc:description", "/Keywords": "pdf:Keywords",
              "/Producer": "pdf:Producer", "/Creator": "xmp:CreatorTool", "/CreationDate": "xmp:CreateDate", "/ModDate": "xmp:ModifyDate"}
    for key, name in places.items():
        found = re.search(f"<{name}>(.*?)</{name}>", data, re.S)
        if key in said:
            text = html.unescape(re.sub("<[^>]*>", "", found.group(1))) if found else None
            digits = [re.sub(r"\D", "", value or "") for value in (said[key], text)]
            if (digits[0] != digits[1]) if key.endswith("Date") else said[key][2:] != text:
                return False
    return True


@rule("6.6.4")
def identified(pdf):
    """The metadata tell the part and the level."""
    return re.search(rb"<pdfaid:part>[23]</pdfaid:part>\s*<pdfaid:conformance>B</pdfaid:conformance>", pdf.data(pdf.root.get("/Metadata")) or b"")


@rule("6.8", part=2)
def no_files(pdf):
    """No file is attached."""
    return not pdf.of_type("/EmbeddedFile") and "/EmbeddedFiles" not in (pdf.at(pdf.root.get("/Names")) or {})


@rule("6.8", part=3)
def associated_files(pdf):
    """Attached files have names, a type and a relation, and belong to the document."""
    associated = [pdf.at(one) for one in pdf.at(pdf.root.get("/AF")) or []]
    for found in pdf.of_type("/Filespec"):
        streams_of = [pdf.at(one) for one in (found.get("/EF") or {}).values()]
        if not {"/F", "/UF", "/AFRelationship"} <= set(found) or found not in associated or not streams_of:
            return False
        if not all(re.fullmatch(r"/[^/]+/[^/]+", one.get("/Subtype", "")) for one in streams_of):
            return False
    return True


@rule("6.9")
def layers(pdf):
    """Layers have a name for their list, which holds them all, and nothing switches them by itself."""
    properties = pdf.at(pdf.root.get("/OCProperties"))
    if properties is None:
        return True
    listed = pdf.at(properties["/D"])
    return "/Name" in listed and "/AS" not in listed and set(listed.get("/Order", [])) == set(properties["/OCGs"])


def kept(function, pdf):
    """A file that lacks what a rule looks at breaks it."""
    try:
        return function(pdf)
    except (KeyError, TypeError, IndexError):
        return False


def check(path, part):
    """The rules that the file breaks, as (clause, text)."""
    try:
        pdf = Pdf(path)
    except ValueError as fault:
        return [("6.1", str(fault))]
    return [(clause, function.__doc__) for clause, only, function in RULES if only in (None, part) and not kept(function, pdf)]
