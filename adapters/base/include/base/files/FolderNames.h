// SPDX-License-Identifier: GPL-3.0-or-later
// The names in a folder, looked at one by one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace sm::base {

/// A name in a folder, good for the time of the visit.
class FolderName {
public:
    FolderName(const std::string& folder, std::string_view name, bool knownFile)
        : m_folder(folder), m_name(name), m_knownFile(knownFile)
    {
    }
    [[nodiscard]] std::string_view Text() const { return m_name; }
    /// Is it a regular file, or a link to one? Asks the file system only when the folder itself doesn't tell.
    [[nodiscard]] bool IsFile() const;

private:
    const std::string& m_folder;
    std::string_view m_name;
    bool m_knownFile;
};

/// Calls `visit` with each name in the folder (empty: the working folder), in no order; never when it can't be read.
/// Drawings lie by the thousand in one folder, so nothing is copied, and the files themselves are not looked at. Ends
/// after `most` names.
void VisitNames(const std::string& folder, const std::function<void(const FolderName&)>& visit,
                std::size_t most = SIZE_MAX);

} // namespace sm::base
