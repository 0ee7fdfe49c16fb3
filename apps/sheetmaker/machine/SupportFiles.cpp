// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/SupportFiles.h"

#include "base/files/FileFacts.h"
#include "base/files/UserFolders.h"
#include "base/text/Names.h"

#include <filesystem>
#include <string_view>

namespace sm::app {
namespace {

namespace fs = std::filesystem;

constexpr int kDeepest = 7;

/// What files of such a name are, in words; empty for others.
std::string_view KindOf(const std::string& name)
{
    static constexpr struct {
        std::string_view ending, kind;
    } kKinds[] = {{".ttf", "font"},
                  {".ttc", "font"},
                  {".otf", "font"},
                  {".lff", "font"},
                  {".shx", "font"},
                  {"fonts.map", "table of fonts"},
                  {".ctb", "plot style table"},
                  {".stb", "plot style table"},
                  {".joboptions", "job options"},
                  {".pc3", "plotter configuration"},
                  {".hdi", "plotter driver"}};
    for (const auto& [ending, kind] : kKinds)
        if (name.ends_with(ending))
            return kind;
    return {};
}

/// Targets end in ".pdf": one that is another file, too, has two names or is a link.
bool MayBeShared(const fs::path& path)
{
    std::error_code ignored;
    return fs::is_symlink(path, ignored) || fs::hard_link_count(path, ignored) > 1;
}

class Search {
public:
    explicit Search(const std::string& path) : m_stamp(base::FactsOf(path, m_error).stamp), m_path(path) {}

    /// Looks in the folder, and below it as far as `depth` says.
    void Look(const fs::path& folder, int depth)
    {
        std::error_code error, ignored;
        for (fs::directory_iterator at(folder, error), end; m_found.empty() && !error && at != end;
             at.increment(error)) {
            const std::string name = base::ToText(at->path().filename());
            const std::string_view kind = KindOf(base::FoldCase(name));
            if (!kind.empty() && IsIt(base::ToText(at->path())))
                m_found = "the " + std::string(kind) + " \"" + name + "\"";
            else if (kind.empty() && depth > 0 && !at->is_symlink(ignored) && at->is_directory(ignored))
                Look(at->path(), depth - 1);
        }
    }

    [[nodiscard]] const std::string& Found() const { return m_found; }

private:
    [[nodiscard]] bool IsIt(const std::string& other) const
    {
        std::error_code error;
        const base::FileStamp stamp = base::FactsOf(other, error).stamp;
        return !error && stamp.device == m_stamp.device && stamp.inode == m_stamp.inode &&
               (stamp.inode != 0 || base::IsSameFile(other, m_path));
    }

    std::error_code m_error;
    base::FileStamp m_stamp;
    std::string m_path, m_found;
};

} // namespace

std::string SupportFileAt(const std::string& path, const Install& install, const std::string& folder)
{
    std::error_code ignored;
    if (base::FactsOf(path, ignored).kind != base::FileKind::File || !MayBeShared(base::ToPath(path)))
        return {};
    Search search(path);
    search.Look(folder.empty() ? "." : base::ToPath(folder), 0);
    search.Look(install.places.shareFolder, kDeepest);
    search.Look(install.places.settingsFolder, kDeepest);
    for (const fs::path& fonts : base::FontFolders(install.environment))
        search.Look(fonts, kDeepest);
    return search.Found();
}

} // namespace sm::app
