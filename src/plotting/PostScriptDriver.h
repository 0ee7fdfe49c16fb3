// SPDX-License-Identifier: GPL-3.0-or-later
// The CAD host's PostScript driver, the PC3 file to plot with, and the plotter folder that is switched for a plot.
//
// Nothing here throws.
#pragma once

#include "plugin/CallContext.h"

#include <string>

namespace sm {

/// "15" (ps6.hdi), "15+" (ps7.hdi), "16" (ps8.hdi); empty when none lies in the host's drivers folders. The first
/// folder that holds any of them decides, in it the oldest.
std::string DriverVersion(CallContext& context);
bool DriverPresent(CallContext& context);

/// The suite's PC3 file for a driver: "Tarnwick PS8 HighRes.pc3" and the like; empty without a driver.
/// `resolution` 1200 gives the high one, any other the medium one.
std::string Pc3Name(const std::string& driverVersion, std::int32_t resolution);

/// Points the host's plotter folder at the suite's PC3 folder, the user's own one being stored before. 0, or -1 when
/// that can't be done, the folder then being as it was. A stored folder stays when the host still points at the PC3
/// folder, so that an interrupted run ends with the user's own.
std::int32_t SetPlotterPath(CallContext& context);
/// Puts the stored folder back: 0 when it is back or nothing was stored, or when the host's default folder was set in
/// its place; -1 when neither could be set.
std::int32_t ResetPlotterPath(CallContext& context);

/// "Plotters" in the host's installation folder.
std::string DefaultPlotterFolder(CallContext& context);

} // namespace sm
