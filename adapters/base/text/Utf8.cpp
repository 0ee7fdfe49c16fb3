// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text/Utf8.h"

namespace sm::base {

namespace {

/// Following bytes, bits of the first byte, and the smallest value of each length.
struct Utf8Form {
    int following;
    char32_t bits;
    char32_t least;
};

std::optional<Utf8Form> FormOf(unsigned char first)
{
    if (first >= 0xC2 && first < 0xE0)
        return Utf8Form{1, first & 0x1FU, 0x80};
    if (first >= 0xE0 && first < 0xF0)
        return Utf8Form{2, first & 0x0FU, 0x800};
    if (first >= 0xF0 && first < 0xF5)
        return Utf8Form{3, first & 0x07U, 0x10000};
    return std::nullopt;
}

bool IsCharacter(char32_t value)
{
    return value <= 0x10FFFF && (value < 0xD800 || value > 0xDFFF);
}

void Append(std::string& text, char32_t byte)
{
    text.push_back(static_cast<char>(byte));
}

} // namespace

void AppendUtf8(std::string& text, char32_t character)
{
    const char32_t c = IsCharacter(character) ? character : kReplacement;
    if (c < 0x80) {
        Append(text, c);
    } else if (c < 0x800) {
        Append(text, 0xC0 | c >> 6);
        Append(text, 0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        Append(text, 0xE0 | c >> 12);
        Append(text, 0x80 | (c >> 6 & 0x3F));
        Append(text, 0x80 | (c & 0x3F));
    } else {
        Append(text, 0xF0 | c >> 18);
        Append(text, 0x80 | (c >> 12 & 0x3F));
        Append(text, 0x80 | (c >> 6 & 0x3F));
        Append(text, 0x80 | (c & 0x3F));
    }
}

std::optional<char32_t> ReadUtf8(std::string_view text, std::size_t& at)
{
    const auto first = static_cast<unsigned char>(text[at]);
    ++at;
    if (first < 0x80)
        return first;
    const std::optional<Utf8Form> form = FormOf(first);
    if (!form)
        return std::nullopt;
    char32_t value = form->bits;
    std::size_t next = at;
    for (int i = 0; i < form->following; ++i, ++next) {
        if (next >= text.size() || (static_cast<unsigned char>(text[next]) & 0xC0) != 0x80)
            return std::nullopt;
        value = value << 6 | (static_cast<unsigned char>(text[next]) & 0x3FU);
    }
    if (value < form->least || !IsCharacter(value))
        return std::nullopt;
    at = next;
    return value;
}

bool IsUtf8(std::string_view text)
{
    std::size_t at = 0;
    while (at < text.size())
        if (!ReadUtf8(text, at))
            return false;
    return true;
}

std::string ValidUtf8(std::string_view text)
{
    std::string valid;
    valid.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t from = at;
        if (ReadUtf8(text, at))
            valid.append(text.substr(from, at - from));
        else
            AppendUtf8(valid, kReplacement);
    }
    return valid;
}

} // namespace sm::base
