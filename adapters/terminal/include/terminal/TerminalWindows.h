// SPDX-License-Identifier: GPL-3.0-or-later
// The plug-in's windows where there is no screen: pickers choose by rule and say what they chose.
#pragma once

#include "ports/IWindows.h"
#include "terminal/Console.h"
#include "terminal/PaperChoice.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace sm::terminal {

struct WindowsOptions {
    /// The paper that the sheet being converted asks for, in millimetres as it is plotted; nothing when it isn't known.
    std::function<std::optional<Paper>()> wantedPaper;
    /// Hears why a picker was cancelled, in one sentence; may be empty.
    std::function<void(const std::string& reason)> refused;
};

/// A missing style table: "None". Job options that can't be used: cancelled, their names listed. Paper that isn't
/// offered: the nearest larger, or cancelled. The dialogs: one line that names the commands that do the same.
/// `console` must outlive the windows.
std::unique_ptr<IWindows> CreateTerminalWindows(Console& console, WindowsOptions options);

} // namespace sm::terminal
