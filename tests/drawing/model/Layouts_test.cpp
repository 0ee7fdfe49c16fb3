// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/DxfText.h"
#include "drawing/EntityKinds.h"
#include "drawing/Finding.h"

#include <gmock/gmock.h>

namespace sm::drawing::testing {
namespace {

std::string LayoutObject(const std::string& handle, const std::string& name, int tab, const std::string& block,
                         const std::string& more = "")
{
    return "0\nLAYOUT\n5\n" + handle + "\n330\nD\n100\nAcDbPlotSettings\n1\n\n2\nnone_device\n4\n\n44\n0\n45\n0\n" +
           more + "100\nAcDbLayout\n1\n" + name + "\n70\n1\n71\n" + std::to_string(tab) + "\n330\n" + block + "\n";
}

/// A drawing with the blocks *Model_Space (1F), *Paper_Space (1B) and *Paper_Space0 (1A), and these objects.
DxfText WithObjects(const std::string& objects, const std::string& head = "")
{
    DxfText text;
    text.Section("HEADER").Variable("$ACADVER", 1, "AC1015").Raw(head).EndSection();
    text.Section("TABLES").Raw("0\nBLOCK_RECORD\n5\n1F\n2\n*Model_Space\n0\nBLOCK_RECORD\n5\n1B\n2\n*Paper_Space\n"
                               "0\nBLOCK_RECORD\n5\n1A\n2\n*Paper_Space0\n340\n33\n");
    text.EndSection().Section("BLOCKS");
    text.Raw("0\nBLOCK\n2\n*Model_Space\n0\nENDBLK\n0\nBLOCK\n2\n*Paper_Space\n0\nENDBLK\n"
             "0\nBLOCK\n2\n*Paper_Space0\n0\nCIRCLE\n40\n1\n0\nENDBLK\n");
    text.EndSection().Section("ENTITIES").Raw("0\nLINE\n8\n0\n0\nPOINT\n67\n1\n0\nLINE\n67\n1\n").EndSection();
    return text.Section("OBJECTS").Raw(objects).EndSection().End();
}

std::vector<std::string> Names(const Drawing& drawing)
{
    std::vector<std::string> names;
    for (const Layout& layout : drawing.Layouts())
        names.push_back(layout.name + "=" + drawing.Blocks()[layout.block].name + ":" +
                        std::to_string(drawing.EntitiesOf(layout.block).size()));
    return names;
}

std::vector<std::int32_t> FindingCodes(const Drawing& drawing)
{
    std::vector<std::int32_t> codes;
    for (const Finding& finding : drawing.Findings())
        codes.push_back(finding.code);
    return codes;
}

using Strings = std::vector<std::string>;
using Codes = std::vector<std::int32_t>;

TEST(Layouts, GapsBetweenTabsAreNoDamageDoublesAre)
{
    const auto gaps = WithObjects(LayoutObject("32", "Second", 7, "1A") + LayoutObject("31", "First", 3, "1B") +
                                  LayoutObject("30", "Model", 0, "1F"))
                          .Open();
    EXPECT_EQ(Names(*gaps), (Strings{"Model=*Model_Space:1", "First=*Paper_Space:2", "Second=*Paper_Space0:1"}));
    EXPECT_EQ(gaps->Layouts()[2].tabOrder, 2);
    EXPECT_TRUE(gaps->Findings().empty());
    const auto doubles = WithObjects(LayoutObject("32", "Second", 1, "1A") + LayoutObject("31", "First", 1, "1B") +
                                     LayoutObject("30", "Model", 0, "1F"))
                             .Open();
    ASSERT_EQ(doubles->Findings().size(), 1U);
    EXPECT_EQ(doubles->Findings()[0].text, "two layouts have the same tab order; renumbered");
    EXPECT_EQ(doubles->Layouts()[2].tabOrder, 2);
}

TEST(Layouts, HoldTheEntitiesOfEntitiesAndOfTheirBlocks)
{
    const auto drawing = WithObjects(LayoutObject("32", "Second", 2, "1A") + LayoutObject("31", "First", 1, "1B") +
                                     LayoutObject("30", "Model", 0, "1F"))
                             .Open();
    EXPECT_EQ(Names(*drawing), (Strings{"Model=*Model_Space:1", "First=*Paper_Space:2", "Second=*Paper_Space0:1"}));
    EXPECT_TRUE(drawing->Layouts()[0].isModel);
    EXPECT_EQ(drawing->EntityCount(), 4U);
    EXPECT_TRUE(drawing->EntitiesOf(drawing->Layouts()[1].block)[0].paperSpace);
    EXPECT_TRUE(drawing->EntitiesOf(drawing->Layouts()[2].block)[0].paperSpace);
    EXPECT_TRUE(drawing->Findings().empty());
}

TEST(Layouts, KeepTheirPlotSettings)
{
    const std::string plot =
        "1\nA3 plot\n2\nLaser\n4\nISO_A3\n6\nNorth\n7\nmono.ctb\n40\n5\n41\n6\n42\n7\n43\n8\n44\n420\n45\n297\n46\n"
        "1.5\n47\n-2\n48\n10\n49\n20\n140\n110\n141\n220\n142\n1\n143\n50\n70\n688\n72\n1\n73\n1\n74\n4\n"
        "75\n16\n147\n0.02\n";
    const std::string layout =
        "0\nLAYOUT\n5\n31\n102\n{ACAD_REACTORS\n330\nD\n102\n}\n330\nD\n100\nAcDbPlotSettings\n" + plot +
        "100\nAcDbLayout\n1\nPlan\n70\n0\n71\n1\n10\n0\n20\n0\n11\n420\n21\n297\n12\n1\n22\n2\n32\n3\n"
        "14\n1E+20\n24\n1E+20\n34\n1E+20\n15\n-1E+20\n25\n-1E+20\n35\n-1E+20\n330\n1B\n";
    const auto drawing = WithObjects(LayoutObject("30", "Model", 0, "1F") + layout).Open();
    const Layout& plan = drawing->Layouts()[1];
    const PlotSettings& settings = plan.plot;
    EXPECT_EQ(plan.name, "Plan");
    EXPECT_FALSE(plan.psltscale);
    EXPECT_EQ(plan.limits, (Box2{{0, 0}, {420, 297}}));
    EXPECT_TRUE(plan.extents.Empty());
    EXPECT_EQ(plan.insertionBase, (Vec3{1, 2, 3}));
    EXPECT_EQ(settings.pageSetupName, "A3 plot");
    EXPECT_EQ(settings.configName, "Laser");
    EXPECT_EQ(settings.mediaName, "ISO_A3");
    EXPECT_EQ(settings.viewName, "North");
    EXPECT_EQ(settings.styleSheet, "mono.ctb");
    EXPECT_EQ(settings.marginLeft, 5);
    EXPECT_EQ(settings.marginBottom, 6);
    EXPECT_EQ(settings.marginRight, 7);
    EXPECT_EQ(settings.marginTop, 8);
    EXPECT_EQ(settings.paperWidth, 420);
    EXPECT_EQ(settings.paperHeight, 297);
    EXPECT_EQ(settings.origin, (Vec2{1.5, -2}));
    EXPECT_EQ(settings.window, (Box2{{10, 20}, {110, 220}}));
    EXPECT_EQ(settings.scaleDenominator, 50);
    EXPECT_TRUE(settings.Has(PlotSettings::kPlotStyles) && settings.Has(PlotSettings::kLineweights));
    EXPECT_FALSE(settings.Has(PlotSettings::kCentered));
    EXPECT_EQ(settings.paperUnits, 1);
    EXPECT_EQ(settings.rotation, 1);
    EXPECT_EQ(settings.plotType, 4);
    EXPECT_EQ(settings.standardScale, 16);
    EXPECT_EQ(settings.standardScaleFactor, 0.02);
}

TEST(Layouts, AreAssumedInOldFiles)
{
    const auto drawing = DxfText()
                             .Header("AC1009")
                             .Section("BLOCKS")
                             .Raw("0\nBLOCK\n2\n$MODEL_SPACE\n0\nENDBLK\n0\nBLOCK\n2\n$PAPER_SPACE\n0\nENDBLK\n")
                             .EndSection()
                             .Section("ENTITIES")
                             .Raw("0\nLINE\n8\n0\n0\nVIEWPORT\n67\n1\n")
                             .EndSection()
                             .End()
                             .Open();
    EXPECT_EQ(Names(*drawing), (Strings{"Model=$MODEL_SPACE:1", "Layout1=$PAPER_SPACE:1"}));
    EXPECT_FALSE(drawing->Layouts()[1].hasPlotSettings);
    EXPECT_EQ(drawing->Layouts()[1].tabOrder, 1);
    EXPECT_TRUE(drawing->Findings().empty());
}

TEST(Layouts, GapsAndDoublesOfTabsAreRenumbered)
{
    const auto drawing = WithObjects(LayoutObject("30", "Model", 0, "1F") + LayoutObject("31", "B", 7, "1B") +
                                     LayoutObject("32", "A", 7, "1A"))
                             .Open();
    EXPECT_EQ(Names(*drawing), (Strings{"Model=*Model_Space:1", "B=*Paper_Space:2", "A=*Paper_Space0:1"}));
    EXPECT_EQ(drawing->Layouts()[1].tabOrder, 1);
    EXPECT_EQ(drawing->Layouts()[2].tabOrder, 2);
    EXPECT_EQ(FindingCodes(*drawing), (Codes{602}));
}

TEST(Layouts, ABrokenLinkIsMendedByTheBlocksOwn)
{
    const auto drawing = WithObjects(LayoutObject("30", "Model", 0, "1F") + LayoutObject("33", "Loose", 1, "FFFA") +
                                     LayoutObject("31", "Fixed", 2, "1B"))
                             .Open();
    EXPECT_EQ(Names(*drawing), (Strings{"Model=*Model_Space:1", "Loose=*Paper_Space0:1", "Fixed=*Paper_Space:2"}));
    EXPECT_TRUE(drawing->Findings().empty());
}

TEST(Layouts, WithoutABlockTakeAFreeOne)
{
    const auto drawing = WithObjects(LayoutObject("30", "Model", 0, "0") + LayoutObject("31", "A", 1, "FFFA") +
                                     LayoutObject("32", "B", 2, "1B") + LayoutObject("34", "C", 3, "1B"))
                             .Open();
    EXPECT_EQ(Names(*drawing),
              (Strings{"Model=*Model_Space:1", "A=*Paper_Space0:1", "B=*Paper_Space:2", "C=*Paper_Space3:0"}));
    EXPECT_EQ(FindingCodes(*drawing), (Codes{601}));
    EXPECT_EQ(drawing->Findings()[0].count, 3U);
}

TEST(Layouts, DoubleAndMissingNamesAreMended)
{
    const auto drawing = WithObjects(LayoutObject("30", "Model", 0, "1F") + LayoutObject("31", "Plan", 1, "1B") +
                                     LayoutObject("32", "PLAN", 2, "1A"))
                             .Open();
    EXPECT_EQ(Names(*drawing), (Strings{"Model=*Model_Space:1", "Plan=*Paper_Space:2", "PLAN 1=*Paper_Space0:1"}));
    EXPECT_EQ(FindingCodes(*drawing), (Codes{603}));
    const auto nameless = WithObjects(LayoutObject("30", "Model", 0, "1F") + LayoutObject("31", "", 1, "1B")).Open();
    EXPECT_EQ(Names(*nameless), (Strings{"Model=*Model_Space:1", "Layout1=*Paper_Space:2"}));
}

struct ActiveRow {
    const char* name;
    const char* head;
    const char* objects;
    std::size_t active;
};

class ActiveTab : public ::testing::TestWithParam<ActiveRow> {};

TEST_P(ActiveTab, IsThatOfTheFile)
{
    const auto drawing = WithObjects(GetParam().objects + LayoutObject("30", "Model", 0, "1F") +
                                         LayoutObject("31", "A", 1, "1A") + LayoutObject("32", "B", 2, "1B"),
                                     GetParam().head)
                             .Open();
    EXPECT_EQ(drawing->ActiveLayout(), GetParam().active);
}

constexpr const char* kCurrentTab = "0\nDICTIONARY\n5\nC\n330\n0\n3\nAcDbVariableDictionary\n350\n40\n"
                                    "0\nDICTIONARY\n5\n40\n330\nC\n3\nCTAB\n350\n41\n"
                                    "0\nDICTIONARYVAR\n5\n41\n280\n0\n1\nA\n";

INSTANTIATE_TEST_SUITE_P(Sources, ActiveTab,
                         ::testing::Values(ActiveRow{"ModelByDefault", "", "", 0},
                                           ActiveRow{"PaperWhenTileModeIsOff", "9\n$TILEMODE\n70\n0\n", "", 2},
                                           ActiveRow{"DictionaryVariableWins", "9\n$TILEMODE\n70\n0\n", kCurrentTab,
                                                     1}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Layouts, PageSetupsAndImageDefinitionsAreListed)
{
    const auto drawing = WithObjects("0\nPLOTSETTINGS\n5\n50\n100\nAcDbPlotSettings\n1\nHalf size\n142\n1\n143\n2\n"
                                     "0\nIMAGEDEF\n5\n51\n1\npics\\site.png\n10\n640\n20\n480\n"
                                     "0\nPDFDEFINITION\n5\n52\n1\nplan.pdf\n2\n1\n")
                             .Open();
    ASSERT_EQ(drawing->PageSetups().size(), 1U);
    EXPECT_EQ(drawing->PageSetups()[0].pageSetupName, "Half size");
    EXPECT_EQ(drawing->PageSetups()[0].scaleDenominator, 2);
    ASSERT_EQ(drawing->ImageDefinitions().size(), 2U);
    EXPECT_EQ(drawing->ImageDefinitions()[0].path, "pics\\site.png");
    EXPECT_EQ(drawing->ImageDefinitions()[0].pixels, (Vec2{640, 480}));
    EXPECT_EQ(drawing->ImageDefinitions()[1].handle, 0x52U);
}

TEST(Layouts, DrawOrderFollowsTheSortTable)
{
    const auto drawing = DxfText()
                             .Section("TABLES")
                             .Raw("0\nBLOCK_RECORD\n5\n1F\n2\n*Model_Space\n")
                             .EndSection()
                             .Section("ENTITIES")
                             .Raw("0\nLINE\n5\n101\n0\nCIRCLE\n5\n102\n0\nARC\n5\n103\n")
                             .EndSection()
                             .Section("OBJECTS")
                             .Raw("0\nSORTENTSTABLE\n5\n60\n330\nC\n100\nAcDbSortentsTable\n330\n1F\n331\n101\n5\n103\n"
                                  "331\n103\n5\n101\n")
                             .EndSection()
                             .End()
                             .Open();
    std::vector<std::string> order;
    for (const EntityRecord& record : ModelEntities(*drawing))
        order.emplace_back(drawing->EntityName(record));
    EXPECT_EQ(order, (Strings{"ARC", "CIRCLE", "LINE"}));
    ASSERT_NE(drawing->FindEntity(0x101), nullptr);
    EXPECT_EQ(drawing->FindEntity(0x101)->kind, EntityKind::Line);
    EXPECT_EQ(drawing->RecordIndex(*drawing->FindEntity(0x101)), 2U);
    const EntityRecord copy = *drawing->FindEntity(0x102);
    EXPECT_EQ(drawing->RecordIndex(copy), 1U);
    EXPECT_EQ(drawing->FindEntity(0x999), nullptr);
}

} // namespace
} // namespace sm::drawing::testing
