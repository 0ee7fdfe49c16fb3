// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/EntityKinds.h"
#include "dwg/TagSink.h"

#include "dwg/objects/NearestIndex.h"

#include <gmock/gmock.h>

namespace sm::drawing::dwg {

namespace {

/// "code=value" for each tag of a slice.
std::vector<std::string> TagsIn(const DecodedTags& decoded, std::uint64_t begin, std::uint64_t length)
{
    TagCursor tags(decoded.bytes, TagFormat::BinaryLong, begin, length, 1);
    std::vector<std::string> found;
    while (tags.Next()) {
        const std::string value = tags.Type() == ValueType::Real      ? std::to_string(tags.Real())
                                  : tags.Type() == ValueType::Integer ? std::to_string(tags.Long())
                                                                      : std::string(tags.Text());
        found.push_back(std::to_string(tags.Code()) + "=" + value);
    }
    EXPECT_FALSE(tags.Damaged());
    EXPECT_FALSE(tags.CutOff());
    return found;
}

TEST(TagSink, EntriesOfAllKindsAreFoundWithTheirTags)
{
    TagSink sink;
    sink.Variable("$LTSCALE");
    sink.Real(40, 2.5);
    sink.TableEntry("LAYER");
    sink.HandleTag(5, 0x1AF);
    sink.Text(2, "WALLS");
    sink.Integer(62, -7);
    sink.BeginBlock();
    sink.Text(2, "DOOR");
    sink.Entity("LINE");
    sink.Point(10, Vec3{1, 2, 3});
    sink.EndBlock();
    sink.Entity("CIRCLE");
    sink.Real(40, 4);
    sink.Entity("VIEWPORT");
    sink.PaperSpace();
    sink.Integer(69, 1);
    sink.Object("DICTIONARY");
    sink.Text(3, "A");
    const DecodedTags decoded = sink.Finish();
    const Structure& found = decoded.structure;
    ASSERT_EQ(found.variables.size(), 1U);
    EXPECT_EQ(found.variables[0].name, "$LTSCALE");
    ASSERT_EQ(found.tableEntries.size(), 1U);
    const Slice& layer = found.tableEntries[0].slice;
    EXPECT_THAT(TagsIn(decoded, layer.begin, layer.length), ::testing::ElementsAre("5=1AF", "2=WALLS", "62=-7"));
    ASSERT_EQ(found.blocks.size(), 1U);
    EXPECT_EQ(found.blocks[0].count, 1U);
    ASSERT_EQ(found.blockEntities.size(), 1U);
    EXPECT_EQ(found.blockEntities[0].kind, EntityKind::Line);
    EXPECT_THAT(TagsIn(decoded, found.blockEntities[0].begin, found.blockEntities[0].length),
                ::testing::ElementsAre("10=1.000000", "20=2.000000", "30=3.000000"));
    ASSERT_EQ(found.modelEntities.size(), 1U);
    EXPECT_EQ(found.modelEntities[0].kind, EntityKind::Circle);
    ASSERT_EQ(found.paperEntities.size(), 1U);
    EXPECT_TRUE(found.paperEntities[0].paperSpace);
    ASSERT_EQ(found.objects.size(), 1U);
    EXPECT_TRUE(found.hasObjects);
    EXPECT_EQ(found.tags, 11U);
}

TEST(TagSink, ADamagedEntryIsTakenBack)
{
    TagSink sink;
    sink.Entity("LINE");
    sink.Real(40, 1);
    sink.Entity("ARC");
    sink.Real(40, 2);
    EXPECT_TRUE(sink.Abandon());
    EXPECT_FALSE(sink.Abandon());
    sink.TableEntry("STYLE");
    EXPECT_TRUE(sink.Abandon());
    const DecodedTags decoded = sink.Finish();
    ASSERT_EQ(decoded.structure.modelEntities.size(), 1U);
    EXPECT_EQ(decoded.structure.modelEntities[0].kind, EntityKind::Line);
    EXPECT_TRUE(decoded.structure.tableEntries.empty());
    EXPECT_EQ(decoded.bytes.size(), 10U);
}

TEST(TagSink, UnknownEntitiesKeepTheirNames)
{
    TagSink sink;
    sink.Entity(std::string("ACME_PIPE"));
    sink.Entity(std::string("ACME_PIPE"));
    const DecodedTags decoded = sink.Finish();
    ASSERT_EQ(decoded.structure.modelEntities.size(), 2U);
    EXPECT_EQ(decoded.structure.modelEntities[0].kind, EntityKind::Unknown);
    EXPECT_EQ(decoded.structure.modelEntities[0].nameIndex, decoded.structure.modelEntities[1].nameIndex);
    EXPECT_EQ(decoded.structure.unknownNames[decoded.structure.modelEntities[0].nameIndex], "ACME_PIPE");
}

TEST(TagSink, LongBytesBecomeSeveralTagsAndTextsEndAtANul)
{
    TagSink sink;
    sink.Object("ACDSRECORD");
    sink.Chunks(310, std::string(300, 'x'));
    sink.Text(1, std::string_view("ab\0cd", 5));
    sink.HandleTag(320, 0);
    const DecodedTags decoded = sink.Finish();
    const Slice& slice = decoded.structure.objects[0].slice;
    EXPECT_THAT(TagsIn(decoded, slice.begin, slice.length),
                ::testing::ElementsAre("310=" + std::string(255, 'x'), "310=" + std::string(45, 'x'), "1=ab", "320=0"));
}

struct ColorRow {
    std::uint32_t rgb;
    std::int32_t index; ///< beside it in the DXF of a CAD program
};

TEST(NearestIndex, IsTheOneThatCadProgramsWrite)
{
    for (const ColorRow& row : {ColorRow{0xFF0000, 1},
                                {0xFFFFFF, 7},
                                {0x1192EE, 150},
                                {0x2C881B, 86},
                                {0x803DC2, 183},
                                {0x50B3FF, 151},
                                {0x9B42EC, 193},
                                {0x367542, 97},
                                {0xFF7F00, 30},
                                {0x333333, 250},
                                {0xDEDEDE, 254},
                                {0x7D214F, 247}})
        EXPECT_EQ(NearestIndex(row.rgb), row.index) << std::hex << row.rgb;
}

} // namespace

} // namespace sm::drawing::dwg
