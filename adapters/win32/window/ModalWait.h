// SPDX-License-Identifier: GPL-3.0-or-later
// Waiting for the user in one window.
#pragma once

#include <functional>
#include <vector>

#include <windows.h>

namespace sm::win32 {

/// All other windows of this thread that are up take nothing while one lives.
class OthersWait {
public:
    explicit OthersWait(HWND window);
    ~OthersWait();
    OthersWait(const OthersWait&) = delete;
    OthersWait& operator=(const OthersWait&) = delete;

private:
    static BOOL CALLBACK Note(HWND window, LPARAM list);
    HWND m_window;
    std::vector<HWND> m_others;
};

/// Looks at the thread's messages while `isWaiting` is true; those that `take` uses go no further. False when the whole
/// program was ordered to end, which is passed on.
bool PassMessages(const bool& isWaiting, const std::function<bool(const MSG&)>& take);

} // namespace sm::win32
