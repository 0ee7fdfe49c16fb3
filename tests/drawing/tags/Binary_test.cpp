// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/BinaryDxf.h"
#include "drawing/DxfText.h"
#include "drawing/Finding.h"
#include "drawing/entities/Curves.h"
#include "drawing/entities/Hyperlinks.h"
#include "drawing/entities/Inserts.h"

#include <gmock/gmock.h>

namespace sm::drawing::testing {
namespace {

std::string SampleText()
{
    return DxfText()
        .Header("AC1015")
        .Section("TABLES")
        .Raw("0\nLAYER\n2\nWalls\n70\n0\n62\n-3\n")
        .EndSection()
        .Section("ENTITIES")
        .Raw("0\nLINE\n5\n2A\n8\nwalls\n62\n5\n10\n1.5\n20\n2\n30\n0\n11\n3\n21\n4\n31\n0\n1001\nPE_URL\n1000\nhttp://"
             "a.example\n1071\n70000\n"
             "0\nINSERT\n66\n1\n2\nX\n10\n7\n20\n8\n30\n0\n0\nATTRIB\n1\ntext\n2\nTAG\n0\nSEQEND\n0\nOLE2FRAME\n310\n00"
             "010203\n310\nFF\n")
        .EndSection()
        .End()
        .Text();
}

class BinaryForms : public ::testing::TestWithParam<bool> {};

TEST_P(BinaryForms, ReadLikeText)
{
    const auto drawing = Drawing::FromBytes(ToBinary(SampleText(), GetParam()), "binary.dxf");
    EXPECT_TRUE(drawing->IsBinary());
    EXPECT_EQ(drawing->FileVersion(), Version::R2000);
    ASSERT_EQ(ModelEntities(*drawing).size(), 3U);
    LineData line;
    Read(*drawing, ModelEntities(*drawing)[0], line);
    EXPECT_EQ(line.start, (Vec3{1.5, 2, 0}));
    EXPECT_EQ(line.end, (Vec3{3, 4, 0}));
    EXPECT_EQ(line.layer, 1U);
    EXPECT_EQ(line.color, 5);
    EXPECT_TRUE(drawing->Layers()[1].off);
    std::vector<Hyperlink> links;
    ReadHyperlinks(*drawing, ModelEntities(*drawing)[0], links);
    ASSERT_EQ(links.size(), 1U);
    EXPECT_EQ(links[0].url, "http://a.example");
    InsertData insert;
    Read(*drawing, ModelEntities(*drawing)[1], insert);
    EXPECT_EQ(insert.attributes.size(), 1U);
    EXPECT_NE(drawing->FindEntity(0x2A), nullptr);
}

TEST_P(BinaryForms, AreUsedAsFarAsTheyGo)
{
    const std::string whole = ToBinary(SampleText(), GetParam());
    const auto drawing = Drawing::FromBytes(whole.substr(0, whole.find("INSERT") + 12), "binary.dxf");
    EXPECT_EQ(ModelEntities(*drawing).size(), 2U);
    ASSERT_GE(drawing->Findings().size(), 2U);
    EXPECT_EQ(drawing->Findings()[0].code, 103);
    EXPECT_EQ(drawing->Findings()[1].code, 102);
}

INSTANTIATE_TEST_SUITE_P(Codes, BinaryForms, ::testing::Values(false, true),
                         [](const auto& row) { return std::string(row.param ? "TwoBytes" : "OneByte"); });

} // namespace
} // namespace sm::drawing::testing
