// SPDX-License-Identifier: GPL-3.0-or-later
// "log" and "report merge": what runs told of themselves.
#pragma once

#include "commandline/Jobs.h"
#include "machine/Install.h"

#include <iosfwd>

namespace sm::app {

/// Prints the last conversion's log, another one, or which there are. Returns the exit code.
int RunLog(const LogJob& job, const Install& install, std::ostream& out, std::ostream& err);

/// The merged report goes to its file or to `out`. Returns the exit code that one run over all drawings had ended with.
int RunReportMerge(const ReportJob& job, const Install& install, std::ostream& out, std::ostream& err);

} // namespace sm::app
