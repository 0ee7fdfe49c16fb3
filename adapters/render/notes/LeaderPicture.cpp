// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/DimStyles.h"
#include "drawing/entities/Dimensions.h"
#include "geometry/Nurbs.h"
#include "notes/NotePicture.h"

namespace sm::render {

namespace {

constexpr std::int32_t kTextAnnotation = 0;

/// Where the text stands above its line, the hook line runs on below it.
void ExtendBelowText(const drawing::LeaderData& leader, const drawing::DimStyle& style, const NotePicture& picture,
                     std::vector<Vec2>& points)
{
    if (leader.annotation != kTextAnnotation || style.textAbove == 0 || !(leader.textWidth > 0)) {
        return;
    }
    const Vec2 last = Unit(points.back() - points[points.size() - 2]);
    const Vec2 level = Unit(picture.ToPlane(leader.horizontal));
    constexpr double kParallel = 1e-3;
    if (leader.hook || std::abs(Cross(last, level)) < kParallel) {
        points.push_back(points.back() + last * (leader.textWidth + std::abs(style.textGap) * style.scale));
    }
}

} // namespace

void Build(const drawing::LeaderData& leader, const drawing::DimStyle& style, const NoteTools& tools,
           NotePicture& picture)
{
    if (leader.vertices.size() < 2) {
        return;
    }
    picture.SetPlane(leader.extrusion, leader.vertices.front());
    std::vector<Vec2> points;
    for (const Vec3 vertex : leader.vertices) {
        points.push_back(picture.ToPlane(vertex));
    }
    ExtendBelowText(leader, style, picture, points);
    const drawing::Entity pen = NotePen(style.dimensionColor, style.dimensionWeight);
    const double size = style.arrowSize * style.scale;
    const Vec2 first = points[1] - points[0];
    // A leader shorter than two arrows goes without one.
    if (leader.arrowHead && Length(first) > 2 * size) {
        const double cut = AddArrow(picture, tools, style.leaderArrow, points[0], first * -1, size, pen);
        points[0] = points[0] + Unit(first) * cut;
    }
    Path& path = picture.Add(pen);
    // The curve leaves its first point and meets its last one along the chords there.
    const FitTangents tangents{first, points.back() - points[points.size() - 2]};
    if (leader.spline && AppendFitCurve(path, points, tangents, false)) {
        return;
    }
    for (const Vec2 point : points) {
        path.Empty() ? path.MoveTo(point) : path.LineTo(point);
    }
}

} // namespace sm::render
