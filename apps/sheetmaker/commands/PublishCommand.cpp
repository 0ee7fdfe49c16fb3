#include "commands/PublishCommand.h"

#include "base/files/Paths.h"
#include "commandline/Refusal.h"
#include "commands/Readiness.h"
#include "layouts/PlotOptions.h"
#include "records/RecordEditor.h"
#include "report/ReportWriter.h"
#include "run/PublishRun.h"
#include "workers/OutputPlan.h"
#include "workers/WorkerPool.h"

#include <filesystem>
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
        const std::vector<SetPart> parts = PartsOf(m_job);
        const PlannedDrawing planned = PlanSet(m_job.output, parts);
        MakeFolderOf(planned.pdfPath);
        SetLog log(m_install.places.stateFolder);
        const auto work = [&](const DrawingTask& task, terminal::Console& console) {
            return PublishSet(parts, m_job.keepGoing, task, log, m_install, console);
        };
        terminal::Console console(m_err, false);
        ReportWriter writer({m_job.report, m_job.talk, m_job.strict, false, "sheetmaker " + m_install.version}, m_out,
                            console);
        PoolCallbacks callbacks;
        callbacks.ended = [&writer](DrawingReport& report) { writer.Ended(report); };
        callbacks.done = [&, this](const DrawingReport& report, const std::string&) { Tell(report, writer); };
        std::vector<std::string> drawings;
        for (const SetPart& part : parts)
            drawings.push_back(part.drawing);
        NeedBuildDate(m_install);
        if (m_job.options.plot.paper)
            PaperCalled(*m_job.options.plot.paper);
        NeedJobOptions(m_job.options, m_install);
        const PooledTask task{{m_job.output, planned.savePath, m_job.options, {}, {}, {}},
                              planned.pdfPath,
                              LimitsFor(drawings, m_job.seconds, m_job.mebibytes),
                              m_job.talk == Talk::Quiet};
        if (RunPool({task}, 1, work, callbacks)) {
            const bool written = writer.Finish();
            return std::max(writer.ExitCode(), written ? kExitDone : kExitFailed);
        }
        m_err << "sheetmaker: interrupted\n";
        return kExitInterrupted;
    }

private:
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

std::vector<SetPart> PartsOf(const PublishJob& job)
{
    std::vector<SetPart> parts;
    for (const std::string& sheet : job.sheets)
        parts.push_back(ParseSetPart(sheet));
    return parts;
}

int RunPublish(const PublishJob& job, const Install& install, std::ostream& out, std::ostream& err)
{
    int exitCode = kExitFailed;
    const int refused = RunEdit("publish", err, [&] { exitCode = Publication(job, install, out, err).Run(); });
    return refused == kExitDone ? exitCode : refused;
}

} // namespace sm::app
