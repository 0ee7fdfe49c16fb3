// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/EntityKinds.h"
#include "drawing/dwg/Twins.h"
#include "drawing/entities/DimStyles.h"
#include "drawing/entities/Dimensions.h"
#include "drawing/entities/MLines.h"
#include "drawing/entities/MultiLeaders.h"
#include "drawing/entities/NoteAttribute.h"
#include "drawing/entities/TableEntities.h"

namespace sm::drawing::twins {

namespace {

void CompareArrow(const Pair& pair, Fields& f, const std::string& field, const ArrowHead& a, const ArrowHead& b)
{
    f.Is(field + ".name", a.name, b.name);
    f.Is(field + ".block", BlockHandle(pair.dwg, a.block), BlockHandle(pair.dxf, b.block));
}

struct RealField {
    const char* name;
    double DimStyle::*member;
};
struct IntegerField {
    const char* name;
    std::int32_t DimStyle::*member;
};

void CompareDimStyle(const Pair& pair, Fields& f, const DimStyle& a, const DimStyle& b)
{
    using S = DimStyle;
    for (const auto& [name, member] : {RealField{"scale", &S::scale},
                                       {"arrowSize", &S::arrowSize},
                                       {"extensionGap", &S::extensionGap},
                                       {"extensionPast", &S::extensionPast},
                                       {"dimensionPast", &S::dimensionPast},
                                       {"textHeight", &S::textHeight},
                                       {"centerMark", &S::centerMark},
                                       {"tickSize", &S::tickSize},
                                       {"lengthFactor", &S::lengthFactor},
                                       {"rounding", &S::rounding},
                                       {"textGap", &S::textGap},
                                       {"textShift", &S::textShift},
                                       {"plus", &S::plus},
                                       {"minus", &S::minus},
                                       {"toleranceFactor", &S::toleranceFactor},
                                       {"fixedExtension", &S::fixedExtension}})
        f.Is(std::string("style.") + name, a.*member, b.*member);
    for (const auto& [name, member] : {IntegerField{"extensionsFixed", &S::extensionsFixed},
                                       {"lineBetween", &S::lineBetween},
                                       {"decimals", &S::decimals},
                                       {"toleranceDecimals", &S::toleranceDecimals},
                                       {"angleDecimals", &S::angleDecimals},
                                       {"lengthUnit", &S::lengthUnit},
                                       {"angleUnit", &S::angleUnit},
                                       {"fraction", &S::fraction},
                                       {"zeros", &S::zeros},
                                       {"angleZeros", &S::angleZeros},
                                       {"separator", &S::separator},
                                       {"textAbove", &S::textAbove},
                                       {"textPlace", &S::textPlace},
                                       {"textInsideLevel", &S::textInsideLevel},
                                       {"textOutsideLevel", &S::textOutsideLevel},
                                       {"tolerances", &S::tolerances},
                                       {"limits", &S::limits},
                                       {"twoArrows", &S::twoArrows},
                                       {"hideFirstExtension", &S::hideFirstExtension},
                                       {"hideSecondExtension", &S::hideSecondExtension},
                                       {"hideFirstHalf", &S::hideFirstHalf},
                                       {"hideSecondHalf", &S::hideSecondHalf},
                                       {"dimensionColor", &S::dimensionColor},
                                       {"extensionColor", &S::extensionColor},
                                       {"textColor", &S::textColor},
                                       {"dimensionWeight", &S::dimensionWeight},
                                       {"extensionWeight", &S::extensionWeight}})
        f.Is(std::string("style.") + name, a.*member, b.*member);
    f.Is("style.textStyle", StyleName(pair.dwg, a.textStyle), StyleName(pair.dxf, b.textStyle));
    f.Is("style.form", a.form, b.form);
    CompareArrow(pair, f, "style.arrow", a.arrow, b.arrow);
    CompareArrow(pair, f, "style.first", a.first, b.first);
    CompareArrow(pair, f, "style.second", a.second, b.second);
    CompareArrow(pair, f, "style.leaderArrow", a.leaderArrow, b.leaderArrow);
}

void Compare(const Pair&, Fields& f, const LeaderData& a, const LeaderData& b)
{
    f.Is("vertices", a.vertices, b.vertices);
    f.Is("spline", a.spline, b.spline);
    f.Is("arrowHead", a.arrowHead, b.arrowHead);
    f.Is("horizontal", a.horizontal, b.horizontal);
    f.Is("hook", a.hook, b.hook);
    f.Is("annotation", a.annotation, b.annotation);
    f.Is("textWidth", a.textWidth, b.textWidth);
}

void Compare(const Pair& pair, Fields& f, const DimensionData& a, const DimensionData& b)
{
    f.Is("block", BlockHandle(pair.dwg, a.block), BlockHandle(pair.dxf, b.block));
    f.Is("type", a.type, b.type);
    f.Is("form", a.form, b.form);
    f.Is("definitionPoint", a.definitionPoint, b.definitionPoint);
    f.Is("textMidpoint", a.textMidpoint, b.textMidpoint);
    f.Is("first", a.first, b.first);
    f.Is("second", a.second, b.second);
    f.Is("third", a.third, b.third);
    f.Is("arcPoint", a.arcPoint, b.arcPoint);
    f.Is("text", a.text, b.text);
    f.Is("rotation", a.rotation, b.rotation);
    f.Is("oblique", a.oblique, b.oblique);
    f.Is("textRotation", a.textRotation, b.textRotation);
    f.Is("horizontal", a.horizontal, b.horizontal);
}

void Compare(const Pair&, Fields& f, const ToleranceData& a, const ToleranceData& b)
{
    f.Is("insertion", a.insertion, b.insertion);
    f.Is("direction", a.direction, b.direction);
    f.Is("text", a.text, b.text);
}

void CompareLine(const Pair& pair, Fields& f, const MultiLeaderData::Line& a, const MultiLeaderData::Line& b)
{
    f.Is("line.vertices", a.vertices, b.vertices);
    f.Is("line.gaps", a.gaps.size(), b.gaps.size());
    f.Is("line.arrowSize", a.arrowSize, b.arrowSize);
    CompareArrow(pair, f, "line.arrow", a.arrow, b.arrow);
    CompareCommon(pair, f, a.pen, b.pen);
}

void Compare(const Pair& pair, Fields& f, const MultiLeaderData& a, const MultiLeaderData& b)
{
    f.Each("leaders", a.leaders, b.leaders, [&](const MultiLeaderData::Leader& x, const MultiLeaderData::Leader& y) {
        f.Is("leader.end", x.end, y.end);
        f.Is("leader.hasEnd", x.hasEnd, y.hasEnd);
        f.Is("leader.gaps", x.gaps.size(), y.gaps.size());
        f.Is("leader.dogleg", x.dogleg, y.dogleg);
        f.Is("leader.doglegLength", x.doglegLength, y.doglegLength);
        f.Is("leader.vertical", x.vertical, y.vertical);
        f.Each("leader.lines", x.lines, y.lines,
               [&](const MultiLeaderData::Line& s, const MultiLeaderData::Line& t) { CompareLine(pair, f, s, t); });
    });
    CompareCommon(pair, f, a.pen, b.pen);
    f.Is("hidden", a.hidden, b.hidden);
    f.Is("spline", a.spline, b.spline);
    f.Is("dogleg", a.dogleg, b.dogleg);
    f.Is("landingGap", a.landingGap, b.landingGap);
    f.Is("content", a.content, b.content);
    CompareMText(pair, f, a.text, b.text);
    f.Is("text.color", a.text.color, b.text.color);
    f.Is("textFrame", a.textFrame, b.textFrame);
    f.Is("leftAttachment", a.leftAttachment, b.leftAttachment);
    f.Is("rightAttachment", a.rightAttachment, b.rightAttachment);
    f.Is("block.block", BlockHandle(pair.dwg, a.block.block), BlockHandle(pair.dxf, b.block.block));
    f.Is("block.insertion", a.block.insertion, b.block.insertion);
    f.Is("block.scale", a.block.scale, b.block.scale);
    f.Is("block.rotation", a.block.rotation, b.block.rotation);
    f.Each("attributes", a.attributes, b.attributes, [&](const NoteAttribute& x, const NoteAttribute& y) {
        f.Is("attribute.definition", x.definition, y.definition);
        f.Is("attribute.text", x.text, y.text);
    });
}

void Compare(const Pair& pair, Fields& f, const MLineData& a, const MLineData& b)
{
    f.Each("vertices", a.vertices, b.vertices, [&](const MLineData::Vertex& x, const MLineData::Vertex& y) {
        f.Is("vertex.point", x.point, y.point);
        f.Is("vertex.direction", x.direction, y.direction);
        f.Is("vertex.miter", x.miter, y.miter);
        f.Is("vertex.count", x.count, y.count);
    });
    f.Is("lengths", a.lengths, b.lengths);
    f.Is("closed", a.closed, b.closed);
    f.Is("noStartCap", a.noStartCap, b.noStartCap);
    f.Is("noEndCap", a.noEndCap, b.noEndCap);
    f.Is("styleFlags", a.styleFlags, b.styleFlags);
    f.Is("startAngle", a.startAngle, b.startAngle);
    f.Is("endAngle", a.endAngle, b.endAngle);
    f.Is("fill.color", a.fill.color, b.fill.color);
    f.Each("elements", a.elements, b.elements, [&](const MLineData::Element& x, const MLineData::Element& y) {
        f.Is("element.offset", x.offset, y.offset);
        CompareCommon(pair, f, x.pen, y.pen);
    });
}

void CompareCell(const Pair& pair, Fields& f, const TableData::Cell& a, const TableData::Cell& b)
{
    f.Is("cell.text", a.text, b.text);
    f.Is("cell.isBlock", a.isBlock, b.isBlock);
    f.Is("cell.hidden", a.hidden, b.hidden);
    f.Is("cell.columns", a.columns, b.columns);
    f.Is("cell.rows", a.rows, b.rows);
    f.Is("cell.block", BlockHandle(pair.dwg, a.block), BlockHandle(pair.dxf, b.block));
    f.Is("cell.textHeight", a.textHeight, b.textHeight);
    f.Is("cell.alignment", a.alignment, b.alignment);
    f.Is("cell.blockScale", a.blockScale, b.blockScale);
    f.Is("cell.rotation", a.rotation, b.rotation);
    f.Is("cell.style", a.style, b.style);
    f.Is("cell.textColor", a.textColor, b.textColor);
    f.Is("cell.fillColor", a.fillColor, b.fillColor);
    f.Is("cell.filled", a.filled, b.filled);
    f.Each("cell.borders", a.borders, b.borders, [&](const TableData::Border& x, const TableData::Border& y) {
        f.Is("cell.border.color", x.color, y.color);
        f.Is("cell.border.lineweight", x.lineweight, y.lineweight);
        f.Is("cell.border.hidden", x.hidden, y.hidden);
    });
    f.Each("cell.attributes", a.attributes, b.attributes, [&](const NoteAttribute& x, const NoteAttribute& y) {
        f.Is("cell.attribute.definition", x.definition, y.definition);
        f.Is("cell.attribute.text", x.text, y.text);
    });
}

void CompareKind(Fields& f, const TableData::Kind& a, const TableData::Kind& b)
{
    f.Is("kind.style", a.style, b.style);
    f.Is("kind.textHeight", a.textHeight, b.textHeight);
    f.Is("kind.alignment", a.alignment, b.alignment);
    f.Is("kind.textColor", a.textColor, b.textColor);
    f.Is("kind.fillColor", a.fillColor, b.fillColor);
    f.Is("kind.filled", a.filled, b.filled);
}

void Compare(const Pair& pair, Fields& f, const TableData& a, const TableData& b)
{
    f.Is("block", BlockHandle(pair.dwg, a.block), BlockHandle(pair.dxf, b.block));
    f.Is("insertion", a.insertion, b.insertion);
    f.Is("direction", a.direction, b.direction);
    f.Is("columnWidths", a.columnWidths, b.columnWidths);
    f.Is("rowHeights", a.rowHeights, b.rowHeights);
    f.Is("title", a.title, b.title);
    f.Is("header", a.header, b.header);
    f.Is("marginX", a.marginX, b.marginX);
    f.Is("marginY", a.marginY, b.marginY);
    f.Each("cells", a.cells, b.cells,
           [&](const TableData::Cell& x, const TableData::Cell& y) { CompareCell(pair, f, x, y); });
    for (std::size_t kind = 0; kind < a.kinds.size(); ++kind)
        CompareKind(f, a.kinds[kind], b.kinds[kind]);
}

template <class Data>
void CompareNotesAs(const Pair& pair, const EntityRecord& dwg, const EntityRecord& dxf, Fields& fields)
{
    Data a, b;
    Read(pair.dwg, dwg, a);
    Read(pair.dxf, dxf, b);
    CompareCommon(pair, fields, a, b);
    Compare(pair, fields, a, b);
}

void CompareStyleOf(const Pair& pair, const EntityRecord& dwg, const EntityRecord& dxf, Fields& fields)
{
    DimStyle a, b;
    Read(pair.dwg, dwg, a);
    Read(pair.dxf, dxf, b);
    CompareDimStyle(pair, fields, a, b);
}

} // namespace

void CompareNote(const Pair& pair, const EntityRecord& dwg, const EntityRecord& dxf, Fields& fields)
{
    switch (dxf.kind) {
    case EntityKind::Dimension:
        CompareNotesAs<DimensionData>(pair, dwg, dxf, fields);
        CompareStyleOf(pair, dwg, dxf, fields);
        break;
    case EntityKind::Leader:
        CompareNotesAs<LeaderData>(pair, dwg, dxf, fields);
        CompareStyleOf(pair, dwg, dxf, fields);
        break;
    case EntityKind::Tolerance:
        CompareNotesAs<ToleranceData>(pair, dwg, dxf, fields);
        CompareStyleOf(pair, dwg, dxf, fields);
        break;
    case EntityKind::MultiLeader:
        CompareNotesAs<MultiLeaderData>(pair, dwg, dxf, fields);
        break;
    case EntityKind::MLine:
        CompareNotesAs<MLineData>(pair, dwg, dxf, fields);
        break;
    case EntityKind::Table:
        CompareNotesAs<TableData>(pair, dwg, dxf, fields);
        break;
    default: {
        Entity a, b;
        Read(pair.dwg, dwg, a);
        Read(pair.dxf, dxf, b);
        CompareCommon(pair, fields, a, b);
    }
    }
}

} // namespace sm::drawing::twins
