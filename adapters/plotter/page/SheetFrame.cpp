// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/SheetFrame.h"
#include "base/Numbers.h"
#include "drawing/Layouts.h"

namespace sm::plotter {

namespace {

struct Medium {
    double width, height, left, bottom, right, top;
};

double MarginOr0(double margin)
{
    return base::IsSize(margin) ? margin : 0;
}

Medium MediumOf(const drawing::PlotSettings& s, bool metric, const Box2& area)
{
    if (!base::IsSize(s.paperWidth) || !base::IsSize(s.paperHeight)) {
        const double across = metric ? 210 : 215.9;
        const double along = metric ? 297 : 279.4;
        const bool lying = !area.Empty() && area.Width() > area.Height();
        return {lying ? along : across, lying ? across : along, 0, 0, 0, 0};
    }
    const Medium medium{s.paperWidth,
                        s.paperHeight,
                        MarginOr0(s.marginLeft),
                        MarginOr0(s.marginBottom),
                        MarginOr0(s.marginRight),
                        MarginOr0(s.marginTop)};
    if (medium.left + medium.right >= medium.width || medium.bottom + medium.top >= medium.height) {
        return {s.paperWidth, s.paperHeight, 0, 0, 0, 0};
    }
    return medium;
}

/// The drawing's axes on the medium. Rotation 1 turns the medium a quarter counter-clockwise under the drawing, so that
/// the drawing's x runs down the unturned medium and its lower-left corner is the medium's upper-left one.
render::Matrix2 TurnOf(std::int32_t rotation, const Box2& printable)
{
    switch (rotation) {
    case 1:
        return {0, -1, 1, 0, printable.min.x, printable.max.y};
    case 2:
        return {-1, 0, 0, -1, printable.max.x, printable.max.y};
    case 3:
        return {0, 1, -1, 0, printable.max.x, printable.min.y};
    default:
        return {1, 0, 0, 1, printable.min.x, printable.min.y};
    }
}

double Finite(double value)
{
    return std::isfinite(value) ? value : 0;
}

} // namespace

SheetFrame MakeSheetFrame(const drawing::PlotSettings& settings, bool metric, const Box2& area)
{
    const Medium medium = MediumOf(settings, metric, area);
    SheetFrame frame;
    frame.sheetWidth = medium.width;
    frame.sheetHeight = medium.height;
    frame.printable.Add(Vec2{medium.left, medium.bottom});
    frame.printable.Add(Vec2{medium.width - medium.right, medium.height - medium.top});
    frame.toSheet = TurnOf(settings.rotation, frame.printable);
    const bool lying = settings.rotation == 1 || settings.rotation == 3;
    frame.width = lying ? frame.printable.Height() : frame.printable.Width();
    frame.height = lying ? frame.printable.Width() : frame.printable.Height();
    // The file gives the origin along the axes of the unturned medium.
    frame.originX = Finite(lying ? settings.origin.y : settings.origin.x);
    frame.originY = Finite(lying ? settings.origin.x : settings.origin.y);
    return frame;
}

} // namespace sm::plotter
