// SPDX-License-Identifier: GPL-3.0-or-later
// Points of an entity's own system in the world.
#pragma once

#include "drawing/Geometry.h"

namespace sm::cadhost {

/// The arbitrary axis algorithm (DXF reference, object coordinate systems). An extrusion without length is (0, 0, 1).
drawing::Vec3 WorldPoint(drawing::Vec3 own, drawing::Vec3 extrusion);

} // namespace sm::cadhost
