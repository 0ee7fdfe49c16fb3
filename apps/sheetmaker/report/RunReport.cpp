// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/RunReport.h"

#include "cadhost/Remarks.h"
#include "commandline/ExitCodes.h"
#include "render/Remarks.h"

#include <algorithm>
#include <fmt/format.h>
#include <initializer_list>
#include <string_view>

namespace sm::app {
namespace {

std::string Times(std::uint64_t count, const char* one, const char* many)
{
    return fmt::format("{} {}", count, count == 1 ? one : many);
}

std::string NotDrawnLine(const std::vector<NotDrawn>& kinds)
{
    std::vector<std::string> parts;
    for (const NotDrawn& kind : kinds)
        parts.push_back(fmt::format("{} {}", kind.count, kind.kind));
    return fmt::format("not drawn: {}", fmt::join(parts, ", "));
}

std::string DamageLine(const Damage& damage)
{
    std::string line = damage.contentLost ? "lost: " : "mended: ";
    line += damage.text;
    if (damage.line != 0)
        line +=
            fmt::format(" (line {}", damage.line) + (damage.count > 1 ? fmt::format(", {} times)", damage.count) : ")");
    else if (damage.count > 1)
        line += fmt::format(" ({} times)", damage.count);
    return line;
}

/// Lights are there for renderings and show on no plot.
bool ShowsOnPaper(const NotDrawn& kind)
{
    return kind.kind != "LIGHT" && kind.kind != "SUN";
}

/// A remark on a page that isn't what the drawing or the user wants.
bool IsOfAnotherPage(std::string_view remark)
{
    return std::ranges::any_of(std::initializer_list<std::string_view>{render::kMissingCharacters,
                                                                       render::kTooManyEntities, render::kTooMuchWork,
                                                                       cadhost::kNoStyleTable, cadhost::kWithoutStyles,
                                                                       cadhost::kBlankPage, cadhost::kCutSheet},
                               [&](std::string_view part) { return remark.find(part) != std::string_view::npos; });
}

/// What --strict doesn't let pass though nothing of the drawing was lost.
bool IsUnfaithful(const DrawingReport& report)
{
    return !report.attachmentsLost.empty() || !report.marksLost.empty() || report.logLost ||
           std::any_of(report.notDrawn.begin(), report.notDrawn.end(), ShowsOnPaper) ||
           std::any_of(report.remarks.begin(), report.remarks.end(), IsOfAnotherPage);
}

} // namespace

bool DrawingReport::ContentLost() const
{
    return std::any_of(damage.begin(), damage.end(), [](const Damage& kind) { return kind.contentLost; });
}

std::string ResultLine(const DrawingReport& report)
{
    if (!report.Converted())
        return {};
    return fmt::format("{} -> {}, {}", report.drawing, report.pdfPath, Times(report.pages, "page", "pages"));
}

std::vector<std::string> RemarkLines(const DrawingReport& report)
{
    std::vector<std::string> lines;
    for (const Damage& damage : report.damage)
        lines.push_back(DamageLine(damage));
    if (!report.notDrawn.empty())
        lines.push_back(NotDrawnLine(report.notDrawn));
    if (!report.substitutions.empty())
        lines.push_back(fmt::format("fonts: {}", fmt::join(report.substitutions, "; ")));
    for (const std::string& remark : report.remarks)
        lines.push_back("note: " + remark);
    lines.insert(lines.end(), report.notes.begin(), report.notes.end());
    if (!report.Converted())
        lines.push_back("failed: " + report.failure);
    return lines;
}

void ExitTally::Add(const DrawingReport& report)
{
    ++m_count;
    if (m_outweighs == 0 && (report.exitCode == kExitToolMissing || report.exitCode == kExitInterrupted))
        m_outweighs = report.exitCode;
    m_usage = m_usage || report.exitCode == kExitUsage;
    m_failed = m_failed || report.exitCode == kExitFailed ||
               (m_strict && (report.exitCode == kExitContentLost || report.notToScale || IsUnfaithful(report)));
    m_lost = m_lost || report.exitCode == kExitContentLost;
}

int ExitTally::Code() const
{
    if (m_outweighs != 0)
        return m_outweighs;
    if (m_usage && m_count == 1)
        return kExitUsage;
    if (m_failed || m_usage)
        return kExitFailed;
    return m_lost ? kExitContentLost : kExitDone;
}

int ExitCodeOf(const std::vector<DrawingReport>& reports, bool strict)
{
    ExitTally tally(strict);
    for (const DrawingReport& report : reports)
        tally.Add(report);
    return tally.Code();
}

} // namespace sm::app
