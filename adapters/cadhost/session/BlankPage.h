// Why a page has no ink.
#pragma once

#include "devices/OwnPlotArea.h"
#include "drawing/Drawing.h"
#include "plotter/Placement.h"

#include <string>

namespace sm::cadhost {

/// The remark for a layout whose plot left no ink. `extents` gives what the layout's space plots.
std::string BlankPageRemark(const drawing::Drawing& drawing, const drawing::Layout& layout,
                            const plotter::Placement& placement, const ExtentsSource& extents);

} // namespace sm::cadhost
