// SPDX-License-Identifier: GPL-3.0-or-later
// The tabbed settings dialog.
#pragma once

#include "ui/settings/PageSetupControls.h"
#include "ui/settings/StampControls.h"

#include <functional>
#include <optional>
#include <string>

namespace sm {

/// Holds no settings of its own: whoever shows it fills its tabs and reads them. Every button that closes it sets
/// `Action` and hides the form; all control values survive until it is shown again.
class frmGUITap final : public Form {
public:
    explicit frmGUITap(FormSession& session);

    std::int32_t Action = 0; ///< see settings/SettingsAction.h; to be set to 0 before each showing
    /// Run when "Use Custom PDF Page Setup" is unticked: takes the custom page setup away and fills the tab anew.
    std::function<void()> OnPageSetupSwitchedOff;
    /// Run once, when the form is next shown.
    std::function<void()> OnceShown;

    [[nodiscard]] PageSetupControls& PageSetup() { return m_pageSetup; }
    [[nodiscard]] StampControls& Stamp() { return m_stamp; }

    void PDFPageSetupOn() { m_pageSetup.PDFPageSetupOn(); }
    void PDFPageSetupOff() { m_pageSetup.PDFPageSetupOff(); }
    void cmbPaperUnits_click() { m_pageSetup.cmbPaperUnits_click(); }
    void AddStampText(const std::string& rawText, std::optional<std::int32_t> index = std::nullopt)
    {
        m_stamp.AddStampText(rawText, index);
    }
    void TextStampOn() { m_stamp.TextStampOn(); }
    void TextStampOff() { m_stamp.TextStampOff(); }

private:
    void BindButtons();
    void OnLoad();
    void ClosesWith(const char* button, std::int32_t action);
    void RemindOfPunctuation();
    void SwitchPageSetup();

    PageSetupControls m_pageSetup;
    StampControls m_stamp;
};

} // namespace sm
