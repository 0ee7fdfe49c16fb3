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
    EXPECT_EQ(DimensionText(GetParam().own, "12", "R", style), GetParam().text);
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

INSTANTIATE_TEST_SUITE_P(Texts, DimensionTextsTest, testing::ValuesIn(kTexts),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace sm::render
