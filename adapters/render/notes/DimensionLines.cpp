// SPDX-License-Identifier: GPL-3.0-or-later
// Linear and ordinate dimensions.
#include "drawing/entities/DimStyles.h"
#include "drawing/entities/Dimensions.h"
#include "notes/DimensionParts.h"
#include "render/Arcs.h"

namespace sm::render {

namespace {

using Form = drawing::DimensionData::Form;

Vec2 Direction(double degrees)
{
    return {std::cos(Radians(degrees)), std::sin(Radians(degrees))};
}

/// Where the way from `from` along `way` meets the line through `on` along `along`.
Vec2 Meet(Vec2 from, Vec2 way, Vec2 on, Vec2 along)
{
    const double across = Cross(way, along);
    return std::abs(across) < 1e-12 ? from : from + way * (Cross(on - from, along) / across);
}

void AddExtension(DimensionParts& parts, Vec2 measured, Vec2 onLine, Vec2 way, bool hidden)
{
    if (hidden) {
        return;
    }
    const drawing::DimStyle& style = parts.Style();
    const Vec2 out = onLine == measured ? way : Unit(onLine - measured);
    const Vec2 end = onLine + out * parts.Length(style.extensionPast);
    double room = Length(onLine - measured) - parts.Length(style.extensionGap);
    if (style.extensionsFixed != 0) {
        room = std::min(room, parts.Length(style.fixedExtension));
    }
    parts.AddExtensionLine(onLine - out * std::max(room, 0.0), end);
}

/// Ticks and heads that need no room behind the tip let the dimension line run to its ends.
void AddLineWithHeads(DimensionParts& parts, Vec2 a, Vec2 b)
{
    const drawing::DimStyle& style = parts.Style();
    const Vec2 along = Unit(b - a);
    const double length = Length(b - a), size = parts.ArrowSize();
    const bool ticks = style.tickSize > 0;
    const bool outside = !ticks && length < 2 * size + 2 * parts.Gap();
    const Vec2 out = along * (outside ? -1.0 : 1.0);
    const double cutA = style.hideFirstHalf != 0 ? 0 : parts.AddHead(false, a, out * -1);
    const double cutB = style.hideSecondHalf != 0 ? 0 : parts.AddHead(true, b, out);
    if (outside) { // both arrows point inwards and stand on short lines
        if (style.lineBetween != 0) {
            parts.AddDimensionLine(a, b);
        }
        parts.AddDimensionLine(a - along * cutA, a - along * (2 * size));
        parts.AddDimensionLine(b + along * cutB, b + along * (2 * size));
        return;
    }
    const double past = ticks ? parts.Length(style.dimensionPast) : 0;
    const Vec2 middle = (a + b) * 0.5;
    const Vec2 from = style.hideFirstHalf != 0 ? middle : a + along * (cutA - past);
    const Vec2 to = style.hideSecondHalf != 0 ? middle : b - along * (cutB - past);
    parts.AddDimensionLine(from, to);
}

} // namespace

void BuildLinear(DimensionParts& parts)
{
    const drawing::DimensionData& data = parts.Data();
    const Vec2 first = parts.ToPlane(data.first), second = parts.ToPlane(data.second);
    const Vec2 on = parts.ToPlane(data.definitionPoint);
    Vec2 along = data.form == Form::Aligned ? Unit(second - first) : Direction(data.rotation);
    along = along == Vec2{} ? Vec2{1, 0} : along;
    const Vec2 way = data.oblique != 0 ? Direction(AngleOf(along) + data.oblique) : Left(along);
    const Vec2 a = Meet(first, way, on, along), b = Meet(second, way, on, along);
    const double measured = std::abs(Dot(second - first, along));
    const Vec2 middle = (a + b) * 0.5;
    const bool outside = std::abs(Dot(parts.GivenPlace(middle) - middle, along)) > Length(b - a) / 2;
    const std::int32_t level = outside ? parts.Style().textOutsideLevel : parts.Style().textInsideLevel;
    parts.SetText({measured}, "", middle, along, level != 0);
    const Vec2 side = Dot(b - second, way) + Dot(a - first, way) < 0 ? way * -1 : way;
    AddExtension(parts, first, a, side, parts.Style().hideFirstExtension != 0);
    AddExtension(parts, second, b, side, parts.Style().hideSecondExtension != 0);
    AddLineWithHeads(parts, a, b);
    parts.Finish();
}

/// A line from the feature to the text's end, with a jog where they aren't in line.
void BuildOrdinate(DimensionParts& parts)
{
    const drawing::DimensionData& data = parts.Data();
    const Vec2 feature = parts.ToPlane(data.first), end = parts.ToPlane(data.second);
    const Vec2 origin = parts.ToPlane(data.definitionPoint);
    constexpr std::int32_t kOfX = 64;
    const Vec2 x = Direction(-data.horizontal);
    const Vec2 measuredAlong = (data.type & kOfX) != 0 ? x : Left(x);
    const Vec2 way = (data.type & kOfX) != 0 ? Left(x) : x;
    const double reach = Dot(end - feature, way);
    const Vec2 out = way * (reach < 0 ? -1.0 : 1.0);
    const double size = parts.ArrowSize();
    const double measured = Dot(feature - origin, measuredAlong);
    const Vec2 textAt = end + out * (parts.Gap() + parts.Length(parts.Style().textHeight));
    parts.SetText({measured}, "", textAt, out, false);
    const Vec2 start = feature + out * parts.Length(parts.Style().extensionGap);
    const double shift = Dot(end - feature, measuredAlong);
    Path& path = parts.Picture().Add(parts.LinePen());
    path.MoveTo(start);
    if (std::abs(shift) > size * 1e-3) {
        const Vec2 before = end - out * (2 * size);
        path.LineTo(before - measuredAlong * shift - out * (2 * size));
        path.LineTo(before);
    }
    const bool below = parts.HasText() && parts.Style().textAbove != 0;
    path.LineTo(below ? end + out * (parts.TextSize().x + parts.Gap()) : end);
    parts.Finish();
}

} // namespace sm::render
