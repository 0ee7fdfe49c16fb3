// SPDX-License-Identifier: GPL-3.0-or-later
// Layouts with their plot settings, as the file holds them (DXF reference, PLOTSETTINGS and LAYOUT objects).
#pragma once

#include "drawing/Tables.h"
#include "ports/PlotNumbers.h"

#include <string>

namespace sm::drawing {

/// Lengths in millimetres unless said otherwise.
struct PlotSettings {
    std::string pageSetupName;                                               ///< 1
    std::string configName;                                                  ///< 2: printer or PC3
    std::string mediaName;                                                   ///< 4
    std::string viewName;                                                    ///< 6
    double marginLeft = 0, marginBottom = 0, marginRight = 0, marginTop = 0; ///< 40 to 43, of the unturned sheet
    double paperWidth = 0, paperHeight = 0;                                  ///< 44, 45, of the unturned sheet
    Vec2 origin;                                                             ///< 46, 47
    Box2 window;                            ///< 48, 49, 140, 141, drawing units; may be empty or inverted in the file
    double scaleNumerator = 1;              ///< 142, paper units
    double scaleDenominator = 1;            ///< 143, drawing units
    std::int32_t flags = 0;                 ///< 70
    std::int32_t paperUnits = kPaperInches; ///< 72, a PaperUnits where the file is sound
    std::int32_t rotation = 0;              ///< 73: 0 to 3, quarter turns counter-clockwise
    std::int32_t plotType = kPlotDisplay;   ///< 74, a PlotType where the file is sound
    std::string styleSheet;                 ///< 7
    std::int32_t standardScale = 0;         ///< 75; 0 scale to fit
    double standardScaleFactor = 1;         ///< 147
    // Bits of `flags`.
    [[nodiscard]] bool Has(std::int32_t bit) const { return (flags & bit) != 0; }
    static constexpr std::int32_t kViewportBorders = 1, kShowStyles = 2, kCentered = 4, kHidden = 8,
                                  kStandardScale = 16, kPlotStyles = 32, kScaleLineweights = 64, kLineweights = 128,
                                  kDrawViewportsFirst = 512;
};

struct Layout {
    std::string name;
    Handle handle = 0;
    std::int32_t tabOrder = 0; ///< 0 the model tab; paper tabs 1, 2, ... without gaps or doubles
    std::uint32_t block = 0;   ///< index of the block that holds its entities
    bool isModel = false;
    bool hasPlotSettings = true; ///< false: the file held none, the values are assumed
    PlotSettings plot;
    Box2 limits, extents; ///< drawing units; empty when missing or inverted in the file
    Vec3 insertionBase;
    bool psltscale = true; ///< flag 1 of the LAYOUT object: line types scale with viewports
};

class Drawing;
/// The model tab; null for a drawing that has none, as only fakes do.
const Layout* ModelLayoutOf(const Drawing&);

} // namespace sm::drawing
