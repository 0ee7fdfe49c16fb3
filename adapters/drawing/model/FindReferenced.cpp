// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/FindReferenced.h"

#include "base/files/FileFacts.h"
#include "base/files/Paths.h"
#include "base/text/Names.h"
#include "drawing/TextDecoder.h"

#include <algorithm>
#include <filesystem>

namespace sm::drawing {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestName = 4096;
constexpr std::size_t kMostParts = 32;
constexpr std::size_t kMostEntries = 20'000; ///< of one folder that are looked at for a name in another letter case

/// A name as its parts, without what Windows puts before them.
struct NamedPath {
    bool rooted = false; ///< begins at the root of this system
    std::vector<std::string> parts;
};

bool IsLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// Nothing for what is no path of this machine.
std::optional<NamedPath> Parse(std::string name)
{
    if (name.empty() || name.size() > kLongestName || name.find('\0') != std::string::npos ||
        name.find("://") != std::string::npos) {
        return std::nullopt;
    }
    std::replace(name.begin(), name.end(), '\\', '/');
    NamedPath path;
    const bool drive = name.size() > 1 && name[1] == ':' && IsLetter(name[0]);
    const bool share = name.starts_with("//");
    path.rooted = !drive && !share && name.front() == '/';
    const fs::path rest = base::ToPath(drive ? name.substr(2) : name);
    for (const fs::path& part : rest.relative_path()) {
        if (!part.empty() && part != "." && part != "/") {
            path.parts.push_back(base::ToText(part));
        }
    }
    return path.parts.empty() || path.parts.size() > kMostParts ? std::nullopt : std::optional(std::move(path));
}

/// "C:/" where drives have letters. A share of another machine is never asked: whoever made the drawing would learn
/// who opens it.
fs::path DriveOf(const std::string& name)
{
    const fs::path path = base::ToPath(name);
    const bool drive = path.has_root_name() && path.root_name().native().size() == 2;
    return drive && path.is_absolute() ? path.root_path() : fs::path();
}

/// The entry of `folder` that is `name` but for letter case; empty when there is none.
fs::path EntryLike(const fs::path& folder, const std::string& name)
{
    std::error_code error;
    fs::path exact = folder / base::ToPath(name);
    if (fs::exists(exact, error) || name == "..") {
        return exact;
    }
    const std::string wanted = base::FoldCase(name);
    std::size_t looked = 0;
    for (fs::directory_iterator at(folder, fs::directory_options::skip_permission_denied, error), end;
         !error && at != end && looked < kMostEntries; at.increment(error), ++looked) {
        if (base::FoldCase(base::ToText(at->path().filename())) == wanted) {
            return at->path();
        }
    }
    return {};
}

std::string FileBelow(fs::path at, const std::vector<std::string>& parts, std::size_t first)
{
    for (std::size_t i = first; i < parts.size() && !at.empty(); ++i) {
        at = base::IsOfTheSystem(base::ToText(at)) ? fs::path() : EntryLike(at, parts[i]);
    }
    std::error_code error;
    const bool usable = !at.empty() && !base::IsOfTheSystem(base::ToText(at)) && fs::is_regular_file(at, error);
    return usable ? base::ToText(at.lexically_normal()) : "";
}

/// The path as it is, then without its first parts; ".." leads up only at the beginning of the whole path.
std::string FileInPlace(const std::string& folder, const NamedPath& path)
{
    for (std::size_t first = 0; first < path.parts.size(); ++first) {
        const bool leadsUp = std::find(path.parts.begin() + static_cast<std::ptrdiff_t>(first), path.parts.end(),
                                       "..") != path.parts.end();
        if (first > 0 && leadsUp) {
            continue;
        }
        if (std::string found = FileBelow(base::ToPath(folder.empty() ? "." : folder), path.parts, first);
            !found.empty()) {
            return found;
        }
    }
    return {};
}

} // namespace

std::string FindReferenced(const std::string& name, const SearchPlaces& places)
{
    const auto path = Parse(name);
    if (!path) {
        return {};
    }
    const fs::path root = DriveOf(name);
    std::string found =
        path->rooted || !root.empty() ? FileBelow(root.empty() ? "/" : root, path->parts, 0) : std::string();
    if (found.empty()) {
        found = FileInPlace(places.folder, *path);
    }
    for (std::size_t i = 0; i < places.supportFolders.size() && found.empty(); ++i) {
        if (!places.supportFolders[i].empty()) {
            found = FileInPlace(places.supportFolders[i], *path);
        }
    }
    return found;
}

} // namespace sm::drawing
