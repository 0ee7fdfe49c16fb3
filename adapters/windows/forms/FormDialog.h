// SPDX-License-Identifier: GPL-3.0-or-later
// The window of one form: a dialog that does nothing by itself, but passes on what its user and the system want.
#pragma once

#include "windows/forms/FormWatcher.h"

#include <functional>
#include <optional>
#include <vector>

#include <windows.h>

namespace sm::windows {

/// The forms of one toolkit that are up, the front one last.
struct ShownForms {
    std::function<HWND()> owner; ///< what the first of them is modal over; null for none
    std::vector<HWND> up;
    IFormWatcher* watcher = nullptr; ///< null for none
};

/// A dialog box without controls, hidden. Throws HostError when it can't be made.
class FormDialog {
public:
    /// Nothing: the dialog does as dialogs do.
    using Handler = std::function<std::optional<INT_PTR>(UINT message, WPARAM wide, LPARAM extra)>;

    explicit FormDialog(Handler handler);
    ~FormDialog();
    FormDialog(const FormDialog&) = delete;
    FormDialog& operator=(const FormDialog&) = delete;

    [[nodiscard]] HWND Window() const { return m_window; }
    /// Pixels without border and caption.
    void Resize(const SIZE& content);
    /// Whether a content of that size fits on the screen.
    [[nodiscard]] bool FitsScreen(const SIZE& content) const;
    /// Puts it in the middle of `owner` when that is to be seen, else of the screen; only once.
    void PutInTheMiddle(HWND owner);

private:
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM extra);

    Handler m_handler;
    HWND m_window = nullptr;
    bool m_hasPlace = false;
};

/// A dialog that is up, modal over the form below it or the owner.
class ModalShowing {
public:
    ModalShowing(ShownForms& forms, FormDialog& dialog);
    ~ModalShowing() { End(); }
    ModalShowing(const ModalShowing&) = delete;
    ModalShowing& operator=(const ModalShowing&) = delete;

    [[nodiscard]] bool IsInFront() const { return !m_forms.up.empty() && m_forms.up.back() == m_dialog; }
    /// Hides it and gives keyboard and mouse back to where they were; a second call does nothing.
    void End();

private:
    ShownForms& m_forms;
    HWND m_dialog, m_owner = nullptr, m_focusBefore;
    bool m_isUp = true, m_hasDisabled = false;
};

} // namespace sm::windows
