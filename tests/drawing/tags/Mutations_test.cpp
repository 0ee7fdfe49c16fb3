// SPDX-License-Identifier: GPL-3.0-or-later
// Small drawings damaged in thousands of ways: nothing may crash, hang or grow without bounds.
#include "drawing/BinaryDxf.h"
#include "drawing/DxfText.h"
#include "drawing/entities/Curves.h"
#include "drawing/entities/DimStyles.h"
#include "drawing/entities/Dimensions.h"
#include "drawing/entities/Hatches.h"
#include "drawing/entities/Hyperlinks.h"
#include "drawing/entities/Images.h"
#include "drawing/entities/Inserts.h"
#include "drawing/entities/MLines.h"
#include "drawing/entities/MultiLeaders.h"
#include "drawing/entities/Points.h"
#include "drawing/entities/Polylines.h"
#include "drawing/entities/Solids.h"
#include "drawing/entities/TableEntities.h"
#include "drawing/entities/Texts.h"
#include "drawing/entities/Viewports.h"

#include <gmock/gmock.h>

#include <random>
#include <sstream>

namespace sm::drawing::testing {
namespace {

std::string Sample()
{
    return DxfText()
        .Header("AC1021")
        .Section("TABLES")
        .Raw("0\nTABLE\n2\nLAYER\n5\n2\n70\n2\n0\nLAYER\n5\n10\n2\n0\n62\n7\n0\nLAYER\n5\n11\n2\nA\n62\n-"
             "1\n6\nGAS\n0\nENDTAB\n"
             "0\nSTYLE\n5\n40\n2\nStandard\n3\ntxt\n1001\nACAD\n1000\nArial\n1071\n50331682\n"
             "0\nLTYPE\n2\nGAS\n40\n1\n73\n2\n49\n0.5\n74\n0\n49\n-0.2\n74\n2\n75\n0\n340\n40\n46\n0.1\n9\nGAS\n"
             "0\nTABLE\n2\nAPPID\n5\n9\n70\n1\n0\nAPPID\n5\n12\n330\n9\n2\nACAD\n70\n0\n0\nENDTAB\n"
             "0\nBLOCK_RECORD\n5\n1F\n2\n*Model_Space\n0\nBLOCK_RECORD\n5\n1B\n2\n*Paper_Space\n340\n31\n0\nVPORT\n2\n*"
             "Active\n40\n5\n")
        .EndSection()
        .Section("BLOCKS")
        .Raw("0\nBLOCK\n2\nDoor\n10\n1\n20\n2\n0\nINSERT\n2\nDoor\n0\nATTDEF\n1\nx\n2\nNO\n0\nENDBLK\n")
        .EndSection()
        .Section("ENTITIES")
        .Raw("0\nLINE\n5\n50\n8\nA\n10\n1\n20\n2\n11\n3\n21\n4\n1001\nPE_URL\n1000\nu\n1002\n{\n1000\nd\n1002\n}\n"
             "0\nPOLYLINE\n5\n51\n66\n1\n70\n17\n71\n2\n72\n2\n0\nVERTEX\n10\n1\n0\nVERTEX\n10\n2\n0\nSEQEND\n"
             "0\nLWPOLYLINE\n90\n2\n70\n1\n10\n1\n20\n2\n42\n1\n10\n3\n20\n4\n0\nINSERT\n66\n1\n2\nDoor\n70\n3\n71\n2\n"
             "0\nATTRIB\n1\nt\n2\nNO\n101\nEmbedded Object\n1\nm\n0\nSEQEND\n"
             "0\nHATCH\n2\nX\n70\n0\n91\n2\n92\n1\n93\n2\n72\n1\n10\n0\n20\n0\n11\n1\n21\n1\n72\n4\n94\n3\n95\n1\n96\n1"
             "\n40\n1\n10\n1\n20\n1\n97\n0\n92\n2\n72\n0\n73\n1\n93\n1\n10\n1\n20\n1\n75\n0\n76\n1\n78\n1\n53\n1\n43\n0"
             "\n49\n1\n98\n0\n"
             "0\nSPLINE\n70\n8\n71\n3\n72\n8\n73\n1\n40\n0\n10\n1\n20\n2\n11\n1\n21\n2\n0\nMTEXT\n3\n\\U+"
             "56F3\n1\n\xE5\x9B\xB3 \\M+1907D ^J\n"
             "0\nVIEWPORT\n67\n1\n68\n1\n69\n1\n331\n11\n1001\nACAD\n1000\nMVIEW\n1010\n1\n0\nIMAGE\n13\n1\n23\n1\n14\n"
             "0\n24\n0\n340\n60\n")
        .EndSection()
        .Section("OBJECTS")
        .Raw("0\nDICTIONARY\n5\nC\n330\n0\n3\nACAD_"
             "LAYOUT\n350\nD\n3\nAcDbVariableDictionary\n350\n41\n1001\nACAD\n1000\nr\n0\nDICTIONARY\n5\n41\n330\nC\n3"
             "\nCTAB\n350\n42\n"
             "0\nDICTIONARYVAR\n5\n42\n1\nPlan\n0\nLAYOUT\n5\n30\n100\nAcDbPlotSettings\n44\n210\n100\nAcDbLayout\n1\nM"
             "odel\n71\n0\n330\n1F\n"
             "0\nLAYOUT\n5\n31\n100\nAcDbPlotSettings\n44\n210\n100\nAcDbLayout\n1\nPlan\n71\n1\n14\n1E+"
             "20\n330\n1B\n0\nSORTENTSTABLE\n5\n70\n100\nAcDbSortentsTable\n330\n1F\n331\n50\n5\n51\n0\nIMAGEDEF\n5\n60"
             "\n1\na.png\n")
        .EndSection()
        .End()
        .Text();
}

class Mutator {
public:
    explicit Mutator(std::uint32_t seed) : m_random(seed) {}

    std::string Mutate(std::string bytes)
    {
        const std::size_t changes = 1 + Below(4);
        for (std::size_t i = 0; i < changes && !bytes.empty(); ++i)
            Change(bytes);
        return bytes;
    }

private:
    std::size_t Below(std::size_t limit) { return m_random() % limit; }

    void Change(std::string& bytes)
    {
        const std::size_t at = Below(bytes.size());
        switch (Below(6)) {
        case 0:
            bytes[at] = static_cast<char>(Below(256));
            break;
        case 1:
            bytes[at] = static_cast<char>(bytes[at] ^ (1 << Below(8)));
            break;
        case 2:
            bytes.resize(at);
            break;
        case 3:
            bytes.erase(at, 1 + Below(40));
            break;
        case 4:
            bytes.insert(at, bytes.substr(Below(bytes.size()), Below(60)));
            break;
        default:
            DeleteLines(bytes, at);
        }
    }

    /// Whole lines, so that groups vanish and the rest stays in step.
    void DeleteLines(std::string& bytes, std::size_t at)
    {
        const std::size_t begin = bytes.find('\n', at);
        const std::size_t middle = begin == std::string::npos ? begin : bytes.find('\n', begin + 1);
        const std::size_t end = middle == std::string::npos ? middle : bytes.find('\n', middle + 1);
        if (end != std::string::npos)
            bytes.erase(begin, end - begin);
    }

    std::mt19937 m_random;
};

template <class Data> std::size_t Touch(const Drawing& drawing, const EntityRecord& record)
{
    static Data data;
    Read(drawing, record, data);
    return static_cast<std::size_t>(data.layer);
}

std::size_t TouchDimensionStyle(const Drawing& drawing, const EntityRecord& record)
{
    DimStyle style;
    Read(drawing, record, style);
    EXPECT_GT(style.scale, 0);
    return 0;
}

/// Reads an entity as every kind there is: a mutated file may call anything anything.
std::size_t TouchAll(const Drawing& drawing, const EntityRecord& record)
{
    std::vector<Hyperlink> links;
    ReadHyperlinks(drawing, record, links);
    return Touch<Entity>(drawing, record) | Touch<LineData>(drawing, record) | Touch<CircleData>(drawing, record) |
           Touch<ArcData>(drawing, record) | Touch<EllipseData>(drawing, record) |
           Touch<PolylineData>(drawing, record) | Touch<SplineData>(drawing, record) |
           Touch<PointData>(drawing, record) | Touch<QuadData>(drawing, record) | Touch<TextData>(drawing, record) |
           Touch<MTextData>(drawing, record) | Touch<InsertData>(drawing, record) |
           Touch<DimensionData>(drawing, record) | Touch<HatchData>(drawing, record) |
           Touch<ViewportData>(drawing, record) | Touch<LeaderData>(drawing, record) |
           Touch<ImageData>(drawing, record) | Touch<MultiLeaderData>(drawing, record) |
           Touch<MLineData>(drawing, record) | Touch<ToleranceData>(drawing, record) |
           Touch<TableData>(drawing, record) | TouchDimensionStyle(drawing, record);
}

/// The number of entities, or nothing when the file is refused; checks what must hold for any file.
std::optional<std::uint64_t> Exercise(const std::string& bytes)
{
    try {
        const auto drawing = Drawing::FromBytes(bytes, "mutated.dxf");
        std::uint64_t found = 0;
        for (std::uint32_t block = 0; block < drawing->Blocks().size(); ++block) {
            for (const EntityRecord& record : drawing->EntitiesOf(block)) {
                EXPECT_LT(TouchAll(*drawing, record), drawing->Layers().size() * 4);
                EXPECT_LE(record.begin + record.length, bytes.size());
                ++found;
            }
        }
        EXPECT_EQ(found, drawing->EntityCount());
        EXPECT_GE(drawing->Layouts().size(), 2U);
        EXPECT_TRUE(drawing->Layouts()[0].isModel);
        EXPECT_LT(drawing->ActiveLayout(), drawing->Layouts().size());
        drawing->FindEntity(0x50);
        drawing->RecordOf("ACAD");
        return found;
    } catch (const DrawingError& error) {
        EXPECT_EQ(std::string(error.what()).find('\n'), std::string::npos);
        return std::nullopt;
    }
}

struct SampleRow {
    const char* name;
    std::string bytes;
};

class Mutations : public ::testing::TestWithParam<SampleRow> {};

TEST_P(Mutations, AreSurvived)
{
    ASSERT_EQ(Exercise(GetParam().bytes), 11U);
    Mutator mutator(20240501);
    std::size_t opened = 0;
    constexpr std::size_t kRounds = 2000;
    for (std::size_t round = 0; round < kRounds; ++round)
        opened += Exercise(mutator.Mutate(GetParam().bytes)).has_value();
    // Most mutations leave a drawing behind; a reader that gave up early would show here.
    EXPECT_GT(opened, kRounds * 3 / 4);
}

INSTANTIATE_TEST_SUITE_P(Samples, Mutations,
                         ::testing::Values(SampleRow{"Text", Sample()},
                                           SampleRow{"BinaryOneByte", ToBinary(Sample(), false)},
                                           SampleRow{"BinaryTwoBytes", ToBinary(Sample(), true)}),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace sm::drawing::testing
