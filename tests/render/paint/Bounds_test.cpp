// SPDX-License-Identifier: GPL-3.0-or-later
// Boxes of entities and spaces.
#include "render/SmallDrawing.h"

#include <gmock/gmock.h>

namespace sm::render {
namespace {

std::string BoxText(const Box2& box)
{
    if (box.Empty()) {
        return "empty";
    }
    return RecordingCanvas::Number(box.min.x) + " " + RecordingCanvas::Number(box.min.y) + " " +
           RecordingCanvas::Number(box.max.x) + " " + RecordingCanvas::Number(box.max.y);
}

struct BoundRow {
    const char* name;
    const char* entities;
    const char* first;   ///< of the first entity alone
    const char* extents; ///< of model space
};

class BoundsTest : public testing::TestWithParam<BoundRow> {};

TEST_P(BoundsTest, HoldsWhatIsDrawn)
{
    SmallDrawing small;
    small.layers = "0 LAYER | 2 Off | 70 0 | 62 -2 | 6 Continuous";
    small.blocks =
        "0 BLOCK | 8 0 | 2 B | 70 0 | 10 0 | 20 0 | 3 B | 0 CIRCLE | 8 0 | 10 0 | 20 0 | 40 2 | 0 ENDBLK | 8 0";
    small.entities = GetParam().entities;
    const auto drawing = small.Open();
    FakeTextEngine text;
    const std::uint32_t model = SpaceOf(*drawing, false);
    ASSERT_FALSE(drawing->EntitiesOf(model).empty());
    EXPECT_EQ(BoxText(BoundsOf(*drawing, drawing->EntitiesOf(model).front(), text)), GetParam().first);
    EXPECT_EQ(BoxText(ExtentsOf(*drawing, model, {}, text)), GetParam().extents);
}

const BoundRow kBoundRows[] = {
    {"Line", "0 LINE | 8 0 | 10 5 | 20 2 | 11 1 | 21 4", "1 2 5 4", "1 2 5 4"},
    {"CircleIsExact", "0 CIRCLE | 8 0 | 10 5 | 20 5 | 40 2", "3 3 7 7", "3 3 7 7"},
    {"ArcHoldsItsTop", "0 ARC | 8 0 | 10 0 | 20 0 | 40 10 | 50 45 | 51 135", "-7.071 7.071 7.071 10",
     "-7.071 7.071 7.071 10"},
    {"HiddenLayersAreLeftOutOfExtents", "0 LINE | 8 Off | 10 500 | 20 2 | 11 1 | 21 4 | 0 POINT | 8 0 | 10 1 | 20 1",
     "1 2 500 4", "1 1 1 1"},
    {"Insert", "0 INSERT | 8 0 | 2 B | 10 10 | 20 10 | 41 2 | 42 1", "6 8 14 12", "6 8 14 12"},
    {"Text", "0 TEXT | 8 0 | 10 1 | 20 1 | 40 10 | 1 ab", "1 1 13 11", "1 1 13 11"},
    {"EmptyText", "0 TEXT | 8 0 | 10 1 | 20 1 | 40 10 | 1", "empty", "empty"},
    {"EndlessLineHasNoBox", "0 XLINE | 8 0 | 10 1 | 20 1 | 11 1 | 21 0", "empty", "empty"},
    {"Leader", "0 LEADER | 8 0 | 71 0 | 10 1 | 20 1 | 10 5 | 20 9", "1 1 5 9", "1 1 5 9"},
    {"MultiLeader",
     "0 MULTILEADER | 8 0 | 100 AcDbMLeader | 300 CONTEXT_DATA{ | 41 10 | 290 1 | 304 ab | 12 20 | 22 5 | 302 LEADER{ "
     "| "
     "290 1 | 10 15 | 20 5 | 304 LEADER_LINE{ | 10 1 | 20 2 | 305 } | 303 } | 301 }",
     "1 2 32 15", "1 2 32 15"},
    {"MLine",
     "0 MLINE | 8 0 | 11 0 | 21 0 | 12 1 | 22 0 | 13 0 | 23 1 | 74 2 | 41 2 | 41 0 | 74 2 | 41 -1 | 41 0 | 11 9 | 21 0 "
     "| "
     "12 1 | 22 0 | 13 0 | 23 1 | 74 2 | 41 2 | 41 0 | 74 2 | 41 -1 | 41 0",
     "0 -1 9 2", "0 -1 9 2"},
    {"Tolerance", "0 TOLERANCE | 8 0 | 10 5 | 20 5 | 1 abcde", "5 4.82 5.72 5.18", "5 4.82 5.72 5.18"},
    {"TableOfCells", "0 ACAD_TABLE | 8 0 | 10 1 | 20 9 | 141 3 | 142 6 | 171 1", "1 6 7 9", "1 6 7 9"},
    {"DimensionWithoutAPicture",
     "0 DIMENSION | 8 0 | 70 0 | 13 0 | 23 0 | 14 20 | 24 0 | 10 20 | 20 10 | 11 10 | 21 10", "0 0.062 20 10.18",
     "0 0.062 20 10.18"},
    {"UnknownKind", "0 ACAD_PROXY_ENTITY | 8 0", "empty", "empty"},
};

INSTANTIATE_TEST_SUITE_P(Entities, BoundsTest, testing::ValuesIn(kBoundRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ExtentsTest, OfASheetHoldItsViewports)
{
    SmallDrawing small;
    small.layers = "0 LAYER | 2 Screen | 70 0 | 62 2 | 6 Continuous | 290 0";
    small.entities =
        "0 LINE | 8 0 | 10 0 | 20 0 | 11 1000 | 21 20 |"
        "0 VIEWPORT | 8 0 | 67 1 | 10 50 | 20 50 | 40 100 | 41 100 | 68 1 | 69 1 | 12 50 | 22 50 | 45 100 |"
        "0 VIEWPORT | 8 Screen | 67 1 | 10 50 | 20 40 | 40 20 | 41 10 | 68 2 | 69 2 | 12 5 | 22 5 | 45 20";
    const auto drawing = small.Open();
    FakeTextEngine text;
    const std::uint32_t sheet = SpaceOf(*drawing, true);
    EXPECT_EQ(BoxText(ExtentsOf(*drawing, sheet, {}, text)), "40 35 60 45");
    ASSERT_EQ(drawing->EntitiesOf(sheet).size(), 2U);
    EXPECT_EQ(BoxText(BoundsOf(*drawing, drawing->EntitiesOf(sheet)[1], text)), "40 35 60 45");
}

TEST(ExtentsTest, AreThoseOfTheView)
{
    SmallDrawing small;
    small.entities = "0 LINE | 8 0 | 10 0 | 20 0 | 30 5 | 11 10 | 21 20 | 31 7";
    const auto drawing = small.Open();
    FakeTextEngine text;
    const Matrix3 front = ViewMatrix({0, -1, 0}, {0, 0, 0}, 0);
    EXPECT_EQ(BoxText(ExtentsOf(*drawing, SpaceOf(*drawing, false), front, text)), "0 5 10 7");
}

} // namespace
} // namespace sm::render
