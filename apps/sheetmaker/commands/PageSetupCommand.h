// SPDX-License-Identifier: GPL-3.0-or-later
// "page-setup": the page setup dialog, for the user's global page setup or for a drawing's own.
#pragma once

#include "commandline/Jobs.h"
#include "machine/Install.h"
#include "run/ScreenParts.h"

#include <iosfwd>

namespace sm::app {

/// As RunSettings: nothing is kept unless the dialog was confirmed.
int RunPageSetup(const PageSetupJob& job, const Install& install, const ScreenParts& screen, std::ostream& out,
                 std::ostream& err);

} // namespace sm::app
