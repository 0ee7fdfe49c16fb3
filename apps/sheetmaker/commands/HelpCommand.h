// SPDX-License-Identifier: GPL-3.0-or-later
// "help": a command's or a setting's explanation.
#pragma once

#include "commandline/Jobs.h"

#include <iosfwd>

namespace sm::app {

/// A command goes before a setting of the same name. Returns the exit code; an unknown topic is refused with the
/// nearest name.
int RunHelp(const HelpJob& job, std::ostream& out, std::ostream& err);

} // namespace sm::app
