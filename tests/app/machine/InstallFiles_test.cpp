// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/InstallFiles.h"

#include <gtest/gtest.h>

namespace sm::app {
namespace {

/// Everything is there, and each question is counted.
class CountingFiles final : public IFileSystem {
public:
    explicit CountingFiles(int& questions) : m_questions(questions) {}
    bool FolderExists(const std::string&) override { return ++m_questions > 0; }
    bool FileExists(const std::string&) override { return ++m_questions > 0; }
    std::vector<std::string> ListFiles(const std::string&) override { return {std::to_string(++m_questions)}; }

private:
    int& m_questions;
};

TEST(InstallFiles, AsksOnceAboutWhatTheInstallShips)
{
    int questions = 0;
    InstallFiles files(std::make_unique<CountingFiles>(questions), "/share");
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(files.FileExists("/share/Drivers/ps8.hdi"));
        EXPECT_TRUE(files.FolderExists("/share/Drivers"));
    }
    EXPECT_EQ(questions, 2);
}

TEST(InstallFiles, AsksEachTimeAboutOtherFiles)
{
    int questions = 0;
    InstallFiles files(std::make_unique<CountingFiles>(questions), "/share");
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(files.FileExists("/shared/plan.pdf"));
        EXPECT_TRUE(files.FolderExists("/share"));
    }
    EXPECT_EQ(questions, 6);
    EXPECT_EQ(files.ListFiles("/share/Settings"), std::vector<std::string>{"7"});
}

} // namespace
} // namespace sm::app
