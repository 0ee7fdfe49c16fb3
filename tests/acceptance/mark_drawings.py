# SPDX-License-Identifier: GPL-3.0-or-later
"""Drawings whose marks are checked: made with ezdxf, saved as DXF."""
import collections

import ezdxf

A4 = "ISO_A4_(297.00_x_210.00_MM)"
A3 = "ISO_A3_(420.00_x_297.00_MM)"
SIZES = {A4: (297, 210), A3: (420, 297)}
PLOT_STYLES, LINEWEIGHTS = 32, 128
EXTENTS, LIMITS, VIEW, WINDOW, LAYOUT = 1, 2, 3, 4, 5

# `unit` is a paper unit in millimetres; the scale is paper units to drawing units; `origin` millimetres.
Mapping = collections.namedtuple("Mapping", "name plot_type unit numerator denominator origin source")
MAPPINGS = [
    Mapping("extents", EXTENTS, 1, 1, 2, (0, 0), "native"),
    Mapping("extents, inches", EXTENTS, 25.4, 1, 48, (0, 0), "native"),
    Mapping("extents, moved", EXTENTS, 1, 3, 4, (25, 12.5), "native"),
    Mapping("limits", LIMITS, 1, 2, 1, (12.5, 7), "native"),
    Mapping("limits, inches", LIMITS, 25.4, 3, 8, (0, 0), "native"),
    Mapping("view", VIEW, 1, 1, 1, (0, 0), "native"),
    Mapping("view, inches", VIEW, 25.4, 1, 96, (10, 20), "native"),
    Mapping("window", WINDOW, 1, 1, 3, (0, 0), "native"),
    Mapping("window, inches", WINDOW, 25.4, 1, 12, (5, 30), "native"),
    Mapping("layout", LAYOUT, 1, 1, 1, (0, 0), "native"),
    Mapping("layout, moved", LAYOUT, 1, 1, 2, (15, 10), "native"),
    Mapping("layout, inches", LAYOUT, 25.4, 2, 3, (0, 0), "native"),
    Mapping("custom window", WINDOW, 1, 1, 5, (8, 4), "custom"),
    Mapping("custom extents, inches", EXTENTS, 25.4, 1, 20, (0, 0), "custom"),
    Mapping("global extents", EXTENTS, 1, 1, 2, (9, 3), "global"),
]


def plot_settings(sheet, medium, margins=(5, 6, 7, 8)):
    """Native page setup: the medium, no centring, no rotation. `margins`: left, bottom, right, top."""
    sheet.update(dict(plot_configuration_file="Office Plotter.pc3", paper_size=medium, paper_width=SIZES[medium][0],
                 paper_height=SIZES[medium][1], left_margin=margins[0], bottom_margin=margins[1], right_margin=margins[2],
                 top_margin=margins[3], plot_rotation=0, plot_layout_flags=PLOT_STYLES | LINEWEIGHTS, plot_type=LAYOUT,
                 plot_paper_units=1, scale_numerator=1, scale_denominator=1, standard_scale_type=16))


def frame_of(mapping):
    """Corner, width and height of the plotted area in drawing units: 150 mm by 100 mm on paper."""
    units = mapping.denominator / mapping.numerator / mapping.unit  # drawing units a millimetre
    return (13.25 * units, -21.5 * units), 150 * units, 100 * units


def cross_of(mapping):
    (x, y), width, height = frame_of(mapping)
    return (round(x + 0.4 * width, 4), round(y + 0.55 * height, 4))


def mapping_drawing(mapping, path):
    """A frame, and a cross of arms 12 mm long on paper; the layout's settings are the mapping's."""
    document = ezdxf.new("R2010")
    space = document.layout("Layout1") if mapping.plot_type == LAYOUT else document.modelspace()
    (x, y), width, height = frame_of(mapping)
    space.add_lwpolyline([(x, y), (x + width, y), (x + width, y + height), (x, y + height)], close=True)
    cx, cy = cross_of(mapping)
    arm = 12 * width / 150
    space.add_line((cx - arm, cy), (cx + arm, cy), dxfattribs={"lineweight": 0})
    space.add_line((cx, cy - arm), (cx, cy + arm), dxfattribs={"lineweight": 0})
    sheet = space.dxf_layout.dxf
    plot_settings(sheet, A4)
    if mapping.source == "native":
        sheet.update(dict(plot_type=mapping.plot_type, plot_paper_units=0 if mapping.unit == 25.4 else 1,
                     scale_numerator=mapping.numerator, scale_denominator=mapping.denominator,
                     plot_origin_x_offset=mapping.origin[0], plot_origin_y_offset=mapping.origin[1],
                     plot_window_x1=x, plot_window_y1=y, plot_window_x2=x + width, plot_window_y2=y + height,
                     plot_view_name="AREA" if mapping.plot_type == VIEW else ""))
    document.views.new("AREA", dxfattribs={"center": (x + width / 2, y + height / 2), "width": width, "height": height,
                                           "direction": (0, 0, 1), "target": (0, 0, 0)})
    document.header["$LIMMIN"], document.header["$LIMMAX"] = (x, y), (x + width, y + height)
    document.modelspace().dxf_layout.dxf.update({"limmin": (x, y), "limmax": (x + width, y + height)})
    if mapping.source == "custom":
        store_custom_setup(document, mapping)
    document.saveas(path)


def custom_values(mapping):
    """The page setup record's values by name, in its order."""
    (x, y), width, height = frame_of(mapping)
    return [("CanonicalMediaName", A4), ("PaperWidth", 297), ("PaperHeight", 210), ("PlotRotation", 0),
            ("PlotType", mapping.plot_type), ("CenterPlot", 0), ("PlotOriginX", mapping.origin[0]),
            ("PlotOriginY", mapping.origin[1]), ("UseStandardScale", 0), ("StandardScale", 0),
            ("ScaleNumer", mapping.numerator), ("ScaleDenom", mapping.denominator),
            ("PaperUnits", 0 if mapping.unit == 25.4 else 1), ("PlotWithPlotStyles", 1), ("StyleSheet", ""),
            ("ShowPlotStyles", 0), ("PlotHidden", 0), ("PlotViewportsFirst", 1), ("PlotWithLineWeights", 1),
            ("ScaleLineWeights", 0), ("PlotViewportBorders", 0), ("WinLowerLeftX", x), ("WinLowerLeftY", y),
            ("WinUpperRightX", x + width), ("WinUpperRightY", y + height), ("ViewToPlot", "")]


def store_custom_setup(document, mapping):
    document.appids.new("TWSI_Plots")
    values = [""] + [str(value) for _, value in custom_values(mapping)]
    document.rootdict.set_xdata("TWSI_Plots", [(1000, value) for value in values])


def title_block(document, layout, number, at=(200, 10)):
    if "TITLE" not in document.blocks:
        block = document.blocks.new("TITLE")
        block.add_lwpolyline([(0, 0), (60, 0), (60, 15), (0, 15)], close=True)
        block.add_attdef("DWG-NO", (3, 5), dxfattribs={"height": 4})
    reference = layout.add_blockref("TITLE", at)
    reference.add_auto_attribs({"DWG-NO": number})
    return reference


def linked_drawing(path):
    """Two sheets; each linked entity stands alone. Returns the URLs of each sheet in drawing order."""
    document = ezdxf.new("R2010", setup=True)
    first, second = document.layout("Layout1"), document.layouts.new("Layout2")
    for layout in (first, second):
        plot_settings(layout.dxf_layout.dxf, A4, margins=(0, 0, 0, 0))
    entities = [
        [("line", first.add_line((20, 20), (60, 50))), ("circle", first.add_circle((120, 40), 15)),
         ("text", first.add_text("Linked text", dxfattribs={"height": 6, "insert": (160, 100)})),
         ("turned", first.add_text("Turned", dxfattribs={"height": 6, "insert": (30, 100), "rotation": 30})),
         ("mtext", first.add_mtext("Two\\PParagraphs", dxfattribs={"char_height": 5, "insert": (100, 150), "width": 60})),
         ("block", title_block(document, first, "L-1"))],
        [("arc", second.add_arc((60, 60), 30, 10, 100)), ("frame", second.add_lwpolyline(
            [(120, 30), (180, 30), (160, 80)], close=True))],
    ]
    urls = []
    for number, sheet in enumerate(entities, start=1):
        urls.append([f"https://example.com/{number}/{name}" for name, _ in sheet])
        for url, (_, entity) in zip(urls[-1], sheet):
            entity.set_hyperlink(url)
    document.saveas(path)
    return urls


def set_drawing(number, path):
    """One sheet with text, title block and, in every third drawing, a second sheet; odd ones A4, even ones A3."""
    document = ezdxf.new("R2010", setup=True)
    names = ["Layout1", "Layout2"] if number % 3 == 0 else ["Layout1"]
    for name in names:
        layout = document.layout(name) if name == "Layout1" else document.layouts.new(name)
        plot_settings(layout.dxf_layout.dxf, A4 if number % 2 else A3)
        layout.add_text(f"DRAWING-{number}-{name}", dxfattribs={"height": 8, "insert": (40, 100)})
        title_block(document, layout, f"D-{number}")
    document.saveas(path)
    return [(number, name) for name in names]
