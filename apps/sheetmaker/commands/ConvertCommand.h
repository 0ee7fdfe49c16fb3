// SPDX-License-Identifier: GPL-3.0-or-later
// "convert": checks names, plans the PDFs, runs the drawings, reports.
#pragma once

#include "commandline/Jobs.h"
#include "machine/Install.h"
#include "workers/Worker.h"

#include <iosfwd>

namespace sm::app {

/// The work on a drawing, unless its PDF can't be written.
WorkerWork Refusing(const WorkerWork& work);

/// Results go to `out`, everything else to `err`. `work` converts one drawing in its own process. Returns the exit
/// code.
int RunConvert(const ConvertJob& job, const Install& install, const WorkerWork& work, std::ostream& out,
               std::ostream& err);

} // namespace sm::app
