// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/SettingsFile.h"

#include "base/files/FolderLock.h"
#include "base/files/Paths.h"
#include "database/KeyPath.h"
#include "sqlite/DamagedFile.h"
#include "sqlite/SettingsSchema.h"

#include <sys/stat.h>

namespace sm::store {
namespace {

/// Which file stands at the path; 0 when none does.
std::uint64_t FileNumber(const std::filesystem::path& file)
{
    struct stat status {};
    return stat(file.c_str(), &status) == 0 ? static_cast<std::uint64_t>(status.st_ino) : 0;
}

/// The settings are the user's alone.
void MakeFolder(const std::filesystem::path& folder)
{
    if (folder.empty() || std::filesystem::exists(folder))
        return;
    MakeFolder(folder.parent_path());
    std::error_code made;
    if (std::filesystem::create_directory(folder, made))
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all, made);
}

void MakeSchema(Database& database)
{
    database.Run("PRAGMA journal_mode = WAL");
    database.Run("BEGIN IMMEDIATE");
    if (database.Number("PRAGMA user_version") == 0)
        database.Run(kMakeSchema);
    database.Run("COMMIT");
}

std::int64_t KeyNumber(Database& database, const std::string& foldedPath)
{
    Statement find(database, "SELECT id FROM reg_key WHERE folded = ?1");
    find.BindText(1, foldedPath);
    return find.Step() ? find.Number(0) : 0;
}

/// Makes the key and every key above it.
void MakeKeys(Database& database, const std::string& path)
{
    const std::string folded = FoldKeyPath(path);
    for (std::size_t end = folded.find('\\');; end = folded.find('\\', end + 1)) {
        const std::string part = folded.substr(0, end);
        const bool last = end == std::string::npos;
        Statement insert(database, "INSERT OR IGNORE INTO reg_key(path, folded) VALUES(?1, ?2)");
        insert.BindText(1, last ? path : part).BindText(2, part).Step();
        if (last)
            return;
    }
}

void WriteValue(Database& database, std::int64_t key, const std::string& name, const StoredValue& value)
{
    Statement insert(database, "INSERT OR REPLACE INTO reg_value(key, name, folded, type, data) "
                               "VALUES(?1, ?2, ?3, ?4, ?5)");
    insert.BindNumber(1, key).BindText(2, name).BindText(3, FoldCase(name));
    insert.BindNumber(4, static_cast<std::int64_t>(value.type)).BindBytes(5, value.data).Step();
}

/// Takes the right to write; what was written is undone unless `Commit` was reached.
class Transaction {
public:
    explicit Transaction(Database& database) : m_database(database) { m_database.Run("BEGIN IMMEDIATE"); }
    ~Transaction()
    {
        if (m_done)
            return;
        try {
            m_database.Run("ROLLBACK");
        } catch (const DatabaseError&) { // the connection undoes it when it is closed
        }
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void Commit()
    {
        m_database.Run("COMMIT");
        m_done = true;
    }

private:
    Database& m_database;
    bool m_done = false;
};

} // namespace

SettingsFile::SettingsFile(std::filesystem::path file, Complaint complain)
    : m_file(std::move(file)), m_complain(std::move(complain))
{
}

SettingsFile::~SettingsFile() = default;

void SettingsFile::Complain(const std::string& text)
{
    if (text == m_lastComplaint)
        return;
    m_lastComplaint = text;
    if (m_complain)
        m_complain(text);
}

void SettingsFile::PutAside(const std::string& reason)
{
    m_database.reset();
    const base::FolderLock lock(base::ToText(m_file.parent_path()));
    // Another process may have been faster: the file that stands there now may be a good one.
    if (FileNumber(m_file) == 0 || DamageOf(m_file).empty())
        return;
    const std::filesystem::path kept = MoveAside(m_file);
    Complain("The settings file " + base::ToText(m_file) + " can't be used: " + reason + ". It was kept as " +
             base::ToText(kept) + " and the settings start anew.");
}

bool SettingsFile::Ready(Database::Mode mode)
{
    const std::uint64_t number = FileNumber(m_file);
    if (number != m_fileNumber)
        m_database.reset();
    if (m_newer || (number == 0 && mode == Database::Mode::Existing))
        return false;
    if (!m_database) {
        if (mode == Database::Mode::Create)
            MakeFolder(m_file.parent_path());
        auto database = std::make_unique<Database>(base::ToText(m_file), mode);
        m_fileNumber = number != 0 ? number : FileNumber(m_file);
        const std::string damage = DamageOf(*database);
        if (!damage.empty()) {
            database.reset();
            PutAside(damage);
            return mode == Database::Mode::Create && Ready(mode);
        }
        database->Run("PRAGMA synchronous = NORMAL");
        m_database = std::move(database);
    }
    const std::int64_t version = m_database->Number("PRAGMA user_version");
    if (version == 0 && mode == Database::Mode::Create) {
        const base::FolderLock lock(base::ToText(m_file.parent_path()));
        MakeSchema(*m_database);
    }
    m_newer = version > kSchemaVersion;
    if (m_newer)
        Complain("The settings file " + base::ToText(m_file) +
                 " was written by a later version; it is left as it is and the defaults are in force.");
    return !m_newer && (version != 0 || mode == Database::Mode::Create);
}

// Throws what can't be mended.
bool SettingsFile::Try(Database::Mode mode, const Work& work)
{
    constexpr int kAttempts = 6;
    bool mended = false;
    for (int attempt = 1;; ++attempt) {
        try {
            if (!Ready(mode))
                return false;
            work(*m_database);
            return true;
        } catch (const DatabaseError& error) {
            // Another process has put the file aside that this one had just opened.
            const bool moved = FileNumber(m_file) != m_fileNumber;
            m_database.reset();
            if (attempt == kAttempts || (!moved && (mended || !error.MeansDamage())))
                throw;
            if (!moved)
                PutAside("it is damaged");
            mended = mended || !moved;
        }
    }
}

bool SettingsFile::Do(Database::Mode mode, const Work& work)
{
    m_failed = false;
    try {
        return Try(mode, work);
    } catch (const DatabaseError& error) {
        if (mode == Database::Mode::Existing && error.MeansNoWriting() && ReadAsItStands(work))
            return true;
        m_failed = true;
        Complain("The settings file " + base::ToText(m_file) + " can't be used: " + error.what() + ".");
    } catch (const std::exception& error) {
        m_failed = true;
        Complain("The settings file " + base::ToText(m_file) + " can't be used: " + error.what() + ".");
    }
    return false;
}

// A place that can't be written, a full disk: what was stored holds, unless some of it stands in the log that only a
// writer can take in.
bool SettingsFile::ReadAsItStands(const Work& work)
{
    std::error_code unknown;
    const auto logged = std::filesystem::file_size(base::ToPath(base::ToText(m_file) + "-wal"), unknown);
    if (!unknown && logged > 0)
        return false;
    try {
        Database database(base::ToText(m_file), Database::Mode::AsItStands);
        if (!DamageOf(database).empty() || database.Number("PRAGMA user_version") != kSchemaVersion)
            return false;
        work(database);
        return true;
    } catch (const std::exception&) { // the first error is told
        return false;
    }
}

bool SettingsFile::CanRead()
{
    // Where nothing was read and nothing failed, nothing is stored: a later version's file, or an empty one, which a
    // process leaves that was killed as it made it.
    Do(Database::Mode::Existing, [](Database& database) { (void)database.Number("SELECT count(*) FROM reg_key"); });
    return !m_failed;
}

bool SettingsFile::HasKey(const std::string& path)
{
    bool there = false;
    Do(Database::Mode::Existing, [&](Database& database) { there = KeyNumber(database, FoldKeyPath(path)) != 0; });
    return there;
}

std::optional<StoredValue> SettingsFile::Read(const std::string& path, const std::string& name)
{
    std::optional<StoredValue> value;
    Do(Database::Mode::Existing, [&](Database& database) {
        Statement find(database, "SELECT type, data FROM reg_value JOIN reg_key ON id = key "
                                 "WHERE reg_key.folded = ?1 AND reg_value.folded = ?2");
        find.BindText(1, FoldKeyPath(path)).BindText(2, FoldCase(name));
        if (find.Step())
            value = StoredValue{static_cast<RegistryType>(find.Number(0)), find.Bytes(1)};
    });
    return value;
}

ValueTable SettingsFile::ReadAll()
{
    ValueTable all;
    Do(Database::Mode::Existing, [&](Database& database) {
        all = {};
        Statement keys(database, "SELECT path FROM reg_key");
        while (keys.Step())
            all.AddKey(RegistryRoot::CurrentUser, keys.Bytes(0));
        Statement values(database, "SELECT reg_key.path, name, type, data FROM reg_value JOIN reg_key ON id = key");
        while (values.Step())
            all.Set(RegistryRoot::CurrentUser, values.Bytes(0), values.Bytes(1),
                    {static_cast<RegistryType>(values.Number(2)), values.Bytes(3)});
    });
    return all;
}

bool SettingsFile::AddKey(const std::string& path)
{
    return Do(Database::Mode::Create, [&](Database& database) {
        if (KeyNumber(database, FoldKeyPath(path)) != 0)
            return;
        Transaction transaction(database);
        MakeKeys(database, path);
        transaction.Commit();
    });
}

bool SettingsFile::Write(const std::string& path, const std::string& name, const StoredValue& value)
{
    return Do(Database::Mode::Create, [&](Database& database) {
        Transaction transaction(database);
        MakeKeys(database, path);
        WriteValue(database, KeyNumber(database, FoldKeyPath(path)), name, value);
        transaction.Commit();
    });
}

} // namespace sm::store
