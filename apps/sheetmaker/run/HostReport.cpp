#include "run/HostReport.h"

#include <algorithm>
#include <map>

namespace sm::app {
namespace {

constexpr std::int32_t kPlotTypeDisplay = 0;

const drawing::Layout* FindLayout(const drawing::Drawing& drawing, const std::string& name)
{
    const auto& layouts = drawing.Layouts();
    const auto found =
        std::find_if(layouts.begin(), layouts.end(), [&](const drawing::Layout& one) { return one.name == name; });
    return found == layouts.end() ? nullptr : &*found;
}

std::vector<NotDrawn> ByKind(const std::vector<render::RenderReport::NotDrawnKind>& kinds)
{
    std::map<std::string, std::uint64_t> sums;
    for (const auto& kind : kinds)
        sums[kind.kind] += kind.count;
    std::vector<NotDrawn> sorted;
    for (const auto& [kind, count] : sums)
        sorted.push_back({kind, count});
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const NotDrawn& left, const NotDrawn& right) { return left.count > right.count; });
    return sorted;
}

} // namespace

std::vector<LayoutSight> LayoutSights(cadhost::CadHost& host, const std::shared_ptr<IAcadDocument>& document)
{
    std::vector<LayoutSight> sights;
    const drawing::Drawing& drawing = host.DrawingOf(document);
    for (const cadhost::LayoutFacts& facts : host.Layouts(document)) {
        LayoutSight sight{facts.name, facts.isModel, facts.entities > 0, false, false};
        if (const drawing::Layout* layout = FindLayout(drawing, facts.name)) {
            sight.hasPaper = layout->plot.paperWidth > 0 && layout->plot.paperHeight > 0;
            sight.plotsDisplay = layout->plot.plotType == kPlotTypeDisplay;
        }
        sights.push_back(std::move(sight));
    }
    return sights;
}

void TakeHostReport(const cadhost::DocumentReport& host, DrawingReport& report)
{
    report.entities = {host.read, host.drawn, host.hidden, host.offPage, host.notReached, host.notDrawn};
    report.notDrawn = ByKind(host.notDrawnKinds);
    for (const drawing::Finding& finding : host.findings)
        report.damage.push_back({finding.text, finding.count, finding.line, finding.contentLost});
    report.substitutions = host.substitutions;
    for (const auto& [remark, count] : host.remarks)
        report.remarks.push_back(count > 1 ? remark + " (" + std::to_string(count) + " times)" : remark);
}

} // namespace sm::app
