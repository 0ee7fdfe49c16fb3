// SPDX-License-Identifier: GPL-3.0-or-later
// The lines and arcs of a drawing as one may snap to them, exactly where they were drawn.
#pragma once

#include "render/Arcs.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace sm::scene {

/// The arc of less than half a turn that a cubic Bezier curve stands for, as `render::AppendArc` draws arcs; nothing
/// for other curves. `start` is 0 and `sweep` above 0.
std::optional<render::EllipseArc> ArcOf(Vec2 p0, Vec2 p1, Vec2 p2, Vec2 p3);

struct SnapShape {
    std::uint32_t first = 0; ///< of its points, or its arc
    std::uint32_t count = 0; ///< of its points; 0 for an arc
    std::uint32_t clip = 0;  ///< as in the display list
    bool corners = false;    ///< its points between the first and the last are ends, the middles of its lines middles
    bool firstIsEnd = false, lastIsEnd = false;
    bool hasMiddle = false; ///< the arc's, or of a single line that is part of a longer one
};

class SnapShapes {
public:
    /// `circles`: curves may be arcs; `ends`: where a line ends is a point of its own.
    void Add(const render::Path& path, bool circles, bool ends, std::uint32_t clip);

    [[nodiscard]] const std::vector<SnapShape>& All() const { return m_shapes; }
    [[nodiscard]] std::span<const Vec2> PointsOf(const SnapShape& shape) const
    {
        return std::span(m_points).subspan(shape.first, shape.count);
    }
    [[nodiscard]] const render::EllipseArc& ArcAt(const SnapShape& shape) const { return m_arcs[shape.first]; }
    /// The box of everything there is to snap to on the shape, an arc's centre included.
    [[nodiscard]] Box2 BoxOf(const SnapShape& shape) const;
    [[nodiscard]] std::size_t Bytes() const;

private:
    friend class SnapShapeWriter;
    std::vector<SnapShape> m_shapes;
    std::vector<Vec2> m_points;
    std::vector<render::EllipseArc> m_arcs;
};

} // namespace sm::scene
