// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/RunOutcome.h"

#include "base/process/Memory.h"

#include "commandline/ExitCodes.h"

namespace sm::app {
namespace {

void Fail(DrawingReport& report, const std::string& text)
{
    report.exitCode = kExitFailed;
    report.failure = text;
}

} // namespace

int ExitCodeOfFailedSave(std::int32_t status)
{
    return status == kInterpreterMissing ? kExitToolMissing : kExitFailed;
}

void Conclude(const SheetWatcher& watcher, const std::string& plotFailure, DrawingReport& report)
{
    const std::string sheet = watcher.FailedSheet(plotFailure);
    const auto& save = watcher.LastSave();
    if (!sheet.empty())
        return Fail(report, sheet);
    if (!save)
        return Fail(report, "the conversion ended before the PDF was saved");
    report.saveStatus = save->status;
    if (!IsSaved(save->status)) {
        Fail(report, save->errorText.empty() ? "the PDF could not be saved" : save->errorText);
        report.exitCode = ExitCodeOfFailedSave(save->status);
        return;
    }
    report.pdfPath = save->pdfPath;
    if (base::MemoryRanOut()) // whoever caught it
        return Fail(report, "there was not enough memory; the PDF may lack something");
    report.exitCode = report.ContentLost() ? kExitContentLost : kExitDone;
}

} // namespace sm::app
