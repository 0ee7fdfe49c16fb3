// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/form/RowDialog.h"

#include <algorithm>
#include <utility>

namespace sm {

RowDialog::RowDialog(FormSession& session, const FormTable& table, Form& settings, std::int32_t& action,
                     std::int32_t pickAction, const RowControls& names)
    : Form(session, table), m_settings(settings), m_action(action), m_pickAction(pickAction), m_names(names)
{
    settings.On(names.list, FormEvent::Click, [this] { EnableButtons(); });
    settings.On(names.list, FormEvent::DoubleClick, [this] { Open(RowMode::Modify); });
    settings.On(names.add, FormEvent::Click, [this] { Open(RowMode::Add); });
    settings.On(names.modify, FormEvent::Click, [this] { Open(RowMode::Modify); });
    settings.On(names.remove, FormEvent::Click, [this] { RemoveChosen(); });
    On("btnOK", FormEvent::Click, [this] { Confirm(); });
    On("btnCancel", FormEvent::Click, [this] { Hide(); });
    On(names.pick, FormEvent::Click, [this] {
        m_action = m_pickAction;
        Hide();
    });
}

void RowDialog::Open(RowMode mode)
{
    const ListRow* row = mode == RowMode::Modify ? m_settings.SelectedRow(m_names.list) : nullptr;
    if (mode == RowMode::Modify && row == nullptr)
        return;
    m_mode = mode;
    Prepare(row);
    ShowAgain();
}

void RowDialog::ShowAgain()
{
    ShowModal();
    if (m_action == m_pickAction) // the pick is the settings dialog's loop's to make
        m_settings.Hide();
}

void RowDialog::Confirm()
{
    const auto row = Entered();
    if (row == nullptr)
        return;
    if (m_mode == RowMode::Add) {
        m_settings.AddRow(m_names.list, *row);
        m_settings.Select(m_names.list, static_cast<std::int32_t>(m_settings.Control(m_names.list).rows.size()) - 1);
    } else {
        m_settings.ReplaceRow(m_names.list, m_settings.Selection(m_names.list), *row);
    }
    EnableButtons();
    Hide();
}

void RowDialog::RemoveChosen()
{
    const std::int32_t chosen = m_settings.Selection(m_names.list);
    m_settings.RemoveRow(m_names.list, chosen);
    const auto left = static_cast<std::int32_t>(m_settings.Control(m_names.list).rows.size());
    m_settings.Select(m_names.list, std::min(chosen, left - 1));
    EnableButtons();
}

void RowDialog::EnableButtons()
{
    const bool any = m_settings.SelectedRow(m_names.list) != nullptr;
    m_settings.SetEnabled(m_names.modify, any);
    m_settings.SetEnabled(m_names.remove, any);
}

} // namespace sm
