// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PageSetupStand.h"
#include "ui/settings/PageSetupTable.h"

namespace sm {
namespace {

class PageSetupSave : public PageSetupStand {};

TEST_F(PageSetupSave, StoresWhatTheControlsShow)
{
    drawing->Views = {{"Plan", {}, 1, 1}, {"Section", {}, 1, 1}};
    record.PlotRotation = 3;
    record.ShowPlotStyles = 0;
    record.PlotViewportBorders = 1;
    selection = 0;
    ASSERT_TRUE(Fill());
    user.Tick("chkPageSetup", true);
    user.Choose("cmbPaperSize", "ISO A3 (420.00 x 297.00 MM)");
    user.Choose("cmbPaperUnits", "Millimeters");
    user.Tick("chkCenterThePlot", false);
    user.TypeAndLeave("txtPlotOffsetX", "3.5");
    user.TypeAndLeave("txtPlotOffsetY", "-4");
    user.Choose("cmbScale", "Custom");
    user.TypeAndLeave("txtScaleNumer", "2");
    user.TypeAndLeave("txtScaleDenom", "50");
    user.Tick("chkScaleLine", true);
    user.Click("optView");
    user.Choose("cmbView", "Section");
    user.Choose("cmbPlotStyle", "Florida.ctb");
    user.Tick("chkPlotLineWeights", false);
    user.Tick("chkPaperSpace", false);
    user.Tick("chkPlotHidden", true);
    gui.PageSetup().PlotWinX1 = 1;
    gui.PageSetup().PlotWinY1 = 2;
    gui.PageSetup().PlotWinX2 = 3;
    gui.PageSetup().PlotWinY2 = 4;
    ASSERT_TRUE(Save());

    PageSetupRecord expected;
    expected.CanonicalMediaName = "ISO_A3_(420.00_x_297.00_MM)";
    expected.LocaleMedianame = "ISO A3 (420.00 x 297.00 MM)";
    expected.PaperWidth = 420;
    expected.PaperHeight = 297;
    expected.PlotRotation = 3;
    expected.PaperUnits = 1;
    expected.CenterPlot = 0;
    expected.PlotOriginX = 3.5;
    expected.PlotOriginY = -4;
    expected.UseStandardScale = 0;
    expected.StandardScale = -1;
    expected.ScaleNumer = 2;
    expected.ScaleDenom = 50;
    expected.ScaleLineWeights = 1;
    expected.PlotType = 3;
    expected.ViewToPlot = "Section";
    expected.StyleSheet = "Florida.ctb";
    expected.PlotWithLineweights = 0;
    expected.PlotViewportsFirst = 0;
    expected.PlotHidden = 1;
    expected.ShowPlotStyles = 1;
    expected.PlotViewportBorders = 0;
    expected.WinLowerLeftX = 1;
    expected.WinLowerLeftY = 2;
    expected.WinUpperRightX = 3;
    expected.WinUpperRightY = 4;
    EXPECT_EQ(record, expected);
    EXPECT_EQ(selection, 1);
}

TEST_F(PageSetupSave, WithoutTheSwitchOnlyTheSwitchIsStored)
{
    const struct {
        std::int32_t before, after;
    } rows[] = {{1, 0}, {0, 0}, {2, 2}};
    for (const auto& row : rows) {
        selection = row.before;
        ASSERT_TRUE(Fill());
        if (row.before == 1)
            user.Tick("chkPageSetup", false);
        gui.Select("cmbPaperSize", 9);
        const PageSetupRecord before = record;
        ASSERT_TRUE(Save());
        EXPECT_EQ(record, before);
        EXPECT_EQ(selection, row.after);
    }
}

TEST_F(PageSetupSave, ThePlotTypeIsThatOfTheOptionTicked)
{
    drawing->Views = {{"Plan", {}, 1, 1}};
    record.WinUpperRightX = record.WinUpperRightY = 3;
    const struct {
        const char* option;
        bool modelSpace;
        std::int32_t type;
    } rows[] = {{"optDisplay", false, 0}, {"optExtents", false, 1}, {"optLayout", true, 2},
                {"optLayout", false, 5},  {"optView", false, 3},    {"optWindow", false, 4}};
    for (const auto& row : rows) {
        ASSERT_TRUE(Fill());
        layout.IsModelSpace = row.modelSpace;
        user.Click(row.option);
        ASSERT_TRUE(Save());
        EXPECT_EQ(record.PlotType, row.type) << row.option;
    }
    record.PlotType = 6;
    ASSERT_TRUE(Fill());
    ASSERT_TRUE(Save());
    EXPECT_EQ(record.PlotType, 6) << "no option ticked";
}

TEST_F(PageSetupSave, OffsetsAreStoredInMillimetres)
{
    const struct {
        const char* units;
        const char* typed;
        double stored;
        std::int32_t code;
    } rows[] = {{"Inches", "1.00", 25.4, 0}, {"Millimeters", "1.00", 1, 1}, {"Inches", "x", 0, 0}};
    for (const auto& row : rows) {
        record.CenterPlot = 0;
        ASSERT_TRUE(Fill());
        user.Choose("cmbPaperUnits", row.units);
        user.Type("txtPlotOffsetX", row.typed);
        user.Type("txtPlotOffsetY", row.typed);
        ASSERT_TRUE(Save());
        EXPECT_EQ(record.PlotOriginX, row.stored) << row.units;
        EXPECT_EQ(record.PlotOriginY, row.stored) << row.units;
        EXPECT_EQ(record.PaperUnits, row.code);
        EXPECT_EQ(record.CenterPlot, 0);
    }
}

TEST_F(PageSetupSave, TheScaleIsStoredByItsPlaceInTheList)
{
    const struct {
        const char* item;
        std::int32_t use, scale;
        double numerator, denominator;
    } rows[] = {{"Custom", 0, -1, 4, 5}, {"Scale to Fit", 1, 0, 0, 0}, {"1/128\"= 1'", 1, 1, 0, 0},
                {"1'= 1'", 1, 15, 0, 0}, {"1:1", 1, 16, 0, 0},         {"1:100", 1, 26, 0, 0},
                {"2:1", 1, 27, 0, 0},    {"100:1", 1, 31, 0, 0}};
    for (const auto& row : rows) {
        record.ScaleNumer = 4;
        record.ScaleDenom = 5;
        ASSERT_TRUE(Fill());
        user.Choose("cmbScale", row.item);
        ASSERT_TRUE(Save());
        EXPECT_EQ(record.UseStandardScale, row.use) << row.item;
        EXPECT_EQ(record.StandardScale, row.scale) << row.item;
        EXPECT_EQ(record.ScaleNumer, row.numerator) << row.item;
        EXPECT_EQ(record.ScaleDenom, row.denominator) << row.item;
    }
}

TEST_F(PageSetupSave, WhatTheListsDontOfferIsKept)
{
    record.StyleSheet = "somebody's.ctb";
    record.ViewToPlot = "Vanished";
    record.StandardScale = 40;
    ASSERT_TRUE(Fill());
    EXPECT_EQ(user.Text("cmbPlotStyle"), "(none)");
    ASSERT_TRUE(Save());
    EXPECT_EQ(record.StyleSheet, "somebody's.ctb");
    EXPECT_EQ(record.ViewToPlot, "Vanished");
    EXPECT_EQ(record.StandardScale, 40);
    EXPECT_EQ(record.UseStandardScale, 1);
    user.Choose("cmbPlotStyle", "None");
    ASSERT_TRUE(Save());
    EXPECT_EQ(record.StyleSheet, "");
}

TEST_F(PageSetupSave, AMissingControlIsLoggedAndNothingIsStored)
{
    FormTable table = {ControlRow(ControlKind::FormWindow, "frmBroken", "", {})};
    AddPageSetupRows(table, "", false);
    Form broken(session, table); // without the switch
    PageSetupControls controls(broken, PageSetupKind::SettingsDialog);
    const PageSetupRecord before = record;
    EXPECT_FALSE(SavePageSetupTab(controls, layout, record, selection));
    EXPECT_FALSE(SetPageSetupTab(controls, {record, papers, styles, selection}));
    EXPECT_EQ(Log(), (Lines{"RUNTIME ERROR: SavePageSetupTab -There is no control 'chkPageSetup'.",
                            "RUNTIME ERROR: SetPageSetupTab -There is no control 'chkPageSetup'."}));
    EXPECT_EQ(record, before);
    EXPECT_EQ(selection, 1);
}

} // namespace
} // namespace sm
