// What became of a conversion, from what was heard while it ran.
#pragma once

#include "report/SheetWatcher.h"

#include <string>

namespace sm::app {

/// Fills exit code, failure and PDF path of `report`, which holds the damage already. `plotFailure` is the host's
/// reason for the last plot that failed.
void Conclude(const SheetWatcher& watcher, const std::string& plotFailure, DrawingReport& report);

} // namespace sm::app
