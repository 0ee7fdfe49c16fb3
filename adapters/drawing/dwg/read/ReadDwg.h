// SPDX-License-Identifier: GPL-3.0-or-later
// A DWG from R13 on as typed tags. For this room only.
#pragma once

#include "dwg/TagSink.h"
#include "tags/FileBytes.h"
#include "tags/FindingList.h"
#include "tags/Source.h"

namespace sm::drawing::dwg {

struct DwgTags {
    FileBytes bytes;
    Structure structure;
    std::deque<std::string> names;  ///< that `structure` refers to
    std::unique_ptr<LateTags> late; ///< the entities that are decoded when they are asked for; null when none are
};

/// `file` is the whole file, which is kept while entities wait; `path` names it in messages. What is lost is counted in
/// `findings`. Throws DrawingError when nothing can be read of it.
DwgTags ReadDwg(const FileBytes& file, const std::string& path, FindingList& findings);

} // namespace sm::drawing::dwg
