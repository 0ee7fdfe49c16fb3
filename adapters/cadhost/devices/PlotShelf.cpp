// SPDX-License-Identifier: GPL-3.0-or-later
#include "devices/PlotShelf.h"

#include "base/files/FolderNames.h"
#include "base/files/Paths.h"
#include "base/text/Keywords.h"
#include "devices/ReadPc3.h"

#include <algorithm>

namespace sm::cadhost {
namespace {

namespace fs = std::filesystem;

bool EndsIn(std::string_view name, std::string_view extension)
{
    return name.size() > extension.size() && base::SameAscii(name.substr(name.size() - extension.size()), extension);
}

} // namespace

/// Drawings lie by the thousand in one folder, which is listed for each of them: names alone are looked at.
PlotShelf::Folder& PlotShelf::Listed(const std::string& folder)
{
    const auto [known, isNew] = m_folders.try_emplace(folder);
    Folder& listed = known->second;
    if (!isNew && m_lists == Lists::Kept)
        return listed;
    const std::string place = folder.empty() ? "." : folder;
    std::error_code unreadable;
    const fs::file_time_type changed = fs::last_write_time(base::ToPath(place), unreadable);
    if (!isNew && listed.changed == changed)
        return listed;
    listed = {changed, {}, {}, {}};
    base::VisitNames(place, [&listed](const base::FolderName& entry) {
        const std::string_view name = entry.Text();
        const bool device = EndsIn(name, ".pc3"), style = EndsIn(name, ".ctb") || EndsIn(name, ".stb");
        if ((device || style) && entry.IsFile())
            (device ? listed.devices : listed.styles).emplace_back(name);
    });
    std::sort(listed.devices.begin(), listed.devices.end());
    std::sort(listed.styles.begin(), listed.styles.end());
    return listed;
}

std::shared_ptr<const Pc3File> PlotShelf::Device(const std::string& folder, const std::string& device)
{
    Folder& listed = Listed(folder);
    if (!std::binary_search(listed.devices.begin(), listed.devices.end(), device))
        return nullptr;
    std::shared_ptr<const Pc3File>& file = listed.read[device];
    if (file == nullptr)
        file = std::make_shared<const Pc3File>(ReadPc3(base::ToText(base::ToPath(folder) / base::ToPath(device))));
    return file;
}

} // namespace sm::cadhost
