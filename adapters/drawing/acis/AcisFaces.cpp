// SPDX-License-Identifier: GPL-3.0-or-later
#include "acis/AcisCurves.h"
#include "drawing/entities/Solids.h"
#include "entities/SpaceVectors.h"

namespace sm::drawing {

namespace {

/// At right angles to `v`, of length 1.
Vec3 AnyNormal(Vec3 v)
{
    const Vec3 axis = std::abs(v.x) < std::abs(v.y) ? Vec3{1, 0, 0} : Vec3{0, 1, 0};
    const Vec3 normal = Cross(v, axis);
    return normal * (1 / std::max(Length(normal), 1e-300));
}

} // namespace

void AcisCurves::AppendCircle(Vec3 center, Vec3 u, Vec3 v, std::vector<SolidEdge>& edges) const
{
    SolidEdge edge;
    edge.kind = SolidEdge::Kind::Arc;
    edge.center = m_map.Point(center);
    edge.u = m_map.Vector(u);
    edge.v = m_map.Vector(v);
    edge.sweep = kTurn;
    edges.push_back(edge);
}

// The first record of that name that a record points to.
const AcisRecord* AcisCurves::First(const AcisRecord& record, std::string_view name) const
{
    for (std::size_t i = record.first; i < record.end; ++i) {
        const AcisRecord* const target = m_records.Target(m_records.Token(i));
        if (target != nullptr && target->name == name)
            return target;
    }
    return nullptr;
}

// The whole circles among a face's edges.
std::vector<SolidEdge> AcisCurves::CirclesOf(const AcisRecord& face) const
{
    std::vector<SolidEdge> circles;
    int budget = 1000;
    for (const AcisRecord* loop = First(face, "loop"); loop != nullptr && --budget > 0; loop = First(*loop, "loop")) {
        const AcisRecord* const first = First(*loop, "coedge");
        for (const AcisRecord* at = first; at != nullptr;) {
            const AcisRecord* const edge = First(*at, "edge");
            const AcisRecord* const curve = edge != nullptr ? First(*edge, "ellipse-curve") : nullptr;
            std::vector<SolidEdge> drawn;
            if (curve != nullptr && AppendEdge(*edge, drawn) && !drawn.empty() && drawn[0].sweep >= kTurn)
                circles.push_back(drawn[0]);
            if (--budget <= 0)
                return circles;
            at = First(*at, "coedge");
            at = at == first ? nullptr : at;
        }
    }
    return circles;
}

// The wall of a pipe or a cone between two circles shows as four lines.
void AcisCurves::AppendWall(const AcisRecord& face, std::vector<SolidEdge>& edges) const
{
    if (First(face, "cone-surface") == nullptr)
        return;
    const std::vector<SolidEdge> circles = CirclesOf(face);
    if (circles.size() != 2 || !(Length(circles[0].u) > 0))
        return;
    const double growth = Length(circles[1].u) / Length(circles[0].u);
    for (int quarter = 0; quarter < 4; ++quarter) {
        const double t = kTurn / 4 * quarter;
        const Vec3 out = circles[0].u * std::cos(t) + circles[0].v * std::sin(t);
        SolidEdge& line = edges.emplace_back();
        line.start = circles[0].center + out;
        line.end = circles[1].center + out * growth;
    }
}

// A whole sphere or torus is a face without a loop: circles show where it lies.
void AcisCurves::AppendWhole(const AcisRecord& face, std::vector<SolidEdge>& edges) const
{
    const AcisRecord* surface = nullptr;
    for (std::size_t i = face.first; i < face.end; ++i) {
        const AcisRecord* const target = m_records.Target(m_records.Token(i));
        if (target != nullptr && target->name == "loop")
            return;
        if (target != nullptr && target->name.ends_with("-surface"))
            surface = target;
    }
    const std::vector<double> n = surface != nullptr ? m_records.Numbers(*surface) : std::vector<double>{};
    if (n.size() >= 4 && surface->name == "sphere-surface") {
        const double r = std::abs(n[3]);
        for (const auto& [u, v] : {std::pair{Vec3{r, 0, 0}, Vec3{0, r, 0}}, std::pair{Vec3{r, 0, 0}, Vec3{0, 0, r}},
                                   std::pair{Vec3{0, r, 0}, Vec3{0, 0, r}}})
            AppendCircle(PointAt(n, 0), u, v, edges);
    } else if (n.size() >= 8 && surface->name == "torus-surface" && Length(PointAt(n, 3)) > 0) {
        const Vec3 center = PointAt(n, 0), axis = PointAt(n, 3) * (1 / Length(PointAt(n, 3))), u = AnyNormal(axis),
                   v = Cross(axis, u);
        const double ring = n[6], tube = n[7];
        for (const double radius : {ring + tube, ring - tube})
            AppendCircle(center, u * radius, v * radius, edges);
        for (const Vec3 out : {u, v, u * -1, v * -1})
            AppendCircle(center + out * ring, out * tube, axis * tube, edges);
    }
}

} // namespace sm::drawing
