// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/PastRuns.h"

#include "base/files/AtomicFile.h"
#include "base/files/Paths.h"
#include "commandline/Refusal.h"
#include "machine/LogFiles.h"
#include "records/RecordEditor.h"
#include "report/ReportMerge.h"
#include "workers/DrawingNames.h"

#include <filesystem>
#include <fstream>
#include <ostream>

namespace sm::app {
namespace {

constexpr const char* kCommand = "report";

std::string TextOf(const std::string& file)
{
    const std::filesystem::path path = base::ToPath(file);
    std::error_code unreadable;
    if (std::filesystem::is_directory(path, unreadable) || !std::ifstream(path, std::ios::binary))
        throw Refusal{kExitUsage, file + " can't be read" + SimilarFile(file)};
    return ReadWholeFile(path);
}

void NeedPlainFile(const std::string& name)
{
    const std::filesystem::path target = base::ToPath(name);
    std::error_code unknown;
    if (std::filesystem::exists(target, unknown) && !std::filesystem::is_regular_file(target, unknown))
        throw Refusal{kExitUsage, name + " is no plain file"};
}

void WriteFile(const std::string& name, const std::string& text)
{
    base::AtomicFile file(name, base::AtomicFile::Keeping::Durable);
    file.Write(text);
    file.Commit();
}

bool IsToFile(const ReportJob& job)
{
    return job.output && *job.output != kStandardStream;
}

void WriteReport(const ReportJob& job, const std::string& text, std::ostream& out)
{
    if (IsToFile(job))
        return WriteFile(*job.output, text);
    out << text << std::flush;
    if (!out)
        throw Refusal{kExitFailed, "the report could not be written to standard output"};
}

} // namespace

int RunReportMerge(const ReportJob& job, const Install& install, std::ostream& out, std::ostream& err)
{
    int exitCode = kExitFailed;
    const int refused = RunEdit(kCommand, err, [&] {
        if (IsToFile(job))
            NeedPlainFile(*job.output);
        if (job.missing)
            NeedPlainFile(*job.missing);
        std::vector<std::string> wanted;
        if (job.list)
            wanted = NamedDrawings({{}, {}, {}, 0, false, ReportForm::None, false, 0, 0, job.list});
        ReportMerge merge;
        for (const std::string& file : job.files)
            merge.Add(file, TextOf(file));
        for (const std::string& remark : merge.Remarks())
            err << "sheetmaker " << kCommand << ": " << remark << "\n";
        const std::vector<std::string> untold = merge.Untold(wanted);
        std::string missing;
        for (const std::string& drawing : untold) {
            err << drawing << ": no report tells of it\n";
            missing += drawing + "\n";
        }
        if (job.missing)
            WriteFile(*job.missing, missing);
        WriteReport(job, merge.Text(job.form, "sheetmaker " + install.version), out);
        exitCode = std::max(merge.ExitCode(job.strict), untold.empty() ? kExitDone : kExitFailed);
    });
    return refused == kExitDone ? exitCode : refused;
}

} // namespace sm::app
