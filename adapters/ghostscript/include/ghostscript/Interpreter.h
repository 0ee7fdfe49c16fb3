// SPDX-License-Identifier: GPL-3.0-or-later
// The PostScript interpreter as a program: each run is a process with limits that sees nothing but its folder.
#pragma once

#include "base/process/ChildProcess.h"

#include <string>
#include <vector>

namespace sm::ghostscript {

struct InterpreterRun {
    std::string program; ///< as `FindInterpreter` gave it
    /// Private and empty but for what the caller put there; the run's temporary files go into it, too. Everything else
    /// is named relative to it.
    std::string folder;
    std::vector<std::string> arguments; ///< besides those that every run has: quiet, safe, no pauses
    std::vector<std::string> readable;  ///< files that a program may open by name
    std::string input;                  ///< what the interpreter reads; may be one of `readable`
    std::string keptLines;              ///< see ChildCommand
    base::ChildLimits limits;
};

/// The absolute path of the interpreter that `program` (a name on $PATH, or a path) stands for; empty when it isn't
/// there.
std::string FindInterpreter(const std::string& program);

/// What puts the interpreter in place on this system, for a message.
extern const char* const kInterpreterRemedy;

/// Runs it and waits for its end.
base::ChildResult RunInterpreter(const InterpreterRun& run);

/// Puts `path`, whatever characters it holds, into the folder under a plain name. The reason when that failed, else "".
std::string LinkInput(const std::string& folder, const std::string& name, const std::string& path);

} // namespace sm::ghostscript
