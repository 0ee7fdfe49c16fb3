// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps other processes of this program from changing a file between its reading and its writing.
#pragma once

#include <chrono>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace sm::base {

/// Somebody else held the lock for as long as was waited; the text names the holder: "process 123 on drafter7".
class EditLockHeld : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Holds the lock of one file for as long as it lives; it goes with the process, too, however that ends. The lock is
/// that of an open file, ".NAME.sheetmaker-lock" beside the true file (links are followed), which names its holder; on
/// a share it reaches as far as the server passes such locks on. A process may hold it several times over, from one
/// thread. Nothing is held where no file can be made beside it: nothing can be changed there either.
class EditLock {
public:
    /// Waits up to `patience`; throws EditLockHeld.
    explicit EditLock(const std::string& path, std::chrono::milliseconds patience = std::chrono::seconds(10));
    EditLock(const EditLock&) = delete;
    EditLock& operator=(const EditLock&) = delete;
    ~EditLock();

private:
    bool TryLock();

    std::string m_lockPath;
    std::intptr_t m_handle = -1;
};

/// Is it the name of a lock's file?
bool IsEditLock(std::string_view name);

/// Removes a lock's file that a process of this machine wrote and nobody holds: the process was killed.
void RemoveAbandonedLock(const std::string& lockPath);

} // namespace sm::base
