// SPDX-License-Identifier: GPL-3.0-or-later
// The ports of the machine by the Windows API. Every factory's object is to be used on one thread.
#pragma once

#include "ports/IDesktop.h"
#include "ports/IFileSystem.h"
#include "ports/IRegistry.h"
#include "ports/ISystem.h"

#include <functional>
#include <memory>
#include <windef.h>

namespace sm::windows {

/// By the functions of the ANSI code page, texts that it can't hold by those of UTF-16, so that they stay whole; the
/// bytes that stand for such a text here are of no code page. A key that was opened stays open until it is closed; a
/// text that is written whole, without its terminator, is stored with one. The product's own machine-wide keys are
/// looked for under the user's root when the machine has none, for an installation that is one user's.
std::unique_ptr<IRegistry> CreateRegistry();

/// By the "Scripting.FileSystemObject", which is made on first use; without it nothing exists. Needs COM on the thread.
std::unique_ptr<IFileSystem> CreateFileSystem();

/// The user's regional settings, and the system's ANSI code page.
std::unique_ptr<ILocale> CreateLocale();

/// Local time by the system's time zone.
std::unique_ptr<IClock> CreateClock();

/// The module that this code was linked into: its folder, and the first three numbers of its version resource.
std::unique_ptr<IComponent> CreateComponent();

/// Message boxes, file and colour dialogs, each modal over the window that `owner` gives; it may give none.
std::unique_ptr<IDesktop> CreateWindowsDesktop(std::function<HWND()> owner);

} // namespace sm::windows
