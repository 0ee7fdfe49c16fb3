// SPDX-License-Identifier: GPL-3.0-or-later
#include "devices/PaperRules.h"

#include <gtest/gtest.h>

namespace sm::cadhost {
namespace {

drawing::PlotSettings Paper(double width, double height, std::int32_t rotation = 0)
{
    drawing::PlotSettings settings;
    settings.paperWidth = width;
    settings.paperHeight = height;
    settings.rotation = rotation;
    settings.marginLeft = 1;
    settings.marginBottom = 2;
    settings.marginRight = 3;
    settings.marginTop = 4;
    return settings;
}

Medium Sheet(double width, double height)
{
    return {"sheet", "sheet", width, height, {5, 5, 5, 5}};
}

std::string Text(const Margins& m)
{
    return std::to_string(std::lround(m.left)) + " " + std::to_string(std::lround(m.bottom)) + " " +
           std::to_string(std::lround(m.right)) + " " + std::to_string(std::lround(m.top));
}

struct TurnRow {
    const char* name;
    std::int32_t rotation;
    const char* expected; ///< left, bottom, right, top of 1 2 3 4
};
class TurnedMarginsTest : public ::testing::TestWithParam<TurnRow> {};

TEST_P(TurnedMarginsTest, LieRoundTheDrawing)
{
    EXPECT_EQ(Text(TurnedMargins({1, 2, 3, 4}, GetParam().rotation)), GetParam().expected);
    EXPECT_EQ(Text(TurnedMargins(TurnedMargins({1, 2, 3, 4}, GetParam().rotation), 4 - GetParam().rotation)),
              "1 2 3 4");
}

INSTANTIATE_TEST_SUITE_P(Rotations, TurnedMarginsTest,
                         ::testing::Values(TurnRow{"Unturned", 0, "1 2 3 4"}, TurnRow{"QuarterTurn", 1, "4 1 2 3"},
                                           TurnRow{"HalfTurn", 2, "3 4 1 2"},
                                           TurnRow{"ThreeQuarterTurns", 3, "2 3 4 1"}),
                         [](const auto& row) { return row.param.name; });

struct InForceRow {
    const char* name;
    drawing::PlotSettings own;
    Medium medium;
    std::int32_t rotation;
    const char* expected;
};
class MarginsInForceTest : public ::testing::TestWithParam<InForceRow> {};

TEST_P(MarginsInForceTest, FollowsTheDrawingsOwnPaper)
{
    const InForceRow& row = GetParam();
    EXPECT_EQ(Text(MarginsInForce(row.own, row.medium, row.rotation)), row.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Sheets, MarginsInForceTest,
    ::testing::Values(
        InForceRow{"SameSheetUnturned", Paper(420, 297), Sheet(420, 297), 0, "1 2 3 4"},
        InForceRow{"SameSheetWithinThreeMillimetres", Paper(420, 297), Sheet(423, 294), 0, "1 2 3 4"},
        InForceRow{"OtherSheetByFourMillimetres", Paper(420, 297), Sheet(424, 297), 0, "5 5 5 5"},
        InForceRow{"QuarterTurnBecomesTheLandscapeSheet", Paper(297, 420, 1), Sheet(420, 297), 0, "4 1 2 3"},
        InForceRow{"ThreeQuarterTurnsBecomeTheLandscapeSheet", Paper(297, 420, 3), Sheet(420, 297), 0, "2 3 4 1"},
        InForceRow{"HalfTurnBecomesTheSheetUnturned", Paper(420, 297, 2), Sheet(420, 297), 0, "3 4 1 2"},
        InForceRow{"QuarterTurnPutBack", Paper(297, 420, 1), Sheet(297, 420), 1, "1 2 3 4"},
        InForceRow{"SameSheetTurnedDifferently", Paper(297, 420, 1), Sheet(297, 420), 0, "1 2 3 4"},
        InForceRow{"OtherSizeHasItsOwn", Paper(420, 297), Sheet(841, 594), 0, "5 5 5 5"},
        InForceRow{"NoPaperHasTheSheets", Paper(0, 0), Sheet(297, 210), 0, "5 5 5 5"}),
    [](const auto& row) { return row.param.name; });

TEST(MarginsOfTest, AreNoneWhereNothingOfTheSheetWouldBeLeft)
{
    drawing::PlotSettings settings = Paper(10, 10);
    settings.marginLeft = 9;
    EXPECT_EQ(Text(MarginsOf(settings)), "0 0 0 0");
    settings.marginLeft = -1;
    EXPECT_EQ(Text(MarginsOf(settings)), "0 0 0 0");
}

TEST(MediumOfTest, MakesANameFromTheSizeWhereTheFileHasNone)
{
    EXPECT_EQ(MediumOf(Paper(300, 200.126)).canonicalName, "User_(300.00_x_200.13_MM)");
    EXPECT_EQ(MediumOf(Paper(300, 200.126)).localeName, "User (300.00 x 200.13 MM)");
}

TEST(HasPaperTest, WantsTwoSides)
{
    EXPECT_TRUE(HasPaper(Paper(420, 297)));
    EXPECT_FALSE(HasPaper(Paper(0, 0)));
    EXPECT_FALSE(HasPaper(Paper(420, 0)));
    EXPECT_FALSE(HasPaper(Paper(-420, 297)));
    EXPECT_FALSE(HasPaper(Paper(1e20, 297)));
}

struct AssumedRow {
    const char* name;
    bool metric, landscape;
    const char* canonicalName;
    double width, height;
};
class AssumedMediumTest : public ::testing::TestWithParam<AssumedRow> {};

TEST_P(AssumedMediumTest, LiesAsTheContentsLie)
{
    const Medium medium = AssumedMedium(GetParam().metric, GetParam().landscape);
    EXPECT_EQ(medium.canonicalName, GetParam().canonicalName);
    EXPECT_EQ(medium.width, GetParam().width);
    EXPECT_EQ(medium.height, GetParam().height);
    EXPECT_EQ(Text(medium.margins), "5 5 5 5");
}

INSTANTIATE_TEST_SUITE_P(
    Measurements, AssumedMediumTest,
    ::testing::Values(AssumedRow{"MetricWide", true, true, "ISO_A4_(297.00_x_210.00_MM)", 297, 210},
                      AssumedRow{"MetricHigh", true, false, "ISO_A4_(210.00_x_297.00_MM)", 210, 297},
                      AssumedRow{"ImperialWide", false, true, "ANSI_A_(11.00_x_8.50_Inches)", 279.4, 215.9},
                      AssumedRow{"ImperialHigh", false, false, "ANSI_A_(8.50_x_11.00_Inches)", 215.9, 279.4}),
    [](const auto& row) { return row.param.name; });

} // namespace
} // namespace sm::cadhost
