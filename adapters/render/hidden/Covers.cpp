// SPDX-License-Identifier: GPL-3.0-or-later
// What faces leave of an area.
#include "hidden/HidingFaces.h"

#include "geometry/KeepWhere.h"
#include "render/ClipArea.h"
#include "render/Projection.h"

#include <algorithm>

namespace sm::render {

namespace {

constexpr std::size_t kMostCovers = 3000, kMostClips = 60; // faces before one area, and clips within each other

/// True when no point of the part lies in an outline of few corners that is convex; false is always right.
bool LiesBeside(const Path& part, const Path& outline)
{
    constexpr std::size_t kFew = 8;
    const std::vector<Vec2>& corners = outline.points;
    const std::size_t count = corners.size();
    for (std::size_t i = 0; i < count && count <= kFew; ++i) {
        const Vec2 a = corners[i];
        const Vec2 along = corners[(i + 1) % count] - a;
        const auto side = [&](Vec2 p) { return Cross(along, p - a); };
        const auto left = [&](Vec2 p) { return side(p) >= 0; };
        const auto right = [&](Vec2 p) { return side(p) <= 0; };
        const auto& points = part.points;
        if ((std::all_of(corners.begin(), corners.end(), left) && std::all_of(points.begin(), points.end(), right)) ||
            (std::all_of(corners.begin(), corners.end(), right) && std::all_of(points.begin(), points.end(), left))) {
            return true;
        }
    }
    return false;
}

/// Puts each part into the first clip where no box overlaps its own: by the even-odd rule what lay in two would show.
void AddToClips(const Path& part, const Box2& area, std::vector<Path>& clips, std::vector<std::vector<Box2>>& boxes)
{
    const Box2 box = HullOf(part);
    std::size_t clip = 0;
    while (clip < clips.size() && std::any_of(boxes[clip].begin(), boxes[clip].end(),
                                              [&](const Box2& other) { return Overlaps(other, box); })) {
        ++clip;
    }
    if (clip == clips.size()) {
        AppendBox(clips.emplace_back(), area);
        boxes.emplace_back();
    }
    Path& path = clips[clip];
    path.verbs.insert(path.verbs.end(), part.verbs.begin(), part.verbs.end());
    path.points.insert(path.points.end(), part.points.begin(), part.points.end());
    boxes[clip].push_back(box);
}

} // namespace

// The part of the face that lies above the plane, as seen from the eye.
void HidingFaces::AppendPartAbove(const Face& face, const DepthPlane& plane, Path& part) const
{
    const Vec3 n = face.normal;
    const auto above = [&](Vec2 p) {
        return (face.offset - n.x * p.x - n.y * p.y) / n.z - plane.At(p) - face.slack / n.z;
    };
    for (std::uint32_t l = face.firstLoop; l < face.firstLoop + face.loops; ++l) {
        const auto first = m_corners.begin() + m_loops[l].first;
        std::vector<Vec2> loop(first, first + m_loops[l].count);
        if (!std::any_of(loop.begin(), loop.end(), [&](Vec2 p) { return above(p) > m_tolerance; })) {
            continue;
        }
        KeepWhere(loop, above);
        for (std::size_t i = 0; i < loop.size(); ++i) {
            i == 0 ? part.MoveTo(loop[i]) : part.LineTo(loop[i]);
        }
        if (!loop.empty()) {
            part.Close();
        }
    }
}

// Nothing of the outline shows, nor of the lines from its first corner to the others.
bool HidingFaces::HidesAll(const Path& outline, const DepthPlane& plane)
{
    std::vector<LinePart> visible;
    const auto& points = outline.points;
    const auto hides = [&](Vec2 a, Vec2 b) {
        FindVisible({a.x, a.y, plane.At(a)}, {b.x, b.y, plane.At(b)}, visible);
        return visible.empty();
    };
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (!hides(points[i], points[(i + 1) % points.size()]) || (i > 1 && !hides(points[0], points[i]))) {
            return false;
        }
    }
    return true;
}

Cover HidingFaces::CoverOf(const Path& outline, const DepthPlane& plane)
{
    Cover cover;
    const Box2 area = HullOf(outline);
    if (outline.points.empty() || Exhausted()) {
        return cover;
    }
    double low = plane.At(outline.points[0]);
    for (const Vec2 p : outline.points) {
        low = std::min(low, plane.At(p));
    }
    std::vector<std::vector<Box2>> boxes;
    std::size_t count = 0;
    const Box2 margin = Grown(area, 1);
    const auto near = [&](const Box2& box) { return Overlaps(box, area); };
    m_tree.ForEach(low, near, [&](std::uint32_t face) {
        Pay(m_faces[face].corners);
        Path above, part;
        AppendPartAbove(m_faces[face], plane, above);
        AppendClippedArea(above, margin, part);
        if (!part.Empty() && Overlaps(HullOf(part), area) && !LiesBeside(part, outline)) {
            Pay(count); // about as many boxes are looked at
            cover.tooMany = ++count > kMostCovers || cover.clips.size() > kMostClips;
            AddToClips(part, Grown(margin, 1), cover.clips, boxes);
        }
        return !cover.tooMany && !Exhausted();
    });
    cover.whole = !cover.clips.empty() && HidesAll(outline, plane);
    if (Exhausted()) {
        cover = {};
    }
    return cover;
}

} // namespace sm::render
