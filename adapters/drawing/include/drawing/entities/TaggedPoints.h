// SPDX-License-Identifier: GPL-3.0-or-later
// What is known of the place and size of entities that have no reader of their own.
#pragma once

#include "base/Geometry.h"
#include "drawing/EntityRecord.h"

#include <vector>

namespace sm::drawing {

/// A point among an entity's own tags: its x stands in group `code` (10 to 18), y and z in those 10 and 20 above.
struct TaggedPoint {
    int code = 10;
    Vec3 point;
};
/// Fills `points` (cleared first) with all of them in file order, whatever they mean: also directions and sizes. For
/// the kinds that have no reader of their own.
void ReadPoints(const Drawing&, const EntityRecord&, std::vector<TaggedPoint>& points);
/// Width and height of an ACAD_TABLE: the sums of its columns (group 142) and rows (141).
Vec2 ReadTableSize(const Drawing&, const EntityRecord&);

} // namespace sm::drawing
