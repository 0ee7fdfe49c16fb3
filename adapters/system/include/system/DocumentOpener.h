// SPDX-License-Identifier: GPL-3.0-or-later
// Opens files and web addresses with the program that the user's desktop keeps for them.
#pragma once

#include "system/Environment.h"

#include <string>

namespace sm::system {

/// Starts "xdg-open", detached and silent, when it is installed and there is a display to open on; false otherwise.
/// Doesn't wait for it.
bool OpenOnDesktop(const Environment& environment, const std::string& pathOrAddress);

/// The same, and looks for a moment whether the program gives up at once, as it does where nothing on the desktop can
/// show `pathOrAddress`: false then, too.
bool OpenAndSee(const Environment& environment, const std::string& pathOrAddress);

} // namespace sm::system
