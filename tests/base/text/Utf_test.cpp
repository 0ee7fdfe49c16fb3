// SPDX-License-Identifier: GPL-3.0-or-later
// UTF-8 and UTF-16, both ways, and text of files in whatever form.
#include "base/text/PageReader.h"
#include "base/text/TextDecoding.h"
#include "base/text/Utf8.h"

#include <gtest/gtest.h>

namespace sm::base {
namespace {

constexpr const char* kMark = "\xEF\xBF\xBD"; // U+FFFD

TEST(Utf8, WritesAndReadsEveryLength)
{
    const struct {
        char32_t character;
        std::string bytes;
    } rows[] = {{0, std::string(1, '\0')},     {0x7F, "\x7F"},           {0x80, "\xC2\x80"},
                {0x7FF, "\xDF\xBF"},           {0x800, "\xE0\xA0\x80"},  {0xD7FF, "\xED\x9F\xBF"},
                {0xE000, "\xEE\x80\x80"},      {0xFFFF, "\xEF\xBF\xBF"}, {0x10000, "\xF0\x90\x80\x80"},
                {0x10FFFF, "\xF4\x8F\xBF\xBF"}};
    for (const auto& row : rows) {
        std::string text;
        AppendUtf8(text, row.character);
        EXPECT_EQ(text, row.bytes) << std::uint32_t{row.character};
        std::size_t at = 0;
        EXPECT_EQ(ReadUtf8(text, at), row.character);
        EXPECT_EQ(at, text.size());
        EXPECT_TRUE(IsUtf8(text));
        EXPECT_EQ(ValidUtf8(text), text);
    }
}

TEST(Utf8, WritesWhatIsNoCharacterAsTheMark)
{
    for (const char32_t value : {U'\xD800', U'\xDFFF', char32_t{0x110000}, char32_t{0xFFFFFFFF}}) {
        std::string text;
        AppendUtf8(text, value);
        EXPECT_EQ(text, kMark);
    }
}

TEST(Utf8, TakesWhatIsNoTextByteByByte)
{
    const struct {
        const char* name;
        std::string text;
        int marks;
    } rows[] = {{"a lone follower", "\x80", 1},
                {"a cut pair", "\xC3", 1},
                {"overlong slash", "\xC0\xAF", 2},
                {"overlong in three", "\xE0\x80\xAF", 3},
                {"overlong in four", "\xF0\x80\x80\xAF", 4},
                {"a surrogate", "\xED\xA0\x80", 3},
                {"beyond Unicode", "\xF4\x90\x80\x80", 4},
                {"no lead", "\xF5\x80\x80\x80", 4},
                {"bytes of another page", "\xE4\xF6\xFC", 3}};
    for (const auto& row : rows) {
        std::string expected;
        for (int i = 0; i < row.marks; ++i)
            expected += kMark;
        EXPECT_FALSE(IsUtf8(row.text)) << row.name;
        EXPECT_EQ(ValidUtf8("a" + row.text + "z"), "a" + expected + "z") << row.name;
        std::size_t at = 0;
        EXPECT_EQ(ReadUtf8(row.text, at), std::nullopt) << row.name;
        EXPECT_EQ(at, 1U) << row.name;
        at = 0;
        EXPECT_EQ(NextCharacter(row.text, at), kReplacement) << row.name;
        EXPECT_EQ(at, 1U) << row.name;
    }
}

TEST(Utf16, BothByteOrdersAndSurrogates)
{
    EXPECT_EQ(FromUtf16(std::string("\0A\x04\x1F\xD8\x01\xDC\x00", 8), true), "AП\xF0\x90\x90\x80");
    EXPECT_EQ(FromUtf16(std::string("A\0\x1F\x04\x01\xD8\x00\xDC", 8), false), "AП\xF0\x90\x90\x80");
    EXPECT_EQ(FromUtf16(std::string("\xD8\x01\0A", 4), true), std::string(kMark) + "A");
    EXPECT_EQ(FromUtf16(std::string("\xDC\x01\0A", 4), true), std::string(kMark) + "A");
    EXPECT_EQ(FromUtf16(std::string("\0A\0", 3), true), "A");
    EXPECT_EQ(FromUtf16("", true), "");
}

TEST(DecodeText, TakesEveryForm)
{
    const struct {
        const char* name;
        std::string bytes, text;
    } rows[] = {{"plain", "a\nb", "a\nb"},
                {"line ends", "a\r\nb\rc\n", "a\nb\nc\n"},
                {"mark of UTF-8",
                 "\xEF\xBB\xBF"
                 "ä\r\n",
                 "ä\n"},
                {"mark of UTF-16, small end first",
                 std::string("\xFF\xFE"
                             "a\0\r\0\n\0",
                             8),
                 "a\n"},
                {"mark of UTF-16, great end first", std::string("\xFE\xFF\0a", 4), "a"},
                {"UTF-16 without a mark", std::string("<\0<\0", 4), "<<"},
                {"eight bits", "\xE4", "\xE4"},
                {"nothing", "", ""}};
    for (const auto& row : rows)
        EXPECT_EQ(DecodeText(row.bytes), row.text) << row.name;
}

TEST(PageReader, ReadsSingleCharacters)
{
    PageReader western("CP1252");
    ASSERT_TRUE(western.Knows());
    EXPECT_EQ(western.One("\x80"), U'€');
    EXPECT_EQ(western.One("\x81"), 0U);
    EXPECT_EQ(western.One("ab"), 0U);
    PageReader chinese("GBK");
    EXPECT_EQ(chinese.One("\xCD\xBC"), U'图');
    EXPECT_EQ(chinese.One("\xCD"), 0U);
    EXPECT_EQ(chinese.One("A"), U'A') << "after half a character";
    EXPECT_FALSE(PageReader("CP0").Knows());
}

} // namespace
} // namespace sm::base
