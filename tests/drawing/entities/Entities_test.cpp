// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/DxfText.h"
#include "drawing/EntityKinds.h"
#include "drawing/Finding.h"
#include "drawing/entities/Curves.h"
#include "drawing/entities/Dimensions.h"
#include "drawing/entities/Images.h"
#include "drawing/entities/Inserts.h"
#include "drawing/entities/Polylines.h"
#include "drawing/entities/Solids.h"
#include "drawing/entities/Texts.h"

#include <gmock/gmock.h>

namespace sm::drawing::testing {
namespace {

using ::testing::ElementsAre;
using namespace std::string_literals;

TEST(Entities, ShareTheirCommonProperties)
{
    const auto line = ReadOnly<LineData>("0\nLINE\n5\n2A\n102\n{ACAD_REACTORS\n330\nFF\n5\nEE\n102\n}"
                                         "\n330\n1F\n100\nAcDbEntity\n8\n0\n6\nByBlock\n62\n3\n48\n0.5\n"
                                         "60\n1\n370\n35\n420\n16711680\n440\n33554559\n39\n2\n38\n7\n210\n0\n220\n0\n2"
                                         "30\n-1\n10\n1\n20\n2\n30\n3\n11\n4\n21\n5\n31\n6\n"
                                         "1001\nACAD\n1005\nBB\n1040\n99\n");
    EXPECT_EQ(line.handle, 0x2AU);
    EXPECT_EQ(line.owner, 0x1FU);
    EXPECT_EQ(line.linetype, 1U);
    EXPECT_EQ(line.color, 3);
    EXPECT_EQ(line.linetypeScale, 0.5);
    EXPECT_TRUE(line.invisible);
    EXPECT_EQ(line.lineweight, 35);
    EXPECT_EQ(line.trueColor, 0xFF0000U);
    EXPECT_EQ(line.transparency, 0x7F);
    EXPECT_EQ(line.thickness, 2);
    EXPECT_EQ(line.elevation, 7);
    EXPECT_EQ(line.extrusion, (Vec3{0, 0, -1}));
    EXPECT_EQ(line.start, (Vec3{1, 2, 3}));
    EXPECT_EQ(line.end, (Vec3{4, 5, 6}));
}

TEST(Entities, HaveDefaultsForWhatIsNotGiven)
{
    const auto line = ReadOnly<LineData>("0\nLINE\n10\n1\n");
    EXPECT_EQ(line.color, kByLayer);
    EXPECT_EQ(line.lineweight, kLineweightByLayer);
    EXPECT_EQ(line.layer, 0U);
    EXPECT_EQ(line.linetype, 0U);
    EXPECT_EQ(line.extrusion, (Vec3{0, 0, 1}));
    EXPECT_FALSE(line.trueColor || line.transparency || line.invisible);
}

TEST(Entities, TellWhereTransparencyAndPlotStyleComeFrom)
{
    using Source = Entity::StyleSource;
    const struct {
        const char *name, *tags;
        bool byBlock, byValue;
        Source source;
        Handle style;
    } rows[] = {
        {"nothing said", "", false, false, Source::Layer, 0},
        {"by layer", "440\n0\n380\n0\n", false, false, Source::Layer, 0},
        {"by block", "440\n16777216\n380\n1\n", true, false, Source::Block, 0},
        {"default style", "380\n2\n", false, false, Source::Default, 0},
        {"a style of its own", "380\n3\n390\nA1\n", false, false, Source::Own, 0xA1},
        {"a style without its kind", "390\nA1\n", false, false, Source::Own, 0xA1},
        {"no such kind", "380\n7\n", false, false, Source::Layer, 0},
        {"by value", "440\n33554432\n", false, true, Source::Layer, 0},
    };
    for (const auto& row : rows) {
        const auto line = ReadOnly<LineData>(std::string("0\nLINE\n8\n0\n") + row.tags);
        EXPECT_EQ(line.transparencyByBlock, row.byBlock) << row.name;
        EXPECT_EQ(line.transparency.has_value(), row.byValue) << row.name;
        EXPECT_EQ(line.plotStyleSource, row.source) << row.name;
        EXPECT_EQ(line.plotStyle, row.style) << row.name;
    }
}

TEST(Entities, ColoursOfColourBooksWithoutAValueFallBackToTheirIndex)
{
    EXPECT_EQ(ReadOnly<LineData>("0\nLINE\n62\n5\n420\n0\n430\nRAL 9005\n").trueColor, std::nullopt);
    EXPECT_EQ(ReadOnly<LineData>("0\nLINE\n62\n5\n420\n3271557120\n").trueColor, 0U);
}

TEST(Entities, ArcsAndEllipses)
{
    const auto arc = ReadOnly<ArcData>("0\nARC\n10\n1\n20\n2\n40\n3\n50\n350\n51\n10\n");
    EXPECT_EQ(arc.radius, 3);
    EXPECT_EQ(arc.startAngle, 350);
    EXPECT_EQ(arc.endAngle, 10);
    const auto ellipse = ReadOnly<EllipseData>("0\nELLIPSE\n10\n1\n20\n2\n11\n5\n21\n1\n40\n0.5\n41\n0\n42\n3.5\n");
    EXPECT_EQ(ellipse.majorAxis, (Vec3{5, 1, 0}));
    EXPECT_EQ(ellipse.ratio, 0.5);
    EXPECT_EQ(ellipse.endParameter, 3.5);
}

TEST(Entities, LightPolylinesKeepBulgesAndWidths)
{
    const auto line = ReadOnly<PolylineData>(
        "0\nLWPOLYLINE\n90\n99999999\n70\n129\n43\n0.5\n38\n4\n10\n0\n20\n0\n42\n1\n10\n10\n20\n1\n"
        "40\n0.1\n41\n0.2\n");
    ASSERT_EQ(line.vertices.size(), 2U);
    EXPECT_TRUE(line.closed && line.plinegen);
    EXPECT_EQ(line.vertices[0].bulge, 1);
    EXPECT_EQ(line.vertices[0].startWidth, 0.5);
    EXPECT_EQ(line.vertices[1].point, (Vec3{10, 1, 4}));
    EXPECT_EQ(line.vertices[1].startWidth, 0.1);
    EXPECT_EQ(line.vertices[1].endWidth, 0.2);
}

constexpr const char* kPolyline =
    "0\nPOLYLINE\n66\n1\n10\n0\n20\n0\n30\n2.5\n70\n1\n40\n0.3\n41\n0.4\n1001\nAPP\n1000\nx\n"
    "0\nVERTEX\n8\nother\n10\n1\n20\n2\n30\n0\n42\n-1\n0\nVERTEX\n10\n3\n20\n4\n40\n1\n";

TEST(Entities, OldPolylinesTakeTheirVerticesWithThem)
{
    const auto drawing = OpenEntities(std::string(kPolyline) + "0\nSEQEND\n8\n0\n0\nPOINT\n10\n1\n");
    ASSERT_EQ(ModelEntities(*drawing).size(), 2U);
    PolylineData line;
    Read(*drawing, ModelEntities(*drawing)[0], line);
    EXPECT_TRUE(line.closed);
    ASSERT_EQ(line.vertices.size(), 2U);
    EXPECT_EQ(line.vertices[0].point, (Vec3{1, 2, 2.5}));
    EXPECT_EQ(line.vertices[0].bulge, -1);
    EXPECT_EQ(line.vertices[0].startWidth, 0.3);
    EXPECT_EQ(line.vertices[1].startWidth, 1);
    EXPECT_EQ(line.vertices[1].endWidth, 0.4);
    EXPECT_TRUE(drawing->Findings().empty());
}

TEST(Entities, AMissingSequenceEndIsReported)
{
    const auto drawing = OpenEntities(std::string(kPolyline) + "0\nPOINT\n10\n1\n");
    EXPECT_EQ(ModelEntities(*drawing).size(), 2U);
    ASSERT_EQ(drawing->Findings().size(), 1U);
    EXPECT_EQ(drawing->Findings()[0].code, 502);
}

TEST(Entities, PolyfacesAndMeshesAreBoundedByTheirVertices)
{
    const auto face = ReadOnly<PolylineData>(
        "0\nPOLYLINE\n70\n64\n71\n2000000000\n72\n1\n0\nVERTEX\n70\n192\n10\n1\n0\nVERTEX\n70\n128\n"
        "71\n1\n72\n-2\n73\n3\n74\n4\n0\nSEQEND\n");
    EXPECT_TRUE(face.isPolyface);
    EXPECT_EQ(face.meshM, 2);
    EXPECT_EQ(face.vertices[1].flags, 128);
    EXPECT_THAT(face.vertices[1].face, ElementsAre(1, -2, 3, 4));
    const auto mesh =
        ReadOnly<PolylineData>("0\nPOLYLINE\n70\n49\n71\n2\n72\n-3\n0\nVERTEX\n30\n9\n0\nVERTEX\n10\n1\n0\nSEQEND\n");
    EXPECT_TRUE(mesh.isMesh && mesh.meshClosedM && mesh.meshClosedN);
    EXPECT_EQ(mesh.meshN, 0);
    EXPECT_EQ(mesh.vertices[0].point.z, 9);
}

TEST(Entities, SplinesWithControlOrFitPoints)
{
    const auto spline = ReadOnly<SplineData>("0\nSPLINE\n70\n12\n71\n2\n72\n999\n40\n0\n40\n0\n40\n1\n40\n1\n41\n1\n41"
                                             "\n0.5\n10\n1\n20\n2\n30\n0\n10\n3\n20\n4\n30\n0\n");
    EXPECT_EQ(spline.degree, 2);
    EXPECT_TRUE(spline.rational);
    EXPECT_THAT(spline.knots, ElementsAre(0, 0, 1, 1));
    EXPECT_THAT(spline.weights, ElementsAre(1, 0.5));
    EXPECT_THAT(spline.controlPoints, ElementsAre(Vec3{1, 2, 0}, Vec3{3, 4, 0}));
    const auto fit = ReadOnly<SplineData>("0\nSPLINE\n70\n1\n71\n3\n74\n2\n12\n1\n22\n0\n32\n0\n13\n0\n23\n1\n33\n0\n11"
                                          "\n1\n21\n2\n31\n0\n11\n3\n21\n4\n31\n0\n");
    EXPECT_TRUE(fit.closed);
    EXPECT_THAT(fit.fitPoints, ElementsAre(Vec3{1, 2, 0}, Vec3{3, 4, 0}));
    EXPECT_EQ(fit.startTangent, (Vec3{1, 0, 0}));
    EXPECT_EQ(fit.endTangent, (Vec3{0, 1, 0}));
    EXPECT_TRUE(fit.controlPoints.empty());
}

TEST(Entities, QuadsTakeTheirHeightFromTheElevationWhenTheyHaveNone)
{
    const auto solid = ReadOnly<QuadData>("0\nSOLID\n38\n5\n10\n0\n20\n0\n11\n1\n21\n0\n12\n0\n22\n1\n");
    EXPECT_THAT(solid.corners, ElementsAre(Vec3{0, 0, 5}, Vec3{1, 0, 5}, Vec3{0, 1, 5}, Vec3{0, 1, 5}));
    const auto face = ReadOnly<QuadData>(
        "0\n3DFACE\n70\n5\n10\n0\n20\n0\n30\n1\n11\n1\n21\n0\n31\n2\n12\n0\n22\n1\n32\n3\n13\n1\n23\n1\n33\n4\n");
    EXPECT_EQ(face.invisibleEdges, 5);
    EXPECT_EQ(face.corners[3], (Vec3{1, 1, 4}));
}

TEST(Entities, TextsAndAttributes)
{
    const auto text = ReadOnly<TextData>(
        "0\nTEXT\n10\n1\n20\n2\n40\n2.5\n1\n%%c30\n50\n45\n41\n0.8\n51\n15\n71\n6\n72\n1\n11\n5\n21\n6\n73\n2\n");
    EXPECT_EQ(text.text, "%%c30");
    EXPECT_TRUE(text.hasAlignment && text.backward && text.upsideDown);
    EXPECT_EQ(text.alignment, (Vec3{5, 6, 0}));
    EXPECT_EQ(text.horizontal, 1);
    EXPECT_EQ(text.vertical, 2);
    EXPECT_EQ(text.rotation, 45);
    EXPECT_EQ(text.widthFactor, 0.8);
    EXPECT_EQ(text.oblique, 15);
    const auto attribute = ReadOnly<TextData>("0\nATTDEF\n1\nvalue\n3\nWho?\n2\nDRAWN_BY\n70\n1\n73\n9\n74\n3\n");
    EXPECT_EQ(attribute.tag, "DRAWN_BY");
    EXPECT_EQ(attribute.prompt, "Who?");
    EXPECT_EQ(attribute.attributeFlags, 1);
    EXPECT_EQ(attribute.vertical, 3);
}

TEST(Entities, MultiLineAttributesCarryTheirOwnText)
{
    const auto drawing = OpenEntities("0\nATTRIB\n10\n9\n1\nshort\n2\nNOTE\n101\nEmbedded "
                                      "Object\n70\n1\n10\n3\n20\n4\n40\n2.5\n71\n1\n1\nfirst\\Psecond\n");
    TextData text;
    Read(*drawing, ModelEntities(*drawing)[0], text);
    EXPECT_EQ(text.text, "short");
    EXPECT_EQ(text.insertion.x, 9);
    ASSERT_TRUE(text.embeddedMText);
    MTextData lines;
    Read(*drawing, *text.embeddedMText, lines);
    EXPECT_EQ(lines.text, "first\\Psecond");
    EXPECT_EQ(lines.insertion, (Vec3{3, 4, 0}));
}

TEST(Entities, MTextHasItsColumnsInAnEmbeddedObjectInItsOwnTagsOrInExtendedData)
{
    const std::string own = "0\nMTEXT\n10\n1\n40\n2.5\n41\n80\n46\n90\n1\nwords\n";
    for (
        const std::string& columns :
        {"75\n2\n76\n3\n78\n1\n79\n0\n48\n30\n49\n4\n50\n20\n50\n0\n"s,
         "101\nEmbedded Object\n70\n1\n10\n1\n11\n7\n40\n30\n41\n90\n71\n2\n72\n3\n44\n30\n45\n4\n73\n0\n74\n1\n46\n20\n46\n0\n"s,
         "1001\nOTHER\n1000\nACAD_MTEXT_COLUMN_INFO_BEGIN\n1070\n75\n1070\n1\n1001\nACAD\n1000\nACAD_MTEXT_COLUMN_INFO_"
         "BEGIN\n"
         "1070\n75\n1070\n2\n1070\n79\n1070\n0\n1070\n76\n1070\n3\n1070\n78\n1070\n1\n1070\n48\n1040\n30\n1070\n49\n104"
         "0\n4\n"
         "1070\n50\n1070\n2\n1040\n20\n1040\n0\n1000\nACAD_MTEXT_COLUMN_INFO_END\n"s}) {
        const auto text = ReadOnly<MTextData>(own + columns);
        EXPECT_EQ(text.text, "words");
        EXPECT_EQ(text.insertion.x, 1);
        EXPECT_EQ(text.height, 2.5);
        EXPECT_EQ(text.width, 80);
        EXPECT_EQ(text.columnType, 2);
        EXPECT_EQ(text.columnCount, 3);
        EXPECT_EQ(text.columnWidth, 30);
        EXPECT_EQ(text.columnGutter, 4);
        EXPECT_EQ(text.columnHeights, (std::vector<double>{20, 0}));
        EXPECT_EQ(text.definedHeight, 90);
        EXPECT_TRUE(text.columnsReversed);
        EXPECT_FALSE(text.columnAutoHeight);
    }
}

TEST(Entities, AnMTextWhoseColumnsAreTextsOfTheirOwnHoldsTheFirstOne)
{
    const auto text = ReadOnly<MTextData>(
        "0\nMTEXT\n10\n1\n40\n2.5\n41\n80\n1\nwords\n1001\nACAD\n1000\nACAD_MTEXT_COLUMN_INFO_"
        "BEGIN\n1070\n75\n1070\n1\n1070\n76\n"
        "1070\n2\n1070\n48\n1040\n30\n1000\nACAD_MTEXT_COLUMN_INFO_END\n1000\nACAD_MTEXT_COLUMNS_"
        "BEGIN\n1070\n47\n1070\n2\n1005\n"
        "1B4\n1000\nACAD_MTEXT_COLUMNS_END\n1000\nACAD_MTEXT_DEFINED_HEIGHT_BEGIN\n1070\n46\n1040\n150\n");
    EXPECT_EQ(text.columnType, 0);
    EXPECT_EQ(text.width, 30);
    EXPECT_EQ(text.definedHeight, 150);
}

TEST(Entities, MTextJoinsItsParts)
{
    const auto text =
        ReadOnly<MTextData>("0\nMTEXT\n10\n1\n20\n2\n40\n2.5\n41\n80\n71\n5\n72\n1\n3\nfirst \n3\nsecond^J\n1\nthird\n"
                            "11\n0\n21\n1\n31\n0\n73\n2\n44\n1.25\n90\n1\n63\n2\n45\n1."
                            "2\n421\n255\n75\n2\n76\n3\n48\n70\n49\n5\n50\n10\n50\n12\n");
    EXPECT_EQ(text.text, "first second\nthird");
    EXPECT_EQ(text.attachment, 5);
    EXPECT_EQ(text.width, 80);
    EXPECT_TRUE(text.hasDirection);
    EXPECT_EQ(text.direction, (Vec3{0, 1, 0}));
    EXPECT_EQ(text.lineSpacing, 1.25);
    EXPECT_EQ(text.lineSpacingStyle, 2);
    EXPECT_EQ(text.backgroundFlags, 1);
    EXPECT_EQ(text.backgroundColor, 2);
    EXPECT_EQ(text.backgroundScale, 1.2);
    EXPECT_EQ(text.backgroundTrueColor, 0xFFU);
    EXPECT_EQ(text.columnCount, 3);
    EXPECT_EQ(text.rotation, 0);
}

TEST(Entities, MTextRunsAlongTheWorldsXAxisUnlessTurned)
{
    struct Row {
        const char* tags;
        bool hasDirection;
        Vec3 direction;
        double rotation;
    };
    for (const Row& row : {Row{"", true, {1, 0, 0}, 0}, Row{"210\n0\n220\n0\n230\n-1\n", true, {1, 0, 0}, 0},
                           Row{"50\n30\n", false, {1, 0, 0}, 30}, Row{"11\n0\n21\n-1\n31\n0\n", true, {0, -1, 0}, 0},
                           Row{"75\n2\n76\n1\n50\n12\n", true, {1, 0, 0}, 0}}) {
        SCOPED_TRACE(row.tags);
        const auto text = ReadOnly<MTextData>("0\nMTEXT\n10\n1\n20\n2\n1\nwords\n" + std::string(row.tags));
        EXPECT_EQ(text.hasDirection, row.hasDirection);
        EXPECT_EQ(text.direction, row.direction);
        EXPECT_EQ(text.rotation, row.rotation);
    }
}

TEST(Entities, InsertsTakeTheirAttributesWithThem)
{
    const auto drawing =
        DxfText()
            .Section("BLOCKS")
            .Raw("0\nBLOCK\n2\nDoor\n10\n1\n20\n2\n70\n2\n0\nATTDEF\n2\nNO\n0\nENDBLK\n0\nBLOCK\n2\nXref\n70\n4\n1\nsit"
                 "e.dwg\n0\nENDBLK\n")
            .EndSection()
            .Section("ENTITIES")
            .Raw("0\nINSERT\n66\n1\n2\ndoor\n10\n5\n20\n6\n41\n2\n42\n-1\n43\n3\n50\n90\n70\n3\n71\n2\n44\n10\n45\n20\n"
                 "0\nATTRIB\n1\n17\n2\nNO\n0\nATTRIB\n1\nred\n2\nCOLOUR\n0\nSEQEND\n0\nINSERT\n2\nGone\n70\n-"
                 "5\n71\n99999999\n")
            .EndSection()
            .End()
            .Open();
    InsertData insert;
    Read(*drawing, ModelEntities(*drawing)[0], insert);
    EXPECT_EQ(insert.block, drawing->FindBlock("DOOR"));
    EXPECT_EQ(drawing->Blocks()[insert.block].base, (Vec3{1, 2, 0}));
    EXPECT_EQ(drawing->EntitiesOf(insert.block).size(), 1U);
    EXPECT_EQ(drawing->Blocks()[drawing->FindBlock("Xref")].xrefPath, "site.dwg");
    EXPECT_EQ(insert.scale, (Vec3{2, -1, 3}));
    EXPECT_EQ(insert.columns, 3);
    EXPECT_EQ(insert.rows, 2);
    EXPECT_EQ(insert.columnSpacing, 10);
    EXPECT_EQ(insert.rowSpacing, 20);
    ASSERT_EQ(insert.attributes.size(), 2U);
    TextData text;
    Read(*drawing, insert.attributes[0], text);
    EXPECT_EQ(text.tag + "=" + text.text, "NO=17");
    Read(*drawing, insert.attributes[1], text);
    EXPECT_EQ(text.tag + "=" + text.text, "COLOUR=red");
    Read(*drawing, ModelEntities(*drawing)[1], insert);
    EXPECT_EQ(insert.block, kNoBlock);
    EXPECT_EQ(insert.blockName, "Gone");
    EXPECT_EQ(insert.columns, 1);
    EXPECT_EQ(insert.rows, 1000000);
    EXPECT_TRUE(insert.attributes.empty());
}

TEST(Entities, DimensionsNameTheirPicture)
{
    const auto dimension =
        ReadOnly<DimensionData>("0\nDIMENSION\n2\n*D7\n1\n<> mm\n70\n33\n10\n1\n20\n2\n11\n3\n21\n4\n");
    EXPECT_EQ(dimension.blockName, "*D7");
    EXPECT_EQ(dimension.block, kNoBlock);
    EXPECT_EQ(dimension.text, "<> mm");
    EXPECT_EQ(dimension.type, 33);
    EXPECT_EQ(dimension.textMidpoint, (Vec3{3, 4, 0}));
}

TEST(Entities, LeadersAndImages)
{
    const auto leader = ReadOnly<LeaderData>("0\nLEADER\n71\n0\n72\n1\n76\n2\n10\n1\n20\n2\n10\n3\n20\n4\n");
    EXPECT_THAT(leader.vertices, ElementsAre(Vec3{1, 2, 0}, Vec3{3, 4, 0}));
    EXPECT_TRUE(leader.spline);
    EXPECT_FALSE(leader.arrowHead);
    const auto image = ReadOnly<ImageData>(
        "0\nIMAGE\n10\n1\n20\n2\n11\n0.5\n21\n0\n12\n0\n22\n0."
        "5\n13\n640\n23\n480\n340\n51\n70\n7\n280\n1\n71\n1\n91\n2\n14\n-0.5\n24\n-0.5\n14\n639.5\n24\n479.5\n");
    EXPECT_EQ(image.size, (Vec2{640, 480}));
    EXPECT_EQ(image.definition, 0x51U);
    EXPECT_THAT(image.clip, ElementsAre(Vec2{-0.5, -0.5}, Vec2{639.5, 479.5}));
    EXPECT_TRUE(image.clipping);
    const auto underlay = ReadOnly<ImageData>(
        "0\nPDFUNDERLAY\n340\n52\n10\n1\n20\n2\n41\n2\n42\n3\n50\n90\n280\n1\n11\n0\n21\n0\n11\n5\n21\n5\n");
    EXPECT_NEAR(underlay.u.y, 2, 1e-12);
    EXPECT_NEAR(underlay.v.x, -3, 1e-12);
    EXPECT_EQ(underlay.clip.size(), 2U);
}

TEST(Entities, UnknownKindsKeepTheirNames)
{
    const auto drawing = OpenEntities("0\nFLUX_CAPACITOR\n8\n0\n0\nDWFUNDERLAY\n8\n0\n0\nLINE\n8\n0\n");
    const auto records = ModelEntities(*drawing);
    EXPECT_EQ(drawing->EntityName(records[0]), "FLUX_CAPACITOR");
    EXPECT_EQ(records[0].kind, EntityKind::Unknown);
    EXPECT_EQ(drawing->EntityName(records[1]), "DWFUNDERLAY");
    EXPECT_EQ(records[1].kind, EntityKind::Underlay);
    EXPECT_EQ(drawing->EntityName(records[2]), "LINE");
    EXPECT_STREQ(KindName(EntityKind::Table), "ACAD_TABLE");
}

} // namespace
} // namespace sm::drawing::testing
