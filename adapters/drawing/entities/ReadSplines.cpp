// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/Curves.h"
#include "entities/EntityTags.h"

#include <algorithm>

namespace sm::drawing {

namespace {

void Reset(SplineData& data)
{
    std::vector<double> knots = std::move(data.knots), weights = std::move(data.weights);
    std::vector<Vec3> control = std::move(data.controlPoints), fit = std::move(data.fitPoints);
    data = {};
    knots.clear();
    weights.clear();
    control.clear();
    fit.clear();
    data.knots = std::move(knots);
    data.weights = std::move(weights);
    data.controlPoints = std::move(control);
    data.fitPoints = std::move(fit);
}

/// A list of points: the x coordinate starts a new one.
bool TakePoint(const EntityTags& tags, int base, std::vector<Vec3>& points)
{
    if (tags.Code() == base)
        points.emplace_back();
    return !points.empty() && tags.Take(base, points.back());
}

bool TakeTangent(const EntityTags& tags, int base, std::optional<Vec3>& tangent)
{
    Vec3 value = tangent.value_or(Vec3{});
    if (!tags.Take(base, value))
        return false;
    tangent = value;
    return true;
}

void TakeSplineTag(const EntityTags& tags, SplineData& data)
{
    switch (tags.Code()) {
    case 40:
        data.knots.push_back(tags.Real());
        break;
    case 41:
        data.weights.push_back(tags.Real());
        break;
    case 70:
        data.closed = (tags.Integer() & 1) != 0;
        data.periodic = (tags.Integer() & 2) != 0;
        data.rational = (tags.Integer() & 4) != 0;
        break;
    case 71:
        data.degree = std::clamp(tags.Integer(), 1, 25);
        break;
    default:
        tags.TakeCommon(data);
    }
}

} // namespace

void Read(const Drawing& drawing, const EntityRecord& record, SplineData& data)
{
    Reset(data);
    EntityTags tags(drawing.Tags(), record);
    bool inHelix = false;
    while (tags.Next()) {
        // HELIX: the curve comes first, its own axis and radius after the marker.
        inHelix = inHelix || (tags.Code() == 100 && tags.Name() == "AcDbHelix");
        if (inHelix || TakePoint(tags, 10, data.controlPoints) || TakePoint(tags, 11, data.fitPoints))
            continue;
        if (!TakeTangent(tags, 12, data.startTangent) && !TakeTangent(tags, 13, data.endTangent))
            TakeSplineTag(tags, data);
    }
}

} // namespace sm::drawing
