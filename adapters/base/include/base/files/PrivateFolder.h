// SPDX-License-Identifier: GPL-3.0-or-later
// A private folder (mode 0700) that goes away with its object.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace sm::base {

/// Why a private folder could not be made. `what()` is a sentence that names the folder and the remedy.
class FolderFailure : public std::runtime_error {
public:
    FolderFailure(const std::string& text, bool diskFull) : std::runtime_error(text), m_diskFull(diskFull) {}
    [[nodiscard]] bool DiskFull() const { return m_diskFull; }

private:
    bool m_diskFull;
};

class PrivateFolder {
public:
    /// Makes a folder with a unique name in `parent`, or (empty) in $TMPDIR, else the system's temporary folder. There
    /// its name tells the process, and the first one removes those whose process has ended. Throws FolderFailure.
    explicit PrivateFolder(const std::string& parent);
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;
    /// Removes the folder and everything in it, but not when this is a forked child of the process that made it.
    ~PrivateFolder();
    /// Removes the folder now; false when something of it is still there.
    bool Remove();
    /// Absolute, without a trailing slash.
    [[nodiscard]] const std::string& Path() const { return m_path; }

private:
    std::string m_path;
    std::int64_t m_owner;
};

/// Makes a folder that is the user's alone (mode 0700), and those above it as usual; what can't be made isn't, and what
/// is there stays as it is.
void MakePrivateFolders(const std::string& path);

} // namespace sm::base
