"""Sheets, title blocks and styles that the sample drawings share."""
import ezdxf

LAYERS = [  # name, colour, lineweight in hundredths of a millimetre, linetype
    ("WALLS", 7, 50, "Continuous"), ("DOORS", 30, 25, "Continuous"), ("HATCH", 8, 13, "Continuous"),
    ("AXES", 1, 18, "CENTER"), ("DIMENSIONS", 5, 18, "Continuous"), ("TEXT", 7, 25, "Continuous"),
    ("TITLE", 7, 35, "Continuous"), ("PLOTS", 4, 35, "Continuous"), ("TREES", 94, 18, "Continuous"),
    ("VIEWPORTS", 9, 13, "Continuous"),
]


def new_drawing(units_mm):
    """An R2013 drawing with the layers and styles of the samples; units millimetres or metres."""
    doc = ezdxf.new("R2013", setup=True)
    doc.header["$INSUNITS"] = 4 if units_mm else 6
    doc.header["$MEASUREMENT"] = 1
    doc.header["$LTSCALE"] = 5.0
    for name, color, weight, linetype in LAYERS:
        doc.layers.add(name, color=color, lineweight=weight, linetype=linetype)
    doc.layers.get("VIEWPORTS").dxf.plot = 0
    doc.styles.add("SANS", font="arial.ttf")
    doc.styles.add("SIMPLEX", font="simplex.shx")
    return doc


def add_sheet(doc, name, number):
    """An A3 sheet, landscape, in millimetres. The first one takes the place of the empty layout of a new drawing."""
    if number == 1:
        doc.layouts.rename("Layout1", name)
        sheet = doc.layouts.get(name)
    else:
        sheet = doc.layouts.new(name)
    sheet.page_setup(size=(420, 297), margins=(3, 3, 3, 3), units="mm")
    sheet.dxf.paper_size = "ISO_A3_(420.00_x_297.00_MM)"
    sheet.dxf.plot_configuration_file = "Office Plotter.pc3"
    for viewport in list(sheet.viewports()):
        viewport.dxf.layer = "VIEWPORTS"
    return sheet


def add_title_block(doc, sheet, title, number, scale):
    """A frame round the sheet and a title block with attributes in its lower-right corner."""
    if "TITLE" not in doc.blocks:
        block = doc.blocks.new("TITLE")
        for box in [(0, 0, 160, 24), (0, 0, 100, 24), (0, 0, 160, 12)]:
            block.add_lwpolyline([(box[0], box[1]), (box[2], box[1]), (box[2], box[3]), (box[0], box[3])], close=True,
                                 dxfattribs={"layer": "TITLE"})
        for tag, x, y, height in [("TITLE", 3, 15, 5), ("PROJECT", 3, 3, 3.5), ("DWG-NO", 103, 15, 5),
                                  ("SCALE", 103, 3, 3.5), ("DRAWN_BY", 135, 3, 3.5)]:
            block.add_attdef(tag, (x, y), dxfattribs={"height": height, "layer": "TITLE", "style": "SANS"})
    sheet.add_lwpolyline([(5, 5), (409, 5), (409, 286), (5, 286)], close=True,
                         dxfattribs={"layer": "TITLE", "lineweight": 70})
    reference = sheet.add_blockref("TITLE", (249, 5), dxfattribs={"layer": "TITLE"})
    reference.add_auto_attribs({"TITLE": title, "PROJECT": "Sheetmaker samples", "DWG-NO": number, "SCALE": scale,
                                "DRAWN_BY": "JS"})


def save(doc, path):
    """Writes the file with the viewports on their layer and the first sheet active."""
    for layout in doc.layouts:
        if layout.name != "Model":
            for viewport in layout.viewports():
                viewport.dxf.layer = "VIEWPORTS"
    doc.saveas(path)
    print("wrote", path.rsplit("/", 1)[-1])
