// SPDX-License-Identifier: GPL-3.0-or-later
// One form's window with all its controls.
#pragma once

#include "forms/ControlView.h"
#include "forms/FormLayout.h"
#include "forms/FormNeighbours.h"
#include "forms/FormWindow.h"
#include "ports/IFormToolkit.h"

#include <QEventLoop>

#include <optional>
#include <unordered_map>

namespace sm::qt {

class QtFormView final : public IFormView {
public:
    /// `state` outlives the view.
    QtFormView(IForm& form, ScreenState& state);
    ~QtFormView() override;
    QtFormView(const QtFormView&) = delete;
    QtFormView& operator=(const QtFormView&) = delete;

    void ControlChanged(std::size_t control) override;
    bool ShowModal() override;
    void Hide() override;
    void PumpEvents() override;

private:
    void MakeControls();
    [[nodiscard]] QWidget* ParentOf(std::size_t control) const;
    void OrderKeyboard();
    void NameControls();
    void LayOut();
    [[nodiscard]] int PageMargin(std::size_t page, const FormUnits& units) const;
    void ShowControl(std::size_t control);
    void ShowForm();
    void OnKey(QWidget* widget, bool isEnter);
    bool OnOtherKey(QWidget* widget, int key);
    /// Presses the button with that caption beside `control`, if the user could.
    bool PressBeside(std::size_t control, const char* caption);
    void StopAtTickedOptions();
    [[nodiscard]] int FooterTop(const FormUnits& units) const;
    void FillFooter(int footerTop);
    void OnFocus(QWidget* from, QWidget* to);
    /// The control that the widget is, or is a part of; 0 for the form itself.
    [[nodiscard]] std::size_t ControlOf(const QWidget* widget) const;
    [[nodiscard]] bool IsOurs(const QWidget* widget) const;

    IForm& m_form;
    Reporter m_reporter;
    std::optional<Reporter::Silence> m_lastSilence;
    FormWindow m_window;
    ControlViews m_views;
    FormNeighbours m_neighbours;
    std::unordered_map<const QWidget*, std::size_t> m_positions;
    QMetaObject::Connection m_focus;
    QEventLoop* m_loop = nullptr;
    bool m_isHidden = true; ///< the showing under way is to end
};

} // namespace sm::qt
