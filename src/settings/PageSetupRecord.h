// SPDX-License-Identifier: GPL-3.0-or-later
// The plain page setup record that the page setup object, the plot loop and the drawing records share.
#pragma once

#include "settings/SettingTable.h"

#include <cstdint>
#include <string>

namespace sm {

/// Stands for the suite's own PC3 file until the plot loop puts the chosen name in its place.
inline constexpr const char* kOwnConfigName = "*TARNWICK*";

/// Booleans are held as 32-bit integers: 1 true, 0 false, any non-zero value counts as true. Paper sizes and origin in
/// millimetres, window in drawing units. The initial values are the defaults
/// of the global page setup.
struct PageSetupRecord {
    std::string ConfigName = kOwnConfigName;
    std::string CanonicalMediaName = DefaultName("CanonicalMediaName");
    std::string LocaleMedianame;
    std::int32_t PlotRotation = DefaultWhole("PlotRotation"); ///< 0, 1 (90 degrees), 2, 3 (270 degrees)
    std::int32_t PlotType = DefaultWhole("PlotType");         ///< see PlotType
    std::string ViewToPlot = DefaultName("ViewToPlot");
    double WinLowerLeftX = DefaultNumber("WinLowerLeftX"), WinLowerLeftY = DefaultNumber("WinLowerLeftY");
    double WinUpperRightX = DefaultNumber("WinUpperRightX"), WinUpperRightY = DefaultNumber("WinUpperRightY");
    std::int32_t CenterPlot = DefaultWhole("CenterPlot");
    double PlotOriginX = DefaultNumber("PlotOriginX"), PlotOriginY = DefaultNumber("PlotOriginY");
    std::int32_t PlotHidden = DefaultWhole("PlotHidden");
    std::int32_t UseStandardScale = DefaultWhole("UseStandardScale");
    std::int32_t PlotWithLineweights = DefaultWhole("PlotWithLineWeights");
    std::int32_t PlotWithPlotStyles = DefaultWhole("PlotWithPlotStyles");
    std::int32_t ScaleLineWeights = DefaultWhole("ScaleLineWeights");
    std::int32_t ShowPlotStyles = DefaultWhole("ShowPlotStyles");
    std::int32_t PlotViewportBorders = DefaultWhole("PlotViewportBorders");
    std::int32_t PlotViewportsFirst = DefaultWhole("PlotViewportsFirst");
    std::int32_t StandardScale = DefaultWhole("StandardScale"); ///< the host's code; 0 scale to fit
    std::int32_t PaperUnits = DefaultWhole("PaperUnits");       ///< see PaperUnits
    double ScaleNumer = DefaultNumber("ScaleNumer"), ScaleDenom = DefaultNumber("ScaleDenom");
    std::string StyleSheet = DefaultName("StyleSheet"); ///< empty: none
    double PaperWidth = DefaultNumber("PaperWidth"), PaperHeight = DefaultNumber("PaperHeight");
    friend bool operator==(const PageSetupRecord&, const PageSetupRecord&) = default;
};

} // namespace sm
