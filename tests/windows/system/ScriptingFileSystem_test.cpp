// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/system/WindowsSystem.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <objbase.h>

namespace sm::windows {
namespace {

class ScriptingFileSystem : public testing::Test {
protected:
    void SetUp() override
    {
        std::filesystem::remove_all(m_root);
        std::filesystem::create_directories(m_root / "list" / "folder");
        for (const char* name : {"b.joboptions", "a.txt"})
            std::ofstream(m_root / "list" / name) << name;
    }
    void TearDown() override { std::filesystem::remove_all(m_root); }
    std::string At(const std::string& name) const { return m_root.string() + "\\" + name; }

    const std::filesystem::path m_root = std::filesystem::temp_directory_path() / "sheetmaker-files";
};

/// COM on this thread for as long as it lives.
struct Apartment {
    Apartment() { CoInitialize(nullptr); }
    ~Apartment() { CoUninitialize(); }
};

TEST_F(ScriptingFileSystem, TellsFoldersFromFiles)
{
    const Apartment apartment;
    const auto files = CreateFileSystem();
    EXPECT_TRUE(files->FolderExists(At("list")));
    EXPECT_FALSE(files->FolderExists(At("list\\a.txt")));
    EXPECT_FALSE(files->FolderExists(At("none")));
    EXPECT_FALSE(files->FolderExists(""));
    EXPECT_TRUE(files->FileExists(At("list\\a.txt")));
    EXPECT_TRUE(files->FileExists(At("list\\A.TXT")));
    EXPECT_FALSE(files->FileExists(At("list")));
    EXPECT_FALSE(files->FileExists(At("list\\c.txt")));
    EXPECT_FALSE(files->FileExists(""));
}

TEST_F(ScriptingFileSystem, ListsFilesByNameWithoutFolders)
{
    const Apartment apartment;
    const auto files = CreateFileSystem();
    EXPECT_EQ(files->ListFiles(At("list")), (std::vector<std::string>{"a.txt", "b.joboptions"}));
    EXPECT_EQ(files->ListFiles(At("list\\folder")), std::vector<std::string>());
    EXPECT_EQ(files->ListFiles(At("none")), std::vector<std::string>());
}

TEST_F(ScriptingFileSystem, FindsNothingWhereTheObjectCannotBeMade)
{
    const auto files = CreateFileSystem(); // no COM on this thread
    EXPECT_FALSE(files->FolderExists(At("list")));
    EXPECT_FALSE(files->FileExists(At("list\\a.txt")));
    EXPECT_EQ(files->ListFiles(At("list")), std::vector<std::string>());
}

} // namespace
} // namespace sm::windows
