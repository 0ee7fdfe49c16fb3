// SPDX-License-Identifier: GPL-3.0-or-later
// Plot settings, as LAYOUT and PLOTSETTINGS objects hold them.
#pragma once

#include "drawing/Layouts.h"
#include "model/Model.h"

namespace sm::drawing {

/// Takes a tag of the AcDbPlotSettings part.
void TakePlotSettingsTag(const Model& model, const TagCursor& tag, PlotSettings& plot);

} // namespace sm::drawing
