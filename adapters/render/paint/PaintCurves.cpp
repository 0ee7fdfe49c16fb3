#include "drawing/EntityKinds.h"
#include "drawing/entities/Curves.h"
#include "drawing/entities/Points.h"
#include "geometry/Nurbs.h"
#include "paint/Painter.h"
#include "render/ClipBox.h"

#include <array>

namespace sm::render {

bool Painter::Draw(const drawing::LineData& line, drawing::EntityKind kind)
{
    if (kind != drawing::EntityKind::Line) {
        DrawEndlessLine(line, kind == drawing::EntityKind::XLine);
        return true;
    }
    m_path.MoveTo(m_frame->toPaper.Apply(line.start));
    m_path.LineTo(m_frame->toPaper.Apply(line.end));
    StrokePath();
    return true;
}

// An endless line has no bounds, and shows where the page ends it.
void Painter::DrawEndlessLine(const drawing::LineData& line, bool bothWays)
{
    const Vec2 from = m_frame->toPaper.Apply(line.start);
    Vec2 along = m_frame->toPaper.ApplyVector(line.end);
    const double length = Length(along);
    if (!m_ink.Bounded() || !(length > 0) || !std::isfinite(length)) {
        return;
    }
    along = along * (1 / length);
    const Box2 box = Grown(m_ink.Clip(), 1);
    const Vec2 middle = (box.min + box.max) * 0.5;
    const double reach = Length(from - middle) + Length(box.max - box.min);
    const Vec2 start = bothWays ? from - along * reach : from;
    const Vec2 end = from + along * reach;
    double t0 = 0;
    double t1 = 1;
    if (ClipLine(box, start, end, t0, t1)) {
        m_path.MoveTo(start + (end - start) * t0);
        m_path.LineTo(start + (end - start) * t1);
        StrokePath();
    }
}

bool Painter::Draw(const drawing::CircleData& circle, drawing::EntityKind)
{
    const Matrix2 plane = PlaneOf(m_frame->toPaper, circle.extrusion, circle.center.z);
    const double radius = std::abs(circle.radius);
    AppendEllipse(m_path, plane.Apply({circle.center.x, circle.center.y}), plane.ApplyVector({radius, 0}),
                  plane.ApplyVector({0, radius}));
    StrokePath();
    return true;
}

bool Painter::Draw(const drawing::ArcData& arc, drawing::EntityKind)
{
    const Matrix2 plane = PlaneOf(m_frame->toPaper, arc.extrusion, arc.center.z);
    const double radius = std::abs(arc.radius);
    const EllipseArc shape{{arc.center.x, arc.center.y},
                           {radius, 0},
                           {0, radius},
                           Radians(arc.startAngle),
                           CounterClockwiseSweep(arc.startAngle, arc.endAngle)};
    AppendArc(m_path, Mapped(plane, shape), Join::Move);
    StrokePath();
    return true;
}

bool Painter::Draw(const drawing::EllipseData& ellipse, drawing::EntityKind)
{
    const Vec3 normal = OcsAxes(ellipse.extrusion).z;
    const Vec2 u = m_frame->toPaper.ApplyVector(ellipse.majorAxis);
    const Vec2 v = m_frame->toPaper.ApplyVector(Cross(normal, ellipse.majorAxis) * ellipse.ratio);
    const Vec2 center = m_frame->toPaper.Apply(ellipse.center);
    double sweep = std::fmod(ellipse.endParameter - ellipse.startParameter, kTurn);
    constexpr double kNothing = 1e-9;
    sweep = sweep < kNothing ? sweep + kTurn : sweep;
    if (std::abs(sweep - kTurn) < kNothing && ellipse.startParameter == 0) {
        AppendEllipse(m_path, center, u, v);
    } else {
        AppendArc(m_path, {center, u, v, ellipse.startParameter, sweep}, Join::Move);
    }
    StrokePath();
    return true;
}

bool Painter::Draw(const drawing::SplineData& spline, drawing::EntityKind)
{
    std::vector<Vec2> points;
    const auto project = [&](const std::vector<Vec3>& from) {
        points.clear();
        for (const Vec3 point : from) {
            points.push_back(m_frame->toPaper.Apply(point));
        }
    };
    project(spline.controlPoints);
    if (!AppendNurbs(m_path, {spline.degree, points, spline.knots, spline.weights})) {
        project(spline.fitPoints);
        FitTangents tangents;
        if (spline.startTangent && spline.endTangent) {
            tangents = {m_frame->toPaper.ApplyVector(*spline.startTangent),
                        m_frame->toPaper.ApplyVector(*spline.endTangent)};
        }
        if (!AppendFitCurve(m_path, points, tangents, spline.closed)) {
            return false;
        }
    }
    StrokePath();
    return true;
}

bool Painter::Draw(const drawing::PointData& point, drawing::EntityKind)
{
    const std::int32_t mode = m_drawing.HeaderInteger("$PDMODE", 0);
    const Vec2 at = m_frame->toPaper.Apply(point.location);
    const double given = m_drawing.HeaderReal("$PDSIZE", 0);
    const double unit = ScaleOf(PlaneOf(m_frame->toPaper, {0, 0, 1}, 0));
    constexpr double kPartOfView = 0.05; // of the view's height, when no size is given
    const double view = m_ink.Bounded() ? m_ink.Clip().Height() : 0;
    const double size = given > 0 ? given * unit : view * (given < 0 ? -given / 100 : kPartOfView);
    const double half = m_options.boxesOnly ? 0 : size / 2;
    const auto line = [&](double x0, double y0, double x1, double y1) {
        m_path.MoveTo(at + Vec2{x0, y0} * half);
        m_path.LineTo(at + Vec2{x1, y1} * half);
    };
    constexpr double kDot = 0.02; // mm
    switch (mode % 32) { // DXF reference, $PDMODE: 0 dot, 1 nothing, 2 plus, 3 cross, 4 tick; 32 and 64 add a frame
    case 0:
        m_path.MoveTo(at);
        m_path.LineTo(at + Vec2{m_options.boxesOnly ? 0 : kDot, 0});
        break;
    case 2:
        line(-2, 0, 2, 0);
        line(0, -2, 0, 2);
        break;
    case 3:
        line(-2, -2, 2, 2);
        line(-2, 2, 2, -2);
        break;
    case 4:
        line(0, 0, 0, 1);
        break;
    default:
        break;
    }
    if ((mode & 32) != 0) {
        AppendEllipse(m_path, at, {half, 0}, {0, half});
    }
    if ((mode & 64) != 0) {
        AppendBox(m_path, {at - Vec2{half, half}, at + Vec2{half, half}});
    }
    Pen pen = StrokePen();
    pen.pattern = nullptr;
    m_ink.Stroke(m_path, pen);
    return true;
}

} // namespace sm::render
