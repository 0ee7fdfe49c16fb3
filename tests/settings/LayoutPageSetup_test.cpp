// SPDX-License-Identifier: GPL-3.0-or-later
#include "doubles/SettingsStand.h"
#include "settings/mdlDataKegIO.h"

namespace sm {
namespace {

class LayoutPageSetup : public SettingsStand {
protected:
    std::shared_ptr<DocumentFacts> facts = host.AddDocument(DocumentFacts());
    std::shared_ptr<LayoutFacts> sheet = facts->AddLayout(Sheet());
    std::shared_ptr<IAcadLayout> layout = host.Layout(sheet);

    static LayoutFacts Sheet()
    {
        LayoutFacts sheet;
        sheet.ConfigName = "Office.pc3";
        sheet.CanonicalMediaName = "ISO_A2_(594.00_x_420.00_MM)";
        sheet.StyleSheet = "Florida.ctb";
        sheet.PlotRotation = 2;
        sheet.PlotType = 3;
        sheet.ViewToPlot = "North";
        sheet.WindowLowerLeft = {1.5, 2.5, 0};
        sheet.WindowUpperRight = {3.5, 4.5, 0};
        sheet.CenterPlot = true;
        sheet.PlotOrigin = {5.5, 6.5, 0};
        sheet.PaperUnits = 2;
        sheet.UseStandardScale = false;
        sheet.StandardScale = 7;
        sheet.ScaleNumerator = 8.5;
        sheet.ScaleDenominator = 9.5;
        sheet.PlotWithPlotStyles = false;
        sheet.ShowPlotStyles = true;
        sheet.PlotHidden = true;
        sheet.PlotViewportBorders = true;
        sheet.PlotWithLineweights = false;
        sheet.ScaleLineweights = true;
        sheet.PlotViewportsFirst = false;
        sheet.PaperWidth = 594;
        sheet.PaperHeight = 420;
        return sheet;
    }
    static PageSetupRecord Expected()
    {
        PageSetupRecord record;
        record.ConfigName = "Office.pc3";
        record.CanonicalMediaName = "ISO_A2_(594.00_x_420.00_MM)";
        record.StyleSheet = "Florida.ctb";
        record.PlotRotation = 2;
        record.PlotType = 3;
        record.ViewToPlot = "North";
        record.WinLowerLeftX = 1.5;
        record.WinLowerLeftY = 2.5;
        record.WinUpperRightX = 3.5;
        record.WinUpperRightY = 4.5;
        record.CenterPlot = 1;
        record.PlotOriginX = 5.5;
        record.PlotOriginY = 6.5;
        record.PaperUnits = 2;
        record.UseStandardScale = 0;
        record.StandardScale = 7;
        record.ScaleNumer = 8.5;
        record.ScaleDenom = 9.5;
        record.PlotWithPlotStyles = 0;
        record.ShowPlotStyles = 1;
        record.PlotHidden = 1;
        record.PlotViewportBorders = 1;
        record.PlotWithLineweights = 0;
        record.ScaleLineWeights = 1;
        record.PlotViewportsFirst = 0;
        record.PaperWidth = 594;
        record.PaperHeight = 420;
        return record;
    }
};

TEST_F(LayoutPageSetup, TakesEveryFieldFromTheLayout)
{
    PageSetupRecord record;
    ASSERT_TRUE(ReadLayoutPageSetup(context, *layout, record));
    EXPECT_EQ(record.LocaleMedianame, layout->GetLocaleMediaName("ISO_A2_(594.00_x_420.00_MM)"));
    record.LocaleMedianame = "";
    EXPECT_EQ(record, Expected());
}

TEST_F(LayoutPageSetup, FailsAsAWholeWhenAnyFieldCannotBeRead)
{
    for (const char* operation :
         {"ConfigName",       "CanonicalMediaName",  "StyleSheet",          "PlotRotation",       "PlotType",
          "ViewToPlot",       "GetWindowToPlot",     "CenterPlot",          "PlotOrigin",         "PaperUnits",
          "UseStandardScale", "StandardScale",       "GetCustomScale",      "PlotWithPlotStyles", "ShowPlotStyles",
          "PlotHidden",       "PlotViewportBorders", "PlotWithLineweights", "ScaleLineweights",   "PlotViewportsFirst",
          "GetPaperSize"}) {
        host.tape.FailCall(std::string("Layout.") + operation, "No plot configuration");
        PageSetupRecord record;
        record.ViewToPlot = "as it was";
        const PageSetupRecord before = record;
        EXPECT_FALSE(ReadLayoutPageSetup(context, *layout, record)) << operation;
        EXPECT_EQ(record, before) << operation;
        host.tape.StopFailing();
    }
}

TEST_F(LayoutPageSetup, DoesWithoutTheDisplayNameOfAMediumThatIsGone)
{
    host.tape.FailCall("Layout.GetLocaleMediaName", "Unknown medium");
    PageSetupRecord record;
    EXPECT_TRUE(ReadLayoutPageSetup(context, *layout, record));
    EXPECT_EQ(record, Expected());
    EXPECT_EQ(observer.carriedPast, std::vector<std::string>({"ReadLayoutPageSetup: Unknown medium"}));
}

} // namespace
} // namespace sm
