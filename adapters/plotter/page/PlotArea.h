// SPDX-License-Identifier: GPL-3.0-or-later
// What part of a space is plotted, by plot type.
#pragma once

#include "plotter/Placement.h"

#include <functional>

namespace sm::plotter {

/// A box in the display plane of `view`; empty when there is nothing to plot.
struct PlotArea {
    render::Matrix3 view;
    Box2 box;
    bool isSheet = false;     ///< plot type Layout: the printable area from (0, 0), whatever the scale
    drawing::ViewDepth depth; ///< of `view`, whose plane's origin is the target where it isn't flat
    Vec3 direction{0, 0, 1};  ///< from the target to the eye
    bool clips = true;        ///< what lies outside of the box isn't plotted
};

/// Throws PlotError when a named view isn't there.
PlotArea FindPlotArea(const drawing::Drawing& drawing, const drawing::Layout& layout,
                      const drawing::PlotSettings& settings,
                      const std::function<Box2(const render::Matrix3&)>& extents);

} // namespace sm::plotter
