// SPDX-License-Identifier: GPL-3.0-or-later
// What a character is called by its block (the ranges of the Unicode standard).
#pragma once

#include <string_view>

namespace sm::render {

/// "Hebrew"; "other characters" for what the table lacks.
std::string_view CharacterBlock(char32_t character);

} // namespace sm::render
