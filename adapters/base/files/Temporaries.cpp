// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/Temporaries.h"

#include "base/files/AtomicFile.h"
#include "base/files/EditLock.h"
#include "base/files/FolderNames.h"
#include "base/files/Leftovers.h"
#include "base/files/Paths.h"

#include <mutex>
#include <set>

namespace sm::base {

namespace {

constexpr const char* kTemporaryPrefix = ".sheetmaker-";
constexpr const char* kTemporaryEnding = ".part";

} // namespace

std::string FolderPartOf(const std::string& path)
{
    const auto slash = path.find_last_of(kSeparators);
    return slash == std::string::npos ? "" : path.substr(0, slash + 1);
}

std::string TemporaryBeside(const std::string& path)
{
    return FolderPartOf(path) + TemporaryName(kTemporaryPrefix, kTemporaryEnding);
}

void RemoveLeftovers(const std::string& folder)
{
    const auto look = [&](const FolderName& name) {
        std::error_code ignored;
        const auto path = [&] { return (folder.empty() ? "." : folder) + "/" + std::string(name.Text()); };
        if (IsAbandoned(name.Text(), kTemporaryPrefix, kTemporaryEnding))
            std::filesystem::remove(ToPath(path()), ignored);
        else if (IsEditLock(name.Text()))
            RemoveAbandonedLock(path());
    };
    VisitNames(folder, look, kMostNamesSeen);
}

void RemoveLeftoversOnce(const std::string& folder)
{
    static std::mutex mutex;
    static std::set<std::string> cleared;
    std::error_code unknown;
    const std::string place = ToText(std::filesystem::weakly_canonical(ToPath(folder.empty() ? "." : folder), unknown));
    const std::lock_guard lock(mutex);
    if (cleared.insert(place).second)
        RemoveLeftovers(folder);
}

} // namespace sm::base
