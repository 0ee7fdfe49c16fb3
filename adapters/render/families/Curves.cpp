// SPDX-License-Identifier: GPL-3.0-or-later
#include "families/Curves.h"

#include "context/Strokes.h"
#include "drawing/EntityKinds.h"
#include "families/Families.h"
#include "geometry/Nurbs.h"
#include "render/Arcs.h"
#include "render/ClipBox.h"

#include <array>
#include <cmath>

namespace sm::render {

namespace {

class Lines final : public LeafPainter<drawing::LineData> {
public:
    using LeafPainter::LeafPainter;

private:
    bool Draw(const drawing::LineData& line, drawing::EntityKind kind) override;
    void AddFaces(const drawing::LineData& line, const drawing::EntityRecord& record, FaceCollector& faces) override
    {
        if (HasSides(record.kind)) {
            faces.AddWall(std::array{line.start, line.end}, false, OcsAxes(line.extrusion).z * line.thickness);
        }
    }
    [[nodiscard]] bool HasSides(drawing::EntityKind kind) const override { return kind == drawing::EntityKind::Line; }
};

bool Lines::Draw(const drawing::LineData& line, drawing::EntityKind kind)
{
    if (kind != drawing::EntityKind::Line) {
        DrawEndlessLine(m_context, line, kind == drawing::EntityKind::XLine);
        return true;
    }
    m_path.MoveTo(ToPaper().Apply(line.start));
    m_path.LineTo(ToPaper().Apply(line.end));
    StrokePath(m_context);
    return true;
}

class Circles final : public LeafPainter<drawing::CircleData> {
public:
    using LeafPainter::LeafPainter;

private:
    bool Draw(const drawing::CircleData& circle, drawing::EntityKind /*kind*/) override;
    void AddFaces(const drawing::CircleData& circle, const drawing::EntityRecord& record,
                  FaceCollector& faces) override;
    [[nodiscard]] bool HasSides(drawing::EntityKind /*kind*/) const override { return true; }
};

bool Circles::Draw(const drawing::CircleData& circle, drawing::EntityKind)
{
    const Matrix2 plane = PlaneOf(ToPaper(), circle.extrusion, circle.center.z);
    const double radius = std::abs(circle.radius);
    AppendEllipse(m_path, plane.Apply({circle.center.x, circle.center.y}), plane.ApplyVector({radius, 0}),
                  plane.ApplyVector({0, radius}));
    StrokePath(m_context);
    return true;
}

// A circle with a thickness is a drum with both its ends.
void Circles::AddFaces(const drawing::CircleData& circle, const drawing::EntityRecord&, FaceCollector& faces)
{
    if (circle.thickness == 0) {
        return;
    }
    FlatLine line;
    line.Add({circle.center.x, circle.center.y}, std::abs(circle.radius), 0, kTurn);
    line.points.pop_back();
    AddThickness(faces, line, true, circle, circle.center.z);
    faces.Add(line.InSpace(circle.extrusion, circle.center.z));
    faces.Add(line.InSpace(circle.extrusion, circle.center.z + circle.thickness));
}

class Arcs final : public LeafPainter<drawing::ArcData> {
public:
    using LeafPainter::LeafPainter;

private:
    bool Draw(const drawing::ArcData& arc, drawing::EntityKind /*kind*/) override;
    void AddFaces(const drawing::ArcData& arc, const drawing::EntityRecord& record, FaceCollector& faces) override;
    [[nodiscard]] bool HasSides(drawing::EntityKind /*kind*/) const override { return true; }
};

bool Arcs::Draw(const drawing::ArcData& arc, drawing::EntityKind)
{
    const Matrix2 plane = PlaneOf(ToPaper(), arc.extrusion, arc.center.z);
    const double radius = std::abs(arc.radius);
    const EllipseArc shape{{arc.center.x, arc.center.y},
                           {radius, 0},
                           {0, radius},
                           Radians(arc.startAngle),
                           CounterClockwiseSweep(arc.startAngle, arc.endAngle)};
    AppendArc(m_path, Mapped(plane, shape), Join::Move);
    StrokePath(m_context);
    return true;
}

void Arcs::AddFaces(const drawing::ArcData& arc, const drawing::EntityRecord&, FaceCollector& faces)
{
    if (arc.thickness == 0) {
        return;
    }
    FlatLine line;
    line.Add({arc.center.x, arc.center.y}, std::abs(arc.radius), Radians(arc.startAngle),
             CounterClockwiseSweep(arc.startAngle, arc.endAngle));
    AddThickness(faces, line, false, arc, arc.center.z);
}

class Ellipses final : public LeafPainter<drawing::EllipseData> {
public:
    using LeafPainter::LeafPainter;

private:
    bool Draw(const drawing::EllipseData& ellipse, drawing::EntityKind /*kind*/) override;
};

bool Ellipses::Draw(const drawing::EllipseData& ellipse, drawing::EntityKind)
{
    const Vec3 normal = OcsAxes(ellipse.extrusion).z;
    const Vec2 u = ToPaper().ApplyVector(ellipse.majorAxis);
    const Vec2 v = ToPaper().ApplyVector(Cross(normal, ellipse.majorAxis) * ellipse.ratio);
    const Vec2 center = ToPaper().Apply(ellipse.center);
    double sweep = std::fmod(ellipse.endParameter - ellipse.startParameter, kTurn);
    constexpr double kNothing = 1e-9;
    sweep = sweep < kNothing ? sweep + kTurn : sweep;
    if (std::abs(sweep - kTurn) < kNothing && ellipse.startParameter == 0) {
        AppendEllipse(m_path, center, u, v);
    } else {
        AppendArc(m_path, {center, u, v, ellipse.startParameter, sweep}, Join::Move);
    }
    StrokePath(m_context);
    return true;
}

class Splines final : public LeafPainter<drawing::SplineData> {
public:
    using LeafPainter::LeafPainter;

private:
    bool Draw(const drawing::SplineData& spline, drawing::EntityKind /*kind*/) override;
};

/// Curves of a high degree take long for few lines.
std::uint64_t CostOf(const drawing::SplineData& spline)
{
    constexpr std::uint64_t kCheap = 256, kHighest = 100;
    const auto degree = static_cast<std::uint64_t>(std::clamp<std::int64_t>(spline.degree, 0, kHighest));
    return spline.controlPoints.size() * degree * degree / kCheap;
}

bool Splines::Draw(const drawing::SplineData& spline, drawing::EntityKind)
{
    std::vector<Vec2> points;
    const auto project = [&](const std::vector<Vec3>& from) {
        points.clear();
        for (const Vec3 point : from) {
            points.push_back(ToPaper().Apply(point));
        }
    };
    project(spline.controlPoints);
    m_context.Spend(CostOf(spline));
    if (!AppendNurbs(m_path, {spline.degree, points, spline.knots, spline.weights})) {
        project(spline.fitPoints);
        FitTangents tangents;
        if (spline.startTangent && spline.endTangent) {
            tangents = {ToPaper().ApplyVector(*spline.startTangent), ToPaper().ApplyVector(*spline.endTangent)};
        }
        if (!AppendFitCurve(m_path, points, tangents, spline.closed)) {
            return false;
        }
    }
    StrokePath(m_context);
    return true;
}

// In space an endless line is one that ends far off, at the same places however the view is tilted.
void DrawFarLine(PaintContext& context, const drawing::LineData& line, bool bothWays)
{
    const Projection& to = context.frame->toPaper;
    const Vec3 rowX{to.x.x, to.y.x, to.z.x};
    const Vec3 rowY{to.x.y, to.y.y, to.z.y};
    const double unit = std::cbrt(std::abs(Dot(Cross(rowX, rowY), to.rise))); // mm; no tilt changes it
    const double length = Length(line.end);
    if (!(length > 0) || !(unit > 0) || !std::isfinite(length + unit)) {
        return;
    }
    constexpr double kReach = 100'000; // mm
    const double reach = std::exp2(std::ceil(std::log2(kReach / unit + Length(line.start))));
    const Vec3 along = line.end * (reach / length);
    context.path.MoveTo(to.Apply(bothWays ? line.start - along : line.start));
    context.path.LineTo(to.Apply(line.start + along));
    StrokePath(context);
}

} // namespace

void DrawEndlessLine(PaintContext& context, const drawing::LineData& line, bool bothWays)
{
    const Vec2 from = context.frame->toPaper.Apply(line.start);
    Vec2 along = context.frame->toPaper.ApplyVector(line.end);
    const double length = Length(along);
    if (context.ink.Space() != nullptr) {
        DrawFarLine(context, line, bothWays);
        return;
    }
    if (!context.ink.Bounded() || !(length > 0) || !std::isfinite(length)) {
        return;
    }
    along = along * (1 / length);
    const Box2 box = Grown(context.ink.Clip(), 1);
    const Vec2 middle = (box.min + box.max) * 0.5;
    const double reach = Length(from - middle) + Length(box.max - box.min);
    const Vec2 start = bothWays ? from - along * reach : from;
    const Vec2 end = from + along * reach;
    double t0 = 0;
    double t1 = 1;
    if (ClipLine(box, start, end, t0, t1)) {
        context.path.MoveTo(start + (end - start) * t0);
        context.path.LineTo(start + (end - start) * t1);
        StrokePath(context);
    }
}

std::unique_ptr<EntityPainter> MakeLines(PaintContext& context, IWalk& walk)
{
    return std::make_unique<Lines>(context, walk);
}

std::unique_ptr<EntityPainter> MakeCircles(PaintContext& context, IWalk& walk)
{
    return std::make_unique<Circles>(context, walk);
}

std::unique_ptr<EntityPainter> MakeArcs(PaintContext& context, IWalk& walk)
{
    return std::make_unique<Arcs>(context, walk);
}

std::unique_ptr<EntityPainter> MakeEllipses(PaintContext& context, IWalk& walk)
{
    return std::make_unique<Ellipses>(context, walk);
}

std::unique_ptr<EntityPainter> MakeSplines(PaintContext& context, IWalk& walk)
{
    return std::make_unique<Splines>(context, walk);
}

} // namespace sm::render
