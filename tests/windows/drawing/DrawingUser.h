// SPDX-License-Identifier: GPL-3.0-or-later
// A user before the real drawing window, on a thread of their own, by messages as the mouse and the keyboard send them.
#pragma once

#include "../forms/UiThread.h"
#include "drawing/Drawing.h"
#include "view/PickWindow.h"

#include <functional>
#include <optional>
#include <string>

namespace sm::win32 {

class DrawingUser {
public:
    /// Waits until a drawing window is up, has painted everything and takes points. Throws when there is none in time.
    static DrawingUser Wait();
    /// Null when none is up.
    static HWND Up();

    [[nodiscard]] HWND Window() const { return m_window; }
    [[nodiscard]] HWND View() const;
    [[nodiscard]] HWND Control(PickControl control) const { return GetDlgItem(m_window, control); }
    [[nodiscard]] std::string Text(PickControl control) const;
    [[nodiscard]] std::string Title() const;
    /// Waits until the view is whole again.
    void Settle() const;

    /// Pixels of the view; `held` as in the messages of the mouse.
    void Move(POINT at, WPARAM held = 0) const;
    void Press(POINT at, WPARAM held = 0) const;
    void Release(POINT at) const;
    void Send(UINT message, POINT at, WPARAM wide = 0) const;
    void Wheel(POINT at, int notches) const;
    void Key(WPARAM key) const;
    void Letters(const std::string& text) const;
    void Click(PickControl control) const;
    void TurnTo(int tab) const;

    /// What the window says is there, snaps suspended.
    [[nodiscard]] Vec2 PointAt(POINT pixel) const;
    [[nodiscard]] POINT PixelOf(Vec2 point) const;

private:
    explicit DrawingUser(HWND window) : m_window(window) {}
    [[nodiscard]] HWND Focus() const;
    HWND m_window;
};

/// Runs `body`, which waits for the user, while `user` plays on a second thread.
void WhileUserDraws(const std::function<void(const DrawingUser&)>& user, const std::function<void()>& body);

} // namespace sm::win32
