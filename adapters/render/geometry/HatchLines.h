// SPDX-License-Identifier: GPL-3.0-or-later
// The lines of a hatch pattern, cut to its boundary.
#pragma once

#include "drawing/entities/Hatches.h"
#include "render/Canvas.h"

#include <vector>

namespace sm::render {

/// What families of lines leave of an area.
struct HatchStrokes {
    Path dashes; ///< lines and parts of them, which end at the boundary
    Path dots;   ///< shorter than the pen is wide: without ends that reach beyond them they would lie across
};

/// Cuts line families to one boundary.
class HatchLines {
public:
    /// `boundary`: closed sub-paths on the sheet, filled by the even-odd rule. `visible`: lines off it may be left out.
    /// `penWidth`: mm; shorter dashes count as dots.
    HatchLines(const Path& boundary, const Box2& visible, double penWidth = 0);

    /// Appends the family's dashes and dots to `out`, `plane` from the hatch's OCS plane to the sheet. Lines closer
    /// than 0.1 mm are thinned out, evenly; true when that happened.
    bool Append(const drawing::HatchLine& family, const Matrix2& plane, HatchStrokes& out);
    /// Some family began too far off to be counted from there, and was drawn from the middle of the area.
    [[nodiscard]] bool Moved() const { return m_moved; }

private:
    struct Edge {
        Vec2 a, b;
    };
    struct Crossing {
        double line = 0, at = 0;
    };
    struct Family {
        Vec2 base, along, offset; ///< `along` has length 1
        double spacing = 0;       ///< signed distance of neighbouring lines
        double unit = 1;          ///< mm for one pattern unit along the lines
    };
    [[nodiscard]] double LineAt(const Family& family, Vec2 p) const;
    void BringNear(Family& family, double period);
    double Collect(const Family& family);
    [[nodiscard]] double Coarsening(double dashes, double period) const;
    void CutLine(const Family& family, const Crossing& from, const Crossing& to, const std::vector<double>& dashes,
                 HatchStrokes& out) const;
    std::vector<Edge> m_edges;
    Box2 m_box; ///< what of the boundary is visible
    double m_penWidth;
    std::vector<Crossing> m_crossings;
    bool m_moved = false;
};

} // namespace sm::render
