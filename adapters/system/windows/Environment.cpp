// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/Environment.h"

#include "base/process/ChildProcess.h"

namespace sm::system {

Environment ProcessEnvironment()
{
    return [](const std::string& name) { return base::Variable(name); };
}

std::string FindProgram(const Environment& environment, const std::string& program)
{
    return base::FindProgram(program, environment("PATH").value_or(""));
}

} // namespace sm::system
