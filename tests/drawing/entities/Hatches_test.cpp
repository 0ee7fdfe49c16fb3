// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/DxfText.h"
#include "drawing/entities/Hatches.h"

#include <gmock/gmock.h>

namespace sm::drawing::testing {
namespace {

using ::testing::ElementsAre;

constexpr const char* kEdges = "0\nHATCH\n10\n0\n20\n0\n30\n4\n210\n0\n220\n0\n230\n1\n2\nANSI31\n70\n0\n71\n0\n91\n2\n"
                               "92\n1\n93\n4\n72\n1\n10\n0\n20\n0\n11\n10\n21\n0\n"
                               "72\n2\n10\n5\n20\n5\n40\n2\n50\n0\n51\n90\n73\n0\n"
                               "72\n3\n10\n6\n20\n6\n11\n3\n21\n0\n40\n0.5\n50\n10\n51\n350\n73\n1\n"
                               "72\n4\n94\n3\n73\n1\n74\n0\n95\n2\n96\n2\n40\n0\n40\n1\n10\n1\n20\n2\n42\n1\n10\n3\n20"
                               "\n4\n42\n0.5\n97\n1\n11\n7\n21\n8\n"
                               "97\n1\n330\nAB\n"
                               "92\n19\n72\n1\n73\n0\n93\n2\n10\n1\n20\n1\n42\n0.5\n10\n2\n20\n2\n42\n0\n97\n0\n"
                               "75\n1\n76\n1\n52\n45\n41\n2\n77\n1\n78\n1\n53\n45\n43\n0\n44\n1\n45\n-"
                               "2\n46\n2\n79\n2\n49\n1\n49\n-0.5\n98\n1\n10\n99\n20\n99\n";

TEST(Hatches, KeepEveryKindOfEdge)
{
    const auto hatch = ReadOnly<HatchData>(kEdges);
    EXPECT_FALSE(hatch.solid);
    EXPECT_EQ(hatch.patternName, "ANSI31");
    EXPECT_EQ(hatch.elevation, 4);
    ASSERT_EQ(hatch.paths.size(), 2U);
    const std::vector<HatchEdge>& edges = hatch.paths[0].edges;
    ASSERT_EQ(edges.size(), 4U);
    EXPECT_EQ(edges[0].kind, HatchEdge::Kind::Line);
    EXPECT_EQ(edges[0].end, (Vec2{10, 0}));
    EXPECT_EQ(edges[1].kind, HatchEdge::Kind::Arc);
    EXPECT_EQ(edges[1].radius, 2);
    EXPECT_EQ(edges[1].endAngle, 90);
    EXPECT_FALSE(edges[1].counterClockwise);
    EXPECT_EQ(edges[2].kind, HatchEdge::Kind::EllipticArc);
    EXPECT_EQ(edges[2].ratio, 0.5);
    EXPECT_EQ(edges[2].majorAxis, (Vec2{3, 0}));
    EXPECT_EQ(edges[3].kind, HatchEdge::Kind::Spline);
    EXPECT_THAT(edges[3].knots, ElementsAre(0, 1));
    EXPECT_THAT(edges[3].weights, ElementsAre(1, 0.5));
    EXPECT_THAT(edges[3].points, ElementsAre(Vec2{1, 2}, Vec2{3, 4}));
    EXPECT_THAT(edges[3].fitPoints, ElementsAre(Vec2{7, 8}));
}

TEST(Hatches, KeepPolylinesAndPattern)
{
    const auto hatch = ReadOnly<HatchData>(kEdges);
    EXPECT_EQ(hatch.paths[0].flags, 1);
    EXPECT_EQ(hatch.paths[1].flags, 19);
    EXPECT_FALSE(hatch.paths[1].closed);
    ASSERT_EQ(hatch.paths[1].polyline.size(), 2U);
    EXPECT_EQ(hatch.paths[1].polyline[0].bulge, 0.5);
    EXPECT_EQ(hatch.paths[1].polyline[1].point.x, 2);
    EXPECT_EQ(hatch.style, 1);
    EXPECT_EQ(hatch.patternAngle, 45);
    EXPECT_EQ(hatch.patternScale, 2);
    EXPECT_TRUE(hatch.patternDouble);
    ASSERT_EQ(hatch.lines.size(), 1U);
    EXPECT_EQ(hatch.lines[0].base, (Vec2{0, 1}));
    EXPECT_EQ(hatch.lines[0].offset, (Vec2{-2, 2}));
    EXPECT_THAT(hatch.lines[0].dashes, ElementsAre(1, -0.5));
}

TEST(Hatches, LeaveNothingOfTheOneReadBefore)
{
    const auto drawing = OpenEntities(std::string(kEdges) +
                                      "0\nHATCH\n2\nSOLID\n70\n1\n91\n1\n92\n0\n93\n1\n72\n1\n10\n1\n20\n1\n11\n2\n21\n"
                                      "2\n75\n0\n76\n1\n450\n1\n460\n0.5\n461\n1\n"
                                      "453\n2\n463\n0\n63\n5\n421\n255\n463\n1\n63\n2\n421\n16776960\n470\nLINEAR\n");
    HatchData hatch;
    Read(*drawing, ModelEntities(*drawing)[0], hatch);
    Read(*drawing, ModelEntities(*drawing)[1], hatch);
    EXPECT_TRUE(hatch.solid && hatch.gradient);
    ASSERT_EQ(hatch.paths.size(), 1U);
    ASSERT_EQ(hatch.paths[0].edges.size(), 1U);
    EXPECT_EQ(hatch.paths[0].edges[0].end, (Vec2{2, 2}));
    EXPECT_TRUE(hatch.lines.empty());
    EXPECT_EQ(hatch.gradientName, "LINEAR");
    EXPECT_THAT(hatch.gradientColors, ElementsAre(0xFFU, 0xFFFF00U));
}

} // namespace
} // namespace sm::drawing::testing
