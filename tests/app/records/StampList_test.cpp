// SPDX-License-Identifier: GPL-3.0-or-later
// Which entry of the stamp list a wanted text takes.
#include "commandline/Refusal.h"
#include "records/StampList.h"

#include <gtest/gtest.h>
#include <map>

namespace sm::app {
namespace {

const StampTexts kFresh = {"",
                           "DRAFT PRINT",
                           "FOR REVIEW",
                           "DO NOT BUILD TO PRINT",
                           "PROPRIETARY - DO NOT DISTRIBUTE",
                           "EMAILED ON &[Date]",
                           "PRINTED ON &[Date]",
                           "PRELIMINARY - &[User] - &[Date]",
                           "FOR BID ONLY - &[Date]",
                           "ENGINEERING PRE-RELEASE - &[Date]",
                           "&[Path] - &[Date]",
                           "STAMP 11",
                           "STAMP 12",
                           "STAMP 13",
                           "STAMP 14",
                           "STAMP 15"};

StampTexts With(const std::map<std::size_t, std::string>& changes)
{
    StampTexts texts = kFresh;
    for (const auto& [index, text] : changes)
        texts[index] = text;
    return texts;
}

struct ChoiceRow {
    const char* name;
    StampTexts texts;
    const char* wanted;
    std::int32_t index;
    const char* text;
    bool isNew;
};

const ChoiceRow kChoices[] = {
    {"Number", kFresh, "2", 2, "FOR REVIEW", false},
    {"LastNumber", kFresh, "15", 15, "STAMP 15", false},
    {"EqualText", kFresh, "DRAFT PRINT", 1, "DRAFT PRINT", false},
    {"NewText", kFresh, "AS BUILT", 11, "AS BUILT", true},
    {"OtherCase", kFresh, "Draft print", 11, "Draft print", true},
    {"FirstFree", With({{11, "A"}, {12, "B"}}), "AS BUILT", 13, "AS BUILT", true},
    {"StoredBefore", With({{11, "A"}, {12, "AS BUILT"}}), "AS BUILT", 12, "AS BUILT", false},
    {"EarlierEntriesStay", With({{3, "X"}}), "AS BUILT", 11, "AS BUILT", true},
};

TEST(StampList, ChoosesAnEntry)
{
    for (const ChoiceRow& row : kChoices) {
        const StampChoice choice = ChooseStamp(row.texts, row.wanted);
        EXPECT_EQ(choice.index, row.index) << row.name;
        EXPECT_EQ(choice.text, row.text) << row.name;
        EXPECT_EQ(choice.isNew, row.isNew) << row.name;
    }
}

std::string RefusalOf(const StampTexts& texts, const std::string& wanted)
{
    try {
        ChooseStamp(texts, wanted);
    } catch (const Refusal& refusal) {
        EXPECT_EQ(refusal.exitCode, 2);
        return refusal.text;
    }
    return "nothing";
}

TEST(StampList, RefusesWhatItCantHold)
{
    EXPECT_EQ(RefusalOf(kFresh, "16"), "the stamp list has the entries 1 to 15, not 16; a text of digits alone is "
                                       "stored by \"sheetmaker set Stamp11 16\" and chosen by its number");
    EXPECT_EQ(RefusalOf(kFresh, ""), "--text takes a text; \"stamp DRAWING remove\" takes the stamp away");
    EXPECT_EQ(
        RefusalOf(With({{11, "A"}, {12, "B"}, {13, "C"}, {14, "D"}, {15, "E"}}), "F"),
        "the stamp list is full; change an entry by \"sheetmaker set Stamp11 TEXT\", or choose one by its number:\n"
        "   1 DRAFT PRINT\n   2 FOR REVIEW\n   3 DO NOT BUILD TO PRINT\n   4 PROPRIETARY - DO NOT DISTRIBUTE\n"
        "   5 EMAILED ON &[Date]\n   6 PRINTED ON &[Date]\n   7 PRELIMINARY - &[User] - &[Date]\n"
        "   8 FOR BID ONLY - &[Date]\n   9 ENGINEERING PRE-RELEASE - &[Date]\n  10 &[Path] - &[Date]\n"
        "  11 A\n  12 B\n  13 C\n  14 D\n  15 E");
}

} // namespace
} // namespace sm::app
