// SPDX-License-Identifier: GPL-3.0-or-later
// A layout of a drawing, recorded for the screen.
#pragma once

#include "render/Matrix.h"
#include "scene/DisplayList.h"
#include "scene/SnapIndex.h"

#include <atomic>
#include <cstddef>
#include <memory>
#include <optional>

namespace sm::drawing {
class Drawing;
} // namespace sm::drawing

namespace sm::render {
class References;
class TextEngine;
} // namespace sm::render

namespace sm::scene {

/// Drawing units of a layout to millimetres of its scene and back. In a view from the side, a point of the scene stands
/// for the one in the plane z = 0 that is seen there.
class SceneMap {
public:
    SceneMap() = default;
    /// `middle` becomes the scene's origin, in the display plane of `view`.
    SceneMap(const render::Matrix3& view, double scale, Vec2 middle) : m_view(view), m_scale(scale), m_middle(middle) {}
    [[nodiscard]] Vec2 ToScene(Vec2 point) const;
    [[nodiscard]] Vec2 ToDrawing(Vec2 scene) const;
    [[nodiscard]] double Scale() const { return m_scale; } ///< millimetres of the scene for a drawing unit
    [[nodiscard]] const render::Matrix3& View() const { return m_view; }
    [[nodiscard]] Matrix2 ToPaper() const
    {
        return {m_scale, 0, 0, m_scale, -m_middle.x * m_scale, -m_middle.y * m_scale};
    }

private:
    render::Matrix3 m_view;
    double m_scale = 1;
    Vec2 m_middle;
};

struct LayoutPicture {
    DisplayList list;
    SnapIndex snaps;
    SceneMap map;
    std::optional<Box2> paper, printable; ///< scene millimetres; paper layouts only
    Box2 home;                            ///< what is shown first, scene millimetres; never empty
    int decimals = 4;                     ///< of coordinates shown
};

/// Draws the layout once. Null when `stop` became true meanwhile. Throws what a damaged drawing makes the renderer
/// throw.
std::unique_ptr<LayoutPicture> RecordLayout(const drawing::Drawing& drawing, std::size_t layout,
                                            render::TextEngine& text, render::References& references,
                                            const std::atomic<bool>& stop);

} // namespace sm::scene
