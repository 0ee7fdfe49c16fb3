// SPDX-License-Identifier: GPL-3.0-or-later
// The way from the command line to the windows, which live in a program of their own: this one starts without a
// toolkit.
#pragma once

#include "machine/Install.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace sm::app {

/// Whether windows can be asked for: a display is named, or a platform of the toolkit that needs none.
bool HasScreen(const system::Environment& environment);

/// What the command line offers in place of `command`, "settings" or "page-setup"; several lines.
std::string WithoutScreen(const std::string& command);

/// Becomes the windows' program, which gets the same words. Comes back only when that can't be, with the exit code,
/// after telling why on `err`. What `out` still holds must be written before.
int BecomeWindowsProgram(const std::vector<std::string>& words, const Install& install, std::ostream& err);

} // namespace sm::app
