// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/FolderNames.h"

#include <cerrno>
#include <dirent.h>
#include <memory>

namespace sm::base {

namespace {

FolderName::Kind KindOf(const dirent& entry)
{
    switch (entry.d_type) {
    case DT_REG:
        return FolderName::Kind::File;
    case DT_DIR:
        return FolderName::Kind::Folder;
    case DT_LNK:
        return FolderName::Kind::Link;
    default:
        return FolderName::Kind::Untold;
    }
}

} // namespace

std::error_code VisitNames(const std::string& folder, const std::function<void(const FolderName&)>& visit,
                           std::size_t most)
{
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(folder.empty() ? "." : folder.c_str()), ::closedir);
    if (!entries)
        return {errno, std::generic_category()};
    for (std::size_t seen = 0; seen < most; ++seen) {
        errno = 0;
        const dirent* entry = ::readdir(entries.get());
        if (entry == nullptr)
            return {errno, std::generic_category()};
        visit(FolderName(folder, entry->d_name, KindOf(*entry)));
    }
    return {};
}

} // namespace sm::base
