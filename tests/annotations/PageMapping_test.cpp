// SPDX-License-Identifier: GPL-3.0-or-later
// Where drawing coordinates land on the page, for every plot type, unit, origin and margin.
#include "annotations/MarkHouse.h"

#include "annotations/PageMapping.h"
#include <cmath>

namespace sm {
namespace {

class PageMappingTest : public MarkHouse {
protected:
    PageMapping Map() { return ComputePageMapping(*context.g_AcadDoc); }
};

struct Row {
    const char* name;
    std::int32_t paperUnits, plotType;
    double numerator, denominator;
    AcadPoint origin, margins;
    AcadPoint drawingPoint, pagePoint;
};

TEST_F(PageMappingTest, MapsEveryPlotType)
{
    ground->WindowLowerLeft = {100, 200, 0};
    ground->WindowUpperRight = {300, 400, 0};
    ground->ViewToPlot = "Hall";
    drawing->Views = {{"Hall", {50, 40, 0}, 100, 80}};
    drawing->Variables["EXTMIN"] = AcadPoint{7, 8, 0};
    drawing->Variables["EXTMAX"] = AcadPoint{700, 800, 0};
    drawing->Limits = {3, 4, 420, 297};
    const Row rows[] = {
        {"millimetres, layout", 1, 5, 1, 1, {}, {}, {25.4, 50.8, 0}, {72, 144, 0}},
        {"inches 1:48, window", 0, 4, 1, 48, {}, {}, {100, 200, 0}, {0, 0, 0}},
        {"inches 1:48, window, origin and margins",
         0,
         4,
         1,
         48,
         {12.7, 25.4, 0},
         {25.4, 12.7, 0},
         {100, 200, 0},
         {108, 108, 0}},
        {"inches 1:48, one unit to the right", 0, 4, 1, 48, {}, {}, {101, 200, 0}, {1.5, 0, 0}},
        {"view, its corner at the origin", 0, 3, 1, 1, {25.4, 50.8, 0}, {}, {0, 0, 0}, {72, 144, 0}},
        {"extents", 2, 1, 1, 1, {}, {}, {7, 8, 0}, {0, 0, 0}},
        {"limits", 2, 2, 2, 1, {}, {}, {4, 5, 0}, {2, 2, 0}},
        {"display has no shift", 2, 0, 1, 1, {}, {}, {7, 8, 0}, {7, 8, 0}},
        {"layout has no shift", 2, 5, 1, 2, {}, {}, {8, 10, 0}, {4, 5, 0}},
        {"an unknown type has no shift", 2, 9, 1, 1, {}, {}, {1, 1, 0}, {1, 1, 0}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        ground->PaperUnits = row.paperUnits;
        ground->PlotType = row.plotType;
        ground->UseStandardScale = false;
        ground->ScaleNumerator = row.numerator;
        ground->ScaleDenominator = row.denominator;
        ground->PlotOrigin = row.origin;
        ground->MarginLowerLeft = row.margins;
        const PageMapping mapping = Map();
        EXPECT_NEAR(mapping.X(row.drawingPoint.x), row.pagePoint.x, 1e-9);
        EXPECT_NEAR(mapping.Y(row.drawingPoint.y), row.pagePoint.y, 1e-9);
    }
}

TEST_F(PageMappingTest, LooksNeitherAtCentringNorAtRotation)
{
    const PageMapping plain = Map();
    ground->CenterPlot = true;
    ground->PlotRotation = 1;
    const PageMapping turned = Map();
    EXPECT_EQ(plain.markScale, turned.markScale);
    EXPECT_EQ(plain.markOffsetX, turned.markOffsetX);
    EXPECT_EQ(plain.markOffsetY, turned.markOffsetY);
}

TEST_F(PageMappingTest, AZeroDenominatorFailsTheMapping)
{
    ground->UseStandardScale = false;
    ground->ScaleDenominator = 0;
    EXPECT_FALSE(AddMarks(kEverySwitch));
    EXPECT_EQ(Log(), (Lines{"RUNTIME ERROR: Division by zero", "ADDPDFMARK RUNTIME ERROR: Division by zero"}));
    EXPECT_EQ(Marks(), Lines{});
}

TEST_F(PageMappingTest, AScaleBeyondAllNumbersFailsTheMapping)
{
    ground->UseStandardScale = false;
    const struct {
        const char* name;
        double numerator, denominator;
        AcadPoint origin;
    } rows[] = {
        {"a denominator that underflows", 1, 4e-320, {}},
        {"none of both is a number", 0, std::nan(""), {}},
        {"an origin beyond all numbers", 1, 1, {HUGE_VAL, 0, 0}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        ground->ScaleNumerator = row.numerator;
        ground->ScaleDenominator = row.denominator;
        ground->PlotOrigin = row.origin;
        EXPECT_FALSE(AddMarks(kEverySwitch));
        EXPECT_EQ(Log(), (Lines{"RUNTIME ERROR: Overflow", "ADDPDFMARK RUNTIME ERROR: Overflow"}));
        EXPECT_EQ(Marks(), Lines{});
    }
}

TEST_F(PageMappingTest, AMissingViewFailsTheMapping)
{
    ground->PlotType = 3;
    ground->ViewToPlot = "Attic";
    host.tape.FailCall("Views.Item", "Key not found");
    EXPECT_FALSE(AddMarks(kEverySwitch));
    EXPECT_EQ(Log(), (Lines{"RUNTIME ERROR: Key not found", "ADDPDFMARK RUNTIME ERROR: Key not found"}));
}

TEST_F(PageMappingTest, RoundsPagePointsHalvesToEven)
{
    const std::pair<double, double> rows[] = {{306.5, 306}, {307.5, 308}, {100.5, 100}, {200.5, 200},
                                              {0.4, 0},     {-0.5, 0},    {-1.5, -2},   {2.500001, 3}};
    for (const auto& [value, whole] : rows) {
        EXPECT_EQ(WholePoint(value), whole) << value;
        EXPECT_FALSE(std::signbit(WholePoint(value)) && WholePoint(value) == 0) << value;
    }
}

} // namespace
} // namespace sm
