// SPDX-License-Identifier: GPL-3.0-or-later
// What all entities share, and what texts of several kinds do.
#include "drawing/dwg/Twins.h"

namespace sm::drawing::twins {

void CompareCommon(const Pair& pair, Fields& f, const Entity& a, const Entity& b)
{
    f.Is("owner", a.owner, b.owner);
    f.Is("layer", LayerName(pair.dwg, a.layer), LayerName(pair.dxf, b.layer));
    f.Is("linetype", LinetypeName(pair.dwg, a.linetype), LinetypeName(pair.dxf, b.linetype));
    f.Is("linetypeScale", a.linetypeScale, b.linetypeScale);
    f.Is("color", a.color, b.color);
    f.Is("trueColor", a.trueColor, b.trueColor);
    f.Is("lineweight", a.lineweight, b.lineweight);
    f.Is("invisible", a.invisible, b.invisible);
    f.Is("extrusion", a.extrusion, b.extrusion);
    f.Is("thickness", a.thickness, b.thickness);
    f.Is("elevation", a.elevation, b.elevation);
    f.Is("transparency", a.transparency, b.transparency);
    f.Is("transparencyByBlock", a.transparencyByBlock, b.transparencyByBlock);
    f.Is("plotStyleSource", a.plotStyleSource, b.plotStyleSource);
    f.Is("plotStyle", a.plotStyle, b.plotStyle);
}

void CompareMText(const Pair& pair, Fields& f, const MTextData& a, const MTextData& b)
{
    f.Is("insertion", a.insertion, b.insertion);
    f.Is("direction", a.direction, b.direction);
    f.Is("text", a.text, b.text);
    f.Is("style", StyleName(pair.dwg, a.style), StyleName(pair.dxf, b.style));
    f.Is("height", a.height, b.height);
    f.Is("width", a.width, b.width);
    f.Is("turn", a.hasDirection ? 0 : a.rotation, b.hasDirection ? 0 : b.rotation);
    f.Is("attachment", a.attachment, b.attachment);
    f.Is("lineSpacing", a.lineSpacing, b.lineSpacing);
    f.Is("lineSpacingStyle", a.lineSpacingStyle, b.lineSpacingStyle);
    f.Is("backgroundFlags", a.backgroundFlags, b.backgroundFlags);
    f.Is("backgroundScale", a.backgroundScale, b.backgroundScale);
    f.Is("backgroundColor", a.backgroundColor, b.backgroundColor);
    f.Is("backgroundTrueColor", a.backgroundTrueColor, b.backgroundTrueColor);
    f.Is("columnType", a.columnType, b.columnType);
    f.Is("columnCount", a.columnCount, b.columnCount);
    f.Is("columnWidth", a.columnWidth, b.columnWidth);
    f.Is("columnGutter", a.columnGutter, b.columnGutter);
    f.Is("columnsReversed", a.columnsReversed, b.columnsReversed);
    f.Is("columnAutoHeight", a.columnAutoHeight, b.columnAutoHeight);
    f.Is("definedHeight", a.definedHeight, b.definedHeight);
    f.Is("columnHeights", a.columnHeights, b.columnHeights);
}

std::vector<std::string> LayerNames(const Drawing& drawing, const std::vector<std::uint32_t>& layers)
{
    std::vector<std::string> names;
    for (const std::uint32_t layer : layers)
        names.push_back(LayerName(drawing, layer));
    return names;
}

} // namespace sm::drawing::twins
