// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/TerminalWindows.h"

#include <gtest/gtest.h>
#include <sstream>
#include <stdexcept>

namespace sm::terminal {
namespace {

const std::vector<std::string> kPapers = {
    "ANSI A (8.50 x 11.00 Inches)",  "ANSI A (11.00 x 8.50 Inches)", "ANSI D (22.00 x 34.00 Inches)",
    "ANSI D (34.00 x 22.00 Inches)", "ISO A0 (1189.00 x 841.00 MM)", "ISO A1 (594.00 x 841.00 MM)",
    "ISO A1 (841.00 x 594.00 MM)",   "ISO A3 (297.00 x 420.00 MM)",  "ISO A3 (420.00 x 297.00 MM)",
    "ISO A4 (210.00 x 297.00 MM)",
};

struct NameRow {
    const char* name;
    std::optional<Paper> paper;
};

TEST(PaperOfName, ReadsTheSidesInMillimetres)
{
    const NameRow rows[] = {
        {"ISO A3 (297.00 x 420.00 MM)", Paper{297, 420}},
        {"ARCH E1 (30.00 x 42.00 Inches)", Paper{762, 1066.8}},
        {"Letter", std::nullopt},
        {"Odd (12 MM)", std::nullopt},
        {"Odd (a x b MM)", std::nullopt},
        {"Odd (0 x 5 MM)", std::nullopt},
        {"Odd (nan x 5 MM)", std::nullopt},
        {"Cut (12 x", std::nullopt},
        {"", std::nullopt},
    };
    for (const NameRow& row : rows)
        EXPECT_EQ(PaperOfName(row.name), row.paper) << row.name;
}

struct ChoiceRow {
    const char* name;
    Paper wanted;
    std::optional<std::int32_t> position;
};

TEST(NearestLarger, TakesLikeProportionAndNeverASmallerSheet)
{
    const ChoiceRow rows[] = {
        {"B3Portrait", {353, 500}, 5},
        {"B3Landscape", {500, 353}, 6},
        {"A little larger than A3", {304, 430}, 5},
        {"A hair larger than A3", {299, 422}, 7},
        {"Square fits the smallest at all", {400, 400}, 2},
        {"Wide strip", {1000, 200}, 4},
        {"Larger than all", {1300, 500}, std::nullopt},
        {"No size", {0, 0}, std::nullopt},
    };
    for (const ChoiceRow& row : rows)
        EXPECT_EQ(NearestLarger(kPapers, row.wanted), row.position) << row.name;
}

TEST(LargestLike, TakesTheLargestOfLikeProportionElseOfAll)
{
    const std::vector<std::string> names{"A (100 x 200 MM)", "B (200 x 100 MM)", "C (300 x 150 MM)",
                                         "D (400 x 400 MM)"};
    EXPECT_EQ(LargestLike(names, {3000, 1500}), 2);
    EXPECT_EQ(LargestLike(names, {1500, 3000}), 0);
    EXPECT_EQ(LargestLike(names, {9000, 1000}), 3);
    EXPECT_EQ(LargestLike({"nameless"}, {9000, 1000}), std::nullopt);
}

class Windows : public testing::Test {
protected:
    std::unique_ptr<IWindows> Make(std::optional<Paper> wanted = {})
    {
        return CreateTerminalWindows(m_console, {[wanted] { return wanted; },
                                                 [this](const std::string& reason) { m_refused.push_back(reason); }});
    }
    std::ostringstream m_out;
    Console m_console{m_out, true};
    std::vector<std::string> m_refused;
};

TEST_F(Windows, PlotWithoutAStyleTableThatIsMissing)
{
    EXPECT_EQ(Make()->PickPlotStyle({"None", "monochrome.ctb"}), 0);
    EXPECT_EQ(m_out.str(), "warning: the plot style table wasn't found; plotting without one\n");
    EXPECT_EQ(Make()->PickPlotStyle({"monochrome.ctb"}), std::nullopt);
}

TEST_F(Windows, CancelJobOptionsAndListThoseThatAreThere)
{
    EXPECT_EQ(Make()->PickJobOptions({"Graphics [600 dpi]", "Screen"}), std::nullopt);
    EXPECT_EQ(m_refused, std::vector<std::string>{
                             "The job options can't be used. Those installed are: Graphics [600 dpi], Screen."});
    EXPECT_EQ(m_out.str(), "error: The job options can't be used. Those installed are: Graphics [600 dpi], Screen.\n");
}

TEST_F(Windows, TakeTheNearestLargerPaper)
{
    EXPECT_EQ(Make(Paper{353, 500})->PickPageSize(kPapers), 5);
    EXPECT_EQ(m_out.str(), "warning: there is no paper of 353 x 500 mm; plotting on ISO A1 (594.00 x 841.00 MM)\n");
    EXPECT_TRUE(m_refused.empty());
}

TEST_F(Windows, CancelPaperThatNothingHolds)
{
    EXPECT_EQ(Make(Paper{2000, 3000})->PickPageSize(kPapers), std::nullopt);
    EXPECT_EQ(Make()->PickPageSize(kPapers), std::nullopt);
    EXPECT_EQ(m_refused,
              (std::vector<std::string>{"The sheet's paper of 2000 x 3000 mm is larger than every size of the PDF "
                                        "plotter; --page-setup global takes that of the global page setup.",
                                        "The sheet's paper isn't among the sizes of the PDF plotter, and its size "
                                        "isn't known; --page-setup global takes that of the global page setup."}));
}

TEST_F(Windows, NameTheCommandsThatStandForTheDialogs)
{
    EXPECT_EQ(Make()->ShowConversionSettings(), 0);
    EXPECT_EQ(m_out.str(), "There is no screen for the settings dialog: \"sheetmaker list\", \"sheetmaker get\" and "
                           "\"sheetmaker set\" show and change the settings.\n");
}

TEST_F(Windows, ShowProgressWhileTheDrawingIsScanned)
{
    EXPECT_TRUE(Make()->RunProgress([](const auto& advance) {
        advance(12.6);
        advance(250);
        return true;
    }));
    EXPECT_EQ(m_out.str(), "\r\x1b[Kscanning for hyperlinks and attributes: 13 %"
                           "\r\x1b[Kscanning for hyperlinks and attributes: 100 %\r\x1b[K");
    EXPECT_FALSE(Make()->RunProgress([](const auto&) { return false; }));
}

TEST_F(Windows, TakeTheProgressLineAwayWhenTheScanFails)
{
    EXPECT_THROW(Make()->RunProgress([](const auto& advance) -> bool {
        advance(1);
        throw std::runtime_error("lost");
    }),
                 std::runtime_error);
    EXPECT_EQ(m_out.str(), "\r\x1b[Kscanning for hyperlinks and attributes: 1 %\r\x1b[K");
}

} // namespace
} // namespace sm::terminal
