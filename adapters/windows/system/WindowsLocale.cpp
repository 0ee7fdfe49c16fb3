// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/automation/WideText.h"
#include "windows/system/CodePages.h"
#include "windows/system/WindowsSystem.h"

#include <windows.h>

namespace sm::windows {
namespace {

constexpr std::int32_t kNoSuchCharacter = '?';

std::string UserFact(LCTYPE fact)
{
    wchar_t text[80] = {};
    return GetLocaleInfoW(LOCALE_USER_DEFAULT, fact, text, 80) > 0 ? Utf8(text) : std::string();
}

std::string Mapped(const std::string& text, DWORD change)
{
    std::wstring wide = Wide(text);
    const int length = static_cast<int>(wide.size());
    if (length > 0 && LCMapStringW(LOCALE_USER_DEFAULT, change, wide.data(), length, wide.data(), length) != length)
        return text;
    return Utf8(wide);
}

class WindowsLocale final : public ILocale {
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
    std::int32_t AnsiCode(char32_t character) override;
    char PathJoiner() override { return '\\'; }
    std::string PathSeparators() override { return "\\"; }
};

std::string WindowsLocale::LongTime(LocalDateTime time)
{
    const std::chrono::hh_mm_ss clock(time - std::chrono::floor<std::chrono::days>(time));
    SYSTEMTIME parts{};
    GetLocalTime(&parts); // the day plays no part, but has to be one
    parts.wHour = static_cast<WORD>(clock.hours().count());
    parts.wMinute = static_cast<WORD>(clock.minutes().count());
    parts.wSecond = static_cast<WORD>(clock.seconds().count());
    parts.wMilliseconds = 0;
    wchar_t text[128] = {};
    return GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &parts, nullptr, text, 128) > 0 ? Utf8(text) : std::string();
}

std::int32_t WindowsLocale::AnsiCode(char32_t character)
{
    if (character == 0 || character > 0xFFFF)
        return character == 0 ? 0 : kNoSuchCharacter;
    const auto wide = static_cast<wchar_t>(character);
    char bytes[4] = {};
    BOOL replaced = FALSE;
    const int length =
        WideCharToMultiByte(LetterCodePage(GetACP()), WC_NO_BEST_FIT_CHARS, &wide, 1, bytes, 4, nullptr, &replaced);
    if (replaced != FALSE || length < 1)
        return kNoSuchCharacter;
    const auto first = static_cast<unsigned char>(bytes[0]);
    return length == 1 ? first : first << 8 | static_cast<unsigned char>(bytes[1]);
}

} // namespace

std::unique_ptr<ILocale> CreateLocale()
{
    return std::make_unique<WindowsLocale>();
}

} // namespace sm::windows
