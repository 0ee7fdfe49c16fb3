// SPDX-License-Identifier: GPL-3.0-or-later
// Programs of the system, run to their end.
#pragma once

#include <cstdio>
#include <string>

namespace sm::windows {

struct ProgramResult {
    int exitCode = -1;
    std::string output; ///< what it wrote to its standard output
};

inline ProgramResult RunProgram(const std::string& commandLine)
{
    ProgramResult result;
    FILE* const pipe = _popen(commandLine.c_str(), "rt");
    if (pipe == nullptr)
        return result;
    char text[1024];
    while (std::fgets(text, sizeof text, pipe) != nullptr)
        result.output += text;
    result.exitCode = _pclose(pipe);
    return result;
}

} // namespace sm::windows
