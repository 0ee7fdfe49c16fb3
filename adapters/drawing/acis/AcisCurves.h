// SPDX-License-Identifier: GPL-3.0-or-later
// The edges of a solid modeller's save as curves in space. For this room only.
#pragma once

#include "acis/AcisRecords.h"
#include "drawing/entities/Solids.h"

#include <functional>
#include <numbers>
#include <vector>

namespace sm::drawing {

inline constexpr double kTurn = 2 * std::numbers::pi;

/// The point whose coordinates begin at number `first`, which the caller knows to be there.
inline Vec3 PointAt(const std::vector<double>& numbers, std::size_t first)
{
    return {numbers[first], numbers[first + 1], numbers[first + 2]};
}

/// Reads the edges, and the circles that stand for whole spheres and tori, moved by the body's own map.
class AcisCurves {
public:
    explicit AcisCurves(const AcisRecords& records) : m_records(records) {}
    /// Appends to `edges`; false when one was of a form that can't be read.
    bool Append(std::vector<SolidEdge>& edges);
    /// The faces, by their loops.
    SolidFaces Faces();

private:
    struct Map {
        Vec3 x{1, 0, 0}, y{0, 1, 0}, z{0, 0, 1}, origin;
        [[nodiscard]] Vec3 Vector(Vec3 v) const { return x * v.x + y * v.y + z * v.z; }
        [[nodiscard]] Vec3 Point(Vec3 p) const { return Vector(p) + origin; }
    };
    [[nodiscard]] Map BodyMap() const;
    [[nodiscard]] bool Vertex(const AcisRecord& record, Vec3& point) const;
    bool AppendEdge(const AcisRecord& record, std::vector<SolidEdge>& edges) const;
    bool AppendLoop(const AcisRecord& loop, std::vector<Vec3>& corners, std::size_t& budget) const;
    bool AppendFlatFace(const AcisRecord& face, std::vector<std::vector<Vec3>>& loops, std::size_t& budget) const;
    bool AppendArc(const AcisRecord& curve, Vec3 from, Vec3 to, std::vector<SolidEdge>& edges) const;
    bool AppendSpline(const AcisRecord& curve, Vec3 from, Vec3 to, std::vector<SolidEdge>& edges) const;
    [[nodiscard]] bool ReadSpline(std::size_t at, SolidEdge& edge) const;
    void AppendWall(const AcisRecord& face, std::vector<SolidEdge>& edges) const;
    [[nodiscard]] std::vector<SolidEdge> CirclesOf(const AcisRecord& face) const;
    [[nodiscard]] const AcisRecord* First(const AcisRecord& record, std::string_view name) const;
    void AppendWhole(const AcisRecord& face, std::vector<SolidEdge>& edges) const;
    void AppendCircle(Vec3 center, Vec3 u, Vec3 v, std::vector<SolidEdge>& edges) const;

    const AcisRecords& m_records;
    Map m_map;
};

} // namespace sm::drawing
