#include "answers/HostText.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace sm::cadhost {
namespace {

char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

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

bool SameName(std::string_view left, std::string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return Lower(a) == Lower(b); });
}

std::string_view Trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

} // namespace sm::cadhost
