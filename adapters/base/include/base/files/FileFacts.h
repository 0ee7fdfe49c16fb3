// SPDX-License-Identifier: GPL-3.0-or-later
// What stands under a name, and what an error of the file system means.
#pragma once

#include <cstdint>
#include <string>
#include <system_error>

namespace sm::base {

enum class FileKind { Missing, File, Folder, Other };

/// What tells one state of a file on disk from another; all zero for no file.
struct FileStamp {
    std::uint64_t device = 0, inode = 0, size = 0;
    std::int64_t seconds = 0, nanoseconds = 0;
    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

struct FileFacts {
    FileKind kind = FileKind::Missing;
    FileStamp stamp;
};

/// Follows links. `error` says why when nothing can be told, with kind Missing.
FileFacts FactsOf(const std::string& path, std::error_code& error);

/// Do both names lead to one file that exists, whatever links lie between?
bool IsSameFile(const std::string& left, const std::string& right);

/// Does it lie, by its name or by links, in a folder of the system's devices and processes (/dev, /proc, /sys), or
/// where the folders of other machines come up by themselves (/net)? To open a file there may do something. A name that
/// says so by itself is not looked at.
bool IsOfTheSystem(const std::string& path);

/// May this process read it, write it? `error` says why not.
bool MayRead(const std::string& path, std::error_code& error);
bool MayWrite(const std::string& path, std::error_code& error);
/// May it make files in that folder?
bool MayMakeFilesIn(const std::string& folder, std::error_code& error);

/// Is the file marked as not to be written by anybody, whoever asks?
bool IsWriteProtected(const std::string& path);

/// Where the links of a path lead: the whole true path of a file that exists, else the name at the end of a chain of
/// links, or `path` itself.
std::string FollowLinks(const std::string& path);

/// The size beyond which this process may not write a file; the greatest number when there is no limit.
std::uint64_t LargestFileAllowed();

/// No space left, or none of what the user may have.
bool IsDiskFull(const std::error_code& error);
/// The file would grow beyond what is allowed.
bool IsTooLarge(const std::error_code& error);
/// There is no such file or folder.
bool IsMissing(const std::error_code& error);
/// The user has no right to it.
bool IsForbidden(const std::error_code& error);
/// The place can't be written by anybody.
bool IsReadOnlyPlace(const std::error_code& error);

} // namespace sm::base
