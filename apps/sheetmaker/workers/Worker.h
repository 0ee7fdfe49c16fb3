// A process of its own for one drawing, so that one bad drawing never takes another down.
#pragma once

#include "base/files/PrivateFolder.h"
#include "run/DrawingRun.h"
#include "workers/WorkerLimits.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <sys/types.h>

namespace sm::app {

/// What the process does with its task; `console` is its own. The report comes back to the parent.
using WorkerWork = std::function<DrawingReport(const DrawingTask& task, terminal::Console& console)>;

class Worker {
public:
    /// Where the lines of the process go: straight to this process's stderr, or kept until it ended.
    enum class Lines { Straight, Kept };

    /// Starts the process, with a private folder for its temporary files. `pdfPath` is where its PDF goes. Throws
    /// base::FolderFailure and std::system_error.
    Worker(DrawingTask task, const std::string& pdfPath, const WorkerWork& work, Lines lines,
           const WorkerLimits& limits = {});
    /// Ends the process when it still runs, and removes everything temporary that it left.
    ~Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    /// Reads what came; false once both streams are at their end.
    bool Read();
    /// The descriptors to wait for; -1 for one that is at its end.
    [[nodiscard]] int ReportDescriptor() const { return m_report.descriptor; }
    [[nodiscard]] int LinesDescriptor() const { return m_lines.descriptor; }
    /// How long it may still run; nothing when there is no end to it.
    [[nodiscard]] std::optional<std::chrono::milliseconds> TimeLeft() const;
    /// Ends the process, which took too long; `Read` and `Finish` then go on as ever.
    void EndLate();
    [[nodiscard]] bool EndedLate() const { return m_endedLate; }
    /// After `Read` gave false: waits for the end and gives the report; one of a crash when there was one.
    DrawingReport Finish();
    /// The kept lines.
    [[nodiscard]] const std::string& KeptLines() const { return m_lines.text; }

private:
    struct Stream {
        int descriptor = -1;
        std::string text;
        Stream() = default;
        Stream(const Stream&) = delete;
        Stream& operator=(const Stream&) = delete;
        ~Stream() { Close(); }
        void Read();
        void Close();
    };
    void Start(const WorkerWork& work, Lines lines);
    void RemoveLeftovers();

    DrawingTask m_task;
    WorkerLimits m_limits;
    std::chrono::steady_clock::time_point m_begin = std::chrono::steady_clock::now();
    std::string m_pdfFolder;
    base::PrivateFolder m_folder{""};
    Stream m_report, m_lines;
    pid_t m_process = -1;
    bool m_endedWell = false, m_endedLate = false;
};

} // namespace sm::app
