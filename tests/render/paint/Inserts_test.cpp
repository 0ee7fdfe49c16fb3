// SPDX-License-Identifier: GPL-3.0-or-later
// Inserts: scale, turn, mirror, arrays, nesting, attributes, dimensions; blocks that hold themselves.
#include "render/SmallDrawing.h"

#include <gmock/gmock.h>

namespace sm::render {
namespace {

constexpr const char* kBlocks =
    "0 BLOCK | 8 0 | 2 ARC | 70 0 | 10 0 | 20 0 | 3 ARC | 0 ARC | 8 0 | 10 0 | 20 0 | 40 10 | 50 0 | 51 90 | 0 ENDBLK "
    "| 8 0 |"
    "0 BLOCK | 8 0 | 2 CIRCLE | 70 0 | 10 0 | 20 0 | 3 CIRCLE | 0 CIRCLE | 8 0 | 10 0 | 20 0 | 40 10 | 0 ENDBLK | 8 0 |"
    "0 BLOCK | 8 0 | 2 LINE | 70 0 | 10 1 | 20 1 | 3 LINE | 0 LINE | 8 0 | 10 1 | 20 1 | 11 3 | 21 1 | 0 ENDBLK | 8 0 |"
    "0 BLOCK | 8 0 | 2 NESTED | 70 0 | 10 0 | 20 0 | 3 NESTED | 0 INSERT | 8 0 | 2 LINE | 10 5 | 20 0 | 50 90 | 0 "
    "ENDBLK |"
    "8 0 |"
    "0 BLOCK | 8 0 | 2 SELF | 70 0 | 10 0 | 20 0 | 3 SELF | 0 LINE | 8 0 | 10 1 | 20 1 | 11 3 | 21 1 |"
    "0 INSERT | 8 0 | 2 SELF | 10 5 | 20 0 | 0 ENDBLK | 8 0 |"
    "0 BLOCK | 8 0 | 2 PING | 70 0 | 10 0 | 20 0 | 3 PING | 0 INSERT | 8 0 | 2 PONG | 10 5 | 20 0 | 0 ENDBLK | 8 0 |"
    "0 BLOCK | 8 0 | 2 PONG | 70 0 | 10 0 | 20 0 | 3 PONG | 0 INSERT | 8 0 | 2 PING | 10 5 | 20 0 | 0 ENDBLK | 8 0 |"
    "0 BLOCK | 8 0 | 2 EMPTY | 70 0 | 10 0 | 20 0 | 3 EMPTY | 0 ENDBLK | 8 0 |"
    "0 BLOCK | 8 0 | 2 TAGGED | 70 2 | 10 0 | 20 0 | 3 TAGGED |"
    "0 ATTDEF | 8 0 | 10 0 | 20 0 | 40 2 | 1 fixed | 3 p | 2 T | 70 2 |"
    "0 ATTDEF | 8 0 | 10 0 | 20 0 | 40 2 | 1 free | 3 p | 2 F | 70 0 | 0 ENDBLK | 8 0 |"
    "0 BLOCK | 8 0 | 2 *D1 | 70 1 | 10 0 | 20 0 | 3 *D1 | 0 LINE | 8 0 | 62 0 | 10 1 | 20 2 | 11 3 | 21 4 | 0 ENDBLK | "
    "8 0";

struct InsertRow {
    const char* name;
    const char* entities;
    Lines lines;
};

class InsertsTest : public testing::TestWithParam<InsertRow> {};

TEST_P(InsertsTest, DrawsAsWritten)
{
    SmallDrawing drawing;
    drawing.blocks = kBlocks;
    drawing.entities = GetParam().entities;
    EXPECT_EQ(LinesOf(drawing), GetParam().lines);
}

const InsertRow kInsertRows[] = {
    {"BasePointLandsOnTheInsertionPoint",
     "0 INSERT | 8 0 | 2 LINE | 10 20 | 20 30",
     {"stroke 000000 0.25 m 20 30 l 22 30"}},
    {"ScaledAndTurned",
     "0 INSERT | 8 0 | 2 LINE | 10 20 | 20 30 | 41 3 | 42 3 | 50 90",
     {"stroke 000000 0.25 m 20 30 l 20 36"}},
    {"MirroredArcRunsTheOtherWay",
     "0 INSERT | 8 0 | 2 ARC | 10 50 | 20 50 | 41 -1 | 42 1",
     {"stroke 000000 0.25 m 40 50 c 40 55.523 44.477 60 50 60"}},
    {"CircleBecomesAnEllipse",
     "0 INSERT | 8 0 | 2 CIRCLE | 10 50 | 20 50 | 41 2 | 42 0.5",
     {"stroke 000000 0.25 m 70 50 c 70 52.761 61.046 55 50 55 c 38.954 55 30 52.761 30 50 c 30 47.239 38.954 45 50 45 "
      "c "
      "61.046 45 70 47.239 70 50 h"}},
    {"SeenFromBelow",
     "0 INSERT | 8 0 | 2 LINE | 10 -20 | 20 30 | 210 0 | 220 0 | 230 -1",
     {"stroke 000000 0.25 m 20 30 l 18 30"}},
    {"ArrayTurnsWithTheInsert",
     "0 INSERT | 8 0 | 2 LINE | 10 50 | 20 50 | 41 2 | 42 2 | 50 90 | 70 2 | 71 2 | 44 10 | 45 20",
     {"stroke 000000 0.25 m 50 50 l 50 54", "stroke 000000 0.25 m 50 60 l 50 64", "stroke 000000 0.25 m 30 50 l 30 54",
      "stroke 000000 0.25 m 30 60 l 30 64"}},
    {"Nested", "0 INSERT | 8 0 | 2 NESTED | 10 10 | 20 10 | 41 2 | 42 2", {"stroke 000000 0.25 m 20 10 l 20 14"}},
    {"AttributesOfTheInsertAndConstantOnesOfTheBlock",
     "0 INSERT | 8 0 | 2 TAGGED | 66 1 | 10 10 | 20 10 | 0 ATTRIB | 8 0 | 62 1 | 10 12 | 20 13 | 40 2 | 1 value | 2 F "
     "| 70 0 |"
     "0 ATTRIB | 8 0 | 10 12 | 20 13 | 40 2 | 1 unseen | 2 G | 70 1 | 0 SEQEND | 8 0",
     {"text 000000 [2 0 0 2 10 10] fixed", "text FF0000 [2 0 0 2 12 13] value"}},
    {"DimensionByItsBlock",
     "0 DIMENSION | 8 0 | 62 3 | 2 *D1 | 10 0 | 20 0 | 70 0",
     {"stroke 00FF00 0.25 m 1 2 l 3 4"}},
    {"DimensionsShowTheirBlockAtItsOffset",
     "0 DIMENSION | 8 0 | 62 3 | 2 *D1 | 10 0 | 20 0 | 12 10 | 22 -1 | 70 0",
     {"stroke 00FF00 0.25 m 11 1 l 13 3"}},
    {"OffsetsOfDimensionsSeenFromBelow",
     "0 DIMENSION | 8 0 | 62 3 | 2 *D1 | 10 0 | 20 0 | 12 -10 | 22 5 | 70 0 | 210 0 | 220 0 | 230 -1",
     {"stroke 00FF00 0.25 m 11 7 l 13 9"}},
    {"DefinitionsOfNoBlockShowTheirTag",
     "0 ATTDEF | 8 0 | 10 20 | 20 30 | 40 2 | 1 value | 3 p | 2 ROOM_NO | 70 1",
     {"text 000000 [2 0 0 2 20 30] ROOM_NO"}},
};

INSTANTIATE_TEST_SUITE_P(Entities, InsertsTest, testing::ValuesIn(kInsertRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct InsertReportRow {
    const char* name;
    const char* entities;
    const char* counts;
    Lines notDrawn;
    Lines remarks;
};

class InsertReportsTest : public testing::TestWithParam<InsertReportRow> {};

// The blocks above hold 12 entities.
TEST_P(InsertReportsTest, SumsUpToTheEntitiesRead)
{
    SmallDrawing drawing;
    drawing.blocks = kBlocks;
    drawing.entities = GetParam().entities;
    const Drawn drawn = Render(drawing);
    EXPECT_EQ(drawn.counts, GetParam().counts);
    EXPECT_EQ(drawn.notDrawn, GetParam().notDrawn);
    EXPECT_EQ(drawn.remarks, GetParam().remarks);
}

const InsertReportRow kInsertReportRows[] = {
    {"MissingBlock",
     "0 INSERT | 8 0 | 2 NOWHERE | 10 0 | 20 0",
     "not drawn 1 not reached 11",
     {"INSERT 0 1"},
     {"a block that an insert names is missing 1"}},
    {"BlockThatHoldsItself",
     "0 INSERT | 8 0 | 2 SELF | 10 0 | 20 0",
     "drawn 2 not drawn 1 not reached 9",
     {"INSERT 0 1"},
     {"a block that holds itself left out 1"}},
    {"PairOfBlocks",
     "0 INSERT | 8 0 | 2 PING | 10 0 | 20 0",
     "not drawn 3 not reached 9",
     {"INSERT 0 3"},
     {"a block that holds itself left out 1"}},
    {"EmptyBlock", "0 INSERT | 8 0 | 2 EMPTY | 10 0 | 20 0", "off page 1 not reached 11", {}, {}},
    {"OffThePage", "0 INSERT | 8 0 | 2 LINE | 10 500 | 20 0", "off page 2 not reached 10", {}, {}},
    {"PartlyOffThePageCountsAsDrawn",
     "0 INSERT | 8 0 | 2 LINE | 10 500 | 20 0 | 0 INSERT | 8 0 | 2 LINE | 10 5 | 20 0",
     "drawn 2 off page 1 not reached 10",
     {},
     {}},
    {"UnknownKind",
     "0 ACAD_PROXY_ENTITY | 8 0 | 0 LINE | 8 0 | 10 1 | 11 2",
     "drawn 1 not drawn 1 not reached 11",
     {"ACAD_PROXY_ENTITY 0 1"},
     {}},
    {"FailingTextEndsNothing",
     "0 TEXT | 8 0 | 10 5 | 20 5 | 40 2 | 1 throw | 0 LINE | 8 0 | 10 1 | 11 2",
     "drawn 1 not drawn 1 not reached 11",
     {"TEXT 0 1"},
     {"an entity gave up half-way 1"}},
    {"HugeArray", "0 INSERT | 8 0 | 2 EMPTY | 10 0 | 20 0 | 70 1000 | 71 1000", "off page 1 not reached 11", {}, {}},
};

INSTANTIATE_TEST_SUITE_P(Drawings, InsertReportsTest, testing::ValuesIn(kInsertReportRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ExpansionTest, StopsAtItsLimit)
{
    // Each block holds the next one a thousand times a thousand times: without a limit this never ends.
    SmallDrawing drawing;
    for (int i = 0; i < 5; ++i) {
        const std::string name = "B" + std::to_string(i);
        drawing.blocks += (i > 0 ? "| 0 BLOCK | 8 0 | 2 " : "0 BLOCK | 8 0 | 2 ") + name +
                          " | 70 0 | 10 0 | 20 0 | 3 " + name + "| 0 INSERT | 8 0 | 2 B" + std::to_string(i + 1) +
                          " | 10 0 | 20 0 | 70 1000 | 71 1000 | 0 ENDBLK | 8 0";
    }
    drawing.entities = "0 INSERT | 8 0 | 2 B0 | 10 0 | 20 0 | 0 LINE | 8 0 | 10 1 | 11 2";
    drawing.blocks += "| 0 BLOCK | 8 0 | 2 B5 | 70 0 | 10 0 | 20 0 | 3 B5 | 0 ENDBLK | 8 0";
    const Drawn drawn = Render(drawing);
    EXPECT_FALSE(drawn.remarks.empty());
    EXPECT_EQ(drawn.lines.back(), "pop");
}

TEST(MarksTest, NameTheEntityBehindEachCall)
{
    SmallDrawing drawing;
    drawing.layers = "0 LAYER | 2 Walls | 70 0 | 62 1 | 6 Continuous";
    drawing.blocks =
        "0 BLOCK | 8 0 | 2 B | 70 0 | 10 0 | 20 0 | 3 B | 0 LINE | 5 1F | 8 Walls | 10 1 | 11 2 | 0 ENDBLK | 8 0";
    drawing.entities = "0 INSERT | 5 2A | 8 0 | 2 B | 10 0 | 20 0 | 0 LINE | 5 2B | 8 0 | 10 900 | 11 901";
    SmallScene look;
    look.marks = true;
    EXPECT_EQ(LinesOf(drawing, look), (Lines{"begin 1f LINE Walls by 1", "stroke FF0000 0.25 m 1 0 l 2 0", "end"}));
}

TEST(MarksTest, TellWhichLayerShowsAnEntityWhereEveryLayerIsDrawn)
{
    SmallDrawing drawing;
    drawing.layers = "0 LAYER | 2 Off | 70 0 | 62 -1 | 6 Continuous | 0 LAYER | 2 Cold | 70 1 | 62 2 | 6 Continuous |"
                     "0 LAYER | 2 On | 70 0 | 62 3 | 6 Continuous";
    drawing.blocks = "0 BLOCK | 8 0 | 2 B | 70 0 | 10 0 | 20 0 | 3 B | 0 LINE | 5 1E | 8 0 | 10 1 | 11 2 |"
                     "0 LINE | 5 1F | 8 On | 10 2 | 11 3 | 0 ENDBLK | 8 0";
    drawing.entities = "0 LINE | 5 20 | 8 Off | 10 3 | 11 4 | 0 INSERT | 5 2A | 8 Off | 2 B | 10 10 | 20 0 |"
                       "0 INSERT | 5 2B | 8 Cold | 2 B | 10 20 | 20 0 | 0 LINE | 5 21 | 8 On | 60 1 | 10 5 | 11 6";
    SmallScene look;
    look.marks = true;
    look.everyLayer = true;
    EXPECT_EQ(LinesOf(drawing, look), (Lines{"begin 20 LINE Off by 1", "stroke FF0000 0.25 m 3 0 l 4 0", "end",  //
                                             "begin 1e LINE 0 by 1", "stroke FF0000 0.25 m 11 0 l 12 0", "end",  //
                                             "begin 1f LINE On by 3", "stroke 00FF00 0.25 m 12 0 l 13 0", "end", //
                                             "begin 1e LINE 0 by 2", "stroke FFFF00 0.25 m 21 0 l 22 0", "end",  //
                                             "begin 1f LINE On by 2", "stroke 00FF00 0.25 m 22 0 l 23 0", "end"}));
}

} // namespace
} // namespace sm::render
