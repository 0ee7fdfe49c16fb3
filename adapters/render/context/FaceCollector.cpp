// SPDX-License-Identifier: GPL-3.0-or-later
#include "context/FaceCollector.h"

#include "geometry/KeepWhere.h"
#include "ink/SpaceView.h"
#include "render/Arcs.h"
#include "render/ClipBox.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace sm::render {

namespace {

/// Millimetres of a unit, at least along one axis.
double UnitOf(const Projection& toPaper)
{
    const auto length = [](Vec2 v, double rise) { return std::sqrt(Dot(v, v) + rise * rise); };
    return std::max(
        {length(toPaper.x, toPaper.rise.x), length(toPaper.y, toPaper.rise.y), length(toPaper.z, toPaper.rise.z)});
}

} // namespace

void FaceCollector::Enter(const Projection& toPaper, const std::optional<Box2>& window)
{
    m_toPaper = toPaper;
    m_window = window;
}

void FaceCollector::Add(const std::vector<std::vector<Vec3>>& loops, double slack)
{
    std::vector<std::vector<Vec3>> placed;
    for (const std::vector<Vec3>& loop : loops) {
        std::vector<Vec3> corners;
        for (const Vec3 p : loop) {
            corners.push_back(m_toPaper.Place(p));
        }
        CutToDepth(m_camera, corners);
        Box2 box;
        for (const Vec3 p : corners) {
            box.Add(Vec2{p.x, p.y});
        }
        if (m_window && !Contains(*m_window, box)) {
            KeepWithin(*m_window, corners);
        }
        if (corners.size() > 2) {
            placed.push_back(std::move(corners));
        }
    }
    if (!placed.empty()) {
        m_faces.Add(placed, slack * UnitOf(m_toPaper));
    }
}

void FaceCollector::Add(std::span<const Vec3> corners, double slack)
{
    std::vector<Vec3> loop;
    for (const Vec3 p : corners) {
        if (loop.empty() || !(p == loop.back())) {
            loop.push_back(p);
        }
    }
    Add(std::vector<std::vector<Vec3>>{std::move(loop)}, slack);
}

void FaceCollector::AddWall(std::span<const Vec3> line, bool closed, Vec3 across, double slack)
{
    if (across == Vec3{}) {
        return;
    }
    for (std::size_t i = 0; i + (closed ? 0 : 1) < line.size(); ++i) {
        const Vec3 a = line[i];
        const Vec3 b = line[(i + 1) % line.size()];
        Add(std::array{a, b, b + across, a + across}, slack);
    }
}

void FlatLine::Add(Vec2 center, double radius, double from, double sweep)
{
    constexpr double kChord = kTurn / 48;
    const int count = static_cast<int>(std::ceil(std::clamp(std::abs(sweep), kChord, kTurn) / kChord));
    for (int i = 0; i <= count; ++i) {
        const double t = from + sweep * i / count;
        points.push_back(center + Vec2{std::cos(t), std::sin(t)} * radius);
    }
    constexpr double kAmple = 1.5;
    slack = std::max(slack, kAmple * std::abs(radius) * (1 - std::cos(sweep / count / 2)));
}

void FlatLine::AddBulge(Vec2 from, Vec2 to, double bulge)
{
    if (bulge != 0 && !(from == to)) {
        const EllipseArc arc = BulgeArc(from, to, bulge);
        Add(arc.center, Length(arc.u), std::atan2(arc.u.y, arc.u.x), arc.sweep);
    }
    points.push_back(to);
}

std::vector<Vec3> FlatLine::InSpace(Vec3 extrusion, double elevation) const
{
    const Matrix3 axes = OcsAxes(extrusion);
    std::vector<Vec3> line;
    for (const Vec2 p : points) {
        line.push_back(axes.Apply({p.x, p.y, elevation}));
    }
    return line;
}

void AddThickness(FaceCollector& faces, const FlatLine& line, bool closed, const drawing::Entity& entity,
                  double elevation)
{
    const Vec3 across = OcsAxes(entity.extrusion).z * entity.thickness;
    faces.AddWall(line.InSpace(entity.extrusion, elevation), closed, across, line.slack);
}

} // namespace sm::render
