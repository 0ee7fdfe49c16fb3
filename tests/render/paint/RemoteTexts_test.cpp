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
    ASSERT_EQ(drawn.lines.size(), 1U);
    EXPECT_NE(drawn.lines.front().find("Plain"), std::string::npos) << drawn.lines.front();
}

} // namespace
} // namespace sm::render
