// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/mdlUtilities.h"

#include <algorithm>

namespace sm {

namespace {

std::string PlainText(ILocale& locale, const AcadVariant& value)
{
    if (const auto* text = std::get_if<std::string>(&value))
        return *text;
    if (const auto* number = std::get_if<std::int32_t>(&value))
        return std::to_string(*number);
    if (const auto* number = std::get_if<double>(&value))
        return LocaleNumberText(locale, *number);
    return {};
}

} // namespace

std::string BoolToText(ILocale& locale, const AcadVariant& value)
{
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag ? "1" : "0";
    return Trim(PlainText(locale, value));
}

bool SameAsciiLetter(char left, char right)
{
    return LowerAsciiLetter(left) == LowerAsciiLetter(right);
}

char UpperAsciiLetter(char letter)
{
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

char LowerAsciiLetter(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::string LowerAsciiText(std::string_view text)
{
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), LowerAsciiLetter);
    return lower;
}

bool SameAsciiText(std::string_view left, std::string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), SameAsciiLetter);
}

std::int32_t BoolToBit(VariantBool flag)
{
    return flag == kTrue ? 1 : 0;
}

bool IsPositive(std::int32_t number)
{
    return number > 0;
}

double NumberOrDefault(const std::string& text, double defaultValue)
{
    return text.empty() ? defaultValue : Val(text);
}

std::string TextOrDefault(const std::string& text, const std::string& defaultValue)
{
    return text.empty() ? defaultValue : text;
}

std::string Trim(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::vector<std::string> SplitList(const std::string& text)
{
    std::vector<std::string> pieces;
    std::size_t begin = 0;
    for (std::size_t at = text.find(';'); at != std::string::npos; at = text.find(';', begin)) {
        pieces.push_back(text.substr(begin, at - begin));
        begin = at + 1;
    }
    pieces.push_back(text.substr(begin));
    return pieces;
}

std::string StripExtension(const std::string& text)
{
    return text.substr(0, text.rfind('.'));
}

std::string FolderPart(ILocale& locale, const std::string& path)
{
    return path.substr(0, path.find_last_of(locale.PathSeparators()));
}

std::string FileNamePart(ILocale& locale, const std::string& path)
{
    return path.substr(path.find_last_of(locale.PathSeparators()) + 1);
}

std::string JoinPath(ILocale& locale, const std::string& folder, const std::string& name)
{
    return folder + locale.PathJoiner() + name;
}

} // namespace sm
