// SPDX-License-Identifier: GPL-3.0-or-later
#include "sqlite/DamagedFile.h"

#include "base/files/Paths.h"
#include "sqlite/SettingsSchema.h"

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

std::filesystem::path WithEnding(std::filesystem::path file, const char* ending)
{
    file += ending;
    return file;
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
    Database database(base::ToText(file), Database::Mode::Existing);
    return DamageOf(database);
}

std::filesystem::path MoveAside(const std::filesystem::path& file)
{
    const std::string stem = base::ToText(file.stem()) + "-damaged-";
    for (int number = 1;; ++number) {
        std::filesystem::path target = file;
        target.replace_filename(base::ToPath(stem + std::to_string(number) + base::ToText(file.extension())));
        if (std::filesystem::exists(target))
            continue;
        RenameIfThere(WithEnding(file, "-wal"), WithEnding(target, "-wal"));
        RenameIfThere(WithEnding(file, "-shm"), WithEnding(target, "-shm"));
        std::filesystem::rename(file, target);
        return target;
    }
}

} // namespace sm::store
