// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/dwg/Twins.h"

#include "base/text/Names.h"
#include "drawing/Annotation.h"
#include "drawing/TextDecoder.h"

#include <set>

namespace sm::drawing::twins {

namespace {

/// Couples the entries of two lists by a key, and counts those that have no partner.
template <class Item, class Key, class Compare>
void Couple(Report& report, const std::string& kind, const std::vector<Item>& dwg, const std::vector<Item>& dxf,
            Key key, Compare compare)
{
    std::map<decltype(key(dwg.front())), const Item*> others;
    for (const Item& item : dxf)
        others.emplace(key(item), &item);
    for (const Item& item : dwg) {
        const auto found = others.find(key(item));
        if (found == others.end()) {
            ++report.onlyDwg[kind];
            continue;
        }
        ++report.both[kind];
        compare(item, *found->second);
        others.erase(found);
    }
    if (!others.empty())
        report.onlyDxf[kind] += others.size();
}

void CompareHeader(const Pair& pair, Report& report, const std::string& name)
{
    Fields fields(report, "HEADER", name);
    for (const char* variable :
         {"$ATTMODE",  "$INSUNITS",   "$LUPREC",    "$MEASUREMENT", "$PDMODE",  "$PSLTSCALE", "$PSTYLEMODE",
          "$TILEMODE", "$XCLIPFRAME", "$DIMTOL",    "$DIMLIM",      "$DIMTIH",  "$DIMTOH",    "$DIMSE1",
          "$DIMSE2",   "$DIMTAD",     "$DIMZIN",    "$DIMSAH",      "$DIMCLRD", "$DIMCLRE",   "$DIMCLRT",
          "$DIMDEC",   "$DIMTDEC",    "$DIMAUNIT",  "$DIMJUST",     "$DIMTOFL", "$DIMUNIT",   "$DIMLUNIT",
          "$DIMDSEP",  "$DIMLWD",     "$DIMLWE",    "$DIMFXLON",    "$DIMFRAC", "$DIMADEC",   "$DIMAZIN",
          "$DIMSD1",   "$DIMSD2",     "$FILLMODE",  "$LWDISPLAY",   "$LUNITS",  "$AUNITS",    "$AUPREC",
          "$SPLFRAME", "$MIRRTEXT",   "$CELWEIGHT", "$CECOLOR"})
        fields.Is(variable, pair.dwg.HeaderInteger(variable, -9999), pair.dxf.HeaderInteger(variable, -9999));
    for (const char* variable :
         {"$LTSCALE",   "$PDSIZE",    "$TEXTSIZE", "$CELTSCALE", "$DIMSCALE", "$DIMASZ", "$DIMEXO",
          "$DIMEXE",    "$DIMRND",    "$DIMDLE",   "$DIMTP",     "$DIMTM",    "$DIMTXT", "$DIMCEN",
          "$DIMTSZ",    "$DIMLFAC",   "$DIMTVP",   "$DIMTFAC",   "$DIMGAP",   "$DIMFXL", "$PSVPSCALE",
          "$THICKNESS", "$ELEVATION", "$ANGBASE",  "$CMLSCALE"})
        fields.Is(variable, pair.dwg.HeaderReal(variable, -9999), pair.dxf.HeaderReal(variable, -9999));
    for (const char* variable : {"$ACADVER", "$DWGCODEPAGE", "$DIMBLK", "$DIMBLK1", "$DIMBLK2", "$DIMLDRBLK",
                                 "$DIMPOST", "$DIMTXSTY", "$CLAYER", "$TEXTSTYLE", "$DIMSTYLE", "$CELTYPE"})
        fields.Is(variable, pair.dwg.HeaderText(variable, "?"), pair.dxf.HeaderText(variable, "?"));
    for (const char* variable : {"$INSBASE", "$LIMMIN", "$LIMMAX", "$PLIMMIN", "$PLIMMAX", "$EXTMIN", "$EXTMAX"})
        fields.Is(variable, pair.dwg.HeaderPoint(variable), pair.dxf.HeaderPoint(variable));
    fields.Is("version", pair.dwg.FileVersion(), pair.dxf.FileVersion());
    fields.Is("codePage", pair.dwg.CodePage(), pair.dxf.CodePage());
}

void CompareOverrides(const Pair& pair, Fields& fields, const Layer& a, const Layer& b)
{
    fields.Each("overrides", a.overrides, b.overrides, [&](const LayerOverride& x, const LayerOverride& y) {
        fields.Is("override.viewport", x.viewport, y.viewport);
        fields.Is("override.color", x.color, y.color);
        fields.Is("override.trueColor", x.trueColor, y.trueColor);
        fields.Is("override.lineweight", x.lineweight, y.lineweight);
        fields.Is("override.transparency", x.transparency, y.transparency);
        fields.Is("override.linetype", x.linetype ? LinetypeName(pair.dwg, *x.linetype) : "",
                  y.linetype ? LinetypeName(pair.dxf, *y.linetype) : "");
    });
}

void CompareLayers(const Pair& pair, Report& report, const std::string& name)
{
    Couple(
        report, "LAYER", pair.dwg.Layers(), pair.dxf.Layers(), [](const Layer& one) { return one.handle; },
        [&](const Layer& a, const Layer& b) {
            Fields fields(report, "LAYER", name + " " + b.name);
            fields.Is("name", a.name, b.name);
            fields.Is(a.trueColor ? "color beside true colour" : "color", a.color, b.color);
            fields.Is("trueColor", a.trueColor, b.trueColor);
            fields.Is("linetype", LinetypeName(pair.dwg, a.linetype), LinetypeName(pair.dxf, b.linetype));
            fields.Is("lineweight", a.lineweight, b.lineweight);
            fields.Is("off", a.off, b.off);
            fields.Is("frozen", a.frozen, b.frozen);
            fields.Is("plotted", a.plotted, b.plotted);
            fields.Is("plotStyle", a.plotStyle, b.plotStyle);
            fields.Is("transparency", a.transparency, b.transparency);
            CompareOverrides(pair, fields, a, b);
        });
}

void CompareLinetypes(const Pair& pair, Report& report, const std::string& name)
{
    Couple(
        report, "LTYPE", pair.dwg.Linetypes(), pair.dxf.Linetypes(), [](const Linetype& one) { return one.handle; },
        [&](const Linetype& a, const Linetype& b) {
            Fields fields(report, "LTYPE", name + " " + b.name);
            fields.Is("name", base::FoldCase(a.name), base::FoldCase(b.name));
            fields.Is("description", a.description, b.description);
            fields.Is("patternLength", a.patternLength, b.patternLength);
            fields.Each("elements", a.elements, b.elements, [&](const LinetypeElement& x, const LinetypeElement& y) {
                fields.Is("kind", x.kind, y.kind);
                fields.Is("length", x.length, y.length);
                fields.Is("text", x.text, y.text);
                fields.Is("shape", x.shape, y.shape);
                fields.Is("style", StyleName(pair.dwg, x.style), StyleName(pair.dxf, y.style));
                fields.Is("scale", x.scale, y.scale);
                fields.Is("rotation", x.rotation, y.rotation);
                fields.Is("absoluteRotation", x.absoluteRotation, y.absoluteRotation);
                fields.Is("offset", x.offset, y.offset);
            });
        });
}

void CompareStyles(const Pair& pair, Report& report, const std::string& name)
{
    Couple(
        report, "STYLE", pair.dwg.TextStyles(), pair.dxf.TextStyles(), [](const TextStyle& one) { return one.handle; },
        [&](const TextStyle& a, const TextStyle& b) {
            Fields fields(report, "STYLE", name + " " + b.name);
            fields.Is("name", a.name, b.name);
            fields.Is("fontFile", a.fontFile, b.fontFile);
            fields.Is("bigFontFile", a.bigFontFile, b.bigFontFile);
            fields.Is("family", a.family, b.family);
            fields.Is("bold", a.bold, b.bold);
            fields.Is("italic", a.italic, b.italic);
            fields.Is("fixedHeight", a.fixedHeight, b.fixedHeight);
            fields.Is("widthFactor", a.widthFactor, b.widthFactor);
            fields.Is("obliqueAngle", a.obliqueAngle, b.obliqueAngle);
            fields.Is("backward", a.backward, b.backward);
            fields.Is("upsideDown", a.upsideDown, b.upsideDown);
            fields.Is("vertical", a.vertical, b.vertical);
            fields.Is("isShapeFile", a.isShapeFile, b.isShapeFile);
        });
}

void CompareDepth(Fields& fields, const ViewDepth& a, const ViewDepth& b)
{
    fields.Is("mode", a.mode, b.mode);
    fields.Is("lens", a.lens, b.lens);
    fields.Is("front", a.front, b.front);
    fields.Is("back", a.back, b.back);
}

void CompareViews(const Pair& pair, Report& report, const std::string& name)
{
    Couple(
        report, "VIEW", pair.dwg.Views(), pair.dxf.Views(), [](const NamedView& one) { return one.name; },
        [&](const NamedView& a, const NamedView& b) {
            Fields fields(report, "VIEW", name + " " + b.name);
            fields.Is("paperSpace", a.paperSpace, b.paperSpace);
            fields.Is("center", a.center, b.center);
            fields.Is("width", a.width, b.width);
            fields.Is("height", a.height, b.height);
            fields.Is("direction", a.direction, b.direction);
            fields.Is("target", a.target, b.target);
            fields.Is("twist", a.twist, b.twist);
            CompareDepth(fields, a.depth, b.depth);
        });
    Fields fields(report, "VPORT", name);
    const auto a = pair.dwg.ActiveModelView(), b = pair.dxf.ActiveModelView();
    fields.Is("present", a.has_value(), b.has_value());
    if (!a || !b)
        return;
    fields.Is("center", a->center, b->center);
    fields.Is("height", a->height, b->height);
    fields.Is("aspect", a->aspect, b->aspect);
    fields.Is("direction", a->direction, b->direction);
    fields.Is("target", a->target, b->target);
    fields.Is("twist", a->twist, b->twist);
    CompareDepth(fields, a->depth, b->depth);
}

void ComparePlot(Fields& fields, const PlotSettings& a, const PlotSettings& b)
{
    fields.Is("pageSetupName", a.pageSetupName, b.pageSetupName);
    fields.Is("configName", a.configName, b.configName);
    fields.Is("mediaName", a.mediaName, b.mediaName);
    fields.Is("viewName", a.viewName, b.viewName);
    fields.Is("marginLeft", a.marginLeft, b.marginLeft);
    fields.Is("marginBottom", a.marginBottom, b.marginBottom);
    fields.Is("marginRight", a.marginRight, b.marginRight);
    fields.Is("marginTop", a.marginTop, b.marginTop);
    fields.Is("paperWidth", a.paperWidth, b.paperWidth);
    fields.Is("paperHeight", a.paperHeight, b.paperHeight);
    fields.Is("origin", a.origin, b.origin);
    fields.Is("window", a.window, b.window);
    fields.Is("scaleNumerator", a.scaleNumerator, b.scaleNumerator);
    fields.Is("scaleDenominator", a.scaleDenominator, b.scaleDenominator);
    fields.Is("flags", a.flags, b.flags);
    fields.Is("paperUnits", a.paperUnits, b.paperUnits);
    fields.Is("rotation", a.rotation, b.rotation);
    fields.Is("plotType", a.plotType, b.plotType);
    fields.Is("styleSheet", a.styleSheet, b.styleSheet);
    fields.Is("standardScale", a.standardScale, b.standardScale);
    fields.Is("standardScaleFactor", a.standardScaleFactor, b.standardScaleFactor);
}

void CompareLayouts(const Pair& pair, Report& report, const std::string& name)
{
    Couple(
        report, "LAYOUT", pair.dwg.Layouts(), pair.dxf.Layouts(), [](const Layout& one) { return one.name; },
        [&](const Layout& a, const Layout& b) {
            Fields fields(report, "LAYOUT", name + " " + b.name);
            fields.Is("handle", a.handle, b.handle);
            fields.Is("tabOrder", a.tabOrder, b.tabOrder);
            fields.Is("block", BlockHandle(pair.dwg, a.block), BlockHandle(pair.dxf, b.block));
            fields.Is("isModel", a.isModel, b.isModel);
            fields.Is("hasPlotSettings", a.hasPlotSettings, b.hasPlotSettings);
            fields.Is("limits", a.limits, b.limits);
            fields.Is("extents", a.extents, b.extents);
            fields.Is("insertionBase", a.insertionBase, b.insertionBase);
            fields.Is("psltscale", a.psltscale, b.psltscale);
            ComparePlot(fields, a.plot, b.plot);
        });
    Couple(
        report, "PLOTSETTINGS", pair.dwg.PageSetups(), pair.dxf.PageSetups(),
        [](const PlotSettings& one) { return one.pageSetupName; },
        [&](const PlotSettings& a, const PlotSettings& b) {
            Fields fields(report, "PLOTSETTINGS", name);
            ComparePlot(fields, a, b);
        });
    Fields fields(report, "DRAWING", name);
    fields.Is("activeLayout", pair.dwg.ActiveLayout(), pair.dxf.ActiveLayout());
}

void CompareObjects(const Pair& pair, Report& report, const std::string& name)
{
    Couple(
        report, "IMAGEDEF", pair.dwg.ImageDefinitions(), pair.dxf.ImageDefinitions(),
        [](const ImageDefinition& one) { return one.handle; },
        [&](const ImageDefinition& a, const ImageDefinition& b) {
            Fields fields(report, "IMAGEDEF", name + " " + b.path);
            fields.Is("path", a.path, b.path);
            fields.Is("pixels", a.pixels, b.pixels);
            fields.Is("kind", a.kind, b.kind);
            fields.Is("page", a.page, b.page);
            fields.Is("loaded", a.loaded, b.loaded);
        });
    Couple(
        report, "PLOTSTYLE", pair.dwg.PlotStyleNames(), pair.dxf.PlotStyleNames(),
        [](const PlotStyleName& one) { return one.handle; },
        [&](const PlotStyleName& a, const PlotStyleName& b) {
            Fields fields(report, "PLOTSTYLE", name);
            fields.Is("name", a.name, b.name);
        });
    Fields fields(report, "DRAWING", name);
    const std::set<std::string> a(pair.dwg.ApplicationNames().begin(), pair.dwg.ApplicationNames().end());
    const std::set<std::string> b(pair.dxf.ApplicationNames().begin(), pair.dxf.ApplicationNames().end());
    fields.Is("applications", std::vector(a.begin(), a.end()), std::vector(b.begin(), b.end()));
    fields.Is("frames.image", pair.dwg.Frames().image, pair.dxf.Frames().image);
    fields.Is("frames.wipeout", pair.dwg.Frames().wipeout, pair.dxf.Frames().wipeout);
    fields.Is("frames.underlay", pair.dwg.Frames().underlay, pair.dxf.Frames().underlay);
    fields.Is("linetypeUnit", ModelLinetypeUnit(pair.dwg), ModelLinetypeUnit(pair.dxf));
}

} // namespace

void CompareTables(const Pair& pair, Report& report, const std::string& name)
{
    CompareHeader(pair, report, name);
    CompareLayers(pair, report, name);
    CompareLinetypes(pair, report, name);
    CompareStyles(pair, report, name);
    CompareViews(pair, report, name);
    CompareLayouts(pair, report, name);
    CompareObjects(pair, report, name);
}

} // namespace sm::drawing::twins
