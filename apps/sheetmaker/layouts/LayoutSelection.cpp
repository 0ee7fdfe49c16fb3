// SPDX-License-Identifier: GPL-3.0-or-later
#include "layouts/LayoutSelection.h"

#include "layouts/LayoutNames.h"
#include "ports/PlotNumbers.h"

#include <algorithm>
#include <set>

namespace sm::app {
namespace {

using cadhost::LayoutOutline;

/// The layouts that the words mean together, in tab order; `error` when one means none.
std::vector<std::string> Meant(const std::vector<std::string>& words, const std::vector<LayoutOutline>& layouts,
                               std::string& error)
{
    std::vector<std::string> names;
    for (const bool model : {true, false})
        for (const LayoutOutline& layout : layouts)
            if (layout.isModel == model)
                names.push_back(layout.name);
    const auto models = static_cast<std::size_t>(
        std::count_if(layouts.begin(), layouts.end(), [](const LayoutOutline& layout) { return layout.isModel; }));
    std::set<std::string> wanted;
    for (const std::string& word : words) {
        const MeantLayouts meant = LayoutsMeantBy(word, names, models);
        if (!meant.error.empty()) {
            error = meant.error;
            return {};
        }
        wanted.insert(meant.names.begin(), meant.names.end());
    }
    std::erase_if(names, [&](const std::string& name) { return !wanted.contains(name); });
    return names;
}

void SelectByName(const std::vector<std::string>& words, const std::vector<LayoutOutline>& layouts,
                  LayoutSelection& selection)
{
    const std::vector<std::string> names = Meant(words, layouts, selection.error);
    const auto model = std::find_if(layouts.begin(), layouts.end(), [&](const LayoutOutline& layout) {
        return layout.isModel && !names.empty() && layout.name == names.front();
    });
    if (names.size() > 1 && model != layouts.end())
        selection.error = "can't give \"" + model->name + "\" beside its sheets; convert that layout by itself";
    if (!selection.error.empty())
        return;
    if (names.size() == 1) {
        selection.activeLayout = names.front();
        selection.whatToPlot = kPlotCurrentTab;
        return;
    }
    selection.onlyLayouts = names;
    selection.whatToPlot = kPlotAllTabs;
}

/// The model tab; with the global page setup where its own has no paper or plots what a screen happened to show.
void SelectModel(const std::vector<LayoutOutline>& layouts, LayoutSelection& selection)
{
    const auto model =
        std::find_if(layouts.begin(), layouts.end(), [](const LayoutOutline& layout) { return layout.isModel; });
    selection.whatToPlot = kPlotCurrentTab;
    if (model == layouts.end()) {
        selection.error = "has no model layout";
        return;
    }
    selection.activeLayout = model->name;
    if ((!model->hasPaper || model->plotsDisplay) && !selection.pageSetupSource)
        selection.pageSetupSource = kPageSetupGlobal;
}

void SelectAuto(const std::vector<LayoutOutline>& layouts, LayoutSelection& selection)
{
    std::size_t paperLayouts = 0;
    for (const LayoutOutline& layout : layouts) {
        paperLayouts += layout.isModel ? 0 : 1;
        if (!layout.isModel && layout.holdsSomething)
            selection.onlyLayouts.push_back(layout.name);
    }
    if (selection.onlyLayouts.empty()) {
        SelectModel(layouts, selection);
        return;
    }
    selection.whatToPlot = kPlotAllTabs;
    if (selection.onlyLayouts.size() == paperLayouts)
        selection.onlyLayouts.clear();
}

} // namespace

LayoutSelection SelectLayouts(const ConvertOptions& options, const std::vector<LayoutOutline>& layouts)
{
    LayoutSelection selection;
    selection.pageSetupSource = options.pageSetupSource;
    if (!options.layoutNames.empty()) {
        SelectByName(options.layoutNames, layouts, selection);
        return selection;
    }
    if (options.asSet && !options.layouts)
        return selection;
    switch (options.layouts.value_or(LayoutChoice::Auto)) {
    case LayoutChoice::All:
        selection.whatToPlot = kPlotAllTabs;
        break;
    case LayoutChoice::Active:
        selection.whatToPlot = kPlotCurrentTab;
        break;
    case LayoutChoice::Model:
        SelectModel(layouts, selection);
        break;
    case LayoutChoice::Auto:
        SelectAuto(layouts, selection);
        break;
    }
    return selection;
}

} // namespace sm::app
