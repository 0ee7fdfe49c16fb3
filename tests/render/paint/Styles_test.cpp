// SPDX-License-Identifier: GPL-3.0-or-later
// Colour, line type, lineweight and visibility: by layer, by block, through nested inserts.
#include "render/SmallDrawing.h"

#include "ink/Palette.h"

#include <gmock/gmock.h>

namespace sm::render {
namespace {

constexpr const char* kStyledLayers = "0 LAYER | 2 Red | 70 0 | 62 1 | 6 Continuous | 370 50 |"
                                      "0 LAYER | 2 True | 70 0 | 62 3 | 420 1193046 | 6 Continuous |"
                                      "0 LAYER | 2 Off | 70 0 | 62 -2 | 6 Continuous |"
                                      "0 LAYER | 2 Frozen | 70 1 | 62 2 | 6 Continuous |"
                                      "0 LAYER | 2 Screen | 70 0 | 62 2 | 6 Continuous | 290 0 |"
                                      "0 LAYER | 2 DEFPOINTS | 70 0 | 62 2 | 6 Continuous";

constexpr const char* kMixedBlock = "0 BLOCK | 8 0 | 2 MIXED | 70 0 | 10 0 | 20 0 | 3 MIXED |"
                                    "0 LINE | 8 0 | 10 0 | 20 0 | 11 1 | 21 0 |"
                                    "0 LINE | 8 0 | 62 0 | 370 -2 | 10 0 | 20 1 | 11 1 | 21 1 |"
                                    "0 LINE | 8 Red | 10 0 | 20 2 | 11 1 | 21 2 |"
                                    "0 LINE | 8 Red | 62 5 | 370 100 | 10 0 | 20 3 | 11 1 | 21 3 | 0 ENDBLK | 8 0 |"
                                    "0 BLOCK | 8 0 | 2 OUTER | 70 0 | 10 0 | 20 0 | 3 OUTER |"
                                    "0 INSERT | 8 0 | 62 0 | 370 -2 | 2 MIXED | 10 10 | 20 10 | 0 ENDBLK | 8 0";

struct StyleRow {
    const char* name;
    const char* entities;
    Lines lines;
    const char* counts;
};

class StylesTest : public testing::TestWithParam<StyleRow> {};

TEST_P(StylesTest, ResolvesAsTheDrawingSays)
{
    SmallDrawing drawing;
    drawing.layers = kStyledLayers;
    drawing.blocks = kMixedBlock;
    drawing.entities = GetParam().entities;
    EXPECT_EQ(LinesOf(drawing), GetParam().lines);
    EXPECT_EQ(Render(drawing).counts, GetParam().counts);
}

const StyleRow kStyleRows[] = {
    {"ByLayer", "0 LINE | 8 Red | 10 1 | 11 2", {"stroke FF0000 0.5 m 1 0 l 2 0"}, "drawn 1 not reached 5"},
    {"LayerTrueColour", "0 LINE | 8 True | 10 1 | 11 2", {"stroke 123456 0.25 m 1 0 l 2 0"}, "drawn 1 not reached 5"},
    {"OwnIndex",
     "0 LINE | 8 Red | 62 30 | 370 13 | 10 1 | 11 2",
     {"stroke FF7F00 0.13 m 1 0 l 2 0"},
     "drawn 1 not reached 5"},
    {"IndexSevenIsBlack",
     "0 LINE | 8 Red | 62 7 | 10 1 | 11 2",
     {"stroke 000000 0.5 m 1 0 l 2 0"},
     "drawn 1 not reached 5"},
    {"TrueColourStaysWhite",
     "0 LINE | 8 Red | 420 16777215 | 10 1 | 11 2",
     {"stroke FFFFFF 0.5 m 1 0 l 2 0"},
     "drawn 1 not reached 5"},
    {"WhiteThatIsIndexSevenIsBlack",
     "0 LINE | 8 Red | 62 7 | 420 16777215 | 10 1 | 11 2",
     {"stroke 000000 0.5 m 1 0 l 2 0"},
     "drawn 1 not reached 5"},
    {"LineweightZeroIsTheThinnest",
     "0 LINE | 8 Red | 370 0 | 10 1 | 11 2",
     {"stroke FF0000 0 m 1 0 l 2 0"},
     "drawn 1 not reached 5"},
    {"LineweightDefault",
     "0 LINE | 8 Red | 370 -3 | 10 1 | 11 2",
     {"stroke FF0000 0.25 m 1 0 l 2 0"},
     "drawn 1 not reached 5"},
    {"MissingLayerIsLayerZero",
     "0 LINE | 8 Nowhere | 10 1 | 11 2",
     {"stroke 000000 0.25 m 1 0 l 2 0"},
     "drawn 1 not reached 5"},
    {"ByBlockOutsideABlockIsBlack",
     "0 LINE | 8 Red | 62 0 | 370 -2 | 10 1 | 11 2",
     {"stroke 000000 0.25 m 1 0 l 2 0"},
     "drawn 1 not reached 5"},
    {"LayerOff", "0 LINE | 8 Off | 10 1 | 11 2", {}, "hidden 1 not reached 5"},
    {"LayerFrozen", "0 LINE | 8 Frozen | 10 1 | 11 2", {}, "hidden 1 not reached 5"},
    {"LayerNotPlotted", "0 LINE | 8 Screen | 10 1 | 11 2", {}, "hidden 1 not reached 5"},
    {"DefpointsNeverPlot", "0 LINE | 8 Defpoints | 10 1 | 11 2", {}, "hidden 1 not reached 5"},
    {"InvisibleEntity", "0 LINE | 8 0 | 60 1 | 10 1 | 11 2", {}, "hidden 1 not reached 5"},
    {"LayerZeroTakesTheInsertsLayer",
     "0 INSERT | 8 Red | 2 MIXED | 10 0 | 20 0",
     {"stroke FF0000 0.5 m 0 0 l 1 0", "stroke FF0000 0.5 m 0 1 l 1 1", "stroke FF0000 0.5 m 0 2 l 1 2",
      "stroke 0000FF 1 m 0 3 l 1 3"},
     "drawn 5 not reached 1"},
    {"ByBlockTakesTheInsertsColour",
     "0 INSERT | 8 Red | 62 3 | 370 70 | 2 MIXED | 10 0 | 20 0",
     {"stroke FF0000 0.5 m 0 0 l 1 0", "stroke 00FF00 0.7 m 0 1 l 1 1", "stroke FF0000 0.5 m 0 2 l 1 2",
      "stroke 0000FF 1 m 0 3 l 1 3"},
     "drawn 5 not reached 1"},
    {"ByBlockGoesThroughTwoInserts",
     "0 INSERT | 8 True | 62 6 | 370 35 | 2 OUTER | 10 0 | 20 0",
     {"stroke 123456 0.25 m 10 10 l 11 10", "stroke FF00FF 0.35 m 10 11 l 11 11", "stroke FF0000 0.5 m 10 12 l 11 12",
      "stroke 0000FF 1 m 10 13 l 11 13"},
     "drawn 6"},
    {"InsertOnAFrozenLayerHidesAll", "0 INSERT | 8 Frozen | 2 MIXED | 10 0 | 20 0", {}, "hidden 1 not reached 5"},
    {"InsertOnALayerThatIsOffShowsOtherLayers",
     "0 INSERT | 8 Off | 2 MIXED | 10 0 | 20 0",
     {"stroke FF0000 0.5 m 0 2 l 1 2", "stroke 0000FF 1 m 0 3 l 1 3"},
     "drawn 3 hidden 2 not reached 1"},
};

TEST(TransparencyTest, ComesFromTheEntityItsLayerOrItsInsert)
{
    SmallDrawing drawing;
    drawing.layers = "0 LAYER | 2 Glass | 70 0 | 62 1 | 6 Continuous | 1001 AcCmTransparency | 1071 33554482";
    drawing.blocks = "0 BLOCK | 8 0 | 2 B | 70 0 | 10 0 | 20 0 | 3 B | 0 LINE | 8 0 | 440 16777216 | 10 0 | 11 1 |"
                     "0 ENDBLK | 8 0";
    drawing.entities =
        "0 LINE | 8 Glass | 10 1 | 11 2 | 0 LINE | 8 Glass | 440 33554559 | 10 2 | 11 3 |"
        "0 LINE | 8 0 | 440 33554432 | 10 3 | 11 4 | 0 LINE | 8 Glass | 440 33554687 | 10 4 | 11 5 |"
        "0 INSERT | 8 0 | 440 33554559 | 2 B | 10 6 | 20 0 | 0 TEXT | 8 Glass | 10 1 | 20 1 | 40 2 | 1 T";
    EXPECT_EQ(LinesOf(drawing), (Lines{"stroke FF0000~205 0.25 m 1 0 l 2 0", "stroke FF0000~128 0.25 m 2 0 l 3 0",
                                       "stroke 000000~254 0.25 m 3 0 l 4 0", "stroke FF0000 0.25 m 4 0 l 5 0",
                                       "stroke 000000~128 0.25 m 6 0 l 7 0", "text FF0000~205 [2 0 0 2 1 1] T"}));
}

INSTANTIATE_TEST_SUITE_P(Entities, StylesTest, testing::ValuesIn(kStyleRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(LineweightsTest, AreScaledOrLeftOut)
{
    SmallDrawing drawing;
    drawing.entities = "0 LINE | 8 0 | 370 40 | 10 1 | 11 2";
    SmallScene scaled;
    scaled.lineweightScale = 0.5;
    SmallScene without;
    without.lineweights = false;
    EXPECT_EQ(LinesOf(drawing, scaled), Lines{"stroke 000000 0.2 m 1 0 l 2 0"});
    EXPECT_EQ(LinesOf(drawing, without), Lines{"stroke 000000 0 m 1 0 l 2 0"});
}

struct ColorRow {
    std::int16_t index;
    std::uint32_t rgb;
};

TEST(PaletteTest, HoldsTheColoursOfTheIndex)
{
    constexpr ColorRow kColors[] = {
        {1, 0xFF0000},   {2, 0xFFFF00},   {3, 0x00FF00},   {4, 0x00FFFF},   {5, 0x0000FF},   {6, 0xFF00FF},
        {7, 0x000000},   {8, 0x808080},   {9, 0xC0C0C0},   {10, 0xFF0000},  {11, 0xFF7F7F},  {12, 0xA50000},
        {13, 0xA55252},  {20, 0xFF3F00},  {23, 0xA56752},  {42, 0xA57C00},  {50, 0xFFFF00},  {60, 0xBFFF00},
        {90, 0x00FF00},  {110, 0x00FF7F}, {130, 0x00FFFF}, {150, 0x007FFF}, {170, 0x0000FF}, {190, 0x7F00FF},
        {210, 0xFF00FF}, {240, 0xFF003F}, {249, 0x261317}, {250, 0x333333}, {254, 0xBEBEBE}, {255, 0xFFFFFF},
        {256, 0x000000}, {-5, 0x000000},
    };
    for (const auto& [index, rgb] : kColors) {
        EXPECT_EQ(RecordingCanvas::Color(PaperColor(index)), RecordingCanvas::Color(rgb)) << index;
    }
}

} // namespace
} // namespace sm::render
