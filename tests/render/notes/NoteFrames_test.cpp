// SPDX-License-Identifier: GPL-3.0-or-later
// Tolerance frames, multilines and tables.
#include "render/SmallDrawing.h"

#include <gmock/gmock.h>

namespace sm::render {
namespace {

struct NoteFrameRow {
    const char* name;
    std::string entities;
    Lines lines;
};

/// Multiline styles: LINES two elements, the second red; CAPS joints, a straight start and a round end; FULL filled.
SmallDrawing WithFrameStyles(const std::string& entities)
{
    SmallDrawing drawing;
    drawing.layers = "0 BLOCK_RECORD | 5 B1 | 2 *T1 | 0 BLOCK_RECORD | 5 B2 | 2 *T2 | 0 BLOCK_RECORD | 5 B3 | 2 CELL |"
                     "0 DIMSTYLE | 105 D1 | 2 A | 140 2 | 147 1 | 176 1 | 178 3";
    drawing.blocks =
        "0 BLOCK | 8 0 | 2 *T1 | 70 1 | 10 0 | 20 0 | 0 LINE | 8 0 | 62 0 | 10 0 | 20 0 | 11 5 | 21 -5 | 0 "
        "ENDBLK | 0 BLOCK | 8 0 | 2 *T2 | 70 1 | 10 0 | 20 0 | 0 ENDBLK | 0 BLOCK | 8 0 | 2 CELL | 70 0 | "
        "10 0 | 20 0 | 0 LINE | 8 0 | 10 0 | 20 0 | 11 1 | 21 0 | 0 ENDBLK";
    drawing.objects = "0 MLINESTYLE | 5 E1 | 2 LINES | 70 0 | 62 256 | 51 90 | 52 90 | 71 2 | 49 0.5 | 62 256 | 6 "
                      "BYLAYER | 49 -0.5 | 62 1 | 6 BYLAYER |"
                      "0 MLINESTYLE | 5 E2 | 2 CAPS | 70 1042 | 62 256 | 71 2 | 49 0.5 | 62 256 | 49 -0.5 | 62 256 |"
                      "0 TABLESTYLE | 5 E4 | 40 1 | 41 1 | 280 1 | 281 0 | 7 S | 140 1.5 | 170 9 | 62 3 | 63 2 | 283 0 "
                      "| 7 S | 140 9 | "
                      "170 1 | 7 S | 140 2 | 170 5 | 62 4 | 63 6 | 283 1 |"
                      "0 MLINESTYLE | 5 E3 | 2 FULL | 70 1 | 62 2 | 71 2 | 49 0.5 | 62 256 | 49 -0.5 | 62 256";
    drawing.entities = entities;
    return drawing;
}

class NoteFramesTest : public testing::TestWithParam<NoteFrameRow> {};

TEST_P(NoteFramesTest, DrawAsWritten)
{
    EXPECT_EQ(LinesOf(WithFrameStyles(GetParam().entities)), GetParam().lines);
}

const NoteFrameRow kTolerances[] = {
    {"CellsInARow",
     "0 TOLERANCE | 8 0 | 3 A | 10 10 | 20 20 | 30 0 | 1 ab%%vc%%v | 11 1 | 21 0 | 31 0",
     {"stroke FF0000 0.25 box 10 18 14.4 22", "stroke FF0000 0.25 box 14.4 18 18.4 22",
      "text 00FF00 [2 0 0 2 11 20] ab", "text 00FF00 [2 0 0 2 15.8 20] c"}},
    {"SignsAndTwoRows",
     "0 TOLERANCE | 8 0 | 3 A | 10 10 | 20 20 | 1 {\\Fgdt;u}%%v{\\Fgdt;m}^Jx | 11 0 | 21 1 | 31 0",
     {"stroke FF0000 0.25 m 12 20 l 12 24.4 l 8 24.4 l 8 20 h", "stroke 00FF00 0.25 m 9.867 21 l 9.867 23.4",
      "stroke FF0000 0.25 m 12 24.4 l 12 28.8 l 8 28.8 l 8 24.4 h",
      "stroke 00FF00 0.25 m 10.133 27.533 c 9.544 27.533 9.067 27.056 9.067 26.467 c 9.067 25.878 9.544 25.4 10.133 "
      "25.4 c 10.722 25.4 11.2 25.878 11.2 26.467 c 11.2 27.056 10.722 27.533 10.133 27.533 h",
      "stroke FF0000 0.25 m 16 20 l 16 24 l 12 24 l 12 20 h", "text 00FF00 [0 1.2 -1.2 0 10.133 26.467] M",
      "text 00FF00 [0 2 -2 0 14 21.4] x"}},
};

INSTANTIATE_TEST_SUITE_P(Tolerances, NoteFramesTest, testing::ValuesIn(kTolerances),
                         [](const auto& row) { return std::string(row.param.name); });

/// From (10, 10) by (30, 10) to (30, 30), 4 wide.
std::string MLine(const std::string& style, const std::string& flags, const std::string& lengths)
{
    return "0 MLINE | 8 0 | 62 5 | 2 " + style + "| 40 4 | 70 1 | 71 " + flags +
           "| 72 3 | 73 2 | 10 10 | 20 10 | 30 0 | 11 10 | 21 10 | 31 0 | 12 1 | 22 0 | 32 0 | 13 0 | 23 1 | 33 0 |" +
           lengths +
           "| 11 30 | 21 10 | 31 0 | 12 0 | 22 1 | 32 0 | 13 -0.70710678 | 23 0.70710678 | 33 0 | 74 2 | 41 2.82842712 "
           "| 41 0 | 75 0 | 74 2 | 41 -2.82842712 | 41 0 | 75 0 | 11 30 | 21 30 | 31 0 | 12 0 | 22 1 | 32 0 | 13 -1 | "
           "23 0 | 33 0 | 74 2 | 41 2 | 41 0 | 75 0 | 74 2 | 41 -2 | 41 0 | 75 0";
}
const std::string kWhole = "74 2 | 41 2 | 41 0 | 75 0 | 74 2 | 41 -2 | 41 0 | 75 0";

const NoteFrameRow kMLines[] = {
    {"TwoElements",
     MLine("LINES", "1", kWhole),
     {"stroke 0000FF 0.25 m 10 12 l 28 12 l 28 30", "stroke FF0000 0.25 m 10 8 l 32 8 l 32 30"}},
    {"Breaks",
     MLine("LINES", "1", "74 4 | 41 2 | 41 0 | 41 5 | 41 8 | 75 0 | 74 3 | 41 -2 | 41 0 | 41 10 | 75 0"),
     {"stroke 0000FF 0.25 m 10 12 l 15 12 m 18 12 l 28 12 l 28 30", "stroke FF0000 0.25 m 10 8 l 20 8 m 32 8 l 32 30"}},
    {"Closed",
     MLine("LINES", "3", kWhole),
     {"stroke 0000FF 0.25 m 10 12 l 28 12 l 28 30 l 10 12", "stroke FF0000 0.25 m 10 8 l 32 8 l 32 30 l 10 8"}},
    {"JointsAndCaps",
     MLine("CAPS", "1", kWhole),
     {"stroke 0000FF 0.25 m 10 12 l 28 12 l 28 30", "stroke 0000FF 0.25 m 10 8 l 32 8 l 32 30",
      "stroke 0000FF 0.25 m 28 12 l 32 8", "stroke 0000FF 0.25 m 10 12 l 10 8",
      "stroke 0000FF 0.25 m 28 30 c 28 31.105 28.895 32 30 32",
      "stroke 0000FF 0.25 m 30 32 c 31.105 32 32 31.105 32 30"}},
    {"CapsLeftOut",
     MLine("CAPS", "13", kWhole),
     {"stroke 0000FF 0.25 m 10 12 l 28 12 l 28 30", "stroke 0000FF 0.25 m 10 8 l 32 8 l 32 30",
      "stroke 0000FF 0.25 m 28 12 l 32 8"}},
    {"Filled",
     MLine("FULL", "1", kWhole),
     {"fill FFFF00 nonzero m 10 12 l 28 12 l 32 8 l 10 8 h", "fill FFFF00 nonzero m 28 12 l 28 30 l 32 30 l 32 8 h",
      "stroke 0000FF 0.25 m 10 12 l 28 12 l 28 30", "stroke 0000FF 0.25 m 10 8 l 32 8 l 32 30"}},
    {"MissingStyle",
     MLine("NONE", "1", kWhole),
     {"stroke 0000FF 0.25 m 10 12 l 28 12 l 28 30", "stroke 0000FF 0.25 m 10 8 l 32 8 l 32 30"}},
    {"OneVertexIsNothing", "0 MLINE | 8 0 | 2 LINES | 11 1 | 21 1 | 74 2 | 41 0 | 41 0", {}},
    {"LengthsThatAreMissing",
     "0 MLINE | 8 0 | 2 LINES | 11 1 | 21 1 | 12 1 | 22 0 | 13 0 | 23 1 | 74 1 | 11 9 | 21 1 | 13 0 | 23 1 | 74 1",
     {"stroke 000000 0.25 m 1 1 l 9 1"}},
};

INSTANTIATE_TEST_SUITE_P(MLines, NoteFramesTest, testing::ValuesIn(kMLines),
                         [](const auto& row) { return std::string(row.param.name); });

const NoteFrameRow kTables[] = {
    {"ByItsBlock",
     "0 ACAD_TABLE | 8 0 | 62 5 | 2 *T1 | 343 B1 | 10 10 | 20 50 | 11 0 | 21 1 | 91 1 | 92 1 | 141 4 | 142 8",
     {"stroke 0000FF 0.25 m 10 50 l 15 55"}},
    {"HollowBlock",
     "0 ACAD_TABLE | 8 0 | 62 5 | 2 *T2 | 343 B2 | 10 10 | 20 50 | 11 1 | 21 0 | 91 2 | 92 2 | 141 4 | 141 5 | 142 8 | "
     "142 6 | 171 1 | 173 0 | 175 2 | 176 1 | 140 2 | 170 5 | 301 CELL_VALUE | 1 raw | 302 Title | 304 ACVALUE_END | "
     "171 1 | 173 1 | 65 1 | 171 1 | 173 0 | 1 old | 140 1 | 170 1 | 64 1 | 63 2 | 283 1 | 171 2 | 340 B3 | 144 2 | "
     "170 1",
     {"stroke 0000FF 0.25 m 10 50 l 24 50", "stroke 0000FF 0.25 m 24 46 l 10 46", "stroke 0000FF 0.25 m 10 46 l 10 50",
      "fill FFFF00 nonzero box 10 41 18 46", "stroke 0000FF 0.25 m 10 46 l 18 46", "stroke 0000FF 0.25 m 18 46 l 18 41",
      "stroke 0000FF 0.25 m 18 41 l 10 41", "stroke 0000FF 0.25 m 10 41 l 10 46", "stroke 0000FF 0.25 m 18 46 l 24 46",
      "stroke 0000FF 0.25 m 24 46 l 24 41", "stroke 0000FF 0.25 m 24 41 l 18 41", "stroke 0000FF 0.25 m 18 41 l 18 46",
      "stroke FF0000 0.25 m 24 50 l 24 46", "text 0000FF [2 0 0 2 17 48] Title",
      "text FF0000 [1 0 0 1 10.06 45.94] old", "stroke 000000 0.25 m 18.06 45.94 l 20.06 45.94"}},
    {"StyleOfItsCells",
     "0 ACAD_TABLE | 8 0 | 342 E4 | 10 10 | 20 50 | 11 1 | 21 0 | 141 10 | 141 10 | 142 20 | 171 1 | 1 head | 171 1 | "
     "1 "
     "data | 66 1 | 276 50 | 288 0",
     {"fill FF00FF nonzero box 10 40 30 50", "stroke 000000 0.25 m 10 50 l 30 50", "stroke 000000 0.25 m 30 50 l 30 40",
      "stroke 000000 0.25 m 30 40 l 10 40", "stroke 000000 0.25 m 10 40 l 10 50", "stroke 000000 0.25 m 10 40 l 30 40",
      "stroke 000000 0.25 m 30 40 l 30 30", "stroke FF0000 0.5 m 30 30 l 10 30", "text 00FFFF [2 0 0 2 20 45] head",
      "text 00FF00 [1.5 0 0 1.5 29 31] data"}},
    {"TurnedTable",
     "0 ACAD_TABLE | 8 0 | 342 E4 | 10 10 | 20 50 | 11 0 | 21 1 | 141 10 | 142 20 | 171 1 | 1 up",
     {"fill FF00FF nonzero m 20 50 l 20 70 l 10 70 l 10 50 h", "stroke 000000 0.25 m 10 50 l 10 70",
      "stroke 000000 0.25 m 10 70 l 20 70", "stroke 000000 0.25 m 20 70 l 20 50", "stroke 000000 0.25 m 20 50 l 10 50",
      "text 00FFFF [0 2 -2 0 15 60] up"}},
    {"MoreCellsThanRows",
     "0 ACAD_TABLE | 8 0 | 10 10 | 20 50 | 141 4 | 142 8 | 171 1 | 171 1 | 171 1",
     {"stroke 000000 0.25 m 10 50 l 18 50", "stroke 000000 0.25 m 18 50 l 18 46", "stroke 000000 0.25 m 18 46 l 10 46",
      "stroke 000000 0.25 m 10 46 l 10 50"}},
};

INSTANTIATE_TEST_SUITE_P(Tables, NoteFramesTest, testing::ValuesIn(kTables),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(MultiLineAttributeTest, DrawsItsOwnMText)
{
    SmallDrawing drawing;
    drawing.blocks = "0 BLOCK | 8 0 | 2 B | 70 2 | 10 0 | 20 0 | 0 ENDBLK";
    drawing.entities =
        "0 INSERT | 8 0 | 2 B | 66 1 | 10 10 | 20 10 | 0 ATTRIB | 8 0 | 62 1 | 10 5 | 20 5 | 40 2 | 1 first "
        "| 2 T | 70 0 | 101 Embedded Object | 10 12 | 20 30 | 30 0 | 40 3 | 41 0 | 71 1 | 1 first\\Psecond | "
        "0 SEQEND | 8 0";
    EXPECT_EQ(LinesOf(drawing), (Lines{"text FF0000 [3 0 0 3 12 30] first\\Psecond"}));
}

} // namespace
} // namespace sm::render
