#include "workers/Worker.h"

#include "base/files/AtomicFile.h"
#include "base/files/Paths.h"
#include "base/process/ThisProcess.h"
#include "commandline/ExitCodes.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <fmt/format.h>
#include <iostream>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace sm::app {
namespace {

namespace fs = std::filesystem;

constexpr int kRemovalAttempts = 20;
constexpr useconds_t kRemovalPause = 20000; // microseconds

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

} // namespace

void Worker::Stream::Read()
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

void Worker::Stream::Close()
{
    if (descriptor >= 0)
        close(descriptor);
    descriptor = -1;
}

Worker::Worker(DrawingTask task, const std::string& pdfPath, const WorkerWork& work, Lines lines,
               const WorkerLimits& limits)
    : m_task(std::move(task)), m_limits(limits)
{
    std::error_code unknown;
    m_pdfFolder = base::ToText(fs::weakly_canonical(base::ToPath(pdfPath), unknown).parent_path());
    m_task.workFolder = m_folder.Path();
    base::RemoveLeftoversOnce(m_pdfFolder); // here, so that not every worker does so
    Start(work, lines);
}

void Worker::Start(const WorkerWork& work, Lines lines)
{
    PipeEnds reports, told;
    reports.Open();
    told.Open();
    std::cout << std::flush;
    const pid_t parent = getpid();
    m_process = fork();
    if (m_process == 0) {
        RestoreSignals(parent);
        ObeyLimits(m_limits);
        if (lines == Lines::Kept)
            dup2(told.in, STDERR_FILENO);
        close(std::exchange(told.in, -1));
        DrawingReport report;
        {
            terminal::Console console(std::cerr, lines == Lines::Straight && base::IsTerminal(base::Stream::Errors));
            report = work(m_task, console);
        }
        WriteAll(reports.in, ToJson(report, -1));
        _exit(kExitDone);
    }
    if (m_process < 0)
        ThrowErrno("no process can be started");
    m_report.descriptor = std::exchange(reports.out, -1);
    m_lines.descriptor = std::exchange(told.out, -1);
    for (const int end : {m_report.descriptor, m_lines.descriptor})
        fcntl(end, F_SETFL, O_NONBLOCK);
}

bool Worker::Read()
{
    m_report.Read();
    m_lines.Read();
    return m_report.descriptor >= 0 || m_lines.descriptor >= 0;
}

DrawingReport Worker::Finish()
{
    int status = 0;
    while (waitpid(m_process, &status, 0) < 0 && errno == EINTR) {
    }
    m_process = -1;
    try {
        m_endedWell = WIFEXITED(status) && WEXITSTATUS(status) == kExitDone;
        if (m_endedWell) {
            DrawingReport report = ReportFromJson(m_report.text);
            report.drawing = m_task.drawing; // every byte of it
            return report;
        }
    } catch (const std::exception&) { // cut short: told below
    }
    DrawingReport report;
    report.drawing = m_task.drawing;
    report.exitCode = kExitFailed;
    const bool late = m_endedLate || (WIFSIGNALED(status) && WTERMSIG(status) == SIGXCPU);
    if (late)
        report.failure = fmt::format("the conversion took longer than {} s and was ended; --timeout allows it more",
                                     std::chrono::duration_cast<std::chrono::seconds>(m_limits.time).count());
    else
        report.failure = WIFSIGNALED(status) ? fmt::format("the conversion was ended by signal {}", WTERMSIG(status))
                                             : "the conversion ended without a report";
    return report;
}

std::optional<std::chrono::milliseconds> Worker::TimeLeft() const
{
    if (m_limits.time.count() == 0)
        return std::nullopt;
    const auto taken =
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - m_begin);
    return std::max(m_limits.time - taken, std::chrono::milliseconds(0));
}

void Worker::EndLate()
{
    m_endedLate = true;
    kill(m_process, SIGKILL);
}

void Worker::RemoveLeftovers()
{
    // The interpreter of an ended worker is ended by the system, a moment later than the worker itself.
    for (int attempt = 0; attempt < kRemovalAttempts && !m_folder.Remove() && !m_endedWell; ++attempt)
        usleep(kRemovalPause);
    // A PDF that was being written when the process was ended stands half-made beside its target.
    if (!m_endedWell)
        base::RemoveLeftovers(m_pdfFolder);
}

Worker::~Worker()
{
    const bool running = m_process > 0;
    if (running) {
        kill(m_process, SIGKILL);
        waitpid(m_process, nullptr, 0);
    }
    m_report.Close();
    m_lines.Close();
    RemoveLeftovers();
}

} // namespace sm::app
