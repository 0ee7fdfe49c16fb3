// SPDX-License-Identifier: GPL-3.0-or-later
// A user before the real windows, on a thread of their own: finds them by title and name, and presses and types by
// messages as they come from other programs, or by the keyboard itself.
#pragma once

#include "UiThread.h"
#include "ports/IFormToolkit.h"

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <string>

namespace sm::windows {

class FormUser {
public:
    explicit FormUser(const IForm& form) : m_form(form) {}

    /// By the form's title; waits until it is up.
    [[nodiscard]] HWND Window() const;
    /// Fails the test and gives null when there is no such window.
    [[nodiscard]] HWND Find(const std::string& name) const;
    [[nodiscard]] int IdOf(const std::string& name) const;
    [[nodiscard]] std::string Text(const std::string& name) const;
    [[nodiscard]] bool IsSeen(const std::string& name) const { return IsWindowVisible(Find(name)) != FALSE; }
    [[nodiscard]] bool IsEnabled(const std::string& name) const { return IsWindowEnabled(Find(name)) != FALSE; }
    LRESULT Ask(const std::string& name, UINT message, WPARAM wide = 0, LPARAM extra = 0) const
    {
        return SendMessageW(Find(name), message, wide, extra);
    }
    /// The control that has the keyboard.
    [[nodiscard]] std::string Focused() const;

    /// BM_CLICK, posted: what it does may last as long as a dialog.
    void Click(const std::string& name) const;
    /// Left button, at pixels from the upper left corner.
    void Press(const std::string& name, int x, int y) const;
    void DoublePress(const std::string& name, int x, int y) const;
    void PressTool(const std::string& name) const;
    /// WM_SETTEXT, then EN_KILLFOCUS to the field's parent.
    void TypeAndLeave(const std::string& name, const std::string& text) const;
    void Type(const std::string& name, const std::string& text) const;
    void Leave(const std::string& name) const;
    void Choose(const std::string& name, int position) const;
    void TurnTo(const std::string& strip, int page) const;
    void Focus(const std::string& name) const;
    /// By the keyboard itself, wherever it is; the last key with those before it held.
    static void Keys(std::initializer_list<WORD> keys);
    void Close() const;

private:
    void Notify(const std::string& name, int code) const;
    const IForm& m_form;
};

/// Runs `body` while `user` plays on a second thread, once a form is up.
void WhileUserPlays(const std::function<void()>& user, const std::function<void()>& body);

} // namespace sm::windows
