// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <system_error>

namespace sm::base {

namespace {

bool IsBlank(char c)
{
    return static_cast<unsigned char>(c) <= ' ';
}
bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Decimal digits that a double holds exactly; both the digits and the power of ten being exact, so is one division.
constexpr std::ptrdiff_t kExactDigits = 15;
constexpr std::array<double, kExactDigits + 1> kPowers{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                       1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// Takes digits into `mantissa`, which may overflow: the caller counts them.
const char* TakeDigits(const char* at, const char* end, std::uint64_t& mantissa)
{
    for (; at < end && IsDigit(*at); ++at)
        mantissa = mantissa * 10 + static_cast<std::uint64_t>(*at - '0');
    return at;
}

bool IsBlankUpTo(const char* at, const char* end)
{
    while (at < end && IsBlank(*at))
        ++at;
    return at == end;
}

double ParseGeneral(const char* at, const char* end, bool& sound)
{
    double value = 0;
    const auto [next, error] = std::from_chars(at, end, value);
    const bool finite = error == std::errc{} && std::isfinite(value);
    sound = sound && finite && IsBlankUpTo(next, end);
    return finite ? value : 0;
}

} // namespace

std::string_view Trimmed(std::string_view text)
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

double ParseReal(std::string_view text)
{
    bool sound = true;
    return ParseReal(text, sound);
}

double ParseReal(std::string_view text, bool& sound)
{
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at < end && IsBlank(*at))
        ++at;
    if (at < end && *at == '+')
        ++at;
    const char* const start = at;
    const bool negative = at < end && *at == '-';
    at += negative;
    std::uint64_t mantissa = 0;
    const char* const whole = at;
    at = TakeDigits(at, end, mantissa);
    std::ptrdiff_t digits = at - whole, decimals = 0;
    if (at < end && *at == '.') {
        const char* const fraction = at + 1;
        at = TakeDigits(fraction, end, mantissa);
        decimals = at - fraction;
        digits += decimals;
    }
    const bool plain = at == end || (*at != 'e' && *at != 'E');
    if (!plain || digits > kExactDigits)
        return ParseGeneral(start, end, sound);
    if (at != end || digits == 0)
        sound = sound && digits > 0 && IsBlankUpTo(at, end);
    const double value = static_cast<double>(mantissa) / kPowers[static_cast<std::size_t>(decimals)];
    return negative ? -value : value;
}

std::int64_t ParseInteger(std::string_view text)
{
    bool sound = true;
    return ParseInteger(text, sound);
}

std::int64_t ParseInteger(std::string_view text, bool& sound)
{
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at < end && IsBlank(*at))
        ++at;
    if (at < end && *at == '+')
        ++at;
    std::int64_t value = 0;
    auto [next, error] = std::from_chars(at, end, value);
    if (error == std::errc{} && next < end && *next == '.') // some programs write all numbers with decimals
        while (++next < end && IsDigit(*next)) {
        }
    sound = sound && error == std::errc{} && IsBlankUpTo(next, end);
    if (error == std::errc::result_out_of_range)
        return *at == '-' ? std::numeric_limits<std::int64_t>::min() : std::numeric_limits<std::int64_t>::max();
    return value;
}

std::uint64_t ParseHexadecimal(std::string_view text)
{
    const std::string_view digits = Trimmed(text);
    std::uint64_t value = 0;
    const auto [next, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    return error == std::errc{} ? value : 0;
}

std::string DecimalText(double value, int digits)
{
    if (!std::isfinite(value))
        return "0";
    std::array<char, 400> buffer{}; // 309 digits before the point
    char* const end = buffer.data() + buffer.size();
    std::string text(buffer.data(), std::to_chars(buffer.data(), end, value, std::chars_format::fixed, digits).ptr);
    if (text.find('.') != std::string::npos)
        text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
    return text == "-0" ? "0" : text;
}

} // namespace sm::base
