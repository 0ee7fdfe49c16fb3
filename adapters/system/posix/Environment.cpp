// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/Environment.h"

#include "base/files/Paths.h"

#include <filesystem>
#include <sstream>
#include <unistd.h>

namespace sm::system {
namespace {

bool IsProgram(const std::string& path)
{
    std::error_code unreadable;
    return std::filesystem::is_regular_file(base::ToPath(path), unreadable) && access(path.c_str(), X_OK) == 0;
}

} // namespace

Environment ProcessEnvironment()
{
    return [](const std::string& name) { return base::Variable(name); };
}

std::string FindProgram(const Environment& environment, const std::string& program)
{
    if (program.find('/') != std::string::npos)
        return IsProgram(program) ? program : std::string();
    std::istringstream folders(environment("PATH").value_or("/usr/local/bin:/usr/bin:/bin"));
    for (std::string folder; std::getline(folders, folder, ':');) {
        const std::string candidate = (folder.empty() ? "." : folder) + "/" + program;
        if (IsProgram(candidate))
            return candidate;
    }
    return {};
}

} // namespace sm::system
