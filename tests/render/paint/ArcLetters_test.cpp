// SPDX-License-Identifier: GPL-3.0-or-later
#include "families/ArcLetters.h"

#include <gtest/gtest.h>

namespace sm::render {
namespace {

struct CutRow {
    const char* name;
    const char* line;
    const char* letters; ///< each with its codes, from left to right, "|" between two
    bool underlined = false;
};

class ArcLetters : public testing::TestWithParam<CutRow> {};

TEST_P(ArcLetters, StandAsTheyAreSeen)
{
    std::string letters;
    for (const ArcLetter& letter : CutIntoLetters(GetParam().line, GetParam().underlined))
        letters += (letters.empty() ? "" : "|") + letter.codes + letter.text;
    EXPECT_EQ(letters, GetParam().letters);
}

INSTANTIATE_TEST_SUITE_P(Rows, ArcLetters,
                         testing::Values(CutRow{"Nothing", "", ""}, CutRow{"Letters", "A b7", "A| |b|7"},
                                         CutRow{"Codes", "A%%uB%%oC%%u%%oD%%kE", "A|%%uB|%%u%%oC|D|%%kE"},
                                         CutRow{"UnderlinedAll", "A%%kB", "%%uA|%%u%%kB", true},
                                         CutRow{"MarksStayWithTheirLetter", "e\u0301a\u0308\u0304o",
                                                "e\u0301|a\u0308\u0304|o"},
                                         CutRow{"AMarkAtTheBeginning", "\u0301a", "\u0301|a"},
                                         CutRow{"Hebrew", "\u05D0\u05D1\u05D2", "\u05D2|\u05D1|\u05D0"},
                                         CutRow{"HebrewWithPoints", "\u05D0\u05B8\u05D1", "\u05D1|\u05D0\u05B8"},
                                         CutRow{"HebrewWithinALine", "A \u05D0\u05D1 B", "A| |\u05D1|\u05D0| |B"},
                                         CutRow{"HebrewWithANumber", "\u05D0 12", "1|2| |\u05D0"},
                                         CutRow{"BracketsTurn", "\u05D0(\u05D1)\u05D2", "\u05D2|(|\u05D1|)|\u05D0"},
                                         CutRow{"CodesStayWithTheirLetter", "\u05D0%%u\u05D1", "%%u\u05D1|\u05D0"},
                                         CutRow{"ArabicWordsStayWhole", "\u0628\u064A\u062A \u062F\u0627\u0631",
                                                "\u062F\u0627\u0631| |\u0628\u064A\u062A"},
                                         CutRow{"DevanagariWordsStayWhole", "\u0928\u0915\u094D\u0936\u093E A",
                                                "\u0928\u0915\u094D\u0936\u093E| |A"},
                                         CutRow{"Chinese", "\u56FE\u7EB8", "\u56FE|\u7EB8"}),
                         [](const testing::TestParamInfo<CutRow>& row) { return row.param.name; });

} // namespace
} // namespace sm::render
