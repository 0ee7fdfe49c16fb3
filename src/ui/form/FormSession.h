// SPDX-License-Identifier: GPL-3.0-or-later
// What the forms of one showing share.
#pragma once

#include "plugin/CallContext.h"
#include "ports/IDesktop.h"
#include "ports/IFormToolkit.h"

#include <string>

namespace sm {

/// Pages of the help file, by context number.
inline constexpr std::int32_t kHelpContents = 0;
inline constexpr std::int32_t kHelpPageSetup = 400;
inline constexpr std::int32_t kHelpBlockAttributes = 410;
inline constexpr std::int32_t kHelpAttachments = 420;
inline constexpr std::int32_t kHelpDigSigName = 430;
inline constexpr std::int32_t kHelpDigSigs = 440;

struct FormSession {
    CallContext& context;
    IFormToolkit& toolkit;
    /// The help file in force: the program's own from the settings dialog's load on, the installed one from the first
    /// message box on.
    std::string helpFile;

    /// A message of the product, with a Help button for the page `helpContext` of the installed help file.
    MessageAnswer ShowMessage(const std::string& text, MessageButtons buttons, MessageIcon icon,
                              std::int32_t helpContext);
    /// Opens the help file in force; before any is set, the installed one.
    void ShowHelp(std::int32_t helpContext);
};

} // namespace sm
