#include "run/LayoutSelection.h"

#include "commandline/Suggest.h"
#include "ports/PlotNumbers.h"

#include <algorithm>

namespace sm::app {
namespace {

using cadhost::LayoutOutline;

std::vector<std::string> Names(const std::vector<LayoutOutline>& layouts)
{
    std::vector<std::string> names;
    for (const LayoutOutline& layout : layouts)
        names.push_back(layout.name);
    return names;
}

void SelectByName(const std::string& name, const std::vector<LayoutOutline>& layouts, LayoutSelection& selection)
{
    const std::vector<std::string> names = Names(layouts);
    const std::string found = FindName(name, names);
    if (found.empty()) {
        const std::string suggestion = Suggestion(name, names);
        selection.error =
            "has no layout \"" + name + "\"" + (suggestion.empty() ? "; it has " + QuotedList(names) : suggestion);
        return;
    }
    selection.activeLayout = found;
    selection.whatToPlot = kPlotCurrentTab;
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
    if (options.layoutName) {
        SelectByName(*options.layoutName, layouts, selection);
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
