// SPDX-License-Identifier: GPL-3.0-or-later
// Views that look straight down.
#pragma once

#include "base/Geometry.h"

namespace sm::drawing {

/// True for a view along -z, the plan of the drawing; whether it is twisted is another question. `direction` runs from
/// the target to the viewer (DXF reference, VPORT and VIEWPORT group 16); one of no length counts as the default,
/// (0, 0, 1).
inline bool IsPlanView(Vec3 direction)
{
    return direction.x == 0 && direction.y == 0 && direction.z >= 0;
}

} // namespace sm::drawing
