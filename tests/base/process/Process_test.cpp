// SPDX-License-Identifier: GPL-3.0-or-later
// Other programs, and what this one is told about itself.
#include "base/process/ChildProcess.h"
#include "base/process/ThisProcess.h"

#include "base/TempFolder.h"

#include <gmock/gmock.h>

#include <unistd.h>

namespace sm::base {
namespace {

using End = ChildResult::End;

ChildCommand Shell(const std::string& script)
{
    ChildCommand command;
    command.program = "/bin/sh";
    command.arguments = {"-c", script};
    command.environment = {"PATH=/usr/bin:/bin", "GREETING=hello"};
    command.workingFolder = "/";
    return command;
}

TEST(RunChild, GivesCodeAndOutput)
{
    const ChildResult result = RunChild(Shell("echo $GREETING; pwd; echo lines of both >&2; exit 3"));
    EXPECT_EQ(result.end, End::Exited);
    EXPECT_EQ(result.code, 3);
    EXPECT_EQ(result.output, "hello\n/\nlines of both\n");
    EXPECT_EQ(result.reason, "");
    EXPECT_FALSE(result.outOfTime);
}

TEST(RunChild, TellsSignals)
{
    const ChildResult result = RunChild(Shell("kill -SEGV $$"));
    EXPECT_EQ(result.end, End::Signalled);
    EXPECT_EQ(result.code, 11);
    EXPECT_EQ(result.reason, "Segmentation fault");
    EXPECT_FALSE(result.outOfTime);
}

TEST(RunChild, EndsWhatTakesTooLong)
{
    ChildCommand command = Shell("sleep 100 & sleep 100");
    command.limits.deadline = std::chrono::milliseconds(50);
    const ChildResult result = RunChild(command);
    EXPECT_EQ(result.end, End::PastDeadline);
    EXPECT_TRUE(result.outOfTime);
}

TEST(RunChild, EndsWhatTakesTooMuchProcessorTime)
{
    ChildCommand command = Shell("while :; do :; done");
    command.limits.cpuSeconds = 1;
    const ChildResult result = RunChild(command);
    EXPECT_EQ(result.end, End::Signalled);
    EXPECT_TRUE(result.outOfTime);
}

TEST(RunChild, TellsWhatCannotBeStarted)
{
#ifdef __SANITIZE_THREAD__
    GTEST_SKIP() << "the thread sanitizer makes a fork of vfork, and the child's answer stays in the child";
#endif
    ChildCommand command = Shell("");
    command.program = "/bin/there-is-no-such-program";
    const ChildResult result = RunChild(command);
    EXPECT_EQ(result.end, End::NotStarted);
    EXPECT_EQ(result.reason, "No such file or directory");
}

TEST(FindProgram, LooksInTheFoldersOfThePath)
{
    const TempFolder folder;
    folder.Write("tool", "#!/bin/sh\n");
    folder.Write("no-tool", "");
    std::filesystem::permissions(folder.Path("tool"), std::filesystem::perms::owner_all);
    const std::string place = folder.Path("");
    EXPECT_EQ(FindProgram("tool", "/nowhere:" + place), place + "tool");
    EXPECT_EQ(FindProgram("no-tool", place), "");
    EXPECT_EQ(FindProgram("missing", place), "");
    EXPECT_EQ(FindProgram("", place), "");
    EXPECT_EQ(FindProgram(folder.Path("tool"), ""), folder.Path("tool"));
    EXPECT_EQ(FindProgram(folder.Path("missing"), place), "");
}

TEST(ThisProcess, KnowsItself)
{
    EXPECT_EQ(ProcessNumber(), ::getpid());
    ::setenv("SM_BASE_TEST", "a=b", 1);
    EXPECT_EQ(Variable("SM_BASE_TEST"), "a=b");
    EXPECT_THAT(Variables(), testing::Contains("SM_BASE_TEST=a=b"));
    ::unsetenv("SM_BASE_TEST");
    EXPECT_EQ(Variable("SM_BASE_TEST"), std::nullopt);
    const auto first = RandomWords(), second = RandomWords();
    ASSERT_TRUE(first && second);
    EXPECT_NE(*first, *second);
    EXPECT_EQ(BecomeProgram("/bin/there-is-no-such-program", {"word"}), "No such file or directory");
}

TEST(ThisProcess, TellsLocalTime)
{
    ::setenv("TZ", "UTC-3", 1);
    ::tzset();
    const std::tm time = LocalTime(86400);
    EXPECT_EQ(time.tm_year, 70);
    EXPECT_EQ(time.tm_mday, 2);
    EXPECT_EQ(time.tm_hour, 3);
    ::unsetenv("TZ");
    ::tzset();
}

} // namespace
} // namespace sm::base
