// SPDX-License-Identifier: GPL-3.0-or-later
// Points of an entity's own system in the world.
#pragma once

#include "base/Geometry.h"

namespace sm::cadhost {

/// The arbitrary axis algorithm (DXF reference, object coordinate systems). An extrusion without length is (0, 0, 1).
Vec3 WorldPoint(Vec3 own, Vec3 extrusion);

} // namespace sm::cadhost
