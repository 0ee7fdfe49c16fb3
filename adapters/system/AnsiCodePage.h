// SPDX-License-Identifier: GPL-3.0-or-later
// The ANSI code page of western Windows (1252), which text in drawings and stamps is measured by.
#pragma once

#include <cstdint>

namespace sm::system {

/// Code of the character; 63 ("?") when the page has none for it. Unicode's best fit table for code page 1252, without
/// the look-alikes.
std::int32_t Ansi1252Code(char32_t character);

} // namespace sm::system
