// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/SettingsStand.h"

namespace sm {
namespace {

class StampTab : public SettingsForms {
protected:
    bool Set() { return SetStampTab(gui.Stamp(), keg); }
    bool Save() { return SaveStampTab(gui.Stamp(), keg); }
};

const std::vector<std::string> kTagged = {"btnStampEdit",  "lblStampFont",    "cmbStampFont",    "lblStampSize",
                                          "cmbStampSize",  "lblStampJustify", "cmbStampJustify", "lblStampColor",
                                          "btnStampColor", "lblStampLayout",  "cmbStampLayout",  "lblStampX",
                                          "txtStampX",     "lblStampY",       "txtStampY",       "btnStampPoints"};

TEST_F(StampTab, ShowsTheStampOfTheDrawing)
{
    keg.Stamps[7] = "PRELIMINARY - &[User] - &[Date]";
    Entry().Stamp = {0x3366CC, "Times-Bold", 7, 2, "Upper", 1.239, -5, 36};
    ASSERT_TRUE(Set());
    EXPECT_EQ(user.Items("cmbStampText").size(), 16U);
    EXPECT_EQ(user.Text("cmbStampText"), "PRELIMINARY - JS - 03/14/2026");
    EXPECT_EQ(user.Items("lstStampText")[7], "PRELIMINARY - &[User] - &[Date]");
    EXPECT_FALSE(user.IsVisible("lstStampText"));
    EXPECT_EQ(user.Text("cmbStampFont"), "Times-Bold");
    EXPECT_EQ(user.Text("cmbStampSize"), "36");
    EXPECT_EQ(user.Text("cmbStampJustify"), "Right");
    EXPECT_EQ(user.Text("txtStampX"), "1.24");
    EXPECT_EQ(user.Text("txtStampY"), "-5.00");
    EXPECT_EQ(user.Back("btnStampColor"), "#cc6633");
    EXPECT_EQ(user.Items("cmbStampLayout"), (Texts{"All Layouts", "Model", "Ground", "Upper"}));
    EXPECT_EQ(user.Text("cmbStampLayout"), "Upper");
}

TEST_F(StampTab, OffersFontsSizesAndJustifications)
{
    EXPECT_EQ(user.Items("cmbStampFont"),
              (Texts{"Courier", "Courier-Bold", "Courier-Oblique", "Courier-BoldOblique", "Helvetica", "Helvetica-Bold",
                     "Helvetica-Oblique", "Helvetica-BoldOblique", "Times-Roman", "Times-Bold", "Times-Italic",
                     "Times-BoldItalic", "Symbol", "ZapfDingbats"}));
    EXPECT_EQ(user.Items("cmbStampSize"),
              (Texts{"8", "10", "12", "14", "16", "18", "20", "24", "28", "32", "36", "40", "44", "48"}));
    EXPECT_EQ(user.Items("cmbStampJustify"), (Texts{"Left", "Center", "Right"}));
}

TEST_F(StampTab, ANewStampGoesOnAllLayouts)
{
    ASSERT_TRUE(Set());
    EXPECT_EQ(user.Text("cmbStampText"), "(NONE)");
    EXPECT_EQ(user.Text("cmbStampFont"), "Helvetica");
    EXPECT_EQ(user.Text("cmbStampSize"), "24");
    EXPECT_EQ(user.Text("cmbStampJustify"), "Left");
    EXPECT_EQ(user.Text("cmbStampLayout"), "All Layouts");
    EXPECT_EQ(user.Back("btnStampColor"), "#ff0000");
}

TEST_F(StampTab, TheFirstTextTurnsTheStampOff)
{
    ASSERT_TRUE(Set());
    EXPECT_EQ(gui.Tagged("TextStamp"), kTagged);
    for (const bool on : {false, true, false}) {
        user.ChooseAt("cmbStampText", on ? 3 : 0);
        for (const std::string& name : kTagged)
            EXPECT_EQ(user.IsEnabled(name), on) << name;
        for (const char* name :
             {"cmbStampFont", "cmbStampSize", "cmbStampJustify", "cmbStampLayout", "txtStampX", "txtStampY"})
            EXPECT_EQ(user.Back(name), on ? "window" : "face") << name;
        EXPECT_EQ(user.Mask("btnStampColor"), on ? "window" : "face");
        EXPECT_EQ(user.Back("btnStampColor"), "#ff0000") << "the stamp's colour stays";
        EXPECT_TRUE(user.IsEnabled("cmbStampText"));
        EXPECT_TRUE(user.IsEnabled("lblStamp"));
    }
    gui.TextStampOn();
    EXPECT_TRUE(user.IsEnabled("txtStampX"));
    gui.TextStampOff();
    EXPECT_FALSE(user.IsEnabled("txtStampX"));
}

TEST_F(StampTab, ExpandsMacrosForTheEyeAlone)
{
    const struct {
        const char* raw;
        const char* shown;
    } rows[] = {{"&[Date]", "03/14/2026"},
                {"&[Time]", "3:09:26 PM"},
                {"&[mm]-&[dd]-&[yyyy]", "03-14-2026"},
                {"&[User]", "JS"},
                {"&[File]", "A1.DWG"},
                {"&[Path]", "C:\\JOBS"},
                {"&[date]", "&[date]"},
                {"by &[User] &[User]", "by JS JS"}};
    ASSERT_TRUE(Set());
    for (const auto& row : rows) {
        gui.AddStampText(row.raw);
        EXPECT_EQ(user.Items("cmbStampText").back(), row.shown);
        EXPECT_EQ(user.Items("lstStampText").back(), row.raw);
    }
    gui.AddStampText("&[User]!", 2);
    EXPECT_EQ(user.Items("cmbStampText")[2], "JS!");
    EXPECT_EQ(user.Items("lstStampText")[2], "&[User]!");
    EXPECT_EQ(user.Items("cmbStampText").size(), 24U);
}

TEST_F(StampTab, EveryMacroButtonInsertsAtTheCaret)
{
    keg.Stamps[3] = "ab";
    ASSERT_TRUE(Set());
    user.ChooseAt("cmbStampText", 3);
    toolkit.When("frmCustomStamp", [](FormDriver& it) {
        EXPECT_EQ(it.Title(), "Customize Text Stamps");
        EXPECT_EQ(it.Caption("lblInsert"), "Insert:");
        EXPECT_EQ(it.Text("txtCustomStamp"), "ab");
        EXPECT_EQ(it.Control("txtCustomStamp").caret, 2U);
        it.MoveCaret("txtCustomStamp", 1);
        for (const char* button :
             {"btnUser", "btnFile", "btnPath", "btnTime", "btnDate", "btnDay", "btnMonth", "btnYear"})
            it.Click(button);
        EXPECT_EQ(it.Text("txtCustomStamp"), "a&[User]&[File]&[Path]&[Time]&[Date]&[dd]&[mm]&[yyyy]b");
        it.Type("txtCustomStamp", "FOR &[User]");
        it.Click("btnOk");
    });
    user.Click("btnStampEdit");
    EXPECT_EQ(user.Text("cmbStampText"), "FOR JS");
    EXPECT_EQ(user.Items("lstStampText")[3], "FOR &[User]");
    EXPECT_EQ(user.Items("cmbStampText").size(), 16U);
    ASSERT_TRUE(Save());
    EXPECT_EQ(keg.Stamps[3], "FOR &[User]");
}

TEST_F(StampTab, ACancelledTextIsDiscarded)
{
    ASSERT_TRUE(Set());
    user.ChooseAt("cmbStampText", 3);
    const std::function<void(FormDriver&)> ways[] = {[](FormDriver& it) { it.Click("btnCancel"); },
                                                     [](FormDriver& it) { it.Close(); }};
    for (const auto& leave : ways) {
        toolkit.When("frmCustomStamp", [&](FormDriver& it) {
            it.Type("txtCustomStamp", "lost");
            leave(it);
        });
        user.Click("btnStampEdit");
        EXPECT_EQ(user.Items("lstStampText")[3], "Text 3");
    }
    gui.TextStampOn();
    gui.Select("cmbStampText", kNothingSelected);
    user.Click("btnStampEdit");
    EXPECT_EQ(toolkit.events.size(), 4U) << "there is no text to edit";
}

TEST_F(StampTab, TheColourButtonAsksForAColour)
{
    Entry().Stamp.StampIndex = 1;
    ASSERT_TRUE(Set());
    user.Click("btnStampColor");
    EXPECT_EQ(user.Back("btnStampColor"), "#ff0000") << "a cancelled dialog changes nothing";
    desktop.colorChosen = 0x00FF00;
    user.Click("btnStampColor");
    EXPECT_EQ(user.Back("btnStampColor"), "#00ff00");
    EXPECT_EQ(desktop.calls, (Texts{"AskColor 255", "AskColor 255"}));
    ASSERT_TRUE(Save());
    EXPECT_EQ(Entry().Stamp.Color, 0x00FF00);
}

TEST_F(StampTab, SavesWhatIsShown)
{
    Entry().Stamp.StampIndex = 1;
    ASSERT_TRUE(Set());
    user.ChooseAt("cmbStampText", 5);
    user.Choose("cmbStampFont", "Symbol");
    user.Choose("cmbStampSize", "8");
    user.Choose("cmbStampJustify", "Center");
    user.Choose("cmbStampLayout", "Ground");
    for (const char* box : {"txtStampX", "txtStampY"}) {
        user.TypeAndLeave(box, "1.005");
        EXPECT_EQ(user.Text(box), "1.01");
        user.Type(box, "2");
        EXPECT_TRUE(user.Enter(box));
        EXPECT_EQ(user.Text(box), "2.00");
    }
    user.Type("txtStampX", "3.5 m");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Entry().Stamp, (StampSettings{255, "Symbol", 5, 1, "Ground", 3.5, 2, 8}));
    EXPECT_EQ(keg.Stamps[0], "(NONE)");
    EXPECT_EQ(keg.Stamps[15], "Text 15");
}

TEST_F(StampTab, KeepsWhatItsListsDontOffer)
{
    Entry().Stamp = {1, "Corporate-Sans", 99, 7, "Deleted sheet", 0, 0, 30};
    const StampSettings before = Entry().Stamp;
    ASSERT_TRUE(Set());
    EXPECT_EQ(user.Text("cmbStampText"), "(none)");
    EXPECT_EQ(user.Text("cmbStampLayout"), "(none)");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Entry().Stamp, before);
}

TEST_F(StampTab, LayoutsStandInTheOrderOfTheirTabs)
{
    drawing->Layouts = {upper, model, ground};
    ASSERT_TRUE(Set());
    EXPECT_EQ(user.Items("cmbStampLayout"), (Texts{"All Layouts", "Model", "Ground", "Upper"}));
}

TEST_F(StampTab, FillingTwiceShowsEachTextOnce)
{
    ASSERT_TRUE(Set());
    ASSERT_TRUE(Set());
    EXPECT_EQ(user.Items("cmbStampText").size(), 16U);
    EXPECT_EQ(user.Items("lstStampText").size(), 16U);
}

TEST_F(StampTab, FailuresAreLogged)
{
    host.tape.FailCall("Layouts.Count", "Automation error");
    EXPECT_FALSE(Set());
    EXPECT_EQ(Log(), (Lines{"RUNTIME ERROR: SetStampTab -Automation error"}));
    keg.Layouts.clear();
    EXPECT_FALSE(Set());
    EXPECT_FALSE(Save());
    EXPECT_EQ(Log(), (Lines{"RUNTIME ERROR: SetStampTab -The drawing's settings hold no layout.",
                            "RUNTIME ERROR: SaveStampTab -The drawing's settings hold no layout."}));
}

} // namespace
} // namespace sm
