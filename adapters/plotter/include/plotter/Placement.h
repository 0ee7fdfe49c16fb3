// SPDX-License-Identifier: GPL-3.0-or-later
// Where a layout's drawing lands on the sheet.
#pragma once

#include "drawing/Tables.h"
#include "render/Matrix.h"

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>

namespace sm::drawing {
class Drawing;
struct Layout;
struct PlotSettings;
} // namespace sm::drawing

namespace sm::plotter {

/// A plot area that can't be found: a named view that isn't there.
class PlotError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Millimetres on the sheet as it leaves the plotter: the unturned medium.
struct Placement {
    double sheetWidth = 0, sheetHeight = 0;
    render::Matrix3 view;     ///< world to display plane
    drawing::ViewDepth depth; ///< of that view
    Vec3 direction{0, 0, 1};  ///< from its target to the eye
    render::Matrix2 toPaper;  ///< display plane to sheet
    Box2 clip;                ///< printable area, and the plotted area where it is smaller
    Box2 whole;               ///< of all that is plotted, where the clip cuts off nothing but pens; empty else
    double scaleNumerator = 1, scaleDenominator = 1; ///< in force: paper units for drawing units
    Vec2 origin; ///< of the plotted area in the printable one, along the drawing's axes
};

/// Host scale codes: 0 scale to fit, 1 to 32 the standard scales, paper units for drawing units. Nothing for others.
struct StandardScaleValue {
    double numerator = 1, denominator = 1;
};
const StandardScaleValue* FindStandardScale(std::int32_t code);

/// Places `layout` as `settings` say. `extents` is asked only where it is needed: the box, in the display plane of the
/// given view, of what the layout's space plots. A plot area without size is taken round its middle at 1:1.
/// Throws PlotError.
Placement Place(const drawing::Drawing& drawing, const drawing::Layout& layout, const drawing::PlotSettings& settings,
                const std::function<Box2(const render::Matrix3& view)>& extents);

} // namespace sm::plotter
