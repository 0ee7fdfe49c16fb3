// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/ReportWriter.h"

#include <fmt/format.h>
#include <ostream>
#include <sstream>

namespace sm::app {

ReportWriter::ReportWriter(ReportWishes wishes, std::ostream& out, terminal::Console& console)
    : m_wishes(std::move(wishes)), m_out(out), m_console(console), m_exit(m_wishes.strict)
{
}

void ReportWriter::Ended(const DrawingReport& report)
{
    if (m_wishes.form == ReportForm::JsonLines)
        m_out << ToJsonLine(report) << std::endl;
}

void ReportWriter::Told(const DrawingReport& report, const std::string& lines)
{
    if (m_wishes.talk == Talk::Quiet) {
        if (!report.Converted())
            m_console.Line(report.drawing + ": failed: " + report.failure);
    } else {
        TellLines(report, lines);
    }
    Result(report);
}

void ReportWriter::Result(const DrawingReport& report)
{
    m_console.ClearProgress();
    const std::string result = ResultLine(report);
    if (!result.empty() && m_wishes.talk != Talk::Quiet && m_wishes.form == ReportForm::None) {
        if (m_wishes.outIsTaken)
            m_console.Line(result);
        else
            m_out << result << std::endl;
    }
    m_exit.Add(report);
    if (m_wishes.form == ReportForm::Json)
        m_reports.push_back(report);
}

std::vector<std::string> ReportWriter::NewSubstitutions(const DrawingReport& report)
{
    std::vector<std::string> fresh;
    for (const std::string& one : report.substitutions)
        if (m_toldSubstitutions.insert(one).second)
            fresh.push_back(one);
    return fresh;
}

void ReportWriter::TellLines(const DrawingReport& report, const std::string& lines)
{
    std::istringstream kept(lines);
    for (std::string line; std::getline(kept, line);)
        m_console.Line(report.drawing + ": " + line);
    DrawingReport told = report;
    told.substitutions = NewSubstitutions(report);
    for (const std::string& line : RemarkLines(told))
        m_console.Line(report.drawing + ": " + line);
    if (m_wishes.talk == Talk::Verbose)
        TellSheets(report);
}

void ReportWriter::TellSheets(const DrawingReport& report)
{
    for (const SheetReport& sheet : report.sheets)
        m_console.Line(fmt::format("{}: sheet \"{}\": {}, marks: {}", report.drawing, sheet.name,
                                   sheet.status < 0 ? fmt::format("failed ({})", sheet.status) : "plotted",
                                   sheet.marks));
    const EntityCounts& counts = report.entities;
    m_console.Line(fmt::format("{}: entities: {} read, {} drawn, {} hidden, {} off the page, {} not reached, {} not "
                               "drawn",
                               report.drawing, counts.read, counts.drawn, counts.hidden, counts.offPage,
                               counts.notReached, counts.notDrawn));
    const RunTimes& times = report.times;
    m_console.Line(
        fmt::format("{}: milliseconds: open {:.1f}, plot {:.1f}, pages {:.1f}, assemble {:.1f}, total {:.1f}",
                    report.drawing, times.open, times.plot, times.pages, times.assemble, times.total));
}

bool ReportWriter::Finish()
{
    if (m_wishes.form == ReportForm::Json)
        m_out << ToJson(m_reports, m_wishes.program) << "\n";
    m_out << std::flush;
    if (m_out)
        return true;
    m_console.Line(m_wishes.form == ReportForm::None ? "the results could not be written to standard output"
                                                     : "the report could not be written to standard output");
    return false;
}

} // namespace sm::app
