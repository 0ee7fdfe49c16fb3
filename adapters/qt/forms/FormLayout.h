// SPDX-License-Identifier: GPL-3.0-or-later
// How large a dialog unit must be so that everything on a form can be read.
#pragma once

#include "forms/ControlView.h"
#include "forms/FormUnits.h"
#include "ports/FormControls.h"

#include <QFont>

#include <memory>
#include <vector>

namespace sm::qt {

using ControlViews = std::vector<std::unique_ptr<ControlView>>; ///< in the order of the form's table

/// One scale for the whole form, so that what is in line stays in line: a quarter of the font's average character
/// across, an eighth of its height down, and as much more as the control that is tightest needs. Asks hidden controls
/// too: they may be shown.
FormUnits MeasureUnits(const std::vector<FormControl>& controls, const ControlViews& views, const QFont& font);

} // namespace sm::qt
