// SPDX-License-Identifier: GPL-3.0-or-later
// The process of one drawing: how the system starts it, hears it and ends it.
#pragma once

#include "run/DrawingRun.h"
#include "workers/WorkerLimits.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace sm::app {

/// A worker's exit code when it ends for want of memory, of which nobody but its parent knows.
inline constexpr int kEndedWithoutMemory = 125;

/// What the process does with its task; `console` is its own. The report comes back to the parent.
using WorkerWork = std::function<DrawingReport(const DrawingTask& task, terminal::Console& console)>;

class WorkerProcess {
public:
    /// Where the lines of the process go: straight to this process's stderr, or kept until it ended.
    enum class Lines { Straight, Kept };

    /// How it ended. `how` completes "the conversion ..." and is empty when it ended by itself.
    struct End {
        bool well = false;
        bool outOfTime = false; ///< it used up its share of the processor
        std::string how;
    };

    /// Starts it. Elsewhere than on Windows it is a fork that does `work`; there it is this program anew, with the same
    /// command line behind `kWorkerWord`, and finds its work by itself. Throws std::system_error.
    WorkerProcess(const DrawingTask& task, const WorkerWork& work, Lines lines, const WorkerLimits& limits);
    /// Ends it when it still runs.
    ~WorkerProcess();
    WorkerProcess(const WorkerProcess&) = delete;
    WorkerProcess& operator=(const WorkerProcess&) = delete;

    /// Reads what came; false once its report and its lines are at their end.
    bool Read();
    /// The end of it; `Read` and `Await` then go on as ever.
    void Kill();
    /// Waits for its end, after `Read` gave false.
    End Await();
    [[nodiscard]] const std::string& Report() const;
    [[nodiscard]] const std::string& KeptLines() const;

private:
    friend class EndRequests;
    struct Inside;
    std::unique_ptr<Inside> m_inside;
};

/// Hears, for as long as it lives, when the user or the system asks for the end: SIGINT, SIGTERM and SIGHUP, on Windows
/// Ctrl+C, Ctrl+Break, and the end of the console, the session or the machine.
class EndRequests {
public:
    EndRequests();
    ~EndRequests();
    EndRequests(const EndRequests&) = delete;
    EndRequests& operator=(const EndRequests&) = delete;

    /// Waits until one of the processes may have something to read, at most so many milliseconds (-1: for ever). False
    /// when the end was asked for.
    bool Wait(const std::vector<const WorkerProcess*>& processes, int milliseconds);

private:
    struct Inside;
    std::unique_ptr<Inside> m_inside;
};

} // namespace sm::app
