// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/LayoutList.h"

#include "answers/HostText.h"
#include "base/text/Names.h"
#include "drawing/EntityKinds.h"
#include "drawing/entities/Viewports.h"

namespace sm::cadhost {
namespace {

constexpr int kCoordinateDigits = 8, kScaleDigits = 5;

std::string PointText(Vec2 p)
{
    return RoundedText(p.x, kCoordinateDigits) + "," + RoundedText(p.y, kCoordinateDigits);
}

void Count(const drawing::Drawing& drawing, const drawing::Layout& layout, LayoutFacts& facts)
{
    const drawing::EntityRecord* const sheet =
        layout.isModel ? nullptr : drawing::SheetViewportOf(drawing, layout.block);
    for (const drawing::EntityRecord& record : drawing.EntitiesOf(layout.block)) {
        if (&record == sheet)
            continue;
        ++facts.entities;
        if (record.kind == drawing::EntityKind::Viewport && !layout.isModel)
            ++facts.viewports;
    }
}

bool HoldsSomething(const drawing::Drawing& drawing, const drawing::Layout& layout)
{
    const auto& entities = drawing.EntitiesOf(layout.block);
    const std::size_t count = std::size(entities);
    return count > 1 || (count == 1 && (layout.isModel || drawing::SheetViewportOf(drawing, layout.block) == nullptr));
}

LayoutFacts FactsOf(OpenDrawing& open, std::size_t index)
{
    const drawing::Layout& layout = open.LayoutAt(index);
    const drawing::PlotSettings settings = open.Configuration(index).Settings();
    const bool turned = (settings.rotation & 1) != 0;
    const bool fit = settings.Has(drawing::PlotSettings::kStandardScale) && settings.standardScale == 0;
    LayoutFacts facts;
    facts.name = layout.name;
    facts.isModel = layout.isModel;
    facts.active = index == open.Active();
    facts.tabOrder = open.TabOrder(index);
    facts.mediaName = settings.mediaName;
    facts.configName = settings.configName;
    facts.styleSheet = settings.styleSheet;
    facts.plotArea = PlotAreaText(settings);
    facts.scale = ScaleText(open.Configuration(index).Scale(open.ExtentsOf(index)), fit);
    facts.paperWidth = turned ? settings.paperHeight : settings.paperWidth;
    facts.paperHeight = turned ? settings.paperWidth : settings.paperHeight;
    Count(open.File(), layout, facts);
    return facts;
}

} // namespace

std::vector<LayoutOutline> OutlineLayouts(const OpenDrawing& open)
{
    std::vector<LayoutOutline> list;
    for (const std::size_t index : open.Shown()) {
        const drawing::Layout& layout = open.LayoutAt(index);
        list.push_back({layout.name, layout.isModel, HoldsSomething(open.File(), layout),
                        layout.plot.paperWidth > 0 && layout.plot.paperHeight > 0,
                        layout.plot.plotType == kPlotDisplay});
    }
    return list;
}

std::string PlotAreaText(const drawing::PlotSettings& settings)
{
    const char* const known = NameOf(kPlotTypes, settings.plotType);
    const std::string name = base::FoldCase(*known != '\0' ? known : NameOf(kPlotTypes, kPlotLayout));
    if (settings.plotType == kPlotView)
        return name + " '" + settings.viewName + "'";
    if (settings.plotType == kPlotWindow)
        return name + " " + PointText(settings.window.min) + " to " + PointText(settings.window.max);
    return name;
}

std::string ScaleText(const PlotScale& scale, bool fit)
{
    const double ratio = scale.numerator / scale.denominator;
    const std::string text =
        ratio > 1 ? RoundedText(ratio, kScaleDigits) + ":1" : "1:" + RoundedText(1 / ratio, kScaleDigits);
    return fit ? "fit (" + text + ")" : text;
}

std::vector<LayoutFacts> ListLayouts(OpenDrawing& open)
{
    std::vector<LayoutFacts> list;
    for (const std::size_t index : open.Shown())
        list.push_back(FactsOf(open, index));
    return list;
}

} // namespace sm::cadhost
