// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/FolderNames.h"

#include "base/files/Paths.h"

#include <dirent.h>
#include <memory>

namespace sm::base {

bool FolderName::IsFile() const
{
    std::error_code ignored;
    return m_knownFile || std::filesystem::is_regular_file(ToPath(m_folder) / ToPath(m_name), ignored);
}

void VisitNames(const std::string& folder, const std::function<void(const FolderName&)>& visit, std::size_t most)
{
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(folder.empty() ? "." : folder.c_str()), ::closedir);
    const dirent* entry = nullptr;
    for (std::size_t seen = 0; entries && seen < most && (entry = ::readdir(entries.get())) != nullptr; ++seen)
        visit(FolderName(folder, entry->d_name, entry->d_type == DT_REG));
}

} // namespace sm::base
