// SPDX-License-Identifier: GPL-3.0-or-later
// How thin a pen may be.
#pragma once

namespace sm::plotter {

/// The thinnest line that shows on screens and printers alike, millimetres.
inline constexpr double kThinnestPen = 0.06;

} // namespace sm::plotter
