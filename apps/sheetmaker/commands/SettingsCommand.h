// SPDX-License-Identifier: GPL-3.0-or-later
// "settings": the settings dialog of a drawing, and the conversion that its "Create PDF" asks for.
#pragma once

#include "commandline/Jobs.h"
#include "machine/Install.h"
#include "run/ScreenParts.h"

#include <iosfwd>

namespace sm::app {

/// Results go to `out`, faults to `err` and, without a terminal, to a message box. The drawing is written once, after
/// the dialog was confirmed and everything in it was kept. Returns the exit code; 0 when the user cancelled.
int RunSettings(const SettingsJob& job, const Install& install, const ScreenParts& screen, std::ostream& out,
                std::ostream& err);

} // namespace sm::app
