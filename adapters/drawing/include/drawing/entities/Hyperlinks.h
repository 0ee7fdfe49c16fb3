// SPDX-License-Identifier: GPL-3.0-or-later
// The hyperlinks that entities carry.
#pragma once

#include "drawing/EntityRecord.h"

#include <string>
#include <vector>

namespace sm::drawing {

/// One hyperlink of an entity: extended data of application "PE_URL", of the entity itself or of its text's fields.
struct Hyperlink {
    std::string url, description, subLocation;
};
/// Fills `links` (cleared first) with the entity's hyperlinks, in file order: its own, or else those of the FIELD
/// objects in its extension dictionary.
void ReadHyperlinks(const Drawing&, const EntityRecord&, std::vector<Hyperlink>& links);

} // namespace sm::drawing
