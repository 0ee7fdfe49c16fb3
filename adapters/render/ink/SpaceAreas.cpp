// SPDX-License-Identifier: GPL-3.0-or-later
// Areas of a view in space: cut where the view ends, carried to the sheet, and clipped where faces lie before them.
#include "geometry/KeepWhere.h"
#include "ink/SpaceView.h"

#include <algorithm>

namespace sm::render {

void CutToDepth(const Camera& camera, std::vector<Vec3>& loop)
{
    if (camera.LimitsDepth()) {
        KeepWhere(loop, [&](Vec3 p) { return camera.Front() - p.z; });
        KeepWhere(loop, [&](Vec3 p) { return p.z - camera.back; });
    }
    for (Vec3& p : loop) {
        p = camera.Apply(p);
    }
}

// The corners of each sub-path in space, curves as chords.
std::vector<std::vector<Vec3>> SpaceView::LoopsOf(const Path& path)
{
    const std::span<const Vec3> points = Lift(path.points);
    std::vector<std::vector<Vec3>> loops;
    std::size_t next = 0;
    for (const Verb verb : path.verbs) {
        if (verb == Verb::Move || (loops.empty() && verb != Verb::Close)) {
            loops.emplace_back();
        }
        if (verb == Verb::Move || verb == Verb::Line) {
            loops.back().push_back(points[next++]);
        } else if (verb == Verb::Cubic) {
            constexpr int kChords = 12;
            const Vec3 a = loops.back().empty() ? points[next] : loops.back().back();
            for (int i = 1; i <= kChords; ++i) {
                const double t = static_cast<double>(i) / kChords;
                const double s = 1 - t;
                loops.back().push_back(a * (s * s * s) + points[next] * (3 * s * s * t) +
                                       points[next + 1] * (3 * s * t * t) + points[next + 2] * (t * t * t));
            }
            next += 3;
        }
    }
    return loops;
}

bool SpaceView::CutArea(const Path& path, Path& out, std::vector<Path>* clips)
{
    std::vector<std::vector<Vec3>> loops = LoopsOf(path);
    std::vector<Vec3> corners;
    out.Clear();
    Path outline;
    for (std::vector<Vec3>& loop : loops) {
        CutToDepth(m_camera, loop);
        for (std::size_t i = 0; i < loop.size(); ++i) {
            const Vec2 at{loop[i].x, loop[i].y};
            i == 0 ? outline.MoveTo(at) : outline.LineTo(at);
        }
        if (!loop.empty()) {
            outline.Close();
        }
        corners.insert(corners.end(), loop.begin(), loop.end());
    }
    if (corners.empty()) {
        return path.points.empty();
    }
    bool shows = true;
    if (m_faces != nullptr && clips != nullptr) {
        Cover cover = m_faces->CoverOf(outline, PlaneThrough(corners));
        TellExhausted();
        if (cover.tooMany && !cover.whole) {
            Tell("an area or text behind too many faces drawn whole");
        } else {
            *clips = std::move(cover.clips);
        }
        shows = !cover.whole;
    }
    if (m_camera.LimitsDepth()) {
        out = std::move(outline);
    } else {
        out = path;
    }
    return shows;
}

} // namespace sm::render
