// SPDX-License-Identifier: GPL-3.0-or-later
#include "doubles/SettingsStand.h"
#include "plotting/PaperTable.h"

namespace sm {
namespace {

using testing::_;
using testing::InSequence;
using testing::Return;

class PickPageSizeTest : public SettingsStand {
protected:
    std::vector<PaperSize> table = {{"First", "first", 100, 200}, {"Second", "second", 300, 400}};
    PageSetupRecord record;
    const PageSetupRecord before = record;

    bool Pick(std::optional<std::int32_t> answer)
    {
        InSequence order;
        EXPECT_CALL(desktop, Beep());
        EXPECT_CALL(windows, PickPageSize(std::vector<std::string>({"First", "Second"}))).WillOnce(Return(answer));
        return PickPageSize(context, record, table);
    }
};

TEST_F(PickPageSizeTest, BeepsAndWritesTheNamesOfTheChosenRow)
{
    EXPECT_TRUE(Pick(1));
    PageSetupRecord expected = before;
    expected.CanonicalMediaName = "second";
    expected.LocaleMedianame = "Second";
    EXPECT_EQ(record, expected);
}

TEST_F(PickPageSizeTest, LeavesTheRecordWhenCancelled)
{
    EXPECT_FALSE(Pick(std::nullopt));
    EXPECT_EQ(record, before);
}

TEST_F(PickPageSizeTest, TakesNoAnswerThatIsNoRow)
{
    for (const std::int32_t answer : {-1, 2, 1000}) {
        EXPECT_FALSE(Pick(answer)) << answer;
        EXPECT_EQ(record, before) << answer;
    }
}

} // namespace
} // namespace sm
