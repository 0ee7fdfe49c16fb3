// SPDX-License-Identifier: GPL-3.0-or-later
// Room for the pens of lines that end where the plotted area ends.
#pragma once

#include "plotter/Plotter.h"

namespace sm::plotter {

/// The widest pen that a plot can have, millimetres.
double WidestPen(const PlotJob& job, double lineweightScale);

/// `placement.clip`, grown by half of `pen` on the sides where it would cut pens alone: what is drawn beyond the
/// printable area stays away.
Box2 ClipWithRoom(const Placement& placement, double pen);

} // namespace sm::plotter
