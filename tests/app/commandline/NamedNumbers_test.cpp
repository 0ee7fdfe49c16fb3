// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/NamedNumbers.h"

#include <gtest/gtest.h>

namespace sm::app {
namespace {

TEST(NamedNumbers, AreWordsInSmallLetters)
{
    EXPECT_EQ(WordsOf(kPageSetupSources), (std::vector<std::string>{"native", "custom", "global"}));
    EXPECT_EQ(ListOf(kLineQualities), "0 print, 1 draft");
    EXPECT_EQ(WordOf(kPlotWindow, kPlotTypes), "window");
    EXPECT_EQ(WordOf(6, kPlotTypes), "");
}

TEST(NamedNumbers, AreFoundByTheirWordAlone)
{
    EXPECT_EQ(NumberOfWord("global", kPageSetupSources), std::optional<std::int32_t>(2));
    EXPECT_EQ(NumberOfWord("Global", kPageSetupSources), std::nullopt);
    EXPECT_EQ(NumberOfWord("", kPageSetupSources), std::nullopt);
}

} // namespace
} // namespace sm::app
