// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/system/CodePages.h"

#include "windows/automation/WideText.h"

#include <gtest/gtest.h>
#include <windows.h>

#ifndef SM_CODE_PAGE
#define SM_CODE_PAGE 1252
#endif

namespace sm::windows {
namespace {

constexpr unsigned kWestern = 1252, kJapanese = 932, kUtf8 = 65001;

struct TextRow {
    const char* name;
    unsigned codePage;
    std::wstring text;
    std::string bytes; ///< empty: the code page can't hold the text
};

const TextRow kTexts[] = {
    {"Empty", kWestern, L"", ""},
    {"Ascii", kWestern, L"C:\\Host\\Plotters", "C:\\Host\\Plotters"},
    {"Western", kWestern, L"\u00DC1\u20AC",
     "\xDC"
     "1\x80"},
    {"QuestionMark", kWestern, L"why?", "why?"},
    {"Chinese", kWestern, L"C:\\\u56FD", ""},
    {"WhatLooksLikeALetter", kWestern, L"\u0141ukasz", ""},
    {"BeyondTheBasicPlane", kWestern, L"\xD83D\xDE00", ""},
    {"LoneSurrogate", kWestern, L"a\xD83Dz", ""},
    {"WhatBeginsAsTheMark", kWestern, L"\x1b%Gabc", ""},
    {"TwoBytes", kJapanese, L"\u8868", "\x95\x5C"},
    {"GermanInJapan", kJapanese, L"Gr\u00FC\u00DF", ""},
    {"Utf8", kUtf8, L"\u56FD\u00DC", "\xe5\x9b\xbd\xc3\x9c"},
    {"Utf8BeyondTheBasicPlane", kUtf8, L"\xD83D\xDE00", "\xf0\x9f\x98\x80"},
    {"Utf8LoneSurrogate", kUtf8, L"a\xDE00z", ""},
};

class CodePageTexts : public testing::TestWithParam<TextRow> {};

INSTANTIATE_TEST_SUITE_P(, CodePageTexts, testing::ValuesIn(kTexts),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_P(CodePageTexts, StayWhole)
{
    const TextRow& row = GetParam();
    const std::string bytes = BytesOf(row.text, row.codePage);
    const bool isBeyond = row.bytes.empty() && !row.text.empty();
    EXPECT_EQ(IsBeyondCodePage(bytes), isBeyond);
    EXPECT_EQ(bytes, isBeyond ? "\x1b%G" + Utf8(row.text) : row.bytes);
    EXPECT_EQ(TextOfBytes(bytes, row.codePage), row.text);
    EXPECT_EQ(Wide(Utf8(row.text)), row.text);
}

TEST(CodePages, AreTestedWithTheOneThatIsMeant)
{
    EXPECT_EQ(GetACP(), unsigned{SM_CODE_PAGE});
}

TEST(CodePages, LettersHaveCodesOfTheLanguageWhereUtf8IsActive)
{
    EXPECT_EQ(LetterCodePage(kWestern), kWestern);
    EXPECT_EQ(LetterCodePage(kJapanese), kJapanese);
    EXPECT_EQ(LetterCodePage(kUtf8), kWestern); // an English Windows
}

TEST(WideTexts, TakeWhatIsNotUtf8AsReplacementCharacters)
{
    EXPECT_EQ(Wide("a\xED\x41z"), L"a\xFFFD"
                                  L"Az");
    EXPECT_EQ(Wide("\xED\x9F\xBF"), L"\xD7FF");
    EXPECT_EQ(Wide("a\xFFz"), L"a\xFFFDz");
}

} // namespace
} // namespace sm::windows
