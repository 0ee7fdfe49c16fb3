// What becomes of a settings file that can't be used.
#pragma once

#include "store/Database.h"

#include <filesystem>
#include <string>

namespace sm::store {

/// Empty when the file is a settings file (or an empty one) in good order; otherwise why it isn't. Throws DatabaseError
/// when it can't be told, for example without the right to read.
std::string DamageOf(Database& database);
std::string DamageOf(const std::filesystem::path& file);

/// Renames the file, and its write-ahead log with it, to the first free "<name>-damaged-<n><extension>" beside it;
/// gives the new path. Throws std::filesystem::filesystem_error.
std::filesystem::path MoveAside(const std::filesystem::path& file);

/// Lets one process at a time make, check or put aside the files of a folder. The lock ends with the process.
class FolderLock {
public:
    explicit FolderLock(const std::filesystem::path& folder);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

private:
    int m_descriptor;
};

} // namespace sm::store
