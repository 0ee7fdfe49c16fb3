// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/MarkValues.h"

#include "commandline/Suggest.h"
#include "settings/StampChoices.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fmt/format.h>

namespace sm::app {
namespace {

constexpr std::size_t kLongestRecordText = 255; // bytes; what an item of extended data may hold

struct NamedColor {
    const char* name;
    std::int32_t color;
};

constexpr NamedColor kColors[] = {
    {"black", 0x000000}, {"white", 0xffffff}, {"grey", 0x808080},    {"red", 0x0000ff},    {"green", 0x008000},
    {"blue", 0xff0000},  {"cyan", 0xffff00},  {"magenta", 0xff00ff}, {"orange", 0x0080ff}, {"yellow", 0x00ffff},
};

/// The numbers between the commas; empty when there is anything else.
std::vector<double> Numbers(const std::string& text)
{
    std::vector<double> numbers;
    const char* at = text.data();
    const char* const end = at + text.size();
    while (true) {
        double number = 0;
        at += at != end && *at == '+' ? 1 : 0;
        const auto [rest, error] = std::from_chars(at, end, number);
        if (error != std::errc() || !std::isfinite(number) || (rest != end && *rest != ','))
            return {};
        numbers.push_back(number == 0 ? 0 : number); // without the sign of a zero
        if (rest == end)
            return numbers;
        at = rest + 1;
    }
}

} // namespace

std::optional<DrawingPoint> ParsePoint(const std::string& text)
{
    const std::vector<double> numbers = Numbers(text);
    if (numbers.size() != 2)
        return std::nullopt;
    return DrawingPoint{numbers[0], numbers[1]};
}

std::optional<DrawingBox> ParseBox(const std::string& text)
{
    const std::vector<double> numbers = Numbers(text);
    if (numbers.size() != 4 || numbers[0] == numbers[2] || numbers[1] == numbers[3])
        return std::nullopt;
    return DrawingBox{numbers[0], numbers[1], numbers[2], numbers[3]};
}

std::optional<std::int32_t> ParseColor(const std::string& text)
{
    const std::string name = FindName(text, ColorNames());
    for (const NamedColor& color : kColors)
        if (name == color.name)
            return color.color;
    std::uint32_t rgb = 0;
    const char* const end = text.data() + text.size();
    if (text.size() != 7 || text[0] != '#' || std::from_chars(text.data() + 1, end, rgb, 16).ptr != end)
        return std::nullopt;
    return static_cast<std::int32_t>((rgb >> 16 & 0xff) | (rgb & 0xff00) | (rgb & 0xff) << 16);
}

std::vector<std::string> ColorNames()
{
    std::vector<std::string> names;
    for (const NamedColor& color : kColors)
        names.emplace_back(color.name);
    return names;
}

std::string ColorName(std::int32_t color)
{
    for (const NamedColor& one : kColors)
        if (one.color == color)
            return one.name;
    return ColorText(color);
}

std::optional<std::int32_t> ParseStampNumber(const std::string& text)
{
    std::int32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    const bool inList =
        error == std::errc() && rest == end && number >= 1 && number <= static_cast<std::int32_t>(kStampTextCount);
    return inList ? std::optional(number) : std::nullopt;
}

bool IsWholeNumber(const std::string& text)
{
    const std::size_t sign = text.starts_with('-') ? 1 : 0;
    return text.size() > sign && std::all_of(text.begin() + static_cast<std::ptrdiff_t>(sign), text.end(),
                                             [](char c) { return c >= '0' && c <= '9'; });
}

const std::vector<std::string>& StampFontNames()
{
    static const std::vector<std::string> names(kStampFonts.begin(), kStampFonts.end());
    return names;
}

std::string RecordTextError(const std::string& text)
{
    if (text.size() > kLongestRecordText)
        return fmt::format("is longer than the {} bytes that a drawing's record can hold", kLongestRecordText);
    const bool control = std::any_of(text.begin(), text.end(), [](char c) { return c >= 0 && c < ' '; });
    return control ? "holds a control character" : "";
}

std::string NumberText(double value)
{
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

std::string PointText(double x, double y)
{
    return NumberText(x) + "," + NumberText(y);
}

std::string ColorText(std::int32_t color)
{
    return fmt::format("#{:02X}{:02X}{:02X}", color & 0xff, color >> 8 & 0xff, color >> 16 & 0xff);
}

} // namespace sm::app
