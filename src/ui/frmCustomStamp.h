// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog in which a stamp text is written, macros and all.
#pragma once

#include "ui/form/Form.h"

#include <optional>
#include <string>

namespace sm {

class frmCustomStamp final : public Form {
public:
    explicit frmCustomStamp(FormSession& session);

    /// Shows the dialog with `rawText`: the new text, or nothing when the user cancelled or no window came up.
    std::optional<std::string> Ask(const std::string& rawText);

private:
    void Insert(const std::string& macro);
    bool m_confirmed = false;
};

} // namespace sm
