// SPDX-License-Identifier: GPL-3.0-or-later
#include "plotter/LineSetter.h"

#include <gtest/gtest.h>

namespace sm::plotter {
namespace {

std::unique_ptr<LineSetter> Setter(std::vector<std::string>* remarks = nullptr)
{
    return LineSetter::Create(SM_SOURCE_DIR "/share/sheetmaker-pdf", [remarks](const std::string& remark) {
        if (remarks != nullptr) {
            remarks->push_back(remark);
        }
    });
}

TEST(LineSetter, LinesShareTheirFonts)
{
    const auto setter = Setter();
    const BodyLine first = setter->Set("AB", {"Arial", false, false}, 0x0000FF);
    EXPECT_EQ(first.body, "0 0 1 rg\nBT\n/F1 10000 Tf\n0 0 Td\n(AB) Tj\nET\n");
    EXPECT_NEAR(first.width, (1366 + 1366) / 2048.0, 1e-9);
    const BodyLine second = setter->Set("BC", {"Arial", false, false}, 0xFFFFFF);
    EXPECT_EQ(second.body, "1 g\nBT\n/F1 10000 Tf\n0 0 Td\n(BC) Tj\nET\n") << "a body of its own";
    const BodyLine bold = setter->Set("A", {"Arial", true, false}, 0);
    EXPECT_EQ(bold.body, "0 g\nBT\n/F2 10000 Tf\n0 0 Td\n(A) Tj\nET\n");
    const std::string fonts = setter->Fonts();
    EXPECT_NE(fonts.find("%%BeginResource: font F1\n"), std::string::npos);
    EXPECT_NE(fonts.find("/GlyphNames2Unicode 3 dict"), std::string::npos) << "A, B and C in one font";
    EXPECT_NE(fonts.find("%%BeginResource: font F2\n"), std::string::npos);
    EXPECT_EQ(fonts.find("%%BeginResource: font F3\n"), std::string::npos);
}

TEST(LineSetter, CharactersWithoutAFontAreBoxesAndTold)
{
    std::vector<std::string> remarks;
    const auto setter = Setter(&remarks);
    const BodyLine line = setter->Set("\U0001FBFF", {"Arial", false, false}, 0);
    EXPECT_EQ(remarks, std::vector<std::string>{"no font has these characters, drawn as boxes: other characters"});
    EXPECT_GT(line.width, 0.3);
    EXPECT_NE(setter->Fonts().find("/FontType 3 "), std::string::npos) << "drawn with a pen";
}

} // namespace
} // namespace sm::plotter
