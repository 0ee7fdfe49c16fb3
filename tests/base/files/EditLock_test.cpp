// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/EditLock.h"

#include "base/TempFolder.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace sm::base {
namespace {

using namespace std::chrono_literals;

/// Runs `work` in another process; its result is that process's exit code.
int InAnotherProcess(auto work)
{
    const pid_t child = fork();
    if (child == 0)
        _exit(work());
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int Tries(const std::string& path, const std::string& expectedHolder)
{
    try {
        EditLock lock(path, 50ms);
        return 0;
    } catch (const EditLockHeld& held) {
        return std::string(held.what()).starts_with(expectedHolder) ? 1 : 2;
    }
}

TEST(EditLock, KeepsOtherProcessesOutAndNamesItsHolder)
{
    const TempFolder folder;
    const std::string path = folder.Path("plan.dxf");
    std::ofstream(path) << "x";
    const std::string holder = "process " + std::to_string(getpid()) + " on ";
    {
        const EditLock lock(path);
        EXPECT_EQ(InAnotherProcess([&] { return Tries(path, holder); }), 1);
        {
            const EditLock again(path); // of the same process
        }
        EXPECT_EQ(InAnotherProcess([&] { return Tries(path, holder); }), 1);
        EXPECT_EQ(InAnotherProcess([&] { return Tries(folder.Path("other.dxf"), holder); }), 0);
    }
    EXPECT_EQ(InAnotherProcess([&] { return Tries(path, holder); }), 0);
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"plan.dxf"});
}

TEST(EditLock, IsThatOfTheTrueFile)
{
    const TempFolder folder;
    std::ofstream(folder.Path("plan.dxf")) << "x";
    ASSERT_EQ(symlink("plan.dxf", folder.Path("link.dxf").c_str()), 0);
    const EditLock lock(folder.Path("link.dxf"));
    EXPECT_EQ(InAnotherProcess([&] { return Tries(folder.Path("plan.dxf"), "process "); }), 1);
}

TEST(EditLock, GoesWithItsProcess)
{
    const TempFolder folder;
    const std::string path = folder.Path("plan.dxf");
    EXPECT_EQ(InAnotherProcess([&] {
                  new EditLock(path); // never given back
                  return 7;
              }),
              7);
    EXPECT_EQ(Tries(path, ""), 0);
}

TEST(EditLock, IsNoneWhereNothingCanBeMade)
{
    EXPECT_EQ(Tries("/proc/self/plan.dxf", ""), 0);
}

} // namespace
} // namespace sm::base
