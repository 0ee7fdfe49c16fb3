// SPDX-License-Identifier: GPL-3.0-or-later
#include "workers/WorkerProcess.h"

#include "base/process/Memory.h"
#include "base/process/ThisProcess.h"
#include "commandline/ExitCodes.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <fmt/format.h>
#include <iostream>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace sm::app {
namespace {

[[noreturn]] void ThrowErrno(const char* what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

struct PipeEnds {
    int out = -1, in = -1;
    PipeEnds() = default;
    PipeEnds(const PipeEnds&) = delete;
    PipeEnds& operator=(const PipeEnds&) = delete;
    ~PipeEnds()
    {
        for (const int end : {out, in})
            if (end >= 0)
                close(end);
    }
    void Open()
    {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC) != 0)
            ThrowErrno("no pipe can be made");
        out = ends[0];
        in = ends[1];
    }
};

void WriteAll(int descriptor, const std::string& text)
{
    std::size_t written = 0;
    while (written < text.size()) {
        const ssize_t count = write(descriptor, text.data() + written, text.size() - written);
        if (count < 0 && errno != EINTR)
            return;
        written += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
}

/// Signals as a program finds them at its start: the parent waits for some of them, the worker must not.
void RestoreSignals(pid_t parent)
{
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent)
        _exit(kExitInterrupted);
}

/// The worker's whole life. Nothing is thrown out of it: what stands above it belongs to the parent, which waits there.
[[noreturn]] void Work(const DrawingTask& task, const WorkerWork& work, bool onTerminal, int reports) noexcept
{
    base::EndWithoutMemory(kEndedWithoutMemory);
    DrawingReport report;
    {
        terminal::Console console(std::cerr, onTerminal);
        report = work(task, console);
    }
    WriteAll(reports, ToJson(report, -1));
    _exit(kExitDone);
}

} // namespace

struct WorkerProcess::Inside {
    /// What comes through a pipe.
    struct Stream {
        int descriptor = -1;
        std::string text;
        Stream() = default;
        Stream(const Stream&) = delete;
        Stream& operator=(const Stream&) = delete;
        ~Stream() { Close(); }

        void Read()
        {
            if (descriptor < 0)
                return;
            std::array<char, 65536> buffer;
            const ssize_t count = read(descriptor, buffer.data(), buffer.size());
            if (count > 0)
                text.append(buffer.data(), static_cast<std::size_t>(count));
            else if (count == 0 || (errno != EINTR && errno != EAGAIN))
                Close();
        }
        void Close()
        {
            if (descriptor >= 0)
                close(descriptor);
            descriptor = -1;
        }
    };

    pid_t process = -1;
    Stream report, lines;
};

WorkerProcess::WorkerProcess(const DrawingTask& task, const WorkerWork& work, Lines lines, const WorkerLimits& limits)
    : m_inside(std::make_unique<Inside>())
{
    PipeEnds reports, told;
    reports.Open();
    told.Open();
    std::cout << std::flush;
    const pid_t parent = getpid();
    m_inside->process = fork();
    if (m_inside->process == 0) {
        RestoreSignals(parent);
        ObeyLimits(limits);
        ExpectHeap(limits.drawing);
        if (lines == Lines::Kept)
            dup2(told.in, STDERR_FILENO);
        close(std::exchange(told.in, -1));
        Work(task, work, lines == Lines::Straight && base::IsTerminal(base::Stream::Errors), reports.in);
    }
    if (m_inside->process < 0)
        ThrowErrno("no process can be started");
    m_inside->report.descriptor = std::exchange(reports.out, -1);
    m_inside->lines.descriptor = std::exchange(told.out, -1);
    for (const int end : {m_inside->report.descriptor, m_inside->lines.descriptor})
        fcntl(end, F_SETFL, O_NONBLOCK);
}

WorkerProcess::~WorkerProcess()
{
    if (m_inside->process <= 0)
        return;
    Kill();
    waitpid(m_inside->process, nullptr, 0);
}

bool WorkerProcess::Read()
{
    m_inside->report.Read();
    m_inside->lines.Read();
    return m_inside->report.descriptor >= 0 || m_inside->lines.descriptor >= 0;
}

void WorkerProcess::Kill()
{
    kill(m_inside->process, SIGKILL);
}

WorkerProcess::End WorkerProcess::Await()
{
    int status = 0;
    while (waitpid(m_inside->process, &status, 0) < 0 && errno == EINTR) {
    }
    m_inside->process = -1;
    End end;
    end.well = WIFEXITED(status) && WEXITSTATUS(status) == kExitDone;
    end.outOfTime = WIFSIGNALED(status) && WTERMSIG(status) == SIGXCPU;
    if (WIFEXITED(status) && WEXITSTATUS(status) == kEndedWithoutMemory)
        end.how = "ended for want of memory";
    if (WIFSIGNALED(status))
        end.how = fmt::format("was ended by signal {}", WTERMSIG(status));
    return end;
}

const std::string& WorkerProcess::Report() const
{
    return m_inside->report.text;
}

const std::string& WorkerProcess::KeptLines() const
{
    return m_inside->lines.text;
}

struct EndRequests::Inside {
    sigset_t former{};
    int descriptor = -1;
};

EndRequests::EndRequests() : m_inside(std::make_unique<Inside>())
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        sigaddset(&signals, signal);
    sigprocmask(SIG_BLOCK, &signals, &m_inside->former);
    m_inside->descriptor = signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
}

EndRequests::~EndRequests()
{
    signalfd_siginfo taken;
    while (m_inside->descriptor >= 0 && read(m_inside->descriptor, &taken, sizeof taken) > 0) {
    }
    close(m_inside->descriptor);
    sigprocmask(SIG_SETMASK, &m_inside->former, nullptr);
}

bool EndRequests::Wait(const std::vector<const WorkerProcess*>& processes, int milliseconds)
{
    std::vector<pollfd> waits{{m_inside->descriptor, POLLIN, 0}};
    for (const WorkerProcess* process : processes) {
        waits.push_back({process->m_inside->report.descriptor, POLLIN, 0});
        waits.push_back({process->m_inside->lines.descriptor, POLLIN, 0});
    }
    poll(waits.data(), waits.size(), milliseconds);
    return (waits.front().revents & POLLIN) == 0;
}

} // namespace sm::app
