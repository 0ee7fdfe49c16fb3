// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop on Qt: message boxes, file and colour dialogs, help.
#pragma once

#include "ports/IDesktop.h"
#include "qt/Screen.h"

#include <memory>

namespace sm::qt {

/// Each dialog is modal over the front window. Needs the application object for all of its life.
std::unique_ptr<IDesktop> CreateQtDesktop(const ScreenOptions& options);

} // namespace sm::qt
