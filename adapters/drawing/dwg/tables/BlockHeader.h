// SPDX-License-Identifier: GPL-3.0-or-later
// A block's record, and the entry of BLOCKS that goes with it. For this room only.
#pragma once

#include "dwg/objects/Object.h"

#include <vector>

namespace sm::drawing::dwg {

struct BlockHeader {
    Handle handle = 0, owner = 0, layout = 0, extension = 0;
    std::string xrefPath;
    Vec3 base;
    bool anonymous = false, hasAttributes = false, isReference = false, isOverlay = false, dependent = false;
    std::int32_t units = 0;
    std::vector<Handle> entities; ///< from R2004 on
    Handle first = 0, last = 0;   ///< up to R2000: the ends of the chain
};

/// `object` is open on it.
BlockHeader ReadBlockHeader(Object& object);
/// The entry of TABLES; `object` is still open on the record.
void WriteBlockRecord(Object& object, const BlockHeader& header);
/// The entry of BLOCKS, without entities.
void WriteBlock(TagSink& sink, const Names& names, const BlockHeader& header);

} // namespace sm::drawing::dwg
