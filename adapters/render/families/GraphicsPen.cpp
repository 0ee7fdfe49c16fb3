// SPDX-License-Identifier: GPL-3.0-or-later
#include "families/GraphicsPen.h"

#include "context/LaidTexts.h"
#include "context/Strokes.h"
#include "drawing/entities/Texts.h"
#include "families/Curves.h"
#include "render/Arcs.h"

#include <algorithm>
#include <cmath>

namespace sm::render {

namespace {

constexpr std::size_t kMostMatrices = 64;

std::uint32_t Position(std::int32_t face, std::size_t points)
{
    return face >= 0 && static_cast<std::size_t>(face) < points ? static_cast<std::uint32_t>(face) : 0;
}

} // namespace

GraphicsPen::GraphicsPen(PaintContext& context, PolylinePen& polylines, const drawing::GraphicsData& data)
    : m_context(context), m_polylines(polylines), m_data(data), m_base(context.frame), m_frame(*context.frame)
{
    m_context.frame = &m_frame;
}

GraphicsPen::~GraphicsPen()
{
    m_context.frame = m_base;
}

void GraphicsPen::Draw()
{
    m_properties = m_data;
    for (const drawing::Graphic& step : m_data.steps) {
        if (!Change(step)) {
            m_context.path.Clear();
            DrawStep(step);
        }
    }
}

// A property of what follows; false when the step draws something.
bool GraphicsPen::Change(const drawing::Graphic& step)
{
    using Kind = drawing::Graphic::Kind;
    switch (step.kind) {
    case Kind::Color:
        m_properties.color = step.color;
        m_properties.trueColor = step.trueColor;
        break;
    case Kind::Lineweight:
        m_properties.lineweight = static_cast<std::int16_t>(std::clamp(step.index, -3, 211));
        break;
    case Kind::LinetypeScale:
        m_context.linetypeScale = step.value > 0 ? step.value : 1;
        break;
    case Kind::Fill:
        m_filled = step.index != 0;
        break;
    case Kind::Layer: // numbers of a table that the file doesn't hold
    case Kind::Linetype:
        break;
    case Kind::PushMatrix:
        Push(step);
        break;
    case Kind::PopMatrix:
        if (!m_kept.empty()) {
            m_frame.toPaper = m_kept.back();
            m_kept.pop_back();
        }
        break;
    default:
        return false;
    }
    m_context.style = Resolve(m_properties, *m_context.layer, m_frame.inherited);
    return true;
}

void GraphicsPen::Push(const drawing::Graphic& step)
{
    if (step.points.size() == 4 && m_kept.size() < kMostMatrices) {
        m_kept.push_back(m_frame.toPaper);
        m_frame.toPaper =
            Compose(m_frame.toPaper, Matrix3{step.points[0], step.points[1], step.points[2], step.points[3]});
    }
}

void GraphicsPen::DrawStep(const drawing::Graphic& step)
{
    using Kind = drawing::Graphic::Kind;
    switch (step.kind) {
    case Kind::Circle:
    case Kind::Arc:
        DrawArc(step);
        break;
    case Kind::Polyline:
    case Kind::Polygon:
        DrawPoints(step);
        break;
    case Kind::LwPolyline:
        m_polylines.Draw(*step.plane);
        break;
    case Kind::Mesh:
        DrawMesh(step);
        break;
    case Kind::Shell:
        DrawShell(step);
        break;
    case Kind::Text:
        DrawText(step);
        break;
    case Kind::XLine:
    case Kind::Ray: {
        drawing::LineData line;
        line.start = step.points[0];
        line.end = step.points[1] - step.points[0];
        DrawEndlessLine(m_context, line, step.kind == Kind::XLine);
        break;
    }
    default:
        break;
    }
}

void GraphicsPen::DrawArc(const drawing::Graphic& step)
{
    const Matrix3 axes = OcsAxes(step.normal);
    const bool arc = step.kind == drawing::Graphic::Kind::Arc;
    const double length = Length(step.direction);
    const Vec3 start = arc && length > 0 ? step.direction * (1 / length) : axes.x;
    const Vec2 center = m_frame.toPaper.Apply(step.points[0]);
    const Vec2 u = m_frame.toPaper.ApplyVector(start * step.radius);
    const Vec2 v = m_frame.toPaper.ApplyVector(Cross(axes.z, start) * step.radius);
    Path& path = m_context.path;
    if (arc) {
        AppendArc(path, {center, u, v, 0, std::clamp(step.sweep, -kTurn, kTurn)}, Join::Move);
    } else {
        AppendEllipse(path, center, u, v);
    }
    Finish(!arc && m_filled);
}

void GraphicsPen::Finish(bool filled)
{
    if (filled) {
        m_context.ink.Fill(m_context.path, m_context.style.color, FillRule::EvenOdd);
    } else {
        StrokePath(m_context);
    }
}

void GraphicsPen::DrawPoints(const drawing::Graphic& step)
{
    Path& path = m_context.path;
    for (const Vec3 point : step.points) {
        const Vec2 at = m_frame.toPaper.Apply(point);
        path.Empty() ? path.MoveTo(at) : path.LineTo(at);
    }
    const bool polygon = step.kind == drawing::Graphic::Kind::Polygon;
    if (polygon && !path.Empty()) {
        path.Close();
    }
    Finish(polygon && m_filled);
}

void GraphicsPen::DrawMesh(const drawing::Graphic& step)
{
    const std::size_t rows = static_cast<std::size_t>(std::max(step.rows, 1));
    const std::size_t columns = step.points.size() / rows;
    Path& path = m_context.path;
    const auto add = [&](std::size_t i, bool first) {
        const Vec2 at = m_frame.toPaper.Apply(step.points[i]);
        first ? path.MoveTo(at) : path.LineTo(at);
    };
    for (std::size_t row = 0; row < rows; ++row) {
        for (std::size_t column = 0; column < columns; ++column) {
            add(row * columns + column, column == 0);
        }
    }
    for (std::size_t column = 0; column < columns; ++column) {
        for (std::size_t row = 0; row < rows; ++row) {
            add(row * columns + column, row == 0);
        }
    }
    Finish(false);
}

// Faces one after the other; a negative count makes a hole of one.
void GraphicsPen::DrawShell(const drawing::Graphic& step)
{
    Path& path = m_context.path;
    for (std::size_t at = 0; at < step.faces.size() && !step.points.empty();) {
        const std::size_t left = step.faces.size() - at - 1;
        const std::size_t count = std::min<std::size_t>(std::abs(std::int64_t{step.faces[at]}), left);
        for (std::size_t i = 0; i < count; ++i) {
            const Vec2 corner =
                m_frame.toPaper.Apply(step.points[Position(step.faces[at + 1 + i], step.points.size())]);
            i == 0 ? path.MoveTo(corner) : path.LineTo(corner);
        }
        if (count > 0) {
            path.Close();
        }
        at += 1 + count;
    }
    Finish(m_filled);
}

void GraphicsPen::DrawText(const drawing::Graphic& step)
{
    const Matrix3 axes = OcsAxes(step.normal);
    const auto dot = [](Vec3 a, Vec3 b) { return a.x * b.x + a.y * b.y + a.z * b.z; };
    drawing::TextData text;
    text.insertion = {dot(step.points[0], axes.x), dot(step.points[0], axes.y), dot(step.points[0], axes.z)};
    text.extrusion = step.normal;
    text.text = step.text;
    text.style = step.style;
    text.height = step.height;
    text.widthFactor = step.widthFactor > 0 ? step.widthFactor : 1;
    text.oblique = step.oblique * 360 / kTurn;
    text.rotation = std::atan2(dot(step.direction, axes.y), dot(step.direction, axes.x)) * 360 / kTurn;
    DrawLaidText(m_context, m_context.text.Lay(m_context.drawing, text));
}

} // namespace sm::render
