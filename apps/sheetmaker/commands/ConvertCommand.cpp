// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/ConvertCommand.h"

#include "base/files/Paths.h"
#include "base/process/ThisProcess.h"
#include "commandline/ExitCodes.h"
#include "commandline/Refusal.h"
#include "commands/Readiness.h"
#include "layouts/PlotOptions.h"
#include "machine/LogBook.h"
#include "machine/LogFiles.h"
#include "render/TextLayout.h"
#include "report/ReportWriter.h"
#include "settings/mdlUtilities.h"
#include "workers/DrawingNames.h"
#include "workers/OutputPlan.h"
#include "workers/StandardStreams.h"
#include "workers/TargetChecks.h"
#include "workers/UpToDate.h"
#include "workers/WorkerPool.h"

#include <filesystem>
#include <fmt/format.h>
#include <ostream>
#include <thread>

namespace sm::app {
namespace {

/// Nothing of a run fails for want of a log, but it is told, and --strict fails.
std::string LogTrouble(const LogFiles& logs)
{
    const std::string trouble = logs.Trouble();
    return trouble.empty() ? trouble : kNoLog + trouble;
}

class Conversion {
public:
    Conversion(const ConvertJob& job, const Install& install, std::ostream& out, std::ostream& err)
        : m_job(job), m_install(install), m_out(out), m_err(err),
          m_console(err, base::IsTerminal(base::Stream::Errors) && job.talk != Talk::Quiet)
    {
    }

    int Run(const WorkerWork& work)
    {
        NeedTools(m_install);
        NeedSettings(m_install, m_err);
        NeedJobOptions(m_job.options, m_install);
        m_job.drawings = NamedDrawings(m_job);
        NeedBuildDate(m_install);
        if (m_job.options.plot.paper)
            PaperCalled(*m_job.options.plot.paper); // refused once, not by every drawing
        const StandardStreams streams(m_job.drawings, m_job.output);
        if (streams.OutIsTaken())
            RefuseIdleOptions();
        const OutputPlan plan = Plan();
        ReportWriter writer(
            {m_job.report, m_job.talk, m_job.strict, streams.OutIsTaken(), "sheetmaker " + m_install.version}, m_out,
            m_console);
        if (plan.drawings.size() > 1)
            render::TextEngine::Prepare();
        const LogFiles logs(m_install.places.stateFolder, OwnLogs(plan),
                            {m_job.log.value_or(""), m_job.logFolder.value_or("")});
        m_logTrouble = LogTrouble(logs);
        if (!m_logTrouble.empty())
            m_console.Line("warning: " + m_logTrouble);
        else if (m_job.log || m_job.logFolder)
            LogBook(m_install).Remember(base::ToPath(m_job.logFolder.value_or(m_job.log.value_or(""))));
        const bool ended =
            RunPool(Tasks(plan, logs), AtATime(m_job.workers), Refusing(work), Callbacks(writer, streams));
        m_console.ClearProgress();
        const std::string lost = logs.Join();
        if (!lost.empty())
            m_console.Line(std::string("warning: ") + kNoLog + lost);
        if (!ended) {
            m_err << "sheetmaker: interrupted\n";
            return kExitInterrupted;
        }
        const bool sent = streams.Send(m_out), written = writer.Finish() && sent;
        const bool whole = written && (lost.empty() || !m_job.strict);
        return std::max(writer.ExitCode(), whole ? kExitDone : kExitFailed);
    }

private:
    OutputPlan Plan()
    {
        OutputPlan plan = PlanOutput(m_job.drawings, m_job.output);
        if (!plan.error.empty())
            throw Refusal{kExitUsage, plan.error};
        if (m_job.log)
            RefuseLogTarget(*m_job.log, FilesOf(plan));
        if (m_job.noClobber || m_job.update)
            LeaveOutDone(plan);
        if (m_job.output)
            for (const PlannedDrawing& planned : plan.drawings)
                MakeFolderOf(planned.pdfPath);
        return plan;
    }

    void LeaveOutDone(OutputPlan& plan)
    {
        std::erase_if(plan.drawings, [this](const PlannedDrawing& planned) {
            std::error_code unknown;
            const bool exists = std::filesystem::exists(base::ToPath(planned.pdfPath), unknown);
            const bool kept = m_job.noClobber && exists;
            const bool done = kept || (m_job.update && exists && IsUpToDate(planned.drawing, planned.pdfPath));
            if (done && m_job.talk != Talk::Quiet)
                m_console.Line(planned.drawing + ": left out, " + planned.pdfPath + (kept ? " exists" : " is newer"));
            return done;
        });
    }

    /// What would do nothing with a PDF on standard output is refused.
    void RefuseIdleOptions() const
    {
        if (m_job.report != ReportForm::None)
            throw Refusal{kExitUsage, "-o - and --report both write to standard output"};
        if (m_job.options.keepPs || m_job.options.open || m_job.update || m_job.noClobber)
            throw Refusal{kExitUsage, "-o - goes with none of --keep-ps, --open, --update and --no-clobber"};
    }

    [[nodiscard]] std::vector<std::string> FilesOf(const OutputPlan& plan) const
    {
        std::vector<std::string> files;
        if (m_job.list)
            files.push_back(*m_job.list);
        for (const PlannedDrawing& planned : plan.drawings)
            files.insert(files.end(), {planned.drawing, planned.pdfPath});
        return files;
    }

    /// Of the drawings that are left: as they are called among all, so that a later run calls them the same.
    [[nodiscard]] std::vector<std::string> OwnLogs(const OutputPlan& plan) const
    {
        const std::vector<std::string> all = LogNames(m_job.drawings);
        std::vector<std::string> names;
        std::size_t at = 0;
        for (const PlannedDrawing& planned : plan.drawings) {
            while (m_job.drawings[at] != planned.drawing)
                ++at;
            names.push_back(all[at]);
        }
        return names;
    }

    [[nodiscard]] std::vector<PooledTask> Tasks(const OutputPlan& plan, const LogFiles& logs) const
    {
        const bool elsewhere = m_job.log || m_job.logFolder;
        std::vector<PooledTask> tasks;
        for (const PlannedDrawing& planned : plan.drawings)
            tasks.push_back({{planned.drawing,
                              planned.savePath,
                              m_job.options,
                              logs.Names()[tasks.size()],
                              elsewhere ? logs.Folder() : "",
                              {}},
                             planned.pdfPath,
                             LimitsFor({planned.drawing}, m_job.seconds, m_job.mebibytes),
                             m_job.talk == Talk::Quiet});
        return tasks;
    }

    PoolCallbacks Callbacks(ReportWriter& writer, const StandardStreams& streams)
    {
        PoolCallbacks callbacks;
        callbacks.ended = [&, this](DrawingReport& report) {
            Complete(report);
            streams.Restore(report);
            writer.Ended(report);
        };
        callbacks.done = [&writer](const DrawingReport& report, const std::string& lines) {
            writer.Told(report, lines);
        };
        if (m_job.drawings.size() > 1)
            callbacks.progress = [this](std::size_t ended, std::size_t count) {
                m_console.Progress(fmt::format("{} of {} drawings", ended, count));
            };
        return callbacks;
    }

    /// What only the whole run knows of a drawing.
    void Complete(DrawingReport& report) const
    {
        if (!report.Converted())
            report.failure += SimilarFile(report.drawing);
        report.logLost = !m_logTrouble.empty();
    }

    ConvertJob m_job;
    const Install& m_install;
    std::ostream& m_out;
    std::ostream& m_err;
    terminal::Console m_console;
    std::string m_logTrouble; ///< empty: a log is kept
};

} // namespace

WorkerWork Refusing(const WorkerWork& work)
{
    return [work](const DrawingTask& task, terminal::Console& console) {
        const std::string beside = StripExtension(task.drawing) + ".pdf";
        const std::string trouble = TargetTrouble(task.savePath.value_or(beside));
        if (trouble.empty())
            return work(task, console);
        DrawingReport report;
        report.drawing = task.drawing;
        report.exitCode = kExitFailed;
        report.failure = trouble;
        return report;
    };
}

int RunConvert(const ConvertJob& job, const Install& install, const WorkerWork& work, std::ostream& out,
               std::ostream& err)
{
    try {
        return Conversion(job, install, out, err).Run(work);
    } catch (const Refusal& refusal) {
        err << "sheetmaker convert: " << refusal.text << "\n";
        return refusal.exitCode;
    } catch (const std::exception& error) {
        err << "sheetmaker convert: " << error.what() << "\n";
        return kExitFailed;
    }
}

} // namespace sm::app
