// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/mdlUtilities.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace sm {

namespace {

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::size_t SkipDigits(const std::string& text, std::size_t at)
{
    while (at < text.size() && IsDigit(text[at]))
        ++at;
    return at;
}

/// End of the exponent that begins at `at`; `at` itself when none does.
std::size_t SkipExponent(const std::string& text, std::size_t at)
{
    if (at >= text.size() || (text[at] != 'e' && text[at] != 'E'))
        return at;
    std::size_t digits = at + 1;
    if (digits < text.size() && (text[digits] == '+' || text[digits] == '-'))
        ++digits;
    const std::size_t end = SkipDigits(text, digits);
    return end > digits ? end : at;
}

/// The longest unsigned number at the beginning of `text`; empty when there is none.
std::string LeadingNumber(const std::string& text)
{
    std::size_t end = SkipDigits(text, 0);
    std::size_t digits = end;
    if (end < text.size() && text[end] == '.') {
        const std::size_t fraction = end + 1;
        end = SkipDigits(text, fraction);
        digits += end - fraction;
    }
    return digits == 0 ? std::string() : text.substr(0, SkipExponent(text, end));
}

/// What stands for a number that a double can't hold: the largest one, or 0 when the number is too small.
double NearestHeld(const std::string& number)
{
    const std::size_t exponentAt = std::min(number.find_first_of("eE"), number.size());
    const std::size_t point = std::min(number.find('.'), exponentAt);
    const std::size_t first = number.find_first_of("123456789");
    if (first >= exponentAt)
        return 0;
    if (exponentAt < number.size())
        return number[exponentAt + 1] == '-' ? 0 : std::numeric_limits<double>::max();
    return first < point ? std::numeric_limits<double>::max() : 0;
}

} // namespace

double Val(std::string_view text)
{
    std::string compact(text);
    compact.erase(std::remove_if(compact.begin(), compact.end(), [](char c) { return c == ' ' || c == '\t'; }),
                  compact.end());
    const bool negative = !compact.empty() && compact.front() == '-';
    if (negative || (!compact.empty() && compact.front() == '+'))
        compact.erase(0, 1);

    const std::string number = LeadingNumber(compact);
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range || !std::isfinite(value))
        value = NearestHeld(number);
    return negative && value != 0 ? -value : value;
}

std::int32_t RoundToInteger(double value)
{
    if (std::isnan(value))
        return 0;
    double whole = std::floor(value);
    const double rest = value - whole;
    if (rest > 0.5 || (rest == 0.5 && std::fmod(whole, 2) != 0))
        whole += 1;
    constexpr double kLowest = std::numeric_limits<std::int32_t>::min();
    constexpr double kHighest = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::clamp(whole, kLowest, kHighest));
}

std::string NumberText(double value)
{
    if (value == 0 || std::isnan(value))
        return "0";
    if (std::isinf(value))
        value = std::copysign(std::numeric_limits<double>::max(), value);
    char text[32];
    const auto result = std::to_chars(text, text + sizeof text, value, std::chars_format::general, 15);
    std::replace(text, result.ptr, 'e', 'E');
    return {text, result.ptr};
}

std::string LocaleNumberText(ILocale& locale, double value)
{
    std::string text = NumberText(value);
    std::replace(text.begin(), text.end(), '.', locale.DecimalSeparator());
    return text;
}

} // namespace sm
