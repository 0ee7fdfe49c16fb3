// SPDX-License-Identifier: GPL-3.0-or-later
// How the Text Stamp tab of the settings dialog behaves.
#pragma once

#include "ui/frmCustomStamp.h"

#include <optional>
#include <string>

namespace sm {

/// The tag of every control that needs a stamp to be chosen.
inline constexpr const char* kTextStampTag = "TextStamp";

class StampControls {
public:
    /// Binds the handlers; `pickPoint` is run when the user wants to pick the stamp's place. `form` outlives the
    /// object.
    StampControls(Form& form, const Form::Handler& pickPoint);
    StampControls(const StampControls&) = delete;
    StampControls& operator=(const StampControls&) = delete;

    [[nodiscard]] Form& GetForm() const { return m_form; }

    // What the macros of a stamp text stand for, in the dialog as on the sheet.
    std::string DrawingFullName;
    std::string LoginName;

    /// Shows `rawText` with its macros expanded: in place of the entry at `index`, or as one more entry.
    void AddStampText(const std::string& rawText, std::optional<std::int32_t> index = std::nullopt);
    void TextStampOn() { SetStampControls(true); }
    void TextStampOff() { SetStampControls(false); }
    /// On or off by the stamp text chosen: the first entry stands for no stamp.
    void StampSwitch();

private:
    void SetStampControls(bool on);
    void EditStampText();
    void ChooseColor();

    Form& m_form;
    frmCustomStamp m_custom;
};

} // namespace sm
