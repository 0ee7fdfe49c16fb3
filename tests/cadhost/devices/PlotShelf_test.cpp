// SPDX-License-Identifier: GPL-3.0-or-later
#include "devices/PlotShelf.h"

#include "cadhost/HostFixture.h"

namespace sm::cadhost {
namespace {

using ::testing::ElementsAre;

class PlotShelfTest : public HostTest {
protected:
    /// The folder's time is set by hand: two changes may fall into one tick of the clock.
    void ChangedAfter(int seconds) const
    {
        std::filesystem::last_write_time(folder, std::filesystem::file_time_type() + std::chrono::seconds(seconds));
    }
    std::string Folder() const { return folder.string(); }
};

TEST_F(PlotShelfTest, ListsAFolderOnceInARunWithoutWindows)
{
    PlotShelf shelf;
    Write("b.CTB", "");
    Write("a.stb", "");
    Write("c.pc3", "");
    Write("c.txt", "");
    EXPECT_THAT(shelf.Styles(Folder()), ElementsAre("a.stb", "b.CTB"));
    EXPECT_THAT(shelf.Devices(Folder()), ElementsAre("c.pc3"));
    Write("new.ctb", "");
    ChangedAfter(5);
    EXPECT_THAT(shelf.Styles(Folder()), ElementsAre("a.stb", "b.CTB"));
}

TEST_F(PlotShelfTest, ListsAChangedFolderAgainBehindWindows)
{
    PlotShelf shelf(PlotShelf::Lists::Watched);
    Write("a.ctb", "");
    ChangedAfter(5);
    EXPECT_THAT(shelf.Styles(Folder()), ElementsAre("a.ctb"));
    Write("new.ctb", "");
    ChangedAfter(6);
    EXPECT_THAT(shelf.Styles(Folder()), ElementsAre("a.ctb", "new.ctb"));
}

TEST_F(PlotShelfTest, ReadsAPlotterOnce)
{
    PlotShelf shelf;
    const auto first = shelf.Device(kShare + "/PC3", "Tarnwick PS8 HighRes.pc3");
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->resolution, 1200);
    EXPECT_EQ(shelf.Device(kShare + "/PC3", "Tarnwick PS8 HighRes.pc3"), first);
    EXPECT_EQ(shelf.Device(kShare + "/PC3", "nobody's.pc3"), nullptr);
}

TEST_F(PlotShelfTest, HasNothingOfAFolderThatIsNotThere)
{
    PlotShelf shelf;
    EXPECT_THAT(shelf.Styles(Folder() + "/none"), ElementsAre());
    EXPECT_EQ(shelf.Device(Folder() + "/none", "a.pc3"), nullptr);
}

} // namespace
} // namespace sm::cadhost
