// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/Texts.h"
#include "plotter/FakeDrawing.h"
#include "render/TextLayout.h"

#include <gtest/gtest.h>

namespace sm::render {
namespace {

/// Widths in heights, as CAD programs left them in drawings: between a text's two points, and of MTEXT boxes.
struct WidthRow {
    const char* font;
    const char* text;
    double width;
};

void Check(const std::vector<WidthRow>& rows, double tolerance, double least)
{
    const auto engine = TextEngine::Create({SM_SOURCE_DIR "/share/sheetmaker-pdf", ""});
    for (const WidthRow& row : rows) {
        SCOPED_TRACE(std::string(row.font) + " " + row.text);
        plotter::FakeDrawing drawing;
        drawing::TextStyle style;
        style.fontFile = row.font;
        drawing.styles = {style};
        drawing::TextData text;
        text.text = row.text;
        text.height = 1;
        const LaidText& laid = engine->Lay(drawing, text);
        ASSERT_EQ(laid.outline.size(), 4U);
        EXPECT_NEAR(laid.outline[1].x - laid.outline[0].x, row.width, std::max(least, tolerance * row.width));
    }
}

TEST(FontWidths, OutlineFontsAreAsWideAsThoseTheyStandFor)
{
    Check({{"arial.ttf", "CENTER", 5.739},
           {"arial.ttf", "3068", 3.1078},
           {"arial.ttf", "Bill of Materials", 9.4714},
           {"arial.ttf", "13'4 x 12'8", 6.6698},
           {"arial.ttf", "BOTTOM_CENTER_gjpqy", 16.599},
           {"arialn.ttf", "BOTTOM_CENTER_gjpqy", 13.6256},
           {"ariblk.ttf", "CENTER", 6.3654},
           {"ariblk.ttf", "BOTTOM_RIGHT", 12.4194},
           {"sourcecodepro-regular.ttf", "BOTTOM_CENTER_gjpqy", 17.385},
           {"swisseb.ttf", "FLORIDA GLASS", 13.4118},
           {"swisseb.ttf", "OF TAMPA BAY", 12.3448}},
          0.012, 0.01);
}

TEST(FontWidths, StrokeFontsAreAboutAsWideAsThoseTheyStandFor)
{
    Check({{"txt", "CENTER", 5.6667},
           {"txt", "RIGHT", 4.3403},
           {"txt", "HI", 1.3333},
           {"txt", "BOTTOM_RIGHT", 11.3403},
           {"txt", "BOTTOM_CENTER_gjpqy", 18.5},
           {"txt", "SCALE 2:1", 7.6667},
           {"txt", "DETAIL \"A\"", 8.6667},
           {"txt", "(   )", 4.0},
           {"txt", "X 90%%D", 4.1667},
           {"simplex.shx", "A", 0.7619},
           {"simplex.shx", "NTS", 2.5714},
           {"simplex.shx", "13009 LYNMAR BOULEVARD", 20.8571},
           {"simplex.shx", "TAMPA, FLORIDA 33626", 17.9524},
           {"simplex.shx", "PHONE: (813) 925-1330", 19.0},
           {"simplex.shx", "FAX: (813) 925-1331", 16.381},
           {"romant.shx", "1.0", 2.0952},
           {"romant.shx", "KM1", 2.9048},
           {"romant.shx", "SB2", 2.619},
           {"romant.shx", "В1.1", 3.1429},
           {"romant.shx", "ШР4", 3.2857},
           {"romant.shx", "!!ERR(NMO_Name)!!", 15.381},
           {"romant.shx", "!!ERR(Power)!!", 11.0476},
           {"italic.shx", "sym", 3.2857}},
          0.085, 0.25);
}

} // namespace
} // namespace sm::render
