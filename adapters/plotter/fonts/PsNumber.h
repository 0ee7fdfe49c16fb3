// The one number writer of the PostScript text: integers, and decimals without trailing zeros.
#pragma once

#include <charconv>
#include <cmath>
#include <cstdint>

namespace sm::plotter {

/// Room for any number that is written here.
inline constexpr int kNumberRoom = 24;

inline char* PutInteger(char* at, std::int32_t value)
{
    return std::to_chars(at, at + kNumberRoom, value).ptr;
}

/// At most `digits` (1 to 6) decimals, rounded to the nearest; "0" for what rounds to nothing or isn't finite.
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
    if (rest == 0) {
        return at;
    }
    *at++ = '.';
    for (std::int64_t place = unit / 10; rest != 0; place /= 10) {
        *at++ = static_cast<char>('0' + rest / place);
        rest %= place;
    }
    return at;
}

} // namespace sm::plotter
