// SPDX-License-Identifier: GPL-3.0-or-later
// Which part of a scene a window shows, and where.
#pragma once

#include "base/Geometry.h"

namespace sm::scene {

/// Scene millimetres (y up) to pixels (y down, from the upper left corner).
struct ViewMap {
    Vec2 center;      ///< scene millimetres in the window's middle
    double scale = 1; ///< pixels for a millimetre
    int width = 1, height = 1;

    [[nodiscard]] Vec2 ToPixel(Vec2 scene) const
    {
        return {(scene.x - center.x) * scale + width / 2.0, height / 2.0 - (scene.y - center.y) * scale};
    }
    [[nodiscard]] Vec2 ToScene(Vec2 pixel) const
    {
        return {(pixel.x - width / 2.0) / scale + center.x, (height / 2.0 - pixel.y) / scale + center.y};
    }
    /// The part of the scene that shows.
    [[nodiscard]] Box2 Visible() const;
    /// Shows the whole box with a margin round it.
    void Fit(const Box2& box);
    /// The point under `pixel` stays there. `home` bounds how near and how far one may get.
    void ZoomAbout(Vec2 pixel, double factor, const Box2& home);
    void MoveBy(Vec2 pixels);
    /// The same part of the scene in more or fewer pixels.
    [[nodiscard]] ViewMap Enlarged(double factor) const;
    friend bool operator==(const ViewMap&, const ViewMap&) = default;
};

} // namespace sm::scene
