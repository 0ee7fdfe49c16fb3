// SPDX-License-Identifier: GPL-3.0-or-later
// A file that is larger than what a process of 32 bits can address is refused there, and told.
#include "base/files/MappedFile.h"
#include "base/files/Paths.h"
#include "base/files/PrivateFolder.h"
#include "dialect/DialectPageMaker.h"
#include "pdf/PublishStatus.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <winioctl.h>

namespace sm::publisher {
namespace {

using base::MappedFile;

constexpr LONGLONG kBytes = LONGLONG{5} << 30;
constexpr bool kIsNarrow = sizeof(void*) == 4;

/// Holds nothing but its beginning, and takes no more room on the disk than that.
class LargeFile : public testing::Test {
protected:
    LargeFile()
    {
        const HANDLE file = CreateFileW(base::ToPath(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
        constexpr char kBeginning[] = "%!PS-Adobe-3.0\n";
        DWORD count = 0;
        DeviceIoControl(file, FSCTL_SET_SPARSE, nullptr, 0, nullptr, 0, &count, nullptr);
        LARGE_INTEGER end = {};
        end.QuadPart = kBytes;
        isMade = WriteFile(file, kBeginning, sizeof kBeginning - 1, &count, nullptr) != FALSE &&
                 SetFilePointerEx(file, end, nullptr, FILE_BEGIN) != FALSE && SetEndOfFile(file) != FALSE;
        CloseHandle(file);
    }

    base::PrivateFolder folder{""};
    std::string path = folder.Path() + "/large.ps";
    bool isMade = false;
};

/// Says that it was asked for the page.
class OtherPages final : public IPageMaker {
public:
    void CheckPage(const PageSource&, const std::string&) override
    {
        throw PublishFailure(PublishStatus::Internal, "the interpreter's");
    }
    MadePages MakePages(const std::vector<PageSource>&, const std::string&, const std::string&) override { return {}; }
};

TEST_F(LargeFile, IsReadWhereThereIsRoomForIt)
{
    ASSERT_TRUE(isMade);
    std::error_code error;
    const MappedFile file(path, MappedFile::Reading::InParts, error);
    EXPECT_EQ(error, kIsNarrow ? std::make_error_code(std::errc::file_too_large) : std::error_code());
    EXPECT_EQ(static_cast<LONGLONG>(file.Bytes().size()), kIsNarrow ? 0 : kBytes);
    EXPECT_EQ(file.Bytes().substr(0, 4), kIsNarrow ? "" : "%!PS");
}

TEST_F(LargeFile, IsNotCopiedIntoTooLittleRoom)
{
    if (!kIsNarrow)
        GTEST_SKIP() << "there is room for it";
    ASSERT_TRUE(isMade);
    std::error_code error;
    const MappedFile file(path, MappedFile::Reading::Whole, error);
    EXPECT_EQ(error, std::make_error_code(std::errc::file_too_large));
    EXPECT_TRUE(file.Bytes().empty());
}

TEST_F(LargeFile, AsAPageIsRefusedByItsName)
{
    ASSERT_TRUE(isMade);
    PageSource page;
    page.psPath = path;
    page.number = 3;
    std::string told;
    try {
        CreateDialectPageMaker(std::make_unique<OtherPages>(), {})->CheckPage(page, "");
    } catch (const PublishFailure& failure) {
        told = failure.what();
    }
    EXPECT_EQ(told, kIsNarrow ? "Page 3: the PostScript file " + path +
                                    " can't be read: File too large. Plot the sheet again."
                              : "the interpreter's");
}

} // namespace
} // namespace sm::publisher
