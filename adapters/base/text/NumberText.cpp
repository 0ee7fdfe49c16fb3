// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text/NumberText.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstring>
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

/// What a double holds exactly: integers up to this, and powers of ten up to 22. Both being exact, one division rounds
/// once, as it should.
constexpr std::uint64_t kExact = std::uint64_t{1} << 53;
constexpr std::array<double, 23> kPowers{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                         1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr std::ptrdiff_t kMostDigits = 19; // of any 64 bits

/// True for eight decimal digits, the first of them in the lowest byte.
bool AreDigits(std::uint64_t eight)
{
    constexpr std::uint64_t kHigh = 0xF0F0F0F0F0F0F0F0, kZeros = 0x3030303030303030, kSix = 0x0606060606060606;
    return (eight & kHigh) == kZeros && ((eight + kSix) & kHigh) == kZeros;
}

/// Their value: pairs, fours and all eight are put together at a time, the lanes of the word beside each other.
std::uint64_t ValueOf(std::uint64_t eight)
{
    eight = (eight & 0x0F0F0F0F0F0F0F0F) * (10 * 256 + 1) >> 8;
    eight = (eight & 0x00FF00FF00FF00FF) * (100 * 65536 + 1) >> 16;
    return (eight & 0x0000FFFF0000FFFF) * (10000 * 4294967296 + 1) >> 32;
}

/// Takes digits into `mantissa`, which may overflow: the caller counts them.
inline const char* TakeDigits(const char* at, const char* end, std::uint64_t& mantissa)
{
    for (; at < end && IsDigit(*at); ++at)
        mantissa = mantissa * 10 + static_cast<std::uint64_t>(*at - '0');
    return at;
}

/// The same for many of them.
inline const char* TakeEights(const char* at, const char* end, std::uint64_t& mantissa)
{
    constexpr std::ptrdiff_t kEight = 8;
    while (std::endian::native == std::endian::little && end - at >= kEight) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, at, sizeof eight);
        if (!AreDigits(eight))
            break;
        mantissa = mantissa * 100000000 + ValueOf(eight);
        at += kEight;
    }
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
        at = TakeDigits(TakeEights(fraction, end, mantissa), end, mantissa);
        decimals = at - fraction;
        digits += decimals;
    }
    const bool plain = at == end || (*at != 'e' && *at != 'E');
    if (!plain || digits > kMostDigits || mantissa > kExact)
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
