// SPDX-License-Identifier: GPL-3.0-or-later
#include "graphics/GraphicsStream.h"

#include "base/text/Utf8.h"
#include "drawing/TextDecoder.h"
#include "entities/SpaceVectors.h"
#include "graphics/PackedPolyline.h"

#include <cstring>
#include <numbers>

namespace sm::drawing {

namespace {

constexpr std::size_t kHead = 8; // of the stream and of each step
using Kind = Graphic::Kind;

/// The kinds of steps (the published description of proxy graphics).
enum Step : std::int32_t {
    kExtents = 1,
    kCircle,
    kCircleByPoints,
    kArc,
    kArcByPoints,
    kPolyline,
    kPolygon,
    kMesh,
    kShell,
    kText,
    kStyledText,
    kXLine,
    kRay,
    kColor,
    kLayer = 16,
    kLinetype = 18,
    kMarker,
    kFill,
    kTrueColor = 22,
    kLineweight,
    kLinetypeScale,
    kThickness,
    kPlotStyle,
    kPushClip,
    kPopClip,
    kPushMatrix,
    kPushMatrix2,
    kPopMatrix,
    kPolylineWithNormal,
    kLwPolyline,
    kMaterial,
    kMapper,
    kWideText,
    kStyledWideText = 38
};

/// Steps that change nothing on paper.
bool IsSilent(std::int32_t kind)
{
    return kind != kPushClip;
}

} // namespace

void GraphicsStream::TakeCircle(Graphic& step, bool arc)
{
    step.points.push_back(Point());
    step.radius = Real();
    step.normal = Point();
    if (arc) {
        step.direction = Point();
        step.sweep = Real();
    }
}

// The circle through three points; an arc runs from the first over the second to the third.
void GraphicsStream::TakeThreePoints(Graphic& step, bool arc)
{
    const Vec3 a = Point(), b = Point() - a, c = Point() - a;
    const Vec3 normal = Cross(b, c);
    const double size = Dot(normal, normal);
    if (!(size > 0)) {
        m_short = true;
        return;
    }
    const Vec3 middle = (Cross(normal, b) * Dot(c, c) + Cross(c, normal) * Dot(b, b)) * (1 / (2 * size));
    step.points.push_back(a + middle);
    step.radius = std::sqrt(Dot(middle, middle));
    step.normal = normal * (1 / std::sqrt(size));
    step.direction = middle * (-1 / std::max(step.radius, 1e-300));
    const Vec3 last = c - middle;
    const double angle = std::atan2(Dot(step.normal, Cross(step.direction, last)), Dot(step.direction, last));
    step.sweep = arc ? angle + (angle < 0 ? 2 * std::numbers::pi : 0) : 2 * std::numbers::pi;
}

void GraphicsStream::TakePoints(Graphic& step)
{
    for (std::size_t left = Count(3 * sizeof(double)); left > 0; --left)
        step.points.push_back(Point());
}

void GraphicsStream::TakeMesh(Graphic& step)
{
    step.rows = Integer();
    const std::int32_t columns = Integer();
    const std::size_t most = Left() / (3 * sizeof(double));
    if (step.rows < 1 || columns < 1 ||
        static_cast<std::size_t>(step.rows) > most / static_cast<std::size_t>(columns)) {
        m_short = true;
        return;
    }
    for (std::int64_t left = std::int64_t{step.rows} * columns; left > 0; --left)
        step.points.push_back(Point());
}

void GraphicsStream::TakeShell(Graphic& step)
{
    TakePoints(step);
    for (std::size_t left = Count(sizeof(std::int32_t)); left > 0; --left)
        step.faces.push_back(Integer());
}

void GraphicsStream::TakeText(Graphic& step, bool wide, bool styled)
{
    step.points.push_back(Point());
    step.normal = Point();
    step.direction = Point();
    if (styled) {
        step.text = Text(wide);
        (void)Integer(); // length
        (void)Integer(); // whether codes in the text count
    }
    step.height = Real();
    step.widthFactor = Real();
    step.oblique = Real();
    if (!styled) {
        step.text = Text(wide);
        return;
    }
    constexpr int kToFont = 9; // back to front, upside down, vertical, two lines; four values of the typeface
    (void)Real();              // spacing
    for (int i = 0; i < kToFont; ++i)
        (void)Integer();
    (void)Text(wide); // typeface
    const std::string font = m_short ? std::string() : Text(wide);
    const auto& styles = m_drawing.TextStyles();
    for (std::uint32_t i = 0; i < styles.size() && !font.empty(); ++i)
        if (styles[i].fontFile == font || styles[i].fontFile == font + ".shx")
            step.style = i;
    m_short = false; // what a text ends with differs between versions
}

void GraphicsStream::TakeColor(Graphic& step)
{
    const std::int32_t value = Integer();
    const std::int32_t kind = value >> 24 & 0xFF;
    if (kind == 0xC2)
        step.trueColor = static_cast<std::uint32_t>(value & 0xFFFFFF);
    else if (kind == 0xC1)
        step.color = kByBlock;
    else if (kind == 0xC3)
        step.color = static_cast<std::int16_t>(value & 0xFF);
}

// Sixteen numbers, row by row; the translation is the last column, in some files the last row.
void GraphicsStream::TakeMatrix(Graphic& step)
{
    double m[16];
    for (double& value : m)
        value = Real();
    const bool inRow = m[3] == 0 && m[7] == 0 && m[11] == 0 && (m[12] != 0 || m[13] != 0 || m[14] != 0);
    const auto column = [&](int i) {
        return inRow ? Vec3{m[4 * i], m[4 * i + 1], m[4 * i + 2]} : Vec3{m[i], m[4 + i], m[8 + i]};
    };
    step.points = {column(0), column(1), column(2), column(3)};
}

bool GraphicsStream::Take(std::int32_t kind, Graphic& step)
{
    switch (kind) {
    case kCircle:
    case kArc:
        step.kind = kind == kArc ? Kind::Arc : Kind::Circle;
        TakeCircle(step, kind == kArc);
        return true;
    case kCircleByPoints:
    case kArcByPoints:
        step.kind = kind == kArcByPoints ? Kind::Arc : Kind::Circle;
        TakeThreePoints(step, kind == kArcByPoints);
        return true;
    case kPolyline:
    case kPolygon:
    case kPolylineWithNormal:
        step.kind = kind == kPolygon ? Kind::Polygon : Kind::Polyline;
        TakePoints(step);
        return true;
    case kLwPolyline:
        step.kind = Kind::LwPolyline;
        m_short = !ReadPackedPolyline(m_bytes.substr(m_at, Left()), step.plane.emplace());
        return true;
    case kMesh:
        step.kind = Kind::Mesh;
        TakeMesh(step);
        return true;
    case kShell:
        step.kind = Kind::Shell;
        TakeShell(step);
        return true;
    case kText:
    case kWideText:
    case kStyledText:
    case kStyledWideText:
        step.kind = Kind::Text;
        TakeText(step, kind == kWideText || kind == kStyledWideText, kind == kStyledText || kind == kStyledWideText);
        return true;
    case kXLine:
    case kRay: {
        step.kind = kind == kRay ? Kind::Ray : Kind::XLine;
        const Vec3 first = Point();
        step.points = {first, Point()};
        return true;
    }
    default:
        return TakeProperty(kind, step);
    }
}

bool GraphicsStream::TakeProperty(std::int32_t kind, Graphic& step)
{
    switch (kind) {
    case kColor: {
        step.kind = Kind::Color;
        const std::int32_t index = Integer();
        step.color = static_cast<std::int16_t>(index >= 0 && index <= 256 ? index : kByLayer);
        return true;
    }
    case kTrueColor:
        step.kind = Kind::Color;
        TakeColor(step);
        return true;
    case kLayer:
    case kLinetype:
    case kLineweight:
    case kFill:
        step.kind = kind == kLayer      ? Kind::Layer
                    : kind == kLinetype ? Kind::Linetype
                    : kind == kFill     ? Kind::Fill
                                        : Kind::Lineweight;
        step.index = Integer();
        return true;
    case kLinetypeScale:
        step.kind = Kind::LinetypeScale;
        step.value = Real();
        return true;
    case kPushMatrix:
    case kPushMatrix2:
        step.kind = Kind::PushMatrix;
        TakeMatrix(step);
        return true;
    case kPopMatrix:
        step.kind = Kind::PopMatrix;
        return true;
    default:
        return false;
    }
}

void GraphicsStream::ReadAll(GraphicsData& data)
{
    std::size_t next = kHead;
    while (next + kHead <= m_bytes.size()) {
        std::uint32_t size = 0;
        std::int32_t kind = 0;
        std::memcpy(&size, m_bytes.data() + next, sizeof size);
        std::memcpy(&kind, m_bytes.data() + next + sizeof size, sizeof kind);
        if (size < kHead || size > m_bytes.size() - next)
            break;
        m_at = next + kHead;
        m_end = next + size;
        m_short = false;
        Graphic step;
        const bool known = Take(kind, step);
        data.complete = data.complete && !m_short && (known || IsSilent(kind));
        if (known && !m_short)
            data.steps.push_back(std::move(step));
        next += size;
    }
}

} // namespace sm::drawing
