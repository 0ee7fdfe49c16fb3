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
    /// Dots per inch that the window is drawn for, as the system said last.
    [[nodiscard]] int Dots() const { return m_dots; }
    /// So many pixels as are as large as `usual` of 96 to the inch.
    [[nodiscard]] int Scaled(int usual) const { return MulDiv(usual, m_dots, kUsualDots); }
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
    /// The window came onto a screen of other dots; it gets the place that the system proposes afterwards.
    virtual void OnDots() {}
    [[nodiscard]] LRESULT ByDefault(UINT message, WPARAM wide, LPARAM extra) const
    {
        return DefWindowProcW(m_window, message, wide, extra);
    }

    static constexpr int kUsualDots = 96;

private:
    static constexpr UINT kWork = WM_APP + 20;
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM extra);
    static void Register(const Making& making);
    void TakeDots(int dots, const RECT& wanted);

    HWND m_window = nullptr;
    int m_dots = kUsualDots;
};

} // namespace sm::win32
