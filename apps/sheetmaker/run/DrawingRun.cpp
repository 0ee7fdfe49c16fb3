// SPDX-License-Identifier: GPL-3.0-or-later
#include "run/DrawingRun.h"

#include "base/files/MappedFile.h"
#include "commandline/ExitCodes.h"
#include "commandline/Refusal.h"
#include "drawing/DrawingError.h"
#include "plugin/cPlugin.h"
#include "report/RunOutcome.h"
#include "run/HostReport.h"
#include "run/RunSession.h"
#include "run/UnplottedMarks.h"
#include "settings/mdlUtilities.h"

#include <chrono>

namespace sm::app {
namespace {

using Clock = std::chrono::steady_clock;

double MillisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

void Fail(DrawingReport& report, int exitCode, const std::string& text)
{
    report.exitCode = exitCode;
    report.failure = text;
}

/// The drawing is named before every line already.
std::string WithoutName(const std::string& text, const std::string& drawing)
{
    return text.starts_with(drawing + ": ") ? text.substr(drawing.size() + 2) : text;
}

class DrawingRun {
public:
    DrawingRun(const DrawingTask& task, const Install& install, terminal::Console& console, DrawingReport& report)
        : m_task(task), m_report(report), m_session(task, install, console, report)
    {
    }

    void Run()
    {
        if (!Open())
            return;
        Convert();
        const cadhost::DocumentReport host = m_session.HostReport();
        TakeHostReport(host, m_report);
        Conclude(m_session.Watcher(), host.plotFailure, m_report);
        TellUnplotted();
    }

private:
    /// A mark on a layout that somebody left out on purpose is no loss.
    void TellUnplotted()
    {
        const ConvertOptions& options = m_task.options;
        const bool nobodyChose = options.layoutNames.empty() && !options.layouts && !options.asSet;
        if (m_report.Converted())
            TellUnplottedMarks(m_session.Context(), *m_session.Document(), nobodyChose, m_report);
    }

    bool Open();
    void Convert();

    const DrawingTask& m_task;
    DrawingReport& m_report;
    RunSession m_session;
};

bool DrawingRun::Open()
{
    const Clock::time_point start = Clock::now();
    m_session.Open(m_task.drawing);
    m_session.RefuseTarget(m_task.savePath.value_or(StripExtension(m_task.drawing) + ".pdf"));
    const LayoutSelection selection = m_session.Select(m_task.options);
    if (!selection.error.empty()) {
        Fail(m_report, kExitUsage, "the drawing " + selection.error);
        return false;
    }
    m_session.RefuseAttachments(selection);
    if (selection.whatToPlot)
        m_session.Around().LaySetting(SettingNamed("WhatToPlot"), std::to_string(*selection.whatToPlot));
    m_report.times.open = MillisecondsSince(start);
    return true;
}

void DrawingRun::Convert()
{
    const Clock::time_point start = Clock::now();
    cPlugin plugin(m_session.Context());
    IPlugin& frontEnd = plugin;
    frontEnd.Initialize(m_session.Application());
    frontEnd.ConvertToPDF(0);
    const RunTimes& times = m_report.times;
    m_report.times.plot = MillisecondsSince(start) - times.pages - times.assemble;
}

} // namespace

DrawingReport ConvertDrawing(const DrawingTask& task, const Install& install, terminal::Console& console)
{
    const Clock::time_point start = Clock::now();
    DrawingReport report;
    report.drawing = task.drawing;
    try {
        DrawingRun(task, install, console, report).Run();
        base::MappedFile::RequireWhole();
    } catch (const std::bad_alloc&) {
        Fail(report, kExitFailed, "there is not enough memory");
    } catch (const Refusal& refusal) {
        Fail(report, refusal.exitCode, refusal.text);
    } catch (const drawing::DwgConverterMissing& error) {
        Fail(report, kExitToolMissing, WithoutName(error.what(), task.drawing));
    } catch (const std::exception& error) {
        Fail(report, kExitFailed, WithoutName(error.what(), task.drawing));
    }
    console.ClearProgress();
    report.times.total = MillisecondsSince(start);
    return report;
}

} // namespace sm::app
