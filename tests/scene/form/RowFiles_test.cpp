// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene/RowFiles.h"

#include <gtest/gtest.h>

namespace sm::scene {
namespace {

/// How a user ends the form of each row, in turn: true keeps the row, false gives it up.
struct DroppedCase {
    const char* name;
    std::vector<std::string> dropped;
    std::vector<bool> kept;
    std::vector<std::string> asked; ///< files that became a row's answer
};

class DroppedOnAList : public testing::TestWithParam<DroppedCase> {};

TEST_P(DroppedOnAList, BecomeRowsInTurn)
{
    std::size_t rows = 2; // that stood there before
    RowFiles files;
    files.Begin(GetParam().dropped);
    std::vector<std::string> asked;
    while (const auto file = files.Next(rows)) {
        EXPECT_TRUE(files.IsAdding());
        rows += GetParam().kept.at(asked.size()) ? 1U : 0U;
        asked.push_back(*file);
        files.RowEnded(rows);
    }
    EXPECT_EQ(asked, GetParam().asked);
    EXPECT_FALSE(files.IsAdding());
}

INSTANTIATE_TEST_SUITE_P(All, DroppedOnAList,
                         testing::Values(DroppedCase{"none", {}, {}, {}},
                                         DroppedCase{"one", {"/a.txt"}, {true}, {"/a.txt"}},
                                         DroppedCase{"three", {"a", "b", "c"}, {true, true, true}, {"a", "b", "c"}},
                                         DroppedCase{"secondGivenUp", {"a", "b", "c"}, {true, false}, {"a", "b"}},
                                         DroppedCase{"firstGivenUp", {"a", "b"}, {false}, {"a"}}),
                         [](const auto& row) { return row.param.name; });

TEST(DroppedFiles, AreForgottenWithTheirForm)
{
    RowFiles files;
    files.Begin({"a", "b"});
    EXPECT_EQ(files.Next(0), "a");
    files.Forget();
    EXPECT_FALSE(files.IsAdding());
    EXPECT_EQ(files.Next(1), std::nullopt);
}

TEST(DroppedFiles, OfALaterDropReplaceThoseBefore)
{
    RowFiles files;
    files.Begin({"a", "b"});
    EXPECT_EQ(files.Next(0), "a");
    files.Begin({"c"});
    EXPECT_EQ(files.Next(1), "c");
    EXPECT_EQ(files.Next(2), std::nullopt);
}

} // namespace
} // namespace sm::scene
