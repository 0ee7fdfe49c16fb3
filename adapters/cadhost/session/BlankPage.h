// SPDX-License-Identifier: GPL-3.0-or-later
// What a page doesn't show of its layout.
#pragma once

#include "cadhost/PlotWishes.h"
#include "devices/OwnPlotArea.h"
#include "drawing/Drawing.h"
#include "plotter/Placement.h"

#include <string>

namespace sm::cadhost {

/// The remark for a layout whose plot left no ink. `extents` gives what the layout's space plots.
std::string BlankPageRemark(const drawing::Drawing& drawing, const drawing::Layout& layout,
                            const plotter::Placement& placement, const ExtentsSource& extents);

/// The remark for a layout of which `off` entities lie off the page, though nobody chose the area; empty for none.
std::string OffPageRemark(const drawing::Drawing& drawing, const drawing::Layout& layout, std::uint64_t off);

/// The remark for a sheet that the run wants on a paper which it is too large for, `inForce` being what is plotted;
/// empty for none.
std::string CutSheetRemark(const drawing::Layout& layout, const drawing::PlotSettings& inForce,
                           const PlotWishes& wishes);

} // namespace sm::cadhost
