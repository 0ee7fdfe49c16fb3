// SPDX-License-Identifier: GPL-3.0-or-later
// The lines of a hatch pattern, cut to its boundary.
#pragma once

#include "drawing/entities/Hatches.h"
#include "render/Canvas.h"

#include <vector>

namespace sm::render {

/// Cuts line families to one boundary.
class HatchLines {
public:
    /// `boundary`: closed sub-paths on the sheet, filled by the even-odd rule. `visible`: lines off it may be left out.
    HatchLines(const Path& boundary, const Box2& visible);

    /// Appends the family's dashes to `out`, `plane` from the hatch's OCS plane to the sheet. Lines closer than 0.1 mm
    /// are thinned out, evenly; true when that happened.
    bool Append(const drawing::HatchLine& family, const Matrix2& plane, Path& out);
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
                 Path& out) const;
    std::vector<Edge> m_edges;
    Box2 m_box; ///< what of the boundary is visible
    std::vector<Crossing> m_crossings;
    bool m_moved = false;
};

} // namespace sm::render
