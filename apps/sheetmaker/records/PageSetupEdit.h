// SPDX-License-Identifier: GPL-3.0-or-later
// "page-setup DRAWING --show", "--set", "--remove": the drawing's own PDF page setup, without a screen.
#pragma once

#include "commandline/Jobs.h"
#include "machine/Install.h"

#include <iosfwd>

namespace sm::app {

/// Whether the job is one of these; the others show a window.
bool IsPageSetupEdit(const PageSetupJob& job);
/// Returns the exit code.
int RunPageSetupEdit(const PageSetupJob& job, const Install& install, std::ostream& out, std::ostream& err);

} // namespace sm::app
