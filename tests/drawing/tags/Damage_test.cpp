// SPDX-License-Identifier: GPL-3.0-or-later
#include "OwnPath.h"
#include "drawing/DxfText.h"
#include "drawing/Finding.h"
#include "drawing/entities/Curves.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace sm::drawing::testing {
namespace {

/// "code xcount @line", one a finding.
std::vector<std::string> FindingsOf(const Drawing& drawing)
{
    std::vector<std::string> lines;
    for (const Finding& finding : drawing.Findings())
        lines.push_back(std::to_string(finding.code) + " x" + std::to_string(finding.count) + " @" +
                        std::to_string(finding.line) + (finding.contentLost ? " lost" : ""));
    return lines;
}

using Lines = std::vector<std::string>;

struct DamageRow {
    const char* name;
    const char* text;
    std::size_t entities; ///< of the model
    Lines findings;
};

class Damaged : public ::testing::TestWithParam<DamageRow> {};

TEST_P(Damaged, FilesAreUsedAsFarAsTheyGo)
{
    const auto drawing = Drawing::FromBytes(GetParam().text, "damaged.dxf");
    EXPECT_EQ(ModelEntities(*drawing).size(), GetParam().entities);
    EXPECT_EQ(FindingsOf(*drawing), GetParam().findings);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, Damaged,
    ::testing::Values(
        DamageRow{"NoEndOfFile", "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n0\nENDSEC\n", 1, {"102 x1 @10 lost"}},
        DamageRow{"EndsInsideAnEntity",
                  "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n0\nCIRCLE\n40\n",
                  2,
                  {"103 x1 @11 lost", "102 x1 @10 lost"}},
        DamageRow{
            "TextAfterTheEnd", "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n0\nENDSEC\n0\nEOF\ntrash\n", 1, {"105 x1 @13"}},
        DamageRow{"SectionWithoutEnd",
                  "0\nSECTION\n2\nTABLES\n0\nLAYER\n2\nA\n0\nSECTION\n2\nENTITIES\n0\nLINE\n8\nA\n0\nENDSEC\n0\nEOF\n",
                  1,
                  {"106 x1 @10"}},
        DamageRow{"EntitiesWithoutSection", "0\nLINE\n8\n0\n0\nCIRCLE\n40\n1\n0\nEOF\n", 2, {"104 x2 @2"}},
        DamageRow{"LineThatIsNoGroupCode",
                  "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\nwhat is this\n10\n1\n0\nCIRCLE\n40\n1\nthat "
                  "again\n0\nARC\n40\n1\n0\nENDSEC\n0\nEOF\n",
                  3,
                  {"101 x2 @9 lost"}},
        DamageRow{"BlankLineBetweenEntities",
                  "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n\n0\nCIRCLE\n40\n1\n0\nENDSEC\n0\nEOF\n",
                  2,
                  {"101 x1 @9 lost"}},
        DamageRow{"VertexAndSequenceEndAlone",
                  "0\nSECTION\n2\nENTITIES\n0\nVERTEX\n10\n1\n0\nSEQEND\n0\nLINE\n8\n0\n0\nENDSEC\n0\nEOF\n",
                  1,
                  {"501 x1 @6 lost", "503 x1 @10"}},
        DamageRow{"BlockWithoutEnd",
                  "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\nA\n0\nLINE\n8\n0\n0\nBLOCK\n2\nB\n0\nENDSEC\n0\nSECTION\n2\nENTI"
                  "TIES\n0\nLINE\n8\n0\n0\nENDSEC\n0\nEOF\n",
                  1,
                  {"402 x2 @14"}},
        DamageRow{"DoubleAndNamelessBlocks",
                  "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\nA\n0\nENDBLK\n0\nBLOCK\n2\na\n0\nENDBLK\n0\nBLOCK\n70\n0\n0\nEND"
                  "BLK\n0\nENDSEC\n0\nEOF\n",
                  0,
                  {"403 x1 @12 lost", "401 x1 @18 lost"}}),
    [](const auto& row) { return std::string(row.param.name); });

struct RefusalRow {
    const char* name;
    std::string bytes;
    const char* message;
};

class Refused : public ::testing::TestWithParam<RefusalRow> {};

TEST_P(Refused, WithOneLineThatNamesFilePlaceAndRemedy)
{
    try {
        Drawing::FromBytes(GetParam().bytes, "plan.dxf");
        ADD_FAILURE() << "opened";
    } catch (const DrawingError& error) {
        EXPECT_STREQ(error.what(), GetParam().message);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, Refused,
    ::testing::Values(
        RefusalRow{"Empty", "", "plan.dxf: the file is empty; save the drawing again"},
        RefusalRow{"Blanks", " \n\n \n", "plan.dxf: the file holds blanks only; save the drawing again"},
        RefusalRow{
            "Page", "\n <!DOCTYPE html><html></html>",
            "plan.dxf: the first bytes are those of an HTML or XML page, not of a drawing; name a DXF or DWG file"},
        RefusalRow{"Pdf", "%PDF-1.7\n",
                   "plan.dxf: the first bytes are those of a PDF, not of a drawing; name a DXF or DWG file"},
        RefusalRow{"Picture", std::string("\x89PNG\r\n\x1a\n\0\0", 10),
                   "plan.dxf: the first bytes are those of a picture (PNG), not of a drawing; name a DXF or DWG file"},
        RefusalRow{
            "Letter", "Dear Sir,\nplease find\n",
            "plan.dxf: line 1 is no DXF group code: this is some other text, not a drawing; name a DXF or DWG file"},
        RefusalRow{
            "Bytes", std::string("\x01zz\0\x02", 5),
            "plan.dxf: line 1 is no DXF group code: this is some other file, not a drawing; name a DXF or DWG file"},
        RefusalRow{"Dwg2018", std::string("AC1032\0\0\0", 9),
                   "plan.dxf: this is a DWG of release 2018, not a DXF; save it as DXF"},
        RefusalRow{"DwgR14", "AC1014", "plan.dxf: this is a DWG of release R14, not a DXF; save it as DXF"},
        RefusalRow{"DwgOfTomorrow", "AC1099",
                   "plan.dxf: this is a DWG of an unknown release (AC1099), not a DXF; save it as DXF"},
        RefusalRow{"CutOffAtOnce", "  0\nSECTION\n  2\nHEA",
                   "plan.dxf: the DXF ends or is damaged before anything usable, at group 2; save the drawing again"},
        RefusalRow{"CutOffInTables", "  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nLAYER\n  0\nLAYER\n  2\nWALL\n",
                   "plan.dxf: the DXF ends or is damaged before anything usable, at group 6; save the drawing again"},
        RefusalRow{"BinaryCutOff", std::string("AutoCAD Binary DXF\r\n\x1a\0", 22),
                   "plan.dxf: the binary DXF is cut off behind its first bytes; save the drawing again"}),
    [](const auto& row) { return std::string(row.param.name); });

std::string OpenError(const std::string& path)
{
    try {
        Drawing::Open(path);
    } catch (const DrawingError& error) {
        return error.what();
    }
    return "opened";
}

TEST(Damaged, NumbersThatAreNoneCountOnceALine)
{
    const auto drawing = DxfText()
                             .Section("TABLES")
                             .Raw("0\nTABLE\n2\nLAYER\n0\nLAYER\n2\nWalls\n62\nred\n0\nENDTAB\n")
                             .EndSection()
                             .Section("ENTITIES")
                             .Raw("0\nCIRCLE\n8\nWalls\n10\n1,5\n20\n \n40\n2.0\n62\n3.0\n0\nCIRCLE\n40\nnan\n")
                             .EndSection()
                             .End()
                             .Open();
    EXPECT_EQ(FindingsOf(*drawing), Lines{"107 x1 @14 lost"});
    for (int time = 0; time < 2; ++time) {
        CircleData circle;
        for (const EntityRecord& record : ModelEntities(*drawing))
            Read(*drawing, record, circle);
        EXPECT_EQ(FindingsOf(*drawing), Lines{"107 x4 @14 lost"});
    }
}

TEST(Damaged, NumbersOfTheHeaderCountWhenTheyAreAskedFor)
{
    const auto drawing = DxfText()
                             .Section("HEADER")
                             .Variable("$LTSCALE", 40, "1,5")
                             .Variable("$LUNITS", 70, "two")
                             .EndSection()
                             .Section("ENTITIES")
                             .EndSection()
                             .End()
                             .Open();
    EXPECT_EQ(drawing->HeaderReal("$LTSCALE", 1), 1);
    EXPECT_EQ(FindingsOf(*drawing), Lines{"107 x1 @8 lost"});
    EXPECT_EQ(drawing->HeaderInteger("$LUNITS", 2), 0);
    EXPECT_EQ(FindingsOf(*drawing), Lines{"107 x2 @8 lost"});
}

TEST(Refused, WhatIsNoFile)
{
    const std::string folder = ::testing::TempDir();
    EXPECT_EQ(OpenError(folder + "missing.dxf"), folder + "missing.dxf: there is no such file; check the name");
    EXPECT_EQ(OpenError(folder), folder + ": this is a folder; name a drawing in it");
    EXPECT_EQ(OpenError("/dev/null"), "/dev/null: this is no ordinary file; name a drawing");
    const std::string empty = OwnPath("empty.dxf");
    std::ofstream(empty).close();
    EXPECT_EQ(OpenError(empty), empty + ": the file is empty; save the drawing again");
    std::filesystem::remove(empty);
}

TEST(Damaged, BlocksThatInsertEachOtherAreReadOnceEach)
{
    const auto drawing =
        DxfText()
            .Section("BLOCKS")
            .Raw("0\nBLOCK\n2\nA\n0\nINSERT\n2\nB\n0\nENDBLK\n0\nBLOCK\n2\nB\n0\nINSERT\n2\nA\n0\nENDBLK\n")
            .EndSection()
            .End()
            .Open();
    EXPECT_EQ(drawing->EntityCount(), 2U);
    EXPECT_TRUE(drawing->Findings().empty());
}

} // namespace
} // namespace sm::drawing::testing
