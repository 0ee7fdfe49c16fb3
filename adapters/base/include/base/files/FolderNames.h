// SPDX-License-Identifier: GPL-3.0-or-later
// The names in a folder, looked at one by one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <system_error>

namespace sm::base {

/// A name in a folder, good for the time of the visit.
class FolderName {
public:
    /// What the folder itself tells of a name.
    enum class Kind : std::uint8_t { Untold, File, Folder, Link };

    FolderName(const std::string& folder, std::string_view name, Kind kind)
        : m_folder(folder), m_name(name), m_kind(kind)
    {
    }
    [[nodiscard]] std::string_view Text() const { return m_name; }
    /// Is it a regular file, or a link to one? Asks the file system only when the folder itself doesn't tell.
    [[nodiscard]] bool IsFile() const;
    /// Is it a folder, and no link to one? Neither "." nor "..".
    [[nodiscard]] bool IsFolder() const;

private:
    const std::string& m_folder;
    std::string_view m_name;
    Kind m_kind;
};

/// Calls `visit` with each name in the folder (empty: the working folder), in no order. Drawings lie by the thousand in
/// one folder, so nothing is copied, and the files themselves are not looked at. Ends after `most` names. What kept it
/// from reading the folder, or the rest of it: then those names aren't visited.
std::error_code VisitNames(const std::string& folder, const std::function<void(const FolderName&)>& visit,
                           std::size_t most = SIZE_MAX);

} // namespace sm::base
