// SPDX-License-Identifier: GPL-3.0-or-later
// Measurements in the units and with the zeros of dimension styles.
#include "drawing/entities/DimStyles.h"
#include "notes/DimensionText.h"

#include <gtest/gtest.h>

namespace sm::render {
namespace {

struct LengthRow {
    const char* name;
    double length;
    std::int32_t unit, decimals, zeros;
    const char* text;
};

class LengthTextTest : public testing::TestWithParam<LengthRow> {};

TEST_P(LengthTextTest, WritesTheUnitsOfTheStyle)
{
    drawing::DimStyle style;
    style.lengthUnit = GetParam().unit;
    style.decimals = GetParam().decimals;
    style.zeros = GetParam().zeros;
    EXPECT_EQ(LengthText(GetParam().length, style), GetParam().text);
}

const LengthRow kLengths[] = {
    {"Decimal", 12.5, 2, 2, 0, "12.50"},
    {"NoTrailingZeros", 12.5, 2, 2, 8, "12.5"},
    {"NoTrailingZerosOfAWholeNumber", 120, 2, 2, 8, "120"},
    {"NoLeadingZero", 0.5, 2, 2, 4, ".50"},
    {"NoDecimals", 12.6, 2, 0, 8, "13"},
    {"System", 12.5, 6, 1, 0, "12.5"},
    {"Scientific", 1234.5, 1, 2, 0, "1.23E+03"},
    {"Engineering", 30.5, 3, 2, 0, "2'-6.50\""},
    {"Architectural", 30.5, 4, 4, 0, "2'-6\\S1/2;\""},
    {"ArchitecturalWithoutZeroInches", 24, 4, 4, 0, "2'"},
    {"ArchitecturalWithoutZeroFeet", 6.25, 4, 4, 0, "6\\S1/4;\""},
    {"ArchitecturalWithAllZeros", 24, 4, 4, 1, "2'-0\""},
    {"ArchitecturalRoundsUpToAFoot", 11.99, 4, 2, 0, "1'"},
    {"Fractional", 3.375, 5, 3, 0, "3\\S3/8;"},
    {"FractionOfNothing", 0.75, 5, 3, 0, "\\S3/4;"},
    {"NegativeIsALength", -4, 2, 0, 0, "4"},
};

INSTANTIATE_TEST_SUITE_P(Units, LengthTextTest, testing::ValuesIn(kLengths),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(DimensionTextTest, ScalesAndRounds)
{
    drawing::DimStyle style;
    style.decimals = 2;
    style.lengthFactor = 2.54;
    style.rounding = 0.5;
    EXPECT_EQ(LengthText(10, style), "25.50");
}

struct AngleRow {
    const char* name;
    double degrees;
    std::int32_t unit, decimals;
    const char* text;
};

class AngleTextTest : public testing::TestWithParam<AngleRow> {};

TEST_P(AngleTextTest, WritesTheUnitsOfTheStyle)
{
    drawing::DimStyle style;
    style.angleUnit = GetParam().unit;
    style.angleDecimals = GetParam().decimals;
    EXPECT_EQ(AngleText(GetParam().degrees, style), GetParam().text);
}

const AngleRow kAngles[] = {
    {"Degrees", 45.25, 0, 1, "45.2%%d"},
    {"DegreesMinutesSeconds", 30.5125, 1, 4, "30%%d30'45\""},
    {"DegreesAndMinutes", 30.5, 1, 2, "30%%d30'"},
    {"WholeDegrees", 30.6, 1, 0, "31%%d"},
    {"Grads", 90, 2, 0, "100g"},
    {"Radians", 180, 3, 4, "3.1416r"},
};

INSTANTIATE_TEST_SUITE_P(Units, AngleTextTest, testing::ValuesIn(kAngles),
                         [](const auto& row) { return std::string(row.param.name); });

struct TextRow {
    const char* name;
    const char* own;
    const char* form;
    double plus, minus;
    const char* text;
};

class DimensionTextsTest : public testing::TestWithParam<TextRow> {};

TEST_P(DimensionTextsTest, FillInTheMeasurement)
{
    drawing::DimStyle style;
    style.form = GetParam().form;
    style.plus = GetParam().plus;
    style.minus = GetParam().minus;
    style.tolerances = 1;
    style.toleranceDecimals = 1;
    style.toleranceFactor = 0.5;
    style.decimals = 0;
    EXPECT_EQ(DimensionText(GetParam().own, {12}, "R", style), GetParam().text);
}

const TextRow kTexts[] = {
    {"OnlyMeasured", "", "", 0, 0, "R12"},
    {"OwnText", "wide", "", 0, 0, "wide"},
    {"OwnTextRoundTheMeasurement", "ca. <> net", "", 0, 0, "ca. R12 net"},
    {"ThePrefixStandsInTheOwnText", "R<>", "", 0, 0, "R12"},
    {"ABlankIsNoText", " ", "", 0, 0, ""},
    {"Suffix", "", " mm", 0, 0, "R12 mm"},
    {"FormInPlaceOfThePrefix", "", "<> mm", 0, 0, "12 mm"},
    {"EvenTolerance", "", "", 0.2, 0.2, "R12%%p0.2"},
    {"UnevenTolerance", "", "", 0.3, 0.1, "R12{\\H0.500x;\\S+0.3^ -0.1;}"},
    {"BelowTheLine", "<>\\Xtyp.", "", 0, 0, "R12\\Ptyp."},
};

struct UnitRow {
    const char* name;
    Measure measure;
    const char* own;
    void (*change)(drawing::DimStyle& style);
    const char* text;
};

class DimensionUnitsTest : public testing::TestWithParam<UnitRow> {};

TEST_P(DimensionUnitsTest, ShowLimitsAndSecondUnits)
{
    drawing::DimStyle style;
    style.decimals = 2;
    GetParam().change(style);
    EXPECT_EQ(DimensionText(GetParam().own, GetParam().measure, "", style), GetParam().text);
}

void InMillimetres(drawing::DimStyle& style)
{
    style.alternates = 1;
    style.alternateDecimals = 1;
}

void WithLimits(drawing::DimStyle& style)
{
    style.limits = 1;
    style.plus = 0.2;
    style.minus = 0.1;
}

const UnitRow kUnits[] = {
    {"SecondUnit", {2}, "", InMillimetres, "2.00 [50.8]"},
    {"SecondUnitInAnOwnText", {2}, "about <> net", InMillimetres, "about 2.00 [50.8] net"},
    {"SecondUnitWhereTheOwnTextWantsIt", {2}, "<> or [] net", InMillimetres, "2.00 or [50.8] net"},
    {"SecondUnitOfAStyleWithoutOne", {2}, "<> or []", [](drawing::DimStyle&) {}, "2.00 or [50.80]"},
    {"AnglesHaveNone", {45, true}, "", InMillimetres, "45%%d"},
    {"SecondUnitWithSuffixes",
     {2},
     "",
     [](drawing::DimStyle& style) {
         InMillimetres(style);
         style.form = "<>\"";
         style.alternateForm = "mm";
     },
     "2.00\" [50.8mm]"},
    {"SecondUnitBelow",
     {2},
     "",
     [](drawing::DimStyle& style) {
         InMillimetres(style);
         style.form = "<>\\X";
         style.alternateForm = "ca. []";
     },
     "2.00\\P [ca. 50.8]"},
    {"SecondUnitRoundedWithoutZeros",
     {2.02},
     "",
     [](drawing::DimStyle& style) {
         InMillimetres(style);
         style.alternateRounding = 0.5;
         style.alternateZeros = 8;
         style.alternateDecimals = 2;
     },
     "2.02 [51.5]"},
    {"SecondUnitInFeetAndInches",
     {610},
     "",
     [](drawing::DimStyle& style) {
         style.alternates = 1;
         style.alternateUnit = 6;
         style.alternateFactor = 0.05;
         style.alternateDecimals = 1;
     },
     "610.00 [2'-6 1/2\"]"},
    {"BothWithTolerances",
     {2},
     "",
     [](drawing::DimStyle& style) {
         InMillimetres(style);
         style.tolerances = 1;
         style.toleranceDecimals = 2;
         style.alternateToleranceDecimals = 3;
         style.plus = style.minus = 0.01;
     },
     "2.00%%p0.01 [50.8%%p0.254]"},
    {"Limits", {12}, "", WithLimits, "{\\H1.000x;\\S12.20^ 11.90;}"},
    {"LimitsAreNotScaled",
     {12},
     "",
     [](drawing::DimStyle& style) {
         WithLimits(style);
         style.lengthFactor = 2;
         style.toleranceFactor = 0.5;
     },
     "{\\H0.500x;\\S24.20^ 23.90;}"},
    {"LimitsInBothUnits",
     {1},
     "",
     [](drawing::DimStyle& style) {
         WithLimits(style);
         InMillimetres(style);
     },
     "{\\H1.000x;\\S1.20^ 0.90;} [{\\H1.000x;\\S30.5^ 22.9;}]"},
    {"LimitsOfAnAngle",
     {45, true},
     "",
     [](drawing::DimStyle& style) {
         WithLimits(style);
         style.angleDecimals = 1;
     },
     "{\\H1.000x;\\S45.2%%d^ 44.9%%d;}"},
    {"LimitsAsFractions",
     {3.5},
     "",
     [](drawing::DimStyle& style) {
         WithLimits(style);
         style.lengthUnit = 5;
         style.plus = style.minus = 0.25;
     },
     "{\\H1.000x;\\S3 3\\/4^ 3 1\\/4;}"},
    {"ToleranceOfAnAngle",
     {45, true},
     "",
     [](drawing::DimStyle& style) {
         style.tolerances = 1;
         style.plus = style.minus = 0.5;
         style.toleranceDecimals = 1;
     },
     "45%%d%%p0.5%%d"},
    {"ToleranceWithoutZeros",
     {4},
     "",
     [](drawing::DimStyle& style) {
         style.tolerances = 1;
         style.plus = style.minus = 0.5;
         style.toleranceDecimals = 3;
         style.toleranceZeros = 12;
     },
     "4.00%%p.5"},
};

INSTANTIATE_TEST_SUITE_P(Units, DimensionUnitsTest, testing::ValuesIn(kUnits),
                         [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(Texts, DimensionTextsTest, testing::ValuesIn(kTexts),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace sm::render
