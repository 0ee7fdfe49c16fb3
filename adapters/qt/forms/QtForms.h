// SPDX-License-Identifier: GPL-3.0-or-later
// The forms' toolkit on Qt.
#pragma once

#include "ports/IFormToolkit.h"
#include "screen/ScreenState.h"

#include <memory>

namespace sm::qt {

/// One renderer for any form. Needs the application object for all of its life. `state` outlives the toolkit.
std::unique_ptr<IFormToolkit> CreateQtForms(ScreenState& state);

} // namespace sm::qt
