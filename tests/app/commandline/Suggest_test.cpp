// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/Suggest.h"

#include <gtest/gtest.h>

namespace sm::app {
namespace {

const std::vector<std::string> kNames = {"Sheet 1", "Sheet 2", "Ground floor", "Model"};

struct SuggestRow {
    const char* wanted;
    const char* expected;
};

TEST(FindName, IgnoresLetterCaseButPrefersTheExactSpelling)
{
    const SuggestRow rows[] = {
        {"Sheet 1", "Sheet 1"}, {"sheet 1", "Sheet 1"}, {"MODEL", "Model"}, {"Sheet", ""}, {"", ""}};
    for (const SuggestRow& row : rows)
        EXPECT_EQ(FindName(row.wanted, kNames), row.expected) << row.wanted;
    EXPECT_EQ(FindName("a", {"A", "a"}), "a");
    EXPECT_EQ(FindName("план", {"Лист1", "ПЛАН"}), "ПЛАН");
    EXPECT_EQ(FindName("GRUNDRI\u00DF \u00C4", {"Grundri\u00DF a\u0308"}), "Grundri\u00DF a\u0308");
}

TEST(NearestName, ForgivesAFewLetters)
{
    const SuggestRow rows[] = {
        {"Shet 1", "Sheet 1"},
        {"sheet2", "Sheet 2"},
        {"Ground", "Ground floor"},
        {"Grund flor", "Ground floor"},
        {"Mdoel", "Model"},
        {"Roof", ""},
        {"", ""},
        {"completely different", ""},
    };
    for (const SuggestRow& row : rows)
        EXPECT_EQ(NearestName(row.wanted, kNames), row.expected) << row.wanted;
}

TEST(Suggestion, AsksOrSaysNothing)
{
    EXPECT_EQ(Suggestion("Shet 1", kNames), "; did you mean \"Sheet 1\"?");
    EXPECT_EQ(Suggestion("Roof", kNames), "");
    EXPECT_EQ(QuotedList({"A", "B c"}), "\"A\", \"B c\"");
    EXPECT_EQ(QuotedList({}), "");
}

} // namespace
} // namespace sm::app
