// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/frmPageSetup.h"

#include "ui/settings/PageSetupTable.h"

namespace sm {
namespace {

FormTable PageSetupFormTable()
{
    using enum ControlKind;
    FormTable table = {ControlRow(FormWindow, "frmPageSetup", "Page Setup", {0, 0, 374, 262})};
    AddPageSetupRows(table, "", true);
    table.push_back(ControlRow(CommandButton, "btnOK", "OK", {197, 240, 54, 14}).Default());
    table.push_back(ControlRow(CommandButton, "btnCancel", "Cancel", {255, 240, 54, 14}).Cancel());
    table.push_back(ControlRow(CommandButton, "btnHelp", "Help", {313, 240, 54, 14}));
    return table;
}

} // namespace

frmPageSetup::frmPageSetup(FormSession& session)
    : Form(session, PageSetupFormTable()), m_pageSetup(*this, PageSetupKind::PageSetupDialog)
{
    On("btnOK", FormEvent::Click, [this] {
        m_confirmed = true;
        Hide();
    });
    On("btnCancel", FormEvent::Click, [this] { Hide(); });
    On("btnHelp", FormEvent::Click, [this] { Session().ShowHelp(kHelpPageSetup); });
}

} // namespace sm
