// SPDX-License-Identifier: GPL-3.0-or-later
// Starts programs in jobs, which end with all that they started.
#pragma once

#include "base/windows/Handles.h"

#include <string>
#include <vector>

namespace sm::base {

/// One word of a command line, as programs take it apart by the rules of the C runtime.
std::wstring Quoted(const std::string& word);

/// A command line of words.
std::wstring CommandLine(const std::string& program, const std::vector<std::string>& words);

/// A job whose processes, and those that they start, end when it is closed.
Handle MakeJob();

struct PipePair {
    Handle reading, writing;
};

/// A pipe of which a child inherits one end. Both are closed when it can't be made.
enum class ChildEnd { Reading, Writing };
PipePair MakePipe(ChildEnd childEnd);

/// What a program is started with; handles that it inherits may be null.
struct Start {
    std::string program;                  ///< absolute path
    std::wstring commandLine;             ///< with the program's name
    const wchar_t* environment = nullptr; ///< null: that of this process
    std::string workingFolder;            ///< empty: that of this process
    HANDLE input = nullptr, output = nullptr, errors = nullptr;
    std::vector<HANDLE> others{}; ///< that are inherited, too
    DWORD flags = 0;
};

/// The process, in the job before it runs; not open, with the system's last error, when it can't be started.
Handle StartInJob(const Start& start, HANDLE job);

} // namespace sm::base
