// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps other processes of this program from a folder at the same time.
#pragma once

#include <cstdint>
#include <string>

namespace sm::base {

/// Holds the lock for as long as it lives; it goes away with the process, too, however that ends. Nothing is held where
/// the folder can't be opened or the file system knows no locks: who needs the lock must not depend on it alone.
class FolderLock {
public:
    /// Waits for it.
    explicit FolderLock(const std::string& folder);
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;
    ~FolderLock();

private:
    std::intptr_t m_handle;
};

} // namespace sm::base
