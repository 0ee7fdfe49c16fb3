// SPDX-License-Identifier: GPL-3.0-or-later
// A view in space, for what painters draw flat.
//
// Painters know where a thing lands on the sheet, not how high above it. So each entity's painter runs twice: once for
// a view that is tilted a little, whose lines are measured and not drawn, then as it is. How far a point moved between
// both tells its height. Only views that hide lines, or look from one point, or end at some depth are drawn so.
#pragma once

#include "hidden/HidingFaces.h"
#include "ink/Camera.h"
#include "render/Projection.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace sm::render {

class SpaceView {
public:
    /// `faces`: what hides; null: nothing does. `tell`: for remarks.
    SpaceView(const Camera& camera, HidingFaces* faces, std::function<void(std::string_view)> tell)
        : m_camera(camera), m_faces(faces), m_tell(std::move(tell))
    {
    }
    SpaceView(const SpaceView&) = delete;
    SpaceView& operator=(const SpaceView&) = delete;

    /// `toPaper` in the tilted view.
    static Projection Tilted(const Projection& toPaper);

    /// What is drawn during its lifetime belongs to one entity: at first it is measured, after `Draw` drawn. Entities
    /// within entities have their own.
    class Entity {
    public:
        explicit Entity(SpaceView& view);
        ~Entity();
        Entity(const Entity&) = delete;
        Entity& operator=(const Entity&) = delete;
        void Draw();

    private:
        SpaceView& m_view;
        struct Kept;
        std::unique_ptr<Kept> m_outer;
    };
    [[nodiscard]] bool Draws() const { return m_now.phase == Phase::Draw; }
    [[nodiscard]] bool Measures() const { return m_now.phase == Phase::Measure; }
    [[nodiscard]] const Camera& Eye() const { return m_camera; }

    /// Points in the order in which they are drawn.
    void Measure(std::span<const Vec2> points);
    /// What follows of the entity lies in the plane of these points, whatever is measured of it; measures or draws.
    void Survey(std::span<const Vec2> points);
    /// The points, with their heights; valid until the next call.
    std::span<const Vec3> Lift(std::span<const Vec2> points);

    /// What of a path's lines shows within `visible`. False: all of it, as it is, and `out` is left alone.
    bool CutLines(const Path& path, std::span<const std::uint32_t> breaks, const Box2& visible, Path& out,
                  std::vector<std::uint32_t>& outBreaks);
    /// What of an area shows: `out` within all of `clips`. False: nothing does. Null: faces hide nothing of it.
    bool CutArea(const Path& path, Path& out, std::vector<Path>* clips);
    /// Lifts the corners of a unit square, or of an em: the origin and the tips of both axes.
    struct Place {
        Vec3 origin, x, y;
        [[nodiscard]] Vec3 At(Vec2 p) const { return origin + x * p.x + y * p.y; }
    };
    static std::array<Vec2, 3> CornersOf(const Matrix2& m);
    Place LiftPlace(const Matrix2& m);
    /// `place` on the sheet, near its origin.
    [[nodiscard]] Matrix2 Flat(const Place& place) const;
    /// Whether the camera sees that height.
    [[nodiscard]] bool Sees(double height) const { return height <= m_camera.Front() && height >= m_camera.back; }

    void Tell(std::string_view remark) const { m_tell(remark); }

private:
    enum class Phase : std::uint8_t { None, Measure, Draw };
    struct Op {
        std::size_t first = 0, count = 0; ///< of the tilted x
    };
    struct Now { ///< of the entity at hand
        Phase phase = Phase::None;
        std::vector<double> tilted; ///< x in the tilted view
        std::vector<Op> ops;
        std::size_t next = 0;            ///< of the ops that are drawn
        double height = 0;               ///< of the point lifted last
        std::optional<DepthPlane> plane; ///< see Survey
    };
    [[nodiscard]] std::vector<std::vector<Vec3>> LoopsOf(const Path& path);
    void TellExhausted();

    Camera m_camera;
    HidingFaces* m_faces;
    std::function<void(std::string_view)> m_tell;
    Now m_now;
    std::vector<Vec3> m_lifted;
    bool m_toldExhausted = false;
};

/// The plane through three of the points that lie far from each other; through fewer, or upright: level at the first.
DepthPlane PlaneThrough(std::span<const Vec3> points);

/// Leaves of a flat loop what the camera sees, on the sheet.
void CutToDepth(const Camera& camera, std::vector<Vec3>& loop);

} // namespace sm::render
