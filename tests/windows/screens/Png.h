// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of windows.
#pragma once

#include <string>

#include <windows.h>

namespace sm::windows {

/// Writes the window as it is seen, frame and all, as a PNG file; whether it could. Called on the window's thread.
bool SavePicture(HWND window, const std::wstring& file);
/// Colours in the window's inside, at most 1000 of them.
int CountColors(HWND window);

} // namespace sm::windows
