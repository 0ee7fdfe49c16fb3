// SPDX-License-Identifier: GPL-3.0-or-later
#include "AnsiCodePage.h"
#include "base/windows/Handles.h"
#include "system/SystemPorts.h"

#include <windows.h>

namespace sm::system {
namespace {

std::string UserFact(LCTYPE fact)
{
    wchar_t text[80] = {};
    return ::GetLocaleInfoW(LOCALE_USER_DEFAULT, fact, text, 80) > 0 ? base::Narrow(text) : std::string();
}

std::string Mapped(const std::string& text, DWORD change)
{
    std::wstring wide = base::Wide(text);
    const int length = static_cast<int>(wide.size());
    if (length == 0 || ::LCMapStringW(LOCALE_USER_DEFAULT, change, wide.data(), length, wide.data(), length) != length)
        return text;
    return base::Narrow(wide);
}

/// The user's regional settings. The program's own code page is UTF-8, so the code of a character is that of the
/// Western page, as elsewhere.
class UserLocale final : public ILocale {
public:
    char DecimalSeparator() override
    {
        const std::string separator = UserFact(LOCALE_SDECIMAL);
        return separator.size() == 1 ? separator[0] : '.';
    }
    std::string DateSeparator() override
    {
        const std::string separator = UserFact(LOCALE_SDATE);
        return separator.empty() ? "/" : separator;
    }
    std::string LongTime(LocalDateTime time) override;
    std::string UpperCase(const std::string& text) override { return Mapped(text, LCMAP_UPPERCASE); }
    std::string LowerCase(const std::string& text) override { return Mapped(text, LCMAP_LOWERCASE); }
    std::int32_t AnsiCode(char32_t character) override { return Ansi1252Code(character); }
    /// The system takes both, and paths inside the program have this one.
    char PathJoiner() override { return '/'; }
    std::string PathSeparators() override { return "/\\"; }
};

std::string UserLocale::LongTime(LocalDateTime time)
{
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(time - day);
    SYSTEMTIME parts{};
    parts.wYear = static_cast<WORD>(static_cast<int>(date.year()));
    parts.wMonth = static_cast<WORD>(static_cast<unsigned>(date.month()));
    parts.wDay = static_cast<WORD>(static_cast<unsigned>(date.day()));
    parts.wHour = static_cast<WORD>(clock.hours().count());
    parts.wMinute = static_cast<WORD>(clock.minutes().count());
    parts.wSecond = static_cast<WORD>(clock.seconds().count());
    wchar_t text[128] = {};
    return ::GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &parts, nullptr, text, 128) > 0 ? base::Narrow(text)
                                                                                    : std::string();
}

} // namespace

std::unique_ptr<ILocale> CreateLocale(const Environment&)
{
    return std::make_unique<UserLocale>();
}

} // namespace sm::system
