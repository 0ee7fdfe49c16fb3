// SPDX-License-Identifier: GPL-3.0-or-later
// Regions and solids by the edges of their saves, meshes by their faces, thickness from the side.
#include "render/SmallDrawing.h"

#include <gmock/gmock.h>

namespace sm::render {
namespace {

/// A REGION whose save is `records` behind three lines of heading, as files up to R2010 write it.
std::string Region(const std::string& records)
{
    std::string text = "0\nREGION\n8\n0\n70\n1\n";
    std::istringstream lines("400 9 1 0\n5 Tests 4 None 4 Date\n1 1e-06 1e-10\n" + records);
    std::string line;
    while (std::getline(lines, line)) {
        for (char& c : line) {
            c = c == ' ' ? c : static_cast<char>(159 - c);
        }
        for (std::size_t caret = line.find('^'); caret != std::string::npos; caret = line.find('^', caret + 2)) {
            line.insert(caret + 1, " ");
        }
        text += "1\n" + line + "\n";
    }
    return text;
}

/// Records 0 to 4: a body moved by (10, 20), and vertices at (0, 0) and (5, 0).
const std::string kBody = "body $-1 $-1 $-1 $1 #\n"
                          "transform $-1 1 0 0 0 1 0 0 0 1 10 20 0 1 no_rotate no_reflect no_shear #\n"
                          "vertex $-1 $-1 $4 #\nvertex $-1 $-1 $5 #\npoint $-1 0 0 0 #\npoint $-1 5 0 0 #\n";

struct SolidRow {
    const char* name;
    std::string records;
    Lines lines;
    Lines remarks;
};

class RegionsTest : public testing::TestWithParam<SolidRow> {};

TEST_P(RegionsTest, DrawTheirEdges)
{
    SmallDrawing drawing;
    drawing.raw = Region(kBody + GetParam().records);
    EXPECT_EQ(LinesOf(drawing), GetParam().lines);
    EXPECT_EQ(Render(drawing).remarks, GetParam().remarks);
}

const SolidRow kSolidRows[] = {
    {"Straight",
     "edge $-1 $2 $3 $-1 $7 forward #\nstraight-curve $-1 0 0 0 1 0 0 I I #\n",
     {"stroke 000000 0.25 m 10 20 l 15 20"},
     {}},
    {"ArcCounterClockwise",
     "edge $-1 $3 $2 $-1 $7 forward #\nellipse-curve $-1 2.5 0 0 0 0 1 2.5 0 0 1 I I #\n",
     {"stroke 000000 0.25 m 15 20 c 15 21.381 13.881 22.5 12.5 22.5 c 11.119 22.5 10 21.381 10 20"},
     {}},
    {"ArcAgainstItsEdge",
     "edge $-1 $3 $2 $-1 $7 reversed #\nellipse-curve $-1 2.5 0 0 0 0 1 2.5 0 0 1 I I #\n",
     {"stroke 000000 0.25 m 10 20 c 10 18.619 11.119 17.5 12.5 17.5 c 13.881 17.5 15 18.619 15 20"},
     {}},
    {"WholeCircle",
     "edge $-1 $3 $3 $-1 $7 forward #\nellipse-curve $-1 2.5 0 0 0 0 1 2.5 0 0 1 I I #\n",
     {"stroke 000000 0.25 m 15 20 c 15 21.381 13.881 22.5 12.5 22.5 c 11.119 22.5 10 21.381 10 20 c 10 18.619 11.119 "
      "17.5 12.5 17.5 c 13.881 17.5 15 18.619 15 20 h"},
     {}},
    {"Spline",
     "edge $-1 $2 $3 $-1 $7 forward #\nintcurve-curve $-1 forward { exactcur full nubs 3 open 2 0 3 1 3 0 0 0 1 4 0 4 "
     "4 0 5 0 0 0 } I I #\n",
     {"stroke 000000 0.25 m 10 20 c 11 24 14 24 15 20"},
     {}},
    {"SplineBySomeOtherEdges", // the second curve is the first part in braces once more
     "edge $-1 $2 $3 $-1 $7 forward #\nintcurve-curve $-1 forward { exactcur full nubs 1 open 2 0 1 1 1 0 0 0 5 0 0 0 "
     "} I I #\nedge $-1 $2 $3 $-1 $9 forward #\nintcurve-curve $-1 forward { ref 0 } I I #\n",
     {"stroke 000000 0.25 m 10 20 l 15 20 m 10 20 l 15 20"},
     {}},
    {"NewerRecordsHoldMore",
     "edge $-1 -1 $-1 $2 0 $3 5 $-1 $7 forward @7 unknown #\nstraight-curve $-1 -1 $-1 0 0 0 1 0 0 I I #\n",
     {"stroke 000000 0.25 m 10 20 l 15 20"},
     {}},
    {"WallOfAPipe", // leaning, so that its four lines show
     "edge $-1 $2 $2 $-1 $7 forward #\nellipse-curve $-1 1 0 0 0 0 1 1 0 0 1 I I #\n"
     "edge $-1 $3 $3 $-1 $9 forward #\nellipse-curve $-1 6 0 0 0 0 1 1 0 0 1 I I #\n"
     "coedge $-1 $10 $10 $-1 $6 forward $12 $-1 #\ncoedge $-1 $11 $11 $-1 $8 forward $13 $-1 #\n"
     "loop $-1 $13 $10 $14 #\nloop $-1 $-1 $11 $14 #\nface $-1 $-1 $12 $-1 $-1 $15 forward single #\n"
     "cone-surface $-1 0 0 0 0 0 1 1 0 0 1 I I 0 1 forward I I I I #\n",
     {"stroke 000000 0.25 m 12 20 c 12 20.552 11.552 21 11 21 c 10.448 21 10 20.552 10 20 c 10 19.448 10.448 19 11 19 "
      "c "
      "11.552 19 12 19.448 12 20 h m 17 20 c 17 20.552 16.552 21 16 21 c 15.448 21 15 20.552 15 20 c 15 19.448 15.448 "
      "19 "
      "16 19 c 16.552 19 17 19.448 17 20 h m 12 20 l 17 20 m 11 21 l 16 21 m 10 20 l 15 20 m 11 19 l 16 19"},
     {}},
    {"WholeSphere", // as circles, two of them seen from the side
     "face $-1 $-1 $-1 $-1 $-1 $7 forward single #\nsphere-surface $-1 0 0 0 2 1 0 0 0 0 1 forward_v I I I I #\n",
     {"stroke 000000 0.25 m 12 20 c 12 21.105 11.105 22 10 22 c 8.895 22 8 21.105 8 20 c 8 18.895 8.895 18 10 18 c "
      "11.105 18 12 18.895 12 20 h m 12 20 c 12 20 11.105 20 10 20 c 8.895 20 8 20 8 20 c 8 20 8.895 20 10 20 c 11.105 "
      "20 12 20 12 20 h m 10 22 c 10 22 10 21.105 10 20 c 10 18.895 10 18 10 18 c 10 18 10 18.895 10 20 c 10 21.105 10 "
      "22 10 22 h"},
     {}},
    {"UnreadableCurveIsReported",
     "edge $-1 $2 $3 $-1 $7 forward #\nintcurve-curve $-1 forward { lawcur full nullbs } I I #\n",
     {},
     {"a solid whose save can't be read left out 1"}},
    {"CutOff", "edge $-1 $2 $3 $-1 $7 forward #\nstraight-curve $-1 0 0", {"stroke 000000 0.25 m 10 20 l 15 20"}, {}},
};

INSTANTIATE_TEST_SUITE_P(Saves, RegionsTest, testing::ValuesIn(kSolidRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(RegionsTest, ClipViewports)
{
    SmallDrawing drawing;
    drawing.entities =
        "0 LINE | 8 0 | 10 100 | 20 100 | 11 110 | 21 100 |"
        "0 VIEWPORT | 8 0 | 67 1 | 10 50 | 20 50 | 40 100 | 41 100 | 68 1 | 69 1 | 12 50 | 22 50 | 45 100 |"
        "0 VIEWPORT | 8 0 | 67 1 | 10 50 | 20 50 | 40 60 | 41 40 | 68 2 | 69 2 | 12 105 | 22 105 | 45 20 |"
        "340 C1 | 90 65536";
    drawing.raw = Region(kBody + "edge $-1 $3 $2 $-1 $7 forward #\nellipse-curve $-1 2.5 0 0 0 0 1 2.5 0 0 1 I I #\n" +
                         "edge $-1 $2 $3 $-1 $9 forward #\nstraight-curve $-1 0 0 0 1 0 0 I I #\n");
    drawing.raw.replace(0, 9, "0\nREGION\n5\nC1\n67\n1\n");
    SmallScene look;
    look.paper = true;
    EXPECT_EQ(LinesOf(drawing, look)[0],
              "clip m 15 20 c 15 21.381 13.881 22.5 12.5 22.5 c 11.119 22.5 10 21.381 10 20 l 15 20 h");
}

TEST(MeshesTest, DrawEachEdgeOnce)
{
    SmallDrawing drawing;
    drawing.entities =
        "0 MESH | 8 0 | 71 2 | 72 0 | 91 0 | 92 6 | 10 0 | 20 0 | 30 0 | 10 10 | 20 0 | 30 0 | 10 10 | 20 "
        "10 | 30 0 | 10 0 | 20 10 | 30 0 | 10 20 | 20 0 | 30 0 | 10 20 | 20 10 | 30 0 | 93 10 | 90 4 | 90 "
        "0 | 90 1 | 90 2 | 90 3 | 90 4 | 90 1 | 90 4 | 90 5 | 90 2 | 94 1 | 90 0 | 90 1 | 95 0 | 90 0";
    EXPECT_EQ(LinesOf(drawing),
              Lines{"stroke 000000 0.25 m 0 0 l 10 0 m 0 0 l 0 10 m 10 0 l 10 10 m 10 0 l 20 0 m 10 10 "
                    "l 0 10 m 10 10 l 20 10 m 20 0 l 20 10"});
}

TEST(MeshesTest, LeaveOutWhatIsNotThere)
{
    SmallDrawing drawing;
    drawing.entities = "0 MESH | 8 0 | 92 2 | 10 0 | 20 0 | 10 10 | 20 0 | 93 9 | 90 900 | 90 0 | 90 1 | 90 77 | 90 -3";
    EXPECT_EQ(LinesOf(drawing), Lines{"stroke 000000 0.25 m 0 0 l 10 0"});
}

TEST(ThicknessTest, ShowsFromTheSide)
{
    SmallDrawing drawing;
    drawing.entities = "0 LINE | 8 0 | 39 5 | 10 10 | 20 20 | 30 0 | 11 20 | 21 20 | 31 0";
    SmallScene look;
    EXPECT_EQ(LinesOf(drawing, look), Lines{"stroke 000000 0.25 m 10 20 l 20 20"});
    look.view = ViewMatrix({0, -1, 0}, {}, 0);
    EXPECT_EQ(LinesOf(drawing, look), (Lines{"stroke 000000 0.25 m 10 0 l 20 0", "stroke 000000 0.25 m 10 5 l 20 5",
                                             "stroke 000000 0.25 m 10 0 l 10 5 m 20 0 l 20 5"}));
}

} // namespace
} // namespace sm::render
