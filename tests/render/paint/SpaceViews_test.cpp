// SPDX-License-Identifier: GPL-3.0-or-later
// Views that hide lines, look from one point or end at some depth.
#include "render/SmallDrawing.h"

#include <gtest/gtest.h>

namespace sm::render {
namespace {

constexpr const char* kSpaceSheet = " 0 VIEWPORT | 8 0 | 67 1 | 10 50 | 20 50 | 40 100 | 41 100 | 68 1 | 69 1 |";

/// From above on (105, 105) at 2:1: the corners 100 to 110 of the model lie on 40 to 60 of the sheet.
std::string SpaceViewport(const std::string& groups)
{
    return std::string(kSpaceSheet) +
           "0 VIEWPORT | 8 0 | 67 1 | 10 50 | 20 50 | 40 60 | 41 40 | 68 2 | 69 2 | 17 105 | 27 105 | 45 20 |" + groups;
}

constexpr const char* kHides = "90 2048";
constexpr const char* kFromAPoint = "16 0 | 26 0 | 36 20 | 90 1"; // 20 units above: 40 mm
constexpr const char* kPlate =
    "0 3DFACE | 8 0 | 70 15 | 10 100 | 20 100 | 30 5 | 11 110 | 21 100 | 31 5 | 12 110 | 22 110 | 32 5 | 13 100 | "
    "23 110 | 33 5 |";

struct SpaceRow {
    const char* name;
    std::string entities;
    const char* groups; ///< of the viewport
    Lines lines;        ///< within the viewport's clip
    Lines remarks = {};
};

class SpaceViewsTest : public testing::TestWithParam<SpaceRow> {};

TEST_P(SpaceViewsTest, DrawWhatShows)
{
    SmallDrawing drawing;
    drawing.layers = "0 LAYER | 2 Off | 70 0 | 62 -7 | 6 Continuous";
    drawing.linetypes = "0 LTYPE | 2 DASHED | 70 0 | 73 2 | 40 5 | 49 3 | 49 -2";
    drawing.blocks = "0 BLOCK | 2 PLATE | 70 0 | 10 0 | 20 0 |" + std::string(kPlate) + "0 ENDBLK";
    drawing.entities = GetParam().entities + "|" + SpaceViewport(GetParam().groups);
    SmallScene look;
    look.paper = true;
    const Drawn drawn = Render(drawing, look);
    Lines lines{"clip box 0 0 100 100", "clip box 20 30 80 70"};
    lines.insert(lines.end(), GetParam().lines.begin(), GetParam().lines.end());
    lines.insert(lines.end(), {"pop", "pop"});
    EXPECT_EQ(drawn.lines, lines);
    EXPECT_EQ(drawn.remarks, GetParam().remarks);
}

std::string LineAt(const char* z, const char* more = "")
{
    return std::string("0 LINE | 8 0 | 10 95 | 20 105 | 30 ") + z + " | 11 115 | 21 105 | 31 " + z + " | " + more;
}

std::string WithPlate(const std::string& entities)
{
    return kPlate + entities;
}

const SpaceRow kSpaceRows[] = {
    {"LineBehindAPlate", WithPlate(LineAt("0")), kHides, {"stroke 000000 0.25 m 30 50 l 40 50 m 60 50 l 70 50"}},
    {"LineBeforeAPlate", WithPlate(LineAt("6")), kHides, {"stroke 000000 0.25 m 30 50 l 70 50"}},
    {"NothingAsked", WithPlate(LineAt("0")), "90 0", {"stroke 000000 0.25 m 30 50 l 70 50"}},
    {"NothingHides", LineAt("0"), kHides, {"stroke 000000 0.25 m 30 50 l 70 50"}},
    {"PlateOnALayerThatIsOff",
     std::string("0 3DFACE | 8 Off | 10 100 | 20 100 | 30 5 | 11 110 | 21 100 | 31 5 | 12 110 | 22 110 | 32 5 | "
                 "13 100 | 23 110 | 33 5 |") +
         LineAt("0"),
     kHides,
     {"stroke 000000 0.25 m 30 50 l 70 50"}},
    {"PlateInABlock",
     "0 INSERT | 8 0 | 2 PLATE | 10 -100 | 20 0 | 41 2 |" + LineAt("0"), // from 100 to 120
     kHides,
     {"stroke 000000 0.25 m 30 50 l 40 50"}},
    {"DashesOfWhatShows", // 10 mm on both sides, two periods of 5 mm: (10 - 10 + 3) / 2 = 1.5 at both ends
     WithPlate(LineAt("0", "6 DASHED")),
     kHides,
     {"stroke 000000 0.25 m 30 50 l 31.5 50 m 33.5 50 l 36.5 50 m 38.5 50 l 40 50 m 60 50 l 61.5 50 m 63.5 50 l 66.5 "
      "50 m "
      "68.5 50 l 70 50"}},
    {"CircleBehindAPlate",
     WithPlate("0 CIRCLE | 8 0 | 10 110 | 20 105 | 40 2.5"),
     kHides,
     {"stroke 000000 0.25 m 65 50 c 65 52.761 62.761 55 60 55 m 60 45 c 62.761 45 65 47.239 65 50"}},
    {"TextBehindAPlate", WithPlate("0 TEXT | 8 0 | 10 102 | 20 102 | 40 1 | 1 gone"), kHides, {}},
    {"TextHalfBehindAPlate",
     WithPlate("0 TEXT | 8 0 | 10 108 | 20 104 | 40 2 | 1 half"),
     kHides,
     {"clip evenodd m 54 46 l 67.6 46 l 67.6 54 l 54 54 h m 60 47 l 60 53 l 55 53 l 55 47 h",
      "text 000000 [4 0 0 4 56 48] half", "pop"}},
    {"AreaHalfBehindAPlate",
     WithPlate("0 SOLID | 8 0 | 10 108 | 20 104 | 11 112 | 21 104 | 12 108 | 22 106 | 13 112 | 23 106"),
     kHides,
     {"clip evenodd m 54 46 l 66 46 l 66 54 l 54 54 h m 60 47 l 60 53 l 55 53 l 55 47 h",
      "fill 000000 nonzero box 56 48 64 52", "pop"}},
    {"FromAPoint", LineAt("10"), kFromAPoint, {"stroke 000000 0.25 m 10 50 l 90 50"}},
    {"FromAPointFurtherAway", LineAt("-20"), kFromAPoint, {"stroke 000000 0.25 m 40 50 l 60 50"}},
    {"FromAPointOnTheTargetsPlane", LineAt("0"), kFromAPoint, {"stroke 000000 0.25 m 30 50 l 70 50"}},
    {"BehindTheEye", LineAt("21"), kFromAPoint, {}},
    {"UprightFromAPoint", // from the target's plane to ten units above it, and away from the axis
     "0 LINE | 8 0 | 10 107 | 20 105 | 30 0 | 11 107 | 21 105 | 31 10",
     kFromAPoint,
     {"stroke 000000 0.25 m 54 50 l 58 50"}},
    {"AreaFromAPoint",
     "0 SOLID | 8 0 | 10 104 | 20 104 | 30 10 | 11 106 | 21 104 | 31 10 | 12 104 | 22 106 | 32 10 | 13 106 | 23 106 | "
     "33 10",
     kFromAPoint,
     {"fill 000000 nonzero box 46 46 54 54"}},
    {"HiddenFromAPoint", // the plate at 5 shows a third larger
     WithPlate(LineAt("0")),
     "16 0 | 26 0 | 36 20 | 90 2049",
     {"stroke 000000 0.25 m 30 50 l 36.667 50 m 63.333 50 l 70 50"}},
    {"EndsBehind", // at -1: a line that sinks from 0 to -2
     "0 LINE | 8 0 | 10 95 | 20 105 | 30 0 | 11 115 | 21 105 | 31 -2",
     "90 4 | 44 -1",
     {"stroke 000000 0.25 m 30 50 l 50 50"}},
    {"EndsInFront",
     "0 LINE | 8 0 | 10 95 | 20 105 | 30 0 | 11 115 | 21 105 | 31 2",
     "90 18 | 43 1",
     {"stroke 000000 0.25 m 30 50 l 50 50"}},
    {"EndsAtAnEyeThatIsnt", LineAt("6"), "90 2 | 43 1", {"stroke 000000 0.25 m 30 50 l 70 50"}},
    {"EndlessLineFromAPoint", // away from the eye it runs to the point that all such lines meet in
     "0 RAY | 8 0 | 10 110 | 20 105 | 30 0 | 11 0 | 21 0 | 31 -1",
     kFromAPoint,
     {"stroke 000000 0.25 m 60 50 l 50.003 50"}},
};

INSTANTIATE_TEST_SUITE_P(Views, SpaceViewsTest, testing::ValuesIn(kSpaceRows),
                         [](const auto& row) { return std::string(row.param.name); });

/// What hides, each before the same line; 15 of 3DFACE: no edge shows.
struct HiderRow {
    const char* name;
    const char* entities;
    const char* line; ///< what is left of it
};

class HidersTest : public testing::TestWithParam<HiderRow> {};

TEST_P(HidersTest, HideTheLineBeneath)
{
    SmallDrawing drawing;
    drawing.entities = std::string(GetParam().entities) +
                       " | 0 LINE | 62 1 | 8 0 | 10 95 | 20 105 | 30 -50 | 11 115 | 21 105 | 31 -50 |" +
                       SpaceViewport(kHides);
    SmallScene look;
    look.paper = true;
    const Drawn drawn = Render(drawing, look);
    Lines red;
    for (const std::string& line : drawn.lines) {
        if (line.starts_with("stroke FF0000")) {
            red.push_back(line.substr(sizeof("stroke FF0000 0.25")));
        }
    }
    EXPECT_EQ(red, (Lines{GetParam().line}));
}

const HiderRow kHiderRows[] = {
    {"Solid", "0 SOLID | 8 0 | 10 100 | 20 100 | 11 110 | 21 100 | 12 100 | 22 110 | 13 110 | 23 110",
     "m 30 50 l 40 50 m 60 50 l 70 50"},
    {"Trace", "0 TRACE | 8 0 | 10 100 | 20 100 | 11 110 | 21 100 | 12 100 | 22 110 | 13 110 | 23 110",
     "m 30 50 l 40 50 m 60 50 l 70 50"},
    {"Mesh",
     "0 MESH | 8 0 | 71 2 | 72 0 | 91 0 | 92 4 | 10 100 | 20 100 | 30 0 | 10 110 | 20 100 | 30 0 | 10 110 | 20 110 | "
     "30 0 | 10 100 | 20 110 | 30 0 | 93 5 | 90 4 | 90 0 | 90 1 | 90 2 | 90 3",
     "m 30 50 l 40 50 m 60 50 l 70 50"},
    {"PolygonMesh",
     "0 POLYLINE | 8 0 | 66 1 | 70 16 | 71 2 | 72 2 | 0 VERTEX | 8 0 | 10 100 | 20 100 | 70 64 | 0 VERTEX | 8 0 | "
     "10 110 | 20 100 | 70 64 | 0 VERTEX | 8 0 | 10 100 | 20 110 | 70 64 | 0 VERTEX | 8 0 | 10 110 | 20 110 | 70 64 | "
     "0 SEQEND | 8 0",
     "m 30 50 l 40 50 m 60 50 l 70 50"},
    {"PolyfaceMesh",
     "0 POLYLINE | 8 0 | 66 1 | 70 64 | 71 3 | 72 1 | 0 VERTEX | 8 0 | 10 100 | 20 100 | 70 192 | 0 VERTEX | 8 0 | "
     "10 110 | 20 100 | 70 192 | 0 VERTEX | 8 0 | 10 105 | 20 110 | 70 192 | 0 VERTEX | 8 0 | 70 128 | 71 -1 | 72 -2 | "
     "73 -3 | 0 SEQEND | 8 0",
     "m 30 50 l 45 50 m 55 50 l 70 50"},
    {"CircleWithAThickness", "0 CIRCLE | 8 0 | 10 105 | 20 105 | 40 5 | 39 3", "m 30 50 l 40 50 m 60 50 l 70 50"},
    {"CircleWithoutOne", "0 CIRCLE | 8 0 | 10 105 | 20 105 | 40 5", "m 30 50 l 70 50"},
    // Leaning by its extrusion along x: its wall lies over the plane.
    {"LineDrawnOut", "0 LINE | 8 0 | 10 100 | 20 100 | 11 100 | 21 110 | 39 10 | 210 1 | 220 0 | 230 0",
     "m 30 50 l 40 50 m 60 50 l 70 50"},
    {"PolylineDrawnOut",
     "0 LWPOLYLINE | 8 0 | 90 2 | 70 0 | 38 100 | 39 10 | 10 100 | 20 0 | 10 110 | 20 0 | 210 1 | 220 0 | 230 0",
     "m 30 50 l 40 50 m 60 50 l 70 50"},
    {"ArcDrawnOut", // half a circle over x 100, from y 100 to 110
     "0 ARC | 8 0 | 10 105 | 20 0 | 30 100 | 40 5 | 50 0 | 51 180 | 39 10 | 210 1 | 220 0 | 230 0",
     "m 30 50 l 40 50 m 60 50 l 70 50"},
};

INSTANTIATE_TEST_SUITE_P(Kinds, HidersTest, testing::ValuesIn(kHiderRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(SpaceSceneTest, TheModelsOwnViewHidesWhereItIsAsked)
{
    SmallDrawing drawing;
    drawing.entities = "0 SOLID | 8 0 | 10 40 | 20 40 | 11 60 | 21 40 | 12 40 | 22 60 | 13 60 | 23 60 |"
                       "0 LINE | 8 0 | 10 30 | 20 50 | 30 -1 | 11 70 | 21 50 | 31 -1";
    SmallScene look;
    look.hidesLines = true;
    EXPECT_EQ(LinesOf(drawing, look),
              (Lines{"fill 000000 nonzero box 40 40 60 60", "stroke 000000 0.25 m 30 50 l 40 50 m 60 50 l 70 50"}));
}

} // namespace
} // namespace sm::render
