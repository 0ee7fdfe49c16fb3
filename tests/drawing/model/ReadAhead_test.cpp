// SPDX-License-Identifier: GPL-3.0-or-later
// Drawings that are read before they are asked for are those that would have been read then.
#include "drawing/ReadAhead.h"

#include "drawing/TempFolder.h"

#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <thread>

namespace sm::drawing::testing {
namespace {

constexpr char kGood[] = "0\nSECTION\n2\nENTITIES\n0\nPOINT\n8\n0\n10\n1\n20\n2\n0\nENDSEC\n0\nEOF\n";

/// What came when a drawing was asked for: its name, or the error.
std::string Came(ReadAhead& ahead, const std::string& path)
{
    try {
        return ahead.Take(path)->Path();
    } catch (const DrawingError& error) {
        return error.what();
    }
}

struct ReadAheadRow {
    const char* name;
    std::vector<std::string> expected, taken;
};

const ReadAheadRow kReadAheadRows[] = {
    {"InOrder", {"a.dxf", "b.dxf", "c.dxf"}, {"a.dxf", "b.dxf", "c.dxf"}},
    {"Leaving some out", {"a.dxf", "b.dxf", "c.dxf"}, {"c.dxf"}},
    {"None", {}, {"a.dxf", "a.dxf"}},
    {"Others", {"b.dxf"}, {"a.dxf", "b.dxf", "a.dxf"}},
    {"Backwards", {"a.dxf", "b.dxf", "c.dxf"}, {"c.dxf", "b.dxf", "a.dxf"}},
    {"Twice", {"a.dxf", "a.dxf", "b.dxf"}, {"a.dxf", "a.dxf", "b.dxf"}},
};

TEST(ReadAhead, GivesWhatIsAskedForWhateverWasExpected)
{
    const TempFolder folder;
    for (const char* name : {"a.dxf", "b.dxf", "c.dxf"})
        (void)folder.Write(name, kGood);
    for (const ReadAheadRow& row : kReadAheadRows) {
        for (const std::size_t count : {0, 1, 2, 9}) {
            std::vector<std::string> paths;
            for (const std::string& name : row.expected)
                paths.push_back(folder.Path(name));
            ReadAhead ahead(paths, count);
            for (const std::string& name : row.taken)
                EXPECT_EQ(Came(ahead, folder.Path(name)), folder.Path(name)) << row.name << " " << count;
        }
    }
}

TEST(ReadAhead, TellsWhatIsWrongWhenItIsAskedFor)
{
    const TempFolder folder;
    (void)folder.Write("empty.dxf", "");
    (void)folder.Write("good.dxf", kGood);
    for (const std::size_t count : {0, 3}) {
        ReadAhead ahead({folder.Path("empty.dxf"), folder.Path("none.dxf"), folder.Path("good.dxf")}, count);
        EXPECT_EQ(Came(ahead, folder.Path("empty.dxf")),
                  folder.Path("empty.dxf") + ": the file is empty; save the drawing again");
        EXPECT_EQ(Came(ahead, folder.Path("none.dxf")),
                  folder.Path("none.dxf") + ": there is no such file; check the name");
        EXPECT_EQ(Came(ahead, folder.Path("good.dxf")), folder.Path("good.dxf"));
    }
}

/// A drawing that is read ahead is read as it was then.
TEST(ReadAhead, ReadsBeforeItIsAsked)
{
    const TempFolder folder;
    for (const bool isAhead : {true, false}) {
        (void)folder.Write("a.dxf", kGood);
        (void)folder.Write("b.dxf", kGood);
        ReadAhead ahead({folder.Path("a.dxf"), folder.Path("b.dxf")}, isAhead ? 2 : 0);
        EXPECT_EQ(Came(ahead, folder.Path("a.dxf")), folder.Path("a.dxf"));
        std::this_thread::sleep_for(std::chrono::milliseconds(500));
        std::filesystem::remove(folder.Path("b.dxf"));
        EXPECT_EQ(Came(ahead, folder.Path("b.dxf")) == folder.Path("b.dxf"), isAhead);
    }
}

} // namespace
} // namespace sm::drawing::testing
