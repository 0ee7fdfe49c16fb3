// SPDX-License-Identifier: GPL-3.0-or-later
// "page-setup": the user's global page setup, and a drawing's own.
#include "app/ScreenStand.h"

#include <gmock/gmock.h>

namespace sm::app {
namespace {

using PageSetupDialog = ScreenStand;

TEST_F(PageSetupDialog, WithoutADrawingItIsTheGlobalOne)
{
    toolkit.When("frmPageSetup", [](FormDriver& user) {
        EXPECT_EQ(user.Title(), "Global Page Setup");
        user.Choose("cmbPaperSize", "ISO A3 (420.00 x 297.00 MM)");
        user.Click("btnOK");
    });
    EXPECT_EQ(PageSetup({}), 0);
    EXPECT_EQ(out.str(),
              "The global page setup was kept; \"sheetmaker convert DRAWING --page-setup global\" plots with it\n");
    EXPECT_EQ(Shell({"get", "CanonicalMediaName"}), "ISO_A3_(420.00_x_297.00_MM)\n");
    EXPECT_EQ(err.str(), "");
}

TEST_F(PageSetupDialog, OfADrawingListsItsStyleTablesAndIsKeptInIt)
{
    toolkit.When("frmPageSetup", [](FormDriver& user) {
        EXPECT_EQ(user.Title(), "Drawing Page Setup");
        user.Choose("cmbPlotStyle", "monochrome.ctb");
        user.Click("btnOK");
    });
    EXPECT_EQ(PageSetup(drawing), 0);
    EXPECT_EQ(Short(out.str()),
              "house.dxf: the page setup was kept; \"sheetmaker convert DRAWING --page-setup custom\" "
              "plots with it\n");
    EXPECT_EQ(Contents(drawing + ".bak"), before);
    toolkit.When("frmPageSetup", [](FormDriver& user) {
        EXPECT_EQ(user.Text("cmbPlotStyle"), "monochrome.ctb");
        user.Click("btnCancel");
    });
    const std::string kept = Contents(drawing);
    EXPECT_EQ(PageSetup(drawing), 0);
    EXPECT_EQ(Contents(drawing), kept);
}

TEST_F(PageSetupDialog, CancelKeepsNothing)
{
    const std::string settings = Shell({"list"});
    toolkit.Whenever("frmPageSetup", [](FormDriver& user) {
        user.Choose("cmbPaperSize", "ISO A3 (420.00 x 297.00 MM)");
        user.Click("btnCancel");
    });
    EXPECT_EQ(PageSetup({}), 0);
    EXPECT_EQ(PageSetup(drawing), 0);
    EXPECT_EQ(Shell({"list"}), settings);
    EXPECT_EQ(Contents(drawing), before);
    EXPECT_EQ(out.str() + err.str(), "");
}

TEST_F(PageSetupDialog, SettingsThatCantBeWrittenAreTold)
{
    machine.MakeFile("home/.config", "a file where the folder should be"); // nobody gets past it, root included
    toolkit.When("frmPageSetup", [](FormDriver& user) {
        user.Choose("cmbPaperSize", "ISO A3 (420.00 x 297.00 MM)");
        user.Click("btnOK");
    });
    EXPECT_EQ(PageSetup({}), 1);
    EXPECT_EQ(out.str(), "");
    EXPECT_THAT(Short(err.str()),
                testing::EndsWith("sheetmaker page-setup: the global page setup was not kept: the setting "
                                  "CanonicalMediaName could not be stored\n"));
}

TEST_F(PageSetupDialog, ADrawingThatIsNotThereIsTold)
{
    hasTerminal = false;
    EXPECT_EQ(PageSetup(machine.In("nothing.dxf")), 1);
    EXPECT_EQ(desktop.TakeMessages().size(), 1U);
    EXPECT_EQ(Short(err.str()).substr(0, 34), "sheetmaker page-setup: nothing.dxf");
}

} // namespace
} // namespace sm::app
