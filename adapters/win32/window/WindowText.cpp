// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/WindowText.h"

#include "windows/automation/WideText.h"

namespace sm::win32 {

std::string TextOf(HWND window)
{
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return windows::Utf8(text);
}

void ShowText(HWND window, const std::string& text)
{
    if (TextOf(window) != text)
        SetWindowTextW(window, windows::Wide(text).c_str());
}

} // namespace sm::win32
