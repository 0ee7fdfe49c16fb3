// SPDX-License-Identifier: GPL-3.0-or-later
// What the embedded CAD host is told when it is made.
#pragma once

#include "drawing/DwgConverter.h"
#include "render/ReferenceOptions.h"

#include <functional>
#include <string>

namespace sm::cadhost {

class IPointPicker;

struct HostOptions {
    std::string shareFolder; ///< holds Drivers, PC3, Plotters, PlotStyles, fonts.map
    std::string loginName;   ///< what "LOGINNAME" gives
    drawing::DwgOptions dwg{};
    std::string userStyleFolder = {}; ///< the user's own plot style tables; may be missing
    bool keepLayers = false;          ///< plots tell which layer shows what, hidden ones included
    /// Where pictures, underlays and drawings are looked for that a drawing refers to, and what shows pages of PDF
    /// files.
    render::ReferenceOptions references = {};
    /// Asked before each plot into a file, and often while it goes on; false: somebody cancelled, and the plot fails.
    /// Empty: none is refused.
    std::function<bool()> mayPlot = {};
    /// Asked when the user is to pick a point; outlives the host. Null: there is no window, and picking fails.
    IPointPicker* picker = nullptr;
};

} // namespace sm::cadhost
