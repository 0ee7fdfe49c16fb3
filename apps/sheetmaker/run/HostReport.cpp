// SPDX-License-Identifier: GPL-3.0-or-later
#include "run/HostReport.h"

#include <algorithm>
#include <map>

namespace sm::app {
namespace {

std::vector<NotDrawn> ByKind(const std::vector<render::NotDrawnKind>& kinds)
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

void TakeHostReport(const cadhost::DocumentReport& host, DrawingReport& report)
{
    report.entities = {host.read, host.drawn, host.hidden, host.offPage, host.notReached, host.notDrawn};
    report.notDrawn = ByKind(host.notDrawnKinds);
    for (const drawing::Finding& finding : host.findings)
        report.damage.push_back({finding.text, finding.count, finding.line, finding.contentLost});
    report.substitutions = host.substitutions;
    report.notToScale = host.notToScale;
    TakeRemarks(host.remarks, report);
}

void TakeRemarks(const CountedRemarks& remarks, DrawingReport& report)
{
    for (const auto& [remark, count] : remarks)
        report.remarks.push_back(count > 1 ? remark + " (" + std::to_string(count) + " times)" : remark);
}

} // namespace sm::app
