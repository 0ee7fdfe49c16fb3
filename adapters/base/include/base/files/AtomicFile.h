// SPDX-License-Identifier: GPL-3.0-or-later
// A file that appears under its name only when it is whole.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace sm::base {

class AtomicFile {
public:
    /// Must the file outlive a failure of the machine, or is it only for those who run now?
    enum class Keeping { Durable, ForNow };

    /// Opens a hidden temporary beside `path`, or beside the end of the links at `path`: the links stay. What stands
    /// there and isn't a regular file is the caller's to refuse. Throws std::system_error.
    AtomicFile(const std::string& path, Keeping keeping);
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    /// Removes the temporary unless `Commit` was reached.
    ~AtomicFile();

    /// Throws std::system_error.
    void Write(std::string_view bytes);
    /// All that was written lies in the temporary after this, on disk when it is durable. Throws std::system_error.
    void Finish();
    /// Finishes, and puts the file in the place of the old one, of which it gets the rights, and the owner and the
    /// group as far as this user may give them; a new file has what the umask leaves of 0666. Throws std::system_error.
    void Commit();

    [[nodiscard]] std::uintmax_t BytesWritten() const { return m_written; }
    /// The file that is replaced: `path`, or the end of its links.
    [[nodiscard]] const std::string& Target() const { return m_target; }

private:
    void Flush();
    void TakeRights() const;

    std::string m_target;
    std::string m_temporary;
    std::string m_buffer;
    std::uintmax_t m_written = 0;
    std::intptr_t m_handle = -1; ///< the system's; -1: not open
    Keeping m_keeping;
    bool m_finished = false;
};

/// A hidden name beside `path` for a temporary of this process, which is removed by a later run if this one can't.
std::string TemporaryBeside(const std::string& path);

/// Removes the temporaries and the locks from `folder` (empty: the working folder) that processes of this machine left
/// which have ended. Looks at `kMostNamesSeen` names.
void RemoveLeftovers(const std::string& folder);

/// The same, unless this process or the one that it was forked from did so before: every AtomicFile begins with it.
void RemoveLeftoversOnce(const std::string& folder);

} // namespace sm::base
