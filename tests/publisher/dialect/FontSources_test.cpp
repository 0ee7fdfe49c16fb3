// SPDX-License-Identifier: GPL-3.0-or-later
// A page's comments on the file that a font's glyphs were taken from.
#include "dialect/DialectPage.h"

#include <gtest/gtest.h>
#include <ostream>

namespace sm::publisher {
namespace {

std::string ResourceWith(const std::string& comments)
{
    return "%%BeginResource: font F1\n" + comments +
           "13 dict begin/FontType 3 def/FontName/F1 def/FontMatrix[1 0 0 1 0 0]def\n/FontBBox[0 -0.25 1 1]def\n"
           "/Encoding 256 array 0 1 255{1 index exch/.notdef put}for\ndef\n"
           "/FontInfo 2 dict dup begin/GlyphNames2Unicode 0 dict dup begin\nend def end def\n"
           "/W 256 array 0 1 255{1 index exch 0 put}for\ndef\n"
           "/BuildChar{exch/W get exch get 1000 div 0 0 0 1 1 setcachedevice}bind def\n"
           "FontName currentdict end definefont pop\n%%EndResource\n";
}

/// "<face>: <curves> <index> <path> <glyphs>", or what is refused.
std::string SourceTold(const std::string& comments)
{
    const auto fonts = ReadDialectFonts(ResourceWith(comments));
    if (!fonts) {
        return "no page of the plotter's";
    }
    const FontSource& source = fonts->front().source;
    std::string told = fonts->front().face + ": " + (source.curves == Curves::Cubic ? "cubic " : "quadratic ") +
                       std::to_string(source.index) + " " + source.path;
    for (const std::uint32_t glyph : source.glyphs) {
        told += " " + std::to_string(glyph);
    }
    return told;
}

struct SourceRow {
    const char* name;
    const char* comments;
    const char* told;
    friend void PrintTo(const SourceRow& row, std::ostream* out) { *out << row.name; }
};

class FontSources : public testing::TestWithParam<SourceRow> {};

TEST_P(FontSources, AreReadOrRefused)
{
    EXPECT_EQ(SourceTold(GetParam().comments), GetParam().told);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FontSources,
    testing::Values(SourceRow{"None", "", ": quadratic 0 "}, SourceRow{"NameAlone", "% Arial\n", "Arial: quadratic 0 "},
                    SourceRow{"Quadratic", "% Arial\n% Quadratic 0 /f/a.ttf\n% Glyphs 36 37\n",
                              "Arial: quadratic 0 /f/a.ttf 36 37"},
                    SourceRow{"Cubic", "% Gothic\n% Cubic 2 /f/g.otc\n% Glyphs 34\n", "Gothic: cubic 2 /f/g.otc 34"},
                    SourceRow{"PathWithBlanks", "% Arial\n% Quadratic 0 C:/My Fonts/a.ttf\n% Glyphs 36\n",
                              "Arial: quadratic 0 C:/My Fonts/a.ttf 36"},
                    SourceRow{"TwoLinesOfGlyphs", "% Arial\n% Quadratic 0 /a\n% Glyphs 1 2\n% Glyphs 3\n",
                              "Arial: quadratic 0 /a 1 2 3"},
                    SourceRow{"NoGlyphs", "% Arial\n% Quadratic 0 /a\n", "Arial: quadratic 0 /a"},
                    SourceRow{"NoPath", "% Arial\n% Quadratic 0 \n% Glyphs 1\n", "no page of the plotter's"},
                    SourceRow{"NoIndex", "% Arial\n% Quadratic /a\n% Glyphs 1\n", "no page of the plotter's"},
                    SourceRow{"IndexTooLarge", "% Arial\n% Cubic 99999999999 /a\n% Glyphs 1\n",
                              "no page of the plotter's"},
                    SourceRow{"GlyphNoNumber", "% Arial\n% Cubic 0 /a\n% Glyphs 1 x\n", "no page of the plotter's"},
                    SourceRow{"GlyphBelowZero", "% Arial\n% Cubic 0 /a\n% Glyphs -1\n", "no page of the plotter's"},
                    SourceRow{"TextBehindGlyphs", "% Arial\n% Cubic 0 /a\n% Glyphs 1,\n", "no page of the plotter's"},
                    SourceRow{"OtherComment", "% Arial\n% Fonts 0 /a\n", "no page of the plotter's"}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace sm::publisher
