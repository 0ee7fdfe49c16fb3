// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DocumentOpener.h"

#include "base/files/Paths.h"

#include <fcntl.h>
#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

namespace sm::system {
namespace {

bool HasDisplay(const Environment& environment)
{
    for (const char* variable : {"WAYLAND_DISPLAY", "DISPLAY"})
        if (!environment(variable).value_or("").empty())
            return true;
    return false;
}

bool IsAddress(const std::string& text)
{
    const std::size_t colon = text.find(':');
    return colon != std::string::npos && colon > 1 && text.find('/') > colon;
}

/// The process that becomes the viewer: no terminal, nothing to read or say, nobody's child.
[[noreturn]] void Become(const char* program, const char* argument)
{
    setsid();
    if (fork() != 0)
        _exit(0);
    const int nothing = open("/dev/null", O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        dup2(nothing, stream);
    execl(program, program, argument, static_cast<char*>(nullptr));
    _exit(127);
}

} // namespace

bool OpenOnDesktop(const Environment& environment, const std::string& pathOrAddress)
{
    const std::string program = FindProgram(environment, "xdg-open");
    if (program.empty() || !HasDisplay(environment))
        return false;
    const std::string target =
        IsAddress(pathOrAddress) ? pathOrAddress : base::ToText(std::filesystem::absolute(base::ToPath(pathOrAddress)));
    const pid_t child = fork();
    if (child == 0)
        Become(program.c_str(), target.c_str());
    int status = 0;
    return child > 0 && waitpid(child, &status, 0) == child;
}

} // namespace sm::system
