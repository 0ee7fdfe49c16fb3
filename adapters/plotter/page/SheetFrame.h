// SPDX-License-Identifier: GPL-3.0-or-later
// The printable area of a medium as the turned drawing sees it.
#pragma once

#include "plotter/Placement.h"

namespace sm::plotter {

/// Millimetres. `width` and `height` lie along the drawing's x and y; `ToSheet` maps from the printable area's
/// lower-left corner, as the drawing sees it, to the unturned medium.
struct SheetFrame {
    double sheetWidth = 0, sheetHeight = 0;
    double width = 0, height = 0;
    double originX = 0, originY = 0; ///< the plot origin along the drawing's axes
    render::Matrix2 toSheet;
    Box2 printable; ///< on the unturned medium
};

/// A medium without a size gets A4 (metric) or ANSI A, turned so that `area` fits it better; margins that leave nothing
/// count as none.
SheetFrame MakeSheetFrame(const drawing::PlotSettings& settings, bool metric, const Box2& area);

} // namespace sm::plotter
