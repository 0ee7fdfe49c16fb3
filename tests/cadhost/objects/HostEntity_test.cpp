// SPDX-License-Identifier: GPL-3.0-or-later
#include "cadhost/HostFixture.h"

namespace sm::cadhost {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class HostEntityTest : public HostTest {
protected:
    /// The first thing in model space.
    std::shared_ptr<IAcadEntity> First(const std::string& entities, const std::string& blocks = {})
    {
        DxfDrawing drawing;
        drawing.AddSheet("Sheet 1");
        drawing.AddSheet("Sheet 2");
        drawing.model.entities = entities;
        drawing.blocks = blocks;
        return Open(drawing)->Blocks()->Item("*Model_Space")->Item(0);
    }
    static std::string BoxOf(IAcadEntity& entity)
    {
        AcadPoint low, high;
        entity.GetBoundingBox(low, high);
        return ::testing::PrintToString(std::array{low.x, low.y, low.z, high.x, high.y, high.z});
    }
    static std::vector<std::string> TextsOf(const std::vector<std::shared_ptr<IAcadAttribute>>& attributes)
    {
        std::vector<std::string> texts;
        for (const auto& attribute : attributes)
            texts.push_back(attribute->TagString() + "=" + attribute->TextString());
        return texts;
    }
};

struct KindRow {
    const char* name;
    std::string tags;
    const char* expected;
};
class ObjectNameTest : public HostEntityTest, public ::testing::WithParamInterface<KindRow> {};

TEST_P(ObjectNameTest, IsThatOfTheObjectModel)
{
    EXPECT_EQ(First(GetParam().tags)->ObjectName(), GetParam().expected);
}

std::string Polyline(int flags)
{
    return Plain("POLYLINE", Tag(66, 1) + Tag(70, flags)) + Plain("VERTEX", Tag(10, 0) + Tag(20, 0)) + Plain("SEQEND");
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, ObjectNameTest,
    ::testing::Values(
        KindRow{"Line", LineTags(0, 0, 1, 1), "AcDbLine"}, KindRow{"Circle", Plain("CIRCLE"), "AcDbCircle"},
        KindRow{"Arc", Plain("ARC"), "AcDbArc"}, KindRow{"Ellipse", Plain("ELLIPSE"), "AcDbEllipse"},
        KindRow{"LwPolyline", Plain("LWPOLYLINE"), "AcDbPolyline"},
        KindRow{"Polyline2d", Polyline(0), "AcDb2dPolyline"}, KindRow{"Polyline3d", Polyline(8), "AcDb3dPolyline"},
        KindRow{"Mesh", Polyline(16), "AcDbPolygonMesh"}, KindRow{"Polyface", Polyline(64), "AcDbPolyFaceMesh"},
        KindRow{"Spline", Plain("SPLINE"), "AcDbSpline"}, KindRow{"Point", Plain("POINT"), "AcDbPoint"},
        KindRow{"Solid", Plain("SOLID"), "AcDbSolid"}, KindRow{"Trace", Plain("TRACE"), "AcDbTrace"},
        KindRow{"Face", Plain("3DFACE"), "AcDbFace"}, KindRow{"Text", Plain("TEXT"), "AcDbText"},
        KindRow{"MText", Plain("MTEXT"), "AcDbMText"}, KindRow{"Attdef", Plain("ATTDEF"), "AcDbAttributeDefinition"},
        KindRow{"Insert", Plain("INSERT", Tag(2, "DOOR")), "AcDbBlockReference"},
        KindRow{"InsertArray", Plain("INSERT", Tag(2, "DOOR") + Tag(70, 2)), "AcDbMInsertBlock"},
        KindRow{"Viewport", Plain("VIEWPORT"), "AcDbViewport"}, KindRow{"Hatch", Plain("HATCH"), "AcDbHatch"},
        KindRow{"RotatedDimension", Plain("DIMENSION", Tag(70, 32)), "AcDbRotatedDimension"},
        KindRow{"AlignedDimension", Plain("DIMENSION", Tag(70, 33)), "AcDbAlignedDimension"},
        KindRow{"RadialDimension", Plain("DIMENSION", Tag(70, 36)), "AcDbRadialDimension"},
        KindRow{"OrdinateDimension", Plain("DIMENSION", Tag(70, 6 + 64)), "AcDbOrdinateDimension"},
        KindRow{"Leader", Plain("LEADER"), "AcDbLeader"}, KindRow{"MultiLeader", Plain("MULTILEADER"), "AcDbMLeader"},
        KindRow{"MLine", Plain("MLINE"), "AcDbMline"}, KindRow{"Tolerance", Plain("TOLERANCE"), "AcDbFcf"},
        KindRow{"Ray", Plain("RAY"), "AcDbRay"}, KindRow{"XLine", Plain("XLINE"), "AcDbXline"},
        KindRow{"Image", Plain("IMAGE"), "AcDbRasterImage"}, KindRow{"Wipeout", Plain("WIPEOUT"), "AcDbWipeout"},
        KindRow{"PdfUnderlay", Plain("PDFUNDERLAY"), "AcDbPdfReference"},
        KindRow{"Solid3d", Plain("3DSOLID"), "AcDb3dSolid"}, KindRow{"Region", Plain("REGION"), "AcDbRegion"},
        KindRow{"Unheard", Plain("ACME_WIDGET"), "AcDbZombieEntity"}),
    [](const auto& row) { return row.param.name; });

TEST_F(HostEntityTest, GivesTheBoxInWorldCoordinates)
{
    EXPECT_EQ(BoxOf(*First(LineTags(10, 40, 3, 5))), "{ 3, 5, 0, 10, 40, 0 }");
    EXPECT_EQ(BoxOf(*First(Plain("CIRCLE", Tag(10, 10) + Tag(20, 20) + Tag(40, 5)))), "{ 5, 15, 0, 15, 25, 0 }");
}

TEST_F(HostEntityTest, GivesThePlaceOfWhatDrawsNothingItself)
{
    EXPECT_EQ(BoxOf(*First(Plain("VIEWPORT", Tag(10, 50) + Tag(20, 40) + Tag(40, 20) + Tag(41, 10) + Tag(69, 2)))),
              "{ 40, 35, 0, 60, 45, 0 }");
    EXPECT_EQ(BoxOf(*First(Plain("INSERT", Tag(2, "GONE") + Tag(10, 5) + Tag(20, 6) + Tag(230, -1)))),
              "{ -5, 6, 0, -5, 6, 0 }");
    EXPECT_EQ(BoxOf(*First(Plain("IMAGE", Tag(10, 1) + Tag(20, 2) + Tag(11, 0.5) + Tag(21, 0) + Tag(12, 0) +
                                              Tag(22, 0.5) + Tag(13, 100) + Tag(23, 60)))),
              "{ 1, 2, 0, 51, 32, 0 }");
}

TEST_F(HostEntityTest, GivesTheBoxOfADimensionWithoutAPicture)
{
    const std::string points = Tag(10, 20) + Tag(20, 10) + Tag(13, 0) + Tag(23, 0) + Tag(14, 20) + Tag(24, 0);
    EXPECT_EQ(BoxOf(*First(Plain("DIMENSION", Tag(2, "*D9") + Tag(1, " ") + points))),
              "{ 0, 0.0625, 0, 20, 10.18, 0 }");
}

TEST_F(HostEntityTest, LeavesTheCornersAloneWhereThereIsNoBox)
{
    const auto entity = First(Plain("ACME_WIDGET"));
    AcadPoint low{1, 2, 3}, high{4, 5, 6};
    EXPECT_THAT(ErrorOf([&] { entity->GetBoundingBox(low, high); }),
                ::testing::MatchesRegex("GetBoundingBox: the ACME_WIDGET of line [0-9]+ has no extents"));
    EXPECT_EQ(low, (AcadPoint{1, 2, 3}));
    EXPECT_EQ(high, (AcadPoint{4, 5, 6}));
}

std::string Link(const std::string& url, const std::string& description, const std::string& place = {})
{
    const std::string inside = place.empty() ? "" : Tag(1000, place);
    return Tag(1000, url) + Tag(1002, "{") + Tag(1000, description) + inside + Tag(1002, "{") + Tag(1071, 1) +
           Tag(1002, "}") + Tag(1002, "}");
}

TEST_F(HostEntityTest, HasHyperlinksInFileOrder)
{
    const auto links =
        First(LineTags(0, 0, 1, 1,
                       Tag(1001, "PE_URL") + Link("https://a.example/", "A") + Link("docs/b.pdf", "", "page 2")))
            ->Hyperlinks();
    ASSERT_EQ(links->Count(), 2);
    EXPECT_EQ(links->Item(0)->URL(), "https://a.example/");
    EXPECT_EQ(links->Item(0)->URLDescription(), "A");
    EXPECT_EQ(links->Item(1)->URL(), "docs/b.pdf");
    EXPECT_EQ(ErrorOf([&] { links->Item(2); }), "Hyperlinks: there is no item 2");
    EXPECT_EQ(First(LineTags(0, 0, 1, 1))->Hyperlinks()->Count(), 0);
}

struct PlaceRow {
    const char* name;
    const char* place;
    const char* expected;
};
class LinkInsideTest : public HostEntityTest, public ::testing::WithParamInterface<PlaceRow> {};

TEST_P(LinkInsideTest, NamesTheSheet)
{
    const auto entity = First(LineTags(0, 0, 1, 1, Tag(1001, "PE_URL") + Link("", "go", GetParam().place)));
    EXPECT_EQ(entity->Hyperlinks()->Item(0)->URL(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Places, LinkInsideTest,
                         ::testing::Values(PlaceRow{"Sheet", "Sheet 2", "#Sheet 2"},
                                           PlaceRow{"OtherCase", "SHEET 2", "#Sheet 2"},
                                           PlaceRow{"SheetAndView", "Sheet 2,Plan", "#Sheet 2"},
                                           PlaceRow{"ViewAndSheet", "Plan, Sheet 2", "#Sheet 2"},
                                           PlaceRow{"Unknown", "Plan", "#Plan"}),
                         [](const auto& row) { return row.param.name; });

std::string Attribute(const char* kind, const char* tag, const char* text, int flags)
{
    return Tag(0, kind) + Tag(8, "0") + Tag(10, 0) + Tag(20, 0) + Tag(40, 1) + Tag(1, text) + Tag(2, tag) +
           Tag(70, flags);
}

const std::string kDoor = Tag(0, "BLOCK") + Tag(8, "0") + Tag(2, "DOOR") + Tag(70, 2) + Tag(10, 0) + Tag(20, 0) +
                          Tag(3, "DOOR") + LineTags(0, 0, 1, 0) + Attribute("ATTDEF", "WIDTH", "90", 2) +
                          Attribute("ATTDEF", "NUMBER", "?", 0) + Tag(0, "ENDBLK") + Tag(8, "0");

TEST_F(HostEntityTest, ReadsBlockReferencesWithTheirAttributes)
{
    const auto entity =
        First(Plain("INSERT", Tag(66, 1) + Tag(2, "DOOR") + Tag(10, 7) + Tag(20, 8) + Tag(30, 9)) +
                  Attribute("ATTRIB", "NUMBER", "D-17", 0) + Attribute("ATTRIB", "FIRE", "", 0) + Plain("SEQEND"),
              kDoor);
    IAcadBlockReference* const reference = entity->AsBlockReference();
    ASSERT_NE(reference, nullptr);
    EXPECT_EQ(reference->Name(), "DOOR");
    EXPECT_EQ(reference->InsertionPoint(), (AcadPoint{7, 8, 9}));
    EXPECT_TRUE(reference->HasAttributes());
    EXPECT_THAT(TextsOf(reference->GetAttributes()), ElementsAre("NUMBER=D-17", "FIRE="));
    EXPECT_THAT(TextsOf(reference->GetConstantAttributes()), ElementsAre("WIDTH=90"));
    EXPECT_EQ(entity->AsBlockReference(), reference);
}

TEST_F(HostEntityTest, ReadsBlockReferencesWithoutAttributesOrBlock)
{
    const auto entity = First(Plain("INSERT", Tag(2, "GONE") + Tag(10, 1) + Tag(20, 2)));
    IAcadBlockReference* const reference = entity->AsBlockReference();
    ASSERT_NE(reference, nullptr);
    EXPECT_EQ(reference->Name(), "GONE");
    EXPECT_FALSE(reference->HasAttributes());
    EXPECT_THAT(reference->GetAttributes(), IsEmpty());
    EXPECT_THAT(reference->GetConstantAttributes(), IsEmpty());
    EXPECT_EQ(First(LineTags(0, 0, 1, 1))->AsBlockReference(), nullptr);
}

TEST_F(HostEntityTest, GivesTheInsertionPointOfAMirroredReferenceInTheWorld)
{
    const auto entity =
        First(Plain("INSERT", Tag(2, "DOOR") + Tag(10, 5) + Tag(20, 6) + Tag(30, 1) + Tag(230, -1)), kDoor);
    EXPECT_EQ(entity->AsBlockReference()->InsertionPoint(), (AcadPoint{-5, 6, -1}));
}

TEST_F(HostEntityTest, WalksABlockByPosition)
{
    DxfDrawing drawing;
    drawing.AddSheet("Sheet 1").entities = LineTags(0, 0, 1, 1, Tag(67, 1)) + Plain("TEXT", Tag(67, 1));
    drawing.model.entities = Plain("CIRCLE");
    drawing.blocks = kDoor;
    const auto document = Open(drawing);
    const auto space = document->Layouts()->Item("Sheet 1")->Block();
    ASSERT_EQ(space->Count(), 2);
    EXPECT_EQ(space->Item(0)->ObjectName(), "AcDbLine");
    EXPECT_EQ(space->Item(1)->ObjectName(), "AcDbText");
    EXPECT_EQ(ErrorOf([&] { space->Item(2); }), "Block '*Paper_Space': there is no item 2");
    EXPECT_EQ(ErrorOf([&] { space->Item(-1); }), "Block '*Paper_Space': there is no item -1");
    EXPECT_EQ(document->Blocks()->Item("door")->Count(), 3);
    EXPECT_EQ(document->Layouts()->Item("Model")->Block()->Item(0)->ObjectName(), "AcDbCircle");
}

} // namespace
} // namespace sm::cadhost
