// SPDX-License-Identifier: GPL-3.0-or-later
// How much a sheet may cost, and what a drawing that asks for more is drawn of.
#include "context/WorkBudget.h"
#include "render/SmallDrawing.h"

#include <gmock/gmock.h>

namespace sm::render {
namespace {

TEST(WorkBudget, EndsWithTheEntityThatIsTooMuch)
{
    WorkBudget budget(10);
    EXPECT_TRUE(budget.TakeEntities(9));
    EXPECT_FALSE(budget.IsSpent());
    EXPECT_FALSE(budget.TakeEntities(1));
    EXPECT_TRUE(budget.IsSpent());
    EXPECT_TRUE(budget.HasSteps());
}

TEST(WorkBudget, IsGrantedOnceForWhatIsShownOften)
{
    WorkBudget budget(10);
    const int reference = 0, other = 0;
    budget.Grant(&reference, 5);
    budget.Grant(&reference, 5);
    budget.Grant(&other, 5);
    EXPECT_TRUE(budget.TakeEntities(19));
    EXPECT_FALSE(budget.TakeEntities(1));
}

struct StepsRow {
    const char* name;
    bool inBlock;
    std::uint64_t steps, length; ///< of each entity
    std::uint64_t entities;      ///< that all steps are spent by; 0: never
    friend void PrintTo(const StepsRow& row, std::ostream* out) { *out << row.name; }
};

class Steps : public testing::TestWithParam<StepsRow> {};

TEST_P(Steps, AreSpentByBlocksAndByMuchOfLittle)
{
    constexpr std::uint64_t kMost = 100'000;
    WorkBudget budget(1);
    std::uint64_t spentBy = 0;
    const auto spend = [&] {
        for (std::uint64_t i = 1; i <= kMost && spentBy == 0; ++i) {
            spentBy = budget.TakeSteps(GetParam().steps, GetParam().length) ? 0 : i;
        }
    };
    if (GetParam().inBlock) {
        const WorkBudget::Inside inside(budget);
        spend();
    } else {
        spend();
    }
    EXPECT_EQ(spentBy, GetParam().entities);
    EXPECT_EQ(budget.HasSteps(), GetParam().entities == 0);
    EXPECT_TRUE(budget.HasSteps() || budget.TakeSteps(1, 1)); // told once
}

INSTANTIATE_TEST_SUITE_P(Rows, Steps,
                         testing::Values(StepsRow{"LinesOfASpace", false, 2, 200, 0},
                                         StepsRow{"LongPathsOfASpace", false, 10'000, 100'000, 0},
                                         StepsRow{"DenseHatchesOfASpace", false, 100'000, 400, 216},
                                         StepsRow{"LinesOfABlock", true, 2, 200, 0},
                                         StepsRow{"LongPathsOfABlock", true, 10'000, 100'000, 1925},
                                         StepsRow{"NothingButBytes", true, 0, 1'000'000, 5121}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(WorkBudget, LeavesOutTheRestOfASheetAndTellsIt)
{
    SmallDrawing drawing;
    drawing.blocks = "0 BLOCK | 8 0 | 2 A | 70 0 | 10 0 | 20 0 | 3 A | 0 LWPOLYLINE | 8 0 | 90 400 | 70 0";
    for (int i = 0; i < 400; ++i) {
        drawing.blocks += " | 10 " + std::to_string(i % 90) + " | 20 " + std::to_string(i % 80);
    }
    drawing.blocks += " | 0 ENDBLK | 8 0";
    for (int i = 0; i < 40; ++i) {
        drawing.entities += "0 INSERT | 8 0 | 2 A | 10 0 | 20 0 |";
    }
    drawing.entities += "0 LINE | 8 0 | 10 0 | 20 0 | 11 5 | 21 5";
    SmallScene look;
    look.expansion = 100; // ten thousand steps, 24 times the block
    const Drawn drawn = Render(drawing, look);
    // The inserts and what the block holds; the other inserts and the line.
    EXPECT_EQ(drawn.counts, "drawn 25 not drawn 17");
    EXPECT_THAT(drawn.remarks,
                testing::ElementsAre("entities unfold to more lines than a sheet can hold, the rest left out 1"));
}

} // namespace
} // namespace sm::render
