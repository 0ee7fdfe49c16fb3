// SPDX-License-Identifier: GPL-3.0-or-later
#include "hidden/HidingFaces.h"

#include "render/Projection.h"

#include <algorithm>
#include <cmath>

namespace sm::render {

namespace {

constexpr std::size_t kMostFaces = 1'000'000; // as many as a view may hold; further ones hide nothing
constexpr double kEdgeOn = 1e-6;              // a face whose normal rises less is seen from its edge

/// Twice the area of the loops, as a vector at right angles to them.
Vec3 NormalOf(std::span<const std::vector<Vec3>> loops)
{
    Vec3 sum, largest;
    for (const std::vector<Vec3>& loop : loops) {
        sum = {};
        for (std::size_t i = 1; i + 1 < loop.size(); ++i) {
            sum = sum + Cross(loop[i] - loop[0], loop[i + 1] - loop[0]);
        }
        largest = Length(sum) > Length(largest) ? sum : largest; // the outer loop holds the others
    }
    return largest;
}

bool AreFinite(const std::vector<std::vector<Vec3>>& loops)
{
    double sum = 0;
    for (const std::vector<Vec3>& loop : loops) {
        for (const Vec3 p : loop) {
            sum += std::abs(p.x) + std::abs(p.y) + std::abs(p.z);
        }
    }
    return std::isfinite(sum);
}

} // namespace

void HidingFaces::Add(const std::vector<std::vector<Vec3>>& loops, double slack)
{
    const Vec3 normal = NormalOf(loops);
    const double size = Length(normal);
    if (loops.empty() || !(size > 0) || !AreFinite(loops)) {
        return;
    }
    constexpr double kFlat = 20; // tolerances that corners may stray from the plane of a flat face
    const double stray = StrayOf(loops, normal * (1 / size));
    if (stray <= kFlat * m_tolerance || loops.size() > 1 || loops[0].size() < 4) {
        AddFlat(loops, normal, slack + stray);
        return;
    }
    for (std::size_t i = 1; i + 1 < loops[0].size(); ++i) {
        const std::vector<Vec3> triangle{loops[0][0], loops[0][i], loops[0][i + 1]};
        AddFlat({&triangle, 1}, NormalOf({&triangle, 1}), slack);
    }
}

double HidingFaces::StrayOf(const std::vector<std::vector<Vec3>>& loops, Vec3 normal) const
{
    double stray = 0;
    for (const std::vector<Vec3>& loop : loops) {
        for (const Vec3 p : loop) {
            stray = std::max(stray, std::abs(Dot(normal, p - loops[0][0])));
        }
    }
    return stray;
}

void HidingFaces::AddFlat(std::span<const std::vector<Vec3>> loops, Vec3 normal, double slack)
{
    const double size = Length(normal);
    if (!(std::abs(normal.z) > kEdgeOn * size) || m_faces.size() >= kMostFaces) {
        return;
    }
    Face face;
    face.normal = normal * ((normal.z < 0 ? -1 : 1) / size);
    face.offset = Dot(face.normal, loops[0][0]);
    face.slack = slack;
    face.firstLoop = static_cast<std::uint32_t>(m_loops.size());
    FaceTree::Item item;
    item.top = loops[0][0].z;
    for (const std::vector<Vec3>& loop : loops) {
        m_loops.push_back({static_cast<std::uint32_t>(m_corners.size()), static_cast<std::uint32_t>(loop.size())});
        for (const Vec3 p : loop) {
            m_corners.push_back({p.x, p.y});
            item.box.Add(Vec2{p.x, p.y});
            item.top = std::max(item.top, p.z);
        }
        face.corners += static_cast<std::uint32_t>(loop.size());
        ++face.loops;
    }
    item.box = Grown(item.box, m_tolerance);
    m_items.push_back(item);
    m_faces.push_back(face);
}

void HidingFaces::Seal()
{
    m_tree.Build(m_items);
    m_items = {};
}

} // namespace sm::render
