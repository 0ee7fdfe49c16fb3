// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DocumentOpener.h"

#include "base/files/Paths.h"

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
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

constexpr int kSeenWithin = 1000; // ms

/// Runs the program, waits for it, and tells through `report` when it gave up.
void Watch(const char* program, const char* argument, int report)
{
    const pid_t viewer = fork();
    if (viewer == 0) {
        close(report);
        execl(program, program, argument, static_cast<char*>(nullptr));
        _exit(127);
    }
    int status = 0;
    const bool isOver = viewer > 0 && waitpid(viewer, &status, 0) == viewer;
    const char gaveUp = !isOver || !WIFEXITED(status) || WEXITSTATUS(status) != 0;
    [[maybe_unused]] const ssize_t told = write(report, &gaveUp, 1);
}

/// A process that starts the viewer: no terminal, nothing to read or say, nobody's child. With a `report` it stays
/// until the viewer ends, without one (-1) it becomes the viewer.
[[noreturn]] void Become(const char* program, const char* argument, int report)
{
    setsid();
    if (fork() != 0)
        _exit(0);
    const int nothing = open("/dev/null", O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        dup2(nothing, stream);
    if (report >= 0) {
        signal(SIGPIPE, SIG_IGN); // nobody may listen any more
        Watch(program, argument, report);
        _exit(0);
    }
    execl(program, program, argument, static_cast<char*>(nullptr));
    _exit(127);
}

/// False when xdg-open isn't there or couldn't be started.
bool Start(const Environment& environment, const std::string& pathOrAddress, int report)
{
    const std::string program = FindProgram(environment, "xdg-open");
    if (program.empty() || !HasDisplay(environment))
        return false;
    const std::string target =
        IsAddress(pathOrAddress) ? pathOrAddress : base::ToText(std::filesystem::absolute(base::ToPath(pathOrAddress)));
    const pid_t child = fork();
    if (child == 0)
        Become(program.c_str(), target.c_str(), report);
    int status = 0;
    return child > 0 && waitpid(child, &status, 0) == child;
}

} // namespace

bool OpenOnDesktop(const Environment& environment, const std::string& pathOrAddress)
{
    return Start(environment, pathOrAddress, -1);
}

bool OpenAndSee(const Environment& environment, const std::string& pathOrAddress)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        return OpenOnDesktop(environment, pathOrAddress);
    const bool isStarted = Start(environment, pathOrAddress, ends[1]);
    close(ends[1]);
    pollfd listener{ends[0], POLLIN, 0};
    char gaveUp = 0;
    if (isStarted && poll(&listener, 1, kSeenWithin) > 0 && read(ends[0], &gaveUp, 1) != 1)
        gaveUp = 0;
    close(ends[0]);
    return isStarted && gaveUp == 0;
}

} // namespace sm::system
