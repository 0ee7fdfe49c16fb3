// SPDX-License-Identifier: GPL-3.0-or-later
// Thin lines in pixels.
#include "picture/Hairline.h"

#include <array>
#include <gmock/gmock.h>
#include <limits>
#include <string>

namespace sm::scene {
namespace {

/// White paper of 12 x 6 pixels, with a frame round it that must stay untouched.
struct Paper {
    static constexpr int kWidth = 12, kHeight = 6;
    std::array<std::uint32_t, kWidth * kHeight> pixels;
    Paper() { pixels.fill(0xFFFFFFFF); }
    Raster All() { return {pixels.data(), kWidth, 0, 0, kWidth, kHeight}; }
    /// '#' dark, '+' grey, '.' white.
    [[nodiscard]] std::string Row(int y) const
    {
        std::string row;
        for (int x = 0; x < kWidth; ++x) {
            const std::uint32_t level = pixels[static_cast<std::size_t>(y * kWidth + x)] & 0xFF;
            row += level < 0x40 ? '#' : level < 0xF0 ? '+' : '.';
        }
        return row;
    }
};

TEST(Hairline, LevelLinesAreCrisp)
{
    Paper paper;
    DrawHairline(paper.All(), {2, 3.2}, {9, 3.2}, 0, 255);
    EXPECT_EQ(paper.Row(2), "............");
    EXPECT_EQ(paper.Row(3), "..#######...");
    EXPECT_EQ(paper.Row(4), "............");
}

TEST(Hairline, UprightLinesAreCrisp)
{
    Paper paper;
    DrawHairline(paper.All(), {4.9, 5}, {4.9, 1}, 0, 255);
    EXPECT_EQ(paper.Row(0), "............");
    for (int y = 1; y < 5; ++y)
        EXPECT_EQ(paper.Row(y), "....#.......") << y;
    EXPECT_EQ(paper.Row(5), "............");
}

TEST(Hairline, SlantedLinesAreShared)
{
    Paper paper;
    DrawHairline(paper.All(), {0, 1.5}, {12, 4.5}, 0, 255);
    int ink = 0;
    for (const std::uint32_t pixel : paper.pixels)
        ink += 255 - static_cast<int>(pixel & 0xFF);
    EXPECT_NEAR(ink, 12 * 255, 12 * 6) << "a pixel's ink for each column";
}

TEST(Hairline, NothingIsDrawnOffTheRaster)
{
    Paper paper;
    Raster inner = paper.All();
    inner.left = 3;
    inner.right = 6;
    inner.top = 2;
    inner.bottom = 4;
    DrawHairline(inner, {-1e9, 3.5}, {1e9, 3.5}, 0, 255);
    DrawHairline(inner, {-50, -50}, {50, 50}, 0, 255);
    DrawHairline(inner, {0, 100}, {12, 100}, 0, 255);
    DrawDot(inner, {2.9, 3}, 0, 255);
    DrawDot(inner, {std::numeric_limits<double>::quiet_NaN(), 3}, 0, 255);
    EXPECT_EQ(paper.Row(3), "...###......");
    for (const int y : {0, 1, 4, 5})
        EXPECT_EQ(paper.Row(y), "............") << y;
}

TEST(Hairline, OpacityMixesWithWhatIsThere)
{
    Paper paper;
    DrawDot(paper.All(), {1, 1}, 0xFF0000, 128);
    EXPECT_EQ(paper.pixels[13], 0xFFFF7E7EU);
    DrawDot(paper.All(), {1, 1}, 0x00FF00, 255);
    EXPECT_EQ(paper.pixels[13], 0xFF00FF00U);
}

TEST(Hairline, ALineWithoutLengthIsADot)
{
    Paper paper;
    DrawHairline(paper.All(), {5.5, 2.5}, {5.5, 2.5}, 0, 255);
    EXPECT_EQ(paper.Row(2), ".....#......");
}

} // namespace
} // namespace sm::scene
