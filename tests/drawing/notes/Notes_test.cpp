// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/DxfText.h"
#include "drawing/entities/DimStyles.h"
#include "drawing/entities/Dimensions.h"
#include "drawing/entities/MLines.h"
#include "drawing/entities/MultiLeaders.h"
#include "drawing/entities/TableEntities.h"

#include <gtest/gtest.h>

namespace sm::drawing::testing {
namespace {

std::unique_ptr<Drawing> OpenStyled(const std::string& entity)
{
    return DxfText()
        .Section("HEADER")
        .Variable("$DIMTXT", 40, "7")
        .Variable("$DIMBLK", 1, "TICK")
        .EndSection()
        .Section("TABLES")
        .Raw("0\nDIMSTYLE\n105\nD1\n102\n{ACAD_REACTORS\n330\n1\n102\n}\n2\nMetric\n40\n2\n140\n2.5\n271\n1\n342\nB1\n"
             "0\nDIMSTYLE\n105\nD2\n2\nOld\n5\nTICK\n40\n0\n271\n99\n0\nBLOCK_RECORD\n5\nB1\n2\n_Dot\n")
        .EndSection()
        .Section("BLOCKS")
        .Raw("0\nBLOCK\n2\n_Dot\n0\nENDBLK\n0\nBLOCK\n2\nTICK\n0\nENDBLK\n")
        .EndSection()
        .Section("ENTITIES")
        .Raw(entity)
        .EndSection()
        .End()
        .Open();
}

struct StyleRow {
    const char* name;
    const char* entity;
    double scale, textHeight;
    std::int32_t decimals;
    const char* arrow;
};

class DimStyles : public ::testing::TestWithParam<StyleRow> {};

TEST_P(DimStyles, AreTheTablesWithTheEntitysOwnChanges)
{
    const StyleRow& row = GetParam();
    const auto drawing = OpenStyled(row.entity);
    DimStyle style;
    Read(*drawing, ModelEntities(*drawing)[0], style);
    EXPECT_EQ(style.scale, row.scale);
    EXPECT_EQ(style.textHeight, row.textHeight);
    EXPECT_EQ(style.decimals, row.decimals);
    EXPECT_EQ(style.arrow.name, row.arrow);
}

INSTANTIATE_TEST_SUITE_P(
    Entities, DimStyles,
    ::testing::Values(
        StyleRow{"Named", "0\nDIMENSION\n3\nmetric\n", 2, 2.5, 1, "DOT"},
        StyleRow{
            "WithOwnChanges",
            "0\nDIMENSION\n3\nMetric\n1001\nOTHER\n1000\nDSTYLE\n1002\n{\n1070\n140\n1040\n9\n1002\n}\n"
            "1001\nACAD\n1000\nDSTYLE\n1002\n{\n1070\n40\n1040\n4\n1070\n271\n1070\n3\n1070\n342\n1005\n0\n1002\n}\n",
            4, 2.5, 3, ""},
        StyleRow{"ChangesThatBreakOff", "0\nDIMENSION\n3\nMetric\n1001\nACAD\n1000\nDSTYLE\n1002\n{\n1070\n40\n", 2,
                 2.5, 1, "DOT"},
        StyleRow{"ArrowByNameAndValuesOutOfRange", "0\nLEADER\n3\nOld\n", 1, 0.18, 8, "TICK"},
        StyleRow{"HeaderWhereTheStyleIsMissing", "0\nTOLERANCE\n3\nNowhere\n", 1, 7, 4, "TICK"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Notes, DimensionFormsByTypeAndName)
{
    const auto form = [](const std::string& groups) { return ReadOnly<DimensionData>(groups).form; };
    using Form = DimensionData::Form;
    EXPECT_EQ(form("0\nDIMENSION\n70\n33\n"), Form::Aligned);
    EXPECT_EQ(form("0\nDIMENSION\n70\n164\n"), Form::Radius);
    EXPECT_EQ(form("0\nDIMENSION\n70\n15\n"), Form::Rotated);
    EXPECT_EQ(form("0\nARC_DIMENSION\n70\n5\n"), Form::Arc);
    EXPECT_EQ(form("0\nLARGE_RADIAL_DIMENSION\n70\n4\n"), Form::Jogged);
}

TEST(Notes, MultiLeaderNestsItsLists)
{
    const auto leader = ReadOnly<MultiLeaderData>(
        "0\nMULTILEADER\n5\n2A\n330\n1F\n62\n3\n100\nAcDbMLeader\n300\nCONTEXT_DATA{\n145\n0.5\n290\n1\n304\nLEADER_"
        "LINE{\n"
        "302\nLEADER{\n10\n1\n20\n2\n304\nLEADER_LINE{\n10\n5\n20\n6\n10\n7\n20\n8\n11\n5\n21\n6\n12\n6\n22\n7\n305\n}"
        "\n"
        "304\nLEADER_LINE{\n305\n}\n303\n}\n302\nLEADER{\n303\n}\n301\n}\n170\n2\n330\nA1\n177\n1\n302\nvalue\n");
    EXPECT_EQ(leader.handle, 0x2AU);
    EXPECT_EQ(leader.color, 3);
    EXPECT_EQ(leader.owner, 0x1FU);
    EXPECT_EQ(leader.text.text, "LEADER_LINE{");
    EXPECT_TRUE(leader.spline);
    ASSERT_EQ(leader.leaders.size(), 2U);
    ASSERT_EQ(leader.leaders[0].lines.size(), 2U);
    EXPECT_EQ(leader.leaders[0].lines[0].vertices, (std::vector<Vec3>{{5, 6, 0}, {7, 8, 0}}));
    ASSERT_EQ(leader.leaders[0].lines[0].gaps.size(), 1U);
    EXPECT_EQ(leader.leaders[0].lines[0].gaps[0].end, (Vec3{6, 7, 0}));
    ASSERT_EQ(leader.attributes.size(), 1U);
    EXPECT_EQ(leader.attributes[0].definition, 0xA1U);
    EXPECT_EQ(leader.attributes[0].text, "value");
}

TEST(Notes, MultiLeaderWhoseListsNeverCloseOrNeverOpen)
{
    EXPECT_EQ(ReadOnly<MultiLeaderData>("0\nMULTILEADER\n100\nAcDbMLeader\n300\nCONTEXT_DATA{\n302\nLEADER{\n")
                  .leaders.size(),
              1U);
    EXPECT_TRUE(ReadOnly<MultiLeaderData>("0\nMULTILEADER\n100\nAcDbMLeader\n303\n}\n305\n}\n10\n1\n").leaders.empty());
}

TEST(Notes, TableValuesShowAsFormatted)
{
    const auto table =
        ReadOnly<TableData>("0\nACAD_TABLE\n91\n1000000\n92\n1000000\n141\n5\n142\n6\n142\n7\n171\n1\n140\n2\n"
                            "301\nCELL_VALUE\n1\nraw\n140\n0.5\n302\n0.50\n304\nACVALUE_END\n171\n1\n2\nlong \n1\n"
                            "text\n69\n1\n289\n0\n171\n1\n");
    ASSERT_EQ(table.cells.size(), 2U);
    EXPECT_EQ(table.cells[0].text, "0.50");
    EXPECT_EQ(table.cells[0].textHeight, 2);
    EXPECT_EQ(table.cells[1].text, "long text");
    EXPECT_EQ(table.cells[1].borders[TableData::Top].color, 1);
    EXPECT_TRUE(table.cells[1].borders[TableData::Top].hidden);
    EXPECT_FALSE(table.cells[1].borders[TableData::Left].Own());
}

TEST(Notes, MLineLengthsBelongToTheirVertexAndElement)
{
    const auto mline =
        ReadOnly<MLineData>("0\nMLINE\n40\n2\n71\n3\n41\n9\n11\n1\n21\n2\n12\n1\n13\n0\n23\n1\n74\n99\n41\n0.5\n"
                            "41\n0\n75\n1\n42\n4\n74\n1\n41\n-0.5\n11\n8\n21\n2\n42\n7\n");
    EXPECT_TRUE(mline.closed);
    ASSERT_EQ(mline.vertices.size(), 2U);
    EXPECT_EQ(mline.vertices[0].count, 2U);
    EXPECT_EQ(mline.vertices[1].count, 0U);
    ASSERT_EQ(mline.pieces.size(), 2U);
    EXPECT_EQ(mline.pieces[0].count, 2U);
    EXPECT_EQ(mline.pieces[0].fillCount, 1U);
    EXPECT_EQ(mline.lengths, (std::vector<double>{0.5, 0, 4, -0.5}));
}

} // namespace
} // namespace sm::drawing::testing
