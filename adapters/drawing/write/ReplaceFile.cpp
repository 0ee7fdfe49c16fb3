// SPDX-License-Identifier: GPL-3.0-or-later
#include "write/ReplaceFile.h"

#include "base/files/AtomicFile.h"
#include "base/files/EditLock.h"
#include "base/files/MappedFile.h"
#include "base/files/Paths.h"
#include "drawing/Drawing.h"

#include <filesystem>

namespace sm::drawing {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void ThrowWriteError(const std::string& path, const std::error_code& error)
{
    std::string cause = "it can't be written (" + error.message() + "); save it under another name";
    if (base::IsDiskFull(error))
        cause = "the disk is full; free some space and save again";
    else if (base::IsReadOnlyPlace(error) || base::IsForbidden(error))
        cause = "its folder is read-only; ask for the right to write there";
    throw DrawingError(path + ": the drawing was not saved and is as it was: " + cause);
}

/// The former backup goes only once the new one is complete.
void KeepBackup(const std::string& path)
{
    const fs::path file = base::ToPath(path), backup = base::ToPath(path + ".bak"),
                   fresh = base::ToPath(base::TemporaryBeside(path));
    std::error_code error;
    fs::create_hard_link(file, fresh, error);
    if (error) // file systems without hard links
        fs::copy_file(file, fresh, error);
    if (!error)
        fs::rename(fresh, backup, error);
    std::error_code ignored;
    fs::remove(fresh, ignored); // a link to the same file stays where it was
    if (error)
        throw std::system_error(error);
}

void RequireWritable(const std::string& path, const std::string& target, const FileStamp& stamp)
{
    if (FileBytes::StampOf(target) != stamp)
        throw DrawingError(path +
                           ": somebody else changed the file since it was opened; open it again and repeat the change");
    if (stamp != FileStamp{} && base::IsWriteProtected(target))
        throw DrawingError(path + ": the drawing was not saved and is as it was: the file is read-only; " +
                           "take the write protection off");
}

} // namespace

FileStamp ReplaceFile(const std::string& path, const std::vector<std::string_view>& pieces, const FileStamp& stamp,
                      bool keepBackup)
{
    const std::string target = base::FollowLinks(path);
    try {
        const base::EditLock lock(target);
        RequireWritable(path, target, stamp);
        base::AtomicFile file(target, base::AtomicFile::Keeping::Durable);
        for (const std::string_view piece : pieces)
            file.Write(piece);
        file.Finish();
        base::MappedFile::RequireWhole();
        if (keepBackup && stamp != FileStamp{})
            KeepBackup(target);
        file.Commit();
    } catch (const base::EditLockHeld& held) {
        throw DrawingError(path + ": the drawing was not saved and is as it was: " + held.what() +
                           " is changing it; try again when that has ended");
    } catch (const std::system_error& error) {
        ThrowWriteError(target, error.code());
    }
    return FileBytes::StampOf(target);
}

} // namespace sm::drawing
