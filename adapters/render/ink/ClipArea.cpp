// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/ClipArea.h"

#include "geometry/HatchBoundary.h"
#include "geometry/KeepWhere.h"

#include <vector>

namespace sm::render {

void AppendClippedArea(const Path& path, const Box2& box, Path& out)
{
    for (std::vector<Vec2> polygon : PolygonsOf(path)) {
        KeepWithin(box, polygon);
        for (std::size_t i = 0; i < polygon.size(); ++i) {
            i == 0 ? out.MoveTo(polygon[i]) : out.LineTo(polygon[i]);
        }
        if (!polygon.empty()) {
            out.Close();
        }
    }
}

} // namespace sm::render
