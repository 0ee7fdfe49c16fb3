// SPDX-License-Identifier: GPL-3.0-or-later
// Locale, clock and component with facts that a test sets. The initial values are those of an English Windows.
#pragma once

#include "ports/ISystem.h"

#include <algorithm>
#include <cstdio>

namespace sm {

class FixedLocale : public ILocale {
public:
    char decimalSeparator = '.';
    std::string dateSeparator = "/";
    char pathJoiner = '\\';
    std::string pathSeparators = "\\";
    bool turkish = false; ///< "I" and "i" are no pair: their partners are "ı" and "İ"

    /// As on Linux: "/" joins, both split.
    void UseSlashes()
    {
        pathJoiner = '/';
        pathSeparators = "/\\";
    }

    char DecimalSeparator() override { return decimalSeparator; }
    std::string DateSeparator() override { return dateSeparator; }
    /// For example "2:05:09 PM".
    std::string LongTime(LocalDateTime time) override
    {
        const std::chrono::hh_mm_ss clock(time - std::chrono::floor<std::chrono::days>(time));
        const int hour = static_cast<int>(clock.hours().count());
        char text[32];
        std::snprintf(text, sizeof text, "%d:%02d:%02d %s", hour % 12 == 0 ? 12 : hour % 12,
                      static_cast<int>(clock.minutes().count()), static_cast<int>(clock.seconds().count()),
                      hour < 12 ? "AM" : "PM");
        return text;
    }
    /// ASCII letters alone, and "ı" and "İ" where the locale is a Turkish one.
    std::string UpperCase(const std::string& text) override
    {
        return Changed(turkish ? Replaced(text, 'i', "\xC4\xB0") : text, 'a', 'z', 'A' - 'a');
    }
    std::string LowerCase(const std::string& text) override
    {
        return Changed(turkish ? Replaced(text, 'I', "\xC4\xB1") : text, 'A', 'Z', 'a' - 'A');
    }
    /// Latin-1.
    std::int32_t AnsiCode(char32_t character) override
    {
        return character < 256 ? static_cast<std::int32_t>(character) : 63;
    }
    char PathJoiner() override { return pathJoiner; }
    std::string PathSeparators() override { return pathSeparators; }

private:
    static std::string Replaced(const std::string& text, char letter, const std::string& by)
    {
        std::string result;
        for (const char c : text)
            result += c == letter ? by : std::string(1, c);
        return result;
    }
    static std::string Changed(std::string text, char first, char last, int shift)
    {
        std::transform(text.begin(), text.end(), text.begin(),
                       [=](char c) { return c >= first && c <= last ? static_cast<char>(c + shift) : c; });
        return text;
    }
};

class FixedClock : public IClock {
public:
    /// 2026-03-14 15:09:26.
    LocalDateTime now = LocalDateTime(std::chrono::local_days(std::chrono::year(2026) / 3 / 14) +
                                      std::chrono::hours(15) + std::chrono::minutes(9) + std::chrono::seconds(26));
    LocalDateTime Now() override { return now; }
};

class FixedComponent : public IComponent {
public:
    std::string folder = "C:\\Program Files\\Tarnwick";
    ComponentVersion version{2, 1, 7};
    std::string Folder() override { return folder; }
    ComponentVersion Version() override { return version; }
};

} // namespace sm
