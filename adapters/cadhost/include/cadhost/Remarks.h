// SPDX-License-Identifier: GPL-3.0-or-later
// Parts of the host's remarks by which they are known again.
#pragma once

namespace sm::cadhost {

/// Begins the remark on a plot style table that isn't there; its name in quotes follows.
inline constexpr const char* kNoStyleTable = "plot style table \"";
/// Begins the remark on one that can't be read; the reason follows.
inline constexpr const char* kWithoutStyles = "plotted without plot styles: ";
/// Behind a layout's name: its page shows nothing; the reason follows.
inline constexpr const char* kBlankPage = "\" is blank: ";
/// Behind a layout's name and its sheet's size: the paper is smaller; its size follows.
inline constexpr const char* kCutSheet = " is cut off at the paper of ";

} // namespace sm::cadhost
