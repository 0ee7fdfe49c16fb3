// SPDX-License-Identifier: GPL-3.0-or-later
#include "plotter/PsWritten.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace sm::plotter {
namespace {

using render::FillRule;
using render::LineCap;
using render::LineJoin;
using render::Path;
using render::StrokeStyle;
using render::TextRun;

/// Two glyphs of 1000 units: 7 a triangle 500 wide, 9 a curve 250 wide.
class TwoGlyphs : public render::FontFace {
public:
    const std::string& Name() const override { return m_name; }
    std::uint16_t UnitsPerEm() const override { return 1000; }
    std::uint16_t Advance(std::uint32_t glyph) const override { return glyph == 9 ? 250 : 500; }
    const render::GlyphContours& Contours(std::uint32_t glyph) const override
    {
        static const render::GlyphContours kTriangle{{{0, 0, true}, {500, 0, true}, {250, 700, true}}, {2}}, kNone;
        return glyph == 7 ? kTriangle : kNone;
    }
    void Outline(std::uint32_t, Path& out) const override { out.Clear(); }

private:
    std::string m_name = "Two-Glyphs";
};

TEST(PsWriter, WritesALine)
{
    EXPECT_EQ(Written([](PsWriter& w) { w.Stroke(Line(1, 2, 3.04, 4.06), kThin); }),
              kThinPen + "10 20 m\n30 41 l\nS\n");
}

TEST(PsWriter, PaintsStrokesOfOnePenTogether)
{
    EXPECT_EQ(Written([](PsWriter& w) {
                  w.Stroke(Line(1, 1, 2, 2), kThin);
                  w.Stroke(Line(2, 2, 3, 3), kThin);
                  w.Stroke(Line(5, 5, 6, 6), kThin);
              }),
              kThinPen + "10 10 m\n20 20 l\n30 30 l\n50 50 m\n60 60 l\nS\n");
}

TEST(PsWriter, BeginsAClosedPathAnewWhereAnOpenOneEnded)
{
    EXPECT_EQ(Written([](PsWriter& w) {
                  Path corner = Line(1, 1, 2, 1);
                  corner.LineTo({1, 2});
                  corner.Close();
                  w.Stroke(Line(0, 0, 1, 1), kThin);
                  w.Stroke(corner, kThin);
              }),
              kThinPen + "0 0 m\n10 10 l\n10 10 m\n20 10 l\n10 20 l\nh\nS\n");
}

TEST(PsWriter, ChangesOnlyWhatDiffersInThePen)
{
    EXPECT_EQ(Written([](PsWriter& w) {
                  w.Stroke(Line(0, 0, 1, 1), kThin);
                  w.Stroke(Line(0, 0, 1, 1), {0xFF0000, 0.25, LineCap::Round, LineJoin::Round});
                  w.Stroke(Line(0, 0, 1, 1), {0xFF0000, 0, LineCap::Butt, LineJoin::Miter});
                  w.Stroke(Line(1, 1, 2, 2), {0xFF0000, 0, LineCap::Butt, LineJoin::Miter});
              }),
              kThinPen + "0 0 m\n10 10 l\nS\n1 0 0 RG\n0 0 m\n10 10 l\nS\n1 w\n0 J\n0 j\n0 0 m\n10 10 l\n10 10 m\n"
                         "20 20 l\nS\n");
}

TEST(PsWriter, KeepsPaintingOrder)
{
    EXPECT_EQ(Written([](PsWriter& w) {
                  Path box = Line(0, 0, 1, 0);
                  box.LineTo({1, 1});
                  box.Close();
                  w.Stroke(Line(0, 0, 1, 1), kThin);
                  w.Fill(box, 0x808080, FillRule::NonZero);
                  w.Stroke(Line(0, 0, 1, 1), kThin);
                  w.Fill(box, 0x112233, FillRule::EvenOdd);
              }),
              kThinPen + "0 0 m\n10 10 l\nS\n0.502 g\n0 0 m\n10 0 l\n10 10 l\nh\nf\n0 G\n0 0 m\n10 10 l\nS\n"
                         "0.067 0.133 0.2 rg\n0 0 m\n10 0 l\n10 10 l\nh\nf*\n");
}

TEST(PsWriter, WritesCurvesClosedPathsAndDots)
{
    EXPECT_EQ(Written([](PsWriter& w) {
                  Path path;
                  path.MoveTo({0, 0});
                  path.CubicTo({1, 0}, {2, 1}, {2, 2});
                  path.Close();
                  path.MoveTo({4, 4});
                  path.LineTo({4.001, 4}); // a dot of a line type
                  path.MoveTo({9, 9});     // nothing
                  path.MoveTo({5, 5});
                  path.LineTo({6, 5});
                  path.LineTo({6, 5.001});
                  path.LineTo({6, 6});
                  w.Stroke(path, kThin);
              }),
              kThinPen + "0 0 m\n10 0 20 10 20 20 c\nh\n40 40 m\n40 40 l\n50 50 m\n60 50 l\n60 60 l\nS\n");
}

TEST(PsWriter, NestsClipsAndRestoresThePen)
{
    EXPECT_EQ(Written([](PsWriter& w) {
                  Path box = Line(0, 0, 5, 0);
                  box.LineTo({5, 5});
                  box.Close();
                  w.Stroke(Line(0, 0, 1, 1), kThin);
                  w.PushClip(box, FillRule::NonZero);
                  w.PushClip(Path(), FillRule::EvenOdd);
                  w.Stroke(Line(0, 0, 1, 1), {0xFFFFFF, 0.5, LineCap::Round, LineJoin::Round});
                  w.PopClip();
                  w.PopClip();
                  w.PopClip(); // one too many does nothing
                  w.Stroke(Line(2, 2, 1, 1), kThin);
              }),
              kThinPen + "0 0 m\n10 10 l\nS\nq\n0 0 m\n50 0 l\n50 50 l\nh\nW\nn\nq\n0 0 m\nW*\nn\n1 G\n5 w\n0 0 m\n"
                         "10 10 l\nS\nQ\nQ\n20 20 m\n10 10 l\nS\n");
}

TEST(PsWriter, ClosesClipsThatAreLeftOpen)
{
    EXPECT_EQ(Written([](PsWriter& w) { w.PushClip(Line(0, 0, 1, 1), FillRule::NonZero); }),
              "q\n0 0 m\n10 10 l\nW\nn\nQ\n");
}

TEST(PsWriter, SurvivesNumbersThatNoDeviceCanHold)
{
    const double inf = std::numeric_limits<double>::infinity();
    EXPECT_EQ(Written([&](PsWriter& w) { w.Stroke(Line(1e300, -inf, std::nan(""), 5), kThin); }),
              kThinPen + "36923076 -36923076 m\n0 50 l\nS\n");
}

TEST(PsWriter, EndsAPathThatIsShortOfPoints)
{
    EXPECT_EQ(Written([](PsWriter& w) {
                  Path path = Line(0, 0, 1, 1);
                  path.verbs.push_back(render::Verb::Cubic);
                  w.Stroke(path, kThin);
              }),
              kThinPen + "0 0 m\n10 10 l\nS\n");
}

TextRun RunOf(const render::FontFace* font, const std::string& text)
{
    TextRun run;
    run.font = font;
    run.text = text;
    run.toPaper = {5, 0, 0, 5, 10, 20};
    return run;
}

TEST(PsWriter, WritesTextByItsOwnCodes)
{
    const TwoGlyphs face;
    EXPECT_EQ(Written([&](PsWriter& w) {
                  TextRun run = RunOf(&face, "Aж");
                  run.glyphs = {7, 9};
                  run.positions = {{0, 0}, {0.5, 0}};
                  run.clusters = {0, 1};
                  run.color = 0xFF0000;
                  w.Text(run);
              }),
              "1 0 0 rg\nBT\n/F1 50 Tf\n100 200 Td\n<4180> Tj\nET\n");
}

TEST(PsWriter, GivesEachGlyphOfAClusterACharacter)
{
    struct Row {
        const char* text;
        std::vector<std::uint32_t> clusters;
        const char* codes;
    };
    const TwoGlyphs face;
    for (const Row& row : std::vector<Row>{{"ABж", {0, 0, 2}, "<414280>"},   // two glyphs for two characters
                                           {"ABCж", {0, 0, 3}, "<418081>"},  // the second stands for BC
                                           {"ABж", {2, 0, 0}, "<804241>"},   // from right to left
                                           {"Aж", {0, 0, 0}, "<418081>"}}) { // the third has none
        EXPECT_EQ(Written([&](PsWriter& w) {
                      TextRun run = RunOf(&face, row.text);
                      run.glyphs = {7, 9, 7};
                      run.positions = {{0, 0}, {0.5, 0}, {0.75, 0}};
                      run.clusters = row.clusters;
                      w.Text(run);
                  }),
                  std::string("0 g\nBT\n/F1 50 Tf\n100 200 Td\n") + row.codes + " Tj\nET\n")
            << row.text;
    }
}

TEST(PsWriter, MovesGlyphsThatStandElsewhere)
{
    const TwoGlyphs face;
    EXPECT_EQ(Written([&](PsWriter& w) {
                  TextRun run = RunOf(&face, "AAAA");
                  run.glyphs = {7, 7, 7, 7};
                  run.positions = {{0, 0}, {0.5, 0}, {1.25, 0}, {2, 0.5}}; // the third further off, the fourth raised
                  run.clusters = {0, 1, 2, 3};
                  w.Text(run);
              }),
              "0 g\nBT\n/F1 1 Tf\n50 0 0 50 100 200 Tm\n[(AA)-250(A)] TJ\nET\nBT\n/F1 50 Tf\n200 225 Td\n(A) Tj\nET\n");
}

TEST(PsWriter, WritesInvisibleTextWithItsAdvances)
{
    EXPECT_EQ(Written([&](PsWriter& w) {
                  TextRun run = RunOf(nullptr, "iW");
                  run.positions = {{0, 0}, {0.25, 0}};
                  run.clusters = {0, 1};
                  run.advance = 1.25;
                  run.invisible = true;
                  w.Text(run);
              }),
              "q\nBT\n3 Tr\n/F1 50 Tf\n100 200 Td\n(iW) Tj\nET\nQ\n");
}

TEST(PsWriter, SplitsLongTexts)
{
    const TwoGlyphs face;
    const std::string text = Written([&](PsWriter& w) {
        TextRun run = RunOf(&face, std::string(100, 'A'));
        for (std::uint32_t i = 0; i < 100; ++i) {
            run.glyphs.push_back(7);
            run.positions.push_back({0.5 * i, 0});
            run.clusters.push_back(i);
        }
        w.Text(run);
    });
    std::string eighty, twenty;
    for (int i = 0; i < 80; ++i) {
        (i < 20 ? twenty : eighty) += 'A';
    }
    eighty += twenty;
    EXPECT_EQ(text, "0 g\nBT\n/F1 50 Tf\n100 200 Td\n(" + eighty + ") Tj\nET\nBT\n/F1 50 Tf\n2100 200 Td\n(" + twenty +
                        ") Tj\nET\n");
}

TEST(PsWriter, BeginsANewFontAfter255Glyphs)
{
    FontBook book;
    const TwoGlyphs face;
    for (std::uint32_t i = 0; i < 255; ++i) {
        const std::string text{static_cast<char>(0xE4 + i / 64), static_cast<char>(0x80 + i % 64), '\x80'};
        EXPECT_EQ(book.Visible(face, i + 1, text).font, 1);
    }
    EXPECT_EQ(book.Visible(face, 300, "A").font, 2);
    EXPECT_EQ(book.Visible(face, 300, "A").code, 'A');
    EXPECT_EQ(book.Visible(face, 1, "\xE4\x80\x80").font, 1);
    EXPECT_EQ(book.Names(), "F1 F2");
}

TEST(PsDocument, FramesAPage)
{
    const PsDocument document{"Gr\xC3\xB6\xC3\x9F"
                              "e (1)",
                              "Sheetmaker PDF",
                              210,
                              297,
                              1200,
                              1};
    EXPECT_EQ(EmptyDocumentText(document), R"(%!PS-Adobe-3.0
%%Title: (Gr\303\266\303\237e \(1\))
%%Creator: (Sheetmaker PDF)
%%BoundingBox: 0 0 596 842
%%HiResBoundingBox: 0 0 595.2756 841.8898
%%DocumentMedia: Sheet 595.2756 841.8898 0 () ()
%%LanguageLevel: 2
%%Pages: 1
%%PageOrder: Ascend
%%DocumentData: Clean7Bit
%%DocumentNeededResources:
%%DocumentSuppliedResources: procset SheetmakerPage 1.0 0
%%EndComments
%%BeginProlog
%%BeginResource: procset SheetmakerPage 1.0 0
/m/moveto load def
/l/lineto load def
/c/curveto load def
/h/closepath load def
/S/stroke load def
/f/fill load def
/f*/eofill load def
/q/gsave load def
/Q/grestore load def
/W/clip load def
/W*/eoclip load def
/n/newpath load def
/cm{6 array astore concat}bind def
/w/setlinewidth load def
/J/setlinecap load def
/j/setlinejoin load def
/M/setmiterlimit load def
/g/setgray load def
/G/setgray load def
/rg/setrgbcolor load def
/RG/setrgbcolor load def
/Di{dup/Data get dup 0 setfileposition 1 index/Filter get filter 1 index exch/DataSource exch put
dup/Space get dup null eq{pop imagemask}{setcolorspace image}ifelse}bind def
/Do{load dup/ImageType get 4 eq/currentdistillerparams where{pop}{pop false}ifelse{currentdistillerparams exch
<</AutoFilterColorImages false/ColorImageFilter/FlateEncode/DownsampleColorImages false/AutoFilterGrayImages false
/GrayImageFilter/FlateEncode/DownsampleGrayImages false>>setdistillerparams Di setdistillerparams}{Di}ifelse}bind def
/BT/gsave load def
/ET/grestore load def
/Tr/pop load def
/Tf/selectfont load def
/Tm{6 array astore concat 0 0 moveto}bind def
/Td/moveto load def
/Tj/show load def
/TJ{{dup type/stringtype eq{show}{-.001 mul 0 rmoveto}ifelse}forall}bind def
/d1/setcachedevice load def
/BDC{pop pop}bind def
/EMC{}def
/gs/pop load def
%%EndResource
%%EndProlog
%%BeginSetup
<</PageSize[595.2756 841.8898]>>setpagedevice
%%EndSetup
%%Page: 1 1
%%ViewingOrientation: 0 1 -1 0
q
0.06 0 0 0.06 0 0 cm
Q
%%PageTrailer
showpage
%%Trailer
%%EOF
)");
}

TEST(PsDocument, ListsItsFonts)
{
    const std::string text = DocumentText({"t", "c", 10, 10, 600, 0}, [](PsWriter& w) {
        TextRun run = RunOf(nullptr, "A\xD0\xB6");
        run.positions = {{0, 0}, {0.5, 0}};
        run.clusters = {0, 1};
        run.advance = 0.75;
        run.invisible = true;
        w.Text(run);
    });
    EXPECT_NE(text.find("%%DocumentSuppliedResources: procset SheetmakerPage 1.0 0\n%%+ font F1\n"), std::string::npos);
    EXPECT_NE(text.find(R"(%%BeginResource: font F1
13 dict begin/FontType 3 def/FontName/F1 def/FontMatrix[1 0 0 1 0 0]def
/FontBBox[0 -0.25 1 1]def
/Encoding 256 array 0 1 255{1 index exch/.notdef put}for
dup 65/uni0041 put
dup 128/uni0436 put
def
/FontInfo 2 dict dup begin/GlyphNames2Unicode 2 dict dup begin
/uni0041<0041>def
/uni0436<0436>def
end def end def
/W 256 array 0 1 255{1 index exch 0 put}for
dup 65 500 put
dup 128 250 put
def
/BuildChar{exch/W get exch get 1000 div 0 0 0 1 1 setcachedevice}bind def
FontName currentdict end definefont pop
%%EndResource
)"),
              std::string::npos);
    EXPECT_NE(text.find("0.12 0 0 0.12 0 0 cm\n"), std::string::npos);
}

TEST(PsDocument, LeavesNothingBehindWhenTheFolderIsMissing)
{
    PsWriter writer(1200, testing::TempDir());
    EXPECT_THROW(WriteDocument({}, writer, testing::TempDir() + "not-there/page.ps"), std::system_error);
}

TEST(BodyText, ComesBackInOrderWhenItSpilled)
{
    BodyText body(testing::TempDir(), 1);
    std::string expected;
    for (int i = 0; i < 400000; ++i) {
        const std::string line = "line " + std::to_string(i) + "\n";
        body.Append(line);
        expected += line;
    }
    std::string got;
    body.WriteTo([&](std::string_view piece) { got += piece; });
    EXPECT_TRUE(got == expected);
}

} // namespace
} // namespace sm::plotter
