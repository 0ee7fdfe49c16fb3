// SPDX-License-Identifier: GPL-3.0-or-later
// What a screen showed: of a sheet through its own viewport, whichever way the file tells which one that is, and of a
// model that has no extents.
#include "plotter/PlotRows.h"

#include "drawing/Drawing.h"
#include "page/PlotArea.h"

#include <gtest/gtest.h>

namespace sm::plotter {
namespace {

/// A viewport of 200 x 100 that shows twice its height; `id` null: group 69 is missing.
std::string Viewport(const char* id, int centerX)
{
    return "0\nVIEWPORT\n67\n1\n10\n100\n20\n50\n40\n200\n41\n100\n68\n1\n" +
           (id != nullptr ? "69\n" + std::string(id) + "\n" : "") + "12\n" + std::to_string(centerX) +
           "\n22\n70\n45\n200\n";
}

struct SheetViewRow {
    const char* name;
    const char *first, *second; ///< their ids
    Box2 area;
};
class SheetViewTest : public testing::TestWithParam<SheetViewRow> {};

TEST_P(SheetViewTest, IsThatOfTheSheetsOwnViewport)
{
    const auto drawing = drawing::Drawing::FromBytes("0\nSECTION\n2\nENTITIES\n" + Viewport(GetParam().first, 140) +
                                                         Viewport(GetParam().second, 900) + "0\nENDSEC\n0\nEOF\n",
                                                     "test.dxf");
    const PlotArea area = FindPlotArea(*drawing, drawing->Layouts()[1], A4(kDisplay, kStandard),
                                       [](const auto&) { return BoxOf(0, 0, 1, 1); });
    EXPECT_EQ(area.box, GetParam().area);
}

INSTANTIATE_TEST_SUITE_P(Ids, SheetViewTest,
                         testing::Values(SheetViewRow{"IdOne", "1", "2", BoxOf(-60, -30, 340, 170)},
                                         SheetViewRow{"IdOneLast", "2", "1", BoxOf(700, -30, 1100, 170)},
                                         SheetViewRow{"Missing", nullptr, nullptr, BoxOf(-60, -30, 340, 170)},
                                         SheetViewRow{"MinusOne", "-1", "-1", BoxOf(-60, -30, 340, 170)},
                                         SheetViewRow{"Zero", "0", "0", BoxOf(-60, -30, 340, 170)},
                                         SheetViewRow{"NoSheetAmongThem", "2", "3", BoxOf(0, 0, 1, 1)}),
                         [](const auto& row) { return row.param.name; });

struct EndlessRow {
    const char* name;
    std::string entities;
    Box2 extents, area;
    bool clips;
};
class EndlessLinesTest : public testing::TestWithParam<EndlessRow> {};

TEST_P(EndlessLinesTest, StandInWhatTheScreenShowedWhereNothingElseIsThere)
{
    const auto drawing = drawing::Drawing::FromBytes(
        "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nVPORT\n0\nVPORT\n2\n*ACTIVE\n12\n30\n22\n20\n40\n20\n41\n2\n16\n0\n26\n0\n"
        "36\n1\n0\nENDTAB\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n" +
            GetParam().entities + "0\nENDSEC\n0\nEOF\n",
        "test.dxf");
    const PlotArea area = FindPlotArea(*drawing, drawing->Layouts()[0], A4(kExtents, kStandard),
                                       [](const auto&) { return GetParam().extents; });
    EXPECT_EQ(area.box, GetParam().area);
    EXPECT_EQ(area.clips, GetParam().clips);
}

const std::string kRay = "0\nRAY\n10\n25\n20\n15\n11\n1\n21\n0\n", kXLine = "0\nXLINE\n10\n25\n20\n15\n11\n1\n21\n0\n";

INSTANTIATE_TEST_SUITE_P(Rows, EndlessLinesTest,
                         testing::Values(EndlessRow{"Ray", kRay, {}, BoxOf(10, 10, 50, 30), true},
                                         EndlessRow{"XLine", kXLine, {}, BoxOf(10, 10, 50, 30), true},
                                         EndlessRow{"BesideOthers", kRay, BoxOf(0, 0, 1, 1), BoxOf(0, 0, 1, 1), false},
                                         EndlessRow{"NothingAtAll", "", {}, {}, false}),
                         [](const auto& row) { return row.param.name; });

} // namespace
} // namespace sm::plotter
