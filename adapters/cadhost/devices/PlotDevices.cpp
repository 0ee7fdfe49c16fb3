// SPDX-License-Identifier: GPL-3.0-or-later
#include "devices/PlotDevices.h"

#include "answers/HostText.h"
#include "base/files/FileFacts.h"
#include "base/files/Paths.h"
#include "base/text/Names.h"
#include "devices/PaperRules.h"
#include "drawing/TextDecoder.h"

#include <algorithm>
#include <filesystem>
#include <functional>

namespace sm::cadhost {
namespace {

namespace fs = std::filesystem;

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

std::vector<std::string> ListDevices(const PlotFolders& folders, const drawing::Drawing& drawing)
{
    std::vector<std::string> devices{kNoDevice};
    for (const std::string& name : folders.shelf->Devices(folders.plotters))
        AddOnce(devices, name);
    ForEachPlotSettings(drawing, [&](const drawing::PlotSettings& settings) { AddOnce(devices, DeviceOf(settings)); });
    return devices;
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

std::vector<std::string> ListPlotStyles(const PlotFolders& folders, const drawing::Drawing& drawing)
{
    std::vector<std::string> styles;
    for (const std::string& folder : {folders.styles, folders.userStyles, folders.drawing}) {
        for (const std::string& name : folders.shelf->Styles(folder))
            AddOnce(styles, name);
    }
    ForEachPlotSettings(drawing, [&](const drawing::PlotSettings& settings) { AddOnce(styles, settings.styleSheet); });
    return styles;
}

namespace {

/// A pipe would be waited for, and to open a file of the system's may do something.
bool IsTable(const fs::path& path)
{
    std::error_code ignored;
    return !base::IsOfTheSystem(base::ToText(path)) && fs::is_regular_file(path, ignored);
}

} // namespace

std::string FindPlotStyle(const PlotFolders& folders, const std::string& name)
{
    const std::string file = name.substr(name.find_last_of("/\\") + 1);
    const std::string folded = base::FoldCase(file);
    for (const std::string& folder : {folders.drawing, folders.userStyles, folders.styles}) {
        if (const fs::path exact = base::ToPath(folder) / base::ToPath(file); !file.empty() && IsTable(exact))
            return base::ToText(exact);
        for (const std::string& other : folders.shelf->Styles(folder)) {
            const fs::path path = base::ToPath(folder) / base::ToPath(other);
            if (base::FoldCase(other) == folded && IsTable(path))
                return base::ToText(path);
        }
    }
    return {};
}

} // namespace sm::cadhost
