// SPDX-License-Identifier: GPL-3.0-or-later
// The settings dialog from the outside: the routine that shows it, and the routines that carry values between the
// records and the tabs.
#pragma once

#include "settings/DataKeg.h"
#include "ui/SettingsReader.h"
#include "ui/settings/PageSetupControls.h"

#include <functional>
#include <string>
#include <vector>

namespace sm {

class StampControls;

/// Shows the settings dialog for the drawing of `context`, with picking in the drawing, and saves what the user
/// confirmed. 1 when the user chose "Create PDF" and everything was saved, else 0. Never throws. `reader` as
/// CreateFormWindows has it.
std::int32_t ShowConversionSettings(CallContext& context, IFormToolkit& toolkit, SettingsReader* reader = nullptr);

// The tab routines. Each returns success; a failure is logged as "RUNTIME ERROR: <routine> -<description>". They
// address the controls by name. None throws.

bool SetConversionSettingsTab(Form& form, const DataKeg& keg);
bool SaveConversionSettingsTab(Form& form, DataKeg& keg);

/// What SetPageSetupTab fills the controls from.
struct PageSetupFilling {
    const PageSetupRecord& record;
    const std::vector<PaperSize>& papers;
    const std::vector<std::string>& plotStyles; ///< "None" first
    /// The drawing's page setup selection; only the settings dialog has a control for it.
    std::int32_t selection = kPageSetupNative;
};
/// The named views are those of the drawing in hand; the settings dialog must have one.
bool SetPageSetupTab(PageSetupControls& controls, const PageSetupFilling& source);
/// Writes the controls into `record` and the switch into `selection`. The settings dialog's controls are saved only
/// while "Use Custom PDF Page Setup" is ticked; `layout` says what the choice Layout means there.
bool SavePageSetupTab(const PageSetupControls& controls, const LayoutSettings& layout, PageSetupRecord& record,
                      std::int32_t& selection);
/// The page setup selection once the custom page setup is switched on or off: only the custom one is ever taken away.
std::int32_t SelectionOf(bool custom, std::int32_t before);

bool SetStampTab(StampControls& controls, const DataKeg& keg);
bool SaveStampTab(const StampControls& controls, DataKeg& keg);

/// `rowForm` is the dialog that edits one row of the tab's list: its layout list is filled, too.
bool SetAttachTab(Form& form, Form& rowForm, const DataKeg& keg);
bool SaveAttachTab(Form& form, DataKeg& keg);
/// The same for the signature fields.
bool SetDigSigTab(Form& form, Form& rowForm, const DataKeg& keg);
bool SaveDigSigTab(Form& form, DataKeg& keg);

/// Runs `body` and gives true; a failure is logged under the routine's name and gives false.
bool RunTabRoutine(CallContext& context, const char* routine, const std::function<void()>& body);

} // namespace sm
