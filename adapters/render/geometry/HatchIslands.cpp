// SPDX-License-Identifier: GPL-3.0-or-later
#include "geometry/HatchBoundary.h"
#include "render/ClipBox.h"

#include <algorithm>

namespace sm::render {

namespace {

constexpr std::int32_t kTextBox = 8;

bool IsTextBox(const drawing::HatchPath& boundary)
{
    return (boundary.flags & kTextBox) != 0;
}

void Append(Path& path, const Path& piece)
{
    path.verbs.insert(path.verbs.end(), piece.verbs.begin(), piece.verbs.end());
    path.points.insert(path.points.end(), piece.points.begin(), piece.points.end());
}

bool Inside(Vec2 p, const std::vector<Vec2>& polygon)
{
    bool inside = false;
    for (std::size_t i = 0, j = polygon.size() - 1; i < polygon.size(); j = i++) {
        const Vec2 a = polygon[i];
        const Vec2 b = polygon[j];
        if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x) {
            inside = !inside;
        }
    }
    return inside;
}

} // namespace

std::vector<int> NestingDepths(const std::vector<std::vector<Vec2>>& polygons)
{
    std::vector<int> depths(polygons.size(), 0);
    constexpr std::size_t kMost = 500;
    if (polygons.size() > kMost) {
        return depths;
    }
    std::vector<Box2> boxes;
    for (const auto& polygon : polygons) {
        Box2 box;
        for (const Vec2 p : polygon) {
            box.Add(p);
        }
        boxes.push_back(box);
    }
    for (std::size_t i = 0; i < polygons.size(); ++i) {
        if (polygons[i].size() < 2) {
            continue;
        }
        const Vec2 sample = (polygons[i][0] + polygons[i][1]) * 0.5;
        for (std::size_t j = 0; j < polygons.size(); ++j) {
            const bool candidate = j != i && Contains(boxes[j], boxes[i]) && !(boxes[j] == boxes[i] && j > i);
            if (candidate && Inside(sample, polygons[j])) {
                ++depths[i];
            }
        }
    }
    return depths;
}

std::vector<Path> ClipsRoundTexts(const drawing::HatchData& hatch, const Matrix2& plane, const Box2& area)
{
    constexpr std::size_t kMost = 64; // clips that lie within each other
    std::vector<std::vector<Box2>> taken;
    std::vector<Path> clips;
    for (const drawing::HatchPath& boundary : hatch.paths) {
        Path box;
        if (IsTextBox(boundary)) {
            AppendHatchPath(box, boundary, plane);
        }
        const Box2 hull = HullOf(box);
        if (box.Empty() || !Overlaps(hull, area)) {
            continue;
        }
        std::size_t at = 0;
        const auto overlaps = [&](const Box2& other) { return Overlaps(hull, other); };
        while (at < taken.size() && std::any_of(taken[at].begin(), taken[at].end(), overlaps)) {
            ++at;
        }
        if (at == kMost) {
            break;
        }
        if (at == taken.size()) {
            taken.emplace_back();
            AppendBox(clips.emplace_back(), Grown(area, 1));
        }
        taken[at].push_back(hull);
        Append(clips[at], box);
    }
    return clips;
}

Path FilledBoundary(const drawing::HatchData& hatch, const Matrix2& plane)
{
    constexpr std::int32_t kOutermost = 1;
    constexpr std::int32_t kWholeArea = 2;
    std::vector<Path> paths;
    std::vector<std::vector<Vec2>> polygons;
    Path all;
    const bool asWritten = hatch.style != kOutermost && hatch.style != kWholeArea;
    for (const drawing::HatchPath& boundary : hatch.paths) {
        Path path;
        if (!IsTextBox(boundary)) {
            AppendHatchPath(path, boundary, plane);
        }
        if (path.Empty()) {
            continue;
        }
        Append(all, path);
        paths.push_back(std::move(path));
    }
    if (asWritten || paths.size() < 2) {
        return all;
    }
    for (const Path& path : paths) {
        polygons.push_back(PolygonsOf(path).front());
    }
    const std::vector<int> depths = NestingDepths(polygons);
    const int deepest = hatch.style == kWholeArea ? 0 : 1;
    Path chosen;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        if (depths[i] <= deepest) {
            Append(chosen, paths[i]);
        }
    }
    return chosen;
}

} // namespace sm::render
