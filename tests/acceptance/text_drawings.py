# SPDX-License-Identifier: GPL-3.0-or-later
"""Small drawings of our own for find_texts.py: each with the texts that its PDF must give back."""
import os

import ezdxf


def plain(folder, name, code_page, texts, version="R2000", style=None, bigfont=None):
    """A drawing in a code page, one TEXT a line; the last as MTEXT too."""
    drawing = ezdxf.new(version)
    drawing.encoding = code_page
    model = drawing.modelspace()
    if style:
        drawing.styles.new("OWN", dxfattribs={"font": style, "bigfont": bigfont or ""})
    attributes = {"height": 5, "style": "OWN" if style else "Standard"}
    for row, text in enumerate(texts):
        model.add_text(text, dxfattribs=attributes | {"insert": (0, -10 * row)})
    model.add_mtext(texts[-1], dxfattribs={"insert": (0, 30), "char_height": 5, "style": attributes["style"]})
    path = os.path.join(folder, name)
    drawing.saveas(path)
    return path, texts + [texts[-1]]


def escaped(folder, name, pairs):
    """Texts whose characters are written as \\U+ or \\M+ escapes."""
    path, _ = plain(folder, name, "cp1252", [f"ESCAPED{i}" for i in range(len(pairs))])
    with open(path, encoding="cp1252") as file:
        lines = file.read()
    for i, (raw, _) in enumerate(pairs):
        lines = lines.replace(f"ESCAPED{i}\n", raw + "\n")
    with open(path, "w", encoding="cp1252") as file:
        file.write(lines)
    return path, [shown for _, shown in pairs] + [pairs[-1][1]]


def turned(folder):
    """Turned, mirrored, slanted, vertical and fitted texts, outlines and strokes."""
    drawing = ezdxf.new("R2010")
    model = drawing.modelspace()
    drawing.styles.new("ROMANS", dxfattribs={"font": "romans.shx"})
    drawing.styles.new("ARIAL", dxfattribs={"font": "arial.ttf"})
    drawing.styles.new("DOWN", dxfattribs={"font": "txt", "flags": 4})
    texts = []
    for column, style in enumerate(["ROMANS", "ARIAL"]):
        for row, (name, more) in enumerate([("turned", {"rotation": 37}), ("upright", {"rotation": 90}),
                                            ("backward", {"text_generation_flag": 2}),
                                            ("upside down", {"text_generation_flag": 4}),
                                            ("slanted", {"oblique": 20}), ("mirrored plane", {"extrusion": (0, 0, -1)}),
                                            ("narrow letters", {"width": 0.5})]):
            text = f"Plan {name} {style}"
            x = 200 * column + 20
            place = (-x if "extrusion" in more else x, -60 * row)
            model.add_text(text, dxfattribs={"height": 5, "style": style, "insert": place} | more)
            texts.append(text)
        for row, align in enumerate(["FIT", "ALIGNED", "MIDDLE_CENTER", "TOP_RIGHT"]):
            text = f"Set as {align.lower().replace('_', ' ')} {style}"
            entity = model.add_text(text, dxfattribs={"height": 5, "style": style})
            entity.set_pos((200 * column, 40 + 20 * row), (200 * column + 90, 45 + 20 * row), align=align)
            texts.append(text)
    model.add_text("DOWN", dxfattribs={"height": 5, "style": "DOWN", "insert": (-60, 0)})
    path = os.path.join(folder, "turned.dxf")
    drawing.saveas(path)
    return path, texts + ["D O W N"]


def formatted(folder):
    """MTEXT with its formatting, columns, a background and blocks with attributes."""
    drawing = ezdxf.new("R2018")
    model = drawing.modelspace()
    rows = [(r"{\fArial|b1|i0|c204|p34;Bold} and {\H2x;large} in {\C1;red}", "Bold and large in red", 0),
            (r"one\Ptwo^Jthree", "one two three", 0),
            (r"%%c20 %%p0.5 45%%d 100%%%", "Ø20 ±0.5 45° 100%", 0),
            (r"\pxi-3,l4t4;-^Ihanging item that is broken over lines", "- hanging item that is broken over lines", 60),
            (r"\pxqj;justified words fill their lines but for the last", "justified words fill their lines but for the last", 60),
            (r"\pxqd;distributed words", "distributed words", 90),
            (r"a\~b \{c\} \\d", "a\u00a0b {c} \\d", 0),
            (r"\W0.8;\T1.2;\Q15;tracked", "tracked", 0),
            (r"M\A1;{\H0.5x;\Supper^lower;}", "Mupperlower", 0)]
    texts = []
    for row, (raw, shown, width) in enumerate(rows):
        model.add_mtext(raw, dxfattribs={"insert": (0, -40 * row), "char_height": 5, "width": width})
        texts.append(shown)
    words = [f"word{i}" for i in range(40)]
    columns = model.add_mtext_dynamic_auto_height_columns(" ".join(words), 40, 5, 60, count=3,
                                                          dxfattribs={"insert": (200, 0), "char_height": 5})
    columns.set_bg_color("canvas", scale=1.5)
    texts.append(" ".join(words))
    block = drawing.blocks.new("TITLE")
    block.add_text("Text in a block", dxfattribs={"height": 5})
    block.add_attdef("NUMBER", (0, -10), dxfattribs={"height": 5})
    model.add_blockref("TITLE", (200, -150)).add_auto_attribs({"NUMBER": "A-4711"})
    path = os.path.join(folder, "formatted.dxf")
    drawing.saveas(path)
    return path, texts + ["Text in a block", "A-4711"]


def all_drawings(folder):
    """(path, texts) of each."""
    return [plain(folder, "cyrillic.dxf", "cp1251", ["План 1-го этажа", "Спецификация №4", "Ёж"], style="romans.shx"),
            plain(folder, "shift-jis.dxf", "cp932", ["図面 一般配置図", "カタログ番号 3", "縮尺"], style="romans.shx",
                  bigfont="extfont2.shx"),
            plain(folder, "gbk.dxf", "gbk", ["平面图 一层", "比例 1:100", "图纸编号"], style="gbenor.shx", bigfont="gbcbig.shx"),
            plain(folder, "big5.dxf", "cp950", ["平面圖", "比例尺 1:50"], style="simplex.shx", bigfont="chineset.shx"),
            plain(folder, "korean.dxf", "cp949", ["평면도", "축척 1:20"], style="txt", bigfont="whgtxt.shx"),
            plain(folder, "utf8.dxf", "utf8", ["Größe ⌀12 ≤ 5 µm", "Ωμέγα", "שלום", "e\u0301te\u0301"], "R2010", "arial.ttf"),
            escaped(folder, "unicode-escapes.dxf", [(r"\U+041F\U+043B\U+0430\U+043D A", "План A"), (r"\U+22051", "∅1")]),
            escaped(folder, "multibyte-escapes.dxf", [(r"\M+1907DX\M+196CA", "図X面"),
                                                      (r"\M+5C6BD\M+5C3E6", "平面")]),
            turned(folder), formatted(folder)]
