// SPDX-License-Identifier: GPL-3.0-or-later
// A file is the old one or the whole new one, keeps its rights and its links, and leaves nothing beside it.
#include "base/TempFolder.h"

#include "base/Rights.h"
#include "base/files/AtomicFile.h"
#include "base/files/FileFacts.h"

#include <csignal>
#include <filesystem>
#include <gmock/gmock.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace sm::base {
namespace {

namespace fs = std::filesystem;
using Keeping = AtomicFile::Keeping;
using testing::ElementsAre;

void Save(const std::string& path, const std::string& text, Keeping keeping = Keeping::Durable)
{
    AtomicFile file(path, keeping);
    file.Write(text);
    file.Commit();
}

TEST(AtomicFile, AppearsWhenItIsWholeOnly)
{
    for (const Keeping keeping : {Keeping::Durable, Keeping::ForNow}) {
        const TempFolder folder;
        {
            AtomicFile file(folder.Path("new.pdf"), keeping);
            file.Write("half");
            EXPECT_FALSE(fs::exists(folder.Path("new.pdf")));
            EXPECT_EQ(file.BytesWritten(), 4U);
            file.Write(" and half");
            file.Finish();
            EXPECT_FALSE(fs::exists(folder.Path("new.pdf")));
            file.Commit();
        }
        EXPECT_EQ(folder.Read("new.pdf"), "half and half");
        EXPECT_THAT(folder.Names(), ElementsAre("new.pdf"));
    }
}

TEST(AtomicFile, LeavesTheOldFileWhenItIsGivenUp)
{
    const TempFolder folder;
    folder.Write("plan.dxf", "old");
    {
        AtomicFile file(folder.Path("plan.dxf"), Keeping::Durable);
        file.Write("new");
        EXPECT_EQ(folder.Names().size(), 2U);
    }
    EXPECT_EQ(folder.Read("plan.dxf"), "old");
    EXPECT_THAT(folder.Names(), ElementsAre("plan.dxf"));
}

TEST(AtomicFile, WritesWhatIsLongerThanItsBuffer)
{
    const TempFolder folder;
    std::string expected;
    {
        AtomicFile file(folder.Path("long"), Keeping::ForNow);
        for (const std::size_t size : {1UL, 100'000UL, 200'000UL, 262'144UL, 3UL, 1'000'000UL, 262'143UL, 2UL}) {
            const std::string piece(size, static_cast<char>('a' + size % 26));
            file.Write(piece);
            expected += piece;
        }
        EXPECT_EQ(file.BytesWritten(), expected.size());
        file.Commit();
    }
    EXPECT_TRUE(folder.Read("long") == expected);
}

TEST(AtomicFile, KeepsTheRightsOfTheOldFile)
{
    for (const mode_t rights : {0600U, 0640U, 0664U, 0755U, 0444U}) {
        const TempFolder folder;
        folder.Write("plan.dxf", "old");
        ASSERT_EQ(::chmod(folder.Path("plan.dxf").c_str(), rights), 0);
        Save(folder.Path("plan.dxf"), "new");
        EXPECT_EQ(RightsOf(folder.Path("plan.dxf")), rights);
        EXPECT_EQ(folder.Read("plan.dxf"), "new");
    }
}

TEST(AtomicFile, GivesANewFileWhatTheUmaskLeaves)
{
    const TempFolder folder;
    const mode_t former = ::umask(027);
    Save(folder.Path("new"), "text");
    ::umask(former);
    EXPECT_EQ(RightsOf(folder.Path("new")), 0640U);
}

TEST(AtomicFile, KeepsOwnerAndGroupWhereItMay)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only the superuser may give files away";
    const TempFolder folder;
    folder.Write("plan.dxf", "old");
    ASSERT_EQ(::chown(folder.Path("plan.dxf").c_str(), 1234, 2345), 0);
    Save(folder.Path("plan.dxf"), "new");
    struct stat state {};
    ASSERT_EQ(::stat(folder.Path("plan.dxf").c_str(), &state), 0);
    EXPECT_EQ(state.st_uid, 1234U);
    EXPECT_EQ(state.st_gid, 2345U);
}

TEST(AtomicFile, NobodyElseReadsASecretWhileItIsWritten)
{
    const TempFolder folder;
    folder.Write("secret", "old");
    ASSERT_EQ(::chmod(folder.Path("secret").c_str(), 0600), 0);
    AtomicFile file(folder.Path("secret"), Keeping::ForNow);
    file.Write(std::string(1 << 20, 'x'));
    for (const std::string& name : folder.Names())
        EXPECT_EQ(RightsOf(folder.Path(name)), 0600U) << name;
}

TEST(AtomicFile, FollowsALinkAndLeavesIt)
{
    const TempFolder folder;
    fs::create_directory(folder.Path("far"));
    folder.Write("far/plan.dxf", "old");
    fs::create_symlink("far/plan.dxf", folder.Path("plan.dxf"));
    fs::create_symlink("plan.dxf", folder.Path("second.dxf"));
    Save(folder.Path("second.dxf"), "new");
    EXPECT_TRUE(fs::is_symlink(folder.Path("second.dxf")));
    EXPECT_TRUE(fs::is_symlink(folder.Path("plan.dxf")));
    EXPECT_FALSE(fs::is_symlink(folder.Path("far/plan.dxf")));
    EXPECT_EQ(folder.Read("far/plan.dxf"), "new");
    EXPECT_THAT(folder.Names(), ElementsAre("far", "plan.dxf", "second.dxf"));
}

TEST(AtomicFile, MakesTheTargetOfALinkThatLeadsNowhere)
{
    const TempFolder folder;
    fs::create_directory(folder.Path("far"));
    fs::create_symlink("far/plan.dxf", folder.Path("plan.dxf"));
    Save(folder.Path("plan.dxf"), "new");
    EXPECT_TRUE(fs::is_symlink(folder.Path("plan.dxf")));
    EXPECT_EQ(folder.Read("far/plan.dxf"), "new");
}

TEST(AtomicFile, TellsAFolderThatIsMissing)
{
    const TempFolder folder;
    try {
        AtomicFile file(folder.Path("missing/plan.dxf"), Keeping::Durable);
        FAIL() << "opened";
    } catch (const std::system_error& error) {
        EXPECT_TRUE(IsMissing(error.code()));
    }
}

/// The superuser may write everywhere: for as long as this lives he is somebody else.
class NoSuperuser {
public:
    NoSuperuser()
    {
        if (m_former == 0)
            m_given = ::seteuid(kNobody);
    }
    ~NoSuperuser() { m_given = ::seteuid(m_former); }
    NoSuperuser(const NoSuperuser&) = delete;
    NoSuperuser& operator=(const NoSuperuser&) = delete;

private:
    static constexpr uid_t kNobody = 65534;
    uid_t m_former = ::geteuid();
    int m_given = 0;
};

TEST(AtomicFile, TellsAFolderThatMayNotBeWritten)
{
    const TempFolder folder;
    folder.Write("plan.dxf", "old");
    ASSERT_EQ(::chmod(folder.Path("").c_str(), 0555), 0);
    bool forbidden = false;
    {
        const NoSuperuser nobody;
        try {
            AtomicFile file(folder.Path("plan.dxf"), Keeping::Durable);
        } catch (const std::system_error& error) {
            forbidden = IsForbidden(error.code());
        }
    }
    EXPECT_TRUE(forbidden);
    EXPECT_EQ(folder.Read("plan.dxf"), "old");
    ASSERT_EQ(::chmod(folder.Path("").c_str(), 0755), 0);
}

TEST(AtomicFile, ReplacesTheFileOfAnotherWhoseOwnerItCannotKeep)
{
    const TempFolder folder;
    folder.Write("plan.dxf", "old");
    ASSERT_EQ(::chmod(folder.Path("plan.dxf").c_str(), 0664), 0);
    ASSERT_EQ(::chmod(folder.Path("").c_str(), 0777), 0);
    {
        const NoSuperuser nobody;
        Save(folder.Path("plan.dxf"), "new");
    }
    EXPECT_EQ(folder.Read("plan.dxf"), "new");
    EXPECT_EQ(RightsOf(folder.Path("plan.dxf")), 0664U);
    EXPECT_THAT(folder.Names(), ElementsAre("plan.dxf"));
}

/// No file of this process may grow beyond `bytes` for as long as this lives.
class SizeLimit {
public:
    explicit SizeLimit(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_former);
        const rlimit limit{bytes, m_former.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~SizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_former);
        std::signal(SIGXFSZ, m_handler);
    }
    SizeLimit(const SizeLimit&) = delete;
    SizeLimit& operator=(const SizeLimit&) = delete;

private:
    rlimit m_former{};
    void (*m_handler)(int);
};

TEST(AtomicFile, LeavesTheOldFileWhenTheDiskTakesNoMore)
{
    const TempFolder folder;
    folder.Write("plan.dxf", "old");
    bool tooLarge = false;
    {
        const SizeLimit limit(1 << 19);
        EXPECT_EQ(LargestFileAllowed(), std::uint64_t{1} << 19);
        try {
            Save(folder.Path("plan.dxf"), std::string(1 << 20, 'x'));
        } catch (const std::system_error& error) {
            tooLarge = IsTooLarge(error.code());
        }
    }
    EXPECT_TRUE(tooLarge);
    EXPECT_EQ(folder.Read("plan.dxf"), "old");
    EXPECT_THAT(folder.Names(), ElementsAre("plan.dxf"));
}

TEST(AtomicFile, TellsAFullDiskFromOtherFailures)
{
    const TempFolder folder;
    EXPECT_TRUE(IsDiskFull({ENOSPC, std::generic_category()}));
    EXPECT_TRUE(IsDiskFull({EDQUOT, std::generic_category()}));
    EXPECT_FALSE(IsDiskFull({EIO, std::generic_category()}));
    EXPECT_TRUE(IsReadOnlyPlace({EROFS, std::generic_category()}));
    EXPECT_TRUE(IsForbidden({EACCES, std::generic_category()}));
    EXPECT_TRUE(IsForbidden({EPERM, std::generic_category()}));
    EXPECT_TRUE(IsMissing({ENOTDIR, std::generic_category()}));
}

} // namespace
} // namespace sm::base
