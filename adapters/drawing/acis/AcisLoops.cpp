// SPDX-License-Identifier: GPL-3.0-or-later
// The outlines of a solid's flat faces.
#include "acis/AcisCurves.h"
#include "entities/SpaceVectors.h"
#include "entities/SplinePoints.h"

#include <algorithm>
#include <cmath>

namespace sm::drawing {

namespace {

constexpr int kChordsOfTurn = 48, kChordsOfSpan = 8;

/// An edge as a line of points.
std::vector<Vec3> ChordsOf(const SolidEdge& edge)
{
    std::vector<Vec3> points;
    const auto sample = [&](int count, const auto& at) {
        for (int i = 0; i <= count; ++i)
            points.push_back(at(static_cast<double>(i) / count));
    };
    switch (edge.kind) {
    case SolidEdge::Kind::Line:
        return {edge.start, edge.end};
    case SolidEdge::Kind::Arc:
        sample(std::max(1, static_cast<int>(std::ceil(std::abs(edge.sweep) / kTurn * kChordsOfTurn))), [&](double t) {
            const double angle = edge.from + edge.sweep * t;
            return edge.center + edge.u * std::cos(angle) + edge.v * std::sin(angle);
        });
        break;
    case SolidEdge::Kind::Spline: {
        const auto degree = static_cast<std::size_t>(edge.degree);
        if (edge.points.size() <= degree || edge.knots.size() < edge.points.size() + 1)
            return {};
        const double from = edge.knots[degree], to = edge.knots[edge.points.size()];
        const auto spans = std::min<std::size_t>(edge.points.size() - degree, 500);
        sample(degree == 1 ? static_cast<int>(spans) : static_cast<int>(spans) * kChordsOfSpan,
               [&](double t) { return SplinePoint(edge, from + (to - from) * t); });
        break;
    }
    }
    return points;
}

/// Puts an edge behind those of its loop, turned round where it runs against them.
void JoinTo(std::vector<Vec3>& loop, std::vector<Vec3> piece, bool second)
{
    if (!loop.empty() && !piece.empty()) {
        const auto gap = [](Vec3 a, Vec3 b) { return Length(a - b); };
        const double atEnd = std::min(gap(loop.back(), piece.front()), gap(loop.back(), piece.back()));
        if (second && std::min(gap(loop.front(), piece.front()), gap(loop.front(), piece.back())) < atEnd)
            std::reverse(loop.begin(), loop.end());
        if (gap(loop.back(), piece.back()) < gap(loop.back(), piece.front()))
            std::reverse(piece.begin(), piece.end());
        piece.erase(piece.begin());
    }
    loop.insert(loop.end(), piece.begin(), piece.end());
}

const AcisRecord* FirstEnding(const AcisRecords& records, const AcisRecord& record, std::string_view end)
{
    for (std::size_t i = record.first; i < record.end; ++i) {
        const AcisRecord* const target = records.Target(records.Token(i));
        if (target != nullptr && target->name.ends_with(end))
            return target;
    }
    return nullptr;
}

bool IsEdgeRecord(const AcisRecord* record)
{
    return record != nullptr && !record->name.ends_with("coedge");
}

/// The edge that a coedge runs along: other coedges stand before it.
const AcisRecord* EdgeOf(const AcisRecords& records, const AcisRecord& coedge)
{
    for (std::size_t i = coedge.first; i < coedge.end; ++i) {
        const AcisRecord* const target = records.Target(records.Token(i));
        if (IsEdgeRecord(target) && target->name.ends_with("edge"))
            return target;
    }
    return nullptr;
}

} // namespace

bool AcisCurves::AppendLoop(const AcisRecord& loop, std::vector<Vec3>& corners, std::size_t& budget) const
{
    const AcisRecord* const first = FirstEnding(m_records, loop, "coedge");
    std::size_t pieces = 0;
    for (const AcisRecord* at = first; at != nullptr;) {
        const AcisRecord* const edge = EdgeOf(m_records, *at);
        std::vector<SolidEdge> drawn;
        if (budget == 0 || edge == nullptr || !AppendEdge(*edge, drawn))
            return false;
        --budget;
        for (const SolidEdge& one : drawn)
            JoinTo(corners, ChordsOf(one), ++pieces == 2);
        at = FirstEnding(m_records, *at, "coedge");
        at = at == first ? nullptr : at;
    }
    return first != nullptr;
}

bool AcisCurves::AppendFlatFace(const AcisRecord& face, std::vector<std::vector<Vec3>>& loops,
                                std::size_t& budget) const
{
    const AcisRecord* const surface = FirstEnding(m_records, face, "-surface");
    if (surface == nullptr || surface->name != "plane-surface")
        return false;
    const AcisRecord* loop = First(face, "loop");
    for (; loop != nullptr && budget > 0; loop = First(*loop, "loop")) {
        --budget;
        if (!AppendLoop(*loop, loops.emplace_back(), budget))
            return false;
    }
    return loop == nullptr && !loops.empty();
}

SolidFaces AcisCurves::Faces()
{
    m_map = BodyMap();
    SolidFaces faces;
    std::size_t budget = 10 * m_records.All().size(); // an edge bounds two faces
    for (const AcisRecord& record : m_records.All()) {
        std::vector<std::vector<Vec3>> loops;
        if (record.name != "face")
            continue;
        if (AppendFlatFace(record, loops, budget))
            faces.flat.push_back(std::move(loops));
        else
            ++faces.others;
    }
    return faces;
}

} // namespace sm::drawing
