// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/FontFolders.h"

#include "base/files/FileFacts.h"
#include "base/files/FolderNames.h"
#include "base/files/Paths.h"
#include "base/files/UserFolders.h"
#include "base/text/Names.h"

#include <filesystem>

namespace sm::render {

namespace {

bool IsFontFile(const std::string& lowered)
{
    for (const char* ending : {".ttf", ".ttc", ".otf", ".lff", ".shx"}) {
        if (lowered.ends_with(ending)) {
            return true;
        }
    }
    return false;
}

using Files = std::map<std::string, std::string>;

constexpr int kDeepest = 7;

/// The font files in a folder and below it; a folder that can't be read is told in `troubles`.
void ScanFolder(const std::filesystem::path& folder, Files& files, std::vector<std::string>& troubles, int depth = 0)
{
    namespace fs = std::filesystem;
    std::error_code error, ignored;
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        const std::string name = base::FoldCase(base::ToText(at->path().filename()));
        if (IsFontFile(name)) {
            if (at->is_regular_file(ignored)) // a pipe would be waited for
                files.try_emplace(name, base::ToText(at->path()));
        } else if (depth < kDeepest && !at->is_symlink(ignored) && at->is_directory(ignored)) {
            ScanFolder(at->path(), files, troubles, depth + 1);
        }
    }
    if (error && error != std::errc::no_such_file_or_directory && error != std::errc::not_a_directory) {
        troubles.push_back(base::ToText(folder) + " can't be read: " + error.message());
    }
}

struct MachineFonts {
    Files files;
    std::vector<std::string> troubles;
};

/// The user's own folders first.
MachineFonts ScanMachine()
{
    MachineFonts fonts;
    for (const std::filesystem::path& folder : base::FontFolders(base::Variable)) {
        ScanFolder(folder, fonts.files, fonts.troubles);
    }
    return fonts;
}

const MachineFonts& OfMachine()
{
    static const MachineFonts kFonts = ScanMachine();
    return kFonts;
}

} // namespace

void FontFolders::Prepare()
{
    OfMachine();
    PrepareMachineFonts();
}

void FontFolders::Scan()
{
    if (m_scanned) {
        return;
    }
    m_scanned = true;
    for (const std::string& folder : m_more) {
        if (!folder.empty()) {
            ScanFolder(folder, m_files, m_troubles);
        }
    }
}

const std::string* FontFolders::Named(std::string_view fileName)
{
    Scan();
    const std::string name = base::FoldCase(fileName);
    if (const auto own = m_files.find(name); own != m_files.end()) {
        return &own->second;
    }
    const auto found = OfMachine().files.find(name);
    return found == OfMachine().files.end() ? nullptr : &found->second;
}

std::vector<std::string> FontFolders::Troubles() const
{
    std::vector<std::string> troubles = m_troubles;
    if (m_scanned) {
        troubles.insert(troubles.end(), OfMachine().troubles.begin(), OfMachine().troubles.end());
    }
    return troubles;
}

FontFolders::Files FontFolders::FilesIn(const std::string& folder)
{
    Files files;
    base::VisitNames(folder, [&](const base::FolderName& entry) {
        // Drawings lie by the thousand in one folder: most names are passed over before they are copied.
        const std::string_view name = entry.Text();
        if (name.size() >= 5 && IsFontFile(base::LowerAscii(name.substr(name.size() - 4))) && entry.IsFile() &&
            !base::IsOfTheSystem(folder + "/" + std::string(name))) {
            files.try_emplace(base::FoldCase(name), folder + "/" + std::string(name));
        }
    });
    return files;
}

const std::string* FontFolders::Named(std::string_view fileName, const std::string& folder)
{
    if (!folder.empty()) {
        auto known = m_beside.find(folder);
        if (known == m_beside.end()) {
            known = m_beside.emplace(folder, FilesIn(folder)).first;
        }
        const auto found = known->second.find(base::FoldCase(fileName));
        if (found != known->second.end()) {
            return &found->second;
        }
    }
    return Named(fileName);
}

std::optional<FontPlace> FontFolders::ForFamily(const std::string& family, bool bold, bool italic) const
{
    return MachineFontOfFamily(family, bold, italic);
}

std::optional<FontPlace> FontFolders::ForCharacter(char32_t character) const
{
    return MachineFontWith(character);
}

} // namespace sm::render
