// SPDX-License-Identifier: GPL-3.0-or-later
// Radius, diameter, angular and arc length dimensions.
#include "drawing/entities/DimStyles.h"
#include "drawing/entities/Dimensions.h"
#include "notes/DimensionParts.h"
#include "render/Arcs.h"

#include <array>
#include <optional>

namespace sm::render {

namespace {

using Form = drawing::DimensionData::Form;

void AddCenterMark(DimensionParts& parts, Vec2 center, double radius)
{
    const double given = parts.Length(parts.Style().centerMark);
    const double half = std::abs(given);
    if (half == 0) {
        return;
    }
    for (const Vec2 axis : {Vec2{1, 0}, Vec2{0, 1}}) {
        parts.AddExtensionLine(center - axis * half, center + axis * half);
        if (given < 0) { // centre lines to beyond the circle
            parts.AddExtensionLine(center + axis * (2 * half), center + axis * (radius + half));
            parts.AddExtensionLine(center - axis * (2 * half), center - axis * (radius + half));
        }
    }
}

/// An arrow from outside with a line to the text, the last part of it level where the text isn't in line.
void AddOutsideArrow(DimensionParts& parts, bool second, Vec2 tip, Vec2 inwards)
{
    const double cut = parts.AddHead(second, tip, inwards);
    const Vec2 text = parts.TextAt();
    const double size = parts.ArrowSize();
    const double side = text.x < tip.x ? -1 : 1;
    const Vec2 from = tip - inwards * cut;
    if (!parts.HasText()) {
        parts.AddDimensionLine(from, tip - inwards * (3 * size));
        return;
    }
    if (parts.Style().textAbove != 0 && parts.Style().textOutsideLevel == 0) { // the line runs on below the text
        const double reach = Dot(text - tip, inwards * -1) + parts.TextSize().x / 2;
        parts.AddDimensionLine(from, tip - inwards * std::max(reach, 2 * size));
        return;
    }
    const bool above = parts.Style().textAbove != 0;
    const double reach = parts.TextSize().x / 2 + parts.Gap();
    const Vec2 before{text.x - side * reach, text.y - (above ? parts.TextSize().y / 2 + parts.Gap() : 0)};
    const Vec2 landing = above ? before + Vec2{side * 2 * reach, 0} : before;
    const Vec2 corner = above ? before : before - Vec2{side * size, 0};
    constexpr double kInLine = 1e-3;
    if (!above && std::abs(Cross(Unit(text - tip), inwards)) < kInLine) {
        parts.AddDimensionLine(from, text);
    } else {
        parts.AddDimensionLine(from, corner);
        parts.AddDimensionLine(corner, landing);
    }
}

struct Sector {
    Vec2 center;
    double radius = 0;
    double start = 0, sweep = 0; ///< radians, counter-clockwise
    Vec2 firstEnd, secondEnd;    ///< where the extension lines come from; at start and at start + sweep
    [[nodiscard]] Vec2 At(double angle) const { return {std::cos(angle), std::sin(angle)}; }
};

double Turn(double radians)
{
    const double turn = std::fmod(radians, kTurn);
    return turn < 0 ? turn + kTurn : turn;
}

double AngleTo(Vec2 from, Vec2 to)
{
    return std::atan2(to.y - from.y, to.x - from.x);
}

/// The sector between two directions that holds the angle `inside`.
void SetSweep(Sector& sector, double first, double second, double inside)
{
    if (Turn(inside - first) > Turn(second - first)) {
        std::swap(first, second);
        std::swap(sector.firstEnd, sector.secondEnd);
    }
    sector.start = first;
    sector.sweep = Turn(second - first);
}

Sector ByThreePoints(DimensionParts& parts)
{
    const drawing::DimensionData& data = parts.Data();
    Sector sector;
    sector.center = parts.ToPlane(data.third);
    const Vec2 on = parts.ToPlane(data.definitionPoint);
    sector.radius = Length(on - sector.center);
    sector.firstEnd = parts.ToPlane(data.first);
    sector.secondEnd = parts.ToPlane(data.second);
    SetSweep(sector, AngleTo(sector.center, sector.firstEnd), AngleTo(sector.center, sector.secondEnd),
             AngleTo(sector.center, on));
    return sector;
}

/// Two lines have four sectors: the one that holds the arc's point counts.
std::optional<Sector> ByTwoLines(DimensionParts& parts)
{
    const drawing::DimensionData& data = parts.Data();
    const std::array<Vec2, 2> one{parts.ToPlane(data.first), parts.ToPlane(data.second)};
    const std::array<Vec2, 2> two{parts.ToPlane(data.third), parts.ToPlane(data.definitionPoint)};
    const Vec2 u = Unit(one[1] - one[0]), v = Unit(two[1] - two[0]);
    const double across = Cross(u, v);
    if (std::abs(across) < 1e-9) {
        return std::nullopt;
    }
    Sector sector;
    sector.center = one[0] + u * (Cross(two[0] - one[0], v) / across);
    const Vec2 on{data.arcPoint.x, data.arcPoint.y};
    sector.radius = Length(on - sector.center);
    const Vec2 to = on - sector.center;
    // `to` as a sum of both directions: their signs tell the sector.
    const Vec2 first = u * (Cross(to, v) / across < 0 ? -1.0 : 1.0);
    const Vec2 second = v * (Cross(u, to) / across < 0 ? -1.0 : 1.0);
    const auto farther = [&](const std::array<Vec2, 2>& line, Vec2 way) {
        return Dot(line[0] - sector.center, way) > Dot(line[1] - sector.center, way) ? line[0] : line[1];
    };
    sector.firstEnd = farther(one, first);
    sector.secondEnd = farther(two, second);
    SetSweep(sector, std::atan2(first.y, first.x), std::atan2(second.y, second.x), std::atan2(to.y, to.x));
    return sector;
}

void AddRay(DimensionParts& parts, const Sector& sector, double angle, Vec2 end, bool hidden)
{
    const Vec2 way = sector.At(angle);
    const double from = Dot(end - sector.center, way) + parts.Length(parts.Style().extensionGap);
    if (!hidden && from < sector.radius) {
        parts.AddExtensionLine(sector.center + way * std::max(from, 0.0),
                               sector.center + way * (sector.radius + parts.Length(parts.Style().extensionPast)));
    }
}

void AddArcPart(DimensionParts& parts, const Sector& sector, double start, double sweep)
{
    if (sweep <= 0) {
        return;
    }
    const double r = sector.radius;
    AppendArc(parts.Picture().Add(parts.LinePen()), {sector.center, {r, 0}, {0, r}, start, sweep}, Join::Move);
}

void AddArcWithHeads(DimensionParts& parts, const Sector& sector)
{
    const double r = sector.radius, size = parts.ArrowSize();
    const double last = sector.start + sector.sweep;
    const bool outside = r * sector.sweep < 2 * size + 2 * parts.Gap();
    const double lean = outside ? size / r / 2 : -size / r / 2; // an arrow's chord stands on the arc
    const auto tangent = [&](double angle) { return Left(sector.At(angle)); };
    const double sign = outside ? -1 : 1;
    const double cutA =
        parts.AddHead(false, sector.center + sector.At(sector.start) * r, tangent(sector.start - lean) * -sign);
    const double cutB = parts.AddHead(true, sector.center + sector.At(last) * r, tangent(last + lean) * sign);
    if (outside) {
        AddArcPart(parts, sector, sector.start, parts.Style().lineBetween != 0 ? sector.sweep : 0);
        AddArcPart(parts, sector, sector.start - 2 * size / r, (2 * size - cutA) / r);
        AddArcPart(parts, sector, last + cutB / r, (2 * size - cutB) / r);
        return;
    }
    const double from = sector.start + cutA / r, to = last - cutB / r;
    const double textAngle = sector.start + Turn(AngleTo(sector.center, parts.TextAt()) - sector.start);
    const double textHalf = (std::max(parts.TextSize().x, parts.TextSize().y) / 2 + parts.Gap()) / r;
    const bool onArc = std::abs(Length(parts.TextAt() - sector.center) - r) < parts.TextSize().y / 2;
    if (parts.TextInLine() && onArc && textAngle - textHalf < to && textAngle + textHalf > from) {
        AddArcPart(parts, sector, from, textAngle - textHalf - from);
        AddArcPart(parts, sector, textAngle + textHalf, to - textAngle - textHalf);
    } else {
        AddArcPart(parts, sector, from, to - from);
    }
}

} // namespace

void BuildRadial(DimensionParts& parts)
{
    const drawing::DimensionData& data = parts.Data();
    const Vec2 on = parts.ToPlane(data.third), other = parts.ToPlane(data.definitionPoint);
    const bool diameter = data.form == Form::Diameter;
    const Vec2 center = diameter ? (on + other) * 0.5 : other;
    const double radius = Length(on - center);
    const Vec2 out = Unit(on - center);
    const double measured = diameter ? 2 * radius : radius;
    const std::string prefix = diameter ? "%%c" : "R";
    const Vec2 fallback = on + out * (4 * parts.ArrowSize());
    const bool outside = Length(parts.GivenPlace(fallback) - center) > radius;
    const std::int32_t level = outside ? parts.Style().textOutsideLevel : parts.Style().textInsideLevel;
    parts.SetText({measured}, prefix, fallback, out, level != 0);
    const Vec2 text = parts.TextAt();
    if (outside) {
        const bool atOther = diameter && Length(text - other) < Length(text - on);
        AddOutsideArrow(parts, atOther, atOther ? other : on, atOther ? out : out * -1);
        if (parts.Style().lineBetween != 0) {
            parts.AddDimensionLine(on, other);
        } else {
            AddCenterMark(parts, center, radius);
        }
    } else {
        const double cut = parts.AddHead(false, on, out);
        const double far = diameter ? parts.AddHead(true, other, out * -1) : 0;
        if (data.form == Form::Jogged) {
            const Vec2 jog = parts.ToPlane(data.second);
            parts.AddDimensionLine(on - out * cut, jog);
            parts.AddDimensionLine(jog, parts.ToPlane(data.first));
        } else {
            parts.AddDimensionLine(on - out * cut, other + out * far);
        }
    }
    parts.Finish();
}

void BuildAngular(DimensionParts& parts)
{
    const drawing::DimensionData& data = parts.Data();
    const std::optional<Sector> found = data.form == Form::Angular ? ByTwoLines(parts) : ByThreePoints(parts);
    if (!found || !(found->radius > 0)) {
        return;
    }
    const Sector& sector = *found;
    const double middle = sector.start + sector.sweep / 2;
    const Vec2 at = sector.center + sector.At(middle) * sector.radius;
    const bool arc = data.form == Form::Arc;
    const double arcLength = Length(sector.firstEnd - sector.center) * sector.sweep;
    parts.SetText(arc ? Measure{arcLength} : Measure{sector.sweep / kTurn * 360, true}, arc ? "⌒" : "", at,
                  Left(sector.At(middle)), parts.Style().textInsideLevel != 0);
    AddRay(parts, sector, sector.start, sector.firstEnd, parts.Style().hideFirstExtension != 0);
    AddRay(parts, sector, sector.start + sector.sweep, sector.secondEnd, parts.Style().hideSecondExtension != 0);
    AddArcWithHeads(parts, sector);
    parts.Finish();
}

void Build(const drawing::DimensionData& dimension, const drawing::DimStyle& style, const NoteTools& tools,
           NotePicture& picture)
{
    using drawing::DimensionData;
    const bool radial =
        dimension.form == Form::Radius || dimension.form == Form::Diameter || dimension.form == Form::Jogged;
    picture.SetPlane(dimension.extrusion, radial ? dimension.third : dimension.first);
    DimensionParts parts(dimension, style, tools, picture);
    switch (dimension.form) {
    case Form::Rotated:
    case Form::Aligned:
        BuildLinear(parts);
        break;
    case Form::Ordinate:
        BuildOrdinate(parts);
        break;
    case Form::Angular:
    case Form::ThreePoint:
    case Form::Arc:
        BuildAngular(parts);
        break;
    default:
        BuildRadial(parts);
    }
}

} // namespace sm::render
