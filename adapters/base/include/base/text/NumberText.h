// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers to text and back, whatever the locale.
#pragma once

#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

namespace sm::base {

/// Without blanks, tabs and control characters at both ends.
std::string_view Trimmed(std::string_view text);

/// The reader of numbers in files of others: blanks around and a leading '+' are tolerated, and what follows the number
/// is passed over. 0 when `text` starts with no number, and for numbers that aren't finite.
double ParseReal(std::string_view text);
/// The same. `sound` becomes false when `text` isn't a finite number whole.
double ParseReal(std::string_view text, bool& sound);

/// Reads as leniently. 0 when `text` starts with no integer; beyond the range of 64 bits the nearest limit.
std::int64_t ParseInteger(std::string_view text);
/// The same. `sound` becomes false when `text` is no number whole, decimals aside, or beyond the range.
std::int64_t ParseInteger(std::string_view text, bool& sound);

/// Hexadecimal digits; 0 when there are none or they are more than 16.
std::uint64_t ParseHexadecimal(std::string_view text);

/// At most `digits` decimals of the number's exact value, rounded halves to even, and no trailing zeros; "0" for what
/// rounds to nothing or isn't finite. Of any size, which takes its time.
std::string DecimalText(double value, int digits);

/// Room for any number that the writers below put down.
inline constexpr int kNumberRoom = 24;

/// The digits at `at`, where there must be kNumberRoom; gives the place behind them.
inline char* PutInteger(char* at, std::int32_t value)
{
    return std::to_chars(at, at + kNumberRoom, value).ptr;
}

/// The quick writer of millions of coordinates: at most `digits` (1 to 6) decimals, the number times that power of ten
/// rounded halves away from zero; "0" for what rounds to nothing, is beyond 1e15 then or isn't finite.
inline char* PutDecimal(char* at, double value, int digits)
{
    constexpr std::int64_t kPowers[] = {1, 10, 100, 1000, 10000, 100000, 1000000};
    const std::int64_t unit = kPowers[digits];
    const double scaled = std::round(value * static_cast<double>(unit));
    if (!(std::fabs(scaled) < 1e15)) {
        *at = '0';
        return at + 1;
    }
    std::int64_t n = static_cast<std::int64_t>(scaled);
    if (n < 0) {
        *at++ = '-';
        n = -n;
    }
    at = std::to_chars(at, at + kNumberRoom, n / unit).ptr;
    std::int64_t rest = n % unit;
    if (rest == 0)
        return at;
    *at++ = '.';
    for (std::int64_t place = unit / 10; rest != 0; place /= 10) {
        *at++ = static_cast<char>('0' + rest / place);
        rest %= place;
    }
    return at;
}

} // namespace sm::base
