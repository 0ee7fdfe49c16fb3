#include "render/Painter.h"
#include "render/PainterBuffers.h"
#include "render/WideLine.h"

namespace sm::render {

namespace {

constexpr std::uint8_t kFrameVertex = 16; // DXF reference, VERTEX group 70: a control point of a fitted curve
constexpr std::uint8_t kPolyfaceMesh = 128;
constexpr std::uint8_t kPolyfacePosition = 64;

bool IsDrawnVertex(const drawing::PolylineData& polyline, const drawing::PolyVertex& vertex)
{
    return !polyline.splineFitted || (vertex.flags & kFrameVertex) == 0;
}

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

} // namespace

bool Painter::Draw(const drawing::PolylineData& polyline, drawing::EntityKind)
{
    if (polyline.isPolyface) {
        DrawPolyface(polyline);
        return true;
    }
    if (polyline.isMesh) {
        DrawMesh(polyline);
        return true;
    }
    if (polyline.is3d) {
        // Points of space have no plane of their own: each is projected for itself.
        const auto& vertices = polyline.vertices;
        for (const drawing::PolyVertex& vertex : vertices) {
            if (IsDrawnVertex(polyline, vertex)) {
                const Vec2 at = m_frame->toPaper.Apply(vertex.point);
                m_path.Empty() ? m_path.MoveTo(at) : m_path.LineTo(at);
            }
        }
        if (polyline.closed && !m_path.Empty()) {
            m_path.Close();
        }
        StrokePath();
        return true;
    }
    const double elevation =
        polyline.elevation != 0 || polyline.vertices.empty() ? polyline.elevation : polyline.vertices.front().point.z;
    const Matrix2 plane = PlaneOf(m_frame->toPaper, polyline.extrusion, elevation);
    if (WidthKindOf(polyline) == WidthKind::Varying ||
        (WidthKindOf(polyline) == WidthKind::Constant && !IsUniform(plane))) {
        DrawWidePolyline(polyline, plane);
    } else {
        DrawPlainPolyline(polyline, plane);
    }
    return true;
}

void Painter::DrawPlainPolyline(const drawing::PolylineData& polyline, const Matrix2& plane)
{
    std::vector<std::uint32_t>& breaks = m_buffers->breaks;
    breaks.clear();
    Pen pen = StrokePen();
    const bool needBreaks = !polyline.plinegen && pen.pattern != nullptr && !pen.pattern->marks.empty();
    const drawing::PolyVertex* previous = nullptr;
    const auto segment = [&](const drawing::PolyVertex& from, const drawing::PolyVertex& to) {
        if (needBreaks) {
            breaks.push_back(static_cast<std::uint32_t>(m_path.verbs.size()));
        }
        const Vec2 a{from.point.x, from.point.y};
        const Vec2 b{to.point.x, to.point.y};
        if (from.bulge == 0 || a == b) {
            m_path.LineTo(plane.Apply(b));
        } else {
            AppendArc(m_path, Mapped(plane, BulgeArc(a, b, from.bulge)), Join::Continue);
        }
    };
    const drawing::PolyVertex* first = nullptr;
    for (const drawing::PolyVertex& vertex : polyline.vertices) {
        if (!IsDrawnVertex(polyline, vertex)) {
            continue;
        }
        if (previous == nullptr) {
            m_path.MoveTo(plane.Apply({vertex.point.x, vertex.point.y}));
            first = &vertex;
        } else {
            segment(*previous, vertex);
        }
        previous = &vertex;
    }
    if (polyline.closed && previous != nullptr && previous != first) {
        if (previous->bulge != 0) {
            segment(*previous, *first);
        } else if (needBreaks) {
            breaks.push_back(static_cast<std::uint32_t>(m_path.verbs.size()));
        }
        m_path.Close();
    }
    if (WidthKindOf(polyline) == WidthKind::Constant) {
        pen.width = WidthsOf(polyline.vertices.front()).start * ScaleOf(plane);
        pen.cap = LineCap::Butt;
        pen.join = LineJoin::Miter;
        m_ink.Stroke(m_path, pen, breaks);
    } else {
        StrokePath(breaks);
    }
}

void Painter::DrawWidePolyline(const drawing::PolylineData& polyline, const Matrix2& plane)
{
    std::vector<WideSegment> segments;
    const auto& vertices = polyline.vertices;
    const std::size_t count = vertices.size() - (polyline.closed ? 0 : 1);
    for (std::size_t i = 0; i < count; ++i) {
        const drawing::PolyVertex& from = vertices[i];
        const drawing::PolyVertex& to = vertices[(i + 1) % vertices.size()];
        const Widths widths = WidthsOf(from);
        const WideSegment segment{
            {from.point.x, from.point.y}, {to.point.x, to.point.y}, from.bulge, widths.start, widths.end};
        if (!(segment.from == segment.to)) {
            segments.push_back(segment);
        }
    }
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
        AppendWideSegment(m_path, segments[i], plane);
        if (i + 1 < segments.size() || polyline.closed) {
            AppendWideCorner(m_path, segments[i], segments[(i + 1) % segments.size()], plane);
        }
    }
    m_ink.Fill(m_path, m_style.color, FillRule::NonZero);
    m_ink.Stroke(thin, StrokePen());
}

// Rows and columns of a mesh, each as one line (DXF reference, POLYLINE groups 70 to 72).
void Painter::DrawMesh(const drawing::PolylineData& mesh)
{
    std::vector<Vec2> points;
    for (const drawing::PolyVertex& vertex : mesh.vertices) {
        if (IsDrawnVertex(mesh, vertex)) {
            points.push_back(m_frame->toPaper.Apply(vertex.point));
        }
    }
    const auto rows = static_cast<std::size_t>(std::max(mesh.meshM, 0));
    auto columns = static_cast<std::size_t>(std::max(mesh.meshN, 0));
    if (rows > 0 && points.size() % rows == 0) {
        columns = points.size() / rows; // a smoothed mesh holds more than its groups 71 and 72 say
    }
    if (rows == 0 || columns == 0 || rows > points.size() / columns) {
        return;
    }
    const auto line = [&](std::size_t count, bool closed, auto&& at) {
        for (std::size_t i = 0; i < count; ++i) {
            i == 0 ? m_path.MoveTo(at(i)) : m_path.LineTo(at(i));
        }
        if (closed) {
            m_path.Close();
        }
    };
    for (std::size_t row = 0; row < rows; ++row) {
        line(columns, mesh.meshClosedN, [&](std::size_t i) { return points[row * columns + i]; });
    }
    for (std::size_t column = 0; column < columns; ++column) {
        line(rows, mesh.meshClosedM, [&](std::size_t i) { return points[i * columns + column]; });
    }
    StrokePath();
}

void Painter::DrawPolyface(const drawing::PolylineData& face)
{
    std::vector<Vec2> points;
    for (const drawing::PolyVertex& vertex : face.vertices) {
        if ((vertex.flags & kPolyfacePosition) != 0) {
            points.push_back(m_frame->toPaper.Apply(vertex.point));
        }
    }
    for (const drawing::PolyVertex& vertex : face.vertices) {
        if ((vertex.flags & (kPolyfacePosition | kPolyfaceMesh)) != kPolyfaceMesh) {
            continue;
        }
        std::size_t corners = 0;
        while (corners < vertex.face.size() && vertex.face[corners] != 0) {
            ++corners;
        }
        for (std::size_t i = 0; i < corners; ++i) {
            const std::int32_t from = vertex.face[i]; // negative: the edge that begins here is hidden
            const auto to = static_cast<std::size_t>(std::abs(std::int64_t{vertex.face[(i + 1) % corners]}));
            if (from > 0 && static_cast<std::size_t>(from) <= points.size() && to <= points.size()) {
                m_path.MoveTo(points[static_cast<std::size_t>(from) - 1]);
                m_path.LineTo(points[to - 1]);
            }
        }
    }
    StrokePath();
}

} // namespace sm::render
