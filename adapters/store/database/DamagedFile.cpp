#include "database/DamagedFile.h"

#include "database/SettingsSchema.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace sm::store {
namespace {

std::string ForeignReason(Database& database)
{
    if (database.Number("PRAGMA application_id") == kApplicationId)
        return {};
    if (database.Number("SELECT count(*) FROM sqlite_master") == 0)
        return {};
    return "it belongs to another program";
}

void RenameIfThere(const std::filesystem::path& from, const std::filesystem::path& to)
{
    std::error_code ignored;
    if (std::filesystem::exists(from, ignored))
        std::filesystem::rename(from, to);
}

} // namespace

std::string DamageOf(Database& database)
{
    try {
        const std::string foreign = ForeignReason(database);
        if (!foreign.empty())
            return foreign;
        const std::string verdict = database.Text("PRAGMA quick_check(1)");
        return verdict == "ok" ? std::string() : "it is damaged";
    } catch (const DatabaseError& error) {
        if (!error.MeansDamage())
            throw;
        return "it is damaged";
    }
}

std::string DamageOf(const std::filesystem::path& file)
{
    Database database(file.string(), Database::Mode::Existing);
    return DamageOf(database);
}

std::filesystem::path MoveAside(const std::filesystem::path& file)
{
    const std::string stem = file.stem().string() + "-damaged-";
    for (int number = 1;; ++number) {
        std::filesystem::path target = file;
        target.replace_filename(stem + std::to_string(number) + file.extension().string());
        if (std::filesystem::exists(target))
            continue;
        RenameIfThere(file.string() + "-wal", target.string() + "-wal");
        RenameIfThere(file.string() + "-shm", target.string() + "-shm");
        std::filesystem::rename(file, target);
        return target;
    }
}

FolderLock::FolderLock(const std::filesystem::path& folder)
    : m_descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    if (m_descriptor < 0)
        return;
    while (flock(m_descriptor, LOCK_EX) != 0 && errno == EINTR) {
    }
}

FolderLock::~FolderLock()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

} // namespace sm::store
