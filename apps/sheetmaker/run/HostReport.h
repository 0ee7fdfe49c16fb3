// SPDX-License-Identifier: GPL-3.0-or-later
// What the CAD host tells of a drawing, in the command line's own terms.
#pragma once

#include "cadhost/DocumentReport.h"
#include "report/RunReport.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>

namespace sm::app {

/// Entity counts, damage and fonts; kinds that weren't drawn are summed over the layers, most frequent first.
void TakeHostReport(const cadhost::DocumentReport& host, DrawingReport& report);

/// Remarks with how often each was made.
using CountedRemarks = std::map<std::string, std::uint64_t, std::less<>>;
/// Adds them to the report's lines: "text (3 times)".
void TakeRemarks(const CountedRemarks& remarks, DrawingReport& report);

} // namespace sm::app
