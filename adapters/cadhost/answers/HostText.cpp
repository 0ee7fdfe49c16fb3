// SPDX-License-Identifier: GPL-3.0-or-later
#include "answers/HostText.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace sm::cadhost {

std::string NumberText(double value)
{
    return RoundedText(value, 15);
}

std::string RoundedText(double value, int digits)
{
    if (value == 0)
        return "0";
    std::array<char, 64> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, digits);
    std::string text(buffer.data(), end.ptr);
    std::replace(text.begin(), text.end(), 'e', 'E');
    return text;
}

std::string_view Trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

} // namespace sm::cadhost
