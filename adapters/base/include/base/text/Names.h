// SPDX-License-Identifier: GPL-3.0-or-later
// Names as they are compared: letter case aside, and however their accents are spelled.
#pragma once

#include <string>
#include <string_view>

namespace sm::base {

/// The form in which names are compared: letters one by one in the form that Unicode's simple case folding gives them
/// (ASCII: small), accents joined with their letters. No locale has a say: "I" folds to "i" everywhere, and "İ" and "ı"
/// stay. "ß" and "ss" stay two names. Bytes that aren't UTF-8 stay, and the accents of such a text stay as they are.
std::string FoldCase(std::string_view utf8);

/// Do both names fold to the same?
bool SameName(std::string_view left, std::string_view right);

} // namespace sm::base
