#include "commands/ConvertCommand.h"

#include "base/files/Paths.h"
#include "base/process/ThisProcess.h"
#include "commandline/ExitCodes.h"
#include "commandline/Refusal.h"
#include "commandline/Suggest.h"
#include "commands/Readiness.h"
#include "machine/LogFiles.h"
#include "render/TextLayout.h"
#include "workers/OutputPlan.h"
#include "workers/WorkerPool.h"

#include <filesystem>
#include <fmt/format.h>
#include <ostream>
#include <sstream>
#include <thread>

namespace sm::app {
namespace {

/// The job options' name as it is installed.
void CheckJobOptions(ConvertOptions& options, const Install& install)
{
    if (!options.jobOptions)
        return;
    const std::vector<std::string> names = JobOptionNames(install);
    const std::string found = FindName(*options.jobOptions, names);
    if (found.empty()) {
        const std::string suggestion = Suggestion(*options.jobOptions, names);
        throw Refusal{kExitUsage, "there are no job options \"" + *options.jobOptions + "\"" +
                                      (suggestion.empty() ? "; there are " + QuotedList(names) : suggestion)};
    }
    options.jobOptions = found;
}

class Conversion {
public:
    Conversion(const ConvertJob& job, const Install& install, std::ostream& out, std::ostream& err)
        : m_job(job), m_install(install), m_out(out), m_err(err), m_console(err, base::IsTerminal(base::Stream::Errors))
    {
    }

    int Run(const WorkerWork& work)
    {
        NeedTools(m_install);
        NeedSettings(m_install, m_err);
        CheckJobOptions(m_job.options, m_install);
        OutputPlan plan = PlanOutput(m_job.drawings, m_job.output);
        if (!plan.error.empty())
            throw Refusal{kExitUsage, plan.error};
        if (m_job.noClobber)
            LeaveOutDone(plan);
        if (m_job.output)
            for (const PlannedDrawing& planned : plan.drawings)
                MakeFolderOf(planned.pdfPath);
        if (plan.drawings.size() > 1)
            render::TextEngine::Prepare();
        const LogFiles logs(m_install.places.stateFolder, plan.drawings.size());
        const bool ended = RunPool(Tasks(plan, logs), Workers(), work, Callbacks());
        m_console.ClearProgress();
        logs.Join();
        if (!ended) {
            m_err << "sheetmaker: interrupted\n";
            return kExitInterrupted;
        }
        if (m_job.reportJson)
            m_out << ToJson(m_reports, "sheetmaker " + m_install.version) << "\n";
        return ExitCodeOf(m_reports, m_job.strict);
    }

private:
    void LeaveOutDone(OutputPlan& plan)
    {
        std::erase_if(plan.drawings, [this](const PlannedDrawing& planned) {
            std::error_code unknown;
            const bool done = std::filesystem::exists(base::ToPath(planned.pdfPath), unknown);
            if (done)
                m_console.Line(planned.drawing + ": left out, " + planned.pdfPath + " exists");
            return done;
        });
    }

    [[nodiscard]] std::size_t Workers() const
    {
        return m_job.workers > 0 ? static_cast<std::size_t>(m_job.workers)
                                 : std::max<std::size_t>(std::thread::hardware_concurrency(), 1);
    }

    [[nodiscard]] std::vector<PooledTask> Tasks(const OutputPlan& plan, const LogFiles& logs) const
    {
        std::vector<PooledTask> tasks;
        for (const PlannedDrawing& planned : plan.drawings)
            tasks.push_back({{planned.drawing, planned.savePath, m_job.options, logs.Names()[tasks.size()], {}},
                             planned.pdfPath,
                             LimitsFor({planned.drawing}, m_job.seconds, m_job.mebibytes)});
        return tasks;
    }

    PoolCallbacks Callbacks()
    {
        PoolCallbacks callbacks;
        callbacks.done = [this](const DrawingReport& report, const std::string& lines) { Tell(report, lines); };
        if (m_job.drawings.size() > 1)
            callbacks.progress = [this](std::size_t ended, std::size_t count) {
                m_console.Progress(fmt::format("{} of {} drawings", ended, count));
            };
        return callbacks;
    }

    void Tell(const DrawingReport& report, const std::string& lines)
    {
        std::istringstream kept(lines);
        for (std::string line; std::getline(kept, line);)
            m_console.Line(report.drawing + ": " + line);
        for (const std::string& line : RemarkLines(report))
            m_console.Line(report.drawing + ": " + line);
        m_console.ClearProgress();
        if (!m_job.reportJson && report.Converted())
            m_out << ResultLine(report) << std::endl;
        m_reports.push_back(report);
    }

    ConvertJob m_job;
    const Install& m_install;
    std::ostream& m_out;
    std::ostream& m_err;
    terminal::Console m_console;
    std::vector<DrawingReport> m_reports;
};

} // namespace

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
