// SPDX-License-Identifier: GPL-3.0-or-later
#include "AnsiCodePage.h"
#include "LocaleFormats.h"
#include "system/SystemPorts.h"

#include <clocale>
#include <ctime>
#include <cwchar>
#include <cwctype>
#include <langinfo.h>
#include <locale.h>

namespace sm::system {
namespace {

/// Makes a locale the calling thread's for as long as this lives.
class ThreadLocale {
public:
    explicit ThreadLocale(locale_t locale) : m_former(uselocale(locale)) {}
    ~ThreadLocale() { uselocale(m_former); }
    ThreadLocale(const ThreadLocale&) = delete;
    ThreadLocale& operator=(const ThreadLocale&) = delete;

private:
    locale_t m_former;
};

std::string NameOf(const Environment& environment, const char* category)
{
    for (const char* variable : {"LC_ALL", category, "LANG"}) {
        const std::string name = environment(variable).value_or("");
        if (!name.empty())
            return name;
    }
    return "C";
}

/// `base` with one category changed where the machine has the locale; `base` is used up.
locale_t WithCategory(int mask, const std::string& name, locale_t base)
{
    for (const std::string& candidate : {InUtf8(name), name})
        if (const locale_t changed = newlocale(mask, candidate.c_str(), base))
            return changed;
    return base;
}

class PosixLocale final : public ILocale {
public:
    explicit PosixLocale(const Environment& environment) : m_locale(newlocale(LC_ALL_MASK, "C", locale_t{}))
    {
        m_locale = WithCategory(LC_CTYPE_MASK, "C", m_locale);
        m_locale = WithCategory(LC_CTYPE_MASK, NameOf(environment, "LC_CTYPE"), m_locale);
        m_locale = WithCategory(LC_NUMERIC_MASK, NameOf(environment, "LC_NUMERIC"), m_locale);
        m_locale = WithCategory(LC_TIME_MASK, NameOf(environment, "LC_TIME"), m_locale);
    }
    ~PosixLocale() override { freelocale(m_locale); }
    PosixLocale(const PosixLocale&) = delete;
    PosixLocale& operator=(const PosixLocale&) = delete;

    char DecimalSeparator() override
    {
        const std::string separator = nl_langinfo_l(RADIXCHAR, m_locale);
        return separator.size() == 1 ? separator[0] : '.';
    }
    std::string DateSeparator() override { return DateSeparatorOf(nl_langinfo_l(D_FMT, m_locale)); }
    std::string LongTime(LocalDateTime time) override;
    std::string UpperCase(const std::string& text) override { return Changed(text, towupper_l); }
    std::string LowerCase(const std::string& text) override { return Changed(text, towlower_l); }
    std::int32_t AnsiCode(char32_t character) override { return Ansi1252Code(character); }
    char PathJoiner() override { return '/'; }
    std::string PathSeparators() override { return "/\\"; }

private:
    std::string Changed(const std::string& text, wint_t (*change)(wint_t, locale_t)) const;
    locale_t m_locale;
};

std::string PosixLocale::LongTime(LocalDateTime time)
{
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(time - day);
    std::tm parts{};
    parts.tm_year = static_cast<int>(date.year()) - 1900;
    parts.tm_mon = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
    parts.tm_mday = static_cast<int>(static_cast<unsigned>(date.day()));
    parts.tm_wday = static_cast<int>(std::chrono::weekday(day).c_encoding());
    parts.tm_hour = static_cast<int>(clock.hours().count());
    parts.tm_min = static_cast<int>(clock.minutes().count());
    parts.tm_sec = static_cast<int>(clock.seconds().count());
    char text[128];
    return {text, strftime_l(text, sizeof text, nl_langinfo_l(T_FMT, m_locale), &parts, m_locale)};
}

std::string PosixLocale::Changed(const std::string& text, wint_t (*change)(wint_t, locale_t)) const
{
    const ThreadLocale guard(m_locale);
    std::string changed;
    const char* end = text.data() + text.size();
    for (const char* next = text.data(); next < end;) {
        std::mbstate_t reading{}, writing{};
        wchar_t wide = 0;
        const std::size_t taken = std::mbrtowc(&wide, next, static_cast<std::size_t>(end - next), &reading);
        char bytes[16];
        const std::size_t written =
            taken == 0 || taken > text.size()
                ? sizeof bytes + 1
                : std::wcrtomb(bytes, static_cast<wchar_t>(change(static_cast<wint_t>(wide), m_locale)), &writing);
        if (written > sizeof bytes) { // not UTF-8, or a NUL: the byte stays as it is
            changed += *next++;
            continue;
        }
        changed.append(bytes, written);
        next += taken;
    }
    return changed;
}

} // namespace

std::unique_ptr<ILocale> CreateLocale(const Environment& environment)
{
    return std::make_unique<PosixLocale>(environment);
}

} // namespace sm::system
