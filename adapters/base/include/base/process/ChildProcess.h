// SPDX-License-Identifier: GPL-3.0-or-later
// Runs a program in a process group of its own, within limits and a deadline.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace sm::base {

struct ChildLimits {
    std::chrono::milliseconds deadline{60000};
    std::uint64_t cpuSeconds = 0;  ///< 0: no limit
    std::uint64_t memoryBytes = 0; ///< address space; 0: no limit
    std::uint64_t fileBytes = 0;   ///< size of any file written; 0: no limit
};

struct ChildCommand {
    std::string program;                  ///< absolute path
    std::vector<std::string> arguments;   ///< without the program's name
    std::vector<std::string> environment; ///< "NAME=value", complete
    std::string workingFolder;
    std::string keptLines; ///< output lines that begin with this are kept however much else is printed
    ChildLimits limits;
};

struct ChildResult {
    enum class End { Exited, Signalled, PastDeadline, NotStarted };
    End end = End::NotStarted;
    int code = 0;           ///< exit code, signal number, or errno of a failed start
    std::string reason;     ///< of a signal or a failed start, as the system words it
    bool outOfTime = false; ///< ended because its deadline had passed or its processor time was used up
    std::string output;     ///< standard output and error together: the last 64 KB, and the kept lines before it
};

/// The absolute path of `program` (looked up on $PATH unless it holds a slash); empty when it isn't there.
std::string FindProgram(const std::string& program);
/// The same with `folders` for $PATH.
std::string FindProgram(const std::string& program, const std::string& folders);

/// Waits for the end; past the deadline the whole process group is killed. Nothing of the group outlives the call,
/// and the child doesn't outlive a killed parent.
ChildResult RunChild(const ChildCommand& command);

} // namespace sm::base
