// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/FontFolders.h"

#include "base/files/FileFacts.h"
#include "base/files/FolderNames.h"
#include "base/files/Paths.h"
#include "base/files/UserFolders.h"
#include "base/text/Keywords.h"
#include "base/text/Names.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

namespace sm::render {

namespace {

bool IsFontFile(std::string_view name)
{
    constexpr std::array<std::string_view, 5> kEndings{".ttf", ".ttc", ".otf", ".lff", ".shx"};
    return name.size() > 4 && std::find(kEndings.begin(), kEndings.end(),
                                        base::LowerAscii(name.substr(name.size() - 4))) != kEndings.end();
}

using Files = std::map<std::string, std::string>;

constexpr int kDeepest = 7;

/// The font files in a folder, then those below it, by the names of the folders; a folder that can't be read is told in
/// `troubles`.
void ScanFolder(const std::string& folder, Files& files, std::vector<std::string>& troubles, int depth = 0)
{
    std::vector<std::string> below;
    const std::error_code error = base::VisitNames(folder, [&](const base::FolderName& entry) {
        const std::string_view name = entry.Text();
        if (IsFontFile(name)) {
            if (entry.IsFile()) { // a pipe would be waited for
                files.try_emplace(base::FoldCase(name), folder + "/" + std::string(name));
            }
        } else if (depth < kDeepest && entry.IsFolder()) {
            below.push_back(folder + "/" + std::string(name));
        }
    });
    std::sort(below.begin(), below.end());
    for (const std::string& one : below) {
        ScanFolder(one, files, troubles, depth + 1);
    }
    if (error && error != std::errc::no_such_file_or_directory && error != std::errc::not_a_directory) {
        troubles.push_back(folder + " can't be read: " + error.message());
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
        ScanFolder(base::ToText(folder), fonts.files, fonts.troubles);
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
        if (IsFontFile(name) && entry.IsFile() && !base::IsOfTheSystem(folder + "/" + std::string(name))) {
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
