// SPDX-License-Identifier: GPL-3.0-or-later
#include "ink/SpaceView.h"

#include <cmath>

namespace sm::render {

namespace {

// Large enough that heights keep their digits far from the origin, small enough that painters do the same in both runs.
constexpr double kTilt = 1.0 / 256;

} // namespace

struct SpaceView::Entity::Kept {
    Now now;
};

SpaceView::Entity::Entity(SpaceView& view) : m_view(view), m_outer(std::make_unique<Kept>())
{
    std::swap(m_outer->now, m_view.m_now);
    m_view.m_now.phase = Phase::Measure;
}

SpaceView::Entity::~Entity()
{
    std::swap(m_outer->now, m_view.m_now);
}

void SpaceView::Entity::Draw()
{
    m_view.m_now.phase = Phase::Draw;
    m_view.m_now.plane.reset();
}

Projection SpaceView::Tilted(const Projection& toPaper)
{
    Projection tilted = toPaper;
    tilted.x.x += kTilt * toPaper.rise.x;
    tilted.y.x += kTilt * toPaper.rise.y;
    tilted.z.x += kTilt * toPaper.rise.z;
    tilted.origin.x += kTilt * toPaper.height;
    return tilted;
}

void SpaceView::Measure(std::span<const Vec2> points)
{
    if (!Measures()) { // faces are gathered
        return;
    }
    m_now.ops.push_back({m_now.tilted.size(), points.size()});
    for (const Vec2 p : points) {
        m_now.tilted.push_back(p.x);
    }
}

void SpaceView::Survey(std::span<const Vec2> points)
{
    if (!Draws()) {
        Measure(points);
        return;
    }
    m_now.plane.reset();
    m_now.plane = PlaneThrough(Lift(points));
}

std::span<const Vec3> SpaceView::Lift(std::span<const Vec2> points)
{
    const Op op = m_now.next < m_now.ops.size() ? m_now.ops[m_now.next] : Op{};
    ++m_now.next;
    const bool measured = op.count == points.size();
    if (op.count > 0 && !points.empty()) {
        m_now.height = (m_now.tilted[op.first] - points[0].x) / kTilt;
    }
    m_lifted.clear();
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Vec2 p = points[i];
        if (m_now.plane) {
            m_now.height = m_now.plane->At(p);
        } else if (measured) {
            m_now.height = (m_now.tilted[op.first + i] - p.x) / kTilt;
        }
        m_lifted.push_back({p.x, p.y, m_now.height});
    }
    return m_lifted;
}

DepthPlane PlaneThrough(std::span<const Vec3> points)
{
    if (points.empty()) {
        return {};
    }
    const Vec3 origin = points[0];
    Vec3 first, second;
    const auto flat = [](Vec3 v) { return Vec2{v.x, v.y}; };
    for (const Vec3 p : points) {
        first = Length(flat(p - origin)) > Length(flat(first)) ? p - origin : first;
    }
    const auto turn = [&](Vec3 v) { return std::abs(Cross(flat(first), flat(v))); };
    for (const Vec3 p : points) {
        second = turn(p - origin) > turn(second) ? p - origin : second;
    }
    const Vec3 normal = Cross(first, second);
    constexpr double kUpright = 1e-9;
    if (!(std::abs(normal.z) > kUpright * Length(normal))) {
        return {0, 0, origin.z};
    }
    DepthPlane plane{-normal.x / normal.z, -normal.y / normal.z, 0};
    plane.height = origin.z - plane.At(flat(origin));
    return plane;
}

std::array<Vec2, 3> SpaceView::CornersOf(const Matrix2& m)
{
    return {Vec2{m.e, m.f}, Vec2{m.e + m.a, m.f + m.b}, Vec2{m.e + m.c, m.f + m.d}};
}

SpaceView::Place SpaceView::LiftPlace(const Matrix2& m)
{
    const std::array<Vec2, 3> corners = CornersOf(m);
    const std::span<const Vec3> at = Lift(corners);
    return {at[0], at[1] - at[0], at[2] - at[0]};
}

Matrix2 SpaceView::Flat(const Place& place) const
{
    const auto on = [&](Vec2 p) {
        Vec3 at = place.At(p);
        at.z = std::min(at.z, m_camera.Front());
        const Vec3 flat = m_camera.Apply(at);
        return Vec2{flat.x, flat.y};
    };
    const Vec2 origin = on({0, 0});
    const Vec2 x = on({1, 0}) - origin;
    const Vec2 y = on({0, 1}) - origin;
    return {x.x, x.y, y.x, y.y, origin.x, origin.y};
}

void SpaceView::TellExhausted()
{
    if (m_faces != nullptr && m_faces->Exhausted() && !m_toldExhausted) {
        m_toldExhausted = true;
        Tell("a view with too many hidden lines, the rest of it drawn with all of its lines");
    }
}

} // namespace sm::render
