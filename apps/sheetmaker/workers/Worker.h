// SPDX-License-Identifier: GPL-3.0-or-later
// A process of its own for one drawing, so that one bad drawing never takes another down.
#pragma once

#include "base/files/PrivateFolder.h"
#include "workers/WorkerProcess.h"

#include <chrono>
#include <optional>
#include <string>

namespace sm::app {

class Worker {
public:
    using Lines = WorkerProcess::Lines;

    /// Starts the process, with a private folder for its temporary files. `pdfPath` is where its PDF goes. Throws
    /// base::FolderFailure and std::system_error.
    Worker(DrawingTask task, const std::string& pdfPath, const WorkerWork& work, Lines lines,
           const WorkerLimits& limits = {});
    /// Ends the process when it still runs, and removes everything temporary that it left.
    ~Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    /// Reads what came; false once both streams are at their end.
    bool Read() { return m_process->Read(); }
    [[nodiscard]] const WorkerProcess* Process() const { return m_process.get(); }
    /// How long it may still run; nothing when there is no end to it.
    [[nodiscard]] std::optional<std::chrono::milliseconds> TimeLeft() const;
    /// Ends the process, which took too long; `Read` and `Finish` then go on as ever.
    void EndLate();
    [[nodiscard]] bool EndedLate() const { return m_endedLate; }
    /// After `Read` gave false: waits for the end and gives the report; one of a crash when there was one.
    DrawingReport Finish();
    /// The kept lines.
    [[nodiscard]] const std::string& KeptLines() const { return m_process->KeptLines(); }

private:
    void RemoveLeftovers();

    DrawingTask m_task;
    WorkerLimits m_limits;
    std::chrono::steady_clock::time_point m_begin = std::chrono::steady_clock::now();
    std::string m_pdfFolder;
    base::PrivateFolder m_folder{""};
    std::unique_ptr<WorkerProcess> m_process;
    bool m_endedWell = false, m_endedLate = false;
};

} // namespace sm::app
