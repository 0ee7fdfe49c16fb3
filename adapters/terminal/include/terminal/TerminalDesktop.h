// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop of a terminal: messages become lines, questions take the answer that loses nothing.
#pragma once

#include "ports/IDesktop.h"
#include "terminal/Console.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace sm::terminal {

struct DesktopOptions {
    /// The answer of every save dialog; without one the dialog's own name is taken.
    std::optional<std::string> savePath;
    /// Opens a file or address and says whether there was a program for it; empty: nothing can be opened.
    std::function<bool(const std::string& pathOrAddress)> open;
    /// Hears each message that was shown, before its answer is given; may be empty.
    std::function<void(const Message& message)> shown;
};

/// `console` must outlive the desktop.
std::unique_ptr<IDesktop> CreateTerminalDesktop(Console& console, DesktopOptions options);

} // namespace sm::terminal
