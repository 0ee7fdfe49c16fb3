// SPDX-License-Identifier: GPL-3.0-or-later
#include "workers/WorkerProcess.h"

#include "base/files/Paths.h"
#include "base/windows/Launch.h"
#include "commandline/ExitCodes.h"
#include "system/Places.h"
#include "workers/TaskText.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <fmt/format.h>
#include <iostream>
#include <mutex>
#include <thread>

namespace sm::app {
namespace {

constexpr UINT kKilled = 137;
constexpr std::int64_t kTicksPerMillisecond = 10'000;
constexpr DWORD kFirstFault = 0xC0000000;  ///< exit codes from here on are what the system ended a process for
constexpr DWORD kNoMemory = 0xC0000017;    ///< STATUS_NO_MEMORY
constexpr DWORD kPatienceOfConsole = 4000; ///< milliseconds; five seconds after its closing the system ends all

/// Set when a worker's pipe has brought something.
HANDLE News()
{
    static const base::Handle event(::CreateEventW(nullptr, FALSE, FALSE, nullptr));
    return event.Get();
}

/// What comes through a pipe, read by a thread of its own: the system can't wait for pipes.
class Stream {
public:
    Stream() = default;
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;
    ~Stream() { Join(); }

    void Begin(base::Handle pipe)
    {
        m_pipe = std::move(pipe);
        m_open = true;
        m_reader = std::thread([this] { ReadAll(); });
    }
    [[nodiscard]] bool IsOpen() const { return m_open; }
    void Join()
    {
        if (m_reader.joinable())
            m_reader.join();
    }
    /// Only what can be read after its end.
    [[nodiscard]] const std::string& Text() const { return m_text; }

private:
    void ReadAll()
    {
        std::array<char, 65536> buffer;
        DWORD got = 0;
        while (::ReadFile(m_pipe.Get(), buffer.data(), static_cast<DWORD>(buffer.size()), &got, nullptr) != FALSE)
            m_text.append(buffer.data(), got);
        m_open = false;
        ::SetEvent(News());
    }

    base::Handle m_pipe;
    std::string m_text;
    std::atomic<bool> m_open{false};
    std::thread m_reader;
};

/// This process's own command line with `kWorkerWord` for its first word.
std::wstring WorkerCommandLine(const std::string& program)
{
    const std::wstring own = ::GetCommandLineW();
    const bool quoted = own.starts_with(L'"');
    const std::size_t end = quoted ? own.find(L'"', 1) + 1 : own.find_first_of(L" \t");
    const std::wstring words = end < own.size() ? own.substr(end) : std::wstring();
    return base::CommandLine(program, {kWorkerWord}) + words;
}

void LimitJob(HANDLE job, const WorkerLimits& limits)
{
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION all{};
    all.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    if (limits.time.count() > 0) {
        all.BasicLimitInformation.LimitFlags |= JOB_OBJECT_LIMIT_PROCESS_TIME;
        all.BasicLimitInformation.PerProcessUserTimeLimit.QuadPart = limits.time.count() * 2 * kTicksPerMillisecond;
    }
    if (limits.memory > 0) {
        all.BasicLimitInformation.LimitFlags |= JOB_OBJECT_LIMIT_PROCESS_MEMORY;
        all.ProcessMemoryLimit = static_cast<SIZE_T>(limits.memory);
    }
    ::SetInformationJobObject(job, JobObjectExtendedLimitInformation, &all, sizeof all);
}

[[noreturn]] void Throw(const char* what)
{
    throw std::system_error(base::LastError(), what);
}

} // namespace

struct WorkerProcess::Inside {
    base::Handle job, process;
    WorkerLimits limits;
    Stream report, lines;
};

WorkerProcess::WorkerProcess(const DrawingTask& task, const WorkerWork&, Lines lines, const WorkerLimits& limits)
    : m_inside(std::make_unique<Inside>())
{
    base::PipePair tasks = base::MakePipe(base::ChildEnd::Reading), reports = base::MakePipe(base::ChildEnd::Writing),
                   told = base::MakePipe(base::ChildEnd::Writing);
    m_inside->job = base::MakeJob();
    m_inside->limits = limits;
    if (!tasks.reading.IsOpen() || !reports.reading.IsOpen() || !told.reading.IsOpen() || !m_inside->job.IsOpen())
        Throw("no pipe can be made");
    LimitJob(m_inside->job.Get(), limits);
    std::cout << std::flush;
    const std::string program = base::ToText(system::ExecutablePath());
    const HANDLE errors = lines == Lines::Kept ? told.writing.Get() : ::GetStdHandle(STD_ERROR_HANDLE);
    // In a group of its own, so that Ctrl+C reaches this process alone, which then ends the worker.
    m_inside->process = base::StartInJob({program,
                                          WorkerCommandLine(program),
                                          nullptr,
                                          "",
                                          tasks.reading.Get(),
                                          reports.writing.Get(),
                                          errors,
                                          {},
                                          CREATE_NEW_PROCESS_GROUP},
                                         m_inside->job.Get());
    if (!m_inside->process.IsOpen())
        Throw("no process can be started");
    for (base::Handle* end : {&tasks.reading, &reports.writing, &told.writing})
        end->Close();
    m_inside->report.Begin(std::move(reports.reading));
    m_inside->lines.Begin(std::move(told.reading));
    try {
        base::WriteFully(tasks.writing.Get(), TaskText(task));
    } catch (const std::system_error&) { // it has ended already: told when it is waited for
    }
}

WorkerProcess::~WorkerProcess()
{
    Kill();
}

bool WorkerProcess::Read()
{
    return m_inside->report.IsOpen() || m_inside->lines.IsOpen();
}

void WorkerProcess::Kill()
{
    ::TerminateJobObject(m_inside->job.Get(), kKilled);
}

WorkerProcess::End WorkerProcess::Await()
{
    ::WaitForSingleObject(m_inside->process.Get(), INFINITE);
    m_inside->report.Join();
    m_inside->lines.Join();
    DWORD code = 0;
    ::GetExitCodeProcess(m_inside->process.Get(), &code);
    FILETIME start{}, ended{}, kernel{}, user{};
    ::GetProcessTimes(m_inside->process.Get(), &start, &ended, &kernel, &user);
    const auto ticks = static_cast<std::int64_t>(std::uint64_t{user.dwHighDateTime} << 32 | user.dwLowDateTime);
    const std::int64_t most = m_inside->limits.time.count() * 2 * kTicksPerMillisecond;
    End end;
    end.well = code == static_cast<DWORD>(kExitDone);
    end.outOfTime = !end.well && most > 0 && ticks >= most;
    if (code == kNoMemory || code == static_cast<DWORD>(kEndedWithoutMemory))
        end.how = "ended for want of memory";
    else if (code >= kFirstFault)
        end.how = fmt::format("was ended by fault {:08X}", code);
    return end;
}

const std::string& WorkerProcess::Report() const
{
    return m_inside->report.Text();
}

const std::string& WorkerProcess::KeptLines() const
{
    return m_inside->lines.Text();
}

namespace {

/// One at a time hears what the console says, on a thread of the system's own.
std::mutex turn;
HANDLE asked = nullptr;

BOOL WINAPI OnConsole(DWORD event)
{
    {
        const std::lock_guard lock(turn);
        if (asked == nullptr)
            return FALSE;
        ::SetEvent(asked);
    }
    // When the console or the session is closed, the process ends with the return from here, or before by itself.
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT)
        ::Sleep(kPatienceOfConsole);
    return TRUE;
}

} // namespace

struct EndRequests::Inside {
    base::Handle asked{::CreateEventW(nullptr, TRUE, FALSE, nullptr)};
};

EndRequests::EndRequests() : m_inside(std::make_unique<Inside>())
{
    const std::lock_guard lock(turn);
    asked = m_inside->asked.Get();
    ::SetConsoleCtrlHandler(OnConsole, TRUE);
}

EndRequests::~EndRequests()
{
    ::SetConsoleCtrlHandler(OnConsole, FALSE);
    const std::lock_guard lock(turn);
    asked = nullptr;
}

bool EndRequests::Wait(const std::vector<const WorkerProcess*>&, int milliseconds)
{
    const std::array<HANDLE, 2> events{m_inside->asked.Get(), News()};
    const DWORD patience = milliseconds < 0 ? INFINITE : static_cast<DWORD>(milliseconds);
    return ::WaitForMultipleObjects(2, events.data(), FALSE, patience) != WAIT_OBJECT_0;
}

} // namespace sm::app
