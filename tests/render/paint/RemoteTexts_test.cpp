// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/SmallDrawing.h"

#include <gtest/gtest.h>

namespace sm::render {
namespace {

TEST(RemoteTexts, AreDrawnWhereTheyHoldTheirText)
{
    SmallDrawing drawing;
    drawing.entities = "0 RTEXT | 8 0 | 10 5 | 20 6 | 40 2 | 70 1 | 1 Plain |"
                       "0 RTEXT | 8 0 | 10 5 | 20 6 | 40 2 | 70 0 | 1 notes.txt";
    const Drawn drawn = Render(drawing);
    EXPECT_EQ(drawn.counts, "drawn 1 not drawn 1");
    EXPECT_EQ(drawn.notDrawn, std::vector<std::string>{"RTEXT 0 1"});
    const auto named = [](const std::string& line) { return line.find("Plain") != std::string::npos; };
    EXPECT_EQ(std::count_if(drawn.lines.begin(), drawn.lines.end(), named), 1);
}

} // namespace
} // namespace sm::render
