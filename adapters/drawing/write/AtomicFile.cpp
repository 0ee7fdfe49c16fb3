#include "write/AtomicFile.h"

#include "drawing/Drawing.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace sm::drawing {

namespace {

[[noreturn]] void ThrowWriteError(const std::string& path, int error)
{
    std::string cause = std::string("it can't be written (") + std::strerror(error) + "); save it under another name";
    if (error == ENOSPC || error == EDQUOT)
        cause = "the disk is full; free some space and save again";
    else if (error == EROFS || error == EACCES || error == EPERM)
        cause = "its folder is read-only; ask for the right to write there";
    throw DrawingError(path + ": the drawing was not saved and is as it was: " + cause);
}

/// A new file beside the target; removed again unless it was renamed.
class Temporary {
public:
    explicit Temporary(const std::string& target) : m_target(target), m_path(target + ".XXXXXX")
    {
        m_file = mkostemp(m_path.data(), O_CLOEXEC);
        if (m_file < 0)
            ThrowWriteError(target, errno);
    }
    ~Temporary()
    {
        if (m_file >= 0)
            close(m_file);
        if (!m_path.empty())
            unlink(m_path.c_str());
    }
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;

    void Write(std::string_view bytes)
    {
        while (!bytes.empty()) {
            const ssize_t done = write(m_file, bytes.data(), bytes.size());
            if (done < 0 && errno == EINTR)
                continue;
            if (done < 0)
                ThrowWriteError(m_target, errno);
            bytes.remove_prefix(static_cast<std::size_t>(done));
        }
    }
    void Own(const struct stat& like) const
    {
        // Only root may give a file away; the permissions matter.
        [[maybe_unused]] const int given = fchown(m_file, like.st_uid, like.st_gid);
        if (fchmod(m_file, like.st_mode & 07777) != 0)
            ThrowWriteError(m_target, errno);
    }
    void Rename()
    {
        if (fsync(m_file) != 0)
            ThrowWriteError(m_target, errno);
        if (rename(m_path.c_str(), m_target.c_str()) != 0)
            ThrowWriteError(m_target, errno);
        m_path.clear();
    }

private:
    std::string m_target, m_path;
    int m_file = -1;
};

std::string RealPath(const std::string& path)
{
    std::error_code error;
    const std::filesystem::path real = std::filesystem::canonical(path, error);
    return error ? path : real.string();
}

/// The former backup goes only once the new one is complete.
void KeepBackup(const std::string& path)
{
    const std::string backup = path + ".bak", fresh = backup + "~";
    std::error_code error;
    std::filesystem::remove(fresh, error);
    bool kept = link(path.c_str(), fresh.c_str()) == 0;
    if (!kept) // file systems without hard links
        kept = std::filesystem::copy_file(path, fresh, error);
    int cause = kept ? 0 : error ? error.value() : EIO;
    if (kept && rename(fresh.c_str(), backup.c_str()) != 0)
        cause = errno;
    std::filesystem::remove(fresh, error); // a link to the same file stays where it was
    if (cause != 0)
        ThrowWriteError(path, cause);
}

void SyncFolder(const std::string& path)
{
    const std::string folder = std::filesystem::path(path).parent_path().string();
    const int file = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file < 0)
        return;
    fsync(file);
    close(file);
}

/// What the umask leaves of the usual rights.
mode_t RightsOfNewFile()
{
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

void RequireWritable(const std::string& path, const std::string& target, const FileStamp& stamp,
                     const struct stat& state)
{
    if (FileBytes::StampOf(target) != stamp)
        throw DrawingError(path +
                           ": somebody else changed the file since it was opened; open it again and repeat the change");
    if (stamp != FileStamp{} && (state.st_mode & 0222) == 0)
        throw DrawingError(path + ": the drawing was not saved and is as it was: the file is read-only; " +
                           "take the write protection off");
}

} // namespace

FileStamp ReplaceFile(const std::string& path, const std::vector<std::string_view>& pieces, const FileStamp& stamp,
                      bool keepBackup)
{
    const std::string target = RealPath(path);
    const bool isNew = stamp == FileStamp{};
    struct stat state {};
    if (stat(target.c_str(), &state) != 0) {
        state.st_mode = RightsOfNewFile();
        state.st_uid = geteuid();
        state.st_gid = getegid();
    }
    RequireWritable(path, target, stamp, state);
    Temporary temporary(target);
    for (const std::string_view piece : pieces)
        temporary.Write(piece);
    temporary.Own(state);
    if (keepBackup && !isNew)
        KeepBackup(target);
    temporary.Rename();
    SyncFolder(target);
    return FileBytes::StampOf(target);
}

} // namespace sm::drawing
