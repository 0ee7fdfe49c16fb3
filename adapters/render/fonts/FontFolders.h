// SPDX-License-Identifier: GPL-3.0-or-later
// The font files of this machine: by file name from the usual folders, by family from fontconfig.
#pragma once

#include "fonts/MachineFonts.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sm::render {

/// The font folders in it.
inline std::vector<std::string> UserFontFolders(const std::string& userFolder)
{
    return userFolder.empty() ? std::vector<std::string>() : std::vector{userFolder + "/fonts"};
}

/// Looks at nothing until it is asked; fontconfig, which is slow to start, only when a family or a character is asked.
class FontFolders {
public:
    /// `more` is searched before the machine's folders.
    explicit FontFolders(std::vector<std::string> more) : m_more(std::move(more)) {}
    /// Reads what all folders share, once for this process and those that it forks: the machine's font files, and
    /// fontconfig's settings.
    static void Prepare();
    /// The font file of that name, letter case aside; null when there is none.
    [[nodiscard]] const std::string* Named(std::string_view fileName);
    /// The same, looked for in `folder` (that of a drawing; may be empty) before the others, but not below it.
    [[nodiscard]] const std::string* Named(std::string_view fileName, const std::string& folder);
    /// The machine's best font for a family.
    [[nodiscard]] std::optional<FontPlace> ForFamily(const std::string& family, bool bold, bool italic) const;
    /// Those that are there and can't be read: "/usr/share/fonts/truetype can't be read: Permission denied".
    [[nodiscard]] std::vector<std::string> Troubles() const;
    /// A font that has the character.
    [[nodiscard]] std::optional<FontPlace> ForCharacter(char32_t character) const;

private:
    void Scan();

    using Files = std::map<std::string, std::string>; ///< paths by name in small letters
    static Files FilesIn(const std::string& folder);

    std::vector<std::string> m_more;
    Files m_files;                         ///< of the folders that come before the machine's
    std::map<std::string, Files> m_beside; ///< by folder
    std::vector<std::string> m_troubles;   ///< of those folders
    bool m_scanned = false;
};

} // namespace sm::render
