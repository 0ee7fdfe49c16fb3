// Plan views: looking straight down, not twisted.
#pragma once

#include "drawing/Geometry.h"

namespace sm::cadhost {

/// In a plan view the host gives display coordinates as world coordinates, wherever the view's target lies.
inline bool IsPlan(drawing::Vec3 direction, double twist)
{
    return direction.x == 0 && direction.y == 0 && direction.z >= 0 && twist == 0;
}

} // namespace sm::cadhost
