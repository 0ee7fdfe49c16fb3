// SPDX-License-Identifier: GPL-3.0-or-later
// One form's window with all its controls.
#pragma once

#include "windows/controls/ControlWindow.h"
#include "windows/controls/VisualStyles.h"
#include "windows/forms/FormDialog.h"
#include "windows/forms/FormKeyboard.h"

#include <optional>

namespace sm::windows {

class Win32FormView final : public IFormView {
public:
    /// Both outlive the view. Throws HostError when the window can't be made.
    Win32FormView(IForm& form, ShownForms& shown);
    ~Win32FormView() override;
    Win32FormView(const Win32FormView&) = delete;
    Win32FormView& operator=(const Win32FormView&) = delete;

    void ControlChanged(std::size_t control) override;
    bool ShowModal() override;
    void Hide() override;
    void PumpEvents() override;

private:
    static constexpr UINT kSettle = WM_APP + 1;   ///< reports that were put off are due
    static constexpr UINT kAppeared = WM_APP + 2; ///< the window has come up

    /// Nothing leaves the view's operations: what fails here is a want of memory or of windows, and the form goes on.
    template <class Body> static bool Guarded(const Body& body) noexcept
    {
        try {
            body();
            return true;
        } catch (...) {
            return false;
        }
    }

    void MakeControls();
    void ShowForm();
    void ShowControl(std::size_t control);
    void EnableWithin(std::size_t control);
    void LayOut();
    void UseFont(double scale);
    void Restyle();
    void TakeDots(int dots, const RECT& wanted);
    [[nodiscard]] int PageMargin(std::size_t page, const FormUnits& units) const;
    [[nodiscard]] bool IsEnabled(std::size_t control) const;
    void Appear();
    void Run();
    void Dispatch(const MSG& message);

    std::optional<INT_PTR> OnMessage(UINT message, WPARAM wide, LPARAM extra);
    /// The control that the window is, or is a part of; 0 for the form itself and for windows of others.
    [[nodiscard]] std::size_t ControlOf(HWND window) const;
    /// Of the window with that id; null when there is none.
    [[nodiscard]] ControlWindow* WithId(UINT_PTR id) const;
    INT_PTR Paint(HDC canvas, HWND window) const;

    IForm& m_form;
    ShownForms& m_shown;
    FormReporter m_reporter;
    std::unique_ptr<FormFont> m_font;
    double m_enlarged = 1; ///< by the dots of the window's screen, over those of the desktop
    FormDialog m_dialog;
    ControlWindows m_windows;
    std::vector<bool> m_enabled; ///< as last shown
    FormUnits m_units;
    FormKeyboard m_keyboard;
    ModalShowing* m_showing = nullptr;
    std::size_t m_lastFocused = 0; ///< at the end of the last showing
    bool m_isHidden = true;        ///< the showing under way is to end
};

} // namespace sm::windows
