// SPDX-License-Identifier: GPL-3.0-or-later
#include "entities/HatchEdges.h"

#include <algorithm>

namespace sm::drawing {

namespace {

using EdgeKind = HatchEdge::Kind;

void ResetEdge(HatchEdge& edge)
{
    std::vector<double> knots = std::move(edge.knots), weights = std::move(edge.weights);
    std::vector<Vec2> points = std::move(edge.points), fit = std::move(edge.fitPoints);
    edge = {};
    knots.clear();
    weights.clear();
    points.clear();
    fit.clear();
    edge.knots = std::move(knots);
    edge.weights = std::move(weights);
    edge.points = std::move(points);
    edge.fitPoints = std::move(fit);
}

void TakeLineEdge(const EntityTags& tags, HatchEdge& edge)
{
    if (!tags.Take(10, edge.start))
        tags.Take(11, edge.end);
}

void TakeArcEdge(const EntityTags& tags, HatchEdge& edge)
{
    if (tags.Take(10, edge.center) || tags.Take(11, edge.majorAxis))
        return;
    switch (tags.Code()) {
    case 40:
        (edge.kind == EdgeKind::Arc ? edge.radius : edge.ratio) = tags.Real();
        break;
    case 50:
        edge.startAngle = tags.Real();
        break;
    case 51:
        edge.endAngle = tags.Real();
        break;
    case 73:
        edge.counterClockwise = tags.Integer() != 0;
        break;
    default:
        break;
    }
}

void TakeListPoint(const EntityTags& tags, int base, std::vector<Vec2>& points)
{
    if (tags.Code() == base)
        points.emplace_back();
    if (!points.empty())
        tags.Take(base, points.back());
}

void TakeSplineEdge(const EntityTags& tags, HatchEdge& edge)
{
    switch (tags.Code()) {
    case 94:
        edge.degree = std::clamp(tags.Integer(), 1, 25);
        break;
    case 40:
        edge.knots.push_back(tags.Real());
        break;
    case 42:
        edge.weights.push_back(tags.Real());
        break;
    case 10:
    case 20:
        TakeListPoint(tags, 10, edge.points);
        break;
    case 11:
    case 21:
        TakeListPoint(tags, 11, edge.fitPoints);
        break;
    default:
        break;
    }
}

} // namespace

void StartHatchEdge(HatchEdge& edge, std::int32_t type)
{
    ResetEdge(edge);
    switch (type) {
    case 2:
        edge.kind = EdgeKind::Arc;
        break;
    case 3:
        edge.kind = EdgeKind::EllipticArc;
        break;
    case 4:
        edge.kind = EdgeKind::Spline;
        break;
    default:
        edge.kind = EdgeKind::Line;
    }
}

void TakeHatchEdgeTag(const EntityTags& tags, HatchEdge& edge)
{
    switch (edge.kind) {
    case EdgeKind::Line:
        TakeLineEdge(tags, edge);
        break;
    case EdgeKind::Arc:
    case EdgeKind::EllipticArc:
        TakeArcEdge(tags, edge);
        break;
    case EdgeKind::Spline:
        TakeSplineEdge(tags, edge);
        break;
    }
}

} // namespace sm::drawing
