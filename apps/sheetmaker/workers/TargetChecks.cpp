// SPDX-License-Identifier: GPL-3.0-or-later
#include "workers/TargetChecks.h"

#include "base/files/File.h"
#include "base/files/FileFacts.h"
#include "base/files/Paths.h"
#include "commandline/Refusal.h"

#include <filesystem>

namespace sm::app {
namespace {

namespace fs = std::filesystem;

/// Where a path leads, whether or not a file is there.
std::string Followed(const std::string& path)
{
    const std::string whole = base::ToText(fs::absolute(base::ToPath(path)));
    return base::ToText(base::ToPath(base::FollowLinks(whole)).lexically_normal());
}

} // namespace

std::string TargetTrouble(const std::string& pdfPath)
{
    const fs::path target = base::ToPath(Followed(pdfPath));
    std::error_code closed;
    if (fs::is_directory(target, closed))
        return pdfPath + " is a folder; choose another name with -o";
    base::File::CreateUnnamed(base::ToText(target.parent_path()), closed);
    if (!closed)
        return {};
    return pdfPath + " can't be written: " + closed.message() + "; choose another name or folder with -o";
}

void RefuseLogTarget(const std::string& log, const std::vector<std::string>& files)
{
    const std::string target = Followed(log);
    std::error_code unreadable;
    if (base::FactsOf(target, unreadable).kind == base::FileKind::Other)
        throw Refusal{kExitUsage, "the log can't be " + log + ": it is no plain file"};
    for (const std::string& file : files)
        if (target == Followed(file) || base::IsSameFile(target, file))
            throw Refusal{kExitUsage, "the log would replace " + file + "; choose another name"};
}

} // namespace sm::app
