// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/windows/Handles.h"

#include "base/files/Paths.h"

#include <algorithm>
#include <cerrno>

namespace sm::base {

namespace {

constexpr std::size_t kMostAtOnce = std::size_t{1} << 30;
constexpr std::int64_t kTicksPerSecond = 10'000'000;    ///< of a FILETIME: 100 nanoseconds each
constexpr std::int64_t kSecondsTo1970 = 11'644'473'600; ///< from 1601, where a FILETIME begins

constexpr DWORD kQuotaExceeded = 1295; ///< ERROR_DISK_QUOTA_EXCEEDED, which this compiler's headers lack

struct Pair {
    DWORD system;
    int number;
};

constexpr Pair kErrors[] = {
    {ERROR_FILE_NOT_FOUND, ENOENT},
    {ERROR_PATH_NOT_FOUND, ENOENT},
    {ERROR_INVALID_NAME, ENOENT},
    {ERROR_BAD_PATHNAME, ENOENT},
    {ERROR_BAD_NETPATH, ENOENT},
    {ERROR_BAD_NET_NAME, ENOENT},
    {ERROR_INVALID_DRIVE, ENOENT},
    {ERROR_DIRECTORY, ENOTDIR},
    {ERROR_ACCESS_DENIED, EACCES},
    {ERROR_SHARING_VIOLATION, EACCES},
    {ERROR_LOCK_VIOLATION, EACCES},
    {ERROR_CURRENT_DIRECTORY, EACCES},
    {ERROR_USER_MAPPED_FILE, EACCES},
    {ERROR_PRIVILEGE_NOT_HELD, EPERM},
    {ERROR_WRITE_PROTECT, EROFS},
    {ERROR_DISK_FULL, ENOSPC},
    {ERROR_HANDLE_DISK_FULL, ENOSPC},
    {kQuotaExceeded, ENOSPC},
    {ERROR_FILE_TOO_LARGE, EFBIG},
    {ERROR_FILE_EXISTS, EEXIST},
    {ERROR_ALREADY_EXISTS, EEXIST},
    {ERROR_DIR_NOT_EMPTY, ENOTEMPTY},
    {ERROR_TOO_MANY_OPEN_FILES, EMFILE},
    {ERROR_NOT_ENOUGH_MEMORY, ENOMEM},
    {ERROR_OUTOFMEMORY, ENOMEM},
    {ERROR_COMMITMENT_LIMIT, ENOMEM},
    {ERROR_FILENAME_EXCED_RANGE, ENAMETOOLONG},
    {ERROR_BROKEN_PIPE, EPIPE},
    {ERROR_NO_DATA, EPIPE},
    {ERROR_INVALID_PARAMETER, EINVAL},
    {ERROR_BAD_EXE_FORMAT, ENOEXEC},
    {ERROR_EXE_MACHINE_TYPE_MISMATCH, ENOEXEC},
    {ERROR_DELETE_PENDING, EACCES},
    {ERROR_NO_SYSTEM_RESOURCES, ENOMEM},
    {ERROR_WORKING_SET_QUOTA, ENOMEM},
    {ERROR_NOT_ENOUGH_QUOTA, ENOMEM},
};

/// Those that no errno stands for: an error of input or output to whoever asks, and told by the system's number.
class OtherErrors final : public std::error_category {
public:
    [[nodiscard]] const char* name() const noexcept override { return "windows"; }
    [[nodiscard]] std::string message(int error) const override
    {
        return std::generic_category().message(EIO) + " (Windows error " + std::to_string(error) + ")";
    }
    [[nodiscard]] std::error_condition default_error_condition(int) const noexcept override
    {
        return std::errc::io_error;
    }
};

} // namespace

std::wstring Wide(std::string_view utf8)
{
    const int length = static_cast<int>(utf8.size());
    std::wstring wide(static_cast<std::size_t>(::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, nullptr, 0)),
                      L'\0');
    ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string Narrow(std::wstring_view text)
{
    const int length = static_cast<int>(text.size());
    std::string utf8(
        static_cast<std::size_t>(::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr)),
        '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(), static_cast<int>(utf8.size()), nullptr,
                          nullptr);
    return utf8;
}

std::wstring WidePath(std::string_view utf8)
{
    std::wstring wide = Wide(utf8);
    std::replace(wide.begin(), wide.end(), L'/', L'\\');
    return wide;
}

std::error_code ErrorOf(DWORD error)
{
    const auto known = std::find_if(std::begin(kErrors), std::end(kErrors),
                                    [error](const Pair& pair) { return pair.system == error; });
    static const OtherErrors others;
    return known == std::end(kErrors) ? std::error_code(static_cast<int>(error), others)
                                      : std::error_code(known->number, std::generic_category());
}

std::error_code LastError()
{
    return ErrorOf(::GetLastError());
}

void ThrowLastError()
{
    throw std::system_error(LastError());
}

Handle OpenFile(const std::string& path, DWORD access, DWORD disposition, DWORD flags, DWORD sharing)
{
    return Handle(::CreateFileW(WidePath(path).c_str(), access, sharing, nullptr, disposition, flags, nullptr));
}

void WriteFully(HANDLE file, std::string_view bytes)
{
    while (!bytes.empty()) {
        DWORD done = 0;
        const auto count = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
        if (::WriteFile(file, bytes.data(), count, &done, nullptr) == FALSE)
            ThrowLastError();
        if (done == 0)
            throw std::system_error(ErrorOf(ERROR_DISK_FULL));
        bytes.remove_prefix(done);
    }
}

std::size_t ReadFully(HANDLE file, char* to, std::size_t size)
{
    std::size_t filled = 0;
    while (filled < size) {
        DWORD got = 0;
        const auto count = static_cast<DWORD>(std::min(size - filled, kMostAtOnce));
        if (::ReadFile(file, to + filled, count, &got, nullptr) == FALSE) {
            if (::GetLastError() == ERROR_BROKEN_PIPE || ::GetLastError() == ERROR_HANDLE_EOF)
                break;
            ThrowLastError();
        }
        if (got == 0)
            break;
        filled += got;
    }
    return filled;
}

FileFacts FactsFrom(HANDLE file)
{
    FileFacts facts;
    BY_HANDLE_FILE_INFORMATION found{};
    if (::GetFileType(file) != FILE_TYPE_DISK) {
        facts.kind = ::GetFileType(file) == FILE_TYPE_UNKNOWN ? FileKind::Missing : FileKind::Other;
        return facts;
    }
    if (::GetFileInformationByHandle(file, &found) == FALSE)
        return facts;
    const auto joined = [](DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; };
    const auto ticks =
        static_cast<std::int64_t>(joined(found.ftLastWriteTime.dwHighDateTime, found.ftLastWriteTime.dwLowDateTime));
    facts.kind = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? FileKind::Folder : FileKind::File;
    facts.stamp = {found.dwVolumeSerialNumber, joined(found.nFileIndexHigh, found.nFileIndexLow),
                   joined(found.nFileSizeHigh, found.nFileSizeLow), ticks / kTicksPerSecond - kSecondsTo1970,
                   ticks % kTicksPerSecond * 100};
    return facts;
}

} // namespace sm::base
