// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/PublishCommand.h"

#include "base/files/Paths.h"
#include "base/files/PrivateFolder.h"
#include "commandline/Refusal.h"
#include "commands/Readiness.h"
#include "layouts/PlotOptions.h"
#include "machine/LogBook.h"
#include "machine/LogFiles.h"
#include "records/RecordEditor.h"
#include "report/ReportWriter.h"
#include "run/PublishRun.h"
#include "workers/DrawingNames.h"
#include "workers/OutputPlan.h"
#include "workers/TargetChecks.h"
#include "workers/UpToDate.h"
#include "workers/WorkerPool.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <ostream>

namespace sm::app {
namespace {

namespace fs = std::filesystem;

/// Where the PDF goes; it may overwrite none of the drawings.
PlannedDrawing PlanSet(const std::string& output, const std::vector<SetPart>& parts)
{
    std::error_code unreadable;
    if (base::EndsInSeparator(output) || fs::is_directory(base::ToPath(output), unreadable))
        throw Refusal{kExitUsage, output + " is a folder; -o takes the name of the PDF"};
    PlannedDrawing planned;
    for (const SetPart& part : parts) {
        const OutputPlan plan = PlanOutput({part.drawing}, output);
        if (!plan.error.empty())
            throw Refusal{kExitUsage, plan.error};
        planned = plan.drawings.front();
    }
    return planned;
}

class Publication {
public:
    Publication(const PublishJob& job, const Install& install, std::ostream& out, std::ostream& err)
        : m_job(job), m_install(install), m_out(out), m_err(err)
    {
    }

    /// The exit code.
    int Run()
    {
        NeedTools(m_install);
        NeedSettings(m_install, m_err);
        const std::vector<SetPart> parts = ParseSetParts(WithListed(m_job.sheets, m_job.list));
        const PlannedDrawing planned = PlanSet(m_job.output, parts);
        if (m_job.log)
            RefuseLogTarget(*m_job.log, FilesOf(parts, planned));
        if (IsLeftOut(parts, planned))
            return kExitDone;
        MakeFolderOf(planned.pdfPath);
        NeedBuildDate(m_install);
        if (m_job.options.plot.paper)
            PaperCalled(*m_job.options.plot.paper);
        NeedJobOptions(m_job.options, m_install);
        terminal::Console console(m_err, false);
        ReportWriter writer({m_job.report, m_job.talk, m_job.strict, false, "sheetmaker " + m_install.version}, m_out,
                            console);
        const std::string logTrouble = LogTrouble();
        std::optional<DrawingReport> report = Make(parts, planned);
        if (!report) {
            m_err << "sheetmaker: interrupted\n";
            return kExitInterrupted;
        }
        report->logLost = report->logLost || !logTrouble.empty();
        writer.Ended(*report);
        Tell(*report, writer);
        const bool written = writer.Finish();
        return std::max(writer.ExitCode(), written ? kExitDone : kExitFailed);
    }

private:
    [[nodiscard]] std::vector<std::string> FilesOf(const std::vector<SetPart>& parts,
                                                   const PlannedDrawing& planned) const
    {
        std::vector<std::string> files{planned.pdfPath, m_job.list.value_or(planned.pdfPath)};
        for (const SetPart& part : parts)
            files.push_back(part.drawing);
        return files;
    }

    [[nodiscard]] bool IsLeftOut(const std::vector<SetPart>& parts, const PlannedDrawing& planned)
    {
        std::error_code unknown;
        const bool exists = fs::exists(base::ToPath(planned.pdfPath), unknown);
        const bool kept = m_job.noClobber && exists;
        const bool isNewer = m_job.update && exists && std::ranges::all_of(parts, [&](const SetPart& part) {
                                 return IsUpToDate(part.drawing, planned.pdfPath);
                             });
        if ((kept || isNewer) && m_job.talk != Talk::Quiet)
            m_err << m_job.output << ": left as it is, it " << (kept ? "exists" : "is newer") << "\n";
        return kept || isNewer;
    }

    /// Nothing fails for want of a log, but it is told, and --strict fails.
    [[nodiscard]] std::string LogTrouble()
    {
        const SetLog log(m_install.places.stateFolder, m_job.log.value_or(""));
        m_logFolder = log.Folder();
        std::string trouble = log.Trouble();
        if (!trouble.empty())
            m_err << "warning: " << kNoLog << trouble << "\n";
        else if (m_job.log)
            LogBook(m_install).Remember(base::ToPath(*m_job.log));
        return trouble;
    }

    /// The report of the whole set; nothing when the end was asked for. Where what succeeds is to be kept, the set is
    /// made again without a drawing that ended its process.
    std::optional<DrawingReport> Make(std::vector<SetPart> parts, const PlannedDrawing& planned)
    {
        std::vector<std::string> lost;
        for (std::size_t inHand = AtATime(m_job.workers);;) {
            const Attempt attempt = TryToMake(parts, planned, inHand);
            if (!attempt.report)
                return std::nullopt;
            DrawingReport report = *attempt.report;
            const bool leavesOut = m_job.keepGoing && attempt.endedAt < parts.size();
            if (leavesOut && inHand > 1 && !report.isLate) {
                inHand = 1; // one that was being read beside it may have ended the process
                continue;
            }
            if (leavesOut) {
                lost.push_back(parts[attempt.endedAt].drawing + ": failed: " + report.failure);
                parts.erase(parts.begin() + static_cast<std::ptrdiff_t>(attempt.endedAt));
                if (!parts.empty())
                    continue;
                report.failure = "no sheet could be converted; " + m_job.output + " was not written";
            }
            report.notes.insert(report.notes.begin(), lost.begin(), lost.end());
            if (!lost.empty() && (report.exitCode == kExitDone || report.exitCode == kExitContentLost))
                report.exitCode = kExitFailed;
            return report;
        }
    }

    struct Attempt {
        std::optional<DrawingReport> report; ///< nothing: interrupted
        std::size_t endedAt;                 ///< the part that ended the process; their number when none did
    };

    Attempt TryToMake(const std::vector<SetPart>& parts, const PlannedDrawing& planned, std::size_t inHand)
    {
        const base::PrivateFolder folder("");
        const fs::path place = base::ToPath(folder.Path()) / "part";
        const auto work = [&](const DrawingTask& task, terminal::Console& console) {
            return MakeSet(m_job, task, parts, m_install, console);
        };
        std::vector<std::string> drawings, sheets;
        for (const SetPart& part : parts) {
            drawings.push_back(part.drawing);
            sheets.push_back(part.drawing + (part.layout ? ":" + *part.layout : ""));
        }
        const PooledTask task{
            {m_job.output, planned.savePath, m_job.options, {}, {}, {}, sheets, inHand, base::ToText(place)},
            planned.pdfPath,
            LimitsFor(drawings, m_job.seconds, m_job.mebibytes),
            m_job.talk == Talk::Quiet};
        Attempt attempt{{}, parts.size()};
        PoolCallbacks callbacks;
        callbacks.done = [&attempt](const DrawingReport& report, const std::string&) { attempt.report = report; };
        RunPool({task}, 1, work, callbacks);
        std::size_t part = parts.size();
        if (std::ifstream(place) >> part && part < parts.size()) {
            attempt.endedAt = part;
            RemoveAbandonedLogs(base::ToPath(m_logFolder)); // the worker's own
        }
        return attempt;
    }

    /// Its lines name their drawings, so they stand as they are.
    void Tell(const DrawingReport& report, ReportWriter& writer)
    {
        if (m_job.talk != Talk::Quiet)
            for (const std::string& line : report.notes)
                m_err << line << "\n";
        if (!report.Converted())
            m_err << "sheetmaker publish: " << report.failure << "\n";
        writer.Result(report);
    }

    PublishJob m_job;
    std::string m_logFolder;
    const Install& m_install;
    std::ostream& m_out;
    std::ostream& m_err;
};

} // namespace

SetPart ParseSetPart(const std::string& text)
{
    std::error_code unreadable;
    const std::size_t colon = text.rfind(':');
    if (colon == std::string::npos || fs::exists(base::ToPath(text), unreadable))
        return {text, std::nullopt};
    return {text.substr(0, colon), text.substr(colon + 1)};
}

std::vector<SetPart> ParseSetParts(const std::vector<std::string>& texts)
{
    std::vector<SetPart> parts;
    for (const std::string& text : texts)
        parts.push_back(ParseSetPart(text));
    return parts;
}

DrawingReport MakeSet(const PublishJob& job, const DrawingTask& task, const std::vector<SetPart>& parts,
                      const Install& install, terminal::Console& console)
{
    SetLog log(install.places.stateFolder, job.log.value_or(""));
    const auto begins = [&task](std::size_t part) {
        if (!task.placeFile.empty())
            std::ofstream(base::ToPath(task.placeFile)) << part;
    };
    DrawingReport report = PublishSet(parts, {job.keepGoing, task.inHand}, task, log, install, console, begins);
    begins(parts.size());
    return report;
}

int RunPublish(const PublishJob& job, const Install& install, std::ostream& out, std::ostream& err)
{
    int exitCode = kExitFailed;
    const int refused = RunEdit("publish", err, [&] { exitCode = Publication(job, install, out, err).Run(); });
    return refused == kExitDone ? exitCode : refused;
}

} // namespace sm::app
