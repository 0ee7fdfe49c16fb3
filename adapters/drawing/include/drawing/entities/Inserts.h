// SPDX-License-Identifier: GPL-3.0-or-later
// INSERT: copies of a block, with their attributes and their clip.
#pragma once

#include "drawing/entities/Entity.h"

#include <string>
#include <vector>

namespace sm::drawing {

struct InsertData : Entity { // OCS
    std::uint32_t block = 0; ///< index into the blocks; kNoBlock when missing
    std::string blockName;
    Vec3 insertion;
    Vec3 scale{1, 1, 1};
    double rotation = 0;
    std::int32_t columns = 1, rows = 1; ///< at least 1; at most a million altogether
    double columnSpacing = 0, rowSpacing = 0;
    std::vector<EntityRecord> attributes; ///< its ATTRIBs
};
void Read(const Drawing&, const EntityRecord&, InsertData&);

/// The boundary that clips an insert's block (its extension dictionary's spatial filter), in the block's coordinates;
/// false, and `boundary` not to be used, when nothing is clipped.
bool ReadInsertClip(const Drawing&, const EntityRecord&, std::vector<Vec3>& boundary);

} // namespace sm::drawing
