// SPDX-License-Identifier: GPL-3.0-or-later
// What a layout's own settings plot, where the file leaves that open.
#pragma once

#include "plotter/Placement.h"

#include <functional>
#include <string>

namespace sm::cadhost {

/// What `Place` asks for: the box of what the layout's space plots, in the display plane of a view.
using ExtentsSource = std::function<Box2(const render::Matrix3& view)>;

/// A view to plot that the drawing lacks gives way to the one paper view that fits the sheet, else to the extents.
/// Changes plot type and view name of `own`; the remark for it, or empty where nothing had to be changed.
std::string MendView(const drawing::Drawing& drawing, const drawing::Layout& layout, drawing::PlotSettings& own);

/// Turns the window of `own` into world coordinates where the file keeps it relative to the target of the model's plan
/// view: the form is told by which of the two meets the extents, and world coordinates come first. The remark for it,
/// or empty where nothing had to be changed. `extents` is asked only when the two forms differ and the window is
/// plotted.
std::string MendWindow(const drawing::Drawing& drawing, const drawing::Layout& layout, const ExtentsSource& extents,
                       drawing::PlotSettings& own);

} // namespace sm::cadhost
