// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/DxfText.h"
#include "drawing/Finding.h"
#include "drawing/entities/Texts.h"

#include <gmock/gmock.h>

namespace sm::drawing::testing {
namespace {

struct TextRow {
    const char* name;
    const char* version;
    const char* codePage;
    const char* raw;
    const char* text;
};

class Texts : public ::testing::TestWithParam<TextRow> {};

TEST_P(Texts, AreUtf8)
{
    const TextRow& row = GetParam();
    const auto drawing = DxfText()
                             .Header(row.version, row.codePage)
                             .Section("ENTITIES")
                             .Tag(0, "TEXT")
                             .Tag(1, row.raw)
                             .EndSection()
                             .End()
                             .Open();
    TextData text;
    ASSERT_EQ(ModelEntities(*drawing).size(), 1U);
    Read(*drawing, ModelEntities(*drawing)[0], text);
    EXPECT_EQ(text.text, row.text);
}

INSTANTIATE_TEST_SUITE_P(
    CodePages, Texts,
    ::testing::Values(TextRow{"Western", "AC1015", "ANSI_1252",
                              "Gr\xF6\xDF"
                              "e \x80",
                              "Größe €"},
                      TextRow{"CentralEuropean", "AC1015", "ansi_1250", "\xF8\xE9\xEC", "řéě"},
                      TextRow{"Cyrillic", "AC1015", "ANSI_1251", "\xCF\xEB\xE0\xED", "План"},
                      TextRow{"Greek", "AC1015", "ANSI_1253", "\xC1\xE2", "Αβ"},
                      TextRow{"Turkish", "AC1015", "ANSI_1254", "\xDD\xFE", "İş"},
                      TextRow{"Hebrew", "AC1015", "ANSI_1255", "\xF9\xEC", "של"},
                      TextRow{"Arabic", "AC1015", "ANSI_1256", "\xC7\xE1", "ال"},
                      TextRow{"Baltic", "AC1015", "ANSI_1257", "\xE0\xF0", "ąš"},
                      TextRow{"Vietnamese", "AC1015", "ANSI_1258", "\xF0\xFE", "đ₫"},
                      TextRow{"Thai", "AC1015", "ANSI_874", "\xA1\xD2", "กา"},
                      TextRow{"Japanese", "AC1015", "ANSI_932", "\x90\x7D\x96\xCA", "図面"},
                      TextRow{"JapaneseWithABackslashAsSecondByte", "AC1015", "ANSI_932", "\x95\x5C", "表"},
                      TextRow{"JapaneseHalfWidth", "AC1015", "ANSI_932", "\xB1\xB2", "ｱｲ"},
                      TextRow{"SimplifiedChinese", "AC1015", "ANSI_936", "\xCD\xBC", "图"},
                      TextRow{"Korean", "AC1015", "ANSI_949", "\xB5\xB5", "도"},
                      TextRow{"TraditionalChinese", "AC1015", "ANSI_950", "\xB9\xCF", "圖"},
                      TextRow{"Dos437", "AC1009", "dos437", "\x84\xE1", "äß"},
                      TextRow{"Dos850", "AC1012", "dos850", "\x84\xB5", "äÁ"},
                      TextRow{"Ascii", "AC1015", "ASCII", "\xE4", "ä"},
                      TextRow{"Undefined", "AC1015", "UNDEFINED", "\xE4", "ä"},
                      TextRow{"NonsensePage", "AC1015", "ANSI_12x", "\xE4", "ä"},
                      TextRow{"HolesAreControlCharacters", "AC1015", "ANSI_1252", "\x81", "\xC2\x81"},
                      TextRow{"Utf8FromR2007", "AC1021", "ANSI_1252",
                              "Gr\xC3\xB6\xC3\x9F"
                              "e 図",
                              "Größe 図"},
                      TextRow{"Utf8OfAReleaseNobodyKnows", "AC1099", "ANSI_1251",
                              "Gr\xC3\xB6\xC3\x9F"
                              "e 図",
                              "Größe 図"},
                      TextRow{"CodePageOfAReleaseNobodyKnows", "AC1099", "ANSI_1252",
                              "Gr\xF6\xDF"
                              "e",
                              "Größe"},
                      TextRow{"BytesThatAreNotUtf8", "AC1027", "ANSI_1252",
                              "Gr\xF6\xDF"
                              "e",
                              "Größe"}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Escapes, Texts,
    ::testing::Values(TextRow{"Unicode", "AC1015", "ANSI_1252", "\\U+00D8 30", "Ø 30"},
                      TextRow{"UnicodeInLowerCaseDigits", "AC1015", "ANSI_1252", "\\U+00d8", "Ø"},
                      TextRow{"SurrogatePair", "AC1015", "ANSI_1252", "\\U+D83D\\U+DE00!", "😀!"},
                      TextRow{"HalfAPair", "AC1015", "ANSI_1252", "\\U+D83D!", "\xEF\xBF\xBD!"},
                      TextRow{"NotHexadecimal", "AC1015", "ANSI_1252", "\\U+00Z8", "\\U+00Z8"},
                      TextRow{"CutOff", "AC1015", "ANSI_1252", "\\U+00", "\\U+00"},
                      TextRow{"InUtf8Too", "AC1027", "ANSI_1252", "\\U+2300ä", "⌀ä"},
                      TextRow{"JapaneseByMultibyte", "AC1015", "ANSI_1252", "\\M+1907D", "図"},
                      TextRow{"TraditionalChineseByMultibyte", "AC1015", "ANSI_1252", "\\M+2B9CF", "圖"},
                      TextRow{"KoreanByMultibyte", "AC1015", "ANSI_1252", "\\M+3B5B5", "도"},
                      TextRow{"SimplifiedChineseByMultibyte", "AC1015", "ANSI_1252", "\\M+5CDBC", "图"},
                      TextRow{"UnknownMultibytePage", "AC1015", "ANSI_1252", "\\M+9CDBC", "\\M+9CDBC"},
                      TextRow{"OtherBackslashes", "AC1015", "ANSI_1252", "C:\\plans\\%%c", "C:\\plans\\%%c"},
                      TextRow{"Carets", "AC1015", "ANSI_1252", "a^Jb^Ic^ d^X", "a\nb\tc^d^X"},
                      TextRow{"BlanksStay", "AC1015", "ANSI_1252", "  two  ", "  two  "}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Texts, BytesThatAreNotUtf8AreReportedWithTheirLine)
{
    const auto drawing =
        DxfText().Header("AC1027").Section("ENTITIES").Tag(0, "TEXT").Tag(1, "\xF6\xDF").EndSection().End().Open();
    ASSERT_EQ(drawing->Findings().size(), 2U); // and the layouts that are assumed
    EXPECT_EQ(drawing->Findings()[0].code, 202);
    EXPECT_EQ(drawing->Findings()[0].count, 2U);
    EXPECT_EQ(drawing->Findings()[0].line, 22U);
    EXPECT_EQ(drawing->Findings()[0].text, "bytes are not UTF-8; read in the drawing's code page");
}

TEST(Texts, AnUnknownCodePageIsReported)
{
    const auto drawing = DxfText().Header("AC1015", "KLINGON").End().Open();
    ASSERT_EQ(drawing->Findings().size(), 2U); // and the layouts that are assumed
    EXPECT_EQ(drawing->Findings()[0].code, 201);
    EXPECT_EQ(drawing->Findings()[0].text, "the code page is not known; read as ANSI_1252");
}

TEST(Texts, HeaderVariablesAreFoundByNameAndKind)
{
    const auto drawing = DxfText()
                             .Section("HEADER")
                             .Variable("$ACADVER", 1, "AC1018")
                             .Variable("$LTSCALE", 40, "2.5")
                             .Variable("$INSUNITS", 70, "     4")
                             .Raw("9\n$EXTMIN\n10\n1\n20\n2\n30\n3\n9\n$LIMMAX\n10\n420\n20\n297\n")
                             .Variable("$PROJECTNAME", 1,
                                       "B\xFC"
                                       "ro")
                             .EndSection()
                             .End()
                             .Open();
    EXPECT_EQ(drawing->FileVersion(), Version::R2004);
    EXPECT_EQ(drawing->HeaderReal("$LTSCALE", 1), 2.5);
    EXPECT_EQ(drawing->HeaderInteger("$INSUNITS", 0), 4);
    EXPECT_EQ(drawing->HeaderInteger("$LTSCALE", 7), 7);
    EXPECT_EQ(drawing->HeaderReal("$MISSING", -1), -1);
    EXPECT_EQ(drawing->HeaderPoint("$EXTMIN"), (Vec3{1, 2, 3}));
    EXPECT_EQ(drawing->HeaderPoint("$LIMMAX"), (Vec3{420, 297, 0}));
    EXPECT_EQ(drawing->HeaderPoint("$LTSCALE"), std::nullopt);
    EXPECT_EQ(drawing->HeaderText("$PROJECTNAME", ""), "Büro");
    EXPECT_EQ(drawing->HeaderText("$INSUNITS", "none"), "none");
}

} // namespace
} // namespace sm::drawing::testing
