// SPDX-License-Identifier: GPL-3.0-or-later
// The end of a command that can't be done as asked for.
#pragma once

#include "commandline/ExitCodes.h"

#include <string>

namespace sm::app {

/// Thrown by what a command calls; the command prints the text after its own name and ends with the code.
struct Refusal {
    int exitCode = kExitUsage;
    std::string text;
};

} // namespace sm::app
