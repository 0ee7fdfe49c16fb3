// SPDX-License-Identifier: GPL-3.0-or-later
// The keyboard in a form's window: from control to control, mnemonics, Enter and Escape.
#pragma once

#include "windows/controls/ControlWindow.h"

namespace sm::windows {

/// What the form's table says decides: the order of its tab indices, options with the same parent as one group.
class FormKeyboard {
public:
    FormKeyboard(IForm& form, FormReporter& reporter, const ControlWindows& windows)
        : m_form(form), m_reporter(reporter), m_windows(windows)
    {
    }

    /// Whether the message was a key that has been used; `dialog` is the form's window.
    bool Take(const MSG& message, HWND dialog);
    /// Puts the keyboard on the first control that it may stop at.
    void GoToFirst() { GoFrom(0, 1); }
    /// Puts it on the next one when `control` can't have it any more.
    void MoveOnFrom(std::size_t control) { GoFrom(control, 1); }
    [[nodiscard]] bool CanStop(std::size_t control) const;

private:
    bool TakeDown(WPARAM key, bool isRepeated);
    bool TakeEnter();
    bool TakeLetter(wchar_t letter);
    void GoFrom(std::size_t control, int step);
    bool GoInGroup(std::size_t option, int step);
    bool TurnPage(int step);
    bool Answer(std::size_t control);
    void Go(std::size_t control);
    [[nodiscard]] std::vector<std::size_t> Order() const;
    [[nodiscard]] bool IsReachable(std::size_t control) const;
    [[nodiscard]] bool IsGroupsStop(std::size_t option) const;
    [[nodiscard]] std::size_t Focused() const { return m_reporter.controlOf(GetFocus()); }

    IForm& m_form;
    FormReporter& m_reporter;
    const ControlWindows& m_windows;
};

} // namespace sm::windows
