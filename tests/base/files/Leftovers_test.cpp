// SPDX-License-Identifier: GPL-3.0-or-later
// What a killed process left behind goes with a later run; what may belong to somebody who runs stays.
#include "base/TempFolder.h"

#include "base/files/AtomicFile.h"
#include "base/files/EditLock.h"
#include "base/files/Leftovers.h"
#include "files/posix/Descriptor.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <gmock/gmock.h>

#include <sys/wait.h>
#include <unistd.h>

namespace sm::base {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Runs `work` in a process that is then killed by signal 9.
void InAKilledProcess(const std::function<void()>& work)
{
    const pid_t child = ::fork();
    if (child == 0) {
        work();
        ::raise(SIGKILL);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
}

/// A name that a process made which has ended.
std::string NameOfAnEndedProcess(const std::string& prefix, const std::string& ending)
{
    std::array<int, 2> ends{};
    EXPECT_EQ(::pipe(ends.data()), 0);
    InAKilledProcess([&] { WriteFully(ends[1], TemporaryName(prefix, ending)); });
    ::close(ends[1]);
    std::string name(1000, '\0');
    name.resize(ReadFully(ends[0], name.data(), name.size()));
    ::close(ends[0]);
    return name;
}

/// The parts of a name between its dashes from behind: random number, start, process.
std::string WithPart(const std::string& name, int fromBehind, const std::string& part)
{
    std::size_t end = name.size();
    for (int i = 0; i < fromBehind; ++i)
        end = name.rfind('-', end - 1);
    const std::size_t begin = name.rfind('-', end - 1) + 1;
    return name.substr(0, begin) + part + name.substr(end);
}

TEST(Leftovers, NamesAreOfOneProcessAndCantBeGuessed)
{
    const std::string first = TemporaryName(".a-", ".part"), second = TemporaryName(".a-", ".part");
    EXPECT_NE(first, second);
    EXPECT_THAT(first, testing::MatchesRegex(R"(\.a-.+\.[0-9a-f]{16}-)" + std::to_string(::getpid()) +
                                             "-[1-9][0-9]*-[0-9a-f]{16}.part"));
    EXPECT_EQ(first.substr(0, first.rfind('-')), second.substr(0, second.rfind('-')));
}

TEST(Leftovers, AreThoseOfEndedProcessesOfThisMachine)
{
    const std::string own = TemporaryName("p-", ".part"), ended = NameOfAnEndedProcess("p-", ".part");
    const std::string machine = ended.substr(2, ended.find('.') - 2);
    struct Row {
        const char* what;
        std::string name;
        bool isAbandoned;
    };
    const Row rows[] = {
        {"this process", own, false},
        {"an ended process", ended, true},
        {"the number of this process, given to it later", WithPart(own, 1, "1"), true},
        {"the number of this process, its start unknown", WithPart(own, 1, "0"), false},
        {"another machine", "p-another" + ended.substr(2), false},
        {"another container of this machine",
         ended.substr(0, 2) + machine + ".0123456789abcdef" + ended.substr(2 + machine.size() + 17), false},
        {"another prefix", "q" + ended.substr(1), false},
        {"another ending", ended + "s", false},
        {"a short random number", WithPart(ended, 0, "12.part"), false},
        {"no process", WithPart(ended, 2, "x"), false},
        {"process 0", WithPart(ended, 2, "0"), false},
        {"a number beyond all processes", WithPart(ended, 2, "99999999999999"), false},
        {"the prefix alone", "p-", false},
        {"prefix and ending alone", "p-.part", false},
        {"nothing", "", false},
    };
    for (const Row& row : rows)
        EXPECT_EQ(IsAbandoned(row.name, "p-", ".part"), row.isAbandoned) << row.what << ": " << row.name;
}

TEST(Leftovers, AreThoseOfAProcessThatNobodyWaitedFor)
{
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        WriteFully(ends[1], TemporaryName("p-", ".part"));
        ::_exit(0);
    }
    ::close(ends[1]);
    std::string name(1000, '\0');
    name.resize(ReadFully(ends[0], name.data(), name.size()));
    ::close(ends[0]);
    siginfo_t ended{};
    ASSERT_EQ(::waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOWAIT), 0);
    EXPECT_TRUE(IsAbandoned(name, "p-", ".part"));
    ::waitpid(child, nullptr, 0);
    EXPECT_TRUE(IsAbandoned(name, "p-", ".part"));
}

TEST(Leftovers, OfAKilledSaveGoWithTheNextOne)
{
    const TempFolder folder;
    const std::string foreign = "." + std::string("sheetmaker-another") + TemporaryName(".", ".part").substr(1);
    folder.Write(foreign, "another machine's");
    folder.Write("plan.dxf", "old");
    InAKilledProcess([&] {
        EditLock lock(folder.Path("plan.dxf"));
        AtomicFile file(folder.Path("plan.dxf"), AtomicFile::Keeping::Durable);
        file.Write("half");
        file.Finish();
        ::raise(SIGKILL);
    });
    EXPECT_EQ(folder.Names().size(), 4U); // and the lock and the temporary
    {
        AtomicFile other(folder.Path("other.pdf"), AtomicFile::Keeping::Durable);
        other.Write("whole");
        other.Commit();
    }
    EXPECT_THAT(folder.Names(), ElementsAre(foreign, "other.pdf", "plan.dxf"));
    EXPECT_EQ(folder.Read("plan.dxf"), "old");
}

TEST(Leftovers, OfAFolderAreLookedForOnce)
{
    const TempFolder folder;
    RemoveLeftoversOnce(folder.Path(""));
    const std::string ended = NameOfAnEndedProcess(".sheetmaker-", ".part");
    folder.Write(ended, "half");
    RemoveLeftoversOnce(folder.Path("."));
    EXPECT_THAT(folder.Names(), ElementsAre(ended));
    RemoveLeftovers(folder.Path(""));
    EXPECT_THAT(folder.Names(), IsEmpty());
    RemoveLeftovers(folder.Path("missing"));
}

TEST(Leftovers, LocksThatAreHeldOrAnotherMachinesStay)
{
    const TempFolder folder;
    folder.Write(".far.dxf.sheetmaker-lock", "process 1 on another.example");
    folder.Write(".new.dxf.sheetmaker-lock", ""); // its holder is about to write who it is
    const EditLock held(folder.Path("near.dxf"));
    RemoveLeftovers(folder.Path(""));
    EXPECT_THAT(folder.Names(),
                ElementsAre(".far.dxf.sheetmaker-lock", ".near.dxf.sheetmaker-lock", ".new.dxf.sheetmaker-lock"));
}

TEST(Leftovers, FoldersGoWithAllThatIsInThem)
{
    const TempFolder folder;
    const std::string ended = NameOfAnEndedProcess("sheetmaker-", "");
    std::filesystem::create_directories(ToPath(folder.Path(ended + "/inner")));
    folder.Write(ended + "/inner/page.ps", "half");
    const std::string file = NameOfAnEndedProcess("sheetmaker-", ""), own = TemporaryName("sheetmaker-", "");
    folder.Write(file, "a file is no folder");
    std::filesystem::create_directory(ToPath(folder.Path(own)));
    folder.Write("kept", "kept");
    const std::string link = NameOfAnEndedProcess("sheetmaker-", "");
    std::filesystem::create_symlink(ToPath(folder.Path("")), ToPath(folder.Path(link)));
    RemoveAbandonedFolders(folder.Path(""), "sheetmaker-");
    EXPECT_THAT(folder.Names(), testing::UnorderedElementsAre(file, own, link, "kept"));
}

/// In a process of its own: which of them looks for former folders is told once.
TEST(Leftovers, OfAKilledRunGoWithTheNextRunsFolder)
{
    const TempFolder folder;
    const char* const former = std::getenv("TMPDIR");
    const std::string kept = former != nullptr ? former : "";
    ::setenv("TMPDIR", folder.Path("").c_str(), 1);
    InAKilledProcess([&] {
        const PrivateFolder left("");
        ::raise(SIGKILL);
    });
    EXPECT_EQ(folder.Names().size(), 1U);
    InAKilledProcess([&] {
        {
            const PrivateFolder next("");
        }
        ::raise(SIGKILL);
    });
    former != nullptr ? ::setenv("TMPDIR", kept.c_str(), 1) : ::unsetenv("TMPDIR");
    EXPECT_THAT(folder.Names(), IsEmpty());
}

} // namespace
} // namespace sm::base
