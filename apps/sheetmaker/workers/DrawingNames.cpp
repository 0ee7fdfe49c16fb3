// SPDX-License-Identifier: GPL-3.0-or-later
#include "workers/DrawingNames.h"

#include "base/files/Paths.h"
#include "commandline/Refusal.h"
#include "commandline/Suggest.h"
#include "report/RunReport.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <utility>

namespace sm::app {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> Lines(std::istream& stream)
{
    std::vector<std::string> names;
    for (std::string line; std::getline(stream, line);) {
        if (names.empty() && line.starts_with("\xef\xbb\xbf")) // as some editors begin UTF-8
            line.erase(0, 3);
        if (line.ends_with('\r'))
            line.pop_back();
        if (!line.empty())
            names.push_back(line);
    }
    return names;
}

std::vector<std::string> ListedIn(const std::string& list)
{
    const bool standard = list == kStandardStream;
    std::ifstream file;
    if (!standard)
        file.open(base::ToPath(list), std::ios::binary);
    std::error_code unreadable;
    if (!standard && (!file || fs::is_directory(base::ToPath(list), unreadable)))
        throw Refusal{kExitUsage, "the list " + list + " can't be read" + SimilarFile(list)};
    std::vector<std::string> names = Lines(standard ? std::cin : file);
    if (names.empty())
        throw Refusal{kExitUsage, "the list " + list + " names no drawing"};
    return names;
}

} // namespace

std::vector<std::string> WithListed(std::vector<std::string> named, const std::optional<std::string>& list)
{
    if (list) {
        const std::vector<std::string> listed = ListedIn(*list);
        named.insert(named.end(), listed.begin(), listed.end());
    }
    if (std::ranges::find(named, "") != named.end())
        throw Refusal{kExitUsage, "a drawing's name is empty"};
    if (named.empty())
        throw Refusal{kExitUsage, "DRAWING or --list is required"};
    return named;
}

std::vector<std::string> NamedDrawings(const ConvertJob& job)
{
    const std::vector<std::string> names = WithListed(job.drawings, job.list);
    bool taken = job.list == kStandardStream;
    for (const std::string& name : names)
        if (name == kStandardStream && std::exchange(taken, true))
            throw Refusal{kExitUsage, "standard input can be read once only"};
    return names;
}

std::string SimilarFile(const std::string& path)
{
    std::error_code unreadable;
    const fs::path wanted = base::ToPath(path);
    if (fs::exists(wanted, unreadable))
        return {};
    std::vector<std::string> names;
    const fs::path folder = wanted.has_parent_path() ? wanted.parent_path() : base::ToPath(".");
    for (fs::directory_iterator file(folder, unreadable), end; !unreadable && file != end; file.increment(unreadable))
        names.push_back(base::ToText(file->path().filename()));
    const std::string nearest = NearestName(base::ToText(wanted.filename()), names);
    if (nearest.empty())
        return {};
    return "; did you mean \"" +
           base::ToText(wanted.has_parent_path() ? wanted.parent_path() / base::ToPath(nearest)
                                                 : base::ToPath(nearest)) +
           "\"?";
}

} // namespace sm::app
