// SPDX-License-Identifier: GPL-3.0-or-later
#include "page/PlotArea.h"

#include "base/text/Names.h"
#include "drawing/Drawing.h"
#include "drawing/EntityKinds.h"
#include "drawing/PlanView.h"
#include "drawing/entities/Viewports.h"
#include "render/FrontEnd.h"

#include <algorithm>
#include <cctype>

namespace sm::plotter {

namespace {

Box2 BoxAround(Vec2 center, double width, double height)
{
    Box2 box;
    if (width > 0 && height > 0) {
        const Vec2 half{width / 2, height / 2};
        box.Add(center - half);
        box.Add(center + half);
    }
    return box;
}

render::Matrix3 ViewOf(Vec3 direction, Vec3 target, double twist)
{
    const bool isWorld = drawing::IsPlanView(direction) && target == Vec3{} && twist == 0;
    return isWorld ? render::Matrix3{} : render::ViewMatrix(direction, target, twist);
}

/// The box, in the plane of `view`, of a box in world x and y.
Box2 Seen(const render::Matrix3& view, const Box2& world)
{
    Box2 seen;
    if (!world.Empty()) {
        for (const Vec3 corner : {Vec3{world.min.x, world.min.y, 0}, Vec3{world.max.x, world.min.y, 0},
                                  Vec3{world.max.x, world.max.y, 0}, Vec3{world.min.x, world.max.y, 0}}) {
            const Vec3 p = view.Apply(corner);
            seen.Add(Vec2{p.x, p.y});
        }
    }
    return seen;
}

Box2 LimitsOf(const drawing::Drawing& drawing, const drawing::Layout& layout)
{
    Box2 box = layout.limits;
    const auto low = drawing.HeaderPoint(layout.isModel ? "$LIMMIN" : "$PLIMMIN");
    const auto high = drawing.HeaderPoint(layout.isModel ? "$LIMMAX" : "$PLIMMAX");
    if (box.Empty() && low && high && low->x < high->x && low->y < high->y) {
        box.Add(Vec2{low->x, low->y});
        box.Add(Vec2{high->x, high->y});
    }
    return box;
}

/// The sheet as its own viewport shows it.
Box2 SheetView(const drawing::Drawing& drawing, const drawing::Layout& layout)
{
    const drawing::EntityRecord* const sheet = drawing::SheetViewportOf(drawing, layout.block);
    if (sheet == nullptr) {
        return {};
    }
    drawing::ViewportData viewport;
    Read(drawing, *sheet, viewport);
    const double aspect = viewport.height > 0 ? viewport.width / viewport.height : 0;
    return BoxAround(viewport.viewCenter, viewport.viewHeight * aspect, viewport.viewHeight);
}

PlotArea NamedViewArea(const drawing::Drawing& drawing, const drawing::Layout& layout, const std::string& name)
{
    for (const drawing::NamedView& view : drawing.Views()) {
        if (view.paperSpace != layout.isModel && base::SameName(view.name, name)) {
            PlotArea area;
            area.view = ViewOf(view.direction, view.target, view.twist);
            area.box = BoxAround(view.center, view.width, view.height);
            area.depth = layout.isModel ? view.depth : drawing::ViewDepth{};
            area.direction = view.direction;
            return area;
        }
    }
    throw PlotError("The layout \"" + layout.name + "\" plots the view \"" + name +
                    "\", which is not in the drawing. Choose another plot area.");
}

Box2 Ordered(const Box2& window)
{
    Box2 box;
    const bool finite = std::isfinite(window.min.x) && std::isfinite(window.min.y) && std::isfinite(window.max.x) &&
                        std::isfinite(window.max.y);
    if (finite) {
        box.Add(window.min);
        box.Add(window.max);
    }
    return box;
}

/// Lines without an end have no extents: where a model holds nothing else, what the screen showed is plotted.
bool HoldsEndlessLines(const drawing::Drawing& drawing, std::uint32_t block)
{
    const auto& entities = drawing.EntitiesOf(block);
    return std::any_of(entities.begin(), entities.end(), [](const drawing::EntityRecord& record) {
        return record.kind == drawing::EntityKind::Ray || record.kind == drawing::EntityKind::XLine;
    });
}

} // namespace

PlotArea FindPlotArea(const drawing::Drawing& drawing, const drawing::Layout& layout,
                      const drawing::PlotSettings& settings, const std::function<Box2(const render::Matrix3&)>& extents)
{
    if (settings.plotType == kPlotView) {
        return NamedViewArea(drawing, layout, settings.viewName);
    }
    PlotArea area;
    // Without an active view the plan view stands for it, and what it shows (height 0) is not known.
    const auto active =
        layout.isModel ? drawing.ActiveModelView().value_or(drawing::ModelView{}) : drawing::ModelView{};
    area.view = ViewOf(active.direction, active.target, active.twist);
    area.depth = active.depth;
    area.direction = active.direction;
    const bool showsLayout = settings.plotType == kPlotLayout && !layout.isModel;
    area.isSheet = showsLayout;
    if (settings.plotType == kPlotWindow) {
        // The file keeps the window in world coordinates as long as one looks straight down, in the view's own else.
        const bool plan = drawing::IsPlanView(active.direction);
        area.box = plan ? Seen(area.view, Ordered(settings.window)) : Ordered(settings.window);
    } else if (settings.plotType == kPlotDisplay && layout.isModel) {
        area.box = BoxAround(active.center, active.height * active.aspect, active.height);
    } else if (settings.plotType == kPlotDisplay && !layout.isModel) {
        area.box = SheetView(drawing, layout);
    } else if (settings.plotType == kPlotLimits || (settings.plotType == kPlotLayout && layout.isModel)) {
        area.box = Seen(area.view, LimitsOf(drawing, layout));
    }
    if (area.box.Empty() && !showsLayout) {
        area.box = extents(area.view);
        area.clips = false;
    }
    if (area.box.Empty() && layout.isModel && HoldsEndlessLines(drawing, layout.block)) {
        area.box = BoxAround(active.center, active.height * active.aspect, active.height);
        area.clips = true;
    }
    return area;
}

} // namespace sm::plotter
