// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/DxfText.h"
#include "drawing/PlanView.h"
#include "drawing/entities/Hyperlinks.h"
#include "drawing/entities/Viewports.h"

#include <gmock/gmock.h>

namespace sm::drawing::testing {
namespace {

using ::testing::ElementsAre;

std::unique_ptr<Drawing> OpenViewport(const std::string& groups)
{
    return DxfText()
        .Section("TABLES")
        .Raw("0\nLAYER\n5\n10\n2\n0\n62\n7\n0\nLAYER\n5\n11\n2\nA\n62\n1\n0\nLAYER\n5\n12\n2\nB\n62\n1\n")
        .EndSection()
        .Section("ENTITIES")
        .Raw("0\nVIEWPORT\n67\n1\n" + groups)
        .EndSection()
        .End()
        .Open();
}

ViewportData ReadViewport(const Drawing& drawing)
{
    ViewportData data;
    Read(drawing, drawing.EntitiesOf(drawing.Layouts()[1].block)[0], data);
    return data;
}

TEST(Viewports, KeepTheirViewAndFrozenLayers)
{
    const auto drawing = OpenViewport("10\n100\n20\n50\n30\n0\n40\n200\n41\n100\n68\n2\n69\n3\n12\n1\n22\n2\n16\n0\n26"
                                      "\n0\n36\n1\n17\n5\n27\n6\n37\n7\n"
                                      "45\n1000\n51\n30\n331\n11\n341\n12\n331\nFF\n90\n131168\n340\n2B\n");
    const ViewportData data = ReadViewport(*drawing);
    EXPECT_EQ(data.center, (Vec3{100, 50, 0}));
    EXPECT_EQ(data.width, 200);
    EXPECT_EQ(data.height, 100);
    EXPECT_EQ(data.status, 2);
    EXPECT_EQ(data.id, 3);
    EXPECT_EQ(data.viewCenter, (Vec2{1, 2}));
    EXPECT_EQ(data.viewHeight, 1000);
    EXPECT_EQ(data.target, (Vec3{5, 6, 7}));
    EXPECT_EQ(data.twist, 30);
    EXPECT_TRUE(data.Off());
    EXPECT_EQ(data.clipEntity, 0x2BU);
    EXPECT_THAT(data.frozenLayers, ElementsAre(1, 2));
}

TEST(Viewports, TellHowDeepTheyGoAndWhetherTheyHideLines)
{
    const auto drawing = OpenViewport("10\n1\n20\n1\n40\n2\n41\n2\n42\n35\n43\n4\n44\n-3\n45\n9\n90\n2071\n");
    const ViewportData data = ReadViewport(*drawing); // 0x817
    EXPECT_EQ(data.depth, (ViewDepth{.mode = 23, .lens = 35, .front = 4, .back = -3}));
    EXPECT_TRUE(data.depth.Perspective());
    EXPECT_TRUE(data.depth.EndsInFront());
    EXPECT_TRUE(data.depth.EndsBehind());
    EXPECT_TRUE(data.HidesLines());
}

TEST(Viewports, HideLinesAsTheirShadePlotSays)
{
    const auto hides = [](const std::string& groups) {
        return ReadViewport(*OpenViewport("10\n1\n20\n1\n40\n2\n41\n2\n45\n9\n" + groups)).HidesLines();
    };
    EXPECT_FALSE(hides("90\n0\n170\n0\n"));
    EXPECT_TRUE(hides("90\n2048\n170\n0\n"));
    EXPECT_FALSE(hides("90\n2048\n170\n1\n"));
    EXPECT_TRUE(hides("90\n0\n170\n2\n"));
}

TEST(Viewports, OfR12KeepTheirViewInExtendedData)
{
    const auto drawing =
        OpenViewport("10\n100\n20\n50\n40\n200\n41\n100\n68\n1\n69\n2\n1001\nACAD\n1000\nMVIEW\n1002\n{\n1070\n16\n"
                     "1010\n5\n1020\n6\n1030\n7\n1010\n0\n1020\n0\n1030\n1\n1040\n30\n1040\n1000\n1040\n1\n1040\n2\n104"
                     "0\n50\n1040\n4\n1040\n-3\n"
                     "1070\n7\n1070\n100\n1070\n0\n1070\n0\n1070\n0\n1070\n0\n1070\n0\n1070\n0\n1040\n0\n1070\n1\n"
                     "1002\n{\n1003\nb\n1003\nGONE\n1002\n}\n1002\n}\n");
    const ViewportData data = ReadViewport(*drawing);
    EXPECT_EQ(data.target, (Vec3{5, 6, 7}));
    EXPECT_EQ(data.direction, (Vec3{0, 0, 1}));
    EXPECT_EQ(data.twist, 30);
    EXPECT_EQ(data.viewHeight, 1000);
    EXPECT_EQ(data.viewCenter, (Vec2{1, 2}));
    EXPECT_EQ(data.depth, (ViewDepth{.mode = 7, .lens = 50, .front = 4, .back = -3}));
    EXPECT_TRUE(data.HidesLines());
    EXPECT_THAT(data.frozenLayers, ElementsAre(2));
}

struct SheetRow {
    const char* name;
    std::vector<const char*> ids; ///< group 69 of each viewport, in file order; null: the group is missing
    int sheet;                    ///< which of them is the sheet; -1: none
};
class SheetViewportTest : public ::testing::TestWithParam<SheetRow> {};

TEST_P(SheetViewportTest, IsTheOneWithIdOneOrTheFirst)
{
    std::string entities = "0\nLINE\n67\n1\n10\n0\n20\n0\n11\n1\n21\n1\n";
    for (const char* id : GetParam().ids)
        entities += "0\nVIEWPORT\n67\n1\n10\n5\n20\n5\n" + (id != nullptr ? std::string("69\n") + id + "\n" : "");
    const auto drawing = OpenEntities(entities);
    const std::uint32_t sheet = drawing->Layouts()[1].block;
    const auto records = drawing->EntitiesOf(sheet);
    ASSERT_EQ(records.size(), GetParam().ids.size() + 1);
    const EntityRecord* const found = SheetViewportOf(*drawing, sheet);
    EXPECT_EQ(found == nullptr ? -1 : static_cast<int>(found - records.data()) - 1, GetParam().sheet);
}

INSTANTIATE_TEST_SUITE_P(
    Ids, SheetViewportTest,
    ::testing::Values(SheetRow{"IdOneFirst", {"1", "2"}, 0}, SheetRow{"IdOneLast", {"3", "2", "1"}, 2},
                      SheetRow{"IdOneAmongMissing", {nullptr, "1"}, 1}, SheetRow{"Missing", {nullptr, nullptr}, 0},
                      SheetRow{"MinusOne", {"-1", "-1"}, 0}, SheetRow{"Zero", {"0", "0"}, 0},
                      SheetRow{"ZeroAndMinusOne", {"0", "-1", nullptr}, 0}, SheetRow{"OthersAlone", {"2", "3"}, -1},
                      SheetRow{"ZeroBeforeAnother", {"0", "2"}, -1}, SheetRow{"NoViewport", {}, -1}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(PlanViews, LookStraightDown)
{
    EXPECT_TRUE(IsPlanView({0, 0, 1}));
    EXPECT_TRUE(IsPlanView({0, 0, 0}));
    EXPECT_FALSE(IsPlanView({0, 0, -1}));
    EXPECT_FALSE(IsPlanView({0, 0.5, 1}));
    EXPECT_FALSE(IsPlanView({-1, 0, 1}));
}

TEST(ModelLayout, IsTheModelTab)
{
    const auto drawing = OpenEntities("0\nLINE\n8\n0\n");
    EXPECT_EQ(ModelLayoutOf(*drawing), &drawing->Layouts().front());
    EXPECT_TRUE(ModelLayoutOf(*drawing)->isModel);
}

TEST(Hyperlinks, HaveAddressDescriptionAndPlace)
{
    const auto drawing = OpenEntities(
        "0\nLINE\n8\n0\n1001\nACAD\n1000\nno link\n1001\nPE_URL\n1000\nhttp://a.example\n1002\n{\n1000\nSee ^J "
        "a\n1002\n{\n1071\n1\n1002\n}\n1002\n}\n"
        "0\nTEXT\n1\nx\n1001\nPE_URL\n1000\n\n1002\n{\n1000\nSheet\n1000\nLayout1,North\n1002\n{\n1071\n0\n1002\n}"
        "\n1002\n}\n1000\nhttp://b.example\n"
        "0\nCIRCLE\n8\n0\n");
    std::vector<Hyperlink> links{{"old", "", ""}};
    ReadHyperlinks(*drawing, ModelEntities(*drawing)[0], links);
    ASSERT_EQ(links.size(), 1U);
    EXPECT_EQ(links[0].url, "http://a.example");
    EXPECT_EQ(links[0].description, "See \n a");
    EXPECT_EQ(links[0].subLocation, "");
    ReadHyperlinks(*drawing, ModelEntities(*drawing)[1], links);
    ASSERT_EQ(links.size(), 2U);
    EXPECT_EQ(links[0].url, "");
    EXPECT_EQ(links[0].description, "Sheet");
    EXPECT_EQ(links[0].subLocation, "Layout1,North");
    EXPECT_EQ(links[1].url, "http://b.example");
    ReadHyperlinks(*drawing, ModelEntities(*drawing)[2], links);
    EXPECT_TRUE(links.empty());
}

} // namespace
} // namespace sm::drawing::testing
