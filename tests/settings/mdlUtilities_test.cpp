// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/mdlUtilities.h"

#include "doubles/FixedSystem.h"

#include <gtest/gtest.h>

namespace sm {
namespace {

TEST(SameAsciiText, LooksAtNoLetterCaseOfAsciiAndNoLocale)
{
    EXPECT_TRUE(SameAsciiText("Audit", "AUDIT"));
    EXPECT_TRUE(SameAsciiText("", ""));
    EXPECT_FALSE(SameAsciiText("AUDIT", "AUDITS"));
    EXPECT_FALSE(SameAsciiText("aud\xC4\xB1t", "AUDIT"));
    EXPECT_FALSE(SameAsciiText("\xC3\x84", "\xC3\xA4")) << "letters beyond ASCII are told apart";
    EXPECT_FALSE(SameAsciiText("@", "`"));
}

TEST(BoolToText, GivesBooleansAsDigitsAndTrimsTheRest)
{
    const struct {
        const char* name;
        AcadVariant value;
        const char* expected;
    } rows[] = {
        {"true", true, "1"},
        {"false", false, "0"},
        {"integer", std::int32_t(7), "7"},
        {"negative integer", std::int32_t(-12), "-12"},
        {"double", 12.75, "12,75"},
        {"whole double", 3.0, "3"},
        {"text with blanks", std::string("  two words "), "two words"},
        {"blanks alone", std::string("   "), ""},
        {"a tab isn't a blank", std::string("\tx"), "\tx"},
        {"nothing", AcadVariant(), ""},
    };
    FixedLocale locale;
    locale.decimalSeparator = ',';
    for (const auto& row : rows)
        EXPECT_EQ(BoolToText(locale, row.value), row.expected) << row.name;
}

TEST(BoolToBit, IsOneForTrueAlone)
{
    EXPECT_EQ(BoolToBit(-1), 1);
    EXPECT_EQ(BoolToBit(0), 0);
    EXPECT_EQ(BoolToBit(1), 0);
    EXPECT_EQ(BoolToBit(255), 0);
}

TEST(IsPositive, LeavesOutZero)
{
    EXPECT_TRUE(IsPositive(1));
    EXPECT_FALSE(IsPositive(0));
    EXPECT_FALSE(IsPositive(-1));
}

TEST(NumberOrDefault, TakesTheDefaultForEmptyTextOnly)
{
    EXPECT_EQ(NumberOrDefault("", 24), 24);
    EXPECT_EQ(NumberOrDefault("0", 24), 0);
    EXPECT_EQ(NumberOrDefault("x", 24), 0);
    EXPECT_EQ(NumberOrDefault("8,5", 24), 8);
    EXPECT_EQ(TextOrDefault("", "Helvetica"), "Helvetica");
    EXPECT_EQ(TextOrDefault(" ", "Helvetica"), " ");
}

TEST(StripExtension, CutsAtTheLastPointWhereverItStands)
{
    const struct {
        const char* text;
        const char* expected;
    } rows[] = {
        {"", ""},
        {"Plan", "Plan"},
        {"Plan.dwg", "Plan"},
        {"Plan.rev.dwg", "Plan.rev"},
        {".dwg", ""},
        {"Plan.", "Plan"},
        {"C:\\Jobs\\Plan.dwg", "C:\\Jobs\\Plan"},
        {"C:\\Rev.B\\Plan", "C:\\Rev"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(StripExtension(row.text), row.expected) << row.text;
}

struct PathRow {
    const char* path;
    const char* folder;
    const char* name;
};

TEST(Paths, SplitAtTheLastBackslash)
{
    const PathRow rows[] = {
        {"", "", ""},
        {"Plan.dwg", "Plan.dwg", "Plan.dwg"},
        {"C:\\Jobs\\Plan.dwg", "C:\\Jobs", "Plan.dwg"},
        {"\\Plan.dwg", "", "Plan.dwg"},
        {"C:\\Jobs\\", "C:\\Jobs", ""},
        {"\\", "", ""},
        {"C:/Jobs/Plan.dwg", "C:/Jobs/Plan.dwg", "C:/Jobs/Plan.dwg"},
    };
    FixedLocale locale;
    for (const PathRow& row : rows) {
        EXPECT_EQ(FolderPart(locale, row.path), row.folder) << row.path;
        EXPECT_EQ(FileNamePart(locale, row.path), row.name) << row.path;
    }
    EXPECT_EQ(JoinPath(locale, "C:\\Jobs", "Plan.dwg"), "C:\\Jobs\\Plan.dwg");
}

TEST(Paths, SplitAtEitherSeparatorWhereSlashesJoin)
{
    const PathRow rows[] = {
        {"/srv/jobs/plan.dxf", "/srv/jobs", "plan.dxf"},
        {"/plan.dxf", "", "plan.dxf"},
        {"C:\\Jobs\\Plan.dwg", "C:\\Jobs", "Plan.dwg"},
        {"C:\\Jobs/Plan.dwg", "C:\\Jobs", "Plan.dwg"},
    };
    FixedLocale locale;
    locale.UseSlashes();
    for (const PathRow& row : rows) {
        EXPECT_EQ(FolderPart(locale, row.path), row.folder) << row.path;
        EXPECT_EQ(FileNamePart(locale, row.path), row.name) << row.path;
    }
    EXPECT_EQ(JoinPath(locale, "/srv/jobs", "plan.dxf"), "/srv/jobs/plan.dxf");
}

TEST(SplitList, CountsThePieceAfterTheLastSemicolon)
{
    using Pieces = std::vector<std::string>;
    EXPECT_EQ(SplitList(""), Pieces({""}));
    EXPECT_EQ(SplitList("a"), Pieces({"a"}));
    EXPECT_EQ(SplitList("a;b"), Pieces({"a", "b"}));
    EXPECT_EQ(SplitList("a;;b;"), Pieces({"a", "", "b", ""}));
    EXPECT_EQ(SplitList(";"), Pieces({"", ""}));
}

} // namespace
} // namespace sm
