// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Numbers.h"
#include "base/Units.h"
#include "drawing/Drawing.h"
#include "page/PlotArea.h"
#include "page/SheetFrame.h"

#include <optional>

namespace sm::plotter {

namespace {
using drawing::PlotSettings;

/// Pixels count as millimetres: media in pixels give their size so.
double UnitInMillimetres(std::int32_t paperUnits)
{
    return paperUnits == kPaperInches ? base::kMillimetresPerInch : 1;
}

/// The ratio the settings ask for; nothing for scale to fit.
std::optional<StandardScaleValue> AskedScale(const PlotSettings& settings)
{
    if (settings.Has(PlotSettings::kStandardScale)) {
        const StandardScaleValue* scale = FindStandardScale(settings.standardScale);
        if (scale != nullptr) {
            return settings.standardScale == 0 ? std::nullopt : std::optional(*scale);
        }
    }
    if (base::IsSize(settings.scaleNumerator) && base::IsSize(settings.scaleDenominator)) {
        return StandardScaleValue{settings.scaleNumerator, settings.scaleDenominator};
    }
    return std::nullopt;
}

/// Millimetres of paper for a drawing unit when `area` just fills the frame; 0 when the area has no size.
double FittedScale(const SheetFrame& frame, const Box2& area)
{
    const double across = area.Empty() || area.Width() <= 0 ? 0 : frame.width / area.Width();
    const double along = area.Empty() || area.Height() <= 0 ? 0 : frame.height / area.Height();
    const double fitted = across > 0 && along > 0 ? std::min(across, along) : std::max(across, along);
    return base::IsSize(fitted) ? fitted : 0;
}

StandardScaleValue ScaleInForce(const PlotSettings& settings, const PlotArea& area, const SheetFrame& frame)
{
    if (const auto asked = AskedScale(settings)) {
        return *asked;
    }
    const double fitted = area.isSheet ? 0 : FittedScale(frame, area.box);
    return fitted > 0 ? StandardScaleValue{1, UnitInMillimetres(settings.paperUnits) / fitted} : StandardScaleValue{};
}

/// Where the area's lower-left corner stands in the frame, millimetres.
Vec2 CornerInFrame(const PlotSettings& settings, const PlotArea& area, const SheetFrame& frame, double scale)
{
    if (area.isSheet) {
        return {frame.originX, frame.originY};
    }
    if (area.box.Empty()) { // nothing to centre: the sheet's own corner
        return settings.Has(PlotSettings::kCentered) ? Vec2{} : Vec2{frame.originX, frame.originY};
    }
    const bool sizeless = area.box.Width() <= 0 || area.box.Height() <= 0;
    if (sizeless || settings.Has(PlotSettings::kCentered)) {
        return {(frame.width - area.box.Width() * scale) / 2, (frame.height - area.box.Height() * scale) / 2};
    }
    return {frame.originX, frame.originY};
}

Box2 Mapped(const render::Matrix2& map, const Box2& box)
{
    Box2 out;
    out.Add(map.Apply(box.min));
    out.Add(map.Apply(box.max));
    return out;
}

Box2 Common(const Box2& a, const Box2& b)
{
    Box2 box;
    box.min = {std::max(a.min.x, b.min.x), std::max(a.min.y, b.min.y)};
    box.max = {std::min(a.max.x, b.max.x), std::min(a.max.y, b.max.y)};
    return box;
}

} // namespace

Placement Place(const drawing::Drawing& drawing, const drawing::Layout& layout, const PlotSettings& settings,
                const std::function<Box2(const render::Matrix3& view)>& extents)
{
    const PlotArea area = FindPlotArea(drawing, layout, settings, extents);
    const SheetFrame frame = MakeSheetFrame(settings, drawing.HeaderInteger("$MEASUREMENT", 0) == 1, area.box);
    const StandardScaleValue ratio = ScaleInForce(settings, area, frame);
    const double scale = ratio.numerator / ratio.denominator * UnitInMillimetres(settings.paperUnits);
    const Vec2 corner = CornerInFrame(settings, area, frame, scale);
    const Vec2 start = area.isSheet || area.box.Empty() ? Vec2{} : area.box.min;

    Placement placement;
    placement.sheetWidth = frame.sheetWidth;
    placement.sheetHeight = frame.sheetHeight;
    placement.view = area.view;
    placement.depth = area.depth;
    placement.direction = area.direction;
    placement.scaleNumerator = ratio.numerator;
    placement.scaleDenominator = ratio.denominator;
    placement.origin = corner;
    placement.toPaper =
        Compose(frame.toSheet, {scale, 0, 0, scale, corner.x - start.x * scale, corner.y - start.y * scale});
    placement.clip = frame.printable;
    const bool hasSize = !area.box.Empty() && area.box.Width() > 0 && area.box.Height() > 0;
    if (area.clips && !area.isSheet && hasSize) {
        placement.clip = Common(frame.printable, Mapped(placement.toPaper, area.box));
    } else if (!area.clips && !area.box.Empty()) {
        placement.whole = Mapped(placement.toPaper, area.box);
    }
    return placement;
}

} // namespace sm::plotter
