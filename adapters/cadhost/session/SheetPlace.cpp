// SPDX-License-Identifier: GPL-3.0-or-later
#include "cadhost/SheetPlace.h"

#include "devices/PlotConfiguration.h"

namespace sm::cadhost {
namespace {
using drawing::PlotSettings;

/// A map of quarter turns, scale and shift, backwards.
Vec2 Back(const render::Matrix2& map, Vec2 point)
{
    const Vec2 d{point.x - map.e, point.y - map.f};
    const double area = map.Determinant();
    return {(d.x * map.d - d.y * map.c) / area, (d.y * map.a - d.x * map.b) / area};
}

Box2 Back(const render::Matrix2& map, const Box2& box)
{
    Box2 out;
    out.Add(Back(map, box.min));
    out.Add(Back(map, box.max));
    return out;
}

PlotSettings SheetSettings(const drawing::Drawing& drawing, const drawing::Layout& layout)
{
    const auto landscape = [&] { return layout.extents.Empty() || layout.extents.Width() > layout.extents.Height(); };
    PlotSettings settings = PlotConfiguration(drawing, layout, landscape, [](auto&) { return Box2{}; }).Settings();
    if (settings.plotType != kPlotLayout)
        settings.origin = {}; // it moves another plot area
    settings.plotType = kPlotLayout;
    return settings;
}

} // namespace

SheetPlace PlaceOfSheet(const drawing::Drawing& drawing, const drawing::Layout& layout)
{
    const PlotSettings settings = SheetSettings(drawing, layout);
    const plotter::Placement placement =
        plotter::Place(drawing, layout, settings, [](const render::Matrix3&) { return Box2{}; });
    SheetPlace place;
    place.paper = Back(placement.toPaper, Box2{{0, 0}, {placement.sheetWidth, placement.sheetHeight}});
    place.printable = Back(placement.toPaper, placement.clip);
    place.millimetres = std::sqrt(std::abs(placement.toPaper.Determinant()));
    if (settings.Has(PlotSettings::kScaleLineweights))
        place.lineweightScale = placement.scaleNumerator / placement.scaleDenominator;
    place.lineweights = settings.Has(PlotSettings::kLineweights);
    place.viewportsFirst = settings.Has(PlotSettings::kDrawViewportsFirst);
    place.viewportBorders = settings.Has(PlotSettings::kViewportBorders);
    return place;
}

} // namespace sm::cadhost
