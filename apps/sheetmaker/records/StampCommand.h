// SPDX-License-Identifier: GPL-3.0-or-later
// "stamp": the text stamp of a drawing.
#pragma once

#include "commandline/Jobs.h"
#include "machine/Install.h"

#include <iosfwd>

namespace sm::app {

/// Returns the exit code. What was done goes to `out`, everything else to `err`.
int RunStamp(const StampJob& job, const Install& install, std::ostream& out, std::ostream& err);

} // namespace sm::app
