// SPDX-License-Identifier: GPL-3.0-or-later
// What clips and changes: the boundary of an insert, layers that look otherwise in one viewport.
#include "render/SmallDrawing.h"

#include <gmock/gmock.h>

namespace sm::render {
namespace {

constexpr const char* kClippedBlock =
    "0 BLOCK | 8 0 | 2 B | 70 0 | 10 0 | 20 0 | 30 0 | 0 LINE | 8 0 | 10 0 | 20 0 | 11 10 | 21 "
    "0 | 0 ENDBLK | 8 0";
constexpr const char* kDictionaries =
    "0 DICTIONARY | 5 C | 330 0 | 0 DICTIONARY | 5 31 | 330 30 | 3 ACAD_FILTER | 360 32 |"
    "0 DICTIONARY | 5 32 | 330 31 | 3 SPATIAL | 360 33 |";

std::string ClippedInsert(const std::string& place)
{
    return "0 INSERT | 5 30 | 102 {ACAD_XDICTIONARY | 360 31 | 102 } | 100 AcDbEntity | 8 0 | 2 B |" + place;
}

/// The insert stood at (50, 50) when the boundary was drawn.
std::string Filter(const std::string& boundary, const std::string& flags = "71 1 | 72 0 | 73 0")
{
    return "0 SPATIAL_FILTER | 5 33 | 100 AcDbFilter | 100 AcDbSpatialFilter | 70 2 |" + boundary +
           "| 210 0 | 220 0 | 230 1 | 11 0 | 21 0 | 31 0 |" + flags +
           "| 40 1 | 40 0 | 40 0 | 40 -50 | 40 0 | 40 1 | 40 0 | 40 -50 | 40 0 | 40 0 | 40 1 | 40 0 |"
           "40 1 | 40 0 | 40 0 | 40 0 | 40 0 | 40 1 | 40 0 | 40 0 | 40 0 | 40 0 | 40 1 | 40 0";
}

constexpr const char* kRectangle = "10 52 | 20 48 | 10 56 | 20 52";

struct ClipRow {
    const char* name;
    std::string insert, filter;
    Lines lines;
};

class InsertClipsTest : public testing::TestWithParam<ClipRow> {};

TEST_P(InsertClipsTest, ShowAPartOfTheBlock)
{
    SmallDrawing drawing;
    drawing.blocks = kClippedBlock;
    drawing.entities = GetParam().insert;
    drawing.objects = kDictionaries + GetParam().filter;
    EXPECT_EQ(LinesOf(drawing), GetParam().lines);
}

// A plate above a line that reaches from 50 to 60, of which the boundary shows 52 to 56.
TEST(InsertClipsInSpaceTest, HideAsFarAsTheyShow)
{
    SmallDrawing drawing;
    drawing.blocks = "0 BLOCK | 8 0 | 2 B | 70 0 | 10 0 | 20 0 | 30 0 | 0 SOLID | 8 0 | 10 0 | 20 -5 | 30 5 | 11 10 | "
                     "21 -5 | 31 5 | 12 0 | 22 5 | 32 5 | 13 10 | 23 5 | 33 5 | 0 ENDBLK | 8 0";
    drawing.entities = "0 LINE | 8 0 | 10 40 | 20 50 | 11 70 | 21 50 |" + ClippedInsert("10 50 | 20 50");
    drawing.objects = kDictionaries + Filter(kRectangle);
    SmallScene look;
    look.hidesLines = true;
    EXPECT_EQ(LinesOf(drawing, look),
              (Lines{"stroke 000000 0.25 m 40 50 l 52 50 m 56 50 l 70 50", "clip evenodd box 52 48 56 52",
                     "fill 000000 nonzero box 50 45 60 55", "pop"}));
}

const ClipRow kClipRows[] = {
    {"Rectangle",
     ClippedInsert("10 50 | 20 50"),
     Filter(kRectangle),
     {"clip evenodd box 52 48 56 52", "stroke 000000 0.25 m 50 50 l 60 50", "pop"}},
    {"MovesWithTheInsert",
     ClippedInsert("10 60 | 20 50"),
     Filter(kRectangle),
     {"clip evenodd box 62 48 66 52", "stroke 000000 0.25 m 60 50 l 70 50", "pop"}},
    {"TurnsWithTheInsert",
     ClippedInsert("10 50 | 20 50 | 50 90"),
     Filter(kRectangle),
     {"clip evenodd m 52 52 l 52 56 l 48 56 l 48 52 h", "stroke 000000 0.25 m 50 50 l 50 60", "pop"}},
    {"Polygon",
     ClippedInsert("10 50 | 20 50"),
     Filter("10 50 | 20 45 | 10 60 | 20 45 | 10 60 | 20 55"),
     {"clip evenodd m 50 45 l 60 45 l 60 55 h", "stroke 000000 0.25 m 50 50 l 60 50", "pop"}},
    {"FrontPlaneBeforeTheMaps",
     ClippedInsert("10 50 | 20 50"),
     Filter(kRectangle, "71 1 | 72 1 | 40 7 | 73 0"),
     {"clip evenodd box 52 48 56 52", "stroke 000000 0.25 m 50 50 l 60 50", "pop"}},
    {"SwitchedOff",
     ClippedInsert("10 50 | 20 50"),
     Filter(kRectangle, "71 0 | 72 0 | 73 0"),
     {"stroke 000000 0.25 m 50 50 l 60 50"}},
    {"TurnedInsideOut", // the outer edge, a seam, and the hole
     ClippedInsert("10 50 | 20 50"),
     Filter("10 40 | 20 40 | 10 70 | 20 40 | 10 70 | 20 60 | 10 40 | 20 60 | 10 40 | 20 40 | 10 52 | 20 48 | 10 52 | "
            "20 52 | 10 56 | 20 52 | 10 56 | 20 48 | 10 52 | 20 48"),
     {"clip evenodd m 40 40 l 70 40 l 70 60 l 40 60 l 40 40 l 52 48 l 52 52 l 56 52 l 56 48 l 52 48 h",
      "stroke 000000 0.25 m 50 50 l 60 50", "pop"}},
    {"FilterIsMissing", ClippedInsert("10 50 | 20 50"), "", {"stroke 000000 0.25 m 50 50 l 60 50"}},
    {"OffThePage", ClippedInsert("10 500 | 20 50"), Filter(kRectangle), {}},
};

INSTANTIATE_TEST_SUITE_P(Inserts, InsertClipsTest, testing::ValuesIn(kClipRows),
                         [](const auto& row) { return std::string(row.param.name); });

/// The dictionaries and the filter of an insert; `prefix` begins its handles, `moved` is the way back from its place.
std::string FilterOf(const std::string& prefix, const std::string& insert, double moved, const std::string& boundary)
{
    const std::string back = "40 " + std::to_string(-moved);
    return "0 DICTIONARY | 5 " + prefix + "1 | 330 " + insert + " | 3 ACAD_FILTER | 360 " + prefix +
           "2 | 0 DICTIONARY | 5 " + prefix + "2 | 330 " + prefix + "1 | 3 SPATIAL | 360 " + prefix +
           "3 | 0 SPATIAL_FILTER | 5 " + prefix + "3 | 70 2 |" + boundary +
           "| 71 1 | 72 0 | 73 0 | 40 1 | 40 0 | 40 0 |" + back + "| 40 0 | 40 1 | 40 0 |" + back +
           "| 40 0 | 40 0 | 40 1 | 40 0 | 40 1 | 40 0 | 40 0 | 40 0 | 40 0 | 40 1 | 40 0 | 40 0 | 40 0 | 40 0 | 40 1 | "
           "40 0 |";
}

struct NestedRow {
    const char* name;
    const char* outer; ///< round the block A, which stands at (50, 50)
    const char* inner; ///< round the block B, which stands in A at (5, 5)
    Lines lines;
};

class NestedClipsTest : public testing::TestWithParam<NestedRow> {};

TEST_P(NestedClipsTest, ShowWhatBothLeave)
{
    SmallDrawing drawing;
    drawing.blocks = std::string(kClippedBlock) +
                     "| 0 BLOCK | 8 0 | 2 A | 70 0 | 10 0 | 20 0 | 30 0 | 0 INSERT | 5 40 | 102 "
                     "{ACAD_XDICTIONARY | 360 41 | 102 } | 100 AcDbEntity | 8 0 | 2 B | 10 5 | "
                     "20 5 | 0 ENDBLK | 8 0";
    drawing.entities =
        "0 INSERT | 5 30 | 102 {ACAD_XDICTIONARY | 360 31 | 102 } | 100 AcDbEntity | 8 0 | 2 A | 10 60 | 20 "
        "50"; // ten to the right since the boundary was drawn
    drawing.objects = "0 DICTIONARY | 5 C | 330 0 |" + FilterOf("3", "30", 50, GetParam().outer) +
                      FilterOf("4", "40", 5, GetParam().inner);
    EXPECT_EQ(LinesOf(drawing), GetParam().lines);
}

constexpr const char* kInnerHole =
    "10 0 | 20 0 | 10 20 | 20 0 | 10 20 | 20 10 | 10 0 | 20 10 | 10 0 | 20 0 | 10 7 | 20 4 | 10 7 | "
    "20 6 | 10 9 | 20 6 | 10 9 | 20 4 | 10 7 | 20 4";
constexpr const char* kOuterHole =
    "10 40 | 20 40 | 10 80 | 20 40 | 10 80 | 20 70 | 10 40 | 20 70 | 10 40 | 20 40 | 10 60 | 20 50 | 10 60 | "
    "20 60 | 10 62 | 20 60 | 10 62 | 20 50 | 10 60 | 20 50";
constexpr const char* kInside = "stroke 000000 0.25 m 65 55 l 75 55";
constexpr const char* kInnerHoleShown =
    "clip evenodd m 60 50 l 80 50 l 80 60 l 60 60 l 60 50 l 67 54 l 67 56 l 69 56 l 69 54 l 67 54 h";
constexpr const char* kOuterHoleShown =
    "clip evenodd m 50 40 l 90 40 l 90 70 l 50 70 l 50 40 l 70 50 l 70 60 l 72 60 l 72 50 l 70 50 h";

const NestedRow kNested[] = {
    {"BothPlain",
     "10 56 | 20 50 | 10 62 | 20 60",
     "10 6 | 20 4 | 10 9 | 20 6",
     {"clip evenodd box 66 50 72 60", "clip evenodd box 66 54 69 56", kInside, "pop", "pop"}},
    {"TheInnerTurnedInsideOut",
     "10 56 | 20 50 | 10 62 | 20 60",
     kInnerHole,
     {"clip evenodd box 66 50 72 60", kInnerHoleShown, kInside, "pop", "pop"}},
    {"TheOuterTurnedInsideOut",
     kOuterHole,
     "10 6 | 20 4 | 10 9 | 20 6",
     {kOuterHoleShown, "clip evenodd box 66 54 69 56", kInside, "pop", "pop"}},
    {"BothTurnedInsideOut", kOuterHole, kInnerHole, {kOuterHoleShown, kInnerHoleShown, kInside, "pop", "pop"}},
    {"ApartFromEachOther",
     "10 56 | 20 50 | 10 57 | 20 60",
     "10 8 | 20 4 | 10 9 | 20 6",
     {"clip evenodd box 66 50 67 60", "pop"}},
};

INSTANTIATE_TEST_SUITE_P(Inserts, NestedClipsTest, testing::ValuesIn(kNested),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(InsertClipsTest, EndTheBounds)
{
    SmallDrawing small;
    small.blocks = kClippedBlock;
    small.entities = ClippedInsert("10 50 | 20 50");
    small.objects = kDictionaries + Filter(kRectangle);
    const auto drawing = small.Open();
    FakeTextEngine text;
    const Box2 box = BoundsOf(*drawing, drawing->EntitiesOf(SpaceOf(*drawing, false)).front(), text);
    EXPECT_EQ(box, (Box2{{52, 50}, {56, 50}}));
}

TEST(LayerOverridesTest, HoldInTheirViewportAlone)
{
    SmallDrawing drawing;
    drawing.linetypes = "0 LTYPE | 5 D1 | 2 DASHED | 70 0 | 3 d | 72 65 | 73 2 | 40 20 | 49 10 | 74 0 | 49 -10 | 74 0";
    drawing.layers =
        "0 LAYER | 5 A1 | 102 {ACAD_XDICTIONARY | 360 B1 | 102 } | 100 AcDbSymbolTableRecord | 2 Walls | 70 "
        "0 | 62 1 | 6 Continuous";
    drawing.objects =
        "0 DICTIONARY | 5 C | 330 0 | 0 DICTIONARY | 5 B1 | 330 A1 | 3 ADSK_XREC_LAYER_COLOR_OVR | 360 B2 | 3 "
        "ADSK_XREC_LAYER_LINEWT_OVR | 360 B3 | 3 ADSK_XREC_LAYER_LINETYPE_OVR | 360 B4 |"
        "0 XRECORD | 5 B2 | 330 B1 | 100 AcDbXrecord | 280 1 | 102 {ADSK_LYR_COLOR_OVERRIDE | 335 F1 | 420 "
        "-1023410173 | 102 } | 0 XRECORD | 5 B3 | 330 B1 | 100 AcDbXrecord | 102 {ADSK_LYR_LINEWT_OVERRIDE | "
        "335 F1 | 91 100 | 102 } | 0 XRECORD | 5 B4 | 330 B1 | 100 AcDbXrecord | 102 "
        "{ADSK_LYR_LINETYPE_OVERRIDE | 335 F1 | 343 D1 | 102 }";
    const std::string sheet =
        "0 LINE | 8 Walls | 10 100 | 20 100 | 11 110 | 21 100 | 0 VIEWPORT | 8 0 | 67 1 | 10 50 | 20 50 "
        "| 40 100 | 41 100 | 68 1 | 69 1 | 12 50 | 22 50 | 45 100 |";
    drawing.entities = sheet +
                       "0 VIEWPORT | 5 F1 | 8 0 | 67 1 | 10 50 | 20 70 | 40 60 | 41 40 | 68 2 | 69 2 | 12 105 | 22 "
                       "105 | 45 20 | 0 VIEWPORT | 5 F2 | 8 0 | 67 1 | 10 50 | 20 30 | 40 60 | 41 40 | 68 3 | 69 3 "
                       "| 12 105 | 22 105 | 45 20";
    SmallScene look;
    look.paper = true;
    EXPECT_EQ(LinesOf(drawing, look),
              (Lines{"clip box 20 50 80 90", "stroke 00FF00 1 m 40 60 l 45 60 m 55 60 l 60 60", "pop",
                     "clip box 20 10 80 50", "stroke FF0000 0.25 m 40 20 l 60 20", "pop"}));
}

} // namespace
} // namespace sm::render
