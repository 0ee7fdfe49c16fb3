// SPDX-License-Identifier: GPL-3.0-or-later
#include "AnsiCodePage.h"
#include "Folders.h"
#include "LocaleFormats.h"
#include "system/SystemPorts.h"

#include <gtest/gtest.h>

/// The C library's newlocale loses its copy of LOCPATH, which only these tests set; the leak checker passes that over.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:argz_add_sep";
}

namespace sm::system {
namespace {

LocalDateTime At(int hour, int minute, int second)
{
    using namespace std::chrono;
    return LocalDateTime(local_days(year(2026) / 3 / 14) + hours(hour) + minutes(minute) + seconds(second));
}

TEST(Locale, IsThatOfPosixWhenNoneIsNamed)
{
    const auto locale = CreateLocale(Variables({}));
    EXPECT_EQ(locale->DecimalSeparator(), '.');
    EXPECT_EQ(locale->DateSeparator(), "/");
    EXPECT_EQ(locale->LongTime(At(15, 9, 26)), "15:09:26");
    EXPECT_EQ(locale->LongTime(At(0, 0, 5)), "00:00:05");
    EXPECT_EQ(locale->PathJoiner(), '/');
    EXPECT_EQ(locale->PathSeparators(), "/\\");
}

TEST(Locale, IsThatOfPosixWhenTheMachineLacksTheOneNamed)
{
    const auto locale = CreateLocale(Variables({{"LC_ALL", "xx_YY.UTF-8"}}));
    EXPECT_EQ(locale->DecimalSeparator(), '.');
    EXPECT_EQ(locale->DateSeparator(), "/");
    EXPECT_EQ(locale->UpperCase("\xc3\xa4"), "\xc3\x84");
}

struct CaseRow {
    const char* name;
    const char* lower;
    const char* upper;
};

TEST(Locale, ChangesTheCaseOfEveryScript)
{
    const auto locale = CreateLocale(Variables({}));
    const CaseRow rows[] = {
        {"Empty", "", ""},
        {"Ascii", "layout1 [a]", "LAYOUT1 [A]"},
        {"Latin", "\xc3\xa4\xc3\xb1\xc5\x93", "\xc3\x84\xc3\x91\xc5\x92"},
        {"Greek", "\xce\xb1\xce\xb2", "\xce\x91\xce\x92"},
        {"Cyrillic", "\xd0\xbb\xd0\xb8\xd1\x81\xd1\x82", "\xd0\x9b\xd0\x98\xd0\xa1\xd0\xa2"},
        {"NoCase", "\xe5\x9b\xb3\xe9\x9d\xa2", "\xe5\x9b\xb3\xe9\x9d\xa2"},
    };
    for (const CaseRow& row : rows) {
        EXPECT_EQ(locale->UpperCase(row.lower), row.upper) << row.name;
        EXPECT_EQ(locale->LowerCase(row.upper), row.lower) << row.name;
    }
}

TEST(Locale, LeavesBytesThatAreNoTextAlone)
{
    const auto locale = CreateLocale(Variables({}));
    EXPECT_EQ(locale->UpperCase("a\xff"
                                "b\xc3"),
              "A\xff"
              "B\xc3");
    EXPECT_EQ(locale->UpperCase(std::string("a\0b", 3)), std::string("A\0B", 3));
}

/// The locales are made for the test, since few machines have them all.
class MadeLocale : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        s_folder = std::make_unique<TemporaryFolder>();
        s_made = true;
        for (const std::string name : {"de_DE", "en_US"}) {
            const std::string target = (s_folder->Path() / (name + ".UTF-8")).string();
            const std::string command = "localedef -i " + name + " -f UTF-8 " + target + " >/dev/null 2>&1";
            s_made = s_made && std::system(command.c_str()) == 0;
        }
    }
    static void TearDownTestSuite() { s_folder.reset(); }
    void SetUp() override
    {
        if (!s_made)
            GTEST_SKIP() << "localedef or its sources are not installed";
        setenv("LOCPATH", s_folder->Path().c_str(), 1);
    }
    void TearDown() override { unsetenv("LOCPATH"); }

private:
    static inline std::unique_ptr<TemporaryFolder> s_folder;
    static inline bool s_made = false;
};

TEST_F(MadeLocale, GivesGermanSeparators)
{
    const auto locale = CreateLocale(Variables({{"LANG", "de_DE"}}));
    EXPECT_EQ(locale->DecimalSeparator(), ',');
    EXPECT_EQ(locale->DateSeparator(), ".");
    EXPECT_EQ(locale->LongTime(At(15, 9, 26)), "15:09:26");
}

TEST_F(MadeLocale, GivesTheAmericanTwelveHourClock)
{
    const auto locale = CreateLocale(Variables({{"LANG", "de_DE.UTF-8"}, {"LC_ALL", "en_US.ISO-8859-1"}}));
    EXPECT_EQ(locale->DecimalSeparator(), '.');
    EXPECT_EQ(locale->LongTime(At(15, 9, 26)), "03:09:26 PM");
}

TEST_F(MadeLocale, TakesEachCategoryFromItsOwnVariable)
{
    const auto locale = CreateLocale(Variables({{"LANG", "en_US.UTF-8"}, {"LC_NUMERIC", "de_DE.UTF-8"}}));
    EXPECT_EQ(locale->DecimalSeparator(), ',');
    EXPECT_EQ(locale->DateSeparator(), "/");
}

struct TextRow {
    const char* text;
    const char* expected;
};

TEST(DateSeparatorOf, ReadsTheFormat)
{
    const TextRow rows[] = {
        {"%m/%d/%y", "/"}, {"%d.%m.%Y", "."}, {"%Y-%m-%d", "-"},    {"%D", "/"},          {"%F", "-"},   {"", "/"},
        {"%", "/"},        {"%Y", "/"},       {"%d. %m. %Y", ". "}, {"%-d.%Om.%EY", "."}, {"%d%m", "/"},
    };
    for (const TextRow& row : rows)
        EXPECT_EQ(DateSeparatorOf(row.text), row.expected) << row.text;
}

TEST(InUtf8, ChangesTheCodeSet)
{
    const TextRow rows[] = {
        {"de_DE", "de_DE.UTF-8"},
        {"de_DE.ISO-8859-1", "de_DE.UTF-8"},
        {"de_DE@euro", "de_DE.UTF-8@euro"},
        {"C", "C.UTF-8"},
        {"POSIX", "C.UTF-8"},
        {"", "C.UTF-8"},
        {"C.utf8", "C.UTF-8"},
    };
    for (const TextRow& row : rows)
        EXPECT_EQ(InUtf8(row.text), row.expected) << row.text;
}

struct CodeRow {
    char32_t character;
    std::int32_t code;
};

TEST(Ansi1252Code, GivesTheWesternCodes)
{
    const CodeRow rows[] = {
        {U'A', 65},       {U'~', 126},      {U'\u00a0', 160}, {U'\u00e4', 228}, {U'\u00ff', 255},
        {U'\u20ac', 128}, {U'\u201e', 132}, {U'\u2022', 149}, {U'\u0178', 159}, {U'\u0100', 63},
        {U'\u0416', 63},  {U'\u56f3', 63},  {0x0081, 0x81},   {0x0080, 63},
    };
    for (const CodeRow& row : rows)
        EXPECT_EQ(Ansi1252Code(row.character), row.code) << static_cast<std::uint32_t>(row.character);
}

} // namespace
} // namespace sm::system
