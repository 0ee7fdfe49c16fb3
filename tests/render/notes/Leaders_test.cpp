// SPDX-License-Identifier: GPL-3.0-or-later
// Leaders and multileaders: arrows, doglegs, hook lines, texts and blocks, by styles and by their own values.
#include "render/SmallDrawing.h"

#include <gmock/gmock.h>

namespace sm::render {
namespace {

struct LeaderRow {
    const char* name;
    std::string entities;
    Lines lines;
};

/// Styles: A arrows 2 x 3 long, black on red; B ticks for leaders by a block of the file. M splines in green without
/// dogleg; S straight with dogleg.
SmallDrawing WithLeaderStyles(const std::string& entities)
{
    SmallDrawing drawing;
    drawing.layers = "0 BLOCK_RECORD | 5 B1 | 2 _TEST | 0 BLOCK_RECORD | 5 B2 | 2 BALLOON |"
                     "0 DIMSTYLE | 105 D1 | 2 A | 40 2 | 41 3 | 147 0.5 | 77 1 | 176 1 |"
                     "0 DIMSTYLE | 105 D2 | 2 B | 41 4 | 341 B1";
    drawing.blocks =
        "0 BLOCK | 8 0 | 2 _TEST | 70 0 | 10 0 | 20 0 | 0 LINE | 8 0 | 62 0 | 10 -1 | 20 0 | 11 0 | 21 0 | 0 ENDBLK |"
        "0 BLOCK | 8 0 | 2 BALLOON | 70 2 | 10 0 | 20 0 | 0 LINE | 8 0 | 62 0 | 10 0 | 20 0 | 11 2 | 21 0 |"
        "0 ATTDEF | 5 A1 | 8 0 | 10 1 | 20 1 | 40 1 | 1 default | 3 p | 2 T | 70 0 | 0 ENDBLK |"
        "0 BLOCK | 8 0 | 2 NOTED | 70 0 | 10 0 | 20 0 | 0 MULTILEADER | 8 0 | 62 0 | 100 AcDbMLeader | 300 "
        "CONTEXT_DATA{ "
        "| 41 2 | 140 0 | 290 1 | 304 deep | 12 10 | 22 10 | 32 0 | 90 -1056964608 | 302 LEADER{ | 290 1 | 10 10 | 20 "
        "10 | 40 0 | 304 LEADER_LINE{ | 10 0 | 20 10 | 305 } | 303 } | 301 } | 170 1 | 91 -1056964608 | 0 ENDBLK";
    drawing.objects = "0 MLEADERSTYLE | 5 E1 | 173 2 | 91 -1023410173 | 340 0 | 92 -2 | 290 1 | 291 0 |"
                      "0 MLEADERSTYLE | 5 E2 | 173 1 | 91 -1056964608 | 92 -2 | 290 1 | 291 1 | 341 B1";
    drawing.entities = entities;
    return drawing;
}

class LeadersTest : public testing::TestWithParam<LeaderRow> {};

TEST_P(LeadersTest, DrawAsWritten)
{
    EXPECT_EQ(LinesOf(WithLeaderStyles(GetParam().entities)), GetParam().lines);
}

const LeaderRow kLeaders[] = {
    {"ArrowAndColourOfTheStyle",
     "0 LEADER | 8 0 | 3 A | 10 0 | 20 10 | 10 30 | 20 10",
     {"fill FF0000 nonzero m 0 10 l 6 11 l 6 9 h", "stroke FF0000 0.25 m 6 10 l 30 10"}},
    {"OwnChangesToTheStyle",
     "0 LEADER | 8 0 | 3 A | 10 0 | 20 10 | 10 30 | 20 10 | 1001 ACAD | 1000 DSTYLE | 1002 { | 1070 41 | 1040 6 | 1070 "
     "176 | 1070 3 | 1002 }",
     {"fill 00FF00 nonzero m 0 10 l 12 12 l 12 8 h", "stroke 00FF00 0.25 m 12 10 l 30 10"}},
    {"ArrowBlock",
     "0 LEADER | 8 0 | 62 5 | 3 B | 10 10 | 20 10 | 10 10 | 20 40",
     {"stroke 0000FF 0.25 m 10 14 l 10 40", "stroke 0000FF 0.25 m 10 14 l 10 10"}},
    {"WithoutArrow", "0 LEADER | 8 0 | 3 A | 71 0 | 10 0 | 20 0 | 10 30 | 20 0", {"stroke FF0000 0.25 m 0 0 l 30 0"}},
    {"HookRunsOnBelowItsText",
     "0 LEADER | 8 0 | 3 A | 71 0 | 73 0 | 75 1 | 40 2 | 41 12 | 10 0 | 20 0 | 10 20 | 20 20 | 10 26 | 20 20",
     {"stroke FF0000 0.25 m 0 0 l 20 20 l 26 20 l 39 20"}},
    {"CurveLeavesAndMeetsItsEndsAlongTheChords",
     "0 LEADER | 8 0 | 3 A | 71 0 | 72 1 | 10 0 | 20 0 | 10 10 | 20 10 | 10 30 | 20 10",
     {"stroke FF0000 0.25 m 0 0 c 3.333 3.333 6.095 8.047 10 10 c 15.523 12.761 23.333 10 30 10"}},
    {"ShorterThanTwoArrows", "0 LEADER | 8 0 | 3 A | 10 0 | 20 0 | 10 11 | 20 0", {"stroke FF0000 0.25 m 0 0 l 11 0"}},
    {"SeenFromBelow",
     "0 LEADER | 8 0 | 3 A | 71 0 | 10 0 | 20 0 | 10 30 | 20 0 | 210 0 | 220 0 | 230 -1",
     {"stroke FF0000 0.25 m 0 0 l 30 0"}},
    {"OneVertexIsNothing", "0 LEADER | 8 0 | 3 A | 10 0 | 20 0", {}},
};

INSTANTIATE_TEST_SUITE_P(Leaders, LeadersTest, testing::ValuesIn(kLeaders),
                         [](const auto& row) { return std::string(row.param.name); });

/// A multileader from (10, 10) by (20, 20) with a dogleg of 5 to the right.
std::string MultiLeader(const std::string& content, const std::string& own, const std::string& line = "")
{
    return "0 MULTILEADER | 5 1F | 8 0 | 62 5 | 100 AcDbMLeader | 300 CONTEXT_DATA{ | 40 1 | 41 2 | 140 3 | 145 1 | "
           "174 "
           "1 | 175 1 |" +
           content +
           "| 302 LEADER{ | 290 1 | 291 1 | 10 20 | 20 20 | 30 0 | 11 1 | 21 0 | 31 0 | 90 0 | 40 5 | 304 LEADER_LINE{ "
           "| 10 10 | 20 20 | 30 0 |" +
           line + "| 91 0 | 305 } | 271 0 | 303 } | 272 9 | 301 } |" + own;
}
const std::string kNoteText =
    "290 1 | 304 Note | 11 0 | 21 0 | 31 1 | 12 26 | 22 21 | 32 0 | 13 1 | 23 0 | 33 0 | 43 0 | 90 "
    "-1023410175 | 171 1 | 296 0";
const std::string kNoteBlock =
    "290 0 | 296 1 | 341 B2 | 14 0 | 24 0 | 34 1 | 15 30 | 25 20 | 35 0 | 16 2 | 26 2 | 36 2 | 46 0 | 93 -1073741824";
const std::string kOwnLook = "90 0 | 170 1 | 91 -1056964608 | 171 -2 | 290 1 | 291 1 | 292 0";

const LeaderRow kMultiLeaders[] = {
    {"TextWithoutAStyle",
     MultiLeader(kNoteText, kOwnLook),
     {"fill 0000FF nonzero m 10 20 l 13 20.5 l 13 19.5 h", "stroke 0000FF 0.25 m 13 20 l 20 20",
      "stroke 0000FF 0.25 m 20 20 l 25 20", "text FF0000 [2 0 0 2 26 21] Note"}},
    {"ArrowOfTheStyle",
     MultiLeader(kNoteText, "340 E2 |" + kOwnLook),
     {"stroke 0000FF 0.25 m 13 20 l 20 20", "stroke 0000FF 0.25 m 20 20 l 25 20", "text FF0000 [2 0 0 2 26 21] Note",
      "stroke 0000FF 0.25 m 13 20 l 10 20"}},
    {"StyleCountsWhereTheEntitySaysNothing",
     MultiLeader(kNoteText, "340 E1 |" + kOwnLook),
     {"fill 00FF00 nonzero m 10 20 l 13 20.5 l 13 19.5 h", "stroke 00FF00 0.25 m 13 20 c 15.333 20 17.667 20 20 20",
      "text FF0000 [2 0 0 2 26 21] Note"}},
    {"OwnValuesCountWhereTheEntitySaysSo",
     MultiLeader(kNoteText, "340 E1 | 90 67 | 170 1 | 91 -1023410170 | 171 -2 | 290 1 | 291 1 | 292 0"),
     {"fill FF00FF nonzero m 10 20 l 13 20.5 l 13 19.5 h", "stroke FF00FF 0.25 m 13 20 l 20 20",
      "stroke FF00FF 0.25 m 20 20 l 25 20", "text FF0000 [2 0 0 2 26 21] Note"}},
    {"ALineOfItsOwnColourAndArrowSize",
     MultiLeader(kNoteText, kOwnLook, "92 -1023410174 | 40 6 | 93 18"),
     {"fill FFFF00 nonzero m 10 20 l 16 21 l 16 19 h", "stroke FFFF00 0.25 m 16 20 l 20 20",
      "stroke 0000FF 0.25 m 20 20 l 25 20", "text FF0000 [2 0 0 2 26 21] Note"}},
    {"GapsWhereOtherLinesCross",
     MultiLeader(kNoteText, kOwnLook, "90 0 | 11 15 | 21 20 | 31 0 | 12 17 | 22 20 | 32 0"),
     {"fill 0000FF nonzero m 10 20 l 13 20.5 l 13 19.5 h", "stroke 0000FF 0.25 m 13 20 l 15 20 m 17 20 l 20 20",
      "stroke 0000FF 0.25 m 20 20 l 25 20", "text FF0000 [2 0 0 2 26 21] Note"}},
    {"FrameRoundTheText",
     MultiLeader(kNoteText, "90 0 | 170 0 | 91 -1056964608 | 171 -2 | 290 1 | 291 1 | 292 1"),
     {"stroke 0000FF 0.25 box 25 20 31.8 24", "text FF0000 [2 0 0 2 26 21] Note"}},
    {"BlockWithItsAttribute",
     MultiLeader(kNoteBlock, kOwnLook + "| 330 A1 | 177 1 | 44 0 | 302 7"),
     {"fill 0000FF nonzero m 10 20 l 13 20.5 l 13 19.5 h", "stroke 0000FF 0.25 m 13 20 l 20 20",
      "stroke 0000FF 0.25 m 20 20 l 25 20", "stroke 000000 0.25 m 30 20 l 34 20", "text 000000 [2 0 0 2 32 22] 7"}},
    {"InABlockTwiceAsLarge",
     "0 INSERT | 8 0 | 62 6 | 2 NOTED | 10 10 | 20 0 | 41 2 | 42 2",
     {"stroke FF00FF 0.25 m 10 20 l 30 20", "text FF00FF [4 0 0 4 30 20] deep"}},
    {"BlockThatIsMissing", MultiLeader("290 0 | 296 1 | 341 FFFF | 15 30 | 25 20", "90 0 | 170 0"), {}},
};

INSTANTIATE_TEST_SUITE_P(MultiLeaders, LeadersTest, testing::ValuesIn(kMultiLeaders),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(LeadersReportTest, WhatHoldsNothingIsReported)
{
    const Drawn drawn =
        Render(WithLeaderStyles("0 MULTILEADER | 8 0 | 100 AcDbMLeader | 0 LEADER | 8 0 | 10 1 | 20 1"));
    EXPECT_EQ(drawn.counts, "not drawn 2 not reached 4");
    EXPECT_EQ(drawn.notDrawn, (Lines{"LEADER 0 1", "MULTILEADER 0 1"}));
}

} // namespace
} // namespace sm::render
