// SPDX-License-Identifier: GPL-3.0-or-later
#include "workers/WorkerPool.h"

#include <algorithm>
#include <map>
#include <memory>

namespace sm::app {
namespace {

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
        std::vector<const WorkerProcess*> processes;
        for (const auto& [index, worker] : m_running)
            processes.push_back(worker->Process());
        const bool goesOn = m_ends.Wait(processes, PauseUntilOneIsLate());
        EndLateOnes();
        return goesOn;
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
    EndRequests m_ends;
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
