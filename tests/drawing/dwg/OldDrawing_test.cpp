// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/old/OldDrawing.h"

#include "drawing/Drawing.h"
#include "drawing/dwg/DwgFiles.h"
#include "drawing/dwg/OldFiles.h"

#include <gmock/gmock.h>

namespace sm::drawing::dwg::testing {
namespace {

using ::testing::ElementsAre;
using namespace std::string_literals;

/// The tags of an entry, "code=value" with blanks between; reals in six digits.
std::string TagsOf(const DecodedTags& tags, std::uint64_t begin, std::uint64_t length)
{
    std::string text;
    TagCursor cursor(tags.bytes, TagFormat::BinaryLong, begin, length, 0);
    while (cursor.Next()) {
        char real[32];
        std::snprintf(real, sizeof real, "%g", cursor.Type() == ValueType::Real ? cursor.Real() : 0.0);
        text += (text.empty() ? "" : " ") + std::to_string(cursor.Code()) + "=" +
                (cursor.Type() == ValueType::Text   ? std::string(cursor.Text())
                 : cursor.Type() == ValueType::Real ? std::string(real)
                                                    : std::to_string(cursor.Long()));
    }
    return text;
}

std::string Points(std::initializer_list<double> values)
{
    std::string bytes;
    for (const double value : values)
        bytes += Number(value);
    return bytes;
}

std::string Counted(const std::string& text)
{
    return Le16(static_cast<unsigned>(text.size())) + text;
}

struct OldReading {
    DecodedTags tags;
    FindingList findings;
    [[nodiscard]] std::string Entity(std::size_t index) const
    {
        const EntityRecord& record = tags.structure.modelEntities.at(index);
        return TagsOf(tags, record.begin, record.length);
    }
    [[nodiscard]] std::string Variable(std::string_view name) const
    {
        for (const NamedSlice& variable : tags.structure.variables)
            if (variable.name == name)
                return TagsOf(tags, variable.slice.begin, variable.slice.length);
        return "none";
    }
    [[nodiscard]] std::vector<std::string> Told() const
    {
        std::vector<std::string> told;
        for (const Finding& finding : findings.All())
            told.push_back(std::to_string(finding.code) + " x " + std::to_string(finding.count));
        return told;
    }
};

OldReading ReadFile(const std::string& file)
{
    OldReading read;
    read.tags = ReadOldDrawing(file, "old.dwg", read.findings);
    return read;
}

OldFileWriter Prepared(OldKind kind)
{
    OldFileWriter file(kind);
    file.Record(1, 0, "0", Le16(7) + Le16(0)).Record(1, 64, "WALLS", Le16(0xFFFD) + Le16(1));
    file.Record(2, 64, "STANDARD", Points({0, 1, 0}) + "\0"s + Number(0.2) + "txt");
    file.Record(3, 64, "CONTINUOUS", "Solid line");
    std::string dashes = "Dashes";
    dashes.resize(48);
    file.Record(3, 64, "DASHED", dashes + "A\x02" + Points({0.75, 0.5, -0.25}));
    return file;
}

struct EntityRow {
    const char* name;
    OldKind kind;
    unsigned type, flags, options;
    std::string front, fields, expected;
};

void PrintTo(const EntityRow& row, std::ostream* out)
{
    *out << row.name;
}

class OldEntities : public ::testing::TestWithParam<EntityRow> {};

TEST_P(OldEntities, BecomeTags)
{
    const EntityRow& row = GetParam();
    const OldReading read =
        ReadFile(Prepared(row.kind).Entity(row.type, row.flags, 1, row.options, row.front, row.fields).File());
    ASSERT_EQ(read.tags.structure.modelEntities.size(), 1U);
    EXPECT_EQ(read.Entity(0), row.expected);
    EXPECT_THAT(read.Told(), ElementsAre());
}

const double kQuarter = 1.5707963267948966;

INSTANTIATE_TEST_SUITE_P(
    Rows, OldEntities,
    ::testing::Values(
        EntityRow{"LineOfR9", OldKind::R9, 1, 4, 0, Number(5), Points({1, 2, 3, 4}),
                  "8=WALLS 10=1 20=2 30=5 11=3 21=4 31=5"},
        EntityRow{"LineOfR10", OldKind::R10, 1, 0, 0, "", Points({1, 2, 3, 4, 5, 6}),
                  "8=WALLS 10=1 20=2 30=3 11=4 21=5 31=6"},
        EntityRow{"FlatLineOfR11", OldKind::R11, 1, 4, 1, "", Points({1, 2, 3, 4, 0, 0, -1}),
                  "8=WALLS 10=1 20=2 30=0 11=3 21=4 31=0 210=0 220=0 230=-1"},
        EntityRow{"ColoursOfR9", OldKind::R9, 3, 0x2B, 0, "\x05\x01"s + Number(2.5) + "\x02\x01\x2A", Points({1, 2, 3}),
                  "5=12A 8=WALLS 6=DASHED 62=5 39=2.5 40=3 10=1 20=2 30=0"},
        EntityRow{"LinetypesOfR11", OldKind::R11, 3, 2, 0, Le16(0x7FFE), Points({1, 2, 3}),
                  "8=WALLS 6=BYBLOCK 40=3 10=1 20=2 30=0"},
        EntityRow{"LinetypesOfR10", OldKind::R10, 3, 2, 0, "\xFF", Points({1, 2, 3}),
                  "8=WALLS 6=BYLAYER 40=3 10=1 20=2 30=0"},
        EntityRow{"Arc", OldKind::R11, 8, 0, 2, "", Points({1, 2, 3, 0, kQuarter, 9}),
                  "8=WALLS 40=3 50=0 51=90 10=1 20=2 30=9"},
        EntityRow{"PointOfR11", OldKind::R11, 2, 0, 2, "", Points({1, 2, 3, kQuarter}), "8=WALLS 10=1 20=2 30=3 50=90"},
        EntityRow{"Text", OldKind::R11, 7, 0, 0x169, "",
                  Points({1, 2, 3}) + Counted("Hi") + Number(kQuarter) + "\0\x01"s + Points({4, 5}) + "\x02",
                  "8=WALLS 10=1 20=2 30=0 40=3 1=Hi 50=90 7=STANDARD 72=1 11=4 21=5 "
                  "31=0 73=2"},
        EntityRow{"Solid", OldKind::R11, 11, 4, 0, Number(7), Points({1, 2, 3, 4, 5, 6, 7, 8}),
                  "8=WALLS 10=1 20=2 30=7 11=3 21=4 31=7 12=5 22=6 32=7 13=7 23=8 33=7"},
        EntityRow{"FaceOfR9", OldKind::R9, 22, 0, 1, "", Points({1, 2, 3, 4, 5, 6, 7, 8, 9}),
                  "8=WALLS 10=1 20=2 30=3 11=4 21=5 31=0 12=6 22=7 32=0 13=8 23=9 33=0"},
        EntityRow{"FaceOfR11", OldKind::R11, 22, 4, 1, "", Points({1, 2, 3, 4, 5, 6, 7, 8}) + Le16(3),
                  "8=WALLS 10=1 20=2 30=0 11=3 21=4 31=0 12=5 22=6 32=0 13=7 23=8 33=0 70=3"},
        EntityRow{"ExtendedData", OldKind::R11, 3, 0x40, 0,
                  "\x02"s + Le16(4 + 5) +
                      "\0\x02"
                      "ab"s +
                      "\x46" + Le16(9) + "\x02\0"s,
                  Points({1, 2, 3}), "8=WALLS 40=3 10=1 20=2 30=0 1000=ab 1070=9 1002={"}),
    [](const auto& row) { return row.param.name; });

TEST(OldDrawings, HaveHeaderVariables)
{
    const OldReading r9 =
        ReadFile(OldFileWriter(OldKind::R9).At(0x5E, Points({1, 2, 3})).At(0x78, Points({4, 5, 6})).File());
    EXPECT_EQ(r9.Variable("$ACADVER"), "1=AC1004");
    EXPECT_EQ(r9.Variable("$INSBASE"), "10=1 20=2 30=3");
    EXPECT_EQ(r9.Variable("$EXTMIN"), "10=4 20=5 30=6");
    EXPECT_EQ(r9.Variable("$PLINEGEN"), "none");
    EXPECT_EQ(r9.Variable("$MIRRTEXT"), "70=0");
    EXPECT_EQ(r9.Variable("$TILEMODE"), "none");
    const OldReading r10 =
        ReadFile(OldFileWriter(OldKind::R10).At(0x3F9, Le16(12)).At(0x3FB, Points({7, 8, 9})).File());
    EXPECT_EQ(r10.Variable("$DWGCODEPAGE"), "3=DOS850");
    EXPECT_EQ(r10.Variable("$UCSORG"), "10=7 20=8 30=9");
    EXPECT_EQ(r10.Variable("$TILEMODE"), "none");
    const OldReading r11 = ReadFile(
        OldFileWriter(OldKind::R11).At(0x631, Le16(1)).At(0x637, Points({1, 2, 3})).At(0x1A3, Number(2.5)).File());
    EXPECT_EQ(r11.Variable("$TILEMODE"), "70=1");
    EXPECT_EQ(r11.Variable("$PEXTMIN"), "10=1 20=2 30=3");
    EXPECT_EQ(r11.Variable("$DIMSCALE"), "40=2.5");
}

TEST(OldDrawings, HaveTables)
{
    for (const OldKind kind : {OldKind::R9, OldKind::R10, OldKind::R11}) {
        const OldReading read = ReadFile(Prepared(kind).File());
        std::vector<std::string> entries;
        for (const NamedSlice& entry : read.tags.structure.tableEntries)
            entries.push_back(std::string(entry.name) + ": " +
                              TagsOf(read.tags, entry.slice.begin, entry.slice.length));
        EXPECT_THAT(entries, ElementsAre("LAYER: 2=0 70=0 62=7 6=CONTINUOUS", "LAYER: 2=WALLS 70=64 62=-3 6=DASHED",
                                         "STYLE: 2=STANDARD 70=64 40=0 41=1 50=0 71=0 42=0.2 3=txt 4=",
                                         "LTYPE: 2=CONTINUOUS 70=64 3=Solid line 72=0 73=0 40=0",
                                         "LTYPE: 2=DASHED 70=64 3=Dashes 72=65 73=2 40=0.75 49=0.5 49=-0.25"));
        EXPECT_THAT(read.Told(), ElementsAre());
    }
}

TEST(OldDrawings, HaveBlocksThatAreNamedByTheirTable)
{
    OldFileWriter file = Prepared(OldKind::R11);
    const std::uint32_t door = file.BlockEntity(12, 0, 0, 4, "", Points({1, 2}) + Counted("DOOR"));
    file.BlockEntity(3, 0, 1, 0, "", Points({0, 0, 4}));
    file.BlockEntity(13, 0, 0, 0, "", "");
    const std::uint32_t arrow = file.BlockEntity(12, 0, 0, 0, "", Points({0, 0}));
    file.BlockEntity(13, 0, 0, 0, "", "");
    file.Record(0, 64, "DOOR", Le32(0x40000000U | door)).Record(0, 65, "*D", Le32(0x40000000U | arrow));
    file.Entity(14, 0, 0, 5, "", Le16(0) + Points({5, 6, 2, kQuarter}))
        .Entity(14, 0, 0, 0, "", Le16(1) + Points({0, 0}));
    const OldReading read = ReadFile(file.File());
    ASSERT_EQ(read.tags.structure.blocks.size(), 2U);
    const ScannedBlock& block = read.tags.structure.blocks[0];
    EXPECT_EQ(TagsOf(read.tags, block.header.begin, block.header.length), "8=0 2=DOOR 70=64 10=1 20=2 30=0");
    EXPECT_EQ(block.count, 1U);
    EXPECT_EQ(read.Entity(0), "8=0 2=DOOR 10=5 20=6 30=0 41=2 50=90");
    EXPECT_EQ(read.Entity(1), "8=0 2=*D1 10=0 20=0 30=0");
}

TEST(OldDrawings, KeepVerticesWithTheirPolyline)
{
    OldFileWriter file = Prepared(OldKind::R10);
    file.Entity(19, 0x84, 1, 1, Number(3), "\x01");
    file.Entity(20, 4, 1, 4, Number(3), Points({1, 2, 0.5})).Entity(20, 4, 1, 0, Number(3), Points({3, 4}));
    file.Entity(17, 0, 1, 0, "", Le32(0)).Entity(3, 0, 1, 0, "", Points({0, 0, 4}));
    const OldReading read = ReadFile(file.File());
    ASSERT_EQ(read.tags.structure.modelEntities.size(), 2U);
    EXPECT_EQ(read.Entity(0), "8=WALLS 66=1 10=0 20=0 30=3 70=1 0=VERTEX 8=WALLS 10=1 20=2 30=3 42=0.5 "
                              "0=VERTEX 8=WALLS 10=3 20=4 30=3 0=SEQEND 8=WALLS");
    EXPECT_THAT(read.Told(), ElementsAre());
}

TEST(OldDrawings, JumpIntoTheExtraSectionAndBack)
{
    OldFileWriter file = Prepared(OldKind::R11);
    file.Entity(3, 0, 0, 0, "", Points({0, 0, 1}));
    const std::string jump = "\x12\0"s + Le16(10);
    file.Raw(jump + Le32(0x80000000U));
    const std::uint32_t back = 0x6CF + 34 + 10;
    file.Entity(3, 0, 0, 0, "", Points({0, 0, 3}));
    file.ExtraEntity(3, 0, 0, 0, "", Points({0, 0, 2}));
    // A jump has neither layer nor options: these four bytes are its place.
    file.ExtraEntity(18, 0, back & 0xFFFFU, back >> 16U, "", "");
    const OldReading read = ReadFile(file.File());
    ASSERT_EQ(read.tags.structure.modelEntities.size(), 3U);
    EXPECT_EQ(read.Entity(0), "8=0 40=1 10=0 20=0 30=0");
    EXPECT_EQ(read.Entity(1), "8=0 40=2 10=0 20=0 30=0");
    EXPECT_EQ(read.Entity(2), "8=0 40=3 10=0 20=0 30=0");
}

TEST(OldDrawings, PutOnTheSheetWhatBelongsToAViewport)
{
    const OldReading read = ReadFile(Prepared(OldKind::R11)
                                         .Entity(3, 0x40, 0, 0, "\x04" + Le16(1), Points({0, 0, 1}))
                                         .Entity(3 | 0x80, 0, 0, 0, "", Points({0, 0, 2}))
                                         .File());
    EXPECT_EQ(read.tags.structure.modelEntities.size(), 0U);
    EXPECT_EQ(read.tags.structure.paperEntities.size(), 1U);
}

TEST(OldDrawings, GoOnBehindDamagedRecords)
{
    OldFileWriter file = Prepared(OldKind::R11);
    file.Entity(3, 0, 0, 0, "", Points({0, 0, 1})).Raw(std::string(20, '\xEE'));
    file.Entity(3, 0, 0, 0, "", Points({0, 0, 2}));
    const OldReading read = ReadFile(file.File());
    EXPECT_EQ(read.tags.structure.modelEntities.size(), 2U);
    EXPECT_THAT(read.Told(), ElementsAre("809 x 1"));
}

TEST(OldDrawings, SurviveCutsAndChangesEverywhere)
{
    for (const OldKind kind : {OldKind::R9, OldKind::R11}) {
        OldFileWriter writer = Prepared(kind);
        writer.Entity(3, 0, 0, 0, "", Points({0, 0, 1})).Entity(19, 0x80, 1, 0, "", "");
        writer.Entity(20, 0, 1, 0, "", Points({1, 2})).Entity(17, 0, 1, 0, "", Le32(0));
        const std::uint32_t door = writer.BlockEntity(12, 0, 0, 0, "", Points({1, 2}));
        writer.BlockEntity(13, 0, 0, 0, "", "");
        writer.Record(0, 64, "DOOR", Le32(0x40000000U | door));
        std::string file = writer.File();
        for (std::size_t size = 0x3EF; size < file.size(); size += 3)
            EXPECT_LE(ReadFile(file.substr(0, size)).tags.bytes.size(), 40 * file.size());
        for (std::size_t at = 0x0B; at < file.size(); ++at) {
            file[at] = static_cast<char>(~file[at]);
            EXPECT_LE(ReadFile(file).tags.bytes.size(), 40 * file.size());
            file[at] = static_cast<char>(~file[at]);
        }
    }
}

TEST(OldDrawings, ThatEndInTheirHeadAreRefused)
{
    FindingList findings;
    try {
        (void)ReadOldDrawing("AC1009 and nothing", "old.dwg", findings);
        ADD_FAILURE() << "no error";
    } catch (const DrawingError& error) {
        EXPECT_STREQ(error.what(),
                     "old.dwg: DWG of release R11 or R12: the file is cut off in its head; save the drawing again");
    }
}

} // namespace
} // namespace sm::drawing::dwg::testing
