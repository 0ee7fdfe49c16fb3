// SPDX-License-Identifier: GPL-3.0-or-later
// One row for each thing that DWG converters get wrong, here read right: fields from bits as the format stores them,
// and what needs whole files from drawings of the shared folder (SM_SHARED_DRAWINGS, or beside the source tree).
#include "drawing/Drawing.h"
#include "drawing/SharedDrawings.h"
#include "drawing/dwg/objects/ObjectBench.h"
#include "drawing/entities/Graphics.h"
#include "drawing/entities/Solids.h"
#include "drawing/entities/TableEntities.h"
#include "dwg/entities/EntityDecoders.h"
#include "dwg/records/RecordDecoders.h"
#include "dwg/tables/TableEntries.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <numbers>

namespace sm::drawing::dwg::testing {

namespace {

constexpr double kPi = std::numbers::pi;
constexpr unsigned kWalls = 0x10, kNotes = 0x11, kPlan = 0x12, kBook = 0x13, kContinuous = 0x14;

struct ConverterFaultRow {
    const char* name;
    Release release;
    unsigned type;
    void (*decode)(Object&);
    BitWriter bits;
    const char* tags;
};

void PrintTo(const ConverterFaultRow& row, std::ostream* out)
{
    *out << row.name;
}

/// The head that all objects have, and that of a table's entries up to R2004: no reactors, no dictionary; a name.
BitWriter EntryHead()
{
    return BitWriter().BL(0).B(true).H(4, 2).T("entry").B(false).BS(0).B(false).H(5, 0);
}

void DecodeLayer(Object& object)
{
    WriteTableEntry(object, Table::Layer);
}
BitWriter LayerOf(unsigned state, std::uint32_t color)
{
    return EntryHead().BS(state).Color(color).H(5, 0).H(5, kContinuous).BS(0);
}

void DecodeModelView(Object& object)
{
    WriteTableEntry(object, Table::Viewport);
}
BitWriter ModelView(double twist)
{
    BitWriter bits = EntryHead();
    bits.BD(10).BD(20).RD(5).RD(6).BD(0).BD(0).BD(0).BD(0).BD(0).BD(1).BD(twist);
    // Lens, clips; then the mode's first three bits, and whether the front clip lies at the eye.
    return bits.BD(50).BD(4).BD(-3).B(true).B(false).B(true).B(false).BS(0);
}

/// The head of an entity of R2004 in model space whose colour is `color`.
BitWriter EntityHead(const BitWriter& color)
{
    BitWriter bits;
    bits.B(false).Bits(2, 2).BL(0).B(true);
    BitReader reader(color.Bytes(), 0, color.Count());
    for (std::uint64_t i = color.Count(); i > 0; --i)
        bits.B(reader.B());
    return bits.BD(1).Bits(0, 2).Bits(0, 2).BS(0).RC(29);
}
void DecodeHead(Object& object)
{
    object.ReadEntityHead();
    object.WriteEntityHead();
}

/// A viewport on a sheet, from its place on: behind the flags what the view's lines look like, then two frozen layers.
BitWriter ViewportOf(std::uint32_t flags)
{
    BitWriter bits;
    for (const double number : {1.0, 2.0, 0.0, 30.0, 40.0}) // centre, width, height
        bits.BD(number);
    for (int i = 0; i < 6; ++i) // target, direction
        bits.BD(0);
    bits.BD(0).BD(5).BD(50).BD(0).BD(0).BD(kPi / 6); // twist of the view, height, lens, clips, snap angle
    for (int i = 0; i < 8; ++i)
        bits.RD(0);
    bits.BS(0).BL(2).BL(flags).T("").RC(0).B(true).B(true); // plot style sheet, render mode, whose coordinates
    for (int i = 0; i < 10; ++i)                            // of the view's own coordinate system
        bits.BD(0);
    return bits.BS(0).BS(2).H(5, 0x31).H(5, 0x32).H(5, 0);
}

BitWriter LightPolyline()
{
    constexpr unsigned kBulges = 0x10, kWidths = 0x20;
    BitWriter bits;
    bits.BS(kBulges | kWidths).BL(2).BL(2).BL(2).RD(1).RD(2).Bits(3, 2).RD(7).Bits(0, 2);
    return bits.BD(0).BD(0.5).BD(0).BD(0).BD(3).BD(4);
}

/// What all dimensions have, from R2000 on: a style and a block are named at its end.
BitWriter DimensionHead()
{
    BitWriter bits;
    bits.BD(0).BD(0).BD(1).RD(9).RD(8).BD(0).RC(2).T("").BD(0).BD(0).BD(1).BD(1).BD(1).BD(0);
    return bits.BS(5).BS(1).BD(1).BD(90).RD(0).RD(0).H(5, 0).H(5, kPlan);
}
BitWriter Angular2()
{
    BitWriter bits = DimensionHead().RD(16).RD(26);
    for (const double x : {13.0, 14.0, 15.0, 10.0})
        bits.BD(x).BD(0).BD(0);
    return bits;
}

BitWriter MTextOf2004()
{
    BitWriter bits;
    bits.BD(1).BD(2).BD(0).BD(0).BD(0).BD(1).BD(1).BD(0).BD(0).BD(30).BD(2.5).BS(1).BS(1).BD(0).BD(0).T("Hall");
    return bits.H(5, kNotes).BS(1).BD(1).B(false).BL(1).BD(1.5).Color(0xC3000002).BL(0);
}

BitWriter LayoutOf(unsigned plotFlags)
{
    BitWriter bits;
    bits.T("").T("").BS(plotFlags);
    for (int i = 0; i < 6; ++i)
        bits.BD(0);
    bits.T("A4").BD(0).BD(0).BS(0).BS(0).BS(4); // 4: a view is plotted
    for (int i = 0; i < 4; ++i)
        bits.BD(0);
    bits.BD(1).BD(1).T("").BS(0).BD(1).BD(0).BD(0).BS(0).BS(0).BS(0).H(5, kPlan);
    bits.T("Sheet").BL(1).BS(1).BD(0).BD(0).BD(0).RD(0).RD(0).RD(1).RD(1);
    for (int i = 0; i < 9; ++i)
        bits.BD(0);
    bits.BD(0).BS(0);
    for (int i = 0; i < 6; ++i)
        bits.BD(0);
    return bits.H(4, 0x1B);
}
constexpr const char* kLayoutTags =
    "100=AcDbPlotSettings 1= 2= 70=0 40=0 41=0 42=0 43=0 44=0 45=0 4=A4 46=0 47=0 72=0 73=0 74=4 48=0 49=0 140=0 141=0 "
    "142=1 143=1 7= 75=0 147=1 148=0 149=0 76=0 77=0 78=0 6=Plan 100=AcDbLayout 1=Sheet 70=1 71=1 10=0 20=0 11=1 21=1 "
    "12=0 22=0 32=0 146=0 14=0 24=0 34=0 15=0 25=0 35=0 13=0 23=0 33=0 16=0 26=0 36=0 17=0 27=0 37=0 330=1B ";

/// From R2010 on an attribute says its version before its tag.
BitWriter AttributeOf2010(unsigned flags)
{
    constexpr unsigned kNothingElse = 0xFF;
    BitWriter bits;
    bits.RC(kNothingElse).RD(1).RD(2).B(true).B(true).RD(2.5).WideT("7").H(5, kNotes);
    return bits.RC(0).WideT("ROOM").BS(0).RC(flags).B(true);
}

/// `knots`: 0 by the lengths of chords, 2 even.
BitWriter FitSplineOf2013(unsigned knots)
{
    BitWriter bits;
    bits.BL(2).BL(1).BL(knots).BL(3).BD(0).BD(3).BD(0).BD(0).BD(0).BD(6).BD(0).BL(2);
    return bits.BD(1).BD(2).BD(0).BD(3).BD(4).BD(0);
}

const std::vector<ConverterFaultRow> kConverterFaultRows{
    {"AVisibleLayerHasAPositiveColor", Release::R2004, 51, DecodeLayer, LayerOf(0x10 | 25 << 5, 0xC3000005),
     "5=0 330=2 2= 70=64 62=5 6=Continuous 370=-3 "},
    {"ALayerThatIsOffHasANegativeColor", Release::R2004, 51, DecodeLayer, LayerOf(2 | 0x10 | 25 << 5, 0xC3000005),
     "5=0 330=2 2= 70=64 62=-5 6=Continuous 370=-3 "},
    {"ATrueColorOfALayerHasThreeBytes", Release::R2004, 51, DecodeLayer, LayerOf(0x10 | 25 << 5, 0xC2FF0000),
     "5=0 330=2 2= 70=64 62=1 420=16711680 6=Continuous 370=-3 "},
    {"TheTwistOfTheModelViewIsInDegrees", Release::R2004, 65, DecodeModelView, ModelView(kPi / 6),
     "5=0 330=2 2= 70=64 12=5 22=6 16=0 26=0 36=1 17=0 27=0 37=0 40=10 41=2 51=30 42=50 43=4 44=-3 71=21 "},
    {"AViewportOfAnySheetHasItsNumberFlagsAndFrozenLayers", Release::R2004, 34, DecodeViewport, ViewportOf(0x20000),
     "10=1 20=2 30=0 40=30 41=40 69=1 68=1 17=0 27=0 37=0 16=0 26=0 36=0 51=0 45=5 42=50 43=0 44=0 50=30 12=0 22=0 "
     "90=131072 170=2 331=31 331=32 "},
    {"AnEntityKeepsItsTransparency", Release::R2004, 19, DecodeHead,
     EntityHead(BitWriter().BS(0x2000 | 5).BL(0x02000066)).H(5, kWalls), "5=0 330=1F 8=Walls 62=5 440=33554534 "},
    {"ATrueColorOfAnEntityHasThreeBytes", Release::R2004, 19, DecodeHead,
     EntityHead(BitWriter().BS(0x8000 | 183).BL(0xC2803DC2)).H(5, kWalls), "5=0 330=1F 8=Walls 62=183 420=8404418 "},
    {"AColorOfABookHasItsTrueColor", Release::R2004, 19, DecodeHead,
     EntityHead(BitWriter().BS(0xC000 | 42)).H(5, kBook).H(5, kWalls), "5=0 330=1F 8=Walls 62=42 420=16564615 "},
    {"ALightPolylineKeepsWidthsWhoseFirstIsZero", Release::R2004, 77, DecodeLightPolyline, LightPolyline(),
     "70=0 90=2 10=1 20=2 40=0 41=0 10=7 20=2 40=3 41=4 42=0.5 "},
    {"AVertexKeepsItsBulge", Release::R2004, 10, DecodeVertex,
     BitWriter().RC(0).BD(1).BD(2).BD(0).BD(0).BD(0).BD(-0.5).BD(0), "10=1 20=2 30=0 40=0 41=0 42=-0.5 "},
    {"AnAngularDimensionKnowsItsArcFromItsLine", Release::R2004, 24, DecodeDimension, Angular2(),
     "11=9 21=8 31=0 1= 53=0 51=0 71=5 42=90 2=Plan 16=16 26=26 36=0 13=13 23=0 33=0 14=14 24=0 34=0 15=15 25=0 35=0 "
     "10=10 20=0 30=0 70=162 "},
    {"AnAttributeKeepsItsFlags", Release::R2010, 2, DecodeAttribute, AttributeOf2010(9),
     "10=1 20=2 30=0 40=2.5 1=7 7=Notes 2=ROOM 70=9 280=1 "},
    {"ASplineOf2013MayHaveFitPointsAndTangents", Release::R2013, 36, DecodeSpline, FitSplineOf2013(0),
     "70=0 71=3 12=3 22=0 32=0 13=0 23=6 33=0 11=1 21=2 31=0 11=3 21=4 31=0 "},
    {"ASplineOfTwoFitPointsOverEvenKnotsIsABezierCurve", Release::R2013, 36, DecodeSpline, FitSplineOf2013(2),
     "70=0 71=3 40=0 40=0 40=0 40=0 40=1 40=1 40=1 40=1 10=1 20=2 30=0 10=2 20=2 30=0 10=3 20=2 30=0 10=3 20=4 30=0 "},
    {"ASolidHasItsElevationInEachCorner", Release::R2004, 31, DecodeSolid,
     BitWriter().B(true).BD(5).RD(1).RD(2).RD(3).RD(4).RD(5).RD(6).RD(7).RD(8).B(true),
     "10=1 20=2 30=5 11=3 21=4 31=5 12=5 22=6 32=5 13=7 23=8 33=5 "},
    {"AnMTextKeepsTheFactorOfItsBackground", Release::R2004, 44, DecodeMText, MTextOf2004(),
     "10=1 20=2 30=0 11=1 21=0 31=0 41=30 40=2.5 71=1 72=1 1=Hall 7=Notes 73=1 44=1 90=1 45=1.5 63=2 441=0 "},
    {"ALayoutNamesTheViewThatItPlots", Release::R2004, 82, DecodeLayout, LayoutOf(0), kLayoutTags},
};

class ConverterFaults : public ::testing::TestWithParam<ConverterFaultRow> {};

TEST_P(ConverterFaults, AreNoneOfOurs)
{
    const ConverterFaultRow& row = GetParam();
    ObjectBench bench(row.release, row.bits);
    bench.names.entries = {{kWalls, "Walls"}, {kNotes, "Notes"}, {kPlan, "Plan"}, {kContinuous, "Continuous"}};
    bench.names.modelSpace = 0x1F;
    bench.names.colors.emplace(kBook, Color{0xC2FCC187, "BOOK$SAND"});
    bench.object.type = row.type;
    row.decode(bench.object);
    EXPECT_FALSE(bench.object.Lost());
    EXPECT_EQ(bench.Tags(), row.tags);
}

INSTANTIATE_TEST_SUITE_P(All, ConverterFaults, ::testing::ValuesIn(kConverterFaultRows),
                         [](const auto& row) { return std::string(row.param.name); });

namespace fs = std::filesystem;

/// Null when the shared drawings are missing.
std::unique_ptr<Drawing> OpenShared(const char* path)
{
    const fs::path folder = SharedDrawings();
    return fs::exists(folder / path) ? Drawing::Open((folder / path).string()) : nullptr;
}

/// Of the entities of a kind in all blocks: how many there are, and what `measure` says of each.
template <class Data, class Measure>
std::string MeasureAll(const Drawing& drawing, std::initializer_list<std::string_view> kinds, Measure measure)
{
    std::ostringstream out;
    for (std::uint32_t block = 0; block < drawing.Blocks().size(); ++block)
        for (const EntityRecord& record : drawing.EntitiesOf(block)) {
            if (std::ranges::find(kinds, drawing.EntityName(record)) == kinds.end())
                continue;
            Data data;
            Read(drawing, record, data);
            out << drawing.EntityName(record) << ' ' << measure(data) << '\n';
        }
    return out.str();
}

TEST(ConverterFaultsOfFiles, BodiesOf2018HaveTheirEdges)
{
    const auto drawing = OpenShared("dwg/sample_AC1032.dwg");
    if (drawing == nullptr)
        GTEST_SKIP() << "no shared drawings";
    const auto edges = [](const SolidData& data) {
        return std::to_string(data.edges.size()) + (data.complete ? " edges" : " edges and more");
    };
    EXPECT_EQ(MeasureAll<SolidData>(*drawing, {"3DSOLID", "REGION"}, edges),
              "3DSOLID 12 edges\nREGION 7 edges\n3DSOLID 15 edges\n");
}

TEST(ConverterFaultsOfFiles, TablesOf2013HaveTheirCells)
{
    const auto drawing = OpenShared("dwg/thooruna_sample.dwg");
    if (drawing == nullptr)
        GTEST_SKIP() << "no shared drawings";
    const auto texts = [](const TableData& data) {
        std::string all = data.block != kNoBlock ? "drawn by a block:" : "no block:";
        for (const TableData::Cell& cell : data.cells)
            all += " [" + cell.text + "]";
        return all;
    };
    EXPECT_EQ(MeasureAll<TableData>(*drawing, {"ACAD_TABLE"}, texts),
              "ACAD_TABLE drawn by a block: [P & I D] [] [ID] [DESCRIPTION] [LT 101] [Level Transmitter] [PT 101] "
              "[Pressure Transmitter] [TT 101] [Temperature Transmitter] [LT 102] [Level Transmitter]\n");
}

TEST(ConverterFaultsOfFiles, ProxiesKeepTheirGraphics)
{
    const auto drawing = OpenShared("dwg/Building_A_Floor_0_Mapwize.dwg");
    if (drawing == nullptr)
        GTEST_SKIP() << "no shared drawings";
    std::size_t walls = 0;
    std::map<Graphic::Kind, std::size_t> steps;
    MeasureAll<GraphicsData>(*drawing, {"AEC_WALL"}, [&](const GraphicsData& data) {
        EXPECT_TRUE(data.complete);
        ++walls;
        for (const Graphic& step : data.steps)
            ++steps[step.kind];
        return 0;
    });
    EXPECT_EQ(walls, 30U);
    const std::map<Graphic::Kind, std::size_t> expected{{Graphic::Kind::Polyline, 30}, {Graphic::Kind::Text, 30}};
    EXPECT_EQ(steps, expected);
}

} // namespace

} // namespace sm::drawing::dwg::testing
