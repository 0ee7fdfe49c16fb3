// "report merge": reports of several runs become one.
#pragma once

#include "commandline/Jobs.h"
#include "machine/Install.h"

#include <iosfwd>

namespace sm::app {

/// The merged report goes to its file or to `out`. Returns the exit code that one run over all drawings had ended with.
int RunReportMerge(const ReportJob& job, const Install& install, std::ostream& out, std::ostream& err);

} // namespace sm::app
