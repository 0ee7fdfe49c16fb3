// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/automation/WideText.h"

#include <windows.h>

namespace sm::windows {
namespace {

bool IsHigh(wchar_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLow(wchar_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

/// Where the first surrogate stands that has no other half; the end when there is none.
std::size_t LoneSurrogate(std::wstring_view text)
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (IsHigh(text[i]) && i + 1 < text.size() && IsLow(text[i + 1]))
            ++i;
        else if (IsHigh(text[i]) || IsLow(text[i]))
            return i;
    }
    return text.size();
}

/// The same in the three bytes that UTF-8's scheme has for it.
std::size_t LoneSurrogate(std::string_view text)
{
    for (std::size_t at = text.find('\xED'); at != std::string_view::npos; at = text.find('\xED', at + 1))
        if (at + 2 < text.size() && (text[at + 1] & 0xE0) == 0xA0 && (text[at + 2] & 0xC0) == 0x80)
            return at;
    return text.size();
}

void Append(std::wstring& wide, std::string_view text)
{
    const int length = static_cast<int>(text.size());
    const int needed = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
    const std::size_t before = wide.size();
    wide.resize(before + static_cast<std::size_t>(needed));
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data() + before, needed);
}

void Append(std::string& narrow, std::wstring_view text)
{
    const int length = static_cast<int>(text.size());
    const int needed = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    const std::size_t before = narrow.size();
    narrow.resize(before + static_cast<std::size_t>(needed));
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, narrow.data() + before, needed, nullptr, nullptr);
}

} // namespace

std::wstring Wide(std::string_view text)
{
    std::wstring wide;
    for (std::size_t lone = LoneSurrogate(text); lone < text.size(); lone = LoneSurrogate(text)) {
        Append(wide, text.substr(0, lone));
        wide += static_cast<wchar_t>(0xD000 | (text[lone + 1] & 0x3F) << 6 | (text[lone + 2] & 0x3F));
        text.remove_prefix(lone + 3);
    }
    Append(wide, text);
    return wide;
}

std::string Utf8(std::wstring_view text)
{
    std::string narrow;
    for (std::size_t lone = LoneSurrogate(text); lone < text.size(); lone = LoneSurrogate(text)) {
        const wchar_t unit = text[lone];
        Append(narrow, text.substr(0, lone));
        for (const int byte : {0xED, 0x80 | (unit >> 6 & 0x3F), 0x80 | (unit & 0x3F)})
            narrow += static_cast<char>(byte);
        text.remove_prefix(lone + 1);
    }
    Append(narrow, text);
    return narrow;
}

} // namespace sm::windows
