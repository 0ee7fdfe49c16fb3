// The plot devices, sheets and plot style tables that a layout may name: those of the folders, and those that the
// drawing itself brings along, whoever's office they belong to.
#pragma once

#include "devices/Pc3File.h"
#include "drawing/Drawing.h"

#include <memory>
#include <string>
#include <vector>

namespace sm::cadhost {

/// Name of the device that stands for "no plotter".
inline constexpr const char* kNoDevice = "None";

/// The device of `settings`; kNoDevice where the file names none.
std::string DeviceOf(const drawing::PlotSettings& settings);

/// "None", then the PC3 files of `plotterFolder` by name, then what the drawing's layouts and page setups use.
std::vector<std::string> ListDevices(const std::string& plotterFolder, const drawing::Drawing& drawing);

/// The PC3 file `device` of the folder; null when the folder has none of that name. Throws HostError for a broken one.
std::shared_ptr<const Pc3File> LoadDevice(const std::string& plotterFolder, const std::string& device);

/// The sheets that the drawing's layouts and page setups use; the first of each name counts.
std::vector<Medium> ListDrawingMedia(const drawing::Drawing& drawing);

/// The tables (.ctb, .stb) of the folders, then what the drawing's layouts and page setups use.
std::vector<std::string> ListPlotStyles(const std::vector<std::string>& folders, const drawing::Drawing& drawing);

/// The file of the table that `name` calls, letter case and what folder it stood in aside: from the first of `folders`
/// that has one. Empty when none has.
std::string FindPlotStyle(const std::vector<std::string>& folders, const std::string& name);

} // namespace sm::cadhost
