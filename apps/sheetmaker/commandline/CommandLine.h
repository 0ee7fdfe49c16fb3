// SPDX-License-Identifier: GPL-3.0-or-later
// The command line: words in, a job out. Nothing is looked up and nothing is done here.
#pragma once

#include "commandline/Jobs.h"

#include <optional>
#include <string>
#include <vector>

namespace sm::app {

/// Either a job, or what to print and the exit code to end with.
struct ParsedCommand {
    std::optional<Job> job;
    int exitCode = 0;
    std::string output; ///< for stdout, with its line ends
    std::string error;  ///< for stderr, with its line ends
    std::string dwgConverter{};
};

/// `words` are the arguments without the program's name. `versionLine` is what --version prints.
ParsedCommand ParseCommandLine(const std::vector<std::string>& words, const std::string& versionLine);

} // namespace sm::app
