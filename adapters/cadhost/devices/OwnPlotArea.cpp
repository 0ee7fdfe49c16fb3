// SPDX-License-Identifier: GPL-3.0-or-later
#include "devices/OwnPlotArea.h"

#include "answers/HostText.h"
#include "drawing/Drawing.h"
#include "drawing/PlanView.h"
#include "ports/PlotNumbers.h"

#include <algorithm>

namespace sm::cadhost {
namespace {
using drawing::NamedView;
using drawing::PlotSettings;

constexpr double kSheetTolerance = 3; // mm, as media are told apart

bool IsThere(const drawing::Drawing& drawing, const drawing::Layout& layout, const std::string& name)
{
    return std::any_of(drawing.Views().begin(), drawing.Views().end(), [&](const NamedView& view) {
        return view.paperSpace != layout.isModel && SameName(view.name, name);
    });
}

/// Millimetres of paper for a drawing unit; under scale to fit those of 1:1.
double Millimetres(const PlotSettings& own)
{
    const double unit = own.paperUnits == kPaperInches ? kMillimetresPerInch : 1;
    if (own.Has(PlotSettings::kStandardScale)) {
        const auto* standard = plotter::FindStandardScale(own.standardScale);
        if (standard != nullptr)
            return unit * standard->numerator / standard->denominator;
    }
    return unit * own.scaleNumerator / own.scaleDenominator;
}

/// The one view of the sheet that is no larger than it; null when there are several, or none.
const NamedView* OneThatFits(const drawing::Drawing& drawing, const PlotSettings& own)
{
    const bool turned = (own.rotation & 1) != 0;
    const double width = (turned ? own.paperHeight : own.paperWidth) + kSheetTolerance;
    const double height = (turned ? own.paperWidth : own.paperHeight) + kSheetTolerance;
    const double scale = Millimetres(own);
    const NamedView* found = nullptr;
    for (const NamedView& view : drawing.Views()) {
        const bool fits =
            view.width > 0 && view.height > 0 && view.width * scale <= width && view.height * scale <= height;
        if (!view.paperSpace || !fits)
            continue;
        if (found != nullptr)
            return nullptr;
        found = &view;
    }
    return found;
}

Box2 Moved(const Box2& box, Vec2 by)
{
    return {box.min + by, box.max + by};
}

/// Whether the two have a point in common; the window's corners may stand in any order.
bool Meets(const Box2& window, const Box2& extents)
{
    const auto [left, right] = std::minmax(window.min.x, window.max.x);
    const auto [bottom, top] = std::minmax(window.min.y, window.max.y);
    return left <= extents.max.x && right >= extents.min.x && bottom <= extents.max.y && top >= extents.min.y;
}

} // namespace

std::string MendView(const drawing::Drawing& drawing, const drawing::Layout& layout, PlotSettings& own)
{
    if (own.plotType != kPlotView || IsThere(drawing, layout, own.viewName))
        return {};
    const std::string missing = own.viewName.empty()
                                    ? "names no view to plot"
                                    : "plots the view \"" + own.viewName + "\", which is not in the drawing";
    const NamedView* const other = layout.isModel ? nullptr : OneThatFits(drawing, own);
    if (other != nullptr) {
        own.viewName = other->name;
        return "layout \"" + layout.name + "\" " + missing + "; its view \"" + other->name + "\" is plotted";
    }
    own.plotType = kPlotExtents;
    return "layout \"" + layout.name + "\" " + missing + "; its extents are plotted";
}

std::string MendWindow(const drawing::Drawing& drawing, const drawing::Layout& layout, const ExtentsSource& extents,
                       PlotSettings& own)
{
    const auto view = layout.isModel ? drawing.ActiveModelView() : std::nullopt;
    if (own.plotType != kPlotWindow || !view || !drawing::IsPlanView(view->direction) || view->twist != 0)
        return {};
    const Vec2 target{view->target.x, view->target.y};
    if (target.x == 0 && target.y == 0)
        return {};
    const Box2 shown = extents({});
    const Box2 other = Moved(own.window, target);
    if (shown.Empty() || Meets(own.window, shown) || !Meets(other, shown))
        return {};
    own.window = other;
    return "layout \"" + layout.name +
           "\": nothing lies in its plot window as world coordinates, so it is taken relative to the view's target";
}

} // namespace sm::cadhost
