# SPDX-License-Identifier: GPL-3.0-or-later
"""Why a page differs from ezdxf's picture by more than the share MOST of its ink; each pair was looked at.

A page is named by its drawing and its layout, both as patterns; the first row that fits counts. A page above MOST without a
row fails all_drawings.py, and so does one that can't be compared.
"""
import fnmatch

MOST = 0.2  # share of differing ink

IMAGES = "ezdxf draws neither images nor underlays, which are most of the page's ink"
LINETYPES = "ezdxf draws line types with shapes and texts as plain lines, and points as dots whatever their form (PDMODE)"
STROKES = "most of the ink is text in stroke fonts, which ezdxf draws as filled outlines of another width"
OUTLINES = "nothing but a few large words: ezdxf has another outline font in Arial's place, which is wider"
WIDTHS = "a text of a style of width 0.4 takes most of the page's width: ezdxf draws it at full width"
CUT = "the page setup plots at 1:1 in inches, so that the paper shows only a corner of what ezdxf shows whole"
SCALE = "the layout is set to 25.4 inches a unit (its limits say the same), so that the paper shows one corner of the sheet"
BORDER = "the frame is as large as the paper and falls outside the printable area; the rest that differs is text in stroke fonts"
WINDOW = "the model's plot window holds nothing that is on, in either form of the window; the report says that the page is blank"
OFF_PAPER = "the only viewport lies above the printable area but for an empty strip; the report says that the page is blank"
PROXIES = "the converter's DXF of an R14 drawing has no multileaders and tables; ours has them from the DWG's proxies"
HATCHES = "ezdxf gives up dense hatches, and draws all lines as wide as a pixel; ours are thinner than that"
ENDLESS = "lines without an end reach the paper's edge, ezdxf draws short pieces of them; the one word is in a stroke font"
FRAMES = "pictures whose files are missing show their frames and names, of which ezdxf draws nothing"
LINE_TYPE = "ezdxf stops at a line type that the drawing doesn't define; ours draws it solid"
OLD_VIEWS = "ezdxf shows nothing through viewports of R12 and R14, whose views stand in extended data"
WORDS = "nothing but small text: the other outline font in Arial's place is wider, so that its lines end elsewhere"
FONTS = "the words come in another outline font, a viewport's border is drawn by us alone"
HEAD_ALONE = "the converter's DXF of this R12 drawing has nothing but its head; ours was looked at by itself"
CONVERTER = "ezdxf doesn't read the converter's DXF, whose polyline lacks its end; ours was looked at by itself"
WALLS = "the converter loses walls, proxies with their graphics, and true colours; the rest is text in a stroke font"
GREYS = "two digits and a word are in a stroke font, and ezdxf has lighter greys for the colours 250 to 254"
PART = "the page setup plots a window of the model, ezdxf shows the whole; its texts of annotative objects have no scale"
OFF_SHEET = "one of three viewports lies above the sheet, which ezdxf shows nevertheless; it draws no rays"
SIDE_VIEW = "ezdxf shows no view from the side and no body; ours has both"
UNDERLAY = "nothing but an underlay whose file is missing: ours shows its frame and name, ezdxf nothing"
UNDERLAY_TEXT = "an underlay whose file is missing and a wipeout show their frames; ezdxf draws the one text alone"

PAGES = [
    ("ACEB10.dwg", "Layout1", HEAD_ALONE),
    ("r2.6_entities.dwg", "Model", CONVERTER),
    ("Building_A_Floor_0_Mapwize.dwg", "Layout2", WALLS),
    ("Building_A_Floor_0_Mapwize.dwg2dxf.dxf", "Layout2", GREYS),
    ("dynblock_r2018.dwg", "Model", PART),
    ("dynblock_r2018.dwg", "PlotStyles", OFF_SHEET),
    ("dynblock_r2018.dwg", "RenderVP", SIDE_VIEW),
    ("dynblock_r2018.dwg", "dwfattach", UNDERLAY_TEXT),
    ("dynblock_r2018.dwg", "*underlay", UNDERLAY),
    ("sample_AC1014.dwg", "*ayout*", OLD_VIEWS),
    ("api-cw750-details.dxf", "Model", WINDOW),
    ("testHatch.dxf", "Model", WINDOW),
    ("api-cw750-details.dxf", "Sheet [14]", BORDER),
    ("flange.dxf", "Layout2", OFF_PAPER),
    ("tray-easy1.dxf", "Sheet2", SCALE),
    ("viewports.dxf", "*", IMAGES),
    ("images.dxf", "Model", IMAGES),
    ("viewport_frozen_layers.dxf", "Model", OUTLINES),
    ("sample_AC1014.dwg", "Model", PROXIES),
    ("sample_AC10??*", "Layout[12]", LINETYPES),
    ("sample_AC10??*", "MyLayout", LINETYPES),
    ("sample_AC1009_binary.dxf", "Layout1", OLD_VIEWS),
    ("example_*", "Model", ENDLESS),
    ("*_Leader.*", "Model", FRAMES),
    ("additional-entities.dxf", "Model", LINE_TYPE),
    ("text_fonts.dxf", "Model", CUT),
    ("bin_dxf_r2000.dxf", "Model", CUT),
    ("multi_insert_with_attribs.dxf", "Model", CUT),
    ("mtext_complex_inline_codes.dxf", "Model", WORDS),
    ("shx.dxf", "Model", STROKES),
    ("leader-mleader.dxf", "Model", WIDTHS),
    ("Elevations.dwg", "*", HATCHES),
    ("ifk.dwt", "Plot", FONTS),
]


def reason_for(drawing, layout):
    fits = fnmatch.fnmatchcase
    return next((reason for file, tab, reason in PAGES if fits(drawing, file) and fits(layout, tab)), None)
