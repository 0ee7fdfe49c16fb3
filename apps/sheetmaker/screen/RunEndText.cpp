// SPDX-License-Identifier: GPL-3.0-or-later
#include "screen/RunEndText.h"

#include "base/files/Paths.h"

#include <filesystem>
#include <fmt/format.h>

namespace sm::app {
namespace {

namespace fs = std::filesystem;

std::string NameOf(const std::string& path)
{
    return base::ToText(base::ToPath(path).filename());
}

void SayMade(const DrawingReport& report, beside::RunEnd& end)
{
    std::error_code error;
    const fs::path pdf = fs::absolute(base::ToPath(report.pdfPath), error);
    end.pdfPath = base::ToText(pdf);
    end.folder = base::ToText(pdf.parent_path());
    end.headline =
        fmt::format("{} was made: {} page{}.", NameOf(report.pdfPath), report.pages, report.pages == 1 ? "" : "s");
    const bool isLoss = report.ContentLost() || !report.marksLost.empty() || !report.attachmentsLost.empty();
    end.kind = isLoss ? beside::EndKind::MadeWithLoss : beside::EndKind::Made;
    end.lines = RemarkLines(report);
}

} // namespace

beside::RunEnd EndOf(const DrawingReport& report, const std::string& cancelled, const Install& install)
{
    beside::RunEnd end;
    std::error_code error;
    const fs::path log = install.places.stateFolder / kLogFileName;
    if (fs::exists(log, error))
        end.logPath = base::ToText(fs::absolute(log, error));
    if (!cancelled.empty()) {
        end.kind = beside::EndKind::Cancelled;
        end.headline = fmt::format("No PDF was made: {} was cancelled.", cancelled);
        return end;
    }
    if (report.Converted()) {
        SayMade(report, end);
        return end;
    }
    end.kind = beside::EndKind::Failed;
    end.headline = fmt::format("No PDF was made of {}: {}.", NameOf(report.drawing), report.failure);
    for (const std::string& line : RemarkLines(report))
        if (!line.starts_with("failed: "))
            end.lines.push_back(line);
    return end;
}

} // namespace sm::app
