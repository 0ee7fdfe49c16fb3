// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the faces of entities for a view that hides lines.
#pragma once

#include "context/PaintOptions.h"
#include "drawing/entities/Entity.h"
#include "hidden/HidingFaces.h"
#include "ink/Camera.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace sm::render {

class FaceCollector {
public:
    /// Adds to `faces`, as `camera` sees them. Both outlive it.
    FaceCollector(HidingFaces& faces, const Camera& camera) : m_faces(faces), m_camera(camera) {}

    /// The frame of the entity whose faces follow, and what of the page they may lie on; nothing: all.
    void Enter(const Projection& toPaper, const std::optional<Box2>& window);
    /// One face by its loops, in the coordinates of the block. `slack` in its units, as for HidingFaces.
    void Add(const std::vector<std::vector<Vec3>>& loops, double slack = 0);
    void Add(std::span<const Vec3> corners, double slack = 0);
    /// The wall that a line makes which is drawn out along `across`; nothing for a length of 0.
    void AddWall(std::span<const Vec3> line, bool closed, Vec3 across, double slack = 0);
    /// Faces of a form that hides nothing here.
    void NoteOthers(std::uint64_t count) { m_others += count; }
    [[nodiscard]] std::uint64_t Others() const { return m_others; }

private:
    HidingFaces& m_faces;
    const Camera& m_camera;
    Projection m_toPaper;
    std::optional<Box2> m_window;
    std::uint64_t m_others = 0;
};

/// A line in the plane of an object coordinate system, curves as chords.
struct FlatLine {
    std::vector<Vec2> points;
    double slack = 0; ///< how far chords stray from their curves
    void Add(Vec2 center, double radius, double from, double sweep);
    void AddBulge(Vec2 from, Vec2 to, double bulge);
    /// In space, at a height along the extrusion.
    [[nodiscard]] std::vector<Vec3> InSpace(Vec3 extrusion, double elevation) const;
};

/// What a line or outline makes that has a thickness.
void AddThickness(FaceCollector& faces, const FlatLine& line, bool closed, const drawing::Entity& entity,
                  double elevation);

} // namespace sm::render
