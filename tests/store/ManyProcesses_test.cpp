// SPDX-License-Identifier: GPL-3.0-or-later
// Many processes on one settings file, one of them killed in the midst of its work.
#include "TemporaryFolder.h"
#include "doubles/RegistryAccess.h"
#include "sqlite/DamagedFile.h"
#include "store/SqliteRegistry.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace sm::store {
namespace {

constexpr const char* kSharedKey = "Software\\Product";

/// Runs `work` in a process of its own; its result is the exit code.
template <class Work> pid_t Fork(Work work)
{
    const pid_t child = fork();
    if (child == 0)
        _exit(work());
    return child;
}

int ExitCode(pid_t child)
{
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

int WriteMany(const std::filesystem::path& file, int writer, int count)
{
    int complaints = 0;
    const auto registry = OpenSqliteRegistry(file, {}, [&](const std::string&) { ++complaints; });
    for (int number = 0; number < count; ++number)
        if (!WriteText(*registry, kSharedKey, "Value" + std::to_string(writer) + "_" + std::to_string(number),
                       std::to_string(number)))
            return 1;
    return complaints ? 2 : 0;
}

TEST(ManyProcesses, StartingTogetherLoseNoWrite)
{
    const TemporaryFolder folder;
    const auto file = folder.Path() / "new" / "settings.sqlite";
    constexpr int kWriters = 8, kCount = 25;
    std::vector<pid_t> children;
    for (int writer = 0; writer < kWriters; ++writer)
        children.push_back(Fork([&] { return WriteMany(file, writer, kCount); }));
    for (const pid_t child : children)
        EXPECT_EQ(ExitCode(child), 0);
    const auto registry = OpenSqliteRegistry(file, {}, {});
    for (int writer = 0; writer < kWriters; ++writer)
        for (int number = 0; number < kCount; ++number)
            EXPECT_EQ(ReadText(*registry, kSharedKey, "Value" + std::to_string(writer) + "_" + std::to_string(number)),
                      std::to_string(number));
}

/// Writes 0, 1, 2 … to one value and tells each number through the pipe after its write came back.
int WriteUntilKilled(const std::filesystem::path& file, int pipe)
{
    const auto registry = OpenSqliteRegistry(file, {}, {});
    for (int number = 0;; ++number) {
        if (!WriteText(*registry, kSharedKey, "Counter", std::to_string(number)))
            return 1;
        if (write(pipe, &number, sizeof number) != sizeof number)
            return 2;
    }
}

TEST(ManyProcesses, AKilledOneLosesAtMostTheWriteInFlight)
{
    const TemporaryFolder folder;
    const auto file = folder.Path() / "settings.sqlite";
    for (int round = 0; round < 5; ++round) {
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        const pid_t child = Fork([&] { return WriteUntilKilled(file, ends[1]); });
        close(ends[1]);
        int last = -1, number = -1;
        while (last < 20 * (round + 1) && read(ends[0], &number, sizeof number) == sizeof number)
            last = number;
        kill(child, SIGKILL);
        EXPECT_EQ(ExitCode(child), -SIGKILL);
        while (read(ends[0], &number, sizeof number) == sizeof number)
            last = number;
        close(ends[0]);

        std::string complaint;
        const auto registry = OpenSqliteRegistry(file, {}, [&](const std::string& text) { complaint = text; });
        const int stored = std::stoi(ReadText(*registry, kSharedKey, "Counter"));
        EXPECT_GE(stored, last);
        EXPECT_LE(stored, last + 1);
        EXPECT_EQ(complaint, "");
        EXPECT_EQ(DamageOf(file), "");
    }
}

TEST(ManyProcesses, PutADamagedFileAsideOnce)
{
    const TemporaryFolder folder;
    const auto file = folder.Path() / "settings.sqlite";
    FILE* junk = fopen(file.c_str(), "w");
    fputs("junk that is long enough to be taken for the header of some database, which it is not, is it?", junk);
    fclose(junk);
    std::vector<pid_t> children;
    for (int writer = 0; writer < 6; ++writer)
        children.push_back(Fork([&] { return WriteMany(file, writer, 3) == 1 ? 1 : 0; }));
    for (const pid_t child : children)
        EXPECT_EQ(ExitCode(child), 0);
    EXPECT_TRUE(std::filesystem::exists(folder.Path() / "settings-damaged-1.sqlite"));
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "settings-damaged-2.sqlite"));
    const auto registry = OpenSqliteRegistry(file, {}, {});
    for (int writer = 0; writer < 6; ++writer)
        EXPECT_EQ(ReadText(*registry, kSharedKey, "Value" + std::to_string(writer) + "_2"), "2");
}

} // namespace
} // namespace sm::store
