// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/SmallDrawing.h"

#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>
#include <numbers>

namespace sm::render {
namespace {

/// "A 40.0 50.0 87": a letter, where its base line begins, and its turn in degrees.
std::string LetterOf(const std::string& line)
{
    double a = 0, b = 0, c = 0, d = 0, x = 0, y = 0;
    char letter[8]{}, place[64];
    if (std::sscanf(line.c_str(), "text %*s [%lf %lf %lf %lf %lf %lf] %7s", &a, &b, &c, &d, &x, &y, letter) != 7)
        return {};
    const double degrees = std::round(std::atan2(b, a) * 180 / std::numbers::pi);
    std::snprintf(place, sizeof(place), "%s %.1f %.1f %.0f", letter, x, y, degrees == 0 ? 0 : degrees);
    return place;
}

std::vector<std::string> LettersOf(const std::vector<std::string>& lines)
{
    std::vector<std::string> letters;
    for (const std::string& line : lines)
        if (const std::string letter = LetterOf(line); !letter.empty())
            letters.push_back(letter);
    return letters;
}

using Letters = std::vector<std::string>;

struct ArcTextRow {
    const char* name;
    const char* tags; ///< besides centre (50, 50), radius 10, height 2, from 0 to 180 degrees
    Letters letters;  ///< each 1.2 wide
};

class ArcTexts : public testing::TestWithParam<ArcTextRow> {};

TEST_P(ArcTexts, StandAlongTheirArc)
{
    SmallDrawing drawing;
    drawing.entities = "0 ARCALIGNEDTEXT | 8 0 | 10 50 | 20 50 | 40 10 | 42 2 | 50 0 | 51 180 | 1 AB | " +
                       std::string(GetParam().tags);
    const Drawn drawn = Render(drawing);
    EXPECT_EQ(drawn.counts, "drawn 1");
    EXPECT_EQ(LettersOf(drawn.lines), GetParam().letters);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ArcTexts,
    testing::Values(
        ArcTextRow{"FromTheLeft", "72 2", {"A 40.0 50.0 87", "B 40.1 51.2 80"}},
        ArcTextRow{"FromTheRight", "72 3", {"A 59.7 52.4 -80", "B 59.9 51.2 -87"}},
        ArcTextRow{"InTheMiddle", "72 4", {"A 48.8 59.9 3", "B 50.0 60.0 -3"}},
        ArcTextRow{"NotSaidWhere", "8 0", {"A 48.8 59.9 3", "B 50.0 60.0 -3"}},
        ArcTextRow{"OverAllOfIt", "72 1 | 1 ABC", {"A 40.0 50.0 87", "B 49.4 60.0 0", "C 59.9 51.2 -87"}},
        ArcTextRow{"OneLetterOverAll", "72 1 | 1 A", {"A 49.4 60.0 0"}},
        ArcTextRow{"WithSpacing", "72 2 | 43 1", {"A 40.0 50.0 87", "B 40.2 52.2 74"}},
        ArcTextRow{"AwayFromTheArcAndItsLeftEnd", "72 2 | 44 0.5 | 46 3 | 45 9", {"A 39.9 53.0 70", "B 40.3 54.1 64"}},
        ArcTextRow{"AwayFromItsRightEnd", "72 3 | 44 0.5 | 45 3 | 46 9", {"A 59.2 55.2 -64", "B 59.7 54.1 -70"}},
        ArcTextRow{"InwardOutside", "72 2 | 71 2 | 50 180 | 51 0", {"A 38.0 50.0 -87", "B 38.0 48.8 -81"}},
        ArcTextRow{"InwardInside", "72 2 | 71 2 | 73 2 | 50 180 | 51 0", {"A 40.0 50.0 -87", "B 40.1 48.8 -80"}},
        ArcTextRow{"OutwardInside", "72 2 | 73 2", {"A 42.0 50.0 86", "B 42.1 51.2 77"}},
        ArcTextRow{"WithCodes", "72 2 | 1 A%%066", {"A 40.0 50.0 87", "B 40.1 51.2 80"}},
        ArcTextRow{"WithUnicodeCodes", "72 2 | 1 \\U+0041B", {"A 40.0 50.0 87", "B 40.1 51.2 80"}},
        ArcTextRow{"Underlined", "72 2 | 1 A%%uB", {"A 40.0 50.0 87", "%%uB 40.1 51.2 80"}},
        ArcTextRow{"UnderlinedAll", "72 2 | 76 1 | 1 A%%kB", {"%%uA 40.0 50.0 87", "%%u%%kB 40.1 51.2 80"}},
        ArcTextRow{"FromRightToLeft", "72 2 | 1 \\U+05D0A", {"A 40.0 50.0 87", "א 40.0 51.2 76"}},
        ArcTextRow{"Reversed", "72 2 | 70 1", {"B 40.0 50.0 87", "A 40.1 51.2 80"}},
        ArcTextRow{"ArcOverTheXAxis", "72 4 | 50 270 | 51 90", {"A 59.9 51.2 -87", "B 60.0 50.0 -93"}}),
    [](const testing::TestParamInfo<ArcTextRow>& row) { return row.param.name; });

struct LostArcTextRow {
    const char* name;
    const char* tags;
};

TEST(LostArcTexts, AreTold)
{
    const LostArcTextRow rows[] = {{"no radius", "40 0 | 42 2"},
                                   {"inside an arc that is smaller than its letters", "40 1 | 42 2 | 73 2"},
                                   {"no height", "40 10"}};
    for (const LostArcTextRow& row : rows) {
        SmallDrawing drawing;
        drawing.entities = "0 ARCALIGNEDTEXT | 8 0 | 10 50 | 20 50 | 1 AB | " + std::string(row.tags);
        const Drawn drawn = Render(drawing);
        EXPECT_EQ(drawn.counts, "not drawn 1") << row.name;
        EXPECT_EQ(drawn.notDrawn, std::vector<std::string>{"ARCALIGNEDTEXT 0 1"}) << row.name;
    }
}

} // namespace
} // namespace sm::render
