// SPDX-License-Identifier: GPL-3.0-or-later
// View, plot type, origin and scale of the plot configuration.
#include "plotting/PlotConfigHouse.h"

namespace sm {
namespace {

TEST_F(PlotConfiguration, ANamedViewIsWrittenBeforeThePlotType)
{
    drawing->Views = {{"Elevation", {}, 1, 1}, {"Stairs", {}, 1, 1}};
    record.PlotType = 3;
    record.ViewToPlot = "STAIRS";
    EXPECT_EQ(Configure(), 0);
    const Lines lines = LogFrom("  Window UpperRight");
    EXPECT_EQ(Lines(lines.begin() + 1, lines.begin() + 3), (Lines{"  PlotView: STAIRS", "  PlotType: View"}));
    EXPECT_EQ(ground->ViewToPlot, "STAIRS");
}

TEST_F(PlotConfiguration, AViewThatTheDrawingLacksEndsBeforeThePlotType)
{
    drawing->Views = {{"Elevation", {}, 1, 1}};
    record.PlotType = 3;
    record.ViewToPlot = "Stairs";
    EXPECT_EQ(Configure(), -7);
    EXPECT_EQ(Log().back(), "  PlotView: Stairs");
    EXPECT_EQ(host.tape.CallsOf("Layout(Ground).SetPlotType"), Lines{});
    EXPECT_EQ(host.tape.CallsOf("Layout(Ground).SetViewToPlot"), Lines{});
}

TEST_F(PlotConfiguration, AViewThatTheLayoutRefusesIsItsOwnStatus)
{
    drawing->Views = {{"Stairs", {}, 1, 1}};
    record.PlotType = 3;
    record.ViewToPlot = "Stairs";
    host.tape.FailCall("Layout.SetViewToPlot", "Invalid input");
    EXPECT_EQ(Configure(), -6);
    EXPECT_EQ(Log().back(), "  PlotView: Stairs");
}

TEST_F(PlotConfiguration, AModelTabTakesCentreAndOriginAlways)
{
    ground->ModelType = true;
    record.PlotType = 5;
    record.CenterPlot = -1;
    EXPECT_EQ(Configure(), 0);
    const Lines lines = LogFrom("  PlotType");
    EXPECT_EQ(Lines(lines.begin(), lines.begin() + 3),
              (Lines{"  PlotType: Layout", "  CenterPlot: 1", "  PlotOrigin: 0 0"}));
    EXPECT_EQ(ground->PlotType, 5) << "no window stands for it";
}

TEST_F(PlotConfiguration, ACentredSheetHasNoOriginWritten)
{
    record.CenterPlot = 1;
    EXPECT_EQ(Configure(), 0);
    const Lines lines = LogFrom("  PlotType");
    EXPECT_EQ(Lines(lines.begin(), lines.begin() + 3),
              (Lines{"  PlotType: Extents", "  CenterPlot: 1", "  PaperUnits: Inches"}));
    EXPECT_EQ(host.tape.CallsOf("Layout(Ground).SetPlotOrigin"), Lines{});
}

TEST_F(PlotConfiguration, AWindowStandsForTheLayout)
{
    const struct {
        std::int32_t paperUnits;
        const char* upperRight;
    } rows[] = {{1, "199 262"}, {0, "7.83464566929134 10.3149606299213"}, {2, "7.83464566929134 10.3149606299213"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.paperUnits);
        record.PlotType = 5;
        record.PaperUnits = row.paperUnits;
        record.PlotOriginX = 2;
        EXPECT_EQ(Configure(), 0);
        const Lines lines = LogFrom("  PlotType");
        EXPECT_EQ(Lines(lines.begin(), lines.begin() + 7),
                  (Lines{"  PlotType: Layout", "           [Use PlotType Window in place of Layout]",
                         "           [Window LowerLeft: 0 0]",
                         "           [Window UpperRight: " + std::string(row.upperRight) + "]",
                         "           [PlotType: Window]", "  PlotOrigin: 2 0", "  CenterPlot: Not Set"}));
        EXPECT_EQ(ground->PlotType, 4);
        EXPECT_EQ(record.PlotType, 5);
        EXPECT_DOUBLE_EQ(record.WinUpperRightX, ground->WindowUpperRight.x);
    }
    EXPECT_EQ(host.tape.CallsOf("Layout(Ground).SetCenterPlot"), Lines{});
}

TEST_F(PlotConfiguration, TheWindowForTheLayoutCoversTheSheetAtItsScale)
{
    // 199 x 262 mm of 210 x 297 can be printed on.
    const struct {
        const char* name;
        std::int32_t paperUnits, useStandardScale, standardScale;
        double numerator, denominator;
        std::int32_t rotation;
        const char* upperRight;
    } rows[] = {
        {"one to two", 1, 0, 0, 1, 2, 0, "398 524"},
        {"two to one", 1, 0, 0, 2, 1, 0, "99.5 131"},
        {"no scale", 1, 0, 0, 0, 0, 0, "199 262"},
        {"inches, one to four", 0, 0, 0, 1, 4, 0, "31.3385826771654 41.259842519685"},
        {"standard one to two", 1, 1, 17, 1, 1, 0, "398 524"},
        {"standard one to fifty", 1, 1, 25, 1, 1, 0, "9950 13100"},
        {"standard quarter inch to a foot", 0, 1, 8, 1, 1, 0, "376.062992125984 495.118110236221"},
        {"standard one to one", 1, 1, 16, 1, 7, 0, "199 262"},
        {"scale to fit", 1, 1, 0, 1, 7, 0, "199 262"},
        {"unknown standard scale", 1, 1, 99, 1, 7, 0, "199 262"},
        {"lying once", 1, 1, 16, 1, 1, 1, "262 199"},
        {"upside down", 1, 1, 16, 1, 1, 2, "199 262"},
        {"lying thrice, one to two", 1, 0, 0, 1, 2, 3, "524 398"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        record.PlotType = 5;
        record.PaperUnits = row.paperUnits;
        record.UseStandardScale = row.useStandardScale;
        record.StandardScale = row.standardScale;
        record.ScaleNumer = row.numerator;
        record.ScaleDenom = row.denominator;
        record.PlotRotation = row.rotation;
        EXPECT_EQ(Configure(), 0);
        const Lines lines = LogFrom("           [Window");
        EXPECT_EQ(Lines(lines.begin(), lines.begin() + 2),
                  (Lines{"           [Window LowerLeft: 0 0]",
                         "           [Window UpperRight: " + std::string(row.upperRight) + "]"}));
    }
}

TEST_F(PlotConfiguration, PlotTypesAndUnitsHaveTheirNames)
{
    const char* const types[] = {"Display", "Extents", "Limits", nullptr, "Window"};
    record.CenterPlot = 1;
    for (std::int32_t type = 0; type < 5; ++type) {
        if (types[type] == nullptr)
            continue;
        record.PlotType = type;
        EXPECT_EQ(Configure(), 0);
        EXPECT_EQ(LogFrom("  PlotType").front(), std::string("  PlotType: ") + types[type]);
    }
    const char* const units[] = {"Inches", "Millimeters", "Pixels", ""};
    for (std::int32_t unit = 0; unit < 4; ++unit) {
        record.PaperUnits = unit;
        record.PlotType = 9 * unit; // 0, then numbers that name nothing
        EXPECT_EQ(Configure(), 0);
        const Lines lines = LogFrom("  PlotType");
        EXPECT_EQ(lines.front(), unit == 0 ? "  PlotType: Display" : "  PlotType: ");
        EXPECT_EQ(lines[2], std::string("  PaperUnits: ") + units[unit]);
    }
}

TEST_F(PlotConfiguration, ACustomScaleIsTurnedIntoTheLayoutsUnits)
{
    const struct {
        const char* name;
        std::int32_t layoutUnits, recordUnits;
        double numerator, denominator;
        Lines lines;
        double writtenNumerator, writtenDenominator;
    } rows[] = {
        {"same units", 1, 1, 1, 50, {"  PaperUnits: Millimeters", "  ScaleNumer: 1", "  ScaleDenom: 50"}, 1, 50},
        {"layout in inches", 0, 1, 254, 1, {"  PaperUnits: Inches", "  ScaleNumer: 10", "  ScaleDenom: 1"}, 10, 1},
        {"layout in mm", 1, 0, 2, 1, {"  PaperUnits: Millimeters", "  ScaleNumer: 50.8", "  ScaleDenom: 1"}, 50.8, 1},
        {"pixels stay", 2, 1, 3, 1, {"  PaperUnits: Pixels", "  ScaleNumer: 3", "  ScaleDenom: 1"}, 3, 1},
        {"one to zero", 1, 1, 1, 0, {"  PaperUnits: Millimeters", "  ScaleNumer: 1", "  ScaleDenom: 1"}, 1, 1},
        {"zero to two", 1, 0, 0, 2, {"  PaperUnits: Millimeters", "  ScaleNumer: 1", "  ScaleDenom: 2"}, 1, 2},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        ground->PaperUnits = row.layoutUnits;
        record.UseStandardScale = 0;
        record.PaperUnits = row.recordUnits;
        record.ScaleNumer = row.numerator;
        record.ScaleDenom = row.denominator;
        EXPECT_EQ(Configure(), 0);
        EXPECT_EQ(LogFrom("  PaperUnits"),
                  (Lines{row.lines[0], "  UseStandardScale: False", row.lines[1], row.lines[2]}));
        EXPECT_DOUBLE_EQ(ground->ScaleNumerator, row.writtenNumerator);
        EXPECT_DOUBLE_EQ(ground->ScaleDenominator, row.writtenDenominator);
        EXPECT_EQ(ground->PaperUnits, row.layoutUnits) << "the record's units aren't written";
    }
}

} // namespace
} // namespace sm
