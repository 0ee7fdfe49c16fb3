// SPDX-License-Identifier: GPL-3.0-or-later
// What the two dialogs that edit one row of a list of the settings dialog have in common.
#pragma once

#include "ui/form/Form.h"

#include <string>

namespace sm {

enum class RowMode { Add = 1, Modify = 2 };

/// The names of the controls on the settings dialog, and of the dialog's own layout combo.
struct RowControls {
    const char* list;
    const char* add;
    const char* modify;
    const char* remove;
    const char* layoutCombo;
    const char* pick; ///< the button that asks for a pick in the drawing
};

/// Binds the tab's list and buttons. Modify and Delete are usable while a row is chosen.
class RowDialog : public Form {
public:
    /// Shows the dialog again as it stands, after a pick; once the settings dialog is up.
    void ShowAgain();
    /// Selects the layout in the dialog's combo, when it holds it.
    void SelectLayout(const std::string& name) { SelectText(m_names.layoutCombo, name); }

protected:
    /// `settings` is the settings dialog, `action` its reason to close, which becomes `pickAction` for a pick.
    RowDialog(FormSession& session, const FormTable& table, Form& settings, std::int32_t& action,
              std::int32_t pickAction, const RowControls& names);

    /// Fills the fields for a new row, or from `row`.
    virtual void Prepare(const ListRow* row) = 0;
    /// The row as entered; null when a message has said what is wrong with it.
    virtual std::unique_ptr<ListRow> Entered() = 0;

    [[nodiscard]] RowMode Mode() const { return m_mode; }
    [[nodiscard]] Form& Settings() const { return m_settings; }
    [[nodiscard]] const RowControls& Names() const { return m_names; }

private:
    void Open(RowMode mode);
    void Confirm();
    void RemoveChosen();
    void EnableButtons();

    Form& m_settings;
    std::int32_t& m_action;
    std::int32_t m_pickAction;
    RowControls m_names;
    RowMode m_mode = RowMode::Add;
};

} // namespace sm
