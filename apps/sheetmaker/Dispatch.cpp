// SPDX-License-Identifier: GPL-3.0-or-later
#include "Dispatch.h"

#include "commandline/CommandLine.h"
#include "commandline/ExitCodes.h"
#include "commands/ConvertCommand.h"
#include "commands/HelpCommand.h"
#include "commands/LayoutsCommand.h"
#include "commands/PastRuns.h"
#include "commands/PublishCommand.h"
#include "commands/SettingCommands.h"
#include "commands/WorkerCommand.h"
#include "doctor/Doctor.h"
#include "machine/Version.h"
#include "records/AttachCommand.h"
#include "records/PageSetupEdit.h"
#include "records/SignCommand.h"
#include "records/StampCommand.h"
#include "run/DrawingRun.h"
#include "workers/TaskText.h"
#include "workers/WindowsProgram.h"

#include <iostream>

namespace sm::app {
namespace {

/// Runs the job that the visited alternative holds.
class Runner {
public:
    Runner(const Install& install, std::ostream& out, std::ostream& err, const ShowWindows& showWindows)
        : m_install(install), m_out(out), m_err(err), m_showWindows(showWindows)
    {
    }

    int operator()(const ConvertJob& job) const
    {
        const auto work = [this](const DrawingTask& task, terminal::Console& console) {
            return ConvertDrawing(task, m_install, console);
        };
        return RunConvert(job, m_install, work, m_out, m_err);
    }
    int operator()(const LayoutsJob& job) const { return RunLayouts(job, m_install, m_out, m_err); }
    int operator()(const GetJob& job) const
    {
        return AreReadable("get") ? RunGet(*Settings(), job, m_out, m_err) : kExitFailed;
    }
    int operator()(const SetJob& job) const { return RunSet(*Settings(), job, JobOptionNames(m_install), m_err); }
    int operator()(const ListJob& job) const
    {
        return AreReadable("list") ? RunList(*Settings(), job, m_out, m_err) : kExitFailed;
    }
    int operator()(const LogJob& job) const { return RunLog(job, m_install, m_out, m_err); }
    int operator()(const ReportJob& job) const { return RunReportMerge(job, m_install, m_out, m_err); }
    int operator()(const HelpJob& job) const { return RunHelp(job, m_out, m_err); }
    int operator()(const DoctorJob&) const { return RunDoctor(m_install, m_out); }
    int operator()(const StampJob& job) const { return RunStamp(job, m_install, m_out, m_err); }
    int operator()(const AttachJob& job) const { return RunAttach(job, m_install, m_out, m_err); }
    int operator()(const SignJob& job) const { return RunSign(job, m_install, m_out, m_err); }
    int operator()(const PublishJob& job) const { return RunPublish(job, m_install, m_out, m_err); }
    int operator()(const SettingsJob& job) const { return m_showWindows(job, m_install); }
    int operator()(const PageSetupJob& job) const
    {
        return IsPageSetupEdit(job) ? RunPageSetupEdit(job, m_install, m_out, m_err) : m_showWindows(job, m_install);
    }

private:
    /// Defaults are never shown for what can't be read.
    [[nodiscard]] bool AreReadable(const char* command) const
    {
        return CanReadSettings(
            m_install, [&](const std::string& text) { m_err << "sheetmaker " << command << ": " << text << "\n"; });
    }
    [[nodiscard]] std::unique_ptr<IRegistry> Settings() const
    {
        return OpenSettings(m_install, [this](const std::string& text) { m_err << "sheetmaker: " << text << "\n"; });
    }

    const Install& m_install;
    std::ostream& m_out;
    std::ostream& m_err;
    const ShowWindows& m_showWindows;
};

bool HasWorkers(const Job& job)
{
    return std::holds_alternative<ConvertJob>(job) || std::holds_alternative<PublishJob>(job);
}

} // namespace

int RunProgram(const std::vector<std::string>& given, const Install& install, std::ostream& out, std::ostream& err,
               const ShowWindows& showWindows)
{
    const bool isWorker = !given.empty() && given.front() == kWorkerWord;
    const std::vector<std::string> words(given.begin() + (isWorker ? 1 : 0), given.end());
    const ParsedCommand parsed = ParseCommandLine(words, VersionLine(install.version, Commit()));
    out << parsed.output;
    err << parsed.error;
    Install forThisRun = install;
    if (!parsed.dwgConverter.empty())
        forThisRun.dwgConverter = parsed.dwgConverter;
    if (!parsed.job)
        return parsed.exitCode;
    if (isWorker)
        return HasWorkers(*parsed.job) ? RunWorker(*parsed.job, forThisRun, std::cin, out, err) : kExitUsage;
    const ShowWindows become = [&](const Job&, const Install& here) {
        out << std::flush;
        return BecomeWindowsProgram(words, here, err);
    };
    return std::visit(Runner(forThisRun, out, err, showWindows ? showWindows : become), *parsed.job);
}

} // namespace sm::app
