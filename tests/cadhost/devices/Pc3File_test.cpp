// SPDX-License-Identifier: GPL-3.0-or-later
#include "cadhost/HostFixture.h"
#include "devices/ReadPc3.h"

#include <gmock/gmock.h>

namespace sm::cadhost {
namespace {

constexpr const char* kHead = "Format: 1\nDevice: Office\nDriver: ps8.hdi\nResolution: 600\n";

TEST(Pc3FileTest, ReadsHeadMediaAndMargins)
{
    const Pc3File file =
        ParsePc3("\xEF\xBB\xBF# ours\r\nFormat: 1\r\nDevice: Büro\r\nDriver: ps8.hdi\r\nResolution: 1200\r\n"
                 "Margins: 5 6.5 7 8\r\n\r\n[Media]\r\nA4 | ISO A4 | 210 | 297\r\nA3 | ISO A3|420|297|0 0 0 0",
                 "x.pc3");
    EXPECT_EQ(file.device, "Büro");
    EXPECT_EQ(file.driver, "ps8.hdi");
    EXPECT_EQ(file.resolution, 1200);
    EXPECT_THAT(file.media, ::testing::ElementsAre(Medium{"A4", "ISO A4", 210, 297, {5, 6.5, 7, 8}},
                                                   Medium{"A3", "ISO A3", 420, 297, {0, 0, 0, 0}}));
    EXPECT_EQ(file.FindMedium("A5"), nullptr);
}

struct BrokenRow {
    const char* name;
    std::string text;
    const char* expected;
};
class BrokenPc3Test : public ::testing::TestWithParam<BrokenRow> {};

TEST_P(BrokenPc3Test, IsOneClearError)
{
    EXPECT_EQ(ErrorOf([&] { ParsePc3(GetParam().text, "Office.pc3"); }), GetParam().expected);
}

const std::string kMedia = std::string(kHead) + "[Media]\n";

INSTANTIATE_TEST_SUITE_P(
    Texts, BrokenPc3Test,
    ::testing::Values(
        BrokenRow{"Empty", "", "Office.pc3: the plotter configuration has no 'Format: 1'"},
        BrokenRow{"OtherFormat", "Format: 2\n", "Office.pc3, line 1: format '2' is not known, only 1"},
        BrokenRow{"NoMedia", kHead, "Office.pc3: the plotter configuration has no media"},
        BrokenRow{"NoDevice", "Format: 1\n", "Office.pc3: the plotter configuration has no device"},
        BrokenRow{"Binary", std::string("Format: 1\nDev\x01", 14), "Office.pc3, line 2: this is not text"},
        BrokenRow{"NotAnItem", "Format: 1\nhello\n", "Office.pc3, line 2: expected 'Name: value' or '[Media]'"},
        BrokenRow{"UnknownItem", "Format: 1\nColour: 7\n", "Office.pc3, line 2: 'Colour' is not known here"},
        BrokenRow{"CoarseResolution", "Resolution: 10\n",
                  "Office.pc3, line 1: the resolution '10' is not a whole number from 36 to 9600"},
        BrokenRow{"ResolutionInWords", "Resolution: high\n",
                  "Office.pc3, line 1: the resolution 'high' is not a whole number from 36 to 9600"},
        BrokenRow{"NegativeWidth", kMedia + "A4 | A4 | -5 | 297\n",
                  "Office.pc3, line 6: the width '-5' is not a length from 1 to 100000 mm"},
        BrokenRow{"HugeHeight", kMedia + "A4 | A4 | 210 | 1e300\n",
                  "Office.pc3, line 6: the height '1e300' is not a length from 1 to 100000 mm"},
        BrokenRow{"CommaDecimals", kMedia + "A4 | A4 | 215,9 | 297\n",
                  "Office.pc3, line 6: the width '215,9' is not a length from 1 to 100000 mm"},
        BrokenRow{"TooFewFields", kMedia + "A4 | 210 | 297\n",
                  "Office.pc3, line 6: a medium has four or five fields between bars"},
        BrokenRow{"NoName", kMedia + " | A4 | 210 | 297\n", "Office.pc3, line 6: a medium needs both its names"},
        BrokenRow{"ThreeMargins", kMedia + "A4 | A4 | 210 | 297 | 1 2 3\n",
                  "Office.pc3, line 6: margins are four lengths: left, bottom, right, top"},
        BrokenRow{"NegativeMargin", kMedia + "A4 | A4 | 210 | 297 | 1 2 3 -4\n",
                  "Office.pc3, line 6: the margin '-4' is not a length of 0 mm or more"},
        BrokenRow{"MarginsOverAll", kMedia + "A4 | A4 | 210 | 297 | 110 0 100 0\n",
                  "Office.pc3, line 6: the margins leave nothing of 'A4'"},
        BrokenRow{"Twice", kMedia + "A4 | A4 | 210 | 297\nA4 | A4 | 297 | 210\n",
                  "Office.pc3, line 7: the medium 'A4' is there twice"}),
    [](const auto& row) { return row.param.name; });

class Pc3FolderTest : public HostTest {};

TEST_F(Pc3FolderTest, RefusesWhatIsNotThereOrTooLarge)
{
    EXPECT_EQ(ErrorOf([&] { ReadPc3((folder / "none.pc3").string()); }),
              "none.pc3: the plotter configuration can't be read: No such file or directory");
    EXPECT_EQ(ErrorOf([&] { ReadPc3(Write("big.pc3", std::string(2 << 20, '#'))); }),
              "big.pc3: the plotter configuration is larger than 1 MiB");
}

struct ShippedRow {
    const char* name;
    const char* file;
    const char* driver;
    int resolution;
};
class ShippedPc3Test : public ::testing::TestWithParam<ShippedRow> {};

struct SizeRow {
    const char* canonicalName;
    const char* localeName;
    double width, height;
};
constexpr SizeRow kSizes[] = {
    {"ANSI_A_(8.50_x_11.00_Inches)", "ANSI A (8.50 x 11.00 Inches)", 8.5 * 25.4, 11 * 25.4},
    {"ANSI_A_(11.00_x_8.50_Inches)", "ANSI A (11.00 x 8.50 Inches)", 11 * 25.4, 8.5 * 25.4},
    {"ANSI_B_(11.00_x_17.00_Inches)", "ANSI B (11.00 x 17.00 Inches)", 11 * 25.4, 17 * 25.4},
    {"ANSI_B_(17.00_x_11.00_Inches)", "ANSI B (17.00 x 11.00 Inches)", 17 * 25.4, 11 * 25.4},
    {"ANSI_C_(17.00_x_22.00_Inches)", "ANSI C (17.00 x 22.00 Inches)", 17 * 25.4, 22 * 25.4},
    {"ANSI_C_(22.00_x_17.00_Inches)", "ANSI C (22.00 x 17.00 Inches)", 22 * 25.4, 17 * 25.4},
    {"ANSI_D_(22.00_x_34.00_Inches)", "ANSI D (22.00 x 34.00 Inches)", 22 * 25.4, 34 * 25.4},
    {"ANSI_D_(34.00_x_22.00_Inches)", "ANSI D (34.00 x 22.00 Inches)", 34 * 25.4, 22 * 25.4},
    {"ANSI_E_(34.00_x_44.00_Inches)", "ANSI E (34.00 x 44.00 Inches)", 34 * 25.4, 44 * 25.4},
    {"ANSI_E_(44.00_x_34.00_Inches)", "ANSI E (44.00 x 34.00 Inches)", 44 * 25.4, 34 * 25.4},
    {"ARCH_C_(18.00_x_24.00_Inches)", "ARCH C (18.00 x 24.00 Inches)", 18 * 25.4, 24 * 25.4},
    {"ARCH_C_(24.00_x_18.00_Inches)", "ARCH C (24.00 x 18.00 Inches)", 24 * 25.4, 18 * 25.4},
    {"ARCH_D_(24.00_x_36.00_Inches)", "ARCH D (24.00 x 36.00 Inches)", 24 * 25.4, 36 * 25.4},
    {"ARCH_D_(36.00_x_24.00_Inches)", "ARCH D (36.00 x 24.00 Inches)", 36 * 25.4, 24 * 25.4},
    {"ARCH_E_(36.00_x_48.00_Inches)", "ARCH E (36.00 x 48.00 Inches)", 36 * 25.4, 48 * 25.4},
    {"ARCH_E_(48.00_x_36.00_Inches)", "ARCH E (48.00 x 36.00 Inches)", 48 * 25.4, 36 * 25.4},
    {"ARCH_E1_(30.00_x_42.00_Inches)", "ARCH E1 (30.00 x 42.00 Inches)", 30 * 25.4, 42 * 25.4},
    {"ARCH_E1_(42.00_x_30.00_Inches)", "ARCH E1 (42.00 x 30.00 Inches)", 42 * 25.4, 30 * 25.4},
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

TEST_P(ShippedPc3Test, OffersTheTwentyEightSheets)
{
    const Pc3File file = ReadPc3(kShare + "/PC3/" + GetParam().file);
    EXPECT_EQ(file.device + ".pc3", GetParam().file);
    EXPECT_EQ(file.driver, GetParam().driver);
    EXPECT_EQ(file.resolution, GetParam().resolution);
    ASSERT_EQ(file.media.size(), std::size(kSizes));
    for (std::size_t i = 0; i < file.media.size(); ++i) {
        SCOPED_TRACE(kSizes[i].canonicalName);
        EXPECT_EQ(file.media[i].canonicalName, kSizes[i].canonicalName);
        EXPECT_EQ(file.media[i].localeName, kSizes[i].localeName);
        EXPECT_NEAR(file.media[i].width, kSizes[i].width, 1e-9);
        EXPECT_NEAR(file.media[i].height, kSizes[i].height, 1e-9);
        EXPECT_EQ(file.media[i].margins, (Margins{5, 5, 5, 5}));
    }
}

INSTANTIATE_TEST_SUITE_P(Files, ShippedPc3Test,
                         ::testing::Values(ShippedRow{"Ps6High", "Tarnwick PS6 HighRes.pc3", "ps6.hdi", 1200},
                                           ShippedRow{"Ps6Mid", "Tarnwick PS6 MidRes.pc3", "ps6.hdi", 600},
                                           ShippedRow{"Ps7High", "Tarnwick PS7 HighRes.pc3", "ps7.hdi", 1200},
                                           ShippedRow{"Ps7Mid", "Tarnwick PS7 MidRes.pc3", "ps7.hdi", 600},
                                           ShippedRow{"Ps8High", "Tarnwick PS8 HighRes.pc3", "ps8.hdi", 1200},
                                           ShippedRow{"Ps8Mid", "Tarnwick PS8 MidRes.pc3", "ps8.hdi", 600}),
                         [](const auto& row) { return row.param.name; });

} // namespace
} // namespace sm::cadhost
