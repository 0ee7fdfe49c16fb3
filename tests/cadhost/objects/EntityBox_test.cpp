// SPDX-License-Identifier: GPL-3.0-or-later
// The box of what the renderer doesn't draw.
#include "cadhost/HostFixture.h"

namespace sm::cadhost {
namespace {

class EntityBoxTest : public HostTest {
protected:
    std::string BoxOfFirst(const std::string& entities)
    {
        DxfDrawing drawing;
        drawing.AddSheet("Sheet 1");
        drawing.model.entities = entities;
        AcadPoint low, high;
        Open(drawing)->Blocks()->Item("*Model_Space")->Item(0)->GetBoundingBox(low, high);
        return ::testing::PrintToString(std::array{low.x, low.y, low.z, high.x, high.y, high.z});
    }
};

struct PlaceBoxRow {
    const char* name;
    std::string tags;
    const char* expected;
};
class PlaceBoxTest : public EntityBoxTest, public ::testing::WithParamInterface<PlaceBoxRow> {};

TEST_P(PlaceBoxTest, HoldsThePointsOfTheTags)
{
    EXPECT_EQ(BoxOfFirst(GetParam().tags), GetParam().expected);
}

std::string At(int code, double x, double y)
{
    return Tag(code, x) + Tag(code + 10, y);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, PlaceBoxTest,
    ::testing::Values(
        PlaceBoxRow{"XLineBase", Plain("XLINE", At(10, 3, 4) + At(11, 0.6, 0.8)), "{ 3, 4, 0, 3, 4, 0 }"},
        PlaceBoxRow{"RayBase", Plain("RAY", At(10, -3, 4) + At(11, 1, 0)), "{ -3, 4, 0, -3, 4, 0 }"},
        PlaceBoxRow{"MeshVertices", Plain("MESH", At(10, 1, 2) + At(10, 9, 2) + At(10, 5, 8)), "{ 1, 2, 0, 9, 8, 0 }"},
        PlaceBoxRow{"MLineVertices",
                    Plain("MLINE", At(10, 1, 1) + At(11, 1, 1) + At(12, 0, 1) + At(13, 0, 1) + At(11, 20, 5)),
                    "{ 1, 1, 0, 20, 5, 0 }"},
        PlaceBoxRow{"TolerancePlace", Plain("TOLERANCE", At(10, 7, 8) + At(11, 1, 0)), "{ 7, 8, 0, 7, 8, 0 }"},
        PlaceBoxRow{"ShapeAndSize", Plain("SHAPE", At(10, 7, 8) + Tag(40, 2.5)), "{ 7, 8, 0, 9.5, 10.5, 0 }"},
        PlaceBoxRow{"MirroredShape", Plain("SHAPE", At(10, 7, 8) + Tag(40, 2) + Tag(230, -1)),
                    "{ -9, 8, 0, -7, 10, 0 }"},
        PlaceBoxRow{"TableHangsDown",
                    Plain("ACAD_TABLE", At(10, 10, 50) + At(11, 1, 0) + Tag(141, 5) + Tag(141, 6) + Tag(142, 30)),
                    "{ 10, 39, 0, 40, 50, 0 }"},
        PlaceBoxRow{"TurnedTable", Plain("ACAD_TABLE", At(10, 10, 50) + At(11, 0, 2) + Tag(141, 5) + Tag(142, 30)),
                    "{ 10, 50, 0, 15, 80, 0 }"},
        PlaceBoxRow{"MultiLeader",
                    Plain("MULTILEADER", Tag(300, "CONTEXT_DATA{") + At(10, 5, 5) + At(11, 0, 0) + At(12, 6, 7) +
                                             At(13, 1, 0) + Tag(302, "LEADER{") + At(10, 1, 2) + At(11, 1, 0)),
                    "{ 1, 2, 0, 6, 7, 0 }"},
        PlaceBoxRow{"OleFrameCorners", Plain("OLE2FRAME", At(10, 1, 9) + At(11, 8, 2)), "{ 1, 2, 0, 8, 9, 0 }"},
        PlaceBoxRow{"LightAndTarget", Plain("LIGHT", At(10, 1, 9) + At(11, 8, 2)), "{ 1, 2, 0, 8, 9, 0 }"},
        PlaceBoxRow{"PdfUnderlay", Plain("PDFUNDERLAY", At(10, 4, 5) + Tag(41, 1) + At(11, 90, 90)),
                    "{ 4, 5, 0, 4, 5, 0 }"},
        PlaceBoxRow{"PolyfaceWithoutFaces",
                    Plain("POLYLINE", Tag(66, 1) + At(10, 0, 0) + Tag(70, 64)) +
                        Plain("VERTEX", At(10, 8, 9) + Tag(70, 192)) + Plain("VERTEX", At(10, 6, 12) + Tag(70, 192)) +
                        Plain("SEQEND", ""),
                    "{ 6, 9, 0, 8, 12, 0 }"},
        PlaceBoxRow{"EmptyText", Plain("TEXT", At(10, 4, 5) + Tag(40, 2) + Tag(1, "")), "{ 4, 5, 0, 4, 5, 0 }"},
        PlaceBoxRow{"MirroredEmptyText", Plain("TEXT", At(10, 4, 5) + Tag(1, "") + Tag(230, -1)),
                    "{ -4, 5, 0, -4, 5, 0 }"},
        PlaceBoxRow{"HatchWithoutItsElevation", Plain("HATCH", At(10, 0, 0) + At(10, 70, 60)),
                    "{ 70, 60, 0, 70, 60, 0 }"},
        PlaceBoxRow{"UnheardWithPlaces", Plain("ACME_WIDGET", At(10, 4, 5) + At(11, 1, 0)), "{ 4, 5, 0, 4, 5, 0 }"},
        PlaceBoxRow{"UnheardWithOtherPoints", Plain("ACME_WIDGET", At(11, 4, 5) + At(12, 6, 1)),
                    "{ 4, 1, 0, 6, 5, 0 }"}),
    [](const auto& row) { return row.param.name; });

} // namespace
} // namespace sm::cadhost
