// SPDX-License-Identifier: GPL-3.0-or-later
// Names as they are compared.
#include "base/text/Names.h"

#include <clocale>
#include <gtest/gtest.h>

namespace sm::base {
namespace {

struct FoldRow {
    const char* name;
    std::string text, folded;
};

class FoldCaseOf : public testing::TestWithParam<FoldRow> {};

TEST_P(FoldCaseOf, Gives)
{
    EXPECT_EQ(FoldCase(GetParam().text), GetParam().folded);
    EXPECT_EQ(FoldCase(GetParam().folded), GetParam().folded) << "folding twice";
    EXPECT_TRUE(SameName(GetParam().text, GetParam().folded));
}

INSTANTIATE_TEST_SUITE_P(
    Names, FoldCaseOf,
    testing::Values(
        FoldRow{"Empty", "", ""}, FoldRow{"Ascii", "Layer_0-AZ[]", "layer_0-az[]"},
        FoldRow{"Cyrillic", "ПЛАН Ёж Ґ Ѣ", "план ёж ґ ѣ"}, FoldRow{"Greek", "ΣΊΣΥΦΟΣ σίσυφος", "σίσυφοσ σίσυφοσ"},
        FoldRow{"Latin", "ÄÖÜ ČŠŽ Ł Ø Ÿ Æ Ħ", "äöü čšž ł ø ÿ æ ħ"}, FoldRow{"Armenian", "ԱԲ", "աբ"},
        FoldRow{"FullWidth", "Ａ１", "ａ１"}, FoldRow{"Vietnamese", "ẮẶ", "ắặ"},
        FoldRow{"SharpS", "Straße STRASSE ẞ", "straße strasse ß"}, FoldRow{"TurkishLettersStay", "İ ı I i", "İ ı i i"},
        FoldRow{"LongS", "ſ", "s"}, FoldRow{"KelvinAndMicro", "\xE2\x84\xAA \xC2\xB5", "k \xCE\xBC"},
        FoldRow{"JoinsAccents", "E\xCC\x81 e\xCC\x81 \xC3\x89", "\xC3\xA9 \xC3\xA9 \xC3\xA9"},
        FoldRow{"JoinsShortI", "\xD0\x98\xCC\x86", "\xD0\xB9"}, FoldRow{"Chinese", "平面图", "平面图"},
        FoldRow{"Hangul", "\xE1\x84\x80\xE1\x85\xA1", "\xEA\xB0\x80"},
        FoldRow{"BeyondTheFirstPlane", "\xF0\x90\x90\x80", "\xF0\x90\x90\xA8"},
        FoldRow{"NoUtf8", "A\xFF\xC3", "a\xFF\xC3"}, FoldRow{"NoUtf8WithAccents", "E\xCC\x81\xFF", "e\xCC\x81\xFF"},
        FoldRow{"ZeroByte", std::string("A\0Ä", 4), std::string("a\0ä", 4)}),
    [](const auto& row) { return row.param.name; });

TEST(SameName, LooksAtWholeNames)
{
    EXPECT_TRUE(SameName("Layout1", "LAYOUT1"));
    EXPECT_TRUE(SameName("план", "ПЛАН"));
    EXPECT_FALSE(SameName("Layout1", "Layout10"));
    EXPECT_FALSE(SameName("план", "плаН "));
    EXPECT_FALSE(SameName("Straße", "Strasse"));
    EXPECT_FALSE(SameName("\xFE", "\xFF"));
    EXPECT_FALSE(SameName("i", "İ"));
    EXPECT_TRUE(SameName("", ""));
}

TEST(SameName, KnowsNoLocale)
{
    const std::string former = std::setlocale(LC_ALL, nullptr);
    for (const char* locale : {"tr_TR.UTF-8", "C", "de_DE.UTF-8"}) {
        std::setlocale(LC_ALL, locale); // whether the machine has it or not
        EXPECT_TRUE(SameName("AUDIT", "audit")) << locale;
        EXPECT_TRUE(SameName("*LAST ACTIVE LAYOUT TAB*", "*last active layout tab*")) << locale;
    }
    std::setlocale(LC_ALL, former.c_str());
}

} // namespace
} // namespace sm::base
