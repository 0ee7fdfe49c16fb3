// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/read/ReadDwg.h"

#include "dwg/read/LateEntities.h"

namespace sm::drawing::dwg {

DwgTags ReadDwg(const FileBytes& file, const std::string& path, FindingList& findings)
{
    auto late = std::make_unique<LateEntities>(file, path, findings);
    DecodedTags tags = late->Read();
    FileBytes bytes = late->Any() ? late->Join(tags.bytes) : FileBytes::Keep(std::string(tags.bytes));
    if (!late->Any())
        late.reset();
    return {std::move(bytes), std::move(tags.structure), std::move(tags.names), std::move(late)};
}

} // namespace sm::drawing::dwg
