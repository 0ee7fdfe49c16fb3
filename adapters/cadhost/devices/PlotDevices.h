// SPDX-License-Identifier: GPL-3.0-or-later
// The plot devices, sheets and plot style tables that a layout may name: those of the folders, and those that the
// drawing itself brings along, whoever's office they belong to.
#pragma once

#include "devices/PlotShelf.h"
#include "drawing/Drawing.h"

#include <memory>
#include <string>
#include <vector>

namespace sm::cadhost {

/// Where devices and plot style tables come from, and who keeps what was read of them.
struct PlotFolders {
    std::string plotters, styles, drawing;
    std::string userStyles = {};
    std::shared_ptr<PlotShelf> shelf = std::make_shared<PlotShelf>();
};

/// Name of the device that stands for "no plotter".
inline constexpr const char* kNoDevice = "None";

/// The device of `settings`; kNoDevice where the file names none.
std::string DeviceOf(const drawing::PlotSettings& settings);

/// "None", then the PC3 files by name, then what the drawing's layouts and page setups use.
std::vector<std::string> ListDevices(const PlotFolders& folders, const drawing::Drawing& drawing);

/// The sheets that the drawing's layouts and page setups use; the first of each name counts.
std::vector<Medium> ListDrawingMedia(const drawing::Drawing& drawing);

/// The tables (.ctb, .stb) of ours, the user's and the drawing's folder, then what the drawing's layouts and page
/// setups use.
std::vector<std::string> ListPlotStyles(const PlotFolders& folders, const drawing::Drawing& drawing);

/// The file of the table that `name` calls, letter case and what folder it stood in aside: from the drawing's folder,
/// the user's, or ours. Empty when none has it.
std::string FindPlotStyle(const PlotFolders& folders, const std::string& name);

} // namespace sm::cadhost
