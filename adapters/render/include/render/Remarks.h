// SPDX-License-Identifier: GPL-3.0-or-later
// Remarks that tell of content which a page lacks; others tell of what was drawn in another way.
#pragma once

#include <string_view>

namespace sm::render {

inline constexpr const char* kTooManyEntities = "blocks unfold to too many entities, the rest left out";
inline constexpr const char* kTooMuchWork = "entities unfold to more lines than a sheet can hold, the rest left out";

/// How the remark on characters that no font has begins; the name of their block follows.
inline constexpr std::string_view kMissingCharacters = "no font has these characters, drawn as boxes: ";

} // namespace sm::render
