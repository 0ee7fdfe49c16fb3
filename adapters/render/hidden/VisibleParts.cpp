// SPDX-License-Identifier: GPL-3.0-or-later
// What faces leave of a line.
#include "hidden/HidingFaces.h"

#include "render/Projection.h"

#include <algorithm>
#include <cmath>

namespace sm::render {

namespace {

constexpr double kDust = 0.01; // mm; what shows between two faces and is shorter is left out

bool IsNear(Vec2 p, Vec2 a, Vec2 b, double distance)
{
    const Vec2 along = b - a;
    const double length = Dot(along, along);
    const double beside = Cross(along, p - a);
    if (beside * beside > distance * distance * length) {
        return false;
    }
    const double t = length > 0 ? std::clamp(Dot(p - a, along) / length, 0.0, 1.0) : 0;
    const Vec2 off = p - (a + along * t);
    return Dot(off, off) <= distance * distance;
}

bool IsWhole(const std::vector<LinePart>& hidden)
{
    return hidden.size() == 1 && hidden[0].from <= 0 && hidden[0].to >= 1;
}

} // namespace

// A line that runs along a face's outline is behind it too: no seam between two faces shows what is beneath.
bool HidingFaces::Holds(const Face& face, Vec2 p) const
{
    bool inside = false;
    ForEachEdge(face, [&](Vec2 a, Vec2 b) {
        if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (b.x - a.x) * ((p.y - a.y) / (b.y - a.y))) {
            inside = !inside;
        }
    });
    if (inside) {
        return true;
    }
    bool near = false;
    ForEachEdge(face, [&](Vec2 a, Vec2 b) { near = near || IsNear(p, a, b, m_tolerance); });
    return near;
}

// Adds to the splits where the line crosses the face's outline.
void HidingFaces::Split(const Face& face, Vec2 a, Vec2 b)
{
    constexpr double kParallel = 1e-14, kBeyond = 1e-6;
    const Vec2 along = b - a;
    const double low = m_splits[0], high = m_splits[1];
    ForEachEdge(face, [&](Vec2 p, Vec2 q) {
        const Vec2 edge = q - p;
        const double turn = Cross(along, edge);
        if (turn * turn <= kParallel * kParallel * Dot(along, along) * Dot(edge, edge)) {
            return;
        }
        const double t = Cross(p - a, edge) / turn;
        const double u = Cross(p - a, along) / turn;
        if (t > low && t < high && u > -kBeyond && u < 1 + kBeyond) {
            m_splits.push_back(t);
        }
    });
    std::sort(m_splits.begin(), m_splits.end());
}

void HidingFaces::Hide(const Face& face, Vec3 a, Vec3 b)
{
    Pay(face.corners);
    const double before = Dot(face.normal, a) - face.offset + face.slack;
    const double behind = Dot(face.normal, b) - face.offset + face.slack;
    if (before > -m_tolerance && behind > -m_tolerance) {
        return;
    }
    // The part behind the face's plane.
    const double from = before > 0 ? before / (before - behind) : 0;
    const double to = behind > 0 ? before / (before - behind) : 1;
    m_splits.assign({from, to});
    Split(face, {a.x, a.y}, {b.x, b.y});
    const double length = Length(b - a);
    constexpr double kTouch = 4; // tolerances
    Pay(std::uint64_t{face.corners} * (m_splits.size() - 1));
    for (std::size_t i = 0; i + 1 < m_splits.size(); ++i) {
        const LinePart part{m_splits[i], m_splits[i + 1]};
        const double middle = (part.from + part.to) / 2;
        const bool touches = (part.to - part.from) * length <= kTouch * m_tolerance && part.to - part.from < 1;
        if (!touches && Holds(face, {a.x + (b.x - a.x) * middle, a.y + (b.y - a.y) * middle})) {
            AddHidden(part, length > 0 ? kTouch * m_tolerance / length : 0);
        }
    }
}

// Stretches that touch become one.
void HidingFaces::AddHidden(LinePart stretch, double join)
{
    const auto first = std::find_if(m_hidden.begin(), m_hidden.end(),
                                    [&](const LinePart& other) { return other.to >= stretch.from - join; });
    auto last = first;
    while (last != m_hidden.end() && last->from <= stretch.to + join) {
        stretch = {std::min(stretch.from, last->from), std::max(stretch.to, last->to)};
        ++last;
    }
    if (first == last) {
        m_hidden.insert(first, stretch);
    } else {
        *first = stretch;
        m_hidden.erase(first + 1, last);
    }
}

void HidingFaces::FindVisible(Vec3 a, Vec3 b, std::vector<LinePart>& visible)
{
    visible.clear();
    m_hidden.clear();
    const Vec2 from{a.x, a.y};
    const Vec2 to{b.x, b.y};
    const auto near = [&](const Box2& box) {
        double t0 = 0;
        double t1 = 1;
        Pay(1);
        return ClipLine(box, from, to, t0, t1);
    };
    if (!Exhausted() && std::isfinite(Length(a) + Length(b))) {
        m_tree.ForEach(std::min(a.z, b.z), near, [&](std::uint32_t face) {
            Hide(m_faces[face], a, b);
            return !Exhausted() && !IsWhole(m_hidden);
        });
    }
    if (Exhausted()) {
        m_hidden.clear();
    }
    const double length = Length(to - from);
    const double dust = length > kDust ? kDust / length : 0; // an upright line shows as a point
    double at = 0;
    const auto add = [&](double end) {
        if (end > at && (end - at >= dust || m_hidden.empty())) {
            visible.push_back({at, end});
        }
    };
    for (const LinePart& hidden : m_hidden) {
        add(hidden.from);
        at = hidden.to;
    }
    add(1);
}

} // namespace sm::render
