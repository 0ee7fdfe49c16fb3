// SPDX-License-Identifier: GPL-3.0-or-later
// Files that the user drops on a window.
#pragma once

#include <string>
#include <vector>

#include <windows.h>

namespace sm::win32 {

/// Paths of what WM_DROPFILES brings, which is given back to the system.
std::vector<std::string> TakeDropped(WPARAM drop);

} // namespace sm::win32
