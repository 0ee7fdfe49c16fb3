// SPDX-License-Identifier: GPL-3.0-or-later
// Marks changed in the drawing's window, and saved as the commands for single marks save them.
#include "app/ScreenStand.h"
#include "records/MarkBoard.h"

#include <gmock/gmock.h>

namespace sm::app {
namespace {

using testing::HasSubstr;

constexpr const char* kLayout = "A-101 Ground Floor";

class MarksOfHouse : public ScreenStand {
protected:
    void SetUp() override
    {
        ScreenStand::SetUp();
        notes = machine.MakeFile("notes.txt", "x");
        Shell({"stamp", drawing, "add", "--text", "FOR REVIEW", "--at", "100,50"});
        Shell({"attach", drawing, "add", notes, "--at", "10,10", "--layout", kLayout});
        Shell({"sign", drawing, "add", "Approval", "--rect", "10,10,60,30", "--layout", kLayout});
    }
    std::string notes;
    terminal::Console console{err, false};
};

TEST_F(MarksOfHouse, AreMovedEditedAndSavedWithTheFormerFileKept)
{
    {
        MarkBoard board(drawing, Here(), console);
        ASSERT_EQ(board.MarksOn(kLayout).size(), 3U);
        EXPECT_EQ(board.MarksOn(kLayout).front().text, "FOR REVIEW");
        EXPECT_EQ(board.MarksOn("A-102 Upper Floor").size(), 1U) << "the stamp is on all layouts";
        EXPECT_FALSE(board.IsChanged());
        EXPECT_EQ(board.Move(kLayout, 0, {5.004, -10}), "");
        EXPECT_EQ(board.Move(kLayout, 1, {1, 2}), "");
        EXPECT_EQ(board.Fields(kLayout, 2).front(), (beside::MarkField{"Title", "Approval"}));
        EXPECT_EQ(board.Change(kLayout, 2, {"Release", "By the engineer", "20", "20", "70", "40.5"}), "");
        EXPECT_TRUE(board.IsChanged());
        board.Save();
    }
    EXPECT_THAT(Shell({"stamp", drawing, "list"}), HasSubstr("105,40"));
    EXPECT_THAT(Shell({"attach", drawing, "list"}), HasSubstr("11,12"));
    EXPECT_THAT(Shell({"sign", drawing, "list"}),
                HasSubstr("signature field \"Release\", \"By the engineer\", 20,20,70,40.5 on A-101 Ground Floor"));
    EXPECT_TRUE(HasBackup());
}

TEST_F(MarksOfHouse, RefuseWhatCantStand)
{
    MarkBoard board(drawing, Here(), console);
    struct Row {
        const char* name;
        std::size_t mark;
        std::vector<std::string> values;
        std::string why;
    };
    const Row rows[] = {
        {"a comma", 0, {"1,5", "2", "24"}, "\"1,5\" is no number; the decimal sign is \".\"."},
        {"a size", 0, {"1", "2", "0"}, "The font size is a whole number of points from 1 to 1000."},
        {"a file", 1, {"/no/such/file", "1", "2"}, "There is no file /no/such/file."},
        {"a title", 2, {" ", "", "1", "2", "3", "4"}, "A signature field has a title."},
        {"an area", 2, {"A", "", "1", "2", "1", "4"}, "The rectangle has no area."},
        {"too few", 2, {"A"}, "There is no such mark any more."},
        {"no mark", 7, {}, "There is no such mark any more."},
    };
    for (const Row& row : rows)
        EXPECT_EQ(board.Change(kLayout, row.mark, row.values), row.why) << row.name;
    EXPECT_FALSE(board.IsChanged());
}

} // namespace
} // namespace sm::app
