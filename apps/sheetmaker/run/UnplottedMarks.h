// SPDX-License-Identifier: GPL-3.0-or-later
// Marks of a drawing that stand on layouts which a run doesn't plot.
#pragma once

#include "plugin/CallContext.h"
#include "report/RunReport.h"

namespace sm::app {

/// Notes what is attached to, signed or stamped on layouts that `report` has no page of. `isLoss`: nobody chose the
/// layouts, so that it counts among the lost marks.
void TellUnplottedMarks(CallContext& context, IAcadDocument& document, bool isLoss, DrawingReport& report);

} // namespace sm::app
