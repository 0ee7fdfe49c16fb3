// SPDX-License-Identifier: GPL-3.0-or-later
#include "doubles/RegistryNames.h"
#include "doubles/StoredRecords.h"
#include "settings/mdlDataKegIO.h"

namespace sm {
namespace {

class SettingsBundle : public StoredRecords {
protected:
    SettingsBundle()
    {
        host.facts.Styles = {"acad.ctb", "monochrome.ctb"};
        sheet = facts->AddLayout(Sheet());
        facts->ActiveLayout = sheet;
        registry.Put(kUser, kKey, "Stamp2", "CHECKED");
        registry.Put(kUser, kKey, "WhatToPlot", "1");
        registry.Put(kUser, kKey, "TransferAttributes", "1");
        WritePlotSelection(context, *document, 1);
        Store("Stamp", {"2", "Courier", "36", "1", "5.5", "6.5", "0", "Ground floor"});
        Store("Attachs", {"A.txt", "C:\\A.txt", "1", "2", "Ground floor"});
        Store("DigSigs", {"Sig1", "Approver", "1", "2", "3", "4", "Ground floor"});
        PageSetupRecord custom;
        custom.ViewToPlot = "Custom";
        WriteCustomPageSetup(context, *document, custom);
        host.tape.calls.clear();
    }
    static LayoutFacts Sheet()
    {
        LayoutFacts facts;
        facts.Name = "Ground floor";
        facts.ViewToPlot = "Of the layout";
        return facts;
    }
    std::shared_ptr<LayoutFacts> sheet;
};

TEST_F(SettingsBundle, OfAConversionHoldsTheActiveLayoutAndItsAnnotations)
{
    DataKeg keg;
    ASSERT_TRUE(LoadForConversion(context, *document, keg));
    EXPECT_EQ(keg.LoginName, "R. Draughtsman");
    EXPECT_EQ(keg.LayoutCount, 1);
    EXPECT_EQ(keg.General.WhatToPlot, 1);
    EXPECT_EQ(keg.General.JobOptionsFile, "Graphics [600 dpi]");
    EXPECT_EQ(keg.General.Transfer, (TransferFlags{kFalse, kFalse, kFalse, kFalse, kTrue}));
    EXPECT_EQ(keg.PaperSizes.size(), 28u);
    EXPECT_EQ(keg.PlotStyles, Texts({"None", "acad.ctb", "monochrome.ctb"}));
    EXPECT_EQ(keg.Stamps[0], "(NONE)");
    EXPECT_EQ(keg.Stamps[2], "CHECKED");
    EXPECT_EQ(keg.PageSetupSelected, 0);
    ASSERT_EQ(keg.Layouts.size(), 1u);
    const LayoutSettings& entry = keg.Layouts[0];
    EXPECT_EQ(entry.DrawingFullName, "C:\\Jobs\\Plan.dwg");
    EXPECT_EQ(entry.LayoutName, "Ground floor");
    EXPECT_FALSE(entry.IsModelSpace);
    EXPECT_EQ(entry.PageSetup.ViewToPlot, "Of the layout");
    EXPECT_EQ(entry.Stamp, (StampSettings{0, "Courier", 2, 1, "Ground floor", 5.5, 6.5, 36}));
    EXPECT_EQ(entry.Attachments, (std::vector<AttachmentEntry>{{"C:\\A.txt", 1, 2, "Ground floor"}}));
    EXPECT_EQ(entry.SignatureFields,
              (std::vector<SignatureFieldEntry>{{"Sig1", "Approver", 1, 2, 3, 4, "Ground floor"}}));
    EXPECT_EQ(host.tape.CallsOf("Dictionaries."),
              Texts({"Dictionaries.GetXData TWSI_Stamp", "Dictionaries.GetXData TWSI_Attachs",
                     "Dictionaries.GetXData TWSI_DigSigs"}));
}

TEST_F(SettingsBundle, OfTheDialogHoldsThePageSetupRecordsAndNoSignatureFields)
{
    DataKeg keg;
    ASSERT_EQ(LoadForDialog(context, *document, keg), 0);
    EXPECT_EQ(keg.PageSetupSelected, 1);
    ASSERT_EQ(keg.Layouts.size(), 1u);
    EXPECT_EQ(keg.Layouts[0].PageSetup.ViewToPlot, "Custom");
    EXPECT_EQ(keg.Layouts[0].Stamp.FontName, "Courier");
    EXPECT_EQ(keg.Layouts[0].Attachments.size(), 1u);
    EXPECT_TRUE(keg.Layouts[0].SignatureFields.empty());
    EXPECT_EQ(host.tape.CallsOf("Dictionaries."),
              Texts({"Dictionaries.GetXData TWSI_PltSel", "Dictionaries.GetXData TWSI_Plots",
                     "Dictionaries.GetXData TWSI_Stamp", "Dictionaries.GetXData TWSI_Attachs"}));
}

TEST_F(SettingsBundle, OfADrawingWithoutRecordsHoldsTheDefaults)
{
    facts->XData.clear();
    DataKeg keg;
    ASSERT_EQ(LoadForDialog(context, *document, keg), 0);
    EXPECT_EQ(keg.PageSetupSelected, 0);
    EXPECT_EQ(keg.Layouts[0].PageSetup, PageSetupRecord());
    EXPECT_EQ(keg.Layouts[0].Stamp, (StampSettings{255, "Helvetica", 0, 0, "", 0, 0, 24}));
    EXPECT_TRUE(keg.Layouts[0].Attachments.empty());
    ASSERT_TRUE(LoadForConversion(context, *document, keg));
    EXPECT_TRUE(keg.Layouts[0].SignatureFields.empty());
}

TEST_F(SettingsBundle, MarksModelSpaceByTheNameOfTheBlockInAnyCase)
{
    const struct {
        const char* block;
        bool isModelSpace;
    } rows[] = {{"*Model_Space", true}, {"*MODEL_SPACE", true}, {"*Paper_Space", false}, {"Model_Space", false}};
    for (const auto& row : rows) {
        sheet->Block.Name = row.block;
        DataKeg keg;
        ASSERT_TRUE(LoadForConversion(context, *document, keg));
        EXPECT_EQ(keg.Layouts[0].IsModelSpace, row.isModelSpace) << row.block;
    }
}

TEST_F(SettingsBundle, CannotBeMadeWithoutTheActiveLayout)
{
    DataKeg keg;
    keg.LoginName = "as it was";
    for (const char* call : {"Document.ActiveLayout", "Layout.Name"}) {
        host.tape.FailCall(call, "No layout");
        EXPECT_FALSE(LoadForConversion(context, *document, keg)) << call;
        EXPECT_EQ(LoadForDialog(context, *document, keg), -1) << call;
        host.tape.StopFailing();
    }
    facts->ActiveLayout = nullptr;
    EXPECT_FALSE(LoadForConversion(context, *document, keg));
    EXPECT_EQ(LoadForDialog(context, *document, keg), -1);
    EXPECT_EQ(keg.LoginName, "as it was");
    EXPECT_TRUE(keg.Layouts.empty());
}

TEST_F(SettingsBundle, OfTheDialogNeedsTheLayoutsPlotSettings)
{
    host.tape.FailCall("Layout.ConfigName", "No plot configuration");
    DataKeg keg;
    EXPECT_EQ(LoadForDialog(context, *document, keg), -2);
    EXPECT_TRUE(keg.Layouts.empty());
    EXPECT_TRUE(LoadForConversion(context, *document, keg));
    EXPECT_EQ(keg.Layouts.size(), 1u);
}

TEST_F(SettingsBundle, OfTheDialogFailsWhenThePlotsRecordCannotBeRead)
{
    host.tape.FailCall("Dictionaries.GetXData", "Record is busy", 1, 1);
    DataKeg keg;
    EXPECT_EQ(LoadForDialog(context, *document, keg), -1);
}

TEST_F(SettingsBundle, DoesWithoutWhatItCanDoWithout)
{
    for (const char* call : {"Layout.RefreshPlotDeviceInfo", "Layout.GetPlotStyleTableNames", "Layout.Block",
                             "Document.FullName", "Document.GetVariable", "Dictionaries.GetXData"})
        host.tape.FailCall(call, "Out of order");
    DataKeg keg;
    ASSERT_TRUE(LoadForConversion(context, *document, keg));
    EXPECT_EQ(keg.LoginName, "");
    EXPECT_EQ(keg.PlotStyles, Texts({"None"}));
    EXPECT_EQ(keg.Layouts[0].DrawingFullName, "");
    EXPECT_FALSE(keg.Layouts[0].IsModelSpace);
    EXPECT_EQ(keg.Layouts[0].Stamp, StampSettings());
}

TEST_F(SettingsBundle, IsSavedToRegistryAndRecordsInOrder)
{
    DataKeg keg;
    ASSERT_EQ(LoadForDialog(context, *document, keg), 0);
    keg.General.WhatToPlot = 0;
    keg.General.JobOptionsFile = "Screen";
    keg.Stamps[3] = "MINE";
    keg.PageSetupSelected = 2;
    keg.Layouts[0].PageSetup.ViewToPlot = "Edited";
    keg.Layouts[0].Stamp.FontSize = 12;
    keg.Layouts[0].Attachments.clear();
    keg.Layouts[0].SignatureFields = {{"New", "Field", 1, 2, 3, 4, "Ground floor"}};
    host.tape.calls.clear();

    EXPECT_TRUE(SaveFromDialog(context, keg, *document));
    EXPECT_EQ(host.tape.CallsOf("Dictionaries."),
              Texts({"Dictionaries.SetXData TWSI_PltSel", "Dictionaries.SetXData TWSI_Plots",
                     "Dictionaries.SetXData TWSI_Stamp", "Dictionaries.SetXData TWSI_Attachs",
                     "Dictionaries.SetXData TWSI_DigSigs"}));
    EXPECT_EQ(registry.Text(kUser, kKey, "WhatToPlot"), "0");
    EXPECT_EQ(registry.Text(kUser, kKey, "JobOptionsFile"), "Screen");
    EXPECT_EQ(registry.Text(kUser, kKey, "Optimization"), "0");
    EXPECT_EQ(registry.Text(kUser, kKey, "Stamp3"), "MINE");
    EXPECT_EQ(Stored("PltSel"), Texts({"TWSI_PltSel", "2"}));
    EXPECT_EQ(Stored("Plots")[27], "Edited");
    EXPECT_EQ(Stored("Stamp")[3], "12");
    EXPECT_EQ(Stored("Attachs"), Texts({"TWSI_Attachs"}));
    EXPECT_EQ(Stored("DigSigs"), Texts({"TWSI_DigSigs", "New", "Field", "1", "2", "3", "4", "Ground floor"}));
}

TEST_F(SettingsBundle, SavingWhatTheDialogLoadedDropsTheSignatureFields)
{
    DataKeg keg;
    ASSERT_EQ(LoadForDialog(context, *document, keg), 0);
    EXPECT_TRUE(SaveFromDialog(context, keg, *document));
    EXPECT_EQ(Stored("DigSigs"), Texts({"TWSI_DigSigs"}));
}

TEST_F(SettingsBundle, WithoutALayoutIsNotSaved)
{
    EXPECT_FALSE(SaveFromDialog(context, DataKeg(), *document));
    EXPECT_TRUE(host.tape.CallsOf("Dictionaries.").empty());
}

TEST_F(SettingsBundle, OfAConversionSurvivesEveryFault)
{
    DataKeg keg;
    SweepFaults([&] { LoadForConversion(context, *document, keg); },
                [&] {
                    EXPECT_TRUE(LoadForConversion(context, *document, keg));
                    EXPECT_EQ(keg.Layouts.at(0).Stamp.FontName, "Courier");
                    EXPECT_EQ(keg.Layouts.at(0).SignatureFields.size(), 1u);
                });
}

TEST_F(SettingsBundle, OfTheDialogSurvivesEveryFault)
{
    DataKeg keg;
    SweepFaults([&] { LoadForDialog(context, *document, keg); },
                [&] {
                    EXPECT_EQ(LoadForDialog(context, *document, keg), 0);
                    EXPECT_EQ(keg.Layouts.at(0).PageSetup.ViewToPlot, "Custom");
                });
}

TEST_F(SettingsBundle, IsSavedWhateverFails)
{
    DataKeg keg;
    ASSERT_TRUE(LoadForConversion(context, *document, keg));
    SweepFaults([&] { EXPECT_TRUE(SaveFromDialog(context, keg, *document)); },
                [&] {
                    EXPECT_TRUE(SaveFromDialog(context, keg, *document));
                    EXPECT_EQ(Stored("Stamp")[2], "Courier");
                    EXPECT_EQ(registry.Text(kUser, kKey, "Stamp2"), "CHECKED");
                });
}

} // namespace
} // namespace sm
