// SPDX-License-Identifier: GPL-3.0-or-later
#include "hostobjects/cAcadPageSetup.h"

#include "doubles/RegistryNames.h"
#include "doubles/StoredRecords.h"
#include "settings/mdlDataKegIO.h"

namespace sm {
namespace {

using testing::Ref;
using testing::Return;

class PageSetupObject : public StoredRecords {
protected:
    PageSetupObject()
    {
        facts->ActiveLayout = facts->AddLayout(LayoutFacts());
        PageSetupRecord custom;
        custom.ViewToPlot = "Custom";
        WriteCustomPageSetup(context, *document, custom);
        registry.Put(kUser, kKey, "ViewToPlot", "Global");
        host.tape.calls.clear();
    }
    std::size_t Writes() { return host.tape.CallsWith("SetXData").size(); }

    std::shared_ptr<IAcadDocument> noDocument;
    cAcadPageSetup setup{surroundings};
};

TEST_F(PageSetupObject, BindsToTheDrawingsOrTheGlobalPageSetup)
{
    EXPECT_EQ(setup.Initialize(1, document), kTrue);
    EXPECT_EQ(setup.ViewToPlot(), "Custom");
    EXPECT_EQ(setup.Initialize(2, noDocument), kTrue);
    EXPECT_EQ(setup.ViewToPlot(), "Global");
    EXPECT_EQ(setup.Initialize(2, document), kTrue);
    EXPECT_EQ(setup.ViewToPlot(), "Global");
}

TEST_F(PageSetupObject, RefusesAnyOtherSource)
{
    EXPECT_EQ(setup.Initialize(2, noDocument), kTrue);
    for (const std::int32_t source : {0, 3, -1})
        EXPECT_EQ(setup.Initialize(source, document), kFalse) << source;
    EXPECT_EQ(setup.Initialize(1, noDocument), kFalse);
    EXPECT_EQ(setup.ViewToPlot(), "Global");
}

TEST_F(PageSetupObject, ADrawingWithoutARecordGivesTheDefaults)
{
    facts->XData.clear();
    EXPECT_EQ(setup.Initialize(1, document), kTrue);
    EXPECT_EQ(setup.Record(), PageSetupRecord());
    Store("Plots", Texts(26, "5"));
    EXPECT_EQ(setup.Initialize(1, document), kTrue);
    EXPECT_EQ(setup.Record(), PageSetupRecord());
}

TEST_F(PageSetupObject, AHostErrorAloneMakesInitializeFail)
{
    host.tape.FailCall("Dictionaries.GetXData", "Record is busy");
    EXPECT_EQ(setup.Initialize(1, document), kFalse);
    EXPECT_EQ(setup.Initialize(2, document), kTrue);
}

TEST_F(PageSetupObject, AGlobalPageSetupThatWasNeverSavedIsAnsiALandscape)
{
    registry.Put(kUser, kKey, "ViewToPlot", "");
    ASSERT_EQ(setup.Initialize(2, noDocument), kTrue);
    EXPECT_EQ(setup.CanonicalMediaName(), "ANSI_A_(11.00_x_8.50_Inches)");
    EXPECT_EQ(setup.LocaleMedianame(), "");
    EXPECT_EQ(setup.PaperWidth(), 279.4);
    EXPECT_EQ(setup.PaperHeight(), 215.9);
    EXPECT_EQ(setup.PlotType(), 1);
    EXPECT_EQ(setup.CenterPlot(), kTrue);
    EXPECT_EQ(setup.StandardScale(), 0);
    EXPECT_EQ(setup.UseStandardScale(), kTrue);
    EXPECT_EQ(setup.Record().ConfigName, "*TARNWICK*");
}

TEST_F(PageSetupObject, UpdateRightAfterInitializeWritesNothing)
{
    setup.Initialize(1, document);
    setup.Update();
    EXPECT_EQ(Writes(), 0u);
    setup.Initialize(2, noDocument);
    setup.Update();
    EXPECT_EQ(registry.ValueCount(kUser, kKey), 1u);
}

TEST_F(PageSetupObject, UpdateWritesAChangedRecordEachTime)
{
    setup.Initialize(1, document);
    setup.SetViewToPlot("South");
    setup.Update();
    EXPECT_EQ(Writes(), 1u);
    EXPECT_EQ(Stored("Plots")[27], "South");
    EXPECT_TRUE(setup.IsChanged()) << "until Initialize or Restore";
    setup.Update();
    EXPECT_EQ(Writes(), 2u);

    setup.Initialize(2, noDocument);
    setup.SetViewToPlot("West");
    setup.Update();
    EXPECT_EQ(registry.Text(kUser, kKey, "ViewToPlot"), "West");
    EXPECT_EQ(registry.ValueCount(kUser, kKey), 26u);
    EXPECT_EQ(Writes(), 2u);
}

TEST_F(PageSetupObject, AnUpdateThatWasLostIsRepeated)
{
    setup.Initialize(1, document);
    setup.SetViewToPlot("South");
    host.tape.FailCall("Dictionaries.SetXData", "drawing is read-only", 1);
    setup.Update();
    EXPECT_EQ(Stored("Plots")[27], "Custom");
    EXPECT_TRUE(setup.IsChanged());
    setup.Update();
    EXPECT_EQ(Stored("Plots")[27], "South");
    setup.Restore();
    EXPECT_FALSE(setup.IsChanged());
}

TEST_F(PageSetupObject, WithoutASourceHasNothingToWriteOrShow)
{
    setup.SetViewToPlot("South");
    setup.Update();
    setup.ShowPageSetup();
    EXPECT_TRUE(setup.IsChanged());
    EXPECT_EQ(Writes(), 0u);
    EXPECT_EQ(registry.ValueCount(kUser, kKey), 1u);
}

TEST_F(PageSetupObject, RestoreGoesBackToWhatInitializeRead)
{
    setup.Initialize(1, document);
    setup.SetViewToPlot("South");
    setup.Update();
    setup.SetPlotType(4);
    setup.Restore();
    EXPECT_EQ(setup.ViewToPlot(), "Custom");
    EXPECT_EQ(setup.PlotType(), 1);
    setup.Update();
    EXPECT_EQ(Stored("Plots")[27], "South");
}

TEST_F(PageSetupObject, ShowsTheGlobalPageSetupWithoutTheHost)
{
    setup.Initialize(2, noDocument);
    EXPECT_CALL(windows, ShowPageSetup(Ref(setup), "Global Page Setup")).WillOnce(Return(true));
    setup.ShowPageSetup();
    EXPECT_TRUE(host.tape.calls.empty());
}

TEST_F(PageSetupObject, ShowsTheDrawingsPageSetupWhenTheHostIsValid)
{
    setup.Initialize(1, document);
    EXPECT_CALL(windows, ShowPageSetup(Ref(setup), "Drawing Page Setup")).WillOnce([](IAcadPageSetup& shown, auto&) {
        shown.SetViewToPlot("Chosen");
        return true;
    });
    setup.ShowPageSetup();
    EXPECT_EQ(setup.ViewToPlot(), "Chosen");
    EXPECT_TRUE(setup.IsChanged());
}

TEST_F(PageSetupObject, ShowsTheMessageOfACorruptedHostInItsPlace)
{
    registry.Put(RegistryRoot::LocalMachine, kKey, "HelpFile", "C:\\Help\\acadsmpdf.hlp");
    const Message expected{
        "Certain AutoCAD functionality, which allows 3rd party plugins to operate, has been corrupted.\r\n"
        "This is typically caused by uninstalling AutoCAD 14 after installing AutoCAD 2000. The problem\r\n"
        "can be corrected by reinstalling AutoCAD 2000.",
        "Tarnwick Sheetmaker PDF",
        MessageButtons::Ok,
        MessageIcon::Critical,
        "C:\\Help\\acadsmpdf.hlp",
        390};
    setup.Initialize(1, document);
    EXPECT_CALL(desktop, ShowMessage(expected)).Times(2).WillRepeatedly(Return(MessageAnswer::Ok));
    facts->ActiveLayout = nullptr;
    setup.ShowPageSetup();
    host.tape.FailCall("Document.Application", "Host has gone");
    setup.ShowPageSetup();
}

TEST_F(PageSetupObject, SurvivesEveryFault)
{
    EXPECT_CALL(windows, ShowPageSetup).WillRepeatedly(Return(true));
    EXPECT_CALL(desktop, ShowMessage).WillRepeatedly(Return(MessageAnswer::Ok));
    for (const std::int32_t source : {1, 2}) {
        const auto operation = [&] {
            cAcadPageSetup object(context);
            object.Initialize(source, document);
            object.ShowPageSetup();
            object.SetPlotType(4);
            object.Update();
            object.Restore();
        };
        SweepFaults(operation, [&] {
            EXPECT_EQ(setup.Initialize(source, document), kTrue);
            setup.SetPlotType(2);
            setup.Update();
            EXPECT_EQ(setup.Initialize(source, document), kTrue);
            EXPECT_EQ(setup.PlotType(), 2);
        });
    }
}

} // namespace
} // namespace sm
