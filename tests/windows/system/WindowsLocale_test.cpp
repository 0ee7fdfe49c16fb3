// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/system/WindowsSystem.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace sm::windows {
namespace {

LocalDateTime TimeOfDay(int hour, int minute, int second)
{
    using namespace std::chrono;
    return LocalDateTime(local_days(year(2026) / 3 / 14) + hours(hour) + minutes(minute) + seconds(second));
}

/// The user's regional settings, changed for as long as this lives.
class UserFact {
public:
    UserFact(LCTYPE fact, const wchar_t* value) : m_fact(fact)
    {
        GetLocaleInfoW(LOCALE_USER_DEFAULT, fact, m_former, 80);
        SetLocaleInfoW(LOCALE_USER_DEFAULT, fact, value);
    }
    ~UserFact() { SetLocaleInfoW(LOCALE_USER_DEFAULT, m_fact, m_former); }
    UserFact(const UserFact&) = delete;
    UserFact& operator=(const UserFact&) = delete;

private:
    LCTYPE m_fact;
    wchar_t m_former[80] = {};
};

TEST(WindowsLocale, IsThatOfAnEnglishWindows)
{
    const auto locale = CreateLocale();
    EXPECT_EQ(locale->DecimalSeparator(), '.');
    EXPECT_EQ(locale->DateSeparator(), "/");
    EXPECT_EQ(locale->LongTime(TimeOfDay(14, 5, 9)), "2:05:09 PM");
    EXPECT_EQ(locale->LongTime(TimeOfDay(0, 0, 0)), "12:00:00 AM");
    EXPECT_EQ(locale->PathJoiner(), '\\');
    EXPECT_EQ(locale->PathSeparators(), "\\");
}

TEST(WindowsLocale, FollowsTheUsersRegionalSettings)
{
    const UserFact decimal(LOCALE_SDECIMAL, L","), date(LOCALE_SDATE, L"."), time(LOCALE_STIMEFORMAT, L"HH:mm:ss");
    const auto locale = CreateLocale();
    EXPECT_EQ(locale->DecimalSeparator(), ',');
    EXPECT_EQ(locale->DateSeparator(), ".");
    EXPECT_EQ(locale->LongTime(TimeOfDay(14, 5, 9)), "14:05:09");
}

TEST(WindowsLocale, ChangesLetterCaseBeyondAscii)
{
    const auto locale = CreateLocale();
    EXPECT_EQ(locale->UpperCase("plan \xc3\xbc"), "PLAN \xc3\x9c");
    EXPECT_EQ(locale->LowerCase("PLAN \xc3\x9c"), "plan \xc3\xbc");
    EXPECT_EQ(locale->UpperCase(""), "");
    EXPECT_EQ(locale->UpperCase(std::string("a\0b", 3)), std::string("A\0B", 3));
}

TEST(WindowsLocale, KnowsTheAnsiCodePage)
{
    const auto locale = CreateLocale();
    EXPECT_EQ(locale->AnsiCode(U'A'), 65);
    EXPECT_EQ(locale->AnsiCode(U'\u00DC'), 220);
    EXPECT_EQ(locale->AnsiCode(U'\u20AC'), 128);
    EXPECT_EQ(locale->AnsiCode(U'\u0100'), 63);
    EXPECT_EQ(locale->AnsiCode(U'\U0001F600'), 63);
    EXPECT_EQ(locale->AnsiCode(0), 0);
}

} // namespace
} // namespace sm::windows
