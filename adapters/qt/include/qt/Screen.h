// SPDX-License-Identifier: GPL-3.0-or-later
// The screen: the one window system connection of a process, with the forms' toolkit and the desktop on it.
#pragma once

#include "beside/Company.h"
#include "beside/WindowMemory.h"
#include "ports/IDesktop.h"
#include "ports/IFormToolkit.h"

#include <functional>
#include <memory>
#include <string>

namespace sm::qt {

struct ScreenOptions {
    /// Holds the help pages: index.html, with an anchor "c<context>" for each help context. Absolute. Where `open`
    /// opens no page, they are shown in a window of our own.
    std::string helpFolder;
    /// Opens a document or address with the desktop's program for it; false when there is none. Empty: nothing can be
    /// opened.
    std::function<bool(const std::string& pathOrAddress)> open;
    /// Sizes and folders; outlives the screen. Null: nothing is remembered.
    beside::IWindowMemory* memory = nullptr;
};

/// While a form, message box or dialog is up, SIGINT, SIGTERM and SIGHUP are taken as a press of the front window's
/// close box; a second one ends the process when the window has stayed, or hasn't noticed the first. At other times
/// they do what they did before.
class Screen {
public:
    /// Null when there is no screen; `why` then says so in one sentence. Never ends the process. One at a time in a
    /// process; everything that it gave away goes first.
    static std::unique_ptr<Screen> Open(const ScreenOptions& options, std::string& why);
    virtual ~Screen() = default;
    [[nodiscard]] virtual IFormToolkit& Toolkit() = 0;
    [[nodiscard]] virtual IDesktop& Desktop() = 0;
    [[nodiscard]] virtual beside::ICompany& Company() = 0;
    /// What was handed to the company last; null: nothing.
    [[nodiscard]] virtual beside::ISheetList* Listed() const = 0;
};

} // namespace sm::qt
