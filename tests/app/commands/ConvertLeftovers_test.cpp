// SPDX-License-Identifier: GPL-3.0-or-later
// What a conversion that was interrupted, killed or couldn't begin leaves behind: nothing, or what the next one
// removes.
#include "app/commands/ConvertStand.h"
#include "base/files/AtomicFile.h"
#include "base/files/PrivateFolder.h"
#include "machine/LogFiles.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace sm::app {
namespace {

using ConvertLeftovers = ConvertCommand;

TEST_F(ConvertLeftovers, EndsCleanlyWhenItIsInterrupted)
{
    const pid_t parent = getpid();
    const int code = Run(Job({"a.dxf", "b.dxf"}), [&](const DrawingTask& task, terminal::Console&) -> DrawingReport {
        std::ofstream(task.workFolder + "/page.ps") << "left behind";
        std::ofstream(base::TemporaryBeside("a.pdf")) << "half a PDF";
        if (task.drawing == "b.dxf")
            kill(parent, SIGTERM);
        for (;;)
            pause();
    });
    EXPECT_EQ(code, 130);
    EXPECT_EQ(m_err.str(), "sheetmaker: interrupted\n");
    EXPECT_TRUE(fs::is_empty(m_machine.In("tmp")));
    for (const auto& file : fs::directory_iterator(m_machine.Root()))
        EXPECT_FALSE(file.path().filename().string().starts_with(".sheetmaker-")) << file.path();
}

/// A process at a time with more descriptors: whatever can't be opened any more, its folder goes.
TEST_F(ConvertLeftovers, LeavesNoFolderWhenDescriptorsRunOut)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "the sanitizers look at memory by way of a pipe, which takes descriptors";
#endif
    int told = 0;
    for (rlim_t more = 0; more < 16; ++more) {
        const pid_t child = fork();
        if (child == 0) {
            const auto first = static_cast<rlim_t>(dup(0));
            close(static_cast<int>(first));
            const rlimit limit{first + more, first + more};
            setrlimit(RLIMIT_NOFILE, &limit);
            Run(Job({"a.dxf"}), Converting());
            _exit(m_err.str() == "sheetmaker convert: no pipe can be made: Too many open files\n" ? 1 : 0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFEXITED(status)) << more;
        told += WEXITSTATUS(status);
        EXPECT_TRUE(fs::is_empty(m_machine.In("tmp"))) << more;
    }
    EXPECT_GT(told, 0);
}

TEST_F(ConvertLeftovers, RemovesWhatAKilledRunLeft)
{
    const pid_t killed = fork();
    if (killed == 0) {
        const base::PrivateFolder folder("");
        std::ofstream(folder.Path() + "/page.ps") << "half a page";
        std::ofstream(base::TemporaryBeside("a.pdf")) << "half a PDF";
        fs::create_directories("home/.local/state/sheetmaker-pdf");
        std::ofstream(fs::path("home/.local/state/sheetmaker-pdf") / TemporaryLogName()) << "half a log";
        kill(getpid(), SIGKILL);
    }
    waitpid(killed, nullptr, 0);
    ASSERT_FALSE(fs::is_empty(m_machine.In("tmp")));
    EXPECT_EQ(Run(Job({"a.dxf"}), Converting()), 0);
    EXPECT_TRUE(fs::is_empty(m_machine.In("tmp")));
    std::vector<std::string> left;
    for (const auto& file : fs::recursive_directory_iterator(m_machine.Root()))
        if (const std::string name = file.path().filename().string();
            name.starts_with(".sheetmaker-") || name.starts_with("SmPdfAcad-"))
            left.push_back(name);
    EXPECT_EQ(left, std::vector<std::string>());
}

} // namespace
} // namespace sm::app
