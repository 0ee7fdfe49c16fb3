// SPDX-License-Identifier: GPL-3.0-or-later
#include "context/Walk.h"

namespace sm::render {

SpaceLook LookOf(const drawing::ViewDepth& depth, Vec3 direction, double scale, Vec2 axis, bool hidesLines)
{
    SpaceLook look;
    look.hidesLines = hidesLines;
    Camera& camera = look.camera;
    camera.axis = axis;
    camera.distance = Length(direction) * scale;
    camera.perspective = depth.Perspective() && camera.distance > 0 && std::isfinite(camera.distance);
    if (depth.EndsInFront()) {
        camera.front = depth.front * scale;
    }
    if (depth.EndsBehind()) {
        camera.back = depth.back * scale;
    }
    return look;
}

} // namespace sm::render
