#include "workers/WorkerPool.h"

#include <algorithm>
#include <csignal>
#include <map>
#include <memory>
#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace sm::app {
namespace {

/// Makes the signals that ask for the end readable, for as long as this lives.
class EndSignals {
public:
    EndSignals()
    {
        sigset_t signals;
        sigemptyset(&signals);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP})
            sigaddset(&signals, signal);
        sigprocmask(SIG_BLOCK, &signals, &m_former);
        m_descriptor = signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
    }
    ~EndSignals()
    {
        signalfd_siginfo taken;
        while (m_descriptor >= 0 && read(m_descriptor, &taken, sizeof taken) > 0) {
        }
        close(m_descriptor);
        sigprocmask(SIG_SETMASK, &m_former, nullptr);
    }
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;
    [[nodiscard]] int Descriptor() const { return m_descriptor; }

private:
    sigset_t m_former{};
    int m_descriptor = -1;
};

struct Ended {
    DrawingReport report;
    std::string lines;
};

class Pool {
public:
    Pool(const std::vector<PooledTask>& tasks, std::size_t atATime, const WorkerWork& work,
         const PoolCallbacks& callbacks)
        : m_tasks(tasks), m_atATime(std::max<std::size_t>(atATime, 1)), m_work(work), m_callbacks(callbacks)
    {
    }

    bool Run()
    {
        while (m_told < m_tasks.size()) {
            while (m_running.size() < m_atATime && m_started < m_tasks.size())
                StartNext();
            if (!Wait())
                return false;
            Collect();
        }
        return true;
    }

private:
    void StartNext()
    {
        const PooledTask& next = m_tasks[m_started];
        const auto lines = m_tasks.size() == 1 && !next.keepsLines ? Worker::Lines::Straight : Worker::Lines::Kept;
        m_running.emplace(m_started, std::make_unique<Worker>(next.task, next.pdfPath, m_work, lines, next.limits));
        ++m_started;
    }

    /// False when the end was asked for.
    bool Wait()
    {
        std::vector<pollfd> waits{{m_signals.Descriptor(), POLLIN, 0}};
        for (const auto& [index, worker] : m_running) {
            waits.push_back({worker->ReportDescriptor(), POLLIN, 0});
            waits.push_back({worker->LinesDescriptor(), POLLIN, 0});
        }
        poll(waits.data(), waits.size(), PauseUntilOneIsLate());
        EndLateOnes();
        return (waits.front().revents & POLLIN) == 0;
    }

    /// Milliseconds until the next worker's time is over; -1: never.
    [[nodiscard]] int PauseUntilOneIsLate() const
    {
        constexpr std::int64_t kLongest = 3'600'000;
        std::int64_t pause = -1;
        for (const auto& [index, worker] : m_running)
            if (const auto left = worker->TimeLeft(); left && !worker->EndedLate())
                pause = pause < 0 ? left->count() : std::min(pause, static_cast<std::int64_t>(left->count()));
        return static_cast<int>(std::min(pause, kLongest));
    }

    void EndLateOnes()
    {
        for (const auto& [index, worker] : m_running)
            if (const auto left = worker->TimeLeft(); left && left->count() == 0 && !worker->EndedLate())
                worker->EndLate();
    }

    void Collect()
    {
        for (auto next = m_running.begin(); next != m_running.end();) {
            if (next->second->Read()) {
                ++next;
                continue;
            }
            DrawingReport report = next->second->Finish();
            if (m_callbacks.ended)
                m_callbacks.ended(report);
            m_ended.emplace(next->first, Ended{std::move(report), next->second->KeptLines()});
            next = m_running.erase(next);
            if (m_callbacks.progress)
                m_callbacks.progress(m_told + m_ended.size(), m_tasks.size());
        }
        for (auto next = m_ended.find(m_told); next != m_ended.end(); next = m_ended.find(m_told)) {
            m_callbacks.done(next->second.report, next->second.lines);
            m_ended.erase(next);
            ++m_told;
        }
    }

    const std::vector<PooledTask>& m_tasks;
    std::size_t m_atATime;
    const WorkerWork& m_work;
    const PoolCallbacks& m_callbacks;
    EndSignals m_signals;
    std::map<std::size_t, std::unique_ptr<Worker>> m_running;
    std::map<std::size_t, Ended> m_ended; ///< those that wait for an earlier one
    std::size_t m_started = 0, m_told = 0;
};

} // namespace

bool RunPool(const std::vector<PooledTask>& tasks, std::size_t atATime, const WorkerWork& work,
             const PoolCallbacks& callbacks)
{
    return Pool(tasks, atATime, work, callbacks).Run();
}

} // namespace sm::app
