// SPDX-License-Identifier: GPL-3.0-or-later
// The faces of a view, and what they leave of its lines and areas.
//
// Coordinates are those of the sheet: x and y in millimetres on it, z above it towards the eye, as a view's camera
// makes them. Rays to the eye are upright there in every view, straight lines are straight and flat faces flat.
#pragma once

#include "hidden/FaceTree.h"
#include "render/Canvas.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

namespace sm::render {

/// A part of a line from one parameter to another; 0 its beginning, 1 its end.
struct LinePart {
    double from = 0, to = 1;
    friend bool operator==(const LinePart&, const LinePart&) = default;
};

/// A plane that isn't upright: z = x * p.x + y * p.y + height.
struct DepthPlane {
    double x = 0, y = 0, height = 0;
    [[nodiscard]] double At(Vec2 p) const { return x * p.x + y * p.y + height; }
};

/// What faces leave of an area.
struct Cover {
    bool whole = false;   ///< nothing shows
    bool tooMany = false; ///< more faces lie before it than clips can leave out: it is to be drawn whole
    /// Each by the even-odd rule: what shows lies within all of them.
    std::vector<Path> clips;
};

/// Lines on a face, its own edges and those of faces that it touches lie within `tolerance` of it and stay.
class HidingFaces {
public:
    /// `looks`: how many looks at an edge may still be taken, shared by all views of a run; outlives this.
    HidingFaces(double tolerance, std::uint64_t& looks) : m_tolerance(tolerance), m_looks(looks) {}

    /// A face by the loops of its corners, the even-odd rule says what lies inside; one loop that isn't flat is taken
    /// for triangles round its first corner. Faces seen from their edge, and such without an area, hide nothing.
    /// `slack`: how far the face may stray from what it stands for, in mm.
    void Add(const std::vector<std::vector<Vec3>>& loops, double slack = 0);
    /// Once all faces are there, before anything is asked.
    void Seal();
    [[nodiscard]] bool Empty() const { return m_faces.empty(); }

    /// Replaces `visible` by the parts of the line from `a` to `b` that show, in order.
    void FindVisible(Vec3 a, Vec3 b, std::vector<LinePart>& visible);
    /// What shows of an area within `outline` (lines alone) on `plane`.
    Cover CoverOf(const Path& outline, const DepthPlane& plane);

    /// True once no looks are left: all shows from there on.
    [[nodiscard]] bool Exhausted() const { return m_looks == 0; }

private:
    struct Face {
        Vec3 normal; ///< of length 1, z above 0
        double offset = 0, slack = 0;
        std::uint32_t firstLoop = 0, loops = 0;
        std::uint32_t corners = 0; ///< of all loops
    };
    struct Loop {
        std::uint32_t first = 0, count = 0;
    };
    void AddFlat(std::span<const std::vector<Vec3>> loops, Vec3 normal, double slack);
    [[nodiscard]] double StrayOf(const std::vector<std::vector<Vec3>>& loops, Vec3 normal) const;
    template <class Look> void ForEachEdge(const Face& face, const Look& look) const
    {
        for (std::uint32_t l = face.firstLoop; l < face.firstLoop + face.loops; ++l) {
            const Loop loop = m_loops[l];
            for (std::uint32_t i = 0; i < loop.count; ++i) {
                look(m_corners[loop.first + i], m_corners[loop.first + (i + 1) % loop.count]);
            }
        }
    }
    void Hide(const Face& face, Vec3 a, Vec3 b);
    void Split(const Face& face, Vec2 a, Vec2 b);
    [[nodiscard]] bool Holds(const Face& face, Vec2 p) const;
    void AddHidden(LinePart stretch, double join);
    void Pay(std::uint64_t looks) { m_looks -= std::min(m_looks, looks); }
    void AppendPartAbove(const Face& face, const DepthPlane& plane, Path& part) const;
    bool HidesAll(const Path& outline, const DepthPlane& plane);

    double m_tolerance;
    std::vector<Face> m_faces;
    std::vector<Loop> m_loops;
    std::vector<Vec2> m_corners;
    std::vector<FaceTree::Item> m_items; ///< until they are sorted
    FaceTree m_tree;
    std::uint64_t& m_looks;
    std::vector<LinePart> m_hidden; ///< of the line at hand: in order, apart from each other
    std::vector<double> m_splits;
};

} // namespace sm::render
