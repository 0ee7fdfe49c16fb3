// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop on Qt: message boxes, file and colour dialogs, help.
#pragma once

#include "ports/IDesktop.h"
#include "qt/Screen.h"
#include "screen/ScreenState.h"

#include <memory>

namespace sm::qt {

/// Each dialog is modal over the front window. Needs the application object for all of its life. `state`
/// outlives the desktop; a file that was dropped answers the next question for one to open.
std::unique_ptr<IDesktop> CreateQtDesktop(const ScreenOptions& options, ScreenState& state);

} // namespace sm::qt
