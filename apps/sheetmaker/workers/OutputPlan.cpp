// SPDX-License-Identifier: GPL-3.0-or-later
#include "workers/OutputPlan.h"

#include "base/files/Paths.h"
#include "settings/mdlUtilities.h"

#include <fmt/format.h>
#include <map>

namespace sm::app {
namespace {

namespace fs = std::filesystem;

/// The file that a path stands for, whatever links lead there and whether or not it exists.
std::string Identity(const std::string& path)
{
    std::error_code unreadable;
    const fs::path identity = fs::weakly_canonical(fs::absolute(base::ToPath(path)), unreadable);
    return unreadable ? base::ToText(fs::absolute(base::ToPath(path)).lexically_normal()) : base::ToText(identity);
}

bool NamesFolder(const std::string& output, std::size_t drawingCount)
{
    std::error_code unreadable;
    return drawingCount > 1 || base::EndsInSeparator(output) || fs::is_directory(base::ToPath(output), unreadable);
}

/// The name under which the publisher saves: ".pdf" is added to any other ending. A drawing's own ending stays, so
/// that it is seen to name a drawing.
std::string AsPdfName(const std::string& output)
{
    for (const char* ending : {".pdf", ".PDF", ".Pdf", ".dxf", ".DXF", ".dwg", ".DWG"})
        if (output.ends_with(ending))
            return output;
    return output + ".pdf";
}

PlannedDrawing Plan(const std::string& drawing, const std::optional<std::string>& output, std::size_t count)
{
    if (!output)
        return {drawing, StripExtension(base::ToText(fs::absolute(base::ToPath(drawing)))) + ".pdf", std::nullopt};
    if (!NamesFolder(*output, count))
        return {drawing, AsPdfName(*output), base::ToText(fs::absolute(base::ToPath(AsPdfName(*output))))};
    const std::string name = base::ToText(base::ToPath(drawing).stem()) + ".pdf";
    const std::string path = base::ToText(base::ToPath(*output) / base::ToPath(name));
    return {drawing, path, base::ToText(fs::absolute(base::ToPath(path)))};
}

std::string Clash(const std::vector<PlannedDrawing>& drawings)
{
    std::map<std::string, std::string> inputs, outputs;
    for (const PlannedDrawing& planned : drawings)
        if (!inputs.emplace(Identity(planned.drawing), planned.drawing).second)
            return fmt::format("{} is named twice", planned.drawing);
    for (const PlannedDrawing& planned : drawings) {
        const std::string identity = Identity(planned.pdfPath);
        const auto overwritten = inputs.find(identity);
        if (overwritten != inputs.end())
            return fmt::format("the PDF of {} would overwrite the drawing {}", planned.drawing, overwritten->second);
        const auto [other, fresh] = outputs.emplace(identity, planned.drawing);
        if (!fresh)
            return fmt::format("{} and {} would both be written to {}", other->second, planned.drawing,
                               planned.pdfPath);
    }
    return {};
}

} // namespace

OutputPlan PlanOutput(const std::vector<std::string>& drawings, const std::optional<std::string>& output)
{
    OutputPlan plan;
    if (output && output->empty()) {
        plan.error = "-o takes a name";
        return plan;
    }
    std::error_code unreadable;
    if (output && drawings.size() > 1 && fs::exists(base::ToPath(*output), unreadable) &&
        !fs::is_directory(base::ToPath(*output), unreadable)) {
        plan.error = fmt::format("{} is a file; several drawings need a folder", *output);
        return plan;
    }
    for (const std::string& drawing : drawings)
        plan.drawings.push_back(Plan(drawing, output, drawings.size()));
    plan.error = Clash(plan.drawings);
    return plan;
}

} // namespace sm::app
