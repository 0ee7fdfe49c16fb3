#include "devices/PlotDevices.h"

#include "answers/HostText.h"
#include "devices/PaperRules.h"
#include "drawing/TextDecoder.h"

#include <algorithm>
#include <dirent.h>
#include <filesystem>
#include <functional>
#include <memory>
#include <strings.h>

namespace sm::cadhost {
namespace {

namespace fs = std::filesystem;

/// Follows links; only for entries of which the folder doesn't tell what they are.
bool IsFile(const std::string& path)
{
    std::error_code ignored;
    return fs::is_regular_file(path, ignored);
}

/// Names of the folder's files with one of the extensions, sorted; none when it can't be read. Drawings lie by the
/// thousand in one folder, which is listed for each of them: names alone are looked at.
std::vector<std::string> ListFiles(const std::string& folder, std::initializer_list<std::string_view> extensions)
{
    std::vector<std::string> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.empty() ? "." : folder.c_str()), closedir);
    while (const dirent* entry = entries ? readdir(entries.get()) : nullptr) {
        const std::string_view name = entry->d_name;
        const auto ends = [name](std::string_view extension) {
            return name.size() > extension.size() &&
                   strncasecmp(name.data() + name.size() - extension.size(), extension.data(), extension.size()) == 0;
        };
        const bool listed = std::any_of(extensions.begin(), extensions.end(), ends);
        if (listed && (entry->d_type == DT_REG || IsFile(folder + "/" + entry->d_name)))
            names.emplace_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::string> ListPlotStyleFiles(const std::string& folder)
{
    return ListFiles(folder, {".ctb", ".stb"});
}

void AddOnce(std::vector<std::string>& list, const std::string& name)
{
    if (!name.empty() && std::find(list.begin(), list.end(), name) == list.end())
        list.push_back(name);
}

void ForEachPlotSettings(const drawing::Drawing& drawing,
                         const std::function<void(const drawing::PlotSettings&)>& visit)
{
    for (const drawing::Layout& layout : drawing.Layouts())
        visit(layout.plot);
    for (const drawing::PlotSettings& setup : drawing.PageSetups())
        visit(setup);
}

} // namespace

std::string DeviceOf(const drawing::PlotSettings& settings)
{
    const std::string& name = settings.configName;
    return name.empty() || SameName(name, kNoDevice) || SameName(name, "none_device") ? kNoDevice : name;
}

std::vector<std::string> ListDevices(const std::string& plotterFolder, const drawing::Drawing& drawing)
{
    std::vector<std::string> devices{kNoDevice};
    for (const std::string& name : ListFiles(plotterFolder, {".pc3"}))
        AddOnce(devices, name);
    ForEachPlotSettings(drawing, [&](const drawing::PlotSettings& settings) { AddOnce(devices, DeviceOf(settings)); });
    return devices;
}

std::shared_ptr<const Pc3File> LoadDevice(const std::string& plotterFolder, const std::string& device)
{
    const std::vector<std::string> files = ListFiles(plotterFolder, {".pc3"});
    if (std::find(files.begin(), files.end(), device) == files.end())
        return nullptr;
    return std::make_shared<const Pc3File>(ReadPc3((fs::path(plotterFolder) / device).string()));
}

std::vector<Medium> ListDrawingMedia(const drawing::Drawing& drawing)
{
    std::vector<Medium> media;
    ForEachPlotSettings(drawing, [&](const drawing::PlotSettings& settings) {
        if (!HasPaper(settings))
            return;
        Medium medium = MediumOf(settings);
        const auto sameName = [&](const Medium& other) { return other.canonicalName == medium.canonicalName; };
        if (std::none_of(media.begin(), media.end(), sameName))
            media.push_back(std::move(medium));
    });
    return media;
}

std::vector<std::string> ListPlotStyles(const std::vector<std::string>& folders, const drawing::Drawing& drawing)
{
    std::vector<std::string> styles;
    for (const std::string& folder : folders) {
        for (const std::string& name : ListPlotStyleFiles(folder))
            AddOnce(styles, name);
    }
    ForEachPlotSettings(drawing, [&](const drawing::PlotSettings& settings) { AddOnce(styles, settings.styleSheet); });
    return styles;
}

std::string FindPlotStyle(const std::vector<std::string>& folders, const std::string& name)
{
    const std::string file = name.substr(name.find_last_of("/\\") + 1);
    const std::string folded = drawing::FoldName(file);
    for (const std::string& folder : folders) {
        std::error_code ignored;
        if (const fs::path exact = fs::path(folder) / file; !file.empty() && fs::is_regular_file(exact, ignored))
            return exact.string();
        for (const std::string& other : ListPlotStyleFiles(folder)) {
            if (drawing::FoldName(other) == folded)
                return (fs::path(folder) / other).string();
        }
    }
    return {};
}

} // namespace sm::cadhost
