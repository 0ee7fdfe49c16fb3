// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/TargetFile.h"

#include "base/files/FileFacts.h"

#include <fmt/format.h>

namespace sm::publisher {

namespace {

void RefuseUnlessRegular(const std::string& path)
{
    std::error_code error;
    const base::FileKind kind = base::FactsOf(path, error).kind;
    if (kind == base::FileKind::Missing) {
        return;
    }
    if (kind != base::FileKind::File) {
        throw PublishFailure(PublishStatus::TargetNotWritable,
                             fmt::format("{} could not be written: it is {}. Choose another name.", path,
                                         kind == base::FileKind::Folder ? "a folder" : "not an ordinary file"));
    }
    // A rename needs no right on the file itself; a file that was made read-only is meant to stay as it is.
    if (!base::MayWrite(path, error)) {
        throw WritingFailure(path, error);
    }
}

base::AtomicFile OpenTarget(const std::string& path)
{
    const std::string target = base::FollowLinks(path);
    RefuseUnlessRegular(target);
    try {
        return base::AtomicFile(target, base::AtomicFile::Keeping::Durable);
    } catch (const std::system_error& error) {
        throw WritingFailure(target, error.code());
    }
}

} // namespace

PublishFailure WritingFailure(const std::string& path, const std::error_code& error)
{
    const bool full = base::IsDiskFull(error) || base::IsTooLarge(error);
    return PublishFailure(full ? PublishStatus::DiskFull : PublishStatus::TargetNotWritable,
                          full ? fmt::format("{} could not be written: the disk is full or the file is larger than "
                                             "allowed ({}). Free some space and save again.",
                                             path, error.message())
                               : fmt::format("{} could not be written: {}. Choose another name or folder, or change "
                                             "its permissions.",
                                             path, error.message()));
}

TargetFile::TargetFile(const std::string& path) : m_file(OpenTarget(path)) {}

void TargetFile::Write(const void* data, std::size_t size)
{
    try {
        m_file.Write({static_cast<const char*>(data), size});
    } catch (const std::system_error& error) {
        throw WritingFailure(m_file.Target(), error.code());
    }
}

void TargetFile::Commit()
{
    try {
        m_file.Commit();
    } catch (const std::system_error& error) {
        throw WritingFailure(m_file.Target(), error.code());
    }
}

} // namespace sm::publisher
