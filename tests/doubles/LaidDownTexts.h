// SPDX-License-Identifier: GPL-3.0-or-later
// The check that every laid-down log line and message of a room is really produced by its tests.
#pragma once

#include <string>
#include <vector>

namespace sm {

/// A text as it is laid down: whole, or what stands before and after a value.
struct LaidDownText {
    std::string beginning;
    bool whole = true;
    std::string ending = {};
};

/// Registers the table; when a program has run its tests with no filter, or one that only leaves tests out,
/// each text must be among those produced.
/// Returns true, so that a table can register itself by initialising a constant.
bool RequireLaidDownTexts(std::vector<LaidDownText> texts);

} // namespace sm
