// SPDX-License-Identifier: GPL-3.0-or-later
// The plotter's own line types and fills. Those of ISO 128-20 have its proportions (dash 12, long dash 24, short dash
// 6, gap 3, space 18 line widths); the others are ours.
#include "drawing/entities/Hatches.h"
#include "plotstyle/PlotPens.h"

#include <array>

namespace sm::render {

namespace {

constexpr std::size_t kMostElements = 12;
constexpr double kDot = 0.5;
using Elements = std::array<double, kMostElements>; // dashes and gaps in turn; 0 ends them

constexpr std::array<Elements, 31> kLinetypes{{
    {},                                        // solid
    {8, 4},                                    // dashed
    {kDot, 3},                                 // dotted
    {8, 3, kDot, 3},                           // dash dot
    {4, 3},                                    // short dash
    {10, 4},                                   // medium dash
    {16, 4},                                   // long dash
    {8, 6},                                    // short dash x2
    {20, 8},                                   // medium dash x2
    {32, 8},                                   // long dash x2
    {16, 4, 10, 4},                            // medium long dash
    {10, 3, 4, 3, 4, 3},                       // medium dash short dash short dash
    {16, 3, 4, 3},                             // long dash short dash
    {16, 3, kDot, 3, kDot, 3},                 // long dash dot dot
    {16, 3, kDot, 3},                          // long dash dot
    {10, 3, kDot, 3, 4, 3, kDot, 3},           // medium dash dot short dash dot
    {kDot, 6},                                 // sparse dot
    {12, 3},                                   // ISO dash
    {12, 18},                                  // ISO dash space
    {24, 3, kDot, 3},                          // ISO long dash dot
    {24, 3, kDot, 3, kDot, 3},                 // ISO long dash double dot
    {24, 3, kDot, 3, kDot, 3, kDot, 3},        // ISO long dash triple dot
    {kDot, 3},                                 // ISO dot
    {24, 3, 6, 3},                             // ISO long dash short dash
    {24, 3, 6, 3, 6, 3},                       // ISO long dash double short dash
    {12, 3, kDot, 3},                          // ISO dash dot
    {12, 3, 12, 3, kDot, 3},                   // ISO double dash dot
    {12, 3, kDot, 3, kDot, 3},                 // ISO dash double dot
    {12, 3, 12, 3, kDot, 3, kDot, 3},          // ISO double dash double dot
    {12, 3, kDot, 3, kDot, 3, kDot, 3},        // ISO dash triple dot
    {12, 3, 12, 3, kDot, 3, kDot, 3, kDot, 3}, // ISO double dash triple dot
}};

using drawing::HatchLine;

const std::array<HatchLine, 2> kChecks{{{0, {0, 0.5}, {0, 2}, {1, -1}}, {0, {1, 1.5}, {0, 2}, {1, -1}}}};
const std::array<HatchLine, 2> kGrid{{{0, {}, {0, 1}, {}}, {90, {}, {1, 0}, {}}}};
const std::array<HatchLine, 2> kDiamonds{{{45, {}, {0, 1.5}, {}}, {135, {}, {0, 1.5}, {}}}};
const std::array<HatchLine, 1> kHorizontal{{{0, {}, {0, 1}, {}}}};
const std::array<HatchLine, 1> kSlantsLeft{{{135, {}, {0, 1.5}, {}}}};
const std::array<HatchLine, 1> kSlantsRight{{{45, {}, {0, 1.5}, {}}}};
const std::array<HatchLine, 1> kSquares{{{0, {}, {0, 2}, {1, -1}}}};
const std::array<HatchLine, 1> kVertical{{{90, {}, {1, 0}, {}}}};

} // namespace

DashPattern PlotLinetype(std::int32_t number, bool adaptive)
{
    drawing::Linetype linetype;
    if (number >= 0 && number < static_cast<std::int32_t>(kLinetypes.size())) {
        double sign = 1;
        for (const double length : kLinetypes[static_cast<std::size_t>(number)]) {
            if (length > 0) {
                linetype.elements.emplace_back().length = sign * length;
                sign = -sign;
            }
        }
    }
    DashPattern pattern = MakeDashPattern(linetype);
    pattern.aligned = pattern.aligned && adaptive;
    pattern.firstDash = pattern.aligned ? pattern.firstDash : 0;
    return pattern;
}

FillLines LinesOf(PlotFill fill)
{
    switch (fill) {
    case PlotFill::Checkerboard:
        return {kChecks, 1};
    case PlotFill::Crosshatch:
        return {kGrid, 0.2};
    case PlotFill::Diamonds:
        return {kDiamonds, 0.2};
    case PlotFill::HorizontalBars:
        return {kHorizontal, 0.5};
    case PlotFill::SlantLeft:
        return {kSlantsLeft, 0.5};
    case PlotFill::SlantRight:
        return {kSlantsRight, 0.5};
    case PlotFill::SquareDots:
        return {kSquares, 1};
    case PlotFill::VerticalBars:
        return {kVertical, 0.5};
    case PlotFill::Solid:
    case PlotFill::Object:
        break;
    }
    return {};
}

} // namespace sm::render
