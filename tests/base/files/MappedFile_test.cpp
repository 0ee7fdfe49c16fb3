// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/MappedFile.h"

#include "base/TempFolder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace sm::base {
namespace {

/// In a process of its own: the cut file is remembered to its end.
TEST(MappedFile, ReadsZerosBehindTheEndOfAFileThatWasCut)
{
    const TempFolder folder;
    const std::string path = folder.Path("plan.dxf");
    folder.Write("plan.dxf", std::string(100'000, 'x'));
    const pid_t child = fork();
    if (child == 0) {
        std::error_code error;
        int result = MappedFile::Cut().empty() ? 0 : 1;
        {
            const MappedFile file(path, MappedFile::Reading::Whole, error);
            result |= truncate(path.c_str(), 10) == 0 && file.Bytes()[0] == 'x' ? 0 : 2;
            result |= MappedFile::Cut().empty() ? 0 : 4;
            result |= std::count(file.Bytes().begin() + 5000, file.Bytes().end(), '\0') == 95'000 ? 0 : 8;
            result |= MappedFile::Cut() == path ? 0 : 16;
        }
        result |= MappedFile::Cut() == path ? 0 : 32;
        _exit(result);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

TEST(MappedFileDeathTest, LeavesOtherFaultsAsTheyAre)
{
    const TempFolder folder;
    folder.Write("plan.dxf", "x");
    std::error_code error;
    const MappedFile file(folder.Path("plan.dxf"), MappedFile::Reading::Whole, error);
    EXPECT_EXIT(raise(SIGBUS), testing::KilledBySignal(SIGBUS), "");
}

} // namespace
} // namespace sm::base
