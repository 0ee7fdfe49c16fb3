// SPDX-License-Identifier: GPL-3.0-or-later
#include "devices/HostPc3.h"

#include "ports/HostError.h"
#include "render/PlotFileText.h"

#include <charconv>
#include <cmath>
#include <initializer_list>
#include <optional>

namespace sm::cadhost {
namespace {

using render::PlotFileGroup;

constexpr const char* kConfiguration = "a plotter configuration";
constexpr double kShortestSide = 1, kLongestSide = 100000; // mm
constexpr double kFewestDots = 36, kMostDots = 9600;       // an inch

/// A group within groups; null when one of them isn't there.
const PlotFileGroup* GroupIn(const PlotFileGroup* group, std::initializer_list<std::string_view> names)
{
    for (const std::string_view name : names) {
        if (group == nullptr)
            break;
        const auto found = group->groups.find(name);
        group = found == group->groups.end() ? nullptr : &found->second;
    }
    return group;
}

std::string TextIn(const PlotFileGroup* group, std::string_view name)
{
    if (group == nullptr)
        return {};
    const auto found = group->values.find(name);
    return found == group->values.end() ? std::string() : found->second.text;
}

/// Behind some numbers stands the same once more, in a code that keeps every bit.
std::optional<double> NumberIn(const PlotFileGroup* group, std::string_view name)
{
    const std::string text = TextIn(group, name);
    double value = 0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool whole = end.ptr == text.data() + text.size() || *end.ptr == ' ';
    return end.ec == std::errc() && whole && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<Medium> MediumOf(const PlotFileGroup& root)
{
    const PlotFileGroup* const size = GroupIn(&root, {"media", "size"});
    const PlotFileGroup* const area = GroupIn(size, {"media_description"});
    const PlotFileGroup* const sheet = GroupIn(area, {"media_bounds"});
    const auto width = NumberIn(sheet, "urx"), height = NumberIn(sheet, "ury");
    const auto usable = [](const std::optional<double>& side) {
        return side && *side >= kShortestSide && *side <= kLongestSide;
    };
    const std::string name = TextIn(size, "name");
    if (name.empty() || !usable(width) || !usable(height))
        return std::nullopt;
    const double left = NumberIn(area, "printable_bounds_llx").value_or(0);
    const double bottom = NumberIn(area, "printable_bounds_lly").value_or(0);
    const double right = *width - NumberIn(area, "printable_bounds_urx").value_or(*width);
    const double top = *height - NumberIn(area, "printable_bounds_ury").value_or(*height);
    const bool sound =
        left >= 0 && bottom >= 0 && right >= 0 && top >= 0 && left + right < *width && bottom + top < *height;
    return Medium{name, name, *width, *height, sound ? Margins{left, bottom, right, top} : Margins{}};
}

std::string FileNameIn(const std::string& path)
{
    return path.substr(path.find_last_of("/\\") + 1);
}

} // namespace

bool IsHostPc3(std::string_view bytes)
{
    return render::IsPlotFile(bytes);
}

Pc3File ParseHostPc3(std::string_view bytes, const std::string& name)
{
    if (bytes.substr(0, bytes.find('\n')).find("PC3") == std::string_view::npos)
        throw HostError(name + ": the file is no plotter configuration");
    PlotFileGroup root;
    try {
        root = render::ParsePlotFileText(render::UnpackPlotFile(bytes, kConfiguration), kConfiguration);
    } catch (const render::PlotFileFault& fault) {
        const std::string place = fault.Line() > 0 ? ", line " + std::to_string(fault.Line()) : std::string();
        throw HostError(name + place + ": " + fault.what());
    }
    const PlotFileGroup* const meta = GroupIn(&root, {"meta"});
    const auto dots = NumberIn(GroupIn(&root, {"res_color_mem", "resolution"}), "phys_resolution_x");
    const auto medium = MediumOf(root);
    Pc3File file{TextIn(meta, "localized_model_name"), FileNameIn(TextIn(meta, "driver_pathname")), 0, {}};
    const char* const missing = file.device.empty()                                 ? "model"
                                : file.driver.empty()                               ? "driver"
                                : !dots || *dots < kFewestDots || *dots > kMostDots ? "resolution"
                                : !medium                                           ? "media"
                                                                                    : nullptr;
    if (missing != nullptr)
        throw HostError(name + ": the plotter configuration has no " + missing);
    file.resolution = static_cast<std::int32_t>(std::lround(*dots));
    file.media.push_back(*medium);
    return file;
}

} // namespace sm::cadhost
