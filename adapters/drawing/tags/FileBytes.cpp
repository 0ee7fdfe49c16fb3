// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/FileBytes.h"

#include "base/files/MappedFile.h"
#include "drawing/DrawingError.h"
#include "tags/FileKind.h"

namespace sm::drawing {

namespace {

[[noreturn]] void ThrowOpenError(const std::string& path, const std::error_code& error)
{
    if (base::IsMissing(error))
        throw DrawingError(path + ": there is no such file; check the name");
    if (base::IsForbidden(error))
        throw DrawingError(path + ": the file may not be read; ask for the right to read it");
    throw DrawingError(path + ": the file can't be read (" + error.message() +
                       "); copy it to another disk and try again");
}

} // namespace

FileBytes FileBytes::Map(const std::string& path)
{
    std::error_code error;
    const auto file = std::make_shared<const base::MappedFile>(path, base::MappedFile::Reading::Whole, error);
    if (error)
        ThrowOpenError(path, error);
    const base::FileFacts& facts = file->Facts();
    if (facts.kind == base::FileKind::Folder)
        throw DrawingError(path + ": this is a folder; name a drawing in it");
    if (facts.kind != base::FileKind::File)
        throw DrawingError(path + ": this is no ordinary file; name a drawing");
    if (facts.stamp.size == 0)
        throw DrawingError(path + ": the file is empty; save the drawing again");
    FileBytes bytes;
    bytes.m_view = file->Bytes();
    // Of a DWG whole sections are left alone: its preview may be most of it.
    if (DwgRelease(bytes.m_view).empty())
        file->Fetch();
    bytes.m_stamp = facts.stamp;
    bytes.m_owner = file;
    return bytes;
}

FileBytes FileBytes::Keep(std::string text)
{
    const auto owner = std::make_shared<const std::string>(std::move(text));
    FileBytes bytes;
    bytes.m_view = *owner;
    bytes.m_owner = owner;
    return bytes;
}

FileBytes FileBytes::Share(std::shared_ptr<const void> owner, std::string_view view)
{
    FileBytes bytes;
    bytes.m_view = view;
    bytes.m_owner = std::move(owner);
    return bytes;
}

FileStamp FileBytes::StampOf(const std::string& path)
{
    std::error_code unknown;
    return base::FactsOf(path, unknown).stamp;
}

} // namespace sm::drawing
