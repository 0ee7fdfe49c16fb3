// SPDX-License-Identifier: GPL-3.0-or-later
// Entities with faces or a body: filled corners, meshes, regions and solids.
#pragma once

#include "drawing/entities/Entity.h"

#include <array>
#include <cstdint>
#include <vector>

namespace sm::drawing {

/// SOLID, TRACE (OCS) and 3DFACE (WCS). The third and fourth corner are crossed in SOLID and TRACE, as in the file.
struct QuadData : Entity {
    std::array<Vec3, 4> corners{};
    std::int32_t invisibleEdges = 0;
};
/// MESH: its faces before any smoothing. WCS.
struct MeshData : Entity {
    std::vector<Vec3> vertices;
    std::vector<std::int32_t> faces; ///< a count, then that many positions of vertices, from 0; not checked
};
/// One edge of a solid in space.
struct SolidEdge {
    enum class Kind : std::uint8_t { Line, Arc, Spline } kind = Kind::Line;
    Vec3 start, end;            ///< Line
    Vec3 center, u, v;          ///< Arc: center + u cos t + v sin t
    double from = 0, sweep = 0; ///< radians
    std::int32_t degree = 3;    ///< Spline
    std::vector<double> knots, weights;
    std::vector<Vec3> points;
};
/// REGION, 3DSOLID, BODY and surfaces: the edges that their modeller's save holds. WCS.
struct SolidData : Entity {
    std::vector<SolidEdge> edges;
    bool complete = true; ///< false: some edges are of a form that can't be read
};

void Read(const Drawing&, const EntityRecord&, QuadData&);
void Read(const Drawing&, const EntityRecord&, MeshData&);
void Read(const Drawing&, const EntityRecord&, SolidData&);

/// The faces of a solid as far as their outlines are known. WCS.
struct SolidFaces {
    std::vector<std::vector<std::vector<Vec3>>> flat; ///< flat ones, each by the loops of its corners; arcs as chords
    std::uint64_t others = 0;                         ///< that aren't flat, or whose outline can't be read
};
SolidFaces ReadFaces(const Drawing&, const EntityRecord&);

} // namespace sm::drawing
