// SPDX-License-Identifier: GPL-3.0-or-later
// A window of a class of our own, and work that other threads hand to its thread.
#pragma once

#include <functional>
#include <string>

#include <windows.h>

namespace sm::win32 {

class OwnWindow {
public:
    virtual ~OwnWindow();
    OwnWindow(const OwnWindow&) = delete;
    OwnWindow& operator=(const OwnWindow&) = delete;

    [[nodiscard]] HWND Handle() const { return m_window; }
    /// Runs `work` on the window's thread once it looks at its messages; never, when the window goes before. May be
    /// called from any thread.
    void PostWork(std::function<void()> work) const;

protected:
    /// Of how a window is made.
    struct Making {
        const wchar_t* name; ///< of its class
        std::wstring title{};
        DWORD style = 0, more = 0;
        HWND parent = nullptr;
        UINT classStyle = 0;
    };
    OwnWindow() = default;
    /// Makes the window, hidden, of the size that is its own when nobody says another; once. Throws std::runtime_error.
    void Make(const Making& making);
    /// The window goes; what was posted to it is dropped.
    void Unmake();
    virtual LRESULT OnMessage(UINT message, WPARAM wide, LPARAM extra) = 0;
    [[nodiscard]] LRESULT ByDefault(UINT message, WPARAM wide, LPARAM extra) const
    {
        return DefWindowProcW(m_window, message, wide, extra);
    }

private:
    static constexpr UINT kWork = WM_APP + 20;
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM extra);
    static void Register(const Making& making);

    HWND m_window = nullptr;
};

/// Windows that are made while one lives follow the dots of the screen that they stand on, where the system can do
/// that.
class PerMonitor {
public:
    PerMonitor();
    ~PerMonitor();
    PerMonitor(const PerMonitor&) = delete;
    PerMonitor& operator=(const PerMonitor&) = delete;

private:
    void* m_before = nullptr;
};

/// Dots per inch that the window is drawn for.
int DotsOf(HWND window);

} // namespace sm::win32
