// What the CAD host tells of a drawing, in the command line's own terms.
#pragma once

#include "cadhost/CadHost.h"
#include "report/RunReport.h"

namespace sm::app {

/// Entity counts, damage and fonts; kinds that weren't drawn are summed over the layers, most frequent first.
void TakeHostReport(const cadhost::DocumentReport& host, DrawingReport& report);

} // namespace sm::app
