// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/process/ChildProcess.h"

#include "base/files/Paths.h"
#include "files/posix/Descriptor.h"
#include "process/ChildOutput.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>

#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace sm::base {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kStartFailed = 127;

std::vector<char*> Pointers(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

void SetLimit(__rlimit_resource resource, std::uint64_t wanted)
{
    rlimit limit{};
    if (wanted == 0 || ::getrlimit(resource, &limit) != 0) {
        return;
    }
    limit.rlim_cur = std::min<rlim_t>(limit.rlim_cur, wanted);
    ::setrlimit(resource, &limit);
}

/// Everything the child needs, laid out beforehand: after vfork it may only make system calls.
struct Launch {
    const ChildCommand& command;
    std::vector<std::string> argumentTexts;
    std::vector<std::string> environmentTexts;
    std::vector<char*> arguments;
    std::vector<char*> environment;
    int output;
    pid_t parent;
    volatile int startError = 0;

    Launch(const ChildCommand& wanted, int outputDescriptor)
        : command(wanted), argumentTexts{wanted.program}, environmentTexts(wanted.environment),
          output(outputDescriptor), parent(::getpid())
    {
        argumentTexts.insert(argumentTexts.end(), wanted.arguments.begin(), wanted.arguments.end());
        arguments = Pointers(argumentTexts);
        environment = Pointers(environmentTexts);
    }

    [[noreturn]] void BecomeProgram()
    {
        ::setpgid(0, 0);
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        const int nothing = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
        const bool wired = ::getppid() == parent && nothing >= 0 && ::dup2(nothing, 0) >= 0 && ::dup2(output, 1) >= 0 &&
                           ::dup2(output, 2) >= 0;
        SetLimit(RLIMIT_CPU, command.limits.cpuSeconds);
        SetLimit(RLIMIT_AS, command.limits.memoryBytes);
        SetLimit(RLIMIT_FSIZE, command.limits.fileBytes);
        ::signal(SIGXFSZ, SIG_IGN); // the write then fails and the program says so
        ::signal(SIGPIPE, SIG_DFL);
        if (wired && ::chdir(command.workingFolder.c_str()) == 0) {
            ::execve(arguments[0], arguments.data(), environment.data());
        }
        startError = errno;
        ::_exit(kStartFailed);
    }
};

/// False when the pipe has ended.
bool Drain(int descriptor, ChildOutput& kept)
{
    std::array<char, 16384> buffer; // filled by read
    while (true) {
        const ssize_t got = ::read(descriptor, buffer.data(), buffer.size());
        if (got > 0) {
            kept.Add(buffer.data(), static_cast<std::size_t>(got));
        } else if (got == 0) {
            return false;
        } else if (errno != EINTR) {
            return errno == EAGAIN;
        }
    }
}

/// True when the process ended by itself before the deadline.
bool Await(int process, int output, Clock::time_point deadline, ChildOutput& kept)
{
    std::array<pollfd, 2> watched{{{process, POLLIN, 0}, {output, POLLIN, 0}}};
    while (true) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
        if (left <= 0) {
            return false;
        }
        const int ready = ::poll(watched.data(), watched.size(), static_cast<int>(std::min<long long>(left, 1 << 30)));
        if (ready < 0 && errno != EINTR) {
            return false;
        }
        if (watched[1].revents != 0 && !Drain(output, kept)) {
            watched[1].fd = -1;
        }
        if (process < 0 && watched[1].fd < 0) {
            return true; // a kernel without process descriptors: the end of its output has to do
        }
        if (watched[0].revents != 0) {
            Drain(output, kept);
            return true;
        }
    }
}

ChildResult NotStarted(int error)
{
    ChildResult result;
    result.code = error;
    result.reason = std::strerror(error);
    return result;
}

ChildResult Reap(pid_t child, bool endedItself)
{
    ChildResult result;
    ::kill(-child, SIGKILL);
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (!endedItself) {
        result.end = ChildResult::End::PastDeadline;
        result.outOfTime = true;
    } else if (WIFSIGNALED(status)) {
        result.end = ChildResult::End::Signalled;
        result.code = WTERMSIG(status);
        result.reason = ::strsignal(result.code);
        result.outOfTime = result.code == SIGXCPU;
    } else {
        result.end = ChildResult::End::Exited;
        result.code = WEXITSTATUS(status);
    }
    return result;
}

} // namespace

std::string FindProgram(const std::string& program)
{
    const char* variable = std::getenv("PATH");
    return FindProgram(program, variable != nullptr ? variable : "/usr/local/bin:/usr/bin:/bin");
}

std::string FindProgram(const std::string& program, const std::string& folders)
{
    const auto usable = [](const std::filesystem::path& path) {
        std::error_code error;
        return std::filesystem::is_regular_file(path, error) && ::access(path.c_str(), X_OK) == 0;
    };
    if (program.find('/') != std::string::npos) {
        std::error_code error;
        const std::filesystem::path path = ToPath(program);
        return usable(path) ? ToText(std::filesystem::absolute(path, error)) : std::string();
    }
    for (std::size_t begin = 0; begin <= folders.size();) {
        const std::size_t end = std::min(folders.find(':', begin), folders.size());
        const auto candidate = ToPath(folders.substr(begin, end - begin)) / ToPath(program);
        if (!program.empty() && candidate.is_absolute() && usable(candidate)) {
            return ToText(candidate);
        }
        begin = end + 1;
    }
    return {};
}

ChildResult RunChild(const ChildCommand& command)
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        return NotStarted(errno);
    }
    Descriptor reading(ends[0]);
    Descriptor writing(ends[1]);
    ::fcntl(reading.Get(), F_SETFL, O_NONBLOCK);
    Launch launch(command, writing.Get());
    const auto deadline = Clock::now() + command.limits.deadline;
    const pid_t child = ::vfork(); // a fork would copy the page tables of a large drawing
    if (child == 0) {
        launch.BecomeProgram();
    }
    if (child < 0) {
        return NotStarted(errno);
    }
    writing.Close();
    Descriptor process(static_cast<int>(::syscall(SYS_pidfd_open, child, 0)));
    ChildOutput output(command.keptLines);
    const bool ended = Await(process.Get(), reading.Get(), deadline, output);
    ChildResult result = Reap(child, ended);
    result.output = output.Text();
    return launch.startError != 0 ? NotStarted(launch.startError) : result;
}

} // namespace sm::base
