// SPDX-License-Identifier: GPL-3.0-or-later
// LWPOLYLINE and POLYLINE: lines of vertices, meshes and polyfaces.
#pragma once

#include "drawing/entities/Entity.h"

#include <array>
#include <vector>

namespace sm::drawing {

/// Bit of `flags`: the vertex is a control point of the frame that a curve or surface was fitted to.
inline constexpr std::uint8_t kFrameVertex = 16;

struct PolyVertex {
    Vec3 point;
    double bulge = 0, startWidth = 0, endWidth = 0;
    std::uint8_t flags = 0;             ///< group 70 of VERTEX
    std::array<std::int32_t, 4> face{}; ///< 71 to 74 of a polyface's face record, 1-based, negative: edge hidden
};
/// LWPOLYLINE, and POLYLINE with its vertices.
struct PolylineData : Entity {
    std::vector<PolyVertex> vertices;
    bool closed = false;
    bool is3d = false, isMesh = false, isPolyface = false; ///< WCS when any is set, OCS else
    bool plinegen = false;                                 ///< line type runs on over the vertices
    double constantWidth = 0;
    double defaultStartWidth = 0, defaultEndWidth = 0;
    std::int32_t curveType = 0;                     ///< 75: 5 quadratic, 6 cubic B-spline, 8 Bezier
    bool splineFitted = false, curveFitted = false; ///< 70 bits 4, 2: frame points aren't drawn
    std::int32_t meshM = 0, meshN = 0;              ///< bounded by the vertices found
    bool meshClosedM = false, meshClosedN = false;
};

void Read(const Drawing&, const EntityRecord&, PolylineData&);

} // namespace sm::drawing
