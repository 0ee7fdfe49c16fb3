// SPDX-License-Identifier: GPL-3.0-or-later
#include "layouts/LargeSheets.h"

#include "base/text/Names.h"
#include "drawing/Drawing.h"
#include "plotting/PaperTable.h"
#include "terminal/PaperChoice.h"

#include <algorithm>

namespace sm::app {
namespace {

bool IsPlotted(const drawing::Layout& layout, const LayoutSelection& selection)
{
    if (selection.whatToPlot == kPlotCurrentTab && selection.activeLayout)
        return base::SameName(layout.name, *selection.activeLayout);
    const auto& only = selection.onlyLayouts;
    return !layout.isModel && (only.empty() || std::find(only.begin(), only.end(), layout.name) != only.end());
}

/// The row to fit the sheet on; null where matching or the picker finds one that holds it.
const PaperSize* PaperToFitOn(const drawing::PlotSettings& own, const std::vector<PaperSize>& table)
{
    PageSetupRecord record;
    record.CanonicalMediaName = own.mediaName;
    record.PaperWidth = own.paperWidth;
    record.PaperHeight = own.paperHeight;
    record.PlotRotation = own.rotation & 3;
    const bool lying = (own.rotation & 1) != 0;
    const terminal::Paper sheet{lying ? own.paperHeight : own.paperWidth, lying ? own.paperWidth : own.paperHeight};
    if (!(sheet.width > 0 && sheet.height > 0) || MatchMedia(record, table))
        return nullptr;
    std::vector<std::string> names;
    for (const PaperSize& row : table)
        names.push_back(row.LocaleMedianame);
    if (terminal::NearestLarger(names, sheet))
        return nullptr;
    const auto largest = terminal::LargestLike(names, sheet);
    return largest ? &table[static_cast<std::size_t>(*largest)] : nullptr;
}

} // namespace

std::map<std::string, cadhost::FittedPaper> SheetsToFit(const drawing::Drawing& drawing,
                                                        const LayoutSelection& selection)
{
    std::map<std::string, cadhost::FittedPaper> fitted;
    const std::int32_t source = selection.pageSetupSource.value_or(kPageSetupNative);
    if (source != kPageSetupNative)
        return fitted;
    std::vector<PaperSize> table;
    LoadPaperTable(table);
    for (const drawing::Layout& layout : drawing.Layouts()) {
        const PaperSize* const paper = IsPlotted(layout, selection) ? PaperToFitOn(layout.plot, table) : nullptr;
        if (paper != nullptr)
            fitted[layout.name] = {paper->CanonicalMediaName, paper->LocaleMedianame, paper->Width, paper->Height};
    }
    return fitted;
}

} // namespace sm::app
