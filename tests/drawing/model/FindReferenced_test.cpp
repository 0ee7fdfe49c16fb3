// SPDX-License-Identifier: GPL-3.0-or-later
// Where files that a drawing names are found.
#include "drawing/FindReferenced.h"

#include "base/files/File.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace sm::drawing {
namespace {

namespace fs = std::filesystem;

class FindReferencedTest : public ::testing::Test {
protected:
    FindReferencedTest() : m_root(fs::temp_directory_path() / ("referenced-" + std::to_string(::getpid())))
    {
        fs::remove_all(m_root);
        for (const char* file : {"job/plan.dxf", "job/site.png", "job/Pics/Face.PNG", "job/pics2/a.png", "up.png",
                                 "lib/logo.tif", "lib/sub/deep.bmp", "elsewhere/there.png"}) {
            fs::create_directories((m_root / file).parent_path());
            std::ofstream(m_root / file) << "x";
        }
        fs::create_directories(m_root / "job/folder.png");
        fs::create_symlink("/proc/self/environ", m_root / "job/words.png");
        fs::create_directory_symlink("/proc/self", m_root / "job/self");
        ::mkfifo((m_root / "job/pipe.png").c_str(), 0600);
    }
    ~FindReferencedTest() override { fs::remove_all(m_root); }

    /// The file found, below the test's folder; "" for none.
    std::string Found(std::string name)
    {
        if (const std::size_t at = name.find("ROOT"); at != std::string::npos)
            name.replace(at, 4, m_root.string());
        const std::string found = FindReferenced(name, {(m_root / "job").string(), {"", (m_root / "lib").string()}});
        return found.empty() ? "" : fs::path(found).lexically_relative(m_root).string();
    }
    fs::path m_root;
};

TEST_F(FindReferencedTest, FindsFilesByTheNamesThatDrawingsGiveThem)
{
    const struct {
        const char *name, *written, *found;
    } rows[] = {
        {"full path", "ROOT/elsewhere/there.png", "elsewhere/there.png"},
        {"beside the drawing", "site.png", "job/site.png"},
        {"Windows separators", ".\\Pics\\Face.PNG", "job/Pics/Face.PNG"},
        {"letter case", "pics/face.png", "job/Pics/Face.PNG"},
        {"letter case of a full path", "ROOT/ELSEWHERE/There.PNG", "elsewhere/there.png"},
        {"relative, one up", "..\\up.png", "up.png"},
        {"one up that is beside", "..\\site.png", "job/site.png"},
        {"drive letter", "H:\\work\\site.png", "job/site.png"},
        {"drive letter with a folder that moved along", "C:\\jobs\\4711\\pics\\face.png", "job/Pics/Face.PNG"},
        {"full path of another machine", "/home/someone/pics/face.png", "job/Pics/Face.PNG"},
        {"file name of a share", "\\\\server\\jobs\\site.png", "job/site.png"},
        {"in the search path", "logo.tif", "lib/logo.tif"},
        {"folder of the search path", "D:\\x\\sub\\deep.bmp", "lib/sub/deep.bmp"},
        {"missing", "nowhere.png", ""},
        {"a folder", "folder.png", ""},
        {"a pipe", "pipe.png", ""},
        {"nothing", "", ""},
        {"an address", "http://example.org/site.png", ""},
        {"a device", "/dev/null", ""},
        {"a process", "/proc/self/status", ""},
        {"a process by way of ..", "/usr/../proc/self/status", ""},
        {"a link to a process", "words.png", ""},
        {"a process by way of a link", "self/status", ""},
        {"nothing but dots", "..\\..", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Found(row.written), row.found) << row.name;
}

TEST_F(FindReferencedTest, ReadsRegularFilesWithinALimit)
{
    const auto read = [&](const char* name, std::uint64_t largest) {
        return base::ReadRegularFile((m_root / name).string(), largest).value_or("(none)");
    };
    EXPECT_EQ(read("job/site.png", 1), "x");
    EXPECT_EQ(read("job/site.png", 0), "(none)");
    EXPECT_EQ(read("job/pipe.png", 99), "(none)");
    EXPECT_EQ(read("job", 9999), "(none)");
    EXPECT_EQ(read("job/missing", 99), "(none)");
}

} // namespace
} // namespace sm::drawing
