// SPDX-License-Identifier: GPL-3.0-or-later
// What a text along an arc is cut into.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sm::render {

/// What is turned as one: a character with its marks, or a word of a script whose characters join.
struct ArcLetter {
    std::string codes; ///< of the lines at it
    std::string text;  ///< UTF-8
    double width = 0;  ///< drawing units; measured by whoever draws it
};

/// Cuts a line with codes into letters, in the order in which they are seen from left to right. Throws
/// std::runtime_error where the text runs both ways and the library for that isn't installed.
std::vector<ArcLetter> CutIntoLetters(std::string_view line, bool underlined);

} // namespace sm::render
