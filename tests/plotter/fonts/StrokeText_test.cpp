// SPDX-License-Identifier: GPL-3.0-or-later
// Text of stroked fonts: how it is cut, what the page and its fonts say.
#include "plotter/PsWritten.h"
#include "postscript/PsWriter.h"

#include <cmath>
#include <gtest/gtest.h>

namespace sm::plotter {
namespace {

using render::Matrix2;
using render::Path;
using render::TextRun;

/// "L" (glyph 1) and a blank (glyph 2) of 1000 units.
class Ell : public render::FontFace {
public:
    const std::string& Name() const override { return m_name; }
    bool IsStroked() const override { return true; }
    std::uint16_t UnitsPerEm() const override { return 1000; }
    std::uint16_t Advance(std::uint32_t) const override { return 500; }
    const render::GlyphContours& Contours(std::uint32_t) const override
    {
        static const render::GlyphContours kNone;
        return kNone;
    }
    void Outline(std::uint32_t glyph, Path& out) const override
    {
        out.Clear();
        if (glyph == 1) {
            out.MoveTo({0, 0.7});
            out.LineTo({0, 0});
            out.LineTo({0.4, 0});
        }
    }

private:
    std::string m_name = "ell";
};

TextRun Ells(const Ell& face, double wide, double high, double pen)
{
    TextRun run;
    run.font = &face;
    run.text = "L L";
    run.glyphs = {1, 2, 1};
    run.clusters = {0, 1, 2};
    run.positions = {{0, 0}, {0.5, 0}, {1, 0}};
    run.advance = 1.5;
    run.toPaper = {wide, 0, 0, high, 10, 20};
    run.penWidth = pen;
    run.color = 0x0000FF;
    return run;
}

TEST(StrokeCut, SplitsAMapIntoGlyphsAndASimilarity)
{
    struct Row {
        const char* name;
        Matrix2 map;
        double pen;
        StrokeCut cut;
        Matrix2 toPaper;
    };
    const double step = 1.0 / 512; // of an em of 4 mm: below 0.008 mm
    for (const Row& row : std::vector<Row>{
             {"plain", {4, 0, 0, 4, 1, 2}, 0.25, {1, 0, 0.0625}, {4, 0, 0, 4, 1, 2}},
             {"squeezed", {2, 0, 0, 4, 0, 0}, 0.25, {0.5, 0, 0.0625}, {4, 0, 0, 4, 0, 0}},
             {"sheared", {4, 0, 2, 4, 0, 0}, 0.25, {1, 0.5, 0.0625}, {4, 0, 0, 4, 0, 0}},
             {"turned", {0, 4, -4, 0, 0, 0}, 0.25, {1, 0, 0.0625}, {0, 4, -4, 0, 0, 0}},
             {"mirrored", {4, 0, 0, -4, 0, 0}, 0.25, {1, 0, 0.0625}, {4, 0, 0, -4, 0, 0}},
             {"backward", {-2, 0, 0, 4, 0, 0}, 0.25, {0.5, 0, 0.0625}, {-4, 0, 0, 4, 0, 0}},
             {"rounded", {4.003, 0, 0, 4, 0, 0}, 0.251, {1, 0, 0.0625}, {4, 0, 0, 4, 0, 0}},
             {"the thinnest pen stays", {4, 0, 0, 4, 0, 0}, 0.06, {1, 0, 8 * step}, {4, 0, 0, 4, 0, 0}},
         }) {
        SCOPED_TRACE(row.name);
        const auto text = CutOf(row.map, row.pen);
        ASSERT_TRUE(text);
        EXPECT_EQ(text->cut.width, row.cut.width);
        EXPECT_EQ(text->cut.shear, row.cut.shear);
        EXPECT_EQ(text->cut.pen, row.cut.pen);
        const Matrix2 together = Compose(text->toPaper, {text->width, 0, text->shear, 1, 0, 0});
        for (const auto& [is, should] : {std::pair{text->toPaper, row.toPaper}, {together, row.map}}) {
            EXPECT_NEAR(is.a, should.a, 1e-12);
            EXPECT_NEAR(is.b, should.b, 1e-12);
            EXPECT_NEAR(is.c, should.c, 1e-12);
            EXPECT_NEAR(is.d, should.d, 1e-12);
            EXPECT_NEAR(is.e, should.e, 1e-12);
            EXPECT_NEAR(is.f, should.f, 1e-12);
        }
    }
}

TEST(StrokeCut, LeavesTextWithoutMeasureAlone)
{
    const double nan = std::nan("");
    for (const Matrix2& map :
         {Matrix2{0, 0, 0, 0, 0, 0}, Matrix2{4, 0, 4, 0, 0, 0}, Matrix2{4, 0, 0, 1e-3, 0, 0},
          Matrix2{1e9, 0, 0, 1e9, 0, 0}, Matrix2{nan, 0, 0, 4, 0, 0}, Matrix2{4, 0, 400, 4, 0, 0}}) {
        EXPECT_FALSE(CutOf(map, 0.25)) << map.a << " " << map.d;
    }
}

TEST(StrokeText, IsTextInTheColourOfItsLines)
{
    const Ell face;
    PsWriter writer(254, testing::TempDir());
    writer.Text(Ells(face, 2, 4, 0.25));
    writer.Text(Ells(face, 2, 4, 0.25));
    EXPECT_EQ(BodyOf(writer), "0 0 1 rg\n0 0 1 RG\nBT\n/F1 40 Tf\n100 200 Td\n(L L) Tj\nET\n"
                              "BT\n/F1 40 Tf\n100 200 Td\n(L L) Tj\nET\n");
    EXPECT_EQ(writer.Fonts().Definitions(), R"(%%BeginResource: font F1
% ell
13 dict begin/FontType 3 def/FontName/F1 def/FontMatrix[.001 0 0 .001 0 0]def
/FontBBox[-33 -33 233 733 ]def
/Encoding 256 array 0 1 255{1 index exch/.notdef put}for
dup 76/uni004C put
dup 32/uni0020 put
def
/FontInfo 2 dict dup begin/GlyphNames2Unicode 2 dict dup begin
/uni004C<004C>def
/uni0020<0020>def
end def end def
/CharProcs 3 dict dup begin/.notdef{0 0 0 0 0 0 d1}bind def
/uni004C{250 0 -33 -33 233 733 d1
62.5 w
1 J
1 j
0 700 m
0 0 l
200 0 l
S
}bind def
/uni0020{250 0 0 0 0 0 d1
}bind def
end def
/BuildGlyph{exch/CharProcs get exch get exec}bind def
/BuildChar{1 index/Encoding get exch get 1 index/BuildGlyph get exec}bind def
FontName currentdict end definefont pop
%%EndResource
)");
}

TEST(StrokeText, TakesAFontForEachPenAndForm)
{
    const Ell face;
    PsWriter writer(254, testing::TempDir());
    writer.Text(Ells(face, 4, 4, 0.25));
    writer.Text(Ells(face, 4, 4, 0.5));
    writer.Text(Ells(face, 2, 4, 0.5));
    writer.Text(Ells(face, 8, 8, 0.5)); // as the first, twice as large
    EXPECT_EQ(writer.Fonts().Names(), "F1 F2 F3");
}

TEST(StrokeText, BecomesLinesAndHiddenTextWhereFontsRunOut)
{
    const Ell face;
    PsWriter writer(254, testing::TempDir());
    for (int i = 0; i < 70; ++i) {
        writer.Text(Ells(face, 4 + 0.25 * i, 4, 0.25));
    }
    const std::string body = BodyOf(writer);
    EXPECT_NE(body.find("/F64 40 Tf"), std::string::npos);
    EXPECT_EQ(body.find("/F66 "), std::string::npos);
    const std::string last = body.substr(body.find("2.5 w"));
    EXPECT_EQ(last.substr(0, last.find("ET\nQ\n")),
              "2.5 w\n1 J\n1 j\n100 228 m\n100 200 l\n180 200 l\n300 228 m\n300 200 l\n380 200 l\nS\n"
              "q\nBT\n3 Tr\n/F65 1 Tf\n200 0 0 40 100 200 Tm\n(L L) Tj\n");
}

} // namespace
} // namespace sm::plotter
