// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/FileFacts.h"

#include "base/files/Paths.h"
#include "files/posix/Descriptor.h"

#include <cerrno>
#include <filesystem>
#include <limits>

#include <sys/resource.h>

namespace sm::base {

namespace {

constexpr int kMostLinks = 40; ///< as many as the system itself follows

bool MayUse(const std::string& path, int use, std::error_code& error)
{
    const bool may = ::access(path.c_str(), use) == 0;
    error = may ? std::error_code() : LastError();
    return may;
}

} // namespace

FileFacts FactsOf(const std::string& path, std::error_code& error)
{
    struct stat state {};
    if (::stat(path.c_str(), &state) != 0) {
        error = LastError();
        return {};
    }
    error.clear();
    return FactsFrom(state);
}

bool IsSameFile(const std::string& left, const std::string& right)
{
    std::error_code missing;
    const bool same = std::filesystem::equivalent(ToPath(left), ToPath(right), missing);
    return same && !missing;
}

bool MayRead(const std::string& path, std::error_code& error)
{
    return MayUse(path, R_OK, error);
}

bool MayWrite(const std::string& path, std::error_code& error)
{
    return MayUse(path, W_OK, error);
}

bool MayMakeFilesIn(const std::string& folder, std::error_code& error)
{
    return MayUse(folder, W_OK | X_OK, error);
}

bool IsWriteProtected(const std::string& path)
{
    struct stat state {};
    return ::stat(path.c_str(), &state) == 0 && (state.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

std::string FollowLinks(const std::string& path)
{
    std::error_code error;
    if (const auto end = std::filesystem::canonical(ToPath(path), error); !error)
        return ToText(end);
    std::filesystem::path at = ToPath(path);
    for (int i = 0; i < kMostLinks && std::filesystem::is_symlink(at, error); ++i) {
        const std::filesystem::path target = std::filesystem::read_symlink(at, error);
        if (error)
            break;
        at = at.parent_path() / target; // an absolute target stands alone
    }
    return ToText(at);
}

std::uint64_t LargestFileAllowed()
{
    rlimit limit{};
    const bool limited = ::getrlimit(RLIMIT_FSIZE, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY;
    return limited ? static_cast<std::uint64_t>(limit.rlim_cur) : std::numeric_limits<std::uint64_t>::max();
}

bool IsDiskFull(const std::error_code& error)
{
    return error == std::error_condition(ENOSPC, std::generic_category()) ||
           error == std::error_condition(EDQUOT, std::generic_category());
}

} // namespace sm::base
