// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/ModalWait.h"

namespace sm::win32 {

OthersWait::OthersWait(HWND window) : m_window(window)
{
    EnumThreadWindows(GetCurrentThreadId(), &Note, reinterpret_cast<LPARAM>(this));
    for (const HWND other : m_others)
        EnableWindow(other, FALSE);
}

OthersWait::~OthersWait()
{
    for (const HWND other : m_others)
        if (IsWindow(other) != FALSE)
            EnableWindow(other, TRUE);
}

BOOL CALLBACK OthersWait::Note(HWND window, LPARAM list)
{
    auto* const self = reinterpret_cast<OthersWait*>(list);
    if (window != self->m_window && IsWindowVisible(window) != FALSE && IsWindowEnabled(window) != FALSE)
        self->m_others.push_back(window);
    return TRUE;
}

bool PassMessages(const bool& isWaiting, const std::function<bool(const MSG&)>& take)
{
    MSG message = {};
    while (isWaiting) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got == 0)
            PostQuitMessage(static_cast<int>(message.wParam));
        if (got <= 0)
            return false;
        if (take(message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return true;
}

} // namespace sm::win32
