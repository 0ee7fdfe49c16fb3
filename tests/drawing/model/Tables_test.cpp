// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/DxfText.h"
#include "drawing/entities/Entity.h"

#include "tags/Source.h"

#include <gmock/gmock.h>

namespace sm::drawing::testing {
namespace {

std::unique_ptr<Drawing> OpenTables(const std::string& groups, const std::string& head = "")
{
    return DxfText().Raw(head).Section("TABLES").Raw(groups).EndSection().End().Open();
}

TEST(Layers, KeepTheirProperties)
{
    const auto drawing = OpenTables("0\nTABLE\n2\nLAYER\n70\n3\n"
                                    "0\nLAYER\n5\n10\n2\n0\n70\n0\n62\n7\n6\nCONTINUOUS\n"
                                    "0\nLAYER\n5\n11\n2\nWalls\n70\n1\n62\n-3\n6\nContinuous\n290\n0\n370\n50\n"
                                    "0\nLAYER\n5\n12\n2\nTrue\n70\n0\n62\n1\n420\n3255861590\n"
                                    "0\nENDTAB\n");
    ASSERT_EQ(drawing->Layers().size(), 3U);
    EXPECT_EQ(drawing->Layers()[0].name, "0");
    EXPECT_EQ(drawing->Layers()[0].linetype, 2U);
    const Layer& walls = drawing->Layers()[1];
    EXPECT_EQ(walls.name, "Walls");
    EXPECT_EQ(walls.handle, 0x11U);
    EXPECT_EQ(walls.color, 3);
    EXPECT_TRUE(walls.off);
    EXPECT_TRUE(walls.frozen);
    EXPECT_FALSE(walls.plotted);
    EXPECT_EQ(walls.lineweight, 50);
    EXPECT_EQ(drawing->Layers()[2].trueColor, 0x108156U);
    EXPECT_FALSE(drawing->Layers()[2].off);
    EXPECT_EQ(drawing->Layers()[2].lineweight, kLineweightDefault);
}

TEST(Layers, AreFoundWhateverTheirLetterCase)
{
    const auto drawing = DxfText()
                             .Header("AC1015")
                             .Section("TABLES")
                             .Raw("0\nLAYER\n2\nW\xE4nde\n62\n1\n")
                             .EndSection()
                             .Section("ENTITIES")
                             .Raw("0\nLINE\n8\nW\xE4nde\n0\nLINE\n8\nW\xC4NDE\n0\nLINE\n8\nelsewhere\n")
                             .EndSection()
                             .End()
                             .Open();
    Entity entity;
    std::vector<std::uint32_t> layers;
    for (const EntityRecord& record : ModelEntities(*drawing)) {
        Read(*drawing, record, entity);
        layers.push_back(entity.layer);
    }
    EXPECT_EQ(layers, (std::vector<std::uint32_t>{1, 1, 0}));
}

TEST(Layers, AreFoundInEveryAlphabet)
{
    const auto drawing = DxfText()
                             .Header("AC1021")
                             .Section("TABLES")
                             .Raw("0\nLAYER\n2\nПЛАН Ґ\n0\nLAYER\n2\nԱԲ\n0\nLAYER\n2\n\u00C9tage\n")
                             .EndSection()
                             .End()
                             .Open();
    const NameTable& names = drawing->Tags().layers;
    EXPECT_EQ(names.FindUtf8("план ґ"), 1U);
    EXPECT_EQ(names.FindUtf8("աբ"), 2U);
    EXPECT_EQ(names.FindUtf8("e\u0301TAGE"), 3U);
    EXPECT_EQ(names.FindUtf8("план"), std::nullopt);
}

TEST(Layers, SignsOfAConverterThatMarksAllAsOffAreIgnored)
{
    const std::string layers = "0\nLAYER\n2\n0\n62\n-7\n0\nLAYER\n2\nA\n62\n-1\n";
    const auto converted = OpenTables(layers, "999\nLibreDWG 0.13\n");
    EXPECT_FALSE(converted->Layers()[0].off);
    EXPECT_FALSE(converted->Layers()[1].off);
    EXPECT_EQ(converted->Layers()[1].color, 1);
    ASSERT_EQ(converted->Findings().size(), 1U);
    EXPECT_EQ(converted->Findings()[0].code, 302);
    EXPECT_TRUE(OpenTables(layers)->Layers()[1].off);
    EXPECT_TRUE(OpenTables("0\nLAYER\n2\n0\n62\n7\n0\nLAYER\n2\nA\n62\n-1\n", "999\nLibreDWG 0.13\n")->Layers()[1].off);
}

TEST(Layers, TakeTheNameOfTheirPlotStyle)
{
    const auto drawing =
        DxfText()
            .Section("HEADER")
            .Variable("$ACADVER", 1, "AC1015")
            .Variable("$PSTYLEMODE", 290, "0")
            .EndSection()
            .Section("TABLES")
            .Raw("0\nLAYER\n2\nThin\n62\n1\n390\n1F\n")
            .EndSection()
            .Section("OBJECTS")
            .Raw("0\nDICTIONARY\n5\nC\n330\n0\n3\nACAD_PLOTSTYLENAME\n350\nE\n"
                 "0\nACDBDICTIONARYWDFLT\n5\nE\n330\nC\n3\nNormal\n350\nF\n3\nHalf Tone\n350\n1F\n340\nF\n")
            .EndSection()
            .End()
            .Open();
    EXPECT_EQ(drawing->Layers()[1].plotStyle, "Half Tone");
}

TEST(Layers, WithoutANameAreReported)
{
    const auto drawing = OpenTables("0\nLAYER\n62\n1\n0\nLAYER\n2\nA\n62\n1\n");
    EXPECT_EQ(drawing->Layers().size(), 2U);
    ASSERT_EQ(drawing->Findings().size(), 1U);
    EXPECT_EQ(drawing->Findings()[0].code, 301);
    EXPECT_EQ(drawing->Findings()[0].line, 6U);
}

TEST(Linetypes, ThreeAreAlwaysThere)
{
    const auto drawing = OpenTables("0\nLTYPE\n2\nDASHED\n3\n_ _\n40\n0.75\n73\n2\n49\n0.5\n74\n0\n49\n-0.25\n74\n0\n");
    ASSERT_EQ(drawing->Linetypes().size(), 4U);
    EXPECT_EQ(drawing->Linetypes()[0].name, "ByLayer");
    EXPECT_EQ(drawing->Linetypes()[1].name, "ByBlock");
    EXPECT_EQ(drawing->Linetypes()[2].name, "Continuous");
    const Linetype& dashed = drawing->Linetypes()[3];
    EXPECT_EQ(dashed.description, "_ _");
    EXPECT_EQ(dashed.patternLength, 0.75);
    ASSERT_EQ(dashed.elements.size(), 2U);
    EXPECT_EQ(dashed.elements[0].length, 0.5);
    EXPECT_EQ(dashed.elements[1].length, -0.25);
}

TEST(Linetypes, HoldTextsAndShapes)
{
    const auto drawing =
        OpenTables("0\nSTYLE\n5\n40\n2\nStandard\n3\ntxt\n0\nSTYLE\n5\n41\n2\n\n70\n1\n3\nltypeshp.shx\n"
                   "0\nLTYPE\n2\nGAS\n40\n1\n73\n3\n49\n0.5\n74\n0\n"
                   "49\n-0.2\n74\n2\n75\n0\n340\n40\n46\n0.1\n50\n0.0\n44\n-0.1\n45\n-0.05\n9\nGAS\n"
                   "49\n-0.25\n74\n5\n75\n132\n340\n41\n46\n0.2\n50\n45\n44\n0\n45\n0\n");
    const std::vector<LinetypeElement>& elements = drawing->Linetypes()[3].elements;
    ASSERT_EQ(elements.size(), 3U);
    EXPECT_EQ(elements[1].kind, LinetypeElement::Kind::Text);
    EXPECT_EQ(elements[1].text, "GAS");
    EXPECT_EQ(elements[1].style, 0U);
    EXPECT_EQ(elements[1].scale, 0.1);
    EXPECT_EQ(elements[1].offset, (Vec2{-0.1, -0.05}));
    EXPECT_EQ(elements[2].kind, LinetypeElement::Kind::Shape);
    EXPECT_EQ(elements[2].shape, 132);
    EXPECT_EQ(elements[2].style, 1U);
    EXPECT_TRUE(elements[2].absoluteRotation);
    EXPECT_EQ(elements[2].rotation, 45);
    EXPECT_TRUE(drawing->TextStyles()[1].isShapeFile);
    EXPECT_EQ(drawing->TextStyles()[1].fontFile, "ltypeshp.shx");
}

TEST(TextStyles, TakeTheFontFromTheirExtendedData)
{
    const auto drawing =
        OpenTables("0\nSTYLE\n5\n11\n2\nTitle\n70\n4\n40\n3.5\n41\n0.8\n50\n15\n71\n6\n3\narialbi.ttf\n4\nbig\n"
                   "1001\nACAD\n1000\nArial\n1071\n50331682\n");
    ASSERT_EQ(drawing->TextStyles().size(), 2U);
    EXPECT_EQ(drawing->TextStyles()[0].name, "Standard");
    const TextStyle& style = drawing->TextStyles()[1];
    EXPECT_EQ(style.name, "Title");
    EXPECT_EQ(style.fontFile, "arialbi.ttf");
    EXPECT_EQ(style.bigFontFile, "big");
    EXPECT_EQ(style.family, "Arial");
    EXPECT_TRUE(style.bold && style.italic && style.vertical && style.backward && style.upsideDown);
    EXPECT_EQ(style.fixedHeight, 3.5);
    EXPECT_EQ(style.widthFactor, 0.8);
    EXPECT_EQ(style.obliqueAngle, 15);
}

TEST(Views, AreReadWithTheActiveModelView)
{
    const auto drawing = OpenTables("0\nVIEW\n2\nNorth\n70\n1\n40\n100\n10\n5\n20\n6\n41\n150\n11\n0\n21\n0\n31\n1\n12"
                                    "\n1\n22\n2\n32\n3\n50\n30\n42\n35\n43\n4\n44\n-3\n71\n1\n"
                                    "0\nVPORT\n2\n*Active\n12\n10\n22\n20\n40\n297\n41\n1."
                                    "5\n16\n0\n26\n0\n36\n1\n51\n10\n42\n40\n43\n5\n44\n-6\n71\n22\n"
                                    "0\nVPORT\n2\n*ACTIVE\n40\n1\n0\nAPPID\n2\nACAD\n0\nAPPID\n2\nPE_URL\n");
    ASSERT_EQ(drawing->Views().size(), 1U);
    const NamedView& view = drawing->Views()[0];
    EXPECT_EQ(view.name, "North");
    EXPECT_TRUE(view.paperSpace);
    EXPECT_EQ(view.center, (Vec2{5, 6}));
    EXPECT_EQ(view.width, 150);
    EXPECT_EQ(view.height, 100);
    EXPECT_EQ(view.target, (Vec3{1, 2, 3}));
    EXPECT_EQ(view.twist, 30);
    EXPECT_EQ(view.depth, (ViewDepth{.mode = 1, .lens = 35, .front = 4, .back = -3}));
    ASSERT_TRUE(drawing->ActiveModelView());
    EXPECT_EQ(drawing->ActiveModelView()->center, (Vec2{10, 20}));
    EXPECT_EQ(drawing->ActiveModelView()->height, 297);
    EXPECT_EQ(drawing->ActiveModelView()->aspect, 1.5);
    EXPECT_EQ(drawing->ActiveModelView()->twist, 10);
    EXPECT_EQ(drawing->ActiveModelView()->depth, (ViewDepth{.mode = 22, .lens = 40, .front = 5, .back = -6}));
    EXPECT_EQ(drawing->ApplicationNames(), (std::vector<std::string>{"ACAD", "PE_URL"}));
}

} // namespace
} // namespace sm::drawing::testing
