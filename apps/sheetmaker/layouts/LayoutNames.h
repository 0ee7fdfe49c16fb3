// SPDX-License-Identifier: GPL-3.0-or-later
// Layouts by what the user wrote: a name, a pattern, a range, a number.
#pragma once

#include <string>
#include <vector>

namespace sm::app {

/// The layouts that one word means, in tab order. `names` are all layouts in tab order and the model's first, where
/// there is one; `models` counts those that are models (0 or 1). A name goes before all else, letter case aside; then a
/// pattern with "*" and "?"; "FIRST..LAST" by names or numbers; a number, 1 for the first sheet. Patterns, ranges and
/// numbers mean sheets alone. `error` is not empty when it means none: the end of a sentence about the drawing.
struct MeantLayouts {
    std::vector<std::string> names;
    std::string error;
};
MeantLayouts LayoutsMeantBy(const std::string& word, const std::vector<std::string>& names, std::size_t models);

/// Does a pattern with "*" and "?" fit the whole name, letter case aside?
bool FitsPattern(const std::string& name, const std::string& pattern);

} // namespace sm::app
