// SPDX-License-Identifier: GPL-3.0-or-later
// What a drawing's own switches do to areas and texts: FILLMODE, QTEXTMODE, SPLFRAME.
#include "render/SmallDrawing.h"

#include <gmock/gmock.h>

namespace sm::render {
namespace {

struct SwitchRow {
    const char* name;
    const char* header;
    const char* entities;
    Lines lines;
    std::vector<std::string> remarks;
};

class SwitchesTest : public testing::TestWithParam<SwitchRow> {};

TEST_P(SwitchesTest, HoldForAll)
{
    SmallDrawing drawing;
    drawing.header = GetParam().header;
    drawing.entities = GetParam().entities;
    EXPECT_EQ(LinesOf(drawing), GetParam().lines);
    EXPECT_EQ(Render(drawing).remarks, GetParam().remarks);
}

constexpr const char* kNoFills = "9 $FILLMODE | 70 0";
constexpr const char* kBoxes = "9 $QTEXTMODE | 70 1";
constexpr const char* kFrames = "9 $SPLFRAME | 70 1";
constexpr const char* kSolid = "0 SOLID | 8 0 | 10 1 | 20 1 | 11 5 | 21 1 | 12 1 | 22 5 | 13 5 | 23 5";
constexpr const char* kHatch = "0 HATCH | 8 0 | 2 SOLID | 70 1 | 71 0 | 91 1 | 92 2 | 72 0 | 73 1 | 93 3 | 10 1 | 20 1 "
                               "| 10 5 | 20 1 | 10 5 | 20 5 | 97 0 | 75 0 | 76 1 | 98 0";

const SwitchRow kSwitchRows[] = {
    {"FillsAreOn", "9 $FILLMODE | 70 1", kSolid, {"fill 000000 nonzero box 1 1 5 5"}, {}},
    {"SolidAsItsOutline", kNoFills, kSolid, {"stroke 000000 0.25 box 1 1 5 5"}, {}},
    {"HatchIsLeftOut", kNoFills, kHatch, {}, {"a hatch left out: the drawing's fills are off (FILLMODE) 1"}},
    {"WideLinesAsTheSidesOfTheirSegments",
     kNoFills,
     "0 LWPOLYLINE | 8 0 | 90 3 | 70 0 | 43 2 | 10 10 | 20 50 | 10 30 | 20 50 | 10 30 | 20 70",
     {"stroke 000000 0.25 m 10 49 l 30 49 l 30 51 l 10 51 h m 31 50 l 31 70 l 29 70 l 29 50 h"},
     {}},
    {"TaperedArrowAsItsOutline",
     kNoFills,
     "0 LWPOLYLINE | 8 0 | 90 2 | 70 0 | 10 10 | 20 50 | 40 4 | 41 0 | 10 20 | 20 50",
     {"stroke 000000 0.25 m 10 48 l 20 50 l 20 50 l 10 52 h"},
     {}},
    {"TextAsItsBox",
     kBoxes,
     "0 TEXT | 8 0 | 10 10 | 20 20 | 40 2.5 | 1 Kitchen",
     {"stroke 000000 0.25 box 10 20 20.5 22.5"},
     {"a text seen as its box: the drawing asks for it (QTEXTMODE) 1"}},
    {"FaceWithItsHiddenEdges",
     kFrames,
     "0 3DFACE | 8 0 | 10 1 | 20 1 | 11 5 | 21 1 | 12 5 | 22 5 | 13 1 | 23 5 | 70 15",
     {"stroke 000000 0.25 m 1 1 l 5 1 m 5 1 l 5 5 m 5 5 l 1 5 m 1 5 l 1 1"},
     {}},
    {"FaceWithoutThem",
     "9 $SPLFRAME | 70 0",
     "0 3DFACE | 8 0 | 10 1 | 20 1 | 11 5 | 21 1 | 12 5 | 22 5 | 13 1 | 23 5 | 70 14",
     {"stroke 000000 0.25 m 1 1 l 5 1"},
     {}},
    {"CurveWithThePointsItWasFittedTo",
     kFrames,
     "0 POLYLINE | 8 0 | 66 1 | 70 4 | 75 6 | 0 VERTEX | 8 0 | 10 1 | 20 1 | 70 16 | 0 VERTEX | 8 0 | 10 2 | 20 2 | 70 "
     "8 "
     "| 0 VERTEX | 8 0 | 10 4 | 20 9 | 70 16 | 0 VERTEX | 8 0 | 10 6 | 20 2 | 70 8 | 0 SEQEND",
     {"stroke 000000 0.25 m 1 1 l 4 9", "stroke 000000 0.25 m 2 2 l 6 2"},
     {}},
    {"NoTextNoBox", kBoxes, "0 TEXT | 8 0 | 10 10 | 20 20 | 40 2.5 | 1 ", {}, {}},
};

INSTANTIATE_TEST_SUITE_P(Rows, SwitchesTest, testing::ValuesIn(kSwitchRows),
                         [](const auto& row) { return row.param.name; });

} // namespace
} // namespace sm::render
