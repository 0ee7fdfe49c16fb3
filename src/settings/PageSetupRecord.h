// The plain page setup record that the page setup object, the plot loop and the drawing records share.
#pragma once

#include <cstdint>
#include <string>

namespace sm {

/// Stands for the suite's own PC3 file until the plot loop puts the chosen name in its place.
inline constexpr const char* kOwnConfigName = "*TARNWICK*";

/// Booleans are held as 32-bit integers: 1 true, 0 false, any non-zero value counts as true. Paper sizes and origin in
/// millimetres, window in drawing units. The initial values are the defaults of the global page setup.
struct PageSetupRecord {
    std::string ConfigName = kOwnConfigName;
    std::string CanonicalMediaName = "ANSI_A_(11.00_x_8.50_Inches)";
    std::string LocaleMedianame;
    std::int32_t PlotRotation = 0; ///< 0, 1 (90 degrees), 2, 3 (270 degrees)
    std::int32_t PlotType = 1;     ///< 0 Display, 1 Extents, 2 Limits, 3 View, 4 Window, 5 Layout
    std::string ViewToPlot;
    double WinLowerLeftX = 0, WinLowerLeftY = 0;
    double WinUpperRightX = 0, WinUpperRightY = 0;
    std::int32_t CenterPlot = 1;
    double PlotOriginX = 0, PlotOriginY = 0;
    std::int32_t PlotHidden = 0;
    std::int32_t UseStandardScale = 1;
    std::int32_t PlotWithLineweights = 1;
    std::int32_t PlotWithPlotStyles = 1;
    std::int32_t ScaleLineWeights = 0;
    std::int32_t ShowPlotStyles = 1;
    std::int32_t PlotViewportBorders = 0;
    std::int32_t PlotViewportsFirst = 1;
    std::int32_t StandardScale = 0; ///< the host's code; 0 scale to fit
    std::int32_t PaperUnits = 0;    ///< 0 Inches, 1 Millimeters, 2 Pixels
    double ScaleNumer = 1, ScaleDenom = 1;
    std::string StyleSheet; ///< empty: none
    double PaperWidth = 279.4, PaperHeight = 215.9;
    friend bool operator==(const PageSetupRecord&, const PageSetupRecord&) = default;
};

} // namespace sm
