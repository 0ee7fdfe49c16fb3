// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/SqliteRegistry.h"

#include "TemporaryFolder.h"
#include "doubles/RegistryAccess.h"
#include "store/Database.h"

#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/resource.h>
#include <vector>

namespace sm::store {
namespace {

constexpr const char* kProductKey = "Software\\Product";

class SqliteStore : public testing::Test {
protected:
    std::unique_ptr<IRegistry> Open()
    {
        return OpenSqliteRegistry(m_file, {}, [this](const std::string& text) { m_complaints.push_back(text); });
    }
    void WriteFile(const std::string& bytes) const { std::ofstream(m_file, std::ios::binary) << bytes; }
    [[nodiscard]] static std::string ReadFile(const std::filesystem::path& file)
    {
        std::ostringstream bytes;
        bytes << std::ifstream(file, std::ios::binary).rdbuf();
        return bytes.str();
    }
    [[nodiscard]] std::filesystem::path InFolder(const char* name) const { return m_folder.Path() / name; }

    TemporaryFolder m_folder;
    std::filesystem::path m_file = m_folder.Path() / "settings.sqlite";
    std::vector<std::string> m_complaints;
};

TEST_F(SqliteStore, KeepsValuesFromRunToRun)
{
    EXPECT_TRUE(WriteText(*Open(), kProductKey, "Name", "value"));
    EXPECT_EQ(ReadText(*Open(), kProductKey, "name"), "value");
    EXPECT_TRUE(m_complaints.empty());
}

/// As on a full disk: no file may grow.
class FullDisk {
public:
    FullDisk()
    {
        getrlimit(RLIMIT_FSIZE, &m_former);
        m_signal = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit none{0, m_former.rlim_max};
        setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_former);
        std::signal(SIGXFSZ, m_signal);
    }

private:
    rlimit m_former{};
    void (*m_signal)(int) = nullptr;
};

TEST_F(SqliteStore, ReadsWhatStandsThereWhereNothingCanBeWritten)
{
    EXPECT_TRUE(WriteText(*Open(), kProductKey, "Name", "value"));
    const FullDisk full;
    EXPECT_EQ(ReadText(*Open(), kProductKey, "Name"), "value");
    EXPECT_FALSE(WriteText(*Open(), kProductKey, "Name", "other"));
    EXPECT_EQ(ReadText(*Open(), kProductKey, "Name"), "value");
    EXPECT_EQ(m_complaints.size(), 1U); // of the write
}

TEST_F(SqliteStore, TellsSettingsThatCantBeReadFromNone)
{
    const auto canRead = [this] {
        return SettingsFile(m_file, [this](const std::string& text) { m_complaints.push_back(text); }).CanRead();
    };
    EXPECT_TRUE(canRead());
    std::ofstream(m_file).flush(); // as a process leaves it that was killed at once
    EXPECT_TRUE(canRead());
    EXPECT_TRUE(WriteText(*Open(), kProductKey, "Name", "value"));
    EXPECT_TRUE(canRead());
    EXPECT_TRUE(m_complaints.empty());
    std::filesystem::remove(m_file);
    std::filesystem::create_directory(m_file);
    EXPECT_FALSE(canRead());
    EXPECT_EQ(m_complaints, std::vector<std::string>{"The settings file " + m_file.string() +
                                                     " can't be used: unable to open database file."});
}

TEST_F(SqliteStore, MakesNoFileForReading)
{
    EXPECT_EQ(ReadText(*Open(), kProductKey, "Name"), "(none)");
    EXPECT_TRUE(std::filesystem::is_empty(m_folder.Path()));
}

TEST_F(SqliteStore, ShowsAnotherProcesssWriteAtOnce)
{
    const auto first = Open(), second = Open();
    EXPECT_TRUE(WriteText(*first, kProductKey, "Name", "one"));
    EXPECT_EQ(ReadText(*second, kProductKey, "Name"), "one");
    EXPECT_TRUE(WriteText(*second, kProductKey, "Name", "two"));
    EXPECT_EQ(ReadText(*first, kProductKey, "Name"), "two");
}

TEST_F(SqliteStore, ReadsEverythingOnceForAShortRun)
{
    const auto other = Open();
    EXPECT_TRUE(WriteText(*other, kProductKey, "Name", "one"));
    const auto run = OpenSqliteRegistry(m_file, {}, {}, Reading::Once);
    EXPECT_EQ(ReadText(*run, kProductKey, "name"), "one");
    EXPECT_TRUE(WriteText(*other, kProductKey, "Name", "two"));
    EXPECT_TRUE(WriteText(*other, kProductKey, "Other", "two"));
    EXPECT_EQ(ReadText(*run, kProductKey, "Name"), "one");
    EXPECT_EQ(ReadText(*run, kProductKey, "Other"), "(none)");
    EXPECT_TRUE(WriteText(*run, kProductKey, "Name", "three"));
    EXPECT_EQ(ReadText(*run, kProductKey, "Name"), "three");
    EXPECT_EQ(ReadText(*other, kProductKey, "Name"), "three");
}

TEST_F(SqliteStore, MakesItsFolderForTheUserAlone)
{
    m_file = m_folder.Path() / "a" / "b" / "settings.sqlite";
    EXPECT_TRUE(WriteText(*Open(), kProductKey, "Name", "value"));
    EXPECT_EQ(std::filesystem::status(m_file.parent_path()).permissions(), std::filesystem::perms::owner_all);
}

TEST_F(SqliteStore, TakesAnEmptyFileForANewOne)
{
    WriteFile("");
    EXPECT_EQ(ReadText(*Open(), kProductKey, "Name"), "(none)");
    EXPECT_TRUE(WriteText(*Open(), kProductKey, "Name", "value"));
    EXPECT_EQ(ReadText(*Open(), kProductKey, "Name"), "value");
    EXPECT_TRUE(m_complaints.empty());
}

TEST_F(SqliteStore, PutsAFileThatIsNoDatabaseAside)
{
    const std::string junk = "this is somebody's letter, and long enough to be looked at by anyone who opens it";
    WriteFile(junk);
    const auto registry = Open();
    EXPECT_EQ(ReadText(*registry, kProductKey, "Name"), "(none)");
    EXPECT_TRUE(WriteText(*registry, kProductKey, "Name", "value"));
    EXPECT_EQ(ReadText(*registry, kProductKey, "Name"), "value");
    EXPECT_EQ(ReadFile(InFolder("settings-damaged-1.sqlite")), junk);
    ASSERT_EQ(m_complaints.size(), 1u);
    EXPECT_EQ(m_complaints[0], "The settings file " + m_file.string() +
                                   " can't be used: it is damaged. It was kept as " +
                                   InFolder("settings-damaged-1.sqlite").string() + " and the settings start anew.");
}

TEST_F(SqliteStore, PutsAnotherProgramsDatabaseAside)
{
    Database(m_file.string(), Database::Mode::Create).Run("CREATE TABLE songs(title TEXT)");
    EXPECT_TRUE(WriteText(*Open(), kProductKey, "Name", "value"));
    ASSERT_EQ(m_complaints.size(), 1u);
    EXPECT_EQ(m_complaints[0], "The settings file " + m_file.string() +
                                   " can't be used: it belongs to another program. It was kept as " +
                                   InFolder("settings-damaged-1.sqlite").string() + " and the settings start anew.");
    Database kept(InFolder("settings-damaged-1.sqlite").string(), Database::Mode::Existing);
    EXPECT_EQ(kept.Text("SELECT name FROM sqlite_master"), "songs");
}

TEST_F(SqliteStore, PutsATornFileAsideUnderTheNextFreeName)
{
    WriteText(*Open(), kProductKey, "Name", "value");
    std::string bytes = ReadFile(m_file);
    ASSERT_GT(bytes.size(), 8192u);
    for (std::size_t at = 4096; at < bytes.size(); ++at)
        bytes[at] = '\x5a';
    WriteFile(bytes);
    std::ofstream(InFolder("settings-damaged-1.sqlite")) << "an earlier one";
    EXPECT_EQ(ReadText(*Open(), kProductKey, "Name"), "(none)");
    EXPECT_EQ(ReadFile(InFolder("settings-damaged-2.sqlite")), bytes);
    EXPECT_EQ(ReadFile(InFolder("settings-damaged-1.sqlite")), "an earlier one");
    EXPECT_EQ(m_complaints.size(), 1u);
}

TEST_F(SqliteStore, NoticesDamageThatCameWhileTheFileWasOpen)
{
    const auto registry = Open();
    EXPECT_TRUE(WriteText(*registry, kProductKey, "Name", "value"));
    std::filesystem::remove(m_file);
    std::filesystem::remove(m_file.string() + "-wal");
    std::filesystem::remove(m_file.string() + "-shm");
    WriteFile("no database at all, and long enough for its header to be read as if it were one of ours...........");
    EXPECT_TRUE(WriteText(*registry, kProductKey, "Name", "after"));
    EXPECT_EQ(ReadText(*registry, kProductKey, "Name"), "after");
    EXPECT_EQ(m_complaints.size(), 1u);
}

TEST_F(SqliteStore, LeavesTheFileOfALaterVersionAlone)
{
    WriteText(*Open(), kProductKey, "Name", "value");
    Database(m_file.string(), Database::Mode::Existing).Run("PRAGMA user_version = 2");
    const auto registry = Open();
    EXPECT_EQ(ReadText(*registry, kProductKey, "Name"), "(none)");
    EXPECT_FALSE(WriteText(*registry, kProductKey, "Name", "mine"));
    ASSERT_EQ(m_complaints.size(), 1u);
    EXPECT_EQ(m_complaints[0],
              "The settings file " + m_file.string() +
                  " was written by a later version; it is left as it is and the defaults are in force.");
    EXPECT_EQ(Database(m_file.string(), Database::Mode::Existing).Text("SELECT data FROM reg_value"), "value");
}

TEST_F(SqliteStore, SaysOnceThatAFolderCannotBeMade)
{
    std::ofstream(InFolder("taken")) << "a file where the folder should be";
    m_file = InFolder("taken") / "settings.sqlite";
    const auto registry = Open();
    EXPECT_FALSE(WriteText(*registry, kProductKey, "Name", "value"));
    EXPECT_FALSE(WriteText(*registry, kProductKey, "Name", "value"));
    EXPECT_EQ(ReadText(*registry, kProductKey, "Name"), "(none)");
    EXPECT_EQ(m_complaints.size(), 1u);
}

} // namespace
} // namespace sm::store
