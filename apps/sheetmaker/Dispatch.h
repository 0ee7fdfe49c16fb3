// SPDX-License-Identifier: GPL-3.0-or-later
// From the words of the command line to the exit code.
#pragma once

#include "machine/Install.h"

#include "commandline/Jobs.h"

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace sm::app {

/// Does one of the jobs that show windows, SettingsJob or PageSetupJob; returns the exit code.
using ShowWindows = std::function<int(const Job& job, const Install& install)>;

/// `words` are the arguments without the program's name. Without `showWindows` the process becomes the program with
/// the windows for those jobs.
int RunProgram(const std::vector<std::string>& words, const Install& install, std::ostream& out, std::ostream& err,
               const ShowWindows& showWindows = {});

} // namespace sm::app
