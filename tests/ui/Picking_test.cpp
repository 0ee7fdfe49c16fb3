// SPDX-License-Identifier: GPL-3.0-or-later
// Picking in the drawing from the settings dialog.
#include "ui/ShowStand.h"

namespace sm {
namespace {

class Picks : public ShowSettings {};

TEST_F(Picks, APlotWindowIsChosen)
{
    Store("PltSel", {"1"});
    drawing->PointsPicked = {{30, 5, 0}, {10, 25, 0}};
    drawing->WindowState = 2;
    toolkit.When("frmGUITap", [](FormDriver& it) {
        EXPECT_FALSE(it.IsEnabled("optWindow"));
        it.Tick("chkFileName", false);
        it.Click("btnWindowPoints");
    });
    toolkit.When("frmGUITap", [](FormDriver& it) {
        EXPECT_TRUE(it.IsEnabled("optWindow"));
        EXPECT_TRUE(it.IsTicked("optWindow"));
        EXPECT_FALSE(it.IsTicked("chkFileName")) << "edits made before the pick are kept";
        it.Click("btnOK");
    });
    EXPECT_EQ(Show(), 0);
    const Texts plots = Record("Plots");
    EXPECT_EQ(plots[6], "4");
    EXPECT_EQ((Texts{plots[23], plots[24], plots[25], plots[26]}), (Texts{"30", "5", "10", "25"}))
        << "in the order picked";
    EXPECT_EQ(host.tape.CallsOf("Utility."),
              (Lines{"Utility.GetPoint Enter First Corner: ", "Utility.GetCorner 30,5,0 Enter Other Corner: "}));
    EXPECT_EQ(drawing->WindowState, 1) << "a drawing put away comes forward";
    EXPECT_EQ(toolkit.events, (Texts{"show frmGUITap", "hide frmGUITap", "show frmGUITap", "hide frmGUITap"}));
    ExpectLog();
}

TEST_F(Picks, AWindowWithoutWidthOrHeightChoosesNothing)
{
    Store("PltSel", {"1"});
    for (const AcadPoint& other : {AcadPoint{1, 9, 0}, AcadPoint{9, 2, 0}}) {
        drawing->PointsPicked = {{1, 2, 0}, other};
        toolkit.When("frmGUITap", [](FormDriver& it) { it.Click("btnWindowPoints"); });
        toolkit.When("frmGUITap", [](FormDriver& it) {
            EXPECT_FALSE(it.IsEnabled("optWindow"));
            EXPECT_TRUE(it.IsTicked("optExtents"));
            it.Click("btnCancel");
        });
        EXPECT_EQ(Show(), 0);
    }
    EXPECT_EQ(Log().size(), 2U);
}

TEST_F(Picks, AStampPointIsTaken)
{
    drawing->PointsPicked = {{1.239, -2, 7}};
    toolkit.When("frmGUITap", [&](FormDriver& it) {
        it.ChooseAt("cmbStampText", 1);
        drawing->ActiveLayout = upper; // the user turns to another sheet to pick there
        it.Click("btnStampPoints");
    });
    toolkit.When("frmGUITap", [](FormDriver& it) {
        EXPECT_EQ(it.Text("txtStampX"), "1.24");
        EXPECT_EQ(it.Text("txtStampY"), "-2.00");
        EXPECT_EQ(it.Text("cmbStampLayout"), "Upper");
        it.Click("btnOK");
    });
    EXPECT_EQ(Show(), 0);
    EXPECT_EQ(host.tape.CallsOf("Utility."), (Lines{"Utility.GetPoint Enter a point: "}));
    EXPECT_EQ(Record("Stamp")[8], "Upper");
    ExpectLog();
}

TEST_F(Picks, ALayoutThatTheListDoesntHoldIsLeftUnchosen)
{
    drawing->PointsPicked = {{1, 2, 0}};
    toolkit.When("frmGUITap", [&](FormDriver& it) {
        it.ChooseAt("cmbStampText", 1);
        LayoutFacts added;
        added.Name = "New";
        drawing->ActiveLayout = drawing->AddLayout(added);
        it.Click("btnStampPoints");
    });
    toolkit.When("frmGUITap", [](FormDriver& it) {
        EXPECT_EQ(it.Text("cmbStampLayout"), "All Layouts");
        EXPECT_EQ(it.Text("txtStampX"), "1.00");
        it.Click("btnCancel");
    });
    EXPECT_EQ(Show(), 0);
    ExpectLog();
}

TEST_F(Picks, AnAttachmentPointIsTakenAndItsDialogComesBack)
{
    drawing->PointsPicked = {{3, 4, 0}};
    toolkit.When("frmGUITap", [](FormDriver& it) { it.Click("btnAttachAdd"); });
    toolkit.When("frmAttach", [](FormDriver& it) {
        it.Type("txtAttachFile", "C:\\a.txt");
        it.Choose("cmbAttachLayout", "Model");
        it.Click("btnAttachPoints");
    });
    toolkit.When("frmAttach", [](FormDriver& it) {
        EXPECT_EQ(it.Text("txtAttachFile"), "C:\\a.txt");
        EXPECT_EQ(it.Text("cmbAttachLayout"), "Ground") << "the layout that the point was picked in";
        EXPECT_EQ(it.Text("txtAttachX"), "3.00");
        EXPECT_EQ(it.Text("txtAttachY"), "4.00");
        it.Click("btnOK");
    });
    toolkit.When("frmGUITap", [](FormDriver& it) { it.Click("btnOK"); });
    EXPECT_EQ(Show(), 0);
    EXPECT_EQ(Record("Attachs"), (Texts{"TWSI_Attachs", "a.txt", "C:\\a.txt", "3", "4", "Ground"}));
    EXPECT_EQ(toolkit.events, (Texts{"show frmGUITap", "show frmAttach", "hide frmAttach", "hide frmGUITap",
                                     "show frmGUITap", "show frmAttach", "hide frmAttach", "hide frmGUITap"}));
    ExpectLog();
}

TEST_F(Picks, ASignatureRectangleIsTakenAsPicked)
{
    drawing->PointsPicked = {{5, 6, 0}, {1, 2, 0}, {7, 8, 0}, {9, 10, 0}};
    toolkit.When("frmGUITap", [](FormDriver& it) { it.Click("btnDigSigAdd"); });
    toolkit.When("frmDigSig", [](FormDriver& it) {
        it.Type("txtDigSigName", "Client");
        it.Click("btnDigSigPoints");
    });
    toolkit.When("frmDigSig", [](FormDriver& it) {
        EXPECT_EQ(it.Text("txtDigSigX1"), "5.00");
        EXPECT_EQ(it.Text("txtDigSigY1"), "6.00");
        EXPECT_EQ(it.Text("txtDigSigX2"), "1.00");
        EXPECT_EQ(it.Text("txtDigSigY2"), "2.00");
        it.Click("btnDigSigPoints"); // once more
    });
    toolkit.When("frmDigSig", [](FormDriver& it) {
        EXPECT_EQ(it.Text("txtDigSigX1"), "7.00");
        EXPECT_EQ(it.Text("cmbDigSigLayout"), "Ground");
        it.Click("btnOK");
    });
    toolkit.When("frmGUITap", [](FormDriver& it) { it.Click("btnOK"); });
    EXPECT_EQ(Show(), 0);
    EXPECT_EQ(Record("DigSigs"), (Texts{"TWSI_DigSigs", "Client", "", "7", "8", "9", "10", "Ground"}));
    ExpectLog();
}

TEST_F(Picks, ACancelledPickShowsEverythingUnchanged)
{
    drawing->PointsPicked = {};
    Store("PltSel", {"1"});
    toolkit.When("frmGUITap", [](FormDriver& it) { it.Click("btnWindowPoints"); });
    toolkit.When("frmGUITap", [](FormDriver& it) {
        EXPECT_FALSE(it.IsEnabled("optWindow"));
        it.ChooseAt("cmbStampText", 1);
        it.TypeAndLeave("txtStampX", "4");
        it.Click("btnStampPoints");
    });
    toolkit.When("frmGUITap", [](FormDriver& it) {
        EXPECT_EQ(it.Text("txtStampX"), "4.00");
        EXPECT_EQ(it.Text("cmbStampLayout"), "All Layouts");
        it.Click("btnAttachAdd");
    });
    toolkit.When("frmAttach", [](FormDriver& it) {
        it.Type("txtAttachFile", "kept.txt");
        it.Click("btnAttachPoints");
    });
    toolkit.When("frmAttach", [](FormDriver& it) {
        EXPECT_EQ(it.Text("txtAttachFile"), "kept.txt");
        EXPECT_EQ(it.Text("txtAttachX"), "0.00");
        it.Click("btnCancel");
    });
    toolkit.When("frmGUITap", [](FormDriver& it) { it.Click("btnDigSigAdd"); });
    toolkit.When("frmDigSig", [](FormDriver& it) { it.Click("btnDigSigPoints"); });
    toolkit.When("frmDigSig", [](FormDriver& it) {
        EXPECT_EQ(it.Text("txtDigSigX1"), "0.00");
        it.Close();
    });
    toolkit.When("frmGUITap", [](FormDriver& it) { it.Click("btnCancel"); });
    EXPECT_EQ(Show(), 0);
    EXPECT_EQ(Record("Plots"), (Texts{"(absent)"}));
    EXPECT_EQ(Messages(), std::vector<Message>{});
    ExpectLog();
}

TEST_F(Picks, CancelAfterAPickDiscardsThePoint)
{
    drawing->PointsPicked = {{3, 4, 0}};
    toolkit.When("frmGUITap", [](FormDriver& it) {
        it.ChooseAt("cmbStampText", 1);
        it.Click("btnStampPoints");
    });
    toolkit.When("frmGUITap", [](FormDriver& it) { it.Click("btnCancel"); });
    EXPECT_EQ(Show(), 0);
    ExpectNothingStored();
    ExpectLog();
}

} // namespace
} // namespace sm
