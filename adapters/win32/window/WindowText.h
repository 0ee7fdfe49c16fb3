// SPDX-License-Identifier: GPL-3.0-or-later
// Texts of windows, UTF-8.
#pragma once

#include <string>

#include <windows.h>

namespace sm::win32 {

std::string TextOf(HWND window);
/// Each change is seen to flicker, so that only changes are shown.
void ShowText(HWND window, const std::string& text);

} // namespace sm::win32
