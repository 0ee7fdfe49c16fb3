// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/PageMapping.h"

#include "plugin/Present.h"
#include "ports/HostError.h"
#include "ports/PlotNumbers.h"

#include <cmath>

namespace sm {

namespace {

constexpr double kPointsPerMillimetre = 72 / 25.4;

double MarkScale(IAcadLayout& layout)
{
    double numerator = 1, denominator = 1;
    layout.GetCustomScale(numerator, denominator);
    if (denominator == 0)
        throw HostError("Division by zero");
    const double ratio = numerator / denominator;
    switch (layout.PaperUnits()) {
    case kPaperInches:
        return ratio * 72;
    case kPaperMillimeters:
        return ratio * kPointsPerMillimetre;
    default:
        return ratio;
    }
}

AcadPoint WorldToWorld(IAcadDocument& document, const AcadPoint& point)
{
    return Present(document.Utility(), "Utility")->TranslateCoordinates(point, 0, 0, 0);
}

AcadPoint ViewCorner(IAcadDocument& document, IAcadLayout& layout)
{
    const auto view = Present(Present(document.Views(), "Views")->Item(layout.ViewToPlot()), "View");
    const AcadPoint center = view->Center();
    return {center.x - view->Width() / 2, center.y - view->Height() / 2, 0};
}

AcadPoint ExtentsCorner(IAcadDocument& document)
{
    const AcadVariant least = document.GetVariable("EXTMIN");
    const AcadVariant most = document.GetVariable("EXTMAX");
    if (!std::holds_alternative<AcadPoint>(least) || !std::holds_alternative<AcadPoint>(most))
        throw HostError("Type mismatch");
    const AcadPoint lowerLeft = WorldToWorld(document, std::get<AcadPoint>(least));
    WorldToWorld(document, std::get<AcadPoint>(most));
    return lowerLeft;
}

/// The drawing point that is plotted at the origin; (0, 0) for plot types without a shift.
AcadPoint PlottedCorner(IAcadDocument& document, IAcadLayout& layout)
{
    switch (layout.PlotType()) {
    case kPlotWindow: {
        AcadPoint lowerLeft, upperRight;
        layout.GetWindowToPlot(lowerLeft, upperRight);
        return lowerLeft;
    }
    case kPlotLimits: {
        const auto limits = document.Limits();
        return WorldToWorld(document, {limits[0], limits[1], 0});
    }
    case kPlotView:
        return ViewCorner(document, layout);
    case kPlotExtents:
        return ExtentsCorner(document);
    default:
        return {};
    }
}

} // namespace

PageMapping ComputePageMapping(IAcadDocument& document)
{
    const auto layout = Present(document.ActiveLayout(), "ActiveLayout");
    PageMapping mapping;
    mapping.markScale = MarkScale(*layout);
    const AcadPoint origin = layout->PlotOrigin();
    AcadPoint lowerLeft, upperRight;
    layout->GetPaperMargins(lowerLeft, upperRight);
    mapping.markOffsetX = lowerLeft.x * kPointsPerMillimetre + origin.x * kPointsPerMillimetre;
    mapping.markOffsetY = lowerLeft.y * kPointsPerMillimetre + origin.y * kPointsPerMillimetre;
    const AcadPoint corner = PlottedCorner(document, *layout);
    mapping.markOffsetX -= mapping.markScale * corner.x;
    mapping.markOffsetY -= mapping.markScale * corner.y;
    if (!std::isfinite(mapping.markScale) || !std::isfinite(mapping.markOffsetX) || !std::isfinite(mapping.markOffsetY))
        throw HostError("Overflow");
    return mapping;
}

} // namespace sm
