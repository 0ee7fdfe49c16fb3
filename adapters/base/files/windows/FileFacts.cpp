// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/FileFacts.h"

#include "base/files/AtomicFile.h"
#include "base/files/Paths.h"
#include "base/windows/Handles.h"

#include <filesystem>
#include <limits>

namespace sm::base {

FileFacts FactsOf(const std::string& path, std::error_code& error)
{
    const Handle file = OpenFile(path, FILE_READ_ATTRIBUTES, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
    error = file.IsOpen() ? std::error_code() : LastError();
    return file.IsOpen() ? FactsFrom(file.Get()) : FileFacts{};
}

bool IsSameFile(const std::string& left, const std::string& right)
{
    std::error_code missing;
    const FileFacts one = FactsOf(left, missing), other = FactsOf(right, missing);
    return one.kind != FileKind::Missing && one.kind == other.kind && one.stamp.device == other.stamp.device &&
           one.stamp.inode == other.stamp.inode;
}

// Rights are lists of users and groups there: whether they allow something shows when it is tried.
bool MayRead(const std::string& path, std::error_code& error)
{
    const bool may = OpenFile(path, GENERIC_READ, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS).IsOpen();
    error = may ? std::error_code() : LastError();
    return may;
}

bool MayWrite(const std::string& path, std::error_code& error)
{
    std::error_code missing;
    if (FactsOf(path, missing).kind == FileKind::Folder)
        return MayMakeFilesIn(path, error);
    const bool may = OpenFile(path, GENERIC_WRITE, OPEN_EXISTING).IsOpen();
    error = may ? std::error_code() : LastError();
    return may;
}

bool MayMakeFilesIn(const std::string& folder, std::error_code& error)
{
    const Handle file = OpenFile(TemporaryBeside(folder + "/file"), GENERIC_WRITE | DELETE, CREATE_NEW,
                                 FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE);
    error = file.IsOpen() ? std::error_code() : LastError();
    return file.IsOpen();
}

bool IsWriteProtected(const std::string& path)
{
    const DWORD attributes = ::GetFileAttributesW(WidePath(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0 &&
           (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::string FollowLinks(const std::string& path)
{
    constexpr std::wstring_view kPlain = L"\\\\?\\", kShare = L"\\\\?\\UNC\\";
    const Handle file = OpenFile(path, FILE_READ_ATTRIBUTES, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
    std::wstring found(file.IsOpen() ? 32768 : 0, L'\0');
    found.resize(file.IsOpen() ? ::GetFinalPathNameByHandleW(file.Get(), found.data(), static_cast<DWORD>(found.size()),
                                                             FILE_NAME_NORMALIZED)
                               : 0);
    if (found.empty())
        return path;
    if (found.starts_with(kShare))
        found = L"\\\\" + found.substr(kShare.size());
    else if (found.starts_with(kPlain))
        found.erase(0, kPlain.size());
    return ToText(std::filesystem::path(found));
}

std::uint64_t LargestFileAllowed()
{
    return std::numeric_limits<std::uint64_t>::max();
}

bool IsDiskFull(const std::error_code& error)
{
    return error == std::errc::no_space_on_device;
}

} // namespace sm::base
