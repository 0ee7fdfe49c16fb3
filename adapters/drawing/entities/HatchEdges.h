// SPDX-License-Identifier: GPL-3.0-or-later
// The edges of a hatch's boundary paths.
#pragma once

#include "drawing/entities/Hatches.h"
#include "entities/EntityTags.h"

namespace sm::drawing {

/// Empties `edge` and makes it one of that type (DXF reference, HATCH boundary path data, group 72).
void StartHatchEdge(HatchEdge& edge, std::int32_t type);

/// Takes a tag that follows the edge's type.
void TakeHatchEdgeTag(const EntityTags& tags, HatchEdge& edge);

} // namespace sm::drawing
