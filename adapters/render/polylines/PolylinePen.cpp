// SPDX-License-Identifier: GPL-3.0-or-later
#include "polylines/PolylinePen.h"

#include "context/Strokes.h"
#include "ink/WideLine.h"
#include "polylines/PolylineMeshes.h"
#include "render/Arcs.h"

namespace sm::render {

namespace {

struct Widths {
    double start = 0, end = 0;
};

Widths WidthsOf(const drawing::PolyVertex& vertex)
{
    return {vertex.startWidth, vertex.endWidth};
}

enum class WidthKind : std::uint8_t { None, Constant, Varying };

WidthKind WidthKindOf(const drawing::PolylineData& polyline)
{
    if (polyline.vertices.empty()) {
        return WidthKind::None;
    }
    const Widths first = WidthsOf(polyline.vertices.front());
    const std::size_t segments = polyline.vertices.size() - (polyline.closed ? 0 : 1);
    for (std::size_t i = 0; i < segments; ++i) {
        const Widths widths = WidthsOf(polyline.vertices[i]);
        if (widths.start != first.start || widths.end != first.start) {
            return WidthKind::Varying;
        }
    }
    return segments > 0 && first.start > 0 ? WidthKind::Constant : WidthKind::None;
}

std::vector<WideSegment> SegmentsOf(const drawing::PolylineData& polyline)
{
    std::vector<WideSegment> segments;
    const drawing::PolyVertex* first = nullptr;
    const drawing::PolyVertex* previous = nullptr;
    const auto add = [&](const drawing::PolyVertex& from, const drawing::PolyVertex& to) {
        const Widths widths = WidthsOf(from);
        const Vec2 a{from.point.x, from.point.y};
        const Vec2 b{to.point.x, to.point.y};
        if (!(a == b)) {
            segments.push_back({a, b, from.bulge, widths.start, widths.end});
        }
    };
    for (const drawing::PolyVertex& vertex : polyline.vertices) {
        if (!IsDrawnVertex(polyline, vertex)) {
            continue;
        }
        previous == nullptr ? void(first = &vertex) : add(*previous, vertex);
        previous = &vertex;
    }
    if (polyline.closed && previous != first) {
        add(*previous, *first);
    }
    return segments;
}

// Vertices of a plane polyline as a path; with `breaks`, each segment is noted as a new start of the line type.
class SegmentPath {
public:
    SegmentPath(Path& path, const Matrix2& plane, std::vector<std::uint32_t>* breaks)
        : m_path(path), m_plane(plane), m_breaks(breaks)
    {
        if (m_breaks != nullptr) {
            m_breaks->clear();
        }
    }
    void Add(const drawing::PolyVertex& vertex)
    {
        if (m_previous == nullptr) {
            m_path.MoveTo(m_plane.Apply({vertex.point.x, vertex.point.y}));
            m_first = &vertex;
        } else {
            AddSegment(*m_previous, vertex);
        }
        m_previous = &vertex;
    }
    void Close()
    {
        if (m_previous == m_first) {
            return;
        }
        if (m_previous->bulge != 0) {
            AddSegment(*m_previous, *m_first);
        } else {
            NoteBreak();
        }
        m_path.Close();
    }

private:
    void NoteBreak()
    {
        if (m_breaks != nullptr) {
            m_breaks->push_back(static_cast<std::uint32_t>(m_path.verbs.size()));
        }
    }
    void AddSegment(const drawing::PolyVertex& from, const drawing::PolyVertex& to)
    {
        NoteBreak();
        const Vec2 a{from.point.x, from.point.y};
        const Vec2 b{to.point.x, to.point.y};
        if (from.bulge == 0 || a == b) {
            m_path.LineTo(m_plane.Apply(b));
        } else {
            AppendArc(m_path, Mapped(m_plane, BulgeArc(a, b, from.bulge)), Join::Continue);
        }
    }
    Path& m_path;
    const Matrix2& m_plane;
    std::vector<std::uint32_t>* m_breaks;
    const drawing::PolyVertex* m_first = nullptr;
    const drawing::PolyVertex* m_previous = nullptr;
};

} // namespace

bool IsDrawnVertex(const drawing::PolylineData& polyline, const drawing::PolyVertex& vertex)
{
    return !polyline.splineFitted || (vertex.flags & drawing::kFrameVertex) == 0;
}

double ElevationOf(const drawing::PolylineData& polyline)
{
    return polyline.elevation != 0 || polyline.vertices.empty() ? polyline.elevation
                                                                : polyline.vertices.front().point.z;
}

void PolylinePen::Draw(const drawing::PolylineData& polyline)
{
    if (polyline.isPolyface) {
        DrawPolyface(m_context, polyline);
        return;
    }
    if (polyline.isMesh) {
        DrawPolylineMesh(m_context, polyline);
        return;
    }
    if (polyline.splineFitted && m_context.switches.hiddenFrames) {
        DrawFrame(polyline);
    }
    if (polyline.is3d) {
        DrawInSpace(polyline);
        return;
    }
    const Matrix2 plane = PlaneOf(m_context.frame->toPaper, polyline.extrusion, ElevationOf(polyline));
    const WidthKind width = WidthKindOf(polyline);
    const bool asAreas = !m_context.switches.fills || !IsUniform(plane);
    if (width == WidthKind::Varying || (width == WidthKind::Constant && asAreas)) {
        DrawWide(polyline, plane);
    } else {
        DrawPlain(polyline, plane, width == WidthKind::Constant);
    }
}

// The line through the points that a curve was fitted to.
void PolylinePen::DrawFrame(const drawing::PolylineData& polyline)
{
    const Projection& toPaper = m_context.frame->toPaper;
    const Matrix2 plane = PlaneOf(toPaper, polyline.extrusion, ElevationOf(polyline));
    Path frame;
    for (const drawing::PolyVertex& vertex : polyline.vertices) {
        if (IsDrawnVertex(polyline, vertex)) {
            continue;
        }
        const Vec2 at = polyline.is3d ? toPaper.Apply(vertex.point) : plane.Apply({vertex.point.x, vertex.point.y});
        frame.Empty() ? frame.MoveTo(at) : frame.LineTo(at);
    }
    if (polyline.closed && !frame.Empty()) {
        frame.Close();
    }
    StrokePath(m_context, frame, m_context.StrokePen());
}

void PolylinePen::DrawInSpace(const drawing::PolylineData& polyline)
{
    for (const drawing::PolyVertex& vertex : polyline.vertices) {
        if (IsDrawnVertex(polyline, vertex)) {
            const Vec2 at = m_context.frame->toPaper.Apply(vertex.point);
            m_context.path.Empty() ? m_context.path.MoveTo(at) : m_context.path.LineTo(at);
        }
    }
    if (polyline.closed && !m_context.path.Empty()) {
        m_context.path.Close();
    }
    StrokePath(m_context);
}

void PolylinePen::DrawPlain(const drawing::PolylineData& polyline, const Matrix2& plane, bool wide)
{
    Pen pen = m_context.StrokePen();
    const bool broken = !polyline.plinegen && pen.pattern != nullptr && !pen.pattern->Continuous();
    SegmentPath line(m_context.path, plane, broken ? &m_breaks : nullptr);
    for (const drawing::PolyVertex& vertex : polyline.vertices) {
        if (IsDrawnVertex(polyline, vertex)) {
            line.Add(vertex);
        }
    }
    if (polyline.closed) {
        line.Close();
    }
    const std::span<const std::uint32_t> breaks = broken ? m_breaks : std::span<const std::uint32_t>{};
    if (wide) {
        pen.width = WidthsOf(polyline.vertices.front()).start * ScaleOf(plane);
        pen.cap = LineCap::Butt;
        pen.join = LineJoin::Miter;
        StrokePath(m_context, m_context.path, pen, breaks);
    } else {
        StrokePath(m_context, breaks);
    }
}

void PolylinePen::DrawWide(const drawing::PolylineData& polyline, const Matrix2& plane)
{
    const std::vector<WideSegment> segments = SegmentsOf(polyline);
    Path thin;
    for (std::size_t i = 0; i < segments.size(); ++i) {
        if (segments[i].startWidth <= 0 && segments[i].endWidth <= 0) {
            const WideSegment& s = segments[i];
            thin.MoveTo(plane.Apply(s.from));
            if (s.bulge == 0) {
                thin.LineTo(plane.Apply(s.to));
            } else {
                AppendArc(thin, Mapped(plane, BulgeArc(s.from, s.to, s.bulge)), Join::Continue);
            }
            continue;
        }
        AppendWideSegment(m_context.path, segments[i], plane);
        const bool filled = m_context.switches.fills; // otherwise each segment shows all its sides
        if (filled && (i + 1 < segments.size() || polyline.closed)) {
            AppendWideCorner(m_context.path, segments[i], segments[(i + 1) % segments.size()], plane);
        }
    }
    if (m_context.switches.fills) {
        m_context.ink.Fill(m_context.path, m_context.style.color, FillRule::NonZero);
    } else {
        m_context.StrokeEdge(m_context.path);
    }
    StrokePath(m_context, thin, m_context.StrokePen());
}

} // namespace sm::render
