// SPDX-License-Identifier: GPL-3.0-or-later
// How large a dialog unit must be so that everything on a form can be read.
#pragma once

#include "windows/controls/ControlWindow.h"

namespace sm::windows {

/// One scale for the whole form, so that what is in line stays in line: a quarter of the font's average letter across,
/// an eighth of its height down, and as much more as the tightest control needs. Asks hidden controls, too.
FormUnits MeasureScale(const std::vector<FormControl>& controls, const ControlWindows& windows, const FormFont& font);

} // namespace sm::windows
