// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/PaperChoice.h"

#include "base/Units.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

namespace sm::terminal {
namespace {

constexpr double kSlack = 3.0;
constexpr double kLikeProportion = 0.05;

/// Reads one number and moves past it and the blanks behind it.
std::optional<double> TakeNumber(std::string_view& text)
{
    double number = 0;
    const auto [next, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || !std::isfinite(number) || number <= 0)
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(next - text.data()));
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return number;
}

bool Fits(const Paper& wanted, const Paper& sheet)
{
    return sheet.width >= wanted.width - kSlack && sheet.height >= wanted.height - kSlack;
}

bool IsLike(const Paper& wanted, const Paper& sheet)
{
    const double ratio = (sheet.width / sheet.height) / (wanted.width / wanted.height);
    return std::abs(ratio - 1) <= kLikeProportion;
}

} // namespace

std::optional<Paper> PaperOfName(const std::string& name)
{
    const std::size_t open = name.find('(');
    if (open == std::string::npos)
        return std::nullopt;
    std::string_view rest = std::string_view(name).substr(open + 1);
    const std::optional<double> width = TakeNumber(rest);
    if (!width || !rest.starts_with('x'))
        return std::nullopt;
    rest.remove_prefix(std::min(rest.find_first_not_of("x "), rest.size()));
    const std::optional<double> height = TakeNumber(rest);
    if (!height)
        return std::nullopt;
    const double unit = rest.starts_with("Inches") ? base::kMillimetresPerInch : 1.0;
    return Paper{*width * unit, *height * unit};
}

std::optional<std::int32_t> NearestLarger(const std::vector<std::string>& names, const Paper& wanted)
{
    if (!(wanted.width > 0 && wanted.height > 0))
        return std::nullopt;
    std::optional<std::int32_t> best;
    bool bestIsLike = false;
    double bestArea = 0;
    for (std::size_t position = 0; position < names.size(); ++position) {
        const std::optional<Paper> sheet = PaperOfName(names[position]);
        if (!sheet || !Fits(wanted, *sheet))
            continue;
        const bool like = IsLike(wanted, *sheet);
        const double area = sheet->width * sheet->height;
        if (best && (like < bestIsLike || (like == bestIsLike && area >= bestArea)))
            continue;
        best = static_cast<std::int32_t>(position);
        bestIsLike = like;
        bestArea = area;
    }
    return best;
}

std::optional<std::int32_t> LargestLike(const std::vector<std::string>& names, const Paper& wanted)
{
    std::optional<std::int32_t> best;
    bool bestIsLike = false;
    double bestArea = 0;
    for (std::size_t position = 0; position < names.size(); ++position) {
        const std::optional<Paper> sheet = PaperOfName(names[position]);
        if (!sheet)
            continue;
        const bool like = IsLike(wanted, *sheet);
        const double area = sheet->width * sheet->height;
        if (best && (like < bestIsLike || (like == bestIsLike && area <= bestArea)))
            continue;
        best = static_cast<std::int32_t>(position);
        bestIsLike = like;
        bestArea = area;
    }
    return best;
}

} // namespace sm::terminal
