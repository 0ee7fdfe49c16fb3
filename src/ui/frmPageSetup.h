// SPDX-License-Identifier: GPL-3.0-or-later
// The stand-alone page setup dialog.
#pragma once

#include "ui/settings/PageSetupControls.h"

namespace sm {

class frmPageSetup final : public Form {
public:
    explicit frmPageSetup(FormSession& session);

    [[nodiscard]] PageSetupControls& PageSetup() { return m_pageSetup; }
    [[nodiscard]] bool IsConfirmed() const { return m_confirmed; }

    void PDFPageSetupOn() { m_pageSetup.PDFPageSetupOn(); }
    void PDFPageSetupOff() { m_pageSetup.PDFPageSetupOff(); }
    void cmbPaperUnits_click() { m_pageSetup.cmbPaperUnits_click(); }

private:
    PageSetupControls m_pageSetup;
    bool m_confirmed = false;
};

} // namespace sm
