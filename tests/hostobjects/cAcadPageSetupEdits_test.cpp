// SPDX-License-Identifier: GPL-3.0-or-later
#include "doubles/RegistryNames.h"
#include "doubles/SettingsStand.h"
#include "hostobjects/cAcadPageSetup.h"

namespace sm {
namespace {

class PageSetupEdits : public SettingsStand {
protected:
    std::shared_ptr<IAcadDocument> noDocument;
    cAcadPageSetup setup{surroundings};
    PageSetupRecord expected;

    void SetUp() override { ASSERT_EQ(setup.Initialize(2, noDocument), kTrue); }
    void ExpectChangedTo(const PageSetupRecord& record)
    {
        EXPECT_EQ(setup.Record(), record);
        EXPECT_TRUE(setup.IsChanged());
    }
};

TEST_F(PageSetupEdits, StandardMediaTakesARowOfThePaperTable)
{
    setup.SetStandardMedia(18);
    expected.CanonicalMediaName = "ISO_A0_(1189.00_x_841.00_MM)";
    expected.LocaleMedianame = "ISO A0 (1189.00 x 841.00 MM)";
    expected.PaperWidth = 1189;
    expected.PaperHeight = 841;
    ExpectChangedTo(expected);
}

TEST_F(PageSetupEdits, StandardMediaOutsideTheTableLeavesTheRecord)
{
    for (const std::int32_t index : {-1, 28, 2147483647}) {
        setup.SetStandardMedia(index);
        ExpectChangedTo(expected);
    }
}

TEST_F(PageSetupEdits, CustomMediaKeepsTheNames)
{
    setup.SetCustomMedia(300.5, 500.25, 2);
    expected.PaperWidth = 300.5;
    expected.PaperHeight = 500.25;
    expected.PaperUnits = 2;
    ExpectChangedTo(expected);
}

TEST_F(PageSetupEdits, PlotAreaIsTypeWindowAndView)
{
    setup.SetPlotType(4);
    expected.PlotType = 4;
    ExpectChangedTo(expected);
    setup.SetWindowToPlot(1.5, 2.5, 3.5, 4.5);
    expected.WinLowerLeftX = 1.5;
    expected.WinLowerLeftY = 2.5;
    expected.WinUpperRightX = 3.5;
    expected.WinUpperRightY = 4.5;
    ExpectChangedTo(expected);
    setup.SetViewToPlot("North");
    expected.ViewToPlot = "North";
    ExpectChangedTo(expected);
}

TEST_F(PageSetupEdits, PlotStyleIsTheNameOfATable)
{
    setup.SetPlotStyle("monochrome.ctb");
    expected.StyleSheet = "monochrome.ctb";
    ExpectChangedTo(expected);
}

TEST_F(PageSetupEdits, PlotOffsetIsConvertedFromInchesOnly)
{
    setup.SetPlotOffset(kFalse, 1, -2, 0);
    expected.CenterPlot = 0;
    expected.PlotOriginX = 25.4;
    expected.PlotOriginY = -50.8;
    ExpectChangedTo(expected);
    for (const std::int32_t units : {1, 2}) {
        setup.SetPlotOffset(kTrue, 1.5, 2.5, units);
        expected.CenterPlot = 1;
        expected.PlotOriginX = 1.5;
        expected.PlotOriginY = 2.5;
        ExpectChangedTo(expected);
    }
}

TEST_F(PageSetupEdits, StandardScaleSwitchesTheCustomOneOff)
{
    setup.SetCustomScale(2.5, 0, std::nullopt);
    expected.ScaleNumer = 2.5;
    expected.ScaleDenom = 0;
    expected.UseStandardScale = 0;
    ExpectChangedTo(expected);
    setup.SetStandardScale(16);
    expected.StandardScale = 16;
    expected.UseStandardScale = 1;
    ExpectChangedTo(expected);
}

TEST_F(PageSetupEdits, CustomScaleKnowsMillimetresAndInchesOnly)
{
    const std::pair<std::int32_t, std::int32_t> rows[] = {{0, 0}, {1, 1}, {2, 0}, {-1, 0}, {7, 0}};
    for (const auto& [units, stored] : rows) {
        setup.SetCustomScale(1, 50, units);
        EXPECT_EQ(setup.PaperUnits(), stored) << units;
    }
    setup.SetCustomScale(1, 50, 1);
    setup.SetCustomScale(1, 100);
    EXPECT_EQ(setup.PaperUnits(), 1);
    EXPECT_EQ(setup.ScaleDenom(), 100);
    EXPECT_EQ(setup.UseStandardScale(), kFalse);
}

TEST_F(PageSetupEdits, PlotOptionsLeaveShownStylesAndViewportBordersAlone)
{
    const std::int32_t PageSetupRecord::*fields[] = {
        &PageSetupRecord::ScaleLineWeights, &PageSetupRecord::PlotWithLineweights, &PageSetupRecord::PlotWithPlotStyles,
        &PageSetupRecord::PlotViewportsFirst, &PageSetupRecord::PlotHidden};
    for (std::size_t on = 0; on < 5; ++on) {
        VariantBool flags[5] = {kFalse, kFalse, kFalse, kFalse, kFalse};
        flags[on] = kTrue;
        setup.SetPlotOptions(flags[0], flags[1], flags[2], flags[3], flags[4]);
        for (std::size_t i = 0; i < 5; ++i)
            EXPECT_EQ(setup.Record().*fields[i], i == on ? 1 : 0) << i << " with " << on << " on";
    }
    EXPECT_EQ(setup.ShowPlotStyles(), kTrue);
    EXPECT_EQ(setup.PlotViewportBorders(), kFalse);
    EXPECT_TRUE(setup.IsChanged());
}

/// Answers each property with a value of its own.
class OtherSetup : public cAcadPageSetup {
public:
    using cAcadPageSetup::cAcadPageSetup;
    double scaleNumer = 0, scaleDenom = 0;
    std::string CanonicalMediaName() override { return "medium"; }
    std::string LocaleMedianame() override { return "Medium"; }
    double PaperWidth() override { return 1.5; }
    double PaperHeight() override { return 2.5; }
    std::int32_t PlotRotation() override { return 3; }
    std::int32_t PlotType() override { return 4; }
    VariantBool CenterPlot() override { return kFalse; }
    double PlotOriginX() override { return 5.5; }
    double PlotOriginY() override { return 6.5; }
    VariantBool UseStandardScale() override { return kFalse; }
    std::int32_t StandardScale() override { return 7; }
    double ScaleNumer() override { return scaleNumer; }
    double ScaleDenom() override { return scaleDenom; }
    std::int32_t PaperUnits() override { return 2; }
    VariantBool PlotWithPlotStyles() override { return kFalse; }
    std::string StyleSheet() override { return "style"; }
    VariantBool ShowPlotStyles() override { return kFalse; }
    VariantBool PlotHidden() override { return kTrue; }
    VariantBool PlotViewportsFirst() override { return kFalse; }
    VariantBool PlotWithLineweights() override { return kFalse; }
    VariantBool ScaleLineWeights() override { return kTrue; }
    VariantBool PlotViewportBorders() override { return kTrue; }
    double WinLowerLeftX() override { return 8.5; }
    double WinLowerLeftY() override { return 9.5; }
    double WinUpperRightX() override { return 10.5; }
    double WinUpperRightY() override { return 11.5; }
    std::string ViewToPlot() override { return "view"; }
};

TEST_F(PageSetupEdits, CopyFromTakesEveryPropertyAndSetsTheChangedFlag)
{
    OtherSetup other(surroundings);
    setup.CopyFrom(other);
    expected.ConfigName = "*TARNWICK*";
    expected.CanonicalMediaName = "medium";
    expected.LocaleMedianame = "Medium";
    expected.PaperWidth = 1.5;
    expected.PaperHeight = 2.5;
    expected.PlotRotation = 3;
    expected.PlotType = 4;
    expected.CenterPlot = 0;
    expected.PlotOriginX = 5.5;
    expected.PlotOriginY = 6.5;
    expected.UseStandardScale = 0;
    expected.StandardScale = 7;
    expected.ScaleNumer = 1;
    expected.ScaleDenom = 1;
    expected.PaperUnits = 2;
    expected.PlotWithPlotStyles = 0;
    expected.StyleSheet = "style";
    expected.ShowPlotStyles = 0;
    expected.PlotHidden = 1;
    expected.PlotViewportsFirst = 0;
    expected.PlotWithLineweights = 0;
    expected.ScaleLineWeights = 1;
    expected.PlotViewportBorders = 1;
    expected.WinLowerLeftX = 8.5;
    expected.WinLowerLeftY = 9.5;
    expected.WinUpperRightX = 10.5;
    expected.WinUpperRightY = 11.5;
    expected.ViewToPlot = "view";
    ExpectChangedTo(expected);

    other.scaleNumer = 0.5;
    other.scaleDenom = 20;
    setup.CopyFrom(other);
    EXPECT_EQ(setup.ScaleNumer(), 0.5);
    EXPECT_EQ(setup.ScaleDenom(), 20);
}

TEST_F(PageSetupEdits, CopyFromItselfChangesNothingButTheFlag)
{
    setup.CopyFrom(setup);
    ExpectChangedTo(expected);
}

TEST_F(PageSetupEdits, BooleanPropertiesReportAnyStoredNumberButZeroAsTrue)
{
    const struct {
        const char* valueName;
        VariantBool (cAcadPageSetup::*property)();
    } rows[] = {
        {"CenterPlot", &cAcadPageSetup::CenterPlot},
        {"UseStandardScale", &cAcadPageSetup::UseStandardScale},
        {"PlotWithPlotStyles", &cAcadPageSetup::PlotWithPlotStyles},
        {"ShowPlotStyles", &cAcadPageSetup::ShowPlotStyles},
        {"PlotHidden", &cAcadPageSetup::PlotHidden},
        {"PlotViewportsFirst", &cAcadPageSetup::PlotViewportsFirst},
        {"PlotWithLineWeights", &cAcadPageSetup::PlotWithLineweights},
        {"ScaleLineWeights", &cAcadPageSetup::ScaleLineWeights},
        {"PlotViewportBorders", &cAcadPageSetup::PlotViewportBorders},
    };
    const std::pair<const char*, VariantBool> values[] = {{"0", kFalse}, {"1", kTrue}, {"2", kTrue}, {"-1", kTrue}};
    for (const auto& row : rows) {
        for (const auto& [text, reported] : values) {
            registry.Put(RegistryRoot::CurrentUser, kKey, row.valueName, text);
            ASSERT_EQ(setup.Initialize(2, noDocument), kTrue);
            EXPECT_EQ((setup.*row.property)(), reported) << row.valueName << " " << text;
        }
    }
}

TEST_F(PageSetupEdits, EachPropertyReportsItsOwnField)
{
    OtherSetup other(surroundings);
    other.scaleNumer = 12.5;
    other.scaleDenom = 13.5;
    setup.CopyFrom(other);
    EXPECT_EQ(setup.CanonicalMediaName(), "medium");
    EXPECT_EQ(setup.LocaleMedianame(), "Medium");
    EXPECT_EQ(setup.PaperWidth(), 1.5);
    EXPECT_EQ(setup.PaperHeight(), 2.5);
    EXPECT_EQ(setup.PlotRotation(), 3);
    EXPECT_EQ(setup.PlotType(), 4);
    EXPECT_EQ(setup.PlotOriginX(), 5.5);
    EXPECT_EQ(setup.PlotOriginY(), 6.5);
    EXPECT_EQ(setup.StandardScale(), 7);
    EXPECT_EQ(setup.ScaleNumer(), 12.5);
    EXPECT_EQ(setup.ScaleDenom(), 13.5);
    EXPECT_EQ(setup.PaperUnits(), 2);
    EXPECT_EQ(setup.StyleSheet(), "style");
    EXPECT_EQ(setup.WinLowerLeftX(), 8.5);
    EXPECT_EQ(setup.WinLowerLeftY(), 9.5);
    EXPECT_EQ(setup.WinUpperRightX(), 10.5);
    EXPECT_EQ(setup.WinUpperRightY(), 11.5);
    EXPECT_EQ(setup.ViewToPlot(), "view");
}

} // namespace
} // namespace sm
