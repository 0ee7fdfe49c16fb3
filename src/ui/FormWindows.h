// SPDX-License-Identifier: GPL-3.0-or-later
// The windows that lower floors open, as forms on a toolkit.
#pragma once

#include "plugin/CallContext.h"
#include "ports/IFormToolkit.h"
#include "ports/IWindows.h"
#include "ui/SettingsReader.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace sm {

/// Both outlive the windows; `context` is the one that the plug-in object works in, and need not be made yet. The page
/// setup dialog lists the views and style tables of the drawing that `context` holds; without one it lets the user type
/// the name of a view, and lists `plotStyles`; where that is empty, the name of a table is typed, too. Confirmed edits
/// go into the page setup object, whose Update stores them. While the settings dialog or the page setup dialog is up
/// `reader`, where there is one, can be called; it is empty else.
std::unique_ptr<IWindows> CreateFormWindows(CallContext& context, IFormToolkit& toolkit,
                                            SettingsReader* reader = nullptr,
                                            std::function<std::vector<std::string>()> plotStyles = {});

} // namespace sm
