// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/SystemPorts.h"

#include "Folders.h"

#include <ctime>
#include <gtest/gtest.h>

namespace sm::system {
namespace {

TEST(FileSystem, TellsFoldersFromFiles)
{
    const TemporaryFolder root;
    const std::string folder = root.MakeFolder("folder"), file = root.MakeFile("file.txt");
    const auto files = CreateFileSystem();
    EXPECT_TRUE(files->FolderExists(folder));
    EXPECT_FALSE(files->FolderExists(file));
    EXPECT_FALSE(files->FolderExists(folder + "/none"));
    EXPECT_TRUE(files->FileExists(file));
    EXPECT_FALSE(files->FileExists(folder));
    EXPECT_FALSE(files->FileExists(""));
    EXPECT_FALSE(files->FileExists(file + "/below"));
}

TEST(FileSystem, ListsFilesByNameWithoutFolders)
{
    const TemporaryFolder root;
    root.MakeFile("list/b.joboptions");
    root.MakeFile("list/a.txt");
    root.MakeFolder("list/folder");
    const auto files = CreateFileSystem();
    EXPECT_EQ(files->ListFiles(root.Path() / "list"), (std::vector<std::string>{"a.txt", "b.joboptions"}));
    EXPECT_EQ(files->ListFiles(root.Path() / "none"), std::vector<std::string>());
}

TEST(Clock, TellsLocalTime)
{
    const auto clock = CreateClock(ProcessEnvironment());
    const std::time_t before = std::time(nullptr);
    const auto now = clock->Now().time_since_epoch().count();
    std::tm local{};
    localtime_r(&before, &local);
    EXPECT_GE(now, before + local.tm_gmtoff);
    EXPECT_LE(now, std::time(nullptr) + local.tm_gmtoff);
}

TEST(Clock, FollowsTheTimeZone)
{
    const auto clock = CreateClock(ProcessEnvironment());
    setenv("TZ", "UTC0", 1);
    tzset();
    const auto utc = clock->Now();
    setenv("TZ", "EAST-5", 1);
    tzset();
    const auto east = clock->Now();
    unsetenv("TZ");
    tzset();
    const auto shift = east - utc;
    EXPECT_GE(shift, std::chrono::hours(5));
    EXPECT_LE(shift, std::chrono::hours(5) + std::chrono::minutes(1));
}

TEST(Component, HasTheFolderAndVersionItWasGiven)
{
    const auto component = CreateComponent("/share/sheetmaker-pdf", {3, 1, 4});
    EXPECT_EQ(component->Folder(), "/share/sheetmaker-pdf");
    EXPECT_EQ(component->Version().major, 3);
    EXPECT_EQ(component->Version().minor, 1);
    EXPECT_EQ(component->Version().revision, 4);
}

struct VersionRow {
    const char* text;
    std::int32_t major, minor, revision;
};

TEST(ParseVersion, TakesWhatIsThere)
{
    const VersionRow rows[] = {{"1.2.3", 1, 2, 3}, {"0.1", 0, 1, 0}, {"", 0, 0, 0}, {"7", 7, 0, 0}, {"x.y", 0, 0, 0}};
    for (const VersionRow& row : rows) {
        const ComponentVersion version = ParseVersion(row.text);
        EXPECT_EQ(version.major, row.major) << row.text;
        EXPECT_EQ(version.minor, row.minor) << row.text;
        EXPECT_EQ(version.revision, row.revision) << row.text;
    }
}

} // namespace
} // namespace sm::system
