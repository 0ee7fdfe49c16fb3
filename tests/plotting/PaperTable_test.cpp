// SPDX-License-Identifier: GPL-3.0-or-later
#include "plotting/PaperTable.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace sm {
namespace {

std::vector<PaperSize> Table()
{
    std::vector<PaperSize> table;
    LoadPaperTable(table);
    return table;
}

PageSetupRecord RecordOf(double width, double height, std::int32_t rotation, const std::string& canonicalName)
{
    PageSetupRecord record;
    record.PaperWidth = width;
    record.PaperHeight = height;
    record.PlotRotation = rotation;
    record.CanonicalMediaName = canonicalName;
    record.LocaleMedianame = "as it was";
    return record;
}

TEST(PaperTable, HoldsTheseRows)
{
    const struct {
        const char* canonicalName;
        const char* localeName;
        double width, height;
    } rows[] = {
        {"ANSI_A_(8.50_x_11.00_Inches)", "ANSI A (8.50 x 11.00 Inches)", 215.9, 279.4},
        {"ANSI_A_(11.00_x_8.50_Inches)", "ANSI A (11.00 x 8.50 Inches)", 279.4, 215.9},
        {"ANSI_B_(11.00_x_17.00_Inches)", "ANSI B (11.00 x 17.00 Inches)", 279.4, 431.8},
        {"ANSI_B_(17.00_x_11.00_Inches)", "ANSI B (17.00 x 11.00 Inches)", 431.8, 279.4},
        {"ANSI_C_(17.00_x_22.00_Inches)", "ANSI C (17.00 x 22.00 Inches)", 431.8, 558.8},
        {"ANSI_C_(22.00_x_17.00_Inches)", "ANSI C (22.00 x 17.00 Inches)", 558.8, 431.8},
        {"ANSI_D_(22.00_x_34.00_Inches)", "ANSI D (22.00 x 34.00 Inches)", 558.8, 863.6},
        {"ANSI_D_(34.00_x_22.00_Inches)", "ANSI D (34.00 x 22.00 Inches)", 863.6, 558.8},
        {"ANSI_E_(34.00_x_44.00_Inches)", "ANSI E (34.00 x 44.00 Inches)", 863.6, 1117.6},
        {"ANSI_E_(44.00_x_34.00_Inches)", "ANSI E (44.00 x 34.00 Inches)", 1117.6, 863.6},
        {"ARCH_C_(18.00_x_24.00_Inches)", "ARCH C (18.00 x 24.00 Inches)", 457.2, 609.6},
        {"ARCH_C_(24.00_x_18.00_Inches)", "ARCH C (24.00 x 18.00 Inches)", 609.6, 457.2},
        {"ARCH_D_(24.00_x_36.00_Inches)", "ARCH D (24.00 x 36.00 Inches)", 609.6, 914.4},
        {"ARCH_D_(36.00_x_24.00_Inches)", "ARCH D (36.00 x 24.00 Inches)", 914.4, 609.6},
        {"ARCH_E_(36.00_x_48.00_Inches)", "ARCH E (36.00 x 48.00 Inches)", 914.4, 1219.2},
        {"ARCH_E_(48.00_x_36.00_Inches)", "ARCH E (48.00 x 36.00 Inches)", 1219.2, 914.4},
        {"ARCH_E1_(30.00_x_42.00_Inches)", "ARCH E1 (30.00 x 42.00 Inches)", 762, 1066.8},
        {"ARCH_E1_(42.00_x_30.00_Inches)", "ARCH E1 (42.00 x 30.00 Inches)", 1066.8, 762},
        {"ISO_A0_(1189.00_x_841.00_MM)", "ISO A0 (1189.00 x 841.00 MM)", 1189, 841},
        {"ISO_A0_(841.00_x_1189.00_MM)", "ISO A0 (841.00 x 1189.00 MM)", 841, 1189},
        {"ISO_A1_(594.00_x_841.00_MM)", "ISO A1 (594.00 x 841.00 MM)", 594, 841},
        {"ISO_A1_(841.00_x_594.00_MM)", "ISO A1 (841.00 x 594.00 MM)", 841, 594},
        {"ISO_A2_(420.00_x_594.00_MM)", "ISO A2 (420.00 x 594.00 MM)", 420, 594},
        {"ISO_A2_(594.00_x_420.00_MM)", "ISO A2 (594.00 x 420.00 MM)", 594, 420},
        {"ISO_A3_(297.00_x_420.00_MM)", "ISO A3 (297.00 x 420.00 MM)", 297, 420},
        {"ISO_A3_(420.00_x_297.00_MM)", "ISO A3 (420.00 x 297.00 MM)", 420, 297},
        {"ISO_A4_(210.00_x_297.00_MM)", "ISO A4 (210.00 x 297.00 MM)", 210, 297},
        {"ISO_A4_(297.00_x_210.00_MM)", "ISO A4 (297.00 x 210.00 MM)", 297, 210},
    };
    std::vector<PaperSize> table(3);
    ASSERT_EQ(LoadPaperTable(table), 28);
    ASSERT_EQ(table.size(), 28u);
    for (std::size_t i = 0; i < table.size(); ++i) {
        EXPECT_EQ(table[i].CanonicalMediaName, rows[i].canonicalName) << i;
        EXPECT_EQ(table[i].LocaleMedianame, rows[i].localeName) << i;
        EXPECT_EQ(table[i].Width, rows[i].width) << i;
        EXPECT_EQ(table[i].Height, rows[i].height) << i;
    }
}

struct MatchRow {
    const char* name;
    PageSetupRecord record;
    bool matches;
    const char* canonicalName;
    const char* localeName;
    double width, height;
};

constexpr const char* kAnsiAPortrait = "ANSI_A_(8.50_x_11.00_Inches)";
constexpr const char* kAnsiAPortraitShown = "ANSI A (8.50 x 11.00 Inches)";
constexpr const char* kAnsiALandscape = "ANSI_A_(11.00_x_8.50_Inches)";
constexpr const char* kAnsiALandscapeShown = "ANSI A (11.00 x 8.50 Inches)";
constexpr const char* kIsoA3Portrait = "ISO_A3_(297.00_x_420.00_MM)";
constexpr const char* kIsoA3PortraitShown = "ISO A3 (297.00 x 420.00 MM)";

void ExpectMatches(const std::vector<MatchRow>& rows)
{
    for (const MatchRow& row : rows) {
        PageSetupRecord record = row.record;
        EXPECT_EQ(MatchMedia(record, Table()), row.matches) << row.name;
        EXPECT_EQ(record.CanonicalMediaName, row.canonicalName) << row.name;
        EXPECT_EQ(record.LocaleMedianame, row.localeName) << row.name;
        EXPECT_EQ(record.PaperWidth, row.width) << row.name;
        EXPECT_EQ(record.PaperHeight, row.height) << row.name;
        EXPECT_EQ(record.PlotRotation, 0) << row.name;
    }
}

TEST(MatchMedia, FitsTheSizeWithinThreeMillimetres)
{
    ExpectMatches({
        {"280 x 216", RecordOf(280, 216, 0, "x"), true, kAnsiALandscape, kAnsiALandscapeShown, 279.4, 215.9},
        {"282 x 219", RecordOf(282, 219, 0, "x"), true, kAnsiALandscape, kAnsiALandscapeShown, 279.4, 215.9},
        {"283 x 216", RecordOf(283, 216, 0, "x"), false, kAnsiAPortrait, kAnsiAPortraitShown, 215.9, 279.4},
        {"276 x 213", RecordOf(276, 213, 0, "x"), true, kAnsiALandscape, kAnsiALandscapeShown, 279.4, 215.9},
        {"275 x 216", RecordOf(275, 216, 0, "x"), false, kAnsiAPortrait, kAnsiAPortraitShown, 215.9, 279.4},
        {"282.5 rounds to even", RecordOf(282.5, 216, 0, "x"), true, kAnsiALandscape, kAnsiALandscapeShown, 279.4,
         215.9},
        {"283.5 rounds to even", RecordOf(283.5, 216, 0, "x"), false, kAnsiAPortrait, kAnsiAPortraitShown, 215.9,
         279.4},
        {"a name of another row", RecordOf(420, 297, 0, kAnsiAPortrait), true, "ISO_A3_(420.00_x_297.00_MM)",
         "ISO A3 (420.00 x 297.00 MM)", 420, 297},
    });
}

TEST(MatchMedia, TakesTheOtherOrientationOfATurnedSheet)
{
    ExpectMatches({
        {"turned by 90", RecordOf(215.9, 279.4, 1, "x"), true, kAnsiALandscape, kAnsiALandscapeShown, 279.4, 215.9},
        {"turned by 270", RecordOf(215.9, 279.4, 3, "x"), true, kAnsiALandscape, kAnsiALandscapeShown, 279.4, 215.9},
        {"turned by 180", RecordOf(215.9, 279.4, 2, "x"), true, kAnsiAPortrait, kAnsiAPortraitShown, 215.9, 279.4},
        {"a turned sheet's own name doesn't count", RecordOf(300, 500, 1, kIsoA3Portrait), false, kAnsiAPortrait,
         kAnsiAPortraitShown, 215.9, 279.4},
    });
}

TEST(MatchMedia, FitsTheNameAndKeepsTheSize)
{
    ExpectMatches({
        {"custom size", RecordOf(300, 500, 0, kIsoA3Portrait), true, kIsoA3Portrait, kIsoA3PortraitShown, 300, 500},
        {"no size at all", RecordOf(0, 0, 0, kIsoA3Portrait), true, kIsoA3Portrait, kIsoA3PortraitShown, 0, 0},
        {"another letter case", RecordOf(300, 500, 0, "iso_a3_(297.00_x_420.00_mm)"), false, kAnsiAPortrait,
         kAnsiAPortraitShown, 215.9, 279.4},
    });
}

TEST(MatchMedia, LetsALaterRowOverwriteAnEarlierOne)
{
    const std::vector<PaperSize> table = {
        {"First", "first", 100, 200}, {"Second", "second", 102, 202}, {"Third", "first", 500, 500}};
    PageSetupRecord record = RecordOf(101, 201, 0, "");
    EXPECT_TRUE(MatchMedia(record, table));
    EXPECT_EQ(record.CanonicalMediaName, "second");
    EXPECT_EQ(record.PaperWidth, 102);

    // Without the second row the third fits by the name that the first has written.
    record = RecordOf(101, 201, 0, "");
    EXPECT_TRUE(MatchMedia(record, {table[0], table[2]}));
    EXPECT_EQ(record.LocaleMedianame, "Third");
    EXPECT_EQ(record.CanonicalMediaName, "first");
    EXPECT_EQ(record.PaperWidth, 100);
}

TEST(MatchMedia, LivesWithSizesThatAreNone)
{
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double size : {infinity, -infinity, std::nan(""), 1e300, 2147483647.0, -2147483648.0}) {
        PageSetupRecord record = RecordOf(size, size, 0, "x");
        EXPECT_FALSE(MatchMedia(record, Table())) << size;
        EXPECT_EQ(record.CanonicalMediaName, kAnsiAPortrait) << size;
    }
    PageSetupRecord record = RecordOf(280, 216, 1, "x");
    EXPECT_FALSE(MatchMedia(record, {}));
}

} // namespace
} // namespace sm
