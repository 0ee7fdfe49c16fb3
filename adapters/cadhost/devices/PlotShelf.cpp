#include "devices/PlotShelf.h"

#include <algorithm>
#include <dirent.h>
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

bool EndsIn(std::string_view name, std::string_view extension)
{
    return name.size() > extension.size() &&
           strncasecmp(name.data() + name.size() - extension.size(), extension.data(), extension.size()) == 0;
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
    const fs::file_time_type changed = fs::last_write_time(place, unreadable);
    if (!isNew && listed.changed == changed)
        return listed;
    listed = {changed, {}, {}, {}};
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(unreadable ? nullptr : opendir(place.c_str()),
                                                      [](DIR* dir) { return closedir(dir); });
    while (const dirent* entry = entries ? readdir(entries.get()) : nullptr) {
        const std::string_view name = entry->d_name;
        const bool device = EndsIn(name, ".pc3"), style = EndsIn(name, ".ctb") || EndsIn(name, ".stb");
        if ((device || style) && (entry->d_type == DT_REG || IsFile(folder + "/" + entry->d_name)))
            (device ? listed.devices : listed.styles).emplace_back(name);
    }
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
        file = std::make_shared<const Pc3File>(ReadPc3((fs::path(folder) / device).string()));
    return file;
}

} // namespace sm::cadhost
