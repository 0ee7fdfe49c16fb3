// What the CAD host tells of a drawing, in the command line's own terms.
#pragma once

#include "cadhost/CadHost.h"
#include "report/RunReport.h"
#include "run/LayoutSelection.h"

#include <memory>
#include <vector>

namespace sm::app {

std::vector<LayoutSight> LayoutSights(cadhost::CadHost& host, const std::shared_ptr<IAcadDocument>& document);

/// Entity counts, damage and fonts; kinds that weren't drawn are summed over the layers, most frequent first.
void TakeHostReport(const cadhost::DocumentReport& host, DrawingReport& report);

} // namespace sm::app
