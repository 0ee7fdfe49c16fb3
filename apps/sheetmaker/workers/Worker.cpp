// SPDX-License-Identifier: GPL-3.0-or-later
#include "workers/Worker.h"

#include "base/files/AtomicFile.h"
#include "base/files/Paths.h"
#include "commandline/ExitCodes.h"

#include <algorithm>
#include <filesystem>
#include <fmt/format.h>
#include <thread>

namespace sm::app {
namespace {

namespace fs = std::filesystem;

constexpr int kRemovalAttempts = 20;
constexpr std::chrono::milliseconds kRemovalPause{20};

} // namespace

Worker::Worker(DrawingTask task, const std::string& pdfPath, const WorkerWork& work, Lines lines,
               const WorkerLimits& limits)
    : m_task(std::move(task)), m_limits(limits)
{
    std::error_code unknown;
    m_pdfFolder = base::ToText(fs::weakly_canonical(base::ToPath(pdfPath), unknown).parent_path());
    m_task.workFolder = m_folder.Path();
    base::RemoveLeftoversOnce(m_pdfFolder); // here, so that not every worker does so
    m_process = std::make_unique<WorkerProcess>(m_task, work, lines, m_limits);
}

DrawingReport Worker::Finish()
{
    const WorkerProcess::End end = m_process->Await();
    m_endedWell = end.well;
    try {
        if (m_endedWell) {
            DrawingReport report = ReportFromJson(m_process->Report());
            report.drawing = m_task.drawing; // every byte of it
            return report;
        }
    } catch (const std::exception&) { // cut short: told below
    }
    DrawingReport report;
    report.drawing = m_task.drawing;
    report.exitCode = kExitFailed;
    report.isLate = m_endedLate || end.outOfTime;
    if (report.isLate)
        report.failure = fmt::format("the conversion took longer than {} s and was ended; --timeout allows it more",
                                     std::chrono::duration_cast<std::chrono::seconds>(m_limits.time).count());
    else
        report.failure = "the conversion " + (end.how.empty() ? "ended without a report" : end.how);
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
    m_process->Kill();
}

void Worker::RemoveLeftovers()
{
    // The interpreter of an ended worker is ended by the system, a moment later than the worker itself.
    for (int attempt = 0; attempt < kRemovalAttempts && !m_folder.Remove() && !m_endedWell; ++attempt)
        std::this_thread::sleep_for(kRemovalPause);
    // A PDF that was being written when the process was ended stands half-made beside its target.
    if (!m_endedWell)
        base::RemoveLeftovers(m_pdfFolder);
}

Worker::~Worker()
{
    m_process.reset();
    RemoveLeftovers();
}

} // namespace sm::app
