// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/BlankPage.h"

#include "answers/HostText.h"
#include "cadhost/Remarks.h"
#include "drawing/entities/Viewports.h"
#include "ports/PlotNumbers.h"

#include <algorithm>

namespace sm::cadhost {
namespace {

/// The sheet's own viewport aside.
std::size_t EntitiesOn(const drawing::Drawing& drawing, const drawing::Layout& layout)
{
    const std::size_t count = std::size(drawing.EntitiesOf(layout.block));
    const bool hasOwn = !layout.isModel && drawing::SheetViewportOf(drawing, layout.block) != nullptr;
    return count - (hasOwn ? 1 : 0);
}

bool LiesOutside(const Box2& box, const plotter::Placement& placement)
{
    Box2 onSheet;
    for (const Vec2 corner : {box.min, Vec2{box.max.x, box.min.y}, box.max, Vec2{box.min.x, box.max.y}})
        onSheet.Add(placement.toPaper.Apply(corner));
    const Box2& clip = placement.clip;
    return onSheet.max.x < clip.min.x || onSheet.min.x > clip.max.x || onSheet.max.y < clip.min.y ||
           onSheet.min.y > clip.max.y;
}

std::string WhatTheModelHolds(const drawing::Drawing& drawing, const drawing::Layout& layout)
{
    const drawing::Layout* const model = drawing::ModelLayoutOf(drawing);
    const std::size_t count = layout.isModel || model == nullptr ? 0 : EntitiesOn(drawing, *model);
    if (count == 0)
        return {};
    return "; the model holds " + std::to_string(count) + (count == 1 ? " entity" : " entities");
}

} // namespace

std::string BlankPageRemark(const drawing::Drawing& drawing, const drawing::Layout& layout,
                            const plotter::Placement& placement, const ExtentsSource& extents)
{
    const std::string blank = "layout \"" + layout.name + kBlankPage;
    if (EntitiesOn(drawing, layout) == 0)
        return blank + "it holds nothing" + WhatTheModelHolds(drawing, layout);
    const Box2 box = extents(placement.view);
    if (!box.Empty() && LiesOutside(box, placement))
        return blank + "all that it holds lies outside of the plotted area";
    return blank + "nothing that it holds leaves ink on the plotted area";
}

std::string OffPageRemark(const drawing::Drawing& drawing, const drawing::Layout& layout, std::uint64_t off)
{
    const std::size_t count = EntitiesOn(drawing, layout);
    if (off == 0)
        return {};
    return "layout \"" + layout.name + "\": " + std::to_string(off) + " of " + std::to_string(count) +
           (off == 1 ? " entities lies" : " entities lie") + " outside of the plotted area";
}

std::string CutSheetRemark(const drawing::Layout& layout, const drawing::PlotSettings& inForce,
                           const PlotWishes& wishes)
{
    constexpr double kSameSize = 3; // mm, as for names of papers
    const bool isWhole = layout.plot.plotType != kPlotLayout || layout.plot.paperWidth <= 0;
    if (layout.isModel || isWhole || wishes.fit || !(wishes.paper || wishes.landscape))
        return {};
    const double shrink = wishes.scale ? wishes.scale->paper / wishes.scale->drawing : 1;
    const auto turned = [](const drawing::PlotSettings& plot) {
        const bool lies = (plot.rotation & 1) != 0;
        return Vec2{lies ? plot.paperHeight : plot.paperWidth, lies ? plot.paperWidth : plot.paperHeight};
    };
    const Vec2 sheet = turned(layout.plot), paper = turned(inForce);
    if (sheet.x * shrink <= paper.x + kSameSize && sheet.y * shrink <= paper.y + kSameSize)
        return {};
    const auto size = [](Vec2 of) { return RoundedText(of.x, 5) + " x " + RoundedText(of.y, 5) + " mm"; };
    return "layout \"" + layout.name + "\": its sheet of " + size(sheet) + kCutSheet + size(paper) +
           "; --fit shows all of it";
}

} // namespace sm::cadhost
