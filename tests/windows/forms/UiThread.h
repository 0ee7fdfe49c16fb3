// SPDX-License-Identifier: GPL-3.0-or-later
// The test's own thread as the windows' thread, reached from a second one that plays the user.
#pragma once

#include <functional>
#include <string>

#include <windows.h>

namespace sm::windows {

/// Lives on the windows' thread.
class UiThread {
public:
    UiThread();
    ~UiThread();
    UiThread(const UiThread&) = delete;
    UiThread& operator=(const UiThread&) = delete;

    /// Runs `body` on the windows' thread, between two of its messages, and waits for it.
    void Run(const std::function<void()>& body) const;
    /// Waits until the windows have nothing more to do.
    void Rest() const;
    [[nodiscard]] DWORD Id() const { return m_id; }
    /// The window that has the keyboard.
    [[nodiscard]] HWND Focus() const;
    /// The form's window in front, once there is one; null after ten seconds.
    [[nodiscard]] HWND WaitForFront() const;
    [[nodiscard]] HWND Front() const;
    /// A visible window with that title, or null.
    [[nodiscard]] HWND Titled(const std::wstring& title) const;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM extra);

    DWORD m_id = GetCurrentThreadId();
    HWND m_window;
};

/// One for the whole test program.
UiThread& TheUiThread();

} // namespace sm::windows
