// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene/PointText.h"

#include <array>
#include <charconv>
#include <cmath>

namespace sm::scene {
namespace {

std::string Fixed(double value, int decimals)
{
    const double half = 0.5 * std::pow(10, -decimals);
    if (std::abs(value) < half)
        value = 0;
    std::array<char, 400> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
    return {text.data(), end.ptr};
}

std::string_view Trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::optional<double> Number(std::string_view text)
{
    text = Trimmed(text);
    if (text.size() > 1 && text.front() == '+' && text[1] != '-')
        text.remove_prefix(1);
    double value = 0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool whole = end.ec == std::errc{} && end.ptr == text.data() + text.size();
    return whole && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

} // namespace

std::string PointText(Vec2 point, int decimals)
{
    return Fixed(point.x, decimals) + ", " + Fixed(point.y, decimals);
}

std::optional<Vec2> ParsePoint(std::string_view text, std::optional<Vec2> first)
{
    text = Trimmed(text);
    const bool relative = !text.empty() && text.front() == '@';
    if (relative)
        text.remove_prefix(1);
    const auto comma = text.find(',');
    if (comma == std::string_view::npos || (relative && !first))
        return std::nullopt;
    const auto x = Number(text.substr(0, comma));
    const auto y = Number(text.substr(comma + 1));
    if (!x || !y)
        return std::nullopt;
    return relative ? *first + Vec2{*x, *y} : Vec2{*x, *y};
}

} // namespace sm::scene
