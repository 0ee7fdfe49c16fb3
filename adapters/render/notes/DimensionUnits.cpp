// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/DimensionUnits.h"

#include "base/Units.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace sm::render {

namespace {

using drawing::DimStyle;

constexpr double kInchesInFoot = 12;

enum LengthUnit : std::int32_t { kScientific = 1, kEngineering = 3, kArchitectural = 4, kFractional = 5 };

std::string Fixed(double value, std::int32_t decimals, std::chars_format format = std::chars_format::fixed)
{
    std::array<char, 400> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, format, decimals).ptr;
    return {digits.data(), end};
}

/// DIMZIN and DIMAZIN on a number: leading zero away, trailing zeros away.
std::string Trimmed(std::string number, bool noLeading, bool noTrailing)
{
    if (noTrailing && number.find('.') != std::string::npos) {
        number.erase(number.find_last_not_of('0') + 1);
        if (number.back() == '.') {
            number.pop_back();
        }
    }
    if (noLeading && number.starts_with("0.")) {
        number.erase(0, 1);
    }
    return number;
}

std::string WithSeparator(std::string number, const DimStyle& style)
{
    const auto point = number.find('.');
    if (point != std::string::npos && style.separator > ' ' && style.separator < 127) {
        number[point] = static_cast<char>(style.separator);
    }
    return number;
}

constexpr std::int32_t kNoLeadingZero = 4, kNoTrailingZeros = 8;

std::string Decimal(double value, std::int32_t decimals, std::int32_t zeros, const DimStyle& style)
{
    return WithSeparator(
        Trimmed(Fixed(value, decimals), (zeros & kNoLeadingZero) != 0, (zeros & kNoTrailingZeros) != 0), style);
}

/// A whole number and a fraction in halves, quarters and so on.
std::string Fractional(double value, const DimStyle& style)
{
    constexpr std::int32_t kFinest = 8; // 1/256
    auto below = std::int64_t{1} << std::min(style.decimals, kFinest);
    constexpr double kLargest = 1e12;
    const auto parts = std::llround(std::min(value, kLargest) * static_cast<double>(below));
    const std::int64_t whole = parts / below;
    std::int64_t above = parts % below;
    if (above == 0) {
        return std::to_string(whole);
    }
    while (above % 2 == 0) {
        above /= 2;
        below /= 2;
    }
    constexpr std::array<const char*, 3> kBars{"/", "#", "/"};
    const bool stacked = style.fraction == 0 || style.fraction == 1;
    const std::string fraction =
        std::to_string(above) + kBars[stacked ? static_cast<std::size_t>(style.fraction) : 2] + std::to_string(below);
    const std::string shown = stacked ? "\\S" + fraction + ";" : fraction;
    return whole == 0 ? shown : std::to_string(whole) + (stacked ? "" : " ") + shown;
}

/// Feet and inches; DIMZIN: 0 leaves out zero feet and zero inches, 1 neither, 2 zero inches, 3 zero feet.
std::string FeetAndInches(double inches, const DimStyle& style, bool fractions)
{
    constexpr std::int32_t kMode = 3;
    const std::int32_t mode = style.zeros & kMode;
    const double step = fractions ? std::pow(0.5, std::min(style.decimals, 8)) : std::pow(0.1, style.decimals);
    const double rounded = std::round(inches / step) * step;
    const double feet = std::floor(rounded / kInchesInFoot);
    const double rest = std::max(0.0, rounded - feet * kInchesInFoot);
    const bool showFeet = feet > 0 || mode == 1 || mode == 2;
    const bool showInches = rest >= step / 2 || mode == 1 || mode == 3 || !showFeet;
    std::string text = showFeet ? Fixed(feet, 0) + "'" : "";
    if (showInches) {
        text += std::string(showFeet ? "-" : "") +
                (fractions ? Fractional(rest, style) : Decimal(rest, style.decimals, style.zeros, style)) + "\"";
    }
    return text;
}

std::string DegreesMinutesSeconds(double degrees, std::int32_t decimals)
{
    constexpr double kSixty = 60;
    const int shown = decimals >= 3 ? 3 : decimals >= 1 ? 2 : 1; // parts
    const std::int32_t fine = std::max(0, decimals - 4);
    const double unit = shown == 1 ? 1 : shown == 2 ? kSixty : kSixty * kSixty * std::pow(10.0, fine);
    double whole = std::round(degrees * unit) / unit;
    std::string text = Fixed(std::floor(whole + 1e-9), 0) + "%%d";
    whole = (whole - std::floor(whole + 1e-9)) * kSixty;
    if (shown == 2) {
        return text + Fixed(std::abs(whole), 0) + "'";
    }
    if (shown == 3) {
        const double minutes = std::floor(whole + 1e-9);
        text += Fixed(minutes, 0) + "'" + Fixed(std::abs(whole - minutes) * kSixty, fine) + "\"";
    }
    return text;
}

} // namespace

std::string FixedText(double value, std::int32_t decimals)
{
    return Fixed(value, decimals);
}

double ShownLength(double length, const DimStyle& style)
{
    const double value = std::abs(length * style.lengthFactor);
    return style.rounding > 0 ? std::round(value / style.rounding) * style.rounding : value;
}

std::string LengthText(double length, const DimStyle& style)
{
    const double value = ShownLength(length, style);
    switch (style.lengthUnit) {
    case kScientific: {
        std::string text = WithSeparator(Fixed(value, style.decimals, std::chars_format::scientific), style);
        std::replace(text.begin(), text.end(), 'e', 'E');
        return text;
    }
    case kEngineering:
        return FeetAndInches(value, style, false);
    case kArchitectural:
        return FeetAndInches(value, style, true);
    case kFractional:
        return Fractional(value, style);
    default:
        return Decimal(value, style.decimals, style.zeros, style);
    }
}

std::string AngleText(double degrees, const DimStyle& style)
{
    const std::int32_t decimals = style.angleDecimals < 0 ? style.decimals : style.angleDecimals;
    const bool noLeading = (style.angleZeros & 1) != 0, noTrailing = (style.angleZeros & 2) != 0;
    const auto decimal = [&](double value) {
        return WithSeparator(Trimmed(Fixed(value, decimals), noLeading, noTrailing), style);
    };
    constexpr double kGrads = 400.0 / 360;
    switch (style.angleUnit) {
    case 1:
        return DegreesMinutesSeconds(degrees, decimals);
    case 2:
        return decimal(degrees * kGrads) + "g";
    case 3:
        return decimal(base::RadiansOf(degrees)) + "r";
    default:
        return decimal(degrees) + "%%d";
    }
}

} // namespace sm::render
