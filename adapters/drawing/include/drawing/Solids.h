// Entities with a body or a shape of their own: regions and solids, meshes, shapes of shape files.
#pragma once

#include "drawing/Entities.h"

namespace sm::drawing {

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
/// SHAPE. OCS. Which shape file holds it, the entity doesn't say.
struct ShapeData : Entity {
    Vec3 insertion;
    std::string name;
    double size = 1, rotation = 0, widthFactor = 1, oblique = 0;
};

void Read(const Drawing&, const EntityRecord&, ShapeData&);
void Read(const Drawing&, const EntityRecord&, MeshData&);
void Read(const Drawing&, const EntityRecord&, SolidData&);

} // namespace sm::drawing
