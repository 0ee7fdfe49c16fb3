// A DWG from R13 on as typed tags. For this room only.
#pragma once

#include "dwg/TagSink.h"
#include "tags/FindingList.h"

namespace sm::drawing::dwg {

/// `file` is the whole file; `path` names it in messages. What is lost is counted in `findings`. Throws DrawingError
/// when nothing can be read of it.
DecodedTags ReadDwg(std::string_view file, const std::string& path, FindingList& findings);

} // namespace sm::drawing::dwg
