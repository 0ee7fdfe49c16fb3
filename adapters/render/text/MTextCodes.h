// SPDX-License-Identifier: GPL-3.0-or-later
// The formatting of MTEXT, read into words, breaks and stacks with their look.
#pragma once

#include "text/MTextTokens.h"

#include <string_view>

namespace sm::render {

/// Reads the text; `base` is its look before any code. Codes that aren't known are left out, their text stays.
void ParseMText(std::string_view text, const TypeStyle& base, FontLibrary& fonts, ParsedMText& out);

} // namespace sm::render
