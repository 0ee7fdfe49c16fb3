// SPDX-License-Identifier: GPL-3.0-or-later
// Open files, mapped files, what is known of a file, names in a folder, locks, paths.
#include "base/TempFolder.h"

#include "base/Rights.h"
#include "base/files/File.h"
#include "base/files/FolderLock.h"
#include "base/files/FolderNames.h"
#include "base/files/MappedFile.h"

#include <filesystem>
#include <future>
#include <gmock/gmock.h>
#include <thread>

#include <sys/stat.h>
#include <unistd.h>

namespace sm::base {
namespace {

namespace fs = std::filesystem;
using Reading = MappedFile::Reading;
using testing::ElementsAre;

TEST(Paths, TextAndPathAreEachOthers)
{
    for (const std::string text :
         {"", "a", "/a/b.dxf", "/\xD0\x9F\xD0\xBB\xD0\xB0\xD0\xBD.dxf", "not\xFF\xFEutf8", "a b"})
        EXPECT_EQ(ToText(ToPath(text)), text);
    EXPECT_EQ(ToText(ToPath("/a") / ToPath("b")), "/a/b");
}

TEST(FileFacts, TellWhatStandsThere)
{
    const TempFolder folder;
    folder.Write("file", "12345");
    fs::create_directory(folder.Path("folder"));
    ASSERT_EQ(::mkfifo(folder.Path("pipe").c_str(), 0600), 0);
    fs::create_symlink("file", folder.Path("link"));
    const struct {
        const char* name;
        FileKind kind;
        bool fails;
    } rows[] = {{"file", FileKind::File, false},      {"link", FileKind::File, false},
                {"folder", FileKind::Folder, false},  {"pipe", FileKind::Other, false},
                {"missing", FileKind::Missing, true}, {"file/below", FileKind::Missing, true}};
    for (const auto& row : rows) {
        std::error_code error;
        EXPECT_EQ(FactsOf(folder.Path(row.name), error).kind, row.kind) << row.name;
        EXPECT_EQ(static_cast<bool>(error), row.fails) << row.name;
        EXPECT_EQ(IsMissing(error), row.fails) << row.name;
    }
    std::error_code error;
    EXPECT_EQ(FactsOf(folder.Path("file"), error).stamp.size, 5U);
    EXPECT_EQ(FactsOf(folder.Path("file"), error).stamp, FactsOf(folder.Path("link"), error).stamp);
    const FileStamp before = FactsOf(folder.Path("file"), error).stamp;
    folder.Write("file", "123456");
    EXPECT_NE(FactsOf(folder.Path("file"), error).stamp, before);
    EXPECT_EQ(FactsOf(folder.Path("missing"), error).stamp, FileStamp{});
}

TEST(FileFacts, TellWriteProtectionWhoeverAsks)
{
    const TempFolder folder;
    folder.Write("file", "text");
    EXPECT_FALSE(IsWriteProtected(folder.Path("file")));
    ASSERT_EQ(::chmod(folder.Path("file").c_str(), 0444), 0);
    EXPECT_TRUE(IsWriteProtected(folder.Path("file")));
    EXPECT_FALSE(IsWriteProtected(folder.Path("missing")));
    std::error_code error;
    EXPECT_TRUE(MayRead(folder.Path("file"), error));
    EXPECT_FALSE(MayRead(folder.Path("missing"), error));
    EXPECT_TRUE(IsMissing(error));
    EXPECT_EQ(MayWrite(folder.Path("file"), error), ::geteuid() == 0);
}

TEST(FileFacts, LinksAreFollowedToTheirEnd)
{
    const TempFolder folder;
    const std::string root = ToText(fs::canonical(folder.Path("")));
    fs::create_directory(folder.Path("far"));
    folder.Write("far/file", "text");
    fs::create_symlink("far/file", folder.Path("link"));
    fs::create_symlink("far/nothing", folder.Path("dangling"));
    fs::create_symlink("loop", folder.Path("loop"));
    EXPECT_EQ(FollowLinks(folder.Path("link")), root + (root.ends_with('/') ? "" : "/") + "far/file");
    EXPECT_EQ(FollowLinks(folder.Path("dangling")), folder.Path("far/nothing"));
    EXPECT_EQ(FollowLinks(folder.Path("missing")), folder.Path("missing"));
    EXPECT_EQ(FollowLinks("relative"), "relative");
    EXPECT_EQ(FollowLinks(folder.Path("loop")), folder.Path("loop"));
}

TEST(FileFacts, TellWhatIsOfTheSystem)
{
    const TempFolder folder;
    ::symlink("/proc/self/environ", folder.Path("words").c_str());
    ::symlink("/dev/zero", folder.Path("zero").c_str());
    ::symlink("words", folder.Path("link").c_str());
    folder.Write("plain", "x");
    const struct {
        std::string path;
        bool expected;
    } rows[] = {
        {"/dev/null", true},
        {"/dev", true},
        {"/usr/../proc/self/status", true},
        {"/net/no such machine/x", true},
        {folder.Path("words"), true},
        {folder.Path("zero"), true},
        {folder.Path("link"), true},
        {folder.Path("plain"), false},
        {folder.Path("missing"), false},
        {"/development/x", false},
        {"dev/x", false},
        {"", false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(IsOfTheSystem(row.path), row.expected) << row.path;
}

TEST(File, IsReadInPieces)
{
    const TempFolder folder;
    folder.Write("file", "12345");
    std::error_code error;
    File file = File::Open(folder.Path("file"), error);
    ASSERT_TRUE(file.IsOpen());
    EXPECT_FALSE(error);
    EXPECT_EQ(file.Facts().kind, FileKind::File);
    EXPECT_EQ(file.Facts().stamp.size, 5U);
    char room[4] = {};
    EXPECT_EQ(file.Read(room, 4), 4U);
    EXPECT_EQ(std::string(room, 4), "1234");
    EXPECT_EQ(file.Read(room, 4), 1U);
    EXPECT_EQ(file.Read(room, 4), 0U);
    file.Rewind();
    EXPECT_EQ(file.Read(room, 1), 1U);
    EXPECT_EQ(room[0], '1');
    File other = std::move(file);
    EXPECT_FALSE(file.IsOpen()); // NOLINT: a file that was moved from is closed
    EXPECT_TRUE(other.IsOpen());
    other.Close();
    EXPECT_FALSE(other.IsOpen());
}

TEST(File, OfOtherKindsOpensWithoutWaiting)
{
    const TempFolder folder;
    ASSERT_EQ(::mkfifo(folder.Path("pipe").c_str(), 0600), 0);
    std::error_code error;
    EXPECT_EQ(File::Open(folder.Path("pipe"), error).Facts().kind, FileKind::Other);
    const File opened = File::Open(folder.Path(""), error);
    EXPECT_EQ(opened.Facts().kind, FileKind::Folder);
    const File missing = File::Open(folder.Path("missing"), error);
    EXPECT_FALSE(missing.IsOpen());
    EXPECT_TRUE(IsMissing(error));
    EXPECT_EQ(error.message(), "No such file or directory");
}

TEST(File, ANewOneIsMadeOnceOnly)
{
    const TempFolder folder;
    std::error_code error;
    const mode_t former = ::umask(022);
    File::Create(folder.Path("private"), File::Rights::Private, error).Write("secret");
    File::Create(folder.Path("usual"), File::Rights::Usual, error).Write("known");
    ::umask(former);
    EXPECT_EQ(folder.Read("private"), "secret");
    EXPECT_EQ(RightsOf(folder.Path("private")), 0600U);
    EXPECT_EQ(RightsOf(folder.Path("usual")), 0644U);
    EXPECT_FALSE(File::Create(folder.Path("usual"), File::Rights::Usual, error).IsOpen());
    EXPECT_EQ(error, std::errc::file_exists);
    EXPECT_EQ(folder.Read("usual"), "known");
}

TEST(File, ALogTakesTheNameAndLeavesTheOtherItsFile)
{
    const TempFolder folder;
    std::error_code error;
    File first = File::CreateLog(folder.Path("log"), error);
    first.Write("first");
    File second = File::CreateLog(folder.Path("log"), error);
    second.Write("second");
    first.Write(" goes on");
    EXPECT_EQ(folder.Read("log"), "second");
    EXPECT_FALSE(File::CreateLog(folder.Path("missing/log"), error).IsOpen());
    EXPECT_TRUE(IsMissing(error));
}

TEST(File, AnUnnamedOneIsReadBackAndLeavesNothing)
{
    const TempFolder folder;
    std::error_code error;
    File file = File::CreateUnnamed(folder.Path(""), error);
    ASSERT_TRUE(file.IsOpen());
    EXPECT_TRUE(folder.Names().empty());
    file.Write("spilled");
    file.Rewind();
    char room[16] = {};
    EXPECT_EQ(file.Read(room, sizeof room), 7U);
    EXPECT_STREQ(room, "spilled");
    EXPECT_FALSE(File::CreateUnnamed(folder.Path("missing"), error).IsOpen());
}

TEST(ReadRegularFile, GivesRegularFilesUpToALimit)
{
    const TempFolder folder;
    folder.Write("file", "12345");
    folder.Write("empty", "");
    ASSERT_EQ(::mkfifo(folder.Path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(ReadRegularFile(folder.Path("file"), 5), "12345");
    EXPECT_EQ(ReadRegularFile(folder.Path("file"), 4), std::nullopt);
    EXPECT_EQ(ReadRegularFile(folder.Path("empty"), 4), "");
    EXPECT_EQ(ReadRegularFile(folder.Path("pipe"), 4), std::nullopt);
    EXPECT_EQ(ReadRegularFile(folder.Path(""), 1000000), std::nullopt);
    EXPECT_EQ(ReadRegularFile(folder.Path("missing"), 4), std::nullopt);
}

TEST(MappedFile, HoldsTheBytesAndReadsThemAgain)
{
    const TempFolder folder;
    std::string text;
    for (int i = 0; text.size() < 100'000; ++i)
        text += std::to_string(i);
    folder.Write("file", text);
    for (const Reading reading : {Reading::Whole, Reading::InParts}) {
        std::error_code error;
        const MappedFile file(folder.Path("file"), reading, error);
        EXPECT_FALSE(error);
        EXPECT_TRUE(file.Bytes() == text);
        EXPECT_EQ(file.Facts().stamp.size, text.size());
        file.Forget(file.Bytes().substr(10, 50'000));
        EXPECT_TRUE(file.Bytes() == text);
    }
}

TEST(MappedFile, HoldsNothingOfWhatIsNoFile)
{
    const TempFolder folder;
    folder.Write("empty", "");
    std::error_code error;
    const MappedFile empty(folder.Path("empty"), Reading::Whole, error);
    EXPECT_FALSE(error);
    EXPECT_EQ(empty.Facts().kind, FileKind::File);
    EXPECT_EQ(empty.Bytes(), "");
    const MappedFile noFile(folder.Path(""), Reading::Whole, error);
    EXPECT_FALSE(error);
    EXPECT_EQ(noFile.Facts().kind, FileKind::Folder);
    EXPECT_EQ(noFile.Bytes(), "");
    const MappedFile missing(folder.Path("missing"), Reading::Whole, error);
    EXPECT_TRUE(IsMissing(error));
    EXPECT_EQ(missing.Facts().kind, FileKind::Missing);
    EXPECT_EQ(missing.Bytes(), "");
}

TEST(FolderNames, AreVisitedAndToldFromFolders)
{
    const TempFolder folder;
    folder.Write("file", "");
    fs::create_directory(folder.Path("folder"));
    fs::create_symlink("file", folder.Path("link"));
    fs::create_symlink("folder", folder.Path("linked folder"));
    std::vector<std::string> seen;
    EXPECT_FALSE(VisitNames(folder.Path(""), [&](const FolderName& name) {
        const char* const kind = name.IsFile() ? " is a file" : name.IsFolder() ? " is a folder" : " is neither";
        seen.push_back(std::string(name.Text()) + kind);
    }));
    EXPECT_THAT(seen,
                testing::UnorderedElementsAre(". is neither", ".. is neither", "file is a file", "folder is a folder",
                                              "link is a file", "linked folder is neither"));
    const auto none = [](const FolderName& name) { FAIL() << name.Text(); };
    EXPECT_EQ(VisitNames(folder.Path("missing"), none), std::errc::no_such_file_or_directory);
    EXPECT_EQ(VisitNames(folder.Path("file"), none), std::errc::not_a_directory);
}

TEST(PrivateFolder, IsTheUsersOwnAndGoesAway)
{
    const TempFolder parent;
    std::string path;
    {
        const PrivateFolder folder(parent.Path(""));
        path = folder.Path();
        EXPECT_EQ(RightsOf(path), 0700U);
        std::ofstream(path + "/left") << "behind";
        EXPECT_EQ(parent.Names().size(), 1U);
    }
    EXPECT_TRUE(parent.Names().empty());
    try {
        const PrivateFolder folder(parent.Path("missing"));
        FAIL() << "made";
    } catch (const FolderFailure& failure) {
        EXPECT_FALSE(failure.DiskFull());
        EXPECT_EQ(failure.what(), "A temporary folder could not be made in " + parent.Path("missing") +
                                      ": No such file or directory. Free the folder's space or set TMPDIR to a folder "
                                      "that can be written.");
    }
}

TEST(PrivateFolder, FoldersAboveAreUsual)
{
    const TempFolder parent;
    const mode_t former = ::umask(022);
    MakePrivateFolders(parent.Path("a/b"));
    ::umask(former);
    EXPECT_EQ(RightsOf(parent.Path("a")), 0755U);
    EXPECT_EQ(RightsOf(parent.Path("a/b")), 0700U);
    ASSERT_EQ(::chmod(parent.Path("a/b").c_str(), 0750), 0);
    MakePrivateFolders(parent.Path("a/b"));
    EXPECT_EQ(RightsOf(parent.Path("a/b")), 0750U);
}

TEST(FolderLock, KeepsOthersWaiting)
{
    const TempFolder folder;
    auto first = std::make_unique<FolderLock>(folder.Path(""));
    std::future<void> second = std::async(std::launch::async, [&] { const FolderLock lock(folder.Path("")); });
    EXPECT_EQ(second.wait_for(std::chrono::milliseconds(50)), std::future_status::timeout);
    first.reset();
    second.get();
    const FolderLock none(folder.Path("missing")); // holds nothing, and waits for nobody
}

} // namespace
} // namespace sm::base
