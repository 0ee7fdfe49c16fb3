// SPDX-License-Identifier: GPL-3.0-or-later
// What a worker process does that isn't a copy of its parent.
#pragma once

#include "commandline/Jobs.h"
#include "machine/Install.h"

#include <iosfwd>

namespace sm::app {

/// Reads its task from `in` to the end, does the part of `job` that the task names, and writes its report to `out`. The
/// lines of the run go to `err`. Returns the exit code.
int RunWorker(const Job& job, const Install& install, std::istream& in, std::ostream& out, std::ostream& err);

} // namespace sm::app
